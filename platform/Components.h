#pragma once

#include "platform/HvxDatabase.h"
#include "platform/HvxUtility.h"
#include "platform/SyncConnection.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtPlugin>

#include <functional>
#include <memory>

/// Late-bound components by identifier: first the factories that the program registered, then Qt plugins
/// whose metadata lists the identifier.

/// Class identifier of the database component.
inline const QString HvxDatabaseId = QStringLiteral("EEFE273E-7A9B-11D1-B1A1-006097085BB1");

using HvxDatabaseFactory = std::function<std::unique_ptr<HvxDatabase>()>;
using SyncConnectionFactory = std::function<std::unique_ptr<SyncConnection>()>;
using HvxUtilityFactory = std::function<std::unique_ptr<HvxUtility>()>;

/// Registers a factory; a second one under the same identifier replaces the first. A null factory removes it.
void RegisterComponent(const QString& id, const HvxDatabaseFactory& factory);
void RegisterSyncConnection(const QString& id, const SyncConnectionFactory& factory);
void RegisterHvxUtility(const QString& id, const HvxUtilityFactory& factory);

/// Folders in which plugins are looked for, in this order; the default is "zelka" under Qt's plugin paths.
void SetComponentFolders(const QStringList& folders);

/// Creates the component of that identifier; never null.
/// Raises ComponentError (class not registered, 0x80040154; creation failed, 0x80080005).
std::unique_ptr<HvxDatabase> CreateDatabaseComponent(const QString& id);
std::unique_ptr<SyncConnection> CreateSyncConnection(const QString& id);
std::unique_ptr<HvxUtility> CreateHvxUtility(const QString& id);

/// What a plugin that carries components implements. Its metadata is
/// `{"Components": ["<id>", …], "Version": "4.2.0"}`.
class ComponentPlugin
{
public:
    virtual ~ComponentPlugin() = default;

    /// Null when the plugin has no component of that kind and identifier.
    virtual std::unique_ptr<HvxDatabase> CreateDatabase(const QString& /*id*/) { return nullptr; }
    virtual std::unique_ptr<SyncConnection> CreateConnection(const QString& /*id*/) { return nullptr; }
    virtual std::unique_ptr<HvxUtility> CreateUtility(const QString& /*id*/) { return nullptr; }
};

#define ZelkaComponentPlugin_iid "zelka.ComponentPlugin/1"
Q_DECLARE_INTERFACE(ComponentPlugin, ZelkaComponentPlugin_iid)
