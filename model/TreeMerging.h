#pragma once

#include "model/TreeEntries.h"

#include <QString>

#include <span>
#include <vector>

/// What a fill leaves of the children that a connection has: those that are wanted stay under their handles,
/// with their new keys and texts and without a continuation mark, the others go. New ones are not added.
///
/// Cost: the number of children, before and wanted. Thread: the tree's.

/// Nodes stay by their ids. Gives the number kept.
int KeepNodes(TreeEntries& tree, TreeEntries::Index conEntry, std::span<const NewTreeEntry> nodes,
              qint32 conId);

/// Waypoints stay by their positions from 1.
void KeepWaypoints(TreeEntries& tree, TreeEntries::Index conEntry, const std::vector<QString>& texts,
                   qint32 conId);

/// Children in display order.
[[nodiscard]] std::vector<TreeEntries::Index> ChildrenOf(const TreeEntries& tree, TreeEntries::Index parent);
