#pragma once

#include <QString>

/// The name of a database, role or table as it stands in a statement, whatever its characters are.
inline QString QuotedSqlName(QString name)
{
    return u'"' + name.replace(u'"', QLatin1String("\"\"")) + u'"';
}
