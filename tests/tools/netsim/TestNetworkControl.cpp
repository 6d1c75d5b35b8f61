#include "platform/MachineSeams.h"
#include "tools/netsim/ControlChannel.h"
#include "tools/netsim/GatewayServer.h"
#include "tools/netsim/NetworkControl.h"
#include "tools/netsim/SimulatedNetwork.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

namespace {

QJsonObject Request(const QByteArray& json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isObject())
        qFatal("%s", json.constData());
    return document.object();
}

} // namespace

/// Commands to a network that runs.
class TestNetworkControl : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void Execute_NodeCommands_ChangeTheNode();
    void Execute_AddMoveRemove_ChangeTheNetwork();
    void Execute_Impossible_TellsWhy_data();
    void Execute_Impossible_TellsWhy();
    void Execute_List_TellsNodes();
    void Execute_Status_TellsState();
    void Execute_Faults_ReachTheGateway();
    void Execute_Stop_Stops();
    void Ask_Channel_GivesTheAnswer();
    void Ask_NobodyThere_False();
    void Listen_LeftoverOfAKilledOne_IsReplaced();
    void Channel_EndlessRequest_IsPutOff();

private:
    QString Error(const QByteArray& request) const
    {
        return m_control->Execute(Request(request)).value(QStringLiteral("error")).toString();
    }
    [[nodiscard]] const NodeDescription& Node(int bus, int address) const
    {
        return *m_network->FindNode(bus, address);
    }

    std::unique_ptr<SimulatedNetwork> m_network;
    std::unique_ptr<GatewayServer> m_gateway;
    std::unique_ptr<NetworkControl> m_control;
    int m_stops = 0;
};

void TestNetworkControl::init()
{
    NetworkDescription description;
    description.buses[254][17] = {QStringLiteral("One"), QStringLiteral("T"), {}, {1000, std::nullopt, 0}};
    description.buses[254][18] = {QStringLiteral("Two"), std::nullopt, {1, 2, 0.5, true}, {}};
    description.buses[253];
    m_network = std::make_unique<SimulatedNetwork>(description);
    m_gateway = std::make_unique<GatewayServer>(*m_network);
    m_stops = 0;
    m_control = std::make_unique<NetworkControl>(
        *m_network, *m_gateway, [] { return 500; }, [this] { ++m_stops; });
}

void TestNetworkControl::Execute_NodeCommands_ChangeTheNode()
{
    QCOMPARE(Error(R"({"command":"silence","bus":254,"address":17})"), QString());
    QVERIFY(Node(254, 17).behaviour.silent);
    QCOMPARE(Error(R"({"command":"answer","bus":254,"address":17})"), QString());
    QVERIFY(!Node(254, 17).behaviour.silent);
    QCOMPARE(Error(R"({"command":"rename","bus":254,"address":17,"text":"Sø"})"), QString());
    QCOMPARE(Node(254, 17).identification, QStringLiteral("Sø"));
    QCOMPARE(Error(R"({"command":"type","bus":254,"address":18,"text":"U"})"), QString());
    QCOMPARE(Node(254, 18).type, std::optional(QStringLiteral("U")));
    QCOMPARE(Error(R"({"command":"delay","bus":254,"address":17,"delayMs":5,"jitterMs":6})"), QString());
    QCOMPARE(Node(254, 17).behaviour.delayMs, 5);
    QCOMPARE(Node(254, 17).behaviour.jitterMs, 6);
    QCOMPARE(Error(R"({"command":"loss","bus":254,"address":17,"loss":0.25})"), QString());
    QCOMPARE(Node(254, 17).behaviour.loss, 0.25);
}

void TestNetworkControl::Execute_AddMoveRemove_ChangeTheNetwork()
{
    QCOMPARE(Error(R"({"command":"add","bus":253,"address":4094,"text":"New","type":"N"})"), QString());
    QCOMPARE(Node(253, 4094).identification, QStringLiteral("New"));
    QCOMPARE(Node(253, 4094).type, std::optional(QStringLiteral("N")));
    QCOMPARE(Error(R"({"command":"add","bus":253,"address":0,"text":"Bare"})"), QString());
    QVERIFY(!Node(253, 0).type);
    QCOMPARE(Error(R"({"command":"move","bus":254,"address":17,"newBus":253,"newAddress":5})"), QString());
    QCOMPARE(Node(253, 5).identification, QStringLiteral("One"));
    QVERIFY(m_network->FindNode(254, 17) == nullptr);
    QCOMPARE(Error(R"({"command":"remove","bus":253,"address":5})"), QString());
    QVERIFY(m_network->FindNode(253, 5) == nullptr);
}

void TestNetworkControl::Execute_Impossible_TellsWhy_data()
{
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* name, const char* request, const char* error) {
        QTest::newRow(name) << QByteArray(request) << QString::fromUtf8(error);
    };
    row("no command", "{}", "There is no command \"\".");
    row("unknown command", R"({"command":"explode"})", "There is no command \"explode\".");
    for (const char* command : {"silence", "answer", "remove", "rename", "type"})
        row(command, QByteArray(R"({"command":")" + QByteArray(command) + R"(","bus":254,"address":1})"),
            "There is no node 254/1.");
    row("place no number", R"({"command":"silence","bus":"254","address":17})", "There is no node -1/17.");
    row("add to no bus", R"({"command":"add","bus":1,"address":1,"text":""})", "There is no bus 1.");
    row("add too high", R"({"command":"add","bus":254,"address":4095,"text":""})",
        "There is no address 4095.");
    row("add on another", R"({"command":"add","bus":254,"address":18,"text":""})",
        "Node 254/18 is there already.");
    row("add too wide", R"({"command":"add","bus":254,"address":1,"text":"a","type":"Ω"})",
        "\"Ω\" has characters of more than 8 bits.");
    row("move nobody", R"({"command":"move","bus":254,"address":1,"newBus":254,"newAddress":2})",
        "There is no node 254/1.");
    row("move to no bus", R"({"command":"move","bus":254,"address":17,"newBus":1,"newAddress":2})",
        "There is no bus 1.");
    row("move too high", R"({"command":"move","bus":254,"address":17,"newBus":253,"newAddress":4095})",
        "There is no address 4095.");
    row("move on another", R"({"command":"move","bus":254,"address":17,"newBus":254,"newAddress":18})",
        "Node 254/18 is there already.");
    row("rename too wide", R"({"command":"rename","bus":254,"address":17,"text":"Ω"})",
        "\"Ω\" has characters of more than 8 bits.");
    row("delay too long", R"({"command":"delay","bus":254,"address":17,"delayMs":600001,"jitterMs":0})",
        "Delays are from 0 to 600000 ms.");
    row("jitter missing", R"({"command":"delay","bus":254,"address":17,"delayMs":1})",
        "Delays are from 0 to 600000 ms.");
    row("loss too high", R"({"command":"loss","bus":254,"address":17,"loss":2})", "Losses are from 0 to 1.");
    row("list of no bus", R"({"command":"list","bus":1})", "There is no bus 1.");
    row("unknown fault", R"({"command":"fault","fault":"flood"})", "There is no fault \"flood\".");
}

void TestNetworkControl::Execute_Impossible_TellsWhy()
{
    QFETCH(QByteArray, request);
    QFETCH(QString, error);

    QCOMPARE(Error(request), error);

    QCOMPARE(m_network->Description().buses.at(254).size(), 2U);
    QVERIFY(m_network->Description().buses.at(253).empty());
}

void TestNetworkControl::Execute_List_TellsNodes()
{
    const QJsonArray rows =
        m_control->Execute(Request(R"({"command":"list"})")).value(QStringLiteral("nodes")).toArray();

    QCOMPARE(rows.size(), 2);
    QCOMPARE(rows.at(0).toObject(),
             Request(R"({"bus":254,"address":17,"identification":"One","type":"T","delayMs":0,"jitterMs":0,
                         "loss":0,"silent":false,"present":false})"));
    QCOMPARE(rows.at(1).toObject(),
             Request(R"({"bus":254,"address":18,"identification":"Two","type":null,"delayMs":1,"jitterMs":2,
                         "loss":0.5,"silent":true,"present":true})"));
    QCOMPARE(m_control->Execute(Request(R"({"command":"list","bus":253})")), Request(R"({"nodes":[]})"));
}

void TestNetworkControl::Execute_Status_TellsState()
{
    QVERIFY(m_gateway->Listen());

    QJsonObject status = m_control->Execute(Request(R"({"command":"status"})"));

    QCOMPARE(status.take(QStringLiteral("gateway")).toString(), m_gateway->Name());
    QCOMPARE(status, Request(R"({"buses":[253,254],"nodes":2,"seed":1,"workstations":0,"fault":"none",
                                 "framesSinceFault":0,"frozen":false})"));
}

void TestNetworkControl::Execute_Faults_ReachTheGateway()
{
    QVERIFY(m_gateway->Listen());

    QCOMPARE(Error(R"({"command":"fault","fault":"cut","from":3,"count":2})"), QString());
    const WireFault& fault = m_gateway->Faults().Fault();
    QCOMPARE(fault.kind, WireFault::Kind::Cut);
    QCOMPARE(fault.fromFrame, 3);
    QCOMPARE(fault.count, 2);
    QCOMPARE(Error(R"({"command":"freeze"})"), QString());
    QVERIFY(m_gateway->Faults().IsFrozen());
    QCOMPARE(Error(R"({"command":"fault","fault":"none"})"), QString());
    QVERIFY(!m_gateway->Faults().IsFrozen());
    QCOMPARE(fault.kind, WireFault::Kind::None);
}

void TestNetworkControl::Execute_Stop_Stops()
{
    QCOMPARE(Error(R"({"command":"stop"})"), QString());

    QCOMPARE(m_stops, 1);
}

void TestNetworkControl::Ask_Channel_GivesTheAnswer()
{
    QVERIFY(m_gateway->Listen());
    ControlChannel channel([this](const QJsonObject& request) { return m_control->Execute(request); });
    const HostAndPort place{QHostAddress::LocalHost, m_gateway->Port()};
    QVERIFY2(channel.Listen(place), qUtf8Printable(channel.ErrorText()));

    bool asked = false;
    QJsonObject answer;
    const std::unique_ptr<QThread> other(QThread::create(
        [&] { asked = ControlChannel::Ask(place, Request(R"({"command":"list","bus":1})"), answer); }));
    other->start();
    QTRY_VERIFY(other->isFinished());

    QVERIFY(asked);
    QCOMPARE(answer, Request(R"({"error":"There is no bus 1."})"));
}

void TestNetworkControl::Ask_NobodyThere_False()
{
    QJsonObject answer;

    // Ports below 1 belong to nobody.
    QVERIFY(!ControlChannel::Ask({QHostAddress::LocalHost, 0}, {}, answer));
}

void TestNetworkControl::Listen_LeftoverOfAKilledOne_IsReplaced()
{
    const QTemporaryDir folder;
    qputenv("TMPDIR", folder.path().toUtf8());
    const HostAndPort place{QHostAddress::LocalHost, 1};
    const auto echo = [](const QJsonObject& request) { return request; };
    QFile leftover(folder.filePath(QStringLiteral("zelka-netsim-%1-127.0.0.1-1").arg(Machine().UserName())));
    QVERIFY(leftover.open(QIODevice::WriteOnly));
    leftover.close();
    ControlChannel channel(echo);

    QVERIFY2(channel.Listen(place), qUtf8Printable(channel.ErrorText()));

    QLocalSocket socket;
    socket.connectToServer(leftover.fileName());
    QVERIFY(socket.waitForConnected());
    qunsetenv("TMPDIR");
}

void TestNetworkControl::Channel_EndlessRequest_IsPutOff()
{
    const QTemporaryDir folder;
    qputenv("TMPDIR", folder.path().toUtf8());
    ControlChannel channel([](const QJsonObject& request) { return request; });
    QVERIFY(channel.Listen({QHostAddress::LocalHost, 1}));
    QLocalSocket socket;
    socket.connectToServer(QStringLiteral("zelka-netsim-%1-127.0.0.1-1").arg(Machine().UserName()));
    QVERIFY(socket.waitForConnected());

    socket.write(QByteArray(2 * ControlChannel::LongestRequest, 'x'));

    QTRY_COMPARE(socket.state(), QLocalSocket::UnconnectedState);
    qunsetenv("TMPDIR");
}

QTEST_GUILESS_MAIN(TestNetworkControl)
#include "TestNetworkControl.moc"
