#include "scan/ScanRun.h"

#include "scan/network/ScanState.h"

#include <exception>
#include <utility>

void ScanRun::Release()
{
    if (Scan().SyncConnObj == connection)
        ReleaseScan();
    connection.reset();
    utility.reset();
}

void ScanRun::Close()
{
    // Both outlive the closing, which lets events run.
    const std::shared_ptr<HvxUtility> kept = utility;
    const std::shared_ptr<SyncConnection> closing = connection;
    Release();
    if (closing)
        closing->Close();
}

void ScanRun::CloseQuietly() noexcept
{
    try {
        Close();
    } catch (const std::exception&) {
        // It is given up in any case.
    }
}

bool ScanRun::IsTakenAway() const
{
    return connection && Scan().SyncConnObj != connection;
}
