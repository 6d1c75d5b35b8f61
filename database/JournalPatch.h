#pragma once

#include "model/TreeEntries.h"
#include "model/TreeName.h"

#include <QHash>
#include <QString>

#include <vector>

/// What the records of the Journal tell of, as the trees act on it; any other record says nothing to them.
inline constexpr qint32 JOURNAL_DELETENODE_ID = 20;
inline constexpr qint32 JOURNAL_DELETEPARENT_ID = 21;
/// New and changed.
inline constexpr qint32 JOURNAL_SAVENODE_ID[] = {30, 40};
inline constexpr qint32 JOURNAL_SAVEPARENT_ID[] = {31, 41};

/// Brings the two trees of a control into line with what the Journal tells.
///
/// What counts is how the records leave each name: an entry whose record was saved again is renewed in place,
/// so that selection, scroll position and what is expanded elsewhere stay; what a tree shows already stays as
/// it is, with its children. So records may be given twice, and those of one's own saves too. A saved
/// connection is closed, its children are read anew when it is opened. A saved node stands below its
/// connection only while that is expanded and nodes are shown; a closed one that has nodes loses them, since
/// they are not all of them any more. A tree without a root is left alone.
///
/// Runs inside the transaction in which the records are read, on Gateway(); a node that cannot be read is
/// left out of its connection. Thread: the control's. Cost: that of the records, whatever the size of the
/// trees.
class JournalPatch
{
public:
    /// The trees must outlive it. `viewNodes`: connections show their nodes, not their waypoints.
    JournalPatch(TreeEntries& conTree, TreeEntries& nodesTree, bool viewNodes);

    /// The next record, in the Journal's order. Reads a saved node; the trees stay as they are until Finish.
    void Apply(qint32 operation, const QString& name, qint32 objectId);
    /// Changes the trees by the records given since the last Finish.
    void Finish();

private:
    /// How the records leave a name.
    struct Outcome
    {
        TreeName name;
        /// Of the saved record; 0: it was deleted.
        qint32 id = 0;
        /// Of a saved node; empty: it could not be read.
        QString conName;
    };
    /// In the order in which the names came first.
    struct Outcomes
    {
        std::vector<Outcome> list;
        QHash<TreeName, size_t> byName;

        void Set(Outcome outcome);
    };
    using Entry = TreeEntries::Index;

    static void Remove(TreeEntries& tree, const TreeName& name, QChar kind);
    static void PutUnderRoot(TreeEntries& tree, const Outcome& outcome, char kind);
    void PutUnderConnection(const Outcome& node);
    void FetchNodes(size_t from) const;
    [[nodiscard]] Entry ConnectionOf(const Outcome& node) const;

    TreeEntries& m_conTree;
    TreeEntries& m_nodesTree;
    bool m_viewNodes;
    Outcomes m_connections;
    Outcomes m_nodes;
};
