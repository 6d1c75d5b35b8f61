#pragma once

#include "platform/Components.h"

#include <QObject>

/// Carries the database component in a plugin.
class HvxPlugin : public QObject, public ComponentPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID ZelkaComponentPlugin_iid FILE "HvxPlugin.json")
    Q_INTERFACES(ComponentPlugin)

public:
    std::unique_ptr<HvxDatabase> CreateDatabase(const QString& id) override;
};
