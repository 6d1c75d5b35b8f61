#include "database/DatabaseState.h"
#include "tests/support/GatewayFixture.h"

#include <QTest>

/// Opening and closing of a session, but for a database that is in use.
class TestDatabaseSession : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void OpenDb_DatabaseAnswers_OpensAfterOnePause();
    void OpenDb_OpenSession_CreatesNothing();
    void OpenDb_FatalNumber_TellsItsCauseAtOnce_data();
    void OpenDb_FatalNumber_TellsItsCauseAtOnce();
    void OpenDb_TablesMissingThenThere_OpensWithoutAPause();
    void OpenDb_TablesMissingTwice_TellsSo();
    void OpenDb_OtherNumber_TriesForThirtySeconds();
    void OpenDb_SlowAttempts_AreNotRepeatedBehindTheLimit();
    void OpenDb_OtherNumberForAWhile_OpensSilently();
    void OpenDb_OtherNumberThenFatal_TellsTheFatalCause();
    void OpenDb_ComponentCannotBeCreated_TellsThatTheDatabaseCannotBeOpened();
    void OpenDb_Failure_TakesTheEditRight();
    void OpenDb_AfterAFailure_MakesANewComponent();
    void OpenDb_HostFreesTheGatewayMeanwhile_EndsSilently();
    void OpenDb_HostClosesTheSessionMeanwhile_EndsSilently();
    void CloseDb_OpenSession_ClosesTheComponentOnly();
    void CloseDb_ClosedSession_CallsNothing();
    void CloseDb_ComponentFails_IsSilent();
    void DbOpenAndDbLoaded_ArePlainValues();
};

static const QString LockedText =
    QStringLiteral("Unable to open HVX Database, another application has either locked the database or ODBC "
                   "setting DSN=DBS32 does not exist.");

/// A number that no table lists.
static constexpr quint32 Unreachable = 0x8004FFFF;

void TestDatabaseSession::OpenDb_DatabaseAnswers_OpensAfterOnePause()
{
    GatewayFixture fixture;

    QVERIFY(fixture.Gateway().OpenDb());

    QVERIFY(Database().DatabaseOpen);
    QCOMPARE(fixture.Component.Calls, QStringList{"OpenDatabase()"});
    QCOMPARE(fixture.Computer.Steps, (QStringList{"Pump", "Sleep 200"}));
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestDatabaseSession::OpenDb_OpenSession_CreatesNothing()
{
    GatewayFixture fixture;
    fixture.Open();

    QVERIFY(fixture.Gateway().OpenDb());

    QCOMPARE(fixture.Component.Created, 1);
    QCOMPARE(fixture.Component.Calls, QStringList{});
    QCOMPARE(fixture.Computer.Steps, QStringList{});
}

void TestDatabaseSession::OpenDb_FatalNumber_TellsItsCauseAtOnce_data()
{
    QTest::addColumn<quint32>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("upgrade failed")
        << 0x8004004Cu << "Unable to open HVX Database, because upgrading it to latest format failed.";
    QTest::newRow("source missing") << 0x80040000u
                                    << "Unable to open HVX Database, because the database file (Dbs.mdb) is "
                                       "missing or ODBC DSN DBS32 is not "
                                       "set to the database.";
    QTest::newRow("CAM") << 0x80040029u << "Unable to open HVX Database, because of CAM access error.";
    QTest::newRow("read-only")
        << 0x80040049u
        << "Unable to open HVX Database, because the database file (Dbs.mdb) is in read-only mode.";
    QTest::newRow("unusable file")
        << 0x80040048u
        << "Unable to open HVX Database, because of unknown table problem in the database file (Dbs.mdb).";
}

void TestDatabaseSession::OpenDb_FatalNumber_TellsItsCauseAtOnce()
{
    QFETCH(quint32, number);
    QFETCH(QString, text);
    GatewayFixture fixture;
    fixture.Component.Fail("OpenDatabase", number);

    QVERIFY(!fixture.Gateway().OpenDb());

    QVERIFY(!Database().DatabaseOpen);
    QCOMPARE(fixture.Component.Calls, QStringList{"OpenDatabase()"});
    QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Error(text)});
    QCOMPARE(fixture.Computer.Steps, QStringList{});
}

void TestDatabaseSession::OpenDb_TablesMissingThenThere_OpensWithoutAPause()
{
    GatewayFixture fixture;
    fixture.Component.FailTimes("OpenDatabase", 1, 0x8004004A);

    QVERIFY(fixture.Gateway().OpenDb());

    QVERIFY(Database().DatabaseOpen);
    QCOMPARE(fixture.Component.Calls, (QStringList{"OpenDatabase()", "OpenDatabase()"}));
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
    QCOMPARE(fixture.Computer.Steps, QStringList{});
}

void TestDatabaseSession::OpenDb_TablesMissingTwice_TellsSo()
{
    GatewayFixture fixture;
    fixture.Component.FailTimes("OpenDatabase()", 1, 0x8004004A);
    fixture.Component.Fail("OpenDatabase", Unreachable);

    QVERIFY(!fixture.Gateway().OpenDb());

    QCOMPARE(fixture.Component.Calls, (QStringList{"OpenDatabase()", "OpenDatabase()"}));
    QCOMPARE(
        fixture.Operator.Boxes,
        std::vector{RecordedBox::Error("Unable to open HVX Database, because the database file (Dbs.mdb) is "
                                       "missing one or more tables.")});
}

void TestDatabaseSession::OpenDb_OtherNumber_TriesForThirtySeconds()
{
    GatewayFixture fixture;
    fixture.Component.Fail("OpenDatabase", Unreachable);
    const qint64 start = fixture.Computer.NowMs;

    QVERIFY(!fixture.Gateway().OpenDb());

    QVERIFY(!Database().DatabaseOpen);
    QCOMPARE(fixture.Computer.NowMs - start, 30000);
    QCOMPARE(fixture.Component.Count("OpenDatabase"), 150);
    QCOMPARE(fixture.Computer.Steps.count("Pump"), 150);
    QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Error(LockedText)});
}

void TestDatabaseSession::OpenDb_SlowAttempts_AreNotRepeatedBehindTheLimit()
{
    GatewayFixture fixture;
    fixture.Component.Fail("OpenDatabase", Unreachable);
    fixture.Component.BeforeCall = [&](const QString&) { fixture.Computer.NowMs += 14900; };

    QVERIFY(!fixture.Gateway().OpenDb());

    QCOMPARE(fixture.Component.Count("OpenDatabase"), 2);
    QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Error(LockedText)});
}

void TestDatabaseSession::OpenDb_OtherNumberForAWhile_OpensSilently()
{
    GatewayFixture fixture;
    fixture.Component.FailTimes("OpenDatabase", 149, Unreachable);

    QVERIFY(fixture.Gateway().OpenDb());

    QVERIFY(Database().DatabaseOpen);
    QCOMPARE(fixture.Component.Count("OpenDatabase"), 150);
    QCOMPARE(fixture.Component.Created, 1);
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestDatabaseSession::OpenDb_OtherNumberThenFatal_TellsTheFatalCause()
{
    GatewayFixture fixture;
    fixture.Component.FailTimes("OpenDatabase()", 2, Unreachable);
    fixture.Component.Fail("OpenDatabase", 0x80040029);

    QVERIFY(!fixture.Gateway().OpenDb());

    QCOMPARE(fixture.Component.Count("OpenDatabase"), 3);
    QCOMPARE(fixture.Operator.Texts(),
             QStringList{"Unable to open HVX Database, because of CAM access error."});
}

void TestDatabaseSession::OpenDb_ComponentCannotBeCreated_TellsThatTheDatabaseCannotBeOpened()
{
    GatewayFixture fixture;
    fixture.Component.CreationFailure = 0x80040154;

    QVERIFY(!fixture.Gateway().OpenDb());

    QVERIFY(!Database().DatabaseOpen);
    QCOMPARE(fixture.Component.Calls, QStringList{});
    QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Error(LockedText)});
}

void TestDatabaseSession::OpenDb_Failure_TakesTheEditRight()
{
    GatewayFixture fixture;
    fixture.Component.Fail("OpenDatabase", 0x80040000);
    Database().EditRight = true;
    Database().ScanRight = true;

    QVERIFY(!fixture.Gateway().OpenDb());

    QVERIFY(!Database().EditRight);
    QVERIFY(Database().ScanRight);
}

void TestDatabaseSession::OpenDb_AfterAFailure_MakesANewComponent()
{
    GatewayFixture fixture;
    fixture.Component.FailTimes("OpenDatabase", 1, 0x80040000);
    QVERIFY(!fixture.Gateway().OpenDb());

    QVERIFY(fixture.Gateway().OpenDb());

    QCOMPARE(fixture.Component.Created, 2);
    QVERIFY(Database().DatabaseOpen);
}

void TestDatabaseSession::OpenDb_HostFreesTheGatewayMeanwhile_EndsSilently()
{
    GatewayFixture fixture;
    fixture.Component.Fail("OpenDatabase", Unreachable);
    fixture.Computer.WhilePumping = [] {
        Database().DatabaseOpen = false;
        Database().DbObject.reset();
    };

    QVERIFY(!fixture.Gateway().OpenDb());

    QVERIFY(!Database().DatabaseOpen);
    QCOMPARE(fixture.Component.Count("OpenDatabase"), 1);
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestDatabaseSession::OpenDb_HostClosesTheSessionMeanwhile_EndsSilently()
{
    GatewayFixture fixture;
    fixture.Computer.WhilePumping = [&] {
        fixture.Gateway().CloseDb();
        Database().DatabaseOpen = false;
    };

    QVERIFY(!fixture.Gateway().OpenDb());

    QVERIFY(!Database().DatabaseOpen);
    QCOMPARE(fixture.Component.Calls, (QStringList{"OpenDatabase()", "CloseDatabase()"}));
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestDatabaseSession::CloseDb_OpenSession_ClosesTheComponentOnly()
{
    GatewayFixture fixture;
    fixture.Open();

    QVERIFY(fixture.Gateway().CloseDb());

    QCOMPARE(fixture.Component.Calls, QStringList{"CloseDatabase()"});
    QVERIFY(Database().DatabaseOpen);
}

void TestDatabaseSession::CloseDb_ClosedSession_CallsNothing()
{
    GatewayFixture fixture;

    QVERIFY(fixture.Gateway().CloseDb());

    QCOMPARE(fixture.Component.Calls, QStringList{});
}

void TestDatabaseSession::CloseDb_ComponentFails_IsSilent()
{
    GatewayFixture fixture;
    fixture.Open();
    fixture.Component.Fail("CloseDatabase");

    QVERIFY(!fixture.Gateway().CloseDb());

    QVERIFY(Database().DatabaseOpen);
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestDatabaseSession::DbOpenAndDbLoaded_ArePlainValues()
{
    GatewayFixture fixture;

    QVERIFY(!fixture.Gateway().DbOpen);
    QVERIFY(!fixture.Gateway().DbLoaded);
    fixture.Open();
    QVERIFY(!fixture.Gateway().DbOpen);
    QVERIFY(!fixture.Gateway().DbLoaded);
}

QTEST_GUILESS_MAIN(TestDatabaseSession)
#include "TestDatabaseSession.moc"
