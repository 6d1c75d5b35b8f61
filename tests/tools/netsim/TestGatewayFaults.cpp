#include "GatewayClient.h"
#include "tools/netsim/GatewayServer.h"
#include "tools/netsim/SimulatedNetwork.h"

#include <memory>

using GatewayFrame::Frame;
using GatewayFrame::Reply;
using Kind = WireFault::Kind;

namespace {

const QString Bus = QStringLiteral("WP=BUST4,ID=254");
const QString Node = QStringLiteral("WP=NET4,ADDR=1");
const Frame Opened{1, GatewayFrame::Opened()};

Frame Answer(qint32 exchange)
{
    return {exchange, Reply{"Quick"}};
}

} // namespace

/// Faults on the wire, as the other end sees them.
class TestGatewayFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void Garbage_Frame_BeginsNoFrame();
    void Oversize_Frame_IsAnnouncedTooLong();
    void Version_Frame_IsOfAnother();
    void Cut_Frame_EndsInTheMiddle();
    void Reset_Connection_IsReset();
    void Trickle_Frames_AllArriveInOrder();
    void Freeze_Frame_WaitsUntilThaw();
    void Freeze_AtOnce_NothingIsReadUntilThaw();
    void Freeze_NewWorkstation_IsServedAfterThaw();
    void Freeze_WorkstationGoes_IsForgotten();
    void Refuse_NewWorkstation_OnlyWhileItLasts();
    void Refuse_PortTakenMeanwhile_False();
    void Fault_FromFrame_LeavesThoseBeforeAlone_data();
    void Fault_FromFrame_LeavesThoseBeforeAlone();
    void Fault_Count_LeavesThoseBehindAlone();
    void Fault_SetAgain_CountsAnew();
    void Names_Kinds_GoThereAndBack();
    void Gateway_DestroyedWhileFramesWait_LeavesNothing_data();
    void Gateway_DestroyedWhileFramesWait_LeavesNothing();

private:
    void Set(Kind kind, int fromFrame = 1, int count = WireFault::Always)
    {
        QVERIFY(m_gateway->SetFault({kind, fromFrame, count}));
    }
    /// A connection whose path is open.
    [[nodiscard]] std::unique_ptr<GatewayClient> Client() const
    {
        auto client = std::make_unique<GatewayClient>(m_gateway->Port());
        client->Open(Bus);
        return client;
    }

    std::unique_ptr<SimulatedNetwork> m_network;
    std::unique_ptr<GatewayServer> m_gateway;
};

void TestGatewayFaults::init()
{
    m_gateway.reset();
    NetworkDescription description;
    description.buses[254][1] = {QStringLiteral("Quick"), std::nullopt, {}, {}};
    m_network = std::make_unique<SimulatedNetwork>(description);
    m_gateway = std::make_unique<GatewayServer>(*m_network);
    QVERIFY(m_gateway->Listen());
}

void TestGatewayFaults::Garbage_Frame_BeginsNoFrame()
{
    const auto client = Client();
    Set(Kind::Garbage);

    client->Ask(2, Node, "40");

    QByteArray frame;
    QTRY_COMPARE(client->NextBytes(frame), FrameReader::Result::Malformed);
}

void TestGatewayFaults::Oversize_Frame_IsAnnouncedTooLong()
{
    const auto client = Client();
    Set(Kind::Oversize);

    client->Ask(2, Node, "40");

    QByteArray frame;
    QTRY_COMPARE(client->NextBytes(frame), FrameReader::Result::Oversized);
}

void TestGatewayFaults::Version_Frame_IsOfAnother()
{
    const auto client = Client();
    Set(Kind::Version);

    // A number whose bytes look like those of the version.
    client->Ask(0x020101, Node, "40");

    Frame frame;
    QCOMPARE(GatewayFrame::Decode(client->NextFrame(), frame), GatewayFrame::Decoding::OtherVersion);
}

void TestGatewayFaults::Cut_Frame_EndsInTheMiddle()
{
    const auto client = Client();
    Set(Kind::Cut);

    client->Ask(2, Node, "40");

    QVERIFY(client->WaitForEnd());
    QByteArray frame;
    QCOMPARE(client->NextBytes(frame), FrameReader::Result::Incomplete);
    QVERIFY(client->HasRest());
    QTRY_COMPARE(m_gateway->Workstations(), 0U);
}

void TestGatewayFaults::Reset_Connection_IsReset()
{
    const auto client = Client();
    QList<QAbstractSocket::SocketError> errors;
    connect(&client->Socket(), &QTcpSocket::errorOccurred, this,
            [&errors](QAbstractSocket::SocketError error) { errors << error; });
    Set(Kind::Reset);

    client->Ask(2, Node, "40");

    QVERIFY(client->WaitForEnd());
    QCOMPARE(errors, QList{QAbstractSocket::RemoteHostClosedError});
    QVERIFY(client->Socket().errorString().contains(QStringLiteral("remote host closed")));
    QTRY_COMPARE(m_gateway->Workstations(), 0U);
}

void TestGatewayFaults::Trickle_Frames_AllArriveInOrder()
{
    const auto client = Client();
    QList<qint64> pieces;
    connect(&client->Socket(), &QTcpSocket::readyRead, this,
            [&] { pieces << client->Socket().bytesAvailable(); });
    Set(Kind::Trickle);

    client->Ask(2, Node, "40");
    client->Ask(3, Node, "40");

    QCOMPARE(client->Next(), Answer(2));
    QCOMPARE(client->Next(), Answer(3));
    QVERIFY2(pieces.size() > 2, qPrintable(QString::number(pieces.size())));
}

void TestGatewayFaults::Freeze_Frame_WaitsUntilThaw()
{
    const auto client = Client();
    const auto other = Client();
    Set(Kind::Freeze, 2);

    client->Ask(2, Node, "40");
    client->Ask(3, Node, "40");

    QCOMPARE(client->Next(), Answer(2));
    QTRY_VERIFY(m_gateway->Faults().IsFrozen());
    other->Ask(7, Node, "40");
    QVERIFY(!QTest::qWaitFor([&] { return client->Socket().bytesAvailable() > 0; }, 50));
    QCOMPARE(other->Socket().bytesAvailable(), 0);
    Set(Kind::None);
    QCOMPARE(client->Next(), Answer(3));
    QCOMPARE(other->Next(), Answer(7));
}

void TestGatewayFaults::Freeze_AtOnce_NothingIsReadUntilThaw()
{
    const auto client = Client();
    m_gateway->Freeze();

    client->Ask(2, Node, "40");

    QVERIFY(!QTest::qWaitFor([&] { return client->Socket().bytesAvailable() > 0; }, 50));
    // What the network is when the request is read counts.
    m_network->FindNode(254, 1)->identification = QStringLiteral("Renamed");
    Set(Kind::None);
    QCOMPARE(client->Next(), (Frame{2, Reply{"Renamed"}}));
}

void TestGatewayFaults::Freeze_NewWorkstation_IsServedAfterThaw()
{
    m_gateway->Freeze();
    GatewayClient client(m_gateway->Port());
    client.Send(1, GatewayFrame::Open{Bus});
    QVERIFY(!QTest::qWaitFor([&] { return client.Socket().bytesAvailable() > 0; }, 50));

    Set(Kind::None);

    QCOMPARE(client.Next(), Opened);
}

void TestGatewayFaults::Freeze_WorkstationGoes_IsForgotten()
{
    auto client = Client();
    m_gateway->Freeze();
    client->Ask(2, Node, "40");

    client.reset();

    QTRY_COMPARE(m_gateway->Workstations(), 0U);
    Set(Kind::None);
}

void TestGatewayFaults::Refuse_NewWorkstation_OnlyWhileItLasts()
{
    const auto client = Client();
    const quint16 port = m_gateway->Port();
    Set(Kind::Refuse);

    QTcpSocket refused;
    refused.connectToHost(QHostAddress::LocalHost, port);
    QTRY_COMPARE(refused.error(), QAbstractSocket::ConnectionRefusedError);
    client->Ask(2, Node, "40");
    QCOMPARE(client->Next(), Answer(2));

    Set(Kind::None);
    QCOMPARE(m_gateway->Port(), port);
    Client()->Ask(2, Node, "40");
}

void TestGatewayFaults::Refuse_PortTakenMeanwhile_False()
{
    Set(Kind::Refuse);
    QTcpServer other;
    QVERIFY(other.listen(QHostAddress::LocalHost, m_gateway->Port()));

    QVERIFY(!m_gateway->SetFault({}));

    other.close();
    QVERIFY(m_gateway->SetFault({}));
}

void TestGatewayFaults::Fault_FromFrame_LeavesThoseBeforeAlone_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("ends");
    QTest::newRow("garbage") << static_cast<int>(Kind::Garbage) << false;
    QTest::newRow("cut") << static_cast<int>(Kind::Cut) << true;
    QTest::newRow("oversize") << static_cast<int>(Kind::Oversize) << false;
    QTest::newRow("reset") << static_cast<int>(Kind::Reset) << true;
    QTest::newRow("version") << static_cast<int>(Kind::Version) << false;
}

void TestGatewayFaults::Fault_FromFrame_LeavesThoseBeforeAlone()
{
    QFETCH(int, kind);
    QFETCH(bool, ends);
    Set(static_cast<Kind>(kind), 3);
    const auto client = Client();

    client->Ask(2, Node, "40");
    QCOMPARE(client->Next(), Answer(2));
    client->Ask(3, Node, "40");

    if (ends)
        QVERIFY(client->WaitForEnd());
    else
        QTRY_VERIFY(client->Socket().bytesAvailable() > 0);
    QTRY_COMPARE(m_gateway->Faults().Frames(), 3);
}

void TestGatewayFaults::Fault_Count_LeavesThoseBehindAlone()
{
    Set(Kind::Cut, 2, 1);
    const auto first = Client();
    first->Ask(2, Node, "40");
    QVERIFY(first->WaitForEnd());

    const auto second = Client();
    second->Ask(2, Node, "40");

    QCOMPARE(second->Next(), Answer(2));
}

void TestGatewayFaults::Fault_SetAgain_CountsAnew()
{
    Set(Kind::Cut, 3);
    const auto client = Client();
    client->Ask(2, Node, "40");
    QCOMPARE(client->Next(), Answer(2));

    Set(Kind::Cut, 2);
    client->Ask(3, Node, "40");
    QCOMPARE(client->Next(), Answer(3));
    client->Ask(4, Node, "40");

    QVERIFY(client->WaitForEnd());
}

void TestGatewayFaults::Names_Kinds_GoThereAndBack()
{
    const QStringList names = WireFaultNames();

    QCOMPARE(names.size(), static_cast<qsizetype>(Kind::Refuse) + 1);
    for (const QString& name : names)
        QCOMPARE(NameOf(*WireFaultNamed(name)), name);
    QCOMPARE(NameOf(Kind::Trickle), QStringLiteral("trickle"));
    QVERIFY(!WireFaultNamed(QStringLiteral("flood")));
}

void TestGatewayFaults::Gateway_DestroyedWhileFramesWait_LeavesNothing_data()
{
    QTest::addColumn<int>("kind");
    for (const Kind kind : {Kind::None, Kind::Freeze, Kind::Trickle, Kind::Refuse})
        QTest::newRow(qPrintable(NameOf(kind))) << static_cast<int>(kind);
}

void TestGatewayFaults::Gateway_DestroyedWhileFramesWait_LeavesNothing()
{
    QFETCH(int, kind);
    m_network->FindNode(254, 1)->behaviour.delayMs = 10;
    const auto client = Client();
    Set(static_cast<Kind>(kind));
    client->Ask(2, Node, "40");
    client->Ask(3, Node, "40");
    QTRY_COMPARE(client->Socket().bytesToWrite(), 0);
    QCoreApplication::processEvents();

    m_gateway.reset();

    QVERIFY(client->WaitForEnd());
}

QTEST_GUILESS_MAIN(TestGatewayFaults)
#include "TestGatewayFaults.moc"
