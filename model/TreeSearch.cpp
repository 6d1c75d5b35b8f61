#include "model/TreeSearch.h"

#include <algorithm>

namespace {

using Handle = TreeStore::Handle;

/// One search for a prefix.
class PrefixSearch
{
public:
    PrefixSearch(const TreeStore& entries, const TreeSiblings& siblings, const TreeTextView& prefix)
        : m_entries(entries), m_siblings(siblings), m_prefix(prefix)
    {}

    /// The first match among the children of `owner` from a position on and what is shown below them.
    [[nodiscard]] Handle Below(Handle owner, int position) const
    {
        const int own = NextOwn(owner, position);
        const int end = own >= 0 ? own : m_siblings.Count(owner);
        for (int open = m_siblings.NextOpen(owner, position); open >= 0 && open < end;
             open = m_siblings.NextOpen(owner, open + 1)) {
            if (const Handle found = Below(m_siblings.At(owner, open), 0))
                return found;
        }
        return own >= 0 ? m_siblings.At(owner, own) : 0;
    }

private:
    [[nodiscard]] bool Matches(Handle entry) const
    {
        return m_entries[entry].text.View().StartsWithFolded(m_prefix);
    }

    /// Position of the first child that matches itself; -1: none.
    [[nodiscard]] int NextOwn(Handle owner, int position) const
    {
        const int head = m_siblings.SortedHead(owner);
        if (position < head) {
            position = std::max(position, LowerBound(owner, head));
            if (position < head && Matches(m_siblings.At(owner, position)))
                return position;
            position = head;
        }
        for (Handle entry = m_siblings.At(owner, position); entry != 0;
             entry = m_siblings.Next(entry), ++position) {
            if (Matches(entry))
                return position;
        }
        return -1;
    }

    /// Where entries that begin with the prefix begin in the sorted part.
    [[nodiscard]] int LowerBound(Handle owner, int head) const
    {
        int low = 0;
        int high = head;
        while (low < high) {
            const int middle = low + (high - low) / 2;
            const TreeTextView text = m_entries[m_siblings.At(owner, middle)].text.View();
            if (TreeTextView::CompareFolded(text, m_prefix) < 0)
                low = middle + 1;
            else
                high = middle;
        }
        return low;
    }

    const TreeStore& m_entries;
    const TreeSiblings& m_siblings;
    const TreeTextView& m_prefix;
};

/// Marks for all handles of a tree.
class HandleMarks
{
public:
    explicit HandleMarks(Handle end) : m_words(end / 64 + 1) {}

    void Set(Handle handle) { m_words[handle / 64] |= quint64(1) << (handle % 64); }
    [[nodiscard]] bool Has(Handle handle) const { return (m_words[handle / 64] >> (handle % 64) & 1) != 0; }

private:
    std::vector<quint64> m_words;
};

/// Goes through a tree in display order and takes what is marked. The entries themselves, which lie anywhere
/// in memory, are not looked at.
class MarkedInOrder
{
public:
    MarkedInOrder(const TreeSiblings& siblings, const HandleMarks& marked, const HandleMarks& owners,
                  std::vector<TreeEntries::Found>& taken)
        : m_siblings(siblings), m_marked(marked), m_owners(owners), m_taken(taken)
    {}

    void TakeBelow(Handle owner)
    {
        int position = 0;
        for (auto run = m_siblings.RunFrom(owner, 0); !run.empty();
             run = m_siblings.RunFrom(owner, position)) {
            for (const Handle entry : run) {
                if (m_marked.Has(entry))
                    m_taken.push_back({TreeEntries::Index(entry), TreeEntries::Index(owner)});
                if (m_owners.Has(entry))
                    TakeBelow(entry);
            }
            position += int(run.size());
        }
    }

private:
    const TreeSiblings& m_siblings;
    const HandleMarks& m_marked;
    const HandleMarks& m_owners;
    std::vector<TreeEntries::Found>& m_taken;
};

} // namespace

Handle FindTreePrefix(const TreeStore& entries, const TreeSiblings& siblings, Handle from,
                      const TreeTextView& prefix)
{
    const PrefixSearch search(entries, siblings, prefix);
    if (from != 0 && entries[from].expanded) {
        if (const Handle found = search.Below(from, 0))
            return found;
    }
    for (Handle entry = from; entry != 0; entry = entries[entry].parent) {
        if (const Handle found = search.Below(entries[entry].parent, siblings.PositionOf(entry) + 1))
            return found;
    }
    return search.Below(0, 0);
}

bool FindTreeMatches(const TreeStore& entries, const TreePattern& pattern, TreeEntries::Index& next, int most,
                     std::vector<TreeEntries::Index>& found)
{
    const Handle end = Handle(std::min<qint64>(entries.End(), qint64(next) + most));
    for (Handle from = Handle(next); from < end;) {
        const Handle pageEnd = std::min(end, entries.EndOfPage(from));
        Handle handle = from;
        for (const TreeEntry& entry : entries.Places(from, pageEnd)) {
            if (entry.kind != '\0' && entry.parent != 0 && pattern.OccursIn(entry.text.View()))
                found.push_back(TreeEntries::Index(handle));
            ++handle;
        }
        from = pageEnd;
    }
    next = TreeEntries::Index(end);
    return end < entries.End();
}

std::vector<TreeEntries::Found> InTreeOrder(const TreeStore& entries, const TreeSiblings& siblings,
                                            std::span<const TreeEntries::Index> found)
{
    std::vector<TreeEntries::Found> ordered;
    if (found.empty())
        return ordered;
    HandleMarks marked(entries.End());
    for (const TreeEntries::Index entry : found)
        marked.Set(Handle(entry));
    HandleMarks owners(entries.End());
    for (const Handle owner : siblings.Owners())
        owners.Set(owner);
    ordered.reserve(found.size());
    MarkedInOrder(siblings, marked, owners, ordered).TakeBelow(0);
    return ordered;
}
