#include "browser/BrowserControl.h"
#include "browser/ui_BrowserControl.h"
#include "database/DatabaseState.h"
#include "database/Gateway.h"
#include "database/ReadBracket.h"
#include "model/ModelState.h"
#include "platform/controls/TreeView.h"

// The Add command: a new connection or node, from nothing or as a copy of the selected one.

namespace {

const QString NewConnectionName = QStringLiteral("New Connection");
const QString NewNodeName = QStringLiteral("New Node");
const QString DefaultNodeType = QStringLiteral("NET4");

} // namespace

void BrowserControl::AddRecord()
{
    if (!Database().EditRight)
        return;
    const Entry selected = SelectedEntry(ShownView());
    const QChar kind = ShownEntries().Kind(selected);
    if (!m_ui->optCon->isChecked()) {
        if (kind == QLatin1Char('N'))
            AddNodeFromEntry(selected);
        else
            AddNewNode();
        return;
    }
    const bool viewNodes = m_ui->chkViewNodes->isChecked();
    if (kind == QLatin1Char('C'))
        AddConnectionFromEntry(selected);
    else if (viewNodes && kind == QLatin1Char('N'))
        AddNodeFromEntry(selected);
    else if (!viewNodes && kind == QLatin1Char('W'))
        AddConnectionFromEntry(m_conTree->Parent(selected));
    else
        AddNewConnection();
}

void BrowserControl::AddNewConnection()
{
    ConData& con = *Model().ConObject;
    if (!con.SetConDataToUnknownCon())
        return;
    con.ConName = NewConnectionName;
    con.NewCon = true;
    con.SaveFromScan = false;
    if (ShowDialog(Opening().ConnectionProperties))
        EnableForSelection();
}

void BrowserControl::AddConnectionFromEntry(Entry connection)
{
    if (!ReadConnection(connection))
        return;
    ConData& con = *Model().ConObject;
    con.ConName = NewConnectionName;
    con.NewCon = true;
    con.SaveFromScan = false;
    if (!ShowDialog(Opening().ConnectionProperties))
        return;
    const ClickReads reads(*this);
    ShowTargetOfSelectedConnection();
    EnableForSelection();
}

void BrowserControl::AddNodeFromEntry(Entry node)
{
    if (ReadNode(node, false))
        ShowNewNode();
}

void BrowserControl::AddNewNode()
{
    Model().ConObject->Clear();
    QString longName;
    if (Gateway().GetNodeTypeLongNameDb(DefaultNodeType, longName) && Model().ConObject &&
        ConData::SetNodeTypeData(longName))
        ShowNewNode();
}

void BrowserControl::ShowNewNode()
{
    ConData& con = *Model().ConObject;
    con.NewNode = true;
    con.NodeName = NewNodeName;
    con.NodeDbID = 0;
    if (!ShowDialog(Opening().NodeProperties))
        return;
    const ClickReads reads(*this);
    ShowTargetOfSelectedNode();
    EnableForSelection();
}
