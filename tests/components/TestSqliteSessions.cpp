#include "components/hvxdb/DriverStatement.h"
#include "components/hvxdb/HvxStore.h"
#include "components/hvxdb/RecordLists.h"
#include "components/hvxdb/RecordWriter.h"
#include "components/hvxdb/SqlFailure.h"
#include "components/hvxdb/SqliteEngine.h"
#include "tests/components/ComponentTransactions.h"
#include "tests/components/DatabaseFixture.h"

#include <QDir>
#include <QProcess>
#include <QTest>

/// What a database file does by itself: its locks, its names, its own means of reading.
class TestSqliteSessions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Open_WritesNothing();
    void Open_WholeFileLocked_InUseAndBeginGoesOnLater();
    void Source_WithSpecialCharacters_Opens_data();
    void Source_WithSpecialCharacters_Opens();
    void Begin_WhileOtherWrites_InUse();
    void Begin_AfterOtherCommitted_Works();
    void EngineUndidTransaction_LaterWrites_AreRefusedUntilRollback();
    void EngineWithoutDataVersion_AsksAtEachBegin();
    void OtherProcess_HoldsTransaction_InUseUntilItEnds();
    void OtherProcess_HoldsItAlone_NoRightsUntilItEnds();
    void Lists_BuiltInSqlAlone_AreTheSame();
    void Counts_UseIndexes_data();
    void Counts_UseIndexes();
    void PlainSql_WithRecursiveTriggers_WritesTheSame();
    void PlainSql_IdsUsedUp_Refused();
    void Clear_NothingToRemove_WritesNothing();
    void Lock_StaleWhileSomeoneWrites_IsNotDead();
    void Begin_FileMovedAway_SourceMissingUntilItIsBack();
    void Begin_FileReplaced_ReadsTheOther();
    void FileMovedAway_InTransaction_NothingReachesTheOther();
};

namespace {

const QString Alpha = QStringLiteral("Alpha");

/// An engine that cannot tell whether the database has changed.
class BlindEngine : public SqliteEngine
{
public:
    [[nodiscard]] std::optional<quint32> DataVersion(const QSqlDatabase&) const override
    {
        return std::nullopt;
    }
};

/// As when the driver was built with another copy of the library: nothing but SQL reaches the database.
class SqlOnlyEngine : public SqliteEngine
{
public:
    [[nodiscard]] QString StatementText(HvxStatement statement) const override
    {
        return StandardStatementText(statement);
    }
    [[nodiscard]] std::unique_ptr<SqlStatement>
    MakeStatement(const QSqlDatabase& database, const QString& text, bool rowByRow) const override
    {
        return std::make_unique<DriverStatement>(database, text, rowByRow, DriverStatement::Binding::ByName);
    }
};

QByteArray BytesOf(const QString& file)
{
    QFile read(file);
    return read.open(QIODevice::ReadOnly) ? read.readAll() : QByteArray();
}

/// As another program would: with the files that belong to it.
void MoveDatabase(const QString& from, const QString& to)
{
    for (const char* ending : {"", "-wal", "-shm"})
        QFile::rename(from + QLatin1String(ending), to + QLatin1String(ending));
}

void BeginAndCommit(HvxDatabase& component)
{
    qint32 started = 0;
    component.BeginTransaction(started);
    component.CommitTransaction(started);
}

quint32 BeginNumber(HvxDatabase& component)
{
    return DatabaseFixture::ErrorOf([&] { BeginAndCommit(component); });
}

qint32 LockedAnswer(HvxDatabase& component)
{
    qint32 locked = 7;
    component.IsCAMlocked(locked);
    return locked;
}

bool HasConnection(HvxDatabase& component, const QString& name)
{
    QString answer;
    component.ParentNameExist(name, answer);
    return answer == QStringLiteral("TRUE");
}

} // namespace

void TestSqliteSessions::Open_WritesNothing()
{
    const DatabaseFixture fixture;
    const QByteArray before = BytesOf(fixture.Source());

    fixture.OpenComponent()->CloseDatabase();

    QCOMPARE(BytesOf(fixture.Source()), before);
    QCOMPARE(QDir(fixture.Folder()).entryList(QDir::Files), QStringList{QStringLiteral("Dbs.mdb")});
}

void TestSqliteSessions::Open_WholeFileLocked_InUseAndBeginGoesOnLater()
{
    const DatabaseFixture fixture;
    SqlSession owner;
    owner.Connect(fixture.Source());
    owner.ReadText(QStringLiteral("PRAGMA locking_mode = EXCLUSIVE"), [](const QSqlQuery&) {});
    owner.Begin();
    HvxDatabaseComponent component(fixture.Source());
    component.SetBusyTimeout(0);

    QCOMPARE(DatabaseFixture::ErrorOf([&] { component.OpenDatabase(); }), DatabaseErrorNumber::InUse);
    QCOMPARE(DatabaseFixture::ErrorOf([&] { BeginAndCommit(component); }), DatabaseErrorNumber::InUse);
    qint32 locked = 7;
    component.IsCAMlocked(locked);
    QCOMPARE(locked, 0);
    owner.Disconnect();

    BeginAndCommit(component);

    QString list;
    component.GetConTypeList(list);
    QVERIFY(!list.isEmpty());
}

void TestSqliteSessions::Source_WithSpecialCharacters_Opens_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("blank") << QStringLiteral("my data.mdb");
    QTest::newRow("question mark") << QStringLiteral("what?mode=ro.mdb");
    QTest::newRow("number sign") << QStringLiteral("a#b.mdb");
    QTest::newRow("per cent") << QStringLiteral("50%20.mdb");
    QTest::newRow("letters of other scripts") << QStringLiteral("Verbindungen-Übersicht-узел.mdb");
}

void TestSqliteSessions::Source_WithSpecialCharacters_Opens()
{
    QFETCH(QString, name);
    const QTemporaryDir folder;
    const QString source = folder.filePath(name);
    CreateHvxDatabase(source, DatabaseFixture::BuiltInCatalogue(), false);
    QVERIFY(QFile::exists(source));

    HvxDatabaseComponent component(source);
    component.OpenDatabase();

    qint32 count = 7;
    component.GetNodeCount(count);
    QCOMPARE(count, 0);
}

void TestSqliteSessions::Begin_WhileOtherWrites_InUse()
{
    const DatabaseFixture fixture;
    const auto first = fixture.OpenComponent();
    const auto second = fixture.OpenComponent();
    Begin(*first);

    qint32 started = 7;
    QCOMPARE(DatabaseFixture::ErrorOf([&] { second->BeginTransaction(started); }),
             DatabaseErrorNumber::InUse);
    QCOMPARE(started, 7);
}

void TestSqliteSessions::Begin_AfterOtherCommitted_Works()
{
    const DatabaseFixture fixture;
    const auto first = fixture.OpenComponent();
    const auto second = fixture.OpenComponent();
    Begin(*first);
    QCOMPARE(DatabaseFixture::ErrorOf([&] { Begin(*second); }), DatabaseErrorNumber::InUse);
    first->SaveParent(QStringLiteral("Delta"), QStringLiteral("WP=LAN"));
    Commit(*first);

    Begin(*second);

    QVERIFY(HasConnection(*second, QStringLiteral("Delta")));
}

void TestSqliteSessions::EngineUndidTransaction_LaterWrites_AreRefusedUntilRollback()
{
    const DatabaseFixture fixture;
    HvxStore store;
    store.Open(fixture.Source());
    store.Begin();
    store.Begin();
    // As the engine does by itself when the disk is full.
    QVERIFY(DatabaseFixture::ErrorOf([&] {
                store.Session().RunText(QStringLiteral(
                    "INSERT OR ROLLBACK INTO connection (name, name_key) VALUES ('A', 'alpha')"));
            }) != 0);
    store.Rollback();

    QCOMPARE(DatabaseFixture::ErrorOf([&] { RecordWriter(store).StoreUsersText(Alpha, Alpha, Alpha); }),
             EngineFailure);
    QCOMPARE(DatabaseFixture::ErrorOf([&] { store.Commit(); }), EngineFailure);
    store.Rollback();

    QCOMPARE(fixture.RunSql(QStringLiteral("SELECT count(*) FROM users_text")).toInt(), 0);
    RecordWriter(store).StoreUsersText(Alpha, Alpha, Alpha);
    QCOMPARE(fixture.RunSql(QStringLiteral("SELECT count(*) FROM users_text")).toInt(), 1);
}

void TestSqliteSessions::EngineWithoutDataVersion_AsksAtEachBegin()
{
    const DatabaseFixture fixture;
    HvxStore store;
    store.Open(fixture.Source());
    auto engine = std::make_unique<BlindEngine>();
    BlindEngine& opener = *engine;
    store.Session().Connect(std::move(engine),
                            [&](QSqlDatabase& database) { opener.Connect(database, fixture.Source(), 0); });
    store.Begin();
    store.Commit();
    fixture.RunSql(QStringLiteral("INSERT INTO cam_lock VALUES (1, 'token', 'anna', 'elsewhere', 1, 0)"));

    QCOMPARE(DatabaseFixture::ErrorOf([&] { store.Begin(); }), DatabaseErrorNumber::InUse);

    fixture.RunSql(QStringLiteral("DELETE FROM cam_lock"));
    store.Begin();
    store.Commit();
}

void TestSqliteSessions::OtherProcess_HoldsTransaction_InUseUntilItEnds()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    QProcess holder;
    holder.start(QStringLiteral(HOLD_TRANSACTION_PROGRAM), {fixture.Source()});
    QVERIFY(holder.waitForStarted());
    QVERIFY(holder.waitForReadyRead(30'000));
    QCOMPARE(holder.readAllStandardOutput().trimmed(), QByteArray("held"));

    QCOMPARE(BeginNumber(*component), DatabaseErrorNumber::InUse);

    // It dies without a commit: what it wrote is gone, and nothing is left locked.
    holder.kill();
    QVERIFY(holder.waitForFinished(30'000));
    QCOMPARE(BeginNumber(*component), 0U);
    QString answer;
    component->ParentNameExist(QStringLiteral("Held"), answer);
    QCOMPARE(answer, QStringLiteral("FALSE"));
}

void TestSqliteSessions::OtherProcess_HoldsItAlone_NoRightsUntilItEnds()
{
    const DatabaseFixture fixture;
    QProcess holder;
    holder.start(QStringLiteral(HOLD_TRANSACTION_PROGRAM), {fixture.Source(), QStringLiteral("alone")});
    QVERIFY(holder.waitForReadyRead(30'000));
    QCOMPARE(holder.readAllStandardOutput().trimmed(), QByteArray("held"));
    HvxDatabaseComponent component(fixture.Source());
    component.SetBusyTimeout(0);

    QCOMPARE(DatabaseFixture::ErrorOf([&] { component.OpenDatabase(); }), DatabaseErrorNumber::InUse);
    QCOMPARE(LockedAnswer(component), 0);
    qint32 scan = 7;
    qint32 edit = 7;
    component.GetSecRights(scan, edit);
    QCOMPARE(scan, 0);
    QCOMPARE(edit, 0);

    holder.kill();
    QVERIFY(holder.waitForFinished(30'000));
    QCOMPARE(BeginNumber(component), 0U);
    component.GetSecRights(scan, edit);
    QCOMPARE(scan, 1);
    QCOMPARE(edit, 1);
}

void TestSqliteSessions::Lists_BuiltInSqlAlone_AreTheSame()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    component->SaveNode(QStringLiteral("Ölfeld \U0001F600"), QString(), QString(), QStringLiteral("Gamma"),
                        QString());
    component->SaveNode(QStringLiteral("a\tb\u0085c\u00a0d"), QString(), QString(), QStringLiteral("Gamma"),
                        QString());
    HvxStore store;
    store.Open(fixture.Source());
    auto engine = std::make_unique<SqlOnlyEngine>();
    SqlOnlyEngine& opener = *engine;
    store.Session().Connect(std::move(engine),
                            [&](QSqlDatabase& database) { opener.Connect(database, fixture.Source(), 0); });
    const RecordLists lists(store);

    for (const qint32 start : {0, -2, 4, -100, 100}) {
        QString list;
        qint32 position = start;
        qint32 otherPosition = start;
        component->QueryNodesWithIdEx(QString(), QString(), list, position);
        QCOMPARE(lists.Nodes(QString(), QString(), otherPosition), list);
        QCOMPARE(otherPosition, position);
    }
    QCOMPARE(lists.NodesOfConnection(QStringLiteral("Gamma")),
             QStringLiteral("Ölfeld \U0001F600\t7\ta b c\u00a0d\t8"));
    QCOMPARE(lists.Connections(QString()), QStringLiteral("Alpha\t1\tBeta\t2\tGamma\t3"));
}

void TestSqliteSessions::Counts_UseIndexes_data()
{
    QTest::addColumn<int>("statement");
    QTest::newRow("all nodes") << static_cast<int>(HvxStatement::NodeCount);
    QTest::newRow("of a connection") << static_cast<int>(HvxStatement::NodeCountOfConnection);
}

void TestSqliteSessions::Counts_UseIndexes()
{
    QFETCH(int, statement);
    const DatabaseFixture fixture;
    QString text = StandardStatementText(static_cast<HvxStatement>(statement));
    text.replace(QStringLiteral("?"), QStringLiteral("'alpha'"));

    QString plan;
    SqlSession session;
    session.Connect(fixture.Source());
    session.ReadText(QStringLiteral("EXPLAIN QUERY PLAN ") + text,
                     [&plan](const QSqlQuery& row) { plan += row.value(3).toString() + u'\n'; });

    QVERIFY2(plan.contains(QStringLiteral("USING COVERING INDEX node_connection")), qPrintable(plan));
}

void TestSqliteSessions::PlainSql_WithRecursiveTriggers_WritesTheSame()
{
    const DatabaseFixture fixture;
    SqlSession session;
    session.Connect(fixture.Source());
    session.ReadText(QStringLiteral("PRAGMA recursive_triggers = ON"), [](const QSqlQuery&) {});

    session.RunText(QStringLiteral("INSERT INTO node (name, connection_key) VALUES ('West', 1)"));
    session.RunText(QStringLiteral("UPDATE node SET name = 'Wild West' WHERE name = 'West'"));

    QCOMPARE(fixture.Rows(QStringLiteral("SELECT record_type || ' ' || text1 || ' ' || number FROM journal"
                                         " WHERE id > 7 ORDER BY id")),
             (QStringList{QStringLiteral("30 West 7"), QStringLiteral("20 West 7"),
                          QStringLiteral("40 Wild West 8")}));
}

void TestSqliteSessions::PlainSql_IdsUsedUp_Refused()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    fixture.RunSql(QStringLiteral("UPDATE record_sequence SET last_id = 2147483646"));
    component->SaveParent(QStringLiteral("Last"), QString());

    QCOMPARE(DatabaseFixture::ErrorOf([&] { component->SaveParent(QStringLiteral("One more"), QString()); }),
             DatabaseErrorNumber::Refused);

    QString id;
    component->GetParentID(QStringLiteral("Last"), id);
    QCOMPARE(id, QStringLiteral("2147483647"));
}

void TestSqliteSessions::Clear_NothingToRemove_WritesNothing()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    const auto other = fixture.OpenComponent();
    qint32 started = 0;
    other->BeginTransaction(started);

    // Any write would find the database in use.
    component->JournalClearByRecordLimit(12'000, 2000);
    component->JournalClearByRecordLimit(3, 6);
    component->JournalClearByDayLimit(2, 1);

    QCOMPARE(DatabaseFixture::ErrorOf([&] { component->JournalClearByRecordLimit(3, 2); }),
             DatabaseErrorNumber::InUse);
}

void TestSqliteSessions::Lock_StaleWhileSomeoneWrites_IsNotDead()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    const auto administration = HvxAdministration::Open(fixture.Source());
    const auto lock = administration->LockForMaintenance();
    fixture.RunSql(QStringLiteral("UPDATE cam_lock SET heartbeat = 0"));
    auto writer = administration->BeginBulkWrite();
    QCOMPARE(LockedAnswer(*component), 0);

    writer.reset();

    QVERIFY(LockedAnswer(*component) != 0);
}

void TestSqliteSessions::Begin_FileMovedAway_SourceMissingUntilItIsBack()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    MoveDatabase(fixture.Source(), fixture.Source() + QStringLiteral(".away"));

    QCOMPARE(BeginNumber(*component), DatabaseErrorNumber::SourceMissing);
    QCOMPARE(BeginNumber(*component), DatabaseErrorNumber::SourceMissing);
    QVERIFY(!QFile::exists(fixture.Source()));
    MoveDatabase(fixture.Source() + QStringLiteral(".away"), fixture.Source());

    QCOMPARE(BeginNumber(*component), 0U);
    component->SaveParent(QStringLiteral("Delta"), QString());
    QVERIFY(HasConnection(*fixture.OpenComponent(), QStringLiteral("Delta")));
}

void TestSqliteSessions::Begin_FileReplaced_ReadsTheOther()
{
    const DatabaseFixture fixture;
    const DatabaseFixture other;
    other.OpenComponent()->SaveParent(QStringLiteral("Delta"), QString());
    const auto component = fixture.OpenComponent();
    MoveDatabase(fixture.Source(), fixture.Source() + QStringLiteral(".away"));
    MoveDatabase(other.Source(), fixture.Source());

    QCOMPARE(BeginNumber(*component), 0U);

    QVERIFY(HasConnection(*component, QStringLiteral("Delta")));
    component->SaveParent(QStringLiteral("Omega"), QString());
    QVERIFY(HasConnection(*fixture.OpenComponent(), QStringLiteral("Omega")));
}

void TestSqliteSessions::FileMovedAway_InTransaction_NothingReachesTheOther()
{
    const DatabaseFixture fixture;
    const DatabaseFixture other;
    const auto component = fixture.OpenComponent();
    Begin(*component);
    component->SaveParent(QStringLiteral("Delta"), QString());
    MoveDatabase(fixture.Source(), fixture.Source() + QStringLiteral(".away"));
    MoveDatabase(other.Source(), fixture.Source());

    component->RollbackTransaction();

    QCOMPARE(BeginNumber(*component), 0U);
    QVERIFY(!HasConnection(*component, QStringLiteral("Delta")));
    QCOMPARE(fixture.RunSql(QStringLiteral("SELECT count(*) FROM connection")).toInt(), 3);
}

QTEST_GUILESS_MAIN(TestSqliteSessions)
#include "TestSqliteSessions.moc"
