#pragma once

#include "platform/Components.h"

/// Has one component, and lists another that it does not have.
class TestPlugin : public QObject, public ComponentPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID ZelkaComponentPlugin_iid FILE "TestPlugin.json")
    Q_INTERFACES(ComponentPlugin)

public:
    std::unique_ptr<HvxDatabase> CreateDatabase(const QString& id) override;
};
