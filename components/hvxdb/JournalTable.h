#pragma once

#include "components/hvxdb/HvxStore.h"

/// One record of the Journal; type 0: there is no such record, or record 1 of a cleaned Journal.
struct JournalRecord
{
    qint32 recordType = 0;
    QString text1;
    qint32 number = 0;
    QString text2;
};

/// Reads and cleans the Journal; triggers write it. Failures: ComponentError.
class JournalTable
{
public:
    explicit JournalTable(HvxStore& store) : m_store(&store) {}

    /// 0 for a Journal without records.
    [[nodiscard]] qint32 LastId() const;
    /// Ids behind `id`, ascending, as an item list.
    [[nodiscard]] QString IdsAfter(qint32 id) const;
    [[nodiscard]] JournalRecord Record(qint32 id) const;

    /// With more than `recordLimit` records: keeps the newest `recordsToKeep`.
    void ClearByRecordLimit(qint32 recordLimit, qint32 recordsToKeep) const;
    /// With a record older than `dayLimit` days: removes those older than `daysToKeep` days.
    void ClearByDayLimit(qint32 dayLimit, qint32 daysToKeep) const;

private:
    [[nodiscard]] std::optional<qint64> Number(HvxStatement statement, const QVariantList& values = {}) const;
    void RemoveBefore(qint64 id) const;

    HvxStore* m_store;
};
