#include "database/NodeSaveSteps.h"

#include "database/Gateway.h"
#include "database/ManagerLaunch.h"
#include "database/SaveRoutines.h"
#include "database/SaveSupport.h"
#include "database/UnitOfWork.h"
#include "model/ConData.h"
#include "model/GridChecks.h"
#include "model/TextHelpers.h"
#include "model/TreeFilling.h"
#include "platform/Words.h"

namespace {

/// Gives the entry of a node the id that its record now has.
void RenewNodeKey(TreeEntries& tree, const QString& name, const QString& id)
{
    const TreeEntries::Index entry = NewestNodeEntry(tree, name);
    if (entry == 0)
        return;
    const QString conId = GetItem(tree.Key(entry), 3, u',');
    tree.SetKey(entry, QStringLiteral("N,") + Trim(id) + (conId.isEmpty() ? QString() : u',' + conId));
}

} // namespace

// Checks ----------------------------------------------------------------------------------------------------

void TakeNodeName(UnitOfWork& unit, QString& name)
{
    name = Trim(name);
    if (name.isEmpty())
        unit.Refuse(Words::tr("Give node name."));
}

void RequireMandatoryValues(UnitOfWork& unit, const WpData& waypoint)
{
    if (!CheckWpMandatory(waypoint))
        unit.Refuse(Words::tr("T4 Node mandatory parameter without value (check parameter names with "
                              "bold font)."));
}

void RefuseNameOfConnection(UnitOfWork& unit, const QString& name)
{
    bool exists = false;
    if (!Gateway().ConNameExistDb(name, exists))
        unit.Refuse(SaveText::SearchFailure());
    if (exists)
        unit.Refuse(Words::tr("Node name %1 already exists in the database. No saving, because nodes "
                              "and connections cannot share the same name.")
                        .arg(name));
}

void ComposeNodeTarget(UnitOfWork& unit, ConData& con)
{
    con.ConWpCount = con.NodeWpCount;
    if (!con.SetTargetString(true))
        unit.Refuse(SaveText::ParametersRefused());
}

bool NodeExists(UnitOfWork& unit, const QString& name)
{
    bool exists = false;
    if (!Gateway().NodeNameExistDb(name, exists))
        FailAfterRollback(unit);
    return exists;
}

qint32 AskToReplaceNode(UnitOfWork& unit, const QString& name)
{
    QString id;
    if (!Gateway().GetNodeIDDb(name, id))
        FailAfterRollback(unit);
    AskToReplace(unit, Words::tr("Node %1 exists in database. Do you want to replace it ?").arg(name),
                 Words::tr("Replace Node"));
    return ValInt(id);
}

void RequireUnchangedNode(UnitOfWork& unit, const QString& name, qint32 id)
{
    QString current;
    if (!Gateway().GetNodeIDDb(name, current) || ValInt(current) != id)
        unit.Refuse(Words::tr("Save is prevented, because another application has changed this node. "
                              "Close dialog and try again."));
}

// Records ---------------------------------------------------------------------------------------------------

bool SaveNewNodeWithManager(const ConData& con, const QString& name, const QString& conName,
                            TreeEntries& nodesTree, TreeEntries& conTree, qint32& position,
                            QString& errorText)
{
    if (!SaveNewNode(name, conName, con.NodeType, con.CommandLine, con.TargetString, nodesTree, conTree,
                     position, errorText))
        return false;
    // A new node is saved without the manager that was chosen for it.
    const QString index = ManagerIndexOf(con.CommandLine);
    if (index.isEmpty())
        return true;
    if (!Gateway().UpdateNodeNmaidxDb(name, index)) {
        MsgBox(Words::tr("Manager index doesn't exist."), BoxFlags::Exclamation);
        return true;
    }
    // Each write gives a record a new id.
    QString id;
    if (!Gateway().GetNodeIDDb(name, id)) {
        errorText = Words::tr("Database error, Node ID missing.");
        return false;
    }
    RenewNodeKey(nodesTree, name, id);
    RenewNodeKey(conTree, name, id);
    return true;
}

TreeEntries::Index NewestNodeEntry(const TreeEntries& tree, const QString& name)
{
    TreeEntries::Index newest = 0;
    for (const TreeEntries::Index entry : tree.AllByText(name)) {
        if (IsNodeKey(tree.Key(entry)) && (newest == 0 || qAbs(tree.Id(entry)) > qAbs(tree.Id(newest))))
            newest = entry;
    }
    return newest;
}
