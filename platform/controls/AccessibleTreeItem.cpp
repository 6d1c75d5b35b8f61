#include "platform/controls/AccessibleTreeItem.h"

#include "platform/controls/AccessibleTree.h"
#include "platform/controls/TreeRowsView.h"

#include <QKeySequence>
#include <QWindow>

namespace {

const QString OpenAction = QStringLiteral("Open");

} // namespace

AccessibleTreeItem::AccessibleTreeItem(TreeRowsView* view, const QModelIndex& entry)
    : m_view(view), m_entry(entry)
{}

bool AccessibleTreeItem::isValid() const
{
    return m_view && m_view->Rows() && m_entry.isValid() && m_entry.model() == m_view->Rows();
}

QWindow* AccessibleTreeItem::window() const
{
    return m_view ? m_view->window()->windowHandle() : nullptr;
}

bool AccessibleTreeItem::IsExpandable() const
{
    return isValid() && m_view->Rows()->rowCount(m_entry) > 0;
}

bool AccessibleTreeItem::IsExpanded() const
{
    return IsExpandable() && m_view->Rows()->IsExpanded(m_entry);
}

QAccessibleInterface* AccessibleTreeItem::ItemOf(const QModelIndex& index) const
{
    const auto* tree = dynamic_cast<AccessibleTree*>(QAccessible::queryAccessibleInterface(m_view));
    return tree ? tree->ItemOf(index) : nullptr;
}

// The tree ----------------------------------------------------------------------------------------------

QAccessibleInterface* AccessibleTreeItem::parent() const
{
    if (!isValid())
        return nullptr;
    const QModelIndex above = m_entry.parent();
    return above.isValid() ? ItemOf(above) : QAccessible::queryAccessibleInterface(m_view);
}

int AccessibleTreeItem::childCount() const
{
    return IsExpanded() ? m_view->Rows()->rowCount(m_entry) : 0;
}

QAccessibleInterface* AccessibleTreeItem::child(int index) const
{
    return index >= 0 && index < childCount() ? ItemOf(m_view->Rows()->index(index, 0, m_entry)) : nullptr;
}

QAccessibleInterface* AccessibleTreeItem::childAt(int x, int y) const
{
    // Rows do not lie inside each other: what is at a place the tree knows.
    Q_UNUSED(x)
    Q_UNUSED(y)
    return nullptr;
}

int AccessibleTreeItem::indexOfChild(const QAccessibleInterface* child) const
{
    const auto* item = dynamic_cast<const AccessibleTreeItem*>(child);
    return isValid() && item && item->isValid() && item->Entry().parent() == m_entry ? item->Entry().row()
                                                                                     : -1;
}

// What is announced -------------------------------------------------------------------------------------

QString AccessibleTreeItem::Position() const
{
    return tr("level %1, entry %2 of %3")
        .arg(m_view->Rows()->DepthOf(m_entry) + 1)
        .arg(m_entry.row() + 1)
        .arg(m_view->Rows()->rowCount(m_entry.parent()));
}

QString AccessibleTreeItem::text(QAccessible::Text kind) const
{
    if (!isValid())
        return {};
    switch (kind) {
    case QAccessible::Name:
        return m_entry.data().toString();
    case QAccessible::Description:
        return Position();
    default:
        return {};
    }
}

void AccessibleTreeItem::setText(QAccessible::Text kind, const QString& text)
{
    Q_UNUSED(kind)
    Q_UNUSED(text)
}

QRect AccessibleTreeItem::rect() const
{
    if (!isValid())
        return {};
    const QRect place = m_view->visualRect(m_entry);
    return place.isEmpty() ? QRect() : QRect(m_view->viewport()->mapToGlobal(place.topLeft()), place.size());
}

QAccessible::State AccessibleTreeItem::state() const
{
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    const bool current = m_view->currentIndex() == m_entry;
    state.selectable = true;
    state.focusable = true;
    state.focused = current && m_view->hasFocus();
    state.selected = m_view->selectionModel()->isSelected(m_entry);
    state.expandable = IsExpandable();
    state.expanded = IsExpanded();
    state.collapsed = state.expandable && !state.expanded;
    state.disabled = !m_view->isEnabled();
    const QRect place = m_view->visualRect(m_entry);
    state.invisible = place.isEmpty() || !m_view->isVisible();
    state.offscreen = !place.intersects(m_view->viewport()->rect());
    return state;
}

void* AccessibleTreeItem::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

// Actions -----------------------------------------------------------------------------------------------

QStringList AccessibleTreeItem::actionNames() const
{
    QStringList names{pressAction(), setFocusAction(), OpenAction};
    if (IsExpandable())
        names.insert(1, toggleAction());
    return names;
}

QString AccessibleTreeItem::localizedActionName(const QString& name) const
{
    return name == OpenAction ? tr("Open") : QAccessibleActionInterface::localizedActionName(name);
}

void AccessibleTreeItem::doAction(const QString& name)
{
    if (!isValid() || !m_view->isEnabled())
        return;
    const auto later = [this](auto&& action) {
        QMetaObject::invokeMethod(
            m_view,
            [view = m_view.data(), entry = m_entry, action] {
                if (entry.isValid())
                    action(*view, entry);
            },
            Qt::QueuedConnection);
    };
    if (name == pressAction()) {
        later([](TreeRowsView& view, const QModelIndex& entry) { view.ClickEntry(entry); });
    } else if (name == OpenAction) {
        later([](TreeRowsView& view, const QModelIndex& entry) { view.OpenEntry(entry); });
    } else if (name == toggleAction()) {
        later([](TreeRowsView& view, const QModelIndex& entry) {
            view.Rows()->SetExpanded(entry, !view.Rows()->IsExpanded(entry));
        });
    } else if (name == setFocusAction()) {
        later([](TreeRowsView& view, const QModelIndex& entry) {
            view.setFocus(Qt::OtherFocusReason);
            view.GoToEntry(entry);
        });
    }
}

QStringList AccessibleTreeItem::keyBindingsForAction(const QString& name) const
{
    if (name == OpenAction)
        return {QKeySequence(Qt::Key_Return).toString()};
    if (name != toggleAction())
        return {};
    return {QKeySequence(IsExpanded() ? Qt::Key_Left : Qt::Key_Right).toString()};
}
