#include "database/ConObjectTrees.h"

#include "model/ModelState.h"

ConObjectTrees::ConObjectTrees()
{
    if (const ConData* con = Model().ConObject.get()) {
        m_nodes = con->NodesTree;
        m_connections = con->ConTree;
    }
}

TreeEntries& ConObjectTrees::None()
{
    // Kept: making one costs as much as a third of a save.
    static thread_local TreeEntries none;
    return none;
}

void ConObjectTrees::Select(TreeEntries& tree, qint32 position)
{
    if (position != 0 && Model().SelectTreeEntry)
        Model().SelectTreeEntry(tree, position);
}

bool NodesAreShown()
{
    return Model().ConObject && Model().ConObject->ViewNodesChecked;
}

bool NodesAreSelectedUnderConnections()
{
    return NodesAreShown() && Model().ConObject->optCon;
}
