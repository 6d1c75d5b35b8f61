#pragma once

#include "components/hvxdb/Catalogue.h"
#include "components/hvxdb/DefinitionsIndex.h"

#include <QString>

#include <vector>

/// Answers for one list of types, connection types or node types. Look-ups ignore case and raise
/// ComponentError (Refused) when they find nothing.
class DefinitionsTypes
{
public:
    /// One type with its composed answers.
    struct Answers
    {
        QString id;
        QString shortName;
        QString longName;
        QString waypointList;
        /// "id<tab>short name".
        QString analysis;
        /// Positions of the waypoints of its hops; -1 for one that is not defined.
        std::vector<int> hops;
        size_t leastHops = 0;
    };

    /// `what` names the list in error texts.
    explicit DefinitionsTypes(const QString& what) : m_what(what) {}

    /// Hops that a target of the type must have: the optional ones at the end may be missing.
    [[nodiscard]] static size_t LeastHops(const TypeDefinition& type);

    void Fill(const std::vector<TypeDefinition>& types, const DefinitionsIndex& waypoints);

    [[nodiscard]] const std::vector<Answers>& All() const { return m_answers; }
    [[nodiscard]] const QString& List() const { return m_list; }
    [[nodiscard]] const Answers& ByShortName(const QString& shortName) const;
    [[nodiscard]] const Answers& ByLongName(const QString& longName) const;
    /// By the short name, else by the long name.
    [[nodiscard]] const Answers& ByAnyName(const QString& name) const;
    /// By the short name; when that is empty, by the id.
    [[nodiscard]] const Answers& ByShortNameOrId(const QString& shortName, int id) const;

private:
    [[noreturn]] void Refuse(const QString& name) const;

    QString m_what;
    std::vector<Answers> m_answers;
    DefinitionsIndex m_byShortName;
    DefinitionsIndex m_byLongName;
    QString m_list;
};
