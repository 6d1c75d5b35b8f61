#pragma once

#include "components/hvxdb/SqlSession.h"

/// The rights of users on a server: they are members of the database's roles, and the server holds them.
///
/// Failures: ComponentError.
class RightsRoles
{
public:
    explicit RightsRoles(SqlSession& session) : m_session(&session) {}

    /// Gives and takes the roles in the open transaction; whoever has a right set may read. The server
    /// refuses who may not give them. Refuses a user whom the server does not know, and everyone at once
    /// ("*").
    void Set(const QString& user, bool scan, bool edit);

private:
    [[nodiscard]] QString RoleThat(const QString& allows);
    void Change(const QString& allows, const QString& user, bool give);

    SqlSession* m_session;
};
