#pragma once

#include "model/ConData.h"

#include <memory>
#include <vector>

class BrowserControl;

/// The module-level state of the control itself: one instance in the process, shared by all controls.
struct BrowserState
{
    /// The control whose hooks the dialogs use; not owned, null for none.
    const void* HooksOwner = nullptr;
    /// A start of a control has come to its end.
    bool ControlInitialized = false;
    bool DirectNodeTabEnabled = false;
    /// Page that a control opens with: 1 the direct one, any other the database.
    int BrowserTabIndex = 1;
    /// Loads, commands and dialogs that run; a refresh that falls due meanwhile is left out.
    int Busy = 0;
    /// Controls that have loaded their trees; not owned. One position in the Journal serves them all, so a
    /// refresh of one brings the trees of all up to date.
    std::vector<BrowserControl*> Loaded;
    /// Working objects that a start has replaced under an open dialog, which still uses them.
    std::vector<std::unique_ptr<ConData>> Replaced;
};

/// The one instance.
BrowserState& Browser();

/// Counts a load, a command or a dialog for as long as it lives.
class BusyScope
{
public:
    BusyScope() { ++Browser().Busy; }
    ~BusyScope()
    {
        if (--Browser().Busy == 0)
            Browser().Replaced.clear();
    }
    BusyScope(const BusyScope&) = delete;
    BusyScope& operator=(const BusyScope&) = delete;
};
