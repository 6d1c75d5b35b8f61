#include "model/GridChecks.h"

#include "model/ConData.h"
#include "model/ParameterGrid.h"
#include "model/TextHelpers.h"
#include "platform/Words.h"

#include <algorithm>

namespace {

constexpr int ValueColumn = 2;
constexpr int DigitColumn = 5;
constexpr int Mandatory = 1;

/// The requirement digit of a row in the selected waypoint.
int ClassOf(const ConData& con, int row)
{
    return ValInt(con.GetWpData(con.SelectedWpIndx).GetWpParam(row, DigitColumn));
}

bool HasValue(ParameterGrid& grid, int row)
{
    grid.MoveTo(row, ParameterGrid::ValueColumn);
    return !TrimBlanks(grid.Text()).isEmpty();
}

/// Rows that a table can hold at most, whatever the caller counts.
int LastRow(int rowCount)
{
    return std::min(rowCount, WpData::RowCount);
}

} // namespace

bool CheckGridValues(const ConData& con, ParameterGrid& grid, int rowCount, bool& exclusiveFailure)
{
    exclusiveFailure = false;
    for (int row = 1; row <= LastRow(rowCount); ++row) {
        grid.MoveTo(row, ParameterGrid::NameColumn);
        if (grid.Text() == QLatin1String("PASSWORD") && grid.PasswordValue().isEmpty()) {
            exclusiveFailure = true;
            return false;
        }
        const int rowClass = ClassOf(con, row);
        // A group needs exactly one value: this row's or another's.
        if (rowClass > Mandatory && HasValue(grid, row) == CheckGroupMember(con, grid, row, rowCount)) {
            exclusiveFailure = true;
            return false;
        }
        if (rowClass == Mandatory && !HasValue(grid, row))
            return false;
    }
    return true;
}

bool CheckGroupMember(const ConData& con, ParameterGrid& grid, int row, int rowCount)
{
    const int group = ClassOf(con, row);
    grid.MoveTo(row, ParameterGrid::NameColumn);
    if (group <= Mandatory)
        return false;
    for (int other = 1; other <= LastRow(rowCount); ++other) {
        if (other != row && ClassOf(con, other) == group && HasValue(grid, other))
            return true;
    }
    return false;
}

bool CheckWpMandatory(const WpData& waypoint)
{
    for (int row = 1; row <= ShownParameterCount(waypoint, 0); ++row) {
        if (Val(waypoint.GetWpParam(row, DigitColumn)) > 0 && waypoint.GetWpParam(row, ValueColumn).isEmpty())
            return false;
    }
    return true;
}

QString GridRefusalText(bool exclusiveFailure)
{
    return exclusiveFailure
               ? Words::tr("Mandatory and mutually exclusive parameters are set incorrectly (check "
                           "parameters with bold and italic font).")
               : Words::tr("Mandatory parameter without value (check parameter names with bold font).");
}

int ReducedParameterCount(int waypoint, int waypointCount)
{
    constexpr int SharedRows = 2;
    return waypoint == 1 || waypoint == waypointCount ? 0 : SharedRows;
}

int ShownParameterCount(const WpData& waypoint, int reduceBy)
{
    return std::max(0, LastRow(waypoint.WpParamCount()) - reduceBy);
}
