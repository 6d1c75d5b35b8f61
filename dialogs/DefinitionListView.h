#pragma once

#include "model/ParameterLists.h"

#include <QTreeWidget>

#include <vector>

/// The list of a connection's definition in the connection dialogs: waypoints, and beneath each of them its
/// parameters.
///
/// The columns fill the list in the proportion of their shares, also when it is resized; none is narrower
/// than its title. While parameters are shown the waypoints stand out in bold. Rows count from 1.
class DefinitionListView : public QTreeWidget, public DefinitionList
{
    Q_OBJECT

public:
    explicit DefinitionListView(QWidget* parent = nullptr);

    void Clear() override;
    void AddColumn(const QString& title, double share) override;
    void AddItem(const QString& key, const QStringList& texts) override;

    /// Key of the selected row; empty when none is selected.
    [[nodiscard]] QString SelectedKey() const;
    /// 0 when none is selected.
    [[nodiscard]] int SelectedRow() const;
    /// Selects a row and brings it into view; a row that there is none of selects nothing.
    void SelectRow(int row);

Q_SIGNALS:
    /// The operator double-clicked the list or pressed Enter in it, whether a row is selected or not.
    void Chosen();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void doItemsLayout() override;

private:
    void FitColumns();
    [[nodiscard]] int WidestText(int column) const;
    void ShowCutText(const QPoint& position, const QPoint& globalPosition) const;

    /// Share of each column.
    std::vector<double> m_shares;
};
