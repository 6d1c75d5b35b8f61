#include "tests/components/DatabaseFixture.h"

#include <QDir>
#include <QRegularExpression>
#include <QTest>

/// Making database files, and files with damaged pages.
class TestSqliteMaking : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Create_New_MakesOneFile();
    void Create_NewFolder_IsMade();
    void Create_ExistingFile_RefusedAndUnchanged();
    void Create_Force_KeepsOldFileBeside();
    void Create_ForceTwice_KeepsBothOldFiles();
    void Create_ForceOverOpenDatabase_KeepsItsLatestWrites();
    void Create_OrphanedLog_DoesNotReachNewDatabase();
    void Create_Folder_Refused();
    void Create_PlaceNotWritable_RefusedWithoutRemains();
    void Create_UsesWriteAheadLog();
    void Check_DamagedPages_AreNamed();
};

namespace {

QByteArray BytesOf(const QString& file)
{
    QFile read(file);
    return read.open(QIODevice::ReadOnly) ? read.readAll() : QByteArray();
}

QStringList FilesIn(const QString& folder)
{
    return QDir(folder).entryList(QDir::Files, QDir::Name);
}

} // namespace

void TestSqliteMaking::Create_New_MakesOneFile()
{
    const QTemporaryDir folder;
    const QString source = folder.filePath(QStringLiteral("Dbs.mdb"));

    QCOMPARE(CreateHvxDatabase(source, DatabaseFixture::BuiltInCatalogue(), false), QString());

    QCOMPARE(FilesIn(folder.path()), QStringList{QStringLiteral("Dbs.mdb")});
}

void TestSqliteMaking::Create_NewFolder_IsMade()
{
    const QTemporaryDir folder;
    const QString source = folder.filePath(QStringLiteral("share/zelka/Dbs.mdb"));

    CreateHvxDatabase(source, DatabaseFixture::BuiltInCatalogue(), false);

    QVERIFY(QFile::exists(source));
}

void TestSqliteMaking::Create_ExistingFile_RefusedAndUnchanged()
{
    const DatabaseFixture fixture;
    const QByteArray before = BytesOf(fixture.Source());

    QCOMPARE(DatabaseFixture::ErrorOf(
                 [&] { CreateHvxDatabase(fixture.Source(), DatabaseFixture::BuiltInCatalogue(), false); }),
             DatabaseErrorNumber::Refused);

    QCOMPARE(BytesOf(fixture.Source()), before);
    QCOMPARE(FilesIn(fixture.Folder()), QStringList{QStringLiteral("Dbs.mdb")});
}

void TestSqliteMaking::Create_Force_KeepsOldFileBeside()
{
    const DatabaseFixture fixture;
    const QByteArray before = BytesOf(fixture.Source());

    const QString kept = CreateHvxDatabase(fixture.Source(), DatabaseFixture::BuiltInCatalogue(), true);

    static const QRegularExpression stamped(QStringLiteral("/Dbs\\.mdb\\.\\d{8}-\\d{6}$"));
    QVERIFY2(kept.contains(stamped), qPrintable(kept));
    QCOMPARE(BytesOf(kept), before);
    QCOMPARE(fixture.RunSql(QStringLiteral("SELECT count(*) FROM node")).toInt(), 0);
    QCOMPARE(FilesIn(fixture.Folder()).size(), 2);
}

void TestSqliteMaking::Create_ForceTwice_KeepsBothOldFiles()
{
    const DatabaseFixture fixture;

    const QString first = CreateHvxDatabase(fixture.Source(), DatabaseFixture::BuiltInCatalogue(), true);
    const QString second = CreateHvxDatabase(fixture.Source(), DatabaseFixture::BuiltInCatalogue(), true);

    QVERIFY(first != second);
    QVERIFY(QFile::exists(first));
    QVERIFY(QFile::exists(second));
}

void TestSqliteMaking::Create_ForceOverOpenDatabase_KeepsItsLatestWrites()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    component->SaveParent(QStringLiteral("Delta"), QString());

    const QString kept = CreateHvxDatabase(fixture.Source(), DatabaseFixture::BuiltInCatalogue(), true);

    QCOMPARE(PlainSql(kept).Run(QStringLiteral("SELECT count(*) FROM connection")).toInt(), 4);
    QCOMPARE(fixture.RunSql(QStringLiteral("SELECT count(*) FROM connection")).toInt(), 0);
}

void TestSqliteMaking::Create_OrphanedLog_DoesNotReachNewDatabase()
{
    const QTemporaryDir folder;
    const QString source = folder.filePath(QStringLiteral("Dbs.mdb"));
    QFile log(source + QStringLiteral("-wal"));
    QVERIFY(log.open(QIODevice::WriteOnly));
    log.write("left behind");
    log.close();

    const QString kept = CreateHvxDatabase(source, DatabaseFixture::BuiltInCatalogue(), false);

    QCOMPARE(BytesOf(kept + QStringLiteral("-wal")), QByteArray("left behind"));
    QVERIFY(!QFile::exists(source + QStringLiteral("-wal")));
}

void TestSqliteMaking::Create_Folder_Refused()
{
    const QTemporaryDir folder;

    QCOMPARE(DatabaseFixture::ErrorOf(
                 [&] { CreateHvxDatabase(folder.path(), DatabaseFixture::BuiltInCatalogue(), true); }),
             DatabaseErrorNumber::Refused);
}

void TestSqliteMaking::Create_PlaceNotWritable_RefusedWithoutRemains()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("file"));
    QVERIFY(QFile(file).open(QIODevice::WriteOnly));

    QCOMPARE(DatabaseFixture::ErrorOf([&] {
                 CreateHvxDatabase(file + QStringLiteral("/Dbs.mdb"), DatabaseFixture::BuiltInCatalogue(),
                                   true);
             }),
             DatabaseErrorNumber::Refused);

    QCOMPARE(FilesIn(folder.path()), QStringList{QStringLiteral("file")});
}

void TestSqliteMaking::Create_UsesWriteAheadLog()
{
    const DatabaseFixture fixture(DatabaseFixture::Contents::Empty);

    QCOMPARE(fixture.RunSql(QStringLiteral("PRAGMA journal_mode")).toString(), QStringLiteral("wal"));
}

void TestSqliteMaking::Check_DamagedPages_AreNamed()
{
    const DatabaseFixture fixture;
    const int page =
        fixture.RunSql(QStringLiteral("SELECT rootpage FROM sqlite_master WHERE name = 'users_text'"))
            .toInt();
    const int size = fixture.RunSql(QStringLiteral("PRAGMA page_size")).toInt();
    QFile file(fixture.Source());
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.seek(qint64(page - 1) * size));
    file.write(QByteArray(size, '\x5a'));
    file.close();

    const QStringList problems = HvxAdministration::Open(fixture.Source())->Check();

    QVERIFY(!problems.isEmpty());
    QVERIFY2(problems[0].startsWith(QStringLiteral("File: ")), qPrintable(problems[0]));
}

QTEST_GUILESS_MAIN(TestSqliteMaking)
#include "TestSqliteMaking.moc"
