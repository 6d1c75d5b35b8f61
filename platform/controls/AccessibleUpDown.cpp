#include "platform/controls/AccessibleUpDown.h"

#include "platform/controls/UpDown.h"

AccessibleUpDown::AccessibleUpDown(UpDown* upDown) : QAccessibleWidget(upDown, QAccessible::SpinBox) {}

UpDown* AccessibleUpDown::Buttons() const
{
    return qobject_cast<UpDown*>(object());
}

QString AccessibleUpDown::text(QAccessible::Text kind) const
{
    const QString own = QAccessibleWidget::text(kind);
    if (!own.isEmpty() || !Buttons()->Buddy())
        return own;
    if (kind == QAccessible::Value)
        return Buttons()->Buddy()->text();
    const QAccessibleInterface* field = QAccessible::queryAccessibleInterface(Buttons()->Buddy());
    return field && kind == QAccessible::Name ? field->text(QAccessible::Name) : own;
}

void* AccessibleUpDown::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                               : QAccessibleWidget::interface_cast(type);
}

QStringList AccessibleUpDown::actionNames() const
{
    return {increaseAction(), decreaseAction()};
}

void AccessibleUpDown::doAction(const QString& name)
{
    if (name == increaseAction())
        Buttons()->Press(1);
    else if (name == decreaseAction())
        Buttons()->Press(-1);
}

QVariant AccessibleUpDown::currentValue() const
{
    return Buttons()->Buddy() ? Buttons()->Buddy()->text().trimmed().toInt() : 0;
}

void AccessibleUpDown::setCurrentValue(const QVariant& value)
{
    QLineEdit* field = Buttons()->Buddy();
    if (field && field->isEnabled() && !field->isReadOnly())
        field->setText(QString::number(qBound(Buttons()->Low(), value.toInt(), Buttons()->High())));
}

QVariant AccessibleUpDown::maximumValue() const
{
    return Buttons()->High();
}

QVariant AccessibleUpDown::minimumValue() const
{
    return Buttons()->Low();
}
