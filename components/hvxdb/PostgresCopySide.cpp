#include "components/hvxdb/PostgresCopySide.h"

#include "components/hvxdb/CopiedTable.h"
#include "components/hvxdb/PostgresSource.h"
#include "components/hvxdb/RightsRoles.h"
#include "components/hvxdb/SqlSession.h"
#include "platform/ComponentError.h"

#include <QRandomGenerator>

namespace {

const QString ManagerSequence = QStringLiteral("manager_manager_index_seq");

} // namespace

bool PostgresCopySide::IsAt(const QString& source)
{
    if (!PostgresSource::IsOne(source))
        return false;
    SqlSession other;
    try {
        other.Connect(source);
    } catch (const ComponentError&) {
        // Where nobody gets in, the maker of the target tells why.
        return false;
    }
    // A lock is known in one database only, by whatever address a session came to it.
    const quint32 key = QRandomGenerator::system()->generate() >> 1;
    (void)m_session->NumberOfText(QStringLiteral("SELECT 1 FROM pg_advisory_xact_lock(1249, %1)").arg(key));
    return other.NumberOfText(
               QStringLiteral("SELECT CAST(pg_try_advisory_lock(1249, %1) AS integer)").arg(key)) == 0;
}

void PostgresCopySide::BeginRows()
{
    Switch(QStringLiteral("DISABLE"));
}

void PostgresCopySide::EndRows()
{
    // What the triggers would have kept.
    m_session->RunText(QStringLiteral("INSERT INTO record_name SELECT name_key FROM connection"
                                      " UNION ALL SELECT name_key FROM node"));
    Switch(QStringLiteral("ENABLE"));
}

void PostgresCopySide::Switch(const QString& verb)
{
    for (const CopiedTable& table : CopiedTables())
        m_session->RunUnprepared(QStringLiteral("ALTER TABLE %1 %2 TRIGGER USER").arg(table.name, verb));
}

DatabaseCounters PostgresCopySide::Counters()
{
    DatabaseCounters counters;
    counters.recordId = m_session->NumberOfText(QStringLiteral(
        "SELECT CASE WHEN is_called THEN last_value ELSE last_value - 1 END FROM record_sequence"));
    // NULL where no index was given yet.
    counters.managerIndex = m_session->NumberOfText(
        QStringLiteral(
            "SELECT last_value FROM pg_sequences WHERE schemaname = 'public' AND sequencename = '%1'")
            .arg(ManagerSequence));
    return counters;
}

void PostgresCopySide::SetCounters(const DatabaseCounters& counters)
{
    SetSequence(QStringLiteral("record_sequence"), QString::number(counters.recordId));
    SetSequence(
        ManagerSequence,
        QStringLiteral("greatest(%1, (SELECT max(manager_index) FROM manager))").arg(counters.managerIndex));
    SetSequence(QStringLiteral("connection_row_key_seq"),
                QStringLiteral("(SELECT max(row_key) FROM connection)"));
    SetSequence(QStringLiteral("journal_sequence"), QStringLiteral("(SELECT max(id) FROM journal)"));
}

void PostgresCopySide::SetSequence(const QString& sequence, const QString& last)
{
    (void)m_session->NumberOfText(
        QStringLiteral("SELECT setval('%1', greatest(used.last, 1), used.last > 0)"
                       " FROM (SELECT CAST(coalesce(%2, 0) AS bigint) AS last) AS used")
            .arg(sequence, last));
}

std::vector<StoredRights> PostgresCopySide::Rights()
{
    std::vector<StoredRights> rights;
    m_session->ReadText(
        QStringLiteral(
            "SELECT u.rolname, CAST(pg_has_role(u.oid, s.oid, 'USAGE') AS integer),"
            " CAST(pg_has_role(u.oid, e.oid, 'USAGE') AS integer) FROM pg_roles u"
            " JOIN pg_roles r ON r.rolname = (SELECT role_name FROM rights_role WHERE allows = 'read')"
            " JOIN pg_roles s ON s.rolname = (SELECT role_name FROM rights_role WHERE allows = 'scan')"
            " JOIN pg_roles e ON e.rolname = (SELECT role_name FROM rights_role WHERE allows = 'edit')"
            " WHERE u.rolcanlogin AND NOT u.rolsuper AND pg_has_role(u.oid, r.oid, 'USAGE')"
            " ORDER BY u.rolname"),
        [&rights](const QSqlQuery& row) {
            rights.push_back({row.value(0).toString(), row.value(1).toInt() != 0, row.value(2).toInt() != 0});
        });
    return rights;
}

QStringList PostgresCopySide::SetRights(const std::vector<StoredRights>& rights)
{
    QStringList roles;
    m_session->ReadText(QStringLiteral("SELECT CAST(rolname AS text) FROM pg_roles"),
                        [&roles](const QSqlQuery& row) { roles << row.value(0).toString(); });
    QStringList remarks;
    for (const StoredRights& user : rights) {
        if (user.user == QLatin1String("*")) {
            if (user.mayScan || user.mayEdit)
                remarks << QStringLiteral("a server gives no rights to everyone: those of * were not copied");
        } else if (roles.contains(user.user)) {
            RightsRoles(*m_session).Set(user.user, user.mayScan, user.mayEdit);
        } else {
            remarks << QStringLiteral("no role %1 on the server: its rights were not copied").arg(user.user);
        }
    }
    return remarks;
}
