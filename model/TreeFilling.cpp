#include "model/TreeFilling.h"

#include "model/LookupHelpers.h"
#include "model/ModelState.h"
#include "model/TextHelpers.h"
#include "model/TreeKey.h"
#include "model/TreeMerging.h"
#include "platform/IndexError.h"
#include "platform/MachineSeams.h"

#include <QPointer>

#include <algorithm>

namespace {

constexpr int RowsBetweenPumps = 50;
/// RootKey.
constexpr TreeKey Root = {'R'};

/// Entries in a span of rows, keyed "<prefix>,<id>".
void AddSpan(TreeEntries& tree, TreeEntries::Index parent, const QString& keyPrefix,
             std::span<const ItemPair> rows)
{
    if (keyPrefix != u"C" && keyPrefix != u"N") {
        for (const ItemPair& row : rows)
            tree.Add(parent, keyPrefix + u',' + row.second, row.first);
        return;
    }
    std::vector<NewTreeEntry> entries;
    entries.reserve(rows.size());
    for (const ItemPair& row : rows)
        entries.push_back({ValInt(row.second), row.first});
    if (keyPrefix == u"C")
        tree.AddConnections(parent, entries);
    else
        tree.AddNodes(parent, entries);
}

/// Short names of the waypoints in the item list of a target.
std::vector<QString> WaypointNames(const PairTable& items)
{
    const auto itemAt = [&](int number) -> const QString& {
        CheckIndex("item", number, 1, static_cast<int>(items.size()));
        return items[static_cast<size_t>(number - 1)].first;
    };
    std::vector<QString> names;
    const int waypoints = items.empty() ? 0 : ValInt(itemAt(1));
    int position = 2;
    for (int k = 1; k <= waypoints; ++k) {
        const int pairs = ValInt(itemAt(position));
        CheckIndex("pair count", pairs, 0, static_cast<int>(items.size()));
        names.push_back(itemAt(position + 2));
        position += 1 + 2 * pairs;
    }
    return names;
}

/// The last one that was loaded before the node of a continuation mark; 0: none.
TreeEntries::Index LoadedBefore(const TreeEntries& tree, TreeEntries::Index marked)
{
    const qint32 position = qAbs(tree.Id(marked));
    TreeEntries::Index before = 0;
    for (const TreeEntries::Index child : ChildrenOf(tree, tree.Parent(marked))) {
        const qint32 id = tree.Id(child);
        if (id < position && id > (before != 0 ? tree.Id(before) : 0))
            before = child;
    }
    return before;
}

} // namespace

bool IsNodeKey(QStringView key)
{
    return key.startsWith(u'N');
}

bool FindTreeEntry(const QString& text, const TreeEntries& tree, TreeEntries::Index& entry, bool isNode)
{
    entry = tree.FindByText(text, isNode);
    return entry != 0;
}

bool FindConnectionEntry(const QString& name, const TreeEntries& tree, TreeEntries::Index& entry)
{
    // The root, or a waypoint of a connection before it, may carry the same text.
    entry = 0;
    for (const TreeEntries::Index found : tree.AllByText(name)) {
        if (tree.Kind(found) == u'C' && (entry == 0 || found < entry))
            entry = found;
    }
    return entry != 0;
}

bool IsFilled(const TreeEntries& tree)
{
    return tree.FindByKey(Root) != 0;
}

TreeEntries::Index RenewEntry(TreeEntries& tree, TreeEntries::Index old, const QString& key,
                              const QString& text)
{
    // A malformed key is one that no entry can have.
    return RenewEntry(tree, old, TreeKey::Parse(key).value_or(TreeKey()), text);
}

TreeEntries::Index RenewEntry(TreeEntries& tree, TreeEntries::Index old, const TreeKey& key,
                              const QString& text)
{
    if (old != 0 && tree.SetKey(old, key)) {
        tree.RemoveChildren(old);
        tree.SetText(old, text);
        return old;
    }
    tree.Remove(old);
    const TreeEntries::Index root = tree.FindByKey(Root);
    return root != 0 ? tree.Add(root, key, text) : 0;
}

bool PassContinueMark(TreeEntries& tree, TreeEntries::Index entry)
{
    const TreeEntries::Index connection = tree.Parent(entry);
    if (tree.Id(entry) >= 0 || tree.Kind(connection) != u'C')
        return true;
    // The load goes on behind the marked node, at the same place in the database.
    const TreeEntries::Index heir = LoadedBefore(tree, entry);
    if (heir == 0) {
        tree.RemoveChildren(connection);
        tree.SetExpanded(connection, false);
        return false;
    }
    for (const TreeEntries::Index node : {entry, heir}) {
        if (std::optional<TreeKey> key = TreeKey::Parse(tree.Key(node))) {
            key->id = -key->id;
            tree.SetKey(node, key->Format());
        }
    }
    return true;
}

bool RemoveEntry(TreeEntries& tree, TreeEntries::Index entry)
{
    if (!tree.Exists(entry))
        return false;
    return !PassContinueMark(tree, entry) || tree.Remove(entry);
}

bool DeleteTreeEntry(const QString& text, TreeEntries& tree, bool isNode)
{
    const TreeEntries::Index entry = tree.FindByText(text, isNode);
    return entry != 0 && RemoveEntry(tree, entry);
}

TreeEntries::Index AddTreeEntry(TreeEntries& tree, const QString& relativeKey, int relationship,
                                const QString& key, const QString& text)
{
    const TreeEntries::Index relative = tree.FindByKey(relativeKey);
    return relative != 0 && relationship == TreeChild ? tree.Add(relative, key, text) : 0;
}

void FindContinueMark(TreeEntries& tree, TreeEntries::Index conEntry, qint32& position, bool restore)
{
    position = 0;
    const TreeEntries::Index child = tree.FindContinued(conEntry);
    if (child == 0)
        return;
    position = -tree.Id(child);
    if (restore)
        tree.SetKey(child, GetItem(tree.Key(child), 1, u',') + u',' + QString::number(position));
}

bool EntryTypeContains(const QString& searched, const TreeEntries& tree, TreeEntries::Index conEntry)
{
    QString shortName;
    GetConTypeOfParent(tree.Text(conEntry), shortName);
    return TextContains(shortName, searched);
}

void FillConnectionTree(const QString& rootText, const QString& keyPrefix, int count, const PairTable& items,
                        TreeEntries& tree, bool addRoot, Pumping pumping)
{
    if (addRoot) {
        tree.Clear();
        tree.Add(0, RootKey, rootText);
    }
    const TreeEntries::Index root = tree.FindByKey(RootKey);
    if (addRoot)
        tree.SetSorted(root, false);

    const QPointer<TreeEntries> alive(&tree);
    const std::span<const ItemPair> rows(items.data(),
                                         std::min(items.size(), static_cast<size_t>(std::max(count, 0))));
    for (size_t start = 0; start < rows.size(); start += RowsBetweenPumps) {
        const size_t length = std::min<size_t>(RowsBetweenPumps, rows.size() - start);
        AddSpan(tree, root, keyPrefix, rows.subspan(start, length));
        if (length < RowsBetweenPumps || pumping == Pumping::None)
            continue;
        Machine().PumpEvents();
        if (!alive || tree.Key(root) != RootKey)
            return;
    }
    if (addRoot) {
        tree.SetSorted(root, true);
        tree.SetExpanded(root, true);
    }
}

bool AddWaypointEntries(const QString& waypointList, TreeEntries& tree, TreeEntries::Index conEntry,
                        const QString& conId)
{
    tree.SetTag(conEntry, waypointList);
    PairTable items;
    int count = 0;
    if (!ConvertItemListToArray(waypointList, false, items, count))
        return false;
    std::vector<QString> texts = WaypointNames(items);
    for (QString& text : texts) {
        QString longName;
        if (LookupDatabase().GetWpLongNameDb(text, longName))
            text = longName;
    }
    // Waypoints stand in the order of the hops, also where nodes stood sorted before.
    tree.SetSorted(conEntry, false);
    KeepWaypoints(tree, conEntry, texts, ValInt(conId));
    for (size_t k = 0; k < texts.size(); ++k)
        tree.Add(conEntry, QStringLiteral("W,%1,%2").arg(conId).arg(k + 1), texts[k]);
    tree.SetExpanded(conEntry, true);
    return true;
}

bool AddNodeEntries(const QString& nodeList, TreeEntries& tree, TreeEntries::Index conEntry,
                    const QString& conId)
{
    tree.SetTag(conEntry, QStringLiteral("Nodes"));
    PairTable nodes;
    int count = 0;
    if (!ConvertItemListToArray(nodeList, true, nodes, count))
        return false;
    std::vector<NewTreeEntry> entries;
    entries.reserve(nodes.size());
    for (const ItemPair& node : nodes)
        entries.push_back({ValInt(node.second), node.first});
    const int kept = KeepNodes(tree, conEntry, entries, ValInt(conId));
    // A few new ones go to their places one by one; many are sorted in together.
    if (entries.size() > 2 * static_cast<size_t>(kept))
        tree.SetSorted(conEntry, false);
    tree.AddNodes(conEntry, entries, ValInt(conId));
    tree.SetSorted(conEntry, true);
    tree.SetExpanded(conEntry, true);
    return true;
}

bool RefillConEntry(TreeEntries& tree, TreeEntries::Index conEntry, bool viewNodes)
{
    const QString name = tree.Text(conEntry);
    const QString id = GetItem(tree.Key(conEntry), 2, u',');
    QString list;
    if (viewNodes)
        return LookupDatabase().GetParentNodesDb(name, list) && AddNodeEntries(list, tree, conEntry, id);
    return LookupDatabase().GetParentWPListDb(name, list) && AddWaypointEntries(list, tree, conEntry, id);
}
