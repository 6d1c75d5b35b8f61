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
#include "tools/zelka/Interruption.h"
#include "tools/zelka/NetworkSession.h"
#include "tools/zelka/ScannedConnection.h"

#include <csignal>

namespace {

constexpr int LongestInterval = 3'600'000;

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
    scan.add_option("--bus", m_bus, "Bus to scan, in place of the connection's own")
        ->check(CLI::Range(0, HighestBus))
        ->type_name("BUS");
    scan.add_option("--retries", m_retries, "How often a silent address is asked again")->type_name("N");
    scan.add_option("--time-out", m_timeOut, "How long each answer is waited for")->type_name("MS");
    scan.add_option("--interval", m_interval,
                    "From one address to the next, at least; 0: as fast as answers come (default: 200)")
        ->check(CLI::Range(0, LongestInterval))
        ->type_name("MS");
    m_context.AddSourceOption(scan);
    m_context.AddJsonOption(scan);
    scan.footer("Nodes are printed as they answer. Ctrl+C ends the scan; what was found until then stands.");
    scan.callback([this] { m_context.chosen = [this] { Scan(); }; });
}

void ScanCommands::Scan() const
{
    if (m_to < m_from)
        throw CommandError(ExitCode::Usage, QStringLiteral("--to must be equal to or greater than --from."));
    const QString target = ReadScanTarget();
    RunOnNetwork([&] {
        NetworkSession session(T4SyncConnId, [this] { return IsOver(); });
        session.Open(target);
        if (m_context.output.Json())
            m_context.output.BeginArray();
        WalkAddresses(session, Range(), [this](const FoundNode& node) { Print(node); });
        if (m_context.output.Json())
            m_context.output.EndArray();
    });
}

QString ScanCommands::ReadScanTarget() const
{
    const QString name = QString::fromStdString(m_name);
    const DatabaseSession session(m_context);
    RequireWithin(RetryLimits(), QStringLiteral("--retries"), m_retries);
    RequireWithin(TimeLimits(), QStringLiteral("--time-out"), m_timeOut);
    ConData& connection = ScannedConnection(session, name, m_bus);
    if (!connection.SetTargetString(false))
        throw NoTarget(name);
    return ScanTarget(connection.TargetString);
}

AddressRange ScanCommands::Range() const
{
    return {m_from, m_to, TextOf(m_retries), TextOf(m_timeOut), m_interval};
}

void ScanCommands::Print(const FoundNode& node) const
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
    const Interruption interruption;
    // Not only for as long as this runs: what is left in the buffers goes out at the very end.
    std::signal(SIGPIPE, SIG_IGN);
    try {
        work();
    } catch (const CommandError&) {
        // Whatever failed when the command was over failed because it was.
        if (!IsOver())
            throw;
    }
    if (Interruption::Asked())
        throw CommandError(ExitCode::Interrupted, QStringLiteral("Interrupted."), true);
}

bool ScanCommands::IsOver() const
{
    return Interruption::Asked() || m_context.output.ReaderHasGone();
}
