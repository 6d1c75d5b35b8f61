#pragma once

#include <QString>

class NamedValues;

/// Small look-ups over the database and the store of named values.

/// The type that stands for a connection without one; its picture is the one for unknown connections.
inline constexpr int NoConType = 16;

/// Type id of a stored connection and, in `shortName`, its type's short name. NoConType for a blank name, an
/// unknown type and a failed look-up (then `shortName` as it was).
int GetConTypeOfParent(const QString& conName, QString& shortName);

/// Whether a connection's type is one of those that reach a node by SNMP.
[[nodiscard]] bool IsSnmpConType(int id, const QString& shortName);

/// The manager's "index|path" of the node that ConObject holds, by its NodeType; empty when there is none.
[[nodiscard]] QString GetNodeManagerName();

/// Fills TimeRetryNames: the long names of the parameters that hold for a whole connection; plain names where
/// the database cannot tell.
void ReadTimeRetryNames();

/// A value under `root` and `keyPath` (parts separated by "\"); an empty `valueName` is the key's own value.
/// A number value, kept as "dword:" and up to 8 hex digits, comes as a decimal number. False, and an empty
/// text: there is no such value, it is longer than 1024 bytes, or its number is malformed.
bool ReadRegistryValue(const NamedValues& values, const QString& root, const QString& keyPath,
                       const QString& valueName, QString& text);
