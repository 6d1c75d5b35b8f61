#pragma once

#include "components/hvxdb/SqlStatement.h"

#include <QByteArray>
#include <QString>

struct sqlite3;
struct sqlite3_stmt;

/// A statement that runs past the SQLite driver, whose account of columns, values and rows costs a short
/// statement more than its work does. It gives the same values, and tells failures as the driver does.
class SqliteStatement : public SqlStatement
{
public:
    /// `handle`: the driver's own; it stays open until LetGo or the end of this object.
    SqliteStatement(sqlite3* handle, const QString& text);
    ~SqliteStatement() override;

    [[nodiscard]] bool Execute(const QVariantList& values) override;
    [[nodiscard]] bool Next() override;
    [[nodiscard]] std::optional<QSqlError> Failure() const override { return m_failure; }
    [[nodiscard]] QVariant Value(int column) const override;
    [[nodiscard]] bool HasColumns() const override;
    [[nodiscard]] int ChangedRows() const override;
    void Finish() override;
    void LetGo() override;

private:
    enum class State
    {
        /// It can take values.
        Ready,
        /// On a row that Next has not given yet: a statement works only once it is asked for its first.
        BeforeFirstRow,
        OnRow,
        BehindLastRow,
    };

    [[nodiscard]] bool Prepare();
    [[nodiscard]] bool Bind(const QVariantList& values);
    [[nodiscard]] int BindValue(int position, const QVariant& value);
    /// Goes to the next row, if there is one. False: it failed.
    [[nodiscard]] bool Step(State onRow);
    void Fail(const QString& what);

    sqlite3* m_handle;
    QByteArray m_text;
    sqlite3_stmt* m_statement = nullptr;
    State m_state = State::Ready;
    std::optional<QSqlError> m_failure;
    /// Those that are bound; the statement reads their texts where they are.
    QVariantList m_values;
};
