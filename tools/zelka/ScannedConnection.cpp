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

CommandError NoBus(const QString& name)
{
    return {ExitCode::Refused, QStringLiteral("The connection \"%1\" leads over no bus.").arg(name)};
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
        throw NoBus(record.name);
    return connection;
}

void RequireStoredBus(const ConData& connection, int bus)
{
    QString stored;
    if (!connection.GetWpParamByName(BusParameter, stored))
        throw NoBus(connection.ConName);
    if (ValInt(stored) != bus)
        throw CommandError(
            ExitCode::Refused,
            QStringLiteral("The connection \"%1\" leads to bus %2, so nodes of bus %3 cannot be "
                           "saved under it.")
                .arg(connection.ConName, Trim(stored), QString::number(bus)));
}

bool HasBus(const ConData& connection)
{
    QString bus;
    return connection.GetWpParamByName(BusParameter, bus);
}
