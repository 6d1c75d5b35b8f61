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

/// One step of a search for what contains a text.
class MatchSearch
{
public:
    MatchSearch(const TreeStore& entries, const TreeSiblings& siblings, const TreePattern& pattern, int most,
                std::vector<TreeEntries::Index>& found)
        : m_entries(entries), m_siblings(siblings), m_pattern(pattern), m_most(most), m_found(found)
    {}

    [[nodiscard]] bool Run(TreeEntries::SearchPlace& place)
    {
        const Handle root = m_siblings.At(0, 0);
        while (root != 0 && m_most > 0) {
            const std::span<const Handle> run = m_siblings.RunFrom(root, place.child);
            if (run.empty())
                return false;
            for (size_t at = 0; at < run.size(); ++at) {
                if (m_most <= 0)
                    return true;
                if (place.below == 0)
                    LookAt(run, at);
                if (!LookBelow(run[at], place.below))
                    return true;
                ++place.child;
                place.below = 0;
            }
        }
        return root != 0;
    }

private:
    /// So far ahead the entries are brought near the processor.
    static constexpr size_t Ahead = 12;

    void LookAt(std::span<const Handle> run, size_t at)
    {
        if (at + Ahead < run.size())
            __builtin_prefetch(&m_entries[run[at + Ahead]]);
        --m_most;
        if (m_pattern.OccursIn(m_entries[run[at]].text.View()))
            m_found.push_back(TreeEntries::Index(run[at]));
    }

    /// False: it has looked at enough.
    [[nodiscard]] bool LookBelow(Handle owner, int& below)
    {
        below = std::max(below, 1);
        if (m_entries[owner].children == 0)
            return true;
        for (;;) {
            const std::span<const Handle> run = m_siblings.RunFrom(owner, below - 1);
            if (run.empty())
                return true;
            for (size_t at = 0; at < run.size(); ++at, ++below) {
                if (m_most <= 0)
                    return false;
                LookAt(run, at);
            }
        }
    }

    const TreeStore& m_entries;
    const TreeSiblings& m_siblings;
    const TreePattern& m_pattern;
    int m_most;
    std::vector<TreeEntries::Index>& m_found;
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

bool FindTreeMatches(const TreeStore& entries, const TreeSiblings& siblings, const TreePattern& pattern,
                     TreeEntries::SearchPlace& place, int most, std::vector<TreeEntries::Index>& found)
{
    return MatchSearch(entries, siblings, pattern, most, found).Run(place);
}
