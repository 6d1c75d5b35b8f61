#pragma once

#include <QString>

#include <array>

/// The parameter table of one waypoint: 10 rows by 6 columns of text.
///
/// Columns: 1 keyword, 2 value, 3 saved value, 4 long name, 5 requirement digit, 6 default. All indices
/// start at 1; one outside its range raises IndexError and changes nothing.
class WpData
{
public:
    static constexpr int RowCount = 10;
    static constexpr int ColumnCount = 6;

    /// The cell at Row(), Col().
    [[nodiscard]] QString WpParams() const;
    void SetWpParams(const QString& text);

    /// Rows in use; no range check on writing.
    [[nodiscard]] int WpParamCount() const { return m_paramCount; }
    void SetWpParamCount(int count) { m_paramCount = count; }

    /// Cursor of WpParams.
    [[nodiscard]] int Row() const { return m_row; }
    void SetRow(int row) { m_row = row; }
    [[nodiscard]] int Col() const { return m_col; }
    void SetCol(int col) { m_col = col; }

    void SetWpParam(int row, int column, const QString& value);
    [[nodiscard]] const QString& GetWpParam(int row, int column) const;

    /// Writes the value of the first used row with that keyword (case counts). False: no such row.
    bool SetWpParamByName(const QString& name, const QString& value);
    /// The value of the first used row that holds `name` in `searchColumn`. False: no such row, `value` as it
    /// was.
    bool GetWpParamByNameEx(const QString& name, QString& value, int searchColumn) const;
    bool SetWpParamByNameEx(const QString& name, const QString& value, int searchColumn);

    [[nodiscard]] const QString& WpShortName() const { return m_shortName; }
    void SetWpShortName(const QString& name) { m_shortName = name; }

    /// Used rows whose value is more than blanks.
    [[nodiscard]] int GetSetParameterCount() const;

    /// Empties all cells and sets the rows in use to 0.
    void ClearTable();

private:
    /// The first used row that holds `name` in that column; 0 when there is none.
    [[nodiscard]] int FindRow(const QString& name, int searchColumn) const;

    int m_row = 0;
    int m_col = 0;
    QString m_shortName;
    int m_paramCount = 0;
    std::array<std::array<QString, ColumnCount>, RowCount> m_cells;
};
