#pragma once

#include <QHash>
#include <QString>

/// A connection as single-record reads need it.
struct ConnectionRow
{
    bool exists = false;
    qint32 id = 0;
    QString name;
    QString target;
};

/// A node manager; no index: none for that device.
struct ManagerRow
{
    QString index;
    QString path;
    QString commandText;
};

/// A node as single-record reads need it.
struct NodeRow
{
    bool exists = false;
    qint32 id = 0;
    QString name;
    QString conName;
    QString target;
    QString nodeType;
    QString commandTail;
    QString managerIndex;
};

/// The rows that one transaction has read; names that are not there too. Nobody else can change them while
/// the transaction is open; its own writes and its end clear them.
struct RecordCache
{
    QHash<QString, NodeRow> nodes;
    QHash<QString, ConnectionRow> connections;
    QHash<QString, ManagerRow> managers;

    void Clear()
    {
        nodes.clear();
        connections.clear();
        managers.clear();
    }
};
