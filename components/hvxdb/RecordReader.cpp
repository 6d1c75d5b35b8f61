#include "components/hvxdb/RecordReader.h"

#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxdb/ItemText.h"
#include "components/hvxdb/SqlFailure.h"

#include <array>

namespace {

/// Fields of HvxStatement::NodeByName.
enum NodeField
{
    NodeId,
    NodeTarget,
    NodeType,
    NodeTail,
    NodeManager,
    ConId,
    ConName,
    ConTarget,
    ManagerIndex,
    ManagerPath,
    ManagerText,
    NodeDefinitionsVersion,
    NodeFieldCount,
};

using NodeFields = std::array<QString, NodeFieldCount>;

/// Takes the fields of a packed row apart. False: a stored text holds the separator.
bool Unpack(QStringView packed, NodeFields& fields)
{
    for (int field = 0; field < NodeFieldCount; ++field) {
        const qsizetype end = packed.indexOf(PackedFieldSeparator);
        if ((end < 0) != (field == NodeFieldCount - 1))
            return false;
        fields[static_cast<size_t>(field)] = (end < 0 ? packed : packed.first(end)).toString();
        packed = end < 0 ? QStringView() : packed.sliced(end + 1);
    }
    return true;
}

/// The fields of the node under that key. False: there is none.
bool ReadNodeFields(SqlSession& session, const QString& key, NodeFields& fields)
{
    {
        SqlRows packed = session.Read(HvxStatement::NodeByName, {key});
        if (!packed.Next())
            return false;
        if (Unpack(packed.Text(0), fields))
            return true;
    }
    SqlRows columns = session.Read(HvxStatement::NodeByNameInColumns, {key});
    if (!columns.Next())
        return false;
    for (int field = 0; field < NodeFieldCount; ++field)
        fields[static_cast<size_t>(field)] = columns.Text(field);
    return true;
}

NodeRow NodeOfFields(const NodeFields& fields)
{
    NodeRow node;
    node.exists = true;
    node.id = fields[NodeId].toInt();
    node.target = fields[NodeTarget];
    node.nodeType = fields[NodeType];
    node.commandTail = fields[NodeTail];
    node.managerIndex = fields[NodeManager];
    node.conName = fields[ConName];
    return node;
}

/// A node that this transaction, or the records of the Journal that it reads, have told of.
std::optional<NodeRow> KnownNode(const RecordCache& cache, const QString& key)
{
    if (const auto known = cache.nodes.find(key); known != cache.nodes.end())
        return known->second;
    return cache.journalChunk ? cache.journalChunk->rows.Node(key) : std::nullopt;
}

} // namespace

NodeRow RecordReader::Node(const QString& name) const
{
    const QString key = FoldedName(name);
    RecordCache& cache = m_store->Cache();
    if (const std::optional<NodeRow> known = KnownNode(cache, key))
        return *known;
    NodeFields fields;
    NodeRow node;
    if (ReadNodeFields(m_store->Session(), key, fields)) {
        node = NodeOfFields(fields);
        m_store->UseDefinitionsVersion(fields[NodeDefinitionsVersion].toInt());
    }
    if (m_store->InTransaction()) {
        cache.nodes.emplace(key, node);
        if (node.exists) {
            if (!fields[ConId].isEmpty())
                cache.connections.insert_or_assign(
                    FoldedName(node.conName), ConnectionRow{true, fields[ConId].toInt(), fields[ConTarget]});
            cache.managers.insert_or_assign(
                node.nodeType, ManagerRow{fields[ManagerIndex], fields[ManagerPath], fields[ManagerText]});
        }
    }
    return node;
}

bool RecordReader::NodeExists(const QString& name) const
{
    const QString key = FoldedName(name);
    RecordCache& cache = m_store->Cache();
    if (const std::optional<NodeRow> known = KnownNode(cache, key))
        return known->exists;
    if (const auto known = cache.nodeExists.find(key); known != cache.nodeExists.end())
        return known->second;
    if (cache.journalChunk) {
        if (const std::optional<NodeRow> told = cache.journalChunk->rows.Node(key))
            return told->exists;
    }
    SqlRows rows = m_store->Session().Read(HvxStatement::NodeExists, {key});
    const bool exists = rows.Next();
    if (m_store->InTransaction())
        cache.nodeExists.emplace(key, exists);
    return exists;
}

ConnectionRow RecordReader::Connection(const QString& name) const
{
    const QString key = FoldedName(name);
    RecordCache& cache = m_store->Cache();
    if (const auto known = cache.connections.find(key); known != cache.connections.end())
        return known->second;
    ConnectionRow connection;
    qint32 definitionsVersion = 0;
    {
        SqlRows rows = m_store->Session().Read(HvxStatement::ConnectionByName, {key});
        if (rows.Next()) {
            connection = {true, rows.Number(0), rows.Text(1)};
            definitionsVersion = rows.Number(2);
        }
    }
    if (connection.exists)
        m_store->UseDefinitionsVersion(definitionsVersion);
    if (m_store->InTransaction())
        cache.connections.insert_or_assign(key, connection);
    return connection;
}

ManagerRow RecordReader::Manager(const QString& device) const
{
    RecordCache& cache = m_store->Cache();
    if (const auto known = cache.managers.find(device); known != cache.managers.end())
        return known->second;
    ManagerRow manager;
    SqlRows rows = m_store->Session().Read(HvxStatement::ManagerByDevice, {device.trimmed()});
    if (rows.Next())
        manager = {rows.Text(0), rows.Text(1), rows.Text(2)};
    if (m_store->InTransaction())
        cache.managers.insert_or_assign(device, manager);
    return manager;
}

NodeRow RecordReader::ExistingNode(const QString& name) const
{
    NodeRow node = Node(name);
    if (!node.exists)
        RaiseRefusal(QStringLiteral("There is no node %1.").arg(name));
    return node;
}

ConnectionRow RecordReader::ExistingConnection(const QString& name) const
{
    ConnectionRow connection = Connection(name);
    if (!connection.exists)
        RaiseRefusal(QStringLiteral("There is no connection %1.").arg(name));
    return connection;
}

QString RecordReader::UsersText(const QString& kind, const QString& name) const
{
    SqlRows rows = m_store->Session().Read(HvxStatement::UsersText, {kind, FoldedName(name)});
    return rows.Next() ? rows.Text(0) : QString();
}

QString RecordReader::ManagerNames() const
{
    QStringList items;
    SqlRows rows = m_store->Session().Read(HvxStatement::ManagerList);
    while (rows.Next()) {
        items << ListItem(rows.Text(1));
        items << ListItem(rows.Text(0) + u'|' + rows.Text(2));
    }
    return items.join(ItemSeparator);
}
