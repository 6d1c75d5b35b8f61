#include "components/hvxdb/BulkWriter.h"

#include "components/hvxdb/HvxNames.h"
#include "components/hvxdb/SqlFailure.h"

BulkWriter::BulkWriter(std::shared_ptr<HvxStore> store) : m_store(std::move(store)), m_scope(*m_store)
{
    SqlRows rows = m_store->Session().Read(HvxStatement::SequenceLastId);
    if (rows.Next())
        m_lastId = rows.LongNumber(0);
}

BulkWriter::~BulkWriter() = default;

void BulkWriter::AddConnection(const QString& name, const QString& target)
{
    const QString stored = StoredName(name);
    const QString key = FoldedName(stored);
    SqlSession& session = m_store->Session();
    if (session.Write(HvxStatement::InsertConnection, {stored, key, target}) == 0)
        RaiseRefusal(TakenName(stored));
    m_connectionKeys.insert(key, session.LastInsertId());
    ++m_lastId;
}

void BulkWriter::AddNode(const NodeRecord& node)
{
    const QString stored = StoredName(node.name);
    const int added = m_store->Session().Write(
        HvxStatement::BulkInsertNode,
        {m_lastId + 1, stored, FoldedName(stored), node.nodeType, node.target, node.commandTail,
         ManagerValue(node.managerIndex), ConnectionKey(node.conName)});
    if (added == 0)
        RaiseRefusal(TakenName(stored));
    ++m_lastId;
}

void BulkWriter::UpdateConnection(const QString& name, const QString& target)
{
    const QString stored = StoredName(name);
    const int changed =
        m_store->Session().Write(HvxStatement::UpdateConnection, {stored, target, FoldedName(stored)});
    if (changed == 0)
        RaiseRefusal(QStringLiteral("There is no connection %1.").arg(stored));
    ++m_lastId;
    StoreKey(HvxStatement::SetConnectionKey, stored);
}

void BulkWriter::UpdateNode(const NodeRecord& node)
{
    const QString stored = StoredName(node.name);
    const int changed =
        m_store->Session().Write(HvxStatement::UpdateNode, {stored, node.nodeType, node.target,
                                                            node.commandTail, ManagerValue(node.managerIndex),
                                                            ConnectionKey(node.conName), FoldedName(stored)});
    if (changed == 0)
        RaiseRefusal(QStringLiteral("There is no node %1.").arg(stored));
    ++m_lastId;
    StoreKey(HvxStatement::SetNodeKey, stored);
}

void BulkWriter::Commit()
{
    m_scope.Commit();
}

qint64 BulkWriter::ConnectionKey(const QString& name)
{
    const QString key = FoldedName(name);
    if (const auto known = m_connectionKeys.constFind(key); known != m_connectionKeys.constEnd())
        return *known;
    SqlRows rows = m_store->Session().Read(HvxStatement::ConnectionKey, {key});
    if (!rows.Next())
        RaiseRefusal(QStringLiteral("There is no connection %1.").arg(name));
    const qint64 rowKey = rows.LongNumber(0);
    m_connectionKeys.insert(key, rowKey);
    return rowKey;
}

QVariant BulkWriter::ManagerValue(const QString& index)
{
    if (index.trimmed().isEmpty())
        return {};
    bool isNumber = false;
    const int number = index.trimmed().toInt(&isNumber);
    if (isNumber && !m_managers.contains(number)) {
        SqlRows rows = m_store->Session().Read(HvxStatement::ManagerExists, {number});
        if (rows.Next())
            m_managers.insert(number);
    }
    if (!isNumber || !m_managers.contains(number))
        RaiseRefusal(QStringLiteral("There is no manager %1.").arg(index));
    return number;
}

void BulkWriter::StoreKey(HvxStatement statement, const QString& name)
{
    if (NeedsOwnKey(name))
        m_store->Session().Write(statement, {FoldedName(name)});
}
