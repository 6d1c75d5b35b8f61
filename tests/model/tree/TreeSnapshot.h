#pragma once

#include "model/TreeEntries.h"

#include <QStringList>

/// All that can be asked of a tree, one line for each entry in display order: handle, key, text, tag, flags,
/// children and where it is shown; then what finding gives. Two snapshots are equal when the trees are.
QStringList TreeSnapshot(const TreeEntries& entries);
