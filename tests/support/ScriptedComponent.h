#pragma once

#include "platform/HvxDatabase.h"

class ScriptedDatabase;

/// The component that a ScriptedDatabase hands out: each method goes through its script.
class ScriptedComponent : public HvxDatabase
{
public:
    explicit ScriptedComponent(ScriptedDatabase& script) : m_script(script) {}

    void OpenDatabase() override;
    void CloseDatabase() override;
    void CloseDb() override;
    void BeginTransaction(qint32& started) override;
    /// The same call to a script.
    void BeginTransactionToWrite(qint32& started) override;
    void CommitTransaction(qint32& started) override;
    void RollbackTransaction() override;
    void IsCAMlocked(qint32& locked) override;
    void FreeCAMlock() override;
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
    ScriptedDatabase& m_script;
};
