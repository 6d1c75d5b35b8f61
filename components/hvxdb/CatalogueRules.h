#pragma once

#include "components/hvxdb/Catalogue.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

/// The rules that a catalogue must keep, so that every answer composed from it fits the item lists, the
/// working objects and the dialogs that take it.
class CatalogueRules
{
public:
    explicit CatalogueRules(const Catalogue& catalogue);

    /// One text per offending row and rule: where, ": ", what is wrong.
    [[nodiscard]] QStringList Check();

private:
    using Types = std::vector<TypeDefinition>;

    void CheckParameter(const ParameterDefinition& parameter, const QString& where);
    void CheckKind(const ParameterDefinition& parameter, const QString& where);
    void CheckWaypoint(const WaypointDefinition& waypoint);
    void CheckLastRows(const WaypointDefinition& waypoint, const QString& where);
    void CheckTypeNames(const Types& types, const QString& what);
    void CheckHops(const TypeDefinition& type, const QString& where);
    void CheckConType(const TypeDefinition& type, const QString& where);
    void CheckUnknownType();
    void CheckNodeType(const TypeDefinition& type, const QString& where);
    void CheckAlikeConTypes();
    void CheckAlikeNodeTypes();

    /// Null when it is not defined.
    [[nodiscard]] const WaypointDefinition* Waypoint(const QString& name) const;
    void CheckName(const QString& name, const QString& what, const QString& where);
    void CheckTargetName(const QString& name, const QString& what, const QString& where);
    void CheckValue(const QString& value, const QString& what, const QString& where);
    void Problem(const QString& where, const QString& text);

    const Catalogue& m_catalogue;
    QHash<QString, const WaypointDefinition*> m_waypoints;
    /// Case-folded names of the waypoints that types use.
    QSet<QString> m_conWaypoints;
    QSet<QString> m_nodeWaypoints;
    QStringList m_problems;
};
