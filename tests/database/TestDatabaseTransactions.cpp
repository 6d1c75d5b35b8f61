#include "database/DatabaseState.h"
#include "tests/support/GatewayFixture.h"

#include <QTest>

/// The four transaction verbs.
class TestDatabaseTransactions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Begin_Started_OpensAndShowsTheBusyPointer_data();
    void Begin_Started_OpensAndShowsTheBusyPointer();
    void Begin_NothingStarted_IsDoneWithoutATransaction_data();
    void Begin_NothingStarted_IsDoneWithoutATransaction();
    void Begin_ErrorOtherThanInUse_IsSilent_data();
    void Begin_ErrorOtherThanInUse_IsSilent();
    void Begin_NoComponent_IsSilent_data();
    void Begin_NoComponent_IsSilent();
    void BeginTransactionDb_InUse_AsksUntilItIsFree();
    void BeginTransactionDb_InUseAndOperatorGivesUp_IsFalse();
    void BeginTransactionDb_OtherErrorAtTheRetry_IsFalse();
    void BeginTransactionDb_HostFreesTheGatewayAtTheBox_IsFalse();
    void SilentBegin_InUse_AsksNobody_data();
    void SilentBegin_InUse_AsksNobody();
    void CommitTransactionDb_Open_EndsTheTransaction();
    void CommitTransactionDb_NotOpen_PassesZeroAndKeepsThePointer();
    void CommitTransactionDb_Fails_KeepsTheFlag();
    void CommitTransactionDb_NotOpenFails_ShowsTheNormalPointer();
    void RollbackTransactionDb_UndoesAndShowsTheNormalPointer();
    void RollbackTransactionDb_NoneOpen_IsTrue();
    void RollbackTransactionDb_Fails_IsSilent();
    void Nested_InnerRollback_KeepsTheOuterTransaction();
    void LeaveTransaction_NextBegin_RollsBackFirst();
    void LeaveTransaction_StillFailing_NothingBegins();
};

/// The three ways to begin.
enum class Way
{
    Asking,
    WithoutResume,
    Refresh,
};

static bool Begin(DatabaseClass& gateway, Way way, bool& transactionOpen)
{
    switch (way) {
    case Way::WithoutResume:
        return gateway.BeginTransactionWithoutResumeDb(transactionOpen);
    case Way::Refresh:
        return gateway.BeginTransactionDbRefresh(transactionOpen);
    default:
        return gateway.BeginTransactionDb(transactionOpen);
    }
}

static void SilentWays()
{
    QTest::addColumn<Way>("way");
    QTest::newRow("without resume") << Way::WithoutResume;
    QTest::newRow("refresh") << Way::Refresh;
}

static void AllWays()
{
    SilentWays();
    QTest::newRow("asking") << Way::Asking;
}

static const RecordedBox SharingBox{"Database is in use by another application, do you want to try again ?",
                                    BoxFlags::OkCancel, "Database sharing problem"};

void TestDatabaseTransactions::Begin_Started_OpensAndShowsTheBusyPointer_data()
{
    AllWays();
}

void TestDatabaseTransactions::Begin_Started_OpensAndShowsTheBusyPointer()
{
    QFETCH(Way, way);
    GatewayFixture fixture;
    fixture.Open();
    bool transactionOpen = false;

    QVERIFY(Begin(fixture.Gateway(), way, transactionOpen));

    QVERIFY(transactionOpen);
    QCOMPARE(fixture.Component.Calls, QStringList{"BeginTransaction()"});
    QCOMPARE(fixture.Pointers, QList<int>{11});
}

void TestDatabaseTransactions::Begin_NothingStarted_IsDoneWithoutATransaction_data()
{
    AllWays();
}

void TestDatabaseTransactions::Begin_NothingStarted_IsDoneWithoutATransaction()
{
    QFETCH(Way, way);
    GatewayFixture fixture;
    fixture.Open();
    fixture.Component.Answer("BeginTransaction", {"0"});
    bool transactionOpen = true;

    QVERIFY(Begin(fixture.Gateway(), way, transactionOpen));

    QVERIFY(!transactionOpen);
    QCOMPARE(fixture.Pointers, QList<int>{});
}

void TestDatabaseTransactions::Begin_ErrorOtherThanInUse_IsSilent_data()
{
    AllWays();
}

void TestDatabaseTransactions::Begin_ErrorOtherThanInUse_IsSilent()
{
    QFETCH(Way, way);
    GatewayFixture fixture;
    fixture.Open();
    fixture.Component.Fail("BeginTransaction", 0x80040029);
    bool transactionOpen = true;

    QVERIFY(!Begin(fixture.Gateway(), way, transactionOpen));

    QVERIFY(!transactionOpen);
    QCOMPARE(fixture.Component.Count("BeginTransaction"), 1);
    QCOMPARE(fixture.Pointers, QList<int>{1});
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestDatabaseTransactions::Begin_NoComponent_IsSilent_data()
{
    AllWays();
}

void TestDatabaseTransactions::Begin_NoComponent_IsSilent()
{
    QFETCH(Way, way);
    GatewayFixture fixture;
    bool transactionOpen = true;

    QVERIFY(!Begin(fixture.Gateway(), way, transactionOpen));

    QVERIFY(!transactionOpen);
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestDatabaseTransactions::BeginTransactionDb_InUse_AsksUntilItIsFree()
{
    GatewayFixture fixture;
    fixture.Open();
    fixture.Component.FailTimes("BeginTransaction", 25, 0x80040040);
    bool transactionOpen = false;

    QVERIFY(fixture.Gateway().BeginTransactionDb(transactionOpen));

    QVERIFY(transactionOpen);
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>(25, SharingBox));
    QCOMPARE(fixture.Component.Count("BeginTransaction"), 26);
    QCOMPARE(fixture.Pointers, QList<int>(25, 1) + QList<int>{11});
}

void TestDatabaseTransactions::BeginTransactionDb_InUseAndOperatorGivesUp_IsFalse()
{
    GatewayFixture fixture;
    fixture.Open();
    fixture.Component.Fail("BeginTransaction", 0x80040040);
    fixture.Operator.Answers = {BoxAnswer::Ok, BoxAnswer::Cancel};
    bool transactionOpen = false;

    QVERIFY(!fixture.Gateway().BeginTransactionDb(transactionOpen));

    QVERIFY(!transactionOpen);
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>(2, SharingBox));
    QCOMPARE(fixture.Component.Count("BeginTransaction"), 2);
}

void TestDatabaseTransactions::BeginTransactionDb_OtherErrorAtTheRetry_IsFalse()
{
    GatewayFixture fixture;
    fixture.Open();
    fixture.Component.FailTimes("BeginTransaction()", 1, 0x80040040);
    fixture.Component.Fail("BeginTransaction", 0x80040029);
    bool transactionOpen = false;

    QVERIFY(!fixture.Gateway().BeginTransactionDb(transactionOpen));

    QCOMPARE(fixture.Operator.Boxes, std::vector{SharingBox});
}

void TestDatabaseTransactions::BeginTransactionDb_HostFreesTheGatewayAtTheBox_IsFalse()
{
    GatewayFixture fixture;
    fixture.Open();
    fixture.Component.Fail("BeginTransaction", 0x80040040);
    fixture.Operator.WhileOpen = [](const RecordedBox&) { Database().DbObject.reset(); };
    bool transactionOpen = false;

    QVERIFY(!fixture.Gateway().BeginTransactionDb(transactionOpen));

    QCOMPARE(fixture.Component.Count("BeginTransaction"), 1);
}

void TestDatabaseTransactions::SilentBegin_InUse_AsksNobody_data()
{
    SilentWays();
}

void TestDatabaseTransactions::SilentBegin_InUse_AsksNobody()
{
    QFETCH(Way, way);
    GatewayFixture fixture;
    fixture.Open();
    fixture.Component.Fail("BeginTransaction", 0x80040040);
    bool transactionOpen = true;

    QVERIFY(!Begin(fixture.Gateway(), way, transactionOpen));

    QVERIFY(!transactionOpen);
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
    QCOMPARE(fixture.Pointers, QList<int>{1});
}

void TestDatabaseTransactions::CommitTransactionDb_Open_EndsTheTransaction()
{
    GatewayFixture fixture;
    fixture.Open();
    bool transactionOpen = false;
    QVERIFY(fixture.Gateway().BeginTransactionDb(transactionOpen));
    fixture.Forget();

    QVERIFY(fixture.Gateway().CommitTransactionDb(transactionOpen));

    QVERIFY(!transactionOpen);
    QCOMPARE(fixture.Component.Calls, QStringList{"CommitTransaction(1)"});
    QCOMPARE(fixture.Pointers, QList<int>{1});
    QCOMPARE(fixture.Component.Store.Commits, 1);
}

void TestDatabaseTransactions::CommitTransactionDb_NotOpen_PassesZeroAndKeepsThePointer()
{
    GatewayFixture fixture;
    fixture.Open();
    bool transactionOpen = false;

    QVERIFY(fixture.Gateway().CommitTransactionDb(transactionOpen));

    QCOMPARE(fixture.Component.Calls, QStringList{"CommitTransaction(0)"});
    QCOMPARE(fixture.Pointers, QList<int>{});
}

void TestDatabaseTransactions::CommitTransactionDb_Fails_KeepsTheFlag()
{
    GatewayFixture fixture;
    fixture.Open();
    fixture.Component.Fail("CommitTransaction");
    bool transactionOpen = true;

    QVERIFY(!fixture.Gateway().CommitTransactionDb(transactionOpen));

    QVERIFY(transactionOpen);
    QCOMPARE(fixture.Pointers, QList<int>{1});
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestDatabaseTransactions::CommitTransactionDb_NotOpenFails_ShowsTheNormalPointer()
{
    GatewayFixture fixture;
    fixture.Open();
    fixture.Component.Fail("CommitTransaction");
    bool transactionOpen = false;

    QVERIFY(!fixture.Gateway().CommitTransactionDb(transactionOpen));

    QVERIFY(!transactionOpen);
    QCOMPARE(fixture.Pointers, QList<int>{1});
}

void TestDatabaseTransactions::RollbackTransactionDb_UndoesAndShowsTheNormalPointer()
{
    GatewayFixture fixture;
    fixture.Open();
    bool transactionOpen = false;
    QVERIFY(fixture.Gateway().BeginTransactionDb(transactionOpen));
    fixture.Component.Store.AddConnection("A", "WP=OPT");
    fixture.Forget();

    QVERIFY(fixture.Gateway().RollbackTransactionDb());

    QCOMPARE(fixture.Component.Calls, QStringList{"RollbackTransaction()"});
    QCOMPARE(fixture.Pointers, QList<int>{1});
    QCOMPARE(fixture.Component.Store.Now.connections.size(), 0u);
}

void TestDatabaseTransactions::RollbackTransactionDb_NoneOpen_IsTrue()
{
    GatewayFixture fixture;
    fixture.Open();

    QVERIFY(fixture.Gateway().RollbackTransactionDb());

    QCOMPARE(fixture.Pointers, QList<int>{1});
}

void TestDatabaseTransactions::RollbackTransactionDb_Fails_IsSilent()
{
    GatewayFixture fixture;
    fixture.Open();
    fixture.Component.Fail("RollbackTransaction");

    QVERIFY(!fixture.Gateway().RollbackTransactionDb());

    QCOMPARE(fixture.Pointers, QList<int>{1});
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestDatabaseTransactions::Nested_InnerRollback_KeepsTheOuterTransaction()
{
    GatewayFixture fixture;
    fixture.Open();
    bool outer = false;
    QVERIFY(fixture.Gateway().BeginTransactionDb(outer));
    QVERIFY(fixture.Gateway().SaveParentDb("A", "WP=OPT"));
    QVERIFY(!fixture.Gateway().SaveParentDb("A", "WP=OPT"));

    QVERIFY(fixture.Gateway().CommitTransactionDb(outer));

    QCOMPARE(fixture.Component.Store.Now.connections.size(), 1u);
    QCOMPARE(fixture.Component.Store.Commits, 1);
    QCOMPARE(fixture.Component.Store.Levels(), 0);
}

void TestDatabaseTransactions::LeaveTransaction_NextBegin_RollsBackFirst()
{
    GatewayFixture fixture;
    fixture.Open();
    fixture.Component.FailTimes("SaveParent", 1);
    fixture.Component.FailTimes("RollbackTransaction", 1);
    QVERIFY(!fixture.Gateway().SaveParentDb("A", "WP=OPT"));
    QCOMPARE(fixture.Component.Store.Levels(), 1);

    QVERIFY(fixture.Gateway().SaveParentDb("B", "WP=OPT"));

    QCOMPARE(fixture.Component.Store.Levels(), 0);
    QCOMPARE(fixture.Component.Store.Rollbacks, 1);
    QCOMPARE(fixture.Component.Store.Now.connections.size(), 1u);
}

void TestDatabaseTransactions::LeaveTransaction_StillFailing_NothingBegins()
{
    GatewayFixture fixture;
    fixture.Open();
    bool open = false;
    QVERIFY(fixture.Gateway().BeginTransactionDb(open));
    fixture.Component.Fail("RollbackTransaction");
    fixture.Gateway().LeaveTransaction();
    fixture.Component.TakeCalls();

    QVERIFY(!fixture.Gateway().BeginTransactionDb(open));

    QVERIFY(!open);
    QCOMPARE(fixture.Component.Calls, QStringList{"RollbackTransaction()"});
    QCOMPARE(fixture.Pointers.last(), DatabaseClass::NormalPointer);
}

QTEST_GUILESS_MAIN(TestDatabaseTransactions)
#include "TestDatabaseTransactions.moc"
