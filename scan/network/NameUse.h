#pragma once

#include <QString>

struct ScanSaveRow;

/// To what the database has given the name of a found node.
enum class NameUse : qint8
{
    /// To nothing: the node would be new.
    Free,
    /// To the node at this address of the connection.
    SameNode,
    /// To a node at another address of the connection.
    NodeElsewhere,
    /// To another connection's node, or to one without an address.
    OtherNode,
    Connection,
};

struct NameFinding
{
    NameUse use = NameUse::Free;
    /// Of the node that has the name.
    QString conName;
    QString address;
};

/// Looks a row's name up for a node of the connection `conName`. False: the database cannot be asked, the
/// operator has been told unless there is no session.
[[nodiscard]] bool FindNameUse(const QString& conName, const ScanSaveRow& row, NameFinding& finding);
