#include "browser/UnloadedSearch.h"

#include "browser/LoadState.h"
#include "database/DatabaseState.h"
#include "database/Gateway.h"
#include "model/TextHelpers.h"
#include "model/TreeFilling.h"
#include "model/TreeKey.h"

#include <algorithm>

namespace {

constexpr qsizetype ItemsOfHit = 4;

/// Nodes by name; waypoints in the order of the hops.
bool StandsBefore(const UnloadedEntry& one, const UnloadedEntry& other)
{
    if (const int order = one.conName.compare(other.conName, Qt::CaseInsensitive))
        return order < 0;
    if (one.conId != other.conId)
        return one.conId < other.conId;
    const int order = one.isWaypoint ? 0 : one.text.compare(other.text, Qt::CaseInsensitive);
    return order != 0 ? order < 0 : one.number < other.number;
}

} // namespace

UnloadedSearch::UnloadedSearch(const TreeEntries& tree, Unloaded kind, const QString& searched)
    : m_tree(&tree), m_kind(kind), m_searched(searched)
{
    // The node view has loaded all up to there.
    if (kind == Unloaded::Nodes)
        m_position = std::max(0, Load().LoadMoreId);
}

bool UnloadedSearch::Next()
{
    // The host may have freed the control's objects since the last step.
    if (!m_tree || !Database().DatabaseOpen || m_kind == Unloaded::Nothing)
        return false;
    QString list;
    const bool done = m_kind == Unloaded::WaypointsOfConnections
                          ? Gateway().FindWaypointsDb(m_searched, list, m_position)
                          : Gateway().FindNodesDb(m_searched, list, m_position);
    m_failed = !done;
    if (!done || !m_tree)
        return false;
    TakeAnswer(list);
    return m_position > 0 && !m_hasMore;
}

void UnloadedSearch::TakeAnswer(const QString& list)
{
    if (list.isEmpty())
        return;
    const QStringList items = list.split(TabChar);
    for (qsizetype at = 0; at + ItemsOfHit <= items.size(); at += ItemsOfHit) {
        const UnloadedEntry entry = {items[at], items[at + 1].toInt(),
                                     m_kind == Unloaded::WaypointsOfConnections, items[at + 2],
                                     items[at + 3].toInt()};
        if (IsLoaded(entry))
            continue;
        m_hasMore = m_hits.size() == static_cast<std::size_t>(MostHits);
        if (m_hasMore)
            return;
        m_hits.push_back(entry);
    }
}

bool UnloadedSearch::IsLoaded(const UnloadedEntry& entry) const
{
    if (!entry.isWaypoint)
        return m_tree->FindByKey(TreeKey{'N', entry.number}) != 0 ||
               m_tree->FindByKey(TreeKey{'N', entry.number, entry.conId}) != 0;
    const TreeEntries::Index connection = m_tree->FindByKey(TreeKey{'C', entry.conId});
    return m_tree->ChildCount(connection) > 0 && connection != 0;
}

std::vector<UnloadedEntry> UnloadedSearch::TakeHits()
{
    std::sort(m_hits.begin(), m_hits.end(), StandsBefore);
    return std::exchange(m_hits, {});
}

Unloaded UnloadedBelowConnections(const TreeEntries& tree, bool viewNodes)
{
    const TreeEntries::Index root = tree.FindByKey(RootKey);
    for (auto entry = root == 0 ? 0 : tree.Child(root, 0); entry != 0; entry = tree.NextSibling(entry)) {
        // One that is open without children has none.
        const bool isRead = tree.ChildCount(entry) > 0 || tree.Expanded(entry);
        if (!isRead || tree.FindContinued(entry) != 0)
            return viewNodes ? Unloaded::NodesOfConnections : Unloaded::WaypointsOfConnections;
    }
    return Unloaded::Nothing;
}
