#include "model/ParameterLists.h"

#include "model/ConData.h"
#include "model/GridChecks.h"
#include "model/ParameterGrid.h"
#include "model/TextHelpers.h"
#include "platform/Words.h"

#include <algorithm>

namespace {

constexpr int ValueColumn = 2;
constexpr int LongNameColumn = 4;
constexpr int DigitColumn = 5;
constexpr int DefaultColumn = 6;

bool IsPassword(const WpData& waypoint, int row)
{
    return waypoint.GetWpParam(row, LongNameColumn).compare(QLatin1String("PASSWORD"), Qt::CaseInsensitive) ==
           0;
}

void WriteCell(ParameterGrid& grid, int row, int column, const QString& text)
{
    grid.MoveTo(row, column);
    grid.SetText(text);
}

void WriteHeaders(ParameterGrid& grid)
{
    WriteCell(grid, 0, ParameterGrid::NameColumn, Words::tr("Parameter"));
    WriteCell(grid, 0, ParameterGrid::ValueColumn, Words::tr("Value"));
}

QString ShownValue(ParameterGrid& grid, const WpData& waypoint, int row)
{
    const QString& value = waypoint.GetWpParam(row, ValueColumn);
    if (IsPassword(waypoint, row)) {
        grid.SetPassword(row, value);
        return ParameterGrid::MaskedPassword();
    }
    const QString& preset = waypoint.GetWpParam(row, DefaultColumn);
    return TrimBlanks(value).isEmpty() && !TrimBlanks(preset).isEmpty() ? preset : value;
}

/// "M" mandatory, "D" the default in use, "M/D" both.
QString Marker(const WpData& waypoint, int row, const QString& value)
{
    QStringList marks;
    if (TrimBlanks(waypoint.GetWpParam(row, DigitColumn)) == QLatin1String("1"))
        marks << QStringLiteral("M");
    const QStringView preset = TrimBlanks(waypoint.GetWpParam(row, DefaultColumn));
    if (!preset.isEmpty() && value == preset && !IsPassword(waypoint, row))
        marks << QStringLiteral("D");
    return marks.join(u'/');
}

QString ListValue(const WpData& waypoint, int row)
{
    if (IsPassword(waypoint, row))
        return ParameterGrid::MaskedPassword();
    const QString value = Trim(waypoint.GetWpParam(row, ValueColumn));
    return value.isEmpty() ? Trim(waypoint.GetWpParam(row, DefaultColumn)) : value;
}

} // namespace

// Grid ----------------------------------------------------------------------------------------------------

void ShowWpRows(ParameterGrid& grid, const ConData& con, int waypoint, int rowCount)
{
    const WpData& table = con.GetWpData(waypoint);
    grid.SetPassword(0, QString());
    WriteHeaders(grid);
    for (int row = 1; row <= std::min(rowCount, WpData::RowCount); ++row) {
        const QString& digit = table.GetWpParam(row, DigitColumn);
        WriteCell(grid, row, ParameterGrid::NameColumn, table.GetWpParam(row, LongNameColumn));
        grid.SetFont(IsRequiredParameter(digit), IsExclusiveParameter(digit));
        WriteCell(grid, row, ParameterGrid::ValueColumn, ShownValue(grid, table, row));
    }
}

void FillWpGrid(ParameterGrid& grid, const ConData& con, QString& title, int& rowCount)
{
    title = Words::tr("%1-waypoint parameters:").arg(con.GetConWpName(con.SelectedWpIndx));
    rowCount = ShownParameterCount(con.GetWpData(con.SelectedWpIndx), 0);
    ShowWpRows(grid, con, con.SelectedWpIndx, rowCount);
    for (int row = rowCount + 1; row <= NodeGridRows; ++row) {
        WriteCell(grid, row, ParameterGrid::NameColumn, QString());
        grid.SetFont(false, false);
        WriteCell(grid, row, ParameterGrid::ValueColumn, QString());
    }
}

void TakeWpGridValues(ParameterGrid& grid, ConData& con, int rowCount, int waypointCount)
{
    const int waypoint = con.SelectedWpIndx;
    if (waypoint == 0)
        return;
    WpData& table = con.GetWpData(waypoint);
    for (int row = 1; row <= std::min(rowCount, WpData::RowCount); ++row) {
        if (row == grid.PasswordRow()) {
            table.SetWpParam(row, ValueColumn, Trim(grid.PasswordValue()));
            continue;
        }
        grid.MoveTo(row, ParameterGrid::ValueColumn);
        const QString value = Trim(grid.Text());
        // A second password row shows the mask too, and the grid holds the value of one only.
        if (IsPassword(table, row) && value == ParameterGrid::MaskedPassword())
            continue;
        table.SetWpParam(row, ValueColumn, value);
        con.UpdateSharedParameterValues(waypoint, waypointCount, table.GetWpParam(row, LongNameColumn),
                                        value);
    }
}

// List ----------------------------------------------------------------------------------------------------

void ListWpParameters(const ConData& con, DefinitionList& list, int waypoint, int indent)
{
    const WpData& table = con.GetWpData(waypoint);
    const int rowCount = ShownParameterCount(table, ReducedParameterCount(waypoint, con.ConWpCount));
    const QString prefix(std::max(0, indent), u' ');
    for (int row = 1; row <= rowCount; ++row) {
        const QString value = ListValue(table, row);
        list.AddItem(Str(waypoint) + u'_' + Str(row),
                     {prefix + table.GetWpParam(row, LongNameColumn), value, Marker(table, row, value)});
    }
}

void FillConListView(const ConData& con, DefinitionList& list, bool showParameters)
{
    constexpr int Indent = 5;

    list.Clear();
    list.AddColumn(Words::tr("Connection Definition"), showParameters ? 0.45 : 0.91);
    if (showParameters) {
        list.AddColumn(Words::tr("Value"), 0.19);
        list.AddColumn(Words::tr("M/D"), 0.06);
    }
    for (int i = 1; i <= std::min(con.ConWpCount, ConData::MaxWaypoints); ++i) {
        const QString& name = con.GetConWpLongName(i);
        if (showParameters) {
            list.AddItem(Str(i) + QStringLiteral("_01"), {name, QString(), QString()});
            ListWpParameters(con, list, i, Indent);
        } else {
            list.AddItem(Str(i) + QStringLiteral("_1"), {name});
        }
    }
}
