#pragma once

#include <QString>

class ConData;
class ParameterGrid;
class WpData;

/// The rules for the values of one waypoint. None of them changes anything or says a word.

/// Checks rows 1 to `rowCount` of a grid against the requirement digits of ConData's selected waypoint.
/// False: a mandatory parameter is without a value, or, with `exclusiveFailure`, a group has no value or two,
/// or a password is missing.
[[nodiscard]] bool CheckGridValues(const ConData& con, ParameterGrid& grid, int rowCount,
                                   bool& exclusiveFailure);
[[nodiscard]] inline bool ValidateWpGrid(const ConData& con, ParameterGrid& grid, int rowCount,
                                         bool& exclusiveFailure)
{
    return CheckGridValues(con, grid, rowCount, exclusiveFailure);
}

/// True when another row of the exclusive group that `row` belongs to has a value.
[[nodiscard]] bool CheckGroupMember(const ConData& con, ParameterGrid& grid, int row, int rowCount);
[[nodiscard]] inline bool ExclusiveGroupHasValue(const ConData& con, ParameterGrid& grid, int row,
                                                 int rowCount)
{
    return CheckGroupMember(con, grid, row, rowCount);
}

/// The stricter check of a table: each parameter with a requirement digit above 0 has a value; blanks are
/// one.
[[nodiscard]] bool CheckWpMandatory(const WpData& waypoint);
[[nodiscard]] inline bool WpHasRequiredValues(const WpData& waypoint)
{
    return CheckWpMandatory(waypoint);
}

/// What the operator is told when CheckGridValues refuses.
[[nodiscard]] QString GridRefusalText(bool exclusiveFailure);

/// Rows at the end that waypoint i of a connection leaves out, for they hold for the whole connection: two
/// between the first and the last, else none.
[[nodiscard]] int ReducedParameterCount(int waypoint, int waypointCount);

/// Rows of a waypoint that the dialogs show, check and take over: all but the last `reduceBy`; never
/// negative.
[[nodiscard]] int ShownParameterCount(const WpData& waypoint, int reduceBy);
