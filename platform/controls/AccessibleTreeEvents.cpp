#include "platform/controls/AccessibleTreeEvents.h"

#include "platform/controls/AccessibleControls.h"
#include "platform/controls/AccessibleTree.h"
#include "platform/controls/TreeRowsView.h"

#include <QEvent>

namespace {

/// Rows of one change that are told one by one.
constexpr int MostRowsTold = 20;

void Tell(QAccessibleInterface* item, QAccessible::Event kind)
{
    if (!item)
        return;
    QAccessibleEvent event(item, kind);
    TellAssistivePrograms(event);
}

void TellState(QAccessibleInterface* item, const QAccessible::State& changed)
{
    if (!item)
        return;
    QAccessibleStateChangeEvent event(item, changed);
    TellAssistivePrograms(event);
}

} // namespace

AccessibleTreeEvents::AccessibleTreeEvents(TreeRowsView* view) : QObject(view), m_view(view)
{
    view->installEventFilter(this);
}

void AccessibleTreeEvents::Watch(TreeRows* rows)
{
    if (m_rows)
        disconnect(m_rows, nullptr, this, nullptr);
    m_rows = rows;
    if (AccessibleTree* tree = Listened())
        tree->ForgetItems();
    if (!rows)
        return;
    connect(rows, &TreeRows::Expanded, this, &AccessibleTreeEvents::TellExpansion);
    connect(rows, &TreeRows::Collapsed, this, &AccessibleTreeEvents::TellExpansion);
    connect(rows, &QAbstractItemModel::dataChanged, this, &AccessibleTreeEvents::TellNames);
    connect(rows, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex& parent, int first, int last) {
                TellRows(QAccessible::ObjectCreated, parent, first, last);
            });
    connect(rows, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            [this](const QModelIndex& parent, int first, int last) {
                TellRows(QAccessible::ObjectDestroyed, parent, first, last);
            });
    connect(rows, &QAbstractItemModel::modelReset, this, [this] {
        if (AccessibleTree* tree = Listened())
            tree->ForgetItems();
    });
    // Made anew with each model.
    connect(m_view->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] { TellFocus(); });
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this](const QItemSelection& selected, const QItemSelection& deselected) {
                TellSelection(deselected, false);
                TellSelection(selected, true);
            });
}

bool AccessibleTreeEvents::eventFilter(QObject* watched, QEvent* event)
{
    // The tree itself is told as the focus when this event is over; its entry must come behind it.
    if (event->type() == QEvent::FocusIn && AssistiveProgramListens())
        QMetaObject::invokeMethod(this, &AccessibleTreeEvents::TellFocus, Qt::QueuedConnection);
    return QObject::eventFilter(watched, event);
}

AccessibleTree* AccessibleTreeEvents::Listened() const
{
    return AssistiveProgramListens()
               ? dynamic_cast<AccessibleTree*>(QAccessible::queryAccessibleInterface(m_view))
               : nullptr;
}

void AccessibleTreeEvents::TellFocus()
{
    const AccessibleTree* tree = m_view->hasFocus() ? Listened() : nullptr;
    if (tree)
        Tell(tree->ItemOf(m_view->currentIndex()), QAccessible::Focus);
}

void AccessibleTreeEvents::TellSelection(const QItemSelection& selection, bool selected)
{
    const AccessibleTree* tree = selection.isEmpty() ? nullptr : Listened();
    if (!tree)
        return;
    const QModelIndex index = selection.first().topLeft();
    QAccessible::State changed;
    changed.selected = true;
    TellState(tree->ItemOf(index), changed);
    Tell(tree->ItemOf(index), selected ? QAccessible::SelectionAdd : QAccessible::SelectionRemove);
}

void AccessibleTreeEvents::TellExpansion(const QModelIndex& index)
{
    const AccessibleTree* tree = Listened();
    if (!tree)
        return;
    QAccessible::State changed;
    changed.expanded = true;
    changed.collapsed = true;
    TellState(tree->ItemOf(index), changed);
    // Bridges that pass on no such state do pass on this.
    Tell(tree->ItemOf(index), QAccessible::DescriptionChanged);
}

void AccessibleTreeEvents::TellRows(QAccessible::Event event, const QModelIndex& parent, int first, int last)
{
    const AccessibleTree* tree = Listened();
    if (!tree)
        return;
    // Below a collapsed entry there is nothing for anybody.
    if (parent.isValid() && !m_rows->IsExpanded(parent))
        return;
    if (last - first < MostRowsTold) {
        for (int row = first; row <= last; ++row)
            Tell(tree->ItemOf(m_rows->index(row, 0, parent)), event);
    }
    Tell(parent.isValid() ? tree->ItemOf(parent) : QAccessible::queryAccessibleInterface(m_view),
         QAccessible::DescriptionChanged);
}

void AccessibleTreeEvents::TellNames(const QModelIndex& first, const QModelIndex& last)
{
    const AccessibleTree* tree = last.row() - first.row() < MostRowsTold ? Listened() : nullptr;
    if (!tree)
        return;
    for (int row = first.row(); row <= last.row(); ++row)
        Tell(tree->KnownItemOf(first.siblingAtRow(row)), QAccessible::NameChanged);
}
