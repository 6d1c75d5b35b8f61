#include "platform/Components.h"

#include "platform/ComponentError.h"
#include "platform/Words.h"

#include <QCoreApplication>
#include <QDir>
#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QPluginLoader>

namespace {

constexpr quint32 ClassNotRegistered = 0x80040154;
constexpr quint32 CreationFailed = 0x80080005;
const QString Source = QStringLiteral("CreateComponent");

/// Factories by identifier in upper case.
template <typename Component>
using FactoryTable = QHash<QString, std::function<std::unique_ptr<Component>()>>;

struct ComponentTable
{
    FactoryTable<HvxDatabase> databases;
    FactoryTable<SyncConnection> connections;
    FactoryTable<HvxUtility> utilities;
    QStringList folders;
    bool foldersSet = false;
};

ComponentTable& Table()
{
    static ComponentTable table;
    return table;
}

QStringList Folders()
{
    if (Table().foldersSet)
        return Table().folders;
    QStringList folders;
    const QStringList paths = QCoreApplication::libraryPaths();
    for (const QString& path : paths)
        folders << path + QStringLiteral("/zelka");
    return folders;
}

bool ListsComponent(const QJsonObject& metaData, const QString& id)
{
    const QJsonArray ids =
        metaData.value(QStringLiteral("MetaData")).toObject().value(QStringLiteral("Components")).toArray();
    for (const QJsonValue value : ids) {
        if (value.toString().compare(id, Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

template <typename Component>
using PluginMethod = std::unique_ptr<Component> (ComponentPlugin::*)(const QString& id);

template <typename Component>
std::unique_ptr<Component> CreateFromPlugin(const QString& file, const QString& id,
                                            PluginMethod<Component> create)
{
    QPluginLoader loader(file);
    if (!ListsComponent(loader.metaData(), id))
        return nullptr;
    auto* plugin = qobject_cast<ComponentPlugin*>(loader.instance());
    if (!plugin)
        throw ComponentError(CreationFailed, Source, loader.errorString());
    return (plugin->*create)(id);
}

template <typename Component>
void Register(FactoryTable<Component>& factories, const QString& id,
              const std::function<std::unique_ptr<Component>()>& factory)
{
    if (factory)
        factories.insert(id.toUpper(), factory);
    else
        factories.remove(id.toUpper());
}

template <typename Component>
std::unique_ptr<Component> Create(const FactoryTable<Component>& factories, const QString& id,
                                  PluginMethod<Component> create)
{
    if (const auto factory = factories.value(id.toUpper())) {
        if (std::unique_ptr<Component> component = factory())
            return component;
        throw ComponentError(CreationFailed, Source, Words::tr("Component %1 cannot be created.").arg(id));
    }
    const QStringList folders = Folders();
    for (const QString& folder : folders) {
        const QStringList files = QDir(folder).entryList(QDir::Files, QDir::Name);
        for (const QString& file : files) {
            if (auto component = CreateFromPlugin<Component>(folder + u'/' + file, id, create))
                return component;
        }
    }
    throw ComponentError(ClassNotRegistered, Source, Words::tr("Component %1 is not registered.").arg(id));
}

} // namespace

void RegisterComponent(const QString& id, const HvxDatabaseFactory& factory)
{
    Register(Table().databases, id, factory);
}

void RegisterSyncConnection(const QString& id, const SyncConnectionFactory& factory)
{
    Register(Table().connections, id, factory);
}

void RegisterHvxUtility(const QString& id, const HvxUtilityFactory& factory)
{
    Register(Table().utilities, id, factory);
}

void SetComponentFolders(const QStringList& folders)
{
    Table().folders = folders;
    Table().foldersSet = true;
}

std::unique_ptr<HvxDatabase> CreateDatabaseComponent(const QString& id)
{
    return Create(Table().databases, id, &ComponentPlugin::CreateDatabase);
}

std::unique_ptr<SyncConnection> CreateSyncConnection(const QString& id)
{
    return Create(Table().connections, id, &ComponentPlugin::CreateConnection);
}

std::unique_ptr<HvxUtility> CreateHvxUtility(const QString& id)
{
    return Create(Table().utilities, id, &ComponentPlugin::CreateUtility);
}
