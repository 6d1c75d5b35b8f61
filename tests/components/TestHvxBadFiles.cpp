#include "tests/components/DatabaseFixture.h"

#include <QDir>
#include <QTest>

/// Sources that are no usable database: the number of the refusal, and that nothing is changed by it.
class TestHvxBadFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Open_MissingFile_SourceMissingAndNothingCreated();
    void Open_Folder_SourceMissing();
    void Open_NoSource_SourceMissing();
    void Open_ForeignContents_UnusableAndUnchanged_data();
    void Open_ForeignContents_UnusableAndUnchanged();
    void Open_DamagedPages_Unusable();
    void Open_ReadOnlyFile_ReadOnlyAndUnchanged();
    void Open_ReadOnlyFolder_ReadOnlyAndUnchanged();
    void Open_ForeignDatabase_TablesMissingTwiceAndUnchanged();
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

QByteArray BytesOf(const QString& file)
{
    QFile read(file);
    return read.open(QIODevice::ReadOnly) ? read.readAll() : QByteArray();
}

void WriteBytes(const QString& file, const QByteArray& bytes)
{
    QFile write(file);
    QVERIFY(write.open(QIODevice::WriteOnly));
    QCOMPARE(write.write(bytes), bytes.size());
}

quint32 OpenNumber(const QString& source)
{
    HvxDatabaseComponent component(source);
    return DatabaseFixture::ErrorOf([&] { component.OpenDatabase(); });
}

} // namespace

void TestHvxBadFiles::Open_MissingFile_SourceMissingAndNothingCreated()
{
    const QTemporaryDir folder;

    QCOMPARE(OpenNumber(folder.filePath(QStringLiteral("Dbs.mdb"))), DatabaseErrorNumber::SourceMissing);
    QCOMPARE(OpenNumber(folder.filePath(QStringLiteral("none/Dbs.mdb"))), DatabaseErrorNumber::SourceMissing);

    QVERIFY(QDir(folder.path()).isEmpty());
}

void TestHvxBadFiles::Open_Folder_SourceMissing()
{
    const QTemporaryDir folder;

    QCOMPARE(OpenNumber(folder.path()), DatabaseErrorNumber::SourceMissing);
}

void TestHvxBadFiles::Open_NoSource_SourceMissing()
{
    QCOMPARE(OpenNumber(QString()), DatabaseErrorNumber::SourceMissing);
}

void TestHvxBadFiles::Open_ForeignContents_UnusableAndUnchanged_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("zeros") << QByteArray(8192, '\0');
    QTest::newRow("text") << QByteArray("kind,name,target\nconnection,Alpha,WP=LAN\n");
    QTest::newRow("header alone") << QByteArray("SQLite format 3\0", 16);
    QTest::newRow("header and rubbish") << QByteArray("SQLite format 3\0", 16) + QByteArray(8192, 'x');
}

void TestHvxBadFiles::Open_ForeignContents_UnusableAndUnchanged()
{
    QFETCH(QByteArray, bytes);
    const QTemporaryDir folder;
    const QString source = folder.filePath(QStringLiteral("Dbs.mdb"));
    WriteBytes(source, bytes);

    QCOMPARE(OpenNumber(source), DatabaseErrorNumber::UnusableFile);
    QCOMPARE(OpenNumber(source), DatabaseErrorNumber::UnusableFile);

    QCOMPARE(BytesOf(source), bytes);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{QStringLiteral("Dbs.mdb")});
}

void TestHvxBadFiles::Open_DamagedPages_Unusable()
{
    const DatabaseFixture fixture;
    QByteArray bytes = BytesOf(fixture.Source());
    bytes.replace(100, bytes.size() - 100, QByteArray(bytes.size() - 100, '\x5a'));
    WriteBytes(fixture.Source(), bytes);

    QCOMPARE(OpenNumber(fixture.Source()), DatabaseErrorNumber::UnusableFile);

    QCOMPARE(BytesOf(fixture.Source()), bytes);
}

void TestHvxBadFiles::Open_ReadOnlyFile_ReadOnlyAndUnchanged()
{
    const DatabaseFixture fixture;
    const QByteArray before = BytesOf(fixture.Source());
    QVERIFY(QFile::setPermissions(fixture.Source(), QFile::ReadOwner | QFile::ReadGroup));

    QCOMPARE(OpenNumber(fixture.Source()), DatabaseErrorNumber::ReadOnly);

    QCOMPARE(BytesOf(fixture.Source()), before);
}

void TestHvxBadFiles::Open_ReadOnlyFolder_ReadOnlyAndUnchanged()
{
    const DatabaseFixture fixture;
    const QByteArray before = BytesOf(fixture.Source());
    QVERIFY(QFile::setPermissions(fixture.Folder(), QFile::ReadOwner | QFile::ExeOwner));

    const quint32 number = OpenNumber(fixture.Source());

    QVERIFY(QFile::setPermissions(fixture.Folder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QCOMPARE(number, DatabaseErrorNumber::ReadOnly);
    QCOMPARE(BytesOf(fixture.Source()), before);
}

void TestHvxBadFiles::Open_ForeignDatabase_TablesMissingTwiceAndUnchanged()
{
    const QTemporaryDir folder;
    const QString source = folder.filePath(QStringLiteral("Dbs.mdb"));
    DatabaseFixture::RunSqlOn(source, QStringLiteral("CREATE TABLE recipe (title TEXT)"));
    const QByteArray before = BytesOf(source);

    QCOMPARE(OpenNumber(source), DatabaseErrorNumber::TablesMissing);
    QCOMPARE(OpenNumber(source), DatabaseErrorNumber::TablesMissing);

    QCOMPARE(BytesOf(source), before);
}

void TestHvxBadFiles::Open_NewerVersion_UpgradeFailedAndUnchanged()
{
    const DatabaseFixture fixture;
    fixture.RunSql(QStringLiteral("UPDATE setting SET value = 2 WHERE name = 'schema_version'"));
    const QByteArray before = BytesOf(fixture.Source());

    QCOMPARE(OpenNumber(fixture.Source()), DatabaseErrorNumber::UpgradeFailed);

    QCOMPARE(BytesOf(fixture.Source()), before);
}

void TestHvxBadFiles::Open_LostTable_SecondTrySucceeds_data()
{
    QTest::addColumn<QString>("table");
    for (const char* table : {"node", "manager", "users_text", "user_rights", "journal", "cam_lock",
                              "setting", "record_sequence"})
        QTest::newRow(table) << QString::fromLatin1(table);
}

void TestHvxBadFiles::Open_LostTable_SecondTrySucceeds()
{
    QFETCH(QString, table);
    const DatabaseFixture fixture;
    fixture.RunSql(QStringLiteral("DROP TABLE %1").arg(table));

    HvxDatabaseComponent component(fixture.Source());
    QCOMPARE(DatabaseFixture::ErrorOf([&] { component.OpenDatabase(); }), DatabaseErrorNumber::TablesMissing);
    component.OpenDatabase();

    QString list;
    component.QueryParentsWithID(QString(), list);
    QVERIFY(list.contains(QStringLiteral("Alpha")));
}

void TestHvxBadFiles::Open_LostTrigger_SecondTryJournalsAgain()
{
    const DatabaseFixture fixture;
    fixture.RunSql(QStringLiteral("DROP TRIGGER connection_insert"));

    QCOMPARE(OpenNumber(fixture.Source()), DatabaseErrorNumber::TablesMissing);
    const auto component = fixture.OpenComponent();
    component->SaveParent(QStringLiteral("Delta"), QString());

    QCOMPARE(fixture.RunSql(QStringLiteral("SELECT text1 FROM journal ORDER BY id DESC")).toString(),
             QStringLiteral("Delta"));
}

void TestHvxBadFiles::Open_LostSequence_IdsGoOnBehindThoseInUse()
{
    const DatabaseFixture fixture;
    fixture.RunSql(QStringLiteral("DELETE FROM record_sequence"));

    QCOMPARE(OpenNumber(fixture.Source()), DatabaseErrorNumber::TablesMissing);
    const auto component = fixture.OpenComponent();
    component->SaveParent(QStringLiteral("Delta"), QString());

    QString id;
    component->GetParentID(QStringLiteral("Delta"), id);
    QCOMPARE(id, QStringLiteral("7"));
}

void TestHvxBadFiles::Open_LostJournal_NewOneTellsThatRecordsAreMissing()
{
    const DatabaseFixture fixture;
    fixture.RunSql(QStringLiteral("DROP TABLE journal"));

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

void TestHvxBadFiles::Open_LostDefinitions_BothTriesFail_data()
{
    QTest::addColumn<QString>("table");
    for (const char* table : {"con_type", "con_type_hop", "node_type", "node_type_waypoint", "waypoint",
                              "parameter", "parameter_value"})
        QTest::newRow(table) << QString::fromLatin1(table);
}

void TestHvxBadFiles::Open_LostDefinitions_BothTriesFail()
{
    QFETCH(QString, table);
    const DatabaseFixture fixture;
    fixture.RunSql(QStringLiteral("DROP TABLE %1").arg(table));
    const QByteArray before = BytesOf(fixture.Source());

    QCOMPARE(OpenNumber(fixture.Source()), DatabaseErrorNumber::TablesMissing);
    QCOMPARE(OpenNumber(fixture.Source()), DatabaseErrorNumber::TablesMissing);

    QCOMPARE(BytesOf(fixture.Source()), before);
}

void TestHvxBadFiles::Open_EmptyDefinitions_BothTriesFail()
{
    const DatabaseFixture fixture;
    fixture.RunSql(QStringLiteral("DELETE FROM con_type"));

    QCOMPARE(OpenNumber(fixture.Source()), DatabaseErrorNumber::TablesMissing);
    QCOMPARE(OpenNumber(fixture.Source()), DatabaseErrorNumber::TablesMissing);
}

QTEST_GUILESS_MAIN(TestHvxBadFiles)
#include "TestHvxBadFiles.moc"
