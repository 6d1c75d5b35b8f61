#include "model/TreeChanges.h"

#include "model/TreeEntriesStore.h"

#include <algorithm>

TreeChanges::TreeChanges(TreeEntries& tree)
{
    if (tree.m_changes)
        return;
    m_tree = &tree;
    tree.m_changes = this;
}

TreeChanges::~TreeChanges()
{
    if (m_tree)
        m_tree->m_changes = nullptr;
}

TreeEntries::Store& TreeChanges::Store() const
{
    return *m_tree->m_store;
}

void TreeChanges::Keep()
{
    m_log.clear();
    m_state = State::Recording;
}

void TreeChanges::Undo()
{
    if (m_state != State::Recording)
        return;
    m_state = State::Undoing;
    // A receiver may clear the tree or end it.
    while (!m_log.empty() && m_tree && m_state == State::Undoing) {
        Change change = std::move(m_log.back());
        m_log.pop_back();
        std::visit([this](auto& undone) { UndoChange(undone); }, change);
    }
    if (m_state == State::Undoing)
        m_state = State::Recording;
}

// Noting --------------------------------------------------------------------------------------------------

void TreeChanges::NoteAdded(Handle first, int count)
{
    Added* last = m_log.empty() ? nullptr : std::get_if<Added>(&m_log.back());
    if (last && last->first + Handle(last->count) == first)
        last->count += count;
    else
        m_log.push_back(Added{first, count});
}

void TreeChanges::TakeBelow(Handle owner, int position, std::vector<Handle> entries)
{
    TreeEntries::Store& store = Store();
    Removed removed = {owner, position, entries.size(), std::move(entries), {}, {}};
    for (size_t at = 0; at < removed.handles.size(); ++at) {
        const Handle entry = removed.handles[at];
        store.siblings.CopyTo(entry, removed.handles);
        store.siblings.RemoveAll(entry);
        if (const QString tag = store.entries.Tag(entry); !tag.isEmpty())
            removed.tags.emplace_back(entry, tag);
        removed.entries.push_back(store.entries.Take(entry));
    }
    m_log.push_back(std::move(removed));
}

void TreeChanges::NoteKey(Handle entry)
{
    m_log.push_back(Key{entry, Store().entries[entry].Key()});
}

void TreeChanges::NoteText(Handle entry)
{
    m_log.push_back(
        Text{entry, Store().siblings.PositionOf(entry), Store().entries[entry].text.View().ToString()});
}

void TreeChanges::NoteTag(Handle entry)
{
    m_log.push_back(Tag{entry, Store().entries.Tag(entry)});
}

void TreeChanges::NoteExpanded(Handle entry)
{
    m_log.push_back(Expanded{entry, Store().entries[entry].expanded});
}

void TreeChanges::NoteSorted(Handle owner, bool sorts)
{
    std::vector<Handle> tail;
    if (sorts)
        Store().siblings.CopyTo(owner, tail, Store().siblings.SortedHead(owner));
    m_log.push_back(Sorted{owner, Store().entries[owner].sorted, std::move(tail)});
}

void TreeChanges::NoteCleared()
{
    m_log.clear();
    m_state = State::Cleared;
}

// Undoing -------------------------------------------------------------------------------------------------

void TreeChanges::UndoChange(const Added& added)
{
    const TreeStore& entries = Store().entries;
    const TreeSiblings& siblings = Store().siblings;
    Handle end = added.first + Handle(added.count);
    while (end > added.first) {
        const Handle last = --end;
        if (!m_tree || m_state != State::Undoing || !m_tree->Exists(TreeEntries::Index(last)))
            continue;
        // Those that stand in a row go in one step.
        const Handle owner = entries[last].parent;
        int position = siblings.PositionOf(last);
        const int lastPosition = position;
        while (end > added.first && position > 0 && siblings.At(owner, position - 1) == end - 1) {
            --end;
            --position;
        }
        m_tree->RemoveRange(owner, position, lastPosition - position + 1);
    }
}

void TreeChanges::UndoChange(Removed& removed)
{
    if (!HasPlaceFor(removed))
        return;
    TreeSiblings& siblings = Store().siblings;
    const int position = std::min(removed.position, siblings.Count(removed.owner));
    const std::span<const Handle> tops = std::span(removed.handles).first(removed.tops);
    m_tree->beginInsertRows(m_tree->IndexOf(removed.owner), position, position + int(tops.size()) - 1);
    RestoreBelow(removed);
    if (position == siblings.Count(removed.owner)) {
        siblings.Append(removed.owner, tops);
    } else {
        int place = position;
        for (const Handle entry : tops)
            siblings.Insert(removed.owner, place++, entry);
    }
    m_tree->endInsertRows();
}

/// False when a receiver has taken the place of what was removed.
bool TreeChanges::HasPlaceFor(const Removed& removed) const
{
    if (removed.owner != 0 && !m_tree->Exists(TreeEntries::Index(removed.owner)))
        return false;
    return std::none_of(removed.entries.begin(), removed.entries.end(),
                        [this](const TreeEntry& entry) { return Store().entries.FindKey(entry.Key()) != 0; });
}

/// Brings the entries back; all but the tops stand under their parents.
void TreeChanges::RestoreBelow(Removed& removed)
{
    TreeEntries::Store& store = Store();
    for (size_t at = 0; at < removed.handles.size(); ++at)
        store.entries.Restore(removed.handles[at], std::move(removed.entries[at]));
    for (const auto& [entry, tag] : removed.tags)
        store.entries.SetTag(entry, tag);
    const std::span<const Handle> handles = removed.handles;
    for (size_t at = removed.tops; at < handles.size();) {
        const Handle owner = store.entries[handles[at]].parent;
        size_t end = at + 1;
        while (end < handles.size() && store.entries[handles[end]].parent == owner)
            ++end;
        store.siblings.Append(owner, handles.subspan(at, end - at));
        at = end;
    }
}

void TreeChanges::UndoChange(const Key& key)
{
    const auto entry = TreeEntries::Index(key.entry);
    const Handle holder = Store().entries.FindKey(key.key);
    if (!m_tree->Exists(entry) || (holder != 0 && holder != key.entry))
        return;
    Store().entries.SetKey(key.entry, key.key);
    m_tree->TellChange(entry);
}

void TreeChanges::UndoChange(const Text& text)
{
    if (!m_tree->Exists(TreeEntries::Index(text.entry)))
        return;
    const int last = Store().siblings.Count(Store().entries[text.entry].parent) - 1;
    m_tree->ChangeText(text.entry, text.text, std::min(text.position, last));
}

void TreeChanges::UndoChange(const Tag& tag)
{
    m_tree->SetTag(TreeEntries::Index(tag.entry), tag.tag);
}

void TreeChanges::UndoChange(const Expanded& expanded)
{
    m_tree->SetExpanded(TreeEntries::Index(expanded.entry), expanded.expanded);
}

void TreeChanges::UndoChange(const Sorted& sorted)
{
    if (sorted.owner != 0 && !m_tree->Exists(TreeEntries::Index(sorted.owner)))
        return;
    TreeEntries::Store& store = Store();
    store.entries[sorted.owner].sorted = sorted.sorted;
    std::vector<Handle> tail = sorted.tail;
    std::erase_if(tail, [&](Handle entry) {
        return !m_tree->Exists(TreeEntries::Index(entry)) || store.entries[entry].parent != sorted.owner;
    });
    if (tail.empty())
        return;
    m_tree->Rearrange(sorted.owner, [&] {
        for (const Handle entry : tail)
            store.siblings.Remove(entry);
        store.siblings.Append(sorted.owner, tail);
    });
}
