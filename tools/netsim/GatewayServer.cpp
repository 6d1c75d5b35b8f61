#include "tools/netsim/GatewayServer.h"

#include "tools/netsim/GatewayConnection.h"
#include "tools/netsim/HostAndPort.h"

#include <algorithm>

GatewayServer::GatewayServer(SimulatedNetwork& network, std::function<qint64()> clock, QObject* parent)
    : QObject(parent), m_network(network), m_clock(std::move(clock))
{
    m_life.start();
    if (!m_clock)
        m_clock = [this] { return m_life.elapsed(); };
    connect(&m_server, &QTcpServer::newConnection, this, &GatewayServer::Accept);
}

GatewayServer::~GatewayServer()
{
    // Whoever listens must not hear of connections that end with this object.
    blockSignals(true);
    Close();
}

bool GatewayServer::Listen(const QHostAddress& address, quint16 port)
{
    if (!m_server.listen(address, port))
        return false;
    m_address = address;
    m_port = m_server.serverPort();
    return true;
}

QString GatewayServer::Name() const
{
    return HostAndPort{m_address, m_port}.Text();
}

bool GatewayServer::SetFault(const WireFault& fault)
{
    const bool wasFrozen = m_faults.IsFrozen();
    m_faults.Set(fault);
    if (fault.kind == WireFault::Kind::Refuse)
        m_server.close();
    else if (!m_server.isListening() && !m_server.listen(m_address, m_port))
        return false;
    if (!wasFrozen)
        return true;
    // A connection may end, and be forgotten, while it goes on.
    const std::vector<GatewayConnection*> connections = m_connections;
    for (GatewayConnection* connection : connections)
        connection->Resume();
    return true;
}

void GatewayServer::Freeze()
{
    m_faults.Freeze();
}

void GatewayServer::Close()
{
    m_server.close();
    const std::vector<GatewayConnection*> connections = std::exchange(m_connections, {});
    for (GatewayConnection* connection : connections)
        delete connection;
}

void GatewayServer::Accept()
{
    while (QTcpSocket* socket = m_server.nextPendingConnection()) {
        if (m_connections.size() >= MostWorkstations) {
            Q_EMIT Noted(QStringLiteral("A workstation too many is turned away."), false);
            socket->abort();
            socket->deleteLater();
            continue;
        }
        auto* connection = new GatewayConnection(socket, m_network, m_faults, m_clock, this);
        m_connections.push_back(connection);
        connect(connection, &GatewayConnection::Noted, this, &GatewayServer::Noted);
        connect(connection, &GatewayConnection::Ended, this, [this, connection] { Forget(connection); });
        Q_EMIT Noted(connection->Name() + QStringLiteral(" connects"), false);
        Q_EMIT WorkstationsChanged();
    }
}

void GatewayServer::Forget(GatewayConnection* connection)
{
    std::erase(m_connections, connection);
    connection->deleteLater();
    Q_EMIT WorkstationsChanged();
}
