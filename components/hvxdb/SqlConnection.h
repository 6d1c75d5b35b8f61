#pragma once

#include "components/hvxdb/SqlRows.h"

#include <QSqlQuery>
#include <QVariantList>

#include <array>
#include <functional>
#include <memory>
#include <optional>

/// One connection to a database with its statements: prepared, kept and counted.
///
/// Thread: the one that connected. Failures: ComponentError with the engine's words.
class SqlConnection
{
public:
    SqlConnection() = default;
    virtual ~SqlConnection();
    SqlConnection(const SqlConnection&) = delete;
    SqlConnection& operator=(const SqlConnection&) = delete;

    /// How long a begin or a write waits for another program, in milliseconds; from the next Connect on.
    void SetBusyTimeout(int ms) { m_busyMs = ms; }
    /// Opens the source after the engine's checks. Raises ComponentError and is then not connected.
    void Connect(const QString& source);
    /// The same with a connection that the caller opens: for making a database.
    void Connect(std::unique_ptr<HvxEngine> engine, const std::function<void(QSqlDatabase&)>& open);
    /// Undoes what is open and lets the source go.
    virtual void Disconnect();
    [[nodiscard]] bool IsConnected() const { return m_engine != nullptr; }
    /// See HvxEngine::HasLostSource: nothing goes on here before the next Connect.
    [[nodiscard]] bool HasLostSource() const { return m_engine->HasLostSource(m_database); }

    [[nodiscard]] const HvxEngine& Engine() const { return *m_engine; }
    [[nodiscard]] const QSqlDatabase& Database() const { return m_database; }
    /// See HvxEngine::DataVersion.
    [[nodiscard]] std::optional<quint32> DataVersion() const { return m_engine->DataVersion(m_database); }

    /// Runs a statement for its rows.
    [[nodiscard]] SqlRows Read(HvxStatement statement, const QVariantList& values = {});
    /// Runs SQL that is not one of the component's statements for its rows; each goes to `take`.
    void ReadText(const QString& text, const std::function<void(const QSqlQuery&)>& take);
    /// The first column of the first row as a number; 0 without a row.
    [[nodiscard]] qint64 NumberOfText(const QString& text);
    /// Prepares SQL that changes rows, to be run many times; the query must not outlive the connection.
    [[nodiscard]] QSqlQuery PrepareText(const QString& text);
    /// Runs one statement as it stands, for what cannot be prepared.
    void RunUnprepared(const QString& text);

    /// Statements sent to the engine so far.
    [[nodiscard]] qint64 StatementCount() const { return m_statementCount; }

protected:
    [[nodiscard]] SqlStatement& Execute(HvxStatement statement, const QVariantList& values = {});
    QSqlQuery ExecuteText(const QString& text, const QVariantList& values);
    void ExecutePrepared(QSqlQuery& prepared, const QVariantList& values);
    void Run(SqlStatement& statement, const QVariantList& values = {});
    void CountStatement() { ++m_statementCount; }
    [[noreturn]] void Raise(const QSqlError& error);
    /// A statement has failed, which the caller is about to be told.
    virtual void TakeNoteOfFailure() {}

private:
    /// Raises Refused for a text that the engine cannot keep.
    void CheckValues(const QVariantList& values) const;

    std::unique_ptr<HvxEngine> m_engine;
    QSqlDatabase m_database;
    int m_busyMs = 2000;
    std::array<std::unique_ptr<SqlStatement>, static_cast<size_t>(HvxStatement::Count)> m_statements;
    qint64 m_statementCount = 0;
};
