#include "model/ModelState.h"
#include "tests/model/WaypointRows.h"

#include <QTest>

/// Values that hold for a whole connection.
class TestConDataShared : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Model().TimeRetryNames = {QStringLiteral("TIME OUT"), QStringLiteral("RETRY COUNT")}; }
    void cleanup() { Model().TimeRetryNames = {}; }

    void UpdateShared_TimeOutOfFirst_ReachesTheOthers();
    void UpdateShared_AnyCase_Spreads_data();
    void UpdateShared_AnyCase_Spreads();
    void UpdateShared_OrdinaryName_IsNeverSpread();
    void UpdateShared_NamesChanged_FollowsTheTable();
    void UpdateShared_HiddenRows_AreWrittenToo();
    void UpdateShared_Spread_CountsAsSavedThere();
    void UpdateOthers_WaypointCount_Limits();
    void UpdateOthers_RowsBehindCount_StayAsTheyAre();
    void UpdateOthers_TwoRowsOfTheName_BothWritten();
    void UpdateOthers_DamagedCounts_TouchNothingOutside();
};

/// Three waypoints, each with an own row and the two shared ones.
static void FillThree(ConData& con)
{
    for (int i = 1; i <= 3; ++i) {
        FillWaypoint(
            con, i,
            {{"SPEED", "9600", "0", ""}, {"TIME OUT", "100", "0", ""}, {"RETRY COUNT", "1", "0", ""}});
    }
    con.ConWpCount = 3;
}

void TestConDataShared::UpdateShared_TimeOutOfFirst_ReachesTheOthers()
{
    ConData con;
    FillThree(con);

    con.UpdateSharedParameterValues(1, 3, "TIME OUT", "250");

    QCOMPARE(ColumnOf(con, 1, 2), (QStringList{"9600", "100", "1"}));
    QCOMPARE(ColumnOf(con, 1, 3), (QStringList{"saved", "saved", "saved"}));
    for (const int other : {2, 3}) {
        QCOMPARE(ColumnOf(con, other, 2), (QStringList{"9600", "250", "1"}));
        QCOMPARE(ColumnOf(con, other, 3), (QStringList{"saved", "250", "saved"}));
    }
}

void TestConDataShared::UpdateShared_AnyCase_Spreads_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("row");
    QTest::newRow("first") << "TIME OUT" << 2;
    QTest::newRow("second") << "RETRY COUNT" << 3;
    QTest::newRow("small letters") << "retry count" << 3;
}

void TestConDataShared::UpdateShared_AnyCase_Spreads()
{
    QFETCH(QString, name);
    QFETCH(int, row);
    ConData con;
    FillThree(con);

    con.UpdateSharedParameterValues(3, 3, name, "7");

    QCOMPARE(con.GetWpData(1).GetWpParam(row, 2), QStringLiteral("7"));
    QCOMPARE(con.GetWpData(2).GetWpParam(row, 2), QStringLiteral("7"));
    QVERIFY(con.GetWpData(3).GetWpParam(row, 2) != QLatin1String("7"));
}

void TestConDataShared::UpdateShared_OrdinaryName_IsNeverSpread()
{
    ConData con;
    FillThree(con);

    con.UpdateSharedParameterValues(1, 3, "SPEED", "1");
    con.UpdateSharedParameterValues(1, 3, "TIME OUT ", "1");

    for (int i = 1; i <= 3; ++i) {
        QCOMPARE(ColumnOf(con, i, 2), (QStringList{"9600", "100", "1"}));
        QCOMPARE(ColumnOf(con, i, 3), (QStringList{"saved", "saved", "saved"}));
    }
}

void TestConDataShared::UpdateShared_NamesChanged_FollowsTheTable()
{
    ConData con;
    FillThree(con);
    Model().TimeRetryNames = {QStringLiteral("SPEED"), QStringLiteral("RETRY COUNT")};

    con.UpdateSharedParameterValues(1, 3, "TIME OUT", "1");
    con.UpdateSharedParameterValues(1, 3, "SPEED", "2");

    QCOMPARE(ColumnOf(con, 2, 2), (QStringList{"2", "100", "1"}));
}

void TestConDataShared::UpdateShared_HiddenRows_AreWrittenToo()
{
    ConData con;
    FillThree(con);
    con.ReduceParameterCount = 2;

    con.UpdateSharedParameterValues(1, 3, "TIME OUT", "250");

    QCOMPARE(con.GetWpData(2).GetWpParam(2, 2), QStringLiteral("250"));
}

void TestConDataShared::UpdateShared_Spread_CountsAsSavedThere()
{
    ConData con;
    FillThree(con);
    con.SetParamCopy();

    con.UpdateSharedParameterValues(1, 3, "TIME OUT", "250");
    QVERIFY(!con.ParamValuesChanged());

    con.SetWpDataItem(1, 2, 2, "250");
    QVERIFY(con.ParamValuesChanged());
}

void TestConDataShared::UpdateOthers_WaypointCount_Limits()
{
    ConData con;
    FillThree(con);

    con.UpdateOtherWaypoints(1, 2, "SPEED", "1");

    QCOMPARE(con.GetWpData(2).GetWpParam(1, 2), QStringLiteral("1"));
    QCOMPARE(con.GetWpData(3).GetWpParam(1, 2), QStringLiteral("9600"));
}

void TestConDataShared::UpdateOthers_RowsBehindCount_StayAsTheyAre()
{
    ConData con;
    FillThree(con);
    con.GetWpData(2).SetWpParamCount(1);

    con.UpdateOtherWaypoints(1, 3, "TIME OUT", "250");

    QCOMPARE(con.GetWpData(2).GetWpParam(2, 2), QStringLiteral("100"));
}

void TestConDataShared::UpdateOthers_TwoRowsOfTheName_BothWritten()
{
    ConData con;
    FillWaypoint(con, 2, {{"TIME OUT", "1", "0", ""}, {"Time Out", "2", "0", ""}});

    con.UpdateOtherWaypoints(1, 2, "TIME OUT", "250");

    QCOMPARE(ColumnOf(con, 2, 2), (QStringList{"250", "250"}));
}

void TestConDataShared::UpdateOthers_DamagedCounts_TouchNothingOutside()
{
    ConData con;
    FillThree(con);
    con.GetWpData(2).SetWpParamCount(12);
    con.GetWpData(3).SetWpParamCount(-1);

    con.UpdateOtherWaypoints(1, 15, "TIME OUT", "250");

    QCOMPARE(con.GetWpData(2).GetWpParam(2, 2), QStringLiteral("250"));
    QCOMPARE(con.GetWpData(3).GetWpParam(2, 2), QStringLiteral("100"));
}

QTEST_GUILESS_MAIN(TestConDataShared)
#include "TestConDataShared.moc"
