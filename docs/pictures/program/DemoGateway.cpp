#include "docs/pictures/program/DemoGateway.h"

#include "tools/netsim/GatewayServer.h"
#include "tools/netsim/NetworkFile.h"
#include "tools/netsim/SimulatedNetwork.h"

#include <QStringList>

DemoGateway::DemoGateway()
{
    NetworkDescription description;
    QStringList problems;
    if (!ReadNetworkFile(DemoNetworkPath(), description, problems))
        qFatal("%s", qUtf8Printable(problems.join(u' ')));
    m_network = std::make_unique<SimulatedNetwork>(description);
    m_server = std::make_unique<GatewayServer>(*m_network);
    if (!m_server->Listen())
        qFatal("%s", qUtf8Printable(m_server->ErrorText()));
    qputenv("ZELKA_GATEWAY", m_server->Name().toUtf8());
}

DemoGateway::~DemoGateway()
{
    qunsetenv("ZELKA_GATEWAY");
}
