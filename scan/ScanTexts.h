#pragma once

#include <QString>

/// The words of the scan dialog that are not in its form.
namespace ScanTexts {

// Captions of cmdStartStop: the state of the scan
inline const QString Start = QStringLiteral("S&tart");
inline const QString Stop = QStringLiteral("Stop");
inline const QString StopRequested = QStringLiteral("Stop ...");

inline const QString Progress = QStringLiteral("Scan progress");
inline const QString Scanning = QStringLiteral("Scanning ");
/// Before the connection's name.
inline const QString Title = QStringLiteral("Scan ");

// What is wrong with the operator's input
inline const QString NoRange = QStringLiteral("Give scan address range.");
inline const QString RetriesRefused = QStringLiteral("Timing retries");
inline const QString TimeOutRefused = QStringLiteral("Timing time-out");
inline const QString OutOfRange = QStringLiteral(" is out of range, allowd values are from ");
inline const QString To = QStringLiteral(" to ");
inline const QString EndBelowBegin =
    QStringLiteral("Address range end value must be equal or greater than the begin value.");
inline const QString AcceptedRange = QStringLiteral("The accepted address range for the scan is from 0 to ");
inline const QString LargestBus = QStringLiteral("Bus Number maximum value is ");
inline const QString BusNotSet = QStringLiteral("Error in bus setting.");
inline const QString NothingSelected = QStringLiteral("Nothing selected.");

// How a scan ended
inline const QString NoNodesTitle = QStringLiteral("Scan");
inline const QString NoNodes = QStringLiteral("No nodes were found in the scan.");
inline const QString Defective =
    QStringLiteral("Probably HVX installation is defective or some required components are missing.");
inline const QString NoConnection = QStringLiteral("HVXSyncConn component creation failure");
inline const QString NoUtility = QStringLiteral("HVXUtility component creation failure");
inline const QString NotOpened = QStringLiteral("Connection could not be opened.");
inline const QString NotRunning = QStringLiteral("Zelka HVX Service error, it is not runnig.");
inline const QString LineBreak = QStringLiteral("\r\n");

} // namespace ScanTexts
