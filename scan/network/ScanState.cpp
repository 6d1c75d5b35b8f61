#include "scan/network/ScanState.h"

#include <utility>

ScanState& Scan()
{
    static ScanState state;
    return state;
}

void CloseScan()
{
    // Kept here: closing may let events run that start anew.
    const std::shared_ptr<HvxUtility> utility = std::exchange(Scan().HVXUtilObject, nullptr);
    if (const std::shared_ptr<SyncConnection> connection = std::exchange(Scan().SyncConnObj, nullptr))
        connection->Close();
}

void ReleaseScan()
{
    Scan().SyncConnObj.reset();
    Scan().HVXUtilObject.reset();
}
