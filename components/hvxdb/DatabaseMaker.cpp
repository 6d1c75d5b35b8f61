#include "components/hvxdb/DatabaseMaker.h"

#include "components/hvxdb/DefinitionTables.h"
#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxdb/HvxSchema.h"
#include "components/hvxdb/ServerDatabaseMaker.h"
#include "components/hvxdb/SqlFailure.h"
#include "components/hvxdb/SqliteEngine.h"
#include "platform/MachineSeams.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUuid>

namespace {

/// A database is up to three files; the latter two must never meet another database of the same name.
const QStringList FileEndings{QString(), QStringLiteral("-wal"), QStringLiteral("-shm")};

void RemoveFiles(const QString& source)
{
    for (const QString& ending : FileEndings)
        QFile::remove(source + ending);
}

bool AnyFileExists(const QString& source)
{
    return std::any_of(FileEndings.cbegin(), FileEndings.cend(),
                       [&source](const QString& ending) { return QFileInfo::exists(source + ending); });
}

/// Moves what exists of the three; on failure moves back what went. False: nothing has moved.
bool MoveFiles(const QString& from, const QString& to)
{
    QStringList moved;
    for (const QString& ending : FileEndings) {
        if (!QFileInfo::exists(from + ending))
            continue;
        if (!QFile::rename(from + ending, to + ending)) {
            for (const QString& back : moved)
                QFile::rename(to + back, from + back);
            return false;
        }
        moved << ending;
    }
    return true;
}

} // namespace

DatabaseMaker::DatabaseMaker(const QString& source) : m_source(QFileInfo(source).absoluteFilePath()) {}

QString DatabaseMaker::Make(const DatabaseFiller& fill, bool force)
{
    const QFileInfo info(m_source);
    if (info.isDir())
        RaiseRefusal(QStringLiteral("%1 is a folder.").arg(m_source));
    if (info.exists() && !force)
        RaiseRefusal(QStringLiteral("There is a file %1 already.").arg(m_source));
    if (!QDir().mkpath(info.absolutePath()))
        RaiseRefusal(QStringLiteral("The folder %1 cannot be made.").arg(info.absolutePath()));
    m_built = m_source + QStringLiteral(".new-") + QUuid::createUuid().toString(QUuid::Id128);
    try {
        Build(fill);
        const QString kept = KeepOld();
        TakePlace(kept);
        return kept;
    } catch (...) {
        RemoveFiles(m_built);
        throw;
    }
}

void DatabaseMaker::Build(const DatabaseFiller& fill)
{
    auto engine = std::make_unique<SqliteEngine>();
    const SqliteEngine& opener = *engine;
    SqlSession session;
    session.Connect(std::move(engine), [&](QSqlDatabase& database) { opener.ConnectNew(database, m_built); });
    opener.Settle(session.Database());
    session.Begin();
    HvxSchema(session, HvxSchema::ScriptsOf(opener)).Create();
    fill(session);
    session.Commit();
}

QString DatabaseMaker::KeepOld() const
{
    if (!AnyFileExists(m_source))
        return {};
    const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmss"));
    QString kept = m_source + u'.' + stamp;
    for (int number = 2; AnyFileExists(kept); ++number)
        kept = QStringLiteral("%1.%2-%3").arg(m_source, stamp).arg(number);
    if (!MoveFiles(m_source, kept))
        RaiseRefusal(QStringLiteral("The file %1 cannot be renamed to %2.").arg(m_source, kept));
    return kept;
}

void DatabaseMaker::TakePlace(const QString& kept) const
{
    QFile built(m_built);
    if (built.rename(m_source))
        return;
    const QString reason = built.errorString();
    if (!kept.isEmpty())
        MoveFiles(kept, m_source);
    RaiseRefusal(QStringLiteral("The file %1 cannot be made: %2").arg(m_source, reason));
}

QString MakeDatabase(const QString& source, const DatabaseFiller& fill, bool force)
{
    // Raises for sources of no engine.
    if (HvxEngine::ForSource(source)->IsServer())
        return ServerDatabaseMaker(source).Make(fill, force);
    return DatabaseMaker(source).Make(fill, force);
}

QString CreateHvxDatabase(const QString& source, const Catalogue& catalogue, bool force)
{
    return MakeDatabase(
        DataSource(source),
        [&catalogue](SqlSession& session) {
            WriteDefinitions(session, catalogue);
            // On a server the maker has a role of his own.
            if (!session.Engine().IsServer())
                session.Write(HvxStatement::StoreRights, {Machine().UserName(), 1, 1});
        },
        force);
}
