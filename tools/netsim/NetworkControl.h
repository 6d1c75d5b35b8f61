#pragma once

#include <QJsonObject>
#include <QString>

#include <functional>

class GatewayServer;
class SimulatedNetwork;
struct NodeDescription;

/// Carries out the commands that change a network and its gateway while they run.
///
/// A request names its command ("command") and what it is about: "bus" and "address" of a node, and further
/// "newBus", "newAddress", "text", "type", "delayMs", "jitterMs", "loss", "fault", "from", "count". The
/// answer holds "error" when nothing was done, else what was asked for: "nodes", or the state of the gateway.
class NetworkControl
{
public:
    /// `stop` ends the program; it is called before the answer is given.
    NetworkControl(SimulatedNetwork& network, GatewayServer& gateway, std::function<qint64()> clock,
                   std::function<void()> stop);

    [[nodiscard]] QJsonObject Execute(const QJsonObject& request);

private:
    /// Fills the answer; gives what went wrong, nothing when it was done.
    using Command = QString (NetworkControl::*)(const QJsonObject& request, QJsonObject& answer);
    [[nodiscard]] static Command CommandNamed(const QString& name);

    QString Silence(const QJsonObject& request, QJsonObject& answer);
    QString Answer(const QJsonObject& request, QJsonObject& answer);
    QString Add(const QJsonObject& request, QJsonObject& answer);
    QString Remove(const QJsonObject& request, QJsonObject& answer);
    QString Move(const QJsonObject& request, QJsonObject& answer);
    QString Rename(const QJsonObject& request, QJsonObject& answer);
    QString SetType(const QJsonObject& request, QJsonObject& answer);
    QString Delay(const QJsonObject& request, QJsonObject& answer);
    QString Lose(const QJsonObject& request, QJsonObject& answer);
    QString List(const QJsonObject& request, QJsonObject& answer);
    QString Status(const QJsonObject& request, QJsonObject& answer);
    QString Freeze(const QJsonObject& request, QJsonObject& answer);
    QString SetFault(const QJsonObject& request, QJsonObject& answer);
    QString Stop(const QJsonObject& request, QJsonObject& answer);

    /// Has `change` work on the node of the request.
    QString ChangeNode(const QJsonObject& request, const std::function<void(NodeDescription&)>& change);
    [[nodiscard]] bool HasBus(int bus) const;

    SimulatedNetwork& m_network;
    GatewayServer& m_gateway;
    std::function<qint64()> m_clock;
    std::function<void()> m_stop;
};
