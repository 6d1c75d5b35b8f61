#pragma once

#include "tools/netsim/NetworkDescription.h"
#include "tools/netsim/NetworkPath.h"

#include <QByteArray>

/// What the elements of a network answer, and when; changed by commands while it runs.
///
/// It has no clock and no chance of its own: times are handed in, and what is lost or late follows from the
/// seed, the node and the count of its requests alone.
class SimulatedNetwork
{
public:
    /// The broadcast identity: every network tells on it, at the highest address, which buses there are, as
    /// it does on any path that ends before an address.
    static constexpr int BroadcastBus = 254;

    enum class Kind
    {
        /// Nobody answers.
        Silence,
        /// `data` come after `delayMs`.
        Reply,
        /// The gateway itself has no way to do what was asked.
        NoSuchRequest,
    };
    struct Answer
    {
        Kind kind = Kind::Silence;
        QByteArray data;
        int delayMs = 0;

        bool operator==(const Answer&) const = default;
    };

    explicit SimulatedNetwork(NetworkDescription description);

    /// The bus of the path is served here, or the path needs none.
    [[nodiscard]] bool CanReach(const NetworkPath& path) const;
    /// `attempt`: 0 for the first sending of a request; `nowMs`: milliseconds since the network began.
    [[nodiscard]] Answer AnswerTo(const NetworkPath& path, const QByteArray& request, int attempt,
                                  qint64 nowMs);

    /// What is there now; no pointer to a node outlives the next change.
    [[nodiscard]] const NetworkDescription& Description() const { return m_network; }
    void SetSeed(quint32 seed) { m_network.seed = seed; }
    /// Null when there is none. Its fields may be changed.
    [[nodiscard]] NodeDescription* FindNode(int bus, int address);
    /// False: the bus is not there, or the address is taken.
    [[nodiscard]] bool AddNode(int bus, int address, NodeDescription node);
    /// False: there is none.
    [[nodiscard]] bool RemoveNode(int bus, int address);
    /// False: there is none, the other bus is not there, or the other address is taken.
    [[nodiscard]] bool MoveNode(int bus, int address, int newBus, int newAddress);

private:
    [[nodiscard]] QByteArray BusList() const;
    [[nodiscard]] Answer NodeAnswer(int bus, int address, const QByteArray& request, int attempt,
                                    qint64 nowMs);

    NetworkDescription m_network;
    /// Requests that a node has got, repeats not counted, by bus and address.
    std::map<std::pair<int, int>, quint64> m_requests;
};
