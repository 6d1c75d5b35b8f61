#include "components/hvxdb/PostgresEngine.h"

#include "components/hvxdb/PostgresCopySide.h"
#include "components/hvxdb/PostgresFailure.h"
#include "components/hvxdb/PostgresStatements.h"
#include "components/hvxdb/SqlFailure.h"

#include <QSqlDriver>
#include <QSqlQuery>
#include <QVariant>

#include <algorithm>
#include <libpq-fe.h>

namespace {

/// How long a transaction may rest, in milliseconds: a workstation that froze in one keeps nobody out longer.
constexpr int MostIdleMs = 60'000;

/// The driver's own handle; null when nothing is open.
const PGconn* Handle(const QSqlDatabase& database)
{
    const QVariant handle = database.driver() ? database.driver()->handle() : QVariant();
    // The driver registers the type under the name of the structure behind it.
    const QByteArrayView type = handle.typeName();
    if (type != "PGconn*" && type != "pg_conn*")
        return nullptr;
    return *static_cast<PGconn* const*>(handle.constData());
}

PGTransactionStatusType TransactionStatus(const QSqlDatabase& database)
{
    const PGconn* const handle = Handle(database);
    return handle ? PQtransactionStatus(handle) : PQTRANS_UNKNOWN;
}

/// What holds for every statement of the session, in one round trip: whose tables are meant, for how long a
/// statement waits for another session's, how long a transaction may rest. Gives whether the server only
/// reads, as one that follows another does.
QString SettingsText(int busyMs)
{
    return QStringLiteral("SET search_path = public, pg_temp; SET client_min_messages = error;"
                          " SET lock_timeout = %1; SET idle_in_transaction_session_timeout = %2;"
                          " SHOW transaction_read_only")
        .arg(std::max(busyMs, 1))
        .arg(MostIdleMs);
}

bool IsReadOnly(QSqlQuery& settings)
{
    do {
        if (settings.isSelect() && settings.next())
            return settings.value(0).toString() == QLatin1String("on");
    } while (settings.nextResult());
    return false;
}

} // namespace

QString PostgresEngine::Driver() const
{
    return QStringLiteral("QPSQL");
}

void PostgresEngine::CheckSource(const QString& source) const
{
    if (!QSqlDatabase::isDriverAvailable(Driver()))
        RaiseFailure(DatabaseErrorNumber::SourceMissing,
                     QStringLiteral("The database driver %1 is not installed.").arg(Driver()));
    const PostgresSource checked(source);
}

void PostgresEngine::Connect(QSqlDatabase& database, const QString& source, int busyMs)
{
    ConnectTo(database, PostgresSource(source), busyMs);
}

void PostgresEngine::ConnectTo(QSqlDatabase& database, const PostgresSource& source, int busyMs) const
{
    source.ApplyTo(database);
    if (!database.open()) {
        const QString words = database.lastError().databaseText().simplified();
        const QString state = PostgresRefusal(source);
        // No privilege to connect: nothing else here is refused yet.
        RaiseFailure(state == QLatin1String("42501") ? DatabaseErrorNumber::UnusableFile
                                                     : PostgresErrorNumber(state),
                     words);
    }
    QSqlQuery settings(database);
    if (!settings.exec(SettingsText(busyMs)))
        RaiseFailure(ErrorNumber(settings.lastError()), ErrorText(settings.lastError()));
    if (IsReadOnly(settings))
        RaiseFailure(DatabaseErrorNumber::ReadOnly, QStringLiteral("The server only reads."));
}

void PostgresEngine::Settle(const QSqlDatabase&) const
{
    // All of it is set when the connection opens.
}

bool PostgresEngine::ReadsRowByRow(HvxStatement statement) const
{
    // These can be a million rows.
    return statement == HvxStatement::AllConnections || statement == HvxStatement::AllNodes ||
           statement == HvxStatement::AllNodesOfConnection;
}

QString PostgresEngine::StatementText(HvxStatement statement) const
{
    const QString own = PostgresStatementText(statement);
    return own.isEmpty() ? StandardStatementText(statement) : own;
}

QString PostgresEngine::ObjectNamesText() const
{
    return PostgresObjectNamesText();
}

QStringList PostgresEngine::IntegrityTexts() const
{
    return PostgresIntegrityTexts();
}

QString PostgresEngine::ScriptFolder() const
{
    return QStringLiteral(":/hvxdb/postgresql");
}

std::unique_ptr<CopySide> PostgresEngine::MakeCopySide(SqlSession& session) const
{
    return std::make_unique<PostgresCopySide>(session);
}

quint32 PostgresEngine::ErrorNumber(const QSqlError& error) const
{
    return PostgresErrorNumber(error.nativeErrorCode());
}

QString PostgresEngine::ErrorText(const QSqlError& error) const
{
    // Severity, words, details, state and the driver's own words in one text.
    QString words = error.databaseText().section(u'\n', 0, 0);
    if (const qsizetype severity = words.indexOf(QLatin1String(":  ")); severity > 0)
        words.remove(0, severity + 3);
    if (!words.isEmpty())
        return words;
    // The driver has no words of its own for a connection that breaks off without an answer.
    return error.isValid() ? error.text() : QStringLiteral("The server gave no answer.");
}

std::optional<quint32> PostgresEngine::DataVersion(const QSqlDatabase&) const
{
    return std::nullopt;
}

bool PostgresEngine::HasLostTransaction(const QSqlDatabase& database) const
{
    const PGTransactionStatusType status = TransactionStatus(database);
    return status == PQTRANS_IDLE || status == PQTRANS_UNKNOWN;
}

bool PostgresEngine::HasSpoiltTransaction(const QSqlDatabase& database) const
{
    return TransactionStatus(database) == PQTRANS_INERROR;
}

bool PostgresEngine::HasLostSource(const QSqlDatabase& database) const
{
    const PGconn* const handle = Handle(database);
    return !handle || PQstatus(handle) == CONNECTION_BAD;
}
