#include "tools/zelka/CopyCommand.h"

#include "components/hvxdb/HvxAdministration.h"
#include "tools/zelka/CommandError.h"
#include "tools/zelka/Interruption.h"
#include "tools/zelka/Progress.h"

#include <QJsonArray>

CopyCommand::CopyCommand(CLI::App& db, CommandContext& context) : m_context(context)
{
    CLI::App& command = *db.add_subcommand(
        "copy",
        "Copy a database as it is to a new one, of another engine too: records with their ids, Journal, "
        "definitions, managers, rights. FROM and TO: a file, or a postgresql:// URL");
    command.add_option("from", m_from, "The database to copy")->required()->type_name("FROM");
    command.add_option("to", m_to, "The database to make")->required()->type_name("TO");
    command.add_flag("--force", m_force, "Replace an existing database; the old one is kept beside it");
    m_context.AddJsonOption(command);
    command.callback([this] { m_context.chosen = [this] { Copy(); }; });
}

void CopyCommand::Copy() const
{
    const QString from = QString::fromStdString(m_from);
    const QString to = QString::fromStdString(m_to);
    if (from.isEmpty() || to.isEmpty())
        throw CommandError(ExitCode::Usage, QStringLiteral("FROM and TO need a text."));
    DatabaseCopyReport report;
    {
        const Interruption interruption;
        Progress progress(QStringLiteral("Copying"), 0);
        report = CopyHvxDatabase(from, to, m_force, [&progress](qint64 done, qint64 total) {
            progress.Reach(done, total);
            return !Interruption::Asked();
        });
    }
    if (!report.kept.isEmpty())
        m_context.output.Words(QStringLiteral("The old database is kept as \"%1\".").arg(report.kept));
    for (const QString& remark : report.remarks)
        m_context.output.Words(remark);
    const QString shownFrom = ShownSource(from);
    const QString shownTo = ShownSource(to);
    if (m_context.output.Json()) {
        m_context.output.Object({{QStringLiteral("from"), shownFrom},
                                 {QStringLiteral("to"), shownTo},
                                 {QStringLiteral("connections"), report.connections},
                                 {QStringLiteral("nodes"), report.nodes},
                                 {QStringLiteral("kept"), report.kept},
                                 {QStringLiteral("remarks"), QJsonArray::fromStringList(report.remarks)}});
        return;
    }
    m_context.output.Line(QStringLiteral("Copied \"%1\" to \"%2\" with %3 connections and %4 nodes.")
                              .arg(shownFrom, shownTo)
                              .arg(report.connections)
                              .arg(report.nodes));
}
