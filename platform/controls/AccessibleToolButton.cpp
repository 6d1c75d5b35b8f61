#include "platform/controls/AccessibleToolButton.h"

#include <QToolButton>

AccessibleToolButton::AccessibleToolButton(QToolButton* button)
    : QAccessibleWidget(button, QAccessible::Button)
{}

QToolButton* AccessibleToolButton::Button() const
{
    return qobject_cast<QToolButton*>(object());
}

QString AccessibleToolButton::text(QAccessible::Text kind) const
{
    const QString own = QAccessibleWidget::text(kind);
    return kind == QAccessible::Name && own.isEmpty() ? Button()->text().remove(QLatin1Char('&')) : own;
}

QAccessible::State AccessibleToolButton::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = Button()->isCheckable();
    state.checked = Button()->isChecked();
    state.pressed = Button()->isDown();
    return state;
}

QStringList AccessibleToolButton::actionNames() const
{
    return {pressAction(), setFocusAction()};
}

void AccessibleToolButton::doAction(const QString& name)
{
    if (name != pressAction())
        QAccessibleWidget::doAction(name);
    else if (Button()->isEnabled())
        QMetaObject::invokeMethod(Button(), &QToolButton::click, Qt::QueuedConnection);
}

QStringList AccessibleToolButton::keyBindingsForAction(const QString& name) const
{
    return name == pressAction() && !Button()->shortcut().isEmpty()
               ? QStringList{Button()->shortcut().toString()}
               : QAccessibleWidget::keyBindingsForAction(name);
}
