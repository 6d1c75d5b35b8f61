#pragma once

#include "model/TreeEntries.h"

/// The trees that ConObject names; where it names none there is nothing to patch, and an empty one stands in.
///
/// Taken once: what ConObject names later has no effect. Thread: the control's.
class ConObjectTrees
{
public:
    ConObjectTrees();

    [[nodiscard]] TreeEntries& Nodes() { return m_nodes ? *m_nodes : m_none; }
    [[nodiscard]] TreeEntries& Connections() { return m_connections ? *m_connections : m_none; }

    /// Selects an entry in the view that shows the tree; nothing for the position 0, and without a control.
    static void Select(TreeEntries& tree, qint32 position);

private:
    TreeEntries* m_nodes = nullptr;
    TreeEntries* m_connections = nullptr;
    TreeEntries m_none;
};
