#pragma once

#include "model/TreeEntries.h"
#include "model/TreePattern.h"
#include "model/TreeSiblings.h"

/// The next entry after `from` (itself last) that can be seen and whose text begins with `prefix`, ignoring
/// case, in display order, wrapping around; 0 when there is none. `from` must be one that can be seen, or 0:
/// the search begins at the top. Sorted lists are searched by halving; what costs time are expanded entries.
[[nodiscard]] TreeStore::Handle FindTreePrefix(const TreeStore& entries, const TreeSiblings& siblings,
                                               TreeStore::Handle from, const TreeTextView& prefix);

/// See TreeEntries::FindContaining.
[[nodiscard]] bool FindTreeMatches(const TreeStore& entries, const TreePattern& pattern,
                                   TreeEntries::Index& next, int most,
                                   std::vector<TreeEntries::Index>& found);

/// Entries in display order.
[[nodiscard]] std::vector<TreeEntries::Found> InTreeOrder(const TreeStore& entries,
                                                          const TreeSiblings& siblings,
                                                          std::span<const TreeEntries::Index> found);
