#include "model/GridTexts.h"
#include "model/ModelState.h"
#include "model/ParameterLists.h"
#include "platform/IndexError.h"
#include "tests/model/WaypointRows.h"

#include <QTest>

/// Parameters in the grid of one waypoint, and back.
class TestParameterGrid : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Model().TimeRetryNames = {QStringLiteral("TIME OUT"), QStringLiteral("RETRY COUNT")}; }
    void cleanup() { Model().TimeRetryNames = {}; }

    void GridTexts_Cells_AreReadBack();
    void GridTexts_Outside_EmptyAndWithoutEffect();

    void ShowWpRows_Values_data();
    void ShowWpRows_Values();
    void ShowWpRows_Fonts_data();
    void ShowWpRows_Fonts();
    void ShowWpRows_RowCount_LimitsRows_data();
    void ShowWpRows_RowCount_LimitsRows();
    void ShowWpRows_Waypoint_IsTheOneNamed();
    void ShowWpRows_EarlierPassword_IsForgotten();
    void FillWpGrid_Waypoint_TitleHeadersAndRows();
    void FillWpGrid_EarlierRows_AreBlankedUpToNine();
    void FillWpGrid_Password_MaskedAndHeld_data();
    void FillWpGrid_Password_MaskedAndHeld();
    void FillWpGrid_DamagedCount_ShowsTheTable();
    void FillWpGrid_NoWaypoint_Raises();

    void TakeWpGridValues_Cells_BecomeColumnTwo();
    void TakeWpGridValues_NoWaypoint_DoesNothing();
    void TakeWpGridValues_RowsBehindCount_StayAsTheyAre();
    void TakeWpGridValues_Password_FromWhereItIsHeld();
    void TakeWpGridValues_TwoPasswords_NeverTheMask();
    void TakeWpGridValues_SharedValue_ReachesTheOthers();
    void TakeWpGridValues_WaypointCount_LimitsTheSpread();
};

static QStringList ColumnOfGrid(const GridTexts& grid, int column, int rows)
{
    QStringList texts;
    for (int row = 0; row <= rows; ++row)
        texts << grid.At(row, column).text;
    return texts;
}

static void Write(GridTexts& grid, int row, const QString& value)
{
    grid.MoveTo(row, ParameterGrid::ValueColumn);
    grid.SetText(value);
}

// The table of texts --------------------------------------------------------------------------------------

void TestParameterGrid::GridTexts_Cells_AreReadBack()
{
    GridTexts grid;
    grid.MoveTo(3, 1);
    grid.SetText("x");
    grid.SetFont(true, false);
    grid.MoveTo(3, 0);
    QCOMPARE(grid.Text(), QString());
    grid.SetText("name");
    grid.SetFont(false, true);
    grid.SetPassword(3, "secret");

    grid.MoveTo(3, 1);

    QCOMPARE(grid.Text(), QStringLiteral("x"));
    QVERIFY(grid.At(3, 1).bold && !grid.At(3, 1).italic);
    QVERIFY(!grid.At(3, 0).bold && grid.At(3, 0).italic);
    QCOMPARE(grid.At(3, 0).text, QStringLiteral("name"));
    QCOMPARE(grid.PasswordRow(), 3);
    QCOMPARE(grid.PasswordValue(), QStringLiteral("secret"));
}

void TestParameterGrid::GridTexts_Outside_EmptyAndWithoutEffect()
{
    GridTexts grid;
    QCOMPARE(grid.Text(), QString());
    for (const auto& [row, column] : {std::pair(-1, 0), std::pair(0, -1), std::pair(-1, -1)}) {
        grid.MoveTo(row, column);
        grid.SetText("x");
        grid.SetFont(true, true);
        QCOMPARE(grid.Text(), QString());
    }
    QCOMPARE(grid.At(7, 7).text, QString());
    QVERIFY(!grid.At(7, 7).bold);
}

// Into the grid -------------------------------------------------------------------------------------------

void TestParameterGrid::ShowWpRows_Values_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("preset");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* name, const char* value, const char* preset, const char* shown) {
        QTest::newRow(name) << QString(value) << QString(preset) << QString(shown);
    };
    row("value", "17", "5", "17");
    row("value with blanks", " 17 ", "5", " 17 ");
    row("no value", "", "5", "5");
    row("blanks", "  ", "5", "5");
    row("neither", "", "", "");
    row("blanks, no default", "  ", "", "  ");
    row("blanks, default of blanks", " ", "   ", " ");
    row("default with blanks", "", " 5 ", " 5 ");
}

void TestParameterGrid::ShowWpRows_Values()
{
    QFETCH(QString, value);
    QFETCH(QString, preset);
    QFETCH(QString, shown);
    ConData con;
    GridTexts grid;
    FillWaypoint(con, 1, {{"ADDRESS", value, "0", preset}});

    ShowWpRows(grid, con, 1, 1);

    QCOMPARE(ColumnOfGrid(grid, 0, 1), (QStringList{"Parameter", "ADDRESS"}));
    QCOMPARE(ColumnOfGrid(grid, 1, 1), (QStringList{"Value", shown}));
}

void TestParameterGrid::ShowWpRows_Fonts_data()
{
    QTest::addColumn<QString>("digit");
    QTest::addColumn<bool>("bold");
    QTest::addColumn<bool>("italic");
    QTest::newRow("empty") << "" << false << false;
    QTest::newRow("optional") << "0" << false << false;
    QTest::newRow("mandatory") << "1" << true << false;
    QTest::newRow("group") << "2" << true << true;
    QTest::newRow("group 12, blanks") << " 12 " << true << true;
    QTest::newRow("text behind") << "1;" << true << false;
}

void TestParameterGrid::ShowWpRows_Fonts()
{
    QFETCH(QString, digit);
    QFETCH(bool, bold);
    QFETCH(bool, italic);
    ConData con;
    GridTexts grid;
    FillWaypoint(con, 1, {{"ADDRESS", "17", digit, ""}});
    grid.MoveTo(1, 0);
    grid.SetFont(!bold, !italic);

    ShowWpRows(grid, con, 1, 1);

    QCOMPARE(grid.At(1, 0).bold, bold);
    QCOMPARE(grid.At(1, 0).italic, italic);
    QVERIFY(!grid.At(1, 1).bold && !grid.At(1, 1).italic);
}

void TestParameterGrid::ShowWpRows_RowCount_LimitsRows_data()
{
    QTest::addColumn<int>("rowCount");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("two of three") << 2 << QStringList{"Parameter", "A", "B", ""};
    QTest::newRow("none") << 0 << QStringList{"Parameter", "", "", ""};
    QTest::newRow("negative") << -1 << QStringList{"Parameter", "", "", ""};
    QTest::newRow("more than the table has") << 40 << QStringList{"Parameter", "A", "B", "C"};
}

void TestParameterGrid::ShowWpRows_RowCount_LimitsRows()
{
    QFETCH(int, rowCount);
    QFETCH(QStringList, names);
    ConData con;
    GridTexts grid;
    FillWaypoint(con, 1, {{"A", "1", "0", ""}, {"B", "2", "0", ""}, {"C", "3", "0", ""}});

    ShowWpRows(grid, con, 1, rowCount);

    QCOMPARE(ColumnOfGrid(grid, 0, 3), names);
}

void TestParameterGrid::ShowWpRows_Waypoint_IsTheOneNamed()
{
    ConData con;
    GridTexts grid;
    FillWaypoint(con, 1, {{"A", "1", "0", ""}});
    FillWaypoint(con, 2, {{"B", "2", "0", ""}});
    con.SelectedWpIndx = 1;

    ShowWpRows(grid, con, 2, 1);

    QCOMPARE(grid.At(1, 0).text, QStringLiteral("B"));
}

void TestParameterGrid::ShowWpRows_EarlierPassword_IsForgotten()
{
    ConData con;
    GridTexts grid;
    FillWaypoint(con, 1, {{"A", "1", "0", ""}});
    grid.SetPassword(4, "secret");

    ShowWpRows(grid, con, 1, 1);

    QCOMPARE(grid.PasswordRow(), 0);
    QCOMPARE(grid.PasswordValue(), QString());
}

void TestParameterGrid::FillWpGrid_Waypoint_TitleHeadersAndRows()
{
    ConData con;
    GridTexts grid;
    QString title;
    int rowCount = -1;
    FillWaypoint(con, 1, {});
    FillWaypoint(con, 2, {{"ADDRESS", "4094", "1", ""}, {"CHANNEL", "", "2", "7"}});
    con.SelectedWpIndx = 2;

    FillWpGrid(grid, con, title, rowCount);

    QCOMPARE(title, QStringLiteral("WP2-waypoint parameters:"));
    QCOMPARE(rowCount, 2);
    QCOMPARE(ColumnOfGrid(grid, 0, 3), (QStringList{"Parameter", "ADDRESS", "CHANNEL", ""}));
    QCOMPARE(ColumnOfGrid(grid, 1, 3), (QStringList{"Value", "4094", "7", ""}));
    QVERIFY(grid.At(1, 0).bold && !grid.At(1, 0).italic);
    QVERIFY(grid.At(2, 0).bold && grid.At(2, 0).italic);
}

void TestParameterGrid::FillWpGrid_EarlierRows_AreBlankedUpToNine()
{
    ConData con;
    GridTexts grid;
    QString title;
    int rowCount = 0;
    FillWaypoint(con, 1, QList<ParameterRow>(9, {"PASSWORD", "x", "2", "y"}));
    con.SelectedWpIndx = 1;
    FillWpGrid(grid, con, title, rowCount);
    FillWaypoint(con, 1, {{"A", "1", "0", ""}});
    // A row that is not in use holds texts that nobody may see.
    QCOMPARE(con.GetWpData(1).GetWpParam(2, 2), QStringLiteral("x"));

    FillWpGrid(grid, con, title, rowCount);

    QCOMPARE(rowCount, 1);
    QCOMPARE(grid.PasswordRow(), 0);
    for (int row = 2; row <= NodeGridRows; ++row) {
        QCOMPARE(grid.At(row, 0).text, QString());
        QCOMPARE(grid.At(row, 1).text, QString());
        QVERIFY(!grid.At(row, 0).bold && !grid.At(row, 0).italic);
    }
}

void TestParameterGrid::FillWpGrid_Password_MaskedAndHeld_data()
{
    QTest::addColumn<QString>("longName");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("preset");
    QTest::newRow("capitals") << "PASSWORD"
                              << "secret" << QString();
    QTest::newRow("small letters") << "password"
                                   << "a much longer secret" << QString();
    QTest::newRow("without a value") << "PASSWORD" << QString() << QString();
    QTest::newRow("without a value, with a default") << "PASSWORD" << QString() << "preset";
    QTest::newRow("one letter") << "PASSWORD"
                                << "s"
                                << "s";
}

void TestParameterGrid::FillWpGrid_Password_MaskedAndHeld()
{
    QFETCH(QString, longName);
    QFETCH(QString, value);
    QFETCH(QString, preset);
    ConData con;
    GridTexts grid;
    QString title;
    int rowCount = 0;
    FillWaypoint(con, 1, {{"USER", "me", "1", ""}, {longName, value, "1", preset}});
    con.SelectedWpIndx = 1;

    FillWpGrid(grid, con, title, rowCount);

    QCOMPARE(grid.At(2, 0).text, longName);
    QCOMPARE(grid.At(2, 1).text, QStringLiteral("******"));
    QCOMPARE(grid.PasswordRow(), 2);
    QCOMPARE(grid.PasswordValue(), value);
}

void TestParameterGrid::FillWpGrid_DamagedCount_ShowsTheTable()
{
    ConData con;
    GridTexts grid;
    QString title;
    int rowCount = 0;
    FillWaypoint(con, 1, QList<ParameterRow>(10, {"A", "1", "0", ""}));
    con.SelectedWpIndx = 1;

    con.GetWpData(1).SetWpParamCount(12);
    FillWpGrid(grid, con, title, rowCount);
    QCOMPARE(rowCount, 10);
    QCOMPARE(grid.At(10, 0).text, QStringLiteral("A"));

    con.GetWpData(1).SetWpParamCount(-1);
    FillWpGrid(grid, con, title, rowCount);
    QCOMPARE(rowCount, 0);
    QCOMPARE(grid.At(1, 0).text, QString());
}

void TestParameterGrid::FillWpGrid_NoWaypoint_Raises()
{
    ConData con;
    GridTexts grid;
    QString title = "as it was";
    int rowCount = 5;

    QVERIFY_EXCEPTION_THROWN(FillWpGrid(grid, con, title, rowCount), IndexError);
    QCOMPARE(title, QStringLiteral("as it was"));
    QCOMPARE(rowCount, 5);
}

// Out of the grid -----------------------------------------------------------------------------------------

void TestParameterGrid::TakeWpGridValues_Cells_BecomeColumnTwo()
{
    ConData con;
    GridTexts grid;
    FillWaypoint(con, 2, {{"A", "1", "0", ""}, {"B", "2", "0", "5"}, {"C", "3", "0", ""}});
    con.SelectedWpIndx = 2;
    ShowWpRows(grid, con, 2, 3);
    Write(grid, 1, "  one  ");
    Write(grid, 2, "   ");

    TakeWpGridValues(grid, con, 3, 2);

    QCOMPARE(ColumnOf(con, 2, 2), (QStringList{"one", "", "3"}));
    QCOMPARE(ColumnOf(con, 2, 3), (QStringList{"saved", "saved", "saved"}));
}

void TestParameterGrid::TakeWpGridValues_NoWaypoint_DoesNothing()
{
    ConData con;
    GridTexts grid;
    FillWaypoint(con, 1, {{"TIME OUT", "1", "0", ""}});
    Write(grid, 1, "2");

    TakeWpGridValues(grid, con, 1, 1);

    QCOMPARE(ColumnOf(con, 1, 2), QStringList{"1"});
}

void TestParameterGrid::TakeWpGridValues_RowsBehindCount_StayAsTheyAre()
{
    ConData con;
    GridTexts grid;
    FillWaypoint(con, 1, {{"A", "1", "0", ""}, {"B", "2", "0", ""}});
    con.SelectedWpIndx = 1;
    Write(grid, 1, "x");
    Write(grid, 2, "y");

    TakeWpGridValues(grid, con, 1, 1);
    QCOMPARE(ColumnOf(con, 1, 2), (QStringList{"x", "2"}));

    TakeWpGridValues(grid, con, 40, 1);
    QCOMPARE(ColumnOf(con, 1, 2), (QStringList{"x", "y"}));
}

void TestParameterGrid::TakeWpGridValues_Password_FromWhereItIsHeld()
{
    ConData con;
    GridTexts grid;
    FillWaypoint(con, 1, {{"PASSWORD", "old", "0", ""}, {"A", "1", "0", ""}});
    con.SelectedWpIndx = 1;
    ShowWpRows(grid, con, 1, 2);

    TakeWpGridValues(grid, con, 2, 1);
    QCOMPARE(ColumnOf(con, 1, 2), (QStringList{"old", "1"}));

    grid.SetPassword(1, " new ");
    TakeWpGridValues(grid, con, 2, 1);
    QCOMPARE(ColumnOf(con, 1, 2), (QStringList{"new", "1"}));
}

void TestParameterGrid::TakeWpGridValues_TwoPasswords_NeverTheMask()
{
    ConData con;
    GridTexts grid;
    FillWaypoint(con, 1, {{"PASSWORD", "first", "0", ""}, {"Password", "second", "0", ""}});
    con.SelectedWpIndx = 1;
    ShowWpRows(grid, con, 1, 2);

    TakeWpGridValues(grid, con, 2, 1);

    QCOMPARE(ColumnOf(con, 1, 2), (QStringList{"first", "second"}));
}

void TestParameterGrid::TakeWpGridValues_SharedValue_ReachesTheOthers()
{
    ConData con;
    GridTexts grid;
    for (int i = 1; i <= 3; ++i)
        FillWaypoint(con, i, {{"A", "1", "0", ""}, {"TIME OUT", "100", "0", ""}});
    con.SelectedWpIndx = 1;
    ShowWpRows(grid, con, 1, 2);
    Write(grid, 1, "x");
    Write(grid, 2, " 250 ");

    TakeWpGridValues(grid, con, 2, 3);

    QCOMPARE(ColumnOf(con, 1, 2), (QStringList{"x", "250"}));
    QCOMPARE(ColumnOf(con, 1, 3), (QStringList{"saved", "saved"}));
    for (const int other : {2, 3}) {
        QCOMPARE(ColumnOf(con, other, 2), (QStringList{"1", "250"}));
        QCOMPARE(ColumnOf(con, other, 3), (QStringList{"saved", "250"}));
    }
}

void TestParameterGrid::TakeWpGridValues_WaypointCount_LimitsTheSpread()
{
    ConData con;
    GridTexts grid;
    for (int i = 1; i <= 3; ++i)
        FillWaypoint(con, i, {{"TIME OUT", "100", "0", ""}});
    con.SelectedWpIndx = 1;
    Write(grid, 1, "250");

    TakeWpGridValues(grid, con, 1, 2);

    QCOMPARE(ColumnOf(con, 2, 2), QStringList{"250"});
    QCOMPARE(ColumnOf(con, 3, 2), QStringList{"100"});
}

QTEST_GUILESS_MAIN(TestParameterGrid)
#include "TestParameterGrid.moc"
