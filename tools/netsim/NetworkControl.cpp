#include "tools/netsim/NetworkControl.h"

#include "tools/netsim/GatewayServer.h"
#include "tools/netsim/NetworkTexts.h"
#include "tools/netsim/SimulatedNetwork.h"

#include <QHash>
#include <QJsonArray>

#include <algorithm>

namespace {

/// -1, which no bus and no address is, for what is no number.
int Number(const QJsonObject& request, const QString& key)
{
    return request.value(key).toInt(-1);
}

int Bus(const QJsonObject& request)
{
    return Number(request, QStringLiteral("bus"));
}

int Address(const QJsonObject& request)
{
    return Number(request, QStringLiteral("address"));
}

QString NodeName(int bus, int address)
{
    return QStringLiteral("%1/%2").arg(bus).arg(address);
}

QString NoSuchBus(int bus)
{
    return QStringLiteral("There is no bus %1.").arg(bus);
}

QString NoSuchNode(int bus, int address)
{
    return QStringLiteral("There is no node %1.").arg(NodeName(bus, address));
}

/// What is wrong with a text that a node is to have; nothing when it can have it.
QString TextProblem(const QString& text)
{
    if (!IsEightBit(text))
        return QStringLiteral("\"%1\" has characters of more than 8 bits.").arg(text);
    if (text.size() > NetworkLimits::LongestText)
        return QStringLiteral("The text is longer than %1 characters.").arg(NetworkLimits::LongestText);
    return {};
}

QJsonObject NodeRow(int bus, int address, const NodeDescription& node, qint64 nowMs)
{
    return {{QStringLiteral("bus"), bus},
            {QStringLiteral("address"), address},
            {QStringLiteral("identification"), node.identification},
            {QStringLiteral("type"), node.type ? QJsonValue(*node.type) : QJsonValue()},
            {QStringLiteral("delayMs"), node.behaviour.delayMs},
            {QStringLiteral("jitterMs"), node.behaviour.jitterMs},
            {QStringLiteral("loss"), node.behaviour.loss},
            {QStringLiteral("silent"), node.behaviour.silent},
            {QStringLiteral("present"), node.presence.IsPresent(nowMs)}};
}

} // namespace

NetworkControl::NetworkControl(SimulatedNetwork& network, GatewayServer& gateway,
                               std::function<qint64()> clock, std::function<void()> stop)
    : m_network(network), m_gateway(gateway), m_clock(std::move(clock)), m_stop(std::move(stop))
{}

NetworkControl::Command NetworkControl::CommandNamed(const QString& name)
{
    static const QHash<QString, Command> commands = {
        {QStringLiteral("silence"), &NetworkControl::Silence},
        {QStringLiteral("answer"), &NetworkControl::Answer},
        {QStringLiteral("add"), &NetworkControl::Add},
        {QStringLiteral("remove"), &NetworkControl::Remove},
        {QStringLiteral("move"), &NetworkControl::Move},
        {QStringLiteral("rename"), &NetworkControl::Rename},
        {QStringLiteral("type"), &NetworkControl::SetType},
        {QStringLiteral("delay"), &NetworkControl::Delay},
        {QStringLiteral("loss"), &NetworkControl::Lose},
        {QStringLiteral("list"), &NetworkControl::List},
        {QStringLiteral("status"), &NetworkControl::Status},
        {QStringLiteral("freeze"), &NetworkControl::Freeze},
        {QStringLiteral("fault"), &NetworkControl::SetFault},
        {QStringLiteral("stop"), &NetworkControl::Stop},
    };
    return commands.value(name, nullptr);
}

QJsonObject NetworkControl::Execute(const QJsonObject& request)
{
    const QString name = request.value(QStringLiteral("command")).toString();
    const Command command = CommandNamed(name);
    QJsonObject answer;
    const QString problem = command != nullptr ? (this->*command)(request, answer)
                                               : QStringLiteral("There is no command \"%1\".").arg(name);
    if (!problem.isEmpty())
        return {{QStringLiteral("error"), problem}};
    return answer;
}

bool NetworkControl::HasBus(int bus) const
{
    return m_network.Description().buses.count(bus) > 0;
}

QString NetworkControl::ChangeNode(const QJsonObject& request,
                                   const std::function<void(NodeDescription&)>& change)
{
    NodeDescription* node = m_network.FindNode(Bus(request), Address(request));
    if (node == nullptr)
        return NoSuchNode(Bus(request), Address(request));
    change(*node);
    return {};
}

QString NetworkControl::Silence(const QJsonObject& request, QJsonObject& /*answer*/)
{
    return ChangeNode(request, [](NodeDescription& node) { node.behaviour.silent = true; });
}

QString NetworkControl::Answer(const QJsonObject& request, QJsonObject& /*answer*/)
{
    return ChangeNode(request, [](NodeDescription& node) { node.behaviour.silent = false; });
}

QString NetworkControl::Add(const QJsonObject& request, QJsonObject& /*answer*/)
{
    const int bus = Bus(request);
    const int address = Address(request);
    NodeDescription node;
    node.identification = request.value(QStringLiteral("text")).toString();
    if (const QJsonValue type = request.value(QStringLiteral("type")); type.isString())
        node.type = type.toString();
    for (const QString& text : {node.identification, node.type.value_or(QString())}) {
        if (const QString problem = TextProblem(text); !problem.isEmpty())
            return problem;
    }
    if (!HasBus(bus))
        return NoSuchBus(bus);
    if (address < 0 || address > NetworkLimits::HighestAddress)
        return QStringLiteral("There is no address %1.").arg(address);
    if (!m_network.AddNode(bus, address, node))
        return QStringLiteral("Node %1 is there already.").arg(NodeName(bus, address));
    return {};
}

QString NetworkControl::Remove(const QJsonObject& request, QJsonObject& /*answer*/)
{
    if (!m_network.RemoveNode(Bus(request), Address(request)))
        return NoSuchNode(Bus(request), Address(request));
    return {};
}

QString NetworkControl::Move(const QJsonObject& request, QJsonObject& /*answer*/)
{
    const int newBus = Number(request, QStringLiteral("newBus"));
    const int newAddress = Number(request, QStringLiteral("newAddress"));
    if (m_network.FindNode(Bus(request), Address(request)) == nullptr)
        return NoSuchNode(Bus(request), Address(request));
    if (!HasBus(newBus))
        return NoSuchBus(newBus);
    if (newAddress < 0 || newAddress > NetworkLimits::HighestAddress)
        return QStringLiteral("There is no address %1.").arg(newAddress);
    if (!m_network.MoveNode(Bus(request), Address(request), newBus, newAddress))
        return QStringLiteral("Node %1 is there already.").arg(NodeName(newBus, newAddress));
    return {};
}

QString NetworkControl::Rename(const QJsonObject& request, QJsonObject& /*answer*/)
{
    const QString text = request.value(QStringLiteral("text")).toString();
    if (const QString problem = TextProblem(text); !problem.isEmpty())
        return problem;
    return ChangeNode(request, [&text](NodeDescription& node) { node.identification = text; });
}

QString NetworkControl::SetType(const QJsonObject& request, QJsonObject& /*answer*/)
{
    const QString text = request.value(QStringLiteral("text")).toString();
    if (const QString problem = TextProblem(text); !problem.isEmpty())
        return problem;
    return ChangeNode(request, [&text](NodeDescription& node) { node.type = text; });
}

QString NetworkControl::Delay(const QJsonObject& request, QJsonObject& /*answer*/)
{
    const int delay = Number(request, QStringLiteral("delayMs"));
    const int jitter = Number(request, QStringLiteral("jitterMs"));
    for (const int time : {delay, jitter}) {
        if (time < 0 || time > NetworkLimits::LongestDelay)
            return QStringLiteral("Delays are from 0 to %1 ms.").arg(NetworkLimits::LongestDelay);
    }
    return ChangeNode(request, [delay, jitter](NodeDescription& node) {
        node.behaviour.delayMs = delay;
        node.behaviour.jitterMs = jitter;
    });
}

QString NetworkControl::Lose(const QJsonObject& request, QJsonObject& /*answer*/)
{
    const double loss = request.value(QStringLiteral("loss")).toDouble(-1);
    if (!(loss >= 0 && loss <= 1))
        return QStringLiteral("Losses are from 0 to 1.");
    return ChangeNode(request, [loss](NodeDescription& node) { node.behaviour.loss = loss; });
}

QString NetworkControl::List(const QJsonObject& request, QJsonObject& answer)
{
    const bool allBuses = !request.contains(QStringLiteral("bus"));
    if (!allBuses && !HasBus(Bus(request)))
        return NoSuchBus(Bus(request));
    const qint64 now = m_clock();
    QJsonArray rows;
    for (const auto& [bus, nodes] : m_network.Description().buses) {
        if (!allBuses && bus != Bus(request))
            continue;
        for (const auto& [address, node] : nodes)
            rows.append(NodeRow(bus, address, node, now));
    }
    answer.insert(QStringLiteral("nodes"), rows);
    return {};
}

QString NetworkControl::Status(const QJsonObject& /*request*/, QJsonObject& answer)
{
    QJsonArray buses;
    qint64 nodeCount = 0;
    for (const auto& [bus, nodes] : m_network.Description().buses) {
        buses.append(bus);
        nodeCount += static_cast<qint64>(nodes.size());
    }
    const FaultSchedule& faults = m_gateway.Faults();
    answer = {{QStringLiteral("gateway"), m_gateway.Name()},
              {QStringLiteral("buses"), buses},
              {QStringLiteral("nodes"), nodeCount},
              {QStringLiteral("seed"), static_cast<qint64>(m_network.Description().seed)},
              {QStringLiteral("workstations"), static_cast<qint64>(m_gateway.Workstations())},
              {QStringLiteral("fault"), NameOf(faults.Fault().kind)},
              {QStringLiteral("framesSinceFault"), faults.Frames()},
              {QStringLiteral("frozen"), faults.IsFrozen()}};
    return {};
}

QString NetworkControl::Freeze(const QJsonObject& /*request*/, QJsonObject& /*answer*/)
{
    m_gateway.Freeze();
    return {};
}

QString NetworkControl::SetFault(const QJsonObject& request, QJsonObject& /*answer*/)
{
    const QString name = request.value(QStringLiteral("fault")).toString();
    const std::optional<WireFault::Kind> kind = WireFaultNamed(name);
    if (!kind)
        return QStringLiteral("There is no fault \"%1\".").arg(name);
    WireFault fault{*kind};
    fault.fromFrame = std::max(1, request.value(QStringLiteral("from")).toInt(1));
    fault.count = std::max(1, request.value(QStringLiteral("count")).toInt(WireFault::Always));
    if (!m_gateway.SetFault(fault))
        return QStringLiteral("%1 cannot be listened on again: %2.")
            .arg(m_gateway.Name(), m_gateway.ErrorText());
    return {};
}

QString NetworkControl::Stop(const QJsonObject& /*request*/, QJsonObject& /*answer*/)
{
    m_stop();
    return {};
}
