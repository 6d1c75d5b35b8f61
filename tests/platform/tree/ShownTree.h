#pragma once

#include "model/TreeEntries.h"
#include "platform/controls/TreeView.h"

#include <QStringList>

#include <memory>

/// Counts what a view asks for.
class CountingEntries : public TreeEntries
{
    Q_OBJECT

public:
    using TreeEntries::TreeEntries;

    QModelIndex IndexAtVisibleRow(int row) const override
    {
        ++rowsAsked;
        return TreeEntries::IndexAtVisibleRow(row);
    }
    QVariant data(const QModelIndex& index, int role) const override
    {
        ++dataAsked;
        return TreeEntries::data(index, role);
    }

    mutable int rowsAsked = 0;
    mutable int dataAsked = 0;
};

/// A tree view on the screen over entries of its own, with a record of the events that it raises.
class ShownTree
{
public:
    ShownTree();

    /// Root 1 "Connections" with Alpha 2 (Zeta 5, eta 6), beta 3, Gamma 4 (Alpha 2, 7); all expanded.
    void FillSmall();
    /// Root 1 "Nodes", expanded, with nodes "Node 00000" and so on; the first has index 2.
    void FillNodes(int count);
    void Show();

    QPoint PlaceOf(TreeEntries::Index entry) const;
    QPoint PlaceOfIndicator(TreeEntries::Index entry) const;
    QPoint EmptyPlace() const;
    void Press(const QPoint& place);
    void Release(const QPoint& place);
    void Click(const QPoint& place);
    /// What a double click of the operator sends.
    void DoubleClick(const QPoint& place);
    QString SelectedText() const;
    TreeEntries::Index Selected() const;

    CountingEntries entries;
    std::unique_ptr<TreeView> view;
    QStringList events;
};
