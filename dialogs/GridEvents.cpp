#include "dialogs/GridEvents.h"

#include "dialogs/GridEdit.h"
#include "dialogs/GridEditors.h"
#include "dialogs/GridKeys.h"
#include "platform/MachineSeams.h"
#include "platform/MsgBox.h"
#include "platform/controls/FlexGrid.h"
#include "platform/controls/UpDown.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QTimer>

namespace {

/// 0 for a key that the editors leave to the control.
int KeyCode(const QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_Escape:
        return GridKeys::Escape;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return GridKeys::Enter;
    case Qt::Key_Up:
        return GridKeys::Up;
    case Qt::Key_Down:
        return GridKeys::Down;
    default:
        return 0;
    }
}

int ShiftState(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers held = event.modifiers();
    return (held.testFlag(Qt::ShiftModifier) ? GridKeys::Shift : 0) +
           (held.testFlag(Qt::ControlModifier) ? GridKeys::Control : 0) +
           (held.testFlag(Qt::AltModifier) ? GridKeys::Alt : 0);
}

} // namespace

GridEvents::GridEvents(FlexGrid& grid, QLineEdit& textBox, QComboBox& comboBox, UpDown& spinner)
    : QObject(&grid)
{
    connect(&grid, &FlexGrid::LeaveCell, this, [] { GridCommitEdit(); });
    connect(&grid, &FlexGrid::GotFocus, this, [] { GridCommitEdit(); });
    connect(&grid, &FlexGrid::RowColChange, this, &GridCellNotified);
    connect(&grid, &FlexGrid::CellDblClick, this, &GridDblClick);
    connect(&grid, &FlexGrid::CellKeyPress, this, &GridKeyPress);
    connect(&grid, &FlexGrid::Scrolled, this, &GridPlaceEditors);
    connect(&spinner, &UpDown::UpClick, this, &GridSpinUp);
    connect(&spinner, &UpDown::DownClick, this, &GridSpinDown);
    connect(&textBox, &QLineEdit::textEdited, this, &GridEvents::ShrinkLimit);
    connect(&textBox, &QLineEdit::inputRejected, this, [] {
        if (Machine().Beep)
            Machine().Beep();
    });
    grid.installEventFilter(this);
    textBox.installEventFilter(this);
    comboBox.installEventFilter(this);
}

bool GridEvents::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == GridEdit().GridControl) {
        if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
            GridFollowFont();
        return false;
    }
    const bool isText = watched == GridEdit().GridTextBox;
    switch (event->type()) {
    case QEvent::KeyPress: {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        return isText ? TextKey(key) : ComboKey(key);
    }
    case QEvent::FocusOut:
        FocusLost(static_cast<const QFocusEvent&>(*event));
        return false;
    case QEvent::Wheel:
        // The grid is to be scrolled, not the choice changed unawares.
        event->ignore();
        return !isText;
    default:
        return false;
    }
}

/// True: the key is used up.
bool GridEvents::TextKey(const QKeyEvent& event)
{
    if (int code = KeyCode(event); code != 0) {
        GridTextKeyDown(code, ShiftState(event));
        return true;
    }
    int character = KeyCharacter(event);
    if (character == 0)
        return false;
    GridTextKeyPress(character);
    return character == 0;
}

bool GridEvents::ComboKey(const QKeyEvent& event)
{
    int code = KeyCode(event);
    // With Alt the arrows open and close the list.
    if (event.modifiers().testFlag(Qt::AltModifier) && (code == GridKeys::Up || code == GridKeys::Down))
        return false;
    if (code != 0) {
        const bool used = code == GridKeys::Escape || code == GridKeys::Enter;
        GridComboKeyDown(code, ShiftState(event));
        return used || code == 0;
    }
    int character = KeyCharacter(event);
    GridComboKeyPress(character);
    return false;
}

void GridEvents::FocusLost(const QFocusEvent& event)
{
    const QWidget* focus = QApplication::focusWidget();
    FlexGrid* grid = GridEdit().GridControl;
    const bool elsewhere = event.reason() == Qt::ActiveWindowFocusReason ||
                           event.reason() == Qt::PopupFocusReason || event.reason() == Qt::MenuBarFocusReason;
    if (GridEdit().GridStoring || elsewhere || !GridAttached() || !focus || focus == grid ||
        focus->window() != grid->window() || grid->isAncestorOf(focus))
        return;
    const QString refusal = GridTextOpen() ? GridOutOfRangeText() : QString();
    if (refusal.isEmpty()) {
        GridCommitEdit();
        return;
    }
    if (qobject_cast<const QAbstractButton*>(focus))
        return;
    const QScopedValueRollback<bool> storing(GridEdit().GridStoring, true);
    GridCloseEditors();
    // A box in the midst of a change of focus would take the click that caused it.
    QTimer::singleShot(0, this, [refusal] { MsgBox(refusal); });
}

/// A stored text longer than the limit may be shortened, not grow again.
void GridEvents::ShrinkLimit(const QString& text)
{
    const int limit = qMax(GridLengthLimit(), static_cast<int>(text.size()));
    if (limit < GridEdit().GridTextBox->maxLength())
        GridEdit().GridTextBox->setMaxLength(limit);
}
