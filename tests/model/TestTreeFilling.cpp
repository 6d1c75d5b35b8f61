#include "model/TreeFilling.h"
#include "platform/IndexError.h"
#include "platform/MachineSeams.h"
#include "tests/model/ScriptedModelDatabase.h"
#include "tests/support/CheckedTree.h"

#include <QTest>

class TestTreeFilling : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { ResetMachine(); }

    void IsNodeKey_Keys_data();
    void IsNodeKey_Keys();
    void FindTreeEntry_TextAndKind_data();
    void FindTreeEntry_TextAndKind();
    void DeleteTreeEntry_Connection_GoesWithItsChildren();
    void DeleteTreeEntry_NoSuchEntry_GivesFalse();
    void AddTreeEntry_UnderTheRoot_IsSortedIn();
    void AddTreeEntry_Impossible_GivesNoEntry_data();
    void AddTreeEntry_Impossible_GivesNoEntry();
    void FindContinueMark_Children_data();
    void FindContinueMark_Children();
    void FillConnectionTree_WithRoot_ReplacesAndSorts();
    void FillConnectionTree_WithoutRoot_AddsToWhatIsThere();
    void FillConnectionTree_AnyPrefix_MakesTheKey_data();
    void FillConnectionTree_AnyPrefix_MakesTheKey();
    void FillConnectionTree_Count_LimitsTheRows_data();
    void FillConnectionTree_Count_LimitsTheRows();
    void FillConnectionTree_ManyRows_PumpsEachFifty_data();
    void FillConnectionTree_ManyRows_PumpsEachFifty();
    void FillConnectionTree_RootUnsortedWhileLoading();
    void FillConnectionTree_TreeClearedByAnEvent_Ends();
    void FillConnectionTree_TreeGoneByAnEvent_Ends();
    void AddWaypointEntries_Target_GivesHopsInOrder();
    void AddWaypointEntries_NoLongName_TakesShortName();
    void AddWaypointEntries_BehindNodes_StayInHopOrder();
    void AddWaypointEntries_NoHops_AddNothing_data();
    void AddWaypointEntries_NoHops_AddNothing();
    void AddWaypointEntries_DamagedList_RaisesIndexError_data();
    void AddWaypointEntries_DamagedList_RaisesIndexError();
    void AddNodeEntries_Nodes_AreSortedUnderTheConnection();
    void AddNodeEntries_EmptyList_ExpandsAndTags();
    void RefillConEntry_View_ReadsNodesOrWaypoints_data();
    void RefillConEntry_View_ReadsNodesOrWaypoints();
    void RefillConEntry_FailedLookUp_GivesFalse_data();
    void RefillConEntry_FailedLookUp_GivesFalse();
    void EntryTypeContains_Types_data();
    void EntryTypeContains_Types();
    void SetConDataFromNode_Entry_GivesIdAndName();
    void SetNodeDataFromNode_Entry_GivesIdAndName();
};

static PairTable Rows(int count)
{
    PairTable rows;
    for (int i = 1; i <= count; ++i)
        rows.push_back({QStringLiteral("Con %1").arg(i, 5, 10, QChar(u'0')), QString::number(i)});
    return rows;
}

void TestTreeFilling::IsNodeKey_Keys_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("expected");
    QTest::newRow("node") << "N,5" << true;
    QTest::newRow("continued node") << "N,-5" << true;
    QTest::newRow("connection") << "C,5" << false;
    QTest::newRow("root") << "R,0" << false;
    QTest::newRow("lower case") << "n,5" << false;
    QTest::newRow("empty") << "" << false;
}

void TestTreeFilling::IsNodeKey_Keys()
{
    QFETCH(QString, key);
    QFETCH(bool, expected);

    QCOMPARE(IsNodeKey(key), expected);
}

void TestTreeFilling::FindTreeEntry_TextAndKind_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isNode");
    QTest::addColumn<QString>("key");
    QTest::newRow("connection, ignores case") << "BETA" << false << "C,2";
    QTest::newRow("node") << "Beta" << true << "N,7,1";
    QTest::newRow("waypoint is no node") << "T4 Bus" << false << "W,2,1";
    QTest::newRow("node of that name is missing") << "Alpha" << true << "";
    QTest::newRow("part of a name") << "Bet" << false << "";
}

void TestTreeFilling::FindTreeEntry_TextAndKind()
{
    QFETCH(QString, text);
    QFETCH(bool, isNode);
    QFETCH(QString, key);
    CheckedTree tree;
    tree.Add(tree.FillWithTwoConnections(), "N,7,1", "Beta");
    tree.Add(tree.FindByKey("C,2"), "W,2,1", "T4 Bus");
    TreeEntries::Index entry = 99;

    QCOMPARE(FindTreeEntry(text, tree, entry, isNode), !key.isEmpty());

    QCOMPARE(entry == 0 ? QString() : tree.Key(entry), key);
}

void TestTreeFilling::DeleteTreeEntry_Connection_GoesWithItsChildren()
{
    CheckedTree tree;
    const TreeEntries::Index alpha = tree.FillWithTwoConnections();
    tree.Add(alpha, "N,7,1", "Node");
    tree.Add(alpha, "N,8,1", "Alpha");

    QVERIFY(DeleteTreeEntry("alpha", tree, false));

    QCOMPARE(tree.Children(1), QStringList{"C,2 Beta"});
    QCOMPARE(tree.FindByKey("N,7"), 0);
    QCOMPARE(tree.Count(), 2);
    QVERIFY(RemoveTreeEntry("Beta", tree, false));
    QCOMPARE(tree.Count(), 1);
}

void TestTreeFilling::DeleteTreeEntry_NoSuchEntry_GivesFalse()
{
    CheckedTree tree;
    QVERIFY(!DeleteTreeEntry("Alpha", tree, false));
    tree.FillWithTwoConnections();

    QVERIFY(!DeleteTreeEntry("Alpha", tree, true));
    QCOMPARE(tree.Count(), 3);
}

void TestTreeFilling::AddTreeEntry_UnderTheRoot_IsSortedIn()
{
    CheckedTree tree;
    tree.FillWithTwoConnections();

    const TreeEntries::Index entry = AddTreeEntry(tree, "R,0", TreeChild, "C,3", "apple");

    QVERIFY(entry != 0);
    QCOMPARE(tree.Children(1), (QStringList{"C,1 Alpha", "C,3 apple", "C,2 Beta"}));
}

void TestTreeFilling::AddTreeEntry_Impossible_GivesNoEntry_data()
{
    QTest::addColumn<QString>("relative");
    QTest::addColumn<int>("relationship");
    QTest::addColumn<QString>("key");
    QTest::newRow("no such relative") << "C,9" << 4 << "N,1";
    QTest::newRow("key taken") << "R,0" << 4 << "C,2";
    QTest::newRow("key malformed") << "R,0" << 4 << "C";
    QTest::newRow("other relationship") << "R,0" << 2 << "C,3";
}

void TestTreeFilling::AddTreeEntry_Impossible_GivesNoEntry()
{
    QFETCH(QString, relative);
    QFETCH(int, relationship);
    QFETCH(QString, key);
    CheckedTree tree;
    tree.FillWithTwoConnections();

    QCOMPARE(AddTreeEntry(tree, relative, relationship, key, "x"), 0);
    QCOMPARE(tree.Count(), 3);
}

void TestTreeFilling::FindContinueMark_Children_data()
{
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<int>("position");
    QTest::addColumn<QStringList>("restored");
    QTest::newRow("no children") << QStringList() << 0 << QStringList();
    QTest::newRow("no mark") << QStringList{"N,5", "N,6,1"} << 0 << QStringList{"N,5 x", "N,6,1 x"};
    QTest::newRow("marked last") << QStringList{"N,5", "N,-1234"} << 1234 << QStringList{"N,5 x", "N,1234 x"};
    QTest::newRow("marked first") << QStringList{"N,-5", "N,6"} << 5 << QStringList{"N,5 x", "N,6 x"};
}

void TestTreeFilling::FindContinueMark_Children()
{
    QFETCH(QStringList, keys);
    QFETCH(int, position);
    QFETCH(QStringList, restored);
    CheckedTree tree;
    const TreeEntries::Index alpha = tree.FillWithTwoConnections();
    for (const QString& key : std::as_const(keys))
        QVERIFY(tree.Add(alpha, key, "x") != 0);
    const QStringList before = tree.Children(alpha);
    qint32 found = 99;

    FindContinueMark(tree, alpha, found, false);
    QCOMPARE(found, position);
    QCOMPARE(tree.Children(alpha), before);

    FindContinueMark(tree, alpha, found, true);
    QCOMPARE(found, position);
    QCOMPARE(tree.Children(alpha), restored);

    FixUnknownChildKey(tree, alpha, found, false);
    QCOMPARE(found, 0);
}

void TestTreeFilling::FillConnectionTree_WithRoot_ReplacesAndSorts()
{
    CheckedTree tree;
    tree.FillWithTwoConnections();

    FillConnectionTree("Connections", "C", 3, {{"beta", "7"}, {"Gamma", "8"}, {"alpha", "9"}}, tree, true);

    QCOMPARE(tree.Count(), 4);
    QCOMPARE(tree.Key(1), QStringLiteral("R,0"));
    QCOMPARE(tree.Text(1), QStringLiteral("Connections"));
    QCOMPARE(tree.Children(1), (QStringList{"C,9 alpha", "C,7 beta", "C,8 Gamma"}));
    QVERIFY(tree.Sorted(1));
    QVERIFY(tree.Expanded(1));
}

void TestTreeFilling::FillConnectionTree_WithoutRoot_AddsToWhatIsThere()
{
    CheckedTree tree;
    tree.FillWithTwoConnections();
    tree.SetSorted(1, false);
    tree.SetExpanded(1, false);

    FillConnectionTree("Connections", "C", 1, {{"Aaa", "7"}}, tree, false);

    QCOMPARE(tree.Children(1), (QStringList{"C,1 Alpha", "C,2 Beta", "C,7 Aaa"}));
    QVERIFY(!tree.Sorted(1));
    QVERIFY(!tree.Expanded(1));
}

void TestTreeFilling::FillConnectionTree_AnyPrefix_MakesTheKey_data()
{
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QString>("child");
    QTest::newRow("connection") << "C"
                                << "C,7 x";
    QTest::newRow("node") << "N"
                          << "N,7 x";
    QTest::newRow("waypoint") << "W,3"
                              << "W,3,7 x";
}

void TestTreeFilling::FillConnectionTree_AnyPrefix_MakesTheKey()
{
    QFETCH(QString, prefix);
    QFETCH(QString, child);
    CheckedTree tree;

    FillConnectionTree("Root", prefix, 1, {{"x", "7"}}, tree, true);

    QCOMPARE(tree.Children(1), QStringList{child});
}

void TestTreeFilling::FillConnectionTree_Count_LimitsTheRows_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("children");
    QTest::newRow("fewer than there are") << 2 << 2;
    QTest::newRow("more than there are") << 9 << 3;
    QTest::newRow("none") << 0 << 0;
    QTest::newRow("negative") << -1 << 0;
}

void TestTreeFilling::FillConnectionTree_Count_LimitsTheRows()
{
    QFETCH(int, count);
    QFETCH(int, children);
    CheckedTree tree;

    FillConnectionTree("Connections", "C", count, Rows(3), tree, true);

    QCOMPARE(tree.ChildCount(1), children);
}

void TestTreeFilling::FillConnectionTree_ManyRows_PumpsEachFifty_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<bool>("allowed");
    QTest::addColumn<int>("pumps");
    QTest::newRow("49") << 49 << true << 0;
    QTest::newRow("50") << 50 << true << 1;
    QTest::newRow("149") << 149 << true << 2;
    QTest::newRow("150") << 150 << true << 3;
    QTest::newRow("a transaction is open") << 150 << false << 0;
}

void TestTreeFilling::FillConnectionTree_ManyRows_PumpsEachFifty()
{
    QFETCH(int, rows);
    QFETCH(bool, allowed);
    QFETCH(int, pumps);
    int pumped = 0;
    Machine().PumpEvents = [&] { ++pumped; };
    CheckedTree tree;

    FillConnectionTree("Connections", "C", rows, Rows(rows), tree, true,
                       allowed ? Pumping::Allowed : Pumping::None);

    QCOMPARE(tree.ChildCount(1), rows);
    QCOMPARE(pumped, pumps);
}

void TestTreeFilling::FillConnectionTree_RootUnsortedWhileLoading()
{
    CheckedTree tree;
    tree.FillWithTwoConnections();
    QList<int> children;
    bool sorted = false;
    Machine().PumpEvents = [&] {
        children << tree.ChildCount(1);
        sorted = sorted || tree.Sorted(1);
    };

    FillConnectionTree("Connections", "C", 120, Rows(120), tree, true);

    QCOMPARE(children, (QList<int>{50, 100}));
    QVERIFY(!sorted);
    QVERIFY(tree.Sorted(1));
}

void TestTreeFilling::FillConnectionTree_TreeClearedByAnEvent_Ends()
{
    CheckedTree tree;
    Machine().PumpEvents = [&] { tree.Clear(); };

    FillConnectionTree("Connections", "C", 120, Rows(120), tree, true);

    QCOMPARE(tree.Count(), 0);
}

void TestTreeFilling::FillConnectionTree_TreeGoneByAnEvent_Ends()
{
    auto tree = std::make_unique<TreeEntries>();
    int pumped = 0;
    Machine().PumpEvents = [&] {
        ++pumped;
        tree.reset();
    };

    FillConnectionTree("Connections", "C", 120, Rows(120), *tree, true);

    QCOMPARE(pumped, 1);
}

void TestTreeFilling::AddWaypointEntries_Target_GivesHopsInOrder()
{
    ScriptedModelDatabase database;
    database.AddDefinitions();
    CheckedTree tree;
    const TreeEntries::Index alpha = tree.FillWithTwoConnections();
    const QString list = ScriptedModelDatabase::TargetItems("WP=NET4,ADDR=1,SUB=2,WP=BUST4,WP=OPT,PR=T4DT");

    QVERIFY(AddWaypointEntries(list, tree, alpha, "1"));

    QCOMPARE(tree.Children(alpha), (QStringList{"W,1,1 T4 Network", "W,1,2 T4 Bus", "W,1,3 Options"}));
    QCOMPARE(tree.Tag(alpha), list);
    QVERIFY(tree.Expanded(alpha));
    QCOMPARE(database.Calls,
             (QStringList{"GetWpLongNameDb(NET4)", "GetWpLongNameDb(BUST4)", "GetWpLongNameDb(OPT)"}));
}

void TestTreeFilling::AddWaypointEntries_NoLongName_TakesShortName()
{
    const ScriptedModelDatabase database;
    CheckedTree tree;
    const TreeEntries::Index alpha = tree.FillWithTwoConnections();

    QVERIFY(AddWaypointEntries("1\t1\tWP\tODD", tree, alpha, "1"));

    QCOMPARE(tree.Children(alpha), QStringList{"W,1,1 ODD"});
}

void TestTreeFilling::AddWaypointEntries_BehindNodes_StayInHopOrder()
{
    const ScriptedModelDatabase database;
    CheckedTree tree;
    const TreeEntries::Index alpha = tree.FillWithTwoConnections();
    QVERIFY(AddNodeEntries("b\t8\ta\t7", tree, alpha, "1"));
    tree.RemoveChildren(alpha);

    QVERIFY(AddWaypointEntries("2\t1\tWP\tZ\t1\tWP\tA", tree, alpha, "1"));

    QCOMPARE(tree.Children(alpha), (QStringList{"W,1,1 Z", "W,1,2 A"}));
}

void TestTreeFilling::AddWaypointEntries_NoHops_AddNothing_data()
{
    QTest::addColumn<QString>("list");
    QTest::newRow("no hops") << "0";
    QTest::newRow("empty") << "";
    QTest::newRow("no number") << "x\ty";
    QTest::newRow("negative") << "-3";
}

void TestTreeFilling::AddWaypointEntries_NoHops_AddNothing()
{
    QFETCH(QString, list);
    const ScriptedModelDatabase database;
    CheckedTree tree;
    const TreeEntries::Index alpha = tree.FillWithTwoConnections();

    QVERIFY(AddWaypointEntries(list, tree, alpha, "1"));

    QCOMPARE(tree.ChildCount(alpha), 0);
    QCOMPARE(tree.Tag(alpha), list);
}

void TestTreeFilling::AddWaypointEntries_DamagedList_RaisesIndexError_data()
{
    QTest::addColumn<QString>("list");
    QTest::newRow("fewer hops than told") << "2\t1\tWP\tA";
    QTest::newRow("endless hops") << "2147483647\t0\t0\t0";
    QTest::newRow("negative pair count") << "1\t-1\tWP\tA";
    QTest::newRow("name cut off") << "1\t1\tWP";
    QTest::newRow("huge pair count") << "2\t2147483647\tWP\tA";
}

void TestTreeFilling::AddWaypointEntries_DamagedList_RaisesIndexError()
{
    QFETCH(QString, list);
    const ScriptedModelDatabase database;
    CheckedTree tree;
    const TreeEntries::Index alpha = tree.FillWithTwoConnections();

    QVERIFY_EXCEPTION_THROWN(AddWaypointEntries(list, tree, alpha, "1"), IndexError);

    QCOMPARE(tree.ChildCount(alpha), 0);
}

void TestTreeFilling::AddNodeEntries_Nodes_AreSortedUnderTheConnection()
{
    CheckedTree tree;
    const TreeEntries::Index alpha = tree.FillWithTwoConnections();

    QVERIFY(AddNodeEntries("beta\t8\tAlpha\t7\tgamma\t9", tree, alpha, "1"));

    QCOMPARE(tree.Children(alpha), (QStringList{"N,7,1 Alpha", "N,8,1 beta", "N,9,1 gamma"}));
    QCOMPARE(tree.Tag(alpha), QStringLiteral("Nodes"));
    QVERIFY(tree.Sorted(alpha));
    QVERIFY(tree.Expanded(alpha));
}

void TestTreeFilling::AddNodeEntries_EmptyList_ExpandsAndTags()
{
    CheckedTree tree;
    const TreeEntries::Index alpha = tree.FillWithTwoConnections();

    QVERIFY(AddNodeEntries("", tree, alpha, "1"));

    QCOMPARE(tree.ChildCount(alpha), 0);
    QCOMPARE(tree.Tag(alpha), QStringLiteral("Nodes"));
    QVERIFY(tree.Sorted(alpha));
}

void TestTreeFilling::RefillConEntry_View_ReadsNodesOrWaypoints_data()
{
    QTest::addColumn<bool>("viewNodes");
    QTest::addColumn<QStringList>("children");
    QTest::newRow("nodes") << true << QStringList{"N,7,1 Node"};
    QTest::newRow("waypoints") << false << QStringList{"W,1,1 T4 Bus"};
}

void TestTreeFilling::RefillConEntry_View_ReadsNodesOrWaypoints()
{
    QFETCH(bool, viewNodes);
    QFETCH(QStringList, children);
    ScriptedModelDatabase database;
    database.AddDefinitions();
    database.AddConnection("Alpha", 1, "WP=BUST4,ID=1", "0\tT4BUS");
    database.Answers["GetParentNodesDb(Alpha)"] = {"Node\t7"};
    CheckedTree tree;
    const TreeEntries::Index alpha = tree.FillWithTwoConnections();

    QVERIFY(RefillConEntry(tree, alpha, viewNodes));
    QCOMPARE(tree.Children(alpha), children);

    tree.RemoveChildren(alpha);
    QVERIFY(FillChildEntries(tree, alpha, viewNodes));
    QCOMPARE(tree.Children(alpha), children);
}

void TestTreeFilling::RefillConEntry_FailedLookUp_GivesFalse_data()
{
    QTest::addColumn<bool>("viewNodes");
    QTest::newRow("nodes") << true;
    QTest::newRow("waypoints") << false;
}

void TestTreeFilling::RefillConEntry_FailedLookUp_GivesFalse()
{
    QFETCH(bool, viewNodes);
    CheckedTree tree;
    const TreeEntries::Index alpha = tree.FillWithTwoConnections();

    QVERIFY(!RefillConEntry(tree, alpha, viewNodes));
    const ScriptedModelDatabase database;
    QVERIFY(!RefillConEntry(tree, alpha, viewNodes));

    QCOMPARE(tree.ChildCount(alpha), 0);
    QCOMPARE(tree.Tag(alpha), QString());
}

void TestTreeFilling::EntryTypeContains_Types_data()
{
    QTest::addColumn<QString>("searched");
    QTest::addColumn<bool>("expected");
    QTest::newRow("contained") << "snmp" << true;
    QTest::newRow("not contained") << "KD7" << false;
}

void TestTreeFilling::EntryTypeContains_Types()
{
    QFETCH(QString, searched);
    QFETCH(bool, expected);
    ScriptedModelDatabase database;
    database.AddConnection("Alpha", 1, "WP=SNMPPRX", "15\tSNMPPRX");
    CheckedTree tree;
    const TreeEntries::Index alpha = tree.FillWithTwoConnections();

    QCOMPARE(EntryTypeContains(searched, tree, alpha), expected);
    QVERIFY(!EntryTypeContains(searched, tree, tree.FindByKey("C,2")));
}

void TestTreeFilling::SetConDataFromNode_Entry_GivesIdAndName()
{
    ScriptedModelDatabase database;
    database.AddDefinitions();
    database.AddConnection("Alpha", 99, "WP=BUST4,ID=254", "0\tT4BUS");
    CheckedTree tree;
    const TreeEntries::Index alpha = tree.FillWithTwoConnections();
    ConData con;
    con.NodeName = "old";

    QVERIFY(con.SetConDataFromNode(tree, alpha));

    QCOMPARE(con.ConName, QStringLiteral("Alpha"));
    QCOMPARE(con.ConDbID, 1);
    QVERIFY(con.NodeName.isEmpty());
    QCOMPARE(con.ConWpCount, 2);
    QVERIFY(!database.Calls.contains("GetParentIDDb(Alpha)"));
    QVERIFY(!con.SetConDataFromNode(tree, tree.FindByKey("C,2")));
}

void TestTreeFilling::SetNodeDataFromNode_Entry_GivesIdAndName()
{
    ScriptedModelDatabase database;
    database.AddDefinitions();
    database.AddNode("Node", {"Alpha", "WP=NET4,ADDR=1", "Manager", "tail"}, "0\tNET4");
    CheckedTree tree;
    const TreeEntries::Index node = tree.Add(tree.FillWithTwoConnections(), "N,7,1", "Node");
    ConData con;
    con.ConDbID = 5;

    QVERIFY(con.SetNodeDataFromNode(tree, node));

    QCOMPARE(con.NodeName, QStringLiteral("Node"));
    QCOMPARE(con.NodeDbID, 7);
    QCOMPARE(con.ConName, QStringLiteral("Alpha"));
    QCOMPARE(con.ConDbID, 0);
    QCOMPARE(con.NodeWpCount, 2);
    QVERIFY(!con.SetNodeDataFromNode(tree, tree.FindByKey("C,2")));
}

QTEST_GUILESS_MAIN(TestTreeFilling)
#include "TestTreeFilling.moc"
