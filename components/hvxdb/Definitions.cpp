#include "components/hvxdb/Definitions.h"

#include "components/hvxdb/DefinitionsList.h"
#include "components/hvxdb/TargetRewriter.h"
#include "platform/ComponentError.h"
#include "platform/HvxDatabase.h"
#include "platform/TargetText.h"

#include <QVarLengthArray>

#include <algorithm>
#include <utility>

namespace {

const QString UnknownAnalysis = QStringLiteral("-1\tUnknown");
constexpr QStringView HopKeyword = u"WP";

[[noreturn]] void Refuse(const QString& description)
{
    throw ComponentError(DatabaseErrorNumber::Refused, QStringLiteral("HvxDatabase"), description);
}

bool SameName(QStringView left, QStringView right)
{
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

/// Null when the waypoint has no such keyword.
const ParameterDefinition* FindParameter(const WaypointDefinition& waypoint, QStringView keyword)
{
    // Keywords mostly come in the definitions' case; equal texts are found much faster.
    for (const ParameterDefinition& parameter : waypoint.parameters) {
        if (parameter.keyword == keyword)
            return &parameter;
    }
    for (const ParameterDefinition& parameter : waypoint.parameters) {
        if (SameName(parameter.keyword, keyword))
            return &parameter;
    }
    return nullptr;
}

QStringView CanonicalKeyword(const WaypointDefinition* waypoint, QStringView keyword)
{
    const ParameterDefinition* parameter = waypoint ? FindParameter(*waypoint, keyword) : nullptr;
    return parameter ? QStringView(parameter->keyword) : keyword;
}

QStringView CanonicalWaypoint(const WaypointDefinition* waypoint, QStringView name)
{
    return waypoint ? QStringView(waypoint->name) : name;
}

QString ParameterList(const WaypointDefinition& waypoint)
{
    DefinitionsList list;
    for (const ParameterDefinition& parameter : waypoint.parameters) {
        list.Add(parameter.keyword);
        list.Add(parameter.defaultValue);
    }
    return list.Take();
}

QString LongNameList(const WaypointDefinition& waypoint)
{
    DefinitionsList list;
    for (const ParameterDefinition& parameter : waypoint.parameters) {
        list.Add(parameter.longName);
        list.Add(QString(QString::number(parameter.requirement) + u'|' + parameter.defaultValue));
    }
    return list.Take();
}

} // namespace

Definitions::Definitions(Catalogue catalogue) : m_catalogue(std::move(catalogue)), m_defined(true)
{
    for (size_t i = 0; i < m_catalogue.waypoints.size(); ++i)
        m_waypointIndex.Add(m_catalogue.waypoints[i].name, static_cast<int>(i));
    m_conTypes.Fill(m_catalogue.conTypes, m_waypointIndex);
    m_nodeTypes.Fill(m_catalogue.nodeTypes, m_waypointIndex);
    FillWaypoints();
}

void Definitions::FillWaypoints()
{
    for (const WaypointDefinition& waypoint : m_catalogue.waypoints)
        m_waypoints.push_back({ParameterList(waypoint), LongNameList(waypoint), QString()});
    for (const DefinitionsTypes::Answers& type : m_nodeTypes.All()) {
        if (type.hops.empty() || type.hops.front() < 0)
            continue;
        WaypointAnswers& first = m_waypoints[static_cast<size_t>(type.hops.front())];
        if (first.nodeType.isEmpty())
            first.nodeType = type.analysis;
    }
}

void Definitions::RequireDefinitions() const
{
    if (!m_defined)
        Refuse(QStringLiteral("There are no definitions."));
}

size_t Definitions::Waypoint(const QString& name) const
{
    const int waypoint = m_waypointIndex.Find(name);
    if (waypoint < 0)
        Refuse(QStringLiteral("There is no waypoint \"%1\".").arg(name));
    return static_cast<size_t>(waypoint);
}

const WaypointDefinition* Definitions::KnownWaypoint(QStringView name) const
{
    const int waypoint = m_waypointIndex.Find(name);
    return waypoint < 0 ? nullptr : &m_catalogue.waypoints[static_cast<size_t>(waypoint)];
}

QString Definitions::ConTypeList() const
{
    RequireDefinitions();
    return m_conTypes.List();
}

QString Definitions::ConTypeId(const QString& shortName) const
{
    return m_conTypes.ByShortName(shortName).id;
}

QString Definitions::ConTypeLongName(const QString& shortName) const
{
    return m_conTypes.ByShortName(shortName).longName;
}

QString Definitions::ConTypeShortName(const QString& longName) const
{
    return m_conTypes.ByLongName(longName).shortName;
}

QString Definitions::ConTypeWpList(const QString& shortName, int mode) const
{
    return m_conTypes.ByShortNameOrId(shortName, mode).waypointList;
}

QString Definitions::AnalyzeConType(const QString& target) const
{
    QVarLengthArray<int, 16> hops;
    TargetText reader(target);
    TargetItem item;
    while (reader.Next(item)) {
        if (!item.IsHop())
            continue;
        const int waypoint = m_waypointIndex.Find(item.value);
        if (waypoint < 0)
            return UnknownAnalysis;
        hops.append(waypoint);
    }
    if (hops.isEmpty())
        return UnknownAnalysis;
    const size_t count = static_cast<size_t>(hops.size());
    for (const DefinitionsTypes::Answers& type : m_conTypes.All()) {
        if (count >= type.leastHops && count <= type.hops.size() &&
            std::equal(hops.begin(), hops.end(), type.hops.begin()))
            return type.analysis;
    }
    return UnknownAnalysis;
}

QString Definitions::NodeTypeList() const
{
    RequireDefinitions();
    return m_nodeTypes.List();
}

QString Definitions::NodeTypeId(const QString& shortName) const
{
    return m_nodeTypes.ByShortName(shortName).id;
}

QString Definitions::NodeTypeLongName(const QString& shortName) const
{
    return m_nodeTypes.ByAnyName(shortName).longName;
}

QString Definitions::NodeTypeShortName(const QString& longName) const
{
    return m_nodeTypes.ByLongName(longName).shortName;
}

QString Definitions::NodeTypeWpList(const QString& shortName, int mode) const
{
    return m_nodeTypes.ByShortNameOrId(shortName, mode).waypointList;
}

QString Definitions::AnalyzeNodeType(const QString& target) const
{
    TargetText reader(target);
    TargetItem item;
    while (reader.Next(item)) {
        if (!item.IsHop())
            continue;
        const int waypoint = m_waypointIndex.Find(item.value);
        const QString answer = waypoint < 0 ? QString() : m_waypoints[static_cast<size_t>(waypoint)].nodeType;
        return answer.isEmpty() ? UnknownAnalysis : answer;
    }
    return UnknownAnalysis;
}

QString Definitions::WpLongName(const QString& waypoint) const
{
    return m_catalogue.waypoints[Waypoint(waypoint)].longName;
}

QString Definitions::WpParameters(const QString& waypoint) const
{
    return m_waypoints[Waypoint(waypoint)].parameters;
}

QString Definitions::WpParametersLongNames(const QString& waypoint) const
{
    return m_waypoints[Waypoint(waypoint)].longNames;
}

QString Definitions::TargetItemList(const QString& target) const
{
    struct Pair
    {
        QStringView keyword;
        QStringView value;
        /// Pairs of the hop that this pair begins, itself included; 0: a parameter.
        qsizetype pairs = 0;
    };
    QVarLengthArray<Pair, 64> pairs;
    qsizetype hops = 0;
    qsizetype hop = -1;
    const WaypointDefinition* waypoint = nullptr;
    TargetText reader(target);
    TargetItem item;
    while (reader.Next(item)) {
        if (item.IsHop()) {
            waypoint = KnownWaypoint(item.value);
            hop = pairs.size();
            ++hops;
            pairs.append({HopKeyword, CanonicalWaypoint(waypoint, item.value), 1});
        } else if (hop >= 0 && !item.value.isEmpty()) {
            pairs.append({CanonicalKeyword(waypoint, item.keyword), item.value, 0});
            ++pairs[hop].pairs;
        }
    }

    DefinitionsList list(target.size() + 3 * hops + 2);
    list.AddNumber(hops);
    for (const Pair& pair : pairs) {
        if (pair.pairs > 0)
            list.AddNumber(pair.pairs);
        list.Add(pair.keyword);
        list.Add(pair.value);
    }
    return list.Take();
}

bool Definitions::CheckTarget(const QString& target, QString& reformatted) const
{
    // Written last: a caller may pass one text for both.
    TargetRewriter result(target);
    const WaypointDefinition* waypoint = nullptr;
    qsizetype previousEnd = -1;
    TargetText reader(target);
    TargetItem item;
    while (reader.Next(item)) {
        const bool first = previousEnd < 0;
        if (!item.hasEquals || (first && !item.IsHop())) {
            reformatted.clear();
            return false;
        }
        // One comma stays between two items, none before the first.
        if (item.start > previousEnd + 1)
            result.Replace(previousEnd + 1, item.start, {});
        const qsizetype equals = item.start + item.keyword.size();
        QStringView keyword = HopKeyword;
        if (item.IsHop()) {
            waypoint = KnownWaypoint(item.value);
            const QStringView name = CanonicalWaypoint(waypoint, item.value);
            if (item.keyword != keyword)
                result.Replace(item.start, equals, keyword);
            if (name != item.value)
                result.Replace(equals + 1, item.end, name);
        } else {
            keyword = CanonicalKeyword(waypoint, item.keyword);
            if (item.keyword != keyword)
                result.Replace(item.start, equals, keyword);
        }
        previousEnd = item.end;
    }
    if (previousEnd < 0) {
        reformatted.clear();
        return false;
    }
    if (previousEnd < target.size())
        result.Replace(previousEnd, target.size(), {});
    reformatted = result.Take();
    return true;
}

const ParameterDefinition& Definitions::Parameter(const QString& waypoint, const QString& keyword) const
{
    const WaypointDefinition& definition = m_catalogue.waypoints[Waypoint(waypoint)];
    const ParameterDefinition* parameter = FindParameter(definition, keyword);
    if (!parameter)
        Refuse(QStringLiteral("There is no parameter \"%1\" in waypoint %2.").arg(keyword, definition.name));
    return *parameter;
}
