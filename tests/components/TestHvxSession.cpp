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
    void Open_WhileOtherWrites_Works();
    void Open_CamLockHeld_InUseAndSessionStaysUsable();
    void Close_ThenRead_Refused();
    void Close_OpenTransaction_IsUndone();
    void Close_RemovesConnectionName();
    void CloseDb_Closes();
    void Instances_OfOneDatabase_AreIndependent();
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

void TestHvxSession::Source_Url_MissingEngine()
{
    HvxDatabaseComponent component(QStringLiteral("odbc://server/dbs32"));

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
