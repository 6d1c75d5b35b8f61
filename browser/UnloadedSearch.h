#pragma once

#include "model/TreeEntries.h"

#include <QPointer>
#include <QString>

#include <vector>

/// One entry that the database has and a tree has not.
struct UnloadedEntry
{
    QString text;
    /// Of a node its id, of a waypoint its number from 1 within the target.
    qint32 number = 0;
    bool isWaypoint = false;
    QString conName;
    qint32 conId = 0;
};

/// What a tree may have left in the database.
enum class Unloaded
{
    Nothing,
    /// Nodes that Load More would bring.
    Nodes,
    /// Nodes and waypoints below connections that were not opened, or not to the end.
    NodesOfConnections,
    WaypointsOfConnections,
};

/// Looks in the database for what a tree has not loaded and whose text contains a text, in steps.
///
/// Thread: the control's. A step blocks for one call of the gateway, which tells the operator when it fails.
class UnloadedSearch
{
public:
    /// Behind so many hits the search ends.
    static constexpr int MostHits = 1000;

    UnloadedSearch(const TreeEntries& tree, Unloaded kind, const QString& searched);

    /// One step. False: it was the last one.
    [[nodiscard]] bool Next();
    /// The last step could not be made.
    [[nodiscard]] bool Failed() const { return m_failed; }
    /// There are more hits than MostHits.
    [[nodiscard]] bool HasMore() const { return m_hasMore; }
    /// What was found so far, by connection.
    [[nodiscard]] std::vector<UnloadedEntry> TakeHits();

private:
    [[nodiscard]] bool IsLoaded(const UnloadedEntry& entry) const;
    void TakeAnswer(const QString& list);

    QPointer<const TreeEntries> m_tree;
    Unloaded m_kind;
    QString m_searched;
    qint32 m_position = 0;
    std::vector<UnloadedEntry> m_hits;
    bool m_failed = false;
    bool m_hasMore = false;
};

/// What the tree of the connection view has left in the database, given what its connections show.
[[nodiscard]] Unloaded UnloadedBelowConnections(const TreeEntries& tree, bool viewNodes);
