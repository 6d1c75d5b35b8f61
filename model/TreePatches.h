#pragma once

#include "model/TreeEntries.h"

#include <initializer_list>
#include <memory>
#include <vector>

class TreeChanges;

/// Remembers what is done to trees, so that it can be undone together with the transaction that it belongs
/// to.
///
/// From its construction on, each entry added, removed, moved or changed is noted; Undo brings the trees back
/// to what they were, removed entries under the handles that they had. What was not kept is undone at the
/// end. A tree that is cleared meanwhile is left as it is, until Keep. One at a time for each tree: what
/// happens under an inner one is kept or undone by the outer one. Cost and memory: that of the changes, and
/// of the entries that were removed.
class TreePatches
{
public:
    /// Null trees are left out.
    explicit TreePatches(std::initializer_list<TreeEntries*> trees);
    ~TreePatches();
    TreePatches(const TreePatches&) = delete;
    TreePatches& operator=(const TreePatches&) = delete;

    /// What was done so far stays; later changes are noted anew.
    void Keep();
    /// Takes back what was done since the start or the last Keep.
    void Undo();

private:
    std::vector<std::unique_ptr<TreeChanges>> m_changes;
};
