#pragma once

#include <QString>

/// The targets of a scan, and the limits of what an operator may enter.

/// Addresses that can be scanned.
constexpr int LowestScanAddress = 0;
constexpr int HighestScanAddress = 4094;
/// Largest number of a bus.
constexpr int HighestBus = 999'999;

/// Target on which a scan opens its connection, from the full target of the connection.
[[nodiscard]] QString ScanTarget(const QString& connectionTarget);

/// Adds ",RETRY=" and ",TIME=", each only when its text is not empty, as it stands.
void AppendTimingParameters(QString& target, const QString& retries, const QString& timeOut);

/// Target of the requests to one address, relative to the connection of the scan.
[[nodiscard]] QString AddressTarget(int address, const QString& retries, const QString& timeOut);
