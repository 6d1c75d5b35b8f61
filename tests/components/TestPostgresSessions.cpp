#include "components/hvxdb/SqlFailure.h"
#include "tests/components/ComponentTransactions.h"
#include "tests/components/DatabaseFixture.h"
#include "tests/support/PostgresServer.h"

#include <QTest>

/// Sessions of a server that break off, and sessions that meet at the same records.
class TestPostgresSessions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void ConnectionLost_BetweenTransactions_NextBeginWorks();
    void ConnectionLost_InTransaction_EndsItAndNextBeginWorks();
    void ConnectionLost_InNestedTransaction_EveryLevelEnds();
    void ServerKilled_InTransaction_NextBeginWorksOnceItIsBack();
    void ServerRestarted_Definitions_AreReadAgain();
    void DatabaseGone_NextBegin_SourceMissingUntilItIsBack();
    void IdleTransaction_EndedByTheServer_EngineFailure();

    void Write_WhileOtherWrites_InUse();
    void Write_AfterOtherCommitted_Works();
    void Write_OnRecordChangedBehindTheSnapshot_InUse();
    void Write_NameTakenBehindTheSnapshot_IsNotSavedTwice();
    void Read_InTransaction_SeesOneState();

private:
    void EndSessions() const;
    [[nodiscard]] std::unique_ptr<HvxDatabaseComponent> OpenComponent() const;

    std::unique_ptr<PostgresServer> m_server;
    std::unique_ptr<HvxDatabaseComponent> m_component;
};

namespace {

const QString Dbs = QStringLiteral("dbs");
const QString Alpha = QStringLiteral("Alpha");
const QString Delta = QStringLiteral("Delta");

quint32 BeginNumber(HvxDatabase& component)
{
    return DatabaseFixture::ErrorOf([&] {
        Begin(component);
        Commit(component);
    });
}

bool HasConnection(HvxDatabase& component, const QString& name)
{
    QString answer;
    component.ParentNameExist(name, answer);
    return answer == QStringLiteral("TRUE");
}

} // namespace

void TestPostgresSessions::initTestCase()
{
    m_server = std::make_unique<PostgresServer>();
    DatabaseFixture::Make(m_server->Url(QStringLiteral("original")));
}

void TestPostgresSessions::init()
{
    m_server->RunSql(QStringLiteral("postgres"), QStringLiteral("CREATE DATABASE dbs TEMPLATE original"));
    m_component = OpenComponent();
}

void TestPostgresSessions::cleanup()
{
    m_component.reset();
    if (!m_server->IsRunning())
        m_server->Start();
    m_server->RunSql(QStringLiteral("postgres"), QStringLiteral("DROP DATABASE IF EXISTS dbs WITH (FORCE)"));
}

void TestPostgresSessions::cleanupTestCase()
{
    m_server.reset();
}

std::unique_ptr<HvxDatabaseComponent> TestPostgresSessions::OpenComponent() const
{
    auto component = std::make_unique<HvxDatabaseComponent>(m_server->Url(Dbs));
    component->SetBusyTimeout(0);
    component->OpenDatabase();
    return component;
}

void TestPostgresSessions::EndSessions() const
{
    m_server->RunSql(QStringLiteral("postgres"),
                     QStringLiteral("SELECT pg_terminate_backend(pid, 10000) FROM pg_stat_activity"
                                    " WHERE datname = 'dbs'"));
}

void TestPostgresSessions::ConnectionLost_BetweenTransactions_NextBeginWorks()
{
    EndSessions();

    QCOMPARE(BeginNumber(*m_component), 0U);

    QVERIFY(HasConnection(*m_component, Alpha));
    m_component->SaveParent(Delta, QString());
    QVERIFY(HasConnection(*OpenComponent(), Delta));
}

void TestPostgresSessions::ConnectionLost_InTransaction_EndsItAndNextBeginWorks()
{
    Begin(*m_component);
    m_component->SaveParent(Delta, QString());
    EndSessions();

    QCOMPARE(DatabaseFixture::ErrorOf([&] { m_component->SaveParent(QStringLiteral("Omega"), QString()); }),
             EngineFailure);
    QVERIFY(DatabaseFixture::ErrorOf([&] { (void)HasConnection(*m_component, QStringLiteral("None")); }) !=
            0);
    QVERIFY(DatabaseFixture::ErrorOf([&] { Commit(*m_component); }) != 0);
    m_component->RollbackTransaction();

    QCOMPARE(BeginNumber(*m_component), 0U);
    QVERIFY(!HasConnection(*m_component, Delta));
    QVERIFY(!HasConnection(*m_component, QStringLiteral("Omega")));
}

void TestPostgresSessions::ConnectionLost_InNestedTransaction_EveryLevelEnds()
{
    Begin(*m_component);
    Begin(*m_component);
    m_component->SaveParent(Delta, QString());
    EndSessions();

    QVERIFY(DatabaseFixture::ErrorOf([&] { Commit(*m_component); }) != 0);
    m_component->RollbackTransaction();
    // The outer level has lost what the inner one wrote, and must not go on as if it had not.
    QVERIFY(DatabaseFixture::ErrorOf([&] { m_component->SaveParent(Delta, QString()); }) != 0);
    m_component->RollbackTransaction();

    QCOMPARE(BeginNumber(*m_component), 0U);
    QVERIFY(!HasConnection(*m_component, Delta));
}

void TestPostgresSessions::ServerKilled_InTransaction_NextBeginWorksOnceItIsBack()
{
    Begin(*m_component);
    m_component->SaveParent(Delta, QString());
    m_server->Kill();

    QVERIFY(DatabaseFixture::ErrorOf([&] { Commit(*m_component); }) != 0);
    m_component->RollbackTransaction();
    QCOMPARE(BeginNumber(*m_component), EngineFailure);
    QCOMPARE(BeginNumber(*m_component), EngineFailure);
    m_server->Start();

    QCOMPARE(BeginNumber(*m_component), 0U);
    QVERIFY(!HasConnection(*m_component, Delta));
    m_component->SaveParent(Delta, QString());
    QVERIFY(HasConnection(*OpenComponent(), Delta));
}

void TestPostgresSessions::ServerRestarted_Definitions_AreReadAgain()
{
    QString longName;
    m_server->RunSql(Dbs, QStringLiteral("UPDATE con_type SET long_name = 'Changed' WHERE id = 0"));
    m_server->Restart();

    QCOMPARE(BeginNumber(*m_component), 0U);

    m_component->GetConTypeLongName(QStringLiteral("T4BUS"), longName);
    QCOMPARE(longName, QStringLiteral("Changed"));
    QString target;
    m_component->GetParent(Alpha, target);
    QCOMPARE(target, QString::fromLatin1(DatabaseFixture::AlphaTarget));
}

void TestPostgresSessions::DatabaseGone_NextBegin_SourceMissingUntilItIsBack()
{
    m_server->DropDatabase(Dbs);

    QCOMPARE(BeginNumber(*m_component), quint32(DatabaseErrorNumber::SourceMissing));
    m_server->RunSql(QStringLiteral("postgres"), QStringLiteral("CREATE DATABASE dbs TEMPLATE original"));

    QCOMPARE(BeginNumber(*m_component), 0U);
    QVERIFY(HasConnection(*m_component, Alpha));
}

void TestPostgresSessions::IdleTransaction_EndedByTheServer_EngineFailure()
{
    Begin(*m_component);
    m_component->SaveParent(Delta, QString());
    // What the server does with a session that rests in a transaction for too long.
    EndSessions();
    const auto other = OpenComponent();
    other->SaveParent(Delta, QStringLiteral("WP=LAN"));

    QVERIFY(DatabaseFixture::ErrorOf([&] { Commit(*m_component); }) != 0);
    m_component->RollbackTransaction();

    QCOMPARE(BeginNumber(*m_component), 0U);
    QString target;
    m_component->GetParent(Delta, target);
    QCOMPARE(target, QStringLiteral("WP=LAN"));
}

void TestPostgresSessions::Write_WhileOtherWrites_InUse()
{
    const auto other = OpenComponent();
    Begin(*other);
    other->SaveParent(Delta, QString());
    // A begin waits for nobody: it reads.
    Begin(*m_component);
    QVERIFY(!HasConnection(*m_component, Delta));

    QCOMPARE(DatabaseFixture::ErrorOf([&] { m_component->SaveParent(QStringLiteral("Omega"), QString()); }),
             quint32(DatabaseErrorNumber::InUse));
    m_component->RollbackTransaction();
    Commit(*other);

    m_component->SaveParent(QStringLiteral("Omega"), QString());
    QVERIFY(HasConnection(*other, QStringLiteral("Omega")));
}

void TestPostgresSessions::Write_AfterOtherCommitted_Works()
{
    const auto other = OpenComponent();
    Begin(*m_component);
    QVERIFY(HasConnection(*m_component, Alpha));
    other->SaveParent(Delta, QString());

    m_component->SaveParent(QStringLiteral("Omega"), QString());
    Commit(*m_component);

    QVERIFY(HasConnection(*other, QStringLiteral("Omega")));
    QCOMPARE(m_server->RunSql(Dbs, QStringLiteral("SELECT string_agg(text1, ',' ORDER BY id) FROM journal"
                                                  " WHERE id > 7")),
             QStringLiteral("Delta,Omega"));
}

void TestPostgresSessions::Write_OnRecordChangedBehindTheSnapshot_InUse()
{
    const auto other = OpenComponent();
    Begin(*m_component);
    QVERIFY(HasConnection(*m_component, Alpha));
    other->ReplaceParentTarget(Alpha, QStringLiteral("WP=LAN"));

    QCOMPARE(
        DatabaseFixture::ErrorOf([&] { m_component->ReplaceParentTarget(Alpha, QStringLiteral("WP=X")); }),
        quint32(DatabaseErrorNumber::InUse));
    m_component->RollbackTransaction();

    QString target;
    m_component->GetParent(Alpha, target);
    QCOMPARE(target, QStringLiteral("WP=LAN"));
}

void TestPostgresSessions::Write_NameTakenBehindTheSnapshot_IsNotSavedTwice()
{
    const auto other = OpenComponent();
    Begin(*m_component);
    QVERIFY(!HasConnection(*m_component, Delta));
    other->SaveNode(Delta, QString(), QString(), Alpha, QString());

    QVERIFY(DatabaseFixture::ErrorOf([&] { m_component->SaveParent(Delta, QString()); }) != 0);
    m_component->RollbackTransaction();

    QVERIFY(!HasConnection(*m_component, Delta));
    QString id;
    m_component->GetNodeID(Delta, id);
    QVERIFY(!id.isEmpty());
}

void TestPostgresSessions::Read_InTransaction_SeesOneState()
{
    const auto other = OpenComponent();
    Begin(*m_component);
    qint32 lastId = 0;
    m_component->GetJournalLastId(lastId);
    other->SaveParent(Delta, QString());

    QString list;
    m_component->GetJournalChangesAfterId(lastId, list);
    QCOMPARE(list, QString());
    QVERIFY(!HasConnection(*m_component, Delta));
    Commit(*m_component);

    m_component->GetJournalChangesAfterId(lastId, list);
    QCOMPARE(list, QStringLiteral("8"));
}

QTEST_GUILESS_MAIN(TestPostgresSessions)
#include "TestPostgresSessions.moc"
