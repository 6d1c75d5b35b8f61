#include "dialogs/GridEditors.h"

#include "dialogs/GridDigits.h"
#include "dialogs/GridEdit.h"
#include "dialogs/GridKeys.h"
#include "model/TextHelpers.h"
#include "platform/MsgBox.h"
#include "platform/Words.h"
#include "platform/controls/FlexGrid.h"
#include "platform/controls/UpDown.h"

#include <QComboBox>
#include <QLineEdit>
#include <QStyle>

#include <limits>

namespace {

constexpr int FreeLength = 15;
/// A limit of none or less is no limit.
constexpr int AnyLength = 32767;
/// Part of the cell that the spinner takes.
constexpr double SpinnerShare = 0.07;
constexpr int SpinnerMinimum = 16;

QString CellText()
{
    const FlexGrid& grid = *GridEdit().GridControl;
    return grid.TextMatrix(grid.Row(), grid.Col());
}

void SetCellText(const QString& text)
{
    FlexGrid& grid = *GridEdit().GridControl;
    if (grid.Row() > 0)
        grid.SetTextMatrix(grid.Row(), grid.Col(), text);
}

bool IsPasswordRow()
{
    return GridEdit().GridPasswordRow > 0 && GridEdit().GridControl->Row() == GridEdit().GridPasswordRow;
}

bool IsNumber()
{
    return GridEdit().GridParameter.kind == GridValueKind::Number;
}

double Bound(std::size_t index, double otherwise)
{
    const std::vector<QString>& values = GridEdit().GridParameter.values;
    return index < values.size() ? Val(values[index]) : otherwise;
}

/// Takes a text without the limit cutting it.
void ShowText(QLineEdit& textBox, const QString& text)
{
    textBox.setValidator(nullptr);
    textBox.setMaxLength(AnyLength);
    textBox.setText(text);
    textBox.setMaxLength(qMax(GridLengthLimit(), static_cast<int>(text.size())));
    if (IsNumber())
        textBox.setValidator(new GridDigits(text, &textBox));
}

void ShowEditor(QWidget& editor)
{
    GridEdit().GridControl->scrollTo(GridEdit().GridControl->currentIndex());
    GridPlaceEditors();
    editor.show();
    editor.raise();
    editor.setFocus(Qt::OtherFocusReason);
}

} // namespace

bool GridAttached()
{
    const GridEditState& state = GridEdit();
    return state.GridControl && state.GridTextBox && state.GridComboBox && state.GridSpinner;
}

bool GridTextOpen()
{
    return GridAttached() && !GridEdit().GridTextBox->isHidden();
}

bool GridComboOpen()
{
    return GridAttached() && !GridEdit().GridComboBox->isHidden();
}

bool GridSpinnerOpen()
{
    return GridAttached() && !GridEdit().GridSpinner->isHidden();
}

double GridLow()
{
    return Bound(0, std::numeric_limits<double>::lowest());
}

double GridHigh()
{
    return Bound(1, std::numeric_limits<double>::max());
}

int GridLengthLimit()
{
    if (GridEdit().GridParameter.kind != GridValueKind::LimitedText)
        return FreeLength;
    const int limit = GridEdit().GridParameter.textLength;
    return limit > 0 ? qMin(limit, AnyLength) : AnyLength;
}

// Opening and closing -----------------------------------------------------------------------------------

void GridOpenTextBox(int keyAscii)
{
    QLineEdit& textBox = *GridEdit().GridTextBox;
    textBox.setFont(GridEdit().GridControl->font());
    textBox.setEchoMode(IsPasswordRow() ? QLineEdit::Password : QLineEdit::Normal);
    if (keyAscii > GridKeys::Blank || keyAscii < 0) {
        const auto character = static_cast<char32_t>(keyAscii);
        ShowText(textBox, QString::fromUcs4(&character, 1));
        textBox.end(false);
    } else {
        ShowText(textBox, IsPasswordRow() ? ParameterGrid::MaskedPassword() : CellText());
        textBox.selectAll();
    }
    GridEdit().GridSpinner->setVisible(IsNumber());
    GridEdit().GridSpinner->raise();
    ShowEditor(textBox);
    GridEdit().GridComboBox->hide();
}

void GridOpenCombo()
{
    const GridEditState& state = GridEdit();
    QComboBox& comboBox = *state.GridComboBox;
    comboBox.setFont(state.GridControl->font());
    comboBox.clear();
    comboBox.setPlaceholderText(QString());
    const QString defaultText = Trim(state.GridParameter.text);
    // The first of the list, as GridComboValue takes it.
    comboBox.addItem(
        Words::tr("Default (%1)").arg(defaultText.isEmpty() ? Words::tr("No value") : defaultText));
    const std::size_t count = qMin(state.GridParameter.values.size(),
                                   static_cast<std::size_t>(qMax(0, state.GridParameter.valueCount)));
    for (std::size_t index = 0; index < count; ++index)
        comboBox.addItem(state.GridParameter.values[index]);

    // A stored text that is not in the list stands where the choice stands until one is made; it is no
    // choice.
    const QString text = CellText();
    comboBox.setCurrentIndex(TrimBlanks(text).isEmpty() ? -1
                                                        : comboBox.findText(text, Qt::MatchCaseSensitive));
    if (comboBox.currentIndex() < 0)
        comboBox.setPlaceholderText(text);
    QPalette palette = state.GridControl->palette();
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive})
        palette.setColor(group, QPalette::PlaceholderText, palette.color(group, QPalette::ButtonText));
    comboBox.setPalette(palette);
    comboBox.setAccessibleDescription(comboBox.placeholderText());

    // Without it some styles do not show that a combo box has the focus.
    comboBox.window()->setAttribute(Qt::WA_KeyboardFocusChange);
    ShowEditor(comboBox);
    state.GridTextBox->hide();
    state.GridSpinner->hide();
}

void GridPlaceEditors()
{
    if (!GridAttached())
        return;
    const FlexGrid& grid = *GridEdit().GridControl;
    const QRect cell = grid.CellRect(grid.Row(), grid.Col());
    if (GridSpinnerOpen()) {
        const int width = qMax(static_cast<int>(SpinnerShare * cell.width()), SpinnerMinimum);
        const auto place = [&](const QRect& leftToRight) {
            return QStyle::visualRect(grid.layoutDirection(), cell, leftToRight);
        };
        const QRect spinner(cell.right() + 1 - width, cell.top(), width, cell.height());
        GridEdit().GridSpinner->setGeometry(place(spinner));
        GridEdit().GridTextBox->setGeometry(place(cell.adjusted(0, 0, -width, 0)));
    } else {
        GridEdit().GridTextBox->setGeometry(cell);
    }
    QComboBox& comboBox = *GridEdit().GridComboBox;
    comboBox.setGeometry(cell.left(), cell.top(), cell.width(), comboBox.sizeHint().height());
}

void GridFollowFont()
{
    if (!GridAttached())
        return;
    FlexGrid& grid = *GridEdit().GridControl;
    GridEdit().GridTextBox->setFont(grid.font());
    GridEdit().GridComboBox->setFont(grid.font());
    grid.SetRowHeights(GridEdit().GridComboBox->sizeHint().height());
    GridPlaceEditors();
}

void GridCloseEditors()
{
    if (!GridAttached())
        return;
    const GridEditState& state = GridEdit();
    const QWidget* focus = state.GridControl->window()->focusWidget();
    if (focus == state.GridTextBox || focus == state.GridComboBox)
        state.GridControl->setFocus(Qt::OtherFocusReason);
    state.GridTextBox->hide();
    state.GridSpinner->hide();
    state.GridComboBox->hide();
}

// Storing -----------------------------------------------------------------------------------------------

QString GridOutOfRangeText()
{
    const QString text = GridEdit().GridTextBox->text();
    if (GridEdit().GridTextBox->echoMode() == QLineEdit::Password || !IsNumber() ||
        TrimBlanks(text).isEmpty())
        return {};
    const double value = RoundHalfEven(Val(text));
    if (value >= GridLow() && value <= GridHigh())
        return {};
    const std::vector<QString>& bounds = GridEdit().GridParameter.values;
    return Words::tr("Value %1 out of range [%2,%3]. Give a new value.")
        .arg(QString::number(value, 'f', 0), bounds[0], bounds[1]);
}

bool GridStoreText()
{
    const QString text = GridEdit().GridTextBox->text();
    if (GridEdit().GridTextBox->echoMode() == QLineEdit::Password) {
        if (text != ParameterGrid::MaskedPassword())
            GridEdit().GridPasswordValue = text;
        SetCellText(ParameterGrid::MaskedPassword());
        return true;
    }
    if (!IsNumber() || TrimBlanks(text).isEmpty()) {
        SetCellText(Trim(text));
        return true;
    }
    if (const QString refusal = GridOutOfRangeText(); !refusal.isEmpty()) {
        MsgBox(refusal);
        return false;
    }
    SetCellText(QString::number(RoundHalfEven(Val(text)), 'f', 0));
    return true;
}

QString GridComboText()
{
    const QComboBox& comboBox = *GridEdit().GridComboBox;
    return comboBox.currentIndex() < 0 ? comboBox.placeholderText() : comboBox.currentText();
}

QString GridComboValue()
{
    const QString text = GridComboText();
    // A stored text may tell of the default too, but in no other language.
    const bool isDefault = GridEdit().GridComboBox->currentIndex() == 0 || TextContains(text, u"Default");
    return isDefault ? GridEdit().GridParameter.text : text;
}

void GridStoreCombo()
{
    SetCellText(GridComboValue());
}
