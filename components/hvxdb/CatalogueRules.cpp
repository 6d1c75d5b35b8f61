#include "components/hvxdb/CatalogueRules.h"

#include "components/hvxdb/DefinitionsTypes.h"

#include <QSet>

#include <algorithm>

namespace {

constexpr size_t MostTypes = 100;
constexpr size_t MostHops = 10;
constexpr size_t MostParameters = 10;
/// Rows of the grid that shows a node's waypoint.
constexpr size_t MostNodeParameters = 9;
/// What fits an item list of 100 items beside the number of hops.
constexpr size_t MostItems = 99;
constexpr size_t ItemsPerHop = 3;
constexpr size_t ItemsPerParameter = 2;
constexpr int LargestRequirement = 9;
constexpr int FirstGroup = 2;

const QString UnknownType = QStringLiteral("Unknown");
const QString OptionsWaypoint = QStringLiteral("OPT");
const QString SnmpWord = QStringLiteral("SNMP");

bool SameName(const QString& left, const QString& right)
{
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

bool IsUnknown(const TypeDefinition& type)
{
    return SameName(type.shortName, UnknownType);
}

bool HasControl(const QString& text)
{
    return std::any_of(text.begin(), text.end(),
                       [](QChar character) { return character.category() == QChar::Other_Control; });
}

/// Whether some target has hops that both types allow. If a longer one has, the shortest that both lengths
/// allow has too.
bool AreAlike(const TypeDefinition& left, const TypeDefinition& right)
{
    const size_t shortest =
        std::max({DefinitionsTypes::LeastHops(left), DefinitionsTypes::LeastHops(right), size_t(1)});
    if (shortest > std::min(left.hops.size(), right.hops.size()))
        return false;
    return std::equal(
        left.hops.begin(), left.hops.begin() + static_cast<qptrdiff>(shortest), right.hops.begin(),
        [](const HopDefinition& a, const HopDefinition& b) { return SameName(a.waypoint, b.waypoint); });
}

QString ConTypePlace(const TypeDefinition& type)
{
    return QStringLiteral("connection type ") + type.shortName;
}

QString NodeTypePlace(const TypeDefinition& type)
{
    return QStringLiteral("node type ") + type.shortName;
}

QString ParameterPlace(const QString& where, const ParameterDefinition& parameter)
{
    return QStringLiteral("%1, parameter %2").arg(where, parameter.keyword);
}

} // namespace

CatalogueRules::CatalogueRules(const Catalogue& catalogue) : m_catalogue(catalogue)
{
    for (const WaypointDefinition& waypoint : catalogue.waypoints)
        m_waypoints.insert(waypoint.name.toCaseFolded(), &waypoint);
}

QStringList CatalogueRules::Check()
{
    m_problems.clear();
    CheckTypeNames(m_catalogue.conTypes, QStringLiteral("connection type"));
    CheckTypeNames(m_catalogue.nodeTypes, QStringLiteral("node type"));
    CheckUnknownType();
    for (const TypeDefinition& type : m_catalogue.conTypes)
        CheckConType(type, ConTypePlace(type));
    for (const TypeDefinition& type : m_catalogue.nodeTypes)
        CheckNodeType(type, NodeTypePlace(type));
    CheckAlikeConTypes();
    CheckAlikeNodeTypes();
    // Behind the types: what a waypoint must keep depends on the types that use it.
    QSet<QString> names;
    for (const WaypointDefinition& waypoint : m_catalogue.waypoints) {
        CheckWaypoint(waypoint);
        if (names.contains(waypoint.name.toCaseFolded()))
            Problem(QStringLiteral("waypoint ") + waypoint.name,
                    QStringLiteral("there are two of this name"));
        names.insert(waypoint.name.toCaseFolded());
    }
    return m_problems;
}

void CatalogueRules::CheckUnknownType()
{
    const Types& types = m_catalogue.conTypes;
    const QString where = QStringLiteral("connection types");
    if (types.empty() || !IsUnknown(types.back()))
        Problem(where, QStringLiteral("the last one must be \"Unknown\""));
    else if (types.back().longName != UnknownType || types.back().shortName != UnknownType)
        Problem(where, QStringLiteral("\"Unknown\" must have this short name and this long name"));
}

void CatalogueRules::CheckTypeNames(const Types& types, const QString& what)
{
    if (types.size() > MostTypes)
        Problem(what + u's', QStringLiteral("%1, at most %2 are possible").arg(types.size()).arg(MostTypes));
    QSet<QString> shortNames;
    QSet<QString> longNames;
    for (const TypeDefinition& type : types) {
        const QString where = what + u' ' + type.shortName;
        CheckName(type.shortName, QStringLiteral("short name"), where);
        CheckName(type.longName, QStringLiteral("long name"), where);
        if (shortNames.contains(type.shortName.toCaseFolded()))
            Problem(where, QStringLiteral("there are two of this name"));
        if (longNames.contains(type.longName.toCaseFolded()))
            Problem(where, QStringLiteral("another type has the long name \"%1\"").arg(type.longName));
        shortNames.insert(type.shortName.toCaseFolded());
        longNames.insert(type.longName.toCaseFolded());
    }
}

void CatalogueRules::CheckHops(const TypeDefinition& type, const QString& where)
{
    if (type.hops.size() > MostHops)
        Problem(where,
                QStringLiteral("%1 hops, at most %2 are possible").arg(type.hops.size()).arg(MostHops));
    size_t items = type.hops.size() * ItemsPerHop;
    for (const HopDefinition& hop : type.hops) {
        if (const WaypointDefinition* waypoint = Waypoint(hop.waypoint))
            items += waypoint->parameters.size() * ItemsPerParameter;
        else
            Problem(where, QStringLiteral("there is no waypoint \"%1\"").arg(hop.waypoint));
    }
    if (items > MostItems)
        Problem(where, QStringLiteral("hops x 3 + parameters x 2 is %1, at most %2 is possible")
                           .arg(items)
                           .arg(MostItems));
}

void CatalogueRules::CheckConType(const TypeDefinition& type, const QString& where)
{
    CheckHops(type, where);
    if (type.hops.empty() != IsUnknown(type))
        Problem(where, IsUnknown(type) ? QStringLiteral("must have no hops") : QStringLiteral("has no hops"));
    for (size_t i = 0; i + 1 < type.hops.size(); ++i) {
        if (SameName(type.hops[i].waypoint, OptionsWaypoint))
            Problem(where, QStringLiteral("OPT must be the last hop"));
    }
    for (const HopDefinition& hop : type.hops)
        m_conWaypoints.insert(hop.waypoint.toCaseFolded());
}

void CatalogueRules::CheckNodeType(const TypeDefinition& type, const QString& where)
{
    CheckHops(type, where);
    for (const HopDefinition& hop : type.hops)
        m_nodeWaypoints.insert(hop.waypoint.toCaseFolded());
    if (type.longName.contains(SnmpWord, Qt::CaseInsensitive) &&
        !type.shortName.contains(SnmpWord, Qt::CaseInsensitive))
        Problem(where, QStringLiteral("its long name must not hold \"SNMP\""));
    if (type.hops.empty()) {
        Problem(where, QStringLiteral("has no hops"));
        return;
    }
    const WaypointDefinition* first = Waypoint(type.hops.front().waypoint);
    if (!first)
        return;
    for (const ParameterDefinition& parameter : first->parameters) {
        if (parameter.requirement >= FirstGroup)
            Problem(where, QStringLiteral("its first waypoint %1 has parameter %2 in an exclusive group")
                               .arg(first->name, parameter.keyword));
    }
}

void CatalogueRules::CheckAlikeConTypes()
{
    const Types& types = m_catalogue.conTypes;
    for (size_t later = 1; later < std::min(types.size(), MostTypes); ++later) {
        for (size_t earlier = 0; earlier < later; ++earlier) {
            if (AreAlike(types[earlier], types[later]))
                Problem(ConTypePlace(types[later]),
                        QStringLiteral("a target could match its hops and those of connection type %1")
                            .arg(types[earlier].shortName));
        }
    }
}

void CatalogueRules::CheckAlikeNodeTypes()
{
    // A node's type is told by its first hop alone.
    QHash<QString, QString> firstHops;
    for (const TypeDefinition& type : m_catalogue.nodeTypes) {
        if (type.hops.empty())
            continue;
        const QString first = type.hops.front().waypoint.toCaseFolded();
        if (firstHops.contains(first))
            Problem(NodeTypePlace(type),
                    QStringLiteral("a target could match its hops and those of node type %1")
                        .arg(firstHops.value(first)));
        else
            firstHops.insert(first, type.shortName);
    }
}

void CatalogueRules::CheckWaypoint(const WaypointDefinition& waypoint)
{
    const QString where = QStringLiteral("waypoint ") + waypoint.name;
    const std::vector<ParameterDefinition>& parameters = waypoint.parameters;
    CheckTargetName(waypoint.name, QStringLiteral("name"), where);
    CheckName(waypoint.longName, QStringLiteral("long name"), where);
    const size_t most =
        m_nodeWaypoints.contains(waypoint.name.toCaseFolded()) ? MostNodeParameters : MostParameters;
    if (parameters.size() > most)
        Problem(where,
                QStringLiteral("%1 parameters, at most %2 are possible").arg(parameters.size()).arg(most));

    QSet<QString> keywords;
    QSet<QString> longNames;
    for (const ParameterDefinition& parameter : parameters) {
        const QString place = ParameterPlace(where, parameter);
        CheckParameter(parameter, place);
        if (keywords.contains(parameter.keyword.toCaseFolded()))
            Problem(place, QStringLiteral("there are two of this keyword"));
        if (longNames.contains(parameter.longName.toCaseFolded()))
            Problem(place,
                    QStringLiteral("another parameter has the long name \"%1\"").arg(parameter.longName));
        keywords.insert(parameter.keyword.toCaseFolded());
        longNames.insert(parameter.longName.toCaseFolded());
    }
    if (m_conWaypoints.contains(waypoint.name.toCaseFolded()))
        CheckLastRows(waypoint, where);
}

void CatalogueRules::CheckLastRows(const WaypointDefinition& waypoint, const QString& where)
{
    const std::vector<ParameterDefinition>& rows = waypoint.parameters;
    const size_t count = rows.size();
    if (SameName(waypoint.name, OptionsWaypoint)) {
        if (count < 1 || rows[count - 1].keyword != QStringLiteral("VERIFY"))
            Problem(where, QStringLiteral("its last parameter must be VERIFY"));
    } else if (count < 2 || rows[count - 2].keyword != QStringLiteral("TIME") ||
               rows[count - 1].keyword != QStringLiteral("RETRY")) {
        Problem(where, QStringLiteral("its last parameters must be TIME and RETRY"));
    }
}

void CatalogueRules::CheckParameter(const ParameterDefinition& parameter, const QString& where)
{
    CheckTargetName(parameter.keyword, QStringLiteral("keyword"), where);
    CheckName(parameter.longName, QStringLiteral("long name"), where);
    if (SameName(parameter.keyword, QStringLiteral("WP")))
        Problem(where, QStringLiteral("the keyword WP begins a hop"));
    if (parameter.requirement < 0 || parameter.requirement > LargestRequirement)
        Problem(where, QStringLiteral("the requirement must be one digit"));
    CheckValue(parameter.defaultValue, QStringLiteral("the default"), where);
    // The definition text is "digit|default".
    if (parameter.defaultValue.contains(u'|'))
        Problem(where, QStringLiteral("the default must not hold \"|\""));
    CheckKind(parameter, where);
}

void CatalogueRules::CheckKind(const ParameterDefinition& parameter, const QString& where)
{
    if (parameter.kind == ParameterKind::Text && parameter.textLength < 1)
        Problem(where, QStringLiteral("the length of the text must be 1 or more"));
    if (parameter.kind == ParameterKind::WholeNumber) {
        if (parameter.low < 0 || parameter.high < 0)
            Problem(where, QStringLiteral("a bound is negative"));
        if (parameter.low > parameter.high)
            Problem(where, QStringLiteral("the lower bound is above the upper bound"));
    }
    if (parameter.kind != ParameterKind::List)
        return;
    if (parameter.values.isEmpty())
        Problem(where, QStringLiteral("the list has no values"));
    for (const QString& value : parameter.values) {
        CheckValue(value, QStringLiteral("a list value"), where);
        if (value.isEmpty())
            Problem(where, QStringLiteral("a list value is empty"));
        // The grid's list tells its own entry for the default by this word.
        if (value.contains(QStringLiteral("Default"), Qt::CaseInsensitive))
            Problem(where, QStringLiteral("the list value \"%1\" must not hold \"Default\"").arg(value));
    }
}

const WaypointDefinition* CatalogueRules::Waypoint(const QString& name) const
{
    return m_waypoints.value(name.toCaseFolded());
}

void CatalogueRules::CheckName(const QString& name, const QString& what, const QString& where)
{
    if (name.trimmed().isEmpty())
        Problem(where, QStringLiteral("the %1 is empty").arg(what));
    else if (name.trimmed() != name || HasControl(name))
        Problem(where, QStringLiteral("the %1 holds blanks at its ends or control characters").arg(what));
}

void CatalogueRules::CheckTargetName(const QString& name, const QString& what, const QString& where)
{
    CheckName(name, what, where);
    if (name.contains(u',') || name.contains(u'='))
        Problem(where, QStringLiteral("the %1 holds \",\" or \"=\"").arg(what));
}

void CatalogueRules::CheckValue(const QString& value, const QString& what, const QString& where)
{
    if (value.contains(u',') || HasControl(value))
        Problem(where, QStringLiteral("%1 holds \",\" or control characters").arg(what));
}

void CatalogueRules::Problem(const QString& where, const QString& text)
{
    m_problems << where + QStringLiteral(": ") + text;
}
