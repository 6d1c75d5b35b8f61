#pragma once

#include <QString>

#include <functional>

class ConData;

/// What the dialog that saves a node of the Direct tab hands to the save beside the working copies.
struct DirectNodeSaveRequest
{
    /// Blanks at the ends are removed, also when the save is refused.
    QString name;
    /// Brings the values of the page that is shown into the working copy; runs inside the transaction.
    std::function<void()> storeValues;
};

/// Whether `newDirect` holds a connection that the database does not have yet: it is new and has a name.
[[nodiscard]] bool HoldsUnsavedConnection(const ConData& newDirect);

/// Saves the node of `direct` as new, or in place of one of the same name, over the connection that `direct`
/// names, in one transaction. The connection of `newDirect` is saved first where it is unsaved, and becomes
/// that of `direct`.
///
/// A connection of the database must be the one with ConDbID still. The trees that ConObject names are
/// patched and the saved entries selected in them. Afterwards NodeName, ConName, ConDbID, ConWpCount,
/// TargetString, NewNode and SelectedTreeNodeIndex of `direct` are those of the saved node, NodeDbID is as it
/// was, and `newDirect`, where its connection was saved, has no name and is not new. False: refused or
/// failed; the operator has been told, and flags, names, counts and ids of both are as they were. Asks before
/// it replaces. Thread: the control's.
[[nodiscard]] bool SaveDirectNode(ConData& direct, ConData& newDirect, DirectNodeSaveRequest& request);
