#pragma once

#include <QAbstractItemModel>

/// A tree model that also knows which of its entries are expanded and maps visible rows to entries and back
/// in logarithmic time, so that a view of a million entries need keep nothing per entry.
///
/// Visible rows are counted from 0 in display order; the children of a collapsed entry have none.
class TreeRows : public QAbstractItemModel
{
    Q_OBJECT

public:
    using QAbstractItemModel::QAbstractItemModel;

    [[nodiscard]] virtual int VisibleRowCount() const = 0;
    /// Invalid outside 0 .. VisibleRowCount() - 1.
    [[nodiscard]] virtual QModelIndex IndexAtVisibleRow(int row) const = 0;
    /// -1 when the entry is invalid or one of its ancestors is collapsed.
    [[nodiscard]] virtual int VisibleRowOf(const QModelIndex& index) const = 0;
    /// Depth of an entry: 0 for a top entry.
    [[nodiscard]] virtual int DepthOf(const QModelIndex& index) const = 0;
    [[nodiscard]] virtual bool IsExpanded(const QModelIndex& index) const = 0;
    virtual void SetExpanded(const QModelIndex& index, bool expanded) = 0;
    /// The next entry after `from` (itself last) whose text begins with `prefix`, ignoring case, in display
    /// order, wrapping around; invalid when there is none.
    [[nodiscard]] virtual QModelIndex FindVisibleByPrefix(const QModelIndex& from,
                                                          const QString& prefix) const = 0;

Q_SIGNALS:
    /// The set of visible rows changed in a way that inserts and removals do not tell: an entry was
    /// expanded or collapsed.
    void VisibleRowsChanged();
    void Expanded(const QModelIndex& index);
    void Collapsed(const QModelIndex& index);
};
