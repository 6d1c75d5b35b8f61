#pragma once

#include "platform/HvxDatabase.h"

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

/// Registers a factory; a second one under the same identifier replaces the first. A null factory removes it.
void RegisterComponent(const QString& id, const HvxDatabaseFactory& factory);

/// Folders in which plugins are looked for, in this order; the default is "zelka" under Qt's plugin paths.
void SetComponentFolders(const QStringList& folders);

/// Creates the database component of that identifier.
/// Raises ComponentError (class not registered, 0x80040154; creation failed, 0x80080005).
std::unique_ptr<HvxDatabase> CreateDatabaseComponent(const QString& id);

/// What a plugin that carries components implements. Its metadata is
/// `{"Components": ["<id>", …], "Version": "4.2.0"}`.
class ComponentPlugin
{
public:
    virtual ~ComponentPlugin() = default;

    /// Null when the plugin has no database component of that identifier.
    virtual std::unique_ptr<HvxDatabase> CreateDatabase(const QString& id) = 0;
};

#define ZelkaComponentPlugin_iid "zelka.ComponentPlugin/1"
Q_DECLARE_INTERFACE(ComponentPlugin, ZelkaComponentPlugin_iid)
