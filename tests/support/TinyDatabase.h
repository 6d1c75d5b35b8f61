#pragma once

#include "platform/HvxDatabase.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

/// A working database component in memory, small enough for tests: connections, nodes, users texts, managers,
/// rights, Journal, nested transactions.
class TinyDatabase : public HvxDatabase
{
public:
    struct Connection
    {
        qint32 id;
        QString name;
        QString target;
    };
    struct Node
    {
        qint32 id;
        QString name;
        QString conName;
        QString nodeType;
        QString target;
        QString index;
        QString tail;
    };
    struct JournalRecord
    {
        qint32 id;
        qint32 recordType;
        QString text1;
        qint32 number;
    };
    struct Manager
    {
        QString index;
        QString deviceName;
        QString path;
    };
    struct Contents
    {
        std::vector<Connection> connections;
        std::vector<Node> nodes;
        QHash<QString, QString> users;
        std::vector<JournalRecord> journal{{1, 1, QStringLiteral("HVX R4.2"), 0}};
        qint32 lastRecordId = 0;
        qint32 lastJournalId = 1;
    };

    Contents Now;
    std::vector<Manager> Managers;
    bool ScanRight = true;
    bool EditRight = true;
    /// False: what needs a database raises.
    bool Available = true;
    /// Rows of an answer that has a position, as a small database would never reach the real limits.
    int MaxRows = 1000;

    /// Open transaction levels.
    [[nodiscard]] int Levels() const { return static_cast<int>(m_levels.size()); }
    /// Transactions that reached the database: outermost commits.
    int Commits = 0;
    int Rollbacks = 0;
    /// Connections and nodes with all they hold but their ids, and users texts; sorted.
    [[nodiscard]] QStringList Records() const;

    /// Stores records without a Journal record, as they were before the test.
    void AddConnection(const QString& name, const QString& target);
    void AddNode(const QString& name, const QString& conName, const QString& nodeType, const QString& target,
                 const QString& commandLine = QString());

    void OpenDatabase() override { Require(); }
    void CloseDatabase() override {}
    void CloseDb() override {}
    void BeginTransaction(qint32& started) override;
    void CommitTransaction(qint32& started) override;
    void RollbackTransaction() override;
    void IsCAMlocked(qint32& locked) override { locked = 0; }
    void FreeCAMlock() override {}

    void QueryParentsWithID(const QString& filter, QString& list) override;
    void QueryNodesWithIdEx(const QString& conName, const QString& nodeType, QString& list,
                            qint32& position) override;
    void FindNodesWithIdEx(const QString& searched, QString& list, qint32& position) override;
    void FindWaypointsWithIdEx(const QString& searched, QString& list, qint32& position) override;
    void GetParentNodesWithID(const QString& conName, QString& list) override;
    void GetParentNodesWithIdEx(const QString& conName, QString& list, qint32& position) override;
    void GetParentNodesCount(const QString& conName, qint32& count) override;
    void GetNodeCount(qint32& count) override;

    void GetParent(const QString& name, QString& target) override;
    void GetNode(const QString& name, QString& conName, QString& target) override;
    void GetNodeEx(const QString& name, QString& conName, QString& target, QString& nodeType,
                   QString& commandLine) override;
    void GetNodeNmaTag(const QString& name, QString& nodeType, QString& tail) override;
    void GetParentID(const QString& name, QString& id) override;
    void GetNodeID(const QString& name, QString& id) override;
    void ParentNameExist(const QString& name, QString& answer) override;
    void NodeNameExist(const QString& name, QString& answer) override;

    void SaveParent(const QString& name, const QString& target) override;
    void SaveNode(const QString& name, const QString& nodeType, const QString& target, const QString& conName,
                  const QString& commandTail) override;
    void ReplaceParentName(const QString& oldName, const QString& newName) override;
    void ReplaceParentTarget(const QString& name, const QString& target) override;
    void ReplaceNodeName(const QString& oldName, const QString& newName) override;
    void ReplaceNodeTarget(const QString& name, const QString& conName, const QString& target) override;
    void DeleteParent(const QString& name, bool force) override;
    void DeleteParentNodes(const QString& name) override;
    void DeleteNode(const QString& name) override;
    void DeleteNodeFromBrowser(const QString& name) override;
    void GetUsersList(const QString& name, const QString& kind, QString& users) override;
    void UpdateUsersList(const QString& name, const QString& kind, const QString& users) override;
    void UpdateNodeNmaidx(const QString& name, const QString& index) override;

    void GetConTypeList(QString& list) override;
    void GetConTypeId(const QString& shortName, QString& id) override;
    void GetConTypeLongName(const QString& shortName, QString& longName) override;
    void GetConTypeShortName(const QString& longName, QString& shortName) override;
    void GetConTypeWpList(const QString& shortName, qint32 mode, QString& list) override;
    void AnalyzeConType(const QString& target, QString& result) override;
    void GetNodeTypeList(QString& list) override;
    void GetNodeTypeId(const QString& shortName, QString& id) override;
    void GetNodeTypeLongName(const QString& shortName, QString& longName) override;
    void GetNodeTypeShortName(const QString& longName, QString& shortName) override;
    void GetNodeTypeWpList(const QString& shortName, qint32 mode, QString& list) override;
    void AnalyzeNodeType(const QString& target, QString& result) override;
    void GetWpLongName(const QString& waypoint, QString& longName) override;
    void GetWpParameters(const QString& waypoint, qint32 mode, QString& list) override;
    void GetWpParametersLongNames(const QString& waypoint, qint32 mode, QString& list) override;
    void GetTargetItemList(const QString& target, QString& list) override;
    void CheckTargetSyntax(const QString& target, qint32 flag, QString& reformatted,
                           QString& answer) override;
    void TargetParamProperties(const QString& waypoint, const QString& keyword, qint32& required,
                               qint32& flag2, qint32& kind, QString& text) override;
    void TargetParamTextLength(const QString& waypoint, const QString& keyword, qint32& length) override;
    void TargetParamValueBoundsLong(const QString& waypoint, const QString& keyword, qint32& low,
                                    qint32& high) override;
    void TargetParamDiscreteValues(const QString& waypoint, const QString& keyword, qint32& count,
                                   QString& list) override;

    void GetNMAInfo(const QString& name, QString& path, QString& commandText, QString& index) override;
    void GetNMANames(QString& list) override;
    void GetSecRights(qint32& first, qint32& second) override;

    void GetJournalLastId(qint32& id) override;
    void GetJournalChangesAfterId(qint32 afterId, QString& list) override;
    void GetJournalRecordById(qint32 id, qint32& recordType, QString& text1, qint32& number,
                              QString& text2) override;
    void JournalClearByDayLimit(qint32 dayLimit, qint32 daysToKeep) override;
    void JournalClearByRecordLimit(qint32 recordLimit, qint32 recordsToKeep) override;

private:
    void Require() const;
    void RequireEdit() const;
    [[nodiscard]] Connection* FindConnection(const QString& name);
    [[nodiscard]] Node* FindNode(const QString& name);
    Connection& ExistingConnection(const QString& name);
    Node& ExistingNode(const QString& name);
    void RequireFreeName(const QString& name);
    void RemoveNode(const QString& name);
    void Note(qint32 recordType, const QString& name, qint32 number);
    [[nodiscard]] QString NodeRows(const QString& conName, const QString& nodeType, qint32& position) const;

    std::vector<Contents> m_levels;
};
