#pragma once

class QComboBox;
class QString;
class TreeEntries;

/// The list of connection names, which may be a million.

/// Fills a list with the names of all connections, with none of them chosen and without telling that its
/// choice changed, and `tree` (may be null) as well while it is empty. Asks the database. False: a look-up
/// failed, the list is as it was.
bool LoadConNames(QComboBox& combo, TreeEntries* tree);

/// Empties the list, without telling that its choice changed.
void ClearConNames(QComboBox& combo);
/// Adds a name at the end; the choice stays.
void AddConName(QComboBox& combo, const QString& name);
/// Position from 0 of the first name that is not blank and equals the text, ignoring case; -1: none.
[[nodiscard]] int FindConName(QComboBox& combo, const QString& name);
