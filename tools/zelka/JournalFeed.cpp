#include "tools/zelka/JournalFeed.h"

#include "platform/ComponentError.h"
#include "platform/HvxDatabase.h"
#include "tools/zelka/CommandContext.h"

#include <algorithm>

namespace {

/// Read together; between two such parts other programs can write.
constexpr qint32 RecordsOfPart = 1000;
/// The version text, with which every Journal begins.
constexpr qint32 FirstRecord = 1;

} // namespace

void JournalFeed::Begin(qint32 afterId, qint32 newest)
{
    m_database = m_ends.open();
    m_position = newest < 0 ? afterId : std::max(afterId, m_database->JournalIdBefore(newest));
}

void JournalFeed::GiveNew()
{
    if (!m_database)
        m_database = m_ends.open();
    while (!m_ends.isOver() && GivePart()) {
    }
}

/// False: no more records follow at this moment.
bool JournalFeed::GivePart()
{
    const JournalPart part = m_database->JournalAfter(m_position, RecordsOfPart);
    const qint32 lastBefore = m_last;
    m_last = part.lastId;
    if (part.lastId < lastBefore) {
        m_ends.tell(QStringLiteral("The Journal has begun anew; its records follow from the oldest on."));
        m_position = 0;
        return true;
    }
    TellOfLost(part);
    for (const JournalEntry& entry : part.entries) {
        if (m_ends.isOver())
            return false;
        m_ends.take(entry);
        m_position = entry.id;
    }
    return !part.entries.empty() && m_position < part.lastId;
}

void JournalFeed::TellOfLost(const JournalPart& part) const
{
    if (m_position > FirstRecord && part.oldestId > m_position + 1)
        m_ends.tell(QStringLiteral("The records %1 to %2 have left the Journal; those from %3 on follow.")
                        .arg(m_position + 1)
                        .arg(part.oldestId - 1)
                        .arg(part.oldestId));
}

void JournalFeed::TryGiveNew()
{
    try {
        GiveNew();
        if (m_isAway)
            m_ends.tell(QStringLiteral("The database can be read again."));
        m_isAway = false;
    } catch (const ComponentError& error) {
        if (!m_isAway)
            m_ends.tell(QStringLiteral("Waiting for the database. %1").arg(WordsOf(error)));
        m_isAway = true;
        // Who is only in use keeps its connection; anything else is opened anew.
        if (error.Number() != DatabaseErrorNumber::InUse)
            m_database.reset();
    }
}
