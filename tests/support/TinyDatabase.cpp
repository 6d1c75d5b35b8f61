#include "tests/support/TinyDatabase.h"

#include "model/ItemList.h"
#include "platform/ComponentError.h"

#include <QStringList>

#include <algorithm>

namespace {

/// Journal record types.
constexpr qint32 NodeDeleted = 20;
constexpr qint32 ConnectionDeleted = 21;
constexpr qint32 NodeSaved = 30;
constexpr qint32 ConnectionSaved = 31;
constexpr qint32 NodeChanged = 40;
constexpr qint32 ConnectionChanged = 41;

[[noreturn]] void Refuse(const QString& why, quint32 number = DatabaseErrorNumber::Refused)
{
    throw ComponentError(number, QStringLiteral("TinyDatabase"), why);
}

bool Same(const QString& one, const QString& other)
{
    return one.compare(other, Qt::CaseInsensitive) == 0;
}

template <typename Records>
auto Find(Records& records, const QString& name)
{
    const auto found = std::find_if(records.begin(), records.end(),
                                    [&](const auto& record) { return Same(record.name, name); });
    return found == records.end() ? nullptr : &*found;
}

QString UsersKey(const QString& name, const QString& kind)
{
    return kind + u'/' + name.toCaseFolded();
}

QString CommandLineOf(const TinyDatabase::Node& node)
{
    return node.index.isEmpty() ? node.tail : node.index + u'|' + node.tail;
}

} // namespace

void TinyDatabase::Require() const
{
    if (!Available)
        Refuse(QStringLiteral("There is no database."), DatabaseErrorNumber::SourceMissing);
}

void TinyDatabase::RequireEdit() const
{
    Require();
    if (!EditRight)
        Refuse(QStringLiteral("The operator may not edit."));
}

TinyDatabase::Connection* TinyDatabase::FindConnection(const QString& name)
{
    Require();
    return Find(Now.connections, name);
}

TinyDatabase::Node* TinyDatabase::FindNode(const QString& name)
{
    Require();
    return Find(Now.nodes, name);
}

TinyDatabase::Connection& TinyDatabase::ExistingConnection(const QString& name)
{
    Connection* const found = FindConnection(name);
    if (!found)
        Refuse(QStringLiteral("There is no connection %1.").arg(name));
    return *found;
}

TinyDatabase::Node& TinyDatabase::ExistingNode(const QString& name)
{
    Node* const found = FindNode(name);
    if (!found)
        Refuse(QStringLiteral("There is no node %1.").arg(name));
    return *found;
}

void TinyDatabase::RequireFreeName(const QString& name)
{
    if (FindConnection(name) || FindNode(name))
        Refuse(QStringLiteral("The name %1 is taken.").arg(name));
}

void TinyDatabase::Note(qint32 recordType, const QString& name, qint32 number)
{
    Now.journal.push_back({++Now.lastJournalId, recordType, name, number});
}

void TinyDatabase::AddConnection(const QString& name, const QString& target)
{
    Now.connections.push_back({++Now.lastRecordId, name, target});
}

void TinyDatabase::AddNode(const QString& name, const QString& conName, const QString& nodeType,
                           const QString& target, const QString& commandLine)
{
    const bool hasIndex = commandLine.contains(u'|');
    Now.nodes.push_back({++Now.lastRecordId, name, conName, nodeType, target,
                         hasIndex ? commandLine.section(u'|', 0, 0) : QString(),
                         hasIndex ? commandLine.section(u'|', 1) : commandLine});
}

QStringList TinyDatabase::Records() const
{
    QStringList lines;
    for (const Connection& connection : Now.connections)
        lines << QStringList{connection.name, connection.target}.join(u'|');
    for (const Node& node : Now.nodes)
        lines << QStringList{node.name, node.conName, node.nodeType, node.target, node.index, node.tail}.join(
            u'|');
    // No text and an empty one are the same to everyone.
    for (auto text = Now.users.constBegin(); text != Now.users.constEnd(); ++text) {
        if (!text.value().isEmpty())
            lines << text.key() + u'=' + text.value();
    }
    lines.sort();
    return lines;
}

void TinyDatabase::BeginTransaction(qint32& started)
{
    Require();
    m_levels.push_back(Now);
    started = 1;
}

void TinyDatabase::CommitTransaction(qint32& started)
{
    if (started == 0 || m_levels.empty())
        return;
    m_levels.pop_back();
    if (m_levels.empty())
        ++Commits;
}

void TinyDatabase::RollbackTransaction()
{
    if (m_levels.empty())
        return;
    Now = m_levels.back();
    m_levels.pop_back();
    ++Rollbacks;
}

void TinyDatabase::QueryParentsWithID(const QString& filter, QString& list)
{
    Require();
    QStringList items;
    for (const Connection& connection : Now.connections) {
        if (filter.isEmpty() || Same(connection.name, filter))
            items << connection.name << QString::number(connection.id);
    }
    list = items.join(TabChar);
}

QString TinyDatabase::NodeRows(const QString& conName, const QString& nodeType, qint32& position) const
{
    Require();
    std::vector<Node> nodes = Now.nodes;
    std::sort(nodes.begin(), nodes.end(),
              [](const Node& one, const Node& other) { return one.id < other.id; });
    const int limit = position < 0 ? std::min(-position, MaxRows) : MaxRows;
    const qint32 after = std::max(position, 0);
    QStringList items;
    qint32 lastId = 0;
    bool more = false;
    for (const Node& node : nodes) {
        if (node.id <= after || (!conName.isEmpty() && !Same(node.conName, conName)) ||
            (!nodeType.isEmpty() && !Same(node.nodeType, nodeType)))
            continue;
        more = items.size() / 2 == limit;
        if (more)
            break;
        items << node.name << QString::number(node.id);
        lastId = node.id;
    }
    position = more ? lastId : 0;
    return items.join(TabChar);
}

void TinyDatabase::QueryNodesWithIdEx(const QString& conName, const QString& nodeType, QString& list,
                                      qint32& position)
{
    list = NodeRows(conName, nodeType, position);
}

void TinyDatabase::FindNodesWithIdEx(const QString& searched, QString& list, qint32& position)
{
    // What is looked at is one answer of the list.
    QString looked;
    qint32 next = position;
    QueryNodesWithIdEx(QString(), QString(), looked, next);
    const QStringList items = looked.split(TabChar, Qt::SkipEmptyParts);
    QStringList found;
    for (qsizetype at = 0; at + 1 < items.size(); at += 2) {
        if (!items[at].toUpper().contains(searched.toUpper()))
            continue;
        const QString conName = ExistingNode(items[at]).conName;
        found << items[at] << items[at + 1] << conName << QString::number(ExistingConnection(conName).id);
    }
    list = found.join(TabChar);
    position = next;
}

void TinyDatabase::FindWaypointsWithIdEx(const QString& searched, QString& list, qint32& position)
{
    Require();
    QStringList found;
    for (const Connection& connection : Now.connections) {
        QString items;
        GetTargetItemList(connection.target, items);
        int hop = 0;
        // Values are never called WP.
        const QStringList texts = items.split(TabChar);
        for (qsizetype at = 2; at + 1 < texts.size(); ++at) {
            if (texts[at] != u"WP")
                continue;
            ++hop;
            QString name;
            GetWpLongName(texts[at + 1], name);
            if (connection.id > position && name.toUpper().contains(searched.toUpper()))
                found << name << QString::number(hop) << connection.name << QString::number(connection.id);
        }
    }
    list = found.join(TabChar);
    position = 0;
}

void TinyDatabase::GetParentNodesWithID(const QString& conName, QString& list)
{
    QStringList items;
    for (const Node& node : Now.nodes) {
        if (Same(node.conName, ExistingConnection(conName).name))
            items << node.name << QString::number(node.id);
    }
    list = items.join(TabChar);
}

void TinyDatabase::GetParentNodesWithIdEx(const QString& conName, QString& list, qint32& position)
{
    list = NodeRows(ExistingConnection(conName).name, QString(), position);
}

void TinyDatabase::GetParentNodesCount(const QString& conName, qint32& count)
{
    Require();
    count = static_cast<qint32>(std::count_if(Now.nodes.begin(), Now.nodes.end(),
                                              [&](const Node& node) { return Same(node.conName, conName); }));
}

void TinyDatabase::GetNodeCount(qint32& count)
{
    Require();
    count = static_cast<qint32>(Now.nodes.size());
}

void TinyDatabase::GetParent(const QString& name, QString& target)
{
    target = ExistingConnection(name).target;
}

void TinyDatabase::GetNode(const QString& name, QString& conName, QString& target)
{
    const Node& node = ExistingNode(name);
    conName = node.conName;
    target = node.target;
}

void TinyDatabase::GetNodeEx(const QString& name, QString& conName, QString& target, QString& nodeType,
                             QString& commandLine)
{
    const Node* const node = FindNode(name);
    conName = node ? node->conName : QString();
    target = node ? node->target : QString();
    nodeType = node ? node->nodeType : QString();
    commandLine = node ? CommandLineOf(*node) : QString();
}

void TinyDatabase::GetNodeNmaTag(const QString& name, QString& nodeType, QString& tail)
{
    const Node& node = ExistingNode(name);
    nodeType = node.nodeType;
    tail = node.tail;
}

void TinyDatabase::GetParentID(const QString& name, QString& id)
{
    const Connection* const connection = FindConnection(name);
    id = connection ? QString::number(connection->id) : QString();
}

void TinyDatabase::GetNodeID(const QString& name, QString& id)
{
    const Node* const node = FindNode(name);
    id = node ? QString::number(node->id) : QString();
}

void TinyDatabase::ParentNameExist(const QString& name, QString& answer)
{
    answer = FindConnection(name) ? QStringLiteral("TRUE") : QStringLiteral("FALSE");
}

void TinyDatabase::NodeNameExist(const QString& name, QString& answer)
{
    answer = FindNode(name) ? QStringLiteral("TRUE") : QStringLiteral("FALSE");
}

void TinyDatabase::SaveParent(const QString& name, const QString& target)
{
    RequireEdit();
    RequireFreeName(name);
    AddConnection(name, target);
    Note(ConnectionSaved, name, Now.lastRecordId);
}

void TinyDatabase::SaveNode(const QString& name, const QString& nodeType, const QString& target,
                            const QString& conName, const QString& commandTail)
{
    RequireEdit();
    RequireFreeName(name);
    Now.nodes.push_back({++Now.lastRecordId, name, ExistingConnection(conName).name, nodeType, target,
                         QString(), commandTail});
    Note(NodeSaved, name, Now.lastRecordId);
}

void TinyDatabase::ReplaceParentName(const QString& oldName, const QString& newName)
{
    RequireEdit();
    Connection& connection = ExistingConnection(oldName);
    if (!Same(oldName, newName))
        RequireFreeName(newName);
    Note(ConnectionDeleted, connection.name, connection.id);
    for (Node& node : Now.nodes) {
        if (Same(node.conName, oldName))
            node.conName = newName;
    }
    connection.name = newName;
    connection.id = ++Now.lastRecordId;
    Note(ConnectionChanged, newName, connection.id);
}

void TinyDatabase::ReplaceParentTarget(const QString& name, const QString& target)
{
    RequireEdit();
    Connection& connection = ExistingConnection(name);
    connection.target = target;
    connection.id = ++Now.lastRecordId;
    Note(ConnectionChanged, connection.name, connection.id);
}

void TinyDatabase::ReplaceNodeName(const QString& oldName, const QString& newName)
{
    RequireEdit();
    Node& node = ExistingNode(oldName);
    if (!Same(oldName, newName))
        RequireFreeName(newName);
    Note(NodeDeleted, node.name, node.id);
    node.name = newName;
    node.id = ++Now.lastRecordId;
    Note(NodeChanged, newName, node.id);
}

void TinyDatabase::ReplaceNodeTarget(const QString& name, const QString& conName, const QString& target)
{
    RequireEdit();
    Node& node = ExistingNode(name);
    node.conName = ExistingConnection(conName).name;
    node.target = target;
    node.id = ++Now.lastRecordId;
    Note(NodeChanged, node.name, node.id);
}

void TinyDatabase::DeleteParent(const QString& name, bool force)
{
    RequireEdit();
    const Connection connection = ExistingConnection(name);
    qint32 nodes = 0;
    GetParentNodesCount(name, nodes);
    if (nodes > 0 && !force)
        Refuse(QStringLiteral("Connection %1 has nodes.").arg(name));
    DeleteParentNodes(name);
    std::erase_if(Now.connections, [&](const Connection& other) { return other.id == connection.id; });
    Note(ConnectionDeleted, connection.name, connection.id);
}

void TinyDatabase::DeleteParentNodes(const QString& name)
{
    RequireEdit();
    const std::vector<Node> nodes = Now.nodes;
    for (const Node& node : nodes) {
        if (Same(node.conName, name))
            DeleteNode(node.name);
    }
}

void TinyDatabase::RemoveNode(const QString& name)
{
    RequireEdit();
    const Node node = ExistingNode(name);
    std::erase_if(Now.nodes, [&](const Node& other) { return other.id == node.id; });
    Note(NodeDeleted, node.name, node.id);
}

void TinyDatabase::DeleteNode(const QString& name)
{
    RemoveNode(name);
    Now.users.remove(UsersKey(name, QStringLiteral("NodeWP")));
}

void TinyDatabase::DeleteNodeFromBrowser(const QString& name)
{
    RemoveNode(name);
}

void TinyDatabase::GetUsersList(const QString& name, const QString& kind, QString& users)
{
    Require();
    users = Now.users.value(UsersKey(name, kind));
}

void TinyDatabase::UpdateUsersList(const QString& name, const QString& kind, const QString& users)
{
    RequireEdit();
    Now.users[UsersKey(name, kind)] = users;
}

void TinyDatabase::UpdateNodeNmaidx(const QString& name, const QString& index)
{
    RequireEdit();
    if (std::none_of(Managers.begin(), Managers.end(),
                     [&](const Manager& manager) { return manager.index == index; }))
        Refuse(QStringLiteral("There is no manager %1.").arg(index));
    ExistingNode(name).index = index;
}

void TinyDatabase::GetNMAInfo(const QString& name, QString& path, QString& commandText, QString& index)
{
    Require();
    const auto found = std::find_if(Managers.begin(), Managers.end(),
                                    [&](const Manager& manager) { return Same(manager.deviceName, name); });
    const bool known = found != Managers.end();
    path = known ? found->path : QString();
    commandText = QString();
    index = known ? found->index : QString();
}

void TinyDatabase::GetNMANames(QString& list)
{
    Require();
    QStringList items;
    for (const Manager& manager : Managers)
        items << manager.deviceName << manager.index + u'|' + manager.path;
    list = items.join(TabChar);
}

void TinyDatabase::GetSecRights(qint32& first, qint32& second)
{
    first = ScanRight ? 1 : 0;
    second = EditRight ? 1 : 0;
}

void TinyDatabase::GetJournalLastId(qint32& id)
{
    Require();
    id = Now.lastJournalId;
}

void TinyDatabase::GetJournalChangesAfterId(qint32 afterId, QString& list)
{
    Require();
    QStringList ids;
    for (const JournalRecord& record : Now.journal) {
        if (record.id > afterId)
            ids << QString::number(record.id);
    }
    list = ids.join(TabChar);
}

void TinyDatabase::GetJournalRecordById(qint32 id, qint32& recordType, QString& text1, qint32& number,
                                        QString& text2)
{
    Require();
    const auto found = std::find_if(Now.journal.begin(), Now.journal.end(),
                                    [&](const JournalRecord& record) { return record.id == id; });
    const JournalRecord record = found == Now.journal.end() ? JournalRecord{id, 0, QString(), 0} : *found;
    recordType = record.recordType;
    text1 = record.text1;
    number = record.number;
    text2 = QString();
}

/// All records are of today.
void TinyDatabase::JournalClearByDayLimit(qint32, qint32)
{
    Require();
}

void TinyDatabase::JournalClearByRecordLimit(qint32 recordLimit, qint32 recordsToKeep)
{
    Require();
    std::vector<JournalRecord>& journal = Now.journal;
    const auto records = static_cast<qint32>(journal.size()) - 1;
    const qint32 excess = records - std::max(recordsToKeep, 1);
    if (records <= recordLimit || excess <= 0)
        return;
    journal.erase(journal.begin() + 1, journal.begin() + 1 + excess);
    journal.front().recordType = 0;
}
