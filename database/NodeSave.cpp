#include "database/NodeSave.h"

#include "database/Gateway.h"
#include "database/ManagerLaunch.h"
#include "database/SaveRoutines.h"
#include "database/SaveSupport.h"
#include "database/UnitOfWork.h"
#include "model/ConData.h"
#include "model/GridChecks.h"
#include "model/TextHelpers.h"
#include "model/TreeFilling.h"

namespace {

bool SameName(const QString& one, const QString& other)
{
    return one.compare(other, Qt::CaseInsensitive) == 0;
}

/// The entry of a node that was saved; 0: none. Where the tree has not followed another application yet, a
/// stale one of the same name stands there too: ids only rise.
TreeEntries::Index NewestEntry(const TreeEntries& tree, const QString& name)
{
    TreeEntries::Index newest = 0;
    for (const TreeEntries::Index entry : tree.AllByText(name)) {
        if (IsNodeKey(tree.Key(entry)) && (newest == 0 || qAbs(tree.Id(entry)) > qAbs(tree.Id(newest))))
            newest = entry;
    }
    return newest;
}

/// Gives the entry of a node the id that its record now has.
void RenewNodeKey(TreeEntries& tree, const QString& name, const QString& id)
{
    const TreeEntries::Index entry = NewestEntry(tree, name);
    if (entry == 0)
        return;
    const QString conId = GetItem(tree.Key(entry), 3, u',');
    tree.SetKey(entry, QStringLiteral("N,") + Trim(id) + (conId.isEmpty() ? QString() : u',' + conId));
}

/// The steps of one save, inside its unit of work.
class NodeSaving
{
public:
    NodeSaving(UnitOfWork& unit, ConData& con, NodeSaveRequest& request)
        : m_unit(unit), m_con(con), m_request(request)
    {}

    void Run();

private:
    void CheckValues();
    void TakeName();
    void RefuseConnectionName();
    void ComposeTarget();
    /// Whether the database has a node of the name, which may then be replaced.
    bool CheckNodeName();
    void AskForReplacement();
    void SaveAsNew();
    bool KeepManager(QString& errorText);
    void SaveExisting();
    void RemoveOldNode();
    void RemoveNode(const QString& nodeName);
    void RequireUnchanged(const QString& nodeName, qint32 id);
    /// The name, the id and the entry that the saved node now has.
    void TakeRecord(qint32 position);

    UnitOfWork& m_unit;
    ConData& m_con;
    NodeSaveRequest& m_request;
    /// What the node was called before the save.
    QString m_oldName;
    bool m_replaced = false;
};

void NodeSaving::Run()
{
    m_unit.Begin();
    if (m_request.storeValues)
        m_request.storeValues();
    CheckValues();
    TakeName();
    RefuseConnectionName();
    ComposeTarget();
    m_con.NewNode = !CheckNodeName();
    if (m_con.NewNode)
        SaveAsNew();
    else
        SaveExisting();
    m_unit.Commit();
}

void NodeSaving::CheckValues()
{
    bool groupError = false;
    if (!CheckGridValues(m_con, m_request.grid, m_request.rowCount, groupError))
        m_unit.Refuse(GridRefusalText(groupError));
    if (!CheckWpMandatory(m_con.GetWpData(1)))
        m_unit.Refuse(QStringLiteral("T4 Node mandatory parameter without value (check parameter names with "
                                     "bold font)."));
}

void NodeSaving::TakeName()
{
    m_oldName = m_con.NodeName;
    m_request.name = Trim(m_request.name);
    if (m_request.name.isEmpty())
        m_unit.Refuse(QStringLiteral("Give node name."));
}

void NodeSaving::RefuseConnectionName()
{
    bool exists = false;
    if (!Gateway().ConNameExistDb(m_request.name, exists))
        m_unit.Refuse(SaveText::SearchFailure());
    if (exists)
        m_unit.Refuse(QStringLiteral("Node name %1 already exists in the database. No saving, because nodes "
                                     "and connections cannot share the same name.")
                          .arg(m_request.name));
}

void NodeSaving::ComposeTarget()
{
    m_con.ConWpCount = m_con.NodeWpCount;
    if (!m_con.SetTargetString(true))
        m_unit.Refuse(SaveText::ParametersRefused());
}

bool NodeSaving::CheckNodeName()
{
    bool exists = false;
    if (!Gateway().NodeNameExistDb(m_request.name, exists))
        FailAfterRollback(m_unit);
    if (exists && m_request.name != m_con.NodeName)
        AskForReplacement();
    return exists;
}

void NodeSaving::AskForReplacement()
{
    QString id;
    if (!Gateway().GetNodeIDDb(m_request.name, id))
        FailAfterRollback(m_unit);
    AskToReplace(
        m_unit, QStringLiteral("Node %1 exists in database. Do you want to replace it ?").arg(m_request.name),
        QStringLiteral("Replace Node"));
    // Only what the operator has been asked about is replaced.
    RequireUnchanged(m_request.name, ValInt(id));
    m_con.NodeName = m_request.name;
    m_replaced = true;
}

void NodeSaving::SaveAsNew()
{
    const bool isRename = m_con.NodeDbID > 0;
    if (isRename) {
        RequireUnchanged(m_con.NodeName, m_con.NodeDbID);
        RemoveNode(m_con.NodeName);
    }
    qint32 position = 0;
    QString errorText;
    if (!SaveNewNode(m_request.name, m_request.conName, m_con.NodeType, m_con.CommandLine, m_con.TargetString,
                     *m_con.NodesTree, *m_con.ConTree, position, errorText) ||
        !KeepManager(errorText)) {
        // A node that was removed for a new one that cannot be saved must stay.
        if (isRename)
            RollbackFailedSave(m_unit, errorText);
        CommitFailedSave(m_unit, errorText);
    }
    TakeRecord(position);
}

/// A new node is saved without the manager that was chosen for it.
bool NodeSaving::KeepManager(QString& errorText)
{
    const QString index = ManagerIndexOf(m_con.CommandLine);
    if (index.isEmpty())
        return true;
    if (!Gateway().UpdateNodeNmaidxDb(m_request.name, index)) {
        MsgBox(QStringLiteral("Manager index doesn't exist."), BoxFlags::Exclamation);
        return true;
    }
    // Each write gives a record a new id.
    QString id;
    if (!Gateway().GetNodeIDDb(m_request.name, id)) {
        errorText = QStringLiteral("Database error, Node ID missing.");
        return false;
    }
    RenewNodeKey(*m_con.NodesTree, m_request.name, id);
    RenewNodeKey(*m_con.ConTree, m_request.name, id);
    return true;
}

void NodeSaving::SaveExisting()
{
    if (m_replaced)
        RemoveOldNode();
    else
        RequireUnchanged(m_con.NodeName, m_con.NodeDbID);
    qint32 position = 0;
    QString errorText;
    if (!SaveNodeChanges(m_con.NodeName, m_request.name, m_con.ConName, m_request.conName, m_con.NodeType,
                         m_con.CommandLine, m_con.TargetString, *m_con.NodesTree, *m_con.ConTree, position,
                         errorText))
        RollbackFailedSave(m_unit, errorText);
    TakeRecord(position);
}

/// A stored node that takes the place of another leaves its own. A node that was never stored has none, even
/// if there is a node of the name that it was offered under.
void NodeSaving::RemoveOldNode()
{
    if (m_con.NodeDbID <= 0)
        return;
    RequireUnchanged(m_oldName, m_con.NodeDbID);
    if (SameName(m_con.NodeName, m_oldName))
        return;
    bool exists = false;
    if (!Gateway().NodeNameExistDb(m_oldName, exists))
        FailAfterRollback(m_unit);
    if (exists)
        RemoveNode(m_oldName);
}

void NodeSaving::RemoveNode(const QString& nodeName)
{
    if (!RemoveNodeEntry(nodeName, *m_con.ConTree, *m_con.NodesTree, true))
        m_unit.Refuse(QStringLiteral("Failure in removing Node %1.").arg(m_request.name));
}

void NodeSaving::RequireUnchanged(const QString& nodeName, qint32 id)
{
    QString current;
    if (!Gateway().GetNodeIDDb(nodeName, current) || ValInt(current) != id)
        m_unit.Refuse(QStringLiteral("Save is prevented, because another application has changed this node. "
                                     "Close dialog and try again."));
}

void NodeSaving::TakeRecord(qint32 position)
{
    m_con.NodeName = m_request.name;
    m_con.SelectedTreeNodeIndex = position;
    for (const TreeEntries* tree : {m_con.NodesTree, m_con.ConTree}) {
        const TreeEntries::Index entry = NewestEntry(*tree, m_request.name);
        if (entry == 0)
            continue;
        m_con.NodeDbID = tree->Id(entry);
        return;
    }
}

} // namespace

bool SaveNode(ConData& con, NodeSaveRequest& request)
{
    SaveFlags flags(con);
    UnitOfWork unit{con.ConTree, con.NodesTree};
    if (!unit.Run([&](UnitOfWork& work) { NodeSaving(work, con, request).Run(); }))
        return false;
    flags.Keep();
    return true;
}

bool IsReservedNodeName(const QString& name)
{
    return TrimBlanks(name).compare(u"New Node", Qt::CaseInsensitive) == 0;
}
