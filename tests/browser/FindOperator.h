#pragma once

#include "browser/T4ZelkaBrowser.h"
#include "platform/TreeRows.h"
#include "platform/controls/TreeView.h"
#include "tests/browser/BrowserTestSupport.h"
#include "tests/support/ModalForms.h"

#include <QPointer>
#include <QProgressBar>

/// An operator who searches: presses Find, types, presses Next and works among the hits.
class FindOperator : public ModalForms
{
public:
    using Work = std::function<void(QDialog& dialog)>;

    /// Returns when the command has ended. `inResult` works in the dialog with the hits; `back` in the first
    /// dialog, when that is still there behind it: without it, Cancel.
    static void Search(const T4ZelkaBrowser& control, const QString& text, const Work& inResult,
                       const Work& back = nullptr)
    {
        InFindDialog(control, [=](QDialog& find) {
            const QPointer<QDialog> alive(&find);
            auto& box = FindIn<QLineEdit>(find, "txtMatch_Patern");
            box.selectAll();
            // At once: test keys are those of plain letters.
            box.insert(text);
            if (inResult)
                InNextDialog([=](QDialog& result) { WaitAndWork(result, inResult); });
            ClickIn(find, "Go");
            if (alive && alive->isVisible())
                back ? back(find) : find.reject();
        });
    }
    static void InFindDialog(const T4ZelkaBrowser& control, const Work& work)
    {
        InNextDialog(work);
        QTest::mouseClick(&Child<QToolButton>(control, "FindElement"), Qt::LeftButton);
    }

    /// The hits as they are shown, each with a blank for each level before it.
    static QStringList RowsOf(const QDialog& result)
    {
        const TreeRows& rows = *FindIn<TreeView>(result, "tvwNodes").Rows();
        QStringList texts;
        for (int row = 0; row < rows.VisibleRowCount(); ++row) {
            const QModelIndex index = rows.IndexAtVisibleRow(row);
            texts << QString(rows.DepthOf(index), u' ') + index.data().toString();
        }
        return texts;
    }
    /// Clicks on a row, from 0.
    static void ClickRow(const QDialog& result, int row)
    {
        auto& tree = FindIn<TreeView>(result, "tvwNodes");
        const QModelIndex index = tree.Rows()->IndexAtVisibleRow(row);
        tree.scrollTo(index);
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualRect(index).center());
    }
    /// Work that chooses the row with that text, as RowsOf gives it.
    static Work Choose(const QString& text)
    {
        return [text](QDialog& result) {
            ClickRow(result, static_cast<int>(RowsOf(result).indexOf(text)));
            ClickIn(result, "btnOK");
        };
    }

private:
    static void WaitAndWork(QDialog& result, const Work& work)
    {
        // The first dialog is there again when nothing was found.
        if (result.objectName() != QLatin1String("frmSelectTreeNode"))
            return;
        if (!result.property("searching").toBool()) {
            work(result);
            return;
        }
        // A wait of its own would keep a search from its next step that lets events run inside of one.
        QTimer::singleShot(5, &result, [&result, work] { WaitAndWork(result, work); });
    }
};
