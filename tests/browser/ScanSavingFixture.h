#pragma once

#include "scan/FoundNodesGrid.h"
#include "tests/browser/DirectFixture.h"
#include "tests/support/ModalForms.h"

#include <algorithm>

/// A control on the Direct page, which has chosen Alpha, with its real windows. The scan dialog opens with
/// found nodes: "West" at 3, "Taken" at 17, a name that a node on Alpha has, and one without an
/// identification at 20.
class ScanSavingFixture : public DirectFixture, public ModalForms
{
public:
    ScanSavingFixture()
    {
        Component.Store.EditRight = true;
        Database().EditRight = true;
        Component.Store.AddNode(QStringLiteral("Taken"), QStringLiteral("Alpha"), QString(),
                                QStringLiteral("WP=NET4,ADDR=9"));
        Opening() = DialogOpening();
        Choose(QStringLiteral("Alpha"));
        Forget();
    }

    /// Works in the form that the next command of the scan dialog shows.
    void InNextScanForm(const std::function<void(QDialog& form)>& work) { m_inScanForm = work; }
    /// Scans, selects a found node, 0 for none, and works in the dialog.
    void InScan(int row, const std::function<void(QDialog& scan)>& work) const
    {
        InNextDialog([this, row, work](QDialog& scan) {
            auto& grid = FindIn<FoundNodesGrid>(scan, "grdFoundNodes");
            grid.StoreFoundNode(3, QStringLiteral("T"), QStringLiteral("West"));
            grid.StoreFoundNode(17, QStringLiteral("T"), QStringLiteral("Taken"));
            grid.StoreFoundNode(20, QStringLiteral("T"), QString());
            QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, grid.CellRect(qMax(row, 1), 0).center());
            grid.SelectGridRow(static_cast<qint16>(row));
            if (m_inScanForm)
                InNextDialog(m_inScanForm);
            work(scan);
        });
        Find<QPushButton>("cmdScan").click();
    }
    [[nodiscard]] QString StoredTarget(const QString& name) const
    {
        for (const auto& connection : Component.Store.Now.connections) {
            if (connection.name == name)
                return connection.target;
        }
        return QStringLiteral("none");
    }
    [[nodiscard]] qint32 StoredId(const QString& name) const
    {
        for (const auto& connection : Component.Store.Now.connections) {
            if (connection.name == name)
                return connection.id;
        }
        return -1;
    }
    [[nodiscard]] bool HasNode(const QString& name) const
    {
        const auto& nodes = Component.Store.Now.nodes;
        return std::any_of(nodes.begin(), nodes.end(), [&](const auto& node) { return node.name == name; });
    }

private:
    std::function<void(QDialog& form)> m_inScanForm;
};
