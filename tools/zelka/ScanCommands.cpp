#include "tools/zelka/ScanCommands.h"

#include "components/hvxdb/ItemText.h"
#include "model/ConData.h"
#include "model/TextHelpers.h"
#include "platform/ComponentError.h"
#include "scan/network/BusList.h"
#include "scan/network/ScanTargets.h"
#include "scan/network/TimingLimits.h"
#include "tools/zelka/CommandError.h"
#include "tools/zelka/DatabaseSession.h"
#include "tools/zelka/EditSession.h"
#include "tools/zelka/FoundNodesRun.h"
#include "tools/zelka/Interruption.h"
#include "tools/zelka/NetworkSession.h"
#include "tools/zelka/ScannedConnection.h"

#include <csignal>

namespace {

constexpr int LongestInterval = 3'600'000;

const char* const ScanFooter =
    "Nodes are printed as they answer: ADDRESS TYPE IDENTIFICATION, separated by tabs. Ctrl+C ends the "
    "scan;\n"
    "what was found until then stands, but nothing of it is saved.\n"
    "\n"
    "With --save or --dry-run one more line for each node follows: ADDRESS STATE NAME REASON. With --json "
    "the\n"
    "two are one object, printed when the state is known. States:\n"
    "  --dry-run  new        the name is free\n"
    "             known      it is that of the node at this address; nothing to do\n"
    "             elsewhere  it is that of a node at another address of the connection\n"
    "             taken      another connection's node, a connection or another found node has it\n"
    "             unusable   no node can have it: blank, reserved, too long, with control characters\n"
    "  --save     saved, replaced, known, refused, failed, or unsaved where the command ended before\n"
    "             or --on-conflict is fail and other nodes are refused; with --json also found, where the\n"
    "             command ended before the name was looked up\n"
    "The exit code is 0 when nothing was refused, else 1; that of --dry-run is the one --save would have.\n"
    "Each node is saved by itself: Ctrl+C ends the command behind the node under way.";

QString TextOf(const std::optional<int>& number)
{
    return number ? QString::number(*number) : QString();
}

void RequireWithin(const TimingLimits& limits, const QString& what, const std::optional<int>& number)
{
    if (number && !limits.Allow(TextOf(number)))
        throw CommandError(
            ExitCode::Usage,
            QStringLiteral("%1 must be from %2 to %3.").arg(what, Trim(limits.lowest), Trim(limits.highest)));
}

CommandError NoTarget(const QString& name)
{
    return {ExitCode::Refused, QStringLiteral("The connection \"%1\" has no valid target.").arg(Trim(name))};
}

} // namespace

ScanCommands::ScanCommands(CLI::App& app, CommandContext& context) : m_context(context)
{
    AddScan(app);
    CLI::App& buses = *app.add_subcommand("buses", "Ask the far end of a connection for its buses");
    buses.add_option("connection", m_name, "Connection over a bus")->required()->type_name("NAME");
    m_context.AddSourceOption(buses);
    m_context.AddJsonOption(buses);
    buses.callback([this] { m_context.chosen = [this] { PrintBuses(); }; });
}

void ScanCommands::AddScan(CLI::App& app)
{
    CLI::App& scan = *app.add_subcommand(
        "scan", "Ask each address behind a connection who is there: address, type, identification");
    const CLI::Range addresses(LowestScanAddress, HighestScanAddress);
    scan.add_option("connection", m_name, "Connection to scan through")->required()->type_name("NAME");
    scan.add_option("--from", m_from, "First address")->required()->check(addresses)->type_name("ADDRESS");
    scan.add_option("--to", m_to, "Last address")->required()->check(addresses)->type_name("ADDRESS");
    scan.add_option("--bus", m_bus,
                    "Bus to scan, in place of the connection's own; with --save and --dry-run only its own")
        ->check(CLI::Range(0, HighestBus))
        ->type_name("BUS");
    scan.add_option("--retries", m_retries, "How often a silent address is asked again")->type_name("N");
    scan.add_option("--time-out", m_timeOut, "How long each answer is waited for")->type_name("MS");
    scan.add_option("--interval", m_interval,
                    "From one address to the next, at least; 0: as fast as answers come (default: 200)")
        ->check(CLI::Range(0, LongestInterval))
        ->type_name("MS");
    m_saving.Declare(scan);
    m_context.AddSourceOption(scan);
    m_context.AddJsonOption(scan);
    scan.footer(ScanFooter);
    scan.callback([this] { m_context.chosen = [this] { Scan(); }; });
}

void ScanCommands::Scan() const
{
    if (m_to < m_from)
        throw CommandError(ExitCode::Usage, QStringLiteral("--to must be equal to or greater than --from."));
    m_saving.Check();
    ConData direct;
    const QString target = ReadScanTarget(direct);
    const Interruption interruption;
    if (m_saving.Wanted())
        WalkAndSave(target, direct);
    else
        (void)Walk(target, [this](const AnsweringNode& node) { Print(node); });
    if (m_context.output.Json())
        m_context.output.EndArray();
}

bool ScanCommands::Walk(const QString& target,
                        const std::function<void(const AnsweringNode& node)>& found) const
{
    bool ended = false;
    RunOnNetwork([&] {
        NetworkSession session(T4SyncConnId, [this] { return IsOver(); });
        session.Open(target);
        if (m_context.output.Json())
            m_context.output.BeginArray();
        WalkAddresses(session, Range(), found);
        ended = !IsOver();
    });
    return ended;
}

void ScanCommands::WalkAndSave(const QString& target, ConData& direct) const
{
    FoundNodesRun run(m_context, m_saving, direct);
    try {
        const bool ended = Walk(target, [&](const AnsweringNode& node) {
            if (!m_context.output.Json())
                Print(node);
            run.Take(node, TextOf(m_retries), TextOf(m_timeOut));
        });
        if (!ended)
            throw CommandError(ExitCode::Refused,
                               QStringLiteral("The output was closed before the scan had come to its end."));
        run.Run();
    } catch (...) {
        run.TellEnd();
        throw;
    }
    run.RequireNoneRefused();
}

QString ScanCommands::ReadScanTarget(ConData& direct) const
{
    const QString name = QString::fromStdString(m_name);
    const DatabaseSession session(m_context);
    RequireWithin(RetryLimits(), QStringLiteral("--retries"), m_retries);
    RequireWithin(TimeLimits(), QStringLiteral("--time-out"), m_timeOut);
    const bool saves = m_saving.Wanted();
    ConData& connection = ScannedConnection(session, name, saves ? std::nullopt : m_bus);
    if (saves && m_bus)
        RequireStoredBus(connection, *m_bus);
    if (saves && !m_saving.DryRun())
        RequireEditRight(session);
    if (!connection.SetTargetString(false))
        throw NoTarget(name);
    direct.Copy(connection);
    return ScanTarget(connection.TargetString);
}

AddressRange ScanCommands::Range() const
{
    return {m_from, m_to, TextOf(m_retries), TextOf(m_timeOut), m_interval};
}

void ScanCommands::Print(const AnsweringNode& node) const
{
    if (m_context.output.Json())
        m_context.output.Item({{QStringLiteral("address"), node.address},
                               {QStringLiteral("type"), node.type},
                               {QStringLiteral("identification"), node.identification}});
    else
        m_context.output.Line(
            QStringList{QString::number(node.address), ListItem(node.type), ListItem(node.identification)}
                .join(u'\t'));
    m_context.output.Flush();
}

void ScanCommands::PrintBuses() const
{
    const QString target = ReadBusesTarget();
    const Interruption interruption;
    RunOnNetwork([&] {
        const QStringList buses = AskBuses(target);
        if (m_context.output.Json())
            m_context.output.BeginArray();
        for (const QString& bus : buses) {
            if (m_context.output.Json())
                m_context.output.Item({{QStringLiteral("bus"), ValInt(bus)}});
            else
                m_context.output.Line(ListItem(bus));
        }
        if (m_context.output.Json())
            m_context.output.EndArray();
    });
}

QString ScanCommands::ReadBusesTarget() const
{
    const QString name = QString::fromStdString(m_name);
    const DatabaseSession session(m_context);
    ConData& connection = ScannedConnection(session, name, std::nullopt);
    if (!HasBus(connection))
        throw CommandError(ExitCode::Refused,
                           QStringLiteral("The connection \"%1\" leads over no bus.").arg(Trim(name)));
    if (!connection.SetTargetStringForBusScanning())
        throw NoTarget(name);
    return ConvertBusTarget(connection.TargetString);
}

QStringList ScanCommands::AskBuses(const QString& target) const
{
    const QString lead = QStringLiteral("Buses could not be scanned.");
    NetworkSession session(HvxSyncConnId, [this] { return IsOver(); });
    session.Open(target);
    int count = 0;
    QStringList buses;
    try {
        if (!ParseBusList(AskForBuses(session.Connection(), session.Utility()), count, buses))
            throw CommandError(ExitCode::NetworkUnavailable, lead);
    } catch (const ComponentError& error) {
        session.Fail(lead, error.Description());
    }
    return buses;
}

void ScanCommands::RunOnNetwork(const std::function<void()>& work) const
{
    // Not only for as long as this runs: what is left in the buffers goes out at the very end.
    std::signal(SIGPIPE, SIG_IGN);
    try {
        work();
    } catch (const CommandError&) {
        // Whatever failed when the command was over failed because it was.
        if (!IsOver())
            throw;
    }
    Interruption::Require();
}

bool ScanCommands::IsOver() const
{
    return Interruption::Asked() || m_context.output.ReaderHasGone();
}
