#include "database/ConnectionSave.h"
#include "database/DatabaseState.h"
#include "model/ModelState.h"
#include "tests/database/SaveExpectations.h"

/// SaveConnection where it does not save: each box, and that nothing stays behind.
class TestConnectionSaveRefusals : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Begin_Fails_IsDeniedInAnErrorBox();
    void Begin_InUse_AsksUntilItWorks();
    void SecondBegin_Fails_IsDeniedInAnErrorBox();
    void Refusal_TellsWhyAndLeavesNothing_data();
    void Refusal_TellsWhyAndLeavesNothing();
    void Refusal_EarlierStepComesFirst();
    void Rollback_FailsBeforeTheQuestion_AsksNothing();
    void NewConnection_RoutineFails_KeepsWhatWasDone();
    void NewConnection_RoutineFailsWithoutAText_EndsSilently();
    void Commit_Fails_IsTold();
    void ChangedElsewhere_IsPrevented_data();
    void ChangedElsewhere_IsPrevented();
    void ChangedElsewhere_WhileTheQuestionStands_IsPrevented_data();
    void ChangedElsewhere_WhileTheQuestionStands_IsPrevented();
    void DatabaseClosed_WhileTheQuestionStands_WarnsOfNoDamage_data();
    void DatabaseClosed_WhileTheQuestionStands_WarnsOfNoDamage();
};

using namespace SaveTexts;

void TestConnectionSaveRefusals::Begin_Fails_IsDeniedInAnErrorBox()
{
    SaveFixture fixture;
    fixture.EditConnection("Alpha");
    const BeforeSave before(fixture);
    fixture.Component.Fail("BeginTransaction");

    QVERIFY(!fixture.Save("Omega"));

    QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Error(Denied)});
    QCOMPARE(fixture.Component.Calls, QStringList{"BeginTransaction()"});
    before.CheckUnchanged();
}

void TestConnectionSaveRefusals::Begin_InUse_AsksUntilItWorks()
{
    SaveFixture fixture;
    fixture.EditConnection("Alpha");
    fixture.Component.FailTimes("BeginTransaction", 2, DatabaseErrorNumber::InUse);

    QVERIFY(fixture.Save("Omega"));

    const RecordedBox question{"Database is in use by another application, do you want to try again ?",
                               BoxFlags::OkCancel, "Database sharing problem"};
    QCOMPARE(fixture.Operator.Boxes, (std::vector<RecordedBox>{question, question}));
}

void TestConnectionSaveRefusals::SecondBegin_Fails_IsDeniedInAnErrorBox()
{
    SaveFixture fixture;
    fixture.AddConnection();
    fixture.Con().ConName = "Beta";
    const BeforeSave before(fixture);
    fixture.Operator.WhileOpen = [&](const RecordedBox& box) {
        if (box.flags == BoxFlags::OkCancel)
            fixture.Component.Fail("BeginTransaction");
    };

    QVERIFY(!fixture.Save("Beta"));

    QCOMPARE(fixture.Operator.Boxes.size(), 2U);
    QCOMPARE(fixture.Operator.Boxes.back(), RecordedBox::Error(Denied));
    QCOMPARE(fixture.Component.Calls.last(), "BeginTransaction()");
    before.CheckUnchanged();
}

static const std::vector<SaveRefusal>& Refusals()
{
    const auto edit = [](SaveFixture& fixture) { fixture.EditConnection("Alpha"); };
    const RecordedBox unknown = RecordedBox::Error(UnknownError);
    static const std::vector<SaveRefusal> refusals{
        {"no name", edit, "  ", {RecordedBox::Plain(NoSaving)}, "CheckTargetSyntax"},
        {"target is refused",
         [](SaveFixture& fixture) {
             fixture.EditConnection("Alpha");
             fixture.Component.Answer("CheckTargetSyntax", {"", "ERROR"});
         },
         "Omega",
         {RecordedBox::Plain(NoSaving)},
         "CheckTargetSyntax"},
        {"connection name cannot be looked up",
         [](SaveFixture& fixture) {
             fixture.EditConnection("Alpha");
             fixture.Component.Fail("ParentNameExist");
         },
         "Omega",
         {unknown, RecordedBox::Error(RolledBack)},
         "ParentNameExist"},
        {"id of the one to be replaced cannot be read",
         [](SaveFixture& fixture) {
             fixture.AddConnection();
             fixture.Con().ConName = "Beta";
             fixture.Component.Fail("GetParentID");
         },
         "Beta",
         {unknown, RecordedBox::Plain("Failure to get connection data from database.")},
         "GetParentID"},
        {"node name cannot be looked up",
         [](SaveFixture& fixture) {
             fixture.EditConnection("Alpha");
             fixture.Component.Fail("NodeNameExist");
         },
         "Omega",
         {unknown, RecordedBox::Plain(SearchFailure)},
         "NodeNameExist"},
        {"a node has the name",
         edit,
         "NORTH",
         {RecordedBox::Plain("Node name NORTH already exists in the database. No saving, because connections "
                             "and nodes cannot share the same name.")},
         "NodeNameExist"},
        {"a node has the name of a new connection",
         [](SaveFixture& fixture) { fixture.AddConnection(); },
         "South",
         {RecordedBox::Plain("Node name South already exists in the database. No saving, because connections "
                             "and nodes cannot share the same name.")},
         "NodeNameExist"},
        {"id cannot be read",
         [](SaveFixture& fixture) {
             fixture.EditConnection("Alpha");
             fixture.Component.Fail("GetParentID");
         },
         "Omega",
         {unknown, RecordedBox::Plain(Prevented("connection"))},
         "GetParentID"},
        {"change fails",
         [](SaveFixture& fixture) {
             fixture.EditConnection("Alpha");
             fixture.Component.Fail("ReplaceParentTarget");
         },
         "Omega",
         {unknown, RecordedBox::Plain("Error in connection database saving.")},
         "ReplaceParentTarget"},
        {"entry is missing",
         [](SaveFixture& fixture) {
             fixture.EditConnection("Alpha");
             fixture.ConTree.Remove(fixture.ConTree.FindByText("Alpha", false));
         },
         "Omega",
         {RecordedBox::Plain("Error in connection database saving.")},
         "ReplaceParentTarget"},
    };
    return refusals;
}

void TestConnectionSaveRefusals::Refusal_TellsWhyAndLeavesNothing_data()
{
    RefusalRows(Refusals());
}

void TestConnectionSaveRefusals::Refusal_TellsWhyAndLeavesNothing()
{
    QFETCH(int, row);
    const SaveRefusal& refusal = Refusals()[static_cast<size_t>(row)];
    SaveFixture fixture;
    refusal.prepare(fixture);
    const BeforeSave before(fixture);

    QVERIFY(!fixture.Save(refusal.saveAs));

    CheckRefusal(fixture, refusal);
    before.CheckUnchanged();
}

void TestConnectionSaveRefusals::Refusal_EarlierStepComesFirst()
{
    SaveFixture fixture;
    fixture.EditConnection("Alpha");
    fixture.Component.Store.AddNode("Beta", "Gamma", "", SaveFixture::EastTarget);
    fixture.ChangeElsewhere("Alpha");

    QVERIFY(!fixture.Save("Beta"));
    QVERIFY(!fixture.Save("North"));
    fixture.Component.Answer("CheckTargetSyntax", {"", "ERROR"});
    QVERIFY(!fixture.Save("Beta"));

    QCOMPARE(fixture.Operator.Texts(),
             (QStringList{"Connection Beta already exists. Give a new name.",
                          "Node name North already exists in the database. No saving, because connections "
                          "and nodes cannot share the same name.",
                          NoSaving}));
}

void TestConnectionSaveRefusals::Rollback_FailsBeforeTheQuestion_AsksNothing()
{
    SaveFixture fixture;
    fixture.AddConnection();
    fixture.Con().ConName = "Beta";
    const BeforeSave before(fixture);
    fixture.Component.FailTimes("RollbackTransaction", 1);

    QVERIFY(!fixture.Save("Beta"));

    QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Error(RolledBack)});
    before.CheckUnchanged();
}

void TestConnectionSaveRefusals::NewConnection_RoutineFails_KeepsWhatWasDone()
{
    SaveFixture fixture;
    fixture.AddConnection();
    const QStringList flags = fixture.Flags();
    fixture.Component.Fail("SaveParent");

    QVERIFY(!fixture.Save("Delta"));

    QCOMPARE(fixture.Operator.Boxes,
             (std::vector{RecordedBox::Error(UnknownError),
                          RecordedBox::Plain("Database error, failure in SaveParent.")}));
    QCOMPARE(fixture.Steps().last(), "Commit");
    QCOMPARE(fixture.Component.Store.Commits, 1);
    QCOMPARE(fixture.Component.Store.Levels(), 0);
    QCOMPARE(fixture.Flags(), flags);
}

void TestConnectionSaveRefusals::NewConnection_RoutineFailsWithoutAText_EndsSilently()
{
    SaveFixture fixture;
    fixture.AddConnection();
    const QStringList flags = fixture.Flags();
    fixture.Component.Fail("GetParentNodesWithID(Delta)");

    QVERIFY(!fixture.Save("Delta"));

    QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Error(UnknownError)});
    QCOMPARE(fixture.Steps().last(), "Commit");
    QVERIFY(fixture.IdOfConnection("Delta") != 0);
    QCOMPARE(fixture.Flags(), flags);
}

void TestConnectionSaveRefusals::Commit_Fails_IsTold()
{
    SaveFixture fixture;
    fixture.EditConnection("Alpha");
    const BeforeSave before(fixture);
    fixture.Component.BeforeCall = [&](const QString& call) {
        if (call == "CommitTransaction(1)" && fixture.Component.Store.Levels() == 1)
            fixture.Component.FailTimes("CommitTransaction", 1);
    };

    QVERIFY(!fixture.Save("Omega"));

    QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Error(CommitFailure)});
    QCOMPARE(fixture.Component.Calls.last(), "RollbackTransaction()");
    before.CheckUnchanged();
}

static void ChangesElsewhere()
{
    QTest::addColumn<QString>("change");
    QTest::newRow("deleted") << "deleted";
    QTest::newRow("changed") << "changed";
    QTest::newRow("deleted and made anew") << "anew";
}

static void Change(SaveFixture& fixture, const QString& change, const QString& name)
{
    if (change == "changed")
        fixture.ChangeElsewhere(name);
    else
        fixture.RemoveElsewhere(name);
    if (change == "anew")
        fixture.Component.Store.AddConnection(name, SaveFixture::GammaTarget);
}

void TestConnectionSaveRefusals::ChangedElsewhere_IsPrevented_data()
{
    ChangesElsewhere();
}

void TestConnectionSaveRefusals::ChangedElsewhere_IsPrevented()
{
    QFETCH(QString, change);
    for (const QString& name : {QStringLiteral("Alpha"), QStringLiteral("Omega")}) {
        SaveFixture fixture;
        fixture.EditConnection("Alpha");
        Change(fixture, change, "Alpha");
        const BeforeSave before(fixture);

        QVERIFY(!fixture.Save(name));

        QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Plain(Prevented("connection"))});
        QVERIFY(fixture.Component.Count("ReplaceParentTarget") == 0);
        before.CheckUnchanged();
    }
}

void TestConnectionSaveRefusals::ChangedElsewhere_WhileTheQuestionStands_IsPrevented_data()
{
    ChangesElsewhere();
}

void TestConnectionSaveRefusals::ChangedElsewhere_WhileTheQuestionStands_IsPrevented()
{
    QFETCH(QString, change);
    SaveFixture fixture;
    fixture.AddConnection();
    fixture.Con().ConName = "Beta";
    const QStringList flags = fixture.Flags();
    QStringList records;
    fixture.Operator.WhileOpen = [&](const RecordedBox& box) {
        QCOMPARE(fixture.Component.Store.Levels(), 0);
        if (box.flags == BoxFlags::OkCancel)
            Change(fixture, change, "Beta");
        records = fixture.Records();
    };

    QVERIFY(!fixture.Save("Beta"));

    QCOMPARE(fixture.Operator.Texts(),
             (QStringList{"Connection Beta exists in database. Do you want to replace it ?",
                          Prevented("connection")}));
    QCOMPARE(fixture.Operator.Boxes.back(), RecordedBox::Plain(Prevented("connection")));
    QCOMPARE(fixture.Records(), records);
    QCOMPARE(fixture.Flags(), flags);
    QCOMPARE(fixture.Component.Count("ReplaceParentTarget"), 0);
}

void TestConnectionSaveRefusals::DatabaseClosed_WhileTheQuestionStands_WarnsOfNoDamage_data()
{
    QTest::addColumn<BoxAnswer>("answer");
    QTest::addColumn<QStringList>("told");
    QTest::newRow("cancel") << BoxAnswer::Cancel << QStringList();
    QTest::newRow("ok") << BoxAnswer::Ok << QStringList{Denied};
}

void TestConnectionSaveRefusals::DatabaseClosed_WhileTheQuestionStands_WarnsOfNoDamage()
{
    QFETCH(const BoxAnswer, answer);
    SaveFixture fixture;
    fixture.AddConnection();
    fixture.Con().ConName = "Beta";
    fixture.Operator.Answers = {answer};
    fixture.Operator.WhileOpen = [](const RecordedBox&) {
        Model().Database = nullptr;
        Database().DbObject.reset();
    };

    QVERIFY(!fixture.Save("Beta"));

    QTEST(fixture.Operator.Texts().mid(1), "told");
}

QTEST_GUILESS_MAIN(TestConnectionSaveRefusals)
#include "TestConnectionSaveRefusals.moc"
