#include "tests/scan/ScanFixture.h"

#include <QTest>

#include <new>

/// What the operator sees, and what is left, when something fails at a step of a scan.
class TestFrmScanFailures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Start_ConnectionNotCreated_TellsAndIsIdle();
    void Start_UtilityNotCreated_ClosesTheConnection();
    void Start_NotOpened_ReportsTheComponent_data();
    void Start_NotOpened_ReportsTheComponent();
    void Start_NotOpened_ComponentHasNoWords();
    void Start_CloseFailsToo_IsIdle_data();
    void Start_CloseFailsToo_IsIdle();
    void Start_DamagedConnection_TellsTheError();
    void Start_FirstStepFails_ReportsTheComponent();
    void Start_FirstStepClosesAndFails_TellsTheError();
    void Start_ErrorReachesTheClick_TellsOfTheInstallation_data();
    void Start_ErrorReachesTheClick_TellsOfTheInstallation();
    void Step_OtherError_EndsTheScan_data();
    void Step_OtherError_EndsTheScan();
    void Step_CloseFails_EndsTheScan_data();
    void Step_CloseFails_EndsTheScan();
    void Step_ConnectionLost_GoesOnSilently();
    void Start_AfterAFailure_Works();
};

namespace {

const QString NotOpened = "Connection could not be opened.";

/// The window as it is after a start that failed.
void VerifyIdle(const ScanFixture& f)
{
    QCOMPARE(f.State(), "S&tart");
    QCOMPARE(f.Enabled(), "close bus");
    QCOMPARE(f.Bar().value(), f.Bar().minimum());
    QVERIFY(!f.Timer().Enabled());
    QVERIFY(f.IsReleased());
}

void Report(ScanFixture& f)
{
    f.Network.Major = 2;
    f.Network.Minor = 5;
    f.Network.Text = "Refused";
}
const QString Reported = NotOpened + "\r\n\r\nRefused\r\n(Major code = 2, Minor code = 5)";

} // namespace

void TestFrmScanFailures::Start_ConnectionNotCreated_TellsAndIsIdle()
{
    ScanFixture f;
    f.ShowScan();
    f.Network.NotCreated = {T4SyncConnId};

    f.Start(3, 5);

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Error("HVXSyncConn component creation failure")});
    QCOMPARE(f.Network.Calls, QStringList{"Create Zelka.T4SyncConn.3"});
    VerifyIdle(f);
}

void TestFrmScanFailures::Start_UtilityNotCreated_ClosesTheConnection()
{
    ScanFixture f;
    f.ShowScan();
    f.Network.NotCreated = {HvxUtilityId};

    f.Start(3, 5);

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Error("HVXUtility component creation failure")});
    QCOMPARE(f.Network.Calls, QStringList({"Create Zelka.T4SyncConn.3", "Create Zelka.HVXUtil.1", "Close",
                                           "Gone connection"}));
    VerifyIdle(f);
}

void TestFrmScanFailures::Start_NotOpened_ReportsTheComponent_data()
{
    QTest::addColumn<int>("how");
    QTest::newRow("code") << 0;
    QTest::newRow("component's error") << 1;
    QTest::newRow("another error") << 2;
}

void TestFrmScanFailures::Start_NotOpened_ReportsTheComponent()
{
    QFETCH(const int, how);
    ScanFixture f;
    f.ShowScan();
    Report(f);
    f.Network.OnOpen = [how](const QString&) -> qint32 {
        if (how == 1)
            ScriptedNetwork::Raise();
        if (how == 2)
            throw std::bad_alloc();
        return 5;
    };

    f.Start(3, 5);

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Error(Reported)});
    QCOMPARE(f.Network.Calls.mid(3, 2), QStringList({"GetLastError", "Close"}));
    VerifyIdle(f);
}

void TestFrmScanFailures::Start_NotOpened_ComponentHasNoWords()
{
    ScanFixture f;
    f.ShowScan();
    f.Network.LastErrorFails = true;
    f.Network.OnOpen = [](const QString&) { return 1; };

    f.Start(3, 5);

    QCOMPARE(f.Operator.Texts(),
             QStringList{NotOpened + "\r\n\r\nError with HVX component\r\nNo record(80040222)"});
    VerifyIdle(f);
}

void TestFrmScanFailures::Start_CloseFailsToo_IsIdle_data()
{
    QTest::addColumn<bool>("withUtility");
    QTest::newRow("not opened") << true;
    QTest::newRow("no utility") << false;
}

void TestFrmScanFailures::Start_CloseFailsToo_IsIdle()
{
    QFETCH(const bool, withUtility);
    ScanFixture f;
    f.ShowScan();
    if (!withUtility)
        f.Network.NotCreated = {HvxUtilityId};
    f.Network.OnOpen = [](const QString&) { return 1; };
    f.Network.OnClose = [] { ScriptedNetwork::Raise(); };

    f.Start(3, 5);

    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
    VerifyIdle(f);
}

void TestFrmScanFailures::Start_DamagedConnection_TellsTheError()
{
    ScanFixture f;
    f.ShowScan();
    f.Direct().ConWpCount = ConData::MaxWaypoints + 1;

    f.Start(3, 5);

    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
    QVERIFY2(f.Operator.Boxes[0].text.startsWith(NotOpened + "\r\n"), qPrintable(f.Operator.Boxes[0].text));
    QVERIFY(f.Operator.Boxes[0].text.endsWith("(0)"));
    QCOMPARE(f.Operator.Boxes[0].flags, ErrorBoxFlags());
    QVERIFY(f.Network.Calls.isEmpty());
    VerifyIdle(f);
}

void TestFrmScanFailures::Start_FirstStepFails_ReportsTheComponent()
{
    ScanFixture f;
    f.ShowScan();
    Report(f);
    f.Network.OnSend = [](const QString&, const QString&) -> QString { throw std::bad_alloc(); };
    QString seen;
    f.Operator.WhileOpen = [&](const RecordedBox&) { seen = f.State() + "|" + f.Enabled(); };

    f.Start(3, 5);

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Error(Reported)});
    QCOMPARE(seen, "S&tart|close bus");
    QCOMPARE(f.Network.Calls.mid(4, 2), QStringList({"GetLastError", "Close"}));
    VerifyIdle(f);
}

void TestFrmScanFailures::Start_FirstStepClosesAndFails_TellsTheError()
{
    ScanFixture f;
    f.ShowScan();
    f.Network.OnOpen = [&](const QString&) {
        f.Click("cmdStartStop");
        return 0;
    };
    f.Network.OnClose = [] { ScriptedNetwork::Raise("Not closed", 0x8004ABCD); };

    f.Start(3, 5);

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Error(NotOpened + "\r\nNot closed(8004ABCD)")});
    VerifyIdle(f);
}

void TestFrmScanFailures::Start_ErrorReachesTheClick_TellsOfTheInstallation_data()
{
    QTest::addColumn<bool>("inTheChecks");
    QTest::newRow("in the checks") << true;
    QTest::newRow("at the start") << false;
}

void TestFrmScanFailures::Start_ErrorReachesTheClick_TellsOfTheInstallation()
{
    QFETCH(const bool, inTheChecks);
    ScanFixture f;
    f.ShowScan();
    f.Network.OnOpen = [](const QString&) { return 1; };
    f.Operator.WhileOpen = [](const RecordedBox& box) {
        if (!box.text.startsWith("Probably"))
            throw std::bad_alloc();
    };

    f.Start(inTheChecks ? 7 : 3, 5);

    QCOMPARE(f.Operator.Boxes.back(),
             RecordedBox::Error(
                 "Probably HVX installation is defective or some required components are missing."));
    VerifyIdle(f);
}

void TestFrmScanFailures::Step_OtherError_EndsTheScan_data()
{
    QTest::addColumn<bool>("stopRequested");
    QTest::newRow("scanning") << false;
    QTest::newRow("stop asked for") << true;
}

void TestFrmScanFailures::Step_OtherError_EndsTheScan()
{
    QFETCH(const bool, stopRequested);
    ScanFixture f;
    f.ShowScan();
    f.Nodes[3] = "North";
    f.Start(3, 5);
    f.Network.OnSend = [&](const QString&, const QString&) -> QString {
        if (stopRequested)
            f.Click("cmdStartStop");
        throw std::bad_alloc();
    };
    f.Network.Calls.clear();

    f.Step();

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Error(
                                   "Zelka HVX Service error, it is not runnig.\r\nstd::bad_alloc(0)")});
    QCOMPARE(f.Network.Calls.mid(1), QStringList({"Gone connection", "Gone utility"}));
    QCOMPARE(f.State(), "S&tart");
    QCOMPARE(f.Rows(), QStringList{"3|T3|North"});
    QCOMPARE(f.Enabled(), "save all select close bus");
    QCOMPARE(f.LabelText("lbCurrentAddr"), "Scanning 4");
    QCOMPARE(f.Bar().value(), 3);
    QVERIFY(!f.Timer().Enabled());
    QVERIFY(f.IsReleased());
}

void TestFrmScanFailures::Step_CloseFails_EndsTheScan_data()
{
    QTest::addColumn<bool>("stopped");
    QTest::newRow("finished") << false;
    QTest::newRow("stopped") << true;
}

void TestFrmScanFailures::Step_CloseFails_EndsTheScan()
{
    QFETCH(const bool, stopped);
    ScanFixture f;
    f.ShowScan();
    f.Start(3, 3);
    f.Network.OnClose = [] { ScriptedNetwork::Raise("Not closed", 0x80040201); };
    f.Repeat(stopped);
    if (stopped)
        f.Click("cmdStartStop");

    f.Step();

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Error(
                                   "Zelka HVX Service error, it is not runnig.\r\nNot closed(80040201)")});
    QCOMPARE(f.State(), "S&tart");
    QVERIFY(f.IsReleased());
    QVERIFY(f.Button("cmdCancel").isEnabled());
}

void TestFrmScanFailures::Step_ConnectionLost_GoesOnSilently()
{
    ScanFixture f;
    f.ShowScan();
    f.Nodes = {{3, "North"}, {4, "South"}};
    f.Start(3, 5);
    f.Network.OnSend = nullptr;

    f.WalkToTheEnd();

    QVERIFY(f.Operator.Boxes.empty());
    QCOMPARE(f.Rows(), QStringList{"3|T3|North"});
    QVERIFY(f.IsReleased());
}

void TestFrmScanFailures::Start_AfterAFailure_Works()
{
    ScanFixture f;
    f.ShowScan();
    f.Network.OnOpen = [](const QString&) { return 1; };
    f.Start(3, 3);
    f.Network.OnOpen = nullptr;
    f.Nodes[3] = "North";

    f.Click("cmdStartStop");
    f.WalkToTheEnd();

    QCOMPARE(f.Rows(), QStringList{"3|T3|North"});
    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
}

QTEST_MAIN(TestFrmScanFailures)
#include "TestFrmScanFailures.moc"
