#include "model/TreeSearch.h"

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
