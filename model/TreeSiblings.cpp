#include "model/TreeSiblings.h"

#include "model/TreeSorting.h"

#include <algorithm>

namespace {

void Prefetch([[maybe_unused]] const void* address)
{
#if defined(__GNUC__)
    __builtin_prefetch(address);
#endif
}

} // namespace

// Look-ups ----------------------------------------------------------------------------------------------

int TreeSiblings::Count(Handle owner) const
{
    return int(m_nodes[m_entries[owner].children].entries);
}

int TreeSiblings::Rows(Handle owner) const
{
    return int(m_nodes[m_entries[owner].children].rows);
}

TreeSiblings::Handle TreeSiblings::At(Handle owner, int position) const
{
    if (position < 0 || position >= Count(owner))
        return 0;
    const Place place = PlaceOf(owner, position);
    return Items(place.leaf)[size_t(place.slot)];
}

std::span<const TreeSiblings::Handle> TreeSiblings::RunFrom(Handle owner, int position) const
{
    if (position < 0 || position >= Count(owner))
        return {};
    const Place place = PlaceOf(owner, position);
    return std::span<const Handle>(Items(place.leaf)).subspan(size_t(place.slot));
}

int TreeSiblings::PositionOf(Handle entry) const
{
    quint32 item = entry;
    NodeId node = m_entries[entry].leaf;
    int position = SlotIn(node, item);
    for (item = node, node = m_nodes[node].parent; node != 0; item = node, node = m_nodes[node].parent) {
        for (const NodeId before : Items(node).first(size_t(SlotIn(node, item))))
            position += int(m_nodes[before].entries);
    }
    return position;
}

TreeSiblings::Handle TreeSiblings::Next(Handle entry) const
{
    const NodeId leaf = m_entries[entry].leaf;
    const size_t slot = size_t(SlotIn(leaf, entry)) + 1;
    if (slot < Items(leaf).size())
        return Items(leaf)[slot];
    const NodeId next = NextLeaf(leaf);
    return next != 0 ? Items(next).front() : 0;
}

int TreeSiblings::RowsBefore(Handle entry) const
{
    quint32 item = entry;
    NodeId node = m_entries[entry].leaf;
    int rows = RowsOf(node, Items(node).first(size_t(SlotIn(node, item))));
    for (item = node, node = m_nodes[node].parent; node != 0; item = node, node = m_nodes[node].parent) {
        for (const NodeId before : Items(node).first(size_t(SlotIn(node, item))))
            rows += int(m_nodes[before].rows);
    }
    return rows;
}

TreeSiblings::Row TreeSiblings::AtRow(Handle owner, int row) const
{
    NodeId node = m_entries[owner].children;
    int position = 0;
    while (!m_nodes[node].isLeaf) {
        NodeId below = 0;
        for (const NodeId item : Items(node)) {
            below = item;
            if (row < int(m_nodes[item].rows))
                break;
            row -= int(m_nodes[item].rows);
            position += int(m_nodes[item].entries);
        }
        node = below;
    }
    if (m_nodes[node].rows == m_nodes[node].entries)
        return {Items(node)[size_t(row)], position + row, 0};
    for (const Handle entry : Items(node)) {
        const int rows = RowsOf(entry);
        if (row < rows)
            return {entry, position, row};
        row -= rows;
        ++position;
    }
    return {};
}

int TreeSiblings::NextOpen(Handle owner, int from) const
{
    return NextOpen(m_entries[owner].children, 0, from);
}

int TreeSiblings::NextOpen(NodeId node, int base, int from) const
{
    const Node& tree = m_nodes[node];
    if (tree.rows == tree.entries || base + int(tree.entries) <= from)
        return -1;
    if (tree.isLeaf) {
        for (int slot = std::max(0, from - base); slot < int(tree.count); ++slot) {
            if (RowsOf(tree.items[slot]) > 1)
                return base + slot;
        }
        return -1;
    }
    for (const NodeId below : Items(node)) {
        if (const int found = NextOpen(below, base, from); found >= 0)
            return found;
        base += int(m_nodes[below].entries);
    }
    return -1;
}

void TreeSiblings::CopyTo(Handle owner, std::vector<Handle>& handles, int from) const
{
    if (from >= Count(owner))
        return;
    for (Place place = PlaceOf(owner, from); place.leaf != 0; place = {NextLeaf(place.leaf), 0}) {
        const std::span<quint32> items = Items(place.leaf).subspan(size_t(place.slot));
        handles.insert(handles.end(), items.begin(), items.end());
    }
}

int TreeSiblings::SortedHead(Handle owner) const
{
    return int(m_nodes[m_entries[owner].children].sortedHead);
}

void TreeSiblings::LimitSortedHead(Handle owner, int head)
{
    quint32& known = m_nodes[m_entries[owner].children].sortedHead;
    known = std::min(known, quint32(head));
}

int TreeSiblings::LowerBound(Handle owner, const TreeTextView& text, Handle handle) const
{
    if (Count(owner) == 0)
        return 0;
    const Place place = LowerPlace(owner, text, handle);
    const int first = PositionOf(Items(place.leaf).front());
    return first + place.slot;
}

TreeSiblings::Place TreeSiblings::PlaceOf(Handle owner, int position) const
{
    NodeId node = m_entries[owner].children;
    while (!m_nodes[node].isLeaf) {
        NodeId below = 0;
        for (const NodeId item : Items(node)) {
            if (below != 0)
                position -= int(m_nodes[below].entries);
            below = item;
            if (position < int(m_nodes[item].entries))
                break;
        }
        node = below;
    }
    return {node, position};
}

bool TreeSiblings::IsBefore(Handle entry, const TreeTextView& text, Handle handle) const
{
    const int difference = TreeTextView::Compare(m_entries[entry].text.View(), text);
    return difference < 0 || (difference == 0 && entry < handle);
}

TreeSiblings::Place TreeSiblings::LowerPlace(Handle owner, const TreeTextView& text, Handle handle) const
{
    NodeId node = m_entries[owner].children;
    while (!m_nodes[node].isLeaf) {
        // The last node whose first entry stands before.
        const std::span<quint32> items = Items(node);
        const auto behind = std::partition_point(items.begin() + 1, items.end(), [&](NodeId below) {
            return IsBefore(Items(FirstLeaf(below)).front(), text, handle);
        });
        node = *(behind - 1);
    }
    const std::span<quint32> items = Items(node);
    const auto slot = std::partition_point(items.begin(), items.end(),
                                           [&](Handle entry) { return IsBefore(entry, text, handle); });
    return {node, int(slot - items.begin())};
}

// Changes -----------------------------------------------------------------------------------------------

void TreeSiblings::Insert(Handle owner, int position, Handle entry)
{
    if (m_entries[owner].children == 0)
        BeginList(owner);
    Place place = PlaceOf(owner, position);
    if (m_nodes[place.leaf].count == LeafCapacity) {
        const NodeId added = NewNode(true);
        InsertBehind(owner, place.leaf, added);
        // At the very end a new leaf begins, so that a list filled in order has full leaves.
        const int kept = position == Count(owner) ? LeafCapacity : LeafCapacity / 2;
        MoveItems(place.leaf, kept, added);
        if (place.slot > kept || kept == LeafCapacity)
            place = {added, place.slot - kept};
    }
    InsertItem(place.leaf, place.slot, entry);
    const int rows = RowsOf(entry);
    AddSums(place.leaf, 1, rows);
    AddRowsAbove(owner, rows);

    const int head = SortedHead(owner);
    const bool afterPrevious =
        position == 0 || CompareTreeEntries(m_entries, At(owner, position - 1), entry) < 0;
    const bool beforeNext =
        position >= head || CompareTreeEntries(m_entries, entry, At(owner, position + 1)) < 0;
    Node& root = m_nodes[m_entries[owner].children];
    if (position <= head)
        root.sortedHead = quint32(afterPrevious && beforeNext ? head + 1 : position);
}

void TreeSiblings::Append(Handle owner, std::span<const Handle> entries)
{
    int count = Count(owner);
    int head = SortedHead(owner);
    Handle last = At(owner, count - 1);
    for (const Handle entry : entries) {
        if (head < count || (last != 0 && CompareTreeEntries(m_entries, last, entry) > 0))
            break;
        last = entry;
        ++head;
        ++count;
    }
    AppendItems(owner, entries);
    m_nodes[m_entries[owner].children].sortedHead = quint32(head);
}

void TreeSiblings::AppendItems(Handle owner, std::span<const Handle> entries)
{
    if (entries.empty())
        return;
    if (m_entries[owner].children == 0)
        BeginList(owner);
    NodeId leaf = LastLeaf(m_entries[owner].children);
    int allRows = 0;
    while (!entries.empty()) {
        if (m_nodes[leaf].count == LeafCapacity) {
            const NodeId added = NewNode(true);
            InsertBehind(owner, leaf, added);
            leaf = added;
        }
        Node& filled = m_nodes[leaf];
        const std::span<const Handle> part =
            entries.first(std::min(entries.size(), size_t(LeafCapacity - filled.count)));
        if (filled.capacity < filled.count + part.size())
            Resize(leaf, filled.count + quint32(part.size()));
        std::copy(part.begin(), part.end(), filled.items + filled.count);
        filled.count += quint32(part.size());
        int rows = 0;
        for (const Handle entry : part) {
            m_entries[entry].leaf = leaf;
            rows += RowsOf(entry);
        }
        AddSums(leaf, int(part.size()), rows);
        allRows += rows;
        entries = entries.subspan(part.size());
    }
    AddRowsAbove(owner, allRows);
}

void TreeSiblings::Remove(Handle entry)
{
    const Handle owner = m_entries[entry].parent;
    quint32& head = m_nodes[m_entries[owner].children].sortedHead;
    if (int(head) == Count(owner) || PositionOf(entry) < int(head))
        --head;

    const NodeId leaf = m_entries[entry].leaf;
    const int rows = RowsOf(entry);
    EraseItem(leaf, SlotIn(leaf, entry));
    AddSums(leaf, -1, -rows);
    AddRowsAbove(owner, -rows);
    m_entries[entry].leaf = 0;
    if (m_nodes[leaf].count == 0)
        RemoveNode(owner, leaf);
    else if (m_nodes[leaf].count < LeafCapacity / 4 && m_nodes[leaf].parent != 0)
        MergeWithNeighbour(owner, leaf);
}

void TreeSiblings::RemoveAll(Handle owner)
{
    const NodeId root = m_entries[owner].children;
    if (root == 0)
        return;
    for (NodeId leaf = FirstLeaf(root); leaf != 0; leaf = NextLeaf(leaf)) {
        for (const Handle entry : Items(leaf))
            m_entries[entry].leaf = 0;
    }
    AddRowsAbove(owner, -Rows(owner));
    FreeList(root);
    m_entries[owner].children = 0;
}

void TreeSiblings::RemoveTail(Handle owner, int count)
{
    int allRows = 0;
    while (count > 0) {
        const NodeId leaf = LastLeaf(m_entries[owner].children);
        const int removed = std::min(count, int(m_nodes[leaf].count));
        const std::span<quint32> tail = Items(leaf).last(size_t(removed));
        const int rows = RowsOf(leaf, tail);
        for (const Handle entry : tail)
            m_entries[entry].leaf = 0;
        m_nodes[leaf].count -= quint32(removed);
        AddSums(leaf, -removed, -rows);
        allRows += rows;
        count -= removed;
        if (m_nodes[leaf].count == 0)
            RemoveNode(owner, leaf);
    }
    AddRowsAbove(owner, -allRows);
}

void TreeSiblings::SetExpanded(Handle entry, bool expanded)
{
    TreeEntry& changed = m_entries[entry];
    if (changed.expanded == expanded)
        return;
    const int rows = expanded ? Rows(entry) : -Rows(entry);
    changed.expanded = expanded;
    AddSums(changed.leaf, 0, rows);
    AddRowsAbove(changed.parent, rows);
}

void TreeSiblings::Sort(Handle owner)
{
    const int count = Count(owner);
    const int head = SortedHead(owner);
    if (head == count)
        return;
    std::vector<Handle> tail;
    tail.reserve(size_t(count - head));
    CopyTo(owner, tail, head);
    SortTreeEntries(m_entries, tail);

    const Handle last = At(owner, head - 1);
    RemoveTail(owner, count - head);
    if (last == 0 || CompareTreeEntries(m_entries, last, tail.front()) < 0)
        AppendItems(owner, tail);
    else
        MergeSorted(owner, tail);
    m_nodes[m_entries[owner].children].sortedHead = quint32(count);
}

void TreeSiblings::MergeSorted(Handle owner, std::span<const Handle> sorted)
{
    const auto standsBefore = [this](Handle entry, NodeId leaf) {
        return leaf == 0 || CompareTreeEntries(m_entries, entry, Items(leaf).front()) < 0;
    };
    const auto leafOf = [this, owner](Handle entry) {
        return LowerPlace(owner, m_entries[entry].text.View(), entry).leaf;
    };
    NodeId leaf = leafOf(sorted.front());
    while (!sorted.empty()) {
        const NodeId next = NextLeaf(leaf);
        size_t size = 1;
        while (size < sorted.size() && standsBefore(sorted[size], next))
            ++size;
        MergeIntoLeaf(owner, leaf, sorted.first(size));
        sorted = sorted.subspan(size);
        if (!sorted.empty())
            leaf = standsBefore(sorted.front(), NextLeaf(next)) ? next : leafOf(sorted.front());
    }
}

void TreeSiblings::MergeIntoLeaf(Handle owner, NodeId leaf, std::span<const Handle> sorted)
{
    // Below this share of new entries a search for each place costs less than a look at every entry.
    constexpr size_t SearchShare = 32;

    const std::span<quint32> items = Items(leaf);
    std::vector<Handle> merged;
    merged.reserve(items.size() + sorted.size());
    const auto before = [this](Handle left, Handle right) {
        return CompareTreeEntries(m_entries, left, right) < 0;
    };
    if (sorted.size() * SearchShare < items.size()) {
        auto from = items.begin();
        for (const Handle entry : sorted) {
            const auto place = std::lower_bound(from, items.end(), entry, before);
            merged.insert(merged.end(), from, place);
            merged.push_back(entry);
            from = place;
        }
        merged.insert(merged.end(), from, items.end());
    } else {
        for (const Handle entry : items)
            Prefetch(&m_entries[entry]);
        std::merge(items.begin(), items.end(), sorted.begin(), sorted.end(), std::back_inserter(merged),
                   before);
    }

    if (m_nodes[leaf].capacity < merged.size())
        Resize(leaf, quint32(merged.size()));
    std::copy(merged.begin(), merged.end(), m_nodes[leaf].items);
    m_nodes[leaf].count = quint32(merged.size());
    int rows = 0;
    for (const Handle entry : sorted) {
        m_entries[entry].leaf = leaf;
        rows += RowsOf(entry);
    }
    AddSums(leaf, int(sorted.size()), rows);
    AddRowsAbove(owner, rows);
    SplitLeaf(owner, leaf);
}

void TreeSiblings::SplitLeaf(Handle owner, NodeId leaf)
{
    const int count = int(m_nodes[leaf].count);
    const int parts = (count + LeafCapacity - 1) / LeafCapacity;
    if (parts < 2)
        return;
    for (int part = parts - 1; part > 0; --part) {
        const NodeId added = NewNode(true);
        InsertBehind(owner, leaf, added);
        MoveItems(leaf, int(qint64(count) * part / parts), added);
    }
    Resize(leaf, LeafCapacity);
}
