#include "scan/network/ScanState.h"

#include <utility>

ScanState& Scan()
{
    static ScanState state;
    return state;
}

void CloseScan()
{
    // Kept here: closing may let events run that let go of it.
    if (const std::shared_ptr<SyncConnection> connection = std::exchange(Scan().SyncConnObj, nullptr))
        connection->Close();
    Scan().HVXUtilObject.reset();
}

void ReleaseScan()
{
    Scan().SyncConnObj.reset();
    Scan().HVXUtilObject.reset();
}
