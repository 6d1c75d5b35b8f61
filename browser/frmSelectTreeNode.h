#pragma once

#include "browser/FoundEntries.h"

#include <QDialog>
#include <QPointer>
#include <QTimer>

#include <memory>

class TreeView;

namespace Ui {
class frmSelectTreeNode;
}

/// Shows the entries of a tree that contain a text, and lets the operator choose one.
///
/// Set `tvw` and `match`, show it modally and read `result`. The entries of the tree are there at once; what
/// it has left in the database is looked for between events and then stands in a group of its own. A change
/// of the tree changes what is shown.
class frmSelectTreeNode : public QDialog
{
    Q_OBJECT
    /// The database is still being asked.
    Q_PROPERTY(bool searching READ IsSearching)

public:
    explicit frmSelectTreeNode(QWidget* parent = nullptr);
    ~frmSelectTreeNode() override;

    /// The tree to search; it shows TreeEntries.
    QPointer<TreeView> tvw;
    Unloaded unloaded = Unloaded::Nothing;
    /// The searched text.
    QString match;
    /// The chosen entry, or none.
    FoundEntry result;

    [[nodiscard]] bool IsSearching() const { return m_search != nullptr; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    void Form_Activate();
    /// Brings the entries of the source tree that contain the text into tvwNodes.
    void copyTreeView();
    /// Behind a change of the source tree.
    void CopyAnew();
    void SelectFirstHit();
    void tvwNodes_Change();
    void tvwNodes_DblClick();
    void tvwNodes_KeyPress(ushort keyAscii);
    void btnOK_Click();
    void btnBack_Click();
    void cmdSearchStop_Click();

    void BeginSearch();
    void SearchSome();
    void EndSearch();
    /// Shows what the database has, and how many hits there are.
    void ShowUnloaded();
    void TellNoItems();
    [[nodiscard]] const TreeEntries* Tree() const;

    std::unique_ptr<Ui::frmSelectTreeNode> m_ui;
    FoundEntries m_found;
    bool m_formActivated = false;
    QTimer m_copyDue;
    QTimer m_betweenSteps;
    QTimer m_progressDue;
    /// Null while none runs. Shared with the step that runs: a box of its own may see the form destroyed.
    std::shared_ptr<UnloadedSearch> m_search;
    /// What the search has brought.
    std::vector<UnloadedEntry> m_hits;
    bool m_hasMore = false;
    bool m_stopped = false;
    bool m_failed = false;
};
