#include "tests/scan/ScanFixture.h"

#include <QTest>

/// The walk through the addresses: pace, what is sent, what is listed.
class TestFrmScanWalk : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Start_FirstAddress_OpensAndAsksInOrder();
    void Start_ComposedTargetRefused_OpensTheTailOnly();
    void Step_EverySecondTick_AsksOneAddress();
    void Step_Toggle_IsKeptBetweenScans();
    void Request_Timing_IsTheBoxesText_data();
    void Request_Timing_IsTheBoxesText();
    void Request_TimingEditedMeanwhile_IsTaken();
    void Answer_BothRequests_GiveARow();
    void Answer_HexadecimalReplies_AreConverted();
    void Answer_WithoutType_GivesARowWithoutIt();
    void Answer_IdentificationNotConverted_IsSilence();
    void Answer_TypeNotConverted_IsEmpty();
    void Silence_UnknownAddress_GivesNoRow();
    void Repeat_Vanished_IsMarkedAndUnmarkedWhenBack();
    void Repeat_NewNodeInBetween_IsSortedIn();
    void Repeat_KnownNode_KeepsItsFirstTexts();
    void Repeat_SwitchedOffMeanwhile_EndsWithTheRange();
    void Progress_Range_FollowsTheAddresses();
    void Progress_OneAddress_HasASpanOfOne();
    void Label_WhileAsking_TellsTheAddressBeforeEventsRun();
};

void TestFrmScanWalk::Start_FirstAddress_OpensAndAsksInOrder()
{
    ScanFixture f;
    f.ShowScan();
    f.Nodes[17] = "North";

    f.Start(17, 18);

    const QString target = "WP=NET4,ADDR=17,RETRY=3,TIME=2000,wp=opt,pr=t4dl,dt=unihex";
    QCOMPARE(f.Network.Calls,
             QStringList({"Create Zelka.T4SyncConn.3", "Create Zelka.HVXUtil.1", "Open " + f.OpenTarget(),
                          "Send " + target + "|40", "Hex2U North", "Send " + target + "|03", "Hex2U T17"}));
    QCOMPARE(f.State(), "Stop");
    QVERIFY(Scan().SyncConnObj && Scan().HVXUtilObject);
    QVERIFY(f.Timer().Enabled());
}

void TestFrmScanWalk::Start_ComposedTargetRefused_OpensTheTailOnly()
{
    ScanFixture f;
    f.ShowScan();
    f.Component.Fail("CheckTargetSyntax");

    f.Start(3, 3);

    QCOMPARE(f.Network.Calls[2], "Open ,WP=OPT,VERIFY=NO");
}

void TestFrmScanWalk::Step_EverySecondTick_AsksOneAddress()
{
    ScanFixture f;
    f.ShowScan();
    f.Start(3, 9);
    QCOMPARE(f.TakeAsked(), QList<int>{3});

    f.Tick(1);
    QCOMPARE(f.TakeAsked(), QList<int>());
    f.Tick(1);
    QCOMPARE(f.TakeAsked(), QList<int>{4});
    f.Tick(4);
    QCOMPARE(f.TakeAsked(), QList<int>({5, 6}));
}

void TestFrmScanWalk::Step_Toggle_IsKeptBetweenScans()
{
    ScanFixture f;
    f.ShowScan();
    f.Start(3, 9);
    f.Tick(3);
    Scan() = ScanState();
    f.Tick(1);
    QCOMPARE(f.State(), "S&tart");
    f.Start(3, 9);
    f.Tick(1);
    f.Network.Calls.clear();

    f.Tick(1);

    QCOMPARE(f.TakeAsked(), QList<int>{4});
}

void TestFrmScanWalk::Request_Timing_IsTheBoxesText_data()
{
    QTest::addColumn<QString>("retries");
    QTest::addColumn<QString>("timeOut");
    QTest::addColumn<QString>("target");
    QTest::newRow("both") << "0"
                          << "0100"
                          << "WP=NET4,ADDR=3,RETRY=0,TIME=0100,wp=opt,pr=t4dl,dt=unihex";
    QTest::newRow("no retries") << ""
                                << "100"
                                << "WP=NET4,ADDR=3,TIME=100,wp=opt,pr=t4dl,dt=unihex";
    QTest::newRow("no time-out") << "2"
                                 << ""
                                 << "WP=NET4,ADDR=3,RETRY=2,wp=opt,pr=t4dl,dt=unihex";
    QTest::newRow("none") << ""
                          << ""
                          << "WP=NET4,ADDR=3,wp=opt,pr=t4dl,dt=unihex";
}

void TestFrmScanWalk::Request_Timing_IsTheBoxesText()
{
    QFETCH(const QString, retries);
    QFETCH(const QString, timeOut);
    QFETCH(const QString, target);
    ScanFixture f;
    f.ShowScan();
    f.Box("txtTimingRetries").setText(retries);
    f.Box("txtTimingTimeout").setText(timeOut);

    f.Start(3, 3);

    QCOMPARE(f.Network.Calls[3], "Send " + target + "|40");
}

void TestFrmScanWalk::Request_TimingEditedMeanwhile_IsTaken()
{
    ScanFixture f;
    f.ShowScan();
    f.Start(3, 4);
    f.Box("txtTimingTimeout").setText("500");
    f.Network.Calls.clear();

    f.Step();

    QCOMPARE(f.Network.Calls,
             QStringList{"Send WP=NET4,ADDR=4,RETRY=3,TIME=500,wp=opt,pr=t4dl,dt=unihex|40"});
}

void TestFrmScanWalk::Answer_BothRequests_GiveARow()
{
    ScanFixture f;
    f.ShowScan();
    f.Nodes = {{3, " North "}, {5, ""}};

    f.Start(3, 5);
    QCOMPARE(f.Rows(), QStringList{"3|T3| North "});
    f.Step(2);

    QCOMPARE(f.Rows(), QStringList({"3|T3| North ", "5|T5|"}));
}

void TestFrmScanWalk::Answer_HexadecimalReplies_AreConverted()
{
    ScanFixture f;
    f.ShowScan();
    f.Network.OnSend = [](const QString&, const QString& request) {
        return request == u"40" ? QStringLiteral("4E") : QStringLiteral("54");
    };
    f.Network.OnConvert = [](const QString&, const QString& input) {
        return input == u"4E" ? QStringLiteral("North") : QStringLiteral("Repeater");
    };

    f.Start(3, 3);

    QCOMPARE(f.Rows(), QStringList{"3|Repeater|North"});
}

void TestFrmScanWalk::Answer_WithoutType_GivesARowWithoutIt()
{
    ScanFixture f;
    f.ShowScan();
    f.Network.OnSend = [](const QString&, const QString& request) {
        if (request == u"03")
            ScriptedNetwork::Raise();
        return QStringLiteral("North");
    };

    f.Start(3, 3);

    QCOMPARE(f.Rows(), QStringList{"3||North"});
}

void TestFrmScanWalk::Answer_IdentificationNotConverted_IsSilence()
{
    ScanFixture f;
    f.ShowScan();
    f.Nodes[3] = "North";
    f.Network.OnConvert = [](const QString&, const QString&) -> QString { ScriptedNetwork::Raise(); };

    f.Start(3, 4);

    QCOMPARE(f.Rows(), QStringList());
    QCOMPARE(f.State(), "Stop");
    QVERIFY(!f.Network.Calls.last().endsWith("|03"));
}

void TestFrmScanWalk::Answer_TypeNotConverted_IsEmpty()
{
    ScanFixture f;
    f.ShowScan();
    f.Nodes[3] = "North";
    f.Network.OnConvert = [](const QString&, const QString& input) {
        if (input == u"T3")
            ScriptedNetwork::Raise();
        return input;
    };

    f.Start(3, 4);

    QCOMPARE(f.Rows(), QStringList{"3||North"});
}

void TestFrmScanWalk::Silence_UnknownAddress_GivesNoRow()
{
    ScanFixture f;
    f.ShowScan();

    f.Start(3, 5);
    f.Step(1);

    QCOMPARE(f.Rows(), QStringList());
    QVERIFY(f.Operator.Boxes.empty());
    QCOMPARE(f.State(), "Stop");
}

void TestFrmScanWalk::Repeat_Vanished_IsMarkedAndUnmarkedWhenBack()
{
    ScanFixture f;
    f.ShowScan();
    f.Nodes = {{3, "North"}, {5, "South"}};
    f.Repeat(true);
    f.Start(3, 5);
    f.Step(2);
    QCOMPARE(f.Rows(), QStringList({"3|T3|North", "5|T5|South"}));

    f.Nodes.remove(3);
    f.Step(3);
    QCOMPARE(f.Rows(), QStringList({"3|T3|North*", "5|T5|South"}));
    f.Nodes[3] = "North";
    f.Step(3);

    QCOMPARE(f.Rows(), QStringList({"3|T3|North", "5|T5|South"}));
    QCOMPARE(f.TakeAsked(), QList<int>({3, 4, 5, 3, 4, 5, 3, 4, 5}));
    QCOMPARE(f.State(), "Stop");
}

void TestFrmScanWalk::Repeat_NewNodeInBetween_IsSortedIn()
{
    ScanFixture f;
    f.ShowScan();
    f.Nodes = {{3, "North"}, {5, "South"}};
    f.Repeat(true);
    f.Start(3, 5);
    f.Step(2);

    f.Nodes[4] = "East";
    f.Step(2);

    QCOMPARE(f.Rows(), QStringList({"3|T3|North", "4|T4|East", "5|T5|South"}));
}

void TestFrmScanWalk::Repeat_KnownNode_KeepsItsFirstTexts()
{
    ScanFixture f;
    f.ShowScan();
    f.Nodes[3] = "North";
    f.Repeat(true);
    f.Start(3, 3);

    f.Nodes[3] = "Renamed";
    f.Step();

    QCOMPARE(f.Rows(), QStringList{"3|T3|North"});
}

void TestFrmScanWalk::Repeat_SwitchedOffMeanwhile_EndsWithTheRange()
{
    ScanFixture f;
    f.ShowScan();
    f.Nodes[3] = "North";
    f.Repeat(true);
    f.Start(3, 4);
    f.Step(2);
    f.Repeat(false);

    f.WalkToTheEnd();

    QCOMPARE(f.TakeAsked(), QList<int>({3, 4, 3, 4}));
    QCOMPARE(f.State(), "S&tart");
}

void TestFrmScanWalk::Progress_Range_FollowsTheAddresses()
{
    ScanFixture f;
    f.ShowScan();
    f.Repeat(true);
    f.Start(3, 5);

    QCOMPARE(f.Bar().minimum(), 3);
    QCOMPARE(f.Bar().maximum(), 5);
    QCOMPARE(f.Bar().value(), 3);
    f.Step(2);
    QCOMPARE(f.Bar().value(), 5);
    f.Step();
    QCOMPARE(f.Bar().value(), 3);
}

void TestFrmScanWalk::Progress_OneAddress_HasASpanOfOne()
{
    ScanFixture f;
    f.ShowScan();

    f.Start(4094, 4094);

    QCOMPARE(f.Bar().minimum(), 4094);
    QCOMPARE(f.Bar().maximum(), 4095);
    QCOMPARE(f.Bar().value(), 4094);
    f.WalkToTheEnd();
    QCOMPARE(f.TakeAsked(), QList<int>{4094});
}

void TestFrmScanWalk::Label_WhileAsking_TellsTheAddressBeforeEventsRun()
{
    ScanFixture f;
    f.ShowScan();
    QStringList labels;
    f.Computer.WhilePumping = [&] { labels << f.LabelText("lbCurrentAddr") + "|" + f.State(); };
    f.Network.OnSend = [&](const QString&, const QString&) -> QString {
        labels << "send";
        ScriptedNetwork::Raise();
    };

    f.Start(3, 4);
    f.Step();

    QCOMPARE(labels, QStringList({"Scanning 3|Stop", "send", "Scanning 4|Stop", "send"}));
}

QTEST_MAIN(TestFrmScanWalk)
#include "TestFrmScanWalk.moc"
