#pragma once

#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxdb/HvxStore.h"

#include <QHash>
#include <QSet>

/// Writes many records in one transaction of a store; the store must outlive it. What was not committed at
/// the end of its life is undone.
class BulkWriter : public HvxBulkWriter
{
public:
    explicit BulkWriter(std::shared_ptr<HvxStore> store);
    ~BulkWriter() override;
    BulkWriter(const BulkWriter&) = delete;
    BulkWriter& operator=(const BulkWriter&) = delete;

    void AddConnection(const QString& name, const QString& target) override;
    void AddNode(const NodeRecord& node) override;
    void UpdateConnection(const QString& name, const QString& target) override;
    void UpdateNode(const NodeRecord& node) override;
    void Commit() override;

private:
    /// The key by which nodes refer to a connection; raises when there is none of that name.
    [[nodiscard]] qint64 ConnectionKey(const QString& name);
    /// NULL for a node without a manager of its own; raises for an index that no manager has.
    [[nodiscard]] QVariant ManagerValue(const QString& index);
    /// Keeps the fold of a changed name that the triggers might have made otherwise.
    void StoreKey(HvxStatement statement, const QString& name);

    std::shared_ptr<HvxStore> m_store;
    WriteScope m_scope;
    QHash<QString, qint64> m_connectionKeys;
    QSet<int> m_managers;
    /// The last id that the database has given; known, since nobody else writes while the scope is open.
    /// A server gives the ids itself.
    qint64 m_lastId = 0;
};
