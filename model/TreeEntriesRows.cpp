#include "model/TreeEntriesStore.h"
#include "model/TreeSearch.h"

#include <limits>

// QAbstractItemModel ------------------------------------------------------------------------------------

QModelIndex TreeEntries::index(int row, int column, const QModelIndex& parent) const
{
    if (column != 0 || (parent.isValid() && parent.column() != 0))
        return {};
    const Index child = Child(EntryOf(parent), row);
    return child != 0 ? createIndex(row, 0, quintptr(child)) : QModelIndex();
}

QModelIndex TreeEntries::parent(const QModelIndex& child) const
{
    return ModelIndex(Parent(EntryOf(child)));
}

int TreeEntries::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() && parent.column() != 0 ? 0 : ChildCount(EntryOf(parent));
}

int TreeEntries::columnCount(const QModelIndex& parent) const
{
    Q_UNUSED(parent)
    return 1;
}

QVariant TreeEntries::data(const QModelIndex& index, int role) const
{
    const Index entry = EntryOf(index);
    if (!Exists(entry))
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return Text(entry);
    case KeyRole:
        return Key(entry);
    case KindRole:
        return Kind(entry);
    case IndexRole:
        return entry;
    default:
        return {};
    }
}

Qt::ItemFlags TreeEntries::flags(const QModelIndex& index) const
{
    return Exists(EntryOf(index)) ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
}

// TreeRows ----------------------------------------------------------------------------------------------

int TreeEntries::VisibleRowCount() const
{
    return m_store->siblings.Rows(0);
}

QModelIndex TreeEntries::IndexAtVisibleRow(int row) const
{
    if (row < 0 || row >= VisibleRowCount())
        return {};
    TreeSiblings::Row place = m_store->siblings.AtRow(0, row);
    while (place.offset != 0)
        place = m_store->siblings.AtRow(place.entry, place.offset - 1);
    return createIndex(place.position, 0, quintptr(place.entry));
}

int TreeEntries::VisibleRowOf(const QModelIndex& index) const
{
    const Index entry = EntryOf(index);
    if (!Exists(entry))
        return -1;
    quint32 handle = quint32(entry);
    int row = m_store->siblings.RowsBefore(handle);
    for (quint32 above = m_store->entries[handle].parent; above != 0;
         above = m_store->entries[above].parent) {
        if (!m_store->entries[above].expanded)
            return -1;
        row += m_store->siblings.RowsBefore(above) + 1;
    }
    return row;
}

int TreeEntries::DepthOf(const QModelIndex& index) const
{
    int depth = 0;
    for (Index entry = Parent(EntryOf(index)); entry != 0; entry = Parent(entry))
        ++depth;
    return depth;
}

bool TreeEntries::IsExpanded(const QModelIndex& index) const
{
    return Expanded(EntryOf(index));
}

void TreeEntries::SetExpanded(const QModelIndex& index, bool expanded)
{
    SetExpanded(EntryOf(index), expanded);
}

QModelIndex TreeEntries::FindVisibleByPrefix(const QModelIndex& from, const QString& prefix) const
{
    // From an entry that cannot be seen the search starts at the one above it that can.
    Index start = Exists(EntryOf(from)) ? EntryOf(from) : 0;
    for (Index above = Parent(start); above != 0; above = Parent(above)) {
        if (!Expanded(above))
            start = above;
    }
    return ModelIndex(
        Index(FindTreePrefix(m_store->entries, m_store->siblings, quint32(start), QStringView(prefix))));
}

bool TreeEntries::FindContaining(const TreePattern& pattern, Index& next, int most,
                                 std::vector<Index>& found) const
{
    return FindTreeMatches(m_store->entries, pattern, next, most, found);
}

std::vector<TreeEntries::Found> TreeEntries::FindContaining(const TreePattern& pattern) const
{
    std::vector<Index> found;
    Index next = 1;
    while (FindContaining(pattern, next, std::numeric_limits<int>::max(), found)) {
    }
    return InTreeOrder(m_store->entries, m_store->siblings, found);
}
