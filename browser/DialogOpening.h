#pragma once

#include <functional>

class ConData;
class QWidget;

/// How the commands show the dialogs of a record; returns when the operator has closed it. One instance in
/// the process; a test puts its own openers in place.
struct DialogOpening
{
    using Opener = std::function<void(ConData& con, QWidget* parent)>;

    Opener ConnectionProperties;
    Opener NodeProperties;
    /// The connection of the Direct tab.
    Opener DirectProperties;
    /// The scan through a connection, which is the one of the Direct tab.
    Opener Scan;

    /// The real dialogs.
    DialogOpening();
};

/// The one instance.
DialogOpening& Opening();
