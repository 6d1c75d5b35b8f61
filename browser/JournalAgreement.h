#pragma once

#include "model/TreeEntries.h"

/// True when the trees already show all that the Journal tells since a record, as they do behind saves of
/// their own: each saved record stands there with its new id, each deleted one does not stand there. `lastId`
/// then becomes the id of the last record.
///
/// False when they do not, when there are too many records to look at, when the Journal was trimmed past that
/// record, or when it cannot be read. A tree that was not filled yet agrees with everything. Thread: the
/// control's.
[[nodiscard]] bool TreesShowJournal(const TreeEntries& conTree, const TreeEntries& nodesTree, qint32 afterId,
                                    qint32& lastId);
