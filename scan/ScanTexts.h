#pragma once

#include "platform/Words.h"

#include <QString>

/// The words of the scan dialog that are not in its form.
namespace ScanTexts {

// Captions of cmdStartStop: the state of the scan

inline QString Start()
{
    return Words::tr("S&tart");
}

inline QString Stop()
{
    return Words::tr("Stop");
}

inline QString StopRequested()
{
    return Words::tr("Stop ...");
}

inline QString Progress()
{
    return Words::tr("Scan progress");
}

inline QString Scanning()
{
    return Words::tr("Scanning %1");
}

/// With the connection's name.
inline QString Title()
{
    return Words::tr("Scan %1");
}

// What is wrong with the operator's input

inline QString NoRange()
{
    return Words::tr("Give scan address range.");
}

inline QString RetriesRefused()
{
    return Words::tr("Timing retries is out of range, allowd values are from %1 to %2.");
}

inline QString TimeOutRefused()
{
    return Words::tr("Timing time-out is out of range, allowd values are from %1 to %2.");
}

inline QString EndBelowBegin()
{
    return Words::tr("Address range end value must be equal or greater than the begin value.");
}

inline QString AcceptedRange()
{
    return Words::tr("The accepted address range for the scan is from 0 to %1");
}

inline QString LargestBus()
{
    return Words::tr("Bus Number maximum value is %1.");
}

inline QString BusNotSet()
{
    return Words::tr("Error in bus setting.");
}

inline QString NothingSelected()
{
    return Words::tr("Nothing selected.");
}

// How a scan ended

inline QString NoNodesTitle()
{
    return Words::tr("Scan");
}

inline QString NoNodes()
{
    return Words::tr("No nodes were found in the scan.");
}

inline QString Defective()
{
    return Words::tr("Probably HVX installation is defective or some required components are missing.");
}

inline QString NoConnection()
{
    return Words::tr("HVXSyncConn component creation failure");
}

inline QString NoUtility()
{
    return Words::tr("HVXUtility component creation failure");
}

inline QString NotOpened()
{
    return Words::tr("Connection could not be opened.");
}

inline QString NotRunning()
{
    return Words::tr("Zelka HVX Service error, it is not runnig.");
}

inline const QString LineBreak = QStringLiteral("\r\n");

} // namespace ScanTexts
