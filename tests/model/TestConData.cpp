#include "model/ConData.h"
#include "platform/IndexError.h"

#include <QTest>

class TestConData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Construction_Gives_InitializedEmptyObject();
    void Element_IndexOutside_Raises_data();
    void Element_IndexOutside_Raises();
    void SetWpDataItem_Cell_IsWritten();
    void Clear_UsedObject_KeepsOnlyTheSurvivingFields();
    void Clear_UsedObject_EmptiesAllWaypoints();
    void ClearWP_UsedObject_KeepsNamesAndLongNames();
    void Copy_Fields_AreTheNarrowSet();
    void Copy_Waypoints_OverwritesAllTen();
    void Copy_WithoutSavedValues_KeepsColumnThree();
    void Copy_SourceNotInitialized_StopsBeforeWaypoints();
    void SetParamCopy_UsedRows_SavesValues();
    void ResetWpParamValues_AfterEdit_BringsSavedValuesBack();
    void ParamValuesChanged_Edits_data();
    void ParamValuesChanged_Edits();
    void ParamValuesChanged_NodePartAlone_SeesNothing();
    void GetWpParamByName_TwoWaypoints_GivesLowerOne();
    void SetWpParamByName_TwoWaypoints_WritesLowerOne();
    void WpParamByName_AboveConWpCount_IsNotFound();
};

/// Two waypoints of one row each, both named "TIME OUT".
static void FillTwoWaypoints(ConData& con)
{
    for (int i = 1; i <= 2; ++i) {
        con.SetConWpName(i, QStringLiteral("WP%1").arg(i));
        con.SetConWpLongName(i, QStringLiteral("Waypoint %1").arg(i));
        con.SetConWpMandatory(i, "1");
        con.SetConWpId(i, 40 + i);
        con.SetWpDataItem(i, 1, 1, "TIME");
        con.SetWpDataItem(i, 1, 2, QString::number(i * 100));
        con.SetWpDataItem(i, 1, 4, "TIME OUT");
        con.GetWpData(i).SetWpParamCount(1);
    }
    con.ConWpCount = 2;
}

static void FillFields(ConData& con)
{
    con.optCon = true;
    con.ViewNodesChecked = true;
    con.SelectPressed = true;
    con.NodeAddress = "17";
    con.NodeName = "Node";
    con.NodeDbID = 3;
    con.NodeTypeName = "NET4";
    con.NodeTypeID = 4;
    con.NodeWpCount = 1;
    con.NodeType = "Manager";
    con.CommandLine = "1|tail";
    con.Retry = "5";
    con.Time = "900";
    con.ReduceParameterCount = 2;
    con.ConName = "Con";
    con.ConDbID = 6;
    con.ConTypeName = "T4BUS";
    con.ConTypeID = 7;
    con.TargetString = "WP=BUST4";
    con.NewCon = true;
    con.NewNode = true;
    con.SaveFromScan = true;
    con.SelectedTreeNodeIndex = 8;
    con.SelectedWpIndx = 2;
}

void TestConData::Construction_Gives_InitializedEmptyObject()
{
    const ConData con;

    QVERIFY(con.Initialized);
    QVERIFY(!con.NodeTreeFlag);
    QCOMPARE(con.ConTree, nullptr);
    QCOMPARE(con.NodesTree, nullptr);
    QCOMPARE(con.ConWpCount, 0);
    QCOMPARE(con.ConDbID, 0);
    QVERIFY(con.ConName.isEmpty());
    for (int i = 1; i <= ConData::MaxWaypoints; ++i) {
        QVERIFY(con.GetConWpName(i).isEmpty());
        QCOMPARE(con.GetWpData(i).WpParamCount(), 0);
    }
}

void TestConData::Element_IndexOutside_Raises_data()
{
    QTest::addColumn<int>("waypoint");
    QTest::newRow("0") << 0;
    QTest::newRow("11") << 11;
    QTest::newRow("-1") << -1;
}

void TestConData::Element_IndexOutside_Raises()
{
    QFETCH(int, waypoint);
    ConData con;

    QVERIFY_EXCEPTION_THROWN(con.SetConWpName(waypoint, "x"), IndexError);
    QVERIFY_EXCEPTION_THROWN((void)con.GetConWpName(waypoint), IndexError);
    QVERIFY_EXCEPTION_THROWN(con.SetConWpLongName(waypoint, "x"), IndexError);
    QVERIFY_EXCEPTION_THROWN((void)con.GetConWpLongName(waypoint), IndexError);
    QVERIFY_EXCEPTION_THROWN(con.SetConWpId(waypoint, 1), IndexError);
    QVERIFY_EXCEPTION_THROWN((void)con.GetConWPiDs(waypoint), IndexError);
    QVERIFY_EXCEPTION_THROWN(con.SetConWpMandatory(waypoint, "1"), IndexError);
    QVERIFY_EXCEPTION_THROWN((void)con.GetConWpMandatory(waypoint), IndexError);
    QVERIFY_EXCEPTION_THROWN((void)con.GetWpData(waypoint), IndexError);
    QVERIFY_EXCEPTION_THROWN(con.SetWpDataItem(waypoint, 1, 1, "x"), IndexError);
}

void TestConData::SetWpDataItem_Cell_IsWritten()
{
    ConData con;

    con.SetWpDataItem(10, 5, 2, "17");

    QCOMPARE(con.GetWpData(10).GetWpParam(5, 2), QStringLiteral("17"));
}

void TestConData::Clear_UsedObject_KeepsOnlyTheSurvivingFields()
{
    ConData con;
    TreeEntries tree;
    FillFields(con);
    con.ConTree = &tree;
    con.NodesTree = &tree;
    con.NodeTreeFlag = true;

    con.Clear();

    QVERIFY(con.optCon);
    QVERIFY(con.ViewNodesChecked);
    QCOMPARE(con.SelectedTreeNodeIndex, 8);
    QVERIFY(con.Initialized);
    QCOMPARE(con.ConTree, &tree);
    QCOMPARE(con.NodesTree, &tree);
    QVERIFY(con.NodeTreeFlag);
    QVERIFY(!con.SelectPressed && !con.NewCon && !con.NewNode && !con.SaveFromScan);
    for (const QString& text :
         {con.NodeAddress, con.NodeName, con.NodeTypeName, con.NodeType, con.CommandLine, con.Retry, con.Time,
          con.TargetString, con.ConName, con.ConTypeName})
        QVERIFY(text.isEmpty());
    for (const int number : {con.NodeDbID, con.NodeTypeID, con.NodeWpCount, con.ConDbID, con.ConTypeID,
                             con.ReduceParameterCount, con.SelectedWpIndx})
        QCOMPARE(number, 0);
}

void TestConData::Clear_UsedObject_EmptiesAllWaypoints()
{
    ConData con;
    FillTwoWaypoints(con);
    con.SetConWpName(10, "last");
    con.SetWpDataItem(10, 10, 6, "x");

    con.Clear();

    QCOMPARE(con.ConWpCount, 0);
    for (int i = 1; i <= ConData::MaxWaypoints; ++i) {
        QVERIFY(con.GetConWpName(i).isEmpty());
        QVERIFY(con.GetConWpLongName(i).isEmpty());
        QVERIFY(con.GetConWpMandatory(i).isEmpty());
        QCOMPARE(con.GetConWPiDs(i), 0);
        QCOMPARE(con.GetWpData(i).WpParamCount(), 0);
        for (int row = 1; row <= WpData::RowCount; ++row) {
            for (int column = 1; column <= WpData::ColumnCount; ++column)
                QVERIFY(con.GetWpData(i).GetWpParam(row, column).isEmpty());
        }
    }
}

void TestConData::ClearWP_UsedObject_KeepsNamesAndLongNames()
{
    ConData con;
    FillFields(con);
    FillTwoWaypoints(con);

    con.ClearWP();

    QCOMPARE(con.ConName, QStringLiteral("Con"));
    QCOMPARE(con.NodeName, QStringLiteral("Node"));
    QCOMPARE(con.TargetString, QStringLiteral("WP=BUST4"));
    QCOMPARE(con.GetConWpLongName(2), QStringLiteral("Waypoint 2"));
    QCOMPARE(con.ConWpCount, 0);
    QCOMPARE(con.NodeWpCount, 0);
    QVERIFY(con.GetConWpName(1).isEmpty());
    QVERIFY(con.GetConWpMandatory(1).isEmpty());
    QCOMPARE(con.GetConWPiDs(1), 0);
    QCOMPARE(con.GetWpData(1).WpParamCount(), 0);
    QVERIFY(con.GetWpData(1).GetWpParam(1, 4).isEmpty());
}

void TestConData::Copy_Fields_AreTheNarrowSet()
{
    ConData source;
    TreeEntries tree;
    FillFields(source);
    source.ConTree = &tree;
    ConData con;

    con.Copy(source);

    QVERIFY(con.SelectPressed && con.NewCon && con.NewNode && con.SaveFromScan);
    QCOMPARE(con.NodeAddress, QStringLiteral("17"));
    QCOMPARE(con.NodeName, QStringLiteral("Node"));
    QCOMPARE(con.NodeDbID, 3);
    QCOMPARE(con.NodeTypeName, QStringLiteral("NET4"));
    QCOMPARE(con.NodeTypeID, 4);
    QCOMPARE(con.NodeWpCount, 1);
    QCOMPARE(con.Retry, QStringLiteral("5"));
    QCOMPARE(con.Time, QStringLiteral("900"));
    QCOMPARE(con.ConName, QStringLiteral("Con"));
    QCOMPARE(con.ConDbID, 6);
    QCOMPARE(con.ConTypeName, QStringLiteral("T4BUS"));
    QCOMPARE(con.ConTypeID, 7);
    QCOMPARE(con.ReduceParameterCount, 2);
    QCOMPARE(con.SelectedWpIndx, 2);
    QVERIFY(con.NodeType.isEmpty());
    QVERIFY(con.CommandLine.isEmpty());
    QVERIFY(con.TargetString.isEmpty());
    QVERIFY(!con.optCon);
    QVERIFY(!con.ViewNodesChecked);
    QCOMPARE(con.SelectedTreeNodeIndex, 0);
    QCOMPARE(con.ConTree, nullptr);
}

void TestConData::Copy_Waypoints_OverwritesAllTen()
{
    ConData source;
    FillTwoWaypoints(source);
    ConData con;
    con.SetConWpName(10, "old");
    con.SetWpDataItem(10, 10, 1, "old");
    con.GetWpData(10).SetWpParamCount(9);

    con.Copy(source);

    QCOMPARE(con.ConWpCount, 2);
    QCOMPARE(con.GetConWpName(2), QStringLiteral("WP2"));
    QCOMPARE(con.GetConWpLongName(2), QStringLiteral("Waypoint 2"));
    QCOMPARE(con.GetConWpMandatory(2), QStringLiteral("1"));
    QCOMPARE(con.GetConWPiDs(2), 42);
    QCOMPARE(con.GetWpData(2).WpParamCount(), 1);
    QCOMPARE(con.GetWpData(2).GetWpParam(1, 2), QStringLiteral("200"));
    QVERIFY(con.GetConWpName(10).isEmpty());
    QVERIFY(con.GetWpData(10).GetWpParam(10, 1).isEmpty());
    QCOMPARE(con.GetWpData(10).WpParamCount(), 0);
}

void TestConData::Copy_WithoutSavedValues_KeepsColumnThree()
{
    ConData source;
    FillTwoWaypoints(source);
    source.SetParamCopy();
    ConData con;
    con.SetWpDataItem(1, 1, 3, "old");
    con.SetWpDataItem(2, 1, 3, "200");

    con.Copy(source, false);

    QCOMPARE(con.GetWpData(1).GetWpParam(1, 3), QStringLiteral("old"));
    QVERIFY(con.ParamValuesChanged());
    con.Copy(source);
    QCOMPARE(con.GetWpData(1).GetWpParam(1, 3), QStringLiteral("100"));
    QVERIFY(!con.ParamValuesChanged());
}

void TestConData::Copy_SourceNotInitialized_StopsBeforeWaypoints()
{
    ConData source;
    FillFields(source);
    FillTwoWaypoints(source);
    source.Initialized = false;
    ConData con;

    con.Copy(source);

    QCOMPARE(con.ConName, QStringLiteral("Con"));
    QCOMPARE(con.ConWpCount, 0);
    QVERIFY(con.GetConWpName(1).isEmpty());
    QVERIFY(con.Initialized);
}

void TestConData::SetParamCopy_UsedRows_SavesValues()
{
    ConData con;
    FillTwoWaypoints(con);
    con.SetWpDataItem(1, 2, 2, "beyond");
    con.ConWpCount = 1;

    con.SetParamCopy();

    QCOMPARE(con.GetWpData(1).GetWpParam(1, 3), QStringLiteral("100"));
    QVERIFY(con.GetWpData(1).GetWpParam(2, 3).isEmpty());
    QVERIFY(con.GetWpData(2).GetWpParam(1, 3).isEmpty());
}

void TestConData::ResetWpParamValues_AfterEdit_BringsSavedValuesBack()
{
    ConData con;
    FillTwoWaypoints(con);
    con.SetParamCopy();
    con.SetWpDataItem(1, 1, 2, "edited");
    con.SetWpDataItem(1, 2, 2, "beyond");

    con.ResetWpParamValues();

    QCOMPARE(con.GetWpData(1).GetWpParam(1, 2), QStringLiteral("100"));
    QCOMPARE(con.GetWpData(1).GetWpParam(2, 2), QStringLiteral("beyond"));
}

void TestConData::ParamValuesChanged_Edits_data()
{
    QTest::addColumn<QString>("saved");
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("changed");
    QTest::newRow("same") << QStringLiteral("abc") << QStringLiteral("abc") << false;
    QTest::newRow("case and blanks") << QStringLiteral("abc") << QStringLiteral(" ABC ") << false;
    QTest::newRow("blanks and nothing") << QString() << QStringLiteral("  ") << false;
    QTest::newRow("other text") << QStringLiteral("abc") << QStringLiteral("abd") << true;
    QTest::newRow("a tab is no blank") << QStringLiteral("abc") << QStringLiteral("abc\t") << true;
    QTest::newRow("emptied") << QStringLiteral("abc") << QString() << true;
}

void TestConData::ParamValuesChanged_Edits()
{
    QFETCH(QString, saved);
    QFETCH(QString, value);
    QFETCH(bool, changed);
    ConData con;
    FillTwoWaypoints(con);
    con.SetParamCopy();
    con.SetWpDataItem(2, 1, 3, saved);
    con.SetWpDataItem(2, 1, 2, value);

    QCOMPARE(con.ParamValuesChanged(), changed);
    con.Initialized = false;
    QVERIFY(!con.ParamValuesChanged());
}

void TestConData::ParamValuesChanged_NodePartAlone_SeesNothing()
{
    ConData con;
    FillTwoWaypoints(con);
    con.NodeWpCount = 2;
    con.ConWpCount = 0;

    QVERIFY(!con.ParamValuesChanged());
}

void TestConData::GetWpParamByName_TwoWaypoints_GivesLowerOne()
{
    ConData con;
    FillTwoWaypoints(con);
    QString value;

    QVERIFY(con.GetWpParamByName("TIME OUT", value));
    QCOMPARE(value, QStringLiteral("100"));
    QVERIFY(!con.GetWpParamByName("TIME", value));
    QCOMPARE(value, QStringLiteral("100"));
}

void TestConData::SetWpParamByName_TwoWaypoints_WritesLowerOne()
{
    ConData con;
    FillTwoWaypoints(con);

    QVERIFY(con.SetWpParamByName("TIME OUT", "7"));

    QCOMPARE(con.GetWpData(1).GetWpParam(1, 2), QStringLiteral("7"));
    QCOMPARE(con.GetWpData(2).GetWpParam(1, 2), QStringLiteral("200"));
}

void TestConData::WpParamByName_AboveConWpCount_IsNotFound()
{
    ConData con;
    FillTwoWaypoints(con);
    con.ConWpCount = 0;
    QString value;

    QVERIFY(!con.GetWpParamByName("TIME OUT", value));
    QVERIFY(!con.SetWpParamByName("TIME OUT", "7"));
    QCOMPARE(con.GetWpData(1).GetWpParam(1, 2), QStringLiteral("100"));
}

QTEST_GUILESS_MAIN(TestConData)
#include "TestConData.moc"
