#include "database/NodeTargetSaving.h"

#include "database/ConObjectTrees.h"
#include "database/Gateway.h"
#include "database/NodeSaveSteps.h"
#include "database/SaveRoutines.h"
#include "model/ConData.h"
#include "model/ModelState.h"
#include "model/TextHelpers.h"
#include "model/TreeFilling.h"
#include "platform/MsgBox.h"
#include "platform/Words.h"

namespace {

/// Rows of the first waypoint of a NET4 node.
constexpr int AddressRow = 1;
constexpr int TimeRow = 5;
constexpr int RetryRow = 6;
constexpr int ValueColumn = 2;

/// The connection's entry where it shows all its nodes; 0 otherwise.
TreeEntries::Index EntryThatShowsItsNodes(const TreeEntries& tree, const QString& conName)
{
    TreeEntries::Index entry = 0;
    if (!NodesAreShown() || !FindConnectionEntry(conName, tree, entry) || tree.ChildCount(entry) == 0)
        return 0;
    const bool areNodes = tree.Kind(tree.Child(entry, 0)) == u'N';
    return areNodes && tree.Sorted(entry) && tree.FindContinued(entry) == 0 ? entry : 0;
}

/// Puts a saved node where it belongs among the nodes of its connection; 0: it cannot stand there.
TreeEntries::Index PutAmongShown(TreeEntries& tree, TreeEntries::Index connection, const QString& id,
                                 const QString& name)
{
    const QString key = QStringLiteral("N,%1,%2").arg(id).arg(tree.Id(connection));
    TreeEntries::Index old = 0;
    if (FindTreeEntry(name, tree, old, true)) {
        if (tree.Parent(old) == connection) {
            tree.SetText(old, name);
            return tree.SetKey(old, key) ? old : 0;
        }
        RemoveEntry(tree, old);
    }
    return tree.Add(connection, key, name);
}

bool SaveRecord(const ConData& con, TreeEntries& nodesTree, TreeEntries& conTree, qint32& position)
{
    QString errorText;
    return con.NewNode
               ? SaveNewNodeWithManager(con, con.NodeName, con.ConName, nodesTree, conTree, position,
                                        errorText)
               : SaveNodeChanges(con.NodeName, con.NodeName, con.ConName, con.ConName, con.NodeType,
                                 con.CommandLine, con.TargetString, nodesTree, conTree, position, errorText);
}

/// Saves the record without reading all nodes of the connection for each, as a run of thousands would: under
/// a connection that shows them the one node gets into line, and the others follow by the Journal.
bool SaveAmongShown(const ConData& con, ConObjectTrees& trees, TreeEntries::Index connection,
                    qint32& position)
{
    QString id;
    const QString name = Trim(con.NodeName);
    if (!SaveRecord(con, trees.Nodes(), ConObjectTrees::None(), position) || !Gateway().GetNodeIDDb(name, id))
        return false;
    const TreeEntries::Index entry = PutAmongShown(trees.Connections(), connection, id, name);
    if (entry != 0 && NodesAreSelectedUnderConnections())
        position = entry;
    return entry != 0;
}

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
        MsgBox(Words::tr("No saving, because of an error in waypoint parameters or mandatory waypoint "
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
    const TreeEntries::Index shown = EntryThatShowsItsNodes(trees.Connections(), con.ConName);
    const bool saved = shown != 0 ? SaveAmongShown(con, trees, shown, position)
                                  : SaveRecord(con, trees.Nodes(), trees.Connections(), position);
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
