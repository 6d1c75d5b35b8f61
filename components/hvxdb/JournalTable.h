#pragma once

#include "components/hvxdb/HvxStore.h"

/// Reads and cleans the Journal; triggers write it. Failures: ComponentError.
///
/// Inside a transaction the ends of the Journal are read once, with the last record, and a list of ids brings
/// the records of its first ids and their nodes with it, the rest in chunks as they are asked for: what a
/// refresh costs does not grow with each change.
class JournalTable
{
public:
    explicit JournalTable(HvxStore& store) : m_store(&store) {}

    /// 0 for a Journal without records.
    [[nodiscard]] qint32 LastId() const;
    [[nodiscard]] JournalEnds Ends() const;
    /// The id behind which the newest `count` records stand; 0 when there are no more than that.
    [[nodiscard]] qint32 IdBefore(qint32 count) const;
    /// Ids behind `id`, ascending, as an item list.
    [[nodiscard]] QString IdsAfter(qint32 id) const;
    [[nodiscard]] JournalRecord Record(qint32 id) const;

    /// With more than `recordLimit` records: keeps the newest `recordsToKeep`.
    void ClearByRecordLimit(qint32 recordLimit, qint32 recordsToKeep) const;
    /// With a record older than `dayLimit` days: removes those older than `daysToKeep` days.
    void ClearByDayLimit(qint32 dayLimit, qint32 daysToKeep) const;

private:
    [[nodiscard]] std::optional<qint64> Number(HvxStatement statement, const QVariantList& values = {}) const;
    [[nodiscard]] QString IdsBehind(qint64 id) const;
    /// The record of an id that the list led to; nothing for any other id.
    [[nodiscard]] std::optional<JournalRecord> RecordOfChunks(qint64 id) const;
    /// Reads the chunk behind `after`; gives its ids as an item list.
    QString ReadChunk(qint64 after, qint64 listEnd) const;
    [[nodiscard]] JournalRows ReadRows(qint64 after) const;
    [[nodiscard]] bool HasMoreThan(qint32 recordLimit, const JournalEnds& ends) const;
    void RemoveBefore(qint64 id, const JournalEnds& ends) const;

    HvxStore* m_store;
};
