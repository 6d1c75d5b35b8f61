#include "tests/scan/BusSelectionFixture.h"

#include <QTest>

#include <new>

/// What the bus dialog asks, shows and gives.
class TestFrmBusSelectionDiscovery : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Form_Open_HasItsCaptions();
    void Load_State_IsScanning();
    void Timer_AfterItsTime_AsksOnce();
    void Discover_Answer_ListsTheBuses();
    void Discover_Steps_AreInOrder();
    void Discover_Kd7Connection_AsksTheBroadcastBus();
    void Discover_OnlyTheEcho_TellsNoBus();
    void Discover_TargetRefused_TellsAndWaits();
    void Discover_NotCreated_TellsAndWaits_data();
    void Discover_NotCreated_TellsAndWaits();
    void Discover_NotOpened_ReportsAndCloses_data();
    void Discover_NotOpened_ReportsAndCloses();
    void Discover_StepFails_ReportsAndCloses_data();
    void Discover_StepFails_ReportsAndCloses();
    void Discover_CloseFails_TellsOfMissingComponents();
    void Discover_DamagedConnection_TellsAndWaits();
    void Ok_BusChosen_IsGiven();
    void Ok_ByKey_TakesTheFirst();
    void Cancel_AnyWay_GivesNone_data();
    void Cancel_AnyWay_GivesNone();
    void Help_ButtonAndKey_ShowTheTopic();
};

namespace {

const QString NotScanned = "Buses could not be scanned.";

/// The dialog after a failure that leaves it open.
void VerifyWaits(const BusSelectionFixture& f)
{
    QVERIFY(f.Selection->isVisible());
    QCOMPARE(f.Lines(), QStringList{"Scanning ..."});
    QVERIFY(!f.SelectionButton("cmdOK").isEnabled());
    QVERIFY(f.SelectionButton("cmdCancel").isEnabled());
    QVERIFY(f.IsReleased());
}

void VerifyClosed(const BusSelectionFixture& f)
{
    QVERIFY(!f.Selection->isVisible());
    QCOMPARE(Scan().SelectedBus, -1);
    QVERIFY(f.IsReleased());
}

void Report(BusSelectionFixture& f)
{
    f.Network.Major = 3;
    f.Network.Minor = 1;
    f.Network.Text = "Not served";
}
const QString Reported = NotScanned + "\r\n\r\nNot served\r\n(Major code = 3, Minor code = 1)";

} // namespace

void TestFrmBusSelectionDiscovery::Form_Open_HasItsCaptions()
{
    BusSelectionFixture f;
    f.ShowSelection();

    QCOMPARE(f.Selection->windowTitle(), "Scan: Found Buses");
    QCOMPARE(f.Selection->findChild<QLabel*>("Label1")->text(), "Select Bus for Scanning:");
    QCOMPARE(f.SelectionButton("cmdOK").text(), "&OK");
    QCOMPARE(f.SelectionButton("cmdCancel").text(), "&Cancel");
    QCOMPARE(f.SelectionButton("cmdHelp").text(), "&Help");
    QVERIFY(f.Selection->isModal());
    for (const char* name : {"lstBusses", "cmdOK", "cmdCancel", "cmdHelp"})
        QVERIFY2(!f.Selection->findChild<QWidget*>(name)->accessibleName().isEmpty(), name);
}

void TestFrmBusSelectionDiscovery::Load_State_IsScanning()
{
    BusSelectionFixture f;
    Scan().SelectedBus = 12;
    f.ShowSelection();

    QCOMPARE(f.Lines(), QStringList{"Scanning ..."});
    QCOMPARE(f.List().currentRow(), 0);
    QVERIFY(!f.SelectionButton("cmdOK").isEnabled());
    QCOMPARE(Scan().SelectedBus, -1);
    QVERIFY(f.Network.Calls.isEmpty());
}

void TestFrmBusSelectionDiscovery::Timer_AfterItsTime_AsksOnce()
{
    BusSelectionFixture f;
    f.Load("Alpha");
    const frmBusSelection form(f.Direct());
    const auto* timer = form.findChild<IntervalTimer*>("Timer1");
    QVERIFY(timer->Enabled());
    QCOMPARE(timer->Interval(), 200);

    QTRY_VERIFY(!f.Network.Calls.isEmpty());

    QVERIFY(!timer->Enabled());
    QCOMPARE(f.Network.Calls.count("Create Zelka.HVXSyncConn.1"), 1);
}

void TestFrmBusSelectionDiscovery::Discover_Answer_ListsTheBuses()
{
    BusSelectionFixture f;
    f.ShowSelection();

    f.Discover();

    QCOMPARE(f.Lines(), QStringList({"12", "17"}));
    QCOMPARE(f.List().currentRow(), 0);
    QVERIFY(f.SelectionButton("cmdOK").isEnabled());
    QVERIFY(f.IsReleased());
    QVERIFY(f.Operator.Boxes.empty());
}

void TestFrmBusSelectionDiscovery::Discover_Steps_AreInOrder()
{
    BusSelectionFixture f;
    f.ShowSelection();
    f.Computer.WhilePumping = [&] { f.Network.Calls << "Pump"; };

    f.Discover();

    QCOMPARE(f.Network.TakeCalls(),
             QStringList({"Create Zelka.HVXSyncConn.1", "Create Zelka.HVXUtil.1", "Pump", "Pump", "Pump",
                          "Open WP=OPT,PR=T4DT,DT=TEXT,VERIFY=NO", "U2A m:11,1,3\r", "Send |m:11,1,3\r",
                          "GetBERData 0 " + f.Reply, "A2U " + f.Reply, "Close", "Gone utility",
                          "Gone connection"}));
}

void TestFrmBusSelectionDiscovery::Discover_Kd7Connection_AsksTheBroadcastBus()
{
    BusSelectionFixture f;
    f.Component.Store.AddConnection("Kd", "WP=KD7,BUSID=5,SLOT=0,TIME=2000,RETRY=2");
    f.ShowSelection("Kd");

    f.Discover();

    QCOMPARE(f.Network.Calls[2], "Open WP=KD7,BUSID=254,WP=NET4,ADDR=4094,WP=OPT,PR=T4DT");
}

void TestFrmBusSelectionDiscovery::Discover_OnlyTheEcho_TellsNoBus()
{
    BusSelectionFixture f;
    f.Reply = "m:11,1,3\r254";
    f.ShowSelection();

    f.Discover();
    QCOMPARE(f.Lines(), QStringList{"No Bus found"});
    QVERIFY(f.SelectionButton("cmdOK").isEnabled());
    f.List().setCurrentRow(0);
    f.ClickSelection("cmdOK");

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Plain("No bus selected.")});
    QVERIFY(f.Selection->isVisible());
    QCOMPARE(Scan().SelectedBus, -1);
}

void TestFrmBusSelectionDiscovery::Discover_TargetRefused_TellsAndWaits()
{
    BusSelectionFixture f;
    f.ShowSelection();
    f.Component.Fail("CheckTargetSyntax");

    f.Discover();

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Error(NotScanned)});
    QVERIFY(f.Network.Calls.isEmpty());
    VerifyWaits(f);
}

void TestFrmBusSelectionDiscovery::Discover_NotCreated_TellsAndWaits_data()
{
    QTest::addColumn<QString>("component");
    QTest::addColumn<QString>("message");
    QTest::newRow("connection") << HvxSyncConnId << "HVXSyncConn component creation failure";
    QTest::newRow("utility") << HvxUtilityId << "HVXUtility component creation failure";
}

void TestFrmBusSelectionDiscovery::Discover_NotCreated_TellsAndWaits()
{
    QFETCH(const QString, component);
    QFETCH(const QString, message);
    BusSelectionFixture f;
    f.ShowSelection();
    f.Network.NotCreated = {component};

    f.Discover();

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Error(message)});
    QVERIFY(!f.Network.Calls.contains("Close"));
    VerifyWaits(f);
}

void TestFrmBusSelectionDiscovery::Discover_NotOpened_ReportsAndCloses_data()
{
    QTest::addColumn<bool>("raises");
    QTest::newRow("code") << false;
    QTest::newRow("error") << true;
}

void TestFrmBusSelectionDiscovery::Discover_NotOpened_ReportsAndCloses()
{
    QFETCH(const bool, raises);
    BusSelectionFixture f;
    f.ShowSelection();
    Report(f);
    f.Network.OnOpen = [raises](const QString&) {
        if (raises)
            ScriptedNetwork::Raise();
        return 1;
    };

    f.Discover();

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Error(Reported)});
    QCOMPARE(f.Network.Calls.mid(3, 2), QStringList({"GetLastError", "Close"}));
    VerifyClosed(f);
}

void TestFrmBusSelectionDiscovery::Discover_StepFails_ReportsAndCloses_data()
{
    QTest::addColumn<QString>("step");
    for (const char* step : {"U2A", "Send", "GetBERData", "A2U", "other"})
        QTest::newRow(step) << step;
}

void TestFrmBusSelectionDiscovery::Discover_StepFails_ReportsAndCloses()
{
    QFETCH(const QString, step);
    BusSelectionFixture f;
    f.ShowSelection();
    Report(f);
    f.Network.OnConvert = [step](const QString& method, const QString& input) {
        if (method == step)
            ScriptedNetwork::Raise();
        return input;
    };
    if (step == "Send")
        f.Network.OnSend = nullptr;
    if (step == "other")
        f.Network.OnSend = [](const QString&, const QString&) -> QString { throw std::bad_alloc(); };

    f.Discover();

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Error(Reported)});
    QCOMPARE(f.Network.Calls.count("Close"), 1);
    VerifyClosed(f);
}

void TestFrmBusSelectionDiscovery::Discover_CloseFails_TellsOfMissingComponents()
{
    BusSelectionFixture f;
    f.ShowSelection();
    f.Network.OnClose = [] { ScriptedNetwork::Raise(); };

    f.Discover();

    QCOMPARE(f.Operator.Boxes,
             std::vector{RecordedBox::Error("Bus scanning failed, because of missing components (either "
                                            "HVXSyncConn or HVXUtility is missing).")});
    VerifyClosed(f);
}

void TestFrmBusSelectionDiscovery::Discover_DamagedConnection_TellsAndWaits()
{
    BusSelectionFixture f;
    f.ShowSelection();
    f.Direct().ConWpCount = ConData::MaxWaypoints + 1;

    f.Discover();

    QCOMPARE(f.Operator.Boxes,
             std::vector{RecordedBox::Error("Scan failed due to component HVXSyncConn or HVXUtility.")});
    VerifyWaits(f);
}

void TestFrmBusSelectionDiscovery::Ok_BusChosen_IsGiven()
{
    BusSelectionFixture f;
    f.ShowSelection();
    f.Discover();
    f.List().setCurrentRow(1);

    f.ClickSelection("cmdOK");

    QCOMPARE(Scan().SelectedBus, 17);
    QVERIFY(!f.Selection->isVisible());
}

void TestFrmBusSelectionDiscovery::Ok_ByKey_TakesTheFirst()
{
    BusSelectionFixture f;
    f.ShowSelection();
    f.Discover();

    QTest::keyClick(&f.List(), Qt::Key_Return);

    QCOMPARE(Scan().SelectedBus, 12);
    QVERIFY(!f.Selection->isVisible());
}

void TestFrmBusSelectionDiscovery::Cancel_AnyWay_GivesNone_data()
{
    QTest::addColumn<QString>("way");
    for (const char* way : {"button", "window", "Escape"})
        QTest::newRow(way) << way;
}

void TestFrmBusSelectionDiscovery::Cancel_AnyWay_GivesNone()
{
    QFETCH(const QString, way);
    BusSelectionFixture f;
    f.ShowSelection();
    f.Discover();
    Scan().SelectedBus = 12;

    if (way == "button")
        f.ClickSelection("cmdCancel");
    else if (way == "window")
        f.Selection->close();
    else
        QTest::keyClick(&f.List(), Qt::Key_Escape);

    VerifyClosed(f);
}

void TestFrmBusSelectionDiscovery::Help_ButtonAndKey_ShowTheTopic()
{
    BusSelectionFixture f;
    f.ShowSelection();

    f.ClickSelection("cmdHelp");
    QTest::keyClick(f.Selection.get(), Qt::Key_F1);

    QCOMPARE(f.Topics, QStringList({"Browser4Scan_Busses.htm", "Browser4Scan_Busses.htm"}));
}

QTEST_MAIN(TestFrmBusSelectionDiscovery)
#include "TestFrmBusSelectionDiscovery.moc"
