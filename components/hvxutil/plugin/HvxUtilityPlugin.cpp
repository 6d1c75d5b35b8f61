#include "components/hvxutil/plugin/HvxUtilityPlugin.h"

#include "components/hvxutil/HvxUtilityComponent.h"

std::unique_ptr<HvxUtility> HvxUtilityPlugin::CreateUtility(const QString& id)
{
    if (id.compare(HvxUtilityId, Qt::CaseInsensitive) != 0)
        return nullptr;
    return std::make_unique<HvxUtilityComponent>();
}
