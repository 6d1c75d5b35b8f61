#include "platform/controls/AccessibleComboBox.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QKeySequence>
#include <QLineEdit>

AccessibleComboBox::AccessibleComboBox(QComboBox* combo) : QAccessibleWidget(combo, QAccessible::ComboBox) {}

QComboBox* AccessibleComboBox::Combo() const
{
    return qobject_cast<QComboBox*>(object());
}

int AccessibleComboBox::childCount() const
{
    return Combo()->isEditable() ? 2 : 1;
}

QAccessibleInterface* AccessibleComboBox::child(int index) const
{
    if (index == 0)
        return QAccessible::queryAccessibleInterface(Combo()->view());
    return index == 1 && Combo()->isEditable() ? QAccessible::queryAccessibleInterface(Combo()->lineEdit())
                                               : nullptr;
}

int AccessibleComboBox::indexOfChild(const QAccessibleInterface* child) const
{
    if (Combo()->view() == child->object())
        return 0;
    return Combo()->isEditable() && Combo()->lineEdit() == child->object() ? 1 : -1;
}

QAccessibleInterface* AccessibleComboBox::focusChild() const
{
    return Combo()->isEditable() && Combo()->hasFocus() ? child(1) : nullptr;
}

QString AccessibleComboBox::text(QAccessible::Text kind) const
{
    const QString own = QAccessibleWidget::text(kind);
    const QString chosen = Combo()->currentText();
    switch (kind) {
    case QAccessible::Name:
        return own.isEmpty() ? chosen : own;
    case QAccessible::Value:
        return chosen;
    case QAccessible::Description:
        return own.isEmpty() || chosen.isEmpty() ? chosen + own : chosen + QStringLiteral(". ") + own;
    default:
        return own;
    }
}

QAccessible::State AccessibleComboBox::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.expandable = true;
    state.expanded = Combo()->view()->isVisible();
    state.collapsed = !state.expanded;
    state.editable = Combo()->isEditable();
    return state;
}

QStringList AccessibleComboBox::actionNames() const
{
    return {showMenuAction(), setFocusAction()};
}

void AccessibleComboBox::doAction(const QString& name)
{
    if (name != showMenuAction()) {
        QAccessibleWidget::doAction(name);
    } else if (Combo()->isEnabled()) {
        if (Combo()->view()->isVisible())
            Combo()->hidePopup();
        else
            Combo()->showPopup();
    }
}

QStringList AccessibleComboBox::keyBindingsForAction(const QString& name) const
{
    return name == showMenuAction() ? QStringList{QKeySequence(Qt::ALT | Qt::Key_Down).toString()}
                                    : QAccessibleWidget::keyBindingsForAction(name);
}
