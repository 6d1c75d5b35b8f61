#include "components/hvxdb/RightsRoles.h"

#include "components/hvxdb/SqlFailure.h"
#include "components/hvxdb/SqlNames.h"

void RightsRoles::Set(const QString& user, bool scan, bool edit)
{
    if (user == QLatin1String("*"))
        RaiseRefusal(QStringLiteral("A server gives rights to its users one by one, not to everyone."));
    bool known = false;
    m_session->ReadText(QStringLiteral("SELECT CAST(rolname AS text) FROM pg_roles"),
                        [&](const QSqlQuery& row) { known = known || row.value(0).toString() == user; });
    if (!known)
        RaiseRefusal(QStringLiteral("The server has no user %1.").arg(user));
    Change(QStringLiteral("read"), user, true);
    Change(QStringLiteral("scan"), user, scan);
    Change(QStringLiteral("edit"), user, edit);
}

QString RightsRoles::RoleThat(const QString& allows)
{
    QString role;
    m_session->ReadText(QStringLiteral("SELECT role_name FROM rights_role WHERE allows = '%1'").arg(allows),
                        [&role](const QSqlQuery& row) { role = row.value(0).toString(); });
    if (role.isEmpty())
        RaiseRefusal(QStringLiteral("The database names no role that may %1.").arg(allows));
    return role;
}

void RightsRoles::Change(const QString& allows, const QString& user, bool give)
{
    m_session->RunUnprepared((give ? QStringLiteral("GRANT %1 TO %2") : QStringLiteral("REVOKE %1 FROM %2"))
                                 .arg(QuotedSqlName(RoleThat(allows)), QuotedSqlName(user)));
}
