#include "browser/BrowserControl.h"
#include "browser/BrowserState.h"
#include "browser/LoadState.h"
#include "browser/frmConNodesProgress.h"
#include "browser/frmLoadProgress.h"
#include "browser/ui_BrowserControl.h"
#include "database/DatabaseState.h"
#include "database/Gateway.h"
#include "model/ModelState.h"
#include "model/TreeFilling.h"
#include "platform/MachineSeams.h"
#include "platform/Words.h"
#include "platform/controls/IntervalTimer.h"
#include "platform/controls/ModalForm.h"

#include <QPointer>

// The two views of the Database tab and what fills their trees.

namespace {

QString ConnectionsText()
{
    return Words::tr("Connections");
}

QString NodesText()
{
    return Words::tr("Nodes");
}

const QString NodeKeySuffix = QStringLiteral("N");

} // namespace

// Views -----------------------------------------------------------------------------------------------------

void BrowserControl::optCon_Click()
{
    if (!m_ui->optCon->isChecked())
        return;
    m_ui->fraConData->SetCaption(ConnectionsText());
    m_ui->chkViewNodes->setVisible(true);
    m_ui->stkTrees->setCurrentWidget(m_ui->pagConTree);
    if (!Model().ConObject)
        return;
    // A start fills the node tree alone.
    if (m_pagesAnswer && m_conTree->Count() == 0 && Database().DatabaseOpen && !FillConnections())
        return;
    Model().ConObject->optCon = true;
    SelectTreeEntry(*m_ui->tvwConTree, SelectedAgain);
    if (m_conTree->Count() > 0)
        EnableCmdLoadMore(RootEntry);
    tvwConTree_Click();
}

void BrowserControl::optNodes_Click()
{
    if (m_ui->optCon->isChecked())
        return;
    m_ui->fraConData->SetCaption(NodesText());
    m_ui->chkViewNodes->setVisible(false);
    m_ui->stkTrees->setCurrentWidget(m_ui->pagNodesTree);
    if (!Model().ConObject)
        return;
    Model().ConObject->optCon = false;
    SelectTreeEntry(*m_ui->tvwNodesTree, SelectedAgain);
    if (m_nodesTree->Count() > 0)
        EnableCmdLoadMore(RootEntry);
    tvwNodesTree_Click();
}

bool BrowserControl::FillConnections()
{
    const BusyScope busy;
    const BusyPointer pointer;
    QString list;
    PairTable items;
    int count = 0;
    if (!Gateway().QueryParentsDb(list) || !ConvertItemListToArray(list, true, items, count))
        return false;
    FillConnectionTree(ConnectionsText(), QStringLiteral("C"), count, items, *m_conTree, true);
    return true;
}

void BrowserControl::chkViewNodes_Click()
{
    if (!Model().ConObject)
        return;
    const BusyScope busy;
    const bool viewNodes = m_ui->chkViewNodes->isChecked();
    Model().ConObject->ViewNodesChecked = viewNodes;
    const std::vector<Entry> connections = m_conTree->ParentsWithChildren();
    for (const Entry connection : connections) {
        m_conTree->RemoveChildren(connection);
        // One that is not filled again stands closed, to be read when it is opened.
        m_conTree->SetExpanded(connection, false);
    }
    for (const Entry connection : connections) {
        if (viewNodes) {
            if (!ShowConNodesProgress(connection))
                return;
            ExpandLoaded(connection);
        } else {
            const BusyPointer pointer;
            if (!RefillConEntry(*m_conTree, connection, false))
                return;
        }
    }
    SelectTreeEntry(*m_ui->tvwConTree, SelectedAgain);
    if (const Entry selected = SelectedEntry(*m_ui->tvwConTree))
        EnableCmdLoadMore(selected);
}

// Loads -----------------------------------------------------------------------------------------------------

void BrowserControl::LoadConWaypoints(Entry connection)
{
    m_ui->tvwConTree->viewport()->update();
    // A look-up that fails leaves the connection closed, without a message of its own.
    if (!RefillConEntry(*m_conTree, connection, false))
        return;
}

bool BrowserControl::LoadConNodes(Entry connection)
{
    m_ui->tvwConTree->viewport()->update();
    if (!ShowConNodesProgress(connection))
        return false;
    m_conTreeSkipClick = false;
    ExpandLoaded(connection);
    return true;
}

bool BrowserControl::ShowConNodesProgress(Entry connection)
{
    LoadState& load = Load();
    load.LoadRootKey = ConnectionsText();
    load.LoadKeySuffix = NodeKeySuffix;
    load.LoadTree = m_conTree;
    load.LoadAddRoot = false;
    load.LoadParentNode = connection;
    if (!ShowModalForm<frmConNodesProgress>(this))
        return false;
    load.LoadTree = nullptr;
    // After a load that failed too: what the Journal adds later stands where a fresh load would show it.
    m_conTree->SetSorted(connection, true);
    return true;
}

void BrowserControl::ExpandLoaded(Entry connection)
{
    // Expanded without entries would mean that there are none, and later ones would pass for all.
    m_conTree->SetExpanded(connection, !Load().LoadFailed || m_conTree->ChildCount(connection) > 0);
}

void BrowserControl::cmdLoadMore_Click()
{
    const BusyScope busy;
    const QPointer<BrowserControl> alive(this);
    m_tmrRefreshTimer->SetEnabled(false);
    const bool loaded = m_ui->optCon->isChecked() ? LoadMoreNodesOfConnection() : LoadMoreNodes();
    if (loaded)
        RestoreViewSelection();
    if (alive)
        m_tmrRefreshTimer->SetEnabled(m_refreshTimer);
}

bool BrowserControl::LoadMoreNodesOfConnection()
{
    if (!m_ui->chkViewNodes->isChecked())
        return true;
    const Entry selected = SelectedEntry(*m_ui->tvwConTree);
    if (selected == 0 || m_conTree->Parent(selected) == 0)
        return false;
    const Entry connection =
        m_conTree->Kind(selected) == QLatin1Char('N') ? m_conTree->Parent(selected) : selected;
    if (!ShowConNodesProgress(connection))
        return false;
    ExpandLoaded(connection);
    EnableCmdLoadMore(selected);
    return true;
}

bool BrowserControl::LoadMoreNodes()
{
    LoadState& load = Load();
    load.LoadRootKey = NodesText();
    load.LoadKeySuffix = NodeKeySuffix;
    load.LoadTree = m_nodesTree;
    load.LoadAddRoot = false;
    if (m_nodesTree->Count() > 0) {
        load.LoadParentNode = RootEntry;
        m_nodesTree->SetExpanded(RootEntry, false);
        if (!ShowModalForm<frmLoadProgress>(this))
            return false;
        // Sorted also behind a load that failed.
        m_nodesTree->SetSorted(RootEntry, true);
        m_nodesTree->SetExpanded(RootEntry, true);
        EnableCmdLoadMore(RootEntry);
    }
    load.LoadTree = nullptr;
    return true;
}
