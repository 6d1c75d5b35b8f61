#include "model/WpData.h"
#include "platform/IndexError.h"

#include <QTest>

class TestWpData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Construction_Gives_EmptyTable();
    void SetWpParam_Cell_IsReadBack();
    void WpParams_Cursor_ReadsAndWritesItsCell();
    void Index_OutsideTable_RaisesAndChangesNothing_data();
    void Index_OutsideTable_RaisesAndChangesNothing();
    void ByName_SearchColumnOutside_Raises();
    void ByName_NoRowsInUse_GivesFalse();
    void SetWpParamByName_RowAboveCount_IsNotFound();
    void SetWpParamByName_TwoRowsSameKeyword_WritesLowerRow();
    void SetWpParamByName_OtherCase_IsNotFound();
    void GetWpParamByNameEx_LongName_GivesValue();
    void GetWpParamByNameEx_Missing_LeavesValue();
    void SetWpParamByNameEx_LongName_WritesColumnTwoOnly();
    void GetSetParameterCount_BlanksAlone_DoNotCount();
    void ClearTable_Used_EmptiesCellsAndCount();
    void WpShortName_IsCarried();
};

/// Rows of keyword, value and long name, all in use.
static WpData WaypointWithRows(const QList<QStringList>& rows)
{
    WpData waypoint;
    for (int row = 1; row <= rows.size(); ++row) {
        waypoint.SetWpParam(row, 1, rows[row - 1].value(0));
        waypoint.SetWpParam(row, 2, rows[row - 1].value(1));
        waypoint.SetWpParam(row, 4, rows[row - 1].value(2));
    }
    waypoint.SetWpParamCount(static_cast<int>(rows.size()));
    return waypoint;
}

void TestWpData::Construction_Gives_EmptyTable()
{
    const WpData waypoint;

    QCOMPARE(waypoint.WpParamCount(), 0);
    QCOMPARE(waypoint.Row(), 0);
    QCOMPARE(waypoint.Col(), 0);
    for (int row = 1; row <= WpData::RowCount; ++row) {
        for (int column = 1; column <= WpData::ColumnCount; ++column)
            QVERIFY(waypoint.GetWpParam(row, column).isEmpty());
    }
}

void TestWpData::SetWpParam_Cell_IsReadBack()
{
    WpData waypoint;

    waypoint.SetWpParam(10, 6, "2000");

    QCOMPARE(waypoint.GetWpParam(10, 6), QStringLiteral("2000"));
    QCOMPARE(waypoint.WpParamCount(), 0);
}

void TestWpData::WpParams_Cursor_ReadsAndWritesItsCell()
{
    WpData waypoint;
    waypoint.SetRow(3);
    waypoint.SetCol(2);

    waypoint.SetWpParams("17");

    QCOMPARE(waypoint.WpParams(), QStringLiteral("17"));
    QCOMPARE(waypoint.GetWpParam(3, 2), QStringLiteral("17"));
    QCOMPARE(waypoint.Row(), 3);
    QCOMPARE(waypoint.Col(), 2);
}

void TestWpData::Index_OutsideTable_RaisesAndChangesNothing_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::newRow("row 0") << 0 << 1;
    QTest::newRow("row 11") << 11 << 1;
    QTest::newRow("row -1") << -1 << 1;
    QTest::newRow("column 0") << 1 << 0;
    QTest::newRow("column 7") << 1 << 7;
}

void TestWpData::Index_OutsideTable_RaisesAndChangesNothing()
{
    QFETCH(int, row);
    QFETCH(int, column);
    WpData waypoint;
    waypoint.SetRow(row);
    waypoint.SetCol(column);

    QVERIFY_EXCEPTION_THROWN(waypoint.SetWpParam(row, column, "x"), IndexError);
    QVERIFY_EXCEPTION_THROWN(waypoint.SetWpParams("x"), IndexError);
    QVERIFY_EXCEPTION_THROWN((void)waypoint.GetWpParam(row, column), IndexError);
    QVERIFY_EXCEPTION_THROWN((void)waypoint.WpParams(), IndexError);

    for (int i = 1; i <= WpData::RowCount; ++i) {
        for (int j = 1; j <= WpData::ColumnCount; ++j)
            QVERIFY(waypoint.GetWpParam(i, j).isEmpty());
    }
}

void TestWpData::ByName_SearchColumnOutside_Raises()
{
    WpData waypoint = WaypointWithRows({{"ADDR", "1"}});
    QString value;

    QVERIFY_EXCEPTION_THROWN((void)waypoint.GetWpParamByNameEx("ADDR", value, 7), IndexError);
    QVERIFY_EXCEPTION_THROWN(waypoint.SetWpParamByNameEx("ADDR", "2", 0), IndexError);
    QCOMPARE(waypoint.GetWpParam(1, 2), QStringLiteral("1"));
}

void TestWpData::ByName_NoRowsInUse_GivesFalse()
{
    WpData waypoint = WaypointWithRows({{"ADDR", "1", "ADDRESS"}});
    waypoint.SetWpParamCount(0);
    QString value = "as it was";

    QVERIFY(!waypoint.SetWpParamByName("ADDR", "2"));
    QVERIFY(!waypoint.GetWpParamByNameEx("ADDRESS", value, 4));
    QVERIFY(!waypoint.SetWpParamByNameEx("ADDRESS", "2", 4));
    QCOMPARE(value, QStringLiteral("as it was"));
    QCOMPARE(waypoint.GetWpParam(1, 2), QStringLiteral("1"));
}

void TestWpData::SetWpParamByName_RowAboveCount_IsNotFound()
{
    WpData waypoint = WaypointWithRows({{"ADDR", "1"}, {"ID", "2"}});
    waypoint.SetWpParamCount(1);

    QVERIFY(!waypoint.SetWpParamByName("ID", "3"));
    QCOMPARE(waypoint.GetWpParam(2, 2), QStringLiteral("2"));
}

void TestWpData::SetWpParamByName_TwoRowsSameKeyword_WritesLowerRow()
{
    WpData waypoint = WaypointWithRows({{"ADDR", "1"}, {"ADDR", "2"}});

    QVERIFY(waypoint.SetWpParamByName("ADDR", "17"));

    QCOMPARE(waypoint.GetWpParam(1, 2), QStringLiteral("17"));
    QCOMPARE(waypoint.GetWpParam(2, 2), QStringLiteral("2"));
}

void TestWpData::SetWpParamByName_OtherCase_IsNotFound()
{
    WpData waypoint = WaypointWithRows({{"ADDR", "1"}});

    QVERIFY(!waypoint.SetWpParamByName("addr", "17"));
    QVERIFY(!waypoint.SetWpParamByName("ADD", "17"));
    QCOMPARE(waypoint.GetWpParam(1, 2), QStringLiteral("1"));
}

void TestWpData::GetWpParamByNameEx_LongName_GivesValue()
{
    const WpData waypoint = WaypointWithRows({{"ADDR", "1", "ADDRESS"}, {"TIME", "500", "TIME OUT"}});
    QString value;

    QVERIFY(waypoint.GetWpParamByNameEx("TIME OUT", value, 4));

    QCOMPARE(value, QStringLiteral("500"));
}

void TestWpData::GetWpParamByNameEx_Missing_LeavesValue()
{
    const WpData waypoint = WaypointWithRows({{"ADDR", "1", "ADDRESS"}});
    QString value = "as it was";

    QVERIFY(!waypoint.GetWpParamByNameEx("Address", value, 4));
    QVERIFY(!waypoint.GetWpParamByNameEx("ADDR", value, 4));

    QCOMPARE(value, QStringLiteral("as it was"));
}

void TestWpData::SetWpParamByNameEx_LongName_WritesColumnTwoOnly()
{
    WpData waypoint = WaypointWithRows({{"ADDR", "1", "ADDRESS"}});
    waypoint.SetWpParam(1, 3, "saved");

    QVERIFY(waypoint.SetWpParamByNameEx("ADDRESS", "9", 4));

    QCOMPARE(waypoint.GetWpParam(1, 1), QStringLiteral("ADDR"));
    QCOMPARE(waypoint.GetWpParam(1, 2), QStringLiteral("9"));
    QCOMPARE(waypoint.GetWpParam(1, 3), QStringLiteral("saved"));
    QCOMPARE(waypoint.GetWpParam(1, 4), QStringLiteral("ADDRESS"));
}

void TestWpData::GetSetParameterCount_BlanksAlone_DoNotCount()
{
    WpData waypoint = WaypointWithRows({{"A", "1"}, {"B", ""}, {"C", "   "}, {"D", " x "}, {"E", "1"}});
    waypoint.SetWpParamCount(4);

    QCOMPARE(waypoint.GetSetParameterCount(), 2);
}

void TestWpData::ClearTable_Used_EmptiesCellsAndCount()
{
    WpData waypoint = WaypointWithRows({{"A", "1", "LONG"}});
    waypoint.SetWpParam(10, 6, "x");

    waypoint.ClearTable();

    QCOMPARE(waypoint.WpParamCount(), 0);
    QVERIFY(waypoint.GetWpParam(1, 1).isEmpty());
    QVERIFY(waypoint.GetWpParam(1, 4).isEmpty());
    QVERIFY(waypoint.GetWpParam(10, 6).isEmpty());
}

void TestWpData::WpShortName_IsCarried()
{
    WpData waypoint;
    waypoint.SetWpShortName("NET4");

    QCOMPARE(waypoint.WpShortName(), QStringLiteral("NET4"));
}

QTEST_GUILESS_MAIN(TestWpData)
#include "TestWpData.moc"
