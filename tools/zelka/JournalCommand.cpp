#include "tools/zelka/JournalCommand.h"

#include "components/hvxdb/ItemText.h"
#include "platform/MachineSeams.h"
#include "tools/zelka/CommandError.h"
#include "tools/zelka/Interruption.h"
#include "tools/zelka/JournalFeed.h"
#include "tools/zelka/Pause.h"

#include <QDateTime>

#include <csignal>
#include <limits>

namespace {

QString WhatHappened(qint32 recordType)
{
    switch (recordType) {
    case 20:
        return QStringLiteral("node deleted");
    case 21:
        return QStringLiteral("connection deleted");
    case 30:
        return QStringLiteral("node added");
    case 31:
        return QStringLiteral("connection added");
    case 40:
        return QStringLiteral("node changed");
    case 41:
        return QStringLiteral("connection changed");
    default:
        return QStringLiteral("record of type %1").arg(recordType);
    }
}

/// Local time with its distance from UTC, so that the hour that autumn repeats is told apart.
QString LocalTime(qint64 seconds)
{
    const QDateTime local = QDateTime::fromSecsSinceEpoch(seconds);
    return local.toOffsetFromUtc(local.offsetFromUtc()).toString(Qt::ISODate);
}

} // namespace

JournalCommand::JournalCommand(CLI::App& db, CommandContext& context) : m_context(context)
{
    constexpr int most = std::numeric_limits<int>::max();
    CLI::App& command = *db.add_subcommand(
        "journal", "Print what changed: id of the change, time, what happened, name, record id");
    command.add_option("--after", m_after, "Only what follows the change of this id")
        ->check(CLI::Range(0, most))
        ->type_name("ID");
    command.add_option("--last", m_last, "Only the newest N")->check(CLI::Range(0, most))->type_name("N");
    CLI::Option* follow =
        command.add_flag("--follow", m_follow, "Go on printing as changes come, until Ctrl+C");
    command.add_option("--interval", m_interval, "Seconds between two looks for changes (default: 1)")
        ->check(CLI::Range(0.1, 86'400.0))
        ->type_name("SECONDS")
        ->needs(follow);
    m_context.AddSourceOption(command);
    command.add_flag("--json", m_context.json, "Print a JSON object a line");
    command.callback([this] { m_context.chosen = [this] { Run(); }; });
}

void JournalCommand::Run() const
{
    JournalFeed feed({[this] { return m_context.OpenAdministration(); },
                      [this](const JournalEntry& entry) { Print(entry); },
                      [this](const QString& text) { m_context.output.Words(text); },
                      [this] { return IsOver(); }});
    if (!m_follow) {
        feed.Begin(m_after, m_last);
        feed.GiveNew();
        return;
    }
    const Interruption interruption;
    // Not only for as long as this runs: what is left in the buffers goes out at the very end.
    std::signal(SIGPIPE, SIG_IGN);
    feed.Begin(m_after, m_last);
    try {
        Follow(feed);
    } catch (const CommandError&) {
        if (!m_context.output.ReaderHasGone())
            throw;
    }
}

void JournalCommand::Follow(JournalFeed& feed) const
{
    feed.GiveNew();
    while (!IsOver()) {
        Wait();
        feed.TryGiveNew();
    }
}

void JournalCommand::Print(const JournalEntry& entry) const
{
    const QString what = WhatHappened(entry.recordType);
    const QString time = LocalTime(entry.changed);
    if (m_context.output.Json())
        m_context.output.ObjectLine({{QStringLiteral("id"), entry.id},
                                     {QStringLiteral("time"), time},
                                     {QStringLiteral("type"), entry.recordType},
                                     {QStringLiteral("what"), what},
                                     {QStringLiteral("name"), entry.name},
                                     {QStringLiteral("record"), entry.recordId}});
    else
        m_context.output.Line(QStringList{QString::number(entry.id), time, what, ListItem(entry.name),
                                          QString::number(entry.recordId)}
                                  .join(u'\t'));
    if (m_follow)
        m_context.output.Flush();
}

bool JournalCommand::IsOver() const
{
    return m_follow && (Interruption::Asked() || m_context.output.ReaderHasGone());
}

void JournalCommand::Wait() const
{
    PauseUntil(Machine().MonotonicMs() + static_cast<qint64>(m_interval * 1000), [this] { return IsOver(); });
}
