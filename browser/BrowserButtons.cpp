#include "browser/BrowserControl.h"
#include "browser/CommandReasons.h"
#include "browser/ConnectionTypes.h"
#include "browser/EntryIcons.h"
#include "browser/LoadState.h"
#include "browser/ui_BrowserControl.h"
#include "database/DatabaseState.h"
#include "database/Gateway.h"
#include "database/ReadBracket.h"
#include "model/LookupHelpers.h"
#include "model/TextHelpers.h"
#include "model/TreeFilling.h"

// Which buttons can be pressed, and the keys of the trees.

namespace {

// Key codes as the handlers take them.
constexpr int KeyReturn = 13;
constexpr int KeyDelete = 46;
constexpr int KeyF1 = 112;

int KeyCode(int key)
{
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return KeyReturn;
    case Qt::Key_Delete:
        return KeyDelete;
    case Qt::Key_F1:
        return KeyF1;
    default:
        return 0;
    }
}

/// 0 when no key that changes others is held down.
int ShiftState(Qt::KeyboardModifiers modifiers)
{
    return (modifiers & ~Qt::KeyboardModifiers(Qt::KeypadModifier)) == Qt::NoModifier ? 0 : 1;
}

} // namespace

// Events of the trees ---------------------------------------------------------------------------------------

void BrowserControl::ConnectTrees()
{
    TreeView* const con = m_ui->tvwConTree;
    TreeView* const nodes = m_ui->tvwNodesTree;
    con->setModel(m_conTree);
    nodes->setModel(m_nodesTree);
    for (TreeView* view : {con, nodes}) {
        view->SetIconProvider(EntryIcons());
        connect(view, &TreeView::ClickBegins, this, &BrowserControl::BeginClickReads);
        connect(view, &TreeView::ClickEnded, this, &BrowserControl::EndClickReads);
    }
    connect(con, &TreeView::NodeClick, this, [this](const QModelIndex& index) {
        Guarded([this, entry = TreeEntries::EntryOf(index)] { tvwConTree_NodeClick(entry); });
    });
    connect(con, &TreeView::Click, this, [this] { Guarded([this] { tvwConTree_Click(); }); });
    connect(con, &TreeView::DblClick, this, [this] { Guarded([this] { tvwConTree_DblClick(); }); });
    connect(con, &TreeView::KeyDown, this, [this](int key, Qt::KeyboardModifiers modifiers) {
        Guarded([this, key, modifiers] { tvwConTree_KeyDown(KeyCode(key), ShiftState(modifiers)); });
    });
    connect(con, &TreeView::KeyPress, this,
            [this](ushort& character) { Guarded([this, character] { tvwConTree_KeyPress(character); }); });

    connect(nodes, &TreeView::NodeClick, this, [this](const QModelIndex& index) {
        Guarded([this, entry = TreeEntries::EntryOf(index)] { tvwNodesTree_NodeClick(entry); });
    });
    connect(nodes, &TreeView::Click, this, [this] { Guarded([this] { tvwNodesTree_Click(); }); });
    connect(nodes, &TreeView::DblClick, this, [this] { Guarded([this] { tvwNodesTree_DblClick(); }); });
    connect(nodes, &TreeView::KeyDown, this, [this](int key, Qt::KeyboardModifiers modifiers, bool& swallow) {
        Guarded([&] { swallow = tvwNodesTree_KeyDown(KeyCode(key), ShiftState(modifiers)); });
    });
    connect(nodes, &TreeView::KeyPress, this, [this](ushort& character) {
        Guarded([&] {
            if (tvwNodesTree_KeyPress(character))
                character = 0;
        });
    });
}

void BrowserControl::BeginClickReads()
{
    if (!m_clickReads && Database().DatabaseOpen && Database().DbObject)
        m_clickReads = std::make_unique<ReadBracket>(*Database().DbObject);
}

void BrowserControl::EndClickReads()
{
    m_clickReads.reset();
}

BrowserControl::ClickReads::ClickReads(BrowserControl& control)
    : m_control(&control), m_outermost(!control.m_clickReads)
{
    control.BeginClickReads();
}

BrowserControl::ClickReads::~ClickReads()
{
    if (m_outermost && m_control)
        m_control->EndClickReads();
}

// Buttons ---------------------------------------------------------------------------------------------------

void BrowserControl::EnableCmdLoadMore(Entry entry)
{
    m_ui->cmdDatabaseAdd->setEnabled(true);
    m_ui->cmdDatabaseRemove->setEnabled(false);
    m_ui->cmdDatabaseProp->setEnabled(false);
    m_ui->cmdDbScan->setEnabled(false);
    m_ui->cmdDatabaseManage->setEnabled(true);
    if (m_ui->optCon->isChecked())
        EnableInConnectionView(entry == 0 ? RootEntry : entry);
    else
        EnableInNodeView();
    EnableByRights();
}

void BrowserControl::EnableInConnectionView(Entry entry)
{
    const Entry selected = SelectedEntry(*m_ui->tvwConTree);
    const QChar kind = m_conTree->Kind(selected);
    if (selected != 0 && kind == QLatin1Char('N')) {
        m_ui->cmdDatabaseAdd->setEnabled(false);
        m_ui->cmdDatabaseProp->setEnabled(true);
        m_ui->cmdDatabaseRemove->setEnabled(true);
    } else if (selected != 0 && kind != QLatin1Char('R')) {
        const Entry connection = kind == QLatin1Char('W') ? m_conTree->Parent(selected) : selected;
        m_ui->cmdDbScan->setEnabled(!IsSnmpConnection(m_conTree->Text(connection)));
        m_ui->cmdDatabaseProp->setEnabled(true);
        m_ui->cmdDatabaseRemove->setEnabled(true);
    }

    if (!m_ui->chkViewNodes->isChecked()) {
        m_ui->cmdLoadMore->setEnabled(false);
        m_ui->cmdDatabaseManage->setEnabled(false);
        return;
    }
    if (selected != 0)
        m_ui->cmdDatabaseManage->setEnabled(kind == QLatin1Char('N') && NodeManagerExists());
    if (m_conTree->ChildCount(entry) > 0) {
        qint32 position = 0;
        FindContinueMark(*m_conTree, entry, position, false);
        m_ui->cmdLoadMore->setEnabled(position != 0);
        return;
    }
    if (m_conTree->Parent(entry) == 0) {
        m_ui->cmdLoadMore->setEnabled(false);
        return;
    }
    qint32 count = 0;
    if (Gateway().GetParentNodesCountDb(m_conTree->Text(entry), count))
        m_ui->cmdLoadMore->setEnabled(count >= 1);
}

void BrowserControl::EnableInNodeView()
{
    const Entry selected = SelectedEntry(*m_ui->tvwNodesTree);
    const QChar kind = m_nodesTree->Kind(selected);
    if (selected != 0) {
        const bool isRoot = kind == QLatin1Char('R');
        m_ui->cmdDatabaseProp->setEnabled(!isRoot);
        m_ui->cmdDatabaseRemove->setEnabled(!isRoot);
        m_ui->cmdDatabaseManage->setEnabled(kind == QLatin1Char('N') && NodeManagerExists());
    }
    m_ui->cmdLoadMore->setEnabled(Load().LoadMoreId != 0);
}

void BrowserControl::EnableByRights()
{
    if (!Database().ScanRight) {
        m_ui->cmdScan->setEnabled(false);
        m_ui->cmdDbScan->setEnabled(false);
    }
    if (!Database().EditRight) {
        m_ui->cmdDatabaseAdd->setEnabled(false);
        m_ui->cmdDatabaseRemove->setEnabled(false);
    }
    m_reasons->Update();
}

// Keys ------------------------------------------------------------------------------------------------------

// Commands are run by pressing their buttons: a command that cannot be pressed does not run by its key
// either.

void BrowserControl::tvwConTree_KeyDown(int keyCode, int shift)
{
    if (keyCode == KeyF1) {
        ShowTreeHelp();
        return;
    }
    tvwConTree_Click();
    if (shift == 0 && keyCode == KeyDelete)
        m_ui->cmdDatabaseRemove->click();
    if (keyCode != KeyReturn)
        return;
    // No Click follows a key, so none is to be skipped.
    const bool ranProperties = shift == 0 && OpenConEntry();
    if (ranProperties)
        return;
    if (m_conTree->Kind(SelectedEntry(*m_ui->tvwConTree)) == QLatin1Char('W'))
        RunPropertiesOfWaypoint();
    else
        m_ui->cmdDatabaseProp->click();
}

void BrowserControl::tvwConTree_KeyPress(int keyAscii)
{
    // The character with the code of the Delete key: the period asks to remove as well.
    if (keyAscii == KeyDelete)
        m_ui->cmdDatabaseRemove->click();
}

bool BrowserControl::tvwNodesTree_KeyDown(int keyCode, int shift)
{
    if (keyCode == KeyF1) {
        ShowTreeHelp();
        return false;
    }
    tvwNodesTree_Click();
    if (shift != 0 || keyCode != KeyDelete)
        return false;
    m_ui->cmdDatabaseRemove->click();
    return true;
}

bool BrowserControl::tvwNodesTree_KeyPress(int keyAscii)
{
    if (keyAscii != KeyReturn)
        return false;
    // As a double click, but no Click follows a key, so none is to be skipped.
    m_ui->cmdDatabaseProp->click();
    return true;
}
