#pragma once

#include <QAccessibleWidget>

class QComboBox;

/// A combo box with a name of its own for those who cannot see it: Qt gives its text as its name, so that all
/// of a form's combo boxes would be called after what happens to be chosen in them.
class AccessibleComboBox : public QAccessibleWidget
{
public:
    explicit AccessibleComboBox(QComboBox* combo);

    /// The list, then, where one can type, the text box.
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override;
    /// Value: what is chosen or typed, which also begins the description, since not every bridge passes on
    /// the value of a text. It is the name as well where the combo box has none.
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QAccessible::State state() const override;

    /// Opens or closes the list.
    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& name) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString& name) const override;

private:
    [[nodiscard]] QComboBox* Combo() const;
};
