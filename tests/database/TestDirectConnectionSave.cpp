#include "database/DatabaseState.h"
#include "database/DirectConnectionSave.h"
#include "model/ModelState.h"
#include "tests/database/SaveExpectations.h"

/// SaveDirectDefinition: which save happens, in which steps, each box, and what follows.
class TestDirectConnectionSave : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void NotNew_OwnName_WritesOverTheRecord();
    void NotNew_OwnNameInOtherLetters_KeepsTheStoredOnes();
    void NotNew_FreeName_IsSavedBeside();
    void NotNew_ChangedElsewhere_IsWrittenOver();
    void NotNew_RemovedElsewhere_IsSavedAnew();
    void New_FreeName_IsSaved();
    void New_OtherLettersOfItsName_AreTaken();
    void Saved_BlanksAtTheEnds_AreRemoved();
    void Saved_Twice_KnowsItsOwnRecord();
    void Saved_NodesHidden_ShowsTheWaypoints();
    void Saved_Entry_IsSelected();
    void Saved_NoTree_IsInTheDatabase_data();
    void Saved_NoTree_IsInTheDatabase();
    void Saved_TypeUnread_IsUnknown();
    void Refusal_TellsWhyAndLeavesNothing_data();
    void Refusal_TellsWhyAndLeavesNothing();
    void Refused_BeforeTheBegin_AsksNoRecords_data();
    void Refused_BeforeTheBegin_AsksNoRecords();
    void Begin_Fails_IsDeniedInAnErrorBox();
    void Commit_Fails_IsTold();
    void New_RefusedByTheRoutine_IsCommitted_data();
    void New_RefusedByTheRoutine_IsCommitted();
    void New_RoutineFailsWithoutAText_EndsSilently();
    void Host_ForgetsTheTreesUnderAQuestion_SaveGoesOn();
    void Host_RemovesTheTreeUnderAQuestion_SavesNothing();
    void Host_ClosesTheDatabaseUnderAQuestion_SavesNothing();

private:
    static void CheckSaved(const SaveFixture& fixture, const QString& name);
};

using namespace SaveTexts;

namespace {

QString OfAlpha(const QString& id)
{
    return QString(SaveFixture::AlphaTarget).replace(QStringLiteral("ID=254"), QStringLiteral("ID=") + id);
}

QString Check(const QString& target)
{
    return QStringLiteral("CheckTargetSyntax(%1,-1)").arg(target);
}

} // namespace

void TestDirectConnectionSave::CheckSaved(const SaveFixture& fixture, const QString& name)
{
    QCOMPARE(fixture.Direct().ConName, name);
    QCOMPARE(fixture.Direct().ConDbID, fixture.IdOfConnection(name));
    QCOMPARE(fixture.Direct().ConTypeName, "T4BUS");
    QVERIFY(!fixture.Direct().NewCon);
    QVERIFY(fixture.Direct().SelectPressed);
    QCOMPARE(fixture.NewDirect().ConName, "");
    QCOMPARE(fixture.ConTree.Text(fixture.Con().SelectedTreeNodeIndex), name);
    QCOMPARE(fixture.Component.Store.Commits, 1);
    QCOMPARE(fixture.TreeContents(), SaveFixture::FreshTreeContents());
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
    QCOMPARE(fixture.Component.Store.Levels(), 0);
    QCOMPARE(fixture.Pointers.last(), DatabaseClass::NormalPointer);
}

void TestDirectConnectionSave::NotNew_OwnName_WritesOverTheRecord()
{
    SaveFixture fixture;
    fixture.EditDirect("Alpha");
    fixture.SetDirectValue(1, "99");

    QVERIFY(fixture.SaveDirect("Alpha"));

    const QString target = OfAlpha("99");
    QCOMPARE(fixture.Steps(), (QStringList{Check(target), "Begin", "ParentNameExist(Alpha)",
                                           QStringLiteral("ReplaceParentTarget(Alpha,%1)").arg(target),
                                           "GetParentID(Alpha)", "GetParentNodesWithID(Alpha)",
                                           "GetParentID(Alpha)", "GetConTypeShortName(T4 Bus)", "Commit"}));
    QVERIFY(fixture.Records().contains("Alpha|" + target));
    CheckSaved(fixture, "Alpha");
}

void TestDirectConnectionSave::NotNew_OwnNameInOtherLetters_KeepsTheStoredOnes()
{
    SaveFixture fixture;
    fixture.EditDirect("Alpha");
    fixture.SetDirectValue(1, "99");

    QVERIFY(fixture.SaveDirect("ALPHA"));

    QVERIFY(fixture.Records().contains("Alpha|" + OfAlpha("99")));
    CheckSaved(fixture, "Alpha");
}

void TestDirectConnectionSave::NotNew_FreeName_IsSavedBeside()
{
    SaveFixture fixture;
    fixture.EditDirect("Alpha");

    QVERIFY(fixture.SaveDirect("Omega"));

    QVERIFY(fixture.Records().contains("Alpha|" + SaveFixture::AlphaTarget));
    QVERIFY(fixture.Records().contains("Omega|" + SaveFixture::AlphaTarget));
    QCOMPARE(fixture.Component.Count("ReplaceParentName"), 0);
    CheckSaved(fixture, "Omega");
}

void TestDirectConnectionSave::NotNew_ChangedElsewhere_IsWrittenOver()
{
    SaveFixture fixture;
    fixture.EditDirect("Alpha");
    fixture.SetDirectValue(1, "99");
    fixture.ChangeElsewhere("Alpha");

    QVERIFY(fixture.SaveDirect("Alpha"));

    QVERIFY(fixture.Records().contains("Alpha|" + OfAlpha("99")));
    CheckSaved(fixture, "Alpha");
}

void TestDirectConnectionSave::NotNew_RemovedElsewhere_IsSavedAnew()
{
    SaveFixture fixture;
    fixture.EditDirect("Gamma");
    fixture.RemoveElsewhere("Gamma");

    QVERIFY(fixture.SaveDirect("Gamma"));

    QVERIFY(fixture.Records().contains("Gamma|" + SaveFixture::GammaTarget));
    QCOMPARE(fixture.Direct().ConDbID, fixture.IdOfConnection("Gamma"));
    QCOMPARE(fixture.Component.Count("SaveParent"), 1);
}

void TestDirectConnectionSave::New_FreeName_IsSaved()
{
    SaveFixture fixture;
    fixture.AddDirect("Alpha", "Mine");
    fixture.SetDirectValue(1, "99");

    QVERIFY(fixture.SaveDirect("Mine"));

    const QString target = OfAlpha("99");
    QCOMPARE(fixture.Steps(),
             (QStringList{Check(target), "Begin", "ParentNameExist(Mine)", "ParentNameExist(Mine)",
                          "GetUsersList(Mine,Parent,)", QStringLiteral("SaveParent(Mine,%1)").arg(target),
                          "GetUsersList(Mine,Parent,)", "UpdateUsersList(Mine,Parent,)", "GetParentID(Mine)",
                          "GetParentNodesWithID(Mine)", "GetParentID(Mine)", "GetConTypeShortName(T4 Bus)",
                          "Commit"}));
    CheckSaved(fixture, "Mine");
}

void TestDirectConnectionSave::New_OtherLettersOfItsName_AreTaken()
{
    SaveFixture fixture;
    fixture.AddDirect("Alpha", "Mine");

    QVERIFY(fixture.SaveDirect("MINE"));

    CheckSaved(fixture, "MINE");
}

void TestDirectConnectionSave::Saved_BlanksAtTheEnds_AreRemoved()
{
    SaveFixture fixture;
    fixture.AddDirect("Alpha", "Mine");
    QString name = "  Mine ";

    QVERIFY(SaveDirectDefinition(fixture.Direct(), fixture.NewDirect(), name, "T4 Bus"));

    QCOMPARE(name, "Mine");
    CheckSaved(fixture, "Mine");
}

void TestDirectConnectionSave::Saved_Twice_KnowsItsOwnRecord()
{
    SaveFixture fixture;
    fixture.AddDirect("Alpha", "Mine");
    QVERIFY(fixture.SaveDirect("Mine"));
    fixture.SetDirectValue(1, "99");
    fixture.Component.Store.Commits = 0;

    QVERIFY(fixture.SaveDirect("Mine"));

    QVERIFY(fixture.Records().contains("Mine|" + OfAlpha("99")));
    CheckSaved(fixture, "Mine");
}

void TestDirectConnectionSave::Saved_NodesHidden_ShowsTheWaypoints()
{
    SaveFixture fixture;
    fixture.EditDirect("Gamma");
    fixture.Con().ViewNodesChecked = false;

    QVERIFY(fixture.SaveDirect("Gamma"));

    const TreeEntries::Index entry = fixture.Con().SelectedTreeNodeIndex;
    QCOMPARE(fixture.ConTree.ChildCount(entry), 1);
    QCOMPARE(fixture.ConTree.Kind(fixture.ConTree.Child(entry, 0)), QChar('W'));
}

void TestDirectConnectionSave::Saved_Entry_IsSelected()
{
    SaveFixture fixture;
    fixture.AddDirect("Alpha", "Mine");
    QStringList selected;
    int levels = -1;
    Model().SelectTreeEntry = [&](TreeEntries& tree, TreeEntries::Index entry) {
        selected << tree.Text(entry);
        levels = fixture.Component.Store.Levels();
    };

    QVERIFY(fixture.SaveDirect("Mine"));

    Model().SelectTreeEntry = nullptr;
    QCOMPARE(selected, QStringList{"Mine"});
    QCOMPARE(levels, 0);
}

void TestDirectConnectionSave::Saved_NoTree_IsInTheDatabase_data()
{
    QTest::addColumn<bool>("conObject");
    QTest::newRow("ConObject names none") << true;
    QTest::newRow("no ConObject") << false;
}

void TestDirectConnectionSave::Saved_NoTree_IsInTheDatabase()
{
    QFETCH(bool, conObject);
    for (const QString& name : {QStringLiteral("Alpha"), QStringLiteral("Omega")}) {
        SaveFixture fixture;
        fixture.EditDirect("Alpha");
        fixture.SetDirectValue(1, "99");
        const QStringList trees = fixture.Trees();
        fixture.Con().ConTree = nullptr;
        if (!conObject)
            Model().ConObject.reset();

        QVERIFY(fixture.SaveDirect(name));

        QVERIFY(fixture.Records().contains(name + "|" + OfAlpha("99")));
        QCOMPARE(fixture.Direct().ConDbID, fixture.IdOfConnection(name));
        QCOMPARE(fixture.Trees(), trees);
    }
}

void TestDirectConnectionSave::Saved_TypeUnread_IsUnknown()
{
    SaveFixture fixture;
    fixture.EditDirect("Alpha");
    fixture.Component.Fail("GetConTypeShortName");

    QVERIFY(fixture.SaveDirect("Omega"));

    QCOMPARE(fixture.Direct().ConTypeName, "Unknown");
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

// Refusals ------------------------------------------------------------------------------------------------

static const std::vector<SaveRefusal>& Refusals()
{
    const RecordedBox unknown = RecordedBox::Error(UnknownError);
    const RecordedBox failed = RecordedBox::Plain("Error in connection database saving.");
    static const std::vector<SaveRefusal> refusals{
        {"name cannot be looked up",
         [](SaveFixture& fixture) {
             fixture.EditDirect("Alpha");
             fixture.Component.Fail("ParentNameExist");
         },
         "Omega",
         {unknown, RecordedBox::Plain("Database search error.")},
         "ParentNameExist"},
        {"not new, the name of another",
         [](SaveFixture& fixture) { fixture.EditDirect("Alpha"); },
         "Beta",
         {RecordedBox::Plain("Connection Beta already exists. Give a new name."), failed},
         "ParentNameExist"},
        {"change fails",
         [](SaveFixture& fixture) {
             fixture.EditDirect("Alpha");
             fixture.Component.Fail("ReplaceParentTarget");
         },
         "Alpha",
         {unknown, failed},
         "ReplaceParentTarget"},
        {"entry is missing",
         [](SaveFixture& fixture) {
             fixture.EditDirect("Alpha");
             fixture.ConTree.Remove(fixture.ConTree.FindByText("Alpha", false));
         },
         "Alpha",
         {failed},
         "ReplaceParentTarget"},
        {"id is missing",
         [](SaveFixture& fixture) {
             fixture.EditDirect("Alpha");
             fixture.Component.Fail("GetParentID");
         },
         "Alpha",
         {unknown, RecordedBox::Plain("Database error, Connection ID missing."), failed},
         "GetParentID"},
        {"id of the saved one cannot be read",
         [](SaveFixture& fixture) {
             fixture.AddDirect("Alpha", "Mine");
             // The save routine reads it once.
             fixture.Component.BeforeCall = [&fixture, reads = 0](const QString& call) mutable {
                 if (call == "GetParentID(Mine)" && ++reads == 2)
                     fixture.Component.FailTimes("GetParentID", 1);
             };
         },
         "Mine",
         {unknown, RecordedBox::Plain("Failure to get connection data from database.")},
         "GetParentID"},
    };
    return refusals;
}

void TestDirectConnectionSave::Refusal_TellsWhyAndLeavesNothing_data()
{
    RefusalRows(Refusals());
}

void TestDirectConnectionSave::Refusal_TellsWhyAndLeavesNothing()
{
    QFETCH(int, row);
    const SaveRefusal& refusal = Refusals()[static_cast<size_t>(row)];
    SaveFixture fixture;
    refusal.prepare(fixture);
    const BeforeSave before(fixture);

    QVERIFY(!fixture.SaveDirect(refusal.saveAs));

    CheckRefusal(fixture, refusal);
    before.CheckUnchanged();
    QCOMPARE(fixture.Direct().ConTypeName, "T4BUS");
}

void TestDirectConnectionSave::Refused_BeforeTheBegin_AsksNoRecords_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("targetIsRefused");
    QTest::addColumn<RecordedBox>("box");
    const RecordedBox parameters = RecordedBox::Plain(NoSaving);
    const RecordedBox reserved = RecordedBox::Error(
        QStringLiteral("'New Connection' cannot be used as a connection name, give a new name."));
    QTest::newRow("no name") << "" << false << parameters;
    QTest::newRow("blanks") << "   " << false << parameters;
    QTest::newRow("target is refused") << "Omega" << true << parameters;
    QTest::newRow("reserved") << "New Connection" << false << reserved;
    QTest::newRow("reserved, small and with blanks") << " new connection " << false << reserved;
    QTest::newRow("reserved, and target is refused") << "New Connection" << true << parameters;
}

void TestDirectConnectionSave::Refused_BeforeTheBegin_AsksNoRecords()
{
    QFETCH(QString, name);
    QFETCH(bool, targetIsRefused);
    QFETCH(RecordedBox, box);
    SaveFixture fixture;
    fixture.EditDirect("Alpha");
    if (targetIsRefused)
        fixture.Component.Answer("CheckTargetSyntax", {"", "ERROR"});
    const QStringList flags = fixture.Flags();

    QVERIFY(!fixture.SaveDirect(name));

    QCOMPARE(fixture.Operator.Boxes, std::vector{box});
    QCOMPARE(fixture.Component.Calls, QStringList{Check(SaveFixture::AlphaTarget)});
    QCOMPARE(fixture.Flags(), flags);
}

void TestDirectConnectionSave::Begin_Fails_IsDeniedInAnErrorBox()
{
    SaveFixture fixture;
    fixture.EditDirect("Alpha");
    const BeforeSave before(fixture);
    fixture.Component.Fail("BeginTransaction");

    QVERIFY(!fixture.SaveDirect("Omega"));

    QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Error(Denied)});
    QCOMPARE(fixture.Component.Calls.last(), "BeginTransaction()");
    before.CheckUnchanged();
}

void TestDirectConnectionSave::Commit_Fails_IsTold()
{
    for (const QString& name : {QStringLiteral("Alpha"), QStringLiteral("Omega")}) {
        SaveFixture fixture;
        fixture.EditDirect("Alpha");
        const BeforeSave before(fixture);
        fixture.Component.BeforeCall = [&](const QString& call) {
            if (call == "CommitTransaction(1)" && fixture.Component.Store.Levels() == 1)
                fixture.Component.FailTimes("CommitTransaction", 1);
        };

        QVERIFY(!fixture.SaveDirect(name));

        QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Error(CommitFailure)});
        before.CheckUnchanged();
    }
}

void TestDirectConnectionSave::New_RefusedByTheRoutine_IsCommitted_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("failing");
    QTest::addColumn<QString>("text");
    QTest::newRow("taken") << "Beta"
                           << ""
                           << "Error: Connection name Beta alredy exists in database.";
    QTest::newRow("taken, other letters") << "bETA"
                                          << ""
                                          << "Error: Connection name bETA alredy exists in database.";
    QTest::newRow("name of a node") << "North"
                                    << ""
                                    << "Database error, failure in SaveParent.";
    QTest::newRow("not written") << "Mine"
                                 << "SaveParent"
                                 << "Database error, failure in SaveParent.";
}

void TestDirectConnectionSave::New_RefusedByTheRoutine_IsCommitted()
{
    QFETCH(QString, name);
    QFETCH(QString, failing);
    QFETCH(QString, text);
    SaveFixture fixture;
    fixture.AddDirect("Alpha", "Mine");
    if (!failing.isEmpty())
        fixture.Component.Fail(failing);
    const QStringList flags = fixture.Flags();
    const QStringList records = fixture.Records();
    const QStringList trees = fixture.Trees();

    QVERIFY(!fixture.SaveDirect(name));

    QCOMPARE(fixture.Operator.Boxes.back(), RecordedBox::Plain(text));
    QCOMPARE(fixture.Steps().last(), "Commit");
    QCOMPARE(fixture.Component.Store.Commits, 1);
    QCOMPARE(fixture.Component.Store.Levels(), 0);
    QCOMPARE(fixture.LevelsUnderBoxes, 0);
    QCOMPARE(fixture.Flags(), flags);
    QCOMPARE(fixture.Records(), records);
    QCOMPARE(fixture.Trees(), trees);
}

void TestDirectConnectionSave::New_RoutineFailsWithoutAText_EndsSilently()
{
    SaveFixture fixture;
    fixture.AddDirect("Alpha", "Mine");
    const QStringList flags = fixture.Flags();
    fixture.Component.Fail("GetParentNodesWithID(Mine)");

    QVERIFY(!fixture.SaveDirect("Mine"));

    QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Error(UnknownError)});
    QCOMPARE(fixture.Steps().last(), "Commit");
    QVERIFY(fixture.IdOfConnection("Mine") != 0);
    QCOMPARE(fixture.Flags(), flags);
}

// The host ------------------------------------------------------------------------------------------------

void TestDirectConnectionSave::Host_ForgetsTheTreesUnderAQuestion_SaveGoesOn()
{
    SaveFixture fixture;
    fixture.EditDirect("Alpha");
    fixture.SetDirectValue(1, "99");
    fixture.Component.FailTimes("BeginTransaction", 1, DatabaseErrorNumber::InUse);
    fixture.Operator.WhileOpen = [&](const RecordedBox&) { fixture.Con().ConTree = nullptr; };

    QVERIFY(fixture.SaveDirect("Alpha"));

    QVERIFY(fixture.Records().contains("Alpha|" + OfAlpha("99")));
    QCOMPARE(fixture.TreeContents(), SaveFixture::FreshTreeContents());
}

void TestDirectConnectionSave::Host_RemovesTheTreeUnderAQuestion_SavesNothing()
{
    SaveFixture fixture;
    auto tree = std::make_unique<TreeEntries>();
    fixture.EditDirect("Alpha");
    fixture.Con().ConTree = tree.get();
    const QStringList records = fixture.Records();
    const QStringList flags = fixture.Flags();
    fixture.Component.FailTimes("BeginTransaction", 1, DatabaseErrorNumber::InUse);
    fixture.Operator.WhileOpen = [&](const RecordedBox&) { tree.reset(); };

    QVERIFY(!fixture.SaveDirect("Omega"));

    QCOMPARE(fixture.Operator.Boxes.size(), 1U);
    QCOMPARE(fixture.Records(), records);
    QCOMPARE(fixture.Flags(), flags);
    QCOMPARE(fixture.Component.Store.Levels(), 0);
}

void TestDirectConnectionSave::Host_ClosesTheDatabaseUnderAQuestion_SavesNothing()
{
    SaveFixture fixture;
    fixture.EditDirect("Alpha");
    const QStringList records = fixture.Records();
    const QStringList flags = fixture.Flags();
    fixture.Component.FailTimes("BeginTransaction", 1, DatabaseErrorNumber::InUse);
    fixture.Operator.WhileOpen = [&](const RecordedBox& box) {
        if (box.flags != BoxFlags::OkCancel)
            return;
        fixture.Gateway().CloseDb();
        Database().DatabaseOpen = false;
    };

    QVERIFY(!fixture.SaveDirect("Omega"));

    QCOMPARE(fixture.Operator.Texts().last(), "Database search error.");
    QCOMPARE(fixture.Records(), records);
    QCOMPARE(fixture.Flags(), flags);
    QCOMPARE(fixture.Component.Store.Levels(), 0);
}

QTEST_GUILESS_MAIN(TestDirectConnectionSave)
#include "TestDirectConnectionSave.moc"
