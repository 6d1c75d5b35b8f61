#include "tests/components/DatabaseFixture.h"
#include "tests/support/PostgresServer.h"

#include <QTest>

/// Rights that the server itself holds: roles of the database, for this component and for plain SQL.
class TestPostgresRights : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void GetSecRights_FollowTheRoles_data();
    void GetSecRights_FollowTheRoles();
    void Open_OfNoRole_Unusable();
    void Write_WithoutEditRight_RefusedAndNothingChanged();
    void Write_WithEditRight_IsJournaled();
    void RightTakenAway_UnderOpenSession_NextWriteRefused();
    void JournalCleaning_ByReader_Works();
    void DeadMaintenance_FreedByReader_Works();
    void SetRights_ByOwner_GivesAndTakesRoles();
    void SetRights_ByEditor_Refused();
    void SetRights_OfEveryone_Refused();

    void PlainSql_Reader_data();
    void PlainSql_Reader();
    void PlainSql_Editor_data();
    void PlainSql_Editor();
    void PlainSql_OfNoRole_SeesNothing();

private:
    [[nodiscard]] std::unique_ptr<HvxDatabaseComponent> OpenAs(const QString& user) const;
    [[nodiscard]] std::unique_ptr<HvxAdministration> Administration(const QString& user) const;
    [[nodiscard]] bool Can(const QString& user, const QString& text) const;

    std::unique_ptr<PostgresServer> m_server;
};

namespace {

const QString Dbs = QStringLiteral("dbs");
const QString Reader = QStringLiteral("reader");
const QString Scanner = QStringLiteral("scanner");
const QString Editor = QStringLiteral("editor");
const QString Stranger = QStringLiteral("stranger");
const QString Delta = QStringLiteral("Delta");

QString RightsOf(HvxDatabase& component)
{
    qint32 scan = 7;
    qint32 edit = 7;
    component.GetSecRights(scan, edit);
    return QString(scan != 0 ? QStringLiteral("scan") : QString()) +
           (edit != 0 ? QStringLiteral("edit") : QString());
}

} // namespace

void TestPostgresRights::initTestCase()
{
    m_server = std::make_unique<PostgresServer>();
    for (const QString& user : {Reader, Scanner, Editor, Stranger})
        m_server->RunSql(QStringLiteral("postgres"), QStringLiteral("CREATE ROLE %1 LOGIN").arg(user));
}

void TestPostgresRights::init()
{
    DatabaseFixture::Make(m_server->Url(Dbs));
    m_server->RunSql(Dbs, QStringLiteral("GRANT dbs_read TO reader; GRANT dbs_scan TO scanner;"
                                         " GRANT dbs_edit TO editor"));
}

void TestPostgresRights::cleanup()
{
    m_server->DropDatabase(Dbs);
    m_server->RunSql(QStringLiteral("postgres"), QStringLiteral("DROP ROLE dbs_read, dbs_scan, dbs_edit"));
}

void TestPostgresRights::cleanupTestCase()
{
    m_server.reset();
}

std::unique_ptr<HvxDatabaseComponent> TestPostgresRights::OpenAs(const QString& user) const
{
    auto component = std::make_unique<HvxDatabaseComponent>(m_server->Url(Dbs, user));
    component->OpenDatabase();
    return component;
}

std::unique_ptr<HvxAdministration> TestPostgresRights::Administration(const QString& user) const
{
    return HvxAdministration::Open(m_server->Url(Dbs, user));
}

bool TestPostgresRights::Can(const QString& user, const QString& text) const
{
    return m_server->TrySql(Dbs, text, user).done;
}

void TestPostgresRights::GetSecRights_FollowTheRoles_data()
{
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("rights");
    QTest::newRow("reads") << Reader << QString();
    QTest::newRow("scans") << Scanner << QStringLiteral("scan");
    QTest::newRow("edits") << Editor << QStringLiteral("edit");
    QTest::newRow("owns") << PostgresServer::Superuser() << QStringLiteral("scanedit");
}

void TestPostgresRights::GetSecRights_FollowTheRoles()
{
    QFETCH(QString, user);

    QTEST(RightsOf(*OpenAs(user)), "rights");
}

void TestPostgresRights::Open_OfNoRole_Unusable()
{
    QCOMPARE(DatabaseFixture::ErrorOf([&] { (void)OpenAs(Stranger); }),
             quint32(DatabaseErrorNumber::UnusableFile));
}

void TestPostgresRights::Write_WithoutEditRight_RefusedAndNothingChanged()
{
    for (const QString& user : {Reader, Scanner}) {
        const auto component = OpenAs(user);

        QCOMPARE(DatabaseFixture::ErrorOf([&] { component->SaveParent(Delta, QString()); }),
                 quint32(DatabaseErrorNumber::Refused));
        QCOMPARE(DatabaseFixture::ErrorOf([&] { component->DeleteNode(QStringLiteral("North")); }),
                 quint32(DatabaseErrorNumber::Refused));
        QCOMPARE(DatabaseFixture::ErrorOf([&] { (void)Administration(user)->BeginBulkWrite(); }),
                 quint32(DatabaseErrorNumber::Refused));
    }
    QCOMPARE(m_server->RunSql(Dbs, QStringLiteral("SELECT max(id) FROM journal")), QStringLiteral("7"));
}

void TestPostgresRights::Write_WithEditRight_IsJournaled()
{
    const auto component = OpenAs(Editor);

    component->SaveParent(Delta, QString());
    component->SaveNode(QStringLiteral("West"), QString(), QString(), Delta, QString());
    component->UpdateUsersList(Delta, QStringLiteral("Parent"), QStringLiteral("anna"));
    component->DeleteParent(Delta, true);

    QCOMPARE(m_server->RunSql(Dbs, QStringLiteral("SELECT string_agg(record_type || text1, ',' ORDER BY id)"
                                                  " FROM journal WHERE id > 7")),
             QStringLiteral("31Delta,30West,20West,21Delta"));
    QCOMPARE(Administration(Editor)->AddManager(QStringLiteral("KX"), QString(), QString()),
             QStringLiteral("2"));
}

void TestPostgresRights::RightTakenAway_UnderOpenSession_NextWriteRefused()
{
    const auto component = OpenAs(Editor);
    component->SaveParent(Delta, QString());
    m_server->RunSql(Dbs, QStringLiteral("REVOKE dbs_edit FROM editor; GRANT dbs_read TO editor"));

    QCOMPARE(DatabaseFixture::ErrorOf([&] { component->SaveParent(QStringLiteral("Omega"), QString()); }),
             quint32(DatabaseErrorNumber::Refused));

    m_server->RunSql(Dbs, QStringLiteral("REVOKE dbs_read FROM editor; GRANT dbs_edit TO editor"));
    component->SaveParent(QStringLiteral("Omega"), QString());
}

void TestPostgresRights::JournalCleaning_ByReader_Works()
{
    OpenAs(Reader)->JournalClearByRecordLimit(5, 2);

    QCOMPARE(
        m_server->RunSql(Dbs, QStringLiteral("SELECT string_agg(id::text, ',' ORDER BY id) FROM journal")),
        QStringLiteral("1,6,7"));
}

void TestPostgresRights::DeadMaintenance_FreedByReader_Works()
{
    const auto component = OpenAs(Reader);
    m_server->RunSql(Dbs,
                     QStringLiteral("INSERT INTO cam_lock VALUES (1, 'token', 'anna', 'elsewhere', 1, 0)"));
    qint32 locked = 0;
    component->IsCAMlocked(locked);
    QVERIFY(locked != 0);

    component->FreeCAMlock();

    QCOMPARE(m_server->RunSql(Dbs, QStringLiteral("SELECT count(*) FROM cam_lock")), QStringLiteral("0"));
}

void TestPostgresRights::SetRights_ByOwner_GivesAndTakesRoles()
{
    const auto administration = Administration(PostgresServer::Superuser());

    administration->SetRights(Reader, true, true);
    QCOMPARE(RightsOf(*OpenAs(Reader)), QStringLiteral("scanedit"));

    administration->SetRights(Reader, false, false);
    QCOMPARE(RightsOf(*OpenAs(Reader)), QString());
}

void TestPostgresRights::SetRights_ByEditor_Refused()
{
    QCOMPARE(DatabaseFixture::ErrorOf([&] { Administration(Editor)->SetRights(Reader, true, true); }),
             quint32(DatabaseErrorNumber::Refused));

    QCOMPARE(RightsOf(*OpenAs(Reader)), QString());
}

void TestPostgresRights::SetRights_OfEveryone_Refused()
{
    const auto administration = Administration(PostgresServer::Superuser());

    QCOMPARE(DatabaseFixture::ErrorOf([&] { administration->SetRights(QStringLiteral("*"), true, true); }),
             quint32(DatabaseErrorNumber::Refused));
}

void TestPostgresRights::PlainSql_Reader_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("done");
    for (const char* table : {"connection", "node", "manager", "journal", "con_type", "setting"})
        QTest::addRow("read %s", table)
            << QStringLiteral("SELECT * FROM %1").arg(QLatin1String(table)) << true;
    QTest::newRow("insert") << QStringLiteral("INSERT INTO connection (name) VALUES ('A')") << false;
    QTest::newRow("update") << QStringLiteral("UPDATE node SET target = ''") << false;
    QTest::newRow("delete") << QStringLiteral("DELETE FROM node") << false;
    QTest::newRow("truncate") << QStringLiteral("TRUNCATE node") << false;
    QTest::newRow("empty the Journal") << QStringLiteral("DELETE FROM journal") << false;
    QTest::newRow("clean the Journal wholly")
        << QStringLiteral("SELECT remove_journal_before(1000000)") << true;
    QTest::newRow("write a trigger's part")
        << QStringLiteral("INSERT INTO record_name VALUES ('a')") << false;
    QTest::newRow("draw ids") << QStringLiteral("SELECT nextval('record_sequence')") << false;
    QTest::newRow("give a role") << QStringLiteral("GRANT dbs_edit TO reader") << false;
}

void TestPostgresRights::PlainSql_Reader()
{
    QFETCH(QString, text);

    QTEST(Can(Reader, text), "done");

    // Record 1 and the newest stay whatever a reader does.
    QCOMPARE(m_server->RunSql(Dbs, QStringLiteral("SELECT count(*) FROM journal WHERE id IN (1, 7)")),
             QStringLiteral("2"));
}

void TestPostgresRights::PlainSql_Editor_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("done");
    QTest::newRow("insert") << QStringLiteral("INSERT INTO connection (name) VALUES ('A')") << true;
    QTest::newRow("update") << QStringLiteral("UPDATE node SET target = ''") << true;
    QTest::newRow("delete") << QStringLiteral("DELETE FROM connection") << true;
    QTest::newRow("read") << QStringLiteral("SELECT * FROM node") << true;
    QTest::newRow("empty the Journal") << QStringLiteral("DELETE FROM journal") << false;
    QTest::newRow("forge the Journal")
        << QStringLiteral("INSERT INTO journal (record_type, text1) VALUES (21, 'Alpha')") << false;
    QTest::newRow("set the ids back") << QStringLiteral("SELECT setval('record_sequence', 1)") << false;
    QTest::newRow("change the version") << QStringLiteral("UPDATE setting SET value = 2") << false;
    QTest::newRow("drop a trigger") << QStringLiteral("DROP TRIGGER node_insert ON node") << false;
    QTest::newRow("pass triggers by")
        << QStringLiteral("SET session_replication_role = replica; DELETE FROM node") << false;
    QTest::newRow("drop a table") << QStringLiteral("DROP TABLE node") << false;
    QTest::newRow("give a role") << QStringLiteral("GRANT dbs_scan TO reader") << false;
}

void TestPostgresRights::PlainSql_Editor()
{
    QFETCH(QString, text);

    QTEST(Can(Editor, text), "done");
}

void TestPostgresRights::PlainSql_OfNoRole_SeesNothing()
{
    for (const char* table : {"connection", "node", "journal", "setting"})
        QVERIFY2(!Can(Stranger, QStringLiteral("SELECT * FROM %1").arg(QLatin1String(table))), table);
    QVERIFY(!Can(Stranger, QStringLiteral("SELECT remove_journal_before(1000000)")));
    QVERIFY(!Can(Stranger, QStringLiteral("SELECT free_cam_lock('token')")));
}

QTEST_GUILESS_MAIN(TestPostgresRights)
#include "TestPostgresRights.moc"
