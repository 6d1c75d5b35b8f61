#pragma once

#include <QPointer>
#include <QString>

class QAbstractButton;
class QAction;
class QMenu;
class QPoint;
class QWidget;

/// A context menu whose commands are the buttons of its window, so that a command has one handler and one
/// rule for when it can be run.
///
/// A command reads as its button does and tells what the button's tool tip tells; it can be chosen exactly
/// while the button can be pressed, and is left out while the button is hidden. Choosing it presses the
/// button, after the menu has closed. Made anew each time that the operator asks for it; the menu deletes
/// itself.
class CommandMenu
{
public:
    /// `window`: what the menu belongs to and goes with.
    explicit CommandMenu(QWidget& window);

    /// `text`: instead of the button's. `keys`: the keys that do the same elsewhere, for display.
    void AddCommand(QAbstractButton& button, const QString& text = QString(),
                    const QString& keys = QString());
    /// Copies a text to the clipboard. An empty one cannot be chosen, for the reason given.
    void AddCopy(const QString& text, const QString& copied, const QString& whyNot,
                 const QString& keys = QString());
    /// A line between what stands before and what follows.
    void AddLine();
    /// Opens the menu at a place of the screen and returns at once. One without commands is not shown.
    void Open(const QPoint& place);

private:
    QAction* Add(const QString& text, const QString& keys);

    QPointer<QMenu> m_menu;
};
