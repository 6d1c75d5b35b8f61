#pragma once

#include "model/ConData.h"

#include <QStringList>

/// All that a save of found nodes may change in the connection of their scan.
[[nodiscard]] inline QStringList WholeConnection(const ConData& con)
{
    QStringList parts{con.ConName,
                      QString::number(con.ConDbID),
                      con.NodeName,
                      QString::number(con.NodeDbID),
                      QString::number(con.ConWpCount),
                      con.NewNode ? QStringLiteral("new node") : QStringLiteral("node"),
                      con.NodeTypeName,
                      con.NodeAddress,
                      con.Retry,
                      con.Time,
                      con.NodeType,
                      con.CommandLine,
                      con.TargetString};
    for (int waypoint = 1; waypoint <= con.ConWpCount; ++waypoint)
        parts << con.GetConWpName(waypoint) << con.GetWpData(waypoint).GetWpParam(1, 2);
    return parts;
}
