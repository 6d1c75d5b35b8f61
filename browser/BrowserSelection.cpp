#include "browser/BrowserControl.h"
#include "browser/BrowserState.h"
#include "browser/ConnectionTypes.h"
#include "browser/StaleRecords.h"
#include "browser/ui_BrowserControl.h"
#include "database/Gateway.h"
#include "database/ReadBracket.h"
#include "model/LookupHelpers.h"
#include "model/ModelState.h"
#include "model/TextHelpers.h"
#include "platform/MsgBox.h"

#include <QPointer>

// From a click on an entry to the target that the host reads.

// Stale entries ---------------------------------------------------------------------------------------------

bool BrowserControl::TellStaleEntry(const StaleRecord& stale)
{
    const QPointer<BrowserControl> alive(this);
    // The snapshot of the click is as old as the entry.
    EndClickReads();
    ShownView().DropMenu();
    const BusyScope busy;
    MsgBox(stale.text);
    if (alive && stale.refreshFollows)
        cmdRefresh_Click();
    return alive;
}

void BrowserControl::tvwConTree_NodeClick(Entry entry)
{
    if (!m_ui->optCon->isChecked() || !m_conTree->Exists(entry))
        return;
    const QChar kind = m_conTree->Kind(entry);
    if (kind == QLatin1Char('R'))
        return;
    // The node first, whose record brings its connection's along; the connection's message goes before.
    const bool nodeIsCurrent = kind != QLatin1Char('N') || NodeIsCurrent(*m_conTree, entry);
    const Entry connection = kind == QLatin1Char('C') ? entry : m_conTree->Parent(entry);
    QString text;
    if (!ConnectionIsCurrent(*m_conTree, connection))
        text = ConnectionChangedText(m_conTree->Text(connection));
    else if (!nodeIsCurrent)
        text = NodeChangedText(m_conTree->Text(entry));
    else
        return;
    if (TellStaleEntry({text, true}))
        m_conTreeSkipClick = true;
}

void BrowserControl::tvwNodesTree_NodeClick(Entry entry)
{
    if (!m_ui->optNodes->isChecked() || m_nodesTree->Kind(entry) != QLatin1Char('N') ||
        NodeIsCurrent(*m_nodesTree, entry))
        return;
    if (TellStaleEntry({NodeChangedText(m_nodesTree->Text(entry)), true}))
        m_nodesTreeSkipClick = true;
}

// Selection -------------------------------------------------------------------------------------------------

void BrowserControl::tvwConTree_Click()
{
    m_ui->tvwConTree->viewport()->update();
    if (std::exchange(m_conTreeSkipClick, false))
        return;
    const Entry selected = SelectedEntry(*m_ui->tvwConTree);
    if (selected == 0 || !m_ui->optCon->isChecked())
        return;
    const ClickReads reads(*this);
    switch (m_conTree->Kind(selected).unicode()) {
    case u'C':
        if (ShowConnection(m_conTree->Text(selected)) && SetConnectionTargetText(m_conTree->Text(selected)))
            EnableCmdLoadMore(selected);
        break;
    case u'W': {
        const QString name = m_conTree->Text(m_conTree->Parent(selected));
        if (ShowConnection(name))
            SetConnectionTargetText(name);
        break;
    }
    case u'N':
        if (ShowConnection(m_conTree->Text(m_conTree->Parent(selected)))) {
            ConTreeSetTargetText();
            EnableCmdLoadMore(m_conTree->Parent(selected));
        }
        break;
    default:
        ShowConPicture(NoConType);
        ClearTarget();
        EnableCmdLoadMore(selected);
        m_ui->fraConData->SetCaption(tr("Connections"));
        break;
    }
}

void BrowserControl::tvwNodesTree_Click()
{
    m_ui->tvwNodesTree->viewport()->update();
    if (std::exchange(m_nodesTreeSkipClick, false))
        return;
    const Entry selected = SelectedEntry(*m_ui->tvwNodesTree);
    if (!m_ui->optNodes->isChecked() || selected == 0)
        return;
    const ClickReads reads(*this);
    if (m_nodesTree->Kind(selected) != QLatin1Char('N')) {
        EnableCmdLoadMore(selected);
        ShowConPicture(NoConType);
        ClearTarget();
        m_ui->fraConData->SetCaption(tr("Nodes"));
        return;
    }
    QString parentName;
    NodesTreeSetTargetText(parentName);
    EnableCmdLoadMore(selected);
    // Without a type the caption stays.
    (void)ShowConnection(parentName);
}

bool BrowserControl::ShowConnection(const QString& name)
{
    QString typeName;
    ShowConPicture(GetConPicture(name, typeName));
    QString longName;
    if (!Gateway().GetConTypeLongNameDb(typeName, longName))
        return false;
    m_ui->fraConData->SetCaption(longName + QStringLiteral(": ") + name);
    return true;
}

bool BrowserControl::SetConnectionTargetText(const QString& name)
{
    if (!Model().ConObject || !Model().ConObject->GetParentWithoutDefaults(name, m_targetText))
        return false;
    ShowTarget();
    SetSobriquet(Trim(name));
    SetNodeType(QString());
    SetCommandLine(QString());
    return true;
}

void BrowserControl::ConTreeSetTargetText()
{
    ClearTarget();
    QString parentName;
    if (const Entry selected = SelectedEntry(*m_ui->tvwConTree))
        SetNodeTargetText(m_conTree->Text(selected), parentName);
}

void BrowserControl::NodesTreeSetTargetText(QString& parentName)
{
    ClearTarget();
    if (const Entry selected = SelectedEntry(*m_ui->tvwNodesTree))
        SetNodeTargetText(m_nodesTree->Text(selected), parentName);
}

void BrowserControl::SetNodeTargetText(const QString& name, QString& parentName)
{
    // Only a complete target reaches the text box; what there is of it stays in m_targetText.
    if (!Model().ConObject || !Gateway().GetNodeDb(name, parentName, m_targetText))
        return;
    m_targetText.clear();
    if (!Model().ConObject->GetNodeWithoutDefaults(name, m_targetText))
        return;
    QString nodeType;
    QString commandLine;
    if (!Gateway().GetNodeNmaTagDb(name, nodeType, commandLine))
        return;
    QString parentTarget;
    if (!Model().ConObject->GetParentWithoutDefaults(parentName, parentTarget))
        return;
    m_targetText = parentTarget + QLatin1Char(',') + m_targetText;
    ShowTarget();
    SetSobriquet(Trim(name));
    SetNodeType(nodeType);
    SetCommandLine(commandLine);
}

void BrowserControl::ShowTarget()
{
    m_ui->txtTarget->setText(m_targetText);
    // A long target shows its beginning.
    m_ui->txtTarget->setCursorPosition(0);
}

void BrowserControl::ClearTarget()
{
    m_targetText.clear();
    m_ui->txtTarget->clear();
    SetSobriquet(QString());
    SetNodeType(QString());
    SetCommandLine(QString());
}

void BrowserControl::SelectTreeEntry(TreeView& tree, Entry entry)
{
    if (!tree.isVisible() || !Browser().ControlInitialized)
        return;
    tree.setFocus(Qt::OtherFocusReason);
    const auto& entries = static_cast<const TreeEntries&>(*tree.model());
    const Entry wanted = entry == SelectedAgain ? SelectedEntry(tree) : entry;
    if (!entries.Exists(wanted))
        return;
    tree.SelectIndex(entries.ModelIndex(wanted));
    // One that is selected already may have moved, as behind a new name.
    if (entry != SelectedAgain && entries.Exists(wanted))
        tree.scrollTo(entries.ModelIndex(wanted));
}

void BrowserControl::RestoreViewSelection()
{
    if (m_ui->optCon->isChecked()) {
        SelectTreeEntry(*m_ui->tvwConTree, SelectedAgain);
        tvwConTree_Click();
    } else {
        SelectTreeEntry(*m_ui->tvwNodesTree, SelectedAgain);
        tvwNodesTree_Click();
    }
}

BrowserControl::Entry BrowserControl::SelectedEntry(const TreeView& tree) const
{
    const QModelIndex selected = tree.SelectedIndex();
    return selected.isValid() ? TreeEntries::EntryOf(selected) : 0;
}

TreeView& BrowserControl::ShownView() const
{
    return m_ui->optCon->isChecked() ? *m_ui->tvwConTree : *m_ui->tvwNodesTree;
}

TreeEntries& BrowserControl::ShownEntries() const
{
    return m_ui->optCon->isChecked() ? *m_conTree : *m_nodesTree;
}

// Double clicks ---------------------------------------------------------------------------------------------

void BrowserControl::tvwConTree_DblClick()
{
    m_conTreeSkipClick = true;
    (void)OpenConEntry();
}

bool BrowserControl::OpenConEntry()
{
    const Entry selected = SelectedEntry(*m_ui->tvwConTree);
    if (!m_ui->optCon->isChecked() || selected == 0 || selected == RootEntry ||
        m_conTree->ChildCount(selected) > 0)
        return false;
    EndClickReads();
    if (m_conTree->Kind(selected) != QLatin1Char('C')) {
        RunPropertiesOfWaypoint();
        return true;
    }
    if (m_ui->chkViewNodes->isChecked()) {
        if (!LoadConNodes(selected))
            return true;
        EnableCmdLoadMore(selected);
    } else {
        LoadConWaypoints(selected);
        m_conTreeSkipClick = false;
    }
    return false;
}

void BrowserControl::RunPropertiesOfWaypoint()
{
    // Also while the button is disabled, as it stays for a waypoint that is selected behind the root.
    Q_EMIT m_ui->cmdDatabaseProp->clicked();
}

void BrowserControl::tvwNodesTree_DblClick()
{
    m_nodesTreeSkipClick = true;
    EndClickReads();
    m_ui->cmdDatabaseProp->click();
}
