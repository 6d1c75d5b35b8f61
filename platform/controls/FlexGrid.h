#pragma once

#include <QRect>
#include <QTableWidget>

/// A grid of texts with a header row and one current cell, in the manner of a flex grid.
///
/// Row 0 is the header; data rows count from 1. Columns count from 0. Cells are not edited in place: what
/// edits them is laid over.
class FlexGrid : public QTableWidget
{
    Q_OBJECT

public:
    explicit FlexGrid(QWidget* parent = nullptr);

    /// Rows with the header; columns.
    void SetGridSize(int rows, int columns);
    [[nodiscard]] int GridRows() const;

    /// The current cell. Setting one tells LeaveCell of the one before and then RowColChange.
    [[nodiscard]] int Row() const;
    [[nodiscard]] int Col() const;
    void SetCell(int row, int column);

    [[nodiscard]] QString TextMatrix(int row, int column) const;
    void SetTextMatrix(int row, int column, const QString& text);
    void SetCellFont(int row, int column, bool bold, bool italic);

    /// Where a cell is, in the viewport's coordinates; empty for a header.
    [[nodiscard]] QRect CellRect(int row, int column) const;
    void SetRowHeights(int pixels);

Q_SIGNALS:
    /// The operator or the program leaves the current cell.
    void LeaveCell();
    void RowColChange();
    /// A double click on a data cell.
    void CellDblClick();
    /// A character typed while the grid has the focus.
    void CellKeyPress(int keyAscii);
    void GotFocus();
    void Scrolled();
};
