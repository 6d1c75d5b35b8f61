#include "database/NodeSave.h"

#include "database/NodeSaveSteps.h"
#include "database/SaveRoutines.h"
#include "database/SaveSupport.h"
#include "database/UnitOfWork.h"
#include "model/ConData.h"
#include "model/GridChecks.h"
#include "model/TextHelpers.h"
#include "platform/Words.h"

namespace {

bool SameName(const QString& one, const QString& other)
{
    return one.compare(other, Qt::CaseInsensitive) == 0;
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
    /// Whether the database has a node of the name, which may then be replaced.
    bool CheckNodeName();
    void AskForReplacement();
    void SaveAsNew();
    void SaveExisting();
    void RemoveOldNode();
    void RemoveNode(const QString& nodeName);
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
    m_oldName = m_con.NodeName;
    TakeNodeName(m_unit, m_request.name);
    RefuseNameOfConnection(m_unit, m_request.name);
    ComposeNodeTarget(m_unit, m_con);
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
    RequireMandatoryValues(m_unit, m_con.GetWpData(1));
}

bool NodeSaving::CheckNodeName()
{
    const bool exists = NodeExists(m_unit, m_request.name);
    if (exists && m_request.name != m_con.NodeName)
        AskForReplacement();
    return exists;
}

void NodeSaving::AskForReplacement()
{
    const qint32 id = AskToReplaceNode(m_unit, m_request.name);
    // Only what the operator has been asked about is replaced.
    RequireUnchangedNode(m_unit, m_request.name, id);
    m_con.NodeName = m_request.name;
    m_replaced = true;
}

void NodeSaving::SaveAsNew()
{
    const bool isRename = m_con.NodeDbID > 0;
    if (isRename) {
        RequireUnchangedNode(m_unit, m_con.NodeName, m_con.NodeDbID);
        RemoveNode(m_con.NodeName);
    }
    qint32 position = 0;
    QString errorText;
    if (!SaveNewNodeWithManager(m_con, m_request.name, m_request.conName, *m_con.NodesTree, *m_con.ConTree,
                                position, errorText)) {
        // A node that was removed for a new one that cannot be saved must stay.
        if (isRename)
            RollbackFailedSave(m_unit, errorText);
        CommitFailedSave(m_unit, errorText);
    }
    TakeRecord(position);
}

void NodeSaving::SaveExisting()
{
    if (m_replaced)
        RemoveOldNode();
    else
        RequireUnchangedNode(m_unit, m_con.NodeName, m_con.NodeDbID);
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
    RequireUnchangedNode(m_unit, m_oldName, m_con.NodeDbID);
    if (SameName(m_con.NodeName, m_oldName))
        return;
    if (NodeExists(m_unit, m_oldName))
        RemoveNode(m_oldName);
}

void NodeSaving::RemoveNode(const QString& nodeName)
{
    if (!RemoveNodeEntry(nodeName, *m_con.ConTree, *m_con.NodesTree, true))
        m_unit.Refuse(Words::tr("Failure in removing Node %1.").arg(m_request.name));
}

void NodeSaving::TakeRecord(qint32 position)
{
    m_con.NodeName = m_request.name;
    m_con.SelectedTreeNodeIndex = position;
    for (const TreeEntries* tree : {m_con.NodesTree, m_con.ConTree}) {
        const TreeEntries::Index entry = NewestNodeEntry(*tree, m_request.name);
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
