#include "components/syncconn/plugin/SyncConnectionPlugin.h"

#include "components/syncconn/SyncConnectionComponent.h"

std::unique_ptr<SyncConnection> SyncConnectionPlugin::CreateConnection(const QString& id)
{
    if (id.compare(T4SyncConnId, Qt::CaseInsensitive) != 0 &&
        id.compare(HvxSyncConnId, Qt::CaseInsensitive) != 0)
        return nullptr;
    return std::make_unique<SyncConnectionComponent>();
}
