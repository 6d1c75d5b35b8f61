#pragma once

#include "components/hvxdb/HvxEngine.h"
#include "components/hvxdb/SessionState.h"

#include <QSqlQuery>
#include <QVariantList>

#include <array>
#include <functional>
#include <map>
#include <optional>
#include <vector>

/// The rows of one statement, read forward; the statement is let go at the end of this object's life.
///
/// At most one object may live per statement at a time.
class SqlRows
{
public:
    SqlRows(QSqlQuery& query, const HvxEngine& engine) : m_query(&query), m_engine(&engine) {}
    ~SqlRows() { m_query->finish(); }
    SqlRows(const SqlRows&) = delete;
    SqlRows& operator=(const SqlRows&) = delete;

    /// False behind the last row. Raises ComponentError.
    [[nodiscard]] bool Next();
    [[nodiscard]] bool IsNull(int column) const { return m_query->isNull(column); }
    /// Empty for NULL, whatever type the column has.
    [[nodiscard]] QString Text(int column) const
    {
        const QVariant value = m_query->value(column);
        return value.isNull() ? QString() : value.toString();
    }
    [[nodiscard]] qint32 Number(int column) const { return m_query->value(column).toInt(); }
    [[nodiscard]] qint64 LongNumber(int column) const { return m_query->value(column).toLongLong(); }

private:
    QSqlQuery* m_query;
    const HvxEngine* m_engine;
};

/// What an outermost transaction is for.
enum class TransactionKind
{
    /// Reading and writing records.
    Records,
    /// The same; who writes at the same time is waited for at the begin, so that everything that was
    /// committed before the first write is seen.
    Writing,
    /// What no other writer may work beside: the schema, the maintenance lock. It sees what others commit
    /// until it has begun.
    Alone,
    /// Reading alone: one state of the whole database, which keeps no writer waiting.
    Snapshot,
};

/// One connection to a database: prepared statements, kept and counted, and transactions that nest.
///
/// Thread: the one that connected. Failures: ComponentError with the engine's words.
class SqlSession
{
public:
    SqlSession() = default;
    ~SqlSession();
    SqlSession(const SqlSession&) = delete;
    SqlSession& operator=(const SqlSession&) = delete;

    /// How long a begin or a write waits for another program, in milliseconds; from the next Connect on.
    void SetBusyTimeout(int ms) { m_busyMs = ms; }
    /// Opens the source after the engine's checks. Raises ComponentError and is then not connected.
    void Connect(const QString& source);
    /// The same with a connection that the caller opens: for making a database.
    void Connect(std::unique_ptr<HvxEngine> engine, const std::function<void(QSqlDatabase&)>& open);
    /// Undoes what is open and lets the source go.
    void Disconnect();
    [[nodiscard]] bool IsConnected() const { return m_engine != nullptr; }
    /// See HvxEngine::HasLostSource: nothing goes on here before the next Connect.
    [[nodiscard]] bool HasLostSource() const { return m_engine->HasLostSource(m_database); }

    [[nodiscard]] const HvxEngine& Engine() const { return *m_engine; }
    [[nodiscard]] const QSqlDatabase& Database() const { return m_database; }
    /// See HvxEngine::DataVersion.
    [[nodiscard]] std::optional<quint32> DataVersion() const;

    /// Runs a statement for its rows.
    [[nodiscard]] SqlRows Read(HvxStatement statement, const QVariantList& values = {});
    /// Runs a statement that changes rows; gives how many. Inside a transaction the levels that have no
    /// savepoint get theirs first.
    int Write(HvxStatement statement, const QVariantList& values = {});
    /// The first column of the row that the last write returned, the key of an insertion; 0 without one.
    [[nodiscard]] qint64 LastInsertId() const { return m_lastInsertId; }
    /// Runs SQL that is not one of the component's statements and changes rows: definitions, upgrades.
    void RunText(const QString& text, const QVariantList& values = {});
    /// The same for rows; each goes to `take`.
    void ReadText(const QString& text, const std::function<void(const QSqlQuery&)>& take);
    /// The first column of the first row as a number; 0 without a row.
    [[nodiscard]] qint64 NumberOfText(const QString& text);
    /// Prepares SQL that changes rows, to be run many times; the query must not outlive the connection.
    [[nodiscard]] QSqlQuery PrepareText(const QString& text);
    void RunPrepared(QSqlQuery& prepared, const QVariantList& values);
    /// Runs a script statement by statement.
    void RunScript(const QString& script);
    /// Runs one statement as it stands, for what cannot be prepared.
    void RunUnprepared(const QString& text);

    /// Opens a transaction, or a level inside the open one. Where the outermost begin brings the state of the
    /// session along, it gives that.
    std::optional<SessionState> Begin(TransactionKind kind = TransactionKind::Records);
    /// Asks for the state of the session.
    [[nodiscard]] SessionState ReadState();
    /// Ends the innermost level; the outermost commits.
    void Commit();
    /// Undoes the innermost level.
    void Rollback();
    [[nodiscard]] int Level() const { return static_cast<int>(m_levels.size()); }

    /// Statements sent to the engine so far.
    [[nodiscard]] qint64 StatementCount() const { return m_statementCount; }

private:
    struct TransactionLevel
    {
        /// The level whose savepoint undoes this one: its own, or that of a level around it in which nothing
        /// had been written when this one began. 0: nothing was written in this one yet.
        size_t savepoint = 0;
    };
    enum class SavepointStep
    {
        Set,
        Undo,
        Release,
    };

    QSqlQuery ExecuteText(const QString& text, const QVariantList& values);
    void ExecutePrepared(QSqlQuery& prepared, const QVariantList& values);
    QSqlQuery& Execute(HvxStatement statement, const QVariantList& values);
    void Run(QSqlQuery& prepared);
    /// Begin, commit and rollback, where they can be prepared.
    void ExecutePlain(HvxStatement statement);
    /// Commit and rollback.
    void EndOutermost(HvxStatement statement);
    [[nodiscard]] std::optional<SessionState> BeginOutermost(HvxStatement statement);
    [[nodiscard]] QSqlQuery Prepare(const QString& text, bool rowByRow);
    [[nodiscard]] QVariant BoundValue(const QVariant& value) const;
    [[nodiscard]] static QString SavepointText(SavepointStep step, size_t level);
    void ExecuteSavepoint(SavepointStep step, size_t level);
    void EnsureSavepoints();
    [[noreturn]] void Raise(const QSqlError& error);
    void CheckNotLost() const;
    void CheckNotSpoilt() const;

    std::unique_ptr<HvxEngine> m_engine;
    QSqlDatabase m_database;
    int m_busyMs = 2000;
    std::array<std::optional<QSqlQuery>, static_cast<size_t>(HvxStatement::Count)> m_statements;
    /// Prepared: a save in a dialog's transaction opens and ends many levels.
    std::map<std::pair<SavepointStep, size_t>, QSqlQuery> m_savepoints;
    std::vector<TransactionLevel> m_levels;
    /// The engine undid the transaction whose levels are still open here.
    bool m_lost = false;
    qint64 m_statementCount = 0;
    qint64 m_lastInsertId = 0;
};

/// A level that is undone unless Commit is called: makes what happens in it all or nothing.
class TransactionScope
{
public:
    explicit TransactionScope(SqlSession& session, TransactionKind kind = TransactionKind::Records)
        : m_session(&session)
    {
        session.Begin(kind);
    }
    ~TransactionScope();
    TransactionScope(const TransactionScope&) = delete;
    TransactionScope& operator=(const TransactionScope&) = delete;

    void Commit();

private:
    SqlSession* m_session;
    bool m_open = true;
};
