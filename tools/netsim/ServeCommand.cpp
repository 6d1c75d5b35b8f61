#include "tools/netsim/ServeCommand.h"

#include "platform/MachineSeams.h"
#include "tools/netsim/ControlChannel.h"
#include "tools/netsim/GatewayServer.h"
#include "tools/netsim/NetworkControl.h"
#include "tools/netsim/NetworkFile.h"
#include "tools/netsim/SimulatedNetwork.h"
#include "tools/netsim/TerminationSignals.h"

#include <QCoreApplication>

#include <limits>

ServeCommand::ServeCommand(CLI::App& app, NetsimContext& context) : m_context(context)
{
    CLI::App& command = *app.add_subcommand(
        "serve", "Run a network until Ctrl+C; prints \"listening on HOST:PORT\" when it is ready");
    command.add_option("file", m_file, "Network file (default: the demo network)");
    AddListenOption(command, m_listen, "Where to listen; port 0 is any that is free");
    command.add_option("--seed", m_seed, "Seed of what is lost and late, in place of the file's")
        ->check(CLI::Range(qint64(0), qint64(std::numeric_limits<quint32>::max())))
        ->type_name("N");
    CLI::Option* quiet =
        command.add_flag("--quiet", m_quiet, "Tell nothing of workstations that come and go");
    command.add_flag("--log", m_log, "Tell of each message, too")->excludes(quiet);
    command.callback([this] { m_context.chosen = [this] { Run(); }; });
}

void ServeCommand::Run() const
{
    NetworkDescription description;
    QStringList problems;
    const QString path = m_file.empty() ? DemoNetworkPath() : QString::fromStdString(m_file);
    if (!ReadNetworkFile(path, description, problems))
        throw NetsimError(problems.join(u'\n'));
    SimulatedNetwork network(std::move(description));
    if (m_seed >= 0)
        network.SetSeed(static_cast<quint32>(m_seed));

    const qint64 begin = Machine().MonotonicMs();
    const auto clock = [begin] { return Machine().MonotonicMs() - begin; };
    GatewayServer gateway(network, clock);
    QObject::connect(&gateway, &GatewayServer::Noted, &gateway,
                     [this](const QString& text, bool detail) { Note(text, detail); });
    NetworkControl commands(network, gateway, clock, [] { QCoreApplication::quit(); });
    ControlChannel control([&commands](const QJsonObject& request) { return commands.Execute(request); });
    const TerminationSignals signals_;
    QObject::connect(&signals_, &TerminationSignals::Asked, &gateway, [] { QCoreApplication::quit(); });
    Listen(gateway, control);
    (void)QCoreApplication::exec();
}

void ServeCommand::Listen(GatewayServer& gateway, ControlChannel& control) const
{
    const HostAndPort place = *HostAndPort::Read(QString::fromStdString(m_listen));
    if (!gateway.Listen(place.host, place.port))
        throw NetsimError(
            QStringLiteral("%1 cannot be listened on: %2.").arg(place.Text(), gateway.ErrorText()));
    // Without the way for commands a network still serves.
    if (!control.Listen({place.host, gateway.Port()}))
        m_context.Words(QStringLiteral("Commands cannot be taken: %1.").arg(control.ErrorText()));
    m_context.Line(QStringLiteral("listening on ") + gateway.Name());
}

void ServeCommand::Note(const QString& text, bool detail) const
{
    if (detail ? m_log : !m_quiet)
        m_context.Words(text);
}
