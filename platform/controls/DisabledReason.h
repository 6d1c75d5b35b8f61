#pragma once

#include <QString>

class QWidget;

/// Why a command cannot be given now; what all windows know of that stands here.
enum class DisabledReason : quint8
{
    /// It can.
    None,
    DatabaseClosed,
    NoEditRight,
    NoScanRight,
    // The trees
    NothingSelected,
    RootSelected,
    WaypointSelected,
    NodeSelected,
    AddBelowNode,
    NoConnectionSelected,
    ScanInNodeView,
    SnmpConnection,
    OnlySnmpConnection,
    NodesNotViewed,
    NoNodeSelected,
    NoManager,
    AllLoaded,
    AllLoadedHere,
    NoConnectionChosen,
    // A scan and what it found
    ScanRuns,
    NothingFound,
    NoFoundSelected,
    NoBus,
    NoBusSelected,
    NoLines,
    NoLineSelected,
    NameTooLong,
    NameExists,
    // Dialogs
    NothingChanged,
    SnmpHasNoManager,
    // A host's panels
    NoTarget,
    NoRequest,
    WaitsForReply,
    NotConnected,
};

/// The reason in the operator's words; empty for None.
[[nodiscard]] QString ReasonText(DisabledReason reason);

/// Puts the reason behind what a command's tool tip tells anyway, for those who see and for those who
/// listen; None takes it away again. A disabled command shows its tool tip too.
void ShowReason(QWidget& command, DisabledReason reason);

/// Lets a command be given exactly when there is no reason against it, and tells the reason.
void OfferCommand(QWidget& command, DisabledReason reason);
