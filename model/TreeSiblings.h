#pragma once

#include "model/TreeSiblingNodes.h"

#include <span>
#include <vector>

/// The children of each entry in display order, with the number of rows that they show.
///
/// Every look-up and change of one entry takes logarithmic time, whatever the number of siblings. The first
/// `SortedHead` children of a list are known to stand in order (the text without case, the text exactly, the
/// handle).
class TreeSiblings : public TreeSiblingNodes
{
public:
    /// What a row of a list leads to: row 0 of an entry is the entry itself, its children begin at row 1.
    struct Row
    {
        Handle entry = 0;
        int position = 0;
        int offset = 0;
    };

    explicit TreeSiblings(TreeStore& entries) : TreeSiblingNodes(entries) {}

    [[nodiscard]] int Count(Handle owner) const;
    /// Rows that the list shows, whether its owner is expanded or not.
    [[nodiscard]] int Rows(Handle owner) const;
    /// 0 outside of the list.
    [[nodiscard]] Handle At(Handle owner, int position) const;
    /// Some of the list, from a position on; empty behind the last. Holds until the next change.
    [[nodiscard]] std::span<const Handle> RunFrom(Handle owner, int position) const;
    [[nodiscard]] int PositionOf(Handle entry) const;
    /// 0 after the last.
    [[nodiscard]] Handle Next(Handle entry) const;
    /// Rows of the siblings before an entry.
    [[nodiscard]] int RowsBefore(Handle entry) const;
    /// `row` must be one of the list's.
    [[nodiscard]] Row AtRow(Handle owner, int row) const;
    /// Position of the first entry at `from` or behind it that shows more than one row; -1: none.
    [[nodiscard]] int NextOpen(Handle owner, int from) const;

    /// Puts the children from a position on behind what `handles` holds.
    void CopyTo(Handle owner, std::vector<Handle>& handles, int from = 0) const;

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

private:
    struct Place
    {
        NodeId leaf = 0;
        int slot = 0;
    };

    [[nodiscard]] Place PlaceOf(Handle owner, int position) const;
    [[nodiscard]] Place LowerPlace(Handle owner, const TreeTextView& text, Handle handle) const;
    [[nodiscard]] bool IsBefore(Handle entry, const TreeTextView& text, Handle handle) const;
    [[nodiscard]] int NextOpen(NodeId node, int base, int from) const;
    void AppendItems(Handle owner, std::span<const Handle> entries);
    void RemoveTail(Handle owner, int count);
    void MergeSorted(Handle owner, std::span<const Handle> sorted);
    void MergeIntoLeaf(Handle owner, NodeId leaf, std::span<const Handle> sorted);
    void SplitLeaf(Handle owner, NodeId leaf);
};
