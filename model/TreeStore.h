#pragma once

#include "model/TreeHash.h"
#include "model/TreeKey.h"
#include "model/TreeName.h"
#include "model/TreeText.h"

#include <QString>

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <span>
#include <utility>
#include <vector>

/// One entry of a tree, one cache line.
struct alignas(64) TreeEntry
{
    quint32 parent = 0;
    /// Where the entry stands among its parent's children; 0 while it stands nowhere (TreeSiblings).
    quint32 leaf = 0;
    /// The entry's own children; 0 when there are none (TreeSiblings).
    quint32 children = 0;
    qint32 id = 0;
    qint32 second = 0;
    quint32 textHash = 0;
    quint32 keyNext = 0;
    quint32 textNext = 0;
    quint32 textPrevious = 0;
    /// A null character marks a free place.
    char kind = '\0';
    bool expanded = false;
    bool sorted = false;
    TreeText text;

    [[nodiscard]] TreeKey Key() const { return {kind, id, second}; }
};
static_assert(sizeof(TreeEntry) == 64);

/// The entries of one tree by handle, with their indexes by key and by text; their order is TreeSiblings'.
///
/// Handles count from 1 and are never reused. Handle 0 is no entry, but its place holds the list of the top
/// entries, which are always shown.
class TreeStore
{
public:
    using Handle = quint32;

    TreeStore();
    ~TreeStore();
    TreeStore(const TreeStore&) = delete;
    TreeStore& operator=(const TreeStore&) = delete;

    [[nodiscard]] TreeEntry& operator[](Handle handle)
    {
        return m_pages[handle / PageSize].entries[handle % PageSize];
    }
    [[nodiscard]] const TreeEntry& operator[](Handle handle) const
    {
        return m_pages[handle / PageSize].entries[handle % PageSize];
    }
    /// The first handle that was never given.
    [[nodiscard]] Handle End() const { return m_next; }
    /// The first handle behind those that lie beside this one in memory.
    [[nodiscard]] Handle EndOfPage(Handle handle) const
    {
        return std::min(m_next, (handle / PageSize + 1) * PageSize);
    }
    /// The places of handles of one page, those of no entry any more among them; empty when none of the page
    /// is left.
    [[nodiscard]] std::span<const TreeEntry> Places(Handle from, Handle end) const
    {
        const Page& page = m_pages[from / PageSize];
        if (!page.entries)
            return {};
        return {&page.entries[from % PageSize], end - from};
    }
    /// Null when there is no such entry (any more).
    [[nodiscard]] TreeEntry* Find(qint32 handle) const;
    [[nodiscard]] int Count() const { return m_count; }

    /// Whether handles are left for that many more entries.
    [[nodiscard]] bool HasRoom(qsizetype count) const;
    /// The key must be valid and free, and there must be room.
    Handle Create(Handle parent, const TreeKey& key, QStringView text);
    void Destroy(Handle handle) { Take(handle); }
    /// Destroys an entry and gives what it was.
    TreeEntry Take(Handle handle);
    /// Brings an entry back that was taken; it has no children and stands nowhere. Its key must be free.
    void Restore(Handle handle, TreeEntry&& entry);

    /// 0 when no entry has the key; the continuation mark does not matter.
    [[nodiscard]] Handle FindKey(const TreeKey& key) const;
    /// The new key must be valid and free.
    void SetKey(Handle handle, const TreeKey& key);
    void SetText(Handle handle, QStringView text);

    /// Calls `visit(handle)` for all entries whose text equals `text`, ignoring case, in no order.
    template <typename Visit>
    void ForEachOfText(const TreeName& text, Visit visit) const
    {
        const quint32 hash = text.Hash();
        for (Handle handle = m_byText.Chain(hash); handle != 0; handle = (*this)[handle].textNext) {
            const TreeEntry& entry = (*this)[handle];
            if (entry.textHash == hash && TreeTextView::CompareFolded(entry.text.View(), text.View()) == 0)
                visit(handle);
        }
    }
    /// Brings near the processor what ForEachOfText is about to read for texts of these hashes.
    void Fetch(std::span<const quint32> textHashes) const;
    /// Children of `parent` that carry the continuation mark, in no order.
    [[nodiscard]] std::vector<Handle> Continued(Handle parent) const;

    [[nodiscard]] QString Tag(Handle handle) const;
    void SetTag(Handle handle, const QString& tag);

    [[nodiscard]] qint64 Bytes() const;

private:
    static constexpr quint32 PageSize = 1024;

    struct Page
    {
        std::unique_ptr<TreeEntry[]> entries;
        quint32 used = 0;
    };
    struct KeyLinks
    {
        static quint32 Hash(const TreeEntry& entry) { return entry.Key().Hash(); }
        static quint32& Next(TreeEntry& entry) { return entry.keyNext; }
    };
    struct TextLinks
    {
        static quint32 Hash(const TreeEntry& entry) { return entry.textHash; }
        static quint32& Next(TreeEntry& entry) { return entry.textNext; }
        static quint32& Previous(TreeEntry& entry) { return entry.textPrevious; }
    };

    /// Counts and indexes an entry.
    void Enter(Handle handle);

    std::vector<Page> m_pages;
    Handle m_next = 1;
    int m_count = 0;
    qint64 m_textBytes = 0;
    TreeHash<TreeStore, KeyLinks> m_byKey;
    TreeHash<TreeStore, TextLinks> m_byText;
    /// Parent and child of each continuation mark; rarely more than one a parent.
    std::set<std::pair<Handle, Handle>> m_continued;
    std::map<Handle, TreeText> m_tags;
};
