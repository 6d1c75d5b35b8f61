#pragma once

#include "tools/zelka/EditSession.h"

/// Adds and changes connections by the same routines and rules as the dialogs. All raise CommandError; a
/// refusal that the routines tell stands on standard error by then.

/// A new connection named `changes.name`, from a type, a target or an existing connection (`like`).
[[nodiscard]] EditedRecord AddConnection(EditSession& session, const RecordChanges& changes,
                                         const std::optional<QString>& like);

/// `ifId`: the id that the connection must still have.
[[nodiscard]] EditedRecord ChangeConnection(EditSession& session, const FoundRecord& record,
                                            const RecordChanges& changes, const std::optional<qint32>& ifId);
