#pragma once

#include "model/TreeEntries.h"

/// The trees that ConObject names, for the saves; where it names none there is nothing to patch, and an empty
/// one stands in.
///
/// Taken once: what ConObject names later has no effect. Thread: the control's.
class ConObjectTrees
{
public:
    ConObjectTrees();

    [[nodiscard]] TreeEntries& Nodes() { return m_nodes ? *m_nodes : None(); }
    [[nodiscard]] TreeEntries& Connections() { return m_connections ? *m_connections : None(); }
    /// The empty one. It stays so: a save leaves a tree without a root alone.
    [[nodiscard]] static TreeEntries& None();

    /// Selects an entry in the view that shows the tree; nothing for the position 0, and without a control.
    static void Select(TreeEntries& tree, qint32 position);

private:
    TreeEntries* m_nodes = nullptr;
    TreeEntries* m_connections = nullptr;
};

/// Whether connections show their nodes.
[[nodiscard]] bool NodesAreShown();
/// Whether a saved node is selected under its connection, not in the tree of nodes.
[[nodiscard]] bool NodesAreSelectedUnderConnections();
