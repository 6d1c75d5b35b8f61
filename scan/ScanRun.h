#pragma once

#include "platform/HvxUtility.h"
#include "platform/SyncConnection.h"

#include <memory>

/// One conversation with the network that is under way, and whether it still is.
///
/// Opening, sending, closing and boxes let events run, in which the operator may close the window and the
/// host may destroy it. Who waits holds the run, and the component that it calls, and asks `ended` when it is
/// back: of an ended run neither the window nor the module's state is touched, and nothing is told.
struct ScanRun
{
    /// Null before they are created and after they were let go of.
    std::shared_ptr<SyncConnection> connection;
    std::shared_ptr<HvxUtility> utility;
    bool ended = false;

    /// Lets go of both, and Scan() too where it holds the same.
    void Release();
    /// The same, and closes the connection; raises what closing raises, after letting go.
    void Close();
    /// The same where a failure has been told already, or nobody is there to be told.
    void CloseQuietly() noexcept;
    /// Somebody else has taken the connection away from Scan(). For runs that gave it theirs.
    [[nodiscard]] bool IsTakenAway() const;
};
