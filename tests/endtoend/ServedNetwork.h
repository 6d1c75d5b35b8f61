#pragma once

#include "components/hvxutil/HvxUtilityComponent.h"
#include "components/syncconn/SyncConnectionComponent.h"
#include "platform/Components.h"
#include "tools/netsim/GatewayServer.h"
#include "tools/netsim/SimulatedNetwork.h"

#include <QTest>

/// A simulated network behind a gateway of this process, and the product's own components, which find it as
/// the workstation's gateway. In force as long as it lives.
class ServedNetwork
{
public:
    explicit ServedNetwork(NetworkDescription description)
        : Network(std::move(description)), Server(std::make_unique<GatewayServer>(Network))
    {
        RegisterSyncConnections();
        RegisterHvxUtility();
        if (!Server->Listen())
            qFatal("The gateway cannot listen: %s", qUtf8Printable(Server->ErrorText()));
        m_port = Server->Port();
        qputenv("ZELKA_GATEWAY", Server->Name().toUtf8());
    }
    ~ServedNetwork()
    {
        qunsetenv("ZELKA_GATEWAY");
        for (const QString& id : {T4SyncConnId, HvxSyncConnId})
            RegisterSyncConnection(id, nullptr);
        ::RegisterHvxUtility(HvxUtilityId, nullptr);
    }
    ServedNetwork(const ServedNetwork&) = delete;
    ServedNetwork& operator=(const ServedNetwork&) = delete;

    SimulatedNetwork Network;
    std::unique_ptr<GatewayServer> Server;

    /// As when its process is killed, and as when it is started again.
    void Kill() { Server.reset(); }
    void Restart()
    {
        Server = std::make_unique<GatewayServer>(Network);
        if (!Server->Listen(QHostAddress::LocalHost, m_port))
            qFatal("The gateway cannot listen again: %s", qUtf8Printable(Server->ErrorText()));
    }
    void Disturb(WireFault::Kind kind, int fromFrame = 1, int count = WireFault::Always) const
    {
        if (!Server->SetFault({kind, fromFrame, count}))
            qFatal("The fault cannot be set.");
    }
    /// No workstation holds a connection any more.
    [[nodiscard]] bool IsLeft() const
    {
        return !Server || QTest::qWaitFor([this] { return Server->Workstations() == 0; });
    }

    /// Bus 254 with nodes at so many addresses from 1, named "Node 1", of type "T1".
    [[nodiscard]] static NetworkDescription WithNodes(int count)
    {
        NetworkDescription network;
        for (int address = 1; address <= count; ++address) {
            NodeDescription& node = network.buses[254][address];
            node.identification = QStringLiteral("Node %1").arg(address);
            node.type = QStringLiteral("T%1").arg(address);
        }
        return network;
    }

private:
    quint16 m_port = 0;
};
