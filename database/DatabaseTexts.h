#pragma once

#include "platform/Words.h"

#include <QString>

/// Words that every unit of work on the database shows alike.
namespace DatabaseText {

inline QString AccessDenied()
{
    return Words::tr("Database access is denied, because another application is using it.");
}

inline QString CommitFailure()
{
    return Words::tr("Failure to commit database operations.");
}

} // namespace DatabaseText
