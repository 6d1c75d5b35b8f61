#include "tools/zelka/InitCommand.h"

#include "components/hvxdb/HvxAdministration.h"
#include "tools/zelka/CommandError.h"
#include "tools/zelka/DemoNetwork.h"
#include "tools/zelka/Progress.h"
#include "tools/zelka/RuleNetwork.h"

#include <QCoreApplication>

namespace {

/// More would not fit the 32-bit ids of records.
constexpr qint64 MostRecords = 500'000'000;

/// Everyone without rights of his own.
const QString Everyone = QStringLiteral("*");

Catalogue LoadCatalogue(const QString& file)
{
    Catalogue catalogue;
    QStringList problems;
    if (!ReadCatalogue(file, catalogue, problems))
        throw CommandError(ExitCode::Refused, QStringLiteral("The catalogue \"%1\" cannot be used: %2")
                                                  .arg(file, problems.join(QStringLiteral("; "))));
    return catalogue;
}

void AddDemoNetwork(HvxAdministration& database, const QString& source)
{
    DemoNetwork demo(QCoreApplication::applicationDirPath() + QStringLiteral("/zelka-node-manager"));
    for (ManagerRecord& manager : demo.managers)
        demo.SetManagerIndex(manager.device,
                             database.AddManager(manager.device, manager.path, manager.commandText));
    // A server gives rights to its users one by one.
    if (!IsServerSource(source))
        database.SetRights(Everyone, true, true);

    const std::unique_ptr<HvxBulkWriter> writer = database.BeginBulkWrite();
    for (const ConnectionRecord& connection : demo.connections)
        writer->AddConnection(connection.name, connection.target);
    for (const NodeRecord& node : demo.nodes)
        writer->AddNode(node);
    writer->Commit();
}

void AddRuleNetwork(HvxAdministration& database, qint64 connections, qint64 nodes)
{
    const RuleNetwork network(connections);
    const std::unique_ptr<HvxBulkWriter> writer = database.BeginBulkWrite();
    Progress progress(QStringLiteral("Writing"), connections + nodes);
    for (qint64 i = 0; i < connections; ++i) {
        const ConnectionRecord connection = network.Connection(i);
        writer->AddConnection(connection.name, connection.target);
        progress.Step();
    }
    for (qint64 i = 0; i < nodes; ++i) {
        writer->AddNode(network.Node(i));
        progress.Step();
    }
    writer->Commit();
}

} // namespace

InitCommand::InitCommand(CLI::App& db, CommandContext& context) : m_context(context)
{
    CLI::App& command =
        *db.add_subcommand("init", "Make a database; an existing one is never touched without --force");
    command
        .add_option("--catalogue", m_catalogue,
                    "Definitions of types and waypoints (default: those of the product)")
        ->type_name("FILE");
    command.add_flag("--demo", m_demo,
                     "Fill it with a demo network; in a file, everyone may scan and edit it");
    command
        .add_option("--connections", m_connections,
                    "Make so many connections by rule (default: 40 with --nodes)")
        ->check(CLI::Range(qint64{0}, MostRecords))
        ->type_name("N");
    command.add_option("--nodes", m_nodes, "Make so many nodes by rule")
        ->check(CLI::Range(qint64{0}, MostRecords))
        ->type_name("M");
    command.add_flag("--force", m_force, "Replace an existing database; the old one is kept beside it");
    m_context.AddSourceOption(command);
    m_context.AddJsonOption(command);
    command.callback([this] {
        if (m_nodes > 0 && m_connections == 0)
            m_connections = RuleNetwork::DefaultConnections;
        if (m_nodes > RuleNetwork::MostNodes(m_connections))
            throw CLI::ValidationError("--nodes", "too many nodes for so few connections");
        m_context.chosen = [this] { Init(); };
    });
}

void InitCommand::Init() const
{
    const QString file = m_catalogue.empty() ? BuiltInCatalogueFile() : QString::fromStdString(m_catalogue);
    const Catalogue catalogue = LoadCatalogue(file);
    const QString source = m_context.Source();
    const QString kept = CreateHvxDatabase(source, catalogue, m_force);
    if (!kept.isEmpty())
        m_context.output.Words(QStringLiteral("The old database is kept as \"%1\".").arg(kept));
    try {
        if (!IsEmpty())
            Fill(source);
    } catch (const std::exception&) {
        m_context.output.Words(
            QStringLiteral("The database \"%1\" was made but not filled.").arg(ShownSource(source)));
        throw;
    }
    Report(ShownSource(source), kept);
}

void InitCommand::Fill(const QString& source) const
{
    const std::unique_ptr<HvxAdministration> database = HvxAdministration::Open(source);
    if (m_demo)
        AddDemoNetwork(*database, source);
    if (m_connections > 0)
        AddRuleNetwork(*database, m_connections, m_nodes);
}

void InitCommand::Report(const QString& source, const QString& kept) const
{
    const qint64 connections = m_connections + (m_demo ? DemoNetwork::ConnectionCount : 0);
    const qint64 nodes = m_nodes + (m_demo ? DemoNetwork::NodeCount : 0);
    if (m_context.output.Json()) {
        m_context.output.Object({{QStringLiteral("source"), source},
                                 {QStringLiteral("connections"), connections},
                                 {QStringLiteral("nodes"), nodes},
                                 {QStringLiteral("kept"), kept}});
        return;
    }
    m_context.output.Line(QStringLiteral("Made the database \"%1\" with %2 connections and %3 nodes.")
                              .arg(source)
                              .arg(connections)
                              .arg(nodes));
}
