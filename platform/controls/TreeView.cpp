#include "platform/controls/TreeView.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>

TreeView::TreeView(QWidget* parent) : TreeRowsView(parent) {}

QModelIndex TreeView::SelectedIndex() const
{
    const QModelIndex current = currentIndex();
    return current.isValid() && selectionModel()->isSelected(current) ? current : QModelIndex();
}

void TreeView::SelectIndex(const QModelIndex& index)
{
    if (!selectionModel() || index == SelectedIndex())
        return;
    if (!index.isValid()) {
        selectionModel()->clear();
        return;
    }
    const QPersistentModelIndex selected = index;
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    scrollTo(selected);
}

void TreeView::ClickIndex(const QModelIndex& index)
{
    if (!index.isValid() || index.model() != model())
        return;
    const QPersistentModelIndex entry = index;
    const QPointer<TreeView> alive = this;
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    if (alive)
        scrollTo(entry);
    if (alive)
        RaiseClick(entry);
}

void TreeView::RaiseClick(const QPersistentModelIndex& entry)
{
    const QPointer<TreeView> alive = this;
    Q_EMIT ClickBegins();
    if (alive && entry.isValid() && entry.model() == model())
        Q_EMIT NodeClick(QModelIndex(entry));
    if (alive)
        Q_EMIT Click();
    if (alive)
        Q_EMIT ClickEnded();
}

void TreeView::ClickEntry(const QModelIndex& index)
{
    if (!index.isValid())
        return;
    const QPersistentModelIndex entry = index;
    const QPointer<TreeView> alive = this;
    setFocus(Qt::MouseFocusReason);
    if (alive)
        SelectIndex(entry);
    if (alive)
        RaiseClick(entry);
}

/// What follows the first click of a double click.
void TreeView::RaiseDoubleClick(const QPersistentModelIndex& entry)
{
    const QPointer<TreeView> alive = this;
    if (HasChildren(entry))
        Rows()->SetExpanded(entry, !Rows()->IsExpanded(entry));
    if (alive)
        Q_EMIT DblClick();
    if (alive)
        RaiseClick(QPersistentModelIndex());
}

void TreeView::OpenEntry(const QModelIndex& index)
{
    const QPersistentModelIndex entry = index;
    const QPointer<TreeView> alive = this;
    ClickEntry(index);
    if (alive && entry.isValid() && entry == SelectedIndex())
        RaiseDoubleClick(entry);
}

// Mouse -------------------------------------------------------------------------------------------------

/// Expands or collapses the entry whose indicator is at a place; False: there is none.
bool TreeView::ToggleAt(const QPoint& place)
{
    const QModelIndex index = indexAt(place);
    if (!IndicatorRect(index).contains(place))
        return false;
    Rows()->SetExpanded(index, !Rows()->IsExpanded(index));
    return true;
}

void TreeView::mousePressEvent(QMouseEvent* event)
{
    m_pressed = Pressed::Nothing;
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    const QPoint place = event->position().toPoint();
    const QPersistentModelIndex entry = indexAt(place);
    if (ToggleAt(place))
        return;
    m_pressed = entry.isValid() ? Pressed::Entry : Pressed::EmptySpace;
    m_pressedEntry = entry;
    if (entry.isValid())
        selectionModel()->setCurrentIndex(entry, QItemSelectionModel::ClearAndSelect);
}

void TreeView::mouseMoveEvent(QMouseEvent* event)
{
    // Nothing is dragged, and a pressed button does not carry the selection along.
    event->accept();
}

void TreeView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || m_pressed == Pressed::Nothing)
        return;
    m_pressed = Pressed::Nothing;
    // The entry may have gone since the press: then this is a click on no entry.
    RaiseClick(std::exchange(m_pressedEntry, QPersistentModelIndex()));
}

void TreeView::mouseDoubleClickEvent(QMouseEvent* event)
{
    m_pressed = Pressed::Nothing;
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    const QPoint place = event->position().toPoint();
    if (ToggleAt(place))
        return;
    const QPersistentModelIndex entry = indexAt(place);
    if (!entry.isValid() || entry != SelectedIndex()) {
        // The entry of the first click has gone from under the pointer: this begins a click of its own.
        mousePressEvent(event);
        return;
    }
    // Now, not on release: a receiver's dialog may have taken the release away.
    RaiseDoubleClick(entry);
}

// Menu --------------------------------------------------------------------------------------------------

void TreeView::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
    if (event->reason() != QContextMenuEvent::Mouse) {
        Q_EMIT ContextMenu(MenuPlace());
        return;
    }
    const QPointer<TreeView> alive = this;
    const QPoint place = event->globalPos();
    const QPersistentModelIndex entry = indexAt(viewport()->mapFromGlobal(place));
    if (entry.isValid()) {
        selectionModel()->setCurrentIndex(entry, QItemSelectionModel::ClearAndSelect);
        m_menuFollows = true;
        if (alive)
            RaiseClick(entry);
        // A receiver may have found the entry gone, or have turned to another view.
        if (!alive || !m_menuFollows || !isVisible() || !entry.isValid() || entry != SelectedIndex())
            return;
    }
    Q_EMIT ContextMenu(place);
}

QPoint TreeView::MenuPlace()
{
    const QModelIndex selected = SelectedIndex();
    if (!selected.isValid())
        return viewport()->mapToGlobal(QPoint(0, 0));
    scrollTo(selected);
    return viewport()->mapToGlobal((visualRect(selected) & viewport()->rect()).center());
}

// Keyboard ----------------------------------------------------------------------------------------------

bool TreeView::event(QEvent* event)
{
    // The receivers have a help of their own, which a window's help key must not take from them.
    if (event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->key() == Qt::Key_F1)
        event->accept();
    return TreeRowsView::event(event);
}

void TreeView::keyPressEvent(QKeyEvent* event)
{
    event->accept();
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
        Q_EMIT ContextMenu(MenuPlace());
        return;
    }
    const QPointer<TreeView> alive = this;
    bool swallow = false;
    Q_EMIT KeyDown(event->key(), event->modifiers(), swallow);
    if (!alive || swallow)
        return;

    ushort character =
        event->text().isEmpty() || event->key() == Qt::Key_Delete ? 0 : event->text().at(0).unicode();
    if (character != 0) {
        Q_EMIT KeyPress(character);
        if (!alive || character == 0)
            return;
    }
    const bool searching = IsSearching() && character >= u' ';
    if (!searching && (HandleMoveKey(event->key()) || HandleExpansionKey(event->key())))
        return;
    if (event->matches(QKeySequence::Copy)) {
        QAbstractItemView::keyPressEvent(event);
        return;
    }
    const Qt::KeyboardModifiers commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    if (character >= u' ' && !(event->modifiers() & commands)) {
        // Characters outside of the first plane come as a pair.
        const QString rest = event->text().mid(1);
        keyboardSearch(QChar(character) + rest);
        return;
    }
    // Enter belongs to the tree, whose receivers have acted on it; a default button must not follow it.
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        event->ignore();
}

bool TreeView::HandleMoveKey(int key)
{
    static const std::pair<int, CursorAction> moves[] = {
        {Qt::Key_Up, MoveUp},   {Qt::Key_Down, MoveDown},     {Qt::Key_Home, MoveHome},
        {Qt::Key_End, MoveEnd}, {Qt::Key_PageUp, MovePageUp}, {Qt::Key_PageDown, MovePageDown},
    };
    const auto* move = std::find_if(std::begin(moves), std::end(moves),
                                    [key](const auto& candidate) { return candidate.first == key; });
    if (move == std::end(moves))
        return false;
    GoToEntry(moveCursor(move->second, Qt::NoModifier));
    return true;
}

bool TreeView::HandleExpansionKey(int key)
{
    if (isRightToLeft() && (key == Qt::Key_Left || key == Qt::Key_Right))
        key = key == Qt::Key_Left ? Qt::Key_Right : Qt::Key_Left;
    const QModelIndex current = NearestVisible(currentIndex());
    const bool open = current.isValid() && HasChildren(current) && Rows()->IsExpanded(current);
    const bool closed = current.isValid() && HasChildren(current) && !open;
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Minus:
        if (open)
            Rows()->SetExpanded(current, false);
        else if (key == Qt::Key_Left)
            GoToEntry(moveCursor(MoveLeft, Qt::NoModifier));
        return true;
    case Qt::Key_Right:
    case Qt::Key_Plus:
    case Qt::Key_Asterisk:
        if (closed)
            Rows()->SetExpanded(current, true);
        else if (key == Qt::Key_Right)
            GoToEntry(moveCursor(MoveRight, Qt::NoModifier));
        return true;
    default:
        return false;
    }
}

bool TreeView::IsSearching() const
{
    return !m_search.isEmpty() && m_lastTyped.isValid() &&
           m_lastTyped.elapsed() < QApplication::keyboardInputInterval();
}

void TreeView::keyboardSearch(const QString& typed)
{
    if (!IsSearching())
        m_search.clear();
    // The same character again and again steps through the entries that begin with it.
    const bool stepping = m_search.isEmpty() || m_search == typed;
    if (m_search != typed)
        m_search += typed;
    m_lastTyped.start();
    const QModelIndex current = NearestVisible(currentIndex());
    if (!Rows() || (!stepping && current.data().toString().startsWith(m_search, Qt::CaseInsensitive)))
        return;
    GoToEntry(Rows()->FindVisibleByPrefix(current, m_search));
}

void TreeView::GoToEntry(const QModelIndex& index)
{
    if (!index.isValid() || index == SelectedIndex())
        return;
    ClickIndex(index);
}
