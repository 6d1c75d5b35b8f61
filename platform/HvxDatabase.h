#pragma once

#include <QString>

/// The database component as the gateway calls it: its methods with their names and arguments.
///
/// A connection is a "parent" here. Everything crosses as text, 32-bit numbers and item lists (items
/// separated by a tab, no tab at the end). Each method raises ComponentError when it fails and then leaves
/// its output arguments as they were. Thread: the one that opened the database.
class HvxDatabase
{
public:
    virtual ~HvxDatabase() = default;

    // Session and transactions ------------------------------------------------------------------------

    /// Opens the data source. Numbers: DatabaseErrorNumber.
    virtual void OpenDatabase() = 0;
    virtual void CloseDatabase() = 0;
    /// The same as CloseDatabase, under the name that a refused format uses.
    virtual void CloseDb() = 0;
    /// `started` is nonzero when a transaction, or a level inside one, was opened.
    virtual void BeginTransaction(qint32& started) = 0;
    /// The same for a transaction that is going to write: waits here for whoever is writing, and raises InUse
    /// here, where an engine would otherwise do so at the first write.
    virtual void BeginTransactionToWrite(qint32& started) { BeginTransaction(started); }
    /// Ends one level if `started` is 1; only the outermost commits. 0: does nothing.
    virtual void CommitTransaction(qint32& started) = 0;
    /// Undoes the innermost open level; does nothing when none is open.
    virtual void RollbackTransaction() = 0;
    /// `locked` is nonzero only when a dead process left the maintenance lock behind.
    virtual void IsCAMlocked(qint32& locked) = 0;
    virtual void FreeCAMlock() = 0;

    // Queries -----------------------------------------------------------------------------------------

    /// Pair list of connection name and id, ordered by id. Filter: a connection name, "" for all.
    virtual void QueryParentsWithID(const QString& filter, QString& list) = 0;
    /// Pair list of node name and id, ordered by id, at most 32001 pairs.
    /// Filters: connection name, node type; "" for all. `position` in: 0 from the start, -n the first n,
    /// +id what follows that id; out: the last id given when more follow, else 0.
    virtual void QueryNodesWithIdEx(const QString& conName, const QString& nodeType, QString& list,
                                    qint32& position) = 0;
    /// Pair list of the names and ids of all nodes of a connection.
    virtual void GetParentNodesWithID(const QString& conName, QString& list) = 0;
    /// The same with a position, at most 1000 pairs.
    virtual void GetParentNodesWithIdEx(const QString& conName, QString& list, qint32& position) = 0;
    virtual void GetParentNodesCount(const QString& conName, qint32& count) = 0;
    virtual void GetNodeCount(qint32& count) = 0;

    // Two searches for what contains a text, both in upper case as QString::toUpper gives it, without
    // wildcards. A call looks at a part of the records, in the order of ids, so that it soon comes back; its
    // list may be empty although more follows. `position` in: the id behind which to look; out: the last id
    // looked at when more follow, else 0.

    /// Four items for each node whose name contains the text: its name and id, its connection's name and id.
    virtual void FindNodesWithIdEx(const QString& searched, QString& list, qint32& position) = 0;
    /// The same for the waypoints of the connections: long name, number from 1 within the target.
    virtual void FindWaypointsWithIdEx(const QString& searched, QString& list, qint32& position) = 0;

    // Single records ----------------------------------------------------------------------------------

    /// Raises when there is no such connection.
    virtual void GetParent(const QString& name, QString& target) = 0;
    /// Raises when there is no such node.
    virtual void GetNode(const QString& name, QString& conName, QString& target) = 0;
    /// Empty texts when there is no such node. `commandLine` is "index|tail", or the tail alone.
    virtual void GetNodeEx(const QString& name, QString& conName, QString& target, QString& nodeType,
                           QString& commandLine) = 0;
    virtual void GetNodeNmaTag(const QString& name, QString& nodeType, QString& tail) = 0;
    /// Empty when there is no such connection.
    virtual void GetParentID(const QString& name, QString& id) = 0;
    /// Empty when there is no such node.
    virtual void GetNodeID(const QString& name, QString& id) = 0;
    /// "TRUE" or "FALSE".
    virtual void ParentNameExist(const QString& name, QString& answer) = 0;
    virtual void NodeNameExist(const QString& name, QString& answer) = 0;

    // Writes; all raise without the edit right ----------------------------------------------------------

    /// Raises on a name that a connection or node has.
    virtual void SaveParent(const QString& name, const QString& target) = 0;
    /// Raises on a taken name and on a missing connection.
    virtual void SaveNode(const QString& name, const QString& nodeType, const QString& target,
                          const QString& conName, const QString& commandTail) = 0;
    virtual void ReplaceParentName(const QString& oldName, const QString& newName) = 0;
    virtual void ReplaceParentTarget(const QString& name, const QString& target) = 0;
    virtual void ReplaceNodeName(const QString& oldName, const QString& newName) = 0;
    virtual void ReplaceNodeTarget(const QString& name, const QString& conName, const QString& target) = 0;
    /// `force`: the nodes of the connection go with it; otherwise raises while it has nodes.
    virtual void DeleteParent(const QString& name, bool force) = 0;
    virtual void DeleteParentNodes(const QString& name) = 0;
    /// Removes record, users text and manager index.
    virtual void DeleteNode(const QString& name) = 0;
    /// Removes the record and keeps its users text for the save that follows.
    virtual void DeleteNodeFromBrowser(const QString& name) = 0;
    /// A text per kind ("Parent", "NodeWP") and name; "" when none was stored.
    virtual void GetUsersList(const QString& name, const QString& kind, QString& users) = 0;
    virtual void UpdateUsersList(const QString& name, const QString& kind, const QString& users) = 0;
    /// Raises on an unknown manager index.
    virtual void UpdateNodeNmaidx(const QString& name, const QString& index) = 0;

    // Definitions; none needs an open transaction ---------------------------------------------------------

    virtual void GetConTypeList(QString& list) = 0;
    virtual void GetConTypeId(const QString& shortName, QString& id) = 0;
    virtual void GetConTypeLongName(const QString& shortName, QString& longName) = 0;
    virtual void GetConTypeShortName(const QString& longName, QString& shortName) = 0;
    /// Pair list of waypoint and mandatory flag. With an empty name, `mode` is the type id.
    virtual void GetConTypeWpList(const QString& shortName, qint32 mode, QString& list) = 0;
    /// "id<tab>short name" of the type whose hops the target has; "-1<tab>Unknown" when none. Never raises.
    virtual void AnalyzeConType(const QString& target, QString& result) = 0;
    virtual void GetNodeTypeList(QString& list) = 0;
    virtual void GetNodeTypeId(const QString& shortName, QString& id) = 0;
    /// Accepts a long name too and gives it back.
    virtual void GetNodeTypeLongName(const QString& shortName, QString& longName) = 0;
    virtual void GetNodeTypeShortName(const QString& longName, QString& shortName) = 0;
    virtual void GetNodeTypeWpList(const QString& shortName, qint32 mode, QString& list) = 0;
    /// By the first hop. Never raises.
    virtual void AnalyzeNodeType(const QString& target, QString& result) = 0;
    virtual void GetWpLongName(const QString& waypoint, QString& longName) = 0;
    /// Pair list of keyword and default value, in the order of the rows.
    virtual void GetWpParameters(const QString& waypoint, qint32 mode, QString& list) = 0;
    /// Pair list of long name and "digit|default".
    virtual void GetWpParametersLongNames(const QString& waypoint, qint32 mode, QString& list) = 0;
    /// Hop count; per hop the number of pairs, the pair WP and name, a pair per parameter. "0" for "".
    virtual void GetTargetItemList(const QString& target, QString& list) = 0;
    /// Answers "OK" or "ERROR" and gives the target back in the definitions' case.
    virtual void CheckTargetSyntax(const QString& target, qint32 flag, QString& reformatted,
                                   QString& answer) = 0;
    /// `kind`: 1 free, 2 text with a length, 3 whole number with bounds, 4 list. `text`: the default.
    virtual void TargetParamProperties(const QString& waypoint, const QString& keyword, qint32& required,
                                       qint32& flag2, qint32& kind, QString& text) = 0;
    virtual void TargetParamTextLength(const QString& waypoint, const QString& keyword, qint32& length) = 0;
    virtual void TargetParamValueBoundsLong(const QString& waypoint, const QString& keyword, qint32& low,
                                            qint32& high) = 0;
    virtual void TargetParamDiscreteValues(const QString& waypoint, const QString& keyword, qint32& count,
                                           QString& list) = 0;

    // Managers and rights ---------------------------------------------------------------------------------

    /// Manager of a node type's device: path, command text, index. Empty texts when there is none.
    virtual void GetNMAInfo(const QString& name, QString& path, QString& commandText, QString& index) = 0;
    /// Pair list of device name and "index|path".
    virtual void GetNMANames(QString& list) = 0;
    /// `first`: may scan; `second`: may edit.
    virtual void GetSecRights(qint32& first, qint32& second) = 0;

    // Journal -----------------------------------------------------------------------------------------------

    virtual void GetJournalLastId(qint32& id) = 0;
    /// Ids behind `afterId`, ascending, as an item list; "" when there are none.
    virtual void GetJournalChangesAfterId(qint32 afterId, QString& list) = 0;
    /// An id that is not there answers record type 0.
    virtual void GetJournalRecordById(qint32 id, qint32& recordType, QString& text1, qint32& number,
                                      QString& text2) = 0;
    virtual void JournalClearByDayLimit(qint32 dayLimit, qint32 daysToKeep) = 0;
    virtual void JournalClearByRecordLimit(qint32 recordLimit, qint32 recordsToKeep) = 0;
};

/// Numbers that a database component raises and the gateway tells apart.
namespace DatabaseErrorNumber {
constexpr quint32 SourceMissing = 0x80040000;
constexpr quint32 CamAccess = 0x80040029;
constexpr quint32 InUse = 0x80040040;
constexpr quint32 UnusableFile = 0x80040048;
constexpr quint32 ReadOnly = 0x80040049;
constexpr quint32 TablesMissing = 0x8004004A;
constexpr quint32 UpgradeFailed = 0x8004004C;
/// Any refusal that has no number of its own: a taken name, a missing record, no right to edit.
constexpr quint32 Refused = 0x80040001;
} // namespace DatabaseErrorNumber
