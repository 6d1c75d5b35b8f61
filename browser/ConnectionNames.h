#pragma once

class QComboBox;
class TreeEntries;

/// Fills a list with the names of all connections, without telling that its choice changed, and `tree` (may
/// be null) as well while it is empty. Asks the database. False: a look-up failed, the list is as it was.
bool LoadConNames(QComboBox& combo, TreeEntries* tree);
