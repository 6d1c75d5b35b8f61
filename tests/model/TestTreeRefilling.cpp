#include "model/TreeFilling.h"
#include "platform/IndexError.h"
#include "tests/model/ScriptedModelDatabase.h"
#include "tests/support/CheckedTree.h"

#include <QSignalSpy>
#include <QTest>

/// A fill of a connection that has children already, and what goes out of a tree entry by entry.
class TestTreeRefilling : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void AddNodeEntries_ChildrenBefore_GiveWhatAFirstFillGives_data();
    void AddNodeEntries_ChildrenBefore_GiveWhatAFirstFillGives();
    void AddNodeEntries_NodesThatStay_KeepTheirHandles();
    void AddNodeEntries_NothingNew_MovesNothing();
    void AddNodeEntries_OneNew_IsInsertedAtItsPlace();
    void AddNodeEntries_ManyNew_AreSortedInTogether();
    void AddNodeEntries_UnsortedBefore_SortsAll();
    void AddNodeEntries_NodeTwiceInTheTree_LeavesOne_data();
    void AddNodeEntries_NodeTwiceInTheTree_LeavesOne();
    void AddNodeEntries_NodeTwiceInTheList_AddsOne();
    void AddNodeEntries_OtherConnections_StayAsTheyAre();
    void AddWaypointEntries_ChildrenBefore_GiveWhatAFirstFillGives_data();
    void AddWaypointEntries_ChildrenBefore_GiveWhatAFirstFillGives();
    void AddWaypointEntries_HopsThatStay_KeepTheirHandles();
    void AddWaypointEntries_DamagedList_KeepsWhatWasThere();
    void RefillConEntry_FailedLookUp_KeepsWhatWasThere_data();
    void RefillConEntry_FailedLookUp_KeepsWhatWasThere();
    void RemoveEntry_ContinuationMark_PassesToTheNodeBefore_data();
    void RemoveEntry_ContinuationMark_PassesToTheNodeBefore();
    void RemoveEntry_NoSuchEntry_GivesFalse();
    void DeleteTreeEntry_ContinuedNode_PassesTheMark();
    void FindConnectionEntry_Texts_data();
    void FindConnectionEntry_Texts();
};

/// Adds entries given as "key text".
static void AddChildren(CheckedTree& tree, TreeEntries::Index parent, const QStringList& children)
{
    for (const QString& child : children)
        QVERIFY(tree.Add(parent, child.section(u' ', 0, 0), child.section(u' ', 1)) != 0);
}

void TestTreeRefilling::AddNodeEntries_ChildrenBefore_GiveWhatAFirstFillGives_data()
{
    QTest::addColumn<QStringList>("before");
    QTest::newRow("none") << QStringList();
    QTest::newRow("the same") << QStringList{"N,7,1 Anna", "N,8,1 bert", "N,9,1 Carl"};
    QTest::newRow("loaded row by row") << QStringList{"N,9 Carl", "N,7 Anna", "N,8 bert"};
    QTest::newRow("load was stopped") << QStringList{"N,7 Anna", "N,-8 bert"};
    QTest::newRow("load was stopped at the last") << QStringList{"N,7 Anna", "N,8 bert", "N,-9 Carl"};
    QTest::newRow("one is gone") << QStringList{"N,7,1 Anna", "N,8,1 bert", "N,9,1 Carl", "N,10,1 Dora"};
    QTest::newRow("marked one is gone") << QStringList{"N,7 Anna", "N,-20 Dora"};
    QTest::newRow("other names") << QStringList{"N,7,1 Zoe", "N,8,1 Anna", "N,9,1 b"};
    QTest::newRow("under another connection's id") << QStringList{"N,7,5 Anna", "N,8,5 bert"};
    QTest::newRow("all others") << QStringList{"N,17,1 Anna", "N,18,1 bert"};
    QTest::newRow("waypoints") << QStringList{"W,1,1 T4 Bus", "W,1,2 Options"};
}

void TestTreeRefilling::AddNodeEntries_ChildrenBefore_GiveWhatAFirstFillGives()
{
    QFETCH(QStringList, before);
    CheckedTree tree;
    const TreeEntries::Index alpha = tree.FillWithTwoConnections();
    AddChildren(tree, alpha, before);

    QVERIFY(AddNodeEntries("bert\t8\tCarl\t9\tAnna\t7", tree, alpha, "1"));

    QCOMPARE(tree.Children(alpha), (QStringList{"N,7,1 Anna", "N,8,1 bert", "N,9,1 Carl"}));
    QCOMPARE(tree.Tag(alpha), "Nodes");
    QVERIFY(tree.Sorted(alpha));
    QVERIFY(tree.Expanded(alpha));
    QCOMPARE(tree.FindContinued(alpha), 0);
    QCOMPARE(tree.Count(), 6);
}

void TestTreeRefilling::AddNodeEntries_NodesThatStay_KeepTheirHandles()
{
    CheckedTree tree;
    const TreeEntries::Index alpha = tree.FillWithTwoConnections();
    AddChildren(tree, alpha, {"N,7 Anna", "N,-8 bert", "N,10,1 Dora"});
    const TreeEntries::Index anna = tree.FindByKey("N,7");
    const TreeEntries::Index bert = tree.FindByKey("N,8");
    const QPersistentModelIndex selected = tree.ModelIndex(bert);

    QVERIFY(AddNodeEntries("Anna\t7\tAaron\t8\tCarl\t9", tree, alpha, "1"));

    QCOMPARE(tree.Children(alpha), (QStringList{"N,8,1 Aaron", "N,7,1 Anna", "N,9,1 Carl"}));
    QCOMPARE(tree.FindByKey("N,7,1"), anna);
    QCOMPARE(tree.FindByKey("N,8,1"), bert);
    QVERIFY(selected == tree.ModelIndex(bert));
}

void TestTreeRefilling::AddNodeEntries_NothingNew_MovesNothing()
{
    CheckedTree tree;
    const TreeEntries::Index alpha = tree.FillWithTwoConnections();
    QVERIFY(AddNodeEntries("Anna\t7\tbert\t8", tree, alpha, "1"));
    const QSignalSpy inserted(&tree, &QAbstractItemModel::rowsInserted);
    const QSignalSpy removed(&tree, &QAbstractItemModel::rowsRemoved);
    const QSignalSpy moved(&tree, &QAbstractItemModel::rowsMoved);
    const QSignalSpy laidOut(&tree, &QAbstractItemModel::layoutChanged);
    const QSignalSpy changed(&tree, &QAbstractItemModel::dataChanged);

    QVERIFY(AddNodeEntries("Anna\t7\tbert\t8", tree, alpha, "1"));

    QCOMPARE(inserted.count() + removed.count() + moved.count() + laidOut.count() + changed.count(), 0);
}

void TestTreeRefilling::AddNodeEntries_OneNew_IsInsertedAtItsPlace()
{
    CheckedTree tree;
    const TreeEntries::Index alpha = tree.FillWithTwoConnections();
    QVERIFY(AddNodeEntries("Anna\t7\tCarl\t9", tree, alpha, "1"));
    const QSignalSpy inserted(&tree, &QAbstractItemModel::rowsInserted);
    const QSignalSpy laidOut(&tree, &QAbstractItemModel::layoutChanged);

    QVERIFY(AddNodeEntries("Anna\t7\tCarl\t9\tbert\t8", tree, alpha, "1"));

    QCOMPARE(laidOut.count(), 0);
    QCOMPARE(inserted.count(), 1);
    QCOMPARE(inserted[0][1].toInt(), 1);
}

void TestTreeRefilling::AddNodeEntries_ManyNew_AreSortedInTogether()
{
    CheckedTree tree;
    const TreeEntries::Index alpha = tree.FillWithTwoConnections();
    QVERIFY(AddNodeEntries("m\t500", tree, alpha, "1"));
    QStringList items;
    for (int id = 1; id <= 400; ++id)
        items << QStringLiteral("n%1").arg((id * 7) % 401, 3, 10, QChar(u'0')) << QString::number(id);
    items << "m"
          << "500";
    const QSignalSpy inserted(&tree, &QAbstractItemModel::rowsInserted);

    QVERIFY(AddNodeEntries(items.join(TabChar), tree, alpha, "1"));

    QCOMPARE(inserted.count(), 1);
    QCOMPARE(tree.ChildCount(alpha), 401);
    for (int i = 1; i < 401; ++i)
        QVERIFY(tree.Text(tree.Child(alpha, i - 1)) < tree.Text(tree.Child(alpha, i)));
}

void TestTreeRefilling::AddNodeEntries_UnsortedBefore_SortsAll()
{
    CheckedTree tree;
    const TreeEntries::Index alpha = tree.FillWithTwoConnections();
    QVERIFY(!tree.Sorted(alpha));
    AddChildren(tree, alpha, {"N,9 Carl", "N,8 bert", "N,7 Anna"});

    QVERIFY(AddNodeEntries("Carl\t9\tbert\t8\tAnna\t7\tBea\t6", tree, alpha, "1"));

    QCOMPARE(tree.Children(alpha), (QStringList{"N,7,1 Anna", "N,6,1 Bea", "N,8,1 bert", "N,9,1 Carl"}));
}

void TestTreeRefilling::AddNodeEntries_NodeTwiceInTheTree_LeavesOne_data()
{
    QTest::addColumn<QStringList>("before");
    QTest::newRow("the other key first") << QStringList{"N,7 Anna", "N,7,1 Anna"};
    QTest::newRow("the other key last") << QStringList{"N,7,1 Anna", "N,-7 Anna"};
}

void TestTreeRefilling::AddNodeEntries_NodeTwiceInTheTree_LeavesOne()
{
    QFETCH(QStringList, before);
    CheckedTree tree;
    const TreeEntries::Index alpha = tree.FillWithTwoConnections();
    AddChildren(tree, alpha, before);

    QVERIFY(AddNodeEntries("Anna\t7", tree, alpha, "1"));

    QCOMPARE(tree.Children(alpha), QStringList{"N,7,1 Anna"});
}

void TestTreeRefilling::AddNodeEntries_NodeTwiceInTheList_AddsOne()
{
    CheckedTree tree;
    const TreeEntries::Index alpha = tree.FillWithTwoConnections();

    QVERIFY(AddNodeEntries("Anna\t7\tOther\t7", tree, alpha, "1"));
    QCOMPARE(tree.Children(alpha), QStringList{"N,7,1 Anna"});
    QVERIFY(AddNodeEntries("Anna\t7\tOther\t7", tree, alpha, "1"));
    QCOMPARE(tree.Children(alpha), QStringList{"N,7,1 Anna"});
}

void TestTreeRefilling::AddNodeEntries_OtherConnections_StayAsTheyAre()
{
    CheckedTree tree;
    const TreeEntries::Index alpha = tree.FillWithTwoConnections();
    const TreeEntries::Index beta = tree.FindByKey("C,2");
    AddChildren(tree, beta, {"N,17 Berta", "N,-18 Bob"});
    AddChildren(tree, alpha, {"N,7 Anna"});

    QVERIFY(AddNodeEntries("", tree, alpha, "1"));

    QCOMPARE(tree.Children(alpha), QStringList());
    QCOMPARE(tree.Children(beta), (QStringList{"N,17 Berta", "N,-18 Bob"}));
    QVERIFY(!tree.Expanded(beta));
}

void TestTreeRefilling::AddWaypointEntries_ChildrenBefore_GiveWhatAFirstFillGives_data()
{
    QTest::addColumn<QStringList>("before");
    QTest::newRow("none") << QStringList();
    QTest::newRow("the same") << QStringList{"W,1,1 Z", "W,1,2 A"};
    QTest::newRow("one more") << QStringList{"W,1,1 Z", "W,1,2 A", "W,1,3 B"};
    QTest::newRow("one less") << QStringList{"W,1,1 Z"};
    QTest::newRow("the first is missing") << QStringList{"W,1,2 A", "W,1,3 B"};
    QTest::newRow("other order") << QStringList{"W,1,2 A", "W,1,1 Z"};
    QTest::newRow("other hops") << QStringList{"W,1,1 C", "W,1,2 Z"};
    QTest::newRow("under another id of the connection") << QStringList{"W,5,1 Z", "W,5,2 A"};
    QTest::newRow("nodes") << QStringList{"N,7,1 Anna", "N,8,1 bert"};
}

void TestTreeRefilling::AddWaypointEntries_ChildrenBefore_GiveWhatAFirstFillGives()
{
    QFETCH(QStringList, before);
    const ScriptedModelDatabase database;
    CheckedTree tree;
    const TreeEntries::Index alpha = tree.FillWithTwoConnections();
    tree.SetSorted(alpha, before.contains("N,7,1 Anna"));
    AddChildren(tree, alpha, before);
    const QString list = "2\t1\tWP\tZ\t1\tWP\tA";

    QVERIFY(AddWaypointEntries(list, tree, alpha, "1"));

    QCOMPARE(tree.Children(alpha), (QStringList{"W,1,1 Z", "W,1,2 A"}));
    QCOMPARE(tree.Tag(alpha), list);
    QVERIFY(tree.Expanded(alpha));
    QVERIFY(!tree.Sorted(alpha));
}

void TestTreeRefilling::AddWaypointEntries_HopsThatStay_KeepTheirHandles()
{
    const ScriptedModelDatabase database;
    CheckedTree tree;
    const TreeEntries::Index alpha = tree.FillWithTwoConnections();
    AddChildren(tree, alpha, {"W,5,1 Z", "W,5,2 A", "W,5,3 B"});
    const TreeEntries::Index first = tree.Child(alpha, 0);
    const TreeEntries::Index second = tree.Child(alpha, 1);

    QVERIFY(AddWaypointEntries("2\t1\tWP\tZ\t1\tWP\tC", tree, alpha, "1"));

    QCOMPARE(tree.Children(alpha), (QStringList{"W,1,1 Z", "W,1,2 C"}));
    QCOMPARE(tree.Child(alpha, 0), first);
    QCOMPARE(tree.Child(alpha, 1), second);
}

void TestTreeRefilling::AddWaypointEntries_DamagedList_KeepsWhatWasThere()
{
    const ScriptedModelDatabase database;
    CheckedTree tree;
    const TreeEntries::Index alpha = tree.FillWithTwoConnections();
    AddChildren(tree, alpha, {"W,1,1 Z"});

    QVERIFY_EXCEPTION_THROWN(AddWaypointEntries("2\t1\tWP\tA", tree, alpha, "1"), IndexError);

    QCOMPARE(tree.Children(alpha), QStringList{"W,1,1 Z"});
}

void TestTreeRefilling::RefillConEntry_FailedLookUp_KeepsWhatWasThere_data()
{
    QTest::addColumn<bool>("viewNodes");
    QTest::newRow("nodes") << true;
    QTest::newRow("waypoints") << false;
}

void TestTreeRefilling::RefillConEntry_FailedLookUp_KeepsWhatWasThere()
{
    QFETCH(bool, viewNodes);
    const ScriptedModelDatabase database;
    CheckedTree tree;
    const TreeEntries::Index alpha = tree.FillWithTwoConnections();
    AddChildren(tree, alpha, {"N,-7 Anna"});

    QVERIFY(!RefillConEntry(tree, alpha, viewNodes));

    QCOMPARE(tree.Children(alpha), QStringList{"N,-7 Anna"});
}

void TestTreeRefilling::RemoveEntry_ContinuationMark_PassesToTheNodeBefore_data()
{
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QString>("removed");
    QTest::addColumn<QStringList>("after");
    QTest::newRow("no mark") << QStringList{"N,5 a", "N,6 b"} << "N,6" << QStringList{"N,5 a"};
    QTest::newRow("mark on another") << QStringList{"N,5 a", "N,-6 b"} << "N,5" << QStringList{"N,-6 b"};
    QTest::newRow("marked") << QStringList{"N,5 c", "N,7 a", "N,-9 b"} << "N,9"
                            << QStringList{"N,5 c", "N,-7 a"};
    QTest::newRow("marked, saved ones behind")
        << QStringList{"N,7 a", "N,-9 b", "N,12 c"} << "N,9" << QStringList{"N,-7 a", "N,12 c"};
    QTest::newRow("marked, keys with a connection")
        << QStringList{"N,7,1 a", "N,-9,1 b"} << "N,9,1" << QStringList{"N,-7,1 a"};
    QTest::newRow("marked, alone") << QStringList{"N,-9 b"} << "N,9" << QStringList();
    QTest::newRow("marked, none before") << QStringList{"N,-9 b", "N,12 c"} << "N,9" << QStringList();
}

void TestTreeRefilling::RemoveEntry_ContinuationMark_PassesToTheNodeBefore()
{
    QFETCH(QStringList, before);
    QFETCH(QString, removed);
    QFETCH(QStringList, after);
    CheckedTree tree;
    const TreeEntries::Index alpha = tree.FillWithTwoConnections();
    AddChildren(tree, alpha, before);
    AddChildren(tree, tree.FindByKey("C,2"), {"N,8 other"});

    QVERIFY(RemoveEntry(tree, tree.FindByKey(removed)));

    QCOMPARE(tree.Children(alpha), after);
    QCOMPARE(tree.Key(tree.FindByKey("N,8")), "N,8");
}

void TestTreeRefilling::RemoveEntry_NoSuchEntry_GivesFalse()
{
    CheckedTree tree;
    tree.FillWithTwoConnections();

    QVERIFY(!RemoveEntry(tree, 0));
    QVERIFY(!RemoveEntry(tree, 99));
    QCOMPARE(tree.Count(), 3);
}

void TestTreeRefilling::DeleteTreeEntry_ContinuedNode_PassesTheMark()
{
    CheckedTree tree;
    const TreeEntries::Index alpha = tree.FillWithTwoConnections();
    AddChildren(tree, alpha, {"N,5 Anna", "N,-6 Bert"});

    QVERIFY(DeleteTreeEntry("BERT", tree, true));

    QCOMPARE(tree.Children(alpha), QStringList{"N,-5 Anna"});
}

void TestTreeRefilling::FindConnectionEntry_Texts_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("key");
    QTest::newRow("ignores case") << "BETA"
                                  << "C,2";
    QTest::newRow("text of the root") << "connections"
                                      << "C,3";
    QTest::newRow("text of a waypoint before it") << "T4 Bus"
                                                  << "C,4";
    QTest::newRow("of a node") << "Anna"
                               << "";
    QTest::newRow("of a waypoint alone") << "Options"
                                         << "";
    QTest::newRow("of nothing") << "Omega"
                                << "";
}

void TestTreeRefilling::FindConnectionEntry_Texts()
{
    QFETCH(QString, name);
    QFETCH(QString, key);
    CheckedTree tree;
    const TreeEntries::Index alpha = tree.FillWithTwoConnections();
    AddChildren(tree, alpha, {"W,1,1 T4 Bus", "W,1,2 Options"});
    AddChildren(tree, tree.FindByKey("C,2"), {"N,7 Anna"});
    AddChildren(tree, 1, {"C,3 Connections", "C,4 T4 Bus"});
    TreeEntries::Index entry = 99;

    QCOMPARE(FindConnectionEntry(name, tree, entry), !key.isEmpty());

    QCOMPARE(entry == 0 ? QString() : tree.Key(entry), key);
}

QTEST_GUILESS_MAIN(TestTreeRefilling)
#include "TestTreeRefilling.moc"
