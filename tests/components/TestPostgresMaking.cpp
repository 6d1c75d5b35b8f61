#include "tests/components/DatabaseFixture.h"
#include "tests/support/PostgresServer.h"

#include <QRegularExpression>
#include <QTest>

/// Making databases on a server.
class TestPostgresMaking : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void Create_MissingDatabase_IsMadeAndChecks();
    void Create_ExistingEmptyDatabase_IsFilled();
    void Create_Twice_RefusedAndUnchanged();
    void Create_Force_KeepsTheOldSchema();
    void Create_ForceTwice_KeepsBoth();
    void Create_ForeignTables_AreLeftAlone();
    void Create_ByOneWhoMayNotMakeDatabases_Refused();
    void Create_ByOneWhoMayNotMakeRoles_RefusedAndNothingMade();
    void Create_NobodyListens_Raises();
    void Create_OddName_Works();

private:
    [[nodiscard]] QString Source() const { return m_server->Url(QStringLiteral("dbs")); }
    [[nodiscard]] QString Sql(const QString& text) const
    {
        return m_server->RunSql(QStringLiteral("dbs"), text);
    }

    std::unique_ptr<PostgresServer> m_server;
};

namespace {

const QString NodeCount = QStringLiteral("SELECT count(*) FROM node");

QString Create(const QString& source, bool force = false)
{
    return CreateHvxDatabase(source, DatabaseFixture::BuiltInCatalogue(), force);
}

quint32 CreateNumber(const QString& source, bool force = false)
{
    return DatabaseFixture::ErrorOf([&] { Create(source, force); });
}

} // namespace

void TestPostgresMaking::initTestCase()
{
    m_server = std::make_unique<PostgresServer>();
}

void TestPostgresMaking::init()
{
    m_server->RunSql(QStringLiteral("postgres"), QStringLiteral("CREATE ROLE anna LOGIN"));
}

void TestPostgresMaking::cleanup()
{
    m_server->RunSql(QStringLiteral("postgres"), QStringLiteral("DROP DATABASE IF EXISTS dbs WITH (FORCE)"));
    m_server->RunSql(QStringLiteral("postgres"),
                     QStringLiteral("DROP ROLE IF EXISTS anna, dbs_read, dbs_scan, dbs_edit"));
}

void TestPostgresMaking::cleanupTestCase()
{
    m_server.reset();
}

void TestPostgresMaking::Create_MissingDatabase_IsMadeAndChecks()
{
    QCOMPARE(Create(Source()), QString());

    QCOMPARE(HvxAdministration::Open(Source())->Check().join(u'\n'), QString());
    QCOMPARE(Sql(NodeCount), QStringLiteral("0"));
    QCOMPARE(Sql(QStringLiteral("SELECT count(*) FROM pg_roles WHERE rolname IN"
                                " ('dbs_read', 'dbs_scan', 'dbs_edit') AND NOT rolcanlogin")),
             QStringLiteral("3"));
}

void TestPostgresMaking::Create_ExistingEmptyDatabase_IsFilled()
{
    m_server->CreateDatabase(QStringLiteral("dbs"));

    QCOMPARE(Create(Source()), QString());

    QCOMPARE(HvxAdministration::Open(Source())->Check().join(u'\n'), QString());
}

void TestPostgresMaking::Create_Twice_RefusedAndUnchanged()
{
    DatabaseFixture::Make(Source());

    QCOMPARE(CreateNumber(Source()), quint32(DatabaseErrorNumber::Refused));

    QCOMPARE(Sql(NodeCount), QStringLiteral("3"));
}

void TestPostgresMaking::Create_Force_KeepsTheOldSchema()
{
    DatabaseFixture::Make(Source());

    const QString kept = Create(Source(), true);

    static const QRegularExpression stamped(QStringLiteral("public_\\d{8}_\\d{6}"));
    const QRegularExpressionMatch schema = stamped.match(kept);
    QVERIFY2(schema.hasMatch(), qPrintable(kept));
    QCOMPARE(Sql(NodeCount), QStringLiteral("0"));
    QCOMPARE(Sql(QStringLiteral("SELECT count(*) FROM %1.node").arg(schema.captured())), QStringLiteral("3"));
    QCOMPARE(HvxAdministration::Open(Source())->Check().join(u'\n'), QString());
    // Triggers of the new tables write to the new ones.
    m_server->RunSql(QStringLiteral("dbs"), QStringLiteral("INSERT INTO connection (name) VALUES ('Delta')"));
    QCOMPARE(Sql(QStringLiteral("SELECT text1 FROM journal WHERE id > 1")), QStringLiteral("Delta"));
}

void TestPostgresMaking::Create_ForceTwice_KeepsBoth()
{
    DatabaseFixture::Make(Source());

    const QString first = Create(Source(), true);
    const QString second = Create(Source(), true);

    QVERIFY(first != second);
    QCOMPARE(Sql(QStringLiteral("SELECT count(*) FROM pg_namespace WHERE nspname LIKE 'public\\_%'")),
             QStringLiteral("2"));
}

void TestPostgresMaking::Create_ForeignTables_AreLeftAlone()
{
    m_server->CreateDatabase(QStringLiteral("dbs"));
    (void)Sql(QStringLiteral("CREATE TABLE recipe (title TEXT); INSERT INTO recipe VALUES ('Goulash')"));

    QCOMPARE(CreateNumber(Source()), 0U);

    QCOMPARE(Sql(QStringLiteral("SELECT title FROM recipe")), QStringLiteral("Goulash"));
}

void TestPostgresMaking::Create_ByOneWhoMayNotMakeDatabases_Refused()
{
    QCOMPARE(CreateNumber(m_server->Url(QStringLiteral("dbs"), QStringLiteral("anna"))),
             quint32(DatabaseErrorNumber::Refused));

    QVERIFY(!m_server->TrySql(QStringLiteral("dbs"), QStringLiteral("SELECT 1")).done);
}

void TestPostgresMaking::Create_ByOneWhoMayNotMakeRoles_RefusedAndNothingMade()
{
    m_server->RunSql(QStringLiteral("postgres"), QStringLiteral("CREATE DATABASE dbs OWNER anna"));

    QCOMPARE(CreateNumber(m_server->Url(QStringLiteral("dbs"), QStringLiteral("anna"))),
             quint32(DatabaseErrorNumber::Refused));

    QCOMPARE(Sql(QStringLiteral("SELECT count(*) FROM pg_class WHERE relnamespace = 'public'::regnamespace")),
             QStringLiteral("0"));
}

void TestPostgresMaking::Create_NobodyListens_Raises()
{
    QVERIFY(CreateNumber(QStringLiteral("postgresql://zelka@127.0.0.1:1/dbs")) != 0);
}

void TestPostgresMaking::Create_OddName_Works()
{
    const QString source = m_server->Url(QStringLiteral("Net%20of%20%22%C5%BDi%C5%BEkov%22%27s"));

    DatabaseFixture::Make(source);

    QCOMPARE(HvxAdministration::Open(source)->Check().join(u'\n'), QString());
}

QTEST_GUILESS_MAIN(TestPostgresMaking)
#include "TestPostgresMaking.moc"
