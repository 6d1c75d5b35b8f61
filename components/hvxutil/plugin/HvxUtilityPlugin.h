#pragma once

#include "platform/Components.h"

#include <QObject>

/// Carries the conversion utility in a plugin.
class HvxUtilityPlugin : public QObject, public ComponentPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID ZelkaComponentPlugin_iid FILE "HvxUtilityPlugin.json")
    Q_INTERFACES(ComponentPlugin)

public:
    std::unique_ptr<HvxUtility> CreateUtility(const QString& id) override;
};
