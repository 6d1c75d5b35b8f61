#include "tests/database/SaveExpectations.h"

using namespace SaveTexts;

/// SaveNode where it does not save: each box, and that nothing stays behind.
class TestNodeSaveRefusals : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Begin_Fails_IsDeniedInAnErrorBox();
    void SecondBegin_Fails_IsDeniedInAnErrorBox();
    void Refusal_ValuesAndNames_TellsWhyAndLeavesNothing_data();
    void Refusal_ValuesAndNames_TellsWhyAndLeavesNothing();
    void Refusal_Records_TellsWhyAndLeavesNothing_data();
    void Refusal_Records_TellsWhyAndLeavesNothing();
    void Refusal_EarlierStepComesFirst();
    void Question_Cancel_ChangesNothing();
    void Rollback_FailsBeforeTheQuestion_AsksNothing();
    void NewNode_RoutineFails_KeepsWhatWasDone();
    void NewNode_RoutineFailsWithoutAText_EndsSilently();
    void Commit_Fails_IsTold();
    void Manager_Unknown_IsToldAndTheSaveGoesOn_data();
    void Manager_Unknown_IsToldAndTheSaveGoesOn();
};

void TestNodeSaveRefusals::Begin_Fails_IsDeniedInAnErrorBox()
{
    SaveFixture fixture;
    fixture.EditNode("North");
    const BeforeSave before(fixture);
    fixture.Component.Fail("BeginTransaction");
    bool stored = false;
    NodeSaveRequest request{"West", "Alpha", [&] { stored = true; }, fixture.Grid, 6};

    QVERIFY(!SaveNode(fixture.Con(), request));

    QVERIFY(!stored);
    QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Error(Denied)});
    before.CheckUnchanged();
}

void TestNodeSaveRefusals::SecondBegin_Fails_IsDeniedInAnErrorBox()
{
    SaveFixture fixture;
    fixture.EditNode("North");
    const BeforeSave before(fixture);
    fixture.Operator.WhileOpen = [&](const RecordedBox& box) {
        if (box.flags == BoxFlags::OkCancel)
            fixture.Component.Fail("BeginTransaction");
    };

    QVERIFY(!fixture.SaveNodeAs("East"));

    QCOMPARE(fixture.Operator.Boxes.size(), 2U);
    QCOMPARE(fixture.Operator.Boxes.back(), RecordedBox::Error(Denied));
    before.CheckUnchanged();
}

/// Rows 2 and 3 of the first waypoint become a group of which exactly one has a value.
static void MakeGroup(SaveFixture& fixture, const QString& second, const QString& third)
{
    fixture.EditNode("North");
    for (const int row : {2, 3})
        fixture.Con().SetWpDataItem(1, row, 5, "2");
    fixture.SetValue(2, second);
    fixture.SetValue(3, third);
}

static const std::vector<SaveRefusal>& ValueRefusals()
{
    const auto edit = [](SaveFixture& fixture) { fixture.EditNode("North"); };
    const RecordedBox unknown = RecordedBox::Error(UnknownError);
    const RecordedBox group =
        RecordedBox::Plain("Mandatory and mutually exclusive parameters are set incorrectly (check "
                           "parameters with bold and italic font).");
    static const std::vector<SaveRefusal> refusals{
        {"value is missing",
         [](SaveFixture& fixture) {
             fixture.EditNode("North");
             fixture.SetValue(1, " ");
         },
         "North",
         {RecordedBox::Plain("Mandatory parameter without value (check parameter names with bold font).")},
         "Begin"},
        {"group without a value",
         [](SaveFixture& fixture) { MakeGroup(fixture, "", ""); },
         "North",
         {group},
         "Begin"},
        {"group with two values",
         [](SaveFixture& fixture) { MakeGroup(fixture, "1", "LOW"); },
         "North",
         {group},
         "Begin"},
        {"member of a group is empty",
         [](SaveFixture& fixture) { MakeGroup(fixture, "", "LOW"); },
         "North",
         {RecordedBox::Plain(
             "T4 Node mandatory parameter without value (check parameter names with bold font).")},
         "Begin"},
        {"no name", edit, "  ", {RecordedBox::Plain("Give node name.")}, "Begin"},
        {"connection name cannot be looked up",
         [](SaveFixture& fixture) {
             fixture.EditNode("North");
             fixture.Component.Fail("ParentNameExist");
         },
         "West",
         {unknown, RecordedBox::Plain(SearchFailure)},
         "ParentNameExist(West)"},
        {"a connection has the name",
         edit,
         "beta",
         {RecordedBox::Plain("Node name beta already exists in the database. No saving, because nodes and "
                             "connections cannot share the same name.")},
         "ParentNameExist(beta)"},
        {"a connection has the name of a new node",
         [](SaveFixture& fixture) { fixture.AddNode("South"); },
         "Beta",
         {RecordedBox::Plain("Node name Beta already exists in the database. No saving, because nodes and "
                             "connections cannot share the same name.")},
         "ParentNameExist(Beta)"},
        {"target is refused",
         [](SaveFixture& fixture) {
             fixture.EditNode("North");
             fixture.Component.Answer("CheckTargetSyntax", {"", "ERROR"});
         },
         "West",
         {RecordedBox::Plain(NoSaving)},
         "CheckTargetSyntax("},
        {"node name cannot be looked up",
         [](SaveFixture& fixture) {
             fixture.EditNode("North");
             fixture.Component.Fail("NodeNameExist");
         },
         "West",
         {unknown, RecordedBox::Error(RolledBack)},
         "NodeNameExist(West)"},
        {"id of the one to be replaced cannot be read",
         [](SaveFixture& fixture) {
             fixture.EditNode("North");
             fixture.Component.Fail("GetNodeID");
         },
         "East",
         {unknown, RecordedBox::Error(RolledBack)},
         "GetNodeID(East)"},
    };
    return refusals;
}

void TestNodeSaveRefusals::Refusal_ValuesAndNames_TellsWhyAndLeavesNothing_data()
{
    RefusalRows(ValueRefusals());
}

void TestNodeSaveRefusals::Refusal_ValuesAndNames_TellsWhyAndLeavesNothing()
{
    QFETCH(int, row);
    const SaveRefusal& refusal = ValueRefusals()[static_cast<size_t>(row)];
    SaveFixture fixture;
    refusal.prepare(fixture);
    const BeforeSave before(fixture);

    QVERIFY(!fixture.SaveNodeAs(refusal.saveAs));

    CheckRefusal(fixture, refusal);
    before.CheckUnchanged();
}

/// North is edited while one call fails.
template <const char* Call>
static void EditWithout(SaveFixture& fixture)
{
    fixture.EditNode("North");
    fixture.Component.Fail(QString::fromLatin1(Call));
}

static constexpr char GetOldId[] = "GetNodeID(North)";
static constexpr char GetNewId[] = "GetNodeID(West)";
static constexpr char DeleteOld[] = "DeleteNode(North)";
static constexpr char SaveCall[] = "SaveNode";
static constexpr char Delete[] = "DeleteNodeFromBrowser";
static constexpr char OldExists[] = "NodeNameExist(North)";
static constexpr char GetNodes[] = "GetParentNodesWithID";

static const std::vector<SaveRefusal>& RecordRefusals()
{
    const RecordedBox unknown = RecordedBox::Error(UnknownError);
    const RecordedBox rolledBack = RecordedBox::Error(RolledBack);
    const RecordedBox question{"Node East exists in database. Do you want to replace it ?",
                               BoxFlags::OkCancel, "Replace Node"};
    static const std::vector<SaveRefusal> refusals{
        {"rename, id cannot be read",
         EditWithout<GetOldId>,
         "West",
         {unknown, RecordedBox::Plain(Prevented("node"))},
         "GetNodeID(North)"},
        {"rename, old node cannot be removed",
         EditWithout<DeleteOld>,
         "West",
         {unknown, RecordedBox::Plain("Failure in removing Node West.")},
         "DeleteNode(North)"},
        {"rename, save fails", EditWithout<SaveCall>, "West", {unknown, rolledBack}, "SaveNode(West"},
        {"rename, new id cannot be read",
         EditWithout<GetNewId>,
         "West",
         {unknown, RecordedBox::Plain(NodeIdMissing)},
         "GetNodeID(West)"},
        {"rename, nodes cannot be read",
         EditWithout<GetNodes>,
         "West",
         {unknown, rolledBack},
         "GetParentNodesWithID(Alpha)"},
        {"change, delete fails",
         EditWithout<Delete>,
         "North",
         {unknown, RecordedBox::Plain("Node North not found from database.")},
         "DeleteNodeFromBrowser(North)"},
        {"change, save fails",
         EditWithout<SaveCall>,
         "North",
         {unknown, RecordedBox::Plain("Failure in saving node North into database.")},
         "SaveNode(North"},
        {"change, nodes cannot be read",
         EditWithout<GetNodes>,
         "North",
         {unknown, rolledBack},
         "GetParentNodesWithID(Alpha)"},
        {"onto another, old name cannot be looked up",
         EditWithout<OldExists>,
         "East",
         {question, unknown, rolledBack},
         "NodeNameExist(North)"},
        {"onto another, old node cannot be removed",
         EditWithout<DeleteOld>,
         "East",
         {question, unknown, RecordedBox::Plain("Failure in removing Node East.")},
         "DeleteNode(North)"},
        {"onto another, save fails",
         EditWithout<SaveCall>,
         "East",
         {question, unknown, RecordedBox::Plain("Failure in saving node East into database.")},
         "SaveNode(East"},
    };
    return refusals;
}

void TestNodeSaveRefusals::Refusal_Records_TellsWhyAndLeavesNothing_data()
{
    RefusalRows(RecordRefusals());
}

void TestNodeSaveRefusals::Refusal_Records_TellsWhyAndLeavesNothing()
{
    QFETCH(int, row);
    const SaveRefusal& refusal = RecordRefusals()[static_cast<size_t>(row)];
    SaveFixture fixture;
    refusal.prepare(fixture);
    const BeforeSave before(fixture);

    QVERIFY(!fixture.SaveNodeAs(refusal.saveAs));

    CheckRefusal(fixture, refusal);
    before.CheckUnchanged();
}

void TestNodeSaveRefusals::Refusal_EarlierStepComesFirst()
{
    SaveFixture fixture;
    fixture.EditNode("North");
    fixture.ChangeElsewhere("North");
    fixture.Component.Answer("CheckTargetSyntax", {"", "ERROR"});

    QVERIFY(!fixture.SaveNodeAs("West"));
    QVERIFY(!fixture.SaveNodeAs("Beta"));
    QVERIFY(!fixture.SaveNodeAs(""));
    fixture.Con().SetWpDataItem(1, 2, 5, "1");
    fixture.SetValue(2, "");
    QVERIFY(!fixture.SaveNodeAs(""));

    QCOMPARE(fixture.Operator.Texts(),
             (QStringList{NoSaving,
                          "Node name Beta already exists in the database. No saving, because nodes and "
                          "connections cannot share the same name.",
                          "Give node name.",
                          "Mandatory parameter without value (check parameter names with bold font)."}));
}

void TestNodeSaveRefusals::Question_Cancel_ChangesNothing()
{
    for (const bool isNew : {true, false}) {
        SaveFixture fixture;
        if (isNew)
            fixture.AddNode("North");
        else
            fixture.EditNode("North");
        const BeforeSave before(fixture);
        fixture.Operator.Answers = {BoxAnswer::Cancel};

        QVERIFY(!fixture.SaveNodeAs("East"));

        QCOMPARE(fixture.Operator.Texts(),
                 QStringList{"Node East exists in database. Do you want to replace it ?"});
        before.CheckUnchanged();
    }
}

void TestNodeSaveRefusals::Rollback_FailsBeforeTheQuestion_AsksNothing()
{
    SaveFixture fixture;
    fixture.EditNode("North");
    const BeforeSave before(fixture);
    fixture.Component.FailTimes("RollbackTransaction", 1);

    QVERIFY(!fixture.SaveNodeAs("East"));

    QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Error(RolledBack)});
    before.CheckUnchanged();
}

void TestNodeSaveRefusals::NewNode_RoutineFails_KeepsWhatWasDone()
{
    SaveFixture fixture;
    fixture.AddNode("North");
    const QStringList flags = fixture.Flags();
    fixture.Component.Fail("GetNodeID");

    QVERIFY(!fixture.SaveNodeAs("West"));

    QCOMPARE(fixture.Operator.Boxes,
             (std::vector{RecordedBox::Error(UnknownError), RecordedBox::Plain(NodeIdMissing)}));
    QCOMPARE(fixture.Steps().last(), "Commit");
    QVERIFY(fixture.IdOfNode("West") != 0);
    QCOMPARE(fixture.Component.Store.Levels(), 0);
    QCOMPARE(fixture.Flags(), flags);
}

void TestNodeSaveRefusals::NewNode_RoutineFailsWithoutAText_EndsSilently()
{
    SaveFixture fixture;
    fixture.AddNode("North");
    const QStringList flags = fixture.Flags();
    fixture.Component.Fail("SaveNode");

    QVERIFY(!fixture.SaveNodeAs("West"));

    QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Error(UnknownError)});
    QCOMPARE(fixture.Steps().last(), "Commit");
    QCOMPARE(fixture.Component.Store.Levels(), 0);
    QCOMPARE(fixture.Flags(), flags);
}

void TestNodeSaveRefusals::Commit_Fails_IsTold()
{
    SaveFixture fixture;
    fixture.EditNode("North");
    const BeforeSave before(fixture);
    fixture.Component.BeforeCall = [&](const QString& call) {
        if (call == "CommitTransaction(1)" && fixture.Component.Store.Levels() == 1)
            fixture.Component.FailTimes("CommitTransaction", 1);
    };

    QVERIFY(!fixture.SaveNodeAs("West", "Beta"));

    QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Error(CommitFailure)});
    QCOMPARE(fixture.Component.Calls.last(), "RollbackTransaction()");
    before.CheckUnchanged();
}

void TestNodeSaveRefusals::Manager_Unknown_IsToldAndTheSaveGoesOn_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("change") << "North";
    QTest::newRow("rename") << "West";
}

void TestNodeSaveRefusals::Manager_Unknown_IsToldAndTheSaveGoesOn()
{
    QFETCH(QString, name);
    SaveFixture fixture;
    fixture.EditNode("North");
    fixture.Con().CommandLine = "7|-port 1";

    QVERIFY(fixture.SaveNodeAs(name));

    QCOMPARE(fixture.Operator.Boxes,
             (std::vector{RecordedBox::Error(UnknownError),
                          RecordedBox{ManagerMissing, BoxFlags::Exclamation, ApplicationTitle()}}));
    QCOMPARE(fixture.LevelsUnderBoxes, 0);
    QCOMPARE(fixture.Component.Store.Commits, 1);
    QVERIFY(fixture.Records().contains(
        QStringList{name, "Alpha", "NET4", fixture.Target(), "", "-port 1"}.join('|')));
    QCOMPARE(fixture.TreeContents(), SaveFixture::FreshTreeContents());
}

QTEST_GUILESS_MAIN(TestNodeSaveRefusals)
#include "TestNodeSaveRefusals.moc"
