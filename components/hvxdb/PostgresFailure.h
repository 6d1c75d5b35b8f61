#pragma once

#include "components/hvxdb/PostgresSource.h"

/// How failures of a PostgreSQL server are told apart.

/// The component's number for a SQLSTATE; EngineFailure for one that has none of its own, and for none at
/// all.
[[nodiscard]] quint32 PostgresErrorNumber(const QString& state);

/// The SQLSTATE with which the server refuses a connection; empty when there is no server that answers. The
/// driver does not hand it over, so the server is asked once more.
[[nodiscard]] QString PostgresRefusal(const PostgresSource& source);
