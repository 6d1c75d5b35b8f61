#pragma once

#include <QString>

class ConData;

/// Saves a node whose target is composed from a working copy, if it composes, and selects its entry.
///
/// Runs inside the caller's transaction, with ConObject's trees. False: an error in the waypoint parameters
/// (told), a failure, or the node exists and may not be replaced (not told).
bool SaveNodeWithTarget(ConData& con, const QString& nodeName, bool mayReplace);

/// NodeAddress, Retry and Time of the working copy into rows 1, 6 and 5 of the first waypoint, as a node of
/// type NET4 has them.
void PutNodeValues(ConData& con);

/// SaveNodeWithTarget for a scanned node of type NET4: its address, repeats and time-out (ms) go into rows 1,
/// 6 and 5 of the first waypoint. `unread` has no effect.
bool SaveNodeWithValues(ConData& con, bool mayReplace, const QString& nodeName, const QString& unread,
                        const QString& address, const QString& retry, const QString& time);
