#include "tests/components/DatabaseFixture.h"

#include <QTest>

/// Databases that have lost a part, or have one of another version: what is made anew, what is refused.
class TestHvxLostTables : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Open_NewerVersion_UpgradeFailedAndUnchanged();
    void Open_LostTable_SecondTrySucceeds_data();
    void Open_LostTable_SecondTrySucceeds();
    void Open_LostTrigger_SecondTryJournalsAgain();
    void Open_LostSequence_IdsGoOnBehindThoseInUse();
    void Open_LostJournal_NewOneTellsThatRecordsAreMissing();
    void Open_LostDefinitions_BothTriesFail_data();
    void Open_LostDefinitions_BothTriesFail();
    void Open_EmptyDefinitions_BothTriesFail();
};

namespace {

quint32 OpenNumber(const QString& source)
{
    HvxDatabaseComponent component(source);
    return DatabaseFixture::ErrorOf([&] { component.OpenDatabase(); });
}

/// All objects with their definitions, and the number of their rows as far as the tests change it.
QStringList StateOf(const DatabaseFixture& fixture)
{
    if (!DatabaseFixture::OnServer()) {
        return fixture.Rows(QStringLiteral("SELECT name || coalesce(sql, '') FROM sqlite_master UNION ALL"
                                           " SELECT name || value FROM setting"));
    }
    return fixture.Rows(
        QStringLiteral("SELECT table_name || '.' || column_name FROM information_schema.columns"
                       " WHERE table_schema = 'public' UNION ALL"
                       " SELECT trigger_name FROM information_schema.triggers UNION ALL"
                       " SELECT name || value FROM setting ORDER BY 1"));
}

/// Drops a table or sequence, and what ties others to it.
void Drop(const DatabaseFixture& fixture, const QString& name)
{
    if (!DatabaseFixture::OnServer())
        fixture.RunSql(QStringLiteral("DROP TABLE %1").arg(name));
    else if (name.endsWith(QLatin1String("_sequence")))
        fixture.RunSql(QStringLiteral("DROP SEQUENCE %1 CASCADE").arg(name));
    else
        fixture.RunSql(QStringLiteral("DROP TABLE %1 CASCADE").arg(name));
}

} // namespace

void TestHvxLostTables::Open_NewerVersion_UpgradeFailedAndUnchanged()
{
    const DatabaseFixture fixture;
    fixture.RunSql(QStringLiteral("UPDATE setting SET value = 2 WHERE name = 'schema_version'"));
    const QStringList before = StateOf(fixture);

    QCOMPARE(OpenNumber(fixture.Source()), DatabaseErrorNumber::UpgradeFailed);

    QCOMPARE(StateOf(fixture), before);
}

void TestHvxLostTables::Open_LostTable_SecondTrySucceeds_data()
{
    QTest::addColumn<QString>("table");
    for (const char* table : {"node", "manager", "users_text", "user_rights", "journal", "cam_lock",
                              "setting", "record_sequence"}) {
        // On a server its roles hold the rights.
        if (!DatabaseFixture::OnServer() || qstrcmp(table, "user_rights") != 0)
            QTest::newRow(table) << QString::fromLatin1(table);
    }
}

void TestHvxLostTables::Open_LostTable_SecondTrySucceeds()
{
    QFETCH(QString, table);
    const DatabaseFixture fixture;
    Drop(fixture, table);

    HvxDatabaseComponent component(fixture.Source());
    QCOMPARE(DatabaseFixture::ErrorOf([&] { component.OpenDatabase(); }), DatabaseErrorNumber::TablesMissing);
    component.OpenDatabase();

    QString list;
    component.QueryParentsWithID(QString(), list);
    QVERIFY(list.contains(QStringLiteral("Alpha")));
}

void TestHvxLostTables::Open_LostTrigger_SecondTryJournalsAgain()
{
    const DatabaseFixture fixture;
    fixture.RunSql(DatabaseFixture::OnServer()
                       ? QStringLiteral("DROP TRIGGER connection_insert ON connection")
                       : QStringLiteral("DROP TRIGGER connection_insert"));

    QCOMPARE(OpenNumber(fixture.Source()), DatabaseErrorNumber::TablesMissing);
    const auto component = fixture.OpenComponent();
    component->SaveParent(QStringLiteral("Delta"), QString());

    QCOMPARE(fixture.RunSql(QStringLiteral("SELECT text1 FROM journal ORDER BY id DESC")).toString(),
             QStringLiteral("Delta"));
}

void TestHvxLostTables::Open_LostSequence_IdsGoOnBehindThoseInUse()
{
    const DatabaseFixture fixture;
    if (DatabaseFixture::OnServer())
        Drop(fixture, QStringLiteral("record_sequence"));
    else
        fixture.RunSql(QStringLiteral("DELETE FROM record_sequence"));

    QCOMPARE(OpenNumber(fixture.Source()), DatabaseErrorNumber::TablesMissing);
    const auto component = fixture.OpenComponent();
    component->SaveParent(QStringLiteral("Delta"), QString());

    QString id;
    component->GetParentID(QStringLiteral("Delta"), id);
    QCOMPARE(id, QStringLiteral("7"));
}

void TestHvxLostTables::Open_LostJournal_NewOneTellsThatRecordsAreMissing()
{
    const DatabaseFixture fixture;
    Drop(fixture, QStringLiteral("journal"));

    QCOMPARE(OpenNumber(fixture.Source()), DatabaseErrorNumber::TablesMissing);
    const auto component = fixture.OpenComponent();

    qint32 recordType = 7;
    qint32 number = 7;
    QString text1;
    QString text2;
    component->GetJournalRecordById(1, recordType, text1, number, text2);
    QCOMPARE(recordType, 0);
    QCOMPARE(text1, QStringLiteral("HVX R4.2"));
}

void TestHvxLostTables::Open_LostDefinitions_BothTriesFail_data()
{
    QTest::addColumn<QString>("table");
    for (const char* table : {"con_type", "con_type_hop", "node_type", "node_type_waypoint", "waypoint",
                              "parameter", "parameter_value"})
        QTest::newRow(table) << QString::fromLatin1(table);
}

void TestHvxLostTables::Open_LostDefinitions_BothTriesFail()
{
    QFETCH(QString, table);
    const DatabaseFixture fixture;
    Drop(fixture, table);
    const QStringList before = StateOf(fixture);

    QCOMPARE(OpenNumber(fixture.Source()), DatabaseErrorNumber::TablesMissing);
    QCOMPARE(OpenNumber(fixture.Source()), DatabaseErrorNumber::TablesMissing);

    QCOMPARE(StateOf(fixture), before);
}

void TestHvxLostTables::Open_EmptyDefinitions_BothTriesFail()
{
    const DatabaseFixture fixture;
    fixture.RunSql(QStringLiteral("DELETE FROM con_type"));

    QCOMPARE(OpenNumber(fixture.Source()), DatabaseErrorNumber::TablesMissing);
    QCOMPARE(OpenNumber(fixture.Source()), DatabaseErrorNumber::TablesMissing);
}

QTEST_GUILESS_MAIN(TestHvxLostTables)
#include "TestHvxLostTables.moc"
