#pragma once

#include <QString>

#include <vector>

class ConData;
struct ScanSaveRow;

/// Brings found nodes under the connection through which they were found.

/// What a scan tells of a node.
struct FoundNode
{
    QString address;
    QString type;
    QString identification;
};

/// The type as which all found nodes are saved becomes the node type of `direct`, its id NodeDbID. False: it
/// is not known, NodeDbID is 0; the operator has been told.
bool TakeFoundNodeType(ConData& direct);
/// The same and loads the type's empty tables in the place of the connection's, as the saves need them.
/// False: that failed, the operator has been told.
[[nodiscard]] bool LoadFoundNodeType(ConData& direct);

/// Rows for the nodes up to the first one without an address. Blanks at the ends of all texts are removed;
/// the names are the identifications.
[[nodiscard]] std::vector<ScanSaveRow> FoundNodeRows(const std::vector<FoundNode>& nodes,
                                                     const QString& retries, const QString& timeOut);

/// What the operator is told when another application has changed the connection of that name.
[[nodiscard]] QString ScannedConnectionChanged(const QString& name);

/// How the save of one node ended.
enum class FoundNodeOutcome : qint8
{
    Saved,
    /// It exists and may not be replaced, or it cannot be saved; nothing was written. Others may be saved.
    NotSaved,
    /// There was no transaction; others may be saved later.
    Denied,
    /// The connection is gone or another one; NewDirectObject has its name, so that the next save begins with
    /// the connection.
    ConnectionChanged,
    /// It was rolled back, or that failed too.
    Failed,
};

/// Saves one node as a node of `direct`, whose tables are those of LoadFoundNodeType and whose connection is
/// unchanged in the database, in one transaction. ConObject's trees are patched.
///
/// But for a node that exists and may not be replaced, the operator has been told why it was not saved; the
/// flags, names and counts of `direct` are then as they were. Thread: the control's.
[[nodiscard]] FoundNodeOutcome SaveFoundNode(ConData& direct, ConData& newDirect, const ScanSaveRow& row,
                                             bool mayReplace);
