#pragma once

#include "model/TreeEntries.h"

#include <QString>

/// Writes connections and nodes to the database and brings the trees into line with it in the same step.
///
/// An entry that the tree has already is renewed in place. A tree without a root has not been filled yet and
/// is left alone; the position is 0 then.
///
/// All run inside a transaction that the caller holds, on Gateway(), and commit nothing; the caller undoes
/// the trees together with the transaction (UnitOfWork does both). Names are trimmed here. `position` becomes
/// the handle of the record's entry. On False the database may be partly changed; `errorText` tells why where
/// the routine knows it.
/// Thread: the control's.

/// Renames (the names differ but for case) and retargets a connection. Tells the operator of a taken name.
bool SaveConnectionChanges(const QString& oldName, const QString& newName, const QString& target,
                           TreeEntries& tree, bool viewNodes, qint32& position);

bool SaveNewConnection(const QString& name, const QString& target, TreeEntries& tree, qint32& position,
                       bool viewNodes, QString& errorText);

/// Deletes the node `oldName` and saves it as `newName`. A manager index that does not exist is told and the
/// node saved without it. `commandLine`: "index|tail", or the tail alone.
bool SaveNodeChanges(const QString& oldName, const QString& newName, const QString& oldConName,
                     const QString& newConName, const QString& nodeType, const QString& commandLine,
                     const QString& target, TreeEntries& nodesTree, TreeEntries& conTree, qint32& position,
                     QString& errorText);

/// Saves the node without its manager index.
bool SaveNewNode(const QString& name, const QString& conName, const QString& nodeType,
                 const QString& commandLine, const QString& target, TreeEntries& nodesTree,
                 TreeEntries& conTree, qint32& position, QString& errorText);

/// Deletes a node in the database and in both trees. `selected`: the entry selected in `conTree`, 0 for none;
/// with `keepSelection` it is not looked at. The parent stays expanded as it was.
bool RemoveNodeEntry(const QString& nodeName, TreeEntries& conTree, TreeEntries& nodesTree,
                     bool keepSelection, TreeEntries::Index selected = 0);

/// Deletes a connection and its nodes in the database; the trees follow by the Journal.
bool RemoveConnection(const QString& name);
