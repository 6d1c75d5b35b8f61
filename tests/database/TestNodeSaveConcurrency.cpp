#include "database/DatabaseState.h"
#include "tests/database/SaveExpectations.h"

using namespace SaveTexts;

/// SaveNode where another application changes records before the save or while its question stands open.
class TestNodeSaveConcurrency : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Before_ChangedElsewhere_IsPrevented_data();
    void Before_ChangedElsewhere_IsPrevented();
    void Before_NodeOfTheNameDeletedElsewhere_NewOneHasItsOwnId();
    void Before_OldNodeChangedElsewhere_IsNotPutOntoAnother_data();
    void Before_OldNodeChangedElsewhere_IsNotPutOntoAnother();
    void Question_ReplacedNodeChangesMeanwhile_IsPrevented_data();
    void Question_ReplacedNodeChangesMeanwhile_IsPrevented();
    void Question_OldNodeChangesMeanwhile_IsPrevented_data();
    void Question_OldNodeChangesMeanwhile_IsPrevented();
    void Question_OwnNameInOtherLettersChangesMeanwhile_IsPrevented();
    void Question_ConnectionGoesMeanwhile_SaveFails();
    void Question_HostClosesTheDatabase_IsDenied();
};

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
        fixture.Component.Store.AddNode(name, "Gamma", "NEMML", SaveFixture::EastTarget);
}

static void CheckNothingWritten(const SaveFixture& fixture)
{
    for (const char* method : {"SaveNode", "DeleteNode", "DeleteNodeFromBrowser", "UpdateNodeNmaidx"})
        QCOMPARE(fixture.Component.Count(method), 0);
    QCOMPARE(fixture.Component.Store.Levels(), 0);
    QCOMPARE(fixture.LevelsUnderBoxes, 0);
}

/// Does what another application would while the question stands open, which is all that holds it up.
static void ChangeDuringQuestion(SaveFixture& fixture, const QString& change, const QString& name)
{
    fixture.Operator.WhileOpen = [&fixture, change, name](const RecordedBox& box) {
        QCOMPARE(fixture.Component.Store.Levels(), 0);
        if (box.flags == BoxFlags::OkCancel)
            Change(fixture, change, name);
    };
}

void TestNodeSaveConcurrency::Before_ChangedElsewhere_IsPrevented_data()
{
    ChangesElsewhere();
}

void TestNodeSaveConcurrency::Before_ChangedElsewhere_IsPrevented()
{
    QFETCH(QString, change);
    for (const QString& name : {QStringLiteral("North"), QStringLiteral("West")}) {
        SaveFixture fixture;
        fixture.EditNode("North");
        Change(fixture, change, "North");
        const BeforeSave before(fixture);

        QVERIFY(!fixture.SaveNodeAs(name));

        QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Plain(Prevented("node"))});
        CheckNothingWritten(fixture);
        before.CheckUnchanged();
    }
}

void TestNodeSaveConcurrency::Before_NodeOfTheNameDeletedElsewhere_NewOneHasItsOwnId()
{
    SaveFixture fixture;
    fixture.AddNode("South");
    // The trees still show it.
    fixture.RemoveElsewhere("North");

    QVERIFY(fixture.SaveNodeAs("North"));

    QCOMPARE(fixture.Con().NodeDbID, fixture.IdOfNode("North"));
}

void TestNodeSaveConcurrency::Before_OldNodeChangedElsewhere_IsNotPutOntoAnother_data()
{
    ChangesElsewhere();
}

void TestNodeSaveConcurrency::Before_OldNodeChangedElsewhere_IsNotPutOntoAnother()
{
    QFETCH(QString, change);
    SaveFixture fixture;
    fixture.EditNode("North");
    Change(fixture, change, "North");
    const BeforeSave before(fixture);

    QVERIFY(!fixture.SaveNodeAs("East"));

    QCOMPARE(fixture.Operator.Texts(),
             (QStringList{"Node East exists in database. Do you want to replace it ?", Prevented("node")}));
    CheckNothingWritten(fixture);
    before.CheckUnchanged();
}

void TestNodeSaveConcurrency::Question_ReplacedNodeChangesMeanwhile_IsPrevented_data()
{
    ChangesElsewhere();
}

void TestNodeSaveConcurrency::Question_ReplacedNodeChangesMeanwhile_IsPrevented()
{
    QFETCH(QString, change);
    for (const bool isNew : {true, false}) {
        SaveFixture fixture;
        if (isNew)
            fixture.AddNode("North");
        else
            fixture.EditNode("North");
        const QStringList flags = fixture.Flags();
        const QStringList trees = fixture.Trees();
        ChangeDuringQuestion(fixture, change, "East");

        QVERIFY(!fixture.SaveNodeAs("East"));

        QCOMPARE(fixture.Operator.Texts(),
                 (QStringList{"Node East exists in database. Do you want to replace "
                              "it ?",
                              Prevented("node")}));
        CheckNothingWritten(fixture);
        QCOMPARE(fixture.Flags(), flags);
        QCOMPARE(fixture.Trees(), trees);
    }
}

void TestNodeSaveConcurrency::Question_OldNodeChangesMeanwhile_IsPrevented_data()
{
    ChangesElsewhere();
}

void TestNodeSaveConcurrency::Question_OldNodeChangesMeanwhile_IsPrevented()
{
    QFETCH(QString, change);
    SaveFixture fixture;
    fixture.EditNode("North");
    const QStringList flags = fixture.Flags();
    ChangeDuringQuestion(fixture, change, "North");

    QVERIFY(!fixture.SaveNodeAs("East"));

    QCOMPARE(fixture.Operator.Texts(),
             (QStringList{"Node East exists in database. Do you want to replace it ?", Prevented("node")}));
    CheckNothingWritten(fixture);
    QCOMPARE(fixture.Flags(), flags);
}

void TestNodeSaveConcurrency::Question_OwnNameInOtherLettersChangesMeanwhile_IsPrevented()
{
    SaveFixture fixture;
    fixture.EditNode("North");
    ChangeDuringQuestion(fixture, "changed", "North");

    QVERIFY(!fixture.SaveNodeAs("NORTH"));

    QCOMPARE(fixture.Operator.Texts().last(), Prevented("node"));
    CheckNothingWritten(fixture);
}

void TestNodeSaveConcurrency::Question_ConnectionGoesMeanwhile_SaveFails()
{
    SaveFixture fixture;
    fixture.EditNode("North");
    const QStringList flags = fixture.Flags();
    QStringList records;
    fixture.Operator.WhileOpen = [&](const RecordedBox& box) {
        if (box.flags != BoxFlags::OkCancel)
            return;
        fixture.RemoveElsewhere("Gamma");
        records = fixture.Records();
    };

    QVERIFY(!fixture.SaveNodeAs("East", "Gamma"));

    QCOMPARE(fixture.Operator.Texts(),
             (QStringList{"Node East exists in database. Do you want to replace it ?", UnknownError,
                          "Failure in saving node East into database."}));
    QCOMPARE(fixture.Records(), records);
    QCOMPARE(fixture.Flags(), flags);
    QCOMPARE(fixture.Component.Store.Levels(), 0);
}

void TestNodeSaveConcurrency::Question_HostClosesTheDatabase_IsDenied()
{
    SaveFixture fixture;
    fixture.EditNode("North");
    const QStringList flags = fixture.Flags();
    const QStringList records = fixture.Records();
    fixture.Operator.WhileOpen = [](const RecordedBox& box) {
        if (box.flags == BoxFlags::OkCancel)
            Database().DbObject.reset();
    };

    QVERIFY(!fixture.SaveNodeAs("East"));

    QCOMPARE(fixture.Operator.Boxes.back(), RecordedBox::Error(Denied));
    QCOMPARE(fixture.Records(), records);
    QCOMPARE(fixture.Flags(), flags);
}

QTEST_GUILESS_MAIN(TestNodeSaveConcurrency)
#include "TestNodeSaveConcurrency.moc"
