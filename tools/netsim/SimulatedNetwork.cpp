#include "tools/netsim/SimulatedNetwork.h"

#include <utility>

namespace {

constexpr char CarriageReturn = 13;
const QByteArray IdentificationRequest = QByteArrayLiteral("40");
const QByteArray TypeRequest = QByteArrayLiteral("03");
/// Without the carriage return that ends it.
const QByteArray BusListRequest = QByteArrayLiteral("m:11,1,3");

enum class Purpose : quint64
{
    Loss,
    Jitter,
};

/// The next state of a well-mixed sequence of 64-bit numbers (SplitMix64).
quint64 Mixed(quint64 state)
{
    state += 0x9E3779B97F4A7C15U;
    state = (state ^ (state >> 30)) * 0xBF58476D1CE4E5B9U;
    state = (state ^ (state >> 27)) * 0x94D049BB133111EBU;
    return state ^ (state >> 31);
}

/// A number from 0 up to but not including 1 that depends on nothing but the arguments.
double Chance(std::initializer_list<quint64> arguments)
{
    quint64 state = 0;
    for (const quint64 argument : arguments)
        state = Mixed(state ^ argument);
    constexpr int fraction = 53;
    return static_cast<double>(state >> (64 - fraction)) / static_cast<double>(1ULL << fraction);
}

/// One BER value with a definite length (ITU-T X.690, 8.1).
QByteArray BerValue(char tag, const QByteArray& content)
{
    constexpr qsizetype longestShortForm = 127;
    QByteArray header(1, tag);
    if (content.size() <= longestShortForm) {
        header += static_cast<char>(content.size());
    } else {
        QByteArray length;
        for (qsizetype left = content.size(); left > 0; left >>= 8)
            length.prepend(static_cast<char>(left & 0xFF));
        header += static_cast<char>(0x80 | length.size());
        header += length;
    }
    return header + content;
}

bool IsBroadcast(const NetworkPath& path)
{
    return path.bus == SimulatedNetwork::BroadcastBus && path.address == NetworkLimits::HighestAddress;
}

/// What a node that is there and hears the request says; nothing when it says nothing.
std::optional<QByteArray> Words(const NodeDescription& node, const QByteArray& request)
{
    if (request == IdentificationRequest)
        return node.identification.toLatin1();
    if (request == TypeRequest)
        return node.type ? std::optional(node.type->toLatin1()) : std::nullopt;
    // So that a console shows that somebody is there.
    return '?' + request;
}

} // namespace

SimulatedNetwork::SimulatedNetwork(NetworkDescription description) : m_network(std::move(description)) {}

bool SimulatedNetwork::CanReach(const NetworkPath& path) const
{
    return !path.bus || m_network.buses.count(*path.bus) > 0 || IsBroadcast(path);
}

SimulatedNetwork::Answer SimulatedNetwork::AnswerTo(const NetworkPath& path, const QByteArray& request,
                                                    int attempt, qint64 nowMs)
{
    if (request == BusListRequest + CarriageReturn && (!path.address || IsBroadcast(path)))
        return {Kind::Reply, BusList(), 0};
    if (!path.address)
        return {Kind::NoSuchRequest, {}, 0};
    if (!path.bus)
        return {};
    return NodeAnswer(*path.bus, *path.address, request, attempt, nowMs);
}

QByteArray SimulatedNetwork::BusList() const
{
    QByteArray text = BusListRequest + CarriageReturn;
    for (const auto& [number, nodes] : m_network.buses)
        text += QByteArray::number(number) + CarriageReturn;
    text += QByteArray::number(BroadcastBus);
    constexpr char octetString = 0x04;
    constexpr char sequence = 0x30;
    return BerValue(sequence, BerValue(octetString, text));
}

SimulatedNetwork::Answer SimulatedNetwork::NodeAnswer(int bus, int address, const QByteArray& request,
                                                      int attempt, qint64 nowMs)
{
    const NodeDescription* node = FindNode(bus, address);
    if (node == nullptr || node->behaviour.silent || !node->presence.IsPresent(nowMs))
        return {};
    // Counted by first sendings, so that a repeat more or less, which depends on the speed of the machine,
    // changes nothing for the requests that follow.
    quint64& requests = m_requests[{bus, address}];
    if (attempt == 0)
        ++requests;
    const auto chance = [&](Purpose purpose) {
        return Chance({m_network.seed, static_cast<quint64>(bus), static_cast<quint64>(address), requests,
                       static_cast<quint64>(attempt), static_cast<quint64>(purpose)});
    };
    const NodeBehaviour& behaviour = node->behaviour;
    if (chance(Purpose::Loss) < behaviour.loss)
        return {};
    const std::optional<QByteArray> words = Words(*node, request);
    if (!words)
        return {};
    // The longest delay itself can happen.
    const int jitter = static_cast<int>(chance(Purpose::Jitter) * (behaviour.jitterMs + 1));
    return {Kind::Reply, *words, behaviour.delayMs + jitter};
}

NodeDescription* SimulatedNetwork::FindNode(int bus, int address)
{
    const auto nodes = m_network.buses.find(bus);
    if (nodes == m_network.buses.end())
        return nullptr;
    const auto node = nodes->second.find(address);
    return node == nodes->second.end() ? nullptr : &node->second;
}

bool SimulatedNetwork::AddNode(int bus, int address, NodeDescription node)
{
    const auto nodes = m_network.buses.find(bus);
    return nodes != m_network.buses.end() && nodes->second.emplace(address, std::move(node)).second;
}

bool SimulatedNetwork::RemoveNode(int bus, int address)
{
    const auto nodes = m_network.buses.find(bus);
    return nodes != m_network.buses.end() && nodes->second.erase(address) > 0;
}

bool SimulatedNetwork::MoveNode(int bus, int address, int newBus, int newAddress)
{
    const NodeDescription* node = FindNode(bus, address);
    return node != nullptr && AddNode(newBus, newAddress, *node) && RemoveNode(bus, address);
}
