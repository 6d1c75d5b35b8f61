#include "database/SaveRoutines.h"

#include "database/ConObjectTrees.h"
#include "database/Gateway.h"
#include "database/ManagerLaunch.h"
#include "model/TextHelpers.h"
#include "model/TreeFilling.h"
#include "platform/MsgBox.h"
#include "platform/Words.h"

namespace {

bool SameName(const QString& one, const QString& other)
{
    return one.compare(other, Qt::CaseInsensitive) == 0;
}

QString KeyOf(QChar kind, const QString& id)
{
    return kind + QStringLiteral(",") + Trim(id);
}

QString ConnectionIdMissing()
{
    return Words::tr("Database error, Connection ID missing.");
}

QString NodeIdMissing()
{
    return Words::tr("Database error, Node ID missing.");
}

/// The connection's entry, with its children. False: it cannot stand there, or they cannot be read.
bool PutConnection(TreeEntries& tree, TreeEntries::Index old, const QString& id, const QString& name,
                   bool viewNodes, qint32& position)
{
    TreeEntries::Index entry = 0;
    if (IsFilled(tree)) {
        entry = RenewEntry(tree, old, KeyOf(u'C', id), name);
        if (entry == 0 || !FillChildEntries(tree, entry, viewNodes))
            return false;
    }
    position = entry;
    return true;
}

/// The node's entry in the tree of nodes. False: it cannot stand there.
bool PutNode(TreeEntries& nodesTree, TreeEntries::Index old, const QString& id, const QString& name,
             qint32& position)
{
    position = IsFilled(nodesTree) ? RenewEntry(nodesTree, old, KeyOf(u'N', id), name) : 0;
    return position != 0 || !IsFilled(nodesTree);
}

/// A node under its connection gets its new key and name, so that the refill finds it there.
bool RenewUnderConnection(TreeEntries& conTree, TreeEntries::Index entry, TreeEntries::Index connection,
                          const QString& nodeId, const QString& name)
{
    if (conTree.Parent(entry) != connection)
        return false;
    const QString connectionId = GetItem(conTree.Key(connection), 2, u',');
    if (!conTree.SetKey(entry, KeyOf(u'N', nodeId) + u',' + connectionId))
        return false;
    conTree.SetText(entry, name);
    return true;
}

/// Brings the tree of connections into line with a changed node. `stays`: on its connection.
bool MoveUnderConnection(TreeEntries& conTree, const QString& oldName, const QString& newName,
                         const QString& nodeId, const QString& conName, bool stays)
{
    TreeEntries::Index entry = 0;
    const bool found = FindTreeEntry(oldName, conTree, entry, true);
    if (stays && !found)
        return true;
    TreeEntries::Index connection = 0;
    const bool refill = NodesAreShown() && FindConnectionEntry(conName, conTree, connection);
    if (found && !(refill && RenewUnderConnection(conTree, entry, connection, nodeId, newName)))
        RemoveEntry(conTree, entry);
    return refill ? FillChildEntries(conTree, connection, true) : !NodesAreShown();
}

/// The node's entry under its connection, whose nodes are filled in first where they never were.
bool FindUnderConnection(TreeEntries& conTree, const QString& name, const QString& conName,
                         TreeEntries::Index& entry)
{
    if (FindTreeEntry(name, conTree, entry, true))
        return true;
    TreeEntries::Index connection = 0;
    return FindConnectionEntry(conName, conTree, connection) && FillChildEntries(conTree, connection, true) &&
           FindTreeEntry(name, conTree, entry, true);
}

/// Deletes and saves the record of a node. On False `errorText` tells why.
bool ReplaceNodeRecord(const QString& oldName, const QString& newName, const QString& conName,
                       const QString& nodeType, const QString& commandLine, const QString& target,
                       QString& errorText)
{
    if (!Gateway().DeleteNodeFromBrowserDb(oldName)) {
        errorText = Words::tr("Node %1 not found from database.").arg(oldName);
        return false;
    }
    if (!Gateway().SaveNodeDb(newName, nodeType, target, conName, ManagerTailOf(commandLine))) {
        errorText = Words::tr("Failure in saving node %1 into database.").arg(newName);
        return false;
    }
    const QString index = ManagerIndexOf(commandLine);
    if (!index.isEmpty() && !Gateway().UpdateNodeNmaidxDb(newName, index))
        MsgBox(Words::tr("Manager index doesn't exist."), BoxFlags::Exclamation);
    return true;
}

} // namespace

// Connections ---------------------------------------------------------------------------------------------

bool SaveConnectionChanges(const QString& oldName, const QString& newName, const QString& target,
                           TreeEntries& tree, bool viewNodes, qint32& position)
{
    const QString before = Trim(oldName);
    const QString name = Trim(newName);
    if (!SameName(before, name)) {
        bool exists = false;
        if (!Gateway().ConNameExistDb(name, exists))
            return false;
        if (exists) {
            MsgBox(Words::tr("Connection %1 already exists. Give a new name.").arg(name));
            return false;
        }
        if (!Gateway().ReplaceParentNameDb(before, name))
            return false;
    }
    TreeEntries::Index entry = 0;
    if (!Gateway().ReplaceParentTargetDb(name, target) ||
        (!FindConnectionEntry(before, tree, entry) && IsFilled(tree)))
        return false;
    QString id;
    if (!Gateway().GetParentIDDb(name, id)) {
        MsgBox(ConnectionIdMissing());
        return false;
    }
    return PutConnection(tree, entry, id, name, viewNodes, position);
}

bool SaveNewConnection(const QString& name, const QString& target, TreeEntries& tree, qint32& position,
                       bool viewNodes, QString& errorText)
{
    const QString trimmed = Trim(name);
    const auto refuse = [&errorText](const QString& why) {
        errorText = why;
        return false;
    };
    errorText.clear();
    if (trimmed.isEmpty())
        return refuse(Words::tr("Error: Connection name is empty."));
    bool exists = false;
    if (!Gateway().ConNameExistDb(trimmed, exists))
        return refuse(Words::tr("Error: Database search error."));
    if (exists)
        return refuse(Words::tr("Error: Connection name %1 alredy exists in database.").arg(trimmed));
    if (!Gateway().SaveParentDb(trimmed, target))
        return refuse(Words::tr("Database error, failure in SaveParent."));
    QString id;
    if (!Gateway().GetParentIDDb(trimmed, id))
        return refuse(ConnectionIdMissing());
    return PutConnection(tree, 0, id, trimmed, viewNodes, position);
}

bool RemoveConnection(const QString& name)
{
    QString deleted = name;
    return Gateway().DeleteConnectionDb(deleted);
}

// Nodes ---------------------------------------------------------------------------------------------------

bool SaveNodeChanges(const QString& oldName, const QString& newName, const QString& oldConName,
                     const QString& newConName, const QString& nodeType, const QString& commandLine,
                     const QString& target, TreeEntries& nodesTree, TreeEntries& conTree, qint32& position,
                     QString& errorText)
{
    const QString before = Trim(oldName);
    const QString name = Trim(newName);
    const QString conName = Trim(newConName);
    const bool stays = SameName(Trim(oldConName), conName);
    errorText.clear();
    if (!ReplaceNodeRecord(before, name, conName, Trim(nodeType), commandLine, Trim(target), errorText))
        return false;

    QString id;
    if (!Gateway().GetNodeIDDb(name, id)) {
        errorText = NodeIdMissing();
        return false;
    }
    TreeEntries::Index old = 0;
    FindTreeEntry(before, nodesTree, old, true);
    TreeEntries::Index entry = 0;
    if (!PutNode(nodesTree, old, id, name, entry))
        return false;
    if (IsFilled(conTree) && !MoveUnderConnection(conTree, before, name, id, conName, stays))
        return false;
    if (NodesAreSelectedUnderConnections() && !FindUnderConnection(conTree, name, conName, entry) &&
        IsFilled(conTree))
        return false;
    position = entry;
    return true;
}

bool SaveNewNode(const QString& name, const QString& conName, const QString& nodeType,
                 const QString& commandLine, const QString& target, TreeEntries& nodesTree,
                 TreeEntries& conTree, qint32& position, QString& errorText)
{
    const QString trimmed = Trim(name);
    const QString connection = Trim(conName);
    errorText.clear();
    if (trimmed.isEmpty()) {
        errorText = Words::tr("Node name is empty.");
        return false;
    }
    bool exists = false;
    if (!Gateway().NodeNameExistDb(trimmed, exists))
        return false;
    if (exists) {
        errorText = Words::tr("Node %1 already exists. Give a new name.").arg(trimmed);
        return false;
    }
    if (!Gateway().SaveNodeDb(trimmed, nodeType, target, connection, ManagerTailOf(commandLine)))
        return false;
    QString id;
    if (!Gateway().GetNodeIDDb(trimmed, id)) {
        errorText = NodeIdMissing();
        return false;
    }
    TreeEntries::Index entry = 0;
    if (!PutNode(nodesTree, 0, id, trimmed, entry))
        return false;
    TreeEntries::Index conEntry = 0;
    if (NodesAreShown() && FindConnectionEntry(connection, conTree, conEntry) &&
        !FillChildEntries(conTree, conEntry, true))
        return false;
    if (NodesAreSelectedUnderConnections())
        FindTreeEntry(trimmed, conTree, entry, true);
    position = entry;
    return true;
}

bool RemoveNodeEntry(const QString& nodeName, TreeEntries& conTree, TreeEntries& nodesTree,
                     bool keepSelection, TreeEntries::Index selected)
{
    const QString name = Trim(nodeName);
    DeleteTreeEntry(name, nodesTree, true);
    if (!Gateway().DeleteNodeDb(name))
        return false;
    TreeEntries::Index entry = selected;
    const bool selectedIsTheNode =
        !keepSelection && selected != 0 && IsNodeKey(conTree.Key(selected)) && conTree.Text(selected) == name;
    if (!selectedIsTheNode && !FindTreeEntry(name, conTree, entry, true))
        return true;
    RemoveEntry(conTree, entry);
    return true;
}
