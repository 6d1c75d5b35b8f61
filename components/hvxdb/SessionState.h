#pragma once

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

    /// From a row of HvxStatement::SessionState, whose columns `value` gives.
    template <typename ValueOfColumn>
    static SessionState OfRow(const ValueOfColumn& value)
    {
        SessionState state;
        state.definitionsVersion = value(0).toInt();
        state.heldLock = value(1).toString();
        if (!value(2).isNull())
            state.rights = UserRights{value(2).toBool(), value(3).toBool(), value(4).toString()};
        return state;
    }
};
