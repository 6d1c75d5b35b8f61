#include "GatewayClient.h"
#include "tools/netsim/GatewayConnection.h"
#include "tools/netsim/GatewayServer.h"
#include "tools/netsim/HostAndPort.h"
#include "tools/netsim/SimulatedNetwork.h"

#include <QSignalSpy>

using GatewayFrame::Frame;
using GatewayFrame::Reply;

namespace {

const QString Bus = QStringLiteral("WP=BUST4,ID=254,WP=OPT,VERIFY=NO");

QString To(int address)
{
    return QStringLiteral("WP=NET4,ADDR=%1").arg(address);
}

NetworkDescription SmallNetwork()
{
    NetworkDescription network;
    network.buses[254][1] = {QStringLiteral("Quick"), QStringLiteral("T4"), {}, {}};
    network.buses[254][2] = {QStringLiteral("Late"), std::nullopt, {60, 0, 0, false}, {}};
    network.buses[254][3] = {QStringLiteral("Later"), std::nullopt, {120, 0, 0, false}, {}};
    network.buses[254][4] = {QStringLiteral("Comes"), std::nullopt, {}, {1000, std::nullopt, 0}};
    return network;
}

Frame Refusal(qint32 exchange, qint32 minor, const QString& text)
{
    return {exchange, GatewayFrame::Failure{3, minor, text}};
}

} // namespace

/// The gateway on real sockets.
class TestGatewayServer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void Open_Bus_IsOpened();
    void Open_BusNotServed_IsRefused();
    void Open_TargetWithMistake_IsRefused();
    void Request_Node_IsAnswered();
    void Request_InPieces_IsAnswered();
    void Request_NothingOpened_IsRefused();
    void Request_OtherBus_IsRefused();
    void Request_GatewayWithoutSuch_IsRefused();
    void Request_NobodyThere_IsSilence();
    void Request_DelayedNodes_AnswerAsTheyFallDue();
    void Request_Clock_IsTheNetworksOwn();
    void Request_TooManyWait_ConnectionIsClosed();
    void Workstations_Two_HaveTheirOwnPaths();
    void Workstations_Gone_AreForgotten();
    void Nonsense_FromWorkstation_ClosesItAndTells_data();
    void Nonsense_FromWorkstation_ClosesItAndTells();
    void Listen_PortTaken_TellsWhy();
    void Close_Workstations_AreDisconnected();
    void HostAndPort_Texts_data();
    void HostAndPort_Texts();

private:
    std::unique_ptr<SimulatedNetwork> m_network;
    std::unique_ptr<GatewayServer> m_gateway;
    qint64 m_now = 0;
};

void TestGatewayServer::init()
{
    m_gateway.reset();
    m_now = 0;
    m_network = std::make_unique<SimulatedNetwork>(SmallNetwork());
    m_gateway = std::make_unique<GatewayServer>(*m_network, [this] { return m_now; });
    QVERIFY(m_gateway->Listen());
}

void TestGatewayServer::Open_Bus_IsOpened()
{
    GatewayClient client(m_gateway->Port());

    client.Send(77, GatewayFrame::Open{Bus});

    QCOMPARE(client.Next(), (Frame{77, GatewayFrame::Opened()}));
}

void TestGatewayServer::Open_BusNotServed_IsRefused()
{
    GatewayClient client(m_gateway->Port());

    client.Send(5, GatewayFrame::Open{QStringLiteral("WP=KD7,BUSID=7")});

    QCOMPARE(client.Next(), Refusal(5, 1, QStringLiteral("Bus 7 is not served here.")));
}

void TestGatewayServer::Open_TargetWithMistake_IsRefused()
{
    GatewayClient client(m_gateway->Port());

    client.Send(5, GatewayFrame::Open{QStringLiteral("WP=BUST4,ID=x")});

    QCOMPARE(client.Next(), Refusal(5, 2,
                                    QStringLiteral("The target cannot be followed: ID of BUST4 must be a "
                                                   "number from 0 to 999999.")));
}

void TestGatewayServer::Request_Node_IsAnswered()
{
    GatewayClient client(m_gateway->Port());
    client.Open(Bus);

    client.Ask(2, To(1), "40");
    client.Ask(3, To(1), "03");

    QCOMPARE(client.Next(), (Frame{2, Reply{"Quick"}}));
    QCOMPARE(client.Next(), (Frame{3, Reply{"T4"}}));
}

void TestGatewayServer::Request_InPieces_IsAnswered()
{
    GatewayClient client(m_gateway->Port());
    client.Open(Bus);

    const QByteArray bytes = GatewayFrame::Encode({9, GatewayFrame::Request{To(1), 0, "40"}});
    for (const char byte : bytes) {
        client.SendBytes(QByteArray(1, byte));
        client.Socket().flush();
        QCoreApplication::processEvents();
    }

    QCOMPARE(client.Next(), (Frame{9, Reply{"Quick"}}));
}

void TestGatewayServer::Request_NothingOpened_IsRefused()
{
    GatewayClient client(m_gateway->Port());

    client.Ask(2, Bus + u',' + To(1), "40");

    QCOMPARE(client.Next(), Refusal(2, 3, QStringLiteral("No path has been opened.")));
}

void TestGatewayServer::Request_OtherBus_IsRefused()
{
    GatewayClient client(m_gateway->Port());
    client.Open(Bus);

    client.Ask(2, QStringLiteral("WP=BUST4,ID=9,WP=NET4,ADDR=1"), "40");

    QCOMPARE(client.Next(), Refusal(2, 1, QStringLiteral("Bus 9 is not served here.")));
}

void TestGatewayServer::Request_GatewayWithoutSuch_IsRefused()
{
    GatewayClient client(m_gateway->Port());
    client.Open(QString());

    client.Ask(2, QString(), "40");

    QCOMPARE(client.Next(), Refusal(2, 2, QStringLiteral("The gateway has no such request.")));
}

void TestGatewayServer::Request_NobodyThere_IsSilence()
{
    GatewayClient client(m_gateway->Port());
    client.Open(Bus);

    client.Ask(2, To(99), "40");
    client.Ask(3, To(1), "40");

    QCOMPARE(client.Next(), (Frame{3, Reply{"Quick"}}));
}

void TestGatewayServer::Request_DelayedNodes_AnswerAsTheyFallDue()
{
    GatewayClient client(m_gateway->Port());
    client.Open(Bus);

    // In one piece, so that all are asked at the same time.
    QByteArray bytes;
    for (const int address : {3, 2, 1})
        bytes += GatewayFrame::Encode({10 + address, GatewayFrame::Request{To(address), 0, "40"}});
    client.SendBytes(bytes);

    QCOMPARE(client.Next(), (Frame{11, Reply{"Quick"}}));
    QCOMPARE(client.Next(), (Frame{12, Reply{"Late"}}));
    QCOMPARE(client.Next(), (Frame{13, Reply{"Later"}}));
}

void TestGatewayServer::Request_Clock_IsTheNetworksOwn()
{
    GatewayClient client(m_gateway->Port());
    client.Open(Bus);

    client.Ask(2, To(4), "40");
    client.Ask(3, To(1), "40");
    QCOMPARE(client.Next(), (Frame{3, Reply{"Quick"}}));
    m_now = 1000;
    client.Ask(4, To(4), "40");

    QCOMPARE(client.Next(), (Frame{4, Reply{"Comes"}}));
}

void TestGatewayServer::Request_TooManyWait_ConnectionIsClosed()
{
    m_network->FindNode(254, 1)->behaviour.delayMs = NetworkLimits::LongestDelay;
    QSignalSpy noted(m_gateway.get(), &GatewayServer::Noted);
    GatewayClient client(m_gateway->Port());
    client.Open(Bus);

    for (std::size_t i = 0; i <= GatewayConnection::MostWaiting; ++i)
        client.Ask(2, To(1), "40");

    QVERIFY(client.WaitForEnd());
    QTRY_COMPARE(m_gateway->Workstations(), 0U);
}

void TestGatewayServer::Workstations_Two_HaveTheirOwnPaths()
{
    GatewayClient first(m_gateway->Port());
    GatewayClient second(m_gateway->Port());
    first.Open(Bus);
    second.Open(QString());

    second.Ask(3, QString(), "m:11,1,3\r");
    first.Ask(3, To(1), "40");

    QCOMPARE(first.Next(), (Frame{3, Reply{"Quick"}}));
    QCOMPARE(second.Next(), (Frame{3, Reply{QByteArray::fromHex("30120410") + "m:11,1,3\r254\r254"}}));
    QCOMPARE(m_gateway->Workstations(), 2U);
}

void TestGatewayServer::Workstations_Gone_AreForgotten()
{
    {
        GatewayClient client(m_gateway->Port());
        client.Open(Bus);
        // An answer is under way when it goes.
        client.Ask(2, To(3), "40");
        client.Ask(3, To(1), "40");
        QCOMPARE(client.Next(), (Frame{3, Reply{"Quick"}}));
        QCOMPARE(m_gateway->Workstations(), 1U);
    }

    QTRY_COMPARE(m_gateway->Workstations(), 0U);
    GatewayClient next(m_gateway->Port());
    next.Open(Bus);
}

void TestGatewayServer::Nonsense_FromWorkstation_ClosesItAndTells_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    QByteArray otherVersion = GatewayFrame::Encode({1, GatewayFrame::Open{QString()}});
    otherVersion[4] = 9;
    QTest::newRow("no frame") << QByteArray("GET / HTTP/1.1\r\n\r\n") << "sent bytes that begin no frame";
    QTest::newRow("too long") << QByteArray::fromHex("30847fffffff") << "announced a frame that is too long";
    QTest::newRow("another sequence") << QByteArray::fromHex("3003020101") << "sent a malformed frame";
    QTest::newRow("another version") << otherVersion << "sent a frame of another version";
    QTest::newRow("an answer") << GatewayFrame::Encode({1, GatewayFrame::Opened()}) << "sent an answer";
}

void TestGatewayServer::Nonsense_FromWorkstation_ClosesItAndTells()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    QStringList notes;
    connect(m_gateway.get(), &GatewayServer::Noted, this, [&notes](const QString& text, bool detail) {
        if (!detail)
            notes << text;
    });
    GatewayClient other(m_gateway->Port());
    other.Open(Bus);
    GatewayClient client(m_gateway->Port());
    client.Open(Bus);

    client.SendBytes(bytes);

    QVERIFY(client.WaitForEnd());
    QTRY_COMPARE(m_gateway->Workstations(), 1U);
    QCOMPARE(notes.filter(reason + QStringLiteral("; its connection is closed")).size(), 1);
    other.Ask(2, To(1), "40");
    QCOMPARE(other.Next(), (Frame{2, Reply{"Quick"}}));
    disconnect(m_gateway.get(), nullptr, this, nullptr);
}

void TestGatewayServer::Listen_PortTaken_TellsWhy()
{
    GatewayServer second(*m_network);

    QVERIFY(!second.Listen(QHostAddress::LocalHost, m_gateway->Port()));

    QVERIFY(!second.ErrorText().isEmpty());
}

void TestGatewayServer::Close_Workstations_AreDisconnected()
{
    GatewayClient client(m_gateway->Port());
    client.Open(Bus);

    m_gateway->Close();

    QVERIFY(client.WaitForEnd());
    QCOMPARE(m_gateway->Workstations(), 0U);
}

void TestGatewayServer::HostAndPort_Texts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("read");
    QTest::newRow("IPv4") << "127.0.0.1:4004"
                          << "127.0.0.1:4004";
    QTest::newRow("any port") << "127.0.0.1:0"
                              << "127.0.0.1:0";
    QTest::newRow("localhost") << "localhost:1"
                               << "127.0.0.1:1";
    QTest::newRow("IPv6") << "[::1]:65535"
                          << "[::1]:65535";
    QTest::newRow("nothing") << ""
                             << "";
    QTest::newRow("no port") << "127.0.0.1"
                             << "";
    QTest::newRow("port alone") << "4004"
                                << "";
    QTest::newRow("port too high") << "127.0.0.1:65536"
                                   << "";
    QTest::newRow("port a word") << "127.0.0.1:x"
                                 << "";
    QTest::newRow("no address") << "some.where:4004"
                                << "";
}

void TestGatewayServer::HostAndPort_Texts()
{
    QFETCH(QString, text);
    QFETCH(QString, read);

    const std::optional<HostAndPort> place = HostAndPort::Read(text);

    QCOMPARE(place ? place->Text() : QString(), read);
}

QTEST_GUILESS_MAIN(TestGatewayServer)
#include "TestGatewayServer.moc"
