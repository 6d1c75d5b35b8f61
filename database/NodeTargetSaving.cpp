#include "database/NodeTargetSaving.h"

#include "database/ConObjectTrees.h"
#include "database/Gateway.h"
#include "database/NodeSaveSteps.h"
#include "database/SaveRoutines.h"
#include "model/ConData.h"
#include "model/ModelState.h"
#include "platform/MsgBox.h"

namespace {

/// Rows of the first waypoint of a NET4 node.
constexpr int AddressRow = 1;
constexpr int TimeRow = 5;
constexpr int RetryRow = 6;
constexpr int ValueColumn = 2;

/// Selects the entry in the tree that the operator sees, unless that one hides nodes.
void SelectSaved(ConObjectTrees& trees, qint32 position)
{
    const ConData* con = Model().ConObject.get();
    const bool connections = con && con->optCon;
    if (connections && !con->ViewNodesChecked)
        return;
    ConObjectTrees::Select(connections ? trees.Connections() : trees.Nodes(), position);
}

} // namespace

bool SaveNodeWithTarget(ConData& con, const QString& nodeName, bool mayReplace)
{
    con.NodeName = nodeName;
    if (!con.SetTargetString(true)) {
        MsgBox(QStringLiteral("No saving, because of an error in waypoint parameters or mandatory waypoint "
                              "is missing all its parameters."));
        return false;
    }
    bool exists = false;
    if (!Gateway().NodeNameExistDb(con.NodeName, exists))
        return false;
    con.NewNode = !exists;
    if (exists && !mayReplace)
        return false;

    ConObjectTrees trees;
    qint32 position = 0;
    QString errorText;
    const bool saved = con.NewNode ? SaveNewNodeWithManager(con, con.NodeName, con.ConName, trees.Nodes(),
                                                            trees.Connections(), position, errorText)
                                   : SaveNodeChanges(con.NodeName, con.NodeName, con.ConName, con.ConName,
                                                     con.NodeType, con.CommandLine, con.TargetString,
                                                     trees.Nodes(), trees.Connections(), position, errorText);
    if (!saved)
        return false;
    SelectSaved(trees, position);
    return true;
}

void PutNodeValues(ConData& con)
{
    con.SetWpDataItem(1, AddressRow, ValueColumn, con.NodeAddress);
    con.SetWpDataItem(1, TimeRow, ValueColumn, con.Time);
    con.SetWpDataItem(1, RetryRow, ValueColumn, con.Retry);
}

bool SaveNodeWithValues(ConData& con, bool mayReplace, const QString& nodeName, const QString& unread,
                        const QString& address, const QString& retry, const QString& time)
{
    Q_UNUSED(unread)
    con.NodeAddress = address;
    con.Time = time;
    con.Retry = retry;
    PutNodeValues(con);
    con.ConWpCount = 1;
    return SaveNodeWithTarget(con, nodeName, mayReplace);
}
