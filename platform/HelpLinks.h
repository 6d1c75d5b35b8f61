#pragma once

#include <QString>

/// The topics of the online help: a page of the help file, and where it names one a place in it.
namespace HelpLinks {

// What the dialogs open.
inline const QString Scan = QStringLiteral("Browser4Scan00000045.htm");
inline const QString ScanBusses = QStringLiteral("Browser4Scan_Busses.htm");
inline const QString ScanSaveAll = QStringLiteral("Browser4Save_Many_Nodes.htm#SaveManyNodes1");
inline const QString ScanNotSavedList = QStringLiteral("Browser4Save_Many_Nodes.htm#SaveManyNodes2");
inline const QString SaveDirectNode = QStringLiteral("Browser4Save_One_Node.htm#SaveDirect1");
inline const QString DatabaseConProp = QStringLiteral("Browser4Properties00000007.htm");
inline const QString DatabaseNodeProp = QStringLiteral("Browser4Properties00000036.htm");
inline const QString WpProp = QStringLiteral("Browser4Properties00000007.htm#acf22e1c");
inline const QString DirectProp = QStringLiteral("Browser4Connection_Definition.htm");
inline const QString MngrInfo = QStringLiteral("Browser4Add00000034.htm#3b49d612");
inline const QString ChSelPktSize = QStringLiteral("Browser4FE_Parameters.htm");

// What the control's tabs open.
inline const QString DatabaseTab = QStringLiteral("Zelka_Connection_Tool_Overview.htm#DatabaseTab1");
inline const QString DirectTab = QStringLiteral("Zelka_Connection_Tool_Overview.htm#DirectTab1");

// What a program's Help menu opens.
inline const QString Contents = QStringLiteral("index.htm");
inline const QString Workstation = QStringLiteral("Workstation.htm");
inline const QString Finding = QStringLiteral("Finding.htm");
inline const QString OtherWorkstations = QStringLiteral("Other_Workstations.htm");
inline const QString Keyboard = QStringLiteral("Keyboard.htm");
inline const QString Messages = QStringLiteral("Messages.htm");
inline const QString CommandLine = QStringLiteral("Command_Line.htm");

} // namespace HelpLinks
