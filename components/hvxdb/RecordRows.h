#pragma once

#include <QString>

/// Rows of the database as single-record reads need them.

/// A connection.
struct ConnectionRow
{
    bool exists = false;
    qint32 id = 0;
    QString target;
};

/// A node manager; no index: none for that device.
struct ManagerRow
{
    QString index;
    QString path;
    QString commandText;
};

/// A node.
struct NodeRow
{
    bool exists = false;
    qint32 id = 0;
    QString conName;
    QString target;
    QString nodeType;
    QString commandTail;
    QString managerIndex;
};

/// One record of the Journal; type 0: there is no such record, or record 1 of a cleaned Journal.
struct JournalRecord
{
    qint32 recordType = 0;
    QString text1;
    qint32 number = 0;
    QString text2;
};
