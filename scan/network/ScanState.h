#pragma once

#include "platform/HvxUtility.h"
#include "platform/SyncConnection.h"
#include "scan/network/SaveList.h"

#include <memory>
#include <vector>

/// The module-level state of scans: one instance in the process, shared by all controls.
struct ScanState
{
    /// The connection of the scan that runs and the utility that reads its replies; null while none runs. The
    /// walk holds both as well while it waits, so the host may let go of them at any time.
    std::shared_ptr<SyncConnection> SyncConnObj;
    std::shared_ptr<HvxUtility> HVXUtilObject;
    /// The bus chosen from the list; -1: none.
    qint32 SelectedBus = -1;

    /// The found nodes that are being saved; their count.
    std::vector<ScanSaveRow> ScanSaveList;
    [[nodiscard]] int ScanSaveCount() const { return static_cast<int>(ScanSaveList.size()); }
    /// Those of them that the operator has selected; their count.
    std::vector<ScanSelSaveRow> ScanSelSaveRows;
    [[nodiscard]] int ScanSelSaveCount() const { return static_cast<int>(ScanSelSaveRows.size()); }
    /// True: nodes that exist stay; False: they are replaced.
    bool ScanSelSaveMode = true;
};

/// The one instance.
ScanState& Scan();

/// Closes the connection, if there is one, and lets go of both components; a wait that is under way ends with
/// an error.
void CloseScan();
/// The same without closing.
void ReleaseScan();
