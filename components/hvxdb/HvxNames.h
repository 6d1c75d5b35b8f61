#pragma once

#include <QString>

/// Names of connections and nodes as they are stored. How they compare: FoldedName.

/// The text without blanks at its ends.
QString TrimBlanks(const QString& text);

/// The stored form of a name: trimmed. Raises ComponentError (Refused) when nothing is left.
QString StoredName(const QString& name);

/// True when the database's triggers, which fold plain letters only, might make another key of this name
/// than FoldedName does.
bool NeedsOwnKey(const QString& name);

/// The words for a name that another record has.
QString TakenName(const QString& name);
