#include "components/hvxdb/HvxDatabaseComponent.h"

#include "components/hvxdb/CamLock.h"
#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxdb/ItemText.h"
#include "components/hvxdb/JournalTable.h"
#include "components/hvxdb/RecordFinder.h"
#include "components/hvxdb/RecordLists.h"
#include "components/hvxdb/RecordReader.h"
#include "components/hvxdb/RecordWriter.h"
#include "components/hvxdb/SqlFailure.h"

namespace {

QString ExistenceAnswer(bool exists)
{
    return exists ? QStringLiteral("TRUE") : QStringLiteral("FALSE");
}

} // namespace

HvxDatabaseComponent::HvxDatabaseComponent(const QString& source) : m_source(source) {}

// Session and transactions --------------------------------------------------------------------------------

void HvxDatabaseComponent::OpenDatabase()
{
    m_store.Open(m_source);
}

void HvxDatabaseComponent::CloseDatabase()
{
    m_store.Close();
}

void HvxDatabaseComponent::CloseDb()
{
    m_store.Close();
}

void HvxDatabaseComponent::BeginTransaction(qint32& started)
{
    m_store.Begin();
    started = 1;
}

void HvxDatabaseComponent::BeginTransactionToWrite(qint32& started)
{
    m_store.BeginToWrite();
    started = 1;
}

void HvxDatabaseComponent::CommitTransaction(qint32& started)
{
    if (started != 0)
        m_store.Commit();
}

void HvxDatabaseComponent::RollbackTransaction()
{
    m_store.Rollback();
}

void HvxDatabaseComponent::IsCAMlocked(qint32& locked)
{
    bool dead = false;
    try {
        dead = CamLock(m_store.Session()).IsHeldByDead();
    } catch (const ComponentError& error) {
        // Who holds the whole file is alive.
        if (error.Number() != DatabaseErrorNumber::InUse)
            throw;
    }
    locked = dead ? 1 : 0;
}

void HvxDatabaseComponent::FreeCAMlock()
{
    CamLock(m_store.Session()).Free();
    m_store.ForgetState();
}

// Queries -------------------------------------------------------------------------------------------------

void HvxDatabaseComponent::QueryParentsWithID(const QString& filter, QString& list)
{
    list = RecordLists(m_store).Connections(filter);
}

void HvxDatabaseComponent::QueryNodesWithIdEx(const QString& conName, const QString& nodeType, QString& list,
                                              qint32& position)
{
    list = RecordLists(m_store).Nodes(conName, nodeType, position);
}

void HvxDatabaseComponent::GetParentNodesWithID(const QString& conName, QString& list)
{
    list = RecordLists(m_store).NodesOfConnection(conName);
}

void HvxDatabaseComponent::GetParentNodesWithIdEx(const QString& conName, QString& list, qint32& position)
{
    list = RecordLists(m_store).NodesOfConnection(conName, position);
}

void HvxDatabaseComponent::GetParentNodesCount(const QString& conName, qint32& count)
{
    count = RecordLists(m_store).NodeCount(conName);
}

void HvxDatabaseComponent::GetNodeCount(qint32& count)
{
    count = RecordLists(m_store).NodeCount();
}

void HvxDatabaseComponent::FindNodesWithIdEx(const QString& searched, QString& list, qint32& position)
{
    list = RecordFinder(m_store, searched).Nodes(position);
}

void HvxDatabaseComponent::FindWaypointsWithIdEx(const QString& searched, QString& list, qint32& position)
{
    list = RecordFinder(m_store, searched).Waypoints(position);
}

// Single records ------------------------------------------------------------------------------------------

void HvxDatabaseComponent::GetParent(const QString& name, QString& target)
{
    target = RecordReader(m_store).ExistingConnection(name).target;
}

void HvxDatabaseComponent::GetNode(const QString& name, QString& conName, QString& target)
{
    const NodeRow node = RecordReader(m_store).ExistingNode(name);
    conName = node.conName;
    target = node.target;
}

void HvxDatabaseComponent::GetNodeEx(const QString& name, QString& conName, QString& target,
                                     QString& nodeType, QString& commandLine)
{
    const NodeRow node = RecordReader(m_store).Node(name);
    conName = node.conName;
    target = node.target;
    nodeType = node.nodeType;
    commandLine =
        node.managerIndex.isEmpty() ? node.commandTail : node.managerIndex + u'|' + node.commandTail;
}

void HvxDatabaseComponent::GetNodeNmaTag(const QString& name, QString& nodeType, QString& tail)
{
    const NodeRow node = RecordReader(m_store).ExistingNode(name);
    nodeType = node.nodeType;
    tail = node.commandTail;
}

void HvxDatabaseComponent::GetParentID(const QString& name, QString& id)
{
    const ConnectionRow connection = RecordReader(m_store).Connection(name);
    id = connection.exists ? QString::number(connection.id) : QString();
}

void HvxDatabaseComponent::GetNodeID(const QString& name, QString& id)
{
    const NodeRow node = RecordReader(m_store).Node(name);
    id = node.exists ? QString::number(node.id) : QString();
}

void HvxDatabaseComponent::ParentNameExist(const QString& name, QString& answer)
{
    answer = ExistenceAnswer(RecordReader(m_store).Connection(name).exists);
}

void HvxDatabaseComponent::NodeNameExist(const QString& name, QString& answer)
{
    answer = ExistenceAnswer(RecordReader(m_store).NodeExists(name));
}

// Writes --------------------------------------------------------------------------------------------------

void HvxDatabaseComponent::SaveParent(const QString& name, const QString& target)
{
    RecordWriter(m_store).SaveConnection(name, target);
}

void HvxDatabaseComponent::SaveNode(const QString& name, const QString& nodeType, const QString& target,
                                    const QString& conName, const QString& commandTail)
{
    RecordWriter(m_store).SaveNode(name, nodeType, target, conName, commandTail);
}

void HvxDatabaseComponent::ReplaceParentName(const QString& oldName, const QString& newName)
{
    RecordWriter(m_store).RenameConnection(oldName, newName);
}

void HvxDatabaseComponent::ReplaceParentTarget(const QString& name, const QString& target)
{
    RecordWriter(m_store).SetConnectionTarget(name, target);
}

void HvxDatabaseComponent::ReplaceNodeName(const QString& oldName, const QString& newName)
{
    RecordWriter(m_store).RenameNode(oldName, newName);
}

void HvxDatabaseComponent::ReplaceNodeTarget(const QString& name, const QString& conName,
                                             const QString& target)
{
    RecordWriter(m_store).SetNodeTarget(name, conName, target);
}

void HvxDatabaseComponent::DeleteParent(const QString& name, bool force)
{
    RecordWriter(m_store).DeleteConnection(name, force);
}

void HvxDatabaseComponent::DeleteParentNodes(const QString& name)
{
    RecordWriter(m_store).DeleteNodesOf(name);
}

void HvxDatabaseComponent::DeleteNode(const QString& name)
{
    RecordWriter(m_store).DeleteNode(name, false);
}

void HvxDatabaseComponent::DeleteNodeFromBrowser(const QString& name)
{
    RecordWriter(m_store).DeleteNode(name, true);
}

void HvxDatabaseComponent::GetUsersList(const QString& name, const QString& kind, QString& users)
{
    users = RecordReader(m_store).UsersText(kind, name);
}

void HvxDatabaseComponent::UpdateUsersList(const QString& name, const QString& kind, const QString& users)
{
    RecordWriter(m_store).StoreUsersText(kind, name, users);
}

void HvxDatabaseComponent::UpdateNodeNmaidx(const QString& name, const QString& index)
{
    RecordWriter(m_store).SetNodeManager(name, index);
}

// Definitions ---------------------------------------------------------------------------------------------

void HvxDatabaseComponent::GetConTypeList(QString& list)
{
    list = m_store.CurrentDefinitions().ConTypeList();
}

void HvxDatabaseComponent::GetConTypeId(const QString& shortName, QString& id)
{
    id = m_store.CurrentDefinitions().ConTypeId(shortName);
}

void HvxDatabaseComponent::GetConTypeLongName(const QString& shortName, QString& longName)
{
    longName = m_store.CurrentDefinitions().ConTypeLongName(shortName);
}

void HvxDatabaseComponent::GetConTypeShortName(const QString& longName, QString& shortName)
{
    shortName = m_store.CurrentDefinitions().ConTypeShortName(longName);
}

void HvxDatabaseComponent::GetConTypeWpList(const QString& shortName, qint32 mode, QString& list)
{
    list = m_store.CurrentDefinitions().ConTypeWpList(shortName, mode);
}

void HvxDatabaseComponent::AnalyzeConType(const QString& target, QString& result)
{
    result = m_store.CurrentDefinitions().AnalyzeConType(target);
}

void HvxDatabaseComponent::GetNodeTypeList(QString& list)
{
    list = m_store.CurrentDefinitions().NodeTypeList();
}

void HvxDatabaseComponent::GetNodeTypeId(const QString& shortName, QString& id)
{
    id = m_store.CurrentDefinitions().NodeTypeId(shortName);
}

void HvxDatabaseComponent::GetNodeTypeLongName(const QString& shortName, QString& longName)
{
    longName = m_store.CurrentDefinitions().NodeTypeLongName(shortName);
}

void HvxDatabaseComponent::GetNodeTypeShortName(const QString& longName, QString& shortName)
{
    shortName = m_store.CurrentDefinitions().NodeTypeShortName(longName);
}

void HvxDatabaseComponent::GetNodeTypeWpList(const QString& shortName, qint32 mode, QString& list)
{
    list = m_store.CurrentDefinitions().NodeTypeWpList(shortName, mode);
}

void HvxDatabaseComponent::AnalyzeNodeType(const QString& target, QString& result)
{
    result = m_store.CurrentDefinitions().AnalyzeNodeType(target);
}

void HvxDatabaseComponent::GetWpLongName(const QString& waypoint, QString& longName)
{
    longName = m_store.CurrentDefinitions().WpLongName(waypoint);
}

void HvxDatabaseComponent::GetWpParameters(const QString& waypoint, qint32 mode, QString& list)
{
    Q_UNUSED(mode);
    list = m_store.CurrentDefinitions().WpParameters(waypoint);
}

void HvxDatabaseComponent::GetWpParametersLongNames(const QString& waypoint, qint32 mode, QString& list)
{
    Q_UNUSED(mode);
    list = m_store.CurrentDefinitions().WpParametersLongNames(waypoint);
}

void HvxDatabaseComponent::GetTargetItemList(const QString& target, QString& list)
{
    list = m_store.CurrentDefinitions().TargetItemList(target);
}

void HvxDatabaseComponent::CheckTargetSyntax(const QString& target, qint32 flag, QString& reformatted,
                                             QString& answer)
{
    Q_UNUSED(flag);
    answer = m_store.CurrentDefinitions().CheckTarget(target, reformatted) ? QStringLiteral("OK")
                                                                           : QStringLiteral("ERROR");
}

void HvxDatabaseComponent::TargetParamProperties(const QString& waypoint, const QString& keyword,
                                                 qint32& required, qint32& flag2, qint32& kind, QString& text)
{
    const ParameterDefinition& parameter = m_store.CurrentDefinitions().Parameter(waypoint, keyword);
    required = parameter.requirement;
    flag2 = 0;
    kind = static_cast<qint32>(parameter.kind);
    text = parameter.defaultValue;
}

void HvxDatabaseComponent::TargetParamTextLength(const QString& waypoint, const QString& keyword,
                                                 qint32& length)
{
    length = m_store.CurrentDefinitions().Parameter(waypoint, keyword).textLength;
}

void HvxDatabaseComponent::TargetParamValueBoundsLong(const QString& waypoint, const QString& keyword,
                                                      qint32& low, qint32& high)
{
    const ParameterDefinition& parameter = m_store.CurrentDefinitions().Parameter(waypoint, keyword);
    low = parameter.low;
    high = parameter.high;
}

void HvxDatabaseComponent::TargetParamDiscreteValues(const QString& waypoint, const QString& keyword,
                                                     qint32& count, QString& list)
{
    const ParameterDefinition& parameter = m_store.CurrentDefinitions().Parameter(waypoint, keyword);
    QStringList values;
    for (const QString& value : parameter.values)
        values << ListItem(value);
    count = static_cast<qint32>(values.size());
    list = values.join(ItemSeparator);
}

// Managers and rights -------------------------------------------------------------------------------------

void HvxDatabaseComponent::GetNMAInfo(const QString& name, QString& path, QString& commandText,
                                      QString& index)
{
    const ManagerRow manager = RecordReader(m_store).Manager(name);
    path = manager.path;
    commandText = manager.commandText;
    index = manager.index;
}

void HvxDatabaseComponent::GetNMANames(QString& list)
{
    list = RecordReader(m_store).ManagerNames();
}

void HvxDatabaseComponent::GetSecRights(qint32& first, qint32& second)
{
    // Asked without a database too, or while another program keeps it from being read: who may do what is
    // then unknown, so nobody may do anything.
    const UserRights rights = m_store.IsLoaded() ? m_store.ReadRights() : UserRights();
    first = rights.mayScan ? 1 : 0;
    second = rights.mayEdit ? 1 : 0;
}

// Journal -------------------------------------------------------------------------------------------------

void HvxDatabaseComponent::GetJournalLastId(qint32& id)
{
    id = JournalTable(m_store).LastId();
}

void HvxDatabaseComponent::GetJournalChangesAfterId(qint32 afterId, QString& list)
{
    list = JournalTable(m_store).IdsAfter(afterId);
}

void HvxDatabaseComponent::GetJournalRecordById(qint32 id, qint32& recordType, QString& text1, qint32& number,
                                                QString& text2)
{
    const JournalRecord record = JournalTable(m_store).Record(id);
    recordType = record.recordType;
    text1 = record.text1;
    number = record.number;
    text2 = record.text2;
}

void HvxDatabaseComponent::JournalClearByDayLimit(qint32 dayLimit, qint32 daysToKeep)
{
    JournalTable(m_store).ClearByDayLimit(dayLimit, daysToKeep);
}

void HvxDatabaseComponent::JournalClearByRecordLimit(qint32 recordLimit, qint32 recordsToKeep)
{
    JournalTable(m_store).ClearByRecordLimit(recordLimit, recordsToKeep);
}
