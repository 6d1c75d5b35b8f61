#include "database/DatabaseClass.h"

// The Journal is read while the session is still being opened, so these operations have no gate: with no
// session they fail at their begin.

bool DatabaseClass::GetJournalLastIdDb(qint32& id)
{
    return RunInTransaction([&](HvxDatabase& component) { component.GetJournalLastId(id); });
}

bool DatabaseClass::GetJournalChangesAfterIdDb(qint32 afterId, QString& list)
{
    return RunInTransaction(
        [&](HvxDatabase& component) { component.GetJournalChangesAfterId(afterId, list); });
}

bool DatabaseClass::GetJournalRecordByIdDb(qint32 id, qint32& recordType, QString& text1, qint32& number,
                                           QString& text2)
{
    return RunInTransaction([&](HvxDatabase& component) {
        component.GetJournalRecordById(id, recordType, text1, number, text2);
    });
}

bool DatabaseClass::JournalClearByDayLimitDb(qint32 dayLimit, qint32 daysToKeep)
{
    return RunInTransaction(
        [&](HvxDatabase& component) { component.JournalClearByDayLimit(dayLimit, daysToKeep); });
}

bool DatabaseClass::JournalClearByRecordLimitDb(qint32 recordLimit, qint32 recordsToKeep)
{
    return RunInTransaction(
        [&](HvxDatabase& component) { component.JournalClearByRecordLimit(recordLimit, recordsToKeep); });
}
