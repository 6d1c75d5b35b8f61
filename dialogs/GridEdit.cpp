#include "dialogs/GridEdit.h"

#include "database/Gateway.h"
#include "dialogs/GridCells.h"
#include "dialogs/GridEditors.h"
#include "dialogs/GridEvents.h"
#include "dialogs/GridKeys.h"
#include "model/WpData.h"
#include "platform/controls/FlexGrid.h"
#include "platform/controls/UpDown.h"

#include <QComboBox>
#include <QLineEdit>
#include <QScopedValueRollback>

namespace {

constexpr int KeywordColumn = 1;

QPointer<GridEvents>& Events()
{
    static QPointer<GridEvents> events;
    return events;
}

/// Keyword of a row, and what the database allows for it.
void ReadParameter(int row)
{
    const WpData* table = GridEdit().GridWpData;
    const bool exists = table && row >= 1 && row <= WpData::RowCount;
    GridEdit().GridParamName = exists ? table->GetWpParam(row, KeywordColumn) : QString();
    GridFetchParameterData();
}

} // namespace

GridEditState& GridEdit()
{
    static GridEditState state;
    return state;
}

// Service -----------------------------------------------------------------------------------------------

void GridAttach(FlexGrid& grid, QLineEdit& textBox, QComboBox& comboBox, UpDown& spinner)
{
    delete Events();
    GridEdit() = GridEditState();
    for (QWidget* overlay : {static_cast<QWidget*>(&textBox), static_cast<QWidget*>(&comboBox),
                             static_cast<QWidget*>(&spinner)}) {
        overlay->setParent(grid.viewport());
        overlay->hide();
    }
    // A press on its buttons would otherwise give the grid the focus, and so end the edit.
    spinner.setFocusProxy(&textBox);
    GridEdit().GridControl = &grid;
    GridEdit().GridTextBox = &textBox;
    GridEdit().GridComboBox = &comboBox;
    GridEdit().GridSpinner = &spinner;
    Events() = new GridEvents(grid, textBox, comboBox, spinner);
}

void GridDetach(const FlexGrid& grid)
{
    if (GridEdit().GridControl != &grid)
        return;
    delete Events();
    GridEdit() = GridEditState();
}

ParameterGrid& GridParameters()
{
    static GridCells cells;
    return cells;
}

// Procedures --------------------------------------------------------------------------------------------

void GridFetchParameterData()
{
    DatabaseClass::GridParameter parameter;
    if (Gateway().GetGridParameterDataDb(GridEdit().GridWpName, GridEdit().GridParamName, parameter))
        GridEdit().GridParameter = parameter;
}

void GridPlaceCell(int row, int column)
{
    if (!GridAttached())
        return;
    const QPointer<FlexGrid> grid = GridEdit().GridControl;
    grid->SetCell(row, column);
    if (!grid || grid->Row() != row || grid->Col() != column)
        return;
    GridEdit().GridCellPlaced = true;
    ReadParameter(row);
    int blank = GridKeys::Blank;
    GridOpenEditor(blank);
}

void GridOpenEditor(int& keyAscii)
{
    if (!GridAttached())
        return;
    const FlexGrid& grid = *GridEdit().GridControl;
    const bool isValue = grid.Col() == GridEdit().GridValueCol && grid.Row() >= 1;
    if (grid.IsReadOnly() || !isValue || grid.Row() > GridEdit().GridLastRow)
        return;
    if (GridEdit().GridParameter.kind == GridValueKind::List) {
        GridOpenCombo();
        return;
    }
    GridOpenTextBox(GridKeys::Blank);
    GridTextKeyPress(keyAscii);
    if (keyAscii > GridKeys::Blank)
        GridOpenTextBox(keyAscii);
}

void GridSetupRowHeight()
{
    if (!GridAttached())
        return;
    QComboBox& comboBox = *GridEdit().GridComboBox;
    comboBox.clear();
    comboBox.addItems({QStringLiteral(" 1"), QStringLiteral(" 2")});
    GridFollowFont();
}

bool GridCommitEdit()
{
    if (!GridAttached() || GridEdit().GridStoring)
        return true;
    const QScopedValueRollback<bool> storing(GridEdit().GridStoring, true);
    bool stored = true;
    if (GridTextOpen())
        stored = GridStoreText();
    else if (GridComboOpen())
        GridStoreCombo();
    GridCloseEditors();
    return stored;
}

void GridCellNotified()
{
    if (GridEdit().GridCellPlaced)
        GridEdit().GridCellPlaced = false;
    else
        GridCommitEdit();
}

void GridDblClick()
{
    if (!GridAttached() || GridEdit().GridControl->MouseRow() == 0 || GridEdit().GridControl->MouseCol() == 0)
        return;
    GridKeyPress(GridKeys::Blank);
}

void GridKeyPress(int keyAscii)
{
    if (!GridAttached())
        return;
    ReadParameter(GridEdit().GridControl->Row());
    GridOpenEditor(keyAscii);
}
