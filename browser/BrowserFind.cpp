#include "browser/BrowserControl.h"
#include "browser/LoadState.h"
#include "browser/frmFindElement.h"
#include "browser/ui_BrowserControl.h"
#include "database/DatabaseState.h"
#include "model/TreeFilling.h"
#include "model/TreeKey.h"
#include "platform/MsgBox.h"
#include "platform/controls/TreeView.h"

#include <QPointer>

// The Find command: a text, the entries that contain it, and the way to the chosen one, which may have to be
// loaded first.

namespace {

/// The waypoint of that number, or another one of that text where the target has changed.
TreeEntries::Index FindWaypoint(const TreeEntries& tree, TreeEntries::Index connection,
                                const UnloadedEntry& found)
{
    const TreeEntries::Index there = tree.Child(connection, found.number - 1);
    if (there != 0 && tree.Text(there) == found.text)
        return there;
    for (auto entry = tree.Child(connection, 0); entry != 0; entry = tree.NextSibling(entry)) {
        if (tree.Text(entry) == found.text)
            return entry;
    }
    return 0;
}

TreeEntries::Index FindNode(const TreeEntries& tree, const UnloadedEntry& found)
{
    const TreeEntries::Index entry = tree.FindByKey(TreeKey{'N', found.number});
    return entry != 0 ? entry : tree.FindByKey(TreeKey{'N', found.number, found.conId});
}

TreeEntries::Index FindConnection(const TreeEntries& tree, const UnloadedEntry& found)
{
    TreeEntries::Index entry = tree.FindByKey(TreeKey{'C', found.conId});
    if (entry == 0)
        FindConnectionEntry(found.conName, tree, entry);
    return entry;
}

} // namespace

void BrowserControl::FindElement_Click()
{
    RunCommand(&BrowserControl::FindInTree);
}

void BrowserControl::FindInTree()
{
    const Entry root = ShownEntries().FindByKey(RootKey);
    if (root == 0 || ShownEntries().ChildCount(root) == 0)
        return;
    const bool mayBeUnloaded = Database().DatabaseOpen;
    const bool moreNodes = Load().LoadMoreId != 0;
    const QPointer<BrowserControl> alive(this);
    const QPointer<frmFindElement> form(new frmFindElement(this));
    form->tvw = &ShownView();
    if (mayBeUnloaded && m_ui->optCon->isChecked())
        form->unloaded = UnloadedBelowConnections(*m_conTree, m_ui->chkViewNodes->isChecked());
    else if (mayBeUnloaded && moreNodes)
        form->unloaded = Unloaded::Nodes;
    form->SetText(m_searched);
    form->exec();
    if (!alive || !form)
        return;
    m_searched = form->Text();
    const FoundEntry found = form->result;
    delete form;
    if (found)
        (void)GoToFound(found);
}

bool BrowserControl::GoToFound(const FoundEntry& found)
{
    Entry entry = found.entry;
    if (found.unloaded && !LoadFound(*found.unloaded, entry))
        return false;
    TreeView& view = ShownView();
    if (!ShownEntries().Exists(entry))
        return true;
    const QPointer<BrowserControl> alive(this);
    view.setFocus(Qt::OtherFocusReason);
    view.ClickIndex(ShownEntries().ModelIndex(entry));
    return alive;
}

bool BrowserControl::LoadFound(const UnloadedEntry& found, Entry& entry)
{
    // The load has told then.
    bool loadFailed = false;
    if (m_ui->optCon->isChecked()) {
        const Entry connection = FindConnection(*m_conTree, found);
        if (connection != 0 && !LoadFoundBelow(connection, found, entry))
            return false;
        loadFailed = connection != 0 && !m_conTree->Expanded(connection);
    } else {
        // Load More goes on where it was, and leaves out what the tree has.
        const NewTreeEntry node = {found.number, found.text};
        m_nodesTree->AddNodes(m_nodesTree->FindByKey(RootKey), std::span(&node, 1));
        entry = FindNode(*m_nodesTree, found);
    }
    const QPointer<BrowserControl> alive(this);
    if (entry == 0 && !loadFailed)
        MsgBox(tr("%1 is not in the database any more.").arg(found.text));
    return alive;
}

bool BrowserControl::LoadFoundBelow(Entry connection, const UnloadedEntry& found, Entry& entry)
{
    if (found.isWaypoint) {
        if (m_conTree->ChildCount(connection) == 0)
            LoadConWaypoints(connection);
        entry = FindWaypoint(*m_conTree, connection, found);
        return true;
    }
    if (FindNode(*m_conTree, found) == 0 && !LoadConNodes(connection))
        return false;
    // Where the operator has interrupted the load, the rest can still be loaded behind it.
    if (FindNode(*m_conTree, found) == 0 && m_conTree->FindContinued(connection) != 0) {
        const NewTreeEntry node = {found.number, found.text};
        m_conTree->AddNodes(connection, std::span(&node, 1));
    }
    entry = FindNode(*m_conTree, found);
    return true;
}
