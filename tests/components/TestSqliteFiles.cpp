#include "tests/components/DatabaseFixture.h"

#include <QDir>
#include <QTest>

/// Sources that are no usable database: the number of the refusal, and that nothing is changed by it.
class TestSqliteFiles : public QObject
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

void TestSqliteFiles::Open_MissingFile_SourceMissingAndNothingCreated()
{
    const QTemporaryDir folder;

    QCOMPARE(OpenNumber(folder.filePath(QStringLiteral("Dbs.mdb"))), DatabaseErrorNumber::SourceMissing);
    QCOMPARE(OpenNumber(folder.filePath(QStringLiteral("none/Dbs.mdb"))), DatabaseErrorNumber::SourceMissing);

    QVERIFY(QDir(folder.path()).isEmpty());
}

void TestSqliteFiles::Open_Folder_SourceMissing()
{
    const QTemporaryDir folder;

    QCOMPARE(OpenNumber(folder.path()), DatabaseErrorNumber::SourceMissing);
}

void TestSqliteFiles::Open_NoSource_SourceMissing()
{
    QCOMPARE(OpenNumber(QString()), DatabaseErrorNumber::SourceMissing);
}

void TestSqliteFiles::Open_ForeignContents_UnusableAndUnchanged_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("zeros") << QByteArray(8192, '\0');
    QTest::newRow("text") << QByteArray("kind,name,target\nconnection,Alpha,WP=LAN\n");
    QTest::newRow("header alone") << QByteArray("SQLite format 3\0", 16);
    QTest::newRow("header and rubbish") << QByteArray("SQLite format 3\0", 16) + QByteArray(8192, 'x');
}

void TestSqliteFiles::Open_ForeignContents_UnusableAndUnchanged()
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

void TestSqliteFiles::Open_DamagedPages_Unusable()
{
    const DatabaseFixture fixture;
    QByteArray bytes = BytesOf(fixture.Source());
    bytes.replace(100, bytes.size() - 100, QByteArray(bytes.size() - 100, '\x5a'));
    WriteBytes(fixture.Source(), bytes);

    QCOMPARE(OpenNumber(fixture.Source()), DatabaseErrorNumber::UnusableFile);

    QCOMPARE(BytesOf(fixture.Source()), bytes);
}

void TestSqliteFiles::Open_ReadOnlyFile_ReadOnlyAndUnchanged()
{
    const DatabaseFixture fixture;
    const QByteArray before = BytesOf(fixture.Source());
    QVERIFY(QFile::setPermissions(fixture.Source(), QFile::ReadOwner | QFile::ReadGroup));

    QCOMPARE(OpenNumber(fixture.Source()), DatabaseErrorNumber::ReadOnly);

    QCOMPARE(BytesOf(fixture.Source()), before);
}

void TestSqliteFiles::Open_ReadOnlyFolder_ReadOnlyAndUnchanged()
{
    const DatabaseFixture fixture;
    const QByteArray before = BytesOf(fixture.Source());
    QVERIFY(QFile::setPermissions(fixture.Folder(), QFile::ReadOwner | QFile::ExeOwner));

    const quint32 number = OpenNumber(fixture.Source());

    QVERIFY(QFile::setPermissions(fixture.Folder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QCOMPARE(number, DatabaseErrorNumber::ReadOnly);
    QCOMPARE(BytesOf(fixture.Source()), before);
}

void TestSqliteFiles::Open_ForeignDatabase_TablesMissingTwiceAndUnchanged()
{
    const QTemporaryDir folder;
    const QString source = folder.filePath(QStringLiteral("Dbs.mdb"));
    PlainSql(source).Run(QStringLiteral("CREATE TABLE recipe (title TEXT)"));
    const QByteArray before = BytesOf(source);

    QCOMPARE(OpenNumber(source), DatabaseErrorNumber::TablesMissing);
    QCOMPARE(OpenNumber(source), DatabaseErrorNumber::TablesMissing);

    QCOMPARE(BytesOf(source), before);
}

QTEST_GUILESS_MAIN(TestSqliteFiles)
#include "TestSqliteFiles.moc"
