#include "tests/scan/ScanFixture.h"

#include <QHeaderView>
#include <QTest>

/// Which commands the operator can use, by right, state and selection.
class TestFrmScanEnabling : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Opened_AnyRight_NothingFoundYet_data();
    void Opened_AnyRight_NothingFoundYet();
    void Scanning_Commands_AreOff_data();
    void Scanning_Commands_AreOff();
    void Finished_RightAndFound_Decide_data();
    void Finished_RightAndFound_Decide();
    void Stopped_Right_DecidesWhateverWasFound_data();
    void Stopped_Right_DecidesWhateverWasFound();
    void Stopped_ClickOnANode_BringsTheCommandsBack();
    void Click_Place_DecidesWhetherCommandsFollow_data();
    void Click_Place_DecidesWhetherCommandsFollow();
    void Click_WhileScanning_FollowsTheSelection();
    void Bus_States_FollowTheScan();
    void Bus_ConnectionWithoutBus_StaysOff();
    void Refused_Start_ChangesNothing();
};

namespace {

void AddRights()
{
    QTest::addColumn<bool>("editRight");
    QTest::newRow("may edit") << true;
    QTest::newRow("may not edit") << false;
}

} // namespace

void TestFrmScanEnabling::Opened_AnyRight_NothingFoundYet_data()
{
    AddRights();
}

void TestFrmScanEnabling::Opened_AnyRight_NothingFoundYet()
{
    QFETCH(const bool, editRight);
    ScanFixture f;
    Database().EditRight = editRight;

    f.ShowScan();

    QCOMPARE(f.Enabled(), "close bus");
    QVERIFY(f.Button("cmdStartStop").isEnabled());
    QVERIFY(f.Button("cmdHelp").isEnabled());
    QVERIFY(f.Button("cmdScanBus").isEnabled());
}

void TestFrmScanEnabling::Scanning_Commands_AreOff_data()
{
    AddRights();
}

void TestFrmScanEnabling::Scanning_Commands_AreOff()
{
    QFETCH(const bool, editRight);
    ScanFixture f;
    Database().EditRight = editRight;
    f.Nodes[3] = "North";
    f.ShowScan();

    f.Start(3, 9);

    QCOMPARE(f.Enabled(), "");
    QVERIFY(f.Button("cmdStartStop").isEnabled());
    QVERIFY(f.Button("cmdHelp").isEnabled());
    QVERIFY(f.Box("txtTimingRetries").isEnabled());
    f.Click("cmdStartStop");
    QCOMPARE(f.Enabled(), "");
}

void TestFrmScanEnabling::Finished_RightAndFound_Decide_data()
{
    QTest::addColumn<bool>("editRight");
    QTest::addColumn<bool>("found");
    QTest::addColumn<QString>("enabled");
    QTest::newRow("may edit, found") << true << true << "save all select close bus";
    QTest::newRow("may edit, none") << true << false << "close bus";
    QTest::newRow("may not edit, found") << false << true << "close bus";
    QTest::newRow("may not edit, none") << false << false << "close bus";
}

void TestFrmScanEnabling::Finished_RightAndFound_Decide()
{
    QFETCH(const bool, editRight);
    QFETCH(const bool, found);
    ScanFixture f;
    Database().EditRight = editRight;
    if (found)
        f.Nodes[3] = "North";
    f.ShowScan();
    f.Start(3, 3);

    f.WalkToTheEnd();

    QTEST(f.Enabled(), "enabled");
}

void TestFrmScanEnabling::Stopped_Right_DecidesWhateverWasFound_data()
{
    QTest::addColumn<bool>("editRight");
    QTest::addColumn<QString>("enabled");
    QTest::newRow("may edit") << true << "save all select close bus";
    QTest::newRow("may not edit") << false << "select close bus";
}

void TestFrmScanEnabling::Stopped_Right_DecidesWhateverWasFound()
{
    QFETCH(const bool, editRight);
    ScanFixture f;
    Database().EditRight = editRight;
    f.ShowScan();
    f.Start(3, 9);
    f.Click("cmdStartStop");

    f.Step();

    QCOMPARE(f.Rows(), QStringList());
    QTEST(f.Enabled(), "enabled");
}

void TestFrmScanEnabling::Stopped_ClickOnANode_BringsTheCommandsBack()
{
    ScanFixture f;
    Database().EditRight = false;
    f.Nodes[3] = "North";
    f.ShowScan();
    f.Start(3, 9);
    f.Click("cmdStartStop");
    f.Step();
    QCOMPARE(f.Enabled(), "select close bus");

    f.ClickRow(1);

    QCOMPARE(f.Enabled(), "close bus");
}

void TestFrmScanEnabling::Click_Place_DecidesWhetherCommandsFollow_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("selected");
    QTest::addColumn<QString>("enabled");
    QTest::newRow("header") << 0 << 1 << "select close bus";
    QTest::newRow("node") << 2 << 2 << "close bus";
    QTest::newRow("below") << 5 << 2 << "select close bus";
}

void TestFrmScanEnabling::Click_Place_DecidesWhetherCommandsFollow()
{
    QFETCH(const int, row);
    ScanFixture f;
    Database().EditRight = false;
    f.Nodes = {{3, "North"}, {4, "South"}};
    f.ShowScan();
    f.Start(3, 9);
    f.Step();
    f.Click("cmdStartStop");
    f.Step();

    if (row == 0)
        QTest::mouseClick(f.Grid().horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(100, 5));
    else
        f.ClickRow(row);

    QTEST(f.Grid().Row(), "selected");
    QTEST(f.Enabled(), "enabled");
}

void TestFrmScanEnabling::Click_WhileScanning_FollowsTheSelection()
{
    ScanFixture f;
    f.Nodes[3] = "North";
    f.ShowScan();
    f.Start(3, 9);

    f.ClickRow(1);

    QCOMPARE(f.Enabled(), "save all select");
    QCOMPARE(f.State(), "Stop");
}

void TestFrmScanEnabling::Bus_States_FollowTheScan()
{
    ScanFixture f;
    f.ShowScan();
    const auto bus = [&] {
        QList<bool> enabled;
        for (const char* name : {"fraBusSelection", "lblSelectedBus", "txtBus", "cmdScanBus"})
            enabled << f.Find<QWidget>(name).isEnabled();
        return enabled;
    };
    const QList<bool> on(4, true);
    const QList<bool> off(4, false);
    QCOMPARE(bus(), on);
    f.Start(3, 9);
    QCOMPARE(bus(), off);
    f.Click("cmdStartStop");
    QCOMPARE(bus(), off);

    f.Step();

    QCOMPARE(bus(), on);
}

void TestFrmScanEnabling::Bus_ConnectionWithoutBus_StaysOff()
{
    ScanFixture f;
    f.Nodes[3] = "North";
    f.ShowScan("Gamma");

    f.Start(3, 3);
    f.WalkToTheEnd();

    QCOMPARE(f.Enabled(), "save all select close");
    QVERIFY(f.Find<QWidget>("fraBusSelection").isEnabled());
    QVERIFY(!f.Button("cmdScanBus").isEnabled());
    QVERIFY(!f.Find<QWidget>("lblSelectedBus").isEnabled());
}

void TestFrmScanEnabling::Refused_Start_ChangesNothing()
{
    ScanFixture f;
    f.ShowScan();
    f.Start(3, 9);
    f.Click("cmdStartStop");
    f.Step();
    const QString before = f.Enabled();

    f.Start(9, 3);

    QCOMPARE(f.Enabled(), before);
}

QTEST_MAIN(TestFrmScanEnabling)
#include "TestFrmScanEnabling.moc"
