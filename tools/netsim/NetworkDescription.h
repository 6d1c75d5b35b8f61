#pragma once

#include <QString>

#include <map>
#include <optional>

/// A simulated network as its file describes it and as commands change it while it runs.

/// Bounds of what a network may hold.
namespace NetworkLimits {
constexpr int HighestBus = 999'999;
constexpr int HighestAddress = 4094;
constexpr int MostBuses = 1000;
/// Milliseconds of one delay.
constexpr int LongestDelay = 600'000;
/// Characters of one identification or type.
constexpr int LongestText = 1000;
} // namespace NetworkLimits

/// How a node answers.
struct NodeBehaviour
{
    /// Milliseconds until it answers, and how many more there are at most, by chance.
    int delayMs = 0;
    int jitterMs = 0;
    /// Share of the requests that are lost, 0 to 1.
    double loss = 0;
    /// It is there and answers nothing.
    bool silent = false;

    bool operator==(const NodeBehaviour&) const = default;
};

/// When a node is there, in milliseconds since the network began.
struct NodePresence
{
    std::optional<qint64> appearsAfterMs;
    /// Before `appearsAfterMs`: it is away in between.
    std::optional<qint64> vanishesAfterMs;
    /// The same begins anew after so many milliseconds; 0: never.
    qint64 repeatsEveryMs = 0;

    [[nodiscard]] bool IsPresent(qint64 nowMs) const
    {
        const qint64 now = repeatsEveryMs > 0 ? nowMs % repeatsEveryMs : nowMs;
        const bool appeared = now >= appearsAfterMs.value_or(0);
        if (!vanishesAfterMs)
            return appeared;
        const bool notYetVanished = now < *vanishesAfterMs;
        return appearsAfterMs.value_or(0) < *vanishesAfterMs ? appeared && notYetVanished
                                                             : appeared || notYetVanished;
    }
    bool operator==(const NodePresence&) const = default;
};

struct NodeDescription
{
    /// 8-bit characters, as all texts.
    QString identification;
    /// Without one it does not answer the request for its type.
    std::optional<QString> type;
    NodeBehaviour behaviour;
    NodePresence presence;

    bool operator==(const NodeDescription&) const = default;
};

struct NetworkDescription
{
    /// Nodes of a bus by address.
    using Bus = std::map<int, NodeDescription>;

    /// Two runs with the same seed and the same requests lose and delay the same.
    quint32 seed = 1;
    /// Buses by number.
    std::map<int, Bus> buses;
};
