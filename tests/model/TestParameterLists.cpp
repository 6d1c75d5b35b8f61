#include "model/ParameterLists.h"
#include "platform/IndexError.h"
#include "tests/model/WaypointRows.h"

#include <QTest>

/// Parameters in the list of a connection's definition.
class TestParameterLists : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ListWpParameters_Values_data();
    void ListWpParameters_Values();
    void ListWpParameters_Markers_data();
    void ListWpParameters_Markers();
    void ListWpParameters_Password_IsMaskedAndNoDefault_data();
    void ListWpParameters_Password_IsMaskedAndNoDefault();
    void ListWpParameters_Keys_WaypointAndRow();
    void ListWpParameters_Indent_BlanksInFront_data();
    void ListWpParameters_Indent_BlanksInFront();
    void ListWpParameters_Position_LeavesOutSharedRows_data();
    void ListWpParameters_Position_LeavesOutSharedRows();
    void ListWpParameters_FewOrDamagedRows_NoneBelowZero_data();
    void ListWpParameters_FewOrDamagedRows_NoneBelowZero();
    void ListWpParameters_WaypointOutside_Raises();

    void FillConListView_WithParameters_ColumnsAndItems();
    void FillConListView_WaypointsAlone_OneColumn();
    void FillConListView_FilledBefore_IsClearedFirst();
    void FillConListView_NoWaypoints_ColumnsAlone();
    void FillConListView_DamagedCount_ListsTheTen();
};

/// A list as text: "key|text|text|…" for each item.
class ListTexts : public DefinitionList
{
public:
    void Clear() override
    {
        Columns.clear();
        Items.clear();
    }
    void AddColumn(const QString& title, double share) override
    {
        Columns << QStringLiteral("%1 %2").arg(title).arg(share);
    }
    void AddItem(const QString& key, const QStringList& texts) override
    {
        Items << key + u'|' + texts.join(u'|');
    }

    QStringList Columns;
    QStringList Items;
};

static QStringList Listed(const ConData& con, int waypoint, int indent = 0)
{
    ListTexts list;
    ListWpParameters(con, list, waypoint, indent);
    return list.Items;
}

static QStringList ListedRow(const ParameterRow& row)
{
    ConData con;
    con.ConWpCount = 1;
    FillWaypoint(con, 1, {row});
    return Listed(con, 1);
}

void TestParameterLists::ListWpParameters_Values_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("preset");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* name, const char* value, const char* preset, const char* shown) {
        QTest::newRow(name) << QString(value) << QString(preset) << QString(shown);
    };
    row("value", "17", "5", "17|");
    row("value with blanks", " 17 ", "5", "17|");
    row("no value", "", "5", "5|D");
    row("blanks", "  ", " 5 ", "5|D");
    row("neither", "", "", "|");
    row("default of blanks", "", "  ", "|");
}

void TestParameterLists::ListWpParameters_Values()
{
    QFETCH(QString, value);
    QFETCH(QString, preset);
    QFETCH(QString, shown);

    QCOMPARE(ListedRow({"ADDRESS", value, "0", preset}), QStringList{" 1_ 1|ADDRESS|" + shown});
}

void TestParameterLists::ListWpParameters_Markers_data()
{
    QTest::addColumn<QString>("digit");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("marker");
    const auto row = [](const char* name, const char* digit, const char* value, const char* marker) {
        QTest::newRow(name) << QString(digit) << QString(value) << QString(marker);
    };
    row("optional", "0", "x", "");
    row("optional, default", "0", "Yes", "D");
    row("mandatory", "1", "x", "M");
    row("mandatory, blanks around", " 1 ", "x", "M");
    row("mandatory, default", "1", "Yes", "M/D");
    row("mandatory, default in use", "1", "", "M/D");
    row("default in other case", "1", "YES", "M");
    row("default with blanks", "0", " Yes ", "D");
    row("group", "2", "x", "");
    row("group, default", "2", "Yes", "D");
    row("more than the digit", "1x", "x", "");
    row("eleven", "11", "x", "");
}

void TestParameterLists::ListWpParameters_Markers()
{
    QFETCH(QString, digit);
    QFETCH(QString, value);
    QFETCH(QString, marker);

    QCOMPARE(ListedRow({"P", value, digit, "Yes"}).value(0).section(u'|', 3), marker);
}

void TestParameterLists::ListWpParameters_Password_IsMaskedAndNoDefault_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("preset");
    QTest::newRow("value") << "secret" << QString();
    QTest::newRow("no value") << QString() << QString();
    QTest::newRow("no value, default") << QString() << "preset";
    QTest::newRow("value equal to the default") << "preset"
                                                << "preset";
    QTest::newRow("default of asterisks") << "secret"
                                          << "******";
}

void TestParameterLists::ListWpParameters_Password_IsMaskedAndNoDefault()
{
    QFETCH(QString, value);
    QFETCH(QString, preset);

    QCOMPARE(ListedRow({"PASSWORD", value, "0", preset}), QStringList{" 1_ 1|PASSWORD|******|"});
    QCOMPARE(ListedRow({"Password", value, "1", preset}), QStringList{" 1_ 1|Password|******|M"});
}

void TestParameterLists::ListWpParameters_Keys_WaypointAndRow()
{
    ConData con;
    con.ConWpCount = 10;
    FillWaypoint(con, 10, QList<ParameterRow>(10, {"P", "1", "0", ""}));

    const QStringList items = Listed(con, 10);

    QCOMPARE(items.size(), 10);
    QCOMPARE(items.first(), QStringLiteral(" 10_ 1|P|1|"));
    QCOMPARE(items.last(), QStringLiteral(" 10_ 10|P|1|"));
}

void TestParameterLists::ListWpParameters_Indent_BlanksInFront_data()
{
    QTest::addColumn<int>("indent");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << 0 << "P";
    QTest::newRow("five") << 5 << "     P";
    QTest::newRow("negative") << -1 << "P";
}

void TestParameterLists::ListWpParameters_Indent_BlanksInFront()
{
    QFETCH(int, indent);
    QFETCH(QString, text);
    ConData con;
    con.ConWpCount = 1;
    FillWaypoint(con, 1, {{"P", "1", "0", ""}});

    QCOMPARE(Listed(con, 1, indent).value(0).section(u'|', 1, 1), text);
}

void TestParameterLists::ListWpParameters_Position_LeavesOutSharedRows_data()
{
    QTest::addColumn<int>("waypoint");
    QTest::addColumn<int>("listed");
    QTest::newRow("first") << 1 << 3;
    QTest::newRow("second") << 2 << 1;
    QTest::newRow("third") << 3 << 1;
    QTest::newRow("last") << 4 << 3;
    QTest::newRow("behind the last") << 5 << 1;
}

void TestParameterLists::ListWpParameters_Position_LeavesOutSharedRows()
{
    QFETCH(int, waypoint);
    QFETCH(int, listed);
    ConData con;
    con.ConWpCount = 4;
    FillWaypoint(con, waypoint,
                 {{"P", "1", "0", ""}, {"TIME OUT", "2", "0", ""}, {"RETRY COUNT", "3", "0", ""}});

    QCOMPARE(Listed(con, waypoint).size(), listed);
}

void TestParameterLists::ListWpParameters_FewOrDamagedRows_NoneBelowZero_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("listed");
    QTest::newRow("none") << 0 << 0;
    QTest::newRow("one") << 1 << 0;
    QTest::newRow("two") << 2 << 0;
    QTest::newRow("three") << 3 << 1;
    QTest::newRow("negative") << -5 << 0;
    QTest::newRow("above the table") << 14 << 8;
}

void TestParameterLists::ListWpParameters_FewOrDamagedRows_NoneBelowZero()
{
    QFETCH(int, count);
    QFETCH(int, listed);
    ConData con;
    con.ConWpCount = 3;
    con.GetWpData(2).SetWpParamCount(count);

    QCOMPARE(Listed(con, 2).size(), listed);
}

void TestParameterLists::ListWpParameters_WaypointOutside_Raises()
{
    ConData con;

    QVERIFY_EXCEPTION_THROWN(Listed(con, 0), IndexError);
    QVERIFY_EXCEPTION_THROWN(Listed(con, 11), IndexError);
}

// The whole definition ------------------------------------------------------------------------------------

/// Three waypoints; the middle one shows no shared rows.
static void FillDefinition(ConData& con)
{
    con.ConWpCount = 3;
    FillWaypoint(con, 1, {{"BUS NUMBER", "254", "1", ""}, {"SPEED", "", "0", "9600"}});
    FillWaypoint(con, 2,
                 {{"PASSWORD", "secret", "0", ""}, {"TIME OUT", "", "0", ""}, {"RETRY COUNT", "", "0", ""}});
    FillWaypoint(con, 3, {{"ADDRESS", "4094", "1", "4094"}});
}

void TestParameterLists::FillConListView_WithParameters_ColumnsAndItems()
{
    ConData con;
    ListTexts list;
    FillDefinition(con);

    FillDefinitionList(con, list, true);

    QCOMPARE(list.Columns, (QStringList{"Connection Definition 0.45", "Value 0.19", "M/D 0.06"}));
    QCOMPARE(list.Items,
             (QStringList{" 1_01|Waypoint 1||", " 1_ 1|     BUS NUMBER|254|M", " 1_ 2|     SPEED|9600|D",
                          " 2_01|Waypoint 2||", " 2_ 1|     PASSWORD|******|", " 3_01|Waypoint 3||",
                          " 3_ 1|     ADDRESS|4094|M/D"}));
}

void TestParameterLists::FillConListView_WaypointsAlone_OneColumn()
{
    ConData con;
    ListTexts list;
    FillDefinition(con);

    FillConListView(con, list, false);

    QCOMPARE(list.Columns, QStringList{"Connection Definition 0.91"});
    QCOMPARE(list.Items, (QStringList{" 1_1|Waypoint 1", " 2_1|Waypoint 2", " 3_1|Waypoint 3"}));
}

void TestParameterLists::FillConListView_FilledBefore_IsClearedFirst()
{
    ConData con;
    ListTexts list;
    FillDefinition(con);
    FillConListView(con, list, true);

    FillConListView(con, list, false);

    QCOMPARE(list.Columns.size(), 1);
    QCOMPARE(list.Items.size(), 3);
}

void TestParameterLists::FillConListView_NoWaypoints_ColumnsAlone()
{
    const ConData con;
    ListTexts list;

    FillConListView(con, list, true);

    QCOMPARE(list.Columns.size(), 3);
    QVERIFY(list.Items.isEmpty());
}

void TestParameterLists::FillConListView_DamagedCount_ListsTheTen()
{
    ConData con;
    ListTexts list;
    con.ConWpCount = 12;

    FillConListView(con, list, false);

    QCOMPARE(list.Items.size(), 10);
}

QTEST_GUILESS_MAIN(TestParameterLists)
#include "TestParameterLists.moc"
