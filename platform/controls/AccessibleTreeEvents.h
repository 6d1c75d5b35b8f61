#pragma once

#include <QAccessible>
#include <QObject>
#include <QPointer>

class AccessibleTree;
class QItemSelection;
class TreeRows;
class TreeRowsView;

/// Tells assistive programs what happens in a TreeRowsView: where the focus is, what is selected, expanded,
/// collapsed, renamed, added and removed. Without such a program it does nothing.
class AccessibleTreeEvents : public QObject
{
    Q_OBJECT

public:
    /// Of the view, its parent.
    explicit AccessibleTreeEvents(TreeRowsView* view);

    /// From now on of these rows, which are the view's; null: of none.
    void Watch(TreeRows* rows);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// Null when nobody listens.
    [[nodiscard]] AccessibleTree* Listened() const;
    void TellFocus();
    void TellSelection(const QItemSelection& selection, bool selected);
    void TellExpansion(const QModelIndex& index);
    /// Each of a few rows; of many at once nobody could hear.
    void TellRows(QAccessible::Event event, const QModelIndex& parent, int first, int last);
    void TellNames(const QModelIndex& first, const QModelIndex& last);

    TreeRowsView* m_view;
    QPointer<TreeRows> m_rows;
};
