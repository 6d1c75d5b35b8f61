#pragma once

#include "tools/netsim/FaultSchedule.h"

#include <QElapsedTimer>
#include <QHostAddress>
#include <QObject>
#include <QTcpServer>

#include <functional>
#include <vector>

class GatewayConnection;
class SimulatedNetwork;

/// A gateway on a TCP port: any number of workstations before one simulated network, with faults on the wire
/// on demand.
///
/// Thread: the one whose event loop serves it.
class GatewayServer : public QObject
{
    Q_OBJECT

public:
    /// Workstations at a time; more are turned away.
    static constexpr std::size_t MostWorkstations = 1000;

    /// `network` outlives the server. `clock`: milliseconds since the network began; without one since now.
    explicit GatewayServer(SimulatedNetwork& network, std::function<qint64()> clock = {},
                           QObject* parent = nullptr);
    ~GatewayServer() override;
    GatewayServer(const GatewayServer&) = delete;
    GatewayServer& operator=(const GatewayServer&) = delete;

    /// Port 0: any that is free. False: ErrorText tells why.
    [[nodiscard]] bool Listen(const QHostAddress& address = QHostAddress::LocalHost, quint16 port = 0);
    [[nodiscard]] QString ErrorText() const { return m_server.errorString(); }
    /// The port that was given, also while connections are refused.
    [[nodiscard]] quint16 Port() const { return m_port; }
    /// "127.0.0.1:4004"
    [[nodiscard]] QString Name() const;

    /// Puts a fault in the place of the one before, which is over then. False: the port on which connections
    /// were refused has been taken by another program meanwhile.
    [[nodiscard]] bool SetFault(const WireFault& fault);
    [[nodiscard]] const FaultSchedule& Faults() const { return m_faults; }
    /// Reads and sends nothing from now on, until a fault is set or taken away.
    void Freeze();

    /// Stops listening and closes all connections.
    void Close();
    [[nodiscard]] std::size_t Workstations() const { return m_connections.size(); }

Q_SIGNALS:
    /// Something for the log; with `detail` it is about one message.
    void Noted(const QString& text, bool detail);
    /// A workstation has connected or gone.
    void WorkstationsChanged();

private:
    void Accept();
    void Forget(GatewayConnection* connection);

    SimulatedNetwork& m_network;
    std::function<qint64()> m_clock;
    QElapsedTimer m_life;
    QTcpServer m_server;
    QHostAddress m_address;
    quint16 m_port = 0;
    FaultSchedule m_faults;
    std::vector<GatewayConnection*> m_connections;
};
