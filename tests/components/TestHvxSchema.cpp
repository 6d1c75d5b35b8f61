#include "components/hvxdb/HvxSchema.h"
#include "components/hvxdb/SqlScript.h"
#include "tests/components/DatabaseFixture.h"

#include <QTest>

/// Versions of the schema: scripts, upgrades in order, upgrades that fail.
class TestHvxSchema : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Split_StatementsCommentsAndTriggers_OnePiece();
    void Split_LastStatementWithoutEnd_IsKept();
    void Create_OnCompleteDatabase_ChangesNothing();
    void Upgrade_TwoSteps_RunInOrder();
    void Upgrade_UpToDate_RunsNothing();
    void Upgrade_SecondStepFails_FirstIsUndone();
    void Upgrade_MissingStep_Fails();
    void Upgrade_WhileOtherWrites_FailsAndKeepsVersion();
    void Upgrade_NewerDatabase_Fails();
    void Version_Stored_IsCurrent();
    void MissingObjects_CompleteDatabase_None();
    void MissingObjects_DroppedIndex_IsNamed();
};

namespace {

/// The product's schema, made two versions younger by steps of this test.
SchemaScripts ScriptsWithSteps(const SqlSession& session, const QString& second, const QString& third)
{
    SchemaScripts scripts = HvxSchema::ScriptsOf(session.Engine());
    scripts.version = 3;
    scripts.upgrade = [second, third](qint32 version) { return version == 2 ? second : third; };
    return scripts;
}

const QString AddColor = QStringLiteral("-- Connections get a color.\n"
                                        "ALTER TABLE connection ADD COLUMN color TEXT;\n");
const QString FillColor = QStringLiteral("UPDATE connection SET color = 'blue';\n");

} // namespace

void TestHvxSchema::Split_StatementsCommentsAndTriggers_OnePiece()
{
    const QStringList statements = SplitSqlScript(QStringLiteral("-- Comment; with a semicolon;\n"
                                                                 "CREATE TABLE a (\n    b TEXT\n);\n"
                                                                 "\n"
                                                                 "CREATE TRIGGER t AFTER INSERT ON a\n"
                                                                 "BEGIN\n"
                                                                 "    DELETE FROM a;\n"
                                                                 "    -- Inside.\n"
                                                                 "    UPDATE a SET b = 'x';\n"
                                                                 "END;\n"
                                                                 "INSERT INTO a VALUES ('y');\n"));

    QCOMPARE(statements.size(), 3);
    QCOMPARE(statements[0], QStringLiteral("CREATE TABLE a (\n    b TEXT\n);"));
    QVERIFY(statements[1].startsWith(QStringLiteral("CREATE TRIGGER")));
    QVERIFY(statements[1].endsWith(QStringLiteral("END;")));
    QCOMPARE(statements[2], QStringLiteral("INSERT INTO a VALUES ('y');"));
}

void TestHvxSchema::Split_LastStatementWithoutEnd_IsKept()
{
    QCOMPARE(SplitSqlScript(QStringLiteral("SELECT 1;\nSELECT 2")),
             (QStringList{QStringLiteral("SELECT 1;"), QStringLiteral("SELECT 2")}));
}

void TestHvxSchema::Create_OnCompleteDatabase_ChangesNothing()
{
    const DatabaseFixture fixture;
    SqlSession session;
    session.Connect(fixture.Source());
    const qint64 before = session.NumberOfText(QStringLiteral("SELECT sum(id) FROM journal"));

    HvxSchema(session, HvxSchema::ScriptsOf(session.Engine())).Create();

    QCOMPARE(session.NumberOfText(QStringLiteral("SELECT sum(id) FROM journal")), before);
    QCOMPARE(session.NumberOfText(QStringLiteral("SELECT count(*) FROM node")), 3);
}

void TestHvxSchema::Upgrade_TwoSteps_RunInOrder()
{
    const DatabaseFixture fixture;
    SqlSession session;
    session.Connect(fixture.Source());

    HvxSchema schema(session, ScriptsWithSteps(session, AddColor, FillColor));
    schema.Prepare();

    QCOMPARE(schema.StoredVersion(), 3);
    QCOMPARE(fixture.RunSql(QStringLiteral("SELECT color FROM connection")).toString(),
             QStringLiteral("blue"));
}

void TestHvxSchema::Upgrade_UpToDate_RunsNothing()
{
    const DatabaseFixture fixture;
    SqlSession session;
    session.Connect(fixture.Source());
    HvxSchema(session, ScriptsWithSteps(session, AddColor, FillColor)).Prepare();

    const QString broken = QStringLiteral("THIS IS NO SQL;\n");
    HvxSchema(session, ScriptsWithSteps(session, broken, broken)).Prepare();

    QCOMPARE(session.Level(), 0);
}

void TestHvxSchema::Upgrade_SecondStepFails_FirstIsUndone()
{
    const DatabaseFixture fixture;
    SqlSession session;
    session.Connect(fixture.Source());

    HvxSchema schema(session, ScriptsWithSteps(session, AddColor, QStringLiteral("THIS IS NO SQL;\n")));

    QCOMPARE(DatabaseFixture::ErrorOf([&] { schema.Prepare(); }), DatabaseErrorNumber::UpgradeFailed);
    QCOMPARE(schema.StoredVersion(), 1);
    QVERIFY(DatabaseFixture::ErrorOf(
                [&] { fixture.RunSql(QStringLiteral("SELECT color FROM connection")); }) != 0);
}

void TestHvxSchema::Upgrade_MissingStep_Fails()
{
    const DatabaseFixture fixture;
    SqlSession session;
    session.Connect(fixture.Source());

    HvxSchema schema(session, ScriptsWithSteps(session, QString(), FillColor));

    QCOMPARE(DatabaseFixture::ErrorOf([&] { schema.Prepare(); }), DatabaseErrorNumber::UpgradeFailed);
    QCOMPARE(schema.StoredVersion(), 1);
}

void TestHvxSchema::Upgrade_WhileOtherWrites_FailsAndKeepsVersion()
{
    const DatabaseFixture fixture;
    const auto writer = fixture.OpenComponent();
    qint32 started = 0;
    writer->BeginTransaction(started);
    writer->SaveParent(QStringLiteral("Delta"), QString());
    SqlSession session;
    session.SetBusyTimeout(0);
    session.Connect(fixture.Source());

    HvxSchema schema(session, ScriptsWithSteps(session, AddColor, FillColor));

    QCOMPARE(DatabaseFixture::ErrorOf([&] { schema.Prepare(); }), DatabaseErrorNumber::InUse);
    QCOMPARE(schema.StoredVersion(), 1);
}

void TestHvxSchema::Upgrade_NewerDatabase_Fails()
{
    const DatabaseFixture fixture;
    fixture.RunSql(QStringLiteral("UPDATE setting SET value = 4 WHERE name = 'schema_version'"));
    SqlSession session;
    session.Connect(fixture.Source());

    HvxSchema schema(session, ScriptsWithSteps(session, AddColor, FillColor));

    QCOMPARE(DatabaseFixture::ErrorOf([&] { schema.Prepare(); }), DatabaseErrorNumber::UpgradeFailed);
}

void TestHvxSchema::Version_Stored_IsCurrent()
{
    const DatabaseFixture fixture;

    QCOMPARE(
        fixture.RunSql(QStringLiteral("SELECT value FROM setting WHERE name = 'schema_version'")).toInt(),
        HvxSchema::CurrentVersion);
}

void TestHvxSchema::MissingObjects_CompleteDatabase_None()
{
    const DatabaseFixture fixture;
    SqlSession session;
    session.Connect(fixture.Source());

    QCOMPARE(HvxSchema(session, HvxSchema::ScriptsOf(session.Engine())).MissingObjects(), QStringList());
}

void TestHvxSchema::MissingObjects_DroppedIndex_IsNamed()
{
    const DatabaseFixture fixture;
    fixture.RunSql(QStringLiteral("DROP INDEX node_connection"));
    SqlSession session;
    session.Connect(fixture.Source());

    QCOMPARE(HvxSchema(session, HvxSchema::ScriptsOf(session.Engine())).MissingObjects(),
             QStringList{QStringLiteral("node_connection")});
}

QTEST_GUILESS_MAIN(TestHvxSchema)
#include "TestHvxSchema.moc"
