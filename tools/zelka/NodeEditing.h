#pragma once

#include "tools/zelka/EditSession.h"

/// Adds and changes nodes by the same routines and rules as the dialogs. All raise CommandError; a refusal
/// that the routines tell stands on standard error by then.

/// A new node named `changes.name`, from a type, a target or an existing node (`like`), which also gives its
/// connection and manager where `changes` names none.
[[nodiscard]] EditedRecord AddNode(EditSession& session, const RecordChanges& changes,
                                   const std::optional<QString>& like);

/// `ifId`: the id that the node must still have.
[[nodiscard]] EditedRecord ChangeNode(EditSession& session, const FoundRecord& record,
                                      const RecordChanges& changes, const std::optional<qint32>& ifId);
