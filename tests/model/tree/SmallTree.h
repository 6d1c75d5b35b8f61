#pragma once

#include "model/TreeEntries.h"

/// Root (sorted) with Alpha (Zeta, eta, a continued node; eta with two waypoints, sorted), beta and Gamma
/// without children. Root, Alpha and eta are expanded; Alpha and the second waypoint have tags.
inline void FillSmallTree(TreeEntries& entries)
{
    const auto at = [&entries](const char* key) { return entries.FindByKey(QString::fromLatin1(key)); };
    entries.Add(0, "R,0", "Connections");
    entries.SetSorted(1, true);
    entries.Add(1, "C,10", "Alpha");
    entries.Add(1, "C,12", "Gamma");
    entries.Add(1, "C,11", "beta");
    entries.Add(at("C,10"), "N,20", "Zeta");
    entries.Add(at("C,10"), "N,21", "eta");
    entries.Add(at("C,10"), "N,-22", "Continued");
    entries.Add(at("N,21"), "W,10,1", "Waypoint 1");
    entries.Add(at("N,21"), "W,10,2", "Waypoint 2");
    entries.SetTag(at("C,10"), "T4BUS");
    entries.SetTag(at("W,10,2"), "tag below");
    entries.SetSorted(at("N,21"), true);
    for (const char* key : {"R,0", "C,10", "N,21"})
        entries.SetExpanded(at(key), true);
}
