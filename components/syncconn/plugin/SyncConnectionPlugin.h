#pragma once

#include "platform/Components.h"

#include <QObject>

/// Carries the connection component in a plugin.
class SyncConnectionPlugin : public QObject, public ComponentPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID ZelkaComponentPlugin_iid FILE "SyncConnectionPlugin.json")
    Q_INTERFACES(ComponentPlugin)

public:
    std::unique_ptr<SyncConnection> CreateConnection(const QString& id) override;
};
