#pragma once

#include "model/ModelState.h"

/// Hands the trees of a control to the dialogs that a command shows, through the working copy, and takes them
/// back at its end.
class HandedTrees
{
public:
    HandedTrees(TreeEntries* conTree, TreeEntries* nodesTree)
    {
        Model().ConObject->ConTree = conTree;
        Model().ConObject->NodesTree = nodesTree;
    }
    ~HandedTrees()
    {
        if (!Model().ConObject)
            return;
        Model().ConObject->ConTree = nullptr;
        Model().ConObject->NodesTree = nullptr;
    }
    HandedTrees(const HandedTrees&) = delete;
    HandedTrees& operator=(const HandedTrees&) = delete;
};
