#include "components/hvxdb/SqliteCopySide.h"

#include "components/hvxdb/HvxSchema.h"
#include "components/hvxdb/SqlScript.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <sys/stat.h>

namespace {

/// The file of the session; empty for a database in memory.
QString FileOf(SqlSession& session)
{
    QString file;
    session.ReadText(QStringLiteral("SELECT file FROM pragma_database_list WHERE name = 'main'"),
                     [&file](const QSqlQuery& row) { file = row.value(0).toString(); });
    return file;
}

/// The statements of the schema that make triggers and indexes.
QString TriggersAndIndexes(const HvxEngine& engine)
{
    static const QRegularExpression wanted(QStringLiteral("^CREATE (TRIGGER|(UNIQUE )?INDEX)\\b"));
    return SplitSqlScript(HvxSchema::ScriptsOf(engine).create).filter(wanted).join(u'\n');
}

} // namespace

bool SqliteCopySide::IsAt(const QString& source)
{
    struct stat own = {};
    struct stat other = {};
    return stat(QFile::encodeName(FileOf(*m_session)).constData(), &own) == 0 &&
           stat(QFile::encodeName(source).constData(), &other) == 0 && own.st_dev == other.st_dev &&
           own.st_ino == other.st_ino;
}

void SqliteCopySide::BeginRows()
{
    QStringList drops;
    // Indexes without a text belong to the constraints of their table.
    m_session->ReadText(
        QStringLiteral("SELECT type, name FROM sqlite_master"
                       " WHERE type IN ('trigger', 'index') AND sql IS NOT NULL"),
        [&drops](const QSqlQuery& row) {
            drops << QStringLiteral("DROP %1 %2").arg(row.value(0).toString(), row.value(1).toString());
        });
    for (const QString& drop : drops)
        m_session->RunText(drop);
}

void SqliteCopySide::EndRows()
{
    m_session->RunScript(TriggersAndIndexes(m_session->Engine()));
}

DatabaseCounters SqliteCopySide::Counters()
{
    DatabaseCounters counters;
    counters.recordId = m_session->NumberOfText(QStringLiteral("SELECT last_id FROM record_sequence"));
    counters.managerIndex =
        m_session->NumberOfText(QStringLiteral("SELECT seq FROM sqlite_sequence WHERE name = 'manager'"));
    return counters;
}

void SqliteCopySide::SetCounters(const DatabaseCounters& counters)
{
    m_session->RunText(QStringLiteral("UPDATE record_sequence SET last_id = ?"), {counters.recordId});
    m_session->RunText(QStringLiteral("DELETE FROM sqlite_sequence WHERE name = 'manager'"));
    if (counters.managerIndex == 0)
        return;
    m_session->RunText(QStringLiteral("INSERT INTO sqlite_sequence (name, seq) VALUES ('manager', ?)"),
                       {counters.managerIndex});
}

std::vector<StoredRights> SqliteCopySide::Rights()
{
    std::vector<StoredRights> rights;
    m_session->ReadText(
        QStringLiteral("SELECT user_name, may_scan, may_edit FROM user_rights ORDER BY user_name"),
        [&rights](const QSqlQuery& row) {
            rights.push_back({row.value(0).toString(), row.value(1).toBool(), row.value(2).toBool()});
        });
    return rights;
}

QStringList SqliteCopySide::SetRights(const std::vector<StoredRights>& rights)
{
    m_session->RunText(QStringLiteral("DELETE FROM user_rights"));
    for (const StoredRights& user : rights)
        m_session->Write(HvxStatement::StoreRights, {user.user, user.mayScan ? 1 : 0, user.mayEdit ? 1 : 0});
    return {};
}
