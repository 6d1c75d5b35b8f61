#include "platform/MachineSeams.h"
#include "tests/components/CopyFixture.h"
#include "tests/support/PostgresServer.h"

#include <QDir>
#include <QTest>

/// Copying databases between files and a PostgreSQL server.
class TestServerCopy : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void cleanup();

    void Copy_ThereAndBack_IsTheSame();
    void Copy_ToServer_ChecksAndAnswersTheSame();
    void Copy_ToServer_NextIdsAreThoseOfTheSource();
    void Copy_ToServer_JournalConsumerGoesOnAtItsId();
    void Copy_ToServer_PlainSqlIsNoted();
    void Copy_EmptyDatabase_FirstRecordIsOne();
    void Copy_ServerToServer_IsTheSame();
    void Copy_SourceWrittenMeanwhile_IsOneState();

    void Copy_ExistingTables_RefusedAndUnchanged();
    void Copy_Force_KeepsTheOldTables();
    void Copy_OntoItselfByAnotherAddress_Refused();
    void Copy_SourceInMaintenance_InUse();

    void Rights_ToServer_RolesGetThemOthersAreTold();
    void Rights_FromServer_MembersBecomeUsers();

    void Copy_ZeroCharacter_RefusedWithoutRemains();
    void Copy_GivenUp_LeavesNothing();
    void Copy_ConnectionLost_LeavesNothing_data();
    void Copy_ConnectionLost_LeavesNothing();
    void Copy_TargetNotPossible_Raises_data();
    void Copy_TargetNotPossible_Raises();

private:
    [[nodiscard]] QString Target() const { return m_server->Url(QStringLiteral("target")); }
    QString Sql(const QString& text, // NOLINT(modernize-use-nodiscard)
                const QString& database = QStringLiteral("target")) const
    {
        return m_server->RunSql(database, text);
    }
    /// True when the server has none of our tables in the database.
    [[nodiscard]] bool IsEmpty(const QString& database = QStringLiteral("target")) const
    {
        return Sql(QStringLiteral("SELECT count(*) FROM pg_tables WHERE tablename = 'setting'"), database) ==
               QLatin1String("0");
    }

    std::unique_ptr<PostgresServer> m_server;
};

namespace {

using CopyFixture::AlwaysOn;
using CopyFixture::ContentsOf;

DatabaseCopyReport Copy(const QString& from, const QString& to, bool force = false)
{
    return CopyHvxDatabase(from, to, force, AlwaysOn);
}

/// What the next record, Journal record and manager get.
QString NextNumbers(const QString& source)
{
    HvxDatabaseComponent component(source);
    component.OpenDatabase();
    component.SaveParent(QStringLiteral("Next"), QString());
    QString id;
    component.GetParentID(QStringLiteral("Next"), id);
    qint32 journalId = 0;
    component.GetJournalLastId(journalId);
    component.CloseDatabase();
    const QString manager =
        HvxAdministration::Open(source)->AddManager(QStringLiteral("Next"), QStringLiteral("/x"), {});
    return QStringLiteral("%1 %2 %3").arg(id).arg(journalId).arg(manager);
}

/// What files have beside the common contents, rights apart.
QStringList FileContentsOf(const QString& file)
{
    const auto rows = [&file](const char* columns, const char* table) {
        return CopyFixture::RowsOf(file, QString::fromLatin1(columns), QString::fromLatin1(table));
    };
    return ContentsOf(file) + rows("name seq", "sqlite_sequence") + rows("last_id", "record_sequence") +
           rows("row_key name", "connection") + rows("type name sql", "sqlite_master");
}

} // namespace

void TestServerCopy::initTestCase()
{
    m_server = std::make_unique<PostgresServer>();
}

void TestServerCopy::cleanupTestCase()
{
    m_server.reset();
}

void TestServerCopy::cleanup()
{
    for (const char* name : {"target", "other"})
        Sql(QStringLiteral("DROP DATABASE IF EXISTS %1 WITH (FORCE)").arg(QLatin1String(name)),
            QStringLiteral("postgres"));
    const QStringList roles =
        Sql(QStringLiteral(
                "SELECT quote_ident(rolname) FROM pg_roles WHERE rolname !~ '^pg_' AND rolname <> 'zelka'"),
            QStringLiteral("postgres"))
            .split(u'\n', Qt::SkipEmptyParts);
    for (const QString& role : roles)
        Sql(QStringLiteral("DROP ROLE %1").arg(role), QStringLiteral("postgres"));
}

void TestServerCopy::Copy_ThereAndBack_IsTheSame()
{
    const DatabaseFixture fixture;
    CopyFixture::AddOddRecords(fixture);
    const QString back = fixture.Folder() + QStringLiteral("/back.mdb");

    Copy(fixture.Source(), Target());
    Copy(Target(), back);

    QCOMPARE(ContentsOf(Target()), ContentsOf(fixture.Source()));
    QCOMPARE(FileContentsOf(back), FileContentsOf(fixture.Source()));
}

void TestServerCopy::Copy_ToServer_ChecksAndAnswersTheSame()
{
    const DatabaseFixture fixture;
    CopyFixture::AddOddRecords(fixture);

    const DatabaseCopyReport report = Copy(fixture.Source(), Target());

    QCOMPARE(report.connections, 3 + CopyFixture::OddTexts().size());
    QCOMPARE(report.nodes, 3 + CopyFixture::OddTexts().size());
    const auto file = HvxAdministration::Open(fixture.Source());
    const auto server = HvxAdministration::Open(Target());
    QCOMPARE(server->Check().join(u'\n'), file->Check().join(u'\n'));
    HvxDatabaseComponent ofFile(fixture.Source());
    HvxDatabaseComponent ofServer(Target());
    ofFile.OpenDatabase();
    ofServer.OpenDatabase();
    QString listOfFile;
    QString listOfServer;
    ofFile.QueryParentsWithID(QString(), listOfFile);
    ofServer.QueryParentsWithID(QString(), listOfServer);
    QCOMPARE(listOfServer, listOfFile);
    for (const QString& text : CopyFixture::OddTexts()) {
        const QString name = QStringLiteral("Node ") + text.left(250);
        QStringList answers[2];
        for (HvxDatabaseComponent* const component : {&ofFile, &ofServer}) {
            QString connection;
            QString target;
            QString type;
            QString command;
            QString users;
            component->GetNodeEx(name, connection, target, type, command);
            component->GetUsersList(name, QStringLiteral("Parent"), users);
            answers[component == &ofServer ? 1 : 0] = {connection, target, type, command, users};
        }
        QCOMPARE(answers[1], answers[0]);
        QCOMPARE(answers[1].constFirst(), text);
    }
}

void TestServerCopy::Copy_ToServer_NextIdsAreThoseOfTheSource()
{
    const DatabaseFixture fixture;
    CopyFixture::AddOddRecords(fixture);
    Copy(fixture.Source(), Target());

    const QString next = NextNumbers(Target());

    QCOMPARE(next, NextNumbers(fixture.Source()));
}

void TestServerCopy::Copy_ToServer_JournalConsumerGoesOnAtItsId()
{
    const DatabaseFixture fixture;
    qint32 lastId = 0;
    fixture.OpenComponent()->GetJournalLastId(lastId);
    Copy(fixture.Source(), Target());
    HvxDatabaseComponent component(Target());
    component.OpenDatabase();
    component.ReplaceParentTarget(QStringLiteral("Alpha"), QStringLiteral("WP=LAN"));

    qint32 newLastId = 0;
    component.GetJournalLastId(newLastId);

    QCOMPARE(newLastId, lastId + 1);
    qint32 type = 0;
    qint32 number = 0;
    QString name;
    QString text;
    component.GetJournalRecordById(newLastId, type, name, number, text);
    QCOMPARE(type, 41);
    QCOMPARE(name, QStringLiteral("Alpha"));
}

void TestServerCopy::Copy_ToServer_PlainSqlIsNoted()
{
    const DatabaseFixture fixture;
    Copy(fixture.Source(), Target());

    Sql(QStringLiteral("INSERT INTO connection (name) VALUES ('Plain')"));

    QCOMPARE(Sql(QStringLiteral("SELECT record_type, text1, number FROM journal ORDER BY id DESC LIMIT 1")),
             QStringLiteral("31|Plain|7"));
    QVERIFY(!m_server
                 ->TrySql(QStringLiteral("target"),
                          QStringLiteral("INSERT INTO connection (name) VALUES ('NORTH')"))
                 .done);
}

void TestServerCopy::Copy_EmptyDatabase_FirstRecordIsOne()
{
    const DatabaseFixture fixture(DatabaseFixture::Contents::Empty);

    Copy(fixture.Source(), Target());

    QCOMPARE(NextNumbers(Target()), QStringLiteral("1 2 1"));
}

void TestServerCopy::Copy_ServerToServer_IsTheSame()
{
    const DatabaseFixture fixture;
    CopyFixture::AddOddRecords(fixture);
    const QString other = m_server->Url(QStringLiteral("other"));
    Copy(fixture.Source(), Target());

    Copy(Target(), other);

    QCOMPARE(ContentsOf(other), ContentsOf(fixture.Source()));
    QCOMPARE(NextNumbers(other), NextNumbers(Target()));
}

void TestServerCopy::Copy_SourceWrittenMeanwhile_IsOneState()
{
    const DatabaseFixture fixture;
    Copy(fixture.Source(), Target());
    const QString file = fixture.Folder() + QStringLiteral("/copy.mdb");
    bool written = false;

    CopyHvxDatabase(Target(), file, false, [&](qint64, qint64) {
        if (!written)
            Sql(QStringLiteral("INSERT INTO connection (name) VALUES ('Meanwhile')"));
        written = true;
        return true;
    });

    QVERIFY(written);
    QCOMPARE(PlainSql(file).Run(QStringLiteral("SELECT count(*) FROM connection")).toInt(), 3);
    QCOMPARE(ContentsOf(file), ContentsOf(fixture.Source()));
}

void TestServerCopy::Copy_ExistingTables_RefusedAndUnchanged()
{
    const DatabaseFixture fixture;
    Copy(fixture.Source(), Target());
    Sql(QStringLiteral("INSERT INTO connection (name) VALUES ('Own')"));
    const QStringList before = ContentsOf(Target());

    QCOMPARE(DatabaseFixture::ErrorOf([&] { Copy(fixture.Source(), Target()); }),
             DatabaseErrorNumber::Refused);

    QCOMPARE(ContentsOf(Target()), before);
}

void TestServerCopy::Copy_Force_KeepsTheOldTables()
{
    const DatabaseFixture fixture;
    Copy(fixture.Source(), Target());
    Sql(QStringLiteral("INSERT INTO connection (name) VALUES ('Own')"));

    const DatabaseCopyReport report = Copy(fixture.Source(), Target(), true);

    QCOMPARE(ContentsOf(Target()), ContentsOf(fixture.Source()));
    QVERIFY(!report.kept.isEmpty());
    QCOMPARE(Sql(QStringLiteral("SELECT count(*) FROM \"%1\".connection").arg(report.kept)),
             QStringLiteral("4"));
}

void TestServerCopy::Copy_OntoItselfByAnotherAddress_Refused()
{
    const DatabaseFixture fixture;
    Copy(fixture.Source(), Target());
    const QString other = QStringLiteral("postgres:///target?host=%1&port=%2&user=zelka")
                              .arg(m_server->Folder())
                              .arg(m_server->Port());

    QCOMPARE(DatabaseFixture::ErrorOf([&] { Copy(Target(), other, true); }), DatabaseErrorNumber::Refused);

    QCOMPARE(Sql(QStringLiteral("SELECT count(*) FROM pg_tables WHERE tablename = 'setting'")),
             QStringLiteral("1"));
}

void TestServerCopy::Copy_SourceInMaintenance_InUse()
{
    const DatabaseFixture fixture;
    const QString file = fixture.Folder() + QStringLiteral("/copy.mdb");
    Copy(fixture.Source(), Target());
    const auto administration = HvxAdministration::Open(Target());
    const auto lock = administration->LockForMaintenance();

    QCOMPARE(DatabaseFixture::ErrorOf([&] { Copy(Target(), file); }), DatabaseErrorNumber::InUse);

    QVERIFY(!QFile::exists(file));
}

void TestServerCopy::Rights_ToServer_RolesGetThemOthersAreTold()
{
    const DatabaseFixture fixture;
    fixture.RunSql(QStringLiteral("DELETE FROM user_rights"));
    fixture.RunSql(QStringLiteral("INSERT INTO user_rights VALUES ('eva', 1, 1), ('o''brien \"x\"', 1, 0),"
                                  " ('nobody here', 1, 1), ('*', 0, 1)"));
    Sql(QStringLiteral("CREATE ROLE eva LOGIN; CREATE ROLE \"o'brien \"\"x\"\"\" LOGIN"),
        QStringLiteral("postgres"));

    const DatabaseCopyReport report = Copy(fixture.Source(), Target());

    QCOMPARE(report.remarks,
             (QStringList{QStringLiteral("a server gives no rights to everyone: those of * were not copied"),
                          QStringLiteral("no role nobody here on the server: its rights were not copied")}));
    const auto has = [this](const QString& user, const QString& allows) {
        return Sql(QStringLiteral("SELECT pg_has_role(oid, (SELECT role_name FROM rights_role"
                                  " WHERE allows = '%2')::regrole, 'USAGE') FROM pg_roles"
                                  " WHERE rolname = '%1'")
                       .arg(user, allows));
    };
    QCOMPARE(has(QStringLiteral("eva"), QStringLiteral("edit")), QStringLiteral("t"));
    QCOMPARE(has(QStringLiteral("o''brien \"x\""), QStringLiteral("scan")), QStringLiteral("t"));
    QCOMPARE(has(QStringLiteral("o''brien \"x\""), QStringLiteral("edit")), QStringLiteral("f"));
}

void TestServerCopy::Rights_FromServer_MembersBecomeUsers()
{
    const DatabaseFixture fixture;
    const QString file = fixture.Folder() + QStringLiteral("/copy.mdb");
    Copy(fixture.Source(), Target());
    Sql(QStringLiteral("CREATE ROLE eva LOGIN; CREATE ROLE jan LOGIN; CREATE ROLE olga LOGIN;"
                       "CREATE ROLE team; GRANT target_edit TO team; GRANT team TO eva;"
                       "GRANT target_scan TO jan"));

    Copy(Target(), file);

    // The operator of the copy keeps in it what he may do on the server.
    QStringList expected{QStringLiteral("eva 0 1"), QStringLiteral("jan 1 0"),
                         Machine().UserName() + QStringLiteral(" 1 1")};
    expected.replaceInStrings(QStringLiteral(" "), QStringLiteral("\x1f"));
    expected.sort();
    QCOMPARE(CopyFixture::RowsOf(file, QStringLiteral("user_name may_scan may_edit"),
                                 QStringLiteral("user_rights")),
             expected);
}

void TestServerCopy::Copy_ZeroCharacter_RefusedWithoutRemains()
{
    const DatabaseFixture fixture;
    fixture.RunSql(QStringLiteral("UPDATE node SET command_tail = 'a' || char(0) || 'b'"));
    m_server->CreateDatabase(QStringLiteral("target"));

    QCOMPARE(DatabaseFixture::ErrorOf([&] { Copy(fixture.Source(), Target()); }),
             DatabaseErrorNumber::Refused);

    QVERIFY(IsEmpty());
}

void TestServerCopy::Copy_GivenUp_LeavesNothing()
{
    const DatabaseFixture fixture;
    m_server->CreateDatabase(QStringLiteral("target"));
    int asked = 0;

    const quint32 number = DatabaseFixture::ErrorOf([&] {
        CopyHvxDatabase(fixture.Source(), Target(), false, [&](qint64, qint64) { return ++asked < 2; });
    });

    QCOMPARE(number, DatabaseErrorNumber::Refused);
    QCOMPARE(asked, 2);
    QVERIFY(IsEmpty());
    QCOMPARE(DatabaseFixture::ErrorOf([&] { Copy(fixture.Source(), Target()); }), 0U);
}

void TestServerCopy::Copy_ConnectionLost_LeavesNothing_data()
{
    QTest::addColumn<QString>("lost");
    QTest::newRow("source") << QStringLiteral("target");
    QTest::newRow("target") << QStringLiteral("other");
}

void TestServerCopy::Copy_ConnectionLost_LeavesNothing()
{
    QFETCH(QString, lost);
    const DatabaseFixture fixture;
    {
        // More rows than one answer of the server holds in buffers.
        const auto administration = HvxAdministration::Open(fixture.Source());
        const auto writer = administration->BeginBulkWrite();
        for (int i = 0; i < 4'000; ++i)
            writer->AddConnection(QStringLiteral("Line %1").arg(i), QString(1500, u'x'));
        writer->Commit();
    }
    Copy(fixture.Source(), Target());
    m_server->CreateDatabase(QStringLiteral("other"));
    bool broken = false;

    const quint32 number = DatabaseFixture::ErrorOf([&] {
        CopyHvxDatabase(Target(), m_server->Url(QStringLiteral("other")), false, [&](qint64, qint64) {
            if (!broken)
                Sql(QStringLiteral("SELECT pg_terminate_backend(pid, 30000) FROM pg_stat_activity"
                                   " WHERE datname = '%1'")
                        .arg(lost),
                    QStringLiteral("postgres"));
            broken = true;
            return true;
        });
    });

    QVERIFY(broken);
    QVERIFY(number != 0 && number != DatabaseErrorNumber::Refused);
    QVERIFY(IsEmpty(QStringLiteral("other")));
    QCOMPARE(Sql(QStringLiteral("SELECT count(*) FROM connection")), QStringLiteral("4003"));
}

void TestServerCopy::Copy_TargetNotPossible_Raises_data()
{
    QTest::addColumn<QString>("prepare");
    QTest::newRow("server only reads")
        << QStringLiteral("ALTER DATABASE target SET default_transaction_read_only = on");
    QTest::newRow("no right to make tables")
        << QStringLiteral("CREATE ROLE eva LOGIN; ALTER ROLE eva SET search_path = public");
    QTest::newRow("no right to connect")
        << QStringLiteral("CREATE ROLE eva LOGIN; REVOKE CONNECT ON DATABASE target FROM PUBLIC");
}

void TestServerCopy::Copy_TargetNotPossible_Raises()
{
    QFETCH(QString, prepare);
    const DatabaseFixture fixture;
    m_server->CreateDatabase(QStringLiteral("target"));
    Sql(prepare);
    const QString user =
        prepare.contains(QLatin1String("eva")) ? QStringLiteral("eva") : PostgresServer::Superuser();

    QVERIFY(DatabaseFixture::ErrorOf(
                [&] { Copy(fixture.Source(), m_server->Url(QStringLiteral("target"), user)); }) != 0);

    QVERIFY(IsEmpty());
}

QTEST_GUILESS_MAIN(TestServerCopy)
#include "TestServerCopy.moc"
