#include "model/WpData.h"

#include "model/TextHelpers.h"
#include "platform/IndexError.h"

namespace {

constexpr int KeywordColumn = 1;
constexpr int ValueColumn = 2;

void CheckRow(int row)
{
    CheckIndex("parameter row", row, 1, WpData::RowCount);
}
void CheckColumn(int column)
{
    CheckIndex("parameter column", column, 1, WpData::ColumnCount);
}

} // namespace

QString WpData::WpParams() const
{
    return GetWpParam(m_row, m_col);
}

void WpData::SetWpParams(const QString& text)
{
    SetWpParam(m_row, m_col, text);
}

void WpData::SetWpParam(int row, int column, const QString& value)
{
    CheckRow(row);
    CheckColumn(column);
    m_cells[static_cast<size_t>(row - 1)][static_cast<size_t>(column - 1)] = value;
}

const QString& WpData::GetWpParam(int row, int column) const
{
    CheckRow(row);
    CheckColumn(column);
    return m_cells[static_cast<size_t>(row - 1)][static_cast<size_t>(column - 1)];
}

int WpData::FindRow(const QString& name, int searchColumn) const
{
    CheckColumn(searchColumn);
    for (int row = 1; row <= m_paramCount; ++row) {
        if (GetWpParam(row, searchColumn) == name)
            return row;
    }
    return 0;
}

bool WpData::SetWpParamByName(const QString& name, const QString& value)
{
    return SetWpParamByNameEx(name, value, KeywordColumn);
}

bool WpData::GetWpParamByNameEx(const QString& name, QString& value, int searchColumn) const
{
    const int row = FindRow(name, searchColumn);
    if (row == 0)
        return false;
    value = GetWpParam(row, ValueColumn);
    return true;
}

bool WpData::SetWpParamByNameEx(const QString& name, const QString& value, int searchColumn)
{
    const int row = FindRow(name, searchColumn);
    if (row == 0)
        return false;
    SetWpParam(row, ValueColumn, value);
    return true;
}

int WpData::GetSetParameterCount() const
{
    int count = 0;
    for (int row = 1; row <= m_paramCount; ++row) {
        if (!TrimBlanks(GetWpParam(row, ValueColumn)).isEmpty())
            ++count;
    }
    return count;
}

void WpData::ClearTable()
{
    for (auto& row : m_cells)
        row.fill(QString());
    m_paramCount = 0;
}
