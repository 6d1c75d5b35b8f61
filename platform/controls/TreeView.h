#pragma once

#include "platform/controls/TreeRowsView.h"

#include <QElapsedTimer>

/// The tree view of the Database tab: raises its events in a fixed order, for the mouse and the keyboard.
///
/// A click selects the entry, then come NodeClick and Click; a double click gives NodeClick, Click, DblClick,
/// Click; a click on no entry gives Click alone; a click on an indicator expands or collapses and gives
/// nothing. A key gives KeyDown, then, when it stands for a character, KeyPress; when it moved the selection,
/// NodeClick and Click follow. Selecting in code gives nothing. The right button clicks on the entry below it
/// and then gives ContextMenu; the menu key and Shift+F10 give that alone.
///
/// Receivers may change the model in any way, or delete the view, inside any event.
class TreeView : public TreeRowsView
{
    Q_OBJECT

public:
    explicit TreeView(QWidget* parent = nullptr);

    /// Invalid when nothing is selected.
    [[nodiscard]] QModelIndex SelectedIndex() const;
    /// Selects an entry (invalid: none) without raising events. An entry that was not selected yet is
    /// brought into view.
    void SelectIndex(const QModelIndex& index);

    /// Selects an entry, brings it into view and raises the events of a click on it. The view may be gone
    /// afterwards.
    void ClickIndex(const QModelIndex& index);
    /// For a receiver of a click: what was clicked on is not what it seemed, so no menu follows.
    void DropMenu() { m_menuFollows = false; }
    void GoToEntry(const QModelIndex& index) override;
    void ClickEntry(const QModelIndex& index) override;
    void OpenEntry(const QModelIndex& index) override;
    /// Selects the next entry that can be seen and whose text begins with what was typed, as by a move.
    void keyboardSearch(const QString& typed) override;

Q_SIGNALS:
    /// Before NodeClick; always followed by ClickEnded, whatever happens in between.
    void ClickBegins();
    void NodeClick(const QModelIndex& index);
    void Click();
    void ClickEnded();
    void DblClick();
    /// `swallow` set to true keeps the key from everything else.
    void KeyDown(int key, Qt::KeyboardModifiers modifiers, bool& swallow);
    /// A control character for Enter (13), Escape (27) and Backspace (8). Set to 0 it is dropped, set to
    /// another one it is taken for that.
    void KeyPress(ushort& character);
    /// The operator asks for a menu of what is selected, to stand at this place of the screen.
    void ContextMenu(const QPoint& place);

protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    enum class Pressed
    {
        Nothing,
        Entry,
        EmptySpace,
    };

    bool ToggleAt(const QPoint& place);
    /// An invalid index: a click on no entry. The view may be gone afterwards.
    void RaiseClick(const QPersistentModelIndex& entry);
    /// Where a menu of the selected entry stands that no pointer asked for.
    [[nodiscard]] QPoint MenuPlace();
    void RaiseDoubleClick(const QPersistentModelIndex& entry);
    bool HandleMoveKey(int key);
    bool HandleExpansionKey(int key);
    [[nodiscard]] bool IsSearching() const;

    bool m_menuFollows = true;
    Pressed m_pressed = Pressed::Nothing;
    QPersistentModelIndex m_pressedEntry;
    QString m_search;
    QElapsedTimer m_lastTyped;
};
