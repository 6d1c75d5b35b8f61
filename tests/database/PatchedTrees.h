#pragma once

#include "tests/support/CheckedTree.h"
#include "tests/support/GatewayFixture.h"

#include <QHash>
#include <QRandomGenerator>

/// Both trees of a control on a database in memory, what its operator does to them, and their patches from
/// the Journal; all chosen at random by a seed.
///
/// The trees may be behind the database until ShowJournal.
class PatchedTrees : public GatewayFixture
{
public:
    explicit PatchedTrees(quint32 seed);
    ~PatchedTrees();
    PatchedTrees(const PatchedTrees&) = delete;
    PatchedTrees& operator=(const PatchedTrees&) = delete;

    CheckedTree ConTree;
    CheckedTree NodesTree;
    QRandomGenerator Random;
    /// Connections show their nodes; else their waypoints.
    bool ViewNodes = true;
    /// The last record id when an entry's nodes were last read; nodes saved later are told by the Journal.
    QHash<TreeEntries::Index, qint32> ReadAt;
    /// The same for the root of the tree of nodes, and the last node that its load has come to; 0: all.
    qint32 NodesReadAt = 0;
    qint32 NodesPosition = 0;

    [[nodiscard]] TinyDatabase& Store() { return Component.Store; }
    /// Below `limit`.
    [[nodiscard]] int Draw(int limit) { return Random.bounded(limit); }
    [[nodiscard]] bool OneIn(int chances) { return Draw(chances) == 0; }

    /// One act of the operator: opens, closes, loads a part or more of it, changes the view.
    void Act();
    /// Loads both trees anew.
    void Reload();

    /// Applies what the Journal tells since the last time, in one batch or in several.
    void ShowJournal(bool inOne);
    /// Applies it and takes it back, as when the transaction of a refresh fails.
    void ShowJournalInVain();
    /// Records that ShowJournal would apply.
    [[nodiscard]] std::vector<TinyDatabase::JournalRecord> Pending() const;

    /// All that the trees hold, with handles.
    [[nodiscard]] QStringList Everything() const;

private:
    void FillConnections();
    void LoadNodes(bool more);
    void OpenConnection(TreeEntries::Index connection);
    void LoadNodesOf(TreeEntries::Index connection);
    void ToggleView();
    [[nodiscard]] TreeEntries::Index AnyConnection();
    void Apply(const std::vector<TinyDatabase::JournalRecord>& records, std::size_t first, std::size_t end);

    qint32 m_lastSeen = 1;
};
