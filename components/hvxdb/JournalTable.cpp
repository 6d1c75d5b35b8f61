#include "components/hvxdb/JournalTable.h"

#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxdb/ItemText.h"

#include <QDateTime>

#include <algorithm>
#include <limits>

namespace {

constexpr qint64 SecondsOfDay = 86'400;
/// The version text, which stays, and the first record that can go.
constexpr qint64 FirstChange = 2;
/// The end of a chunk behind which no record is left.
constexpr qint64 Everything = std::numeric_limits<qint64>::max();

} // namespace

qint32 JournalTable::LastId() const
{
    return static_cast<qint32>(Ends().lastId);
}

JournalEnds JournalTable::Ends() const
{
    RecordCache& cache = m_store->Cache();
    if (cache.journalEnds)
        return *cache.journalEnds;
    JournalEnds ends;
    SqlRows rows = m_store->Session().Read(HvxStatement::JournalEnds);
    if (rows.Next())
        ends = {rows.LongNumber(0),
                rows.LongNumber(1),
                rows.LongNumber(2),
                {rows.Number(3), rows.Text(4), rows.Number(5), rows.Text(6)}};
    if (m_store->InTransaction())
        cache.journalEnds = ends;
    return ends;
}

qint32 JournalTable::IdBefore(qint32 count) const
{
    return count <= 0
               ? LastId()
               : static_cast<qint32>(Number(HvxStatement::JournalFirstToKeep, {count - 1}).value_or(1) - 1);
}

QString JournalTable::IdsAfter(qint32 id) const
{
    if (!m_store->InTransaction())
        return IdsBehind(id);
    QString ids = ReadChunk(id, Everything);
    JournalChunk& chunk = *m_store->Cache().journalChunk;
    if (chunk.upTo == Everything)
        return ids;
    const QString rest = IdsBehind(chunk.upTo);
    if (rest.isEmpty()) {
        chunk.upTo = Everything;
        return ids;
    }
    chunk.listEnd = rest.sliced(rest.lastIndexOf(ItemSeparator) + 1).toLongLong();
    return ids + ItemSeparator + rest;
}

QString JournalTable::IdsBehind(qint64 id) const
{
    SqlRows rows = m_store->Session().Read(HvxStatement::JournalIdsAfter, {id});
    return rows.Next() ? rows.Text(0) : QString();
}

JournalRecord JournalTable::Record(qint32 id) const
{
    if (const std::optional<JournalRecord> known = RecordOfChunks(id))
        return *known;
    const std::optional<JournalEnds>& ends = m_store->Cache().journalEnds;
    if (ends && ends->lastId == id)
        return ends->last;
    SqlRows rows = m_store->Session().Read(HvxStatement::JournalRecord, {id});
    if (!rows.Next())
        return {};
    return {rows.Number(0), rows.Text(1), rows.Number(2), rows.Text(3)};
}

std::optional<JournalRecord> JournalTable::RecordOfChunks(qint64 id) const
{
    const std::optional<JournalChunk>& chunk = m_store->Cache().journalChunk;
    if (!chunk || id <= chunk->after)
        return std::nullopt;
    if (id > chunk->upTo) {
        if (id > chunk->listEnd)
            return std::nullopt;
        // Chunks only go forward, so that no order of asking reads a record in two of them.
        ReadChunk(id - 1, chunk->listEnd);
    }
    return chunk->rows.Record(id);
}

QString JournalTable::ReadChunk(qint64 after, qint64 listEnd) const
{
    JournalChunk chunk{after, Everything, listEnd, ReadRows(after)};
    if (chunk.rows.Count() == JournalRecordsPerChunk)
        chunk.upTo = chunk.rows.Ids().back();
    QString ids;
    for (const qint64 id : chunk.rows.Ids()) {
        if (!ids.isEmpty())
            ids += ItemSeparator;
        ids += QString::number(id);
    }
    m_store->Cache().journalChunk = std::move(chunk);
    return ids;
}

JournalRows JournalTable::ReadRows(qint64 after) const
{
    JournalRows chunk;
    {
        SqlRows packed = m_store->Session().Read(HvxStatement::JournalChunk, {after});
        if (packed.Next() && chunk.Unpack(packed.Text(1), packed.LongNumber(0)))
            return chunk;
    }
    SqlRows rows = m_store->Session().Read(HvxStatement::JournalChunkInColumns, {after});
    while (rows.Next())
        chunk.Append(rows);
    return chunk;
}

void JournalTable::ClearByRecordLimit(qint32 recordLimit, qint32 recordsToKeep) const
{
    if (recordLimit <= 0)
        return;
    const JournalEnds ends = Ends();
    if (!HasMoreThan(recordLimit, ends))
        return;
    // The newest stays in any case: ids go on behind it.
    const qint32 kept = std::max(recordsToKeep, 1);
    RemoveBefore(Number(HvxStatement::JournalFirstToKeep, {kept - 1}).value_or(0), ends);
}

void JournalTable::ClearByDayLimit(qint32 dayLimit, qint32 daysToKeep) const
{
    if (dayLimit <= 0)
        return;
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    const JournalEnds ends = Ends();
    if (ends.oldestId == 0 || ends.oldestChanged >= now - dayLimit * SecondsOfDay)
        return;
    const qint64 keepFrom = now - std::max(daysToKeep, 0) * SecondsOfDay;
    RemoveBefore(Number(HvxStatement::JournalFirstYoungerThan, {keepFrom}).value_or(0), ends);
}

bool JournalTable::HasMoreThan(qint32 recordLimit, const JournalEnds& ends) const
{
    if (ends.oldestId == 0 || ends.lastId - ends.oldestId + 1 <= recordLimit)
        return false;
    // Some ids in between can be missing.
    std::optional<CountedJournal>& counted = m_store->Counted();
    if (!counted || counted->oldestId != ends.oldestId || counted->lastId != ends.lastId)
        counted = {ends.oldestId, ends.lastId, Number(HvxStatement::JournalCount).value_or(0)};
    return counted->count > recordLimit;
}

std::optional<qint64> JournalTable::Number(HvxStatement statement, const QVariantList& values) const
{
    SqlRows rows = m_store->Session().Read(statement, values);
    if (!rows.Next() || rows.IsNull(0))
        return std::nullopt;
    return rows.LongNumber(0);
}

void JournalTable::RemoveBefore(qint64 id, const JournalEnds& ends) const
{
    if (ends.oldestId == 0 || id < FirstChange || ends.oldestId >= id)
        return;
    StoreScope scope(*m_store);
    SqlSession& session = m_store->Session();
    if (session.Write(HvxStatement::JournalDeleteBefore, {id}) > 0)
        session.Write(HvxStatement::JournalMarkCleaned);
    scope.Commit();
}
