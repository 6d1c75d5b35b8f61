#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxdb/HvxDatabaseComponent.h"
#include "platform/Components.h"
#include "platform/NamedValues.h"

#include <QRegularExpression>
#include <QStandardPaths>

namespace {

QString& ChosenSource()
{
    static QString source;
    return source;
}

} // namespace

QString DataSource(const QString& chosen)
{
    if (!chosen.isEmpty())
        return chosen;
    const QString fromEnvironment = qEnvironmentVariable("ZELKA_DBS32");
    if (!fromEnvironment.isEmpty())
        return fromEnvironment;
    const QString named = NamedValues().Read(QStringLiteral("ODBC/DBS32")).value_or(QString());
    if (!named.isEmpty())
        return named;
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/zelka/Dbs.mdb");
}

bool IsServerSource(const QString& source)
{
    static const QRegularExpression url(QStringLiteral("^[a-z]+://"));
    return url.match(source).hasMatch();
}

QString ShownSource(const QString& source)
{
    if (!IsServerSource(source))
        return source;
    // A password may hold any character: all from the first ":" of the user to the last "@" is taken for it,
    // unless the ":" is that of a port.
    static const QRegularExpression ofUser(QStringLiteral("^([a-z]+://[^:@/?]*):(?!\\d+/).*@"));
    static const QRegularExpression ofParameter(QStringLiteral("([?&](?:password|sslpassword)=)[^&]*"),
                                                QRegularExpression::CaseInsensitiveOption);
    QString shown = source;
    shown.replace(ofUser, QStringLiteral("\\1:***@"));
    shown.replace(ofParameter, QStringLiteral("\\1***"));
    return shown;
}

void SetDataSource(const QString& source)
{
    ChosenSource() = source;
}

void RegisterHvxDatabase()
{
    RegisterComponent(HvxDatabaseId,
                      [] { return std::make_unique<HvxDatabaseComponent>(DataSource(ChosenSource())); });
}
