#include "components/hvxdb/SqlSession.h"

#include "components/hvxdb/SqlFailure.h"
#include "components/hvxdb/SqlScript.h"

namespace {

HvxStatement BeginStatement(TransactionKind kind)
{
    switch (kind) {
    case TransactionKind::Records:
        break;
    case TransactionKind::Writing:
        return HvxStatement::BeginWriting;
    case TransactionKind::Alone:
        return HvxStatement::BeginAlone;
    case TransactionKind::Snapshot:
        return HvxStatement::BeginSnapshot;
    }
    return HvxStatement::Begin;
}

[[noreturn]] void RaiseUndone()
{
    RaiseFailure(EngineFailure, QStringLiteral("The database has undone the transaction."));
}

} // namespace

void SqlSession::Disconnect()
{
    m_levels.clear();
    m_lost = false;
    m_savepoints.clear();
    SqlConnection::Disconnect();
}

int SqlSession::Write(HvxStatement statement, const QVariantList& values)
{
    EnsureSavepoints();
    SqlStatement& written = Execute(statement, values);
    m_lastInsertId = 0;
    if (written.HasColumns()) {
        // To the end: only then is the write done and counted.
        for (bool first = true; written.Next(); first = false) {
            if (first)
                m_lastInsertId = written.Value(0).toLongLong();
        }
    }
    if (const std::optional<QSqlError> error = written.Failure()) {
        written.Finish();
        Raise(*error);
    }
    const int changed = written.ChangedRows();
    written.Finish();
    return changed;
}

void SqlSession::RunPrepared(QSqlQuery& prepared, const QVariantList& values)
{
    EnsureSavepoints();
    ExecutePrepared(prepared, values);
    prepared.finish();
}

void SqlSession::RunText(const QString& text, const QVariantList& values)
{
    EnsureSavepoints();
    ExecuteText(text, values);
}

void SqlSession::RunScript(const QString& script)
{
    EnsureSavepoints();
    const QStringList statements = SplitSqlScript(script);
    for (const QString& statement : statements) {
        // Scripts define triggers, whose bodies a prepared statement of the driver could mistake for values.
        RunUnprepared(statement);
    }
}

std::optional<SessionState> SqlSession::Begin(TransactionKind kind)
{
    std::optional<SessionState> state;
    if (m_levels.empty())
        state = BeginOutermost(BeginStatement(kind));
    m_levels.emplace_back();
    return state;
}

std::optional<SessionState> SqlSession::BeginOutermost(HvxStatement statement)
{
    if (Engine().PreparesTransactions()) {
        Execute(statement).Finish();
        return std::nullopt;
    }
    QSqlQuery query(Database());
    CountStatement();
    const bool bringsState = statement == HvxStatement::Begin || statement == HvxStatement::BeginWriting;
    std::optional<SessionState> state;
    bool done = query.exec(Engine().StatementText(statement));
    if (!done)
        Raise(query.lastError());
    while (done) {
        if (bringsState && query.isSelect() && query.next())
            state = SessionState::OfRow([&query](int column) { return query.value(column); });
        done = query.nextResult();
    }
    if (const QSqlError error = query.lastError(); error.isValid()) {
        // What failed behind the begin has left a transaction open.
        QSqlQuery(Database()).exec(Engine().StatementText(HvxStatement::Rollback));
        Raise(error);
    }
    return state;
}

SessionState SqlSession::ReadState()
{
    SqlRows rows = Read(HvxStatement::SessionState);
    return rows.Next() ? SessionState::OfRow([&rows](int column) { return rows.Value(column); })
                       : SessionState();
}

void SqlSession::Commit()
{
    if (m_levels.empty())
        RaiseRefusal(QStringLiteral("No transaction is open."));
    CheckNotLost();
    const size_t level = m_levels.size();
    const size_t savepoint = m_levels.back().savepoint;
    if (level == 1)
        EndOutermost(HvxStatement::Commit);
    else if (savepoint == level)
        ExecuteSavepoint(SavepointStep::Release, level);
    else if (savepoint != 0)
        CheckNotSpoilt();
    m_levels.pop_back();
}

void SqlSession::Rollback()
{
    if (m_levels.empty())
        return;
    const size_t level = m_levels.size();
    const size_t savepoint = m_levels.back().savepoint;
    const bool lost = m_lost;
    m_levels.pop_back();
    m_lost = lost && level > 1;
    if (lost)
        return;
    try {
        if (level == 1) {
            EndOutermost(HvxStatement::Rollback);
        } else if (savepoint != 0) {
            ExecuteSavepoint(SavepointStep::Undo, savepoint);
            if (savepoint == level)
                ExecuteSavepoint(SavepointStep::Release, level);
        }
    } catch (const ComponentError&) {
        // Who has lost the connection has nothing left to undo.
        if (!Engine().HasLostTransaction(Database()))
            throw;
        m_lost = level > 1;
    }
}

void SqlSession::EndOutermost(HvxStatement statement)
{
    if (Engine().PreparesTransactions())
        Execute(statement).Finish();
    else
        RunUnprepared(Engine().StatementText(statement));
}

QString SqlSession::SavepointText(SavepointStep step, size_t level)
{
    const QString name = QStringLiteral(" level_%1").arg(level);
    switch (step) {
    case SavepointStep::Set:
        break;
    case SavepointStep::Undo:
        return QStringLiteral("ROLLBACK TO") + name;
    case SavepointStep::Release:
        return QStringLiteral("RELEASE") + name;
    }
    return QStringLiteral("SAVEPOINT") + name;
}

void SqlSession::ExecuteSavepoint(SavepointStep step, size_t level)
{
    if (!Engine().PreparesTransactions()) {
        RunUnprepared(SavepointText(step, level));
        return;
    }
    std::unique_ptr<SqlStatement>& kept = m_savepoints[{step, level}];
    if (!kept)
        kept = Engine().MakeStatement(Database(), SavepointText(step, level), false);
    Run(*kept);
    kept->Finish();
}

void SqlSession::EnsureSavepoints()
{
    CheckNotLost();
    // Inner levels can have a savepoint only behind the outer ones. Between the begins of those that have
    // none nothing was written, so that one savepoint does for all of them.
    size_t first = m_levels.size();
    while (first > 1 && m_levels[first - 1].savepoint == 0)
        --first;
    if (first == m_levels.size())
        return;
    const size_t savepoint = first + 1;
    ExecuteSavepoint(SavepointStep::Set, savepoint);
    for (size_t i = first; i < m_levels.size(); ++i)
        m_levels[i].savepoint = savepoint;
}

void SqlSession::CheckNotLost() const
{
    // What followed would be written outside any transaction, and a spoilt one would end as if committed.
    if (m_lost)
        RaiseUndone();
    if (m_levels.size() == 1)
        CheckNotSpoilt();
}

void SqlSession::CheckNotSpoilt() const
{
    if (Engine().HasSpoiltTransaction(Database()))
        RaiseUndone();
}

void SqlSession::TakeNoteOfFailure()
{
    if (!m_levels.empty())
        m_lost = m_lost || Engine().HasLostTransaction(Database());
}
