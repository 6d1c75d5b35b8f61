#include "TestPlugin.h"

#include "tests/support/TinyDatabase.h"

std::unique_ptr<HvxDatabase> TestPlugin::CreateDatabase(const QString& id)
{
    if (id.compare(QStringLiteral("Test-Component"), Qt::CaseInsensitive) != 0)
        return nullptr;
    auto database = std::make_unique<TinyDatabase>();
    database->AddConnection(QStringLiteral("from the plugin"), QString());
    return database;
}
