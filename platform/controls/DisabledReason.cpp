#include "platform/controls/DisabledReason.h"

#include "platform/Words.h"

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
        return Words::tr("No database is open.");
    case DisabledReason::NoEditRight:
        return Words::tr("You have no right to change the database.");
    case DisabledReason::NoScanRight:
        return Words::tr("You have no right to scan.");
    case DisabledReason::NothingSelected:
        return Words::tr("Nothing is selected.");
    case DisabledReason::RootSelected:
        return Words::tr("Select a connection or a node; this is the root of all.");
    case DisabledReason::WaypointSelected:
        return Words::tr("A waypoint is selected; select its connection.");
    case DisabledReason::NodeSelected:
        return Words::tr("A node is selected; select its connection.");
    case DisabledReason::AddBelowNode:
        return Words::tr("Nothing is added below a node; select a connection, or turn to the nodes.");
    case DisabledReason::NoConnectionSelected:
        return Words::tr("Select a connection.");
    case DisabledReason::ScanInNodeView:
        return Words::tr("Connections are scanned; turn to the connections.");
    case DisabledReason::SnmpConnection:
        return Words::tr("The connection reaches its node by SNMP; there is nothing to scan.");
    case DisabledReason::OnlySnmpConnection:
        return Words::tr("Only a connection that reaches its node by SNMP uses this.");
    case DisabledReason::NodesNotViewed:
        return Words::tr("The connections show their waypoints; choose View Nodes.");
    case DisabledReason::NoNodeSelected:
        return Words::tr("Select a node.");
    case DisabledReason::NoManager:
        return Words::tr("No manager is known for this node.");
    case DisabledReason::AllLoaded:
        return Words::tr("All nodes are loaded.");
    case DisabledReason::AllLoadedHere:
        return Words::tr("The connection has no more nodes.");
    case DisabledReason::NoConnectionChosen:
        return Words::tr("No connection is chosen.");
    case DisabledReason::ScanRuns:
        return Words::tr("The scan runs; stop it first.");
    case DisabledReason::NothingFound:
        return Words::tr("No nodes have been found yet.");
    case DisabledReason::NoFoundSelected:
        return Words::tr("Select a found node.");
    case DisabledReason::NoBus:
        return Words::tr("The connection has no bus to choose.");
    case DisabledReason::NoBusSelected:
        return Words::tr("Select a bus.");
    case DisabledReason::NoLines:
        return Words::tr("The list is empty.");
    case DisabledReason::NoLineSelected:
        return Words::tr("Select one or more nodes of the list.");
    case DisabledReason::NameTooLong:
        return Words::tr("A selected name is too long; rename it.");
    case DisabledReason::NameExists:
        return Words::tr("A selected name exists already; rename it, or replace the stored node.");
    case DisabledReason::NothingChanged:
        return Words::tr("Nothing has been changed.");
    case DisabledReason::SnmpHasNoManager:
        return Words::tr("A node that is reached by SNMP has no manager.");
    case DisabledReason::NoTarget:
        return Words::tr("There is no target.");
    case DisabledReason::NoRequest:
        return Words::tr("Type a request.");
    case DisabledReason::WaitsForReply:
        return Words::tr("A reply is still waited for.");
    case DisabledReason::NotConnected:
        return Words::tr("There is no connection.");
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
