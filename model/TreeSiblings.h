#pragma once

#include "model/TreePool.h"
#include "model/TreeStore.h"

#include <span>
#include <vector>

/// The children of each entry in display order, with the number of rows that they show.
///
/// A list is a counted tree: leaves of at most 256 handles, inner nodes of at most 64 nodes, each with the
/// sums of what is below. So every look-up and change of one entry takes logarithmic time, whichever the
/// number of siblings. The first `SortedHead` children of a list are known to stand in order (the text
/// without case, the text exactly, the handle).
class TreeSiblings
{
public:
    using Handle = TreeStore::Handle;

    /// What a row of a list leads to: row 0 of an entry is the entry itself, its children begin at row 1.
    struct Row
    {
        Handle entry = 0;
        int position = 0;
        int offset = 0;
    };

    explicit TreeSiblings(TreeStore& entries) : m_entries(entries) {}
    ~TreeSiblings();
    TreeSiblings(const TreeSiblings&) = delete;
    TreeSiblings& operator=(const TreeSiblings&) = delete;

    [[nodiscard]] int Count(Handle owner) const;
    /// Rows that the list shows, whether its owner is expanded or not.
    [[nodiscard]] int Rows(Handle owner) const;
    /// 0 outside of the list.
    [[nodiscard]] Handle At(Handle owner, int position) const;
    [[nodiscard]] int PositionOf(Handle entry) const;
    /// 0 after the last.
    [[nodiscard]] Handle Next(Handle entry) const;
    /// Rows of the siblings before an entry.
    [[nodiscard]] int RowsBefore(Handle entry) const;
    /// `row` must be one of the list's.
    [[nodiscard]] Row AtRow(Handle owner, int row) const;
    /// Position of the first entry at `from` or behind it that shows more than one row; -1: none.
    [[nodiscard]] int NextOpen(Handle owner, int from) const;

    /// Puts all children behind what `handles` holds.
    void CopyTo(Handle owner, std::vector<Handle>& handles) const;

    /// All entries that have children, in no order.
    [[nodiscard]] std::vector<Handle> Owners() const;

    [[nodiscard]] int SortedHead(Handle owner) const;
    /// To be told when the text of the entry at position `head` changes where it stands.
    void LimitSortedHead(Handle owner, int head);
    /// Where an entry of that text and handle belongs in a list that is sorted as a whole.
    [[nodiscard]] int LowerBound(Handle owner, const TreeTextView& text, Handle handle) const;

    void Insert(Handle owner, int position, Handle entry);
    void Append(Handle owner, std::span<const Handle> entries);
    void Remove(Handle entry);
    void RemoveAll(Handle owner);
    /// Sorts what is behind the sorted head and merges it in.
    void Sort(Handle owner);
    /// Sets the flag of an entry and the rows above it.
    void SetExpanded(Handle entry, bool expanded);

    [[nodiscard]] qint64 Bytes() const;

private:
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
    struct Place
    {
        NodeId leaf = 0;
        int slot = 0;
    };

    [[nodiscard]] std::span<quint32> Items(NodeId node) const;
    [[nodiscard]] int SlotIn(NodeId node, quint32 item) const;
    [[nodiscard]] int RowsOf(Handle entry) const;
    /// The same for some entries of one leaf; without a look at them when none of the leaf is open.
    [[nodiscard]] int RowsOf(NodeId leaf, std::span<const Handle> entries) const;
    [[nodiscard]] NodeId FirstLeaf(NodeId node) const;
    [[nodiscard]] NodeId LastLeaf(NodeId node) const;
    [[nodiscard]] NodeId NextLeaf(NodeId leaf) const;
    [[nodiscard]] Place PlaceOf(Handle owner, int position) const;
    [[nodiscard]] Place LowerPlace(Handle owner, const TreeTextView& text, Handle handle) const;
    [[nodiscard]] bool IsBefore(Handle entry, const TreeTextView& text, Handle handle) const;
    [[nodiscard]] int NextOpen(NodeId node, int base, int from) const;

    [[nodiscard]] NodeId NewNode(bool isLeaf);
    void FreeNode(NodeId node);
    void FreeList(NodeId root);
    void Resize(NodeId node, quint32 capacity);
    void InsertItem(NodeId node, int slot, quint32 item);
    void EraseItem(NodeId node, int slot);
    /// Moves the items from `slot` on behind those of another node under the same parent.
    void MoveItems(NodeId from, int slot, NodeId to);
    void Adopt(NodeId node, quint32 item);
    void BeginList(Handle owner);
    void SetRoot(Handle owner, NodeId root);
    /// Puts a node without items behind another one, under the same parent.
    void InsertBehind(Handle owner, NodeId node, NodeId added);
    /// Takes out a node without items.
    void RemoveNode(Handle owner, NodeId node);
    void MergeWithNeighbour(Handle owner, NodeId node);
    void AddSums(NodeId node, int entries, int rows);
    void AddRowsAbove(Handle owner, int rows);
    void AppendItems(Handle owner, std::span<const Handle> entries);
    void RemoveTail(Handle owner, int count);
    void MergeSorted(Handle owner, std::span<const Handle> sorted);
    void MergeIntoLeaf(Handle owner, NodeId leaf, std::span<const Handle> sorted);
    void SplitLeaf(Handle owner, NodeId leaf);

    TreeStore& m_entries;
    TreePool<Node> m_nodes;
    qint64 m_itemBytes = 0;
    qint64 m_itemBlocks = 0;
};
