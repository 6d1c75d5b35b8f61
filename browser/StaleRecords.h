#pragma once

#include "model/TreeEntries.h"

#include <QString>

/// Compares what the operator sees with what the database holds. Every write gives a record a new id, so an
/// id that differs, or is gone, tells of a change by another application.
///
/// Nothing is shown here: the caller ends its transaction first. Thread: the control's.

/// Why a record cannot be worked on, in the operator's words.
struct StaleRecord
{
    QString text;
    /// The trees are to be brought up to date.
    bool refreshFollows = false;
};

/// "Connection " or "Node ", the name, and that it was changed by another application.
[[nodiscard]] QString ConnectionChangedText(const QString& name);
[[nodiscard]] QString NodeChangedText(const QString& name);

/// `hasId`: the entry's key holds an id. `changed`: it is not, or no longer, that of the record named so.
void ConEntryChanged(const TreeEntries& tree, TreeEntries::Index entry, bool& hasId, bool& changed);
void NodeEntryChanged(const TreeEntries& tree, TreeEntries::Index entry, bool& hasId, bool& changed);

/// The id in an entry's key is that of its record.
[[nodiscard]] bool ConnectionIsCurrent(const TreeEntries& tree, TreeEntries::Index entry);
[[nodiscard]] bool NodeIsCurrent(const TreeEntries& tree, TreeEntries::Index entry);

/// The same for a command. False: `stale` tells why.
[[nodiscard]] bool CheckConEntry(const TreeEntries& tree, TreeEntries::Index entry, StaleRecord& stale);
[[nodiscard]] bool CheckNodeEntry(const TreeEntries& tree, TreeEntries::Index entry, StaleRecord& stale);

/// The same for a record of which the name and the id are known.
[[nodiscard]] bool CheckConName(const QString& name, qint32 id, StaleRecord& stale);
[[nodiscard]] bool CheckNodeName(const QString& name, qint32 id, StaleRecord& stale);
