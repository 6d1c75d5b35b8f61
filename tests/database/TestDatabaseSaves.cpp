#include "database/DatabaseState.h"
#include "tests/support/GatewayFixture.h"

#include <QTest>

/// SaveParentDb and SaveNodeDb: three transactions each.
class TestDatabaseSaves : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Save_Works_InThreeTransactions_data();
    void Save_Works_InThreeTransactions();
    void Save_UsersList_EachCallSeesWhatTheOneBeforeLeft();
    void Save_NextRecord_StartsFromTheLastUsersList();
    void Save_AnyCallFails_StopsThere_data();
    void Save_AnyCallFails_StopsThere();
    void Save_BeginInUseAndOperatorGivesUp_StopsThere_data();
    void Save_BeginInUseAndOperatorGivesUp_StopsThere();
    void Save_ClosedSession_CallsNothing();
    void SaveParentDb_StoresTheTrimmedName();
    void SaveParentDb_TakenName_IsRefused();
    void SaveNodeDb_KeepsTheUsersTextOfANodeSavedAnew();
    void Save_InsideATransaction_IsUndoneWithIt();
};

struct Saving
{
    const char* name;
    bool (*run)(DatabaseClass& db);
    QStringList calls;
};

static const std::vector<Saving>& Savings()
{
    static const std::vector<Saving> savings{
        {"connection",
         [](DatabaseClass& db) { return db.SaveParentDb(" A ", "WP=X"); },
         {"GetUsersList(A,Parent,)", "SaveParent(A,WP=X)", "GetUsersList(A,Parent,)",
          "UpdateUsersList(A,Parent,)"}},
        {"node",
         [](DatabaseClass& db) { return db.SaveNodeDb(" N ", "NET4", "WP=X", "A", "tail"); },
         {"GetUsersList( N ,NodeWP,)", "SaveNode( N ,NET4,WP=X,A,tail)", "GetUsersList( N ,NodeWP,)",
          "UpdateUsersList( N ,NodeWP,)"}},
    };
    return savings;
}

static const Saving& CurrentSaving()
{
    QFETCH(int, row);
    return Savings()[static_cast<size_t>(row)];
}

/// All calls of a save in order.
static QStringList AllCalls(const Saving& saving)
{
    const QString begin = QStringLiteral("BeginTransaction()");
    const QString commit = QStringLiteral("CommitTransaction(1)");
    return {begin,  saving.calls[0], commit,          begin,           saving.calls[1],
            commit, begin,           saving.calls[2], saving.calls[3], commit};
}

/// An open session whose component accepts every save.
class SavingFixture : public GatewayFixture
{
public:
    SavingFixture()
    {
        Open();
        Component.Answer("SaveParent", {});
        Component.Answer("SaveNode", {});
    }
};

void TestDatabaseSaves::Save_Works_InThreeTransactions_data()
{
    QTest::addColumn<int>("row");
    QTest::newRow("connection") << 0;
    QTest::newRow("node") << 1;
}

void TestDatabaseSaves::Save_Works_InThreeTransactions()
{
    const Saving& saving = CurrentSaving();
    SavingFixture fixture;

    QVERIFY(saving.run(fixture.Gateway()));

    QCOMPARE(fixture.Component.Calls, AllCalls(saving));
    QCOMPARE(fixture.Pointers, (QList<int>{11, 1, 11, 1, 11, 1}));
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
    QCOMPARE(fixture.Component.Store.Commits, 3);
}

void TestDatabaseSaves::Save_UsersList_EachCallSeesWhatTheOneBeforeLeft()
{
    SavingFixture fixture;
    fixture.Component.AnswerOnce("GetUsersList", {"first"});
    fixture.Component.AnswerOnce("GetUsersList", {"second"});

    QVERIFY(fixture.Gateway().SaveParentDb("A", "WP=X"));

    QCOMPARE(fixture.Component.Calls.filter("UsersList"),
             (QStringList{"GetUsersList(A,Parent,)", "GetUsersList(A,Parent,first)",
                          "UpdateUsersList(A,Parent,second)"}));
}

void TestDatabaseSaves::Save_NextRecord_StartsFromTheLastUsersList()
{
    SavingFixture fixture;
    fixture.Component.Answer("GetUsersList", {"users"});
    QVERIFY(fixture.Gateway().SaveParentDb("A", "WP=X"));
    fixture.Forget();

    QVERIFY(fixture.Gateway().SaveNodeDb("N", "NET4", "WP=X", "A", ""));

    QCOMPARE(fixture.Component.Calls.filter("UsersList").first(), "GetUsersList(N,NodeWP,users)");
}

void TestDatabaseSaves::Save_AnyCallFails_StopsThere_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("failing");
    for (size_t row = 0; row < Savings().size(); ++row) {
        const QStringList calls = AllCalls(Savings()[row]);
        for (int call = 0; call < calls.size(); ++call)
            QTest::addRow("%s, call %d, %s", Savings()[row].name, call + 1, qPrintable(calls[call]))
                << static_cast<int>(row) << call + 1;
    }
}

void TestDatabaseSaves::Save_AnyCallFails_StopsThere()
{
    QFETCH(int, failing);
    const Saving& saving = CurrentSaving();
    SavingFixture fixture;
    fixture.Component.FailCall(failing);

    QVERIFY(!saving.run(fixture.Gateway()));

    const QStringList made = AllCalls(saving).first(failing);
    const bool atBegin = made.last().startsWith("Begin");
    const QString text = atBegin ? "Database access is denied, because another application is using it."
                         : made.last().startsWith("Commit") ? "Failure to commit database operations."
                                                            : "Unknown error in access to database.";
    QCOMPARE(fixture.Component.Calls, atBegin ? made : made + QStringList{"RollbackTransaction()"});
    QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Error(text)});
    QCOMPARE(fixture.Component.Store.Levels(), 0);
}

void TestDatabaseSaves::Save_BeginInUseAndOperatorGivesUp_StopsThere_data()
{
    Save_Works_InThreeTransactions_data();
}

void TestDatabaseSaves::Save_BeginInUseAndOperatorGivesUp_StopsThere()
{
    const Saving& saving = CurrentSaving();
    SavingFixture fixture;
    fixture.Component.FailCall(7, 0x80040040);
    fixture.Operator.Answers = {BoxAnswer::Cancel};

    QVERIFY(!saving.run(fixture.Gateway()));

    QCOMPARE(fixture.Operator.Texts(),
             (QStringList{"Database is in use by another application, do you want to try again ?",
                          "Database access is denied, because another application is using it."}));
    QCOMPARE(fixture.Component.Calls.size(), 7);
}

void TestDatabaseSaves::Save_ClosedSession_CallsNothing()
{
    SavingFixture fixture;
    Database().DatabaseOpen = false;

    QVERIFY(!fixture.Gateway().SaveParentDb("A", "WP=X"));
    QVERIFY(!fixture.Gateway().SaveNodeDb("N", "NET4", "WP=X", "A", ""));

    QCOMPARE(fixture.Component.Calls, QStringList{});
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestDatabaseSaves::SaveParentDb_StoresTheTrimmedName()
{
    GatewayFixture fixture;
    fixture.Open();

    QVERIFY(fixture.Gateway().SaveParentDb("  A ", "WP=OPT"));

    QCOMPARE(fixture.Component.Store.Now.connections[0].name, "A");
    QCOMPARE(fixture.Component.Store.Now.connections[0].target, "WP=OPT");
}

void TestDatabaseSaves::SaveParentDb_TakenName_IsRefused()
{
    GatewayFixture fixture;
    fixture.Component.Store.AddConnection("A", "WP=OPT");
    fixture.Open();

    QVERIFY(!fixture.Gateway().SaveParentDb("a", "WP=X"));

    QCOMPARE(fixture.Operator.Texts(), QStringList{"Unknown error in access to database."});
    QCOMPARE(fixture.Component.Store.Now.connections.size(), 1u);
}

void TestDatabaseSaves::SaveNodeDb_KeepsTheUsersTextOfANodeSavedAnew()
{
    GatewayFixture fixture;
    fixture.Component.Store.AddConnection("A", "WP=OPT");
    fixture.Component.Store.AddNode("N", "A", "NET4", "WP=NET4");
    fixture.Component.Store.UpdateUsersList("N", "NodeWP", "somebody");
    fixture.Open();

    QVERIFY(fixture.Gateway().DeleteNodeFromBrowserDb("N"));
    QVERIFY(fixture.Gateway().SaveNodeDb("N", "NET4", "WP=NET4,ADDR=1", "A", ""));

    QString users;
    fixture.Component.Store.GetUsersList("N", "NodeWP", users);
    QCOMPARE(users, "somebody");
}

void TestDatabaseSaves::Save_InsideATransaction_IsUndoneWithIt()
{
    GatewayFixture fixture;
    fixture.Open();
    bool outer = false;
    QVERIFY(fixture.Gateway().BeginTransactionDb(outer));
    QVERIFY(fixture.Gateway().SaveParentDb("A", "WP=OPT"));

    QVERIFY(fixture.Gateway().RollbackTransactionDb());

    QCOMPARE(fixture.Component.Store.Now.connections.size(), 0u);
    QCOMPARE(fixture.Component.Store.Commits, 0);
}

QTEST_GUILESS_MAIN(TestDatabaseSaves)
#include "TestDatabaseSaves.moc"
