#pragma once

#include <QString>

class ConData;

/// Saves the connection of a working copy: as new, in place of one of the same name, or as a change of the
/// stored one, in one transaction, guarded against changes by other applications since it was loaded.
///
/// `con` says what it was (NewCon, ConName, ConDbID), `name` what it is to be called; blanks at its ends are
/// removed, also when the save is refused. The tree ConTree of `con`, which must be set, is patched; ConName,
/// ConDbID and SelectedTreeNodeIndex follow. False: refused or failed; the operator has been told, and
/// `con`'s flags, name and id are as they were. Asks before it replaces. Thread: the control's.
[[nodiscard]] bool SaveConnection(ConData& con, QString& name);

/// The name that no connection may have, in any case of letters.
[[nodiscard]] bool IsReservedConnectionName(const QString& name);
