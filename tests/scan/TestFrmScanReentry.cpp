#include "scan/network/ScanState.h"
#include "tests/scan/ScanFixture.h"

#include <QTest>

/// What the operator and the host do while the scan waits: in an opening, in a request, while events are
/// pumped, in a closing, under a box.
class TestFrmScanReentry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void FormGone_AtAnyWait_EndsSilently_data();
    void FormGone_AtAnyWait_EndsSilently();
    void StoppedAndClosed_AtAnyWait_EndsSilently_data();
    void StoppedAndClosed_AtAnyWait_EndsSilently();
    void ReleasedByTheHost_AtAnyWait_IsIdleWithoutAWord_data();
    void ReleasedByTheHost_AtAnyWait_IsIdleWithoutAWord();
    void ReleasedByTheHost_BetweenTicks_IsIdleAtTheNextStep();
    void ReleasedByTheHost_ByAnotherScan_LeavesThatAlone();
    void Stop_DuringTheOpening_IsCarriedOutByTheFirstStep();
    void Stop_DuringARequest_KeepsItsAnswer();
    void Close_Scanning_IsRefusedAtAnyWait();
    void Tick_DuringARequest_IsSkipped();
    void Start_DuringARequest_IsAStop();
    void Rows_ClickedDuringARequest_AreSelected();
    void Boxes_EditedDuringTheOpening_DoNotChangeTheRange();
    void Boxes_ClearedDuringARequest_DoNotStopTheWalk();
    void FormGone_WhileClosingTheWindow_EndsSilently();
    void FormGone_UnderABox_EndsSilently_data();
    void FormGone_UnderABox_EndsSilently();
    void ReleasedByTheHost_UnderTheErrorBox_TellsNoMore();
    void NewScan_UnderTheLastBox_GoesOn();
    void NewScan_UnderTheReportOfAFailure_GoesOn();
};

namespace {

/// Does something once, at one of the waits of a scan from 3 to 5 with a node at 3 and 4: "open", "first
/// request", "type request", "later request", "pump", "later pump", "close".
class AtWait
{
public:
    AtWait(ScanFixture& fixture, const QString& wait, const std::function<void()>& act)
    {
        fixture.Nodes = {{3, "North"}, {4, "South"}};
        const auto once = [act, done = std::make_shared<bool>(false)] {
            if (!std::exchange(*done, true))
                act();
        };
        if (wait == "open") {
            fixture.Network.OnOpen = [once](const QString&) {
                once();
                return 0;
            };
        } else if (wait == "close") {
            fixture.Network.OnClose = once;
        } else if (wait.endsWith("pump")) {
            fixture.Computer.WhilePumping = [&fixture, once, later = wait.startsWith("later")] {
                if (!later || fixture.LabelText("lbCurrentAddr") == "Scanning 4")
                    once();
            };
        } else {
            const int address = wait.startsWith("later") ? 4 : 3;
            const QString request = wait.startsWith("type") ? "03" : "40";
            fixture.Network.OnSend = [=, &fixture](const QString& target, const QString& asked) {
                if (ScanFixture::AddressOf(target) == address && asked == request)
                    once();
                return fixture.AnswerOf(target, asked);
            };
        }
    }
};

void AddWaits()
{
    QTest::addColumn<QString>("wait");
    for (const char* wait :
         {"open", "first request", "type request", "later request", "pump", "later pump", "close"})
        QTest::newRow(wait) << wait;
}

void Walk(ScanFixture& f)
{
    f.Start(3, 5);
    if (f.Form)
        f.WalkToTheEnd();
}

} // namespace

void TestFrmScanReentry::FormGone_AtAnyWait_EndsSilently_data()
{
    AddWaits();
}

void TestFrmScanReentry::FormGone_AtAnyWait_EndsSilently()
{
    QFETCH(const QString, wait);
    ScanFixture f;
    f.ShowScan();
    const AtWait act(f, wait, [&] { f.Form.reset(); });

    Walk(f);

    QVERIFY(!f.Form);
    QVERIFY(f.Operator.Boxes.empty());
    QVERIFY(f.IsReleased());
    QCOMPARE(f.Network.Calls.count("Close"), 1);
}

void TestFrmScanReentry::StoppedAndClosed_AtAnyWait_EndsSilently_data()
{
    AddWaits();
}

void TestFrmScanReentry::StoppedAndClosed_AtAnyWait_EndsSilently()
{
    QFETCH(const QString, wait);
    ScanFixture f;
    f.ShowScan();
    const AtWait act(f, wait, [&] {
        if (wait != "close")
            f.Click("cmdStartStop");
        f.Form->close();
    });

    Walk(f);

    QVERIFY(!f.Form->isVisible());
    QVERIFY(!f.Timer().Enabled());
    QVERIFY(f.Operator.Boxes.empty());
    QVERIFY(f.IsReleased());
    QCOMPARE(f.Network.Calls.count("Close"), 1);
}

void TestFrmScanReentry::ReleasedByTheHost_AtAnyWait_IsIdleWithoutAWord_data()
{
    AddWaits();
}

void TestFrmScanReentry::ReleasedByTheHost_AtAnyWait_IsIdleWithoutAWord()
{
    QFETCH(const QString, wait);
    ScanFixture f;
    f.ShowScan();
    const AtWait act(f, wait, [] { CloseScan(); });

    Walk(f);

    QCOMPARE(f.State(), "S&tart");
    QCOMPARE(f.LabelText("lbCurrentAddr"), "Scan progress");
    QVERIFY(f.Button("cmdCancel").isEnabled());
    QCOMPARE(f.Bar().value(), 3);
    QVERIFY(!f.Timer().Enabled());
    QVERIFY(f.Operator.Boxes.empty());
    QVERIFY(f.IsReleased());
    QCOMPARE(f.Network.Calls.count("Close"), 1);
}

void TestFrmScanReentry::ReleasedByTheHost_BetweenTicks_IsIdleAtTheNextStep()
{
    ScanFixture f;
    f.ShowScan();
    f.Nodes[3] = "North";
    f.Start(3, 5);
    CloseScan();
    f.Network.Calls.clear();

    f.Step();

    QCOMPARE(f.State(), "S&tart");
    QCOMPARE(f.Network.Calls, QStringList({"Gone connection", "Gone utility"}));
    QCOMPARE(f.Rows(), QStringList{"3|T3|North"});
    QCOMPARE(f.Enabled(), "save all select close bus");
    QVERIFY(f.Operator.Boxes.empty());
    QVERIFY(f.IsReleased());
}

void TestFrmScanReentry::ReleasedByTheHost_ByAnotherScan_LeavesThatAlone()
{
    ScanFixture f;
    f.ShowScan();
    f.Start(3, 5);
    const std::shared_ptr<SyncConnection> other = CreateSyncConnection(T4SyncConnId);
    Scan().SyncConnObj = other;

    f.Step();

    QCOMPARE(f.State(), "S&tart");
    QCOMPARE(Scan().SyncConnObj, other);
    QCOMPARE(f.Network.Connections, 1);
}

void TestFrmScanReentry::Stop_DuringTheOpening_IsCarriedOutByTheFirstStep()
{
    ScanFixture f;
    f.ShowScan();
    const AtWait act(f, "open", [&] { f.Click("cmdStartStop"); });

    f.Start(3, 5);

    QCOMPARE(f.State(), "S&tart");
    QCOMPARE(f.TakeAsked(), QList<int>());
    QVERIFY(f.IsReleased());
    QVERIFY(f.Operator.Boxes.empty());
}

void TestFrmScanReentry::Stop_DuringARequest_KeepsItsAnswer()
{
    ScanFixture f;
    f.ShowScan();
    const AtWait act(f, "later request", [&] { QTest::keyClick(f.Form.get(), Qt::Key_Escape); });

    f.Start(3, 5);
    f.Step();
    QCOMPARE(f.State(), "Stop ...");
    f.Step();

    QCOMPARE(f.Rows(), QStringList({"3|T3|North", "4|T4|South"}));
    QCOMPARE(f.TakeAsked(), QList<int>({3, 4}));
    QVERIFY(f.IsReleased());
}

void TestFrmScanReentry::Close_Scanning_IsRefusedAtAnyWait()
{
    ScanFixture f;
    f.ShowScan();
    const AtWait act(f, "first request", [&] {
        f.Form->close();
        f.Form->reject();
    });

    f.Start(3, 5);

    QVERIFY(f.Form->isVisible());
    QCOMPARE(f.State(), "Stop");
    QCOMPARE(f.Rows(), QStringList{"3|T3|North"});
}

void TestFrmScanReentry::Tick_DuringARequest_IsSkipped()
{
    ScanFixture f;
    f.ShowScan();
    const AtWait act(f, "later request", [&] {
        for (int k = 0; k < 4; ++k)
            Q_EMIT f.Timer().Timer();
    });
    f.Start(3, 5);

    f.Step();
    QCOMPARE(f.TakeAsked(), QList<int>({3, 4}));
    f.Step();

    QCOMPARE(f.TakeAsked(), QList<int>{5});
}

void TestFrmScanReentry::Start_DuringARequest_IsAStop()
{
    ScanFixture f;
    f.ShowScan();
    const AtWait act(f, "first request", [&] {
        f.Click("cmdStartStop");
        f.Click("cmdStartStop");
    });

    f.Start(3, 5);

    QCOMPARE(f.State(), "Stop ...");
    QCOMPARE(f.Network.Calls.count("Create Zelka.T4SyncConn.3"), 1);
}

void TestFrmScanReentry::Rows_ClickedDuringARequest_AreSelected()
{
    ScanFixture f;
    f.ShowScan();
    int selected = 0;
    f.Nodes = {{1, "East"}, {2, "West"}};
    f.Start(1, 5);
    f.Step();
    f.Network.OnSend = [&](const QString&, const QString&) -> QString {
        f.ClickRow(2);
        selected = f.Grid().Row();
        ScriptedNetwork::Raise();
    };

    f.Step();

    QCOMPARE(selected, 2);
    QCOMPARE(f.Rows().size(), 2);
    QCOMPARE(f.State(), "Stop");
}

void TestFrmScanReentry::Boxes_EditedDuringTheOpening_DoNotChangeTheRange()
{
    ScanFixture f;
    f.ShowScan();
    const AtWait act(f, "open", [&] {
        f.Box("txtAddrBegin").setText("4000");
        f.Box("txtAddrEnd").clear();
    });

    Walk(f);

    QCOMPARE(f.TakeAsked(), QList<int>({3, 4, 5}));
}

void TestFrmScanReentry::Boxes_ClearedDuringARequest_DoNotStopTheWalk()
{
    ScanFixture f;
    f.ShowScan();
    const AtWait act(f, "first request", [&] {
        for (const char* box : {"txtAddrBegin", "txtAddrEnd", "txtTimingRetries", "txtTimingTimeout"})
            f.Box(box).clear();
    });

    Walk(f);

    QCOMPARE(f.Rows(), QStringList({"3|T3|North", "4|T4|South"}));
    QVERIFY(f.Network.Calls.contains("Send WP=NET4,ADDR=4,wp=opt,pr=t4dl,dt=unihex|40"));
}

void TestFrmScanReentry::FormGone_WhileClosingTheWindow_EndsSilently()
{
    ScanFixture f;
    f.ShowScan();
    f.Network.OnClose = [&] { f.Form.reset(); };
    f.Start(3, 5);
    f.Click("cmdStartStop");

    f.Form->close();

    QVERIFY(!f.Form);
    QVERIFY(f.IsReleased());
    QCOMPARE(f.Network.Calls.count("Close"), 1);
}

void TestFrmScanReentry::FormGone_UnderABox_EndsSilently_data()
{
    QTest::addColumn<QString>("box");
    for (const char* box : {"connection", "utility", "report", "first step", "step", "finished"})
        QTest::newRow(box) << box;
}

void TestFrmScanReentry::FormGone_UnderABox_EndsSilently()
{
    QFETCH(const QString, box);
    ScanFixture f;
    f.ShowScan();
    f.Operator.WhileOpen = [&](const RecordedBox&) { f.Form.reset(); };
    if (box == "connection")
        f.Network.NotCreated = {T4SyncConnId};
    else if (box == "utility")
        f.Network.NotCreated = {HvxUtilityId};
    else if (box == "report")
        f.Network.OnOpen = [](const QString&) { return 1; };
    else if (box.endsWith("step"))
        f.Network.OnSend = [first = box == "first step"](const QString& target, const QString&) -> QString {
            if (first || ScanFixture::AddressOf(target) == 4)
                throw std::bad_alloc();
            ScriptedNetwork::Raise();
        };

    Walk(f);

    QVERIFY(!f.Form);
    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
    QVERIFY(f.IsReleased());
}

void TestFrmScanReentry::ReleasedByTheHost_UnderTheErrorBox_TellsNoMore()
{
    ScanFixture f;
    f.ShowScan();
    f.Start(3, 5);
    f.Network.OnSend = [](const QString&, const QString&) -> QString { throw std::bad_alloc(); };
    f.Operator.WhileOpen = [](const RecordedBox&) { CloseScan(); };

    f.Step();

    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
    QCOMPARE(f.State(), "S&tart");
    QVERIFY(f.Button("cmdCancel").isEnabled());
    QVERIFY(f.IsReleased());
}

void TestFrmScanReentry::NewScan_UnderTheLastBox_GoesOn()
{
    ScanFixture f;
    f.ShowScan();
    f.Operator.WhileOpen = [&](const RecordedBox&) {
        f.Nodes[3] = "North";
        f.Operator.WhileOpen = nullptr;
        f.Click("cmdStartStop");
    };

    f.Start(3, 3);
    f.Step();

    QCOMPARE(f.State(), "Stop");
    QVERIFY(!f.Button("cmdCancel").isEnabled());
    QCOMPARE(f.Network.Connections, 1);
    f.Step();
    QCOMPARE(f.Rows(), QStringList{"3|T3|North"});
    QVERIFY(f.IsReleased());
}

void TestFrmScanReentry::NewScan_UnderTheReportOfAFailure_GoesOn()
{
    ScanFixture f;
    f.ShowScan();
    f.Network.OnSend = [](const QString&, const QString&) -> QString { throw std::bad_alloc(); };
    f.Operator.WhileOpen = [&](const RecordedBox&) {
        f.Operator.WhileOpen = nullptr;
        f.Network.OnSend = nullptr;
        f.Click("cmdStartStop");
    };

    f.Start(3, 5);

    QCOMPARE(f.State(), "Stop");
    QCOMPARE(f.Network.Connections, 1);
    QVERIFY(Scan().SyncConnObj);
    f.Step();
    QCOMPARE(f.TakeAsked(), QList<int>({3, 3, 4}));
}

QTEST_MAIN(TestFrmScanReentry)
#include "TestFrmScanReentry.moc"
