#pragma once

#include "components/hvxdb/HvxEngine.h"
#include "components/hvxdb/SqlStatement.h"

/// The rows of one statement, read forward; the statement is let go at the end of this object's life.
///
/// At most one object may live per statement at a time.
class SqlRows
{
public:
    SqlRows(SqlStatement& statement, const HvxEngine& engine) : m_statement(&statement), m_engine(&engine) {}
    ~SqlRows() { m_statement->Finish(); }
    SqlRows(const SqlRows&) = delete;
    SqlRows& operator=(const SqlRows&) = delete;

    /// False behind the last row. Raises ComponentError.
    [[nodiscard]] bool Next();
    /// Null for NULL.
    [[nodiscard]] QVariant Value(int column) const { return m_statement->Value(column); }
    [[nodiscard]] bool IsNull(int column) const { return Value(column).isNull(); }
    /// Empty for NULL, whatever type the column has.
    [[nodiscard]] QString Text(int column) const { return Value(column).toString(); }
    [[nodiscard]] qint32 Number(int column) const { return Value(column).toInt(); }
    [[nodiscard]] qint64 LongNumber(int column) const { return Value(column).toLongLong(); }

private:
    SqlStatement* m_statement;
    const HvxEngine* m_engine;
};
