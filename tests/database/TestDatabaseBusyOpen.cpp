#include "database/DatabaseState.h"
#include "tests/support/GatewayFixture.h"

#include <QTest>

/// Opening of a database that another application uses: begin, format check, commit.
class TestDatabaseBusyOpen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void OpenDb_TransactionFree_ChecksTheFormatAndOpens();
    void OpenDb_BusyAfterOtherErrors_ChecksTheFormatToo();
    void OpenDb_NothingStarted_CommitsNothing();
    void OpenDb_VersionText_Decides_data();
    void OpenDb_VersionText_Decides();
    void OpenDb_RecordUnreadable_TellsTheFormatIsWrong();
    void OpenDb_CloseOfAWrongFormatFails_EndsAlike();
    void OpenDb_BeginRefusedWithoutLock_IsDenied();
    void OpenDb_DeadLock_IsFreedAndTheDatabaseOpens();
    void OpenDb_DeadLockButStillInUse_AsksTheOperator();
    void OpenDb_OperatorGivesUp_NothingMoreIsTold();
    void OpenDb_LockOperationFails_IsSilent_data();
    void OpenDb_LockOperationFails_IsSilent();
    void OpenDb_CommitFails_TellsAndLetsGo();
    void OpenDb_HostFreesTheGatewayAtTheBox_EndsSilently();
};

static const QStringList FormatCheck{"BeginTransaction()", "GetJournalRecordById(1)", "CommitTransaction(1)"};
static const RecordedBox FormatBox =
    RecordedBox::Plain("In correct HVX Database format, at least HVX Database version 4.2 is required.");

/// A fixture whose database is in use when it is opened.
class BusyFixture : public GatewayFixture
{
public:
    BusyFixture() { Component.Fail("OpenDatabase", 0x80040040); }
};

void TestDatabaseBusyOpen::OpenDb_TransactionFree_ChecksTheFormatAndOpens()
{
    BusyFixture fixture;

    QVERIFY(fixture.Gateway().OpenDb());

    QVERIFY(Database().DatabaseOpen);
    QCOMPARE(fixture.Component.Calls, QStringList{"OpenDatabase()"} + QStringList{"BeginTransaction()"} +
                                          FormatCheck + QStringList{"CommitTransaction(1)"});
    QCOMPARE(fixture.Computer.Steps, QStringList{});
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
    QCOMPARE(fixture.Pointers, (QList<int>{11, 11, 1, 1}));
    QCOMPARE(fixture.Component.Store.Levels(), 0);
}

void TestDatabaseBusyOpen::OpenDb_BusyAfterOtherErrors_ChecksTheFormatToo()
{
    BusyFixture fixture;
    fixture.Component.FailTimes("OpenDatabase()", 1, 0x8004FFFF);

    QVERIFY(fixture.Gateway().OpenDb());

    QCOMPARE(fixture.Component.Count("OpenDatabase"), 2);
    QCOMPARE(fixture.Component.Count("GetJournalRecordById"), 1);
    QCOMPARE(fixture.Computer.Steps, (QStringList{"Pump", "Sleep 200"}));
}

void TestDatabaseBusyOpen::OpenDb_NothingStarted_CommitsNothing()
{
    BusyFixture fixture;
    fixture.Component.Answer("BeginTransaction", {"0"});

    QVERIFY(fixture.Gateway().OpenDb());

    QCOMPARE(fixture.Component.Calls.last(), "CommitTransaction(0)");
    QCOMPARE(fixture.Pointers, QList<int>{});
}

void TestDatabaseBusyOpen::OpenDb_VersionText_Decides_data()
{
    QTest::addColumn<QString>("versionText");
    QTest::addColumn<bool>("opens");
    QTest::newRow("this version") << "HVX R4.2" << true;
    QTest::newRow("another version") << "HVX R1.0" << true;
    QTest::newRow("small letters") << "hvx r4.2" << true;
    QTest::newRow("behind other words") << "Format: Hvx R" << true;
    QTest::newRow("no release") << "HVX 4.2" << false;
    QTest::newRow("no blank") << "HVXR4.2" << false;
    QTest::newRow("empty") << "" << false;
}

void TestDatabaseBusyOpen::OpenDb_VersionText_Decides()
{
    QFETCH(QString, versionText);
    QFETCH(bool, opens);
    BusyFixture fixture;
    fixture.Component.Answer("GetJournalRecordById(1)", {"1", versionText, "0", ""});

    QCOMPARE(fixture.Gateway().OpenDb(), opens);

    QCOMPARE(Database().DatabaseOpen, opens);
    const QStringList end = fixture.Component.Calls.mid(5);
    QCOMPARE(end, opens ? QStringList{"CommitTransaction(1)"}
                        : (QStringList{"RollbackTransaction()", "CloseDb()"}));
    QCOMPARE(fixture.Operator.Boxes, opens ? std::vector<RecordedBox>{} : std::vector{FormatBox});
    QCOMPARE(fixture.Component.Store.Levels(), 0);
}

void TestDatabaseBusyOpen::OpenDb_RecordUnreadable_TellsTheFormatIsWrong()
{
    BusyFixture fixture;
    fixture.Component.Fail("GetJournalRecordById");

    QVERIFY(!fixture.Gateway().OpenDb());

    QVERIFY(!Database().DatabaseOpen);
    QCOMPARE(fixture.Component.Calls.mid(3), (QStringList{"GetJournalRecordById(1)", "RollbackTransaction()",
                                                          "RollbackTransaction()", "CloseDb()"}));
    QCOMPARE(fixture.Operator.Boxes,
             (std::vector{RecordedBox::Error("Unknown error in access to database."), FormatBox}));
}

void TestDatabaseBusyOpen::OpenDb_CloseOfAWrongFormatFails_EndsAlike()
{
    BusyFixture fixture;
    fixture.Component.Answer("GetJournalRecordById", {"1", "", "0", ""});
    fixture.Component.Fail("CloseDb");

    QVERIFY(!fixture.Gateway().OpenDb());

    QVERIFY(!Database().DatabaseOpen);
    QCOMPARE(fixture.Operator.Boxes, std::vector{FormatBox});
}

void TestDatabaseBusyOpen::OpenDb_BeginRefusedWithoutLock_IsDenied()
{
    BusyFixture fixture;
    fixture.Component.Fail("BeginTransaction", 0x80040040);

    QVERIFY(!fixture.Gateway().OpenDb());

    QVERIFY(!Database().DatabaseOpen);
    QCOMPARE(fixture.Component.Calls, (QStringList{"OpenDatabase()", "BeginTransaction()", "IsCAMlocked()"}));
    QCOMPARE(fixture.Operator.Boxes,
             std::vector{RecordedBox::Error(
                 "Access to HVX Database is denied, another application might be using it.")});
}

void TestDatabaseBusyOpen::OpenDb_DeadLock_IsFreedAndTheDatabaseOpens()
{
    BusyFixture fixture;
    fixture.Component.FailTimes("BeginTransaction", 1, 0x80040040);
    fixture.Component.Answer("IsCAMlocked", {"1"});

    QVERIFY(fixture.Gateway().OpenDb());

    QCOMPARE(fixture.Component.Calls.mid(1, 4),
             (QStringList{"BeginTransaction()", "IsCAMlocked()", "FreeCAMlock()", "BeginTransaction()"}));
    QCOMPARE(fixture.Component.Calls.mid(5), FormatCheck + QStringList{"CommitTransaction(1)"});
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestDatabaseBusyOpen::OpenDb_DeadLockButStillInUse_AsksTheOperator()
{
    BusyFixture fixture;
    fixture.Component.FailTimes("BeginTransaction", 3, 0x80040040);
    fixture.Component.Answer("IsCAMlocked", {"1"});

    QVERIFY(fixture.Gateway().OpenDb());

    QCOMPARE(fixture.Operator.Boxes.size(), 2u);
    QCOMPARE(fixture.Operator.Boxes[0].title, "Database sharing problem");
    QCOMPARE(fixture.Component.Count("BeginTransaction"), 5);
}

void TestDatabaseBusyOpen::OpenDb_OperatorGivesUp_NothingMoreIsTold()
{
    BusyFixture fixture;
    fixture.Component.Fail("BeginTransaction", 0x80040040);
    fixture.Component.Answer("IsCAMlocked", {"1"});
    fixture.Operator.Answers = {BoxAnswer::Cancel};

    QVERIFY(!fixture.Gateway().OpenDb());

    QVERIFY(!Database().DatabaseOpen);
    QCOMPARE(fixture.Operator.Boxes.size(), 1u);
}

void TestDatabaseBusyOpen::OpenDb_LockOperationFails_IsSilent_data()
{
    QTest::addColumn<QString>("method");
    QTest::newRow("asking for the lock") << "IsCAMlocked";
    QTest::newRow("freeing the lock") << "FreeCAMlock";
}

void TestDatabaseBusyOpen::OpenDb_LockOperationFails_IsSilent()
{
    QFETCH(QString, method);
    BusyFixture fixture;
    fixture.Component.Fail("BeginTransaction", 0x80040040);
    fixture.Component.Answer("IsCAMlocked", {"1"});
    fixture.Component.Fail(method);

    QVERIFY(!fixture.Gateway().OpenDb());

    QVERIFY(!Database().DatabaseOpen);
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestDatabaseBusyOpen::OpenDb_CommitFails_TellsAndLetsGo()
{
    BusyFixture fixture;
    // The commit of the format check works, the one behind it does not.
    fixture.Component.FailCall(6);

    QVERIFY(!fixture.Gateway().OpenDb());

    QVERIFY(!Database().DatabaseOpen);
    QCOMPARE(fixture.Component.Calls.mid(5), (QStringList{"CommitTransaction(1)", "RollbackTransaction()"}));
    QCOMPARE(fixture.Operator.Boxes,
             std::vector{RecordedBox::Error("Failure to commit HVX Database operations.")});
    QCOMPARE(fixture.Component.Store.Levels(), 0);
}

void TestDatabaseBusyOpen::OpenDb_HostFreesTheGatewayAtTheBox_EndsSilently()
{
    BusyFixture fixture;
    fixture.Component.Answer("GetJournalRecordById", {"1", "", "0", ""});
    fixture.Operator.WhileOpen = [](const RecordedBox&) {
        Database().DatabaseOpen = false;
        Database().DbObject.reset();
    };

    QVERIFY(!fixture.Gateway().OpenDb());

    QCOMPARE(fixture.Operator.Boxes, std::vector{FormatBox});
    QCOMPARE(fixture.Component.Count("CloseDb"), 0);
}

QTEST_GUILESS_MAIN(TestDatabaseBusyOpen)
#include "TestDatabaseBusyOpen.moc"
