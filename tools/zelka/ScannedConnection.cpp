#include "tools/zelka/ScannedConnection.h"

#include "database/DatabaseClass.h"
#include "database/DatabaseState.h"
#include "model/ConData.h"
#include "model/TextHelpers.h"
#include "tools/zelka/CommandError.h"
#include "tools/zelka/DatabaseSession.h"
#include "tools/zelka/RecordLookup.h"
#include "tools/zelka/RecordTypes.h"

namespace {

const QString BusParameter = QStringLiteral("BUS NUMBER");

void RequireScanRight(const DatabaseSession& session)
{
    session.Require(session.Gateway().SetUserSecurityDb());
    if (!Database().ScanRight)
        throw CommandError(ExitCode::Refused, QStringLiteral("This user has no right to scan."));
}

struct Limits
{
    int lowest = 0;
    int highest = 0;
};

Limits LimitsOf(const DatabaseSession& session, const QString& keyword)
{
    DatabaseClass::GridParameter data;
    if (session.Gateway().GetGridParameterDataDb(QStringLiteral("SOCKET"), keyword, data) &&
        data.values.size() >= 2)
        return {ValInt(data.values[0]), ValInt(data.values[1])};
    return {0, keyword == u"RETRY" ? 1000 : 30'000};
}

} // namespace

ConData& ScannedConnection(const DatabaseSession& session, const QString& name, std::optional<int> bus)
{
    const FoundRecord record = FindConnection(session, name);
    RequireScanRight(session);
    if (IsSnmpConnectionType(TypeOfConnection(session, record.name)))
        throw CommandError(
            ExitCode::Refused,
            QStringLiteral("The connection \"%1\" is of the SNMP family, which is not scanned.")
                .arg(record.name));
    ConData& connection = session.Connection();
    const bool loaded = connection.SetParentConData(record.name, true);
    session.RequireNoErrorBox();
    if (!loaded)
        throw CommandError(ExitCode::Refused,
                           QStringLiteral("The connection \"%1\" cannot be read.").arg(record.name));
    if (bus && !connection.SetWpParamByName(BusParameter, QString::number(*bus)))
        throw CommandError(ExitCode::Refused,
                           QStringLiteral("The connection \"%1\" leads over no bus.").arg(record.name));
    return connection;
}

bool HasBus(const ConData& connection)
{
    QString bus;
    return connection.GetWpParamByName(BusParameter, bus);
}

void RequireTimingLimits(const DatabaseSession& session, const QString& keyword, const QString& what,
                         int value)
{
    const Limits limits = LimitsOf(session, keyword);
    if (value < limits.lowest || value > limits.highest)
        throw CommandError(ExitCode::Usage,
                           QStringLiteral("%1 must be from %2 to %3.")
                               .arg(what, QString::number(limits.lowest), QString::number(limits.highest)));
}
