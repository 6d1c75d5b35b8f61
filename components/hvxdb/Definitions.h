#pragma once

#include "components/hvxdb/Catalogue.h"
#include "components/hvxdb/DefinitionsIndex.h"
#include "components/hvxdb/DefinitionsTypes.h"

#include <QString>
#include <QStringView>

#include <vector>

/// Answers for one catalogue: types, waypoints, parameters, and what a target text means by them.
///
/// Look-ups of short names, long names, waypoints and keywords ignore case. Those that find nothing raise
/// ComponentError (Refused). Item lists as in HvxDatabase. All answers are composed once, at construction;
/// the ones for a target take a time linear in its length, whatever the text is.
class Definitions
{
public:
    /// No definitions: every look-up raises; targets can still be checked and split.
    Definitions() = default;
    explicit Definitions(Catalogue catalogue);

    [[nodiscard]] const Catalogue& Data() const { return m_catalogue; }

    [[nodiscard]] QString ConTypeList() const;
    /// "-1" for Unknown.
    [[nodiscard]] QString ConTypeId(const QString& shortName) const;
    [[nodiscard]] QString ConTypeLongName(const QString& shortName) const;
    [[nodiscard]] QString ConTypeShortName(const QString& longName) const;
    /// With an empty name, `mode` is the type id.
    [[nodiscard]] QString ConTypeWpList(const QString& shortName, int mode) const;
    /// "id<tab>short name"; "-1<tab>Unknown" when no type has these hops.
    [[nodiscard]] QString AnalyzeConType(const QString& target) const;
    [[nodiscard]] QString NodeTypeList() const;
    [[nodiscard]] QString NodeTypeId(const QString& shortName) const;
    /// Accepts a long name too.
    [[nodiscard]] QString NodeTypeLongName(const QString& shortName) const;
    [[nodiscard]] QString NodeTypeShortName(const QString& longName) const;
    [[nodiscard]] QString NodeTypeWpList(const QString& shortName, int mode) const;
    [[nodiscard]] QString AnalyzeNodeType(const QString& target) const;
    [[nodiscard]] QString WpLongName(const QString& waypoint) const;
    [[nodiscard]] QString WpParameters(const QString& waypoint) const;
    [[nodiscard]] QString WpParametersLongNames(const QString& waypoint) const;
    [[nodiscard]] QString TargetItemList(const QString& target) const;
    /// False: refused; `reformatted` is then empty.
    [[nodiscard]] bool CheckTarget(const QString& target, QString& reformatted) const;
    [[nodiscard]] const ParameterDefinition& Parameter(const QString& waypoint, const QString& keyword) const;

private:
    struct WaypointAnswers
    {
        QString parameters;
        QString longNames;
        /// For targets whose first hop it is; empty when no node type begins with it.
        QString nodeType;
    };

    void FillWaypoints();
    [[nodiscard]] size_t Waypoint(const QString& name) const;
    [[nodiscard]] const WaypointDefinition* KnownWaypoint(QStringView name) const;
    void RequireDefinitions() const;

    Catalogue m_catalogue;
    bool m_defined = false;
    DefinitionsTypes m_conTypes{QStringLiteral("connection type")};
    DefinitionsTypes m_nodeTypes{QStringLiteral("node type")};
    DefinitionsIndex m_waypointIndex;
    std::vector<WaypointAnswers> m_waypoints;
};
