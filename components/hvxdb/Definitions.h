#pragma once

#include "components/hvxdb/Catalogue.h"

#include <QHash>
#include <QStringView>

/// Answers for one catalogue: types, waypoints, parameters, and what a target text means by them.
///
/// Look-ups of short names, long names, waypoints and keywords ignore case. Those that find nothing raise
/// ComponentError (Refused). Item lists as in HvxDatabase.
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
    Catalogue m_catalogue;
    QHash<QString, int> m_waypoints;
};
