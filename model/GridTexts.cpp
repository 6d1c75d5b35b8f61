#include "model/GridTexts.h"

void GridTexts::MoveTo(int row, int column)
{
    m_row = row;
    m_column = column;
}

QString GridTexts::Text() const
{
    return At(m_row, m_column).text;
}

void GridTexts::SetText(const QString& text)
{
    if (Cell* cell = Current())
        cell->text = text;
}

void GridTexts::SetFont(bool bold, bool italic)
{
    if (Cell* cell = Current()) {
        cell->bold = bold;
        cell->italic = italic;
    }
}

void GridTexts::SetPassword(int row, const QString& value)
{
    m_passwordRow = row;
    m_passwordValue = value;
}

GridTexts::Cell GridTexts::At(int row, int column) const
{
    if (row < 0 || size_t(row) >= m_rows.size() || column < 0)
        return {};
    const std::vector<Cell>& cells = m_rows[size_t(row)];
    return size_t(column) < cells.size() ? cells[size_t(column)] : Cell();
}

GridTexts::Cell* GridTexts::Current()
{
    if (m_row < 0 || m_column < 0)
        return nullptr;
    if (size_t(m_row) >= m_rows.size())
        m_rows.resize(size_t(m_row) + 1);
    std::vector<Cell>& cells = m_rows[size_t(m_row)];
    if (size_t(m_column) >= cells.size())
        cells.resize(size_t(m_column) + 1);
    return &cells[size_t(m_column)];
}
