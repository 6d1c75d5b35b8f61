#pragma once

#include "components/hvxdb/HvxAdministration.h"

/// Gives the records of a database's Journal one after the other, and goes on where it ended.
///
/// Thread: any one. Failures of the database: ComponentError, unless told otherwise.
class JournalFeed
{
public:
    struct Ends
    {
        std::function<std::unique_ptr<HvxAdministration>()> open;
        std::function<void(const JournalEntry&)> take;
        /// Takes words about what a reader of the records must know.
        std::function<void(const QString&)> tell;
        /// True when no more records are wanted.
        std::function<bool()> isOver;
    };

    explicit JournalFeed(Ends ends) : m_ends(std::move(ends)) {}

    /// Opens the database and begins behind that record, with the newest `newest` of those at most when that
    /// is not negative.
    void Begin(qint32 afterId, qint32 newest);
    /// Gives the records that came since. Tells when records have left the Journal before they could be
    /// given, and when the Journal is another one; goes on with the oldest that is there.
    void GiveNew();
    /// The same for a database that may be away for a time: tells once that it is and once that it is back.
    void TryGiveNew();

private:
    bool GivePart();
    void TellOfLost(const JournalPart& part) const;

    Ends m_ends;
    std::unique_ptr<HvxAdministration> m_database;
    bool m_isAway = false;
    /// The record given last.
    qint32 m_position = 0;
    /// The Journal's last record when it was read last.
    qint32 m_last = 0;
};
