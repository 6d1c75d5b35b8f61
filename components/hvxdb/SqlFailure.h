#pragma once

#include "platform/ComponentError.h"
#include "platform/HvxDatabase.h"

#include <QString>

/// How this component raises its failures.

/// The engine failed in a way that has no number of its own, for example a full disk.
constexpr quint32 EngineFailure = 0x80004005;

/// Raises ComponentError with this component as the source.
[[noreturn]] inline void RaiseFailure(quint32 number, const QString& description)
{
    throw ComponentError(number, QStringLiteral("HvxDatabase"), description);
}

/// Raises a refusal: a taken name, a missing record, no right to edit.
[[noreturn]] inline void RaiseRefusal(const QString& description)
{
    RaiseFailure(DatabaseErrorNumber::Refused, description);
}
