#include "tests/database/SaveExpectations.h"

using namespace SaveTexts;

/// SaveNode where it saves: which save happens, in which steps, and what follows.
class TestNodeSave : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ReservedName_AnyCase_IsKnown_data();
    void ReservedName_AnyCase_IsKnown();
    void New_FreeName_IsSavedAsNew();
    void New_WithManager_KeepsIt();
    void New_BlanksAtTheEnds_AreRemoved();
    void New_TakenName_ReplacesAfterAQuestion();
    void New_TakenName_SparesANodeOfTheOfferedName();
    void Existing_SameName_IsChanged();
    void Existing_OtherConnection_Moves();
    void Existing_NewName_IsRenamed();
    void Existing_NewNameAndConnection_IsBoth();
    void Existing_AnothersName_ReplacesItAfterAQuestion();
    void Existing_OwnNameInOtherLetters_IsReplacedAfterAQuestion();
    void Values_AreStoredInsideTheTransaction();
    void NodesNotShown_EntryIsTheOneInTheTreeOfNodes();
    void TreeOfNodesNeverShown_StaysEmpty();
    void Saved_TwiceInARow_KnowsItsOwnId();
};

/// `conName`: where it is reached now.
static void CompareAfterSave(const SaveFixture& fixture, const QString& name, const QString& conName)
{
    const ConData& con = fixture.Con();
    QCOMPARE(fixture.Component.Store.Commits, 1);
    QCOMPARE(con.NodeName, name);
    QCOMPARE(con.NodeDbID, fixture.IdOfNode(name));
    QCOMPARE(con.ConWpCount, con.NodeWpCount);
    QCOMPARE(fixture.ConTree.Text(con.SelectedTreeNodeIndex), name);
    QCOMPARE(fixture.ConTree.Text(fixture.ConTree.Parent(con.SelectedTreeNodeIndex)), conName);
    QCOMPARE(fixture.TreeContents(), SaveFixture::FreshTreeContents());
    QCOMPARE(fixture.Component.Store.Levels(), 0);
    QCOMPARE(fixture.Pointers.last(), DatabaseClass::NormalPointer);
    QCOMPARE(fixture.LevelsUnderBoxes, 0);
}

static QString SaveCall(const SaveFixture& fixture, const QString& name, const QString& conName,
                        const QString& tail, const QString& nodeType = "NET4")
{
    return QStringLiteral("SaveNode(%1)")
        .arg(QStringList{name, nodeType, fixture.Target(), conName, tail}.join(','));
}

/// The calls of SaveNodeDb.
static QStringList SaveCalls(const SaveFixture& fixture, const QString& name, const QString& conName,
                             const QString& tail)
{
    const QString read = QStringLiteral("GetUsersList(%1,NodeWP,)").arg(name);
    return {read, SaveCall(fixture, name, conName, tail), read,
            QStringLiteral("UpdateUsersList(%1,NodeWP,)").arg(name)};
}

/// The calls until the name is known to be free or taken.
static QStringList Checks(const SaveFixture& fixture, const QString& name)
{
    return {"Begin", QStringLiteral("ParentNameExist(%1)").arg(name),
            QStringLiteral("CheckTargetSyntax(%1,-1)").arg(fixture.Target()),
            QStringLiteral("NodeNameExist(%1)").arg(name)};
}

static RecordedBox Question(const QString& name)
{
    return {QStringLiteral("Node %1 exists in database. Do you want to replace it ?").arg(name),
            BoxFlags::OkCancel, "Replace Node"};
}

/// A row of the records.
static QString Record(const SaveFixture& fixture, const QString& name, const QString& conName,
                      const QString& index, const QString& tail)
{
    return QStringList{name, conName, "NET4", fixture.Target(), index, tail}.join('|');
}

void TestNodeSave::ReservedName_AnyCase_IsKnown_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("reserved");
    QTest::newRow("as it is") << "New Node" << true;
    QTest::newRow("small") << "new node" << true;
    QTest::newRow("blanks") << " NEW NODE " << true;
    QTest::newRow("longer") << "New Node 2" << false;
    QTest::newRow("empty") << "" << false;
}

void TestNodeSave::ReservedName_AnyCase_IsKnown()
{
    QFETCH(QString, name);
    QFETCH(bool, reserved);

    QCOMPARE(IsReservedNodeName(name), reserved);
}

void TestNodeSave::New_FreeName_IsSavedAsNew()
{
    SaveFixture fixture;
    fixture.AddNode("South");

    QVERIFY(fixture.SaveNodeAs("West", "Gamma"));

    QCOMPARE(fixture.Steps(), Checks(fixture, "West") + QStringList{"NodeNameExist(West)"} +
                                  SaveCalls(fixture, "West", "Gamma", "-port 2") +
                                  QStringList({"GetNodeID(West)", "GetParentNodesWithID(Gamma)", "Commit"}));
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
    QVERIFY(fixture.Con().NewNode);
    QVERIFY(fixture.Records().contains(Record(fixture, "West", "Gamma", "", "-port 2")));
    QVERIFY(fixture.Target().startsWith("WP=NET4,ADDR=18,"));
    CompareAfterSave(fixture, "West", "Gamma");
}

void TestNodeSave::New_WithManager_KeepsIt()
{
    SaveFixture fixture;
    fixture.AddNode("North");
    // A component that counts each change of a record.
    fixture.Component.BeforeCall = [&](const QString& call) {
        if (call.startsWith("UpdateNodeNmaidx"))
            fixture.ChangeElsewhere("West");
    };

    QVERIFY(fixture.SaveNodeAs("West"));

    QCOMPARE(fixture.Steps(), Checks(fixture, "West") + QStringList{"NodeNameExist(West)"} +
                                  SaveCalls(fixture, "West", "Alpha", "-port 1") +
                                  QStringList({"GetNodeID(West)", "GetParentNodesWithID(Alpha)",
                                               "UpdateNodeNmaidx(West,1)", "GetNodeID(West)", "Commit"}));
    QVERIFY(fixture.Records().contains(Record(fixture, "West", "Alpha", "1", "-port 1")));
    CompareAfterSave(fixture, "West", "Alpha");
}

void TestNodeSave::New_BlanksAtTheEnds_AreRemoved()
{
    SaveFixture fixture;
    fixture.AddNode("South");
    NodeSaveRequest request{"  West ", " Alpha ", {}, fixture.Grid, 6};

    QVERIFY(SaveNode(fixture.Con(), request));

    QCOMPARE(request.name, "West");
    CompareAfterSave(fixture, "West", "Alpha");
}

void TestNodeSave::New_TakenName_ReplacesAfterAQuestion()
{
    SaveFixture fixture;
    fixture.AddNode("South");

    QVERIFY(fixture.SaveNodeAs("East", "Alpha"));

    QCOMPARE(fixture.Operator.Boxes, std::vector{Question("East")});
    QCOMPARE(fixture.Steps(), Checks(fixture, "East") +
                                  QStringList({"GetNodeID(East)", "Rollback", "Begin", "GetNodeID(East)",
                                               "DeleteNodeFromBrowser(East)"}) +
                                  SaveCalls(fixture, "East", "Alpha", "-port 2") +
                                  QStringList({"GetNodeID(East)", "GetParentNodesWithID(Alpha)", "Commit"}));
    QVERIFY(!fixture.Con().NewNode);
    QVERIFY(fixture.Records().contains(Record(fixture, "East", "Alpha", "", "-port 2")));
    CompareAfterSave(fixture, "East", "Alpha");
}

void TestNodeSave::New_TakenName_SparesANodeOfTheOfferedName()
{
    SaveFixture fixture;
    fixture.Component.Store.AddNode("New Node", "Beta", "", SaveFixture::EastTarget);
    fixture.AddNode("South");

    QVERIFY(fixture.SaveNodeAs("East"));

    QVERIFY(fixture.IdOfNode("New Node") != 0);
    QCOMPARE(fixture.Component.Count("DeleteNode"), 0);
}

void TestNodeSave::Existing_SameName_IsChanged()
{
    SaveFixture fixture;
    fixture.EditNode("North");
    fixture.SetValue(1, "99");

    QVERIFY(fixture.SaveNodeAs("North "));

    QCOMPARE(fixture.Steps(), Checks(fixture, "North") +
                                  QStringList({"GetNodeID(North)", "DeleteNodeFromBrowser(North)"}) +
                                  SaveCalls(fixture, "North", "Alpha", "-port 1") +
                                  QStringList({"UpdateNodeNmaidx(North,1)", "GetNodeID(North)",
                                               "GetParentNodesWithID(Alpha)", "Commit"}));
    QVERIFY(fixture.Target().startsWith("WP=NET4,ADDR=99,"));
    QVERIFY(fixture.Records().contains(Record(fixture, "North", "Alpha", "1", "-port 1")));
    QVERIFY(!fixture.Con().NewNode);
    CompareAfterSave(fixture, "North", "Alpha");
}

void TestNodeSave::Existing_OtherConnection_Moves()
{
    SaveFixture fixture;
    fixture.EditNode("North");

    QVERIFY(fixture.SaveNodeAs("North", "Beta"));

    QVERIFY(fixture.Records().contains(Record(fixture, "North", "Beta", "1", "-port 1")));
    CompareAfterSave(fixture, "North", "Beta");
}

void TestNodeSave::Existing_NewName_IsRenamed()
{
    SaveFixture fixture;
    fixture.EditNode("North");

    QVERIFY(fixture.SaveNodeAs("West"));

    QCOMPARE(fixture.Steps(),
             Checks(fixture, "West") +
                 QStringList({"GetNodeID(North)", "DeleteNode(North)", "NodeNameExist(West)"}) +
                 SaveCalls(fixture, "West", "Alpha", "-port 1") +
                 QStringList({"GetNodeID(West)", "GetParentNodesWithID(Alpha)", "UpdateNodeNmaidx(West,1)",
                              "GetNodeID(West)", "Commit"}));
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
    QCOMPARE(fixture.IdOfNode("North"), 0);
    QVERIFY(fixture.Records().contains(Record(fixture, "West", "Alpha", "1", "-port 1")));
    CompareAfterSave(fixture, "West", "Alpha");
}

void TestNodeSave::Existing_NewNameAndConnection_IsBoth()
{
    SaveFixture fixture;
    fixture.EditNode("South");

    QVERIFY(fixture.SaveNodeAs("West", "Gamma"));

    QCOMPARE(fixture.IdOfNode("South"), 0);
    QVERIFY(fixture.Records().contains(Record(fixture, "West", "Gamma", "", "-port 2")));
    CompareAfterSave(fixture, "West", "Gamma");
}

void TestNodeSave::Existing_AnothersName_ReplacesItAfterAQuestion()
{
    SaveFixture fixture;
    fixture.EditNode("North");

    QVERIFY(fixture.SaveNodeAs("East"));

    QCOMPARE(fixture.Operator.Boxes, std::vector{Question("East")});
    QCOMPARE(fixture.Steps(),
             Checks(fixture, "East") +
                 QStringList({"GetNodeID(East)", "Rollback", "Begin", "GetNodeID(East)", "GetNodeID(North)",
                              "NodeNameExist(North)", "DeleteNode(North)", "DeleteNodeFromBrowser(East)"}) +
                 SaveCalls(fixture, "East", "Alpha", "-port 1") +
                 QStringList({"UpdateNodeNmaidx(East,1)", "GetNodeID(East)", "GetParentNodesWithID(Alpha)",
                              "Commit"}));
    QCOMPARE(fixture.IdOfNode("North"), 0);
    QCOMPARE(fixture.Component.Store.Now.nodes.size(), 2U);
    QVERIFY(fixture.Records().contains(Record(fixture, "East", "Alpha", "1", "-port 1")));
    CompareAfterSave(fixture, "East", "Alpha");
}

void TestNodeSave::Existing_OwnNameInOtherLetters_IsReplacedAfterAQuestion()
{
    SaveFixture fixture;
    fixture.EditNode("North");

    QVERIFY(fixture.SaveNodeAs("NORTH"));

    QCOMPARE(fixture.Operator.Boxes, std::vector{Question("NORTH")});
    QCOMPARE(fixture.Component.Count("DeleteNode"), 0);
    QCOMPARE(fixture.Component.Store.Now.nodes.size(), 3U);
    QVERIFY(fixture.Records().contains(Record(fixture, "NORTH", "Alpha", "1", "-port 1")));
    CompareAfterSave(fixture, "NORTH", "Alpha");
}

void TestNodeSave::Values_AreStoredInsideTheTransaction()
{
    SaveFixture fixture;
    fixture.EditNode("South");
    int levels = -1;
    qsizetype calls = -1;
    const auto store = [&] {
        levels = fixture.Component.Store.Levels();
        calls = fixture.Component.Calls.size();
    };
    NodeSaveRequest request{"South", "Alpha", store, fixture.Grid, 6};

    QVERIFY(SaveNode(fixture.Con(), request));

    QCOMPARE(levels, 1);
    QCOMPARE(calls, 1);
}

void TestNodeSave::NodesNotShown_EntryIsTheOneInTheTreeOfNodes()
{
    SaveFixture fixture;
    fixture.AddNode("South");
    fixture.Con().ViewNodesChecked = false;
    fixture.Con().optCon = false;

    QVERIFY(fixture.SaveNodeAs("West"));

    QCOMPARE(fixture.NodesTree.Text(fixture.Con().SelectedTreeNodeIndex), "West");
    QCOMPARE(fixture.Con().NodeDbID, fixture.IdOfNode("West"));
    QCOMPARE(fixture.Component.Count("GetParentNodesWithID"), 0);
}

void TestNodeSave::TreeOfNodesNeverShown_StaysEmpty()
{
    SaveFixture fixture;
    fixture.EditNode("North");
    fixture.NodesTree.Clear();

    QVERIFY(fixture.SaveNodeAs("West"));

    QCOMPARE(fixture.NodesTree.Count(), 0);
    QCOMPARE(fixture.ConTree.Text(fixture.Con().SelectedTreeNodeIndex), "West");
    QCOMPARE(fixture.Con().NodeDbID, fixture.IdOfNode("West"));
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestNodeSave::Saved_TwiceInARow_KnowsItsOwnId()
{
    SaveFixture fixture;
    fixture.AddNode("North");

    QVERIFY(fixture.SaveNodeAs("West"));
    QVERIFY(fixture.SaveNodeAs("West"));
    QVERIFY(fixture.SaveNodeAs("Far West"));
    fixture.Component.Store.Commits = 1;

    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
    CompareAfterSave(fixture, "Far West", "Alpha");
}

QTEST_GUILESS_MAIN(TestNodeSave)
#include "TestNodeSave.moc"
