#include "dialogs/GridCells.h"

#include "dialogs/GridEdit.h"
#include "platform/Words.h"
#include "platform/controls/FlexGrid.h"

void GridCells::MoveTo(int row, int column)
{
    m_row = row;
    m_column = column;
}

QString GridCells::Text() const
{
    const FlexGrid* grid = GridEdit().GridControl;
    return grid ? grid->TextMatrix(m_row, m_column) : QString();
}

void GridCells::SetText(const QString& text)
{
    FlexGrid* grid = GridEdit().GridControl;
    if (!grid)
        return;
    if (m_row >= grid->GridRows() || m_column >= grid->columnCount())
        grid->SetGridSize(qMax(m_row + 1, grid->GridRows()), qMax(m_column + 1, grid->columnCount()));
    grid->SetTextMatrix(m_row, m_column, text);
}

void GridCells::SetFont(bool bold, bool italic)
{
    FlexGrid* grid = GridEdit().GridControl;
    if (!grid)
        return;
    grid->SetCellFont(m_row, m_column, bold, italic);
    // Weight and slant are hard to tell apart in some fonts, and are not read out.
    if (bold && italic) {
        grid->SetCellMark(m_row, m_column, QStringLiteral("**"),
                          Words::tr("One of several parameters that exclude each other"));
    } else if (bold) {
        grid->SetCellMark(m_row, m_column, QStringLiteral("*"), Words::tr("Mandatory parameter"));
    } else {
        grid->SetCellMark(m_row, m_column, QString(), QString());
    }
}

void GridCells::SetPassword(int row, const QString& value)
{
    GridEdit().GridPasswordRow = row;
    GridEdit().GridPasswordValue = value;
}

int GridCells::PasswordRow() const
{
    return GridEdit().GridPasswordRow;
}

QString GridCells::PasswordValue() const
{
    return GridEdit().GridPasswordValue;
}
