#include "components/hvxdb/SqliteEngine.h"

#include "components/hvxdb/DriverStatement.h"
#include "components/hvxdb/SqlFailure.h"
#include "components/hvxdb/SqliteCopySide.h"
#include "components/hvxdb/SqliteListFunctions.h"
#include "components/hvxdb/SqliteStatement.h"

#include <QFile>
#include <QFileInfo>
#include <QSqlDriver>
#include <QSqlQuery>
#include <QUrl>

#include <limits>
#include <sqlite3.h>
#include <sys/stat.h>

namespace {

constexpr int PrimaryCodeMask = 0xff;

/// Access as the file's bits tell it too: the system lets an administrator write everywhere, yet who took
/// away all write bits wants nobody to write.
bool MayWrite(const QFileInfo& info)
{
    const QFile::Permissions writers = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
    return info.isWritable() && (info.permissions() & writers);
}

void CheckHeader(const QString& source)
{
    QFile file(source);
    if (!file.open(QIODevice::ReadOnly))
        RaiseFailure(DatabaseErrorNumber::UnusableFile,
                     QStringLiteral("%1 cannot be read: %2").arg(source, file.errorString()));
    if (file.read(16) != QByteArray("SQLite format 3\0", 16))
        RaiseFailure(DatabaseErrorNumber::UnusableFile, QStringLiteral("%1 is not a database.").arg(source));
}

QString FileUri(const QString& source, const QString& mode)
{
    const QByteArray path = QUrl::toPercentEncoding(QFileInfo(source).absoluteFilePath(), "/:");
    return QStringLiteral("file:%1?mode=%2").arg(QString::fromLatin1(path), mode);
}

void Open(QSqlDatabase& database, const QString& source, const QString& mode, int busyMs,
          const SqliteEngine& engine)
{
    database.setDatabaseName(FileUri(source, mode));
    database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=%1").arg(busyMs));
    if (!database.open()) {
        const QSqlError error = database.lastError();
        RaiseFailure(engine.ErrorNumber(error), error.text());
    }
}

void RunPragma(const QSqlDatabase& database, const QString& text)
{
    QSqlQuery query(database);
    query.setForwardOnly(true);
    query.exec(text);
}

bool UsesWal(const QSqlDatabase& database)
{
    QSqlQuery query(database);
    query.setForwardOnly(true);
    return query.exec(QStringLiteral("PRAGMA journal_mode")) && query.next() &&
           query.value(0).toString().compare(QLatin1String("wal"), Qt::CaseInsensitive) == 0;
}

/// The driver's own handle; null when the driver was built with another copy of the library than we were,
/// since a handle must not cross from one copy to another.
sqlite3* SharedHandle(const QSqlDatabase& database)
{
    const QVariant handle = database.driver()->handle();
    if (!handle.isValid() || qstrcmp(handle.typeName(), "sqlite3*") != 0)
        return nullptr;
    static const bool sameLibrary = [&database] {
        QSqlQuery query(database);
        query.setForwardOnly(true);
        return query.exec(QStringLiteral("SELECT sqlite_source_id()")) && query.next() &&
               query.value(0).toString() == QLatin1String(sqlite3_sourceid());
    }();
    return sameLibrary ? *static_cast<sqlite3* const*>(handle.constData()) : nullptr;
}

/// HvxStatement::JournalChunk by our own aggregate. It takes the rows from the tables themselves, in the
/// order of the outer table: those of a sub-query that has an order and a limit are copied first, which costs
/// as much as reading them.
QString PackedJournalChunk()
{
    return QStringLiteral(
               "WITH start AS (SELECT ? AS id),"
               " bounds AS MATERIALIZED (SELECT id AS low, coalesce((SELECT id FROM journal"
               " WHERE id > start.id ORDER BY id LIMIT 1 OFFSET %1), %2) AS high FROM start)"
               " SELECT count(*), packed_rows(j.id, j.record_type, j.text1, j.number, j.text2, n.name_key, "
               "n.id,"
               " c.name, n.target, n.node_type, n.command_tail, n.manager_index)"
               " FROM bounds CROSS JOIN journal j ON j.id > low AND j.id <= high"
               " LEFT JOIN node named ON j.record_type IN (30, 40)"
               " AND named.name_key = plain_key(j.text1)"
               " LEFT JOIN node n ON j.record_type IN (30, 40) AND n.id = coalesce(named.id, j.number)"
               " LEFT JOIN connection c ON c.row_key = n.connection_key")
        .arg(QString::number(JournalRecordsPerChunk - 1),
             QString::number(std::numeric_limits<qint64>::max()));
}

} // namespace

QString SqliteEngine::Driver() const
{
    return QStringLiteral("QSQLITE");
}

void SqliteEngine::CheckSource(const QString& source) const
{
    const QFileInfo info(source);
    if (source.isEmpty() || !info.isFile())
        RaiseFailure(DatabaseErrorNumber::SourceMissing, QStringLiteral("There is no file %1.").arg(source));
    CheckHeader(source);
    if (!MayWrite(info))
        RaiseFailure(DatabaseErrorNumber::ReadOnly, QStringLiteral("The file %1 is read-only.").arg(source));
    const QFileInfo folder(info.absolutePath());
    if (!MayWrite(folder))
        RaiseFailure(DatabaseErrorNumber::ReadOnly,
                     QStringLiteral("The folder %1 is read-only.").arg(folder.absoluteFilePath()));
}

void SqliteEngine::Connect(QSqlDatabase& database, const QString& source, int busyMs)
{
    Open(database, source, QStringLiteral("rw"), busyMs, *this);
    m_path = QFile::encodeName(source);
    m_identity = IdentityOf(m_path);
    m_handle = SharedHandle(database);
    m_buildsLists = m_handle && AddListFunctions(m_handle);
}

void SqliteEngine::ConnectNew(QSqlDatabase& database, const QString& source) const
{
    Open(database, source, QStringLiteral("rwc"), 0, *this);
}

void SqliteEngine::Settle(const QSqlDatabase& database) const
{
    // Readers go on beside a writer only with a write-ahead log. A database that cannot be switched now,
    // because someone has it open, works without one.
    if (!UsesWal(database))
        RunPragma(database, QStringLiteral("PRAGMA journal_mode = WAL"));
    // With a write-ahead log this spares the wait for the disk at each commit. A power failure can take back
    // the last commits and can never damage the database, which is what operators need.
    RunPragma(database, QStringLiteral("PRAGMA synchronous = NORMAL"));
    RunPragma(database, QStringLiteral("PRAGMA foreign_keys = ON"));
    // In KiB: enough for the inner pages of a million nodes, so that a look-up reads one page or two.
    RunPragma(database, QStringLiteral("PRAGMA cache_size = -16384"));
}

std::unique_ptr<SqlStatement> SqliteEngine::MakeStatement(const QSqlDatabase& database, const QString& text,
                                                          bool rowByRow) const
{
    if (m_handle)
        return std::make_unique<SqliteStatement>(m_handle, text);
    return std::make_unique<DriverStatement>(database, text, rowByRow, DriverStatement::Binding::ByName);
}

QString SqliteEngine::StatementText(HvxStatement statement) const
{
    if (m_buildsLists && statement == HvxStatement::JournalChunk)
        return PackedJournalChunk();
    QString text = StandardStatementText(statement);
    if (m_buildsLists) {
        text.replace(QLatin1String("group_concat(name || char(9) || id, char(9))"),
                     QLatin1String("pair_list(name, id)"));
        text.replace(QLatin1String("group_concat(id, char(9))"), QLatin1String("id_list(id)"));
    }
    return text;
}

QString SqliteEngine::ObjectNamesText() const
{
    return QStringLiteral("SELECT name FROM sqlite_master");
}

QStringList SqliteEngine::IntegrityTexts() const
{
    return {QStringLiteral("PRAGMA integrity_check")};
}

QString SqliteEngine::ScriptFolder() const
{
    return QStringLiteral(":/hvxdb/sqlite");
}

std::unique_ptr<CopySide> SqliteEngine::MakeCopySide(SqlSession& session) const
{
    return std::make_unique<SqliteCopySide>(session);
}

quint32 SqliteEngine::ErrorNumber(const QSqlError& error) const
{
    switch (error.nativeErrorCode().toInt() & PrimaryCodeMask) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return DatabaseErrorNumber::InUse;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return DatabaseErrorNumber::UnusableFile;
    case SQLITE_READONLY:
        return DatabaseErrorNumber::ReadOnly;
    case SQLITE_CANTOPEN:
        return DatabaseErrorNumber::SourceMissing;
    case SQLITE_CONSTRAINT:
        return DatabaseErrorNumber::Refused;
    case SQLITE_ERROR:
        // A table that vanished under an open session has no code of its own.
        return error.text().contains(QLatin1String("no such table")) ? DatabaseErrorNumber::TablesMissing
                                                                     : EngineFailure;
    default:
        return EngineFailure;
    }
}

std::optional<quint32> SqliteEngine::DataVersion(const QSqlDatabase& database) const
{
    sqlite3* handle = Handle(database);
    unsigned int version = 0;
    if (!handle || sqlite3_file_control(handle, "main", SQLITE_FCNTL_DATA_VERSION, &version) != SQLITE_OK)
        return std::nullopt;
    return version;
}

bool SqliteEngine::HasLostTransaction(const QSqlDatabase& database) const
{
    sqlite3* handle = Handle(database);
    return handle && sqlite3_get_autocommit(handle) != 0;
}

bool SqliteEngine::HasLostSource(const QSqlDatabase&) const
{
    return IdentityOf(m_path) != m_identity;
}

sqlite3* SqliteEngine::Handle(const QSqlDatabase& database) const
{
    return m_handle ? m_handle : SharedHandle(database);
}

std::optional<SqliteEngine::FileIdentity> SqliteEngine::IdentityOf(const QByteArray& path)
{
    struct stat status;
    if (stat(path.constData(), &status) != 0)
        return std::nullopt;
    return FileIdentity{status.st_dev, status.st_ino};
}
