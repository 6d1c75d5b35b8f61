#include "components/hvxdb/plugin/HvxPlugin.h"

#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxdb/HvxDatabaseComponent.h"

std::unique_ptr<HvxDatabase> HvxPlugin::CreateDatabase(const QString& id)
{
    if (id.compare(HvxDatabaseId, Qt::CaseInsensitive) != 0)
        return nullptr;
    return std::make_unique<HvxDatabaseComponent>(DataSource());
}
