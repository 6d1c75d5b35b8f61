#include "components/hvxdb/PostgresSource.h"

#include "components/hvxdb/SqlFailure.h"

#include <QStringList>

#include <libpq-fe.h>
#include <memory>

namespace {

/// What a connection has unless the address says otherwise: an end to the wait for a server that is silent,
/// be it before the connection stands, while it rests or while an answer is due.
const std::map<QString, QString> Defaults{
    {QStringLiteral("application_name"), QStringLiteral("zelka")},
    {QStringLiteral("client_encoding"), QStringLiteral("UTF8")},
    {QStringLiteral("connect_timeout"), QStringLiteral("10")},
    {QStringLiteral("keepalives_idle"), QStringLiteral("15")},
    {QStringLiteral("keepalives_interval"), QStringLiteral("5")},
    {QStringLiteral("keepalives_count"), QStringLiteral("3")},
    {QStringLiteral("tcp_user_timeout"), QStringLiteral("30000")},
};

/// As one value of a list of parameters.
QString Quoted(QString value)
{
    value.replace(u'\\', QLatin1String("\\\\")).replace(u'\'', QLatin1String("\\'"));
    return u'\'' + value + u'\'';
}

} // namespace

bool PostgresSource::IsOne(const QString& source)
{
    return source.startsWith(QLatin1String("postgresql://")) ||
           source.startsWith(QLatin1String("postgres://"));
}

PostgresSource::PostgresSource(const QString& url) : m_parameters(Defaults)
{
    char* reason = nullptr;
    const std::unique_ptr<PQconninfoOption, decltype(&PQconninfoFree)> options(
        PQconninfoParse(url.toUtf8().constData(), &reason), PQconninfoFree);
    if (!options) {
        const QString words = QString::fromUtf8(reason).trimmed();
        PQfreemem(reason);
        RaiseFailure(DatabaseErrorNumber::SourceMissing,
                     QStringLiteral("The address of the database cannot be read: %1").arg(words));
    }
    for (const PQconninfoOption* option = options.get(); option->keyword; ++option) {
        if (option->val)
            m_parameters[QString::fromUtf8(option->keyword)] = QString::fromUtf8(option->val);
    }
}

PostgresSource PostgresSource::WithDatabase(const QString& name) const
{
    PostgresSource other(*this);
    other.m_parameters[QStringLiteral("dbname")] = name;
    return other;
}

void PostgresSource::ApplyTo(QSqlDatabase& database) const
{
    QStringList options;
    for (const auto& [name, value] : m_parameters) {
        if (name == QLatin1String("dbname")) {
            database.setDatabaseName(value);
        } else if (name == QLatin1String("user")) {
            database.setUserName(value);
        } else if (name == QLatin1String("password")) {
            database.setPassword(value);
        } else if (name == QLatin1String("host")) {
            database.setHostName(value);
        } else {
            // The driver takes this character for the end of an option, wherever it stands.
            if (value.contains(u';'))
                RaiseFailure(DatabaseErrorNumber::SourceMissing,
                             QStringLiteral("The address of the database has a \";\" in %1.").arg(name));
            options << name + u'=' + Quoted(value);
        }
    }
    database.setConnectOptions(options.join(u';'));
}
