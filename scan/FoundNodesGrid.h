#pragma once

#include "platform/controls/FlexGrid.h"

/// The nodes that a scan has found, a row each: address, type and identification.
///
/// Row 0 is the header, rows 1 to FoundCount are found nodes, the rows behind them are blank. At most one row
/// is selected, always whole; Row gives it, 0 for none. Selecting by program does not scroll.
class FoundNodesGrid : public FlexGrid
{
    Q_OBJECT

public:
    enum Column : qint8
    {
        AddressColumn,
        TypeColumn,
        IdentificationColumn,
        ColumnCount,
    };
    /// Rows of an empty grid, with the header.
    static constexpr qint16 EmptyGridRows = 20;

    explicit FoundNodesGrid(QWidget* parent = nullptr);

    /// Empties the grid and gives its columns their widths; nothing is selected.
    void InitFoundNodesGrid();
    [[nodiscard]] qint16 FoundCount() const { return m_foundCount; }

    /// A node has answered: its row loses the mark, or it gets a row, at its place in the ascending
    /// addresses.
    void StoreFoundNode(qint16 address, const QString& type, const QString& identification);
    /// True: `row` is that of the address. False: `row` is the last one with a greater address, 0 for none.
    [[nodiscard]] bool FindNodeRow(qint16 address, qint16& row) const;
    /// The sign of a node that has stopped answering, on all its cells: italics, and for those who do not see
    /// them a question mark behind the address and a tool tip. Selects the row.
    void MarkNodeRow(qint16 row, bool mark);
    [[nodiscard]] bool IsMarked(qint16 row) const;
    /// Selects a row; 0: none.
    void SelectGridRow(qint16 row);

Q_SIGNALS:
    /// The operator has selected a found node with the mouse or a key. A click beside the found nodes selects
    /// the nearest one without telling.
    void NodeClick();
    /// The operator asks for a menu of the selected node, to stand at this place of the screen. The right
    /// button has clicked on the row below it first.
    void ContextMenu(const QPoint& place);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void AddNodeRow(qint16 address, const QString& type, const QString& identification);
    [[nodiscard]] int HeaderWidth(int column) const;
    /// The width of a column that shows a text whole, in pixels.
    [[nodiscard]] int TextWidth(const QString& text) const;
    /// By address, texts and marks together.
    void SortFoundRows();
    /// Row 0: the header.
    void Click(int row);
    void ClickAt(int y);
    /// Where a menu of the selected row stands that no pointer asked for.
    [[nodiscard]] QPoint MenuPlace();

    qint16 m_foundCount = 0;
    qint16 m_gridRows = EmptyGridRows;
};
