#include "database/ConObjectTrees.h"

#include "model/ModelState.h"

ConObjectTrees::ConObjectTrees()
{
    if (const ConData* con = Model().ConObject.get()) {
        m_nodes = con->NodesTree;
        m_connections = con->ConTree;
    }
}

void ConObjectTrees::Select(TreeEntries& tree, qint32 position)
{
    if (position != 0 && Model().SelectTreeEntry)
        Model().SelectTreeEntry(tree, position);
}
