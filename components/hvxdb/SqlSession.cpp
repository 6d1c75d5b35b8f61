#include "components/hvxdb/SqlSession.h"

#include "components/hvxdb/SqlFailure.h"
#include "components/hvxdb/SqlScript.h"

#include <QUuid>

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

/// No statement of the component has more values.
constexpr int MostValues = 16;

/// Names of the values of a statement, in order.
const QStringList& ValueNames()
{
    static const QStringList names = [] {
        QStringList list;
        for (int i = 0; i < MostValues; ++i)
            list << QStringLiteral(":v%1").arg(i);
        return list;
    }();
    return names;
}

/// A statement of the component, in which "?" is nothing but a value, with named values.
QString NamedText(QString text)
{
    int value = 0;
    for (qsizetype at = text.indexOf(u'?'); at >= 0; at = text.indexOf(u'?', at)) {
        const QString& name = ValueNames()[value++];
        text.replace(at, 1, name);
        at += name.size();
    }
    return text;
}

[[noreturn]] void RaiseUndone()
{
    RaiseFailure(EngineFailure, QStringLiteral("The database has undone the transaction."));
}

} // namespace

bool SqlRows::Next()
{
    if (m_query->next())
        return true;
    const QSqlError error = m_query->lastError();
    if (error.isValid())
        RaiseFailure(m_engine->ErrorNumber(error), m_engine->ErrorText(error));
    return false;
}

SqlSession::~SqlSession()
{
    Disconnect();
}

void SqlSession::Connect(const QString& source)
{
    std::unique_ptr<HvxEngine> engine = HvxEngine::ForSource(source);
    engine->CheckSource(source);
    HvxEngine& opener = *engine;
    Connect(std::move(engine), [&](QSqlDatabase& database) { opener.Connect(database, source, m_busyMs); });
}

void SqlSession::Connect(std::unique_ptr<HvxEngine> engine, const std::function<void(QSqlDatabase&)>& open)
{
    Disconnect();
    const QString name = QStringLiteral("hvxdb-") + QUuid::createUuid().toString(QUuid::WithoutBraces);
    m_engine = std::move(engine);
    try {
        m_database = QSqlDatabase::addDatabase(m_engine->Driver(), name);
        open(m_database);
    } catch (...) {
        Disconnect();
        throw;
    }
}

void SqlSession::Disconnect()
{
    if (!m_engine)
        return;
    m_levels.clear();
    m_lost = false;
    // Closing undoes an open transaction. The statements go behind it: with the connection open the driver
    // would let go of each one by a statement of its own, which a dead connection answers with a warning.
    const QString name = m_database.connectionName();
    m_engine->LetGo();
    m_database.close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(name);
    for (std::optional<QSqlQuery>& statement : m_statements)
        statement.reset();
    m_savepoints.clear();
    m_engine.reset();
}

std::optional<quint32> SqlSession::DataVersion() const
{
    return m_engine->DataVersion(m_database);
}

QVariant SqlSession::BoundValue(const QVariant& value) const
{
    if (value.userType() != QMetaType::QString)
        return value;
    const QString text = value.toString();
    if (!m_engine->KeepsZeroCharacter() && text.contains(QChar(0)))
        RaiseRefusal(QStringLiteral("The database keeps no text with the character 0."));
    // The empty text is a value; a null text would become the database's NULL.
    return text.isNull() ? QVariant(QStringLiteral("")) : value;
}

QSqlQuery& SqlSession::Execute(HvxStatement statement, const QVariantList& values)
{
    std::optional<QSqlQuery>& slot = m_statements[static_cast<size_t>(statement)];
    const bool byName = m_engine->BindsByName();
    if (!slot) {
        const QString text = m_engine->StatementText(statement);
        slot.emplace(Prepare(byName ? NamedText(text) : text, m_engine->ReadsRowByRow(statement)));
    }
    if (!byName) {
        ExecutePrepared(*slot, values);
        return *slot;
    }
    const QStringList& names = ValueNames();
    for (qsizetype i = 0; i < values.size(); ++i)
        slot->bindValue(names[i], BoundValue(values[i]));
    Run(*slot);
    return *slot;
}

void SqlSession::ExecutePrepared(QSqlQuery& prepared, const QVariantList& values)
{
    for (qsizetype i = 0; i < values.size(); ++i)
        prepared.bindValue(static_cast<int>(i), BoundValue(values[i]));
    Run(prepared);
}

void SqlSession::Run(QSqlQuery& prepared)
{
    ++m_statementCount;
    if (prepared.exec())
        return;
    const QSqlError error = prepared.lastError();
    prepared.finish();
    Raise(error);
}

SqlRows SqlSession::Read(HvxStatement statement, const QVariantList& values)
{
    return SqlRows(Execute(statement, values), *m_engine);
}

int SqlSession::Write(HvxStatement statement, const QVariantList& values)
{
    EnsureSavepoints();
    QSqlQuery& query = Execute(statement, values);
    m_lastInsertId = 0;
    if (query.isSelect()) {
        // To the end: only then is the write done and counted.
        for (bool first = true; query.next(); first = false) {
            if (first)
                m_lastInsertId = query.value(0).toLongLong();
        }
    }
    const int changed = query.numRowsAffected();
    query.finish();
    return changed;
}

QSqlQuery SqlSession::ExecuteText(const QString& text, const QVariantList& values)
{
    QSqlQuery query = PrepareText(text);
    ExecutePrepared(query, values);
    return query;
}

QSqlQuery SqlSession::PrepareText(const QString& text)
{
    return Prepare(text, true);
}

QSqlQuery SqlSession::Prepare(const QString& text, bool rowByRow)
{
    QSqlQuery query(Database());
    query.setForwardOnly(rowByRow);
    if (!query.prepare(text))
        Raise(query.lastError());
    return query;
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

void SqlSession::ReadText(const QString& text, const std::function<void(const QSqlQuery&)>& take)
{
    QSqlQuery query = ExecuteText(text, {});
    while (query.next())
        take(query);
    if (query.lastError().isValid())
        Raise(query.lastError());
}

qint64 SqlSession::NumberOfText(const QString& text)
{
    qint64 number = 0;
    ReadText(text, [&number](const QSqlQuery& row) { number = row.value(0).toLongLong(); });
    return number;
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

void SqlSession::RunUnprepared(const QString& text)
{
    QSqlQuery query(Database());
    ++m_statementCount;
    if (!query.exec(text))
        Raise(query.lastError());
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
    if (m_engine->PreparesTransactions()) {
        ExecutePlain(statement);
        return std::nullopt;
    }
    QSqlQuery query(Database());
    ++m_statementCount;
    const bool bringsState = statement == HvxStatement::Begin || statement == HvxStatement::BeginWriting;
    std::optional<SessionState> state;
    bool done = query.exec(m_engine->StatementText(statement));
    if (!done)
        Raise(query.lastError());
    while (done) {
        if (bringsState && query.isSelect() && query.next())
            state = SessionState::OfRow(query);
        done = query.nextResult();
    }
    if (const QSqlError error = query.lastError(); error.isValid()) {
        // What failed behind the begin has left a transaction open.
        QSqlQuery(Database()).exec(m_engine->StatementText(HvxStatement::Rollback));
        Raise(error);
    }
    return state;
}

SessionState SqlSession::ReadState()
{
    QSqlQuery& query = Execute(HvxStatement::SessionState, {});
    const SessionState state = query.next() ? SessionState::OfRow(query) : SessionState();
    query.finish();
    return state;
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
        if (!m_engine->HasLostTransaction(m_database))
            throw;
        m_lost = level > 1;
    }
}

void SqlSession::EndOutermost(HvxStatement statement)
{
    if (m_engine->PreparesTransactions())
        ExecutePlain(statement);
    else
        RunUnprepared(m_engine->StatementText(statement));
}

void SqlSession::ExecutePlain(HvxStatement statement)
{
    const std::optional<QSqlError> error = m_engine->RunPastDriver(statement);
    if (!error) {
        Execute(statement, {}).finish();
        return;
    }
    ++m_statementCount;
    if (error->isValid())
        Raise(*error);
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
    if (!m_engine->PreparesTransactions()) {
        RunUnprepared(SavepointText(step, level));
        return;
    }
    auto prepared = m_savepoints.find({step, level});
    if (prepared == m_savepoints.end()) {
        QSqlQuery query(Database());
        if (!query.prepare(SavepointText(step, level)))
            Raise(query.lastError());
        prepared = m_savepoints.emplace(std::pair(step, level), std::move(query)).first;
    }
    Run(prepared->second);
    prepared->second.finish();
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
    if (m_engine->HasSpoiltTransaction(m_database))
        RaiseUndone();
}

void SqlSession::Raise(const QSqlError& error)
{
    if (!m_levels.empty())
        m_lost = m_lost || m_engine->HasLostTransaction(m_database);
    RaiseFailure(m_engine->ErrorNumber(error), m_engine->ErrorText(error));
}

TransactionScope::~TransactionScope()
{
    if (!m_open)
        return;
    try {
        m_session->Rollback();
    } catch (const ComponentError&) {
        // The failure that led here is the one to tell; a connection that cannot undo is undone at its end.
    }
}

void TransactionScope::Commit()
{
    m_session->Commit();
    m_open = false;
}
