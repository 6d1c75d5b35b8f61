#pragma once

#include "components/hvxdb/HvxStatements.h"

#include <QStringList>

/// The statement in PostgreSQL's SQL where it differs from the one that the engines share; empty where it
/// does not.
[[nodiscard]] QString PostgresStatementText(HvxStatement statement);

/// See HvxEngine::IntegrityTexts.
[[nodiscard]] QStringList PostgresIntegrityTexts();

/// See HvxEngine::ObjectNamesText.
[[nodiscard]] QString PostgresObjectNamesText();
