#pragma once

#include <QString>

class DatabaseSession;

/// A connection or node as the database knows it.
struct FoundRecord
{
    bool isConnection = false;
    /// As it is stored, whatever case it was asked in.
    QString name;
    qint32 id = 0;
    /// The connection of a node; empty for a connection.
    QString conName;

    /// "connection" or "node".
    [[nodiscard]] QString Kind() const;
};

/// Finds records by name. All raise CommandError: Refused when there is none, DatabaseUnavailable when the
/// database cannot tell.

[[nodiscard]] FoundRecord FindConnection(const DatabaseSession& session, const QString& name);
[[nodiscard]] FoundRecord FindNode(const DatabaseSession& session, const QString& name);
/// A connection or a node; no two of them share a name.
[[nodiscard]] FoundRecord FindRecord(const DatabaseSession& session, const QString& name);
