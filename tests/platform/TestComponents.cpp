#include "platform/ComponentError.h"
#include "platform/Components.h"
#include "tests/support/TinyDatabase.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

/// Components by identifier.
class TestComponents : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void Factory_Registered_CreatesANewComponentEachTime();
    void Factory_Identifier_IgnoresCase();
    void Factory_SecondOfAnIdentifier_ReplacesTheFirst();
    void Factory_Null_RemovesTheFirst();
    void Factory_GivesNothing_IsACreationFailure();
    void Factory_Raises_ItsErrorPasses();
    void Plugin_ListsTheIdentifier_CreatesIt();
    void Plugin_AndFactory_FactoryIsAskedFirst();
    void Plugin_ListsButHasNot_IsNotRegistered();
    void Plugin_OfAnotherKind_IsACreationFailure();
    void Folder_WithOtherFiles_IsSearchedOn();
    void Folder_Missing_IsPassedOver();
    void UnknownIdentifier_IsNotRegistered();
};

static const QString Id = QStringLiteral("Test-Component");
static constexpr quint32 NotRegistered = 0x80040154;
static constexpr quint32 CreationFailed = 0x80080005;

/// Number of the error of a creation; 0 when it works.
static quint32 CreationError(const QString& id)
{
    try {
        CreateDatabaseComponent(id);
        return 0;
    } catch (const ComponentError& error) {
        return error.Number();
    }
}

static HvxDatabaseFactory FactoryOf(const QString& connection)
{
    return [connection] {
        auto database = std::make_unique<TinyDatabase>();
        database->AddConnection(connection, QString());
        return database;
    };
}

/// The name of the one connection that the component created under an identifier holds.
static QString ConnectionOf(const QString& id)
{
    QString list;
    CreateDatabaseComponent(id)->QueryParentsWithID(QString(), list);
    return list.section(u'\t', 0, 0);
}

void TestComponents::cleanup()
{
    RegisterComponent(Id, nullptr);
    SetComponentFolders({});
}

void TestComponents::Factory_Registered_CreatesANewComponentEachTime()
{
    RegisterComponent(Id, FactoryOf("A"));

    const auto one = CreateDatabaseComponent(Id);
    const auto other = CreateDatabaseComponent(Id);

    QVERIFY(one);
    QVERIFY(one != other);
}

void TestComponents::Factory_Identifier_IgnoresCase()
{
    RegisterComponent(Id.toLower(), FactoryOf("A"));

    QCOMPARE(ConnectionOf(Id.toUpper()), "A");
}

void TestComponents::Factory_SecondOfAnIdentifier_ReplacesTheFirst()
{
    RegisterComponent(Id, FactoryOf("A"));
    RegisterComponent(Id, FactoryOf("B"));

    QCOMPARE(ConnectionOf(Id), "B");
}

void TestComponents::Factory_Null_RemovesTheFirst()
{
    SetComponentFolders({});
    RegisterComponent(Id, FactoryOf("A"));
    RegisterComponent(Id, nullptr);

    QCOMPARE(CreationError(Id), NotRegistered);
}

void TestComponents::Factory_GivesNothing_IsACreationFailure()
{
    RegisterComponent(Id, [] { return std::unique_ptr<HvxDatabase>(); });

    QCOMPARE(CreationError(Id), CreationFailed);
}

void TestComponents::Factory_Raises_ItsErrorPasses()
{
    RegisterComponent(Id, []() -> std::unique_ptr<HvxDatabase> { throw ComponentError(0x80040049, "", ""); });

    QCOMPARE(CreationError(Id), 0x80040049u);
}

void TestComponents::Plugin_ListsTheIdentifier_CreatesIt()
{
    SetComponentFolders({TEST_PLUGIN_FOLDER});

    QCOMPARE(ConnectionOf(Id), "from the plugin");
    QCOMPARE(ConnectionOf(Id.toLower()), "from the plugin");
}

void TestComponents::Plugin_AndFactory_FactoryIsAskedFirst()
{
    SetComponentFolders({TEST_PLUGIN_FOLDER});
    RegisterComponent(Id, FactoryOf("from the factory"));

    QCOMPARE(ConnectionOf(Id), "from the factory");
}

void TestComponents::Plugin_ListsButHasNot_IsNotRegistered()
{
    SetComponentFolders({TEST_PLUGIN_FOLDER});

    QCOMPARE(CreationError("Test-Nothing"), NotRegistered);
}

void TestComponents::Plugin_OfAnotherKind_IsACreationFailure()
{
    SetComponentFolders({TEST_PLUGIN_FOLDER});

    QCOMPARE(CreationError("Test-Wrong"), CreationFailed);
}

void TestComponents::Folder_WithOtherFiles_IsSearchedOn()
{
    QTemporaryDir folder;
    QFile file(folder.filePath("notes.txt"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("no plugin");
    file.close();
    QFile empty(folder.filePath("empty.so"));
    QVERIFY(empty.open(QIODevice::WriteOnly));
    empty.close();
    SetComponentFolders({folder.path(), TEST_PLUGIN_FOLDER});

    QCOMPARE(ConnectionOf(Id), "from the plugin");
}

void TestComponents::Folder_Missing_IsPassedOver()
{
    SetComponentFolders({"/nowhere/at/all", TEST_PLUGIN_FOLDER});

    QCOMPARE(ConnectionOf(Id), "from the plugin");
}

void TestComponents::UnknownIdentifier_IsNotRegistered()
{
    SetComponentFolders({TEST_PLUGIN_FOLDER});

    QCOMPARE(CreationError("Test-Unknown"), NotRegistered);
}

QTEST_GUILESS_MAIN(TestComponents)
#include "TestComponents.moc"
