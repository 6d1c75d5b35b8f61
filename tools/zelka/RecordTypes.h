#pragma once

#include <QString>

class DatabaseSession;

/// A type of connections or nodes.
struct RecordType
{
    QString shortName;
    QString longName;
    int id = 0;
};

/// The SNMP family: its connections carry its nodes and no others.
[[nodiscard]] bool IsSnmpConnectionType(const RecordType& type);
[[nodiscard]] bool IsSnmpNodeType(const RecordType& type);

/// Types by the names that an operator types or by a target. All raise CommandError (Refused) for a type that
/// is not known; the words name those that are.

/// By its long or short name, in any case.
[[nodiscard]] RecordType ConnectionType(const DatabaseSession& session, const QString& name);
[[nodiscard]] RecordType NodeType(const DatabaseSession& session, const QString& name);
/// By the waypoints of a target.
[[nodiscard]] RecordType ConnectionTypeOfTarget(const DatabaseSession& session, const QString& target);
[[nodiscard]] RecordType NodeTypeOfTarget(const DatabaseSession& session, const QString& target);
/// The type of a stored connection; id -1 when no type has its waypoints.
[[nodiscard]] RecordType TypeOfConnection(const DatabaseSession& session, const QString& conName);
