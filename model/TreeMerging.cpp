#include "model/TreeMerging.h"

#include "model/TreeKey.h"

#include <QHash>

#include <algorithm>

namespace {

TreeKey KeyOf(const TreeEntries& tree, TreeEntries::Index entry)
{
    return TreeKey::Parse(tree.Key(entry)).value_or(TreeKey());
}

/// A child as a fill wants it.
struct WantedChild
{
    TreeKey key;
    QStringView text;
    bool kept = false;
};

/// Keeps the children that are wanted, each under its handle and with its new key and text, and removes the
/// others. `find` gives what is wanted in the place of a child with that key, or null. Gives the number kept.
template <typename Find>
int KeepWanted(TreeEntries& tree, TreeEntries::Index parent, Find find)
{
    const std::vector<TreeEntries::Index> children = ChildrenOf(tree, parent);
    std::vector<TreeEntries::Index> left;
    int kept = 0;
    for (const TreeEntries::Index child : children) {
        WantedChild* const wanted = find(KeyOf(tree, child));
        if (!wanted || !tree.SetKey(child, wanted->key.Format())) {
            left.push_back(child);
            continue;
        }
        wanted->kept = true;
        ++kept;
        tree.SetText(child, wanted->text.toString());
    }
    if (kept == 0) {
        tree.RemoveChildren(parent);
        return 0;
    }
    for (const TreeEntries::Index child : left)
        tree.Remove(child);
    return kept;
}

} // namespace

std::vector<TreeEntries::Index> ChildrenOf(const TreeEntries& tree, TreeEntries::Index parent)
{
    std::vector<TreeEntries::Index> children;
    children.reserve(static_cast<size_t>(tree.ChildCount(parent)));
    for (TreeEntries::Index child = tree.Child(parent, 0); child != 0; child = tree.NextSibling(child))
        children.push_back(child);
    return children;
}

int KeepNodes(TreeEntries& tree, TreeEntries::Index conEntry, std::span<const NewTreeEntry> nodes,
              qint32 conId)
{
    if (tree.ChildCount(conEntry) == 0)
        return 0;
    QHash<qint32, WantedChild> wanted;
    wanted.reserve(static_cast<qsizetype>(nodes.size()));
    for (const NewTreeEntry& node : nodes) {
        if (!wanted.contains(node.id))
            wanted.insert(node.id, {{'N', node.id, conId}, node.text});
    }
    return KeepWanted(tree, conEntry, [&wanted](const TreeKey& key) -> WantedChild* {
        const auto found = wanted.find(qAbs(key.id));
        return key.kind == 'N' && found != wanted.end() ? &*found : nullptr;
    });
}

void KeepWaypoints(TreeEntries& tree, TreeEntries::Index conEntry, const std::vector<QString>& texts,
                   qint32 conId)
{
    std::vector<WantedChild> wanted;
    wanted.reserve(texts.size());
    for (const QString& text : texts)
        wanted.push_back({{'W', conId, static_cast<qint32>(wanted.size()) + 1}, text});
    // As far as they stand in order: what is added later stands last.
    const auto missing = [&wanted] {
        return std::find_if(wanted.begin(), wanted.end(), [](const auto& child) { return !child.kept; });
    };
    KeepWanted(tree, conEntry, [&](const TreeKey& key) -> WantedChild* {
        const auto next = missing();
        return key.kind == 'W' && next != wanted.end() && key.second == next->key.second ? &*next : nullptr;
    });
}
