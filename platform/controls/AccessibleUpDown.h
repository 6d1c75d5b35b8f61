#pragma once

#include <QAccessibleWidget>

class UpDown;

/// The arrow buttons beside a number for those who cannot see them: what they step and how far.
class AccessibleUpDown : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit AccessibleUpDown(UpDown* upDown);

    /// Name: that of the number.
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] void* interface_cast(QAccessible::InterfaceType type) override;
    /// Increase and Decrease.
    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& name) override;

    [[nodiscard]] QVariant currentValue() const override;
    void setCurrentValue(const QVariant& value) override;
    [[nodiscard]] QVariant maximumValue() const override;
    [[nodiscard]] QVariant minimumValue() const override;
    [[nodiscard]] QVariant minimumStepSize() const override { return 1; }

private:
    [[nodiscard]] UpDown* Buttons() const;
};
