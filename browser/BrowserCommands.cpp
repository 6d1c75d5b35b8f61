#include "browser/BrowserControl.h"
#include "browser/BrowserState.h"
#include "browser/HandedTrees.h"
#include "browser/StaleRecords.h"
#include "browser/ui_BrowserControl.h"
#include "database/DatabaseState.h"
#include "database/ManagerLaunch.h"
#include "database/ReadBracket.h"
#include "database/SaveRoutines.h"
#include "database/UnitOfWork.h"
#include "model/ModelState.h"
#include "platform/MsgBox.h"
#include "platform/controls/IntervalTimer.h"
#include "platform/controls/TreeView.h"

#include <QPointer>
#include <QScopeGuard>

// The commands of the Database tab, and what they have in common. A box or a dialog that stands open lets the
// host do anything, even destroy the control, so each asks behind it whether there is one left.

void BrowserControl::cmdDatabaseAdd_Click()
{
    RunCommand(&BrowserControl::AddRecord);
}

void BrowserControl::cmdDatabaseProp_Click()
{
    RunCommand(&BrowserControl::ShowProperties);
}

void BrowserControl::cmdDatabaseRemove_Click()
{
    RunCommand(&BrowserControl::RemoveSelected);
}

void BrowserControl::cmdDatabaseManage_Click()
{
    RunCommand(&BrowserControl::LaunchSelectedManager);
}

// Frame -----------------------------------------------------------------------------------------------------

void BrowserControl::RunCommand(void (BrowserControl::*steps)())
{
    // A key may ask for a command while another one's dialog stands open.
    if (Browser().Busy > 0 || !Model().ConObject)
        return;
    const BusyScope busy;
    const QPointer<BrowserControl> alive(this);
    const auto restoreTimer = qScopeGuard([&] {
        if (alive)
            m_tmrRefreshTimer->SetEnabled(m_refreshTimer);
    });
    m_tmrRefreshTimer->SetEnabled(false);
    EndClickReads();
    // Another control may have offered its own since.
    OfferHooks();
    Model().ConObject->optCon = m_ui->optCon->isChecked();
    (this->*steps)();
}

bool BrowserControl::RunOnEntries(std::initializer_list<CheckedEntry> entries,
                                  const std::function<bool()>& work, const QString& failure)
{
    const QPointer<BrowserControl> alive(this);
    StaleRecord stale;
    const bool done = UnitOfWork({m_conTree, m_nodesTree}).Run([&](UnitOfWork& unit) {
        unit.Begin();
        if (!alive)
            UnitOfWork::GiveUp();
        for (const CheckedEntry& checked : entries) {
            if (!(checked.isNode ? CheckNodeEntry(checked.tree, checked.entry, stale)
                                 : CheckConEntry(checked.tree, checked.entry, stale)))
                UnitOfWork::GiveUp();
        }
        if (!work()) {
            ErrorBox(failure);
            UnitOfWork::GiveUp();
        }
        unit.Commit();
    });
    if (alive && !stale.text.isEmpty())
        (void)TellStaleEntry(stale);
    return done && alive;
}

bool BrowserControl::ShowDialog(const DialogOpening::Opener& dialog)
{
    const QPointer<BrowserControl> alive(this);
    {
        ConData& con = *Model().ConObject;
        con.SelectedTreeNodeIndex = SelectedEntry(ShownView());
        con.ViewNodesChecked = m_ui->chkViewNodes->isChecked();
        const HandedTrees handed(m_conTree, m_nodesTree);
        dialog(con, this);
        if (alive)
            cmdRefresh_Click();
    }
    if (!alive || !Model().ConObject)
        return false;
    m_tmrRefreshTimer->SetEnabled(false);
    SelectTreeEntry(ShownView(), Model().ConObject->SelectedTreeNodeIndex);
    RestoreViewSelection();
    return alive;
}

void BrowserControl::ShowTargetOfSelectedConnection()
{
    const Entry selected = SelectedEntry(*m_ui->tvwConTree);
    if (m_ui->optCon->isChecked() && m_conTree->Kind(selected) == QLatin1Char('C'))
        SetConnectionTargetText(m_conTree->Text(selected));
}

void BrowserControl::ShowTargetOfSelectedNode()
{
    if (ShownEntries().Kind(SelectedEntry(ShownView())) != QLatin1Char('N'))
        return;
    QString parentName;
    if (m_ui->optCon->isChecked())
        ConTreeSetTargetText();
    else
        NodesTreeSetTargetText(parentName);
}

void BrowserControl::EnableForSelection()
{
    const Entry selected = SelectedEntry(ShownView());
    // What can still be loaded belongs to a node's connection.
    const bool isBelow = m_ui->optCon->isChecked() && m_conTree->Kind(selected) == QLatin1Char('N');
    EnableCmdLoadMore(isBelow ? m_conTree->Parent(selected) : selected);
}

// Properties ------------------------------------------------------------------------------------------------

bool BrowserControl::ReadConnection(Entry connection)
{
    return RunOnEntries(
        {{*m_conTree, connection, false}},
        [&] { return Model().ConObject && Model().ConObject->SetConDataFromNode(*m_conTree, connection); },
        tr("Failure to get connection data from database."));
}

bool BrowserControl::ReadNode(Entry node, bool withConnection)
{
    const TreeEntries& tree = ShownEntries();
    const auto read = [&] { return Model().ConObject && Model().ConObject->SetNodeDataFromNode(tree, node); };
    const QString failure = tr("Failure to get node data from database.");
    if (withConnection)
        return RunOnEntries({{tree, tree.Parent(node), false}, {tree, node, true}}, read, failure);
    return RunOnEntries({{tree, node, true}}, read, failure);
}

void BrowserControl::ShowProperties()
{
    const Entry selected = SelectedEntry(ShownView());
    const QChar kind = ShownEntries().Kind(selected);
    if (kind == QLatin1Char('N'))
        ShowNodeProperties(selected);
    else if (kind == QLatin1Char('C'))
        ShowConnectionProperties(selected);
    else if (kind == QLatin1Char('W'))
        ShowConnectionProperties(m_conTree->Parent(selected));
}

void BrowserControl::ShowConnectionProperties(Entry connection)
{
    const bool fromWaypoint = SelectedEntry(*m_ui->tvwConTree) != connection;
    if (!ReadConnection(connection))
        return;
    Model().ConObject->NewCon = false;
    Model().ConObject->SaveFromScan = false;
    if (!ShowDialog(Opening().ConnectionProperties))
        return;
    const ClickReads reads(*this);
    const Entry selected = SelectedEntry(*m_ui->tvwConTree);
    const QChar kind = m_conTree->Kind(selected);
    const Entry shown = kind == QLatin1Char('W') ? m_conTree->Parent(selected) : selected;
    if (m_conTree->Kind(shown) == QLatin1Char('C')) {
        SetConnectionTargetText(m_conTree->Text(shown));
        if (fromWaypoint && !m_ui->chkViewNodes->isChecked())
            LoadConWaypoints(shown);
    }
    EnableForSelection();
}

void BrowserControl::ShowNodeProperties(Entry node)
{
    if (!ReadNode(node, m_ui->optCon->isChecked()))
        return;
    Model().ConObject->NewNode = false;
    if (!ShowDialog(Opening().NodeProperties))
        return;
    const ClickReads reads(*this);
    ShowTargetOfSelectedNode();
    EnableForSelection();
}

// Remove ----------------------------------------------------------------------------------------------------

void BrowserControl::RemoveSelected()
{
    if (!Database().EditRight)
        return;
    const QPointer<BrowserControl> alive(this);
    const Entry selected = SelectedEntry(ShownView());
    const QChar kind = ShownEntries().Kind(selected);
    bool removed = false;
    if (selected == 0)
        RestoreViewSelection();
    else if (kind == QLatin1Char('N'))
        removed = RemoveSelectedNode(selected);
    else if (kind != QLatin1Char('R'))
        removed = RemoveSelectedConnection(kind == QLatin1Char('W') ? m_conTree->Parent(selected) : selected);
    if (!removed || !alive)
        return;

    RestoreViewSelection();
    if (!alive)
        return;
    const ClickReads reads(*this);
    const Entry now = SelectedEntry(ShownView());
    if (m_ui->optCon->isChecked()) {
        if (m_conTree->Kind(now) == QLatin1Char('C'))
            (void)ShowConnection(m_conTree->Text(now));
        ShowTargetOfSelectedConnection();
    } else if (m_nodesTree->Kind(now) == QLatin1Char('N')) {
        QString parentName;
        NodesTreeSetTargetText(parentName);
        (void)ShowConnection(parentName);
    }
    EnableForSelection();
}

bool BrowserControl::RemoveSelectedNode(Entry node)
{
    const QPointer<BrowserControl> alive(this);
    const TreeEntries& tree = ShownEntries();
    const QString name = tree.Text(node);
    if (MsgBox(tr("Do you want to remove Node %1 from database ?").arg(name), BoxFlags::OkCancel) !=
            BoxAnswer::Ok ||
        !alive)
        return false;
    const bool inNodeView = &tree == m_nodesTree;
    return RunOnEntries(
        {{tree, node, true}},
        [&] {
            return RemoveNodeEntry(name, *m_conTree, *m_nodesTree, inNodeView,
                                   SelectedEntry(*m_ui->tvwConTree));
        },
        tr("Failure in removing Node %1.").arg(name));
}

bool BrowserControl::RemoveSelectedConnection(Entry connection)
{
    const QPointer<BrowserControl> alive(this);
    const QString name = m_conTree->Text(connection);
    if (MsgBox(tr("Do you want to remove Connection %1 and all its nodes from database ?").arg(name),
               BoxFlags::OkCancel) != BoxAnswer::Ok ||
        !alive)
        return false;
    if (!RunOnEntries(
            {{*m_conTree, connection, false}}, [&] { return RemoveConnection(name); },
            tr("Failure in removing Connection %1.").arg(name)))
        return false;
    // The entry goes with what the Journal tells.
    cmdRefresh_Click();
    return alive;
}

// Manage ----------------------------------------------------------------------------------------------------

void BrowserControl::LaunchSelectedManager()
{
    const Entry selected = SelectedEntry(ShownView());
    ManagerCommand command;
    if (selected == 0)
        MsgBox(tr("Nothing is selected, select a node from the tree."));
    else if (ShownEntries().Kind(selected) != QLatin1Char('N'))
        MsgBox(tr("Only nodes can be used to launch a manager, select a node from the tree."));
    else if (ReadManagerCommand(ShownEntries().Text(selected), command))
        LaunchManager(command);
}
