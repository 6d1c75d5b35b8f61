#pragma once

#include "database/DatabaseClass.h"
#include "model/ParameterGrid.h"

#include <QPointer>

#include <memory>

class FlexGrid;
class QComboBox;
class QLineEdit;
class UpDown;
class WpData;

/// Turns a plain two-column grid of parameters into an editable table, with one text box, one combo box and
/// one spinner laid over the current value cell. Serves one grid at a time: the dialogs are modal.
///
/// A dialog hands its controls over with GridAttach, fills the grid through GridParameters() and sets
/// GridLastRow, GridWpName and GridWpData; the events of the controls are forwarded from then on, until it
/// detaches. What a cell offers comes from the database, by waypoint and keyword. Thread: the control's.

/// The module-level state of grid editing; one instance.
struct GridEditState
{
    QPointer<FlexGrid> GridControl;
    QPointer<QLineEdit> GridTextBox;
    QPointer<QComboBox> GridComboBox;
    QPointer<UpDown> GridSpinner;
    /// True value of the password parameter, never shown in the grid, and its row; 0: there is none.
    QString GridPasswordValue;
    int GridPasswordRow = 0;
    /// Last row that holds a parameter.
    int GridLastRow = 0;
    /// The only column that can be edited.
    int GridValueCol = ParameterGrid::ValueColumn;
    /// Waypoint and keyword for the look-up in the database.
    QString GridWpName;
    QString GridParamName;
    /// The parameter table shown; not owned.
    const WpData* GridWpData = nullptr;
    /// The next cell notification comes from the program, not from the operator.
    bool GridCellPlaced = false;
    /// What the database tells of the current parameter. Its `kind` chooses the editor: 2 text of limited
    /// length, 3 whole number between two bounds, 4 fixed list, any other free text.
    DatabaseClass::GridParameter GridParameter;
    /// An edit is being stored or given up; what the grid tells meanwhile is no wish of the operator's.
    bool GridStoring = false;
};

/// The one instance.
GridEditState& GridEdit();

/// Puts the four controls in charge and connects their events. The overlays become children of the grid's
/// viewport and are hidden. They take focus from the grid and give it back; when it goes to another control
/// of the window, the edit is stored, but for a value out of range, with which a button is left to its
/// handler.
void GridAttach(FlexGrid& grid, QLineEdit& textBox, QComboBox& comboBox, UpDown& spinner);
/// Ends the service for that grid; without effect when another grid has been attached since.
void GridDetach(const FlexGrid& grid);
/// The attached grid, as the rules of the model see it. It has a cursor of its own, so that the operator's
/// cell stays where it is, and grows with what is written.
ParameterGrid& GridParameters();

/// Asks the database for what the current keyword allows. A failure keeps what was there.
void GridFetchParameterData();
/// Goes to a cell and opens its editor; without effect when there is no such cell.
void GridPlaceCell(int row, int column);
/// Opens the editor of the current cell, if it is a value of a parameter. `keyAscii`: the character that
/// opened it, a blank for none; 0 when it is not allowed there, and otherwise the first of a new value. A
/// grid that is read-only opens none.
void GridOpenEditor(int& keyAscii);
/// Gives all rows the height of the combo box, so that an overlaid one fits.
void GridSetupRowHeight();
/// Stores an edit that is open and closes its editor. False: the value is out of range, the operator has been
/// told, and the cell keeps its old value; a form that was to close then stays.
bool GridCommitEdit();
/// The same, unless the program has placed the cell.
void GridCellNotified();

// Events, for the tests and the forms --------------------------------------------------------------------

void GridDblClick();
void GridKeyPress(int keyAscii);
/// Key codes 27 Escape, 13 Enter, 38 Up, 40 Down; `shift` is 0 without a modifier. A key that is used up
/// becomes 0.
void GridTextKeyDown(int& keyCode, int shift);
void GridTextKeyPress(int& keyAscii);
void GridComboKeyDown(int& keyCode, int shift);
void GridComboKeyPress(int& keyAscii);
void GridSpinUp();
void GridSpinDown();
