#include "database/DatabaseState.h"
#include "database/Gateway.h"
#include "database/UnitOfWork.h"
#include "platform/ComponentError.h"
#include "tests/database/SavingFixture.h"

#include <QTest>

#include <stdexcept>

/// A transaction of a command or a dialog, with its boxes and its trees.
class TestUnitOfWork : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Run_WorkDone_CommitsOnce();
    void Begin_Refused_IsToldAndEndsTheWork_data();
    void Begin_Refused_IsToldAndEndsTheWork();
    void BeginQuietly_Refused_EndsTheWorkWithoutAWord_data();
    void BeginQuietly_Refused_EndsTheWorkWithoutAWord();
    void BeginQuietly_Begun_IsAsAnyOther();
    void Begin_InUse_AsksBeforeAnythingIsHeld();
    void Begin_Again_AfterARollback();
    void Begin_RefusedAfterARollback_IsTold();
    void Commit_Failed_IsToldAndRolledBack_data();
    void Commit_Failed_IsToldAndRolledBack();
    void CommitBeforeRefusal_KeepsWhatWasDone();
    void CommitBeforeRefusal_Failed_RollsBackWithoutAWord();
    void Fail_TellsByHowItEnds_data();
    void Fail_TellsByHowItEnds();
    void GiveUp_TellsOnlyAFailedRollback_data();
    void GiveUp_TellsOnlyAFailedRollback();
    void OtherErrors_AreUnknownOnes_data();
    void OtherErrors_AreUnknownOnes();
    void Refuse_RollsBackThenTells();
    void Refuse_RollbackFails_IsToldBehindTheReason();
    void RefuseEnded_AfterACommit_TouchesNothing();
    void Boxes_ThatTell_WaitForTheEndOfTheTransaction();
    void Boxes_AfterSuccess_FollowTheCommit();
    void Boxes_ThatAsk_ComeAfterWhatWasHeld();
    void Database_FreedByTheHost_EndsTheWork();
    void Pointer_IsNormalAtEachEnd_data();
    void Pointer_IsNormalAtEachEnd();
    void Run_Again_StartsAnew();
};

static const QString Denied =
    QStringLiteral("Database access is denied, because another application is using it.");
static const QString CommitFailed = QStringLiteral("Failure to commit database operations.");
static const QString RolledBack =
    QStringLiteral("Failure in database operation. All modifications rolled back successfully.");
static const QString FailedTwice = QStringLiteral(
    "Failure in a database operation and database also failed to roll back its changes. Warning, database "
    "may be corrupted.");
static const QString RollbackFailed =
    QStringLiteral("Failure to roll back database changes. Warning, database may be corrupted.");
static const QString Unknown = QStringLiteral("Unknown error in access to database.");

static const QString BeginCall = QStringLiteral("BeginTransaction()");
static const QString CommitCall = QStringLiteral("CommitTransaction(1)");
static const QString RollbackCall = QStringLiteral("RollbackTransaction()");

using UnitWork = std::function<void(UnitOfWork& unit)>;

/// Error boxes with these texts.
static std::vector<RecordedBox> Errors(const QStringList& texts)
{
    std::vector<RecordedBox> boxes;
    for (const QString& text : texts)
        boxes.push_back(RecordedBox::Error(text));
    return boxes;
}

/// A unit over the trees of a fixture.
class UnitFixture : public SavingFixture
{
public:
    bool Run(const UnitWork& work)
    {
        UnitOfWork unit({&ConTree, &NodesTree});
        return unit.Run(work);
    }
};

void TestUnitOfWork::Run_WorkDone_CommitsOnce()
{
    UnitFixture fixture;

    QVERIFY(fixture.Run([](UnitOfWork& unit) {
        unit.Begin();
        unit.Commit();
    }));

    QCOMPARE(fixture.Component.Calls, (QStringList{BeginCall, CommitCall}));
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestUnitOfWork::Begin_Refused_IsToldAndEndsTheWork_data()
{
    QTest::addColumn<quint32>("number");
    QTest::addColumn<QStringList>("texts");
    const QString again =
        QStringLiteral("Database is in use by another application, do you want to try again ?");
    QTest::newRow("in use, given up") << DatabaseErrorNumber::InUse << QStringList{again, Denied};
    QTest::newRow("other error") << DatabaseErrorNumber::Refused << QStringList{Denied};
}

void TestUnitOfWork::Begin_Refused_IsToldAndEndsTheWork()
{
    QFETCH(quint32, number);
    QFETCH(QStringList, texts);
    UnitFixture fixture;
    fixture.Component.Fail("BeginTransaction", number);
    fixture.Operator.Answers = {BoxAnswer::Cancel};
    bool wentOn = false;

    QVERIFY(!fixture.Run([&](UnitOfWork& unit) {
        unit.Begin();
        wentOn = true;
    }));

    QVERIFY(!wentOn);
    QCOMPARE(fixture.Operator.Texts(), texts);
    QCOMPARE(fixture.Operator.Boxes.back(), RecordedBox::Error(Denied));
    QCOMPARE(fixture.Component.Calls, QStringList{BeginCall});
}

void TestUnitOfWork::BeginQuietly_Refused_EndsTheWorkWithoutAWord_data()
{
    QTest::addColumn<quint32>("number");
    QTest::newRow("in use") << DatabaseErrorNumber::InUse;
    QTest::newRow("other error") << DatabaseErrorNumber::Refused;
}

void TestUnitOfWork::BeginQuietly_Refused_EndsTheWorkWithoutAWord()
{
    QFETCH(quint32, number);
    UnitFixture fixture;
    fixture.Component.Fail("BeginTransaction", number);
    bool wentOn = false;

    QVERIFY(!fixture.Run([&](UnitOfWork& unit) {
        unit.BeginQuietly();
        wentOn = true;
    }));

    QVERIFY(!wentOn);
    QCOMPARE(fixture.Operator.Texts(), QStringList());
    QCOMPARE(fixture.Component.Calls, QStringList{BeginCall});
}

void TestUnitOfWork::BeginQuietly_Begun_IsAsAnyOther()
{
    UnitFixture fixture;

    QVERIFY(!fixture.Run([](UnitOfWork& unit) {
        unit.BeginQuietly();
        UnitOfWork::GiveUp();
    }));

    QCOMPARE(fixture.Component.Calls, (QStringList{BeginCall, RollbackCall}));
}

void TestUnitOfWork::Begin_InUse_AsksBeforeAnythingIsHeld()
{
    UnitFixture fixture;
    fixture.Component.FailTimes("BeginTransaction", 2, DatabaseErrorNumber::InUse);

    QVERIFY(fixture.Run([](UnitOfWork& unit) {
        unit.Begin();
        unit.Commit();
    }));

    QCOMPARE(fixture.Operator.Boxes.size(), 2u);
    QCOMPARE(fixture.Operator.Boxes[0].title, "Database sharing problem");
    QCOMPARE(fixture.Component.Calls, (QStringList{BeginCall, BeginCall, BeginCall, CommitCall}));
}

void TestUnitOfWork::Begin_Again_AfterARollback()
{
    UnitFixture fixture;

    QVERIFY(fixture.Run([&](UnitOfWork& unit) {
        unit.Begin();
        unit.Rollback();
        MsgBox("Replace it ?", BoxFlags::OkCancel);
        QCOMPARE(fixture.Component.Store.Levels(), 0);
        unit.Begin();
        unit.Commit();
    }));

    QCOMPARE(fixture.Component.Calls, (QStringList{BeginCall, RollbackCall, BeginCall, CommitCall}));
    QCOMPARE(fixture.Operator.Texts(), QStringList{"Replace it ?"});
}

void TestUnitOfWork::Begin_RefusedAfterARollback_IsTold()
{
    UnitFixture fixture;

    QVERIFY(!fixture.Run([&](UnitOfWork& unit) {
        unit.Begin();
        unit.Rollback();
        fixture.Component.Fail("BeginTransaction");
        unit.Begin();
    }));

    QCOMPARE(fixture.Component.Calls, (QStringList{BeginCall, RollbackCall, BeginCall}));
    QCOMPARE(fixture.Operator.Boxes, Errors({Denied}));
}

void TestUnitOfWork::Commit_Failed_IsToldAndRolledBack_data()
{
    QTest::addColumn<bool>("rollbackFails");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("rolled back") << false << QStringList{CommitFailed};
    QTest::newRow("rollback fails") << true << QStringList{CommitFailed, RollbackFailed};
}

void TestUnitOfWork::Commit_Failed_IsToldAndRolledBack()
{
    QFETCH(bool, rollbackFails);
    QFETCH(QStringList, texts);
    UnitFixture fixture;
    fixture.Component.Fail("CommitTransaction");
    if (rollbackFails)
        fixture.Component.Fail("RollbackTransaction");
    bool wentOn = false;

    QVERIFY(!fixture.Run([&](UnitOfWork& unit) {
        unit.Begin();
        unit.Commit();
        wentOn = true;
    }));

    QVERIFY(!wentOn);
    QCOMPARE(fixture.Component.Calls, (QStringList{BeginCall, CommitCall, RollbackCall}));
    QCOMPARE(fixture.Operator.Boxes, Errors(texts));
}

void TestUnitOfWork::CommitBeforeRefusal_KeepsWhatWasDone()
{
    UnitFixture fixture;

    QVERIFY(!fixture.Run([](UnitOfWork& unit) {
        unit.Begin();
        Gateway().SaveParentDb("Gamma", SavingFixture::AlphaTarget);
        unit.CommitBeforeRefusal();
        UnitOfWork::RefuseEnded("why");
    }));

    QCOMPARE(fixture.Component.Calls.last(), CommitCall);
    QCOMPARE(fixture.Component.Store.Now.connections.back().name, "Gamma");
    QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Plain("why")});
}

void TestUnitOfWork::CommitBeforeRefusal_Failed_RollsBackWithoutAWord()
{
    UnitFixture fixture;
    fixture.Component.Fail("CommitTransaction");

    QVERIFY(!fixture.Run([](UnitOfWork& unit) {
        unit.Begin();
        unit.CommitBeforeRefusal();
        UnitOfWork::RefuseEnded("why");
    }));

    QCOMPARE(fixture.Component.Calls, (QStringList{BeginCall, CommitCall, RollbackCall}));
    QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Plain("why")});
}

/// A row of work that is given up: what is told and called.
static void CheckEnd(void (*end)())
{
    QFETCH(bool, begun);
    QFETCH(bool, rollbackFails);
    QFETCH(QStringList, texts);
    UnitFixture fixture;
    if (rollbackFails)
        fixture.Component.Fail("RollbackTransaction");

    QVERIFY(!fixture.Run([&](UnitOfWork& unit) {
        if (begun)
            unit.Begin();
        end();
    }));

    QCOMPARE(fixture.Operator.Boxes, Errors(texts));
    QCOMPARE(fixture.Component.Calls, begun ? (QStringList{BeginCall, RollbackCall}) : QStringList());
}

void TestUnitOfWork::Fail_TellsByHowItEnds_data()
{
    QTest::addColumn<bool>("begun");
    QTest::addColumn<bool>("rollbackFails");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("rolled back") << true << false << QStringList{RolledBack};
    QTest::newRow("rollback fails") << true << true << QStringList{FailedTwice};
    QTest::newRow("no transaction") << false << false << QStringList();
}

void TestUnitOfWork::Fail_TellsByHowItEnds()
{
    CheckEnd(UnitOfWork::Fail);
}

void TestUnitOfWork::GiveUp_TellsOnlyAFailedRollback_data()
{
    QTest::addColumn<bool>("begun");
    QTest::addColumn<bool>("rollbackFails");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("rolled back") << true << false << QStringList();
    QTest::newRow("rollback fails") << true << true << QStringList{RollbackFailed};
    QTest::newRow("no transaction") << false << false << QStringList();
}

void TestUnitOfWork::GiveUp_TellsOnlyAFailedRollback()
{
    CheckEnd(UnitOfWork::GiveUp);
}

void TestUnitOfWork::OtherErrors_AreUnknownOnes_data()
{
    QTest::addColumn<bool>("begun");
    QTest::addColumn<bool>("rollbackFails");
    QTest::addColumn<bool>("fromTheComponent");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("rolled back") << true << false << true << QStringList{Unknown};
    QTest::newRow("rollback fails") << true << true << true << QStringList{RollbackFailed};
    QTest::newRow("no transaction") << false << false << true << QStringList{Unknown};
    QTest::newRow("not the component's") << true << false << false << QStringList{Unknown};
}

void TestUnitOfWork::OtherErrors_AreUnknownOnes()
{
    QFETCH(bool, begun);
    QFETCH(bool, rollbackFails);
    QFETCH(bool, fromTheComponent);
    QFETCH(QStringList, texts);
    UnitFixture fixture;
    if (rollbackFails)
        fixture.Component.Fail("RollbackTransaction");

    QVERIFY(!fixture.Run([&](UnitOfWork& unit) {
        if (begun)
            unit.Begin();
        if (fromTheComponent)
            throw ComponentError(DatabaseErrorNumber::Refused, QStringLiteral("test"), QStringLiteral("why"));
        throw std::runtime_error("why");
    }));

    QCOMPARE(fixture.Operator.Boxes, Errors(texts));
    QCOMPARE(fixture.Component.Store.Levels(), rollbackFails ? 1 : 0);
}

void TestUnitOfWork::Refuse_RollsBackThenTells()
{
    UnitFixture fixture;
    int levels = -1;
    fixture.Operator.WhileOpen = [&](const RecordedBox&) { levels = fixture.Component.Store.Levels(); };

    QVERIFY(!fixture.Run([](UnitOfWork& unit) {
        unit.Begin();
        Gateway().SaveParentDb("Gamma", SavingFixture::AlphaTarget);
        unit.Refuse("why", BoxFlags::Exclamation, "Information");
    }));

    QCOMPARE(fixture.Operator.Boxes, (std::vector{RecordedBox{"why", 48, "Information"}}));
    QCOMPARE(levels, 0);
    // The reporter rolls back once more, which finds nothing open.
    QCOMPARE(fixture.Component.Calls.mid(fixture.Component.Calls.size() - 2),
             (QStringList{RollbackCall, RollbackCall}));
    QCOMPARE(fixture.Component.Store.Now.connections.size(), 2u);
}

void TestUnitOfWork::Refuse_RollbackFails_IsToldBehindTheReason()
{
    UnitFixture fixture;
    fixture.Component.Fail("RollbackTransaction");

    QVERIFY(!fixture.Run([](UnitOfWork& unit) {
        unit.Begin();
        unit.Refuse("why");
    }));

    QCOMPARE(fixture.Operator.Boxes,
             (std::vector{RecordedBox::Plain("why"), RecordedBox::Error(RollbackFailed)}));
}

void TestUnitOfWork::RefuseEnded_AfterACommit_TouchesNothing()
{
    UnitFixture fixture;

    QVERIFY(!fixture.Run([](UnitOfWork& unit) {
        unit.Begin();
        unit.Commit();
        UnitOfWork::RefuseEnded("why");
    }));

    QCOMPARE(fixture.Component.Calls, (QStringList{BeginCall, CommitCall}));
    QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Plain("why")});
}

void TestUnitOfWork::Boxes_ThatTell_WaitForTheEndOfTheTransaction()
{
    UnitFixture fixture;
    fixture.Component.Fail("DeleteNode");
    QList<int> levels;
    fixture.Operator.WhileOpen = [&](const RecordedBox&) { levels << fixture.Component.Store.Levels(); };

    QVERIFY(!fixture.Run([](UnitOfWork& unit) {
        unit.Begin();
        MsgBox("one");
        if (!Gateway().DeleteNodeDb("North"))
            UnitOfWork::Fail();
    }));

    QCOMPARE(fixture.Operator.Texts(), (QStringList{"one", Unknown, RolledBack}));
    QCOMPARE(levels, (QList<int>{0, 0, 0}));
}

void TestUnitOfWork::Boxes_AfterSuccess_FollowTheCommit()
{
    UnitFixture fixture;
    int commits = 0;
    fixture.Operator.WhileOpen = [&](const RecordedBox&) { commits = fixture.Component.Store.Commits; };
    const int before = fixture.Component.Store.Commits;

    QVERIFY(fixture.Run([](UnitOfWork& unit) {
        unit.Begin();
        MsgBox("one");
        unit.Commit();
    }));

    QCOMPARE(fixture.Operator.Texts(), QStringList{"one"});
    QCOMPARE(commits, before + 1);
}

void TestUnitOfWork::Boxes_ThatAsk_ComeAfterWhatWasHeld()
{
    UnitFixture fixture;
    fixture.Operator.Answers = {BoxAnswer::Ok, BoxAnswer::Cancel};
    BoxAnswer answer = BoxAnswer::Ok;

    QVERIFY(!fixture.Run([&](UnitOfWork& unit) {
        unit.Begin();
        MsgBox("one");
        unit.Rollback();
        answer = MsgBox("Replace it ?", BoxFlags::OkCancel);
        UnitOfWork::GiveUp();
    }));

    QCOMPARE(answer, BoxAnswer::Cancel);
    QCOMPARE(fixture.Operator.Texts(), (QStringList{"one", "Replace it ?"}));
}

void TestUnitOfWork::Database_FreedByTheHost_EndsTheWork()
{
    UnitFixture fixture;
    fixture.Operator.WhileOpen = [](const RecordedBox&) {
        Model().Database = nullptr;
        Database().DbObject.reset();
        Database().DatabaseOpen = false;
    };

    QVERIFY(!fixture.Run([](UnitOfWork& unit) {
        unit.Begin();
        unit.Rollback();
        MsgBox("Replace it ?", BoxFlags::OkCancel);
        unit.Begin();
    }));

    QCOMPARE(fixture.Operator.Texts(), (QStringList{"Replace it ?", Denied}));
}

void TestUnitOfWork::Pointer_IsNormalAtEachEnd_data()
{
    QTest::addColumn<int>("end");
    QTest::newRow("committed") << 0;
    QTest::newRow("refused") << 1;
    QTest::newRow("failed") << 2;
}

void TestUnitOfWork::Pointer_IsNormalAtEachEnd()
{
    QFETCH(int, end);
    UnitFixture fixture;
    QList<int> whileOpen;
    fixture.Operator.WhileOpen = [&](const RecordedBox&) { whileOpen << fixture.Pointers.last(); };

    fixture.Run([&](UnitOfWork& unit) {
        unit.Begin();
        MsgBox("one");
        if (end == 0)
            unit.Commit();
        else if (end == 1)
            unit.Refuse("why");
        else
            UnitOfWork::Fail();
    });

    QCOMPARE(fixture.Pointers.first(), DatabaseClass::BusyPointer);
    QCOMPARE(fixture.Pointers.last(), DatabaseClass::NormalPointer);
    QCOMPARE(whileOpen, QList<int>(end == 0 ? 1 : 2, DatabaseClass::NormalPointer));
}

void TestUnitOfWork::Run_Again_StartsAnew()
{
    UnitFixture fixture;
    UnitOfWork unit({});
    fixture.Component.FailTimes("CommitTransaction", 1);
    const UnitWork work = [](UnitOfWork& running) {
        running.Begin();
        running.Commit();
    };

    QVERIFY(!unit.Run(work));
    fixture.Forget();

    QVERIFY(unit.Run(work));
    QCOMPARE(fixture.Component.Calls, (QStringList{BeginCall, CommitCall}));
}

QTEST_GUILESS_MAIN(TestUnitOfWork)
#include "TestUnitOfWork.moc"
