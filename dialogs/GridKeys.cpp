#include "dialogs/GridKeys.h"

#include "dialogs/GridEdit.h"
#include "dialogs/GridEditors.h"
#include "model/TextHelpers.h"
#include "platform/MachineSeams.h"
#include "platform/controls/FlexGrid.h"

#include <QLineEdit>
#include <QScopedValueRollback>

namespace {

/// The most characters behind the caret that count.
constexpr int RightPartLength = 100;

void Beep()
{
    if (Machine().Beep)
        Machine().Beep();
}

/// Gives up the edit.
void LoseEdit()
{
    if (!GridAttached())
        return;
    const QScopedValueRollback<bool> storing(GridEdit().GridStoring, true);
    GridCloseEditors();
}

/// To the grid, which stores the edit; also while the window is not the active one.
void FocusGrid()
{
    if (!GridAttached())
        return;
    GridEdit().GridControl->setFocus(Qt::OtherFocusReason);
    GridCommitEdit();
}

/// Escape and Enter, which do the same in both editors.
void EndEdit(int keyCode)
{
    if (keyCode == GridKeys::Escape)
        LoseEdit();
    else if (keyCode == GridKeys::Enter)
        FocusGrid();
}

/// Stores the edit and opens the one a row further, or the same at the end.
void MoveRow(int by)
{
    FocusGrid();
    Machine().PumpEvents();
    if (!GridAttached())
        return;
    const QPointer<FlexGrid> grid = GridEdit().GridControl;
    grid->SetCell(grid->Row() + by, grid->Col());
    if (grid)
        GridKeyPress(GridKeys::Blank);
}

/// The number that the text box would hold after a digit or Backspace without a selection. False: there is
/// nothing to check.
bool NumberAfterKey(int keyAscii, double& number)
{
    const QLineEdit& textBox = *GridEdit().GridTextBox;
    const bool backspace = keyAscii == GridKeys::Backspace;
    const int caret = textBox.cursorPosition();
    const QString left = textBox.text().left(backspace ? qMax(0, caret - 1) : caret);
    const QString right = textBox.text().mid(caret, RightPartLength);
    if (backspace && left.isEmpty() && right.isEmpty())
        return false;
    number = Val(backspace ? left + right : left + QChar(keyAscii) + right);
    return true;
}

void Spin(int by)
{
    if (!GridTextOpen())
        return;
    QLineEdit& textBox = *GridEdit().GridTextBox;
    const double value = RoundHalfEven(Val(textBox.text()) + by);
    if (by > 0 ? value > GridHigh() : value < GridLow()) {
        Beep();
        return;
    }
    textBox.setText(QString::number(value, 'f', 0));
    textBox.update();
}

} // namespace

void GridTextKeyDown(int& keyCode, int shift)
{
    const bool spins = GridSpinnerOpen() && shift == 0;
    switch (keyCode) {
    case GridKeys::Down:
        keyCode = 0;
        spins ? GridSpinDown() : MoveRow(1);
        break;
    case GridKeys::Up:
        keyCode = 0;
        spins ? GridSpinUp() : MoveRow(-1);
        break;
    default:
        EndEdit(keyCode);
    }
}

void GridComboKeyDown(int& keyCode, int shift)
{
    switch (keyCode) {
    case GridKeys::Down:
    case GridKeys::Up:
        if (shift == 0)
            break;
        MoveRow(keyCode == GridKeys::Down ? 1 : -1);
        keyCode = 0;
        break;
    default:
        EndEdit(keyCode);
    }
}

void GridTextKeyPress(int& keyAscii)
{
    if (keyAscii == GridKeys::Enter)
        keyAscii = 0;
    if (!GridTextOpen() || GridEdit().GridParameter.kind != GridValueKind::Number)
        return;
    const bool digit = keyAscii >= '0' && keyAscii <= '9';
    if (keyAscii > GridKeys::Enter && !digit)
        keyAscii = 0;
    if (!digit && keyAscii != GridKeys::Backspace)
        return;

    double number = digit ? keyAscii - '0' : 0;
    const bool checked = GridEdit().GridTextBox->hasSelectedText() ? digit : NumberAfterKey(keyAscii, number);
    if (checked && number > GridHigh()) {
        Beep();
        keyAscii = 0;
    }
}

void GridComboKeyPress(int& keyAscii)
{
    if (keyAscii == GridKeys::Enter)
        keyAscii = 0;
}

void GridSpinUp()
{
    Spin(1);
}

void GridSpinDown()
{
    Spin(-1);
}
