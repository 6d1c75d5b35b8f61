#include "components/hvxdb/RecordReader.h"

#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxdb/ItemText.h"
#include "components/hvxdb/SqlFailure.h"

namespace {

/// Columns of HvxStatement::NodeByName.
enum NodeColumn
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
};

NodeRow NodeOfRow(const SqlRows& rows)
{
    NodeRow node;
    node.exists = true;
    node.id = rows.Number(NodeId);
    node.target = rows.Text(NodeTarget);
    node.nodeType = rows.Text(NodeType);
    node.commandTail = rows.Text(NodeTail);
    node.managerIndex = rows.Text(NodeManager);
    node.conName = rows.Text(ConName);
    return node;
}

} // namespace

NodeRow RecordReader::Node(const QString& name) const
{
    const QString key = FoldedName(name);
    RecordCache& cache = m_store->Cache();
    if (const auto known = cache.nodes.find(key); known != cache.nodes.end())
        return known->second;
    NodeRow node;
    ConnectionRow connection;
    ManagerRow manager;
    qint32 definitionsVersion = 0;
    {
        SqlRows rows = m_store->Session().Read(HvxStatement::NodeByName, {key});
        if (rows.Next()) {
            node = NodeOfRow(rows);
            connection = {!rows.IsNull(ConId), rows.Number(ConId), rows.Text(ConTarget)};
            manager = {rows.Text(ManagerIndex), rows.Text(ManagerPath), rows.Text(ManagerText)};
            definitionsVersion = rows.Number(NodeDefinitionsVersion);
        }
    }
    if (node.exists)
        m_store->UseDefinitionsVersion(definitionsVersion);
    if (m_store->InTransaction()) {
        cache.nodes.emplace(key, node);
        if (connection.exists)
            cache.connections.insert_or_assign(FoldedName(node.conName), connection);
        if (node.exists)
            cache.managers.insert_or_assign(node.nodeType, manager);
    }
    return node;
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
