#include "model/TreeSiblingNodes.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

constexpr quint32 SmallestCapacity = 4;

} // namespace

TreeSiblingNodes::~TreeSiblingNodes()
{
    m_nodes.ForEach([](const Node& node) { std::free(node.items); });
}

std::vector<TreeSiblingNodes::Handle> TreeSiblingNodes::Owners() const
{
    std::vector<Handle> owners;
    m_nodes.ForEach([&owners](const Node& node) {
        if (node.owner != 0)
            owners.push_back(node.owner);
    });
    return owners;
}

std::span<quint32> TreeSiblingNodes::Items(NodeId node) const
{
    return {m_nodes[node].items, m_nodes[node].count};
}

int TreeSiblingNodes::SlotIn(NodeId node, quint32 item) const
{
    const std::span<quint32> items = Items(node);
    return int(std::find(items.begin(), items.end(), item) - items.begin());
}

int TreeSiblingNodes::RowsOf(Handle entry) const
{
    const TreeEntry& shown = m_entries[entry];
    return shown.expanded ? 1 + int(m_nodes[shown.children].rows) : 1;
}

int TreeSiblingNodes::RowsOf(NodeId leaf, std::span<const Handle> entries) const
{
    if (m_nodes[leaf].rows == m_nodes[leaf].entries)
        return int(entries.size());
    int rows = 0;
    for (const Handle entry : entries)
        rows += RowsOf(entry);
    return rows;
}

TreeSiblingNodes::NodeId TreeSiblingNodes::FirstLeaf(NodeId node) const
{
    while (!m_nodes[node].isLeaf)
        node = Items(node).front();
    return node;
}

TreeSiblingNodes::NodeId TreeSiblingNodes::LastLeaf(NodeId node) const
{
    while (!m_nodes[node].isLeaf)
        node = Items(node).back();
    return node;
}

TreeSiblingNodes::NodeId TreeSiblingNodes::NextLeaf(NodeId leaf) const
{
    NodeId node = leaf;
    for (NodeId parent = m_nodes[node].parent; parent != 0; node = parent, parent = m_nodes[node].parent) {
        const size_t next = size_t(SlotIn(parent, node)) + 1;
        if (next < Items(parent).size())
            return FirstLeaf(Items(parent)[next]);
    }
    return 0;
}

TreeSiblingNodes::NodeId TreeSiblingNodes::NewNode(bool isLeaf)
{
    const NodeId node = m_nodes.Take();
    m_nodes[node].isLeaf = isLeaf;
    return node;
}

void TreeSiblingNodes::FreeNode(NodeId node)
{
    Resize(node, 0);
    m_nodes.Give(node);
}

void TreeSiblingNodes::FreeList(NodeId root)
{
    if (!m_nodes[root].isLeaf) {
        for (const NodeId below : Items(root))
            FreeList(below);
    }
    FreeNode(root);
}

void TreeSiblingNodes::Resize(NodeId node, quint32 capacity)
{
    Node& resized = m_nodes[node];
    if (capacity == 0) {
        std::free(resized.items);
        resized.items = nullptr;
    } else {
        void* items = std::realloc(resized.items, capacity * sizeof(quint32));
        if (!items)
            throw std::bad_alloc();
        resized.items = static_cast<quint32*>(items);
    }
    m_itemBytes += (qint64(capacity) - qint64(resized.capacity)) * qint64(sizeof(quint32));
    m_itemBlocks += int(capacity != 0) - int(resized.capacity != 0);
    resized.capacity = capacity;
}

void TreeSiblingNodes::InsertItem(NodeId node, int slot, quint32 item)
{
    Node& changed = m_nodes[node];
    if (changed.count == changed.capacity) {
        const quint32 limit = changed.isLeaf ? LeafCapacity : InnerCapacity;
        Resize(node, std::clamp(changed.capacity * 2, SmallestCapacity, limit));
    }
    quint32* place = changed.items + slot;
    std::memmove(place + 1, place, (changed.count - quint32(slot)) * sizeof(quint32));
    *place = item;
    ++changed.count;
    Adopt(node, item);
}

void TreeSiblingNodes::EraseItem(NodeId node, int slot)
{
    Node& changed = m_nodes[node];
    quint32* place = changed.items + slot;
    --changed.count;
    std::memmove(place, place + 1, (changed.count - quint32(slot)) * sizeof(quint32));
    if (changed.capacity > SmallestCapacity && changed.count <= changed.capacity / 4)
        Resize(node, changed.capacity / 2);
}

void TreeSiblingNodes::MoveItems(NodeId from, int slot, NodeId to)
{
    const std::span<quint32> moved = Items(from).subspan(size_t(slot));
    int entries = int(moved.size());
    int rows = 0;
    if (m_nodes[from].isLeaf) {
        rows = RowsOf(from, moved);
    } else {
        entries = 0;
        for (const NodeId node : moved) {
            entries += int(m_nodes[node].entries);
            rows += int(m_nodes[node].rows);
        }
    }
    Node& target = m_nodes[to];
    Node& source = m_nodes[from];
    if (target.capacity < target.count + moved.size())
        Resize(to, target.count + quint32(moved.size()));
    std::copy(moved.begin(), moved.end(), target.items + target.count);
    target.count += quint32(moved.size());
    for (const quint32 item : moved)
        Adopt(to, item);
    source.count = quint32(slot);
    source.entries -= quint32(entries);
    source.rows -= quint32(rows);
    target.entries += quint32(entries);
    target.rows += quint32(rows);
}

void TreeSiblingNodes::Adopt(NodeId node, quint32 item)
{
    if (m_nodes[node].isLeaf)
        m_entries[item].leaf = node;
    else
        m_nodes[item].parent = node;
}

void TreeSiblingNodes::BeginList(Handle owner)
{
    const NodeId root = NewNode(true);
    m_nodes[root].owner = owner;
    m_entries[owner].children = root;
}

void TreeSiblingNodes::SetRoot(Handle owner, NodeId root)
{
    NodeId& children = m_entries[owner].children;
    m_nodes[root].sortedHead = m_nodes[children].sortedHead;
    m_nodes[root].owner = owner;
    m_nodes[children].owner = 0;
    m_nodes[root].parent = 0;
    children = root;
}

void TreeSiblingNodes::InsertBehind(Handle owner, NodeId node, NodeId added)
{
    if (m_nodes[node].parent == 0) {
        const NodeId root = NewNode(false);
        m_nodes[root].entries = m_nodes[node].entries;
        m_nodes[root].rows = m_nodes[node].rows;
        SetRoot(owner, root);
        InsertItem(root, 0, node);
    } else if (const NodeId parent = m_nodes[node].parent; m_nodes[parent].count == InnerCapacity) {
        const NodeId sibling = NewNode(false);
        InsertBehind(owner, parent, sibling);
        MoveItems(parent, InnerCapacity / 2, sibling);
    }
    const NodeId parent = m_nodes[node].parent;
    InsertItem(parent, SlotIn(parent, node) + 1, added);
}

void TreeSiblingNodes::RemoveNode(Handle owner, NodeId node)
{
    const NodeId parent = m_nodes[node].parent;
    FreeNode(node);
    if (parent == 0) {
        m_entries[owner].children = 0;
        return;
    }
    EraseItem(parent, SlotIn(parent, node));
    if (m_nodes[parent].count == 0) {
        RemoveNode(owner, parent);
    } else if (m_nodes[parent].parent != 0) {
        if (m_nodes[parent].count < InnerCapacity / 4)
            MergeWithNeighbour(owner, parent);
    } else if (m_nodes[parent].count == 1) {
        SetRoot(owner, Items(parent).front());
        FreeNode(parent);
    }
}

void TreeSiblingNodes::MergeWithNeighbour(Handle owner, NodeId node)
{
    const NodeId parent = m_nodes[node].parent;
    const quint32 limit = quint32(m_nodes[node].isLeaf ? LeafCapacity : InnerCapacity) * 3 / 4;
    const std::span<quint32> items = Items(parent);
    const size_t slot = size_t(SlotIn(parent, node));
    if (slot + 1 < items.size() && m_nodes[node].count + m_nodes[items[slot + 1]].count <= limit) {
        const NodeId next = items[slot + 1];
        MoveItems(next, 0, node);
        RemoveNode(owner, next);
    } else if (slot > 0 && m_nodes[node].count + m_nodes[items[slot - 1]].count <= limit) {
        MoveItems(node, 0, items[slot - 1]);
        RemoveNode(owner, node);
    }
}

void TreeSiblingNodes::AddSums(NodeId node, int entries, int rows)
{
    for (; node != 0; node = m_nodes[node].parent) {
        m_nodes[node].entries += quint32(entries);
        m_nodes[node].rows += quint32(rows);
    }
}

void TreeSiblingNodes::AddRowsAbove(Handle owner, int rows)
{
    // A list without a place ends the way up: its entries are being removed.
    while (rows != 0 && m_entries[owner].expanded && m_entries[owner].leaf != 0) {
        AddSums(m_entries[owner].leaf, 0, rows);
        owner = m_entries[owner].parent;
    }
}

qint64 TreeSiblingNodes::Bytes() const
{
    constexpr qint64 BlockOverhead = 16;
    return m_nodes.Bytes() + m_itemBytes + m_itemBlocks * BlockOverhead;
}
