#include "platform/ComponentError.h"
#include "scan/network/BusList.h"
#include "scan/network/NodeQuery.h"
#include "scan/network/ScanState.h"
#include "scan/network/ScanTargets.h"
#include "tests/support/ScriptedNetwork.h"

#include <QTest>

#include <new>

/// Targets, requests and answers of a scan and of bus discovery.
class TestScanNetwork : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Address_Target_HasItsParts_data();
    void Address_Target_HasItsParts();
    void Scan_Target_AddsTheOption();
    void Convert_Target_ByFamily_data();
    void Convert_Target_ByFamily();
    void Parse_Answer_GivesTheBuses_data();
    void Parse_Answer_GivesTheBuses();
    void Ask_Buses_SendsTheQuestion();
    void Query_Node_GivesBothTexts();
    void Query_SilentNode_GivesNone();
    void Query_OtherError_IsNotCaught();
    void CloseScan_Running_ClosesAndLetsGo();
    void CloseScan_ClosingFails_LetsGo();
    void ReleaseScan_Running_LetsGoWithoutClosing();
};

void TestScanNetwork::Address_Target_HasItsParts_data()
{
    QTest::addColumn<QString>("retries");
    QTest::addColumn<QString>("timeOut");
    QTest::addColumn<QString>("target");
    QTest::newRow("both") << "3"
                          << "2000"
                          << "WP=NET4,ADDR=17,RETRY=3,TIME=2000,wp=opt,pr=t4dl,dt=unihex";
    QTest::newRow("retries") << "3"
                             << ""
                             << "WP=NET4,ADDR=17,RETRY=3,wp=opt,pr=t4dl,dt=unihex";
    QTest::newRow("time-out") << ""
                              << " 5"
                              << "WP=NET4,ADDR=17,TIME= 5,wp=opt,pr=t4dl,dt=unihex";
    QTest::newRow("none") << ""
                          << ""
                          << "WP=NET4,ADDR=17,wp=opt,pr=t4dl,dt=unihex";
}

void TestScanNetwork::Address_Target_HasItsParts()
{
    QFETCH(const QString, retries);
    QFETCH(const QString, timeOut);

    QTEST(AddressTarget(17, retries, timeOut), "target");
}

void TestScanNetwork::Scan_Target_AddsTheOption()
{
    QCOMPARE(ScanTarget("WP=BUST4,ID=254"), "WP=BUST4,ID=254,WP=OPT,VERIFY=NO");
}

void TestScanNetwork::Convert_Target_ByFamily_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("converted");
    const QString tail = ",BUSID=254,WP=NET4,ADDR=4094,WP=OPT,PR=T4DT";
    QTest::newRow("with bus") << "WP=KD7,BUSID=5,SLOT=0,WP=OPT,VERIFY=NO"
                              << "WP=KD7" + tail;
    QTest::newRow("bus behind the option") << "WP=KD7,WP=OPT,PR=A,BUSID=5"
                                           << "WP=KD7,WP=OPT,PR=A" + tail;
    QTest::newRow("option only") << "WP=KD7,SLOT=0,WP=OPT,VERIFY=NO"
                                 << "WP=KD7,SLOT=0" + tail;
    QTest::newRow("neither") << "WP=KD7,SLOT=0"
                             << "WP=KD7,SLOT=0" + tail;
    QTest::newRow("other case") << "wp=kd7,busid=5"
                                << "wp=kd7" + tail;
    QTest::newRow("VRL") << "WP=VRL,BUS=5,WP=OPT,PR=A"
                         << "WP=VRL,BUS=5,WP=OPT,PR=A";
    QTest::newRow("another") << "WP=BUST4,ID=5"
                             << "WP=BUST4,ID=5";
    QTest::newRow("empty") << ""
                           << "";
}

void TestScanNetwork::Convert_Target_ByFamily()
{
    QFETCH(const QString, target);

    QTEST(ConvertBusTarget(target), "converted");
}

void TestScanNetwork::Parse_Answer_GivesTheBuses_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QStringList>("buses");
    QTest::newRow("echo, 12, 254") << "m:11,1,3\r12\r254" << QStringList{"12"};
    QTest::newRow("line ends") << "m:11,1,3\r\n12\r\n 17 \r\n254\r\n" << QStringList{"12", "17"};
    QTest::newRow("no identity at the end") << "m:11,1,3\r12\r17" << QStringList{"12", "17"};
    QTest::newRow("identity in between") << "m:11,1,3\r254\r12" << QStringList{"254", "12"};
    QTest::newRow("identity alone") << "m:11,1,3\r254" << QStringList();
    QTest::newRow("echo alone") << "m:11,1,3" << QStringList();
    QTest::newRow("echo with its end") << "m:11,1,3\r" << QStringList();
}

void TestScanNetwork::Parse_Answer_GivesTheBuses()
{
    QFETCH(const QString, answer);
    QFETCH(const QStringList, buses);
    int count = -1;
    QStringList items{"before"};

    QVERIFY(ParseBusList(answer, count, items));

    QCOMPARE(items, buses);
    QCOMPARE(count, int(buses.size()));
}

void TestScanNetwork::Ask_Buses_SendsTheQuestion()
{
    ScriptedNetwork network;
    network.OnSend = [](const QString&, const QString&) { return QStringLiteral("reply"); };
    const auto connection = CreateSyncConnection(HvxSyncConnId);
    const auto utility = CreateHvxUtility(HvxUtilityId);
    network.Calls.clear();

    QCOMPARE(AskForBuses(*connection, *utility), "reply");

    QCOMPARE(network.Calls,
             QStringList({"U2A m:11,1,3\r", "Send |m:11,1,3\r", "GetBERData 0 reply", "A2U reply"}));
}

void TestScanNetwork::Query_Node_GivesBothTexts()
{
    ScriptedNetwork network;
    network.OnSend = [](const QString&, const QString& request) { return "reply to " + request; };
    const auto connection = CreateSyncConnection(T4SyncConnId);
    const auto utility = CreateHvxUtility(HvxUtilityId);
    network.Calls.clear();
    QString type = "before";
    QString identification = "before";

    QVERIFY(QueryNode(*connection, *utility, "T", type, identification));

    QCOMPARE(identification, "reply to 40");
    QCOMPARE(type, "reply to 03");
    QCOMPARE(network.Calls,
             QStringList({"Send T|40", "Hex2U reply to 40", "Send T|03", "Hex2U reply to 03"}));
}

void TestScanNetwork::Query_SilentNode_GivesNone()
{
    ScriptedNetwork network;
    const auto connection = CreateSyncConnection(T4SyncConnId);
    const auto utility = CreateHvxUtility(HvxUtilityId);
    QString type = "before";
    QString identification = "before";

    QVERIFY(!QueryNode(*connection, *utility, "T", type, identification));

    QCOMPARE(type + identification, QString());
}

void TestScanNetwork::Query_OtherError_IsNotCaught()
{
    ScriptedNetwork network;
    network.OnSend = [](const QString&, const QString&) -> QString { throw std::bad_alloc(); };
    const auto connection = CreateSyncConnection(T4SyncConnId);
    const auto utility = CreateHvxUtility(HvxUtilityId);
    QString type;
    QString identification;

    QVERIFY_EXCEPTION_THROWN((void)QueryNode(*connection, *utility, "T", type, identification),
                             std::bad_alloc);
}

void TestScanNetwork::CloseScan_Running_ClosesAndLetsGo()
{
    ScriptedNetwork network;
    Scan().SyncConnObj = CreateSyncConnection(T4SyncConnId);
    Scan().HVXUtilObject = CreateHvxUtility(HvxUtilityId);

    CloseScan();
    CloseScan();

    QCOMPARE(network.Calls.count("Close"), 1);
    QCOMPARE(network.Connections + network.Utilities, 0);
}

void TestScanNetwork::CloseScan_ClosingFails_LetsGo()
{
    ScriptedNetwork network;
    network.OnClose = [] { ScriptedNetwork::Raise(); };
    Scan().SyncConnObj = CreateSyncConnection(T4SyncConnId);
    Scan().HVXUtilObject = CreateHvxUtility(HvxUtilityId);

    QVERIFY_EXCEPTION_THROWN(CloseScan(), ComponentError);

    QVERIFY(!Scan().SyncConnObj && !Scan().HVXUtilObject);
    QCOMPARE(network.Connections + network.Utilities, 0);
}

void TestScanNetwork::ReleaseScan_Running_LetsGoWithoutClosing()
{
    ScriptedNetwork network;
    Scan().SyncConnObj = CreateSyncConnection(T4SyncConnId);
    Scan().HVXUtilObject = CreateHvxUtility(HvxUtilityId);

    ReleaseScan();

    QVERIFY(!network.Calls.contains("Close"));
    QCOMPARE(network.Connections + network.Utilities, 0);
}

QTEST_GUILESS_MAIN(TestScanNetwork)
#include "TestScanNetwork.moc"
