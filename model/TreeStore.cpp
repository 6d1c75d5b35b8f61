#include "model/TreeStore.h"

#include <limits>

namespace {

/// What the allocator adds to a block, at most.
constexpr qint64 BlockOverhead = 16;
/// Links, colour and hash of a node in a standard container, with its block.
constexpr qint64 ContainerNodeOverhead = 48;

qint64 TextBytes(const TreeText& text)
{
    const qint64 bytes = text.BlockBytes();
    return bytes == 0 ? 0 : bytes + BlockOverhead;
}

} // namespace

TreeStore::TreeStore() : m_byKey(*this), m_byText(*this)
{
    // The place of handle 0 counts as used, so that its page stays.
    m_pages.push_back({std::make_unique<TreeEntry[]>(PageSize), 1});
    m_pages[0].entries[0].expanded = true;
}

TreeStore::~TreeStore() = default;

TreeEntry* TreeStore::Find(qint32 handle) const
{
    if (handle <= 0 || Handle(handle) >= m_next)
        return nullptr;
    const Page& page = m_pages[Handle(handle) / PageSize];
    if (!page.entries)
        return nullptr;
    TreeEntry& entry = page.entries[Handle(handle) % PageSize];
    return entry.kind != '\0' ? &entry : nullptr;
}

bool TreeStore::HasRoom(qsizetype count) const
{
    return count <= qsizetype(std::numeric_limits<qint32>::max()) - qsizetype(m_next) + 1;
}

TreeStore::Handle TreeStore::Create(Handle parent, const TreeKey& key, QStringView text)
{
    const Handle handle = m_next++;
    if (handle / PageSize == m_pages.size())
        m_pages.push_back({std::make_unique<TreeEntry[]>(PageSize), 0});

    TreeEntry& entry = (*this)[handle];
    entry.parent = parent;
    entry.kind = key.kind;
    entry.id = key.id;
    entry.second = key.second;
    entry.text = TreeText(text);
    Enter(handle);
    return handle;
}

void TreeStore::Enter(Handle handle)
{
    ++m_pages[handle / PageSize].used;
    ++m_count;
    TreeEntry& entry = (*this)[handle];
    entry.textHash = entry.text.View().FoldedHash();
    m_textBytes += TextBytes(entry.text);
    m_byKey.Insert(handle);
    m_byText.Insert(handle);
    if (entry.id < 0)
        m_continued.insert({entry.parent, handle});
}

void TreeStore::Restore(Handle handle, TreeEntry&& entry)
{
    Page& page = m_pages[handle / PageSize];
    if (!page.entries)
        page.entries = std::make_unique<TreeEntry[]>(PageSize);
    TreeEntry& restored = (*this)[handle];
    restored = std::move(entry);
    restored.leaf = 0;
    restored.children = 0;
    Enter(handle);
}

TreeEntry TreeStore::Take(Handle handle)
{
    TreeEntry& entry = (*this)[handle];
    m_byKey.Remove(handle);
    m_byText.Remove(handle);
    if (entry.id < 0)
        m_continued.erase({entry.parent, handle});
    m_tags.erase(handle);
    m_textBytes -= TextBytes(entry.text);
    TreeEntry taken = std::exchange(entry, TreeEntry());
    --m_count;

    Page& page = m_pages[handle / PageSize];
    // A page is left for good once the handles have gone past it.
    const bool stillFilling = m_next / PageSize == handle / PageSize;
    if (--page.used == 0 && !stillFilling)
        page.entries.reset();
    return taken;
}

TreeStore::Handle TreeStore::FindKey(const TreeKey& key) const
{
    Handle handle = m_byKey.Chain(key.Hash());
    while (handle != 0 && !(*this)[handle].Key().SameEntry(key))
        handle = (*this)[handle].keyNext;
    return handle;
}

void TreeStore::SetKey(Handle handle, const TreeKey& key)
{
    TreeEntry& entry = (*this)[handle];
    if (entry.id < 0)
        m_continued.erase({entry.parent, handle});
    m_byKey.Remove(handle);
    entry.kind = key.kind;
    entry.id = key.id;
    entry.second = key.second;
    m_byKey.Insert(handle);
    if (key.id < 0)
        m_continued.insert({entry.parent, handle});
}

void TreeStore::SetText(Handle handle, QStringView text)
{
    TreeEntry& entry = (*this)[handle];
    m_byText.Remove(handle);
    m_textBytes -= TextBytes(entry.text);
    entry.text = TreeText(text);
    entry.textHash = entry.text.View().FoldedHash();
    m_textBytes += TextBytes(entry.text);
    m_byText.Insert(handle);
}

void TreeStore::Fetch(std::span<const quint32> textHashes) const
{
    // The steps of one look-up wait for each other, those of many do not.
    for (const quint32 hash : textHashes)
        m_byText.FetchChain(hash);
    for (const quint32 hash : textHashes) {
        if (const Handle first = m_byText.Chain(hash))
            __builtin_prefetch(&(*this)[first]);
    }
    for (const quint32 hash : textHashes) {
        const Handle first = m_byText.Chain(hash);
        if (const Handle second = first != 0 ? (*this)[first].textNext : 0)
            __builtin_prefetch(&(*this)[second]);
    }
}

std::vector<TreeStore::Handle> TreeStore::Continued(Handle parent) const
{
    std::vector<Handle> found;
    for (auto mark = m_continued.lower_bound({parent, 0}); mark != m_continued.end() && mark->first == parent;
         ++mark)
        found.push_back(mark->second);
    return found;
}

QString TreeStore::Tag(Handle handle) const
{
    const auto found = m_tags.find(handle);
    return found != m_tags.end() ? found->second.View().ToString() : QString();
}

void TreeStore::SetTag(Handle handle, const QString& tag)
{
    if (tag.isEmpty())
        m_tags.erase(handle);
    else
        m_tags.insert_or_assign(handle, TreeText(tag));
}

qint64 TreeStore::Bytes() const
{
    qint64 bytes =
        qint64(m_pages.capacity() * sizeof(Page)) + m_textBytes + m_byKey.Bytes() + m_byText.Bytes();
    for (const Page& page : m_pages) {
        if (page.entries)
            bytes += qint64(PageSize * sizeof(TreeEntry)) + qint64(alignof(TreeEntry)) + BlockOverhead;
    }
    for (const auto& [handle, tag] : m_tags)
        bytes += qint64(sizeof(std::pair<Handle, TreeText>)) + TextBytes(tag) + ContainerNodeOverhead;
    bytes += qint64(m_continued.size()) * (qint64(sizeof(std::pair<Handle, Handle>)) + ContainerNodeOverhead);
    return bytes;
}
