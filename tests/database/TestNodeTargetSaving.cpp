#include "database/NodeTargetSaving.h"
#include "tests/database/SavingFixture.h"

#include <QTest>

/// A node is saved when its target composes.
class TestNodeTargetSaving : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void SaveNodeWithTarget_NewNode_IsSaved();
    void SaveNodeWithTarget_NewNodeWithManager_KeepsIt_data();
    void SaveNodeWithTarget_NewNodeWithManager_KeepsIt();
    void SaveNodeWithTarget_ExistingNode_IsReplaced();
    void SaveNodeWithTarget_ExistingNode_IsNotReplacedUnasked();
    void SaveNodeWithTarget_TargetRefused_IsTold_data();
    void SaveNodeWithTarget_TargetRefused_IsTold();
    void SaveNodeWithTarget_FailedCall_GivesFalse_data();
    void SaveNodeWithTarget_FailedCall_GivesFalse();
    void SaveNodeWithTarget_Entry_IsSelectedWhereNodesAreShown_data();
    void SaveNodeWithTarget_Entry_IsSelectedWhereNodesAreShown();
    void SaveNodeWithTarget_NotSaved_SelectsNothing();
    void SaveNodeWithTarget_NoTrees_SavesTheRecord_data();
    void SaveNodeWithTarget_NoTrees_SavesTheRecord();
    void SaveNodeWithValues_Values_GoToTheirRows();
    void SaveNodeWithValues_MayReplace_IsPassedOn_data();
    void SaveNodeWithValues_MayReplace_IsPassedOn();
};

/// A working copy of a node of type NET4 with an address, over Alpha, and the trees of ConObject.
class TargetFixture : public SavingFixture
{
public:
    TargetFixture()
    {
        Model().ConObject->ConTree = &ConTree;
        Model().ConObject->NodesTree = &NodesTree;
        Model().SelectTreeEntry = [this](TreeEntries& tree, TreeEntries::Index entry) {
            Selected << (&tree == &ConTree ? "ConTree " : "NodesTree ") + tree.Key(entry);
        };
        if (!Con.SetWpDataFromNodeType("T4 Node"))
            qFatal("There is no node type.");
        Con.ConName = "Alpha";
        Con.NodeType = "NET4";
        Con.CommandLine = "-port 1";
        Con.ConWpCount = 1;
        Con.SetWpDataItem(1, 1, 2, "99");
        Forget();
    }

    ConData Con;
    QStringList Selected;
};

static const QString Target = QStringLiteral("WP=NET4,ADDR=99");

void TestNodeTargetSaving::SaveNodeWithTarget_NewNode_IsSaved()
{
    TargetFixture fixture;

    QVERIFY(SaveNodeWithTarget(fixture.Con, "Omega", false));

    QCOMPARE(
        fixture.Work(),
        (QStringList{QStringLiteral("CheckTargetSyntax(%1,-1)").arg(Target), "NodeNameExist(Omega)",
                     "NodeNameExist(Omega)", "GetUsersList(Omega,NodeWP,)",
                     QStringLiteral("SaveNode(Omega,NET4,%1,Alpha,-port 1)").arg(Target),
                     "GetUsersList(Omega,NodeWP,)", "UpdateUsersList(Omega,NodeWP,)", "GetNodeID(Omega)"}));
    QCOMPARE(fixture.Con.NodeName, "Omega");
    QCOMPARE(fixture.Con.TargetString, Target);
    QVERIFY(fixture.Con.NewNode);
    QCOMPARE(fixture.Nodes(), (QStringList{"N,5 East", "N,3 North", "N,6 Omega", "N,4 South"}));
    QCOMPARE(fixture.Selected, QStringList{"NodesTree N,6"});
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestNodeTargetSaving::SaveNodeWithTarget_NewNodeWithManager_KeepsIt_data()
{
    QTest::addColumn<QString>("index");
    QTest::addColumn<QStringList>("told");
    QTest::newRow("known") << "12" << QStringList();
    QTest::newRow("unknown") << "13"
                             << QStringList{"Unknown error in access to database.",
                                            "Manager index doesn't exist."};
}

void TestNodeTargetSaving::SaveNodeWithTarget_NewNodeWithManager_KeepsIt()
{
    QFETCH(QString, index);
    TargetFixture fixture;
    fixture.Con.CommandLine = index + "|-port 1";

    QVERIFY(SaveNodeWithTarget(fixture.Con, "Omega", false));

    QVERIFY(fixture.Work().contains(QStringLiteral("UpdateNodeNmaidx(Omega,%1)").arg(index)));
    QTEST(fixture.Operator.Texts(), "told");
    QVERIFY2(fixture.Nodes().contains("N,6 Omega"), qPrintable(fixture.Nodes().join(u'/')));
}

void TestNodeTargetSaving::SaveNodeWithTarget_ExistingNode_IsReplaced()
{
    TargetFixture fixture;
    fixture.Con.NewNode = true;
    fixture.Con.CommandLine = "12|-port 1";

    QVERIFY(SaveNodeWithTarget(fixture.Con, "North", true));

    QCOMPARE(fixture.Work(),
             (QStringList{QStringLiteral("CheckTargetSyntax(%1,-1)").arg(Target), "NodeNameExist(North)",
                          "DeleteNodeFromBrowser(North)", "GetUsersList(North,NodeWP,)",
                          QStringLiteral("SaveNode(North,NET4,%1,Alpha,-port 1)").arg(Target),
                          "GetUsersList(North,NodeWP,)", "UpdateUsersList(North,NodeWP,)",
                          "UpdateNodeNmaidx(North,12)", "GetNodeID(North)"}));
    QVERIFY(!fixture.Con.NewNode);
    QCOMPARE(fixture.Nodes(), (QStringList{"N,5 East", "N,6 North", "N,4 South"}));
    QCOMPARE(fixture.Selected, QStringList{"NodesTree N,6"});
}

void TestNodeTargetSaving::SaveNodeWithTarget_ExistingNode_IsNotReplacedUnasked()
{
    TargetFixture fixture;

    QVERIFY(!SaveNodeWithTarget(fixture.Con, "north", false));

    QCOMPARE(fixture.Work().last(), "NodeNameExist(north)");
    QVERIFY(!fixture.Con.NewNode);
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestNodeTargetSaving::SaveNodeWithTarget_TargetRefused_IsTold_data()
{
    QTest::addColumn<bool>("fails");
    QTest::newRow("wrong") << false;
    QTest::newRow("cannot be checked") << true;
}

void TestNodeTargetSaving::SaveNodeWithTarget_TargetRefused_IsTold()
{
    QFETCH(bool, fails);
    TargetFixture fixture;
    if (fails)
        fixture.Component.Fail("CheckTargetSyntax");
    else
        fixture.Component.Answer("CheckTargetSyntax", {"", "ERROR"});

    QVERIFY(!SaveNodeWithTarget(fixture.Con, "Omega", true));

    QCOMPARE(fixture.Operator.Boxes.back(),
             RecordedBox::Plain("No saving, because of an error in waypoint parameters or mandatory waypoint "
                                "is missing all its parameters."));
    QCOMPARE(fixture.Work().size(), 1);
    QCOMPARE(fixture.Con.NodeName, "Omega");
}

void TestNodeTargetSaving::SaveNodeWithTarget_FailedCall_GivesFalse_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("failing");
    QTest::newRow("name search") << "Omega"
                                 << "NodeNameExist";
    QTest::newRow("save") << "Omega"
                          << "SaveNode";
    QTest::newRow("replace") << "North"
                             << "DeleteNodeFromBrowser";
}

void TestNodeTargetSaving::SaveNodeWithTarget_FailedCall_GivesFalse()
{
    QFETCH(QString, name);
    QFETCH(QString, failing);
    TargetFixture fixture;
    fixture.Component.Fail(failing);

    QVERIFY(!SaveNodeWithTarget(fixture.Con, name, true));

    QVERIFY(fixture.Work().last().startsWith(failing + u'('));
    QCOMPARE(fixture.Operator.Texts(), QStringList{"Unknown error in access to database."});
    QCOMPARE(fixture.Selected, QStringList());
}

void TestNodeTargetSaving::SaveNodeWithTarget_Entry_IsSelectedWhereNodesAreShown_data()
{
    QTest::addColumn<bool>("optCon");
    QTest::addColumn<bool>("viewNodes");
    QTest::addColumn<QStringList>("selected");
    QTest::newRow("nodes") << false << false << QStringList{"NodesTree N,6"};
    QTest::newRow("nodes, shown under connections") << false << true << QStringList{"NodesTree N,6"};
    QTest::newRow("connections with waypoints") << true << false << QStringList();
    QTest::newRow("connections with nodes") << true << true << QStringList{"ConTree N,6,1"};
}

void TestNodeTargetSaving::SaveNodeWithTarget_Entry_IsSelectedWhereNodesAreShown()
{
    QFETCH(bool, optCon);
    QFETCH(bool, viewNodes);
    QFETCH(QStringList, selected);
    TargetFixture fixture;
    Model().ConObject->optCon = optCon;
    Model().ConObject->ViewNodesChecked = viewNodes;
    fixture.Con.optCon = !optCon;
    fixture.Con.ViewNodesChecked = !viewNodes;

    QVERIFY(SaveNodeWithTarget(fixture.Con, "Omega", false));

    QCOMPARE(fixture.Selected, selected);
}

void TestNodeTargetSaving::SaveNodeWithTarget_NotSaved_SelectsNothing()
{
    TargetFixture fixture;

    QVERIFY(!SaveNodeWithTarget(fixture.Con, "  ", true));

    QCOMPARE(fixture.Selected, QStringList());
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestNodeTargetSaving::SaveNodeWithTarget_NoTrees_SavesTheRecord_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("new") << "Omega";
    QTest::newRow("existing") << "North";
}

void TestNodeTargetSaving::SaveNodeWithTarget_NoTrees_SavesTheRecord()
{
    QFETCH(QString, name);
    TargetFixture fixture;
    Model().ConObject->ConTree = nullptr;
    Model().ConObject->NodesTree = nullptr;
    Model().ConObject->optCon = true;
    Model().ConObject->ViewNodesChecked = true;

    QVERIFY(SaveNodeWithTarget(fixture.Con, name, true));

    QCOMPARE(fixture.Component.Store.Now.nodes.back().name, name);
    QCOMPARE(fixture.Selected, QStringList());
}

void TestNodeTargetSaving::SaveNodeWithValues_Values_GoToTheirRows()
{
    TargetFixture fixture;
    fixture.Con.ConWpCount = 3;

    QVERIFY(SaveNodeWithValues(fixture.Con, false, "Omega", "ignored", "17", "5", "3000"));

    QCOMPARE(fixture.Con.NodeAddress, "17");
    QCOMPARE(fixture.Con.Retry, "5");
    QCOMPARE(fixture.Con.Time, "3000");
    QCOMPARE(fixture.Con.ConWpCount, 1);
    QCOMPARE(fixture.Con.GetWpData(1).GetWpParam(1, 2), "17");
    QCOMPARE(fixture.Con.GetWpData(1).GetWpParam(5, 2), "3000");
    QCOMPARE(fixture.Con.GetWpData(1).GetWpParam(6, 2), "5");
    QCOMPARE(fixture.Component.Store.Now.nodes.back().target, "WP=NET4,ADDR=17,TIME=3000,RETRY=5");
}

void TestNodeTargetSaving::SaveNodeWithValues_MayReplace_IsPassedOn_data()
{
    QTest::addColumn<bool>("mayReplace");
    QTest::newRow("yes") << true;
    QTest::newRow("no") << false;
}

void TestNodeTargetSaving::SaveNodeWithValues_MayReplace_IsPassedOn()
{
    QFETCH(bool, mayReplace);
    TargetFixture fixture;

    QCOMPARE(SaveNodeWithValues(fixture.Con, mayReplace, "North", "", "17", "5", "3000"), mayReplace);

    QCOMPARE(fixture.Component.Count("SaveNode"), mayReplace ? 1 : 0);
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

QTEST_GUILESS_MAIN(TestNodeTargetSaving)
#include "TestNodeTargetSaving.moc"
