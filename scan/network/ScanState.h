#pragma once

#include "platform/HvxUtility.h"
#include "platform/SyncConnection.h"

#include <memory>

/// The module-level state of scans: one instance in the process, shared by all controls.
struct ScanState
{
    /// The connection of the scan that runs and the utility that reads its replies; null while none runs. The
    /// walk holds both as well while it waits, so the host may let go of them at any time.
    std::shared_ptr<SyncConnection> SyncConnObj;
    std::shared_ptr<HvxUtility> HVXUtilObject;
    /// The bus chosen from the list; -1: none.
    qint32 SelectedBus = -1;
};

/// The one instance.
ScanState& Scan();

/// Closes the connection, if there is one, and lets go of both components; a wait that is under way ends with
/// an error.
void CloseScan();
/// The same without closing.
void ReleaseScan();
