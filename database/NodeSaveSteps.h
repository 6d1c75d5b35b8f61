#pragma once

#include "model/TreeEntries.h"

#include <QString>

class ConData;
class UnitOfWork;
class WpData;

/// Steps that the saves of a node share, inside the unit of work of one save.
///
/// A step that refuses rolls back, tells why and ends the work. Thread: the control's.

/// Removes the blanks at the ends of a name. Refuses an empty one.
void TakeNodeName(UnitOfWork& unit, QString& name);

/// Refuses a waypoint in which a mandatory parameter, or a member of a group, is without a value.
void RequireMandatoryValues(UnitOfWork& unit, const WpData& waypoint);

/// Refuses the name of a connection.
void RefuseNameOfConnection(UnitOfWork& unit, const QString& name);

/// Composes the target over the node's waypoints, whose count becomes ConWpCount.
void ComposeNodeTarget(UnitOfWork& unit, ConData& con);

/// Whether the database has a node of that name.
[[nodiscard]] bool NodeExists(UnitOfWork& unit, const QString& name);

/// Asks, without a transaction, whether the node of that name may be replaced, and goes on in a new one.
/// Cancel ends the work. Gives the id of the node that the operator was asked about.
[[nodiscard]] qint32 AskToReplaceNode(UnitOfWork& unit, const QString& name);

/// Refuses when the node of that name is not the one with that id any more.
void RequireUnchangedNode(UnitOfWork& unit, const QString& name, qint32 id);

/// SaveNewNode with the device, the command line, the target and the trees of `con`, whose manager is kept
/// too; a manager that does not exist is told and the node saved without it.
[[nodiscard]] bool SaveNewNodeWithManager(const ConData& con, const QString& name, const QString& conName,
                                          TreeEntries& nodesTree, TreeEntries& conTree, qint32& position,
                                          QString& errorText);

/// The entry of a node that was saved; 0: none. Where the tree has not followed another application yet, a
/// stale one of the same name stands there too: ids only rise.
[[nodiscard]] TreeEntries::Index NewestNodeEntry(const TreeEntries& tree, const QString& name);
