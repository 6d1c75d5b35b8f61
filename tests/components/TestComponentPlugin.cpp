#include "platform/Components.h"
#include "tests/components/DatabaseFixture.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QPluginLoader>
#include <QTest>

/// The database component as a plugin.
class TestComponentPlugin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void Metadata_ListsIdAndVersion();
    void Create_FromFolder_GivesWorkingComponent();
    void Create_ErrorsOfPlugin_AreCaughtByCaller();
    void Create_FolderWithoutPlugin_NotRegistered();
    void Create_OtherId_NotRegistered();
    void Create_RegisteredFactory_GoesFirst();
};

namespace {

const QString PluginFolder = QStringLiteral(PLUGIN_FOLDER);

} // namespace

void TestComponentPlugin::init()
{
    RegisterComponent(HvxDatabaseId, nullptr);
    SetComponentFolders({PluginFolder});
    qunsetenv("ZELKA_DBS32");
}

void TestComponentPlugin::cleanup()
{
    SetComponentFolders({});
    RegisterComponent(HvxDatabaseId, nullptr);
    qunsetenv("ZELKA_DBS32");
}

void TestComponentPlugin::Metadata_ListsIdAndVersion()
{
    const QPluginLoader loader(PluginFolder + QStringLiteral("/zelka_hvxdb_plugin"));
    const QJsonObject metaData = loader.metaData().value(QStringLiteral("MetaData")).toObject();

    QCOMPARE(metaData.value(QStringLiteral("Components")).toArray(), QJsonArray{HvxDatabaseId});
    QCOMPARE(metaData.value(QStringLiteral("Version")).toString(), QStringLiteral(ZELKA_VERSION));
}

void TestComponentPlugin::Create_FromFolder_GivesWorkingComponent()
{
    const DatabaseFixture fixture;
    qputenv("ZELKA_DBS32", fixture.Source().toUtf8());

    const std::unique_ptr<HvxDatabase> component = CreateDatabaseComponent(HvxDatabaseId.toLower());
    component->OpenDatabase();

    qint32 count = 0;
    component->GetNodeCount(count);
    QCOMPARE(count, 3);
}

void TestComponentPlugin::Create_ErrorsOfPlugin_AreCaughtByCaller()
{
    qputenv("ZELKA_DBS32", "/nowhere/Dbs.mdb");
    const std::unique_ptr<HvxDatabase> component = CreateDatabaseComponent(HvxDatabaseId);

    QCOMPARE(DatabaseFixture::ErrorOf([&] { component->OpenDatabase(); }),
             DatabaseErrorNumber::SourceMissing);
}

void TestComponentPlugin::Create_FolderWithoutPlugin_NotRegistered()
{
    const QTemporaryDir folder;
    SetComponentFolders({folder.path()});

    QCOMPARE(DatabaseFixture::ErrorOf([&] { (void)CreateDatabaseComponent(HvxDatabaseId); }), 0x80040154U);
}

void TestComponentPlugin::Create_OtherId_NotRegistered()
{
    QCOMPARE(DatabaseFixture::ErrorOf([&] {
                 (void)CreateDatabaseComponent(QStringLiteral("00000000-0000-0000-0000-000000000000"));
             }),
             0x80040154U);
}

void TestComponentPlugin::Create_RegisteredFactory_GoesFirst()
{
    const DatabaseFixture fixture;
    RegisterComponent(HvxDatabaseId,
                      [&] { return std::make_unique<HvxDatabaseComponent>(fixture.Source()); });

    const std::unique_ptr<HvxDatabase> component = CreateDatabaseComponent(HvxDatabaseId);
    component->OpenDatabase();

    qint32 count = 0;
    component->GetNodeCount(count);
    QCOMPARE(count, 3);
}

QTEST_GUILESS_MAIN(TestComponentPlugin)
#include "TestComponentPlugin.moc"
