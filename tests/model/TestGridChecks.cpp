#include "model/GridChecks.h"
#include "model/GridTexts.h"
#include "model/ParameterLists.h"
#include "platform/IndexError.h"
#include "tests/model/WaypointRows.h"

#include <QTest>

/// What the values of one waypoint must fulfil.
class TestGridChecks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void CheckGridValues_Rows_data();
    void CheckGridValues_Rows();
    void CheckGridValues_GridDiffersFromTable_CellsCount();
    void CheckGridValues_TwoFailures_FirstRowDecides_data();
    void CheckGridValues_TwoFailures_FirstRowDecides();
    void CheckGridValues_ReducedCount_RowsBehindAreNotSeen();
    void CheckGridValues_Password_MustBeHeld_data();
    void CheckGridValues_Password_MustBeHeld();
    void CheckGridValues_Failure_ChangesNothing();
    void CheckGridValues_NoRows_PassesWithoutWaypoint();
    void CheckGridValues_CountAboveTable_ChecksTheTable();
    void CheckGridValues_SelectedWaypoint_IsTheOneChecked();

    void CheckGroupMember_Rows_data();
    void CheckGroupMember_Rows();
    void CheckGroupMember_NoWaypoint_Raises();
    void CheckWpMandatory_Rows_data();
    void CheckWpMandatory_Rows();
    void CheckWpMandatory_RowsBehindCount_AreNotSeen();
    void GridRefusalText_EachFailure_NamesIt();
    void ReducedParameterCount_BetweenTheEnds_IsTwo();
    void ShownParameterCount_Counts_data();
    void ShownParameterCount_Counts();
};

using Rows = QList<QPair<QString, QString>>;
Q_DECLARE_METATYPE(Rows)

/// Selected waypoint 1 with rows of digit and value.
static void FillClasses(ConData& con, const Rows& rows)
{
    QList<ParameterRow> parameters;
    for (const auto& [digit, value] : rows)
        parameters << ParameterRow{QStringLiteral("P%1").arg(parameters.size() + 1), value, digit, QString()};
    FillWaypoint(con, 1, parameters);
    con.SelectedWpIndx = 1;
}

static void ShowInGrid(GridTexts& grid, const ConData& con)
{
    ShowWpRows(grid, con, con.SelectedWpIndx, con.GetWpData(con.SelectedWpIndx).WpParamCount());
}

void TestGridChecks::CheckGridValues_Rows_data()
{
    QTest::addColumn<Rows>("rows");
    QTest::addColumn<bool>("passes");
    QTest::addColumn<bool>("exclusive");
    const auto row = [](const char* name, const Rows& rows, bool passes, bool exclusive) {
        QTest::newRow(name) << rows << passes << exclusive;
    };
    row("nothing", {}, true, false);
    row("optional, empty", {{"0", ""}, {"", ""}, {" ", ""}}, true, false);
    row("mandatory with value", {{"1", "x"}}, true, false);
    row("mandatory, empty", {{"1", ""}}, false, false);
    row("mandatory, blanks", {{"1", "  "}}, false, false);
    row("mandatory, blanks around the digit", {{" 1 ", ""}}, false, false);
    row("mandatory, trailing text", {{"1x", ""}}, false, false);
    row("no digit, trailing text", {{"x1", ""}}, true, false);
    row("group of three, one value", {{"2", ""}, {"2", "x"}, {"2", ""}}, true, false);
    row("group of three, last value", {{"2", ""}, {"2", ""}, {"2", "x"}}, true, false);
    row("group of three, no value", {{"2", ""}, {"2", ""}, {"2", ""}}, false, true);
    row("group of three, two values", {{"2", "x"}, {"2", ""}, {"2", "y"}}, false, true);
    row("group of three, blanks are no value", {{"2", " "}, {"2", "x"}, {"2", "  "}}, true, false);
    row("group of one, empty", {{"5", ""}}, false, true);
    row("group of one, value", {{"5", "x"}}, true, false);
    row("two groups, one value each", {{"2", "x"}, {"3", ""}, {"2", ""}, {"3", "y"}}, true, false);
    row("two groups, one without", {{"2", "x"}, {"3", ""}, {"2", ""}, {"3", ""}}, false, true);
    row("group compared by number", {{"2", "x"}, {"2 b", "y"}}, false, true);
    row("mandatory is no member", {{"1", "x"}, {"2", "y"}}, true, false);
}

void TestGridChecks::CheckGridValues_Rows()
{
    QFETCH(Rows, rows);
    QFETCH(bool, passes);
    QFETCH(bool, exclusive);
    ConData con;
    GridTexts grid;
    FillClasses(con, rows);
    ShowInGrid(grid, con);
    bool exclusiveFailure = !exclusive;

    QCOMPARE(ValidateWpGrid(con, grid, int(rows.size()), exclusiveFailure), passes);
    QCOMPARE(exclusiveFailure, exclusive);
}

void TestGridChecks::CheckGridValues_GridDiffersFromTable_CellsCount()
{
    ConData con;
    GridTexts grid;
    bool exclusiveFailure = false;
    FillClasses(con, {{"1", ""}});
    con.SetWpDataItem(1, 1, 6, "preset");
    ShowInGrid(grid, con);

    QVERIFY2(CheckGridValues(con, grid, 1, exclusiveFailure), "the default stands in the cell");

    con.SetWpDataItem(1, 1, 2, "value");
    grid.MoveTo(1, ParameterGrid::ValueColumn);
    grid.SetText("");
    QVERIFY(!CheckGridValues(con, grid, 1, exclusiveFailure));
}

void TestGridChecks::CheckGridValues_TwoFailures_FirstRowDecides_data()
{
    QTest::addColumn<Rows>("rows");
    QTest::addColumn<bool>("exclusive");
    QTest::newRow("mandatory first") << Rows{{"1", ""}, {"2", ""}} << false;
    QTest::newRow("group first") << Rows{{"2", ""}, {"1", ""}} << true;
}

void TestGridChecks::CheckGridValues_TwoFailures_FirstRowDecides()
{
    QFETCH(Rows, rows);
    QFETCH(bool, exclusive);
    ConData con;
    GridTexts grid;
    FillClasses(con, rows);
    ShowInGrid(grid, con);
    bool exclusiveFailure = !exclusive;

    QVERIFY(!CheckGridValues(con, grid, 2, exclusiveFailure));
    QCOMPARE(exclusiveFailure, exclusive);
}

void TestGridChecks::CheckGridValues_ReducedCount_RowsBehindAreNotSeen()
{
    ConData con;
    GridTexts grid;
    FillClasses(con, {{"2", "x"}, {"2", ""}, {"2", "y"}, {"1", ""}});
    ShowInGrid(grid, con);
    bool exclusiveFailure = false;

    QVERIFY(CheckGridValues(con, grid, ShownParameterCount(con.GetWpData(1), 2), exclusiveFailure));
    QVERIFY(!CheckGridValues(con, grid, 3, exclusiveFailure));
}

void TestGridChecks::CheckGridValues_Password_MustBeHeld_data()
{
    QTest::addColumn<QString>("longName");
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("digit");
    QTest::addColumn<bool>("passes");
    QTest::newRow("optional, held") << "PASSWORD"
                                    << "secret"
                                    << "0" << true;
    QTest::newRow("optional, missing") << "PASSWORD" << QString() << "0" << false;
    QTest::newRow("mandatory, missing: the password's check comes first")
        << "PASSWORD" << QString() << "1" << false;
    QTest::newRow("blanks") << "PASSWORD"
                            << " "
                            << "0" << true;
    QTest::newRow("other case") << "Password" << QString() << "0" << true;
    QTest::newRow("part of a name") << "PASSWORD 2" << QString() << "0" << true;
}

void TestGridChecks::CheckGridValues_Password_MustBeHeld()
{
    QFETCH(QString, longName);
    QFETCH(QString, password);
    QFETCH(QString, digit);
    QFETCH(bool, passes);
    ConData con;
    GridTexts grid;
    FillWaypoint(con, 1, {{longName, password, digit, ""}});
    con.SelectedWpIndx = 1;
    ShowInGrid(grid, con);
    bool exclusiveFailure = passes;

    QCOMPARE(CheckGridValues(con, grid, 1, exclusiveFailure), passes);
    QCOMPARE(exclusiveFailure, !passes);
}

void TestGridChecks::CheckGridValues_Failure_ChangesNothing()
{
    ConData con;
    GridTexts grid;
    FillClasses(con, {{"2", "x"}, {"2", "y"}, {"1", ""}});
    ShowInGrid(grid, con);
    bool exclusiveFailure = false;

    QVERIFY(!CheckGridValues(con, grid, 3, exclusiveFailure));

    QCOMPARE(ColumnOf(con, 1, 2), (QStringList{"x", "y", ""}));
    QCOMPARE(ColumnOf(con, 1, 3), (QStringList{"saved", "saved", "saved"}));
    QCOMPARE(grid.At(1, 1).text, QStringLiteral("x"));
    QCOMPARE(grid.At(2, 1).text, QStringLiteral("y"));
}

void TestGridChecks::CheckGridValues_NoRows_PassesWithoutWaypoint()
{
    ConData con;
    GridTexts grid;
    bool exclusiveFailure = true;

    QVERIFY(CheckGridValues(con, grid, 0, exclusiveFailure));
    QVERIFY(!exclusiveFailure);
    QVERIFY(CheckGridValues(con, grid, -2, exclusiveFailure));
}

void TestGridChecks::CheckGridValues_CountAboveTable_ChecksTheTable()
{
    ConData con;
    GridTexts grid;
    bool exclusiveFailure = false;
    FillClasses(con, Rows(10, {"1", "x"}));
    ShowInGrid(grid, con);
    QVERIFY(CheckGridValues(con, grid, 40, exclusiveFailure));

    grid.MoveTo(10, ParameterGrid::ValueColumn);
    grid.SetText("");
    QVERIFY(!CheckGridValues(con, grid, 40, exclusiveFailure));
}

void TestGridChecks::CheckGridValues_SelectedWaypoint_IsTheOneChecked()
{
    ConData con;
    GridTexts grid;
    bool exclusiveFailure = false;
    FillClasses(con, {{"0", ""}});
    FillWaypoint(con, 2, {{"P", "", "1", ""}});
    ShowInGrid(grid, con);
    QVERIFY(CheckGridValues(con, grid, 1, exclusiveFailure));

    con.SelectedWpIndx = 2;
    QVERIFY(!CheckGridValues(con, grid, 1, exclusiveFailure));
}

void TestGridChecks::CheckGroupMember_Rows_data()
{
    QTest::addColumn<Rows>("rows");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("expected");
    const Rows rows = {{"2", "x"}, {"2", ""}, {"3", "y"}, {"1", "z"}, {"0", ""}, {"2", "v"}};
    QTest::newRow("own value does not count") << Rows{{"2", "x"}, {"2", ""}} << 1 << 2 << false;
    QTest::newRow("another's value") << rows << 2 << 6 << true;
    QTest::newRow("behind it") << rows << 1 << 6 << true;
    QTest::newRow("behind the count") << rows << 1 << 5 << false;
    QTest::newRow("another group's value") << rows << 3 << 6 << false;
    QTest::newRow("mandatory rows form no group") << Rows{{"1", "x"}, {"1", "y"}} << 1 << 2 << false;
    QTest::newRow("optional rows form no group") << Rows{{"0", "x"}, {"0", "y"}} << 1 << 2 << false;
    QTest::newRow("blanks are no value") << Rows{{"2", ""}, {"2", "  "}} << 1 << 2 << false;
}

void TestGridChecks::CheckGroupMember_Rows()
{
    QFETCH(Rows, rows);
    QFETCH(int, row);
    QFETCH(int, count);
    QFETCH(bool, expected);
    ConData con;
    GridTexts grid;
    FillClasses(con, rows);
    ShowInGrid(grid, con);

    QCOMPARE(ExclusiveGroupHasValue(con, grid, row, count), expected);
}

void TestGridChecks::CheckGroupMember_NoWaypoint_Raises()
{
    ConData con;
    GridTexts grid;

    QVERIFY_EXCEPTION_THROWN((void)CheckGroupMember(con, grid, 1, 1), IndexError);
}

void TestGridChecks::CheckWpMandatory_Rows_data()
{
    QTest::addColumn<Rows>("rows");
    QTest::addColumn<bool>("passes");
    QTest::newRow("nothing") << Rows{} << true;
    QTest::newRow("optional, empty") << Rows{{"0", ""}, {"", ""}} << true;
    QTest::newRow("mandatory with value") << Rows{{"1", "x"}} << true;
    QTest::newRow("mandatory, empty") << Rows{{"1", ""}} << false;
    QTest::newRow("blanks count") << Rows{{"1", "  "}} << true;
    QTest::newRow("member of a group, empty") << Rows{{"2", "x"}, {"2", ""}} << false;
    QTest::newRow("members of a group, both") << Rows{{"2", "x"}, {"2", "y"}} << true;
    QTest::newRow("last row") << Rows{{"1", "x"}, {"0", ""}, {"1", ""}} << false;
}

void TestGridChecks::CheckWpMandatory_Rows()
{
    QFETCH(Rows, rows);
    QFETCH(bool, passes);
    ConData con;
    FillClasses(con, rows);
    // A default is not a value here.
    for (int row = 1; row <= int(rows.size()); ++row)
        con.SetWpDataItem(1, row, 6, "preset");

    QCOMPARE(WpHasRequiredValues(con.GetWpData(1)), passes);
}

void TestGridChecks::CheckWpMandatory_RowsBehindCount_AreNotSeen()
{
    ConData con;
    FillClasses(con, {{"1", "x"}, {"1", ""}});

    con.GetWpData(1).SetWpParamCount(1);
    QVERIFY(CheckWpMandatory(con.GetWpData(1)));

    con.GetWpData(1).SetWpParamCount(12);
    QVERIFY(!CheckWpMandatory(con.GetWpData(1)));
}

void TestGridChecks::GridRefusalText_EachFailure_NamesIt()
{
    QCOMPARE(GridRefusalText(true), "Mandatory and mutually exclusive parameters are set incorrectly (check "
                                    "parameters with bold and italic font).");
    QCOMPARE(GridRefusalText(false),
             "Mandatory parameter without value (check parameter names with bold font).");
}

void TestGridChecks::ReducedParameterCount_BetweenTheEnds_IsTwo()
{
    QCOMPARE(ReducedParameterCount(1, 1), 0);
    QCOMPARE(ReducedParameterCount(1, 3), 0);
    QCOMPARE(ReducedParameterCount(2, 3), 2);
    QCOMPARE(ReducedParameterCount(3, 3), 0);
}

void TestGridChecks::ShownParameterCount_Counts_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("reduceBy");
    QTest::addColumn<int>("shown");
    QTest::newRow("all") << 7 << 0 << 7;
    QTest::newRow("all but two") << 7 << 2 << 5;
    QTest::newRow("none left") << 2 << 2 << 0;
    QTest::newRow("never negative") << 1 << 2 << 0;
    QTest::newRow("no rows") << 0 << 2 << 0;
    QTest::newRow("damaged, negative") << -3 << 0 << 0;
    QTest::newRow("damaged, above the table") << 12 << 0 << 10;
    QTest::newRow("damaged, reduced") << 12 << 2 << 8;
}

void TestGridChecks::ShownParameterCount_Counts()
{
    QFETCH(int, count);
    QFETCH(int, reduceBy);
    QFETCH(int, shown);
    WpData waypoint;
    waypoint.SetWpParamCount(count);

    QCOMPARE(ShownParameterCount(waypoint, reduceBy), shown);
}

QTEST_GUILESS_MAIN(TestGridChecks)
#include "TestGridChecks.moc"
