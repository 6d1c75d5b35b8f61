#include "tests/scan/ScanFixture.h"

#include <QTest>

/// The states of a scan and the ways from one to the other that no failure is part of.
class TestFrmScanEnds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Finished_WithNodes_IsIdleWithoutAWord();
    void Finished_WithoutNodes_TellsSo();
    void Stop_Click_IsCarriedOutByTheNextStep_data();
    void Stop_Click_IsCarriedOutByTheNextStep();
    void Stop_ClickedTwice_ChangesNothing();
    void Stop_RangeExhausted_EndsAsFinished_data();
    void Stop_RangeExhausted_EndsAsFinished();
    void Stop_RepeatAtTheEndOfTheRange_Stops();
    void Stop_NodesFound_StayListed();
    void Escape_StopRequested_DoesNotClose();
    void Escape_HeldDown_StopsAtTheFirst();
    void Caption_OtherCase_IsTheSameState();
    void Close_Scanning_IsRefused_data();
    void Close_Scanning_IsRefused();
    void Close_StopRequested_EndsTheScan_data();
    void Close_StopRequested_EndsTheScan();
    void Start_Again_ResetsTheGrid();
    void Start_CheckFails_KeepsTheRows();
};

namespace {

void VerifyIdle(const ScanFixture& f)
{
    QCOMPARE(f.State(), "S&tart");
    QCOMPARE(f.LabelText("lbCurrentAddr"), "Scan progress");
    QCOMPARE(f.Bar().value(), f.Bar().minimum());
    QVERIFY(!f.Timer().Enabled());
    QVERIFY(f.IsReleased());
}

} // namespace

void TestFrmScanEnds::Finished_WithNodes_IsIdleWithoutAWord()
{
    ScanFixture f;
    f.ShowScan();
    f.Nodes[4] = "North";
    f.Start(3, 5);
    f.Step(2);
    QCOMPARE(f.State(), "Stop");
    f.Network.Calls.clear();

    f.Step();

    VerifyIdle(f);
    QCOMPARE(f.Network.Calls, QStringList({"Close", "Gone connection", "Gone utility"}));
    QVERIFY(f.Operator.Boxes.empty());
    QCOMPARE(f.Rows(), QStringList{"4|T4|North"});
    QCOMPARE(f.Enabled(), "save all select close bus");
}

void TestFrmScanEnds::Finished_WithoutNodes_TellsSo()
{
    ScanFixture f;
    f.ShowScan();
    QString seen;
    f.Operator.WhileOpen = [&](const RecordedBox&) {
        VerifyIdle(f);
        seen = f.Enabled();
    };
    f.Start(3, 3);

    f.WalkToTheEnd();

    QCOMPARE(f.Operator.Boxes,
             (std::vector<RecordedBox>{{"No nodes were found in the scan.", BoxFlags::Plain, "Scan"}}));
    QCOMPARE(seen, "");
    QCOMPARE(f.Enabled(), "close bus");
}

void TestFrmScanEnds::Stop_Click_IsCarriedOutByTheNextStep_data()
{
    QTest::addColumn<bool>("escape");
    QTest::newRow("click") << false;
    QTest::newRow("Escape") << true;
}

void TestFrmScanEnds::Stop_Click_IsCarriedOutByTheNextStep()
{
    QFETCH(const bool, escape);
    ScanFixture f;
    f.ShowScan();
    f.Start(3, 9);
    f.Network.Calls.clear();

    if (escape)
        QTest::keyClick(&f.Box("txtAddrBegin"), Qt::Key_Escape);
    else
        f.Click("cmdStartStop");
    QCOMPARE(f.State(), "Stop ...");
    QVERIFY(f.Form->isVisible());
    f.Tick(1);
    QCOMPARE(f.State(), "Stop ...");
    QVERIFY(f.Network.Calls.isEmpty());
    f.Tick(1);

    VerifyIdle(f);
    QCOMPARE(f.Network.Calls, QStringList({"Close", "Gone connection", "Gone utility"}));
    QVERIFY(f.Operator.Boxes.empty());
    // As they stand after a stop, whatever was found.
    QCOMPARE(f.Enabled(), "save all select close bus");
}

void TestFrmScanEnds::Stop_ClickedTwice_ChangesNothing()
{
    ScanFixture f;
    f.ShowScan();
    f.Start(3, 9);
    f.Click("cmdStartStop");
    f.Click("cmdStartStop");
    QCOMPARE(f.State(), "Stop ...");

    f.Step();

    VerifyIdle(f);
}

void TestFrmScanEnds::Stop_RangeExhausted_EndsAsFinished_data()
{
    QTest::addColumn<bool>("found");
    QTest::newRow("nothing found") << false;
    QTest::newRow("a node found") << true;
}

void TestFrmScanEnds::Stop_RangeExhausted_EndsAsFinished()
{
    QFETCH(const bool, found);
    ScanFixture f;
    f.ShowScan();
    if (found)
        f.Nodes[3] = "North";
    f.Start(3, 3);
    f.Click("cmdStartStop");

    f.Step();

    VerifyIdle(f);
    QCOMPARE(f.Operator.Texts(), found ? QStringList() : QStringList{"No nodes were found in the scan."});
    QCOMPARE(f.Enabled(), found ? "save all select close bus" : "close bus");
}

void TestFrmScanEnds::Stop_RepeatAtTheEndOfTheRange_Stops()
{
    ScanFixture f;
    f.ShowScan();
    f.Repeat(true);
    f.Start(3, 3);
    f.Click("cmdStartStop");

    f.Step();

    VerifyIdle(f);
    QVERIFY(f.Operator.Boxes.empty());
    QCOMPARE(f.TakeAsked(), QList<int>{3});
}

void TestFrmScanEnds::Stop_NodesFound_StayListed()
{
    ScanFixture f;
    f.ShowScan();
    f.Nodes = {{3, "North"}, {4, "South"}};
    f.Start(3, 9);
    f.Step();
    f.Click("cmdStartStop");

    f.Step();

    QCOMPARE(f.Rows(), QStringList({"3|T3|North", "4|T4|South"}));
}

void TestFrmScanEnds::Escape_StopRequested_DoesNotClose()
{
    ScanFixture f;
    f.ShowScan();
    f.Start(3, 9);

    QTest::keyClick(f.Form.get(), Qt::Key_Escape);
    QTest::keyClick(f.Form.get(), Qt::Key_Escape);

    QCOMPARE(f.State(), "Stop ...");
    QVERIFY(f.Form->isVisible());
    f.Step();
    VerifyIdle(f);
}

void TestFrmScanEnds::Escape_HeldDown_StopsAtTheFirst()
{
    ScanFixture f;
    f.ShowScan();
    f.Start(3, 9);
    QTest::keyPress(f.Form.get(), Qt::Key_Escape);
    f.Step();
    QCOMPARE(f.State(), "S&tart");

    QKeyEvent again(QEvent::KeyPress, Qt::Key_Escape, {}, "\x1b", true);
    QApplication::sendEvent(f.Form.get(), &again);

    QVERIFY(f.Form->isVisible());
}

void TestFrmScanEnds::Caption_OtherCase_IsTheSameState()
{
    ScanFixture f;
    f.ShowScan();
    f.Start(3, 9);
    f.Button("cmdStartStop").setText("STOP");

    f.Click("cmdStartStop");
    QCOMPARE(f.State(), "Stop ...");
    f.Button("cmdStartStop").setText("STOP ...");
    f.Step();

    VerifyIdle(f);
}

void TestFrmScanEnds::Close_Scanning_IsRefused_data()
{
    QTest::addColumn<QString>("way");
    QTest::newRow("window") << "window";
    QTest::newRow("reject") << "reject";
    QTest::newRow("button") << "button";
}

void TestFrmScanEnds::Close_Scanning_IsRefused()
{
    QFETCH(const QString, way);
    ScanFixture f;
    f.ShowScan();
    f.Start(3, 9);

    if (way == "window")
        QVERIFY(!f.Form->close());
    else if (way == "reject")
        f.Form->reject();
    else
        f.Click("cmdCancel");

    QVERIFY(f.Form->isVisible());
    QCOMPARE(f.State(), "Stop");
    f.Step();
    QCOMPARE(f.TakeAsked(), QList<int>({3, 4}));
}

void TestFrmScanEnds::Close_StopRequested_EndsTheScan_data()
{
    QTest::addColumn<bool>("destroyed");
    QTest::newRow("closed") << false;
    QTest::newRow("destroyed by the host") << true;
}

void TestFrmScanEnds::Close_StopRequested_EndsTheScan()
{
    QFETCH(const bool, destroyed);
    ScanFixture f;
    f.ShowScan();
    f.Start(3, 9);
    f.Click("cmdStartStop");
    f.Network.Calls.clear();

    if (destroyed)
        f.Form.reset();
    else
        QVERIFY(f.Form->close());

    QCOMPARE(f.Network.Calls, QStringList({"Close", "Gone connection", "Gone utility"}));
    QVERIFY(f.IsReleased());
    f.Tick(4);
    QCOMPARE(f.Network.Calls.size(), 3);
    QVERIFY(f.Operator.Boxes.empty());
}

void TestFrmScanEnds::Start_Again_ResetsTheGrid()
{
    ScanFixture f;
    f.ShowScan();
    f.Nodes = {{3, "North"}};
    f.Start(3, 3);
    f.WalkToTheEnd();
    f.Nodes = {{7, "South"}};

    f.Start(7, 8);

    QCOMPARE(f.Rows(), QStringList{"7|T7|South"});
    QCOMPARE(f.Bar().minimum(), 7);
    QCOMPARE(f.State(), "Stop");
}

void TestFrmScanEnds::Start_CheckFails_KeepsTheRows()
{
    ScanFixture f;
    f.ShowScan();
    f.Nodes = {{3, "North"}};
    f.Start(3, 3);
    f.WalkToTheEnd();

    f.Start(5, 3);

    QCOMPARE(f.Rows(), QStringList{"3|T3|North"});
    QCOMPARE(f.Enabled(), "save all select close bus");
}

QTEST_MAIN(TestFrmScanEnds)
#include "TestFrmScanEnds.moc"
