#include "tools/zelka/ExportRun.h"

#include "components/hvxdb/HvxAdministration.h"
#include "tools/zelka/CommandError.h"
#include "tools/zelka/CsvText.h"
#include "tools/zelka/ImportResolver.h"
#include "tools/zelka/Progress.h"

#include <QSet>

namespace {

constexpr qsizetype PieceBytes = 1 << 16;

} // namespace

ExportRun::ExportRun(HvxAdministration& database, TakeText takeText)
    : m_database(database), m_takeText(std::move(takeText))
{}

ExportReport ExportRun::Run(const QString& under)
{
    ExportReport report;
    QString conName = under;
    QSet<QString> connections;
    m_text.clear();
    AppendCsvRecord(m_text, {"kind", "name", "target", "connection", "manager", "command"});
    m_database.ForEachConnection([&](const ConnectionRecord& record) {
        if (!under.isEmpty() && FoldedName(record.name) != FoldedName(under))
            return;
        if (!under.isEmpty())
            conName = record.name;
        AppendCsvRecord(m_text, {"connection", record.name.toUtf8(), record.target.toUtf8(), "", "", ""});
        connections.insert(record.name);
        GiveLargePiece();
        ++report.connections;
    });
    if (!under.isEmpty() && report.connections == 0)
        throw CommandError(ExitCode::Refused, QStringLiteral("There is no connection \"%1\".").arg(under));

    Progress progress(QStringLiteral("Exporting"), 0);
    m_database.ForEachNode(conName, [&](const NodeRecord& record) {
        // The two lists are read one after the other; between them another program may have written.
        if (!connections.contains(record.conName))
            throw CommandError(
                ExitCode::Refused,
                QStringLiteral("Another program changed the database during the export; try again."));
        AppendCsvRecord(m_text, {"node", record.name.toUtf8(), record.target.toUtf8(),
                                 record.conName.toUtf8(), record.nodeType.toUtf8(),
                                 JoinCommand(record.managerIndex, record.commandTail).toUtf8()});
        GiveLargePiece();
        progress.Step();
        ++report.nodes;
    });
    GiveRest();
    return report;
}

void ExportRun::GiveLargePiece()
{
    if (m_text.size() >= PieceBytes)
        GiveRest();
}

void ExportRun::GiveRest()
{
    m_takeText(m_text);
    m_text.resize(0);
}
