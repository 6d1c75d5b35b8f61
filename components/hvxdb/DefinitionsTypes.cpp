#include "components/hvxdb/DefinitionsTypes.h"

#include "components/hvxdb/DefinitionsList.h"
#include "platform/ComponentError.h"
#include "platform/HvxDatabase.h"

#include <algorithm>
#include <utility>

namespace {

QString WaypointList(const TypeDefinition& type)
{
    DefinitionsList list;
    for (const HopDefinition& hop : type.hops) {
        list.Add(hop.waypoint);
        list.Add(hop.mandatory ? u"1" : u"0");
    }
    return list.Take();
}

/// The type for targets that no other type describes has no place of its own among the ids.
QString TypeId(const TypeDefinition& type, size_t position)
{
    const bool unknown = type.shortName.compare(u"Unknown", Qt::CaseInsensitive) == 0;
    return unknown ? QStringLiteral("-1") : QString::number(position);
}

} // namespace

size_t DefinitionsTypes::LeastHops(const TypeDefinition& type)
{
    const auto lastMandatory = std::find_if(type.hops.rbegin(), type.hops.rend(),
                                            [](const HopDefinition& hop) { return hop.mandatory; });
    return static_cast<size_t>(std::distance(lastMandatory, type.hops.rend()));
}

void DefinitionsTypes::Fill(const std::vector<TypeDefinition>& types, const DefinitionsIndex& waypoints)
{
    DefinitionsList list;
    for (const TypeDefinition& type : types) {
        const size_t position = m_answers.size();
        DefinitionsList analysis;
        analysis.Add(TypeId(type, position));
        analysis.Add(type.shortName);
        Answers answers{TypeId(type, position), type.shortName,  type.longName,
                        WaypointList(type),     analysis.Take(), {},
                        LeastHops(type)};
        for (const HopDefinition& hop : type.hops)
            answers.hops.push_back(waypoints.Find(hop.waypoint));
        m_byShortName.Add(type.shortName, static_cast<int>(position));
        m_byLongName.Add(type.longName, static_cast<int>(position));
        m_answers.push_back(std::move(answers));
        list.Add(type.shortName);
    }
    m_list = list.Take();
}

const DefinitionsTypes::Answers& DefinitionsTypes::ByShortName(const QString& shortName) const
{
    const int position = m_byShortName.Find(shortName);
    if (position < 0)
        Refuse(shortName);
    return m_answers[static_cast<size_t>(position)];
}

const DefinitionsTypes::Answers& DefinitionsTypes::ByLongName(const QString& longName) const
{
    const int position = m_byLongName.Find(longName);
    if (position < 0)
        Refuse(longName);
    return m_answers[static_cast<size_t>(position)];
}

const DefinitionsTypes::Answers& DefinitionsTypes::ByAnyName(const QString& name) const
{
    const int position = m_byShortName.Find(name);
    return position < 0 ? ByLongName(name) : m_answers[static_cast<size_t>(position)];
}

const DefinitionsTypes::Answers& DefinitionsTypes::ByShortNameOrId(const QString& shortName, int id) const
{
    if (!shortName.isEmpty())
        return ByShortName(shortName);
    const QString wanted = QString::number(id);
    const auto found = std::find_if(m_answers.begin(), m_answers.end(),
                                    [&wanted](const Answers& answers) { return answers.id == wanted; });
    if (found == m_answers.end())
        Refuse(wanted);
    return *found;
}

void DefinitionsTypes::Refuse(const QString& name) const
{
    throw ComponentError(DatabaseErrorNumber::Refused, QStringLiteral("HvxDatabase"),
                         QStringLiteral("There is no %1 \"%2\".").arg(m_what, name));
}
