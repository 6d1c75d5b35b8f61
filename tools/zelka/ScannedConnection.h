#pragma once

#include <QString>

#include <optional>

class ConData;
class DatabaseSession;

/// Reads a connection whose network is to be asked, and leads it to another bus when one is given.
///
/// Gives the connection of the session. Raises CommandError: Refused for a connection that does not exist or
/// cannot be read, one of the SNMP family, one without a bus to lead to another, and for a user without the
/// right to scan.
[[nodiscard]] ConData& ScannedConnection(const DatabaseSession& session, const QString& name,
                                         std::optional<int> bus);

/// Raises CommandError (Refused) unless the connection leads over this bus: what is found on another one
/// cannot be reached through it.
void RequireStoredBus(const ConData& connection, int bus);

/// The connection leads over a bus.
[[nodiscard]] bool HasBus(const ConData& connection);
