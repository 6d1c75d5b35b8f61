#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxdb/HvxDatabaseComponent.h"
#include "platform/Components.h"
#include "platform/NamedValues.h"

#include <QStandardPaths>

namespace {

QString& ChosenSource()
{
    static QString source;
    return source;
}

} // namespace

QString DataSource(const QString& chosen)
{
    if (!chosen.isEmpty())
        return chosen;
    const QString fromEnvironment = qEnvironmentVariable("ZELKA_DBS32");
    if (!fromEnvironment.isEmpty())
        return fromEnvironment;
    const QString named = NamedValues().Read(QStringLiteral("ODBC/DBS32")).value_or(QString());
    if (!named.isEmpty())
        return named;
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/zelka/Dbs.mdb");
}

void SetDataSource(const QString& source)
{
    ChosenSource() = source;
}

void RegisterHvxDatabase()
{
    RegisterComponent(HvxDatabaseId,
                      [] { return std::make_unique<HvxDatabaseComponent>(DataSource(ChosenSource())); });
}
