#pragma once

#include <QString>
#include <QStringList>

class ConData;
class ParameterGrid;

/// Parameters as the dialogs show them: in the grid of one waypoint, and in the list of a definition.

/// The list of a connection's waypoints and parameters, as the fillers need it. A real list view and plain
/// tables stand behind it.
class DefinitionList
{
public:
    virtual ~DefinitionList() = default;

    /// Removes all columns and items.
    virtual void Clear() = 0;
    /// `share`: part of the list's width.
    virtual void AddColumn(const QString& title, double share) = 0;
    /// `key` "<waypoint>_<row>", each number with a leading blank; `texts`: one for each column.
    virtual void AddItem(const QString& key, const QStringList& texts) = 0;
};

// Grid ----------------------------------------------------------------------------------------------------

/// Rows that the node dialogs keep in their grid; those behind the last parameter stay blank.
inline constexpr int NodeGridRows = 9;

/// Writes the headers and rows 1 to `rowCount` of ConData's waypoint into the grid: names with their fonts,
/// values, or the default where there is no value. Sets the grid's password.
void ShowWpRows(ParameterGrid& grid, const ConData& con, int waypoint, int rowCount);

/// The same for all rows of the selected waypoint of a node, with the rest of the nine rows blank. `title`:
/// the waypoint's short name followed by "-waypoint parameters:"; `rowCount`: its parameters.
void FillWpGrid(ParameterGrid& grid, const ConData& con, QString& title, int& rowCount);

/// Values of rows 1 to `rowCount`, blanks at the ends removed, into the selected waypoint: column 2, the
/// password from where the grid holds it. Each value is then spread over the `waypointCount` waypoints where
/// it is one that holds for the whole connection. Nothing while no waypoint is selected.
void TakeWpGridValues(ParameterGrid& grid, ConData& con, int rowCount, int waypointCount);

// List ----------------------------------------------------------------------------------------------------

/// Adds the parameters of one waypoint; those between the first and the last leave out their last two.
void ListWpParameters(const ConData& con, DefinitionList& list, int waypoint, int indent);

/// Fills the list with the waypoints and, with `showParameters`, their parameters, values and markers: "M"
/// mandatory, "D" the default.
void FillConListView(const ConData& con, DefinitionList& list, bool showParameters);
inline void FillDefinitionList(const ConData& con, DefinitionList& list, bool showParameters)
{
    FillConListView(con, list, showParameters);
}
