#include "tests/dialogs/ConPropFixture.h"
#include "tests/dialogs/WaypointOperator.h"

#include <QPointer>
#include <QTest>
#include <QTimer>

namespace {

const QString SelectFirst = QStringLiteral("Select connection part name or parameter from the listbox.");

} // namespace

/// The definition list of the connection dialog, and the waypoint dialog behind it.
class TestFrmDatabaseConPropList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void List_ParametersHidden_ShowsWaypoints();
    void List_ParametersShown_ShowsValuesAndMarkers();
    void List_MiddleWaypoint_LeavesOutTheSharedRows();
    void List_Password_IsMasked();
    void List_Resized_ColumnsFollow();
    void ShowParameters_Twice_IsAsBefore();
    void Properties_NothingSelected_Tells_data();
    void Properties_NothingSelected_Tells();
    void Properties_Row_OpensItsWaypoint_data();
    void Properties_Row_OpensItsWaypoint();
    void Properties_Row_GoesIntoTheConnection();
    void Properties_EachWay_OpensTheWaypoint_data();
    void Properties_EachWay_OpensTheWaypoint();
    void Properties_Ok_ShowsTheNewValue();
    void Properties_SharedValue_ShowsInAllWaypoints();
    void Properties_Closed_SelectsTheRowAgain();
    void Properties_CancelledDialog_KeepsTheChangeInTheConnection();
    void Properties_FormGoesMeanwhile_EndsQuietly();
};

void TestFrmDatabaseConPropList::List_ParametersHidden_ShowsWaypoints()
{
    ConPropFixture fixture;
    fixture.Edit("Beta");

    const QStringList rows{"TCP/IP Socket", "T4 Bus", "Options"};
    QCOMPARE(fixture.Rows(), rows);
    QCOMPARE(fixture.List().columnCount(), 1);
    QCOMPARE(fixture.List().headerItem()->text(0), "Connection Definition");
    QCOMPARE(fixture.List().columnWidth(0), fixture.List().viewport()->width());
    fixture.ClickRow(2);
    QCOMPARE(fixture.List().SelectedKey(), " 2_1");
}

void TestFrmDatabaseConPropList::List_ParametersShown_ShowsValuesAndMarkers()
{
    ConPropFixture fixture;
    fixture.AddStored("Serial", "WP=COM,PORT=1,BAUD=1200");
    fixture.Edit("Serial");

    fixture.ShowParameters();

    const QStringList rows{"Serial Port||",      "     COM PORT|1|M/D",  "     BAUD RATE|1200|",
                           "     PARITY|EVEN|D", "     TIME OUT|2000|D", "     RETRY COUNT|2|D",
                           "Options||",          "     PROTOCOL|T4DT|D", "     DATA TYPE|TEXT|D",
                           "     VERIFY|YES|D"};
    QCOMPARE(fixture.Rows(), rows);
    QCOMPARE(fixture.List().headerItem()->text(1), "Value");
    QCOMPARE(fixture.List().headerItem()->text(2), "M/D");
    QVERIFY(fixture.List().topLevelItem(0)->font(0).bold());
    QVERIFY(!fixture.List().topLevelItem(1)->font(0).bold());
    fixture.ClickRow(3);
    QCOMPARE(fixture.List().SelectedKey(), " 1_ 2");
    fixture.ClickRow(7);
    QCOMPARE(fixture.List().SelectedKey(), " 2_01");
}

void TestFrmDatabaseConPropList::List_MiddleWaypoint_LeavesOutTheSharedRows()
{
    ConPropFixture fixture;
    fixture.Edit("Beta");

    fixture.ShowParameters();

    const QStringList middle{"T4 Bus||", "     BUS NUMBER|7|M", "     BUS SPEED|9600|D", "Options||"};
    QCOMPARE(fixture.Rows().mid(6, 4), middle);
}

void TestFrmDatabaseConPropList::List_Password_IsMasked()
{
    ConPropFixture fixture;
    fixture.AddStored("Dialled", "WP=MODEM,PHONE=123,PSW=secret,WP=BUST4,ID=4");
    fixture.Edit("Dialled");

    fixture.ShowParameters();

    QVERIFY(fixture.Rows().contains("     PASSWORD|******|M"));
    QVERIFY(!fixture.Rows().join(u' ').contains("secret"));
}

void TestFrmDatabaseConPropList::List_Resized_ColumnsFollow()
{
    ConPropFixture fixture;
    fixture.Edit("Beta");
    fixture.ShowParameters();

    fixture.Form->resize(1000, 700);

    const DefinitionListView& list = fixture.List();
    const auto share = [&](int part) { return qRound(part / 70.0 * list.viewport()->width()); };
    QTRY_COMPARE(list.columnWidth(0), share(45));
    QCOMPARE(list.columnWidth(1), share(19));
    QCOMPARE(list.columnWidth(0) + list.columnWidth(1) + list.columnWidth(2), list.viewport()->width());
}

void TestFrmDatabaseConPropList::ShowParameters_Twice_IsAsBefore()
{
    ConPropFixture fixture;
    fixture.Edit("Beta");
    fixture.Forget();
    const QStringList before = fixture.Rows();

    fixture.ShowParameters();
    QCOMPARE(fixture.Rows().size(), 13);
    fixture.ShowParameters();

    QCOMPARE(fixture.Rows(), before);
    QCOMPARE(fixture.List().columnCount(), 1);
    QCOMPARE(fixture.TakeReads(), QStringList());
}

void TestFrmDatabaseConPropList::Properties_NothingSelected_Tells_data()
{
    QTest::addColumn<bool>("byKey");

    QTest::newRow("button") << false;
    QTest::newRow("Enter") << true;
}

void TestFrmDatabaseConPropList::Properties_NothingSelected_Tells()
{
    QFETCH(bool, byKey);
    ConPropFixture fixture;
    fixture.Edit("Beta");
    const WaypointOperator waypoint;

    if (byKey)
        QTest::keyClick(&fixture.List(), Qt::Key_Return);
    else
        fixture.Click("cmdProperties");

    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Plain(SelectFirst)});
    QVERIFY(waypoint.Seen.isEmpty());
    QCOMPARE(fixture.Con().SelectedWpIndx, 0);
}

void TestFrmDatabaseConPropList::Properties_Row_OpensItsWaypoint_data()
{
    QTest::addColumn<bool>("showParameters");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("header");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("openRow");

    QTest::newRow("first waypoint") << false << 1 << "TCP/IP Socket Parameters" << 5 << 1;
    QTest::newRow("middle waypoint") << false << 2 << "T4 Bus Parameters" << 2 << 1;
    QTest::newRow("last waypoint") << false << 3 << "Options Parameters" << 3 << 1;
    QTest::newRow("waypoint among parameters") << true << 7 << "T4 Bus Parameters" << 2 << 1;
    QTest::newRow("parameter of the first") << true << 4 << "TCP/IP Socket Parameters" << 5 << 3;
    QTest::newRow("parameter of the middle") << true << 9 << "T4 Bus Parameters" << 2 << 2;
    QTest::newRow("parameter of the last") << true << 12 << "Options Parameters" << 3 << 2;
}

void TestFrmDatabaseConPropList::Properties_Row_OpensItsWaypoint()
{
    QFETCH(bool, showParameters);
    QFETCH(int, row);
    QFETCH(QString, header);
    QFETCH(int, rows);
    QFETCH(int, openRow);
    ConPropFixture fixture;
    fixture.Edit("Beta");
    if (showParameters)
        fixture.ShowParameters();
    fixture.ClickRow(row);
    const WaypointOperator waypoint;

    fixture.Click("cmdProperties");

    QCOMPARE(waypoint.Seen, QStringList{SeenWaypoint(header, rows, openRow)});
    QCOMPARE(fixture.List().SelectedRow(), row);
    QVERIFY(fixture.Operator.Boxes.empty());
}

void TestFrmDatabaseConPropList::Properties_Row_GoesIntoTheConnection()
{
    ConPropFixture fixture;
    fixture.Edit("Beta");
    fixture.ShowParameters();

    const auto open = [&](int row) {
        fixture.ClickRow(row);
        const WaypointOperator waypoint;
        fixture.Click("cmdProperties");
        return QList<int>{fixture.Con().SelectedWpIndx, Dialogs().SelectedWpIndex,
                          fixture.Con().ReduceParameterCount};
    };

    QCOMPARE(open(1), QList<int>({1, 1, 0}));
    QCOMPARE(open(5), QList<int>({1, 4, 0}));
    QCOMPARE(open(7), QList<int>({2, 1, 2}));
    QCOMPARE(open(9), QList<int>({2, 2, 2}));
    QCOMPARE(open(10), QList<int>({3, 1, 0}));
}

void TestFrmDatabaseConPropList::Properties_EachWay_OpensTheWaypoint_data()
{
    QTest::addColumn<QString>("way");

    for (const char* way : {"button", "access key", "double click", "Return", "Enter"})
        QTest::newRow(way) << QString::fromLatin1(way);
}

void TestFrmDatabaseConPropList::Properties_EachWay_OpensTheWaypoint()
{
    QFETCH(QString, way);
    ConPropFixture fixture;
    fixture.Edit("Beta");
    fixture.ClickRow(2);
    fixture.Forget();
    const WaypointOperator waypoint;

    if (way == "button")
        fixture.Click("cmdProperties");
    else if (way == "access key")
        QTest::keyClick(&fixture.List(), Qt::Key_P, Qt::AltModifier);
    else if (way == "double click")
        QTest::mouseDClick(fixture.List().viewport(), Qt::LeftButton, {}, fixture.RowCenter(2));
    else
        QTest::keyClick(&fixture.List(), way == "Return" ? Qt::Key_Return : Qt::Key_Enter);

    QTRY_COMPARE(waypoint.Seen, QStringList{SeenWaypoint("T4 Bus Parameters", 2, 1)});
    QCOMPARE(fixture.Component.Count("ReplaceParentTarget"), 0);
    QVERIFY(fixture.Form->isVisible());
}

void TestFrmDatabaseConPropList::Properties_Ok_ShowsTheNewValue()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.ShowParameters();
    fixture.ClickRow(2);
    const WaypointOperator waypoint("CmdOk", "321");

    fixture.Click("cmdProperties");

    QCOMPARE(fixture.Con().GetWpData(1).GetWpParam(1, 2), "321");
    QCOMPARE(fixture.Rows()[1], "     BUS NUMBER|321|M");
    QCOMPARE(fixture.List().SelectedRow(), 2);
}

void TestFrmDatabaseConPropList::Properties_SharedValue_ShowsInAllWaypoints()
{
    ConPropFixture fixture;
    Model().TimeRetryNames = {"TIME OUT", "RETRY COUNT"};
    fixture.AddStored("Both", "WP=SOCKET,HOST=h,PORT=1,TIME=2000,WP=BUST4,ID=1,TIME=2000,WP=OPT,PR=T4DT");
    fixture.Edit("Both");
    fixture.ShowParameters();
    fixture.ClickRow(5);
    const WaypointOperator waypoint("CmdOk", "777");

    fixture.Click("cmdProperties");

    QCOMPARE(fixture.Rows()[4], "     TIME OUT|777|");
    QCOMPARE(fixture.Con().GetWpData(2).GetWpParam(3, 2), "777");
}

void TestFrmDatabaseConPropList::Properties_Closed_SelectsTheRowAgain()
{
    ConPropFixture fixture;
    fixture.Edit("Beta");
    fixture.ShowParameters();
    fixture.ClickRow(9);
    const WaypointOperator waypoint;

    fixture.Click("cmdProperties");

    QCOMPARE(fixture.List().SelectedKey(), " 2_ 2");
    QVERIFY(fixture.List().viewport()->rect().contains(fixture.RowCenter(9)));
}

void TestFrmDatabaseConPropList::Properties_CancelledDialog_KeepsTheChangeInTheConnection()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.ShowParameters();
    fixture.ClickRow(2);
    const WaypointOperator waypoint("CmdOk", "321");
    fixture.Click("cmdProperties");

    fixture.Click("cmdCancel");

    QCOMPARE(fixture.Con().GetWpData(1).GetWpParam(1, 2), "321");
    QCOMPARE(fixture.Component.Store.Now.connections[0].target, SaveFixture::AlphaTarget);
}

void TestFrmDatabaseConPropList::Properties_FormGoesMeanwhile_EndsQuietly()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.ClickRow(1);
    const QPointer<QDialog> form = fixture.Form.get();
    QTimer::singleShot(0, this, [&] { fixture.Form.reset(); });

    QTest::keyClick(&fixture.List(), Qt::Key_Return);

    QVERIFY(!form);
    QVERIFY(fixture.Operator.Boxes.empty());
}

QTEST_MAIN(TestFrmDatabaseConPropList)
#include "TestFrmDatabaseConPropList.moc"
