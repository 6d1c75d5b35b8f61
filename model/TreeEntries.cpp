#include "model/TreeEntries.h"

#include "model/TreeChanges.h"
#include "model/TreeEntriesStore.h"
#include "model/TreeKey.h"

#include <algorithm>
#include <limits>
#include <unordered_set>

TreeEntries::TreeEntries(QObject* parent) : TreeRows(parent), m_store(std::make_unique<Store>()) {}

TreeEntries::~TreeEntries() = default;

// Building ----------------------------------------------------------------------------------------------

TreeEntries::Index TreeEntries::Add(Index parent, const QString& key, const QString& text)
{
    const std::optional<TreeKey> parsed = TreeKey::Parse(key);
    return parsed ? Add(parent, *parsed, text) : 0;
}

TreeEntries::Index TreeEntries::Add(Index parent, const TreeKey& key, const QString& text)
{
    if (!key.IsValid() || (parent != 0 && !Exists(parent)) || !m_store->entries.HasRoom(1) ||
        m_store->entries.FindKey(key) != 0)
        return 0;
    return AddOne(parent, key, text);
}

TreeEntries::Index TreeEntries::AddOne(Index parent, const TreeKey& key, QStringView text)
{
    TreeStore& entries = m_store->entries;
    TreeSiblings& siblings = m_store->siblings;
    const quint32 owner = quint32(parent);
    // A new entry's handle is above all others.
    const int position = entries[owner].sorted
                             ? siblings.LowerBound(owner, text, std::numeric_limits<quint32>::max())
                             : siblings.Count(owner);
    beginInsertRows(ModelIndex(parent), position, position);
    const quint32 entry = entries.Create(owner, key, text);
    siblings.Insert(owner, position, entry);
    if (TreeChanges* changes = Recorder())
        changes->NoteAdded(entry, 1);
    endInsertRows();
    return Index(entry);
}

int TreeEntries::AddNodes(Index parent, std::span<const NewTreeEntry> entries, qint32 conId)
{
    return AddBatch(parent, 'N', entries, conId);
}

int TreeEntries::AddConnections(Index parent, std::span<const NewTreeEntry> entries)
{
    return AddBatch(parent, 'C', entries, 0);
}

int TreeEntries::AddBatch(Index parent, char kind, std::span<const NewTreeEntry> entries, qint32 conId)
{
    if ((parent != 0 && !Exists(parent)) || !m_store->entries.HasRoom(qsizetype(entries.size())))
        return 0;
    std::vector<NewTreeEntry> added;
    added.reserve(entries.size());
    bool rising = true;
    for (const NewTreeEntry& entry : entries) {
        const TreeKey key = {kind, entry.id, conId};
        if (!key.IsValid() || m_store->entries.FindKey(key) != 0)
            continue;
        rising = rising && (added.empty() || qAbs(added.back().id) < qAbs(entry.id));
        added.push_back(entry);
    }
    if (!rising) {
        std::unordered_set<qint32> seen;
        std::erase_if(added,
                      [&seen](const NewTreeEntry& entry) { return !seen.insert(qAbs(entry.id)).second; });
    }
    if (added.empty())
        return 0;

    const quint32 owner = quint32(parent);
    if (m_store->entries[owner].sorted) {
        for (const NewTreeEntry& entry : added)
            AddOne(parent, {kind, entry.id, conId}, entry.text);
        return int(added.size());
    }
    const int first = m_store->siblings.Count(owner);
    beginInsertRows(ModelIndex(parent), first, first + int(added.size()) - 1);
    std::vector<quint32> handles;
    handles.reserve(added.size());
    for (const NewTreeEntry& entry : added)
        handles.push_back(m_store->entries.Create(owner, {kind, entry.id, conId}, entry.text));
    m_store->siblings.Append(owner, handles);
    if (TreeChanges* changes = Recorder())
        changes->NoteAdded(handles.front(), int(handles.size()));
    endInsertRows();
    return int(added.size());
}

bool TreeEntries::Remove(Index entry)
{
    if (!Exists(entry))
        return false;
    const quint32 handle = quint32(entry);
    RemoveRange(m_store->entries[handle].parent, m_store->siblings.PositionOf(handle), 1);
    return true;
}

void TreeEntries::RemoveRange(quint32 owner, int first, int count)
{
    beginRemoveRows(IndexOf(owner), first, first + count - 1);
    std::vector<quint32> entries;
    for (int position = first; position < first + count; ++position)
        entries.push_back(m_store->siblings.At(owner, position));
    for (const quint32 entry : entries)
        m_store->siblings.Remove(entry);
    DestroyBelow(std::move(entries), owner, first);
    endRemoveRows();
}

void TreeEntries::RemoveChildren(Index entry)
{
    const int count = ChildCount(entry);
    if (count == 0)
        return;
    beginRemoveRows(ModelIndex(entry), 0, count - 1);
    std::vector<quint32> children;
    m_store->siblings.CopyTo(quint32(entry), children);
    m_store->siblings.RemoveAll(quint32(entry));
    DestroyBelow(std::move(children), quint32(entry), 0);
    endRemoveRows();
}

/// Destroys entries that stand nowhere any more, with all below them; they were the children of `owner` from
/// `position` on.
void TreeEntries::DestroyBelow(std::vector<quint32> entries, quint32 owner, int position)
{
    if (TreeChanges* changes = Recorder()) {
        changes->TakeBelow(owner, position, std::move(entries));
        return;
    }
    while (!entries.empty()) {
        const quint32 entry = entries.back();
        entries.pop_back();
        m_store->siblings.CopyTo(entry, entries);
        m_store->siblings.RemoveAll(entry);
        m_store->entries.Destroy(entry);
    }
}

void TreeEntries::Clear()
{
    if (m_changes)
        m_changes->NoteCleared();
    beginResetModel();
    m_store = std::make_unique<Store>();
    endResetModel();
}

// One entry ---------------------------------------------------------------------------------------------

bool TreeEntries::Exists(Index entry) const
{
    return m_store->entries.Find(entry) != nullptr;
}

QString TreeEntries::Key(Index entry) const
{
    const TreeEntry* found = m_store->entries.Find(entry);
    return found ? found->Key().Format() : QString();
}

QChar TreeEntries::Kind(Index entry) const
{
    const TreeEntry* found = m_store->entries.Find(entry);
    return found ? QLatin1Char(found->kind) : QChar();
}

qint32 TreeEntries::Id(Index entry) const
{
    const TreeEntry* found = m_store->entries.Find(entry);
    return found ? found->id : 0;
}

QString TreeEntries::Text(Index entry) const
{
    const TreeEntry* found = m_store->entries.Find(entry);
    return found ? found->text.View().ToString() : QString();
}

QString TreeEntries::Tag(Index entry) const
{
    return Exists(entry) ? m_store->entries.Tag(quint32(entry)) : QString();
}

TreeEntries::Index TreeEntries::Parent(Index entry) const
{
    const TreeEntry* found = m_store->entries.Find(entry);
    return found ? Index(found->parent) : 0;
}

int TreeEntries::ChildCount(Index entry) const
{
    return entry == 0 || Exists(entry) ? m_store->siblings.Count(quint32(entry)) : 0;
}

TreeEntries::Index TreeEntries::Child(Index entry, int position) const
{
    return entry == 0 || Exists(entry) ? Index(m_store->siblings.At(quint32(entry), position)) : 0;
}

TreeEntries::Index TreeEntries::NextSibling(Index entry) const
{
    return Exists(entry) ? Index(m_store->siblings.Next(quint32(entry))) : 0;
}

bool TreeEntries::Expanded(Index entry) const
{
    const TreeEntry* found = m_store->entries.Find(entry);
    return found && found->expanded;
}

bool TreeEntries::Sorted(Index entry) const
{
    return (entry == 0 || Exists(entry)) && m_store->entries[quint32(entry)].sorted;
}

bool TreeEntries::SetKey(Index entry, const QString& key)
{
    const std::optional<TreeKey> parsed = TreeKey::Parse(key);
    return parsed && SetKey(entry, *parsed);
}

bool TreeEntries::SetKey(Index entry, const TreeKey& key)
{
    if (!key.IsValid() || !Exists(entry))
        return false;
    const quint32 holder = m_store->entries.FindKey(key);
    if (holder != 0 && holder != quint32(entry))
        return false;
    if (m_store->entries[quint32(entry)].Key() == key)
        return true;
    if (TreeChanges* changes = Recorder())
        changes->NoteKey(quint32(entry));
    m_store->entries.SetKey(quint32(entry), key);
    TellChange(entry);
    return true;
}

void TreeEntries::SetText(Index entry, const QString& text)
{
    if (!Exists(entry) || Text(entry) == text)
        return;
    const quint32 handle = quint32(entry);
    const quint32 owner = m_store->entries[handle].parent;
    const int row = m_store->siblings.PositionOf(handle);
    int position = row;
    if (m_store->entries[owner].sorted) {
        // The place counts the entry itself where it stands before.
        const int place = m_store->siblings.LowerBound(owner, QStringView(text), handle);
        position = place > row ? place - 1 : place;
    }
    ChangeText(handle, text, position);
}

/// Changes the text of an entry, which then stands at `position`.
void TreeEntries::ChangeText(quint32 entry, const QString& text, int position)
{
    TreeStore& entries = m_store->entries;
    TreeSiblings& siblings = m_store->siblings;
    const quint32 owner = entries[entry].parent;
    const int row = siblings.PositionOf(entry);
    if (position == row) {
        if (TreeChanges* changes = Recorder())
            changes->NoteText(entry);
        if (!entries[owner].sorted)
            siblings.LimitSortedHead(owner, row);
        entries.SetText(entry, text);
    } else {
        const QModelIndex parentIndex = IndexOf(owner);
        beginMoveRows(parentIndex, row, row, parentIndex, position > row ? position + 1 : position);
        if (TreeChanges* changes = Recorder())
            changes->NoteText(entry);
        siblings.Remove(entry);
        entries.SetText(entry, text);
        siblings.Insert(owner, position, entry);
        endMoveRows();
    }
    TellChange(Index(entry));
}

void TreeEntries::SetTag(Index entry, const QString& tag)
{
    if (!Exists(entry) || m_store->entries.Tag(quint32(entry)) == tag)
        return;
    if (TreeChanges* changes = Recorder())
        changes->NoteTag(quint32(entry));
    m_store->entries.SetTag(quint32(entry), tag);
}

void TreeEntries::SetExpanded(Index entry, bool expanded)
{
    if (!Exists(entry) || Expanded(entry) == expanded)
        return;
    if (TreeChanges* changes = Recorder())
        changes->NoteExpanded(quint32(entry));
    m_store->siblings.SetExpanded(quint32(entry), expanded);
    // Receivers may remove the entry.
    const QPersistentModelIndex index = ModelIndex(entry);
    if (ChildCount(entry) != 0)
        Q_EMIT VisibleRowsChanged();
    if (!index.isValid())
        return;
    if (expanded)
        Q_EMIT TreeRows::Expanded(index);
    else
        Q_EMIT TreeRows::Collapsed(index);
}

void TreeEntries::SetSorted(Index entry, bool sorted)
{
    if (entry != 0 && !Exists(entry))
        return;
    TreeSiblings& siblings = m_store->siblings;
    const quint32 owner = quint32(entry);
    const bool sorts = sorted && siblings.SortedHead(owner) != siblings.Count(owner);
    if (!sorts && m_store->entries[owner].sorted == sorted)
        return;
    const auto change = [&] {
        if (TreeChanges* changes = Recorder())
            changes->NoteSorted(owner, sorts);
        m_store->entries[owner].sorted = sorted;
        if (sorts)
            siblings.Sort(owner);
    };
    if (sorts)
        Rearrange(owner, change);
    else
        change();
}

/// Lets `change` put the children of an entry into another order.
void TreeEntries::Rearrange(quint32 owner, const std::function<void()>& change)
{
    const QList<QPersistentModelIndex> parents = {QPersistentModelIndex(IndexOf(owner))};
    Q_EMIT layoutAboutToBeChanged(parents, VerticalSortHint);
    change();
    const QModelIndexList held = persistentIndexList();
    for (const QModelIndex& index : held) {
        const quint32 child = quint32(EntryOf(index));
        if (m_store->entries[child].parent == owner)
            changePersistentIndex(index, IndexOf(child));
    }
    Q_EMIT layoutChanged(parents, VerticalSortHint);
}

TreeChanges* TreeEntries::Recorder() const
{
    return m_changes && m_changes->IsRecording() ? m_changes : nullptr;
}

void TreeEntries::TellChange(Index entry)
{
    const QModelIndex index = ModelIndex(entry);
    Q_EMIT dataChanged(index, index);
}

// Finding -----------------------------------------------------------------------------------------------

int TreeEntries::Count() const
{
    return m_store->entries.Count();
}

TreeEntries::Index TreeEntries::FindByKey(const QString& key) const
{
    const std::optional<TreeKey> parsed = TreeKey::Parse(key);
    return parsed ? FindByKey(*parsed) : 0;
}

TreeEntries::Index TreeEntries::FindByKey(const TreeKey& key) const
{
    return Index(m_store->entries.FindKey(key));
}

TreeEntries::Index TreeEntries::FindByText(const QString& text, bool isNode) const
{
    quint32 first = 0;
    m_store->entries.ForEachOfText(TreeName(text), [&](quint32 entry) {
        if ((m_store->entries[entry].kind == 'N') == isNode && (first == 0 || StandsBefore(entry, first)))
            first = entry;
    });
    return Index(first);
}

std::vector<TreeEntries::Index> TreeEntries::AllByText(const QString& text) const
{
    return AllByText(TreeName(text));
}

std::vector<TreeEntries::Index> TreeEntries::AllByText(const TreeName& name) const
{
    std::vector<Index> found;
    m_store->entries.ForEachOfText(name, [&](quint32 entry) { found.push_back(Index(entry)); });
    return found;
}

void TreeEntries::Fetch(std::span<const quint32> nameHashes) const
{
    m_store->entries.Fetch(nameHashes);
}

/// Collection order: by Index, the children of a connection right behind it.
bool TreeEntries::StandsBefore(quint32 left, quint32 right) const
{
    const TreeStore& entries = m_store->entries;
    const auto connectionOf = [&entries](quint32 entry) {
        const quint32 parent = entries[entry].parent;
        return entries[parent].kind == 'C' ? parent : 0;
    };
    const quint32 leftConnection = connectionOf(left);
    const quint32 rightConnection = connectionOf(right);
    if (leftConnection != 0 && leftConnection == rightConnection)
        return m_store->siblings.PositionOf(left) < m_store->siblings.PositionOf(right);
    const quint32 leftPlace = leftConnection != 0 ? leftConnection : left;
    const quint32 rightPlace = rightConnection != 0 ? rightConnection : right;
    // Equal: one is the connection itself, which stands before its children.
    return leftPlace != rightPlace ? leftPlace < rightPlace : leftConnection == 0;
}

TreeEntries::Index TreeEntries::FindContinued(Index parent) const
{
    if (!Exists(parent))
        return 0;
    const std::vector<quint32> marked = m_store->entries.Continued(quint32(parent));
    const auto first = std::min_element(marked.begin(), marked.end(), [this](quint32 left, quint32 right) {
        return m_store->siblings.PositionOf(left) < m_store->siblings.PositionOf(right);
    });
    return first != marked.end() ? Index(*first) : 0;
}

std::vector<TreeEntries::Index> TreeEntries::ParentsWithChildren() const
{
    std::vector<Index> found;
    for (const quint32 owner : m_store->siblings.Owners()) {
        if (m_store->entries[owner].parent != 0)
            found.push_back(Index(owner));
    }
    std::sort(found.begin(), found.end());
    return found;
}

QModelIndex TreeEntries::ModelIndex(Index entry) const
{
    return Exists(entry) ? IndexOf(quint32(entry)) : QModelIndex();
}

QModelIndex TreeEntries::IndexOf(quint32 entry) const
{
    return entry != 0 ? createIndex(m_store->siblings.PositionOf(entry), 0, quintptr(entry)) : QModelIndex();
}

TreeEntries::Index TreeEntries::EntryOf(const QModelIndex& index)
{
    return index.isValid() ? Index(index.internalId()) : 0;
}

qint64 TreeEntries::MemoryBytes() const
{
    return qint64(sizeof(Store)) + m_store->entries.Bytes() + m_store->siblings.Bytes();
}
