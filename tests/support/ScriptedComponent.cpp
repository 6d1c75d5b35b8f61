#include "tests/support/ScriptedComponent.h"

#include "tests/support/ScriptedDatabase.h"

namespace {

QString Text(qint32 number)
{
    return QString::number(number);
}
QString Text(bool value)
{
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

} // namespace

void ScriptedComponent::OpenDatabase()
{
    m_script.Perform(QStringLiteral("OpenDatabase"), {}, {}, [&] { m_script.Behind().OpenDatabase(); });
}

void ScriptedComponent::CloseDatabase()
{
    m_script.Perform(QStringLiteral("CloseDatabase"), {}, {}, [&] { m_script.Behind().CloseDatabase(); });
}

void ScriptedComponent::CloseDb()
{
    m_script.Perform(QStringLiteral("CloseDb"), {}, {}, [&] { m_script.Behind().CloseDb(); });
}

void ScriptedComponent::BeginTransaction(qint32& started)
{
    m_script.Perform(QStringLiteral("BeginTransaction"), {}, {started},
                     [&] { m_script.Behind().BeginTransaction(started); });
}

void ScriptedComponent::BeginTransactionToWrite(qint32& started)
{
    m_script.Perform(QStringLiteral("BeginTransaction"), {}, {started},
                     [&] { m_script.Behind().BeginTransactionToWrite(started); });
}

void ScriptedComponent::CommitTransaction(qint32& started)
{
    m_script.Perform(QStringLiteral("CommitTransaction"), {Text(started)}, {},
                     [&] { m_script.Behind().CommitTransaction(started); });
}

void ScriptedComponent::RollbackTransaction()
{
    m_script.Perform(QStringLiteral("RollbackTransaction"), {}, {},
                     [&] { m_script.Behind().RollbackTransaction(); });
}

void ScriptedComponent::IsCAMlocked(qint32& locked)
{
    m_script.Perform(QStringLiteral("IsCAMlocked"), {}, {locked},
                     [&] { m_script.Behind().IsCAMlocked(locked); });
}

void ScriptedComponent::FreeCAMlock()
{
    m_script.Perform(QStringLiteral("FreeCAMlock"), {}, {}, [&] { m_script.Behind().FreeCAMlock(); });
}

void ScriptedComponent::QueryParentsWithID(const QString& filter, QString& list)
{
    m_script.Perform(QStringLiteral("QueryParentsWithID"), {filter}, {list},
                     [&] { m_script.Behind().QueryParentsWithID(filter, list); });
}

void ScriptedComponent::QueryNodesWithIdEx(const QString& conName, const QString& nodeType, QString& list,
                                           qint32& position)
{
    m_script.Perform(QStringLiteral("QueryNodesWithIdEx"), {conName, nodeType, Text(position)},
                     {list, position},
                     [&] { m_script.Behind().QueryNodesWithIdEx(conName, nodeType, list, position); });
}

void ScriptedComponent::FindNodesWithIdEx(const QString& searched, QString& list, qint32& position)
{
    m_script.Perform(QStringLiteral("FindNodesWithIdEx"), {searched, Text(position)}, {list, position},
                     [&] { m_script.Behind().FindNodesWithIdEx(searched, list, position); });
}

void ScriptedComponent::FindWaypointsWithIdEx(const QString& searched, QString& list, qint32& position)
{
    m_script.Perform(QStringLiteral("FindWaypointsWithIdEx"), {searched, Text(position)}, {list, position},
                     [&] { m_script.Behind().FindWaypointsWithIdEx(searched, list, position); });
}

void ScriptedComponent::GetParentNodesWithID(const QString& conName, QString& list)
{
    m_script.Perform(QStringLiteral("GetParentNodesWithID"), {conName}, {list},
                     [&] { m_script.Behind().GetParentNodesWithID(conName, list); });
}

void ScriptedComponent::GetParentNodesWithIdEx(const QString& conName, QString& list, qint32& position)
{
    m_script.Perform(QStringLiteral("GetParentNodesWithIdEx"), {conName, Text(position)}, {list, position},
                     [&] { m_script.Behind().GetParentNodesWithIdEx(conName, list, position); });
}

void ScriptedComponent::GetParentNodesCount(const QString& conName, qint32& count)
{
    m_script.Perform(QStringLiteral("GetParentNodesCount"), {conName}, {count},
                     [&] { m_script.Behind().GetParentNodesCount(conName, count); });
}

void ScriptedComponent::GetNodeCount(qint32& count)
{
    m_script.Perform(QStringLiteral("GetNodeCount"), {}, {count},
                     [&] { m_script.Behind().GetNodeCount(count); });
}

void ScriptedComponent::GetParent(const QString& name, QString& target)
{
    m_script.Perform(QStringLiteral("GetParent"), {name}, {target},
                     [&] { m_script.Behind().GetParent(name, target); });
}

void ScriptedComponent::GetNode(const QString& name, QString& conName, QString& target)
{
    m_script.Perform(QStringLiteral("GetNode"), {name}, {conName, target},
                     [&] { m_script.Behind().GetNode(name, conName, target); });
}

void ScriptedComponent::GetNodeEx(const QString& name, QString& conName, QString& target, QString& nodeType,
                                  QString& commandLine)
{
    m_script.Perform(QStringLiteral("GetNodeEx"), {name}, {conName, target, nodeType, commandLine},
                     [&] { m_script.Behind().GetNodeEx(name, conName, target, nodeType, commandLine); });
}

void ScriptedComponent::GetNodeNmaTag(const QString& name, QString& nodeType, QString& tail)
{
    m_script.Perform(QStringLiteral("GetNodeNmaTag"), {name}, {nodeType, tail},
                     [&] { m_script.Behind().GetNodeNmaTag(name, nodeType, tail); });
}

void ScriptedComponent::GetParentID(const QString& name, QString& id)
{
    m_script.Perform(QStringLiteral("GetParentID"), {name}, {id},
                     [&] { m_script.Behind().GetParentID(name, id); });
}

void ScriptedComponent::GetNodeID(const QString& name, QString& id)
{
    m_script.Perform(QStringLiteral("GetNodeID"), {name}, {id},
                     [&] { m_script.Behind().GetNodeID(name, id); });
}

void ScriptedComponent::ParentNameExist(const QString& name, QString& answer)
{
    m_script.Perform(QStringLiteral("ParentNameExist"), {name}, {answer},
                     [&] { m_script.Behind().ParentNameExist(name, answer); });
}

void ScriptedComponent::NodeNameExist(const QString& name, QString& answer)
{
    m_script.Perform(QStringLiteral("NodeNameExist"), {name}, {answer},
                     [&] { m_script.Behind().NodeNameExist(name, answer); });
}

void ScriptedComponent::SaveParent(const QString& name, const QString& target)
{
    m_script.Perform(QStringLiteral("SaveParent"), {name, target}, {},
                     [&] { m_script.Behind().SaveParent(name, target); });
}

void ScriptedComponent::SaveNode(const QString& name, const QString& nodeType, const QString& target,
                                 const QString& conName, const QString& commandTail)
{
    m_script.Perform(QStringLiteral("SaveNode"), {name, nodeType, target, conName, commandTail}, {},
                     [&] { m_script.Behind().SaveNode(name, nodeType, target, conName, commandTail); });
}

void ScriptedComponent::ReplaceParentName(const QString& oldName, const QString& newName)
{
    m_script.Perform(QStringLiteral("ReplaceParentName"), {oldName, newName}, {},
                     [&] { m_script.Behind().ReplaceParentName(oldName, newName); });
}

void ScriptedComponent::ReplaceParentTarget(const QString& name, const QString& target)
{
    m_script.Perform(QStringLiteral("ReplaceParentTarget"), {name, target}, {},
                     [&] { m_script.Behind().ReplaceParentTarget(name, target); });
}

void ScriptedComponent::ReplaceNodeName(const QString& oldName, const QString& newName)
{
    m_script.Perform(QStringLiteral("ReplaceNodeName"), {oldName, newName}, {},
                     [&] { m_script.Behind().ReplaceNodeName(oldName, newName); });
}

void ScriptedComponent::ReplaceNodeTarget(const QString& name, const QString& conName, const QString& target)
{
    m_script.Perform(QStringLiteral("ReplaceNodeTarget"), {name, conName, target}, {},
                     [&] { m_script.Behind().ReplaceNodeTarget(name, conName, target); });
}

void ScriptedComponent::DeleteParent(const QString& name, bool force)
{
    m_script.Perform(QStringLiteral("DeleteParent"), {name, Text(force)}, {},
                     [&] { m_script.Behind().DeleteParent(name, force); });
}

void ScriptedComponent::DeleteParentNodes(const QString& name)
{
    m_script.Perform(QStringLiteral("DeleteParentNodes"), {name}, {},
                     [&] { m_script.Behind().DeleteParentNodes(name); });
}

void ScriptedComponent::DeleteNode(const QString& name)
{
    m_script.Perform(QStringLiteral("DeleteNode"), {name}, {}, [&] { m_script.Behind().DeleteNode(name); });
}

void ScriptedComponent::DeleteNodeFromBrowser(const QString& name)
{
    m_script.Perform(QStringLiteral("DeleteNodeFromBrowser"), {name}, {},
                     [&] { m_script.Behind().DeleteNodeFromBrowser(name); });
}

void ScriptedComponent::GetUsersList(const QString& name, const QString& kind, QString& users)
{
    m_script.Perform(QStringLiteral("GetUsersList"), {name, kind, users}, {users},
                     [&] { m_script.Behind().GetUsersList(name, kind, users); });
}

void ScriptedComponent::UpdateUsersList(const QString& name, const QString& kind, const QString& users)
{
    m_script.Perform(QStringLiteral("UpdateUsersList"), {name, kind, users}, {},
                     [&] { m_script.Behind().UpdateUsersList(name, kind, users); });
}

void ScriptedComponent::UpdateNodeNmaidx(const QString& name, const QString& index)
{
    m_script.Perform(QStringLiteral("UpdateNodeNmaidx"), {name, index}, {},
                     [&] { m_script.Behind().UpdateNodeNmaidx(name, index); });
}

void ScriptedComponent::GetConTypeList(QString& list)
{
    m_script.Perform(QStringLiteral("GetConTypeList"), {}, {list},
                     [&] { m_script.Behind().GetConTypeList(list); });
}

void ScriptedComponent::GetConTypeId(const QString& shortName, QString& id)
{
    m_script.Perform(QStringLiteral("GetConTypeId"), {shortName}, {id},
                     [&] { m_script.Behind().GetConTypeId(shortName, id); });
}

void ScriptedComponent::GetConTypeLongName(const QString& shortName, QString& longName)
{
    m_script.Perform(QStringLiteral("GetConTypeLongName"), {shortName}, {longName},
                     [&] { m_script.Behind().GetConTypeLongName(shortName, longName); });
}

void ScriptedComponent::GetConTypeShortName(const QString& longName, QString& shortName)
{
    m_script.Perform(QStringLiteral("GetConTypeShortName"), {longName}, {shortName},
                     [&] { m_script.Behind().GetConTypeShortName(longName, shortName); });
}

void ScriptedComponent::GetConTypeWpList(const QString& shortName, qint32 mode, QString& list)
{
    m_script.Perform(QStringLiteral("GetConTypeWpList"), {shortName, Text(mode)}, {list},
                     [&] { m_script.Behind().GetConTypeWpList(shortName, mode, list); });
}

void ScriptedComponent::AnalyzeConType(const QString& target, QString& result)
{
    m_script.Perform(QStringLiteral("AnalyzeConType"), {target}, {result},
                     [&] { m_script.Behind().AnalyzeConType(target, result); });
}

void ScriptedComponent::GetNodeTypeList(QString& list)
{
    m_script.Perform(QStringLiteral("GetNodeTypeList"), {}, {list},
                     [&] { m_script.Behind().GetNodeTypeList(list); });
}

void ScriptedComponent::GetNodeTypeId(const QString& shortName, QString& id)
{
    m_script.Perform(QStringLiteral("GetNodeTypeId"), {shortName}, {id},
                     [&] { m_script.Behind().GetNodeTypeId(shortName, id); });
}

void ScriptedComponent::GetNodeTypeLongName(const QString& shortName, QString& longName)
{
    m_script.Perform(QStringLiteral("GetNodeTypeLongName"), {shortName}, {longName},
                     [&] { m_script.Behind().GetNodeTypeLongName(shortName, longName); });
}

void ScriptedComponent::GetNodeTypeShortName(const QString& longName, QString& shortName)
{
    m_script.Perform(QStringLiteral("GetNodeTypeShortName"), {longName}, {shortName},
                     [&] { m_script.Behind().GetNodeTypeShortName(longName, shortName); });
}

void ScriptedComponent::GetNodeTypeWpList(const QString& shortName, qint32 mode, QString& list)
{
    m_script.Perform(QStringLiteral("GetNodeTypeWpList"), {shortName, Text(mode)}, {list},
                     [&] { m_script.Behind().GetNodeTypeWpList(shortName, mode, list); });
}

void ScriptedComponent::AnalyzeNodeType(const QString& target, QString& result)
{
    m_script.Perform(QStringLiteral("AnalyzeNodeType"), {target}, {result},
                     [&] { m_script.Behind().AnalyzeNodeType(target, result); });
}

void ScriptedComponent::GetWpLongName(const QString& waypoint, QString& longName)
{
    m_script.Perform(QStringLiteral("GetWpLongName"), {waypoint}, {longName},
                     [&] { m_script.Behind().GetWpLongName(waypoint, longName); });
}

void ScriptedComponent::GetWpParameters(const QString& waypoint, qint32 mode, QString& list)
{
    m_script.Perform(QStringLiteral("GetWpParameters"), {waypoint, Text(mode)}, {list},
                     [&] { m_script.Behind().GetWpParameters(waypoint, mode, list); });
}

void ScriptedComponent::GetWpParametersLongNames(const QString& waypoint, qint32 mode, QString& list)
{
    m_script.Perform(QStringLiteral("GetWpParametersLongNames"), {waypoint, Text(mode)}, {list},
                     [&] { m_script.Behind().GetWpParametersLongNames(waypoint, mode, list); });
}

void ScriptedComponent::GetTargetItemList(const QString& target, QString& list)
{
    m_script.Perform(QStringLiteral("GetTargetItemList"), {target}, {list},
                     [&] { m_script.Behind().GetTargetItemList(target, list); });
}

void ScriptedComponent::CheckTargetSyntax(const QString& target, qint32 flag, QString& reformatted,
                                          QString& answer)
{
    m_script.Perform(QStringLiteral("CheckTargetSyntax"), {target, Text(flag)}, {reformatted, answer},
                     [&] { m_script.Behind().CheckTargetSyntax(target, flag, reformatted, answer); });
}

void ScriptedComponent::TargetParamProperties(const QString& waypoint, const QString& keyword,
                                              qint32& required, qint32& flag2, qint32& kind, QString& text)
{
    m_script.Perform(
        QStringLiteral("TargetParamProperties"), {waypoint, keyword}, {required, flag2, kind, text},
        [&] { m_script.Behind().TargetParamProperties(waypoint, keyword, required, flag2, kind, text); });
}

void ScriptedComponent::TargetParamTextLength(const QString& waypoint, const QString& keyword, qint32& length)
{
    m_script.Perform(QStringLiteral("TargetParamTextLength"), {waypoint, keyword}, {length},
                     [&] { m_script.Behind().TargetParamTextLength(waypoint, keyword, length); });
}

void ScriptedComponent::TargetParamValueBoundsLong(const QString& waypoint, const QString& keyword,
                                                   qint32& low, qint32& high)
{
    m_script.Perform(QStringLiteral("TargetParamValueBoundsLong"), {waypoint, keyword}, {low, high},
                     [&] { m_script.Behind().TargetParamValueBoundsLong(waypoint, keyword, low, high); });
}

void ScriptedComponent::TargetParamDiscreteValues(const QString& waypoint, const QString& keyword,
                                                  qint32& count, QString& list)
{
    m_script.Perform(QStringLiteral("TargetParamDiscreteValues"), {waypoint, keyword}, {count, list},
                     [&] { m_script.Behind().TargetParamDiscreteValues(waypoint, keyword, count, list); });
}

void ScriptedComponent::GetNMAInfo(const QString& name, QString& path, QString& commandText, QString& index)
{
    m_script.Perform(QStringLiteral("GetNMAInfo"), {name}, {path, commandText, index},
                     [&] { m_script.Behind().GetNMAInfo(name, path, commandText, index); });
}

void ScriptedComponent::GetNMANames(QString& list)
{
    m_script.Perform(QStringLiteral("GetNMANames"), {}, {list}, [&] { m_script.Behind().GetNMANames(list); });
}

void ScriptedComponent::GetSecRights(qint32& first, qint32& second)
{
    m_script.Perform(QStringLiteral("GetSecRights"), {}, {first, second},
                     [&] { m_script.Behind().GetSecRights(first, second); });
}

void ScriptedComponent::GetJournalLastId(qint32& id)
{
    m_script.Perform(QStringLiteral("GetJournalLastId"), {}, {id},
                     [&] { m_script.Behind().GetJournalLastId(id); });
}

void ScriptedComponent::GetJournalChangesAfterId(qint32 afterId, QString& list)
{
    m_script.Perform(QStringLiteral("GetJournalChangesAfterId"), {Text(afterId)}, {list},
                     [&] { m_script.Behind().GetJournalChangesAfterId(afterId, list); });
}

void ScriptedComponent::GetJournalRecordById(qint32 id, qint32& recordType, QString& text1, qint32& number,
                                             QString& text2)
{
    m_script.Perform(QStringLiteral("GetJournalRecordById"), {Text(id)}, {recordType, text1, number, text2},
                     [&] { m_script.Behind().GetJournalRecordById(id, recordType, text1, number, text2); });
}

void ScriptedComponent::JournalClearByDayLimit(qint32 dayLimit, qint32 daysToKeep)
{
    m_script.Perform(QStringLiteral("JournalClearByDayLimit"), {Text(dayLimit), Text(daysToKeep)}, {},
                     [&] { m_script.Behind().JournalClearByDayLimit(dayLimit, daysToKeep); });
}

void ScriptedComponent::JournalClearByRecordLimit(qint32 recordLimit, qint32 recordsToKeep)
{
    m_script.Perform(QStringLiteral("JournalClearByRecordLimit"), {Text(recordLimit), Text(recordsToKeep)},
                     {}, [&] { m_script.Behind().JournalClearByRecordLimit(recordLimit, recordsToKeep); });
}
