#pragma once

#include "model/TreeStore.h"

#include <span>

/// The display order of entries: the text without case, then the text exactly, then the handle.
/// Below 0 when `left` stands before `right`.
[[nodiscard]] int CompareTreeEntries(const TreeStore& entries, TreeStore::Handle left,
                                     TreeStore::Handle right);

/// Sorts handles into the display order.
void SortTreeEntries(const TreeStore& entries, std::span<TreeStore::Handle> handles);
