#pragma once

#include <memory>

class GatewayServer;
class SimulatedNetwork;

/// The gateway of the demo network, for as long as it lives that of this process.
class DemoGateway
{
public:
    DemoGateway();
    ~DemoGateway();
    DemoGateway(const DemoGateway&) = delete;
    DemoGateway& operator=(const DemoGateway&) = delete;

    [[nodiscard]] SimulatedNetwork& Network() const { return *m_network; }

private:
    std::unique_ptr<SimulatedNetwork> m_network;
    std::unique_ptr<GatewayServer> m_server;
};
