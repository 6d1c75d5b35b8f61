#pragma once

#include "components/hvxdb/DatabaseFiller.h"
#include "components/hvxdb/PostgresSource.h"
#include "components/hvxdb/SqlSession.h"

/// Makes a database on a server: whole or not at all.
///
/// A database that the server does not have is created; one without our tables is filled. Tables that stand
/// there already are kept in a schema of their own, under a name with the time. Failures: ComponentError.
class ServerDatabaseMaker
{
public:
    explicit ServerDatabaseMaker(const QString& source) : m_source(source) {}

    /// Gives the name of the schema under which old tables were kept; empty when there were none. Refuses a
    /// database with tables unless `force`.
    QString Make(const DatabaseFiller& fill, bool force);

private:
    void Connect(SqlSession& session, const PostgresSource& source) const;
    /// The name of the database, as the server would take it from the address.
    [[nodiscard]] QString DatabaseName() const;
    void CreateDatabase() const;
    void DropDatabase() const;
    [[nodiscard]] QString Fill(SqlSession& session, const DatabaseFiller& fill, bool force) const;
    [[nodiscard]] QString KeepOld(SqlSession& session, bool force) const;
    static void CheckServer(SqlSession& session);

    PostgresSource m_source;
};
