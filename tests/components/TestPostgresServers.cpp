#include "components/hvxdb/SqlFailure.h"
#include "tests/components/DatabaseFixture.h"
#include "tests/support/PostgresServer.h"

#include <QTest>

/// Servers that cannot be reached or let nobody in, and the ways to name one and its password.
class TestPostgresServers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void cleanupTestCase();

    void Open_NobodyListens_EngineFailure();
    void Open_ServerRecovers_EngineFailureUntilItIsReady();
    void Open_Refused_Number_data();
    void Open_Refused_Number();
    void Open_NoRightToConnect_Unusable();
    void Open_BadUrl_SourceMissing_data();
    void Open_BadUrl_SourceMissing();

    void Password_InUrl_IsTaken();
    void Password_InPasswordFile_IsTaken();
    void Password_InServiceFile_IsTaken();
    void Password_OfStrangeCharacters_IsTaken();

    void Tls_ServerWithCertificate_IsUsed_data();
    void Tls_ServerWithCertificate_IsUsed();
    void Tls_WrongAuthority_IsNotUsed();
    void Tls_ServerWithout_IsNotUsed();

private:
    /// "?" or "&" and more; the user "anna" with her password.
    [[nodiscard]] QString Url(const QString& more = QString()) const;
    QString WriteFile(const QString& name, const QString& text) const;

    QTemporaryDir m_folder;
    std::unique_ptr<PostgresServer> m_server;
};

namespace {

const QString Dbs = QStringLiteral("dbs");
const QString Anna = QStringLiteral("anna");
const QString Secret = QStringLiteral("Iv-4 n");

quint32 OpenNumber(const QString& source)
{
    HvxDatabaseComponent component(source);
    return DatabaseFixture::ErrorOf([&] { component.OpenDatabase(); });
}

} // namespace

void TestPostgresServers::initTestCase()
{
    m_server = std::make_unique<PostgresServer>(PostgresServer::Login::Password);
    m_server->RunSql(QStringLiteral("postgres"), QStringLiteral("ALTER ROLE zelka PASSWORD 'owner'"));
    DatabaseFixture::Make(m_server->Url(Dbs, PostgresServer::Superuser(), QStringLiteral("owner")));
    m_server->RunSql(Dbs,
                     QStringLiteral("CREATE ROLE anna LOGIN PASSWORD '%1' IN ROLE dbs_scan").arg(Secret));
}

void TestPostgresServers::cleanup()
{
    for (const char* name : {"PGSERVICEFILE", "PGPASSFILE"})
        qunsetenv(name);
}

void TestPostgresServers::cleanupTestCase()
{
    m_server.reset();
}

QString TestPostgresServers::Url(const QString& more) const
{
    return m_server->Url(Dbs, Anna, QString::fromLatin1(QUrl::toPercentEncoding(Secret))) + more;
}

QString TestPostgresServers::WriteFile(const QString& name, const QString& text) const
{
    QFile file(m_folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0)
        qFatal("%s", qUtf8Printable(file.errorString()));
    // Others must not read passwords.
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    return file.fileName();
}

void TestPostgresServers::Open_NobodyListens_EngineFailure()
{
    QCOMPARE(OpenNumber(QStringLiteral("postgresql://anna@127.0.0.1:1/dbs")), EngineFailure);
    QCOMPARE(OpenNumber(QStringLiteral("postgresql://anna@/dbs?host=/nowhere")), EngineFailure);
}

void TestPostgresServers::Open_ServerRecovers_EngineFailureUntilItIsReady()
{
    m_server->StartRecovering();

    QCOMPARE(OpenNumber(Url()), EngineFailure);

    m_server->Restart();
    QCOMPARE(OpenNumber(Url()), 0U);
}

void TestPostgresServers::Open_Refused_Number_data()
{
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("database");
    QTest::addColumn<quint32>("number");
    QTest::newRow("wrong password") << QStringLiteral("anna:wrong") << Dbs
                                    << quint32(DatabaseErrorNumber::UnusableFile);
    QTest::newRow("no password") << QStringLiteral("anna") << Dbs
                                 << quint32(DatabaseErrorNumber::UnusableFile);
    QTest::newRow("unknown user") << QStringLiteral("bert:wrong") << Dbs
                                  << quint32(DatabaseErrorNumber::UnusableFile);
    QTest::newRow("missing database") << QStringLiteral("zelka:owner") << QStringLiteral("other")
                                      << quint32(DatabaseErrorNumber::SourceMissing);
    QTest::newRow("database without tables") << QStringLiteral("zelka:owner") << QStringLiteral("postgres")
                                             << quint32(DatabaseErrorNumber::TablesMissing);
}

void TestPostgresServers::Open_Refused_Number()
{
    QFETCH(QString, user);
    QFETCH(QString, database);

    const quint32 number = OpenNumber(
        QStringLiteral("postgresql://%1@127.0.0.1:%2/%3").arg(user).arg(m_server->Port()).arg(database));

    QTEST(number, "number");
}

void TestPostgresServers::Open_NoRightToConnect_Unusable()
{
    m_server->RunSql(Dbs, QStringLiteral("REVOKE CONNECT ON DATABASE dbs FROM PUBLIC"));

    const quint32 number = OpenNumber(Url());

    m_server->RunSql(Dbs, QStringLiteral("GRANT CONNECT ON DATABASE dbs TO PUBLIC"));
    QCOMPARE(number, quint32(DatabaseErrorNumber::UnusableFile));
    QCOMPARE(OpenNumber(Url()), 0U);
}

void TestPostgresServers::Open_BadUrl_SourceMissing_data()
{
    QTest::addColumn<QString>("source");
    QTest::newRow("unknown setting") << QStringLiteral("postgresql://127.0.0.1/dbs?speed=high");
    QTest::newRow("broken escape") << QStringLiteral("postgresql://127.0.0.1/dbs%zz");
}

void TestPostgresServers::Open_BadUrl_SourceMissing()
{
    QFETCH(QString, source);

    QCOMPARE(OpenNumber(source), quint32(DatabaseErrorNumber::SourceMissing));
}

void TestPostgresServers::Password_InUrl_IsTaken()
{
    QCOMPARE(OpenNumber(Url()), 0U);
}

void TestPostgresServers::Password_InPasswordFile_IsTaken()
{
    const QString line = QStringLiteral("127.0.0.1:%1:dbs:anna:%2\n").arg(m_server->Port()).arg(Secret);
    qputenv("PGPASSFILE", WriteFile(QStringLiteral("passwords"), line).toUtf8());

    QCOMPARE(OpenNumber(m_server->Url(Dbs, Anna)), 0U);
}

void TestPostgresServers::Password_InServiceFile_IsTaken()
{
    const QString service = QStringLiteral("[network]\nhost=127.0.0.1\nport=%1\ndbname=dbs\nuser=anna\n"
                                           "password=%2\n")
                                .arg(m_server->Port())
                                .arg(Secret);
    qputenv("PGSERVICEFILE", WriteFile(QStringLiteral("services"), service).toUtf8());

    QCOMPARE(OpenNumber(QStringLiteral("postgresql:///?service=network")), 0U);
}

void TestPostgresServers::Password_OfStrangeCharacters_IsTaken()
{
    const QString password = QStringLiteral(R"(it's "a" \ long=one, žluťoučký & 100%)");
    QString quoted = password;
    quoted.replace(u'\'', QStringLiteral("''"));
    m_server->RunSql(Dbs, QStringLiteral("CREATE ROLE odd LOGIN PASSWORD '%1' IN ROLE dbs_read").arg(quoted));

    const QString source =
        m_server->Url(Dbs, QStringLiteral("odd"), QString::fromLatin1(QUrl::toPercentEncoding(password)));

    QCOMPARE(OpenNumber(source), 0U);
}

void TestPostgresServers::Tls_ServerWithCertificate_IsUsed_data()
{
    QTest::addColumn<bool>("verify");
    QTest::newRow("required") << false;
    QTest::newRow("verified") << true;
}

void TestPostgresServers::Tls_ServerWithCertificate_IsUsed()
{
    QFETCH(bool, verify);
    m_server->UseTls();
    HvxDatabaseComponent component(
        Url(verify ? QStringLiteral("?sslmode=verify-full&sslrootcert=") + m_server->Certificate()
                   : QStringLiteral("?sslmode=require")));

    component.OpenDatabase();

    QCOMPARE(m_server->RunSql(Dbs, QStringLiteral("SELECT ssl FROM pg_stat_ssl JOIN pg_stat_activity USING"
                                                  " (pid) WHERE usename = 'anna'")),
             QStringLiteral("t"));
}

void TestPostgresServers::Tls_WrongAuthority_IsNotUsed()
{
    m_server->UseTls();
    const QString other = m_folder.filePath(QStringLiteral("other.crt"));
    QVERIFY(QFile::copy(m_server->Certificate(), other));
    m_server->UseTls();

    QCOMPARE(OpenNumber(Url(QStringLiteral("?sslmode=verify-full&sslrootcert=") + other)), EngineFailure);
}

void TestPostgresServers::Tls_ServerWithout_IsNotUsed()
{
    m_server->Restart();

    QCOMPARE(OpenNumber(Url(QStringLiteral("?sslmode=require"))), EngineFailure);
    QCOMPARE(OpenNumber(Url(QStringLiteral("?sslmode=prefer"))), 0U);
}

QTEST_GUILESS_MAIN(TestPostgresServers)
#include "TestPostgresServers.moc"
