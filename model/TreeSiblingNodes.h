#pragma once

#include "model/TreePool.h"
#include "model/TreeStore.h"

#include <span>
#include <vector>

/// The nodes of which TreeSiblings builds its lists, and how they are linked, split and joined.
///
/// A list is a counted tree: leaves of at most 256 handles, inner nodes of at most 64 nodes, each with the
/// sums of what is below. An entry knows the leaf that holds it and the root of its own children's list.
class TreeSiblingNodes
{
public:
    using Handle = TreeStore::Handle;

    TreeSiblingNodes(const TreeSiblingNodes&) = delete;
    TreeSiblingNodes& operator=(const TreeSiblingNodes&) = delete;

    /// All entries that have children, in no order.
    [[nodiscard]] std::vector<Handle> Owners() const;
    [[nodiscard]] qint64 Bytes() const;

protected:
    using NodeId = quint32;

    static constexpr int LeafCapacity = 256;
    static constexpr int InnerCapacity = 64;

    /// A leaf holds handles, an inner node the numbers of nodes.
    struct Node
    {
        quint32* items = nullptr;
        NodeId parent = 0;
        quint32 entries = 0;
        quint32 rows = 0;
        /// Of the whole list; kept in the root.
        quint32 sortedHead = 0;
        /// Whose children these are; kept in the root.
        Handle owner = 0;
        quint32 count = 0;
        quint32 capacity = 0;
        bool isLeaf = true;
    };

    explicit TreeSiblingNodes(TreeStore& entries) : m_entries(entries) {}
    ~TreeSiblingNodes();

    [[nodiscard]] std::span<quint32> Items(NodeId node) const;
    [[nodiscard]] int SlotIn(NodeId node, quint32 item) const;
    [[nodiscard]] int RowsOf(Handle entry) const;
    /// The same for some entries of one leaf; without a look at them when none of the leaf is open.
    [[nodiscard]] int RowsOf(NodeId leaf, std::span<const Handle> entries) const;
    [[nodiscard]] NodeId FirstLeaf(NodeId node) const;
    [[nodiscard]] NodeId LastLeaf(NodeId node) const;
    [[nodiscard]] NodeId NextLeaf(NodeId leaf) const;

    [[nodiscard]] NodeId NewNode(bool isLeaf);
    void FreeList(NodeId root);
    void Resize(NodeId node, quint32 capacity);
    void InsertItem(NodeId node, int slot, quint32 item);
    void EraseItem(NodeId node, int slot);
    /// Moves the items from `slot` on behind those of another node under the same parent.
    void MoveItems(NodeId from, int slot, NodeId to);
    void BeginList(Handle owner);
    /// Puts a node without items behind another one, under the same parent.
    void InsertBehind(Handle owner, NodeId node, NodeId added);
    /// Takes out a node without items.
    void RemoveNode(Handle owner, NodeId node);
    /// Joins a node that is not the root with one beside it when both are sparsely filled.
    void MergeWithNeighbour(Handle owner, NodeId node);
    void AddSums(NodeId node, int entries, int rows);
    /// Tells the lists above that the children of `owner` show more or fewer rows.
    void AddRowsAbove(Handle owner, int rows);

    TreeStore& m_entries;
    TreePool<Node> m_nodes;

private:
    void FreeNode(NodeId node);
    void Adopt(NodeId node, quint32 item);
    void SetRoot(Handle owner, NodeId root);

    qint64 m_itemBytes = 0;
    qint64 m_itemBlocks = 0;
};
