#pragma once

#include "components/hvxdb/Catalogue.h"
#include "components/hvxdb/SqlSession.h"

/// The definitions as they are stored: seven tables.

/// Names of the tables, without which a database cannot be repaired.
QStringList DefinitionTableNames();

/// Reads all definitions. Raises ComponentError.
Catalogue ReadDefinitions(SqlSession& session);

/// Writes the definitions into empty tables, in the open transaction. Raises ComponentError.
void WriteDefinitions(SqlSession& session, const Catalogue& catalogue);
