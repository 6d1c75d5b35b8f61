#pragma once

#include <QString>

class GatewaySession;

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
[[nodiscard]] RecordType ConnectionType(const GatewaySession& session, const QString& name);
[[nodiscard]] RecordType NodeType(const GatewaySession& session, const QString& name);
/// By the waypoints of a target.
[[nodiscard]] RecordType ConnectionTypeOfTarget(const GatewaySession& session, const QString& target);
[[nodiscard]] RecordType NodeTypeOfTarget(const GatewaySession& session, const QString& target);
/// The type of a stored connection; id -1 when no type has its waypoints.
[[nodiscard]] RecordType TypeOfConnection(const GatewaySession& session, const QString& conName);
