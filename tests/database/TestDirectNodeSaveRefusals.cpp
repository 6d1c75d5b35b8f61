#include "database/DirectNodeSave.h"
#include "model/ModelState.h"
#include "tests/database/DirectNodes.h"
#include "tests/database/SaveExpectations.h"

using namespace SaveTexts;

/// SaveDirectNode where it does not save: each box, and that nothing stays behind.
class TestDirectNodeSaveRefusals : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Begin_Fails_IsDeniedInAnErrorBox();
    void SecondBegin_Fails_IsDeniedInAnErrorBox_data();
    void SecondBegin_Fails_IsDeniedInAnErrorBox();
    void Refusal_TellsWhyAndLeavesNothing_data();
    void Refusal_TellsWhyAndLeavesNothing();
    void Refusal_EarlierStepComesFirst();
    void Failure_WithoutAText_IsToldByTheDatabaseAlone_data();
    void Failure_WithoutAText_IsToldByTheDatabaseAlone();
    void ConnectionQuestion_Cancel_SavesNothing();
    void NodeQuestion_Cancel_SavesNothing_data();
    void NodeQuestion_Cancel_SavesNothing();
    void Rollback_FailsBeforeTheQuestion_AsksNothing();
    void Question_ChangedMeanwhile_IsPrevented_data();
    void Question_ChangedMeanwhile_IsPrevented();
    void NodeQuestion_ConnectionSavedElsewhere_IsAskedAbout();
    void Commit_Fails_IsTold();
    void Commit_Fails_SelectsNothing();
    void Manager_Unknown_IsToldAndTheSaveGoesOn();
};

static const QString Alpha = QStringLiteral("Alpha");

static const QString Deleted = QStringLiteral("deleted from database");
static const QString Changed = QStringLiteral("changed");

static void OnAlpha(SaveFixture& fixture)
{
    DirectNodes::Choose(fixture, Alpha);
    DirectNodes::Load(fixture);
}

template <const char* Name>
static void OnNew(SaveFixture& fixture)
{
    DirectNodes::Compose(fixture, QString::fromLatin1(Name));
    DirectNodes::Load(fixture);
}

static constexpr char Beta[] = "Beta";
static constexpr char Delta[] = "Delta";

// Begin -----------------------------------------------------------------------------------------------------

void TestDirectNodeSaveRefusals::Begin_Fails_IsDeniedInAnErrorBox()
{
    SaveFixture fixture;
    OnAlpha(fixture);
    const BeforeSave before(fixture);
    fixture.Component.Fail("BeginTransaction");
    bool stored = false;
    DirectNodeSaveRequest request{"West", [&] { stored = true; }};

    QVERIFY(!SaveDirectNode(fixture.Direct(), fixture.NewDirect(), request));

    QVERIFY(!stored);
    QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Error(Denied)});
    before.CheckUnchanged();
}

void TestDirectNodeSaveRefusals::SecondBegin_Fails_IsDeniedInAnErrorBox_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("connection") << "West";
    QTest::newRow("node") << "South";
}

void TestDirectNodeSaveRefusals::SecondBegin_Fails_IsDeniedInAnErrorBox()
{
    QFETCH(QString, name);
    SaveFixture fixture;
    if (name == "West")
        OnNew<Beta>(fixture);
    else
        OnNew<Delta>(fixture);
    const BeforeSave before(fixture);
    fixture.Operator.WhileOpen = [&](const RecordedBox& box) {
        if (box.flags == BoxFlags::OkCancel)
            fixture.Component.Fail("BeginTransaction");
    };

    QVERIFY(!DirectNodes::Save(fixture, name));

    QCOMPARE(fixture.Operator.Boxes.size(), 2U);
    QCOMPARE(fixture.Operator.Boxes.back(), RecordedBox::Error(Denied));
    before.CheckUnchanged();
}

// Refusals --------------------------------------------------------------------------------------------------

/// A node of Alpha, or of a new connection, while one call fails.
template <const char* Call>
static void OnAlphaWithout(SaveFixture& fixture)
{
    OnAlpha(fixture);
    fixture.Component.Fail(QString::fromLatin1(Call));
}

template <const char* Name, const char* Call>
static void OnNewWithout(SaveFixture& fixture)
{
    OnNew<Name>(fixture);
    fixture.Component.Fail(QString::fromLatin1(Call));
}

static constexpr char GetConnectionId[] = "GetParentID";
static constexpr char ConnectionExists[] = "ParentNameExist";
static constexpr char NodeNameExists[] = "NodeNameExist";
static constexpr char GetNodeId[] = "GetNodeID";
static constexpr char Delete[] = "DeleteNodeFromBrowser";
static constexpr char SaveCall[] = "SaveNode";
static constexpr char SaveConnectionCall[] = "SaveParent";
static constexpr char ReplaceTarget[] = "ReplaceParentTarget";

static void WithoutValue(SaveFixture& fixture, int waypoint)
{
    OnAlpha(fixture);
    fixture.Direct().SetWpDataItem(waypoint, 1, 5, "1");
    fixture.Direct().SetWpDataItem(waypoint, 1, 2, "");
}

static const std::vector<SaveRefusal>& Refusals()
{
    const RecordedBox unknown = RecordedBox::Error(UnknownError);
    const RecordedBox rolledBack = RecordedBox::Error(RolledBack);
    const RecordedBox noValue = RecordedBox::Plain(
        "T4 Node mandatory parameter without value (check parameter names with bold font).");
    const RecordedBox question{"Node South exists in database. Do you want to replace it ?",
                               BoxFlags::OkCancel, "Replace Node"};
    const RecordedBox conQuestion{"Connection Beta exists in database. Do you want to replace it?",
                                  BoxFlags::OkCancel, "Replace Connection"};
    const RecordedBox conFailure = RecordedBox::Plain("Error in connection database saving.");
    static const std::vector<SaveRefusal> refusals{
        {"connection deleted",
         [](SaveFixture& fixture) {
             OnAlpha(fixture);
             fixture.RemoveElsewhere(Alpha);
         },
         "West",
         {RecordedBox::Plain(ConnectionLost(Alpha, Deleted))},
         "GetParentID(Alpha)"},
        {"connection changed",
         [](SaveFixture& fixture) {
             OnAlpha(fixture);
             fixture.ChangeElsewhere(Alpha);
         },
         "West",
         {RecordedBox::Plain(ConnectionLost(Alpha, Changed))},
         "GetParentID(Alpha)"},
        {"connection cannot be looked up",
         OnAlphaWithout<GetConnectionId>,
         "West",
         {unknown, RecordedBox::Plain(ConnectionLost(Alpha, Deleted))},
         "GetParentID(Alpha)"},
        {"first waypoint lacks a value",
         [](SaveFixture& fixture) { WithoutValue(fixture, 1); },
         "",
         {noValue},
         "GetParentID(Alpha)"},
        {"second waypoint lacks a value",
         [](SaveFixture& fixture) { WithoutValue(fixture, 2); },
         "",
         {noValue},
         "GetParentID(Alpha)"},
        {"no name", OnAlpha, "  ", {RecordedBox::Plain("Give node name.")}, "GetParentID(Alpha)"},
        {"name cannot be looked up",
         OnAlphaWithout<ConnectionExists>,
         "West",
         {unknown, RecordedBox::Plain(SearchFailure)},
         "ParentNameExist(West)"},
        {"a connection has the name",
         OnAlpha,
         "beta",
         {RecordedBox::Plain("Node name beta already exists in the database. No saving, because nodes and "
                             "connections cannot share the same name.")},
         "ParentNameExist(beta)"},
        {"the new connection has the name",
         OnNew<Delta>,
         "Delta",
         {RecordedBox::Plain("Node name Delta already exists in the database. No saving, because nodes and "
                             "connections cannot share the same name.")},
         "ParentNameExist(Delta)"},
        {"target is refused",
         [](SaveFixture& fixture) {
             OnAlpha(fixture);
             fixture.Component.Answer("CheckTargetSyntax", {"", "ERROR"});
         },
         "West",
         {RecordedBox::Plain(NoSaving)},
         "CheckTargetSyntax(WP=NET4"},
        {"target of the connection is refused",
         [](SaveFixture& fixture) {
             OnNew<Delta>(fixture);
             fixture.Component.Answer("CheckTargetSyntax", {"", "ERROR"});
         },
         "West",
         {RecordedBox::Plain(NoSaving)},
         "CheckTargetSyntax(WP=BUST4"},
        {"node name cannot be looked up",
         OnAlphaWithout<NodeNameExists>,
         "West",
         {unknown, rolledBack},
         "NodeNameExist(West)"},
        {"id of the one to be replaced cannot be read",
         OnAlphaWithout<GetNodeId>,
         "South",
         {unknown, rolledBack},
         "GetNodeID(South)"},
        {"new node, id cannot be read",
         OnAlphaWithout<GetNodeId>,
         "West",
         {unknown, RecordedBox::Plain(NodeIdMissing)},
         "GetNodeID(West)"},
        {"replaced node cannot be deleted",
         OnAlphaWithout<Delete>,
         "South",
         {question, unknown, RecordedBox::Plain("Node South not found from database.")},
         "DeleteNodeFromBrowser(South)"},
        {"replaced node cannot be saved",
         OnAlphaWithout<SaveCall>,
         "South",
         {question, unknown, RecordedBox::Plain("Failure in saving node South into database.")},
         "SaveNode(South"},
        {"new connection cannot be saved",
         OnNewWithout<Delta, SaveConnectionCall>,
         "West",
         {unknown, RecordedBox::Plain("Database error, failure in SaveParent.")},
         "SaveParent(Delta"},
        {"new connection, id cannot be read",
         OnNewWithout<Delta, GetConnectionId>,
         "West",
         {unknown, RecordedBox::Plain("Database error, Connection ID missing.")},
         "GetParentID(Delta)"},
        {"id of the connection to be replaced cannot be read",
         OnNewWithout<Beta, GetConnectionId>,
         "West",
         {unknown, conFailure},
         "GetParentID(Beta)"},
        {"connection cannot be replaced",
         OnNewWithout<Beta, ReplaceTarget>,
         "West",
         {conQuestion, unknown, conFailure},
         "ReplaceParentTarget(Beta"},
    };
    return refusals;
}

void TestDirectNodeSaveRefusals::Refusal_TellsWhyAndLeavesNothing_data()
{
    RefusalRows(Refusals());
}

void TestDirectNodeSaveRefusals::Refusal_TellsWhyAndLeavesNothing()
{
    QFETCH(int, row);
    const SaveRefusal& refusal = Refusals()[static_cast<size_t>(row)];
    SaveFixture fixture;
    refusal.prepare(fixture);
    const BeforeSave before(fixture);

    QVERIFY(!DirectNodes::Save(fixture, refusal.saveAs));

    CheckRefusal(fixture, refusal);
    before.CheckUnchanged();
}

void TestDirectNodeSaveRefusals::Refusal_EarlierStepComesFirst()
{
    SaveFixture fixture;
    OnAlpha(fixture);
    fixture.Component.Answer("CheckTargetSyntax", {"", "ERROR"});

    QVERIFY(!DirectNodes::Save(fixture, "South"));
    QVERIFY(!DirectNodes::Save(fixture, "Beta"));
    QVERIFY(!DirectNodes::Save(fixture, ""));
    fixture.Direct().SetWpDataItem(1, 1, 2, "");
    QVERIFY(!DirectNodes::Save(fixture, ""));
    fixture.ChangeElsewhere(Alpha);
    QVERIFY(!DirectNodes::Save(fixture, ""));

    QCOMPARE(fixture.Operator.Texts(),
             (QStringList{NoSaving,
                          "Node name Beta already exists in the database. No saving, because nodes and "
                          "connections cannot share the same name.",
                          "Give node name.",
                          "T4 Node mandatory parameter without value (check parameter names with bold font).",
                          ConnectionLost(Alpha, Changed)}));
}

void TestDirectNodeSaveRefusals::Failure_WithoutAText_IsToldByTheDatabaseAlone_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<bool>("isNewConnection");
    QTest::newRow("save of a new node") << "SaveNode" << false;
    QTest::newRow("name of the connection") << "ParentNameExist" << true;
}

void TestDirectNodeSaveRefusals::Failure_WithoutAText_IsToldByTheDatabaseAlone()
{
    QFETCH(QString, call);
    QFETCH(bool, isNewConnection);
    SaveFixture fixture;
    if (isNewConnection)
        OnNew<Delta>(fixture);
    else
        OnAlpha(fixture);
    const BeforeSave before(fixture);
    fixture.Component.Fail(call);

    QVERIFY(!DirectNodes::Save(fixture, "West"));

    QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Error(UnknownError)});
    QCOMPARE(fixture.Steps().last(), "Rollback");
    before.CheckUnchanged();
}

// Questions -------------------------------------------------------------------------------------------------

void TestDirectNodeSaveRefusals::ConnectionQuestion_Cancel_SavesNothing()
{
    SaveFixture fixture;
    OnNew<Beta>(fixture);
    const BeforeSave before(fixture);
    fixture.Operator.Answers = {BoxAnswer::Cancel};

    QVERIFY(!DirectNodes::Save(fixture, "West"));

    QCOMPARE(fixture.Operator.Boxes,
             (std::vector{RecordedBox{"Connection Beta exists in database. Do you want to replace it?",
                                      BoxFlags::OkCancel, "Replace Connection"},
                          RecordedBox::Plain("Connection and node saving canceled.")}));
    before.CheckUnchanged();
}

void TestDirectNodeSaveRefusals::NodeQuestion_Cancel_SavesNothing_data()
{
    QTest::addColumn<bool>("isNewConnection");
    QTest::newRow("stored connection") << false;
    QTest::newRow("new connection") << true;
}

void TestDirectNodeSaveRefusals::NodeQuestion_Cancel_SavesNothing()
{
    QFETCH(bool, isNewConnection);
    SaveFixture fixture;
    if (isNewConnection)
        OnNew<Delta>(fixture);
    else
        OnAlpha(fixture);
    const BeforeSave before(fixture);
    fixture.Operator.Answers = {BoxAnswer::Cancel};

    QVERIFY(!DirectNodes::Save(fixture, "South"));

    QCOMPARE(fixture.Operator.Texts(),
             QStringList{"Node South exists in database. Do you want to replace it ?"});
    before.CheckUnchanged();
}

void TestDirectNodeSaveRefusals::Rollback_FailsBeforeTheQuestion_AsksNothing()
{
    SaveFixture fixture;
    OnNew<Beta>(fixture);
    const BeforeSave before(fixture);
    fixture.Component.FailTimes("RollbackTransaction", 1);

    QVERIFY(!DirectNodes::Save(fixture, "West"));

    QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Error(RolledBack)});
    before.CheckUnchanged();
}

void TestDirectNodeSaveRefusals::Question_ChangedMeanwhile_IsPrevented_data()
{
    QTest::addColumn<bool>("isNewConnection");
    QTest::addColumn<QString>("record");
    QTest::addColumn<bool>("deleted");
    QTest::addColumn<QString>("saveAs");
    QTest::addColumn<QString>("text");
    QTest::newRow("node changed") << false << "South" << false << "South" << Prevented("node");
    QTest::newRow("node deleted") << false << "South" << true << "South" << Prevented("node");
    QTest::newRow("connection changed")
        << false << Alpha << false << "South" << ConnectionLost(Alpha, Changed);
    QTest::newRow("connection deleted")
        << false << Alpha << true << "South" << ConnectionLost(Alpha, Deleted);
    QTest::newRow("replaced one changed")
        << true << "Beta" << false << "West" << ConnectionLost("Beta", Changed);
    QTest::newRow("replaced one deleted")
        << true << "Beta" << true << "West" << ConnectionLost("Beta", Deleted);
}

void TestDirectNodeSaveRefusals::Question_ChangedMeanwhile_IsPrevented()
{
    QFETCH(bool, isNewConnection);
    QFETCH(QString, record);
    QFETCH(bool, deleted);
    QFETCH(QString, saveAs);
    QFETCH(QString, text);
    SaveFixture fixture;
    if (isNewConnection)
        OnNew<Beta>(fixture);
    else
        OnAlpha(fixture);
    const QStringList flags = fixture.Flags();
    const QStringList trees = fixture.Trees();
    QStringList records;
    fixture.Operator.WhileOpen = [&](const RecordedBox& box) {
        if (box.flags != BoxFlags::OkCancel)
            return;
        if (deleted)
            fixture.RemoveElsewhere(record);
        else
            fixture.ChangeElsewhere(record);
        records = fixture.Records();
    };

    QVERIFY(!DirectNodes::Save(fixture, saveAs));

    QCOMPARE(fixture.Operator.Boxes.size(), 2U);
    QCOMPARE(fixture.Operator.Boxes.back(), RecordedBox::Plain(text));
    QCOMPARE(fixture.Records(), records);
    QCOMPARE(fixture.Flags(), flags);
    QCOMPARE(fixture.Trees(), trees);
    QCOMPARE(fixture.Component.Store.Levels(), 0);
}

void TestDirectNodeSaveRefusals::NodeQuestion_ConnectionSavedElsewhere_IsAskedAbout()
{
    SaveFixture fixture;
    OnNew<Delta>(fixture);
    fixture.Operator.Answers = {BoxAnswer::Ok, BoxAnswer::Cancel};
    fixture.Operator.WhileOpen = [&](const RecordedBox& box) {
        if (box.title == "Replace Node")
            fixture.Component.Store.AddConnection("Delta", SaveFixture::GammaTarget);
    };

    QVERIFY(!DirectNodes::Save(fixture, "South"));

    QCOMPARE(fixture.Operator.Texts(),
             (QStringList{"Node South exists in database. Do you want to replace it ?",
                          "Connection Delta exists in database. Do you want to replace it?",
                          "Connection and node saving canceled."}));
    QVERIFY(fixture.Records().contains("Delta|" + SaveFixture::GammaTarget));
    QCOMPARE(fixture.Component.Store.Commits, 0);
    QCOMPARE(fixture.Component.Store.Levels(), 0);
}

// End -------------------------------------------------------------------------------------------------------

static void FailTheCommit(SaveFixture& fixture)
{
    fixture.Component.BeforeCall = [&fixture](const QString& call) {
        if (call == "CommitTransaction(1)" && fixture.Component.Store.Levels() == 1)
            fixture.Component.FailTimes("CommitTransaction", 1);
    };
}

void TestDirectNodeSaveRefusals::Commit_Fails_IsTold()
{
    SaveFixture fixture;
    OnNew<Delta>(fixture);
    const BeforeSave before(fixture);
    FailTheCommit(fixture);

    QVERIFY(!DirectNodes::Save(fixture, "West"));

    QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Error(CommitFailure)});
    QCOMPARE(fixture.Component.Calls.last(), "RollbackTransaction()");
    before.CheckUnchanged();
}

void TestDirectNodeSaveRefusals::Commit_Fails_SelectsNothing()
{
    SaveFixture fixture;
    OnNew<Delta>(fixture);
    FailTheCommit(fixture);
    int selections = 0;
    Model().SelectTreeEntry = [&](TreeEntries&, TreeEntries::Index) { ++selections; };

    QVERIFY(!DirectNodes::Save(fixture, "West"));
    Model().SelectTreeEntry = nullptr;

    QCOMPARE(selections, 0);
}

void TestDirectNodeSaveRefusals::Manager_Unknown_IsToldAndTheSaveGoesOn()
{
    SaveFixture fixture;
    OnAlpha(fixture);
    fixture.Direct().CommandLine = "7|-port 9";

    QVERIFY(DirectNodes::Save(fixture, "West"));

    QCOMPARE(fixture.Operator.Boxes,
             (std::vector{RecordedBox::Error(UnknownError),
                          RecordedBox{ManagerMissing, BoxFlags::Exclamation, ApplicationTitle()}}));
    QCOMPARE(fixture.LevelsUnderBoxes, 0);
    QVERIFY(fixture.Records().contains(
        QStringList{"West", "Alpha", "NET4", DirectNodes::Target, "", "-port 9"}.join('|')));
    QCOMPARE(fixture.TreeContents(), SaveFixture::FreshTreeContents());
}

QTEST_GUILESS_MAIN(TestDirectNodeSaveRefusals)
#include "TestDirectNodeSaveRefusals.moc"
