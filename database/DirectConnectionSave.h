#pragma once

#include <QString>

class ConData;

/// Saves the connection of the Direct tab in one transaction: over the record of its name, where `direct` is
/// no new connection, else as a new record.
///
/// Composes the target of `direct` first. `name`: what it is to be called; blanks at its ends are removed,
/// also when the save is refused, and the name of a record keeps its letters. The connection tree
/// that ConObject names is patched and the saved entry selected in it. Afterwards `direct` is that record
/// (ConName, ConDbID, ConTypeName by `typeLongName`, not new) with SelectPressed set, and `newDirect` has no
/// name. False: refused or failed; the operator has been told, and both are as they were, but for the
/// TargetString. Nothing is asked, and a record that another application has changed is written over. Thread:
/// the control's.
[[nodiscard]] bool SaveDirectDefinition(ConData& direct, ConData& newDirect, QString& name,
                                        const QString& typeLongName);
