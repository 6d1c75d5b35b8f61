#include "database/DirectNodeSave.h"
#include "model/ModelState.h"
#include "tests/database/DirectNodes.h"
#include "tests/database/SaveExpectations.h"

using namespace SaveTexts;

/// SaveDirectNode where it saves: in which steps, and what follows.
class TestDirectNodeSave : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { Model().SelectTreeEntry = nullptr; }

    void New_OnStoredConnection_IsSaved();
    void New_BlanksAtTheEnds_AreRemoved();
    void New_Class_KeepsItsIdAndName();
    void Taken_ReplacesAfterAQuestion();
    void Taken_OnAnotherConnection_Moves();
    void Connection_New_IsSavedFirst();
    void Connection_New_BlanksAtTheEnds_AreRemoved();
    void Connection_Taken_IsReplacedAfterAQuestion();
    void Connection_New_NodeTaken_BothAreSavedAfterTheQuestion();
    void Connection_TakenAndNodeTaken_AsksForEachOnce();
    void Connection_NotNewOrNamed_IsNotSaved_data();
    void Connection_NotNewOrNamed_IsNotSaved();
    void Connection_OfAnotherKind_GivesTheNodeItsOwnWaypoints();
    void Values_AreStoredInsideTheTransaction();
    void Entry_IsSelectedWhereNodesAreShown_data();
    void Entry_IsSelectedWhereNodesAreShown();
    void Entry_OfTheConnection_IsSelectedBefore();
    void NoTrees_SavesTheRecord_data();
    void NoTrees_SavesTheRecord();
};

static RecordedBox NodeQuestion(const QString& name)
{
    return {QStringLiteral("Node %1 exists in database. Do you want to replace it ?").arg(name),
            BoxFlags::OkCancel, "Replace Node"};
}

static RecordedBox ConnectionQuestion(const QString& name)
{
    return {QStringLiteral("Connection %1 exists in database. Do you want to replace it?").arg(name),
            BoxFlags::OkCancel, "Replace Connection"};
}

static QString Check(const QString& target)
{
    return QStringLiteral("CheckTargetSyntax(%1,-1)").arg(target);
}

/// The calls of a node that is saved as new, or in place of another.
static QStringList NodeCalls(const QString& name, const QString& conName, bool isNew)
{
    const QString read = QStringLiteral("GetUsersList(%1,NodeWP,)").arg(name);
    const QString index = QStringLiteral("UpdateNodeNmaidx(%1,1)").arg(name);
    const QString id = QStringLiteral("GetNodeID(%1)").arg(name);
    const QString nodes = QStringLiteral("GetParentNodesWithID(%1)").arg(conName);
    const QStringList record{
        read, QStringLiteral("SaveNode(%1,NET4,%2,%3,-port 9)").arg(name, DirectNodes::Target, conName), read,
        QStringLiteral("UpdateUsersList(%1,NodeWP,)").arg(name)};
    if (isNew)
        return QStringList{QStringLiteral("NodeNameExist(%1)").arg(name)} + record +
               QStringList{id, nodes, index, id};
    return QStringList{QStringLiteral("DeleteNodeFromBrowser(%1)").arg(name)} + record +
           QStringList{index, id, nodes};
}

static QStringList NameChecks(const QString& name)
{
    return {QStringLiteral("ParentNameExist(%1)").arg(name), Check(DirectNodes::Target),
            QStringLiteral("NodeNameExist(%1)").arg(name)};
}

/// `conName`: where it is reached now.
static void CompareAfterSave(const SaveFixture& fixture, const QString& name, const QString& conName)
{
    const ConData& direct = fixture.Direct();
    QCOMPARE(fixture.Component.Store.Commits, 1);
    QCOMPARE(direct.NodeName, name);
    QCOMPARE(direct.ConName, conName);
    QCOMPARE(direct.ConDbID, fixture.IdOfConnection(conName));
    QCOMPARE(direct.ConWpCount, direct.NodeWpCount);
    QCOMPARE(direct.TargetString, DirectNodes::Target);
    QCOMPARE(fixture.ConTree.Text(direct.SelectedTreeNodeIndex), name);
    QCOMPARE(fixture.ConTree.Text(fixture.ConTree.Parent(direct.SelectedTreeNodeIndex)), conName);
    QVERIFY(fixture.Records().contains(
        QStringList{name, conName, "NET4", DirectNodes::Target, "1", "-port 9"}.join('|')));
    QCOMPARE(fixture.TreeContents(), SaveFixture::FreshTreeContents());
    QCOMPARE(fixture.Component.Store.Levels(), 0);
    QCOMPARE(fixture.Pointers.last(), DatabaseClass::NormalPointer);
    QCOMPARE(fixture.LevelsUnderBoxes, 0);
}

static void ChooseAndLoad(SaveFixture& fixture, const QString& conName)
{
    DirectNodes::Choose(fixture, conName);
    DirectNodes::Load(fixture);
}

static void ComposeAndLoad(SaveFixture& fixture, const QString& conName)
{
    DirectNodes::Compose(fixture, conName);
    DirectNodes::Load(fixture);
}

// Node ------------------------------------------------------------------------------------------------------

void TestDirectNodeSave::New_OnStoredConnection_IsSaved()
{
    SaveFixture fixture;
    ChooseAndLoad(fixture, "Gamma");

    QVERIFY(DirectNodes::Save(fixture, "West"));

    QCOMPARE(fixture.Steps(), QStringList({"Begin", "GetParentID(Gamma)"}) + NameChecks("West") +
                                  NodeCalls("West", "Gamma", true) + QStringList{"Commit"});
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
    QVERIFY(fixture.Direct().NewNode);
    CompareAfterSave(fixture, "West", "Gamma");
}

void TestDirectNodeSave::New_BlanksAtTheEnds_AreRemoved()
{
    SaveFixture fixture;
    ChooseAndLoad(fixture, "Alpha");
    DirectNodeSaveRequest request{"  West ", {}};

    QVERIFY(SaveDirectNode(fixture.Direct(), fixture.NewDirect(), request));

    QCOMPARE(request.name, "West");
    CompareAfterSave(fixture, "West", "Alpha");
}

void TestDirectNodeSave::New_Class_KeepsItsIdAndName()
{
    SaveFixture fixture;
    ChooseAndLoad(fixture, "Alpha");
    fixture.Direct().NodeDbID = 4711;

    QVERIFY(DirectNodes::Save(fixture, "West"));

    QCOMPARE(fixture.Direct().NodeDbID, 4711);
    QCOMPARE(fixture.Direct().NodeTypeName, "NET4");
    QCOMPARE(fixture.Direct().ConTypeName, "T4BUS");
}

void TestDirectNodeSave::Taken_ReplacesAfterAQuestion()
{
    SaveFixture fixture;
    ChooseAndLoad(fixture, "Alpha");

    QVERIFY(DirectNodes::Save(fixture, "South"));

    QCOMPARE(fixture.Operator.Boxes, std::vector{NodeQuestion("South")});
    QCOMPARE(fixture.Steps(), QStringList({"Begin", "GetParentID(Alpha)"}) + NameChecks("South") +
                                  QStringList({"GetNodeID(South)", "Rollback", "Begin", "GetParentID(Alpha)",
                                               "GetNodeID(South)"}) +
                                  NodeCalls("South", "Alpha", false) + QStringList{"Commit"});
    QVERIFY(!fixture.Direct().NewNode);
    CompareAfterSave(fixture, "South", "Alpha");
}

void TestDirectNodeSave::Taken_OnAnotherConnection_Moves()
{
    SaveFixture fixture;
    ChooseAndLoad(fixture, "Gamma");

    QVERIFY(DirectNodes::Save(fixture, "East"));

    QCOMPARE(fixture.Component.Store.Now.nodes.size(), 3U);
    CompareAfterSave(fixture, "East", "Gamma");
}

// Connection ------------------------------------------------------------------------------------------------

static void CompareNewDirectAfterSave(const SaveFixture& fixture)
{
    QVERIFY(!fixture.NewDirect().NewCon);
    QCOMPARE(fixture.NewDirect().ConName, QString());
    QCOMPARE(fixture.NewDirect().ConDbID, fixture.Direct().ConDbID);
}

void TestDirectNodeSave::Connection_New_IsSavedFirst()
{
    SaveFixture fixture;
    ComposeAndLoad(fixture, "Delta");

    QVERIFY(DirectNodes::Save(fixture, "West"));

    const QStringList steps = fixture.Steps();
    QCOMPARE(steps.mid(0, 3),
             (QStringList{"Begin", Check(DirectNodes::NewConnectionTarget), "ParentNameExist(Delta)"}));
    const qsizetype saved = steps.indexOf(QRegularExpression("SaveParent\\(Delta,.*"));
    QVERIFY(saved > 0);
    QVERIFY(saved < steps.indexOf(QRegularExpression("SaveNode\\(West,.*")));
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
    QVERIFY(fixture.Records().contains("Delta|" + DirectNodes::NewConnectionTarget));
    CompareNewDirectAfterSave(fixture);
    CompareAfterSave(fixture, "West", "Delta");
}

void TestDirectNodeSave::Connection_New_BlanksAtTheEnds_AreRemoved()
{
    SaveFixture fixture;
    ComposeAndLoad(fixture, "  Delta ");

    QVERIFY(DirectNodes::Save(fixture, "West"));

    CompareAfterSave(fixture, "West", "Delta");
}

void TestDirectNodeSave::Connection_Taken_IsReplacedAfterAQuestion()
{
    SaveFixture fixture;
    ComposeAndLoad(fixture, "Beta");

    QVERIFY(DirectNodes::Save(fixture, "West"));

    QCOMPARE(fixture.Operator.Boxes, std::vector{ConnectionQuestion("Beta")});
    QCOMPARE(fixture.Steps().mid(0, 8),
             (QStringList{"Begin", Check(DirectNodes::NewConnectionTarget), "ParentNameExist(Beta)",
                          "GetParentID(Beta)", "Rollback", "Begin", "GetParentID(Beta)",
                          "ReplaceParentTarget(Beta," + DirectNodes::NewConnectionTarget + ")"}));
    QVERIFY(fixture.Records().contains("Beta|" + DirectNodes::NewConnectionTarget));
    QVERIFY(fixture.IdOfNode("East") != 0);
    CompareNewDirectAfterSave(fixture);
    CompareAfterSave(fixture, "West", "Beta");
}

void TestDirectNodeSave::Connection_New_NodeTaken_BothAreSavedAfterTheQuestion()
{
    SaveFixture fixture;
    ComposeAndLoad(fixture, "Delta");
    QStringList connections;
    fixture.Operator.WhileOpen = [&](const RecordedBox&) {
        connections << QString::number(fixture.IdOfConnection("Delta"));
    };

    QVERIFY(DirectNodes::Save(fixture, "South"));

    QCOMPARE(fixture.Operator.Boxes, std::vector{NodeQuestion("South")});
    QCOMPARE(connections, QStringList{"0"});
    CompareNewDirectAfterSave(fixture);
    CompareAfterSave(fixture, "South", "Delta");
}

void TestDirectNodeSave::Connection_TakenAndNodeTaken_AsksForEachOnce()
{
    SaveFixture fixture;
    ComposeAndLoad(fixture, "Beta");

    QVERIFY(DirectNodes::Save(fixture, "South"));

    QCOMPARE(fixture.Operator.Boxes, (std::vector{ConnectionQuestion("Beta"), NodeQuestion("South")}));
    QVERIFY(fixture.Records().contains("Beta|" + DirectNodes::NewConnectionTarget));
    CompareAfterSave(fixture, "South", "Beta");
}

void TestDirectNodeSave::Connection_NotNewOrNamed_IsNotSaved_data()
{
    QTest::addColumn<bool>("isNew");
    QTest::addColumn<QString>("name");
    QTest::newRow("not new") << false << "Delta";
    QTest::newRow("no name") << true << "";
    QTest::newRow("blank name") << true << "  ";
}

void TestDirectNodeSave::Connection_NotNewOrNamed_IsNotSaved()
{
    QFETCH(bool, isNew);
    QFETCH(QString, name);
    SaveFixture fixture;
    DirectNodes::Compose(fixture, name);
    fixture.NewDirect().NewCon = isNew;
    ChooseAndLoad(fixture, "Gamma");

    QVERIFY(DirectNodes::Save(fixture, "West"));

    QCOMPARE(fixture.Component.Count("SaveParent"), 0);
    QCOMPARE(fixture.NewDirect().ConName, name);
    QCOMPARE(fixture.NewDirect().NewCon, isNew);
    CompareAfterSave(fixture, "West", "Gamma");
}

void TestDirectNodeSave::Connection_OfAnotherKind_GivesTheNodeItsOwnWaypoints()
{
    SaveFixture fixture;
    DirectNodes::Choose(fixture, "Beta");
    // The second waypoint of the connection has a mandatory parameter; the node has but one waypoint.
    QVERIFY(fixture.Direct().SetWpDataFromNodeType("SNMP Node"));
    fixture.Direct().SetWpDataItem(1, 1, 2, "host-1");
    fixture.Direct().SetWpDataItem(2, 1, 2, "");

    QVERIFY(DirectNodes::Save(fixture, "West"));

    QCOMPARE(fixture.Direct().TargetString, "WP=SNMPNODE,HOST=host-1");
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

// What follows ----------------------------------------------------------------------------------------------

void TestDirectNodeSave::Values_AreStoredInsideTheTransaction()
{
    SaveFixture fixture;
    ChooseAndLoad(fixture, "Alpha");
    QStringList calls;
    const auto store = [&] {
        calls = fixture.Component.Calls;
        fixture.Direct().SetWpDataItem(1, 1, 2, "17");
    };
    DirectNodeSaveRequest request{"West", store};

    QVERIFY(SaveDirectNode(fixture.Direct(), fixture.NewDirect(), request));

    QCOMPARE(calls.first(), "BeginTransaction()");
    QVERIFY(calls.contains("GetParentID(Alpha)"));
    QVERIFY(!calls.contains("ParentNameExist(West)"));
    QVERIFY2(fixture.Direct().TargetString.startsWith("WP=NET4,ADDR=17,"),
             qPrintable(fixture.Direct().TargetString));
}

static void RecordSelections(SaveFixture& fixture, QStringList& selected)
{
    Model().SelectTreeEntry = [&](TreeEntries& tree, TreeEntries::Index entry) {
        const QString where = &tree == &fixture.ConTree ? "ConTree " : "NodesTree ";
        const QString when = fixture.Component.Store.Commits == 0 ? "uncommitted " : "";
        selected << when + where + tree.Text(entry);
    };
}

void TestDirectNodeSave::Entry_IsSelectedWhereNodesAreShown_data()
{
    QTest::addColumn<bool>("viewNodes");
    QTest::addColumn<bool>("connections");
    QTest::addColumn<QString>("selected");
    QTest::newRow("nodes under connections") << true << true << "ConTree West";
    QTest::newRow("connections only") << false << true << "NodesTree West";
    QTest::newRow("nodes") << true << false << "NodesTree West";
    QTest::newRow("neither") << false << false << "NodesTree West";
}

void TestDirectNodeSave::Entry_IsSelectedWhereNodesAreShown()
{
    QFETCH(bool, viewNodes);
    QFETCH(bool, connections);
    QFETCH(QString, selected);
    SaveFixture fixture;
    ChooseAndLoad(fixture, "Alpha");
    fixture.Con().ViewNodesChecked = viewNodes;
    fixture.Con().optCon = connections;
    QStringList selections;
    RecordSelections(fixture, selections);

    QVERIFY(DirectNodes::Save(fixture, "West"));

    QCOMPARE(selections, QStringList{selected});
}

void TestDirectNodeSave::Entry_OfTheConnection_IsSelectedBefore()
{
    SaveFixture fixture;
    ComposeAndLoad(fixture, "Delta");
    QStringList selections;
    RecordSelections(fixture, selections);

    QVERIFY(DirectNodes::Save(fixture, "South"));

    QCOMPARE(selections, (QStringList{"ConTree Delta", "ConTree South"}));
}

void TestDirectNodeSave::NoTrees_SavesTheRecord_data()
{
    QTest::addColumn<bool>("hasConObject");
    QTest::newRow("ConObject names none") << true;
    QTest::newRow("no ConObject") << false;
}

void TestDirectNodeSave::NoTrees_SavesTheRecord()
{
    QFETCH(bool, hasConObject);
    SaveFixture fixture;
    ComposeAndLoad(fixture, "Delta");
    if (hasConObject)
        fixture.Con().ConTree = fixture.Con().NodesTree = nullptr;
    else
        Model().ConObject.reset();
    QStringList selections;
    RecordSelections(fixture, selections);
    const QStringList trees = fixture.Trees();

    QVERIFY(DirectNodes::Save(fixture, "West"));

    QVERIFY(fixture.IdOfNode("West") != 0);
    QVERIFY(fixture.IdOfConnection("Delta") != 0);
    QCOMPARE(selections, QStringList());
    QCOMPARE(fixture.Trees(), trees);
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

QTEST_GUILESS_MAIN(TestDirectNodeSave)
#include "TestDirectNodeSave.moc"
