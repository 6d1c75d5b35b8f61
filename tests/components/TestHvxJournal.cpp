#include "tests/components/DatabaseFixture.h"

#include <QDateTime>
#include <QTest>

/// The Journal: what each change writes, whoever makes it, and how the Journal is cleaned.
class TestHvxJournal : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void Record1_IsVersionText();
    void Record_Missing_AnswersTypeZero();
    void LastId_FollowsChanges();
    void ChangesAfter_GivesIdsAscending_data();
    void ChangesAfter_GivesIdsAscending();
    void SaveParent_WritesNewConnection();
    void SaveNode_WritesNewNode();
    void ReplaceParentTarget_WritesChangedConnection();
    void ReplaceParentName_WritesOldAndNewName();
    void ReplaceNodeName_WritesOldAndNewName();
    void ReplaceNodeTarget_WritesChangedNode();
    void UpdateNodeNmaidx_WritesChangedNode();
    void DeleteNode_WritesDeletedNode();
    void DeleteParent_WritesNodesFirst();
    void DeleteParentNodes_WritesNodes();
    void RolledBackChange_WritesNothing();

    void PlainSql_InsertWithoutIdAndKey_IsCompleted();
    void PlainSql_InsertManyRows_EachGetsItsId();
    void PlainSql_InsertWithForeignId_GetsNextId();
    void PlainSql_Update_IsJournaled();
    void PlainSql_UpdateOfManyRows_IsJournaled();
    void PlainSql_Rename_MovesKey();
    void PlainSql_DeleteConnection_TakesNodes();
    void PlainSql_TakenName_Refused_data();
    void PlainSql_TakenName_Refused();
    void PlainSql_EmptyName_Refused();

    void ClearByRecordLimit_Cases_data();
    void ClearByRecordLimit_Cases();
    void ClearByDayLimit_Cases_data();
    void ClearByDayLimit_Cases();
    void Clear_FirstRemoval_MarksRecord1();
    void Clear_InsideTransaction_RollsBackWithIt();

private:
    /// Records from `firstId` on as "type text1 number" each.
    [[nodiscard]] QStringList RecordsFrom(qint32 firstId);
    [[nodiscard]] QString JournalIds() const;
    void AgeRecords(const QList<int>& days) const;

    std::unique_ptr<DatabaseFixture> m_fixture;
    std::unique_ptr<HvxDatabaseComponent> m_component;
};

namespace {

const QString Alpha = QStringLiteral("Alpha");
const QString Gamma = QStringLiteral("Gamma");
const QString North = QStringLiteral("North");

/// Record 1 and one for each of the six records of the fixture stand in the Journal at the start.
constexpr qint32 FirstNew = 8;

} // namespace

void TestHvxJournal::init()
{
    m_fixture = std::make_unique<DatabaseFixture>();
    m_component = m_fixture->OpenComponent();
}

void TestHvxJournal::cleanup()
{
    m_component.reset();
    m_fixture.reset();
}

QStringList TestHvxJournal::RecordsFrom(qint32 firstId)
{
    QString list;
    m_component->GetJournalChangesAfterId(firstId - 1, list);
    QStringList records;
    for (const QString& id : list.split(u'\t', Qt::SkipEmptyParts)) {
        qint32 recordType = 0;
        qint32 number = 0;
        QString text1;
        QString text2;
        m_component->GetJournalRecordById(id.toInt(), recordType, text1, number, text2);
        records << QStringLiteral("%1 %2 %3").arg(recordType).arg(text1).arg(number);
    }
    return records;
}

QString TestHvxJournal::JournalIds() const
{
    return m_fixture->Rows(QStringLiteral("SELECT id FROM journal ORDER BY id")).join(u',');
}

/// Gives records 2, 3, ... their age.
void TestHvxJournal::AgeRecords(const QList<int>& days) const
{
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    for (int i = 0; i < days.size(); ++i) {
        m_fixture->RunSql(QStringLiteral("UPDATE journal SET changed = %1 WHERE id = %2")
                              .arg(now - days[i] * qint64(86'400) - 60)
                              .arg(i + 2));
    }
}

void TestHvxJournal::Record1_IsVersionText()
{
    qint32 recordType = 0;
    qint32 number = 7;
    QString text1;
    QString text2 = QStringLiteral("a");

    m_component->GetJournalRecordById(1, recordType, text1, number, text2);

    QVERIFY(recordType != 0);
    QVERIFY(!QList<qint32>({20, 21, 30, 31, 40, 41}).contains(recordType));
    QCOMPARE(text1, QStringLiteral("HVX R4.2"));
    QCOMPARE(number, 0);
    QCOMPARE(text2, QString());
}

void TestHvxJournal::Record_Missing_AnswersTypeZero()
{
    qint32 recordType = 7;
    qint32 number = 7;
    QString text1 = QStringLiteral("a");
    QString text2 = text1;

    m_component->GetJournalRecordById(99, recordType, text1, number, text2);

    QCOMPARE(recordType, 0);
    QCOMPARE(number, 0);
    QCOMPARE(text1 + text2, QString());
}

void TestHvxJournal::LastId_FollowsChanges()
{
    qint32 id = 0;
    m_component->GetJournalLastId(id);
    QCOMPARE(id, 7);

    m_component->SaveParent(QStringLiteral("Delta"), QString());

    m_component->GetJournalLastId(id);
    QCOMPARE(id, 8);
}

void TestHvxJournal::ChangesAfter_GivesIdsAscending_data()
{
    QTest::addColumn<qint32>("after");
    QTest::addColumn<QString>("expected");
    QTest::newRow("middle") << 4 << QStringLiteral("5\t6\t7");
    QTest::newRow("last but one") << 6 << QStringLiteral("7");
    QTest::newRow("last") << 7 << QString();
    QTest::newRow("beyond") << 700 << QString();
    QTest::newRow("all") << 0 << QStringLiteral("1\t2\t3\t4\t5\t6\t7");
}

void TestHvxJournal::ChangesAfter_GivesIdsAscending()
{
    QFETCH(qint32, after);

    QString list = QStringLiteral("a");
    m_component->GetJournalChangesAfterId(after, list);

    QTEST(list, "expected");
}

void TestHvxJournal::SaveParent_WritesNewConnection()
{
    m_component->SaveParent(QStringLiteral("Delta"), QString());

    QCOMPARE(RecordsFrom(FirstNew), QStringList{QStringLiteral("31 Delta 7")});
}

void TestHvxJournal::SaveNode_WritesNewNode()
{
    m_component->SaveNode(QStringLiteral("West"), QString(), QString(), Alpha, QString());

    QCOMPARE(RecordsFrom(FirstNew), QStringList{QStringLiteral("30 West 7")});
}

void TestHvxJournal::ReplaceParentTarget_WritesChangedConnection()
{
    m_component->ReplaceParentTarget(Alpha, QString());

    QCOMPARE(RecordsFrom(FirstNew), QStringList{QStringLiteral("41 Alpha 7")});
}

void TestHvxJournal::ReplaceParentName_WritesOldAndNewName()
{
    m_component->ReplaceParentName(Alpha, QStringLiteral("Omega"));

    QCOMPARE(RecordsFrom(FirstNew),
             (QStringList{QStringLiteral("21 Alpha 1"), QStringLiteral("41 Omega 7")}));
}

void TestHvxJournal::ReplaceNodeName_WritesOldAndNewName()
{
    m_component->ReplaceNodeName(North, QStringLiteral("Überall"));

    QCOMPARE(RecordsFrom(FirstNew),
             (QStringList{QStringLiteral("20 North 4"), QStringLiteral("40 Überall 7")}));
}

void TestHvxJournal::ReplaceNodeTarget_WritesChangedNode()
{
    m_component->ReplaceNodeTarget(North, Gamma, QString());

    QCOMPARE(RecordsFrom(FirstNew), QStringList{QStringLiteral("40 North 7")});
}

void TestHvxJournal::UpdateNodeNmaidx_WritesChangedNode()
{
    m_component->UpdateNodeNmaidx(QStringLiteral("South"), QStringLiteral("1"));

    QCOMPARE(RecordsFrom(FirstNew), QStringList{QStringLiteral("40 South 7")});
}

void TestHvxJournal::DeleteNode_WritesDeletedNode()
{
    m_component->DeleteNode(North);
    m_component->DeleteNodeFromBrowser(QStringLiteral("South"));

    QCOMPARE(RecordsFrom(FirstNew),
             (QStringList{QStringLiteral("20 North 4"), QStringLiteral("20 South 5")}));
}

void TestHvxJournal::DeleteParent_WritesNodesFirst()
{
    m_component->DeleteParent(Alpha, true);

    QCOMPARE(RecordsFrom(FirstNew), (QStringList{QStringLiteral("20 North 4"), QStringLiteral("20 South 5"),
                                                 QStringLiteral("21 Alpha 1")}));
}

void TestHvxJournal::DeleteParentNodes_WritesNodes()
{
    m_component->DeleteParentNodes(Alpha);

    QCOMPARE(RecordsFrom(FirstNew),
             (QStringList{QStringLiteral("20 North 4"), QStringLiteral("20 South 5")}));
}

void TestHvxJournal::RolledBackChange_WritesNothing()
{
    qint32 started = 0;
    m_component->BeginTransaction(started);
    m_component->SaveParent(QStringLiteral("Delta"), QString());
    m_component->RollbackTransaction();

    QCOMPARE(RecordsFrom(FirstNew), QStringList());
}

void TestHvxJournal::PlainSql_InsertWithoutIdAndKey_IsCompleted()
{
    m_fixture->RunSql(QStringLiteral("INSERT INTO connection (name, target) VALUES (' Delta ', 'WP=LAN')"));
    m_fixture->RunSql(QStringLiteral("INSERT INTO node (name, connection_key) SELECT 'West', row_key"
                                     " FROM connection WHERE name_key = 'delta'"));

    QCOMPARE(RecordsFrom(FirstNew),
             (QStringList{QStringLiteral("31  Delta  7"), QStringLiteral("30 West 8")}));
    QString id;
    m_component->GetParentID(QStringLiteral("delta"), id);
    QCOMPARE(id, QStringLiteral("7"));
    m_component->GetNodeID(QStringLiteral("WEST"), id);
    QCOMPARE(id, QStringLiteral("8"));
}

void TestHvxJournal::PlainSql_InsertManyRows_EachGetsItsId()
{
    m_fixture->RunSql(
        QStringLiteral("INSERT INTO node (name, connection_key) VALUES ('A', 1), ('B', 1), ('C', 2)"));

    QCOMPARE(RecordsFrom(FirstNew),
             (QStringList{QStringLiteral("30 A 7"), QStringLiteral("30 B 8"), QStringLiteral("30 C 9")}));
}

void TestHvxJournal::PlainSql_InsertWithForeignId_GetsNextId()
{
    m_fixture->RunSql(QStringLiteral("INSERT INTO node (id, name, connection_key) VALUES (5000, 'A', 1)"));
    m_fixture->RunSql(QStringLiteral("INSERT INTO connection (id, name) VALUES (9000, 'B')"));

    QCOMPARE(RecordsFrom(FirstNew), (QStringList{QStringLiteral("30 A 7"), QStringLiteral("31 B 8")}));
    QCOMPARE(m_fixture->RunSql(QStringLiteral("SELECT id FROM node WHERE name = 'A'")).toInt(), 7);
    QCOMPARE(m_fixture->RunSql(QStringLiteral("SELECT id FROM connection WHERE name = 'B'")).toInt(), 8);
}

void TestHvxJournal::PlainSql_Update_IsJournaled()
{
    m_fixture->RunSql(QStringLiteral("UPDATE node SET command_tail = '-y' WHERE name = 'North'"));
    m_fixture->RunSql(QStringLiteral("UPDATE connection SET target = 'WP=LAN' WHERE name = 'Alpha'"));

    QCOMPARE(RecordsFrom(FirstNew),
             (QStringList{QStringLiteral("40 North 7"), QStringLiteral("41 Alpha 8")}));
    QString id;
    m_component->GetNodeID(North, id);
    QCOMPARE(id, QStringLiteral("7"));
}

void TestHvxJournal::PlainSql_UpdateOfManyRows_IsJournaled()
{
    m_fixture->RunSql(QStringLiteral("UPDATE node SET target = target || ',X=1'"));

    const QStringList records = RecordsFrom(FirstNew);
    QCOMPARE(records.size(), 3);
    QCOMPARE(m_fixture->RunSql(QStringLiteral("SELECT count(*) FROM node WHERE id BETWEEN 7 AND 9")).toInt(),
             3);
}

void TestHvxJournal::PlainSql_Rename_MovesKey()
{
    m_fixture->RunSql(QStringLiteral("UPDATE node SET name = 'Far NORTH' WHERE name = 'North'"));
    m_fixture->RunSql(QStringLiteral("UPDATE connection SET name = 'Omega' WHERE name = 'Alpha'"));
    m_fixture->RunSql(QStringLiteral("UPDATE connection SET name = 'OMEGA' WHERE name = 'Omega'"));

    QCOMPARE(RecordsFrom(FirstNew),
             (QStringList{QStringLiteral("20 North 4"), QStringLiteral("40 Far NORTH 7"),
                          QStringLiteral("21 Alpha 1"), QStringLiteral("41 Omega 8"),
                          QStringLiteral("21 Omega 8"), QStringLiteral("41 OMEGA 9")}));
    QString conName;
    QString target;
    m_component->GetNode(QStringLiteral("far north"), conName, target);
    QCOMPARE(conName, QStringLiteral("OMEGA"));
}

void TestHvxJournal::PlainSql_DeleteConnection_TakesNodes()
{
    m_fixture->RunSql(QStringLiteral("DELETE FROM connection WHERE name = 'Alpha'"));

    QCOMPARE(RecordsFrom(FirstNew), (QStringList{QStringLiteral("20 North 4"), QStringLiteral("20 South 5"),
                                                 QStringLiteral("21 Alpha 1")}));
}

void TestHvxJournal::PlainSql_TakenName_Refused_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("connection like connection")
        << QStringLiteral("INSERT INTO connection (name) VALUES (' ALPHA')");
    QTest::newRow("connection like node")
        << QStringLiteral("INSERT INTO connection (name) VALUES ('north ')");
    QTest::newRow("node like node") << QStringLiteral(
        "INSERT INTO node (name, connection_key) VALUES ('EAST', 1)");
    QTest::newRow("node like connection")
        << QStringLiteral("INSERT INTO node (name, connection_key) VALUES ('beta', 1)");
    QTest::newRow("node with key like connection")
        << QStringLiteral("INSERT INTO node (name, name_key, connection_key) VALUES ('Beta', 'beta', 1)");
    QTest::newRow("connection with key like node")
        << QStringLiteral("INSERT INTO connection (name, name_key) VALUES ('East', 'east')");
    QTest::newRow("node renamed like connection")
        << QStringLiteral("UPDATE node SET name = 'gamma' WHERE name = 'North'");
    QTest::newRow("connection renamed like node")
        << QStringLiteral("UPDATE connection SET name = 'SOUTH' WHERE name = 'Alpha'");
    QTest::newRow("connection renamed like connection")
        << QStringLiteral("UPDATE connection SET name = 'BETA' WHERE name = 'Alpha'");
}

void TestHvxJournal::PlainSql_TakenName_Refused()
{
    QFETCH(QString, text);

    QVERIFY(DatabaseFixture::ErrorOf([&] { m_fixture->RunSql(text); }) != 0);

    QCOMPARE(RecordsFrom(FirstNew), QStringList());
}

void TestHvxJournal::PlainSql_EmptyName_Refused()
{
    QVERIFY(DatabaseFixture::ErrorOf([&] {
                m_fixture->RunSql(QStringLiteral("INSERT INTO connection (name) VALUES (' ')"));
            }) != 0);
}

void TestHvxJournal::ClearByRecordLimit_Cases_data()
{
    QTest::addColumn<qint32>("limit");
    QTest::addColumn<qint32>("keep");
    QTest::addColumn<QString>("ids");
    const QString all = QStringLiteral("1,2,3,4,5,6,7");
    QTest::newRow("below the limit") << 7 << 2 << all;
    QTest::newRow("at the limit") << 6 << 2 << all;
    QTest::newRow("over the limit") << 5 << 2 << QStringLiteral("1,6,7");
    QTest::newRow("keep none keeps the newest") << 5 << 0 << QStringLiteral("1,7");
    QTest::newRow("keep more than there are") << 5 << 10 << all;
    QTest::newRow("off") << 0 << 2 << all;
    QTest::newRow("negative") << -1 << 2 << all;
}

void TestHvxJournal::ClearByRecordLimit_Cases()
{
    QFETCH(qint32, limit);
    QFETCH(qint32, keep);

    m_component->JournalClearByRecordLimit(limit, keep);

    QTEST(JournalIds(), "ids");
}

void TestHvxJournal::ClearByDayLimit_Cases_data()
{
    QTest::addColumn<QList<int>>("ages");
    QTest::addColumn<qint32>("limit");
    QTest::addColumn<qint32>("keep");
    QTest::addColumn<QString>("ids");
    const QString all = QStringLiteral("1,2,3,4,5,6,7");
    QTest::newRow("oldest too young") << QList<int>{1, 1, 1, 0, 0, 0} << 2 << 1 << all;
    QTest::newRow("oldest too old") << QList<int>{2, 1, 1, 0, 0, 0} << 2 << 1 << QStringLiteral("1,5,6,7");
    QTest::newRow("all too old keeps the newest")
        << QList<int>{9, 9, 9, 9, 9, 9} << 2 << 1 << QStringLiteral("1,7");
    QTest::newRow("keep longer than the limit") << QList<int>{4, 3, 0, 0, 0, 0} << 2 << 5 << all;
    QTest::newRow("off") << QList<int>{9, 9, 9, 0, 0, 0} << 0 << 1 << all;
}

void TestHvxJournal::ClearByDayLimit_Cases()
{
    QFETCH(QList<int>, ages);
    QFETCH(qint32, limit);
    QFETCH(qint32, keep);
    AgeRecords(ages);

    m_component->JournalClearByDayLimit(limit, keep);

    QTEST(JournalIds(), "ids");
}

void TestHvxJournal::Clear_FirstRemoval_MarksRecord1()
{
    m_component->JournalClearByRecordLimit(5, 2);

    QCOMPARE(m_fixture->RunSql(QStringLiteral("SELECT record_type FROM journal WHERE id = 1")).toInt(), 0);
    QCOMPARE(m_fixture->RunSql(QStringLiteral("SELECT text1 FROM journal WHERE id = 1")).toString(),
             QStringLiteral("HVX R4.2"));
    qint32 id = 0;
    m_component->GetJournalLastId(id);
    QCOMPARE(id, 7);
}

void TestHvxJournal::Clear_InsideTransaction_RollsBackWithIt()
{
    qint32 started = 0;
    m_component->BeginTransaction(started);
    m_component->JournalClearByRecordLimit(5, 2);

    m_component->RollbackTransaction();

    QCOMPARE(JournalIds(), QStringLiteral("1,2,3,4,5,6,7"));
}

QTEST_GUILESS_MAIN(TestHvxJournal)
#include "TestHvxJournal.moc"
