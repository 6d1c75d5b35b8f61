#include "browser/FoundEntries.h"

#include <algorithm>

// Filling ---------------------------------------------------------------------------------------------------

void FoundEntries::ShowLoaded(const TreeEntries& tree, const std::vector<TreeEntries::Found>& hits)
{
    beginResetModel();
    if (m_tree)
        m_tree->disconnect(this);
    Forget();
    m_tree = &tree;
    // Handles begin anew there.
    connect(&tree, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
        beginResetModel();
        Forget();
        endResetModel();
    });
    Rows& rows = m_rows[LoadedGroup];
    m_root = tree.Child(0, 0);
    for (const TreeEntries::Found& hit : hits) {
        const bool isBranch = hit.parent == m_root;
        const TreeEntries::Index branch = isBranch ? hit.entry : hit.parent;
        if (rows.branches.empty() || rows.branches.back().number != branch)
            rows.branches.push_back({branch, static_cast<int>(rows.leaves.size()), true, isBranch});
        if (!isBranch)
            rows.leaves.push_back(hit.entry);
    }
    m_loadedHits = static_cast<int>(hits.size());
    rows.Count();
    endResetModel();
}

void FoundEntries::ShowUnloaded(std::vector<UnloadedEntry> hits, bool more)
{
    Rows& rows = m_rows[UnloadedGroup];
    const int row = m_rows[LoadedGroup].Shown() > 0 ? 1 : 0;
    if (rows.Shown() > 0) {
        beginRemoveRows({}, row, row);
        rows = Rows();
        m_unloaded.clear();
        endRemoveRows();
    }
    if (hits.empty())
        return;
    beginInsertRows({}, row, row);
    m_unloaded = std::move(hits);
    for (int at = 0; at < static_cast<int>(m_unloaded.size()); ++at) {
        const UnloadedEntry& hit = m_unloaded[static_cast<std::size_t>(at)];
        const bool begins = at == 0 || m_unloaded[static_cast<std::size_t>(at) - 1].conId != hit.conId;
        if (begins)
            rows.branches.push_back({at, at, true, false});
        rows.leaves.push_back(at);
    }
    if (more)
        rows.branches.push_back({MoreRow, static_cast<int>(rows.leaves.size()), false, false});
    rows.Count();
    endInsertRows();
}

void FoundEntries::Forget()
{
    m_root = 0;
    m_loadedHits = 0;
    m_unloaded.clear();
    m_rows = {};
}

int FoundEntries::Rows::LeafCount(int branch) const
{
    const auto at = static_cast<std::size_t>(branch);
    const int end = at + 1 < branches.size() ? branches[at + 1].firstLeaf : static_cast<int>(leaves.size());
    return end - branches[at].firstLeaf;
}

int FoundEntries::Rows::Shown() const
{
    return branches.empty() ? 0 : 1 + (expanded ? before.back() : 0);
}

int FoundEntries::Rows::BranchOfLeaf(int leaf) const
{
    const auto behind = std::upper_bound(branches.begin(), branches.end(), leaf,
                                         [](int at, const Branch& branch) { return at < branch.firstLeaf; });
    return static_cast<int>(behind - branches.begin()) - 1;
}

void FoundEntries::Rows::Count()
{
    before.assign(1, 0);
    before.reserve(branches.size() + 1);
    for (int branch = 0; branch < static_cast<int>(branches.size()); ++branch) {
        const bool open = branches[static_cast<std::size_t>(branch)].expanded;
        before.push_back(before.back() + 1 + (open ? LeafCount(branch) : 0));
    }
}

// Hits ------------------------------------------------------------------------------------------------------

FoundEntry FoundEntries::EntryAt(const QModelIndex& index) const
{
    if (!index.isValid())
        return {};
    const Place place = PlaceOf(index);
    if (place.level == 0)
        return {};
    if (place.group == LoadedGroup)
        return {NumberAt(place), std::nullopt};
    if (place.level == 1)
        return {};
    return {0, m_unloaded[static_cast<std::size_t>(NumberAt(place))]};
}

QModelIndex FoundEntries::FirstHit() const
{
    const Rows& loaded = m_rows[LoadedGroup];
    if (!loaded.branches.empty())
        return IndexOf({LoadedGroup, loaded.branches.front().isHit ? 1 : 2, 0});
    return m_rows[UnloadedGroup].leaves.empty() ? QModelIndex() : IndexOf({UnloadedGroup, 2, 0});
}

QModelIndex FoundEntries::IndexOfEntry(TreeEntries::Index entry) const
{
    const Rows& loaded = m_rows[LoadedGroup];
    const auto leaf = std::find(loaded.leaves.begin(), loaded.leaves.end(), entry);
    if (leaf != loaded.leaves.end())
        return IndexOf({LoadedGroup, 2, static_cast<int>(leaf - loaded.leaves.begin())});
    const auto branch = std::find_if(loaded.branches.begin(), loaded.branches.end(),
                                     [entry](const Branch& candidate) { return candidate.number == entry; });
    if (branch != loaded.branches.end())
        return IndexOf({LoadedGroup, 1, static_cast<int>(branch - loaded.branches.begin())});
    return {};
}

// Places ----------------------------------------------------------------------------------------------------

FoundEntries::Place FoundEntries::PlaceOf(const QModelIndex& index)
{
    const int id = static_cast<int>(index.internalId());
    const int kind = id % 8;
    return {kind / 3, kind % 3, id / 8};
}

QModelIndex FoundEntries::IndexOf(const Place& place) const
{
    const Rows& rows = RowsOf(place);
    int row = place.at;
    if (place.level == 0)
        row = place.group == UnloadedGroup && m_rows[LoadedGroup].Shown() > 0 ? 1 : 0;
    else if (place.level == 2)
        row -= rows.branches[static_cast<std::size_t>(rows.BranchOfLeaf(place.at))].firstLeaf;
    const int kind = place.group * 3 + place.level;
    return createIndex(row, 0, static_cast<quintptr>(place.at) * 8 + static_cast<quintptr>(kind));
}

qint32 FoundEntries::NumberAt(const Place& place) const
{
    const Rows& rows = RowsOf(place);
    const auto at = static_cast<std::size_t>(place.at);
    return place.level == 1 ? rows.branches[at].number : rows.leaves[at];
}

QString FoundEntries::TextAt(const Place& place) const
{
    if (place.group == LoadedGroup) {
        const TreeEntries::Index entry = place.level == 0 ? m_root : NumberAt(place);
        return m_tree ? m_tree->Text(entry) : QString();
    }
    if (place.level == 0)
        return tr("Not loaded yet");
    const qint32 number = NumberAt(place);
    if (number == MoreRow)
        return tr("There are more than %1. Search for a longer text.").arg(UnloadedSearch::MostHits);
    const UnloadedEntry& hit = m_unloaded[static_cast<std::size_t>(number)];
    return place.level == 1 ? hit.conName : hit.text;
}

QChar FoundEntries::KindAt(const Place& place) const
{
    if (place.group == LoadedGroup)
        return m_tree ? m_tree->Kind(place.level == 0 ? m_root : NumberAt(place)) : QChar();
    if (place.level == 0 || NumberAt(place) == MoreRow)
        return u'R';
    if (place.level == 1)
        return u'C';
    return m_unloaded[static_cast<std::size_t>(NumberAt(place))].isWaypoint ? u'W' : u'N';
}

// QAbstractItemModel ----------------------------------------------------------------------------------------

QModelIndex FoundEntries::index(int row, int column, const QModelIndex& parent) const
{
    if (row < 0 || column != 0 || row >= rowCount(parent))
        return {};
    if (!parent.isValid()) {
        const bool hasLoaded = m_rows[LoadedGroup].Shown() > 0;
        return IndexOf({row == 0 && hasLoaded ? LoadedGroup : UnloadedGroup, 0, 0});
    }
    const Place above = PlaceOf(parent);
    if (above.level == 0)
        return IndexOf({above.group, 1, row});
    return IndexOf(
        {above.group, 2, RowsOf(above).branches[static_cast<std::size_t>(above.at)].firstLeaf + row});
}

QModelIndex FoundEntries::parent(const QModelIndex& child) const
{
    const Place place = child.isValid() ? PlaceOf(child) : Place();
    switch (place.level) {
    case 1:
        return IndexOf({place.group, 0, 0});
    case 2:
        return IndexOf({place.group, 1, RowsOf(place).BranchOfLeaf(place.at)});
    default:
        return {};
    }
}

int FoundEntries::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid())
        return static_cast<int>(
            std::count_if(m_rows.begin(), m_rows.end(), [](const Rows& rows) { return rows.Shown() > 0; }));
    const Place place = PlaceOf(parent);
    if (place.level == 0)
        return static_cast<int>(RowsOf(place).branches.size());
    return place.level == 1 ? RowsOf(place).LeafCount(place.at) : 0;
}

int FoundEntries::columnCount(const QModelIndex&) const
{
    return 1;
}

QVariant FoundEntries::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return TextAt(PlaceOf(index));
    case TreeEntries::KindRole:
        return KindAt(PlaceOf(index));
    default:
        return {};
    }
}

// TreeRows --------------------------------------------------------------------------------------------------

int FoundEntries::VisibleRowCount() const
{
    return m_rows[LoadedGroup].Shown() + m_rows[UnloadedGroup].Shown();
}

QModelIndex FoundEntries::IndexAtVisibleRow(int row) const
{
    if (row < 0 || row >= VisibleRowCount())
        return {};
    const int loaded = m_rows[LoadedGroup].Shown();
    const int group = row < loaded ? LoadedGroup : UnloadedGroup;
    const Rows& rows = m_rows[static_cast<std::size_t>(group)];
    row -= group == UnloadedGroup ? loaded : 0;
    if (row == 0)
        return IndexOf({group, 0, 0});
    --row;
    const auto behind = std::upper_bound(rows.before.begin(), rows.before.end(), row);
    const auto branch = static_cast<int>(behind - rows.before.begin()) - 1;
    const int below = row - rows.before[static_cast<std::size_t>(branch)];
    if (below == 0)
        return IndexOf({group, 1, branch});
    return IndexOf({group, 2, rows.branches[static_cast<std::size_t>(branch)].firstLeaf + below - 1});
}

int FoundEntries::VisibleRowOf(const QModelIndex& index) const
{
    if (!index.isValid())
        return -1;
    const Place place = PlaceOf(index);
    const Rows& rows = RowsOf(place);
    const int top = place.group == UnloadedGroup ? m_rows[LoadedGroup].Shown() : 0;
    if (place.level == 0)
        return top;
    const int branch = place.level == 1 ? place.at : rows.BranchOfLeaf(place.at);
    const Branch& above = rows.branches[static_cast<std::size_t>(branch)];
    if (!rows.expanded || (place.level == 2 && !above.expanded))
        return -1;
    const int own = top + 1 + rows.before[static_cast<std::size_t>(branch)];
    return place.level == 1 ? own : own + 1 + place.at - above.firstLeaf;
}

int FoundEntries::DepthOf(const QModelIndex& index) const
{
    return index.isValid() ? PlaceOf(index).level : 0;
}

bool FoundEntries::IsExpanded(const QModelIndex& index) const
{
    const Place place = index.isValid() ? PlaceOf(index) : Place{0, 2, 0};
    if (place.level == 0)
        return RowsOf(place).expanded;
    return place.level == 1 && RowsOf(place).branches[static_cast<std::size_t>(place.at)].expanded;
}

void FoundEntries::SetExpanded(const QModelIndex& index, bool expanded)
{
    if (rowCount(index) == 0 || !index.isValid() || IsExpanded(index) == expanded)
        return;
    const Place place = PlaceOf(index);
    Rows& rows = RowsOf(place);
    if (place.level == 0)
        rows.expanded = expanded;
    else
        rows.branches[static_cast<std::size_t>(place.at)].expanded = expanded;
    rows.Count();
    Q_EMIT VisibleRowsChanged();
    if (expanded)
        Q_EMIT Expanded(index);
    else
        Q_EMIT Collapsed(index);
}

QModelIndex FoundEntries::FindVisibleByPrefix(const QModelIndex& from, const QString& prefix) const
{
    const int count = VisibleRowCount();
    const int start = VisibleRowOf(from);
    for (int step = 1; step <= count; ++step) {
        const QModelIndex candidate = IndexAtVisibleRow((start + step) % count);
        if (TextAt(PlaceOf(candidate)).startsWith(prefix, Qt::CaseInsensitive))
            return candidate;
    }
    return {};
}
