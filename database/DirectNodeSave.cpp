#include "database/DirectNodeSave.h"

#include "database/ConObjectTrees.h"
#include "database/Gateway.h"
#include "database/NodeSaveSteps.h"
#include "database/SaveRoutines.h"
#include "database/SaveSupport.h"
#include "database/UnitOfWork.h"
#include "model/ConData.h"
#include "model/TextHelpers.h"
#include "platform/Words.h"

namespace {

QString ConnectionSaveFailure()
{
    return Words::tr("Error in connection database saving.");
}

QString ConnectionDeleted(const QString& name)
{
    return Words::tr("Connection %1 is deleted from database by another application. Nodes cannot be saved "
                     "without connection. Select another connection and scan again.")
        .arg(name);
}

QString ConnectionChanged(const QString& name)
{
    return Words::tr("Connection %1 is changed by another application. Nodes cannot be saved without "
                     "connection. Select another connection and scan again.")
        .arg(name);
}

/// Ends the work without what was done; the text is told where there is one. What failed in the database has
/// been told already.
[[noreturn]] void GiveUpSave(UnitOfWork& unit, const QString& errorText)
{
    if (!errorText.isEmpty())
        unit.Refuse(errorText);
    unit.Rollback();
    UnitOfWork::GiveUp();
}

/// The steps of one save, inside its unit of work.
class DirectNodeSaving
{
public:
    DirectNodeSaving(UnitOfWork& unit, ConData& direct, ConData& newDirect, DirectNodeSaveRequest& request,
                     ConObjectTrees& trees)
        : m_unit(unit),
          m_direct(direct),
          m_newDirect(newDirect),
          m_request(request),
          m_trees(trees),
          m_savesConnection(HoldsUnsavedConnection(newDirect))
    {}

    void Run();

private:
    /// Has the connection of the node in the transaction: saved where it must be, else unchanged.
    void SecureConnection();
    void SaveDirectConnection();
    void ReplaceConnection(const QString& name);
    void RequireConnection(const QString& name, qint32 id);
    void StoreValues();
    void AskForReplacement();
    void SaveRecord();
    void SelectEntries();

    UnitOfWork& m_unit;
    ConData& m_direct;
    ConData& m_newDirect;
    DirectNodeSaveRequest& m_request;
    ConObjectTrees& m_trees;
    const bool m_savesConnection;
    /// Id of the connection that the operator lets be replaced; 0: none.
    qint32 m_replacedConnection = 0;
    qint32 m_conPosition = 0;
};

void DirectNodeSaving::Run()
{
    m_unit.Begin();
    SecureConnection();
    StoreValues();
    TakeNodeName(m_unit, m_request.name);
    RefuseNameOfConnection(m_unit, m_request.name);
    m_direct.NodeName = m_request.name;
    ComposeNodeTarget(m_unit, m_direct);
    m_direct.NewNode = !NodeExists(m_unit, m_request.name);
    if (!m_direct.NewNode)
        AskForReplacement();
    SaveRecord();
    m_unit.Commit();
    SelectEntries();
}

// Connection ------------------------------------------------------------------------------------------------

void DirectNodeSaving::SecureConnection()
{
    if (m_savesConnection)
        SaveDirectConnection();
    else
        RequireConnection(m_direct.ConName, m_direct.ConDbID);
}

void DirectNodeSaving::SaveDirectConnection()
{
    const QString name = Trim(m_newDirect.ConName);
    if (!m_newDirect.SetTargetString(true))
        GiveUpSave(m_unit, SaveText::ParametersRefused());
    bool exists = false;
    if (!Gateway().ConNameExistDb(name, exists))
        GiveUpSave(m_unit, QString());
    QString errorText;
    if (exists)
        ReplaceConnection(name);
    else if (!SaveNewConnection(name, m_newDirect.TargetString, m_trees.Connections(), m_conPosition,
                                NodesAreShown(), errorText))
        GiveUpSave(m_unit, errorText);
    QString id;
    if (!Gateway().GetParentIDDb(name, id))
        m_unit.Refuse(ConnectionDeleted(name));
    m_direct.ConName = name;
    m_direct.ConDbID = ValInt(id);
}

void DirectNodeSaving::ReplaceConnection(const QString& name)
{
    if (m_replacedConnection == 0) {
        QString id;
        if (!Gateway().GetParentIDDb(name, id))
            GiveUpSave(m_unit, ConnectionSaveFailure());
        AskToReplace(m_unit,
                     Words::tr("Connection %1 exists in database. Do you want to replace it?").arg(name),
                     Words::tr("Replace Connection"), Words::tr("Connection and node saving canceled."));
        m_replacedConnection = ValInt(id);
    }
    // Only what the operator has been asked about is replaced.
    RequireConnection(name, m_replacedConnection);
    if (!SaveConnectionChanges(name, name, m_newDirect.TargetString, m_trees.Connections(), NodesAreShown(),
                               m_conPosition))
        GiveUpSave(m_unit, ConnectionSaveFailure());
}

void DirectNodeSaving::RequireConnection(const QString& name, qint32 id)
{
    QString current;
    if (!Gateway().GetParentIDDb(name, current))
        m_unit.Refuse(ConnectionDeleted(name));
    if (ValInt(current) != id)
        m_unit.Refuse(ConnectionChanged(name));
}

// Node ------------------------------------------------------------------------------------------------------

void DirectNodeSaving::StoreValues()
{
    if (m_request.storeValues)
        m_request.storeValues();
    // What lies behind the node's own waypoints is left from its connection.
    constexpr int CheckedWaypoints = 2;
    for (int waypoint = 1; waypoint <= qMin(CheckedWaypoints, m_direct.NodeWpCount); ++waypoint)
        RequireMandatoryValues(m_unit, m_direct.GetWpData(waypoint));
}

void DirectNodeSaving::AskForReplacement()
{
    const qint32 id = AskToReplaceNode(m_unit, m_request.name);
    // The question has ended the transaction, and with it what had been done for the connection.
    SecureConnection();
    // Only what the operator has been asked about is replaced.
    RequireUnchangedNode(m_unit, m_request.name, id);
}

void DirectNodeSaving::SaveRecord()
{
    const QString& name = m_request.name;
    qint32 position = 0;
    QString errorText;
    const bool saved = m_direct.NewNode
                           ? SaveNewNodeWithManager(m_direct, name, m_direct.ConName, m_trees.Nodes(),
                                                    m_trees.Connections(), position, errorText)
                           : SaveNodeChanges(name, name, m_direct.ConName, m_direct.ConName,
                                             m_direct.NodeType, m_direct.CommandLine, m_direct.TargetString,
                                             m_trees.Nodes(), m_trees.Connections(), position, errorText);
    if (!saved)
        GiveUpSave(m_unit, errorText);
    m_direct.SelectedTreeNodeIndex = position;
    if (!m_savesConnection)
        return;
    m_newDirect.NewCon = false;
    m_newDirect.ConName.clear();
    m_newDirect.ConDbID = m_direct.ConDbID;
}

void DirectNodeSaving::SelectEntries()
{
    if (m_savesConnection)
        ConObjectTrees::Select(m_trees.Connections(), m_conPosition);
    ConObjectTrees::Select(NodesAreSelectedUnderConnections() ? m_trees.Connections() : m_trees.Nodes(),
                           m_direct.SelectedTreeNodeIndex);
}

} // namespace

bool HoldsUnsavedConnection(const ConData& newDirect)
{
    return newDirect.NewCon && !Trim(newDirect.ConName).isEmpty();
}

bool SaveDirectNode(ConData& direct, ConData& newDirect, DirectNodeSaveRequest& request)
{
    SaveFlags directFlags(direct);
    SaveFlags newDirectFlags(newDirect);
    ConObjectTrees trees;
    UnitOfWork unit{&trees.Connections(), &trees.Nodes()};
    if (!unit.Run([&](UnitOfWork& work) { DirectNodeSaving(work, direct, newDirect, request, trees).Run(); }))
        return false;
    directFlags.Keep();
    newDirectFlags.Keep();
    return true;
}
