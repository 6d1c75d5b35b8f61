#include "platform/Components.h"

#include "platform/ComponentError.h"

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

struct ComponentTable
{
    QHash<QString, HvxDatabaseFactory> factories;
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

std::unique_ptr<HvxDatabase> CreateFromPlugin(const QString& file, const QString& id)
{
    QPluginLoader loader(file);
    if (!ListsComponent(loader.metaData(), id))
        return nullptr;
    auto* plugin = qobject_cast<ComponentPlugin*>(loader.instance());
    if (!plugin)
        throw ComponentError(CreationFailed, Source, loader.errorString());
    return plugin->CreateDatabase(id);
}

} // namespace

void RegisterComponent(const QString& id, const HvxDatabaseFactory& factory)
{
    if (factory)
        Table().factories.insert(id.toUpper(), factory);
    else
        Table().factories.remove(id.toUpper());
}

void SetComponentFolders(const QStringList& folders)
{
    Table().folders = folders;
    Table().foldersSet = true;
}

std::unique_ptr<HvxDatabase> CreateDatabaseComponent(const QString& id)
{
    if (const HvxDatabaseFactory factory = Table().factories.value(id.toUpper())) {
        if (std::unique_ptr<HvxDatabase> component = factory())
            return component;
        throw ComponentError(CreationFailed, Source,
                             QStringLiteral("Component %1 cannot be created.").arg(id));
    }
    const QStringList folders = Folders();
    for (const QString& folder : folders) {
        const QStringList files = QDir(folder).entryList(QDir::Files, QDir::Name);
        for (const QString& file : files) {
            if (std::unique_ptr<HvxDatabase> component = CreateFromPlugin(folder + u'/' + file, id))
                return component;
        }
    }
    throw ComponentError(ClassNotRegistered, Source,
                         QStringLiteral("Component %1 is not registered.").arg(id));
}
