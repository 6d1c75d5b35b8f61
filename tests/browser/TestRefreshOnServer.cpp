#include "tests/browser/AwayDatabase.h"
#include "tests/support/PostgresServer.h"

/// A server that goes away and comes back, and what else only a server has.
class TestRefreshOnServer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void Server_Away_TreesStayAndTheNextRefreshCatchesUp_data();
    void Server_Away_TreesStayAndTheNextRefreshCatchesUp();
    void Server_AwayInTheRefresh_TheNextRefreshCatchesUp_data();
    void Server_AwayInTheRefresh_TheNextRefreshCatchesUp();
    void Server_AwayInTheReload_TheNextRefreshCatchesUp_data();
    void Server_AwayInTheReload_TheNextRefreshCatchesUp();
    void Server_Restarted_NobodyNotices();
    void Sessions_EndedBeforeTheRefresh_NobodyNotices();
    void Sessions_EndedInTheRefresh_TheNextRefreshCatchesUp();
    void Sessions_EndedInTheReload_TheNextRefreshCatchesUp();
    void Database_MadeAnew_IsShown_data();
    void Database_MadeAnew_IsShown();
    void Refresh_ByAReaderAlone_TrimsAndTellsNothing();

private:
    [[nodiscard]] QString Source() const { return m_server->Url(QStringLiteral("dbs")); }
    void Administer(const QString& sql) const { m_server->RunSql(QStringLiteral("postgres"), sql); }
    void EndSessions() const;
    void TakeAway(const QString& how) const;

    std::unique_ptr<PostgresServer> m_server;
};

namespace {

/// What was committed outlives a kill.
const QStringList Durable{QStringLiteral("synchronous_commit=on")};

/// A patching refresh and the load behind it: what the component is asked.
const QStringList CallsOfRefresh{
    QStringLiteral("GetJournalLastId"),          QStringLiteral("GetJournalRecordById"),
    QStringLiteral("GetJournalChangesAfterId"),  QStringLiteral("GetNode"),
    QStringLiteral("JournalClearByRecordLimit"), QStringLiteral("CommitTransaction"),
};
const QStringList CallsOfReload{
    QStringLiteral("GetJournalLastId"), QStringLiteral("QueryParentsWithID"), QStringLiteral("GetNodeCount"),
    QStringLiteral("BeginTransaction"), QStringLiteral("QueryNodesWithIdEx"),
};

} // namespace

void TestRefreshOnServer::initTestCase()
{
    m_server = std::make_unique<PostgresServer>();
    m_server->Restart(Durable);
    DatabaseFixture::Make(m_server->Url(QStringLiteral("original")));
}

void TestRefreshOnServer::init()
{
    Administer(QStringLiteral("CREATE DATABASE dbs TEMPLATE original"));
    // The server logs a copied sequence anew behind a checkpoint only: a kill would take its ids back.
    Administer(QStringLiteral("CHECKPOINT"));
}

void TestRefreshOnServer::cleanup()
{
    if (!m_server->IsRunning())
        m_server->Start(Durable);
    Administer(QStringLiteral("DROP DATABASE IF EXISTS dbs WITH (FORCE)"));
}

void TestRefreshOnServer::cleanupTestCase()
{
    m_server.reset();
}

void TestRefreshOnServer::EndSessions() const
{
    Administer(QStringLiteral("SELECT pg_terminate_backend(pid, 10000) FROM pg_stat_activity"
                              " WHERE datname = 'dbs'"));
}

void TestRefreshOnServer::TakeAway(const QString& how) const
{
    if (how == QLatin1String("stopped"))
        m_server->Stop();
    else
        m_server->Kill();
}

void TestRefreshOnServer::Server_Away_TreesStayAndTheNextRefreshCatchesUp_data()
{
    QTest::addColumn<QString>("how");
    for (const char* how : {"stopped", "killed"})
        QTest::newRow(how) << QString::fromLatin1(how);
}

void TestRefreshOnServer::Server_Away_TreesStayAndTheNextRefreshCatchesUp()
{
    QFETCH(QString, how);
    AwayDatabase f(Source());
    f.ChangeMuch();
    TakeAway(how);
    QCOMPARE(f.ProblemWhileAway(), QString());
    m_server->Start(Durable);
    QCOMPARE(f.ProblemWhenBack(), QString());
}

void TestRefreshOnServer::Server_AwayInTheRefresh_TheNextRefreshCatchesUp_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("how");
    for (const QString& call : CallsOfRefresh)
        QTest::newRow(qPrintable(call))
            << call << (call.startsWith(u"Get") ? QStringLiteral("stopped") : QStringLiteral("killed"));
}

void TestRefreshOnServer::Server_AwayInTheRefresh_TheNextRefreshCatchesUp()
{
    QFETCH(QString, call);
    QFETCH(QString, how);
    AwayDatabase f(Source());
    const QStringList before = f.Shown();
    f.ChangeMuch();
    f.Before(call, [&] { TakeAway(how); });
    f.Tick();
    for (const QString& text : f.Operator.Texts())
        QVERIFY2(CommandTexts::Told().contains(text), qPrintable(text));
    QVERIFY(f.Line().isVisible());
    QCOMPARE(f.Shown(), before);
    QCOMPARE(f.ProblemWhileAway(), QString());
    m_server->Start(Durable);
    QCOMPARE(f.ProblemWhenBack(), QString());
}

void TestRefreshOnServer::Server_AwayInTheReload_TheNextRefreshCatchesUp_data()
{
    QTest::addColumn<QString>("call");
    for (const QString& call : CallsOfReload)
        QTest::newRow(qPrintable(call)) << call;
}

void TestRefreshOnServer::Server_AwayInTheReload_TheNextRefreshCatchesUp()
{
    QFETCH(QString, call);
    AwayDatabase f(Source());
    f.ChangeMuch();
    QVERIFY(f.Trim());
    f.BeforeInReload(call, [&] { m_server->Kill(); });
    f.Tick();
    QCOMPARE(f.Operator.Texts().value(0), RefreshedControl::ReloadText());
    QVERIFY(f.Line().isVisible());
    QVERIFY(f.Entries("tvwNodesTree").Count() > 1);
    QVERIFY(f.Entries("tvwConTree").Count() > 1);
    QCOMPARE(f.ProblemWhileAway(), QString());
    m_server->Start(Durable);
    QCOMPARE(f.ProblemWhenBack(true), QString());
}

void TestRefreshOnServer::Server_Restarted_NobodyNotices()
{
    AwayDatabase f(Source());
    f.ChangeMuch();
    m_server->Restart(Durable);
    QCOMPARE(f.ProblemWhenBack(), QString());
}

void TestRefreshOnServer::Sessions_EndedBeforeTheRefresh_NobodyNotices()
{
    AwayDatabase f(Source());
    f.ChangeMuch();
    EndSessions();
    QCOMPARE(f.ProblemWhenBack(), QString());
}

void TestRefreshOnServer::Sessions_EndedInTheRefresh_TheNextRefreshCatchesUp()
{
    for (const QString& call : CallsOfRefresh) {
        AwayDatabase f(Source());
        const QStringList before = f.Shown();
        f.AddNode(qPrintable(call));
        f.Before(call, [&] { EndSessions(); });
        f.Tick();
        QVERIFY(f.Line().isVisible());
        QCOMPARE(f.Shown(), before);
        QCOMPARE(call + f.ProblemWhenBack(), call);
        f.Sql(QStringLiteral("DELETE FROM node WHERE name = 'Behind'"));
    }
}

void TestRefreshOnServer::Sessions_EndedInTheReload_TheNextRefreshCatchesUp()
{
    for (const QString& call : CallsOfReload) {
        AwayDatabase f(Source());
        f.AddNode(qPrintable(call));
        f.AddNode("Another");
        QVERIFY(f.Trim());
        f.BeforeInReload(call, [&] { EndSessions(); });
        f.Tick();
        QCOMPARE(f.Operator.Texts().value(0), RefreshedControl::ReloadText());
        QVERIFY(f.Entries("tvwNodesTree").Count() > 3);
        QCOMPARE(call + f.ProblemWhenBack(true), call);
        f.Sql(QStringLiteral("DELETE FROM node WHERE name IN ('Another', 'Behind')"));
    }
}

void TestRefreshOnServer::Database_MadeAnew_IsShown_data()
{
    QTest::addColumn<int>("moreChanges");
    QTest::addColumn<bool>("told");
    QTest::newRow("lower id") << -3 << false;
    QTest::newRow("same id") << 0 << true;
    QTest::newRow("higher id") << 5 << true;
}

void TestRefreshOnServer::Database_MadeAnew_IsShown()
{
    QFETCH(int, moreChanges);
    QFETCH(bool, told);
    AwayDatabase f(Source());
    const int last = f.LastId() + moreChanges;
    Administer(QStringLiteral("DROP DATABASE dbs WITH (FORCE)"));
    QCOMPARE(f.ProblemWhileAway(), QString());
    DatabaseFixture::Make(Source(), DatabaseFixture::Contents::Empty);
    f.Other()->SaveParent(QStringLiteral("Omega"), QString::fromLatin1(DatabaseFixture::GammaTarget));
    for (int id = 3; id <= last; ++id)
        f.Sql(RefreshedControl::NewNode(QStringLiteral("Node %1").arg(id), QStringLiteral("Omega")));
    f.Operator.Boxes.clear();
    f.Tick();
    QCOMPARE(f.Operator.Texts(), told ? QStringList(RefreshedControl::ReloadText()) : QStringList());
    QCOMPARE(f.Difference(), QString());
    QCOMPARE(f.ProblemWhenBack(), QString());
}

void TestRefreshOnServer::Refresh_ByAReaderAlone_TrimsAndTellsNothing()
{
    Administer(QStringLiteral("DROP ROLE IF EXISTS anna"));
    Administer(QStringLiteral("CREATE ROLE anna LOGIN IN ROLE original_read"));
    PlainSql(Source()).Run(RefreshedControl::NewNode(QStringLiteral("West")));
    RefreshedControl f(m_server->Url(QStringLiteral("dbs"), QStringLiteral("anna")));
    f.Control->SetJournalRecordLimit(1);
    f.Control->SetJournalRecordsToKeep(1);
    f.Tick();
    QCOMPARE(f.Operator.Texts(), QStringList());
    QVERIFY(f.Line().isHidden());
    QCOMPARE(f.Difference(), QString());
    QCOMPARE(f.Sql(QStringLiteral("SELECT count(*) FROM journal")).toInt(), 2);
}

QTEST_MAIN(TestRefreshOnServer)
#include "TestRefreshOnServer.moc"
