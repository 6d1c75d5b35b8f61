#pragma once

#include <QString>

/// The editors laid over the current cell: opening, placing, storing, closing. Work of GridEdit; all need an
/// attached grid.

/// What ValueKind a parameter has, as the database tells it.
namespace GridValueKind {
inline constexpr int LimitedText = 2;
inline constexpr int Number = 3;
inline constexpr int List = 4;
} // namespace GridValueKind

/// True while grid and editors are there.
[[nodiscard]] bool GridAttached();
[[nodiscard]] bool GridTextOpen();
[[nodiscard]] bool GridComboOpen();
[[nodiscard]] bool GridSpinnerOpen();

/// The bounds of a number; without bounds none is refused.
[[nodiscard]] double GridLow();
[[nodiscard]] double GridHigh();
/// How many characters may be typed; no text that is stored already is cut to it.
[[nodiscard]] int GridLengthLimit();

/// Opens the text box with the cell's text selected or, for a character above a blank, with that alone.
void GridOpenTextBox(int keyAscii);
void GridOpenCombo();
/// Puts open editors over the current cell.
void GridPlaceEditors();
/// Gives the editors the grid's font, and all rows the height of the combo box.
void GridFollowFont();
/// Closes the editors without storing; gives the grid the focus they had.
void GridCloseEditors();

/// The box of a number out of range; empty when the text box can be stored.
[[nodiscard]] QString GridOutOfRangeText();
/// Stores the text box. False: out of range, and the operator has been told.
bool GridStoreText();
void GridStoreCombo();

/// Text that the combo box shows.
[[nodiscard]] QString GridComboText();
/// Value that the combo box stands for: the parameter's default or the text that is shown.
[[nodiscard]] QString GridComboValue();
