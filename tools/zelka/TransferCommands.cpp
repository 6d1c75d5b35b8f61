#include "tools/zelka/TransferCommands.h"

#include "components/hvxdb/HvxAdministration.h"
#include "model/TextHelpers.h"
#include "tools/zelka/CommandError.h"
#include "tools/zelka/ExportRun.h"

#include <QFile>
#include <QJsonArray>
#include <QSaveFile>

#include <cstdio>

namespace {

const std::string StandardStream = "-";

void OpenInput(QFile& file, const std::string& name)
{
    const bool opened = name == StandardStream ? file.open(stdin, QIODevice::ReadOnly)
                                               : (file.setFileName(QString::fromStdString(name)),
                                                  file.open(QIODevice::ReadOnly));
    if (!opened)
        throw CommandError(ExitCode::Refused, QStringLiteral("The file \"%1\" cannot be read: %2.")
                                                  .arg(QString::fromStdString(name), file.errorString()));
}

CommandError CannotWrite(const QSaveFile& file)
{
    return {
        ExitCode::Refused,
        QStringLiteral("The file \"%1\" cannot be written: %2.").arg(file.fileName(), file.errorString())};
}

ConflictRule RuleNamed(const std::string& name)
{
    if (name == "skip")
        return ConflictRule::Skip;
    if (name == "update")
        return ConflictRule::Update;
    return name == "rename" ? ConflictRule::Rename : ConflictRule::Fail;
}

QString Plural(qint64 count, const QString& noun)
{
    return QString::number(count) + u' ' + (count == 1 ? noun : noun + u's');
}

} // namespace

TransferCommands::TransferCommands(CLI::App& db, CommandContext& context) : m_context(context)
{
    AddImport(db);
    AddExport(db);
}

void TransferCommands::AddImport(CLI::App& db)
{
    CLI::App& command = *db.add_subcommand(
        "import", "Import connections and nodes from comma-separated values (UTF-8), all or nothing.\n"
                  "Columns, named in a header: kind (connection or node), name, target, connection, manager "
                  "(device name), command (index|text)");
    command.add_option("file", m_importFile, "The file; - for standard input")
        ->required()
        ->type_name("FILE.csv");
    command.add_flag("--dry-run", m_dryRun, "Check everything and write nothing");
    command
        .add_option("--on-conflict", m_rule,
                    "What to do with a name that is stored: fail (default), skip the row, update the stored "
                    "record, rename the imported one")
        ->check(CLI::IsMember({"fail", "skip", "update", "rename"}))
        ->option_text("fail|skip|update|rename");
    m_context.AddSourceOption(command);
    m_context.AddJsonOption(command);
    command.callback([this] { m_context.chosen = [this] { Import(); }; });
}

void TransferCommands::AddExport(CLI::App& db)
{
    CLI::App& command = *db.add_subcommand(
        "export", "Export connections and nodes as comma-separated values that import reads");
    CLI::Option* file = command.add_option("file", m_exportFile, "The file (default: standard output)")
                            ->type_name("FILE.csv");
    command.add_option("--under", m_under, "Only this connection and its nodes")->type_name("CONNECTION");
    m_context.AddSourceOption(command);
    command.add_flag("--json", m_context.json, "Print what was written as JSON; needs a file")->needs(file);
    command.callback([this] { m_context.chosen = [this] { Export(); }; });
}

void TransferCommands::Import() const
{
    QFile file;
    OpenInput(file, m_importFile);
    const std::unique_ptr<HvxAdministration> database = m_context.OpenAdministration();
    const ImportReport report = ImportRun(*database, RuleNamed(m_rule), m_dryRun).Run(file);
    if (report.problems.Empty())
        PrintReport(report);
    else
        PrintProblems(report.problems);
}

void TransferCommands::PrintProblems(const ImportProblems& problems) const
{
    const QString file = m_importFile == StandardStream ? QStringLiteral("standard input")
                                                        : QString::fromStdString(m_importFile);
    QJsonArray listed;
    for (const auto& [line, text] : problems.Listed()) {
        m_context.output.Words(QStringLiteral("%1:%2: %3").arg(file).arg(line).arg(text));
        if (m_context.output.Json())
            listed.append(QJsonObject{{QStringLiteral("line"), line}, {QStringLiteral("text"), text}});
    }
    const QString summary =
        QStringLiteral("Nothing was imported: %1 found%2.")
            .arg(Plural(problems.Count(), QStringLiteral("problem")),
                 problems.Count() > static_cast<qint64>(problems.Listed().size())
                     ? QStringLiteral(" (the first %1 are listed)").arg(problems.Listed().size())
                     : QString());
    m_context.output.Words(summary);
    if (m_context.output.Json())
        m_context.output.Object({{QStringLiteral("error"), summary},
                                 {QStringLiteral("problemCount"), problems.Count()},
                                 {QStringLiteral("problems"), listed}});
    throw CommandError(ExitCode::Refused, summary, true);
}

void TransferCommands::PrintReport(const ImportReport& report) const
{
    if (m_context.output.Json()) {
        QJsonArray renames;
        for (const ImportRename& rename : report.renames)
            renames.append(QJsonObject{{QStringLiteral("line"), static_cast<qint64>(rename.line)},
                                       {QStringLiteral("from"), rename.from},
                                       {QStringLiteral("to"), rename.to}});
        m_context.output.Object({{QStringLiteral("dryRun"), m_dryRun},
                                 {QStringLiteral("connectionsAdded"), report.connectionsAdded},
                                 {QStringLiteral("nodesAdded"), report.nodesAdded},
                                 {QStringLiteral("updated"), report.updated},
                                 {QStringLiteral("unchanged"), report.unchanged},
                                 {QStringLiteral("skipped"), report.skipped},
                                 {QStringLiteral("renamed"), renames}});
        return;
    }
    for (const ImportRename& rename : report.renames)
        m_context.output.Line(
            QStringLiteral("Line %1: \"%2\" is named \"%3\".").arg(rename.line).arg(rename.from, rename.to));
    QString summary =
        (m_dryRun ? QStringLiteral("Would import %1 and %2") : QStringLiteral("Imported %1 and %2"))
            .arg(Plural(report.connectionsAdded, QStringLiteral("connection")),
                 Plural(report.nodesAdded, QStringLiteral("node")));
    const std::pair<qint64, QString> further[] = {
        {static_cast<qint64>(report.renames.size()), QStringLiteral("renamed")},
        {report.updated, QStringLiteral("updated")},
        {report.unchanged, QStringLiteral("unchanged")},
        {report.skipped, QStringLiteral("skipped")}};
    for (const auto& [count, word] : further) {
        if (count > 0)
            summary += QStringLiteral(", %1 %2").arg(count).arg(word);
    }
    m_context.output.Line(summary + u'.');
}

void TransferCommands::Export() const
{
    const std::unique_ptr<HvxAdministration> database = m_context.OpenAdministration();
    const QString under = Trim(QString::fromStdString(m_under));
    if (m_exportFile.empty() || m_exportFile == StandardStream) {
        if (m_context.output.Json())
            throw CommandError(ExitCode::Usage, QStringLiteral("--json needs a file to export to."));
        ExportRun(*database, [this](const QByteArray& text) { m_context.output.Bytes(text); }).Run(under);
        return;
    }
    // A half-written file never stands under the chosen name.
    QSaveFile file(QString::fromStdString(m_exportFile));
    if (!file.open(QIODevice::WriteOnly))
        throw CannotWrite(file);
    const auto write = [&file](const QByteArray& text) {
        if (file.write(text) != text.size())
            throw CannotWrite(file);
    };
    const ExportReport report = ExportRun(*database, write).Run(under);
    if (!file.commit())
        throw CannotWrite(file);
    if (m_context.output.Json())
        m_context.output.Object({{QStringLiteral("file"), file.fileName()},
                                 {QStringLiteral("connections"), report.connections},
                                 {QStringLiteral("nodes"), report.nodes}});
    else
        m_context.output.Line(QStringLiteral("Exported %1 and %2.")
                                  .arg(Plural(report.connections, QStringLiteral("connection")),
                                       Plural(report.nodes, QStringLiteral("node"))));
}
