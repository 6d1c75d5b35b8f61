#include "tests/components/DatabaseFixture.h"
#include "tests/support/PostgresServer.h"

#include <QTest>
#include <QThread>

/// What other programs write to a server's database with plain SQL: Journal, order, ids.
class TestPostgresWriters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void TwoWriters_SecondWaits_JournalIdsCommitInOrder();
    void RolledBackWriter_LeavesAGap();
    void LargeJumpOfIds_IsFollowed();
    void InsertOnConflictUpdate_IsAChange();
    void InsertOnConflictNothing_IsNoChange();
    void InsertOnConflict_NameOfTheOtherTable_Refused();
    void Truncate_DeletesEachRecord();
    void Copy_ManyRows_AreJournaled();
    void RecordIds_UsedUp_Refused();
    void Savepoints_OfAWriter_UndoTheirRecords();
    void Names_OfOtherScripts_AreFolded();

private:
    /// Records behind the fixture's own as "id type text1 number" each.
    [[nodiscard]] QStringList NewRecords() const;
    void Run(const QString& text) const { m_server->RunSql(QStringLiteral("dbs"), text); }

    std::unique_ptr<PostgresServer> m_server;
    std::unique_ptr<HvxDatabaseComponent> m_component;
};

void TestPostgresWriters::initTestCase()
{
    m_server = std::make_unique<PostgresServer>();
    DatabaseFixture::Make(m_server->Url(QStringLiteral("original")));
}

void TestPostgresWriters::init()
{
    m_server->RunSql(QStringLiteral("postgres"), QStringLiteral("CREATE DATABASE dbs TEMPLATE original"));
    m_component = std::make_unique<HvxDatabaseComponent>(m_server->Url(QStringLiteral("dbs")));
    m_component->OpenDatabase();
}

void TestPostgresWriters::cleanup()
{
    m_component.reset();
    m_server->DropDatabase(QStringLiteral("dbs"));
}

void TestPostgresWriters::cleanupTestCase()
{
    m_server.reset();
}

QStringList TestPostgresWriters::NewRecords() const
{
    QString list;
    m_component->GetJournalChangesAfterId(7, list);
    QStringList records;
    const QStringList ids = list.split(u'\t', Qt::SkipEmptyParts);
    for (const QString& id : ids) {
        qint32 recordType = 0;
        qint32 number = 0;
        QString text1;
        QString text2;
        m_component->GetJournalRecordById(id.toInt(), recordType, text1, number, text2);
        records << QStringLiteral("%1 %2 %3 %4").arg(id).arg(recordType).arg(text1).arg(number);
    }
    return records;
}

void TestPostgresWriters::TwoWriters_SecondWaits_JournalIdsCommitInOrder()
{
    const QString source = m_server->Url(QStringLiteral("dbs"));
    const PlainSql first(source);
    first.Run(QStringLiteral("BEGIN"));
    first.Run(QStringLiteral("INSERT INTO connection (name) VALUES ('First')"));
    const std::unique_ptr<QThread> second(QThread::create([source] {
        PlainSql(source).Run(QStringLiteral("INSERT INTO connection (name) VALUES ('Second')"));
    }));
    second->start();
    const auto waits = [this] {
        return m_server->RunSql(QStringLiteral("dbs"),
                                QStringLiteral("SELECT count(*) FROM pg_locks WHERE NOT granted")) ==
               QStringLiteral("1");
    };
    QTRY_VERIFY(waits());

    // The one that waits has drawn no id: what is seen now has no gap that would be filled later.
    first.Run(QStringLiteral("INSERT INTO connection (name) VALUES ('First again')"));
    QCOMPARE(NewRecords(), QStringList());
    first.Run(QStringLiteral("COMMIT"));
    QVERIFY(second->wait(60'000));

    QCOMPARE(NewRecords(), (QStringList{QStringLiteral("8 31 First 7"), QStringLiteral("9 31 First again 8"),
                                        QStringLiteral("10 31 Second 9")}));
}

void TestPostgresWriters::RolledBackWriter_LeavesAGap()
{
    Run(QStringLiteral("BEGIN; INSERT INTO connection (name) VALUES ('A'), ('B'); ROLLBACK"));

    Run(QStringLiteral("INSERT INTO connection (name) VALUES ('C')"));

    QCOMPARE(NewRecords(), QStringList{QStringLiteral("10 31 C 9")});
    qint32 lastId = 0;
    m_component->GetJournalLastId(lastId);
    QCOMPARE(lastId, 10);
}

void TestPostgresWriters::LargeJumpOfIds_IsFollowed()
{
    Run(QStringLiteral(
        "SELECT setval('journal_sequence', 2000000000), setval('record_sequence', 1000000000)"));

    Run(QStringLiteral("INSERT INTO connection (name) VALUES ('C')"));

    QCOMPARE(NewRecords(), QStringList{QStringLiteral("2000000001 31 C 1000000001")});
}

void TestPostgresWriters::InsertOnConflictUpdate_IsAChange()
{
    Run(QStringLiteral("INSERT INTO connection (name, target) VALUES ('ALPHA', 'WP=LAN'), ('New', 'WP=LAN')"
                       " ON CONFLICT (name_key) DO UPDATE SET target = excluded.target"));

    QStringList changes;
    const QStringList records = NewRecords();
    for (const QString& record : records)
        changes << record.section(u' ', 1, 2);
    changes.sort();
    QCOMPARE(changes, (QStringList{QStringLiteral("31 New"), QStringLiteral("41 Alpha")}));
    QString target;
    m_component->GetParent(QStringLiteral("Alpha"), target);
    QCOMPARE(target, QStringLiteral("WP=LAN"));
}

void TestPostgresWriters::InsertOnConflictNothing_IsNoChange()
{
    Run(QStringLiteral("INSERT INTO connection (name, target) VALUES (' alpha', 'WP=LAN')"
                       " ON CONFLICT DO NOTHING"));

    QCOMPARE(NewRecords(), QStringList());
}

void TestPostgresWriters::InsertOnConflict_NameOfTheOtherTable_Refused()
{
    const PostgresServer::SqlResult result = m_server->TrySql(
        QStringLiteral("dbs"),
        QStringLiteral("INSERT INTO connection (name) VALUES ('NORTH') ON CONFLICT DO NOTHING"));

    QVERIFY(!result.done);
    QCOMPARE(NewRecords(), QStringList());
}

void TestPostgresWriters::Truncate_DeletesEachRecord()
{
    Run(QStringLiteral("TRUNCATE node"));

    QStringList changes;
    const QStringList records = NewRecords();
    for (const QString& record : records)
        changes << record.section(u' ', 1);
    changes.sort();
    QCOMPARE(changes, (QStringList{QStringLiteral("20 East 6"), QStringLiteral("20 North 4"),
                                   QStringLiteral("20 South 5")}));
    qint32 count = 7;
    m_component->GetNodeCount(count);
    QCOMPARE(count, 0);
    m_component->SaveNode(QStringLiteral("North"), QString(), QString(), QStringLiteral("Alpha"), QString());
}

void TestPostgresWriters::Copy_ManyRows_AreJournaled()
{
    Run(QStringLiteral("INSERT INTO node (name, connection_key) SELECT 'N' || i, 1"
                       " FROM generate_series(1, 1000) AS i"));

    const QStringList records = NewRecords();
    QCOMPARE(records.size(), 1000);
    QCOMPARE(records.first(), QStringLiteral("8 30 N1 7"));
    QCOMPARE(records.last(), QStringLiteral("1007 30 N1000 1006"));
}

void TestPostgresWriters::RecordIds_UsedUp_Refused()
{
    Run(QStringLiteral("SELECT setval('record_sequence', 2147483646)"));
    m_component->SaveParent(QStringLiteral("Last"), QString());

    QCOMPARE(
        DatabaseFixture::ErrorOf([&] { m_component->SaveParent(QStringLiteral("One more"), QString()); }),
        quint32(DatabaseErrorNumber::Refused));

    QString id;
    m_component->GetParentID(QStringLiteral("Last"), id);
    QCOMPARE(id, QStringLiteral("2147483647"));
}

void TestPostgresWriters::Savepoints_OfAWriter_UndoTheirRecords()
{
    Run(QStringLiteral("BEGIN; INSERT INTO connection (name) VALUES ('A'); SAVEPOINT s;"
                       " INSERT INTO connection (name) VALUES ('B'); ROLLBACK TO s;"
                       " INSERT INTO connection (name) VALUES ('C'); COMMIT"));

    QCOMPARE(NewRecords(), (QStringList{QStringLiteral("8 31 A 7"), QStringLiteral("10 31 C 9")}));
}

void TestPostgresWriters::Names_OfOtherScripts_AreFolded()
{
    Run(QStringLiteral("INSERT INTO connection (name) VALUES (' ŽLUŤ Север ')"));

    QString id;
    m_component->GetParentID(QStringLiteral("žluť север"), id);
    QCOMPARE(id, QStringLiteral("7"));
}

QTEST_GUILESS_MAIN(TestPostgresWriters)
#include "TestPostgresWriters.moc"
