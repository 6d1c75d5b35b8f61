#include "components/hvxdb/JournalTable.h"

#include "components/hvxdb/ItemText.h"

#include <QDateTime>

#include <algorithm>

namespace {

constexpr qint64 SecondsOfDay = 24 * 60 * 60;
/// The version text, which stays, and the first record that can go.
constexpr qint64 FirstChange = 2;

} // namespace

qint32 JournalTable::LastId() const
{
    return static_cast<qint32>(Number(HvxStatement::JournalLastId).value_or(0));
}

QString JournalTable::IdsAfter(qint32 id) const
{
    SqlRows rows = m_store->Session().Read(HvxStatement::JournalIdsAfter, {id});
    return rows.Next() ? rows.Text(0) : QString();
}

JournalRecord JournalTable::Record(qint32 id) const
{
    SqlRows rows = m_store->Session().Read(HvxStatement::JournalRecord, {id});
    if (!rows.Next())
        return {};
    return {rows.Number(0), rows.Text(1), rows.Number(2), rows.Text(3)};
}

void JournalTable::ClearByRecordLimit(qint32 recordLimit, qint32 recordsToKeep) const
{
    if (recordLimit <= 0 || Number(HvxStatement::JournalCount).value_or(0) <= recordLimit)
        return;
    // The newest stays in any case: ids go on behind it.
    const qint32 kept = std::max(recordsToKeep, 1);
    RemoveBefore(Number(HvxStatement::JournalFirstToKeep, {kept - 1}).value_or(0));
}

void JournalTable::ClearByDayLimit(qint32 dayLimit, qint32 daysToKeep) const
{
    if (dayLimit <= 0)
        return;
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    const std::optional<qint64> oldest = Number(HvxStatement::JournalOldest);
    if (!oldest || *oldest >= now - dayLimit * SecondsOfDay)
        return;
    const qint64 keepFrom = now - std::max(daysToKeep, 0) * SecondsOfDay;
    RemoveBefore(Number(HvxStatement::JournalFirstYoungerThan, {keepFrom}).value_or(0));
}

std::optional<qint64> JournalTable::Number(HvxStatement statement, const QVariantList& values) const
{
    SqlRows rows = m_store->Session().Read(statement, values);
    if (!rows.Next() || rows.IsNull(0))
        return std::nullopt;
    return rows.LongNumber(0);
}

void JournalTable::RemoveBefore(qint64 id) const
{
    const std::optional<qint64> oldest = Number(HvxStatement::JournalOldestId);
    if (!oldest || id < FirstChange || *oldest >= id)
        return;
    StoreScope scope(*m_store);
    SqlSession& session = m_store->Session();
    if (session.Write(HvxStatement::JournalDeleteBefore, {id}) > 0)
        session.Write(HvxStatement::JournalMarkCleaned);
    scope.Commit();
}
