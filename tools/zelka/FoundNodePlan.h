#pragma once

#include "scan/network/SaveList.h"

#include <vector>

class DatabaseSession;

/// What the database makes of the name that a found node is to get.
enum class NameStanding
{
    /// Nothing has it.
    New,
    /// It is that of the node at this address of the connection.
    Known,
    /// It is that of a node at another address of the connection.
    Elsewhere,
    /// Something else has it.
    Taken,
    /// No node can have it.
    Unusable,
};

/// A found node on its way into the database.
struct PlannedNode
{
    /// With the name that it is to get.
    ScanSaveRow row;
    QString identification;
    NameStanding standing = NameStanding::New;
    /// A node in the database has the name and could give way.
    bool replaceable = false;
    /// Why the name cannot simply be given.
    QString reason;
};

/// Finds how the names of nodes stand, in the database and among each other, for nodes of the connection
/// `conName`.
///
/// Of several nodes with one name it is that of the known one, else of the first. Raises CommandError:
/// DatabaseUnavailable, Interrupted.
void PlanFoundNodes(const DatabaseSession& session, const QString& conName, std::vector<PlannedNode>& nodes);
