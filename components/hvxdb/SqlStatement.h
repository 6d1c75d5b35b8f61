#pragma once

#include <QSqlError>
#include <QVariantList>

#include <optional>

/// A statement of one connection, prepared when it runs for the first time and run any number of times.
///
/// Thread: that of the connection.
class SqlStatement
{
public:
    SqlStatement() = default;
    virtual ~SqlStatement() = default;
    SqlStatement(const SqlStatement&) = delete;
    SqlStatement& operator=(const SqlStatement&) = delete;

    /// Runs it with one value for each of its "?", in order; a null text is the empty text, a variant without
    /// a value the database's NULL. False: Failure tells why, and nothing is left to finish.
    [[nodiscard]] virtual bool Execute(const QVariantList& values) = 0;
    /// Goes to the first, then to the next row. False behind the last one, and when Failure tells why.
    [[nodiscard]] virtual bool Next() = 0;
    /// What the last Execute or Next ran into.
    [[nodiscard]] virtual std::optional<QSqlError> Failure() const = 0;

    /// A column of the row; null for NULL.
    [[nodiscard]] virtual QVariant Value(int column) const = 0;
    /// It is one that gives rows.
    [[nodiscard]] virtual bool HasColumns() const = 0;
    /// How many rows it changed, once all that it gives were read.
    [[nodiscard]] virtual int ChangedRows() const = 0;

    /// Lets the rows go that were not read.
    virtual void Finish() = 0;
    /// Lets go of what has to end before the connection does; it cannot run any more then.
    virtual void LetGo() {}
};
