#pragma once

#include "tools/zelka/CommandContext.h"

struct JournalEntry;
class JournalFeed;

/// `zelka db journal`: what changed in the database, and with --follow what changes from now on.
class JournalCommand
{
public:
    JournalCommand(CLI::App& db, CommandContext& context);
    JournalCommand(const JournalCommand&) = delete;
    JournalCommand& operator=(const JournalCommand&) = delete;

private:
    void Run() const;
    void Follow(JournalFeed& feed) const;
    void Print(const JournalEntry& entry) const;
    [[nodiscard]] bool IsOver() const;
    void Wait() const;

    CommandContext& m_context;
    int m_after = 0;
    /// Negative: no such limit.
    int m_last = -1;
    bool m_follow = false;
    double m_interval = 1;
};
