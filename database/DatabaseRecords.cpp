#include "database/DatabaseClass.h"
#include "database/DatabaseState.h"
#include "model/TextHelpers.h"

namespace {

bool IsTrue(const QString& answer)
{
    return answer.compare(u"TRUE", Qt::CaseInsensitive) == 0;
}

} // namespace

// Connections ---------------------------------------------------------------------------------------------

bool DatabaseClass::QueryParentsDb(QString& list)
{
    return RunInSession([&](HvxDatabase& component) { component.QueryParentsWithID(QString(), list); });
}

bool DatabaseClass::GetParentWPListDb(const QString& name, QString& list)
{
    return RunInSession([&](HvxDatabase& component) {
        QString target;
        component.GetParent(name, target);
        component.GetTargetItemList(target, list);
    });
}

bool DatabaseClass::GetParentNodesDb(const QString& name, QString& list)
{
    return RunInSession([&](HvxDatabase& component) { component.GetParentNodesWithID(name, list); });
}

bool DatabaseClass::GetParentNodesExDb(const QString& name, QString& list, qint32& position)
{
    return RunInSession(
        [&](HvxDatabase& component) { component.GetParentNodesWithIdEx(name, list, position); });
}

bool DatabaseClass::GetParentNodesCountDb(const QString& name, qint32& count)
{
    return RunInSession([&](HvxDatabase& component) { component.GetParentNodesCount(name, count); });
}

bool DatabaseClass::FindWaypointsDb(const QString& searched, QString& list, qint32& position)
{
    return RunInSession(
        [&](HvxDatabase& component) { component.FindWaypointsWithIdEx(searched, list, position); });
}

bool DatabaseClass::GetParentDb(const QString& name, QString& target)
{
    return Database().DatabaseOpen &&
           RunDirect([&](HvxDatabase& component) { component.GetParent(name, target); });
}

bool DatabaseClass::GetParentIDDb(const QString& name, QString& id)
{
    return RunInSession([&](HvxDatabase& component) { component.GetParentID(name, id); }) &&
           !TrimBlanks(id).isEmpty();
}

bool DatabaseClass::ConNameExistDb(const QString& name, bool& exists)
{
    return RunInSession([&](HvxDatabase& component) {
        QString answer;
        component.ParentNameExist(Trim(name), answer);
        exists = IsTrue(answer);
    });
}

bool DatabaseClass::ReplaceParentNameDb(const QString& oldName, const QString& newName)
{
    return RunWriteInSession([&](HvxDatabase& component) { component.ReplaceParentName(oldName, newName); });
}

bool DatabaseClass::ReplaceParentTargetDb(const QString& name, const QString& target)
{
    return RunWriteInSession([&](HvxDatabase& component) { component.ReplaceParentTarget(name, target); });
}

bool DatabaseClass::DeleteConnectionDb(QString& name)
{
    name = Trim(name);
    return RunWriteInSession([&](HvxDatabase& component) {
        component.DeleteParentNodes(name);
        component.DeleteParent(name, true);
    });
}

// Nodes ---------------------------------------------------------------------------------------------------

bool DatabaseClass::GetNodeCountDb(qint32& count)
{
    return RunInSession([&](HvxDatabase& component) { component.GetNodeCount(count); });
}

bool DatabaseClass::QueryNodesDb(const QString& filter1, const QString& filter2, QString& list,
                                 qint32& position)
{
    return RunInSession(
        [&](HvxDatabase& component) { component.QueryNodesWithIdEx(filter1, filter2, list, position); });
}

bool DatabaseClass::FindNodesDb(const QString& searched, QString& list, qint32& position)
{
    return RunInSession(
        [&](HvxDatabase& component) { component.FindNodesWithIdEx(searched, list, position); });
}

bool DatabaseClass::GetNodeDb(const QString& nodeName, QString& conName, QString& target)
{
    return RunDirect([&](HvxDatabase& component) { component.GetNode(nodeName, conName, target); });
}

bool DatabaseClass::GetNodeExDb(const QString& nodeName, QString& conName, QString& target, QString& nodeType,
                                QString& commandLine)
{
    return RunInSession([&](HvxDatabase& component) {
        component.GetNodeEx(nodeName, conName, target, nodeType, commandLine);
    });
}

bool DatabaseClass::GetNodeIDDb(const QString& name, QString& id)
{
    return RunInSession([&](HvxDatabase& component) { component.GetNodeID(name, id); }) &&
           !TrimBlanks(id).isEmpty();
}

bool DatabaseClass::GetNodeNmaTagDb(const QString& name, QString& nodeType, QString& tail)
{
    return RunInSession([&](HvxDatabase& component) { component.GetNodeNmaTag(name, nodeType, tail); });
}

bool DatabaseClass::NodeNameExistDb(const QString& name, bool& exists)
{
    return RunInSession([&](HvxDatabase& component) {
        QString answer;
        component.NodeNameExist(Trim(name), answer);
        exists = IsTrue(answer);
    });
}

bool DatabaseClass::ReplaceNodeNameDb(const QString& oldName, const QString& newName)
{
    return RunWriteInSession([&](HvxDatabase& component) { component.ReplaceNodeName(oldName, newName); });
}

bool DatabaseClass::ReplaceNodeTargetDb(const QString& name, const QString& conName, const QString& target)
{
    return RunWriteInSession(
        [&](HvxDatabase& component) { component.ReplaceNodeTarget(name, conName, target); });
}

bool DatabaseClass::DeleteNodeDb(const QString& name)
{
    return RunWriteInSession([&](HvxDatabase& component) { component.DeleteNode(Trim(name)); });
}

bool DatabaseClass::DeleteNodeFromBrowserDb(const QString& name)
{
    return RunWriteInSession([&](HvxDatabase& component) { component.DeleteNodeFromBrowser(Trim(name)); });
}
