#pragma once

#include <QString>

#include <functional>

class ConData;
class ParameterGrid;

/// What the node dialog hands to the save beside the working copy.
struct NodeSaveRequest
{
    /// Blanks at the ends are removed, also when the save is refused.
    QString name;
    /// The connection over which the node is to be reached.
    QString conName;
    /// Brings the values of the page that is shown into the working copy; runs inside the transaction.
    std::function<void()> storeValues;
    /// The page that is shown and its rows, for the check of its values.
    ParameterGrid& grid;
    int rowCount = 0;
};

/// Saves the node of a working copy: as new, in place of one of the same name, or as a change of the stored
/// one, in one transaction, guarded against changes by other applications since it was loaded.
///
/// `con` says what it was (NodeName, NodeDbID, ConName; the id of a node that was never stored is 0) and
/// which page is shown. Its trees, both of which must be set, are patched; NodeName, NodeDbID, NewNode and
/// SelectedTreeNodeIndex follow. False: refused or failed; the operator has been told, and `con`'s flags,
/// names and counts are as they were. Asks before it replaces. Thread: the control's.
[[nodiscard]] bool SaveNode(ConData& con, NodeSaveRequest& request);

/// The name that no node may have, in any case of letters.
[[nodiscard]] bool IsReservedNodeName(const QString& name);
