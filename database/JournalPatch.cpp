#include "database/JournalPatch.h"

#include "database/Gateway.h"
#include "model/TreeFilling.h"
#include "model/TreeKey.h"

#include <algorithm>
#include <span>

namespace {

constexpr char NodeKind = 'N';
constexpr char ConnectionKind = 'C';
/// Names whose entries are fetched together.
constexpr size_t NamesAtOnce = 256;

bool IsOneOf(std::span<const qint32> operations, qint32 operation)
{
    return std::find(operations.begin(), operations.end(), operation) != operations.end();
}

/// The entries that stand for a record: those called so, and one that has its key already.
std::vector<TreeEntries::Index> EntriesOf(const TreeEntries& tree, const TreeName& name, const TreeKey& key)
{
    std::vector<TreeEntries::Index> entries = tree.AllByText(name);
    std::erase_if(entries,
                  [&](TreeEntries::Index entry) { return tree.Kind(entry) != QLatin1Char(key.kind); });
    const TreeEntries::Index holder = tree.FindByKey(key);
    if (holder != 0 && std::find(entries.begin(), entries.end(), holder) == entries.end())
        entries.push_back(holder);
    // The one with the key first: it alone can keep it.
    std::sort(entries.begin(), entries.end(), [holder](TreeEntries::Index left, TreeEntries::Index right) {
        return left != right && (left == holder || (right != holder && left < right));
    });
    return entries;
}

bool Shows(const TreeEntries& tree, TreeEntries::Index entry, const QString& name, qint32 id)
{
    return qAbs(tree.Id(entry)) == id && tree.Text(entry) == name;
}

} // namespace

void JournalPatch::Outcomes::Set(Outcome outcome)
{
    const auto known = byName.constFind(outcome.name);
    if (known != byName.constEnd()) {
        list[*known] = std::move(outcome);
        return;
    }
    byName.insert(outcome.name, list.size());
    list.push_back(std::move(outcome));
}

JournalPatch::JournalPatch(TreeEntries& conTree, TreeEntries& nodesTree, bool viewNodes)
    : m_conTree(conTree), m_nodesTree(nodesTree), m_viewNodes(viewNodes)
{}

void JournalPatch::Apply(qint32 operation, const QString& name, qint32 objectId)
{
    if (operation == JOURNAL_DELETENODE_ID) {
        m_nodes.Set({TreeName(name), 0, {}});
    } else if (operation == JOURNAL_DELETEPARENT_ID) {
        m_connections.Set({TreeName(name), 0, {}});
    } else if (IsOneOf(JOURNAL_SAVEPARENT_ID, operation)) {
        m_connections.Set({TreeName(name), std::max(objectId, 0), {}});
    } else if (IsOneOf(JOURNAL_SAVENODE_ID, operation)) {
        QString conName;
        QString target;
        if (!Gateway().GetNodeDb(name, conName, target))
            conName.clear();
        m_nodes.Set({TreeName(name), std::max(objectId, 0), conName});
    }
}

void JournalPatch::Finish()
{
    // Connections first: what stood below them has gone then.
    for (const Outcome& connection : m_connections.list) {
        if (connection.id == 0)
            Remove(m_conTree, connection.name, QLatin1Char(ConnectionKind));
    }
    for (const Outcome& connection : m_connections.list) {
        if (connection.id != 0)
            PutUnderRoot(m_conTree, connection, ConnectionKind);
    }
    for (size_t position = 0; position < m_nodes.list.size(); ++position) {
        if (position % NamesAtOnce == 0)
            FetchNodes(position);
        const Outcome& node = m_nodes.list[position];
        if (node.id == 0) {
            Remove(m_nodesTree, node.name, QLatin1Char(NodeKind));
            Remove(m_conTree, node.name, QLatin1Char(NodeKind));
        } else {
            PutUnderRoot(m_nodesTree, node, NodeKind);
            PutUnderConnection(node);
        }
    }
    m_connections = Outcomes();
    m_nodes = Outcomes();
}

/// Fetches what the next nodes are about to be looked up for.
void JournalPatch::FetchNodes(size_t from) const
{
    std::vector<quint32> hashes;
    hashes.reserve(NamesAtOnce);
    const size_t end = std::min(m_nodes.list.size(), from + NamesAtOnce);
    for (size_t position = from; position < end; ++position)
        hashes.push_back(m_nodes.list[position].name.Hash());
    m_nodesTree.Fetch(hashes);
}

void JournalPatch::Remove(TreeEntries& tree, const TreeName& name, QChar kind)
{
    for (const Entry entry : tree.AllByText(name)) {
        if (tree.Kind(entry) == kind)
            RemoveEntry(tree, entry);
    }
}

void JournalPatch::PutUnderRoot(TreeEntries& tree, const Outcome& outcome, char kind)
{
    if (!IsFilled(tree))
        return;
    const TreeKey key = {kind, outcome.id};
    const std::vector<Entry> entries = EntriesOf(tree, outcome.name, key);
    for (size_t other = 1; other < entries.size(); ++other)
        tree.Remove(entries[other]);
    const Entry old = entries.empty() ? 0 : entries.front();
    if (old != 0 && Shows(tree, old, outcome.name.Text(), outcome.id))
        return;
    const Entry entry = RenewEntry(tree, old, key, outcome.name.Text());
    tree.SetExpanded(entry, false);
    tree.SetTag(entry, QString());
}

JournalPatch::Entry JournalPatch::ConnectionOf(const Outcome& node) const
{
    QString conName = node.conName;
    QString target;
    // The record that is left last must be there, so a read that failed is worth another try.
    if (conName.isEmpty() && !Gateway().GetNodeDb(node.name.Text(), conName, target))
        return 0;
    Entry connection = 0;
    FindConnectionEntry(conName, m_conTree, connection);
    return connection;
}

void JournalPatch::PutUnderConnection(const Outcome& node)
{
    if (!IsFilled(m_conTree))
        return;
    const Entry home = ConnectionOf(node);
    // One that had no nodes when they were shown last has one now: it is read anew when it is opened.
    if (!m_viewNodes && m_conTree.ChildCount(home) == 0)
        m_conTree.SetExpanded(home, false);
    const Entry connection = m_viewNodes ? home : 0;
    const TreeKey key = {NodeKind, node.id};
    Entry kept = 0;
    for (const Entry entry : EntriesOf(m_conTree, node.name, key)) {
        if (kept == 0 && connection != 0 && m_conTree.Parent(entry) == connection)
            kept = entry;
        else
            RemoveEntry(m_conTree, entry);
    }
    if (connection == 0 || (m_conTree.Exists(kept) && Shows(m_conTree, kept, node.name.Text(), node.id)))
        return;
    if (!m_conTree.Expanded(connection)) {
        if (m_conTree.Kind(m_conTree.Child(connection, 0)) == QLatin1Char(NodeKind))
            m_conTree.RemoveChildren(connection);
    } else if (!m_conTree.Exists(kept)) {
        m_conTree.Add(connection, key, node.name.Text());
    } else if (PassContinueMark(m_conTree, kept)) {
        RenewEntry(m_conTree, kept, key, node.name.Text());
    }
}
