#include "components/hvxdb/ServerDatabaseMaker.h"

#include "components/hvxdb/HvxSchema.h"
#include "components/hvxdb/PostgresEngine.h"
#include "components/hvxdb/SqlFailure.h"
#include "components/hvxdb/SqlNames.h"
#include "components/hvxdb/TransactionScope.h"

#include <QDateTime>

namespace {

/// Where one connects to make databases.
const QString ServersOwnDatabase = QStringLiteral("postgres");
/// The names of the roles are made of the database's; the server cuts what is longer than 63 bytes.
constexpr int MostNameBytes = 58;
constexpr int OldestServer = 140000;
constexpr int BusyMs = 2000;

QString TextOf(SqlSession& session, const QString& text)
{
    QString answer;
    session.ReadText(text, [&answer](const QSqlQuery& row) { answer = row.value(0).toString(); });
    return answer;
}

} // namespace

QString ServerDatabaseMaker::Make(const DatabaseFiller& fill, bool force)
{
    SqlSession session;
    bool created = false;
    try {
        Connect(session, m_source);
    } catch (const ComponentError& error) {
        if (error.Number() != DatabaseErrorNumber::SourceMissing)
            throw;
        CreateDatabase();
        created = true;
        Connect(session, m_source);
    }
    try {
        return Fill(session, fill, force);
    } catch (...) {
        session.Disconnect();
        if (created)
            DropDatabase();
        throw;
    }
}

void ServerDatabaseMaker::Connect(SqlSession& session, const PostgresSource& source) const
{
    auto engine = std::make_unique<PostgresEngine>();
    const PostgresEngine& opener = *engine;
    session.Connect(std::move(engine),
                    [&](QSqlDatabase& database) { opener.ConnectTo(database, source, BusyMs); });
}

QString ServerDatabaseMaker::DatabaseName() const
{
    for (const QString& parameter : {QStringLiteral("dbname"), QStringLiteral("user")}) {
        const auto named = m_source.Parameters().find(parameter);
        if (named != m_source.Parameters().end() && !named->second.isEmpty())
            return named->second;
    }
    RaiseRefusal(QStringLiteral("The address names no database to make."));
}

void ServerDatabaseMaker::CreateDatabase() const
{
    const QString name = DatabaseName();
    SqlSession session;
    Connect(session, m_source.WithDatabase(ServersOwnDatabase));
    // Bytes in their order: what is compared otherwise names its collation.
    session.RunUnprepared(QStringLiteral("CREATE DATABASE %1 TEMPLATE template0 ENCODING 'UTF8'"
                                         " LC_COLLATE 'C' LC_CTYPE 'C'")
                              .arg(QuotedSqlName(name)));
}

void ServerDatabaseMaker::DropDatabase() const
{
    try {
        SqlSession session;
        Connect(session, m_source.WithDatabase(ServersOwnDatabase));
        session.RunUnprepared(QStringLiteral("DROP DATABASE %1").arg(QuotedSqlName(DatabaseName())));
    } catch (const ComponentError&) {
        // An empty database stays; the failure that led here is the one to tell.
    }
}

QString ServerDatabaseMaker::Fill(SqlSession& session, const DatabaseFiller& fill, bool force) const
{
    CheckServer(session);
    TransactionScope transaction(session, TransactionKind::Alone);
    const QString kept = KeepOld(session, force);
    HvxSchema(session, HvxSchema::ScriptsOf(session.Engine())).Create();
    fill(session);
    transaction.Commit();
    return kept;
}

void ServerDatabaseMaker::CheckServer(SqlSession& session)
{
    if (session.NumberOfText(
            QStringLiteral("SELECT CAST(current_setting('server_version_num') AS integer)")) < OldestServer)
        RaiseRefusal(QStringLiteral("The server is older than PostgreSQL 14."));
    const QString encoding = TextOf(session, QStringLiteral("SELECT current_setting('server_encoding')"));
    if (encoding != QLatin1String("UTF8"))
        RaiseRefusal(QStringLiteral("The database has the encoding %1 instead of UTF8.").arg(encoding));
    const QString name = TextOf(session, QStringLiteral("SELECT CAST(current_database() AS text)"));
    if (name.toUtf8().size() > MostNameBytes)
        RaiseRefusal(QStringLiteral("The database's name %1 is too long.").arg(name));
}

QString ServerDatabaseMaker::KeepOld(SqlSession& session, bool force) const
{
    HvxSchema schema(session, HvxSchema::ScriptsOf(session.Engine()));
    if (!schema.HasTables())
        return {};
    if (!force)
        RaiseRefusal(QStringLiteral("The database has tables already."));
    const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd_hhmmss"));
    QString kept = QStringLiteral("public_") + stamp;
    const QString exists = QStringLiteral("SELECT count(*) FROM pg_namespace WHERE nspname = '%1'");
    for (int number = 2; session.NumberOfText(exists.arg(kept)) > 0; ++number)
        kept = QStringLiteral("public_%1_%2").arg(stamp).arg(number);
    session.RunUnprepared(QStringLiteral("ALTER SCHEMA public RENAME TO %1").arg(kept));
    session.RunUnprepared(QStringLiteral("CREATE SCHEMA public"));
    return kept;
}
