#include "platform/controls/DisabledReason.h"

#include <QVariant>
#include <QWidget>

namespace {

/// What the tool tip and the description were before a reason was put behind them.
constexpr auto UsualTip = "usualToolTip";
constexpr auto UsualDescription = "usualDescription";

/// The text as it was when it was first asked for.
QString Usual(QWidget& command, const char* name, const QString& now)
{
    if (!command.property(name).isValid())
        command.setProperty(name, now);
    return command.property(name).toString();
}

} // namespace

QString ReasonText(DisabledReason reason)
{
    switch (reason) {
    case DisabledReason::None:
        return {};
    case DisabledReason::DatabaseClosed:
        return QStringLiteral("No database is open.");
    case DisabledReason::NoEditRight:
        return QStringLiteral("You have no right to change the database.");
    case DisabledReason::NoScanRight:
        return QStringLiteral("You have no right to scan.");
    case DisabledReason::NothingSelected:
        return QStringLiteral("Nothing is selected.");
    case DisabledReason::RootSelected:
        return QStringLiteral("Select a connection or a node; this is the root of all.");
    case DisabledReason::WaypointSelected:
        return QStringLiteral("A waypoint is selected; select its connection.");
    case DisabledReason::NodeSelected:
        return QStringLiteral("A node is selected; select its connection.");
    case DisabledReason::AddBelowNode:
        return QStringLiteral("Nothing is added below a node; select a connection, or turn to the nodes.");
    case DisabledReason::NoConnectionSelected:
        return QStringLiteral("Select a connection.");
    case DisabledReason::ScanInNodeView:
        return QStringLiteral("Connections are scanned; turn to the connections.");
    case DisabledReason::SnmpConnection:
        return QStringLiteral("The connection reaches its node by SNMP; there is nothing to scan.");
    case DisabledReason::OnlySnmpConnection:
        return QStringLiteral("Only a connection that reaches its node by SNMP uses this.");
    case DisabledReason::NodesNotViewed:
        return QStringLiteral("The connections show their waypoints; choose View Nodes.");
    case DisabledReason::NoNodeSelected:
        return QStringLiteral("Select a node.");
    case DisabledReason::NoManager:
        return QStringLiteral("No manager is known for this node.");
    case DisabledReason::AllLoaded:
        return QStringLiteral("All nodes are loaded.");
    case DisabledReason::AllLoadedHere:
        return QStringLiteral("The connection has no more nodes.");
    case DisabledReason::NoConnectionChosen:
        return QStringLiteral("No connection is chosen.");
    case DisabledReason::ScanRuns:
        return QStringLiteral("The scan runs; stop it first.");
    case DisabledReason::NothingFound:
        return QStringLiteral("No nodes have been found yet.");
    case DisabledReason::NoFoundSelected:
        return QStringLiteral("Select a found node.");
    case DisabledReason::NoBus:
        return QStringLiteral("The connection has no bus to choose.");
    case DisabledReason::NoBusSelected:
        return QStringLiteral("Select a bus.");
    case DisabledReason::NoLines:
        return QStringLiteral("The list is empty.");
    case DisabledReason::NoLineSelected:
        return QStringLiteral("Select one or more nodes of the list.");
    case DisabledReason::NameTooLong:
        return QStringLiteral("A selected name is too long; rename it.");
    case DisabledReason::NameExists:
        return QStringLiteral("A selected name exists already; rename it, or replace the stored node.");
    case DisabledReason::NothingChanged:
        return QStringLiteral("Nothing has been changed.");
    case DisabledReason::SnmpHasNoManager:
        return QStringLiteral("A node that is reached by SNMP has no manager.");
    case DisabledReason::NoTarget:
        return QStringLiteral("There is no target.");
    case DisabledReason::NoRequest:
        return QStringLiteral("Type a request.");
    case DisabledReason::WaitsForReply:
        return QStringLiteral("A reply is still waited for.");
    case DisabledReason::NotConnected:
        return QStringLiteral("There is no connection.");
    }
    return {};
}

void ShowReason(QWidget& command, DisabledReason reason)
{
    const QString tip = Usual(command, UsualTip, command.toolTip());
    const QString description = Usual(command, UsualDescription, command.accessibleDescription());
    const QString text = ReasonText(reason);
    const auto with = [&](const QString& usual, QChar between) {
        return usual.isEmpty() || text.isEmpty() ? usual + text : usual + between + text;
    };
    command.setToolTip(with(tip, QLatin1Char('\n')));
    command.setAccessibleDescription(text.isEmpty() ? description
                                                    : with(description.isEmpty() ? tip : description, u'\n'));
}

void OfferCommand(QWidget& command, DisabledReason reason)
{
    command.setEnabled(reason == DisabledReason::None);
    ShowReason(command, reason);
}
