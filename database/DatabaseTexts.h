#pragma once

#include <QString>

/// Words that every unit of work on the database shows alike.
namespace DatabaseText {

inline QString AccessDenied()
{
    return QStringLiteral("Database access is denied, because another application is using it.");
}

inline QString CommitFailure()
{
    return QStringLiteral("Failure to commit database operations.");
}

} // namespace DatabaseText
