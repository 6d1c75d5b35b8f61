#include "platform/controls/AccessibleTree.h"

#include "platform/controls/AccessibleTreeItem.h"
#include "platform/controls/TreeRowsView.h"

AccessibleTree::AccessibleTree(TreeRowsView* view) : QAccessibleWidget(view, QAccessible::Tree) {}

TreeRowsView* AccessibleTree::View() const
{
    return qobject_cast<TreeRowsView*>(object());
}

QAccessibleInterface* AccessibleTree::ItemOf(const QModelIndex& index) const
{
    if (!index.isValid() || !View())
        return nullptr;
    if (QAccessibleInterface* known = KnownItemOf(index))
        return known;
    auto* item = new AccessibleTreeItem(View(), index);
    m_items.insert(index, new Registered(QAccessible::registerAccessibleInterface(item)));
    return item;
}

QAccessibleInterface* AccessibleTree::KnownItemOf(const QModelIndex& index) const
{
    const Registered* known = m_items.object(index);
    return known ? QAccessible::accessibleInterface(known->id) : nullptr;
}

int AccessibleTree::childCount() const
{
    return View() && View()->Rows() ? View()->Rows()->rowCount() : 0;
}

QAccessibleInterface* AccessibleTree::child(int index) const
{
    return index >= 0 && index < childCount() ? ItemOf(View()->Rows()->index(index, 0)) : nullptr;
}

QAccessibleInterface* AccessibleTree::childAt(int x, int y) const
{
    if (!View())
        return nullptr;
    const QPoint place = View()->viewport()->mapFromGlobal(QPoint(x, y));
    return View()->viewport()->rect().contains(place) ? ItemOf(View()->indexAt(place)) : nullptr;
}

int AccessibleTree::indexOfChild(const QAccessibleInterface* child) const
{
    const auto* item = dynamic_cast<const AccessibleTreeItem*>(child);
    return item && item->isValid() && !item->Entry().parent().isValid() ? item->Entry().row() : -1;
}

QAccessibleInterface* AccessibleTree::focusChild() const
{
    return View() && View()->hasFocus() ? ItemOf(View()->currentIndex()) : nullptr;
}
