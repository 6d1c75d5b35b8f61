#include "database/SaveRoutines.h"
#include "tests/database/SavingFixture.h"

#include <QTest>

/// Nodes and connections are deleted, in the database and in the trees.
class TestRemoveRoutines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void RemoveNodeEntry_Node_GoesFromTheDatabaseAndBothTrees_data();
    void RemoveNodeEntry_Node_GoesFromTheDatabaseAndBothTrees();
    void RemoveNodeEntry_Order_NodesTreeThenDatabaseThenConnections();
    void RemoveNodeEntry_FailedCall_LeavesTheConnections();
    void RemoveNodeEntry_NotShown_IsStillDeleted_data();
    void RemoveNodeEntry_NotShown_IsStillDeleted();
    void RemoveNodeEntry_OnlyNode_KeepsTheParentAsItWas_data();
    void RemoveNodeEntry_OnlyNode_KeepsTheParentAsItWas();
    void RemoveNodeEntry_SelectedEntry_IsTheOneWhenItsTextIsTheName_data();
    void RemoveNodeEntry_SelectedEntry_IsTheOneWhenItsTextIsTheName();
    void RemoveNodeEntry_TextOfAConnection_LeavesTheConnection();
    void RemoveNodeEntry_LoadToBeContinued_KeepsItsPlace();
    void RemoveConnection_Connection_GoesWithItsNodes();
    void RemoveConnection_FailedCall_GivesFalse_data();
    void RemoveConnection_FailedCall_GivesFalse();
};

void TestRemoveRoutines::RemoveNodeEntry_Node_GoesFromTheDatabaseAndBothTrees_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("keepSelection");
    QTest::newRow("from the nodes") << "North" << true;
    QTest::newRow("from the connections") << "North" << false;
    QTest::newRow("ignores case") << "NORTH" << true;
    QTest::newRow("blanks around it") << "  North " << false;
}

void TestRemoveRoutines::RemoveNodeEntry_Node_GoesFromTheDatabaseAndBothTrees()
{
    QFETCH(QString, name);
    QFETCH(bool, keepSelection);
    SavingFixture fixture;
    fixture.ShowNodes();

    QVERIFY(RemoveNodeEntry(name, fixture.ConTree, fixture.NodesTree, keepSelection));

    QCOMPARE(fixture.Work(), QStringList{QStringLiteral("DeleteNode(%1)").arg(name.trimmed())});
    QCOMPARE(fixture.Nodes(), (QStringList{"N,5 East", "N,4 South"}));
    QCOMPARE(fixture.ConTree.Children(fixture.Alpha()), QStringList{"N,4,1 South"});
    QCOMPARE(fixture.Component.Store.Now.nodes.size(), 2u);
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestRemoveRoutines::RemoveNodeEntry_Order_NodesTreeThenDatabaseThenConnections()
{
    SavingFixture fixture;
    fixture.ShowNodes();
    QStringList seen;
    fixture.Component.BeforeCall = [&](const QString& call) {
        if (call.startsWith(QStringLiteral("DeleteNode(")))
            seen << fixture.Nodes() << fixture.ConTree.Children(fixture.Alpha());
    };

    QVERIFY(RemoveNodeEntry("North", fixture.ConTree, fixture.NodesTree, true));

    QCOMPARE(seen, (QStringList{"N,5 East", "N,4 South", "N,3,1 North", "N,4,1 South"}));
}

void TestRemoveRoutines::RemoveNodeEntry_FailedCall_LeavesTheConnections()
{
    SavingFixture fixture;
    fixture.ShowNodes();
    fixture.Component.Fail("DeleteNode");

    QVERIFY(!RemoveNodeEntry("North", fixture.ConTree, fixture.NodesTree, false));

    QCOMPARE(fixture.ConTree.Children(fixture.Alpha()), (QStringList{"N,3,1 North", "N,4,1 South"}));
    QCOMPARE(fixture.Component.Store.Now.nodes.size(), 3u);
}

void TestRemoveRoutines::RemoveNodeEntry_NotShown_IsStillDeleted_data()
{
    QTest::addColumn<bool>("filled");
    QTest::newRow("closed connections") << true;
    QTest::newRow("empty trees") << false;
}

void TestRemoveRoutines::RemoveNodeEntry_NotShown_IsStillDeleted()
{
    QFETCH(bool, filled);
    SavingFixture fixture;
    if (!filled) {
        fixture.ConTree.Clear();
        fixture.NodesTree.Clear();
    }

    QVERIFY(RemoveNodeEntry("North", fixture.ConTree, fixture.NodesTree, false));

    QCOMPARE(fixture.Component.Store.Now.nodes.size(), 2u);
    QCOMPARE(fixture.ConTree.Count(), filled ? 3 : 0);
}

void TestRemoveRoutines::RemoveNodeEntry_OnlyNode_KeepsTheParentAsItWas_data()
{
    QTest::addColumn<bool>("expanded");
    QTest::newRow("expanded") << true;
    QTest::newRow("collapsed") << false;
}

void TestRemoveRoutines::RemoveNodeEntry_OnlyNode_KeepsTheParentAsItWas()
{
    QFETCH(bool, expanded);
    SavingFixture fixture;
    fixture.ShowNodes();
    fixture.ConTree.SetExpanded(fixture.Beta(), expanded);

    QVERIFY(RemoveNodeEntry("East", fixture.ConTree, fixture.NodesTree, false));

    QCOMPARE(fixture.ConTree.ChildCount(fixture.Beta()), 0);
    QCOMPARE(fixture.ConTree.Expanded(fixture.Beta()), expanded);
}

void TestRemoveRoutines::RemoveNodeEntry_SelectedEntry_IsTheOneWhenItsTextIsTheName_data()
{
    QTest::addColumn<QString>("selected");
    QTest::addColumn<bool>("keepSelection");
    QTest::addColumn<QStringList>("alpha");
    QTest::addColumn<QStringList>("beta");
    const QStringList both{"N,3,1 North", "N,4,1 South"};
    const QStringList east{"N,5,2 East"};
    const QStringList doubled{"N,5,2 East", "N,3 North"};
    // North stands under Beta too, as an entry does that another program has moved.
    QTest::newRow("it") << "N,3" << false << both << east;
    QTest::newRow("it, not looked at") << "N,3" << true << QStringList{"N,4,1 South"} << doubled;
    QTest::newRow("another node") << "N,4,1" << false << QStringList{"N,4,1 South"} << doubled;
    QTest::newRow("a connection") << "C,2" << false << QStringList{"N,4,1 South"} << doubled;
    QTest::newRow("none") << "" << false << QStringList{"N,4,1 South"} << doubled;
}

void TestRemoveRoutines::RemoveNodeEntry_SelectedEntry_IsTheOneWhenItsTextIsTheName()
{
    QFETCH(QString, selected);
    QFETCH(bool, keepSelection);
    QFETCH(QStringList, alpha);
    QFETCH(QStringList, beta);
    SavingFixture fixture;
    fixture.ShowNodes();
    fixture.ConTree.Add(fixture.Beta(), "N,3", "North");

    QVERIFY(RemoveNodeEntry("North", fixture.ConTree, fixture.NodesTree, keepSelection,
                            fixture.ConTree.FindByKey(selected)));

    QCOMPARE(fixture.ConTree.Children(fixture.Alpha()), alpha);
    QCOMPARE(fixture.ConTree.Children(fixture.Beta()), beta);
}

void TestRemoveRoutines::RemoveNodeEntry_TextOfAConnection_LeavesTheConnection()
{
    SavingFixture fixture;
    fixture.Component.Store.AddNode("Twin", "Alpha", QString(), SavingFixture::NodeTarget);
    fixture.ConTree.SetText(fixture.Beta(), "Twin");
    const TreeEntries::Index connection = fixture.ConTree.FindByKey("C,2");

    QVERIFY(RemoveNodeEntry("Twin", fixture.ConTree, fixture.NodesTree, false, connection));

    QVERIFY(fixture.ConTree.Exists(connection));
    QCOMPARE(fixture.ConTree.Count(), 3);
}

void TestRemoveRoutines::RemoveNodeEntry_LoadToBeContinued_KeepsItsPlace()
{
    SavingFixture fixture;
    fixture.ConTree.AddNodes(fixture.Alpha(), std::vector<NewTreeEntry>{{3, u"North"}, {-4, u"South"}});
    qint32 position = 0;

    QVERIFY(RemoveNodeEntry("South", fixture.ConTree, fixture.NodesTree, true));

    FindContinueMark(fixture.ConTree, fixture.Alpha(), position, false);
    QCOMPARE(position, 3);
}

void TestRemoveRoutines::RemoveConnection_Connection_GoesWithItsNodes()
{
    SavingFixture fixture;
    fixture.ShowNodes();

    QVERIFY(RemoveConnection(" Alpha "));

    QCOMPARE(fixture.Work(), (QStringList{"DeleteParentNodes(Alpha)", "DeleteParent(Alpha,True)"}));
    QCOMPARE(fixture.Component.Store.Now.connections.size(), 1u);
    QCOMPARE(fixture.Component.Store.Now.nodes.size(), 1u);
    QCOMPARE(fixture.Connections(), (QStringList{"C,1 Alpha", "C,2 Beta"}));
}

void TestRemoveRoutines::RemoveConnection_FailedCall_GivesFalse_data()
{
    QTest::addColumn<QString>("failing");
    QTest::newRow("nodes") << "DeleteParentNodes";
    QTest::newRow("connection") << "DeleteParent";
}

void TestRemoveRoutines::RemoveConnection_FailedCall_GivesFalse()
{
    QFETCH(QString, failing);
    SavingFixture fixture;
    fixture.Component.Fail(failing);

    QVERIFY(!RemoveConnection("Alpha"));

    QCOMPARE(fixture.Component.Store.Now.connections.size(), 2u);
    QCOMPARE(fixture.Component.Store.Now.nodes.size(), 3u);
}

QTEST_GUILESS_MAIN(TestRemoveRoutines)
#include "TestRemoveRoutines.moc"
