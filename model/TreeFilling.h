#pragma once

#include "model/ItemList.h"
#include "model/TreeEntries.h"

#include <QString>
#include <QStringView>

/// Fills, finds and patches the entries of a tree by what the database answers.
///
/// Thread: the control's. The routines that ask the database give False when a look-up fails; what was added
/// until then stays. A damaged list raises IndexError.

/// Relationship of a new entry: a child of the entry that it names.
inline constexpr int TreeChild = 4;

/// Key of the root of either tree.
inline const QString RootKey = QStringLiteral("R,0");

/// Whether a fill lets pending events run between its batches. None: while a transaction is open.
enum class Pumping
{
    Allowed,
    None,
};

// Keys, finding, patching ---------------------------------------------------------------------------------

[[nodiscard]] bool IsNodeKey(QStringView key);

/// The first entry in collection order with that text, ignoring case, that is a node or is not. False: none;
/// `entry` is 0 then.
bool FindTreeEntry(const QString& text, const TreeEntries& tree, TreeEntries::Index& entry, bool isNode);

/// The same for connections alone: a root or a waypoint of that text does not count.
bool FindConnectionEntry(const QString& name, const TreeEntries& tree, TreeEntries::Index& entry);

/// A tree without a root has not been shown yet and will be filled by what the database then holds.
[[nodiscard]] bool IsFilled(const TreeEntries& tree);

/// What stands in `tree` for a record that was saved under a new id: its old entry (0: none), renewed in
/// place without children so that the selection stays, or a new one under the root. 0 when it can be neither.
TreeEntries::Index RenewEntry(TreeEntries& tree, TreeEntries::Index old, const TreeKey& key,
                              const QString& text);
TreeEntries::Index RenewEntry(TreeEntries& tree, TreeEntries::Index old, const QString& key,
                              const QString& text);

/// Passes the continuation mark of a node, where it carries one, to the node that was loaded before it.
/// False: there is none; its connection has been emptied and closed then, so that it is read anew when it is
/// opened.
bool PassContinueMark(TreeEntries& tree, TreeEntries::Index entry);

/// Removes an entry with all below it, behind PassContinueMark; the parent stays expanded as it was. False:
/// there is no such entry.
bool RemoveEntry(TreeEntries& tree, TreeEntries::Index entry);

/// Removes the first entry of that text and kind in this way. False: there is none.
bool DeleteTreeEntry(const QString& text, TreeEntries& tree, bool isNode);
inline bool RemoveTreeEntry(const QString& text, TreeEntries& tree, bool isNode)
{
    return DeleteTreeEntry(text, tree, isNode);
}

/// The new entry; 0, and no message, when it cannot be added.
TreeEntries::Index AddTreeEntry(TreeEntries& tree, const QString& relativeKey, int relationship,
                                const QString& key, const QString& text);

/// Positive id behind the continuation mark of the first child that carries one; 0 when none does. `restore`
/// takes the mark off.
void FindContinueMark(TreeEntries& tree, TreeEntries::Index conEntry, qint32& position, bool restore);
inline void FixUnknownChildKey(TreeEntries& tree, TreeEntries::Index conEntry, qint32& id, bool rewrite)
{
    FindContinueMark(tree, conEntry, id, rewrite);
}

/// True when the short name of the connection's type holds the text, ignoring case. Asks the database.
[[nodiscard]] bool EntryTypeContains(const QString& searched, const TreeEntries& tree,
                                     TreeEntries::Index conEntry);

// Filling -------------------------------------------------------------------------------------------------

/// Adds rows of name and id under the root, each with the key `keyPrefix`, "," and the id. `addRoot` clears
/// the tree first, and sorts and expands the root at the end. Lets events run each 50 rows; when they clear
/// the tree, the fill ends.
void FillConnectionTree(const QString& rootText, const QString& keyPrefix, int count, const PairTable& items,
                        TreeEntries& tree, bool addRoot, Pumping pumping = Pumping::Allowed);

/// Both make the children of a connection what the list tells and expand it: children that stay keep their
/// handles, and with them selection and scroll position; others go. `conId` is field 2 of the connection's
/// key.

/// Waypoints, by the item list of the connection's target, in its order.
bool AddWaypointEntries(const QString& waypointList, TreeEntries& tree, TreeEntries::Index conEntry,
                        const QString& conId);

/// Nodes, by a pair list of names and ids, sorted. The list holds all of them: no continuation mark is left.
bool AddNodeEntries(const QString& nodeList, TreeEntries& tree, TreeEntries::Index conEntry,
                    const QString& conId);

/// Reads the children of a connection, nodes or waypoints, and brings the tree into line with them.
bool RefillConEntry(TreeEntries& tree, TreeEntries::Index conEntry, bool viewNodes);
inline bool FillChildEntries(TreeEntries& tree, TreeEntries::Index conEntry, bool viewNodes)
{
    return RefillConEntry(tree, conEntry, viewNodes);
}
