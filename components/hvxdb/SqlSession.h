#pragma once

#include "components/hvxdb/SessionState.h"
#include "components/hvxdb/SqlConnection.h"

#include <map>
#include <vector>

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

/// A connection with transactions that nest, in which all its writes go.
///
/// Thread: the one that connected. Failures: ComponentError with the engine's words.
class SqlSession : public SqlConnection
{
public:
    void Disconnect() override;

    /// Runs a statement that changes rows; gives how many. Inside a transaction the levels that have no
    /// savepoint get theirs first.
    int Write(HvxStatement statement, const QVariantList& values = {});
    /// The first column of the row that the last write returned, the key of an insertion; 0 without one.
    [[nodiscard]] qint64 LastInsertId() const { return m_lastInsertId; }
    /// Runs SQL that is not one of the component's statements and changes rows: definitions, upgrades.
    void RunText(const QString& text, const QVariantList& values = {});
    /// Runs what PrepareText gave.
    void RunPrepared(QSqlQuery& prepared, const QVariantList& values);
    /// Runs a script statement by statement.
    void RunScript(const QString& script);

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

protected:
    void TakeNoteOfFailure() override;

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

    /// Commit and rollback.
    void EndOutermost(HvxStatement statement);
    [[nodiscard]] std::optional<SessionState> BeginOutermost(HvxStatement statement);
    [[nodiscard]] static QString SavepointText(SavepointStep step, size_t level);
    void ExecuteSavepoint(SavepointStep step, size_t level);
    void EnsureSavepoints();
    void CheckNotLost() const;
    void CheckNotSpoilt() const;

    /// Prepared: a save in a dialog's transaction opens and ends many levels.
    std::map<std::pair<SavepointStep, size_t>, std::unique_ptr<SqlStatement>> m_savepoints;
    std::vector<TransactionLevel> m_levels;
    /// The engine undid the transaction whose levels are still open here.
    bool m_lost = false;
    qint64 m_lastInsertId = 0;
};
