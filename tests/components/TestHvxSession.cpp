#include "components/hvxdb/HvxStore.h"
#include "platform/Components.h"
#include "platform/NamedValues.h"
#include "tests/components/DatabaseFixture.h"

#include <QSettings>
#include <QStandardPaths>
#include <QTest>

/// Opening and closing a data source, and which source it is.
class TestHvxSession : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void Open_GoodDatabase_Works();
    void Open_Twice_KeepsSession();
    void Open_WritesNothing();
    void Open_WhileOtherWrites_Works();
    void Open_WholeFileLocked_InUseAndBeginGoesOnLater();
    void Open_CamLockHeld_InUseAndSessionStaysUsable();
    void Close_ThenRead_Refused();
    void Close_OpenTransaction_IsUndone();
    void Close_RemovesConnectionName();
    void CloseDb_Closes();
    void Instances_OfOneDatabase_AreIndependent();
    void Source_WithSpecialCharacters_Opens_data();
    void Source_WithSpecialCharacters_Opens();
    void Source_Url_MissingEngine();
    void DataSource_Order_ChosenEnvironmentNamedDefault();
    void Register_CreatesComponentOnChosenSource();
    void SchemaLost_UnderOpenSession_TablesMissing();

private:
    QTemporaryDir m_settings;
};

namespace {

void BeginAndCommit(HvxDatabase& component)
{
    qint32 started = 0;
    component.BeginTransaction(started);
    component.CommitTransaction(started);
}

QByteArray BytesOf(const QString& file)
{
    QFile read(file);
    return read.open(QIODevice::ReadOnly) ? read.readAll() : QByteArray();
}

} // namespace

void TestHvxSession::init()
{
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_settings.path());
    NamedValues().Remove(QStringLiteral("ODBC/DBS32"));
    qunsetenv("ZELKA_DBS32");
}

void TestHvxSession::cleanup()
{
    SetDataSource(QString());
    RegisterComponent(HvxDatabaseId, nullptr);
}

void TestHvxSession::Open_GoodDatabase_Works()
{
    const DatabaseFixture fixture;
    HvxDatabaseComponent component(fixture.Source());

    component.OpenDatabase();

    QString list;
    component.GetConTypeList(list);
    QVERIFY(list.startsWith(QStringLiteral("T4BUS")));
}

void TestHvxSession::Open_Twice_KeepsSession()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    qint32 started = 0;
    component->BeginTransaction(started);
    component->SaveParent(QStringLiteral("Delta"), QString());

    component->OpenDatabase();
    component->CommitTransaction(started);

    QCOMPARE(fixture.RunSql(QStringLiteral("SELECT count(*) FROM connection")).toInt(), 4);
}

void TestHvxSession::Open_WritesNothing()
{
    const DatabaseFixture fixture;
    const QByteArray before = BytesOf(fixture.Source());

    fixture.OpenComponent()->CloseDatabase();

    QCOMPARE(BytesOf(fixture.Source()), before);
    QCOMPARE(QDir(fixture.Folder()).entryList(QDir::Files), QStringList{QStringLiteral("Dbs.mdb")});
}

void TestHvxSession::Open_WhileOtherWrites_Works()
{
    const DatabaseFixture fixture;
    const auto writer = fixture.OpenComponent();
    qint32 started = 0;
    writer->BeginTransaction(started);
    writer->SaveParent(QStringLiteral("Delta"), QString());

    const auto reader = fixture.OpenComponent();

    qint32 count = 0;
    reader->GetNodeCount(count);
    QCOMPARE(count, 3);
}

void TestHvxSession::Open_WholeFileLocked_InUseAndBeginGoesOnLater()
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

void TestHvxSession::Open_CamLockHeld_InUseAndSessionStaysUsable()
{
    const DatabaseFixture fixture;
    const auto administration = HvxAdministration::Open(fixture.Source());
    std::unique_ptr<QObject> lock = administration->LockForMaintenance();
    HvxDatabaseComponent component(fixture.Source());

    QCOMPARE(DatabaseFixture::ErrorOf([&] { component.OpenDatabase(); }), DatabaseErrorNumber::InUse);
    QCOMPARE(DatabaseFixture::ErrorOf([&] { BeginAndCommit(component); }), DatabaseErrorNumber::InUse);
    lock.reset();

    BeginAndCommit(component);
}

void TestHvxSession::Close_ThenRead_Refused()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    component->CloseDatabase();

    QString list = QStringLiteral("as it was");
    QCOMPARE(DatabaseFixture::ErrorOf([&] { component->QueryParentsWithID(QString(), list); }),
             DatabaseErrorNumber::Refused);
    QCOMPARE(list, QStringLiteral("as it was"));
    QCOMPARE(DatabaseFixture::ErrorOf([&] { component->GetConTypeLongName(QStringLiteral("T4BUS"), list); }),
             DatabaseErrorNumber::Refused);
    QCOMPARE(DatabaseFixture::ErrorOf([&] { BeginAndCommit(*component); }), DatabaseErrorNumber::Refused);
}

void TestHvxSession::Close_OpenTransaction_IsUndone()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    qint32 started = 0;
    component->BeginTransaction(started);
    component->SaveParent(QStringLiteral("Delta"), QString());

    component->CloseDatabase();

    QCOMPARE(fixture.RunSql(QStringLiteral("SELECT count(*) FROM connection")).toInt(), 3);
}

void TestHvxSession::Close_RemovesConnectionName()
{
    const DatabaseFixture fixture;
    const QStringList before = QSqlDatabase::connectionNames();
    auto component = fixture.OpenComponent();
    QCOMPARE(QSqlDatabase::connectionNames().size(), before.size() + 1);

    component.reset();

    QCOMPARE(QSqlDatabase::connectionNames(), before);
}

void TestHvxSession::CloseDb_Closes()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();

    component->CloseDb();

    qint32 count = 0;
    QCOMPARE(DatabaseFixture::ErrorOf([&] { component->GetNodeCount(count); }), DatabaseErrorNumber::Refused);
}

void TestHvxSession::Instances_OfOneDatabase_AreIndependent()
{
    const DatabaseFixture fixture;
    const auto first = fixture.OpenComponent();
    auto second = fixture.OpenComponent();
    second->SaveParent(QStringLiteral("Delta"), QString());
    second.reset();

    QString answer;
    first->ParentNameExist(QStringLiteral("Delta"), answer);

    QCOMPARE(answer, QStringLiteral("TRUE"));
}

void TestHvxSession::Source_WithSpecialCharacters_Opens_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("blank") << QStringLiteral("my data.mdb");
    QTest::newRow("question mark") << QStringLiteral("what?mode=ro.mdb");
    QTest::newRow("number sign") << QStringLiteral("a#b.mdb");
    QTest::newRow("per cent") << QStringLiteral("50%20.mdb");
    QTest::newRow("letters of other scripts") << QStringLiteral("Verbindungen-Übersicht-узел.mdb");
}

void TestHvxSession::Source_WithSpecialCharacters_Opens()
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

void TestHvxSession::Source_Url_MissingEngine()
{
    HvxDatabaseComponent component(QStringLiteral("postgresql://server/dbs32"));

    QCOMPARE(DatabaseFixture::ErrorOf([&] { component.OpenDatabase(); }), DatabaseErrorNumber::SourceMissing);
}

void TestHvxSession::DataSource_Order_ChosenEnvironmentNamedDefault()
{
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    QCOMPARE(DataSource(), data + QStringLiteral("/zelka/Dbs.mdb"));

    NamedValues().Write(QStringLiteral("ODBC/DBS32"), QStringLiteral("/named/Dbs.mdb"));
    QCOMPARE(DataSource(), QStringLiteral("/named/Dbs.mdb"));

    qputenv("ZELKA_DBS32", "/environment/Dbs.mdb");
    QCOMPARE(DataSource(), QStringLiteral("/environment/Dbs.mdb"));

    QCOMPARE(DataSource(QStringLiteral("/chosen/Dbs.mdb")), QStringLiteral("/chosen/Dbs.mdb"));
}

void TestHvxSession::Register_CreatesComponentOnChosenSource()
{
    const DatabaseFixture fixture;
    qputenv("ZELKA_DBS32", "/environment/Dbs.mdb");
    SetDataSource(fixture.Source());
    RegisterHvxDatabase();

    const std::unique_ptr<HvxDatabase> component = CreateDatabaseComponent(HvxDatabaseId);
    component->OpenDatabase();

    qint32 count = 0;
    component->GetNodeCount(count);
    QCOMPARE(count, 3);
}

void TestHvxSession::SchemaLost_UnderOpenSession_TablesMissing()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    fixture.RunSql(QStringLiteral("DROP TABLE users_text"));

    QString users;
    QCOMPARE(DatabaseFixture::ErrorOf(
                 [&] { component->GetUsersList(QStringLiteral("Alpha"), QStringLiteral("Parent"), users); }),
             DatabaseErrorNumber::TablesMissing);
}

QTEST_GUILESS_MAIN(TestHvxSession)
#include "TestHvxSession.moc"
