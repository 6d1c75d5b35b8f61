#include "OperationTable.h"
#include "database/DatabaseState.h"
#include "tests/support/GatewayFixture.h"

#include <QTest>

/// What all operations of one kind have in common: gate, transaction, order of calls, failures.
class TestDatabaseOperations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Works_AsksTheComponentAndGivesItsAnswer_data();
    void Works_AsksTheComponentAndGivesItsAnswer();
    void SessionClosed_OnlyGatedOperationsRefuse_data();
    void SessionClosed_OnlyGatedOperationsRefuse();
    void NoComponent_IsFalse_data();
    void NoComponent_IsFalse();
    void BeginFails_TellsThatAccessIsDenied_data();
    void BeginFails_TellsThatAccessIsDenied();
    void OperatorGivesUpAtBegin_TellsThatAccessIsDenied_data();
    void OperatorGivesUpAtBegin_TellsThatAccessIsDenied();
    void OperatorTriesAgainAtBegin_Works_data();
    void OperatorTriesAgainAtBegin_Works();
    void CallFails_RollsBackAndTells_data();
    void CallFails_RollsBackAndTells();
    void CallAndRollbackFail_WarnsOfCorruption_data();
    void CallAndRollbackFail_WarnsOfCorruption();
    void CommitFails_TellsOnceAndRollsBack_data();
    void CommitFails_TellsOnceAndRollsBack();
    void CommitAndRollbackFail_TellsBoth_data();
    void CommitAndRollbackFail_TellsBoth();
    void NothingStarted_CommitsNothing_data();
    void NothingStarted_CommitsNothing();
    void NothingStartedAndCallFails_RollsNothingBack_data();
    void NothingStartedAndCallFails_RollsNothingBack();
    void DirectCallFails_IsSilent_data();
    void DirectCallFails_IsSilent();
    void HostFreesTheGatewayAtTheCommitBox_IsFalse_data();
    void HostFreesTheGatewayAtTheCommitBox_IsFalse();
};

static const RecordedBox DeniedBox =
    RecordedBox::Error("Database access is denied, because another application is using it.");
static const RecordedBox UnknownBox = RecordedBox::Error("Unknown error in access to database.");
static const RecordedBox RollbackBox =
    RecordedBox::Error("Failure to roll back database changes. Warning, database may be corrupted.");

static RecordedBox CommitBox(const Operation& operation)
{
    return RecordedBox::Error(qstrcmp(operation.name, "GetNMAInfoDb") == 0
                                  ? "GetNMAInfoDb,failure to commit database operations."
                                  : "Failure to commit database operations.");
}

static void AddRows(const std::function<bool(const Operation&)>& fits)
{
    QTest::addColumn<int>("row");
    for (size_t row = 0; row < Operations().size(); ++row) {
        if (fits(Operations()[row]))
            QTest::newRow(Operations()[row].name) << static_cast<int>(row);
    }
}

static void AddAllRows()
{
    AddRows([](const Operation&) { return true; });
}

static void AddTransactionRows()
{
    AddRows(RunsInTransaction);
}

static const Operation& CurrentOperation()
{
    QFETCH(int, row);
    return Operations()[static_cast<size_t>(row)];
}

/// A row for each component call of each operation in a transaction.
static void AddCallRows(const std::function<bool(const Operation&)>& fits)
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("failing");
    for (size_t row = 0; row < Operations().size(); ++row) {
        const Operation& operation = Operations()[row];
        for (int call = 0; fits(operation) && call < operation.calls.size(); ++call)
            QTest::addRow("%s, %s", operation.name, qPrintable(operation.calls[call]))
                << static_cast<int>(row) << call;
    }
}

/// An open session on a component that answers as the operation expects.
class OperationFixture : public GatewayFixture
{
public:
    explicit OperationFixture(const Operation& operation)
    {
        Open();
        for (qsizetype call = 0; call < operation.calls.size(); ++call)
            Component.Answer(operation.calls[call], operation.answers[static_cast<size_t>(call)]);
    }

    bool Run(const Operation& operation) { return operation.run(Gateway(), Outputs); }

    QStringList Outputs;
};

void TestDatabaseOperations::Works_AsksTheComponentAndGivesItsAnswer_data()
{
    AddAllRows();
}

void TestDatabaseOperations::Works_AsksTheComponentAndGivesItsAnswer()
{
    const Operation& operation = CurrentOperation();
    OperationFixture fixture(operation);

    QVERIFY(fixture.Run(operation));

    const bool transaction = RunsInTransaction(operation);
    QCOMPARE(fixture.Component.Calls, transaction ? QStringList{"BeginTransaction()"} + operation.calls +
                                                        QStringList{"CommitTransaction(1)"}
                                                  : operation.calls);
    QCOMPARE(fixture.Outputs, operation.outputs);
    QCOMPARE(fixture.Pointers, transaction ? (QList<int>{11, 1}) : QList<int>{});
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
    QCOMPARE(fixture.Component.Store.Levels(), 0);
}

void TestDatabaseOperations::SessionClosed_OnlyGatedOperationsRefuse_data()
{
    AddAllRows();
}

void TestDatabaseOperations::SessionClosed_OnlyGatedOperationsRefuse()
{
    const Operation& operation = CurrentOperation();
    OperationFixture fixture(operation);
    Database().DatabaseOpen = false;
    const bool gated = operation.kind == Kind::Session || operation.kind == Kind::GatedDirect;

    QCOMPARE(fixture.Run(operation), !gated);

    QCOMPARE(fixture.Component.Calls.isEmpty(), gated);
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestDatabaseOperations::NoComponent_IsFalse_data()
{
    AddAllRows();
}

void TestDatabaseOperations::NoComponent_IsFalse()
{
    const Operation& operation = CurrentOperation();
    GatewayFixture fixture;
    QStringList outputs;

    QVERIFY(!operation.run(fixture.Gateway(), outputs));

    const bool tells = operation.kind == Kind::Journal;
    QCOMPARE(fixture.Operator.Boxes, tells ? std::vector{DeniedBox} : std::vector<RecordedBox>{});
}

void TestDatabaseOperations::BeginFails_TellsThatAccessIsDenied_data()
{
    AddTransactionRows();
}

void TestDatabaseOperations::BeginFails_TellsThatAccessIsDenied()
{
    const Operation& operation = CurrentOperation();
    OperationFixture fixture(operation);
    fixture.Component.Fail("BeginTransaction", 0x80040029);

    QVERIFY(!fixture.Run(operation));

    QCOMPARE(fixture.Component.Calls, QStringList{"BeginTransaction()"});
    QCOMPARE(fixture.Operator.Boxes, std::vector{DeniedBox});
    QCOMPARE(fixture.Pointers, QList<int>{1});
}

void TestDatabaseOperations::OperatorGivesUpAtBegin_TellsThatAccessIsDenied_data()
{
    AddTransactionRows();
}

void TestDatabaseOperations::OperatorGivesUpAtBegin_TellsThatAccessIsDenied()
{
    const Operation& operation = CurrentOperation();
    OperationFixture fixture(operation);
    fixture.Component.Fail("BeginTransaction", 0x80040040);
    fixture.Operator.Answers = {BoxAnswer::Cancel};

    QVERIFY(!fixture.Run(operation));

    QCOMPARE(fixture.Component.Calls, QStringList{"BeginTransaction()"});
    QCOMPARE(fixture.Operator.Boxes.size(), 2u);
    QCOMPARE(fixture.Operator.Boxes[0].title, "Database sharing problem");
    QCOMPARE(fixture.Operator.Boxes[1], DeniedBox);
}

void TestDatabaseOperations::OperatorTriesAgainAtBegin_Works_data()
{
    AddTransactionRows();
}

void TestDatabaseOperations::OperatorTriesAgainAtBegin_Works()
{
    const Operation& operation = CurrentOperation();
    OperationFixture fixture(operation);
    fixture.Component.FailTimes("BeginTransaction", 2, 0x80040040);

    QVERIFY(fixture.Run(operation));

    QCOMPARE(fixture.Operator.Boxes.size(), 2u);
    QCOMPARE(fixture.Outputs, operation.outputs);
    QCOMPARE(fixture.Component.Calls.last(), "CommitTransaction(1)");
}

void TestDatabaseOperations::CallFails_RollsBackAndTells_data()
{
    AddCallRows(RunsInTransaction);
}

void TestDatabaseOperations::CallFails_RollsBackAndTells()
{
    QFETCH(int, failing);
    const Operation& operation = CurrentOperation();
    OperationFixture fixture(operation);
    fixture.Component.Fail(operation.calls[failing], 0x80040001);

    QVERIFY(!fixture.Run(operation));

    QCOMPARE(fixture.Component.Calls, QStringList{"BeginTransaction()"} + operation.calls.first(failing + 1) +
                                          QStringList{"RollbackTransaction()"});
    QCOMPARE(fixture.Operator.Boxes, std::vector{UnknownBox});
    QCOMPARE(fixture.Pointers, (QList<int>{11, 1}));
    QCOMPARE(fixture.Component.Store.Levels(), 0);
}

void TestDatabaseOperations::CallAndRollbackFail_WarnsOfCorruption_data()
{
    AddTransactionRows();
}

void TestDatabaseOperations::CallAndRollbackFail_WarnsOfCorruption()
{
    const Operation& operation = CurrentOperation();
    OperationFixture fixture(operation);
    fixture.Component.FailFrom(2);

    QVERIFY(!fixture.Run(operation));

    QCOMPARE(fixture.Operator.Boxes, std::vector{RollbackBox});
}

void TestDatabaseOperations::CommitFails_TellsOnceAndRollsBack_data()
{
    AddTransactionRows();
}

void TestDatabaseOperations::CommitFails_TellsOnceAndRollsBack()
{
    const Operation& operation = CurrentOperation();
    OperationFixture fixture(operation);
    fixture.Component.Fail("CommitTransaction");

    QVERIFY(!fixture.Run(operation));

    const QStringList end{"CommitTransaction(1)", "RollbackTransaction()"};
    QCOMPARE(fixture.Component.Calls, QStringList{"BeginTransaction()"} + operation.calls + end);
    QCOMPARE(fixture.Operator.Boxes, std::vector{CommitBox(operation)});
    QCOMPARE(fixture.Component.Store.Levels(), 0);
}

void TestDatabaseOperations::CommitAndRollbackFail_TellsBoth_data()
{
    AddTransactionRows();
}

void TestDatabaseOperations::CommitAndRollbackFail_TellsBoth()
{
    const Operation& operation = CurrentOperation();
    OperationFixture fixture(operation);
    fixture.Component.Fail("CommitTransaction");
    fixture.Component.Fail("RollbackTransaction");

    QVERIFY(!fixture.Run(operation));

    QCOMPARE(fixture.Operator.Boxes, (std::vector{CommitBox(operation), RollbackBox}));
}

void TestDatabaseOperations::NothingStarted_CommitsNothing_data()
{
    AddTransactionRows();
}

void TestDatabaseOperations::NothingStarted_CommitsNothing()
{
    const Operation& operation = CurrentOperation();
    OperationFixture fixture(operation);
    fixture.Component.Answer("BeginTransaction", {"0"});

    QVERIFY(fixture.Run(operation));

    QCOMPARE(fixture.Component.Calls.last(), "CommitTransaction(0)");
    QCOMPARE(fixture.Pointers, QList<int>{});
}

void TestDatabaseOperations::NothingStartedAndCallFails_RollsNothingBack_data()
{
    AddTransactionRows();
}

void TestDatabaseOperations::NothingStartedAndCallFails_RollsNothingBack()
{
    const Operation& operation = CurrentOperation();
    OperationFixture fixture(operation);
    fixture.Component.Answer("BeginTransaction", {"0"});
    fixture.Component.Fail(operation.calls.first());

    QVERIFY(!fixture.Run(operation));

    QCOMPARE(fixture.Component.Count("RollbackTransaction"), 0);
    QCOMPARE(fixture.Operator.Boxes, std::vector{UnknownBox});
}

void TestDatabaseOperations::DirectCallFails_IsSilent_data()
{
    AddCallRows([](const Operation& operation) { return !RunsInTransaction(operation); });
}

void TestDatabaseOperations::DirectCallFails_IsSilent()
{
    QFETCH(int, failing);
    const Operation& operation = CurrentOperation();
    OperationFixture fixture(operation);
    fixture.Component.Fail(operation.calls[failing]);

    QVERIFY(!fixture.Run(operation));

    QCOMPARE(fixture.Component.Calls, operation.calls.first(failing + 1));
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
    QCOMPARE(fixture.Pointers, QList<int>{});
}

void TestDatabaseOperations::HostFreesTheGatewayAtTheCommitBox_IsFalse_data()
{
    AddTransactionRows();
}

void TestDatabaseOperations::HostFreesTheGatewayAtTheCommitBox_IsFalse()
{
    const Operation& operation = CurrentOperation();
    OperationFixture fixture(operation);
    fixture.Component.Fail("CommitTransaction");
    fixture.Operator.WhileOpen = [](const RecordedBox&) { Database().DbObject.reset(); };

    QVERIFY(!fixture.Run(operation));

    QCOMPARE(fixture.Operator.Boxes, std::vector{CommitBox(operation)});
    QCOMPARE(fixture.Component.Count("RollbackTransaction"), 0);
}

QTEST_GUILESS_MAIN(TestDatabaseOperations)
#include "TestDatabaseOperations.moc"
