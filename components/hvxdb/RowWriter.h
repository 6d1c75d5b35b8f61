#pragma once

#include "components/hvxdb/CopiedTable.h"
#include "components/hvxdb/SqlSession.h"

/// Stores rows of one table as they are, many with one statement.
///
/// The session and the table outlive it. Failures: ComponentError.
class RowWriter
{
public:
    /// Rows of one statement: a server answers each only after a round trip.
    static constexpr int RowsAtOnce = 128;

    RowWriter(SqlSession& session, const CopiedTable& table) : m_session(&session), m_table(&table) {}

    /// Takes the current row, whose columns are those of the table; it is stored with others.
    void Add(const QSqlQuery& row);
    /// Stores the rows that are left.
    void Finish();
    /// Rows taken so far.
    [[nodiscard]] qint64 Count() const { return m_count; }

private:
    SqlSession* m_session;
    const CopiedTable* m_table;
    std::optional<QSqlQuery> m_statement;
    QVariantList m_values;
    qint64 m_count = 0;
};
