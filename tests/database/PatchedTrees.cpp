#include "tests/database/PatchedTrees.h"

#include "database/JournalPatch.h"
#include "model/ItemList.h"
#include "model/ModelState.h"
#include "model/TextHelpers.h"
#include "model/TreeFilling.h"
#include "model/TreePatches.h"

#include <algorithm>

namespace {

constexpr TreeEntries::Index Root = 1;

PairTable RowsOf(const QString& list)
{
    PairTable rows;
    int count = 0;
    if (!PairListToTable(list, rows, count))
        qFatal("A list cannot be read.");
    return rows;
}

/// The first rows, as a load adds them that is stopped behind them.
std::vector<NewTreeEntry> EntriesOf(const PairTable& rows, std::size_t count)
{
    std::vector<NewTreeEntry> entries;
    for (std::size_t k = 0; k < std::min(count, rows.size()); ++k)
        entries.push_back({ValInt(rows[k].second), rows[k].first});
    return entries;
}

void Describe(const TreeEntries& tree, TreeEntries::Index entry, QStringList& lines)
{
    lines << QStringLiteral("%1|%2|%3|%4|%5%6")
                 .arg(QString::number(entry), tree.Key(entry), tree.Text(entry), tree.Tag(entry),
                      tree.Expanded(entry) ? QStringLiteral("expanded") : QString(),
                      tree.Sorted(entry) ? QStringLiteral("sorted") : QString());
    for (int k = 0; k < tree.ChildCount(entry); ++k)
        Describe(tree, tree.Child(entry, k), lines);
}

} // namespace

PatchedTrees::PatchedTrees(quint32 seed) : Random(seed)
{
    Model().ConObject = std::make_unique<ConData>();
    Model().ConObject->ViewNodesChecked = ViewNodes;
    Open();
    Reload();
}

PatchedTrees::~PatchedTrees()
{
    Model().ConObject.reset();
}

// The operator ----------------------------------------------------------------------------------------------

void PatchedTrees::Act()
{
    const TreeEntries::Index connection = AnyConnection();
    switch (Draw(12)) {
    case 0:
        ToggleView();
        break;
    case 1:
        LoadNodes(NodesPosition != 0);
        break;
    case 2:
    case 3:
        ConTree.SetExpanded(connection, false);
        break;
    case 4:
        // Back from an indicator that was clicked: what stands below an entry is not read again.
        if (ConTree.ChildCount(connection) > 0)
            ConTree.SetExpanded(connection, true);
        break;
    default:
        OpenConnection(connection);
        break;
    }
}

void PatchedTrees::Reload()
{
    FillConnections();
    LoadNodes(false);
    m_lastSeen = Store().Now.lastJournalId;
}

void PatchedTrees::FillConnections()
{
    ReadAt.clear();
    QString list;
    if (!Gateway().QueryParentsDb(list))
        qFatal("The connections cannot be read.");
    const PairTable rows = RowsOf(list);
    FillConnectionTree(QStringLiteral("Connections"), QStringLiteral("C"), static_cast<int>(rows.size()),
                       rows, ConTree, true);
}

void PatchedTrees::LoadNodes(bool more)
{
    if (!more) {
        NodesTree.Clear();
        NodesTree.Add(0, RootKey, QStringLiteral("Nodes"));
        NodesPosition = 0;
    }
    NodesTree.SetSorted(Root, false);
    QString list;
    if (!Gateway().QueryNodesDb(QString(), QString(), list, NodesPosition))
        qFatal("The nodes cannot be read.");
    const PairTable rows = RowsOf(list);
    const bool stopped = OneIn(2) && rows.size() > 1;
    const std::vector<NewTreeEntry> entries = EntriesOf(rows, stopped ? 1 + rows.size() / 2 : rows.size());
    NodesTree.AddNodes(Root, entries);
    NodesPosition = stopped ? entries.back().id : 0;
    NodesReadAt = Store().Now.lastRecordId;
    NodesTree.SetSorted(Root, true);
    NodesTree.SetExpanded(Root, true);
}

void PatchedTrees::OpenConnection(TreeEntries::Index connection)
{
    const bool canContinue = ViewNodes && ConTree.FindContinued(connection) != 0;
    if (connection == 0 || (ConTree.ChildCount(connection) > 0 && !canContinue))
        return;
    if (ViewNodes && OneIn(2))
        LoadNodesOf(connection);
    else if (!canContinue && RefillConEntry(ConTree, connection, ViewNodes))
        ReadAt[connection] = Store().Now.lastRecordId;
}

void PatchedTrees::LoadNodesOf(TreeEntries::Index connection)
{
    qint32 position = 0;
    QString list;
    FindContinueMark(ConTree, connection, position, false);
    if (!Gateway().GetParentNodesExDb(ConTree.Text(connection), list, position))
        return;
    FindContinueMark(ConTree, connection, position, true);
    const PairTable rows = RowsOf(list);
    const bool stopped = OneIn(2) && rows.size() > 1;
    const std::vector<NewTreeEntry> entries =
        EntriesOf(rows, stopped ? 1 + static_cast<std::size_t>(Draw(3)) : rows.size());
    ConTree.SetSorted(connection, false);
    ConTree.AddNodes(connection, entries);
    if (stopped && entries.size() < rows.size()) {
        const QString id = QString::number(entries.back().id);
        ConTree.SetKey(ConTree.FindByKey(QStringLiteral("N,") + id), QStringLiteral("N,-") + id);
    }
    ConTree.SetSorted(connection, true);
    ConTree.SetExpanded(connection, true);
    ReadAt[connection] = Store().Now.lastRecordId;
}

void PatchedTrees::ToggleView()
{
    ViewNodes = !ViewNodes;
    Model().ConObject->ViewNodesChecked = ViewNodes;
    for (const TreeEntries::Index connection : ConTree.ParentsWithChildren()) {
        ConTree.RemoveChildren(connection);
        ConTree.SetExpanded(connection, false);
        if (RefillConEntry(ConTree, connection, ViewNodes))
            ReadAt[connection] = Store().Now.lastRecordId;
    }
}

TreeEntries::Index PatchedTrees::AnyConnection()
{
    const int count = ConTree.ChildCount(Root);
    return count == 0 ? 0 : ConTree.Child(Root, Draw(count));
}

// The Journal -----------------------------------------------------------------------------------------------

std::vector<TinyDatabase::JournalRecord> PatchedTrees::Pending() const
{
    std::vector<TinyDatabase::JournalRecord> records;
    for (const TinyDatabase::JournalRecord& record : Component.Store.Now.journal) {
        if (record.id > m_lastSeen)
            records.push_back(record);
    }
    return records;
}

void PatchedTrees::Apply(const std::vector<TinyDatabase::JournalRecord>& records, std::size_t first,
                         std::size_t end)
{
    JournalPatch patch(ConTree, NodesTree, ViewNodes);
    for (std::size_t k = first; k < end; ++k)
        patch.Apply(records[k].recordType, records[k].text1, records[k].number);
    patch.Finish();
}

void PatchedTrees::ShowJournal(bool inOne)
{
    const std::vector<TinyDatabase::JournalRecord> records = Pending();
    std::size_t first = 0;
    while (first < records.size()) {
        const auto left = static_cast<int>(records.size() - first);
        const std::size_t count = inOne ? records.size() : static_cast<std::size_t>(1 + Draw(left));
        TreePatches patches{&ConTree, &NodesTree};
        Apply(records, first, first + count);
        patches.Keep();
        first += count;
    }
    // What was applied is not asked for again.
    m_lastSeen = Store().Now.lastJournalId;
    Store().Now.journal.resize(1);
}

void PatchedTrees::ShowJournalInVain()
{
    const std::vector<TinyDatabase::JournalRecord> records = Pending();
    TreePatches patches{&ConTree, &NodesTree};
    Apply(records, 0, static_cast<std::size_t>(Draw(static_cast<int>(records.size()) + 1)));
    patches.Undo();
}

QStringList PatchedTrees::Everything() const
{
    QStringList lines;
    Describe(ConTree, Root, lines);
    Describe(NodesTree, Root, lines);
    return lines;
}
