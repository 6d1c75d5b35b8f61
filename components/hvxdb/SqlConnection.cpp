#include "components/hvxdb/SqlConnection.h"

#include "components/hvxdb/DriverStatement.h"
#include "components/hvxdb/SqlFailure.h"

#include <QUuid>

SqlConnection::~SqlConnection()
{
    SqlConnection::Disconnect();
}

void SqlConnection::Connect(const QString& source)
{
    std::unique_ptr<HvxEngine> engine = HvxEngine::ForSource(source);
    engine->CheckSource(source);
    HvxEngine& opener = *engine;
    Connect(std::move(engine), [&](QSqlDatabase& database) { opener.Connect(database, source, m_busyMs); });
}

void SqlConnection::Connect(std::unique_ptr<HvxEngine> engine, const std::function<void(QSqlDatabase&)>& open)
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

void SqlConnection::Disconnect()
{
    if (!m_engine)
        return;
    for (const std::unique_ptr<SqlStatement>& statement : m_statements) {
        if (statement)
            statement->LetGo();
    }
    // Closing undoes an open transaction. The statements go behind it: with the connection open the driver
    // would let go of each one by a statement of its own, which a dead connection answers with a warning.
    const QString name = m_database.connectionName();
    m_database.close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(name);
    for (std::unique_ptr<SqlStatement>& statement : m_statements)
        statement.reset();
    m_engine.reset();
}

SqlRows SqlConnection::Read(HvxStatement statement, const QVariantList& values)
{
    return SqlRows(Execute(statement, values), *m_engine);
}

SqlStatement& SqlConnection::Execute(HvxStatement statement, const QVariantList& values)
{
    std::unique_ptr<SqlStatement>& kept = m_statements[static_cast<size_t>(statement)];
    if (!kept) {
        kept = m_engine->MakeStatement(m_database, m_engine->StatementText(statement),
                                       m_engine->ReadsRowByRow(statement));
    }
    Run(*kept, values);
    return *kept;
}

void SqlConnection::Run(SqlStatement& statement, const QVariantList& values)
{
    CheckValues(values);
    CountStatement();
    if (statement.Execute(values))
        return;
    const QSqlError error = statement.Failure().value_or(QSqlError());
    statement.Finish();
    Raise(error);
}

void SqlConnection::CheckValues(const QVariantList& values) const
{
    if (m_engine->KeepsZeroCharacter())
        return;
    for (const QVariant& value : values) {
        if (value.userType() == QMetaType::QString && value.toString().contains(QChar(0)))
            RaiseRefusal(QStringLiteral("The database keeps no text with the character 0."));
    }
}

void SqlConnection::ReadText(const QString& text, const std::function<void(const QSqlQuery&)>& take)
{
    QSqlQuery query = ExecuteText(text, {});
    while (query.next())
        take(query);
    if (query.lastError().isValid())
        Raise(query.lastError());
}

qint64 SqlConnection::NumberOfText(const QString& text)
{
    qint64 number = 0;
    ReadText(text, [&number](const QSqlQuery& row) { number = row.value(0).toLongLong(); });
    return number;
}

QSqlQuery SqlConnection::PrepareText(const QString& text)
{
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    if (!query.prepare(text))
        Raise(query.lastError());
    return query;
}

QSqlQuery SqlConnection::ExecuteText(const QString& text, const QVariantList& values)
{
    QSqlQuery query = PrepareText(text);
    ExecutePrepared(query, values);
    return query;
}

void SqlConnection::ExecutePrepared(QSqlQuery& prepared, const QVariantList& values)
{
    CheckValues(values);
    for (qsizetype i = 0; i < values.size(); ++i)
        prepared.bindValue(static_cast<int>(i), DriverStatement::BoundValue(values[i]));
    CountStatement();
    if (prepared.exec())
        return;
    const QSqlError error = prepared.lastError();
    prepared.finish();
    Raise(error);
}

void SqlConnection::RunUnprepared(const QString& text)
{
    QSqlQuery query(m_database);
    CountStatement();
    if (!query.exec(text))
        Raise(query.lastError());
}

void SqlConnection::Raise(const QSqlError& error)
{
    TakeNoteOfFailure();
    RaiseFailure(m_engine->ErrorNumber(error), m_engine->ErrorText(error));
}
