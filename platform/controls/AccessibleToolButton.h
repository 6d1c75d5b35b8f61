#pragma once

#include <QAccessibleWidget>

class QToolButton;

/// A tool button that is pressed only when who asked for it has its answer: Qt's own presses it at once, and
/// one that opens a modal dialog would keep an assistive program waiting until the dialog is closed.
class AccessibleToolButton : public QAccessibleWidget
{
public:
    explicit AccessibleToolButton(QToolButton* button);

    /// Name: that of the button, else its text.
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QAccessible::State state() const override;

    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& name) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString& name) const override;

private:
    [[nodiscard]] QToolButton* Button() const;
};
