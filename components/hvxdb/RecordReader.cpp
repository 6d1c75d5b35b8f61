#include "components/hvxdb/RecordReader.h"

#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxdb/ItemText.h"
#include "components/hvxdb/SqlFailure.h"

namespace {

/// Columns of HvxStatement::NodeByName.
enum NodeColumn
{
    NodeId,
    NodeName,
    NodeTarget,
    NodeType,
    NodeTail,
    NodeManager,
    ConId,
    ConName,
    ConKey,
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
    node.name = rows.Text(NodeName);
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
    if (const auto known = cache.nodes.constFind(key); known != cache.nodes.constEnd())
        return *known;
    NodeRow node;
    ConnectionRow connection;
    ManagerRow manager;
    QString conKey;
    qint32 definitionsVersion = 0;
    {
        SqlRows rows = m_store->Session().Read(HvxStatement::NodeByName, {key});
        if (rows.Next()) {
            node = NodeOfRow(rows);
            connection = {!rows.IsNull(ConId), rows.Number(ConId), rows.Text(ConName), rows.Text(ConTarget)};
            conKey = rows.Text(ConKey);
            manager = {rows.Text(ManagerIndex), rows.Text(ManagerPath), rows.Text(ManagerText)};
            definitionsVersion = rows.Number(NodeDefinitionsVersion);
        }
    }
    if (node.exists)
        m_store->UseDefinitionsVersion(definitionsVersion);
    if (m_store->InTransaction()) {
        cache.nodes.insert(key, node);
        if (connection.exists)
            cache.connections.insert(conKey, connection);
        if (node.exists)
            cache.managers.insert(node.nodeType, manager);
    }
    return node;
}

ConnectionRow RecordReader::Connection(const QString& name) const
{
    const QString key = FoldedName(name);
    RecordCache& cache = m_store->Cache();
    if (const auto known = cache.connections.constFind(key); known != cache.connections.constEnd())
        return *known;
    ConnectionRow connection;
    qint32 definitionsVersion = 0;
    {
        SqlRows rows = m_store->Session().Read(HvxStatement::ConnectionByName, {key});
        if (rows.Next()) {
            connection = {true, rows.Number(0), rows.Text(1), rows.Text(3)};
            definitionsVersion = rows.Number(4);
        }
    }
    if (connection.exists)
        m_store->UseDefinitionsVersion(definitionsVersion);
    if (m_store->InTransaction())
        cache.connections.insert(key, connection);
    return connection;
}

ManagerRow RecordReader::Manager(const QString& device) const
{
    RecordCache& cache = m_store->Cache();
    if (const auto known = cache.managers.constFind(device); known != cache.managers.constEnd())
        return *known;
    ManagerRow manager;
    SqlRows rows = m_store->Session().Read(HvxStatement::ManagerByDevice, {device.trimmed()});
    if (rows.Next())
        manager = {rows.Text(0), rows.Text(1), rows.Text(2)};
    if (m_store->InTransaction())
        cache.managers.insert(device, manager);
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
