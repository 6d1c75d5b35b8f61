#include "model/ConData.h"
#include "model/GridChecks.h"
#include "model/ModelState.h"

#include <algorithm>

namespace {

constexpr int ValueColumn = 2;
constexpr int SavedColumn = 3;
constexpr int LongNameColumn = 4;

} // namespace

void ConData::UpdateSharedParameterValues(int editedWaypoint, int waypointCount, const QString& longName,
                                          const QString& value)
{
    for (const QString& shared : Model().TimeRetryNames) {
        if (longName.compare(shared, Qt::CaseInsensitive) == 0)
            UpdateOtherWaypoints(editedWaypoint, waypointCount, longName, value);
    }
}

void ConData::UpdateOtherWaypoints(int editedWaypoint, int waypointCount, const QString& longName,
                                   const QString& value)
{
    for (int i = 1; i <= std::min(waypointCount, MaxWaypoints); ++i) {
        if (i == editedWaypoint)
            continue;
        WpData& table = GetWpData(i);
        for (int row = 1; row <= ShownParameterCount(table, 0); ++row) {
            if (table.GetWpParam(row, LongNameColumn).compare(longName, Qt::CaseInsensitive) != 0)
                continue;
            table.SetWpParam(row, ValueColumn, value);
            // It counts as saved there: only the edited waypoint shows a change.
            table.SetWpParam(row, SavedColumn, value);
        }
    }
}
