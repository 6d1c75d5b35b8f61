#include "tests/scan/ScanFixture.h"

#include <QTest>

/// Taking a found node to the Direct tab.
class TestFrmScanSelect : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Select_FoundNode_FillsTheConnectionAndCloses();
    void Select_UnknownNodeType_TellsAndGoesOn();
    void Select_Nothing_TellsSo_data();
    void Select_Nothing_TellsSo();
    void Select_WhileScanning_DoesNothing();
    void Select_StopRequested_EndsTheScan();
    void Select_FormGoneUnderTheMessage_Ends();
};

namespace {

/// A finished scan with nodes at 3 and 17.
void ScanTwo(ScanFixture& f)
{
    f.Nodes = {{3, "North"}, {17, "South"}};
    f.ShowScan();
    f.Start(3, 17);
    f.WalkToTheEnd();
}

} // namespace

void TestFrmScanSelect::Select_FoundNode_FillsTheConnectionAndCloses()
{
    ScanFixture f;
    ScanTwo(f);
    f.ClickRow(2);
    f.Box("txtTimingRetries").setText("5");
    f.Box("txtTimingTimeout").setText("700");
    f.Direct().NodeName = "Before";

    f.Click("cmdSelect");

    QVERIFY(!f.Form->isVisible());
    QVERIFY(f.Direct().SelectPressed);
    QCOMPARE(f.Direct().NodeTypeName, "NET4");
    QString id;
    QVERIFY(f.Gateway().GetNodeTypeIdDb("NET4", id));
    QCOMPARE(QString::number(f.Direct().NodeDbID), id);
    QCOMPARE(f.Direct().NodeAddress, "17");
    QCOMPARE(f.Direct().Retry, "5");
    QCOMPARE(f.Direct().Time, "700");
    QCOMPARE(f.Direct().NodeName, "Before");
    QVERIFY(f.Operator.Boxes.empty());
}

void TestFrmScanSelect::Select_UnknownNodeType_TellsAndGoesOn()
{
    ScanFixture f;
    ScanTwo(f);
    f.Direct().NodeDbID = 99;
    f.Component.Fail("GetNodeTypeId");

    f.Click("cmdSelect");

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Plain("Node type NET4 not found.")});
    QCOMPARE(f.Direct().NodeDbID, 0);
    QCOMPARE(f.Direct().NodeAddress, "3");
    QVERIFY(f.Direct().SelectPressed);
    QVERIFY(!f.Form->isVisible());
}

void TestFrmScanSelect::Select_Nothing_TellsSo_data()
{
    QTest::addColumn<int>("row");
    QTest::newRow("no row") << 0;
    QTest::newRow("blank row") << 5;
}

void TestFrmScanSelect::Select_Nothing_TellsSo()
{
    QFETCH(const int, row);
    ScanFixture f;
    ScanTwo(f);
    f.Grid().SelectGridRow(static_cast<qint16>(row));

    f.Click("cmdSelect");

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Plain("Nothing selected.")});
    QVERIFY(f.Form->isVisible());
    QVERIFY(!f.Direct().SelectPressed);
    QCOMPARE(f.Direct().NodeAddress, QString());
}

void TestFrmScanSelect::Select_WhileScanning_DoesNothing()
{
    ScanFixture f;
    f.Nodes[3] = "North";
    f.ShowScan();
    f.Start(3, 9);
    f.ClickRow(1);

    f.Click("cmdSelect");

    QVERIFY(f.Form->isVisible());
    QVERIFY(!f.Direct().SelectPressed);
    QCOMPARE(f.State(), "Stop");
}

void TestFrmScanSelect::Select_StopRequested_EndsTheScan()
{
    ScanFixture f;
    f.Nodes[3] = "North";
    f.ShowScan();
    f.Start(3, 9);
    f.ClickRow(1);
    f.Click("cmdStartStop");

    f.Click("cmdSelect");

    QVERIFY(!f.Form->isVisible());
    QCOMPARE(f.Direct().NodeAddress, "3");
    QVERIFY(f.IsReleased());
}

void TestFrmScanSelect::Select_FormGoneUnderTheMessage_Ends()
{
    ScanFixture f;
    ScanTwo(f);
    f.Component.Fail("GetNodeTypeId");
    f.Operator.WhileOpen = [&](const RecordedBox&) { f.Form.reset(); };

    f.Click("cmdSelect");

    QVERIFY(!f.Form);
    QVERIFY(!f.Direct().SelectPressed);
}

QTEST_MAIN(TestFrmScanSelect)
#include "TestFrmScanSelect.moc"
