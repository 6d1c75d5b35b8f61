#include "database/SaveRoutines.h"
#include "tests/database/SavingFixture.h"

#include <QTest>

/// What a saved node does to the tree of connections.
class TestSavedNodesUnderConnections : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Change_OnItsConnection_KeepsTheEntries();
    void Change_OnItsConnection_OtherCaseOfItsName_IsTheSame();
    void Change_LoadToBeContinued_ShowsAllNodes();
    void Change_NotShown_FillsNothing();
    void Change_ToAnotherConnection_MovesTheEntry_data();
    void Change_ToAnotherConnection_MovesTheEntry();
    void Change_WithoutNodesShown_TakesTheEntryAway_data();
    void Change_WithoutNodesShown_TakesTheEntryAway();
    void Change_ConnectionMissing_GivesFalse_data();
    void Change_ConnectionMissing_GivesFalse();
    void Change_FillFails_GivesFalse_data();
    void Change_FillFails_GivesFalse();
    void Change_EntryUnderAnotherConnection_GoesToTheRightOne();
    void Change_TextOfTheConnection_DoesNotCountAsTheNode();
    void Change_Position_IsInTheTreeThatIsShown_data();
    void Change_Position_IsInTheTreeThatIsShown();
    void Change_ShownUnderConnections_NeverOpened_IsFilledAndFound();
    void Change_ShownUnderConnections_ButNotThere_GivesFalse_data();
    void Change_ShownUnderConnections_ButNotThere_GivesFalse();
    void Change_TreeNotFilledYet_IsLeftAlone_data();
    void Change_TreeNotFilledYet_IsLeftAlone();
    void New_NodesShown_FillsItsConnection_data();
    void New_NodesShown_FillsItsConnection();
    void New_OthersOnTheConnection_StaySelected();
    void New_ConnectionMissing_IsSavedAllTheSame();
    void New_FillFails_GivesFalse();
    void New_Position_IsInTheTreeThatIsShown_data();
    void New_Position_IsInTheTreeThatIsShown();
};

static bool ChangeNorth(SavingFixture& fixture, const QString& newName,
                        const QString& conName = QStringLiteral("Alpha"))
{
    return SaveNodeChanges("North", newName, "Alpha", conName, "NET4", "", SavingFixture::NodeTarget,
                           fixture.NodesTree, fixture.ConTree, fixture.Position, fixture.ErrorText);
}

static bool SaveOn(SavingFixture& fixture, const QString& conName, const QString& name)
{
    return SaveNewNode(name, conName, "NET4", "", SavingFixture::NodeTarget, fixture.NodesTree,
                       fixture.ConTree, fixture.Position, fixture.ErrorText);
}

void TestSavedNodesUnderConnections::Change_OnItsConnection_KeepsTheEntries()
{
    SavingFixture fixture;
    fixture.ShowNodes();
    const QPersistentModelIndex north = fixture.ConTree.ModelIndex(fixture.ConTree.FindByKey("N,3,1"));
    const QPersistentModelIndex south = fixture.ConTree.ModelIndex(fixture.ConTree.FindByKey("N,4,1"));

    QVERIFY(ChangeNorth(fixture, "Zulu"));

    QCOMPARE(fixture.Work().last(), "GetParentNodesWithID(Alpha)");
    QCOMPARE(fixture.ConTree.Children(fixture.Alpha()), (QStringList{"N,4,1 South", "N,6,1 Zulu"}));
    QVERIFY(north == fixture.ConTree.ModelIndex(fixture.ConTree.FindByKey("N,6,1")));
    QVERIFY(south == fixture.ConTree.ModelIndex(fixture.ConTree.FindByKey("N,4,1")));
    QCOMPARE(fixture.ConTree.Children(fixture.Beta()), QStringList{"N,5,2 East"});
    QVERIFY(fixture.ConTree.Expanded(fixture.Alpha()));
    QCOMPARE(fixture.ConTree.Tag(fixture.Alpha()), "Nodes");
}

void TestSavedNodesUnderConnections::Change_OnItsConnection_OtherCaseOfItsName_IsTheSame()
{
    SavingFixture fixture;
    fixture.ShowNodes();
    const TreeEntries::Index north = fixture.ConTree.FindByKey("N,3,1");

    QVERIFY(ChangeNorth(fixture, "North", "ALPHA"));

    QCOMPARE(fixture.ConTree.Key(north), "N,6,1");
}

void TestSavedNodesUnderConnections::Change_LoadToBeContinued_ShowsAllNodes()
{
    SavingFixture fixture;
    Model().ConObject->ViewNodesChecked = true;
    fixture.ConTree.AddNodes(fixture.Alpha(), std::vector<NewTreeEntry>{{-3, u"North"}});
    const TreeEntries::Index north = fixture.ConTree.FindByKey("N,3");
    qint32 position = -1;

    QVERIFY(ChangeNorth(fixture, "North"));

    QCOMPARE(fixture.ConTree.Children(fixture.Alpha()), (QStringList{"N,6,1 North", "N,4,1 South"}));
    QCOMPARE(fixture.ConTree.Key(north), "N,6,1");
    FindContinueMark(fixture.ConTree, fixture.Alpha(), position, false);
    QCOMPARE(position, 0);
}

void TestSavedNodesUnderConnections::Change_NotShown_FillsNothing()
{
    SavingFixture fixture;
    Model().ConObject->ViewNodesChecked = true;

    QVERIFY(ChangeNorth(fixture, "Omega"));

    QCOMPARE(fixture.Component.Count("GetParentNodesWithID"), 0);
    QCOMPARE(fixture.ConTree.Count(), 3);
}

void TestSavedNodesUnderConnections::Change_ToAnotherConnection_MovesTheEntry_data()
{
    QTest::addColumn<bool>("shownBefore");
    QTest::newRow("shown") << true;
    QTest::newRow("connections are closed") << false;
}

void TestSavedNodesUnderConnections::Change_ToAnotherConnection_MovesTheEntry()
{
    QFETCH(bool, shownBefore);
    SavingFixture fixture;
    if (shownBefore)
        fixture.ShowNodes();
    Model().ConObject->ViewNodesChecked = true;
    const TreeEntries::Index east = fixture.ConTree.FindByKey("N,5,2");

    QVERIFY(ChangeNorth(fixture, "North", "Beta"));

    QCOMPARE(fixture.Work().last(), "GetParentNodesWithID(Beta)");
    QCOMPARE(fixture.Component.Count("GetParentNodesWithID"), 1);
    QCOMPARE(fixture.ConTree.Children(fixture.Alpha()),
             shownBefore ? QStringList{"N,4,1 South"} : QStringList());
    QCOMPARE(fixture.ConTree.Children(fixture.Beta()), (QStringList{"N,5,2 East", "N,6,2 North"}));
    QVERIFY(fixture.ConTree.Expanded(fixture.Beta()));
    if (shownBefore)
        QCOMPARE(fixture.ConTree.Key(east), "N,5,2");
}

void TestSavedNodesUnderConnections::Change_WithoutNodesShown_TakesTheEntryAway_data()
{
    QTest::addColumn<QString>("conName");
    QTest::newRow("same connection") << "Alpha";
    QTest::newRow("another connection") << "Beta";
}

void TestSavedNodesUnderConnections::Change_WithoutNodesShown_TakesTheEntryAway()
{
    QFETCH(QString, conName);
    SavingFixture fixture;
    fixture.ShowNodes();
    Model().ConObject->ViewNodesChecked = false;

    QVERIFY(ChangeNorth(fixture, "North", conName));

    QCOMPARE(fixture.Component.Count("GetParentNodesWithID"), 0);
    QCOMPARE(fixture.ConTree.Children(fixture.Alpha()), QStringList{"N,4,1 South"});
    QCOMPARE(fixture.ConTree.Children(fixture.Beta()), QStringList{"N,5,2 East"});
    QCOMPARE(fixture.Position, fixture.NodesTree.FindByKey("N,6"));
}

void TestSavedNodesUnderConnections::Change_ConnectionMissing_GivesFalse_data()
{
    QTest::addColumn<QString>("conName");
    QTest::newRow("its own") << "Alpha";
    QTest::newRow("another") << "Beta";
}

void TestSavedNodesUnderConnections::Change_ConnectionMissing_GivesFalse()
{
    QFETCH(QString, conName);
    SavingFixture fixture;
    fixture.ShowNodes();
    fixture.ConTree.SetText(conName == "Alpha" ? fixture.Alpha() : fixture.Beta(), "other");

    QVERIFY(!ChangeNorth(fixture, "North", conName));

    QCOMPARE(fixture.Component.Count("GetParentNodesWithID"), 0);
    QCOMPARE(fixture.ErrorText, QString());
    QCOMPARE(fixture.Position, -7);
}

void TestSavedNodesUnderConnections::Change_FillFails_GivesFalse_data()
{
    QTest::addColumn<QString>("conName");
    QTest::newRow("its own") << "Alpha";
    QTest::newRow("another") << "Beta";
}

void TestSavedNodesUnderConnections::Change_FillFails_GivesFalse()
{
    QFETCH(QString, conName);
    SavingFixture fixture;
    fixture.ShowNodes();
    fixture.Component.Fail("GetParentNodesWithID");

    QVERIFY(!ChangeNorth(fixture, "North", conName));

    QCOMPARE(fixture.ErrorText, QString());
    QCOMPARE(fixture.Position, -7);
}

void TestSavedNodesUnderConnections::Change_EntryUnderAnotherConnection_GoesToTheRightOne()
{
    SavingFixture fixture;
    fixture.ShowNodes();
    // Another program has moved North to Beta; the tree does not know yet.
    fixture.Component.Store.Now.nodes[0].conName = "Beta";

    QVERIFY(SaveNodeChanges("North", "North", "Beta", "Beta", "NET4", "", SavingFixture::NodeTarget,
                            fixture.NodesTree, fixture.ConTree, fixture.Position, fixture.ErrorText));

    QCOMPARE(fixture.ConTree.Children(fixture.Alpha()), QStringList{"N,4,1 South"});
    QCOMPARE(fixture.ConTree.Children(fixture.Beta()), (QStringList{"N,5,2 East", "N,6,2 North"}));
}

void TestSavedNodesUnderConnections::Change_TextOfTheConnection_DoesNotCountAsTheNode()
{
    SavingFixture fixture;
    fixture.ShowNodes();
    fixture.ConTree.SetText(fixture.Beta(), "North");
    const TreeEntries::Index connection = fixture.ConTree.FindByKey("C,2");

    QVERIFY(ChangeNorth(fixture, "Omega"));

    QCOMPARE(fixture.ConTree.Key(connection), "C,2");
    QCOMPARE(fixture.ConTree.Text(connection), "North");
    QCOMPARE(fixture.ConTree.Children(fixture.Alpha()), (QStringList{"N,6,1 Omega", "N,4,1 South"}));
}

static void PositionRows()
{
    QTest::addColumn<bool>("optCon");
    QTest::addColumn<bool>("viewNodes");
    QTest::addColumn<bool>("inConTree");
    QTest::newRow("nodes") << false << false << false;
    QTest::newRow("nodes, shown under connections") << false << true << false;
    QTest::newRow("connections with waypoints") << true << false << false;
    QTest::newRow("connections with nodes") << true << true << true;
}

void TestSavedNodesUnderConnections::Change_Position_IsInTheTreeThatIsShown_data()
{
    PositionRows();
}

void TestSavedNodesUnderConnections::Change_Position_IsInTheTreeThatIsShown()
{
    QFETCH(bool, optCon);
    QFETCH(bool, viewNodes);
    QFETCH(bool, inConTree);
    SavingFixture fixture;
    fixture.ShowNodes();
    Model().ConObject->ViewNodesChecked = viewNodes;
    Model().ConObject->optCon = optCon;

    QVERIFY(ChangeNorth(fixture, "Omega"));

    QCOMPARE(fixture.Position,
             inConTree ? fixture.ConTree.FindByKey("N,6,1") : fixture.NodesTree.FindByKey("N,6"));
    QVERIFY(fixture.Position != 0);
}

void TestSavedNodesUnderConnections::Change_ShownUnderConnections_NeverOpened_IsFilledAndFound()
{
    SavingFixture fixture;
    Model().ConObject->ViewNodesChecked = true;
    Model().ConObject->optCon = true;

    QVERIFY(ChangeNorth(fixture, "Omega"));

    QCOMPARE(fixture.Component.Count("GetParentNodesWithID"), 1);
    QCOMPARE(fixture.ConTree.Children(fixture.Alpha()), (QStringList{"N,6,1 Omega", "N,4,1 South"}));
    QCOMPARE(fixture.Position, fixture.ConTree.FindByKey("N,6,1"));
    QCOMPARE(fixture.ConTree.ChildCount(fixture.Beta()), 0);
}

void TestSavedNodesUnderConnections::Change_ShownUnderConnections_ButNotThere_GivesFalse_data()
{
    QTest::addColumn<bool>("connectionIsShown");
    QTest::addColumn<bool>("answers");
    QTest::newRow("no such connection") << false << true;
    QTest::newRow("not among its nodes") << true << true;
    QTest::newRow("the nodes cannot be read") << true << false;
}

void TestSavedNodesUnderConnections::Change_ShownUnderConnections_ButNotThere_GivesFalse()
{
    QFETCH(bool, connectionIsShown);
    QFETCH(bool, answers);
    SavingFixture fixture;
    Model().ConObject->ViewNodesChecked = true;
    Model().ConObject->optCon = true;
    if (!connectionIsShown)
        fixture.ConTree.Remove(fixture.Alpha());
    if (answers)
        fixture.Component.Answer("GetParentNodesWithID", {"South\t4"});
    else
        fixture.Component.Fail("GetParentNodesWithID");

    QVERIFY(!ChangeNorth(fixture, "North"));

    QCOMPARE(fixture.ErrorText, QString());
    QCOMPARE(fixture.Position, -7);
}

void TestSavedNodesUnderConnections::Change_TreeNotFilledYet_IsLeftAlone_data()
{
    QTest::addColumn<bool>("optCon");
    QTest::newRow("nodes are shown") << false;
    QTest::newRow("connections are shown") << true;
}

void TestSavedNodesUnderConnections::Change_TreeNotFilledYet_IsLeftAlone()
{
    QFETCH(bool, optCon);
    SavingFixture fixture;
    fixture.ConTree.Clear();
    Model().ConObject->ViewNodesChecked = true;
    Model().ConObject->optCon = optCon;

    QVERIFY(ChangeNorth(fixture, "North", "Beta"));

    QCOMPARE(fixture.ConTree.Count(), 0);
    QCOMPARE(fixture.NodesTree.Text(fixture.NodesTree.FindByKey("N,6")), "North");
    QCOMPARE(fixture.Position, optCon ? 0 : fixture.NodesTree.FindByKey("N,6"));
}

void TestSavedNodesUnderConnections::New_NodesShown_FillsItsConnection_data()
{
    QTest::addColumn<bool>("viewNodes");
    QTest::addColumn<QStringList>("children");
    QTest::newRow("nodes shown") << true << QStringList{"N,3,1 North", "N,6,1 Omega", "N,4,1 South"};
    QTest::newRow("nodes not shown") << false << QStringList();
}

void TestSavedNodesUnderConnections::New_NodesShown_FillsItsConnection()
{
    QFETCH(bool, viewNodes);
    QFETCH(QStringList, children);
    SavingFixture fixture;
    Model().ConObject->ViewNodesChecked = viewNodes;

    QVERIFY(SaveOn(fixture, " alpha ", "Omega"));

    QCOMPARE(fixture.ConTree.Children(fixture.Alpha()), children);
    QCOMPARE(fixture.Work().last(), viewNodes ? "GetParentNodesWithID(Alpha)" : "GetNodeID(Omega)");
    QCOMPARE(fixture.ConTree.Expanded(fixture.Alpha()), viewNodes);
}

void TestSavedNodesUnderConnections::New_OthersOnTheConnection_StaySelected()
{
    SavingFixture fixture;
    fixture.ShowNodes();
    const QPersistentModelIndex south = fixture.ConTree.ModelIndex(fixture.ConTree.FindByKey("N,4,1"));

    QVERIFY(SaveOn(fixture, "Alpha", "Omega"));

    QVERIFY(south == fixture.ConTree.ModelIndex(fixture.ConTree.FindByKey("N,4,1")));
    QCOMPARE(south.row(), 2);
}

void TestSavedNodesUnderConnections::New_ConnectionMissing_IsSavedAllTheSame()
{
    SavingFixture fixture;
    Model().ConObject->ViewNodesChecked = true;
    Model().ConObject->optCon = true;
    fixture.ConTree.Remove(fixture.Alpha());

    QVERIFY(SaveOn(fixture, "Alpha", "Omega"));

    QCOMPARE(fixture.Component.Count("GetParentNodesWithID"), 0);
    QCOMPARE(fixture.Component.Store.Now.nodes.back().name, "Omega");
    QCOMPARE(fixture.Nodes().size(), 4);
    QCOMPARE(fixture.Position, 0);
}

void TestSavedNodesUnderConnections::New_FillFails_GivesFalse()
{
    SavingFixture fixture;
    fixture.ShowNodes();
    fixture.Component.Fail("GetParentNodesWithID");

    QVERIFY(!SaveOn(fixture, "Alpha", "Omega"));

    QCOMPARE(fixture.ErrorText, QString());
    QCOMPARE(fixture.Position, -7);
}

void TestSavedNodesUnderConnections::New_Position_IsInTheTreeThatIsShown_data()
{
    PositionRows();
}

void TestSavedNodesUnderConnections::New_Position_IsInTheTreeThatIsShown()
{
    QFETCH(bool, optCon);
    QFETCH(bool, viewNodes);
    QFETCH(bool, inConTree);
    SavingFixture fixture;
    Model().ConObject->ViewNodesChecked = viewNodes;
    Model().ConObject->optCon = optCon;

    QVERIFY(SaveOn(fixture, "Beta", "Omega"));

    QCOMPARE(fixture.Position,
             inConTree ? fixture.ConTree.FindByKey("N,6,2") : fixture.NodesTree.FindByKey("N,6"));
    QVERIFY(fixture.Position != 0);
}

QTEST_GUILESS_MAIN(TestSavedNodesUnderConnections)
#include "TestSavedNodesUnderConnections.moc"
