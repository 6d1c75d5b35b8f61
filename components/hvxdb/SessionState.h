#pragma once

#include <QSqlQuery>
#include <QString>
#include <QVariant>

#include <optional>

/// What the rights of one user are.
struct UserRights
{
    bool mayScan = false;
    bool mayEdit = false;
    /// Who that is, as the database knows him.
    QString user;
};

/// What a transaction has to know at its begin.
struct SessionState
{
    qint32 definitionsVersion = 0;
    /// Token of who holds the maintenance lock; empty when nobody does.
    QString heldLock;
    /// Where the engine tells them with the rest.
    std::optional<UserRights> rights;

    /// From a row of HvxStatement::SessionState.
    static SessionState OfRow(const QSqlQuery& row)
    {
        SessionState state;
        state.definitionsVersion = row.value(0).toInt();
        state.heldLock = row.value(1).toString();
        if (!row.isNull(2))
            state.rights = UserRights{row.value(2).toBool(), row.value(3).toBool(), row.value(4).toString()};
        return state;
    }
};
