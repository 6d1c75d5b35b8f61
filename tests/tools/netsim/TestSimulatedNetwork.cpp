#include "tools/netsim/SimulatedNetwork.h"

#include <QTest>

using Kind = SimulatedNetwork::Kind;

namespace {

const QByteArray AskBuses("m:11,1,3\r");

SimulatedNetwork NetworkWith(const NodeDescription& node)
{
    NetworkDescription description;
    description.buses[254][17] = node;
    description.buses[12];
    return SimulatedNetwork(description);
}

NodeDescription Node(const NodeBehaviour& behaviour = {}, const NodePresence& presence = {})
{
    return {QStringLiteral("Søndre 1"), QStringLiteral("T4"), behaviour, presence};
}

NetworkPath Path(std::optional<int> bus, std::optional<int> address)
{
    return {bus, address};
}

/// Which of some requests are lost.
QString Losses(SimulatedNetwork& network, int attempt = 0)
{
    QString losses;
    for (int i = 0; i < 200; ++i)
        losses += network.AnswerTo(Path(254, 17), "40", attempt, 0).kind == Kind::Reply ? u'.' : u'x';
    return losses;
}

} // namespace

/// What a simulated network answers.
class TestSimulatedNetwork : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Follow_Targets_LeadToBusAndAddress_data();
    void Follow_Targets_LeadToBusAndAddress();
    void Follow_Mistake_IsTold_data();
    void Follow_Mistake_IsTold();
    void CanReach_Paths_data();
    void CanReach_Paths();
    void AnswerTo_Node_Words_data();
    void AnswerTo_Node_Words();
    void AnswerTo_NodeWithoutType_SilentAboutIt();
    void AnswerTo_NobodyThere_Silence();
    void AnswerTo_SilentNode_Silence();
    void AnswerTo_NodeThatComes_AnswersFromThenOn();
    void AnswerTo_BusList_data();
    void AnswerTo_BusList();
    void AnswerTo_ManyBuses_HasTheLongLength();
    void AnswerTo_GatewayOtherRequest_NoSuchRequest();
    void AnswerTo_Delay_IsBetweenItsBounds();
    void AnswerTo_Loss_FollowsTheSeed();
    void AnswerTo_OneRepeatMore_ChangesNothingThatFollows();
    void AnswerTo_LossOfOneNode_DoesNotDependOnOthers();
    void MoveNode_Elsewhere_AnswersThere();
    void AddMoveRemove_Impossible_False();
};

void TestSimulatedNetwork::Follow_Targets_LeadToBusAndAddress_data()
{
    using Number = std::optional<int>;
    QTest::addColumn<QStringList>("targets");
    QTest::addColumn<Number>("bus");
    QTest::addColumn<Number>("address");
    QTest::newRow("nothing") << QStringList{""} << Number() << Number();
    QTest::newRow("gateway") << QStringList{"WP=SOCKET,IP=192.0.2.1,WP=OPT,PR=T4DT"} << Number() << Number();
    QTest::newRow("BUST4") << QStringList{"WP=BUST4,ID=253,SPEED=19200,WP=OPT,PR=T4DT"} << Number(253)
                           << Number();
    QTest::newRow("KD7") << QStringList{"wp=kd7,busid=7,slot=4"} << Number(7) << Number();
    QTest::newRow("VRL") << QStringList{"WP=VRL,BUS=1,HOP=3"} << Number(1) << Number();
    QTest::newRow("node") << QStringList{"WP=BUST4,ID=254,WP=OPT,VERIFY=NO",
                                         "WP=NET4,ADDR=17,wp=opt,dt=unihex"}
                          << Number(254) << Number(17);
    QTest::newRow("last bus counts") << QStringList{"WP=BUST4,ID=1,WP=KD7,BUSID=2", ""} << Number(2)
                                     << Number();
    QTest::newRow("last address counts")
        << QStringList{"WP=VRL,BUS=1,WP=NET4,ADDR=1", "WP=NET4,ADDR=2"} << Number(1) << Number(2);
    QTest::newRow("address before the bus")
        << QStringList{"WP=NET4,ADDR=5,WP=BUST4,ID=3"} << Number(3) << Number();
    QTest::newRow("address without bus") << QStringList{"WP=NET4,ADDR=5"} << Number() << Number(5);
}

void TestSimulatedNetwork::Follow_Targets_LeadToBusAndAddress()
{
    QFETCH(QStringList, targets);
    QFETCH(std::optional<int>, bus);
    QFETCH(std::optional<int>, address);
    NetworkPath path;
    QString mistake;

    for (const QString& target : targets)
        QVERIFY2(path.Follow(target, mistake), qUtf8Printable(mistake));

    QVERIFY(path == Path(bus, address));
}

void TestSimulatedNetwork::Follow_Mistake_IsTold_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("mistake");
    QTest::newRow("address no number") << "WP=NET4,ADDR=x"
                                       << "ADDR of NET4 must be a number from 0 to 4094";
    QTest::newRow("address missing") << "WP=NET4"
                                     << "ADDR of NET4 must be a number from 0 to 4094";
    QTest::newRow("address too high") << "WP=NET4,ADDR=4095"
                                      << "ADDR of NET4 must be a number from 0 to 4094";
    QTest::newRow("bus too high") << "WP=KD7,BUSID=1000000"
                                  << "BUSID of KD7 must be a number from 0 to 999999";
}

void TestSimulatedNetwork::Follow_Mistake_IsTold()
{
    QFETCH(QString, target);
    QFETCH(QString, mistake);
    NetworkPath path;
    QString told;

    QVERIFY(!path.Follow(target, told));

    QCOMPARE(told, mistake);
}

void TestSimulatedNetwork::CanReach_Paths_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<bool>("canReach");
    QTest::newRow("gateway") << "" << true;
    QTest::newRow("served") << "WP=BUST4,ID=12" << true;
    QTest::newRow("not served") << "WP=BUST4,ID=13" << false;
    QTest::newRow("broadcast") << "WP=KD7,BUSID=254,WP=NET4,ADDR=4094" << true;
    QTest::newRow("broadcast bus alone") << "WP=KD7,BUSID=254" << false;
}

void TestSimulatedNetwork::CanReach_Paths()
{
    QFETCH(QString, target);
    QFETCH(bool, canReach);
    NetworkDescription description;
    description.buses[12];
    const SimulatedNetwork network(description);
    NetworkPath path;
    QString mistake;
    QVERIFY(path.Follow(target, mistake));

    QCOMPARE(network.CanReach(path), canReach);
}

void TestSimulatedNetwork::AnswerTo_Node_Words_data()
{
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QByteArray>("words");
    QTest::newRow("identification") << QByteArray("40") << QByteArray("S\xF8ndre 1");
    QTest::newRow("type") << QByteArray("03") << QByteArray("T4");
    QTest::newRow("other") << QByteArray("hello") << QByteArray("?hello");
    QTest::newRow("nothing") << QByteArray() << QByteArray("?");
    QTest::newRow("buses") << AskBuses << "?" + AskBuses;
}

void TestSimulatedNetwork::AnswerTo_Node_Words()
{
    QFETCH(QByteArray, request);
    QFETCH(QByteArray, words);
    SimulatedNetwork network = NetworkWith(Node());

    const SimulatedNetwork::Answer expected{Kind::Reply, words, 0};
    QVERIFY(network.AnswerTo(Path(254, 17), request, 0, 0) == expected);
}

void TestSimulatedNetwork::AnswerTo_NodeWithoutType_SilentAboutIt()
{
    NodeDescription node = Node();
    node.type.reset();
    SimulatedNetwork network = NetworkWith(node);

    QCOMPARE(network.AnswerTo(Path(254, 17), "40", 0, 0).kind, Kind::Reply);
    QCOMPARE(network.AnswerTo(Path(254, 17), "03", 0, 0).kind, Kind::Silence);
}

void TestSimulatedNetwork::AnswerTo_NobodyThere_Silence()
{
    SimulatedNetwork network = NetworkWith(Node());

    QCOMPARE(network.AnswerTo(Path(254, 18), "40", 0, 0).kind, Kind::Silence);
    QCOMPARE(network.AnswerTo(Path(12, 17), "40", 0, 0).kind, Kind::Silence);
    QCOMPARE(network.AnswerTo(Path(std::nullopt, 17), "40", 0, 0).kind, Kind::Silence);
    QCOMPARE(network.AnswerTo(Path(254, 4094), "40", 0, 0).kind, Kind::Silence);
}

void TestSimulatedNetwork::AnswerTo_SilentNode_Silence()
{
    NodeBehaviour silent;
    silent.silent = true;
    SimulatedNetwork network = NetworkWith(Node(silent));

    QCOMPARE(network.AnswerTo(Path(254, 17), "40", 0, 0).kind, Kind::Silence);
}

void TestSimulatedNetwork::AnswerTo_NodeThatComes_AnswersFromThenOn()
{
    SimulatedNetwork network = NetworkWith(Node({}, {1000, std::nullopt, 0}));

    QCOMPARE(network.AnswerTo(Path(254, 17), "40", 0, 999).kind, Kind::Silence);
    QCOMPARE(network.AnswerTo(Path(254, 17), "40", 0, 1000).kind, Kind::Reply);
}

void TestSimulatedNetwork::AnswerTo_BusList_data()
{
    QTest::addColumn<QString>("target");
    QTest::newRow("gateway") << "WP=OPT,VERIFY=NO";
    QTest::newRow("broadcast") << "WP=KD7,BUSID=254,WP=NET4,ADDR=4094,WP=OPT,PR=T4DT";
    QTest::newRow("bus without an address") << "WP=VRL,BUS=12,HOP=1";
}

void TestSimulatedNetwork::AnswerTo_BusList()
{
    QFETCH(QString, target);
    SimulatedNetwork network = NetworkWith(Node());
    NetworkPath path;
    QString mistake;
    QVERIFY(path.Follow(target, mistake));

    const SimulatedNetwork::Answer expected{Kind::Reply,
                                            QByteArray::fromHex("3015"
                                                                "0413") +
                                                "m:11,1,3\r12\r254\r254",
                                            0};
    QVERIFY(network.AnswerTo(path, AskBuses, 0, 0) == expected);
}

void TestSimulatedNetwork::AnswerTo_ManyBuses_HasTheLongLength()
{
    NetworkDescription description;
    for (int bus = 100'000; bus < 100'100; ++bus)
        description.buses[bus];
    SimulatedNetwork network(description);

    const QByteArray reply = network.AnswerTo(NetworkPath(), AskBuses, 0, 0).data;

    QCOMPARE(reply.left(8).toHex(), QByteArray("308202cc048202c8"));
    QCOMPARE(reply.size(), 8 + 0x2C8);
    QVERIFY(reply.endsWith("\r100099\r254"));
}

void TestSimulatedNetwork::AnswerTo_GatewayOtherRequest_NoSuchRequest()
{
    SimulatedNetwork network = NetworkWith(Node());

    QCOMPARE(network.AnswerTo(Path(254, std::nullopt), "40", 0, 0).kind, Kind::NoSuchRequest);
    QCOMPARE(network.AnswerTo(NetworkPath(), "m:11,1,3", 0, 0).kind, Kind::NoSuchRequest);
}

void TestSimulatedNetwork::AnswerTo_Delay_IsBetweenItsBounds()
{
    NodeBehaviour late;
    late.delayMs = 100;
    late.jitterMs = 2;
    SimulatedNetwork network = NetworkWith(Node(late));

    QSet<int> delays;
    for (int i = 0; i < 200; ++i)
        delays.insert(network.AnswerTo(Path(254, 17), "40", 0, 0).delayMs);

    QCOMPARE(delays, (QSet<int>{100, 101, 102}));
}

void TestSimulatedNetwork::AnswerTo_Loss_FollowsTheSeed()
{
    NodeBehaviour lossy;
    lossy.loss = 0.3;
    SimulatedNetwork first = NetworkWith(Node(lossy));
    SimulatedNetwork second = NetworkWith(Node(lossy));
    SimulatedNetwork other = NetworkWith(Node(lossy));
    other.SetSeed(2);

    const QString losses = Losses(first);

    QCOMPARE(Losses(second), losses);
    QVERIFY(Losses(other) != losses);
    QVERIFY2(losses.count(u'x') > 40 && losses.count(u'x') < 80, qUtf8Printable(losses));
}

void TestSimulatedNetwork::AnswerTo_OneRepeatMore_ChangesNothingThatFollows()
{
    NodeBehaviour lossy;
    lossy.loss = 0.5;
    SimulatedNetwork plain = NetworkWith(Node(lossy));
    SimulatedNetwork repeated = NetworkWith(Node(lossy));
    (void)plain.AnswerTo(Path(254, 17), "40", 0, 0);
    (void)repeated.AnswerTo(Path(254, 17), "40", 0, 0);

    (void)Losses(repeated, 1);

    QCOMPARE(Losses(repeated), Losses(plain));
}

void TestSimulatedNetwork::AnswerTo_LossOfOneNode_DoesNotDependOnOthers()
{
    NodeBehaviour lossy;
    lossy.loss = 0.5;
    SimulatedNetwork alone = NetworkWith(Node(lossy));
    SimulatedNetwork among = NetworkWith(Node(lossy));
    QVERIFY(among.AddNode(254, 18, Node(lossy)));
    for (int i = 0; i < 7; ++i)
        (void)among.AnswerTo(Path(254, 18), "40", 0, 0);

    QCOMPARE(Losses(among), Losses(alone));
}

void TestSimulatedNetwork::MoveNode_Elsewhere_AnswersThere()
{
    SimulatedNetwork network = NetworkWith(Node());

    QVERIFY(network.MoveNode(254, 17, 12, 3));

    QCOMPARE(network.AnswerTo(Path(254, 17), "40", 0, 0).kind, Kind::Silence);
    QCOMPARE(network.AnswerTo(Path(12, 3), "03", 0, 0).data, QByteArray("T4"));
}

void TestSimulatedNetwork::AddMoveRemove_Impossible_False()
{
    SimulatedNetwork network = NetworkWith(Node());
    QVERIFY(network.AddNode(254, 18, Node()));

    QVERIFY(!network.AddNode(254, 17, Node()));
    QVERIFY(!network.AddNode(253, 17, Node()));
    QVERIFY(!network.MoveNode(254, 17, 254, 18));
    QVERIFY(!network.MoveNode(254, 17, 253, 1));
    QVERIFY(!network.MoveNode(254, 19, 254, 20));
    QVERIFY(!network.RemoveNode(254, 19));
    QVERIFY(!network.RemoveNode(253, 17));
    QVERIFY(network.FindNode(254, 17) != nullptr);
}

QTEST_GUILESS_MAIN(TestSimulatedNetwork)
#include "TestSimulatedNetwork.moc"
