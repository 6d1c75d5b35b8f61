#pragma once

#include "model/ConData.h"

#include <QString>
#include <QStringList>

/// One parameter of a waypoint under test.
struct ParameterRow
{
    QString longName;
    QString value;
    QString digit;
    QString preset;
};

/// Fills a waypoint's table; all rows are in use, saved values are "saved".
inline void FillWaypoint(ConData& con, int waypoint, const QList<ParameterRow>& rows)
{
    con.SetConWpName(waypoint, QStringLiteral("WP%1").arg(waypoint));
    con.SetConWpLongName(waypoint, QStringLiteral("Waypoint %1").arg(waypoint));
    int row = 0;
    for (const ParameterRow& parameter : rows) {
        ++row;
        con.SetWpDataItem(waypoint, row, 1, QStringLiteral("KEY%1").arg(row));
        con.SetWpDataItem(waypoint, row, 2, parameter.value);
        con.SetWpDataItem(waypoint, row, 3, QStringLiteral("saved"));
        con.SetWpDataItem(waypoint, row, 4, parameter.longName);
        con.SetWpDataItem(waypoint, row, 5, parameter.digit);
        con.SetWpDataItem(waypoint, row, 6, parameter.preset);
    }
    con.GetWpData(waypoint).SetWpParamCount(row);
}

/// One column of a waypoint's used rows.
inline QStringList ColumnOf(const ConData& con, int waypoint, int column)
{
    QStringList texts;
    for (int row = 1; row <= con.GetWpData(waypoint).WpParamCount(); ++row)
        texts << con.GetWpData(waypoint).GetWpParam(row, column);
    return texts;
}
