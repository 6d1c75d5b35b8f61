#pragma once

#include <QRect>
#include <QTableWidget>

/// A grid of texts with a header row and one current cell, in the manner of a flex grid.
///
/// Row 0 is the header; data rows count from 1. Columns count from 0. Cells are not edited in place: what
/// edits them is laid over. Tab leaves the grid.
class FlexGrid : public QTableWidget
{
    Q_OBJECT

public:
    explicit FlexGrid(QWidget* parent = nullptr);

    /// Rows with the header, at least 1; columns. What stays keeps its texts.
    void SetGridSize(int rows, int columns);
    [[nodiscard]] int GridRows() const;

    /// The current cell, row 0 when there is none. Setting one tells LeaveCell, while this still gives the
    /// one before, and then RowColChange. A cell that does not exist is not set.
    [[nodiscard]] int Row() const { return m_row; }
    [[nodiscard]] int Col() const { return m_column; }
    void SetCell(int row, int column);
    /// The cell that the mouse button went down on; row 0 when it was none.
    [[nodiscard]] int MouseRow() const { return m_mouseRow; }
    [[nodiscard]] int MouseCol() const { return m_mouseColumn; }

    /// The text of a cell or header; empty, and without effect, outside the grid.
    [[nodiscard]] QString TextMatrix(int row, int column) const;
    void SetTextMatrix(int row, int column, const QString& text);
    void SetCellFont(int row, int column, bool bold, bool italic);
    /// A sign behind the text that is never cut off, and what it means, in the tool tip and for those who
    /// cannot see. It is no part of the text; empty: none.
    void SetCellMark(int row, int column, const QString& mark, const QString& meaning);
    [[nodiscard]] QString CellMark(int row, int column) const;

    /// A grid whose cells may be looked at only; for those who lay editors over it.
    void SetReadOnly(bool readOnly) { m_readOnly = readOnly; }
    [[nodiscard]] bool IsReadOnly() const { return m_readOnly; }

    /// Where a cell is, in the viewport's coordinates; empty for a header.
    [[nodiscard]] QRect CellRect(int row, int column) const;
    /// Height of all rows, the header with them.
    void SetRowHeights(int pixels);
    /// Height of a grid that shows the header and so many data rows without scrolling.
    [[nodiscard]] int HeightForRows(int dataRows) const;

Q_SIGNALS:
    /// The operator or the program leaves the current cell.
    void LeaveCell();
    void RowColChange();
    /// A double click on a data cell.
    void CellDblClick();
    /// A character typed while the grid has the focus: its code, 8 for Backspace, 13 for Enter. F2 gives a
    /// blank.
    void CellKeyPress(int keyAscii);
    void GotFocus();
    /// Cells stand elsewhere or have another size: the grid was scrolled or resized, or its rows or columns.
    void Scrolled();

protected:
    void dataChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void updateGeometries() override;

private:
    [[nodiscard]] QTableWidgetItem* ItemAt(int row, int column) const;
    QTableWidgetItem* MakeItemAt(int row, int column);
    void NoteMouse(const QPoint& place);

    int m_row = 0;
    int m_column = 0;
    int m_mouseRow = 0;
    int m_mouseColumn = 0;
    bool m_readOnly = false;
};

/// The code of the character that a key press stands for: 8 for Backspace, 13 for Enter, 0 for none, as with
/// Escape, Delete, Tab and what is held together with Ctrl or Alt.
[[nodiscard]] int KeyCharacter(const QKeyEvent& event);
