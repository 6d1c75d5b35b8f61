#include "model/TreeSorting.h"

#include <algorithm>
#include <vector>

namespace {

using Handle = TreeStore::Handle;

/// Eight folded characters of a text as a number that sorts as they do.
struct SortKey
{
    quint64 prefix;
    Handle handle;
};

/// Length of the beginning that all texts share, without case.
qsizetype SharedPrefix(const TreeStore& entries, std::span<const Handle> handles)
{
    const TreeTextView first = entries[handles.front()].text.View();
    qsizetype shared = first.Length();
    for (const Handle handle : handles) {
        const TreeTextView text = entries[handle].text.View();
        shared = std::min(shared, text.Length());
        qsizetype at = 0;
        while (at < shared && text.Folded(at) == first.Folded(at))
            ++at;
        shared = at;
    }
    return shared;
}

/// One byte a character, 0 behind the end; what a byte cannot hold ends the prefix, so that equal prefixes
/// ask for a comparison of the texts.
quint64 PrefixOf(const TreeTextView& text, qsizetype from)
{
    constexpr int Characters = 8;
    constexpr char32_t Wide = 0xff;
    quint64 prefix = 0;
    bool ended = false;
    for (qsizetype at = from; at < from + Characters; ++at) {
        char32_t unit = 0;
        if (ended)
            unit = Wide;
        else if (at < text.Length())
            unit = std::min(char32_t(text.Folded(at) + 1), Wide);
        ended = ended || unit == Wide;
        prefix = prefix << 8 | unit;
    }
    return prefix;
}

} // namespace

int CompareTreeEntries(const TreeStore& entries, Handle left, Handle right)
{
    if (const int difference = TreeTextView::Compare(entries[left].text.View(), entries[right].text.View()))
        return difference;
    return left < right ? -1 : int(left > right);
}

void SortTreeEntries(const TreeStore& entries, std::span<Handle> handles)
{
    if (handles.size() < 2)
        return;
    const qsizetype shared = SharedPrefix(entries, handles);
    std::vector<SortKey> keys;
    keys.reserve(handles.size());
    for (const Handle handle : handles)
        keys.push_back({PrefixOf(entries[handle].text.View(), shared), handle});
    std::sort(keys.begin(), keys.end(), [&entries](const SortKey& left, const SortKey& right) {
        if (left.prefix != right.prefix)
            return left.prefix < right.prefix;
        return CompareTreeEntries(entries, left.handle, right.handle) < 0;
    });
    std::transform(keys.begin(), keys.end(), handles.begin(), [](const SortKey& key) { return key.handle; });
}
