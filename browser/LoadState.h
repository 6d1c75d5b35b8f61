#pragma once

#include "model/TreeEntries.h"

#include <QDateTime>
#include <QString>

/// What a record of the Journal said when the trees had followed the Journal up to it.
struct SeenRecord
{
    /// 0: none has been read.
    qint32 id = 0;
    qint32 operation = 0;
    QString name;
    qint32 objectId = 0;

    bool operator==(const SeenRecord&) const = default;
};

/// The module-level state of tree loading: what a caller sets before it shows a progress form, and where a
/// load that was cut short goes on. One instance in the process, shared by all controls.
struct LoadState
{
    /// Rows of one answer that the first load adds, and those that each later one adds.
    static constexpr qint32 FirstLimit = 5000;
    static constexpr qint32 LaterLimit = 32000;
    /// Asks for one row more than the first load adds, so that the answer tells whether more follow.
    static constexpr qint32 FirstLimitedPosition = -(FirstLimit + 1);

    /// Tree to fill; not owned, null outside a load.
    TreeEntries* LoadTree = nullptr;
    /// Clear the tree and add its root first.
    bool LoadAddRoot = false;
    /// Text of the root.
    QString LoadRootKey;
    /// First field of the keys of new nodes.
    QString LoadKeySuffix;
    /// Entry under which the form adds; 0: none.
    TreeEntries::Index LoadParentNode = 0;
    /// Position of the next query of nodes; 0: nothing more.
    qint32 LoadMoreId = 0;
    qint32 LoadLimit = FirstLimit;
    /// Nodes in the database, as counted before the load.
    qint32 NodeCount = 0;
    /// An error ended the last load before all its rows were in.
    bool LoadFailed = false;
    /// Id of the last Journal record seen.
    qint32 JournalLastId = 1;
    /// That record, once it was read; one of another id tells nothing.
    SeenRecord JournalLastRecord;
    /// The trees miss what a load could not read: the next refresh loads them anew, whatever the Journal
    /// tells.
    bool ReloadDue = false;
    /// When the trees were last known to be what the database holds; invalid: never.
    QDateTime AsOf;
    /// The last attempt to bring them there failed.
    bool Outdated = false;
};

/// The one instance.
LoadState& Load();
