#pragma once

#include <QByteArray>
#include <QString>

#include <sqlite3.h>

/// The SQLite C API with the least that can be put around it: the bare side of the comparisons.
class BareDatabase
{
public:
    /// Ends the program with a message when the file cannot be opened.
    explicit BareDatabase(const QString& file);
    ~BareDatabase();
    BareDatabase(const BareDatabase&) = delete;
    BareDatabase& operator=(const BareDatabase&) = delete;

    void Execute(const char* sql);
    /// A prepared statement, owned by the caller, to be finalised before the database closes.
    [[nodiscard]] sqlite3_stmt* Prepare(const QByteArray& sql);
    /// Runs a statement that gives no rows and resets it.
    void Step(sqlite3_stmt* statement);

private:
    [[noreturn]] void Fail() const;

    sqlite3* m_database = nullptr;
};

/// Binds a text; the statement keeps a copy.
inline void BindText(sqlite3_stmt* statement, int position, const QString& text)
{
    sqlite3_bind_text16(statement, position, text.utf16(), static_cast<int>(text.size() * 2),
                        SQLITE_TRANSIENT);
}

/// A column as a QString.
inline QString ColumnText(sqlite3_stmt* statement, int column)
{
    const void* text = sqlite3_column_text16(statement, column);
    return QString(static_cast<const QChar*>(text), sqlite3_column_bytes16(statement, column) / 2);
}
