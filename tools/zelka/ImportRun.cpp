#include "tools/zelka/ImportRun.h"

#include "tools/zelka/Progress.h"

namespace {

void WriteConnection(const ImportRow& row, HvxBulkWriter& writer)
{
    const QString name = row.Text(ImportText::Name);
    const QString target = row.Text(ImportText::Target);
    if (row.action == ImportAction::Update)
        writer.UpdateConnection(name, target);
    else
        writer.AddConnection(name, target);
}

void WriteNode(const ImportRow& row, HvxBulkWriter& writer)
{
    NodeRecord node;
    node.name = row.Text(ImportText::Name);
    node.conName = row.Text(ImportText::Connection);
    node.nodeType = row.Text(ImportText::Manager);
    node.target = row.Text(ImportText::Target);
    SplitCommand(row.Text(ImportText::Command), node.managerIndex, node.commandTail);
    if (row.action == ImportAction::Update)
        writer.UpdateNode(node);
    else
        writer.AddNode(node);
}

} // namespace

ImportRun::ImportRun(HvxAdministration& database, ConflictRule rule, bool dryRun)
    : m_database(database), m_rule(rule), m_dryRun(dryRun)
{}

ImportReport ImportRun::Run(QIODevice& device)
{
    ImportReport report;
    const Definitions definitions(m_database.CatalogueData());
    ImportPlan plan(definitions, report.problems);
    plan.Read(device);

    // From here on nobody else changes what the plan is checked against. A file with problems writes nothing
    // and keeps nobody waiting.
    std::unique_ptr<HvxBulkWriter> writer;
    if (!m_dryRun && report.problems.Empty())
        writer = m_database.BeginBulkWrite();
    Resolve(plan, report);
    CountActions(plan, report);
    if (!writer || !report.problems.Empty())
        return report;
    WriteRows(plan, ImportKind::Connection, *writer);
    WriteRows(plan, ImportKind::Node, *writer);
    writer->Commit();
    return report;
}

void ImportRun::Resolve(ImportPlan& plan, ImportReport& report)
{
    ImportResolver resolver(plan, m_rule, report.problems);
    resolver.TakeManagers(m_database.Managers());
    m_database.ForEachConnection(
        [&resolver](const ConnectionRecord& record) { resolver.TakeStored(record); });
    m_database.ForEachNode(QString(), [&resolver](const NodeRecord& record) { resolver.TakeStored(record); });
    resolver.Resolve();
    report.renames = resolver.Renames();
}

void ImportRun::CountActions(const ImportPlan& plan, ImportReport& report)
{
    for (const ImportRow& row : plan.Rows()) {
        switch (row.action) {
        case ImportAction::Add:
            ++(row.kind == ImportKind::Connection ? report.connectionsAdded : report.nodesAdded);
            break;
        case ImportAction::Skip:
            ++report.skipped;
            break;
        case ImportAction::Update:
            ++report.updated;
            break;
        case ImportAction::Unchanged:
            ++report.unchanged;
            break;
        }
    }
}

void ImportRun::WriteRows(const ImportPlan& plan, ImportKind kind, HvxBulkWriter& writer)
{
    Progress progress(QStringLiteral("Importing"), static_cast<qint64>(plan.Rows().size()));
    for (const ImportRow& row : plan.Rows()) {
        progress.Step();
        if (row.kind == kind && (row.action == ImportAction::Add || row.action == ImportAction::Update))
            (row.kind == ImportKind::Connection ? WriteConnection : WriteNode)(row, writer);
    }
}
