#pragma once

#include <QString>
#include <QStringList>

#include <ZelkaBrowser/Export.h>
#include <functional>

class QWidget;

/// What a host may choose beside the control itself. Nothing here must be called: a control that is only made
/// and shown uses the machine's database, the installed components and windows for its boxes.
///
/// Thread: the one of the user interface, once the application object exists. Choices hold for all controls
/// of the process and are to be made before the first one starts.
namespace Zelka {

/// The library's version: major, minor and build number, such as "4.2.0".
[[nodiscard]] ZELKA_EXPORT QString Version();

/// Chooses the database: a file, or `postgresql://user@host/database`. Sets the environment variable
/// ZELKA_DBS32, so that programs which this one starts use the same. Empty: the machine's own choice. Whether
/// it can be opened shows when a control starts.
ZELKA_EXPORT void ChooseDatabase(const QString& source);

/// Chooses the gateway over which connections are reached that name none, as `host:port`. Sets the
/// environment variable ZELKA_GATEWAY. Empty: the machine's own choice.
ZELKA_EXPORT void ChooseGateway(const QString& address);

/// Looks for the components (database, connection, utility) in these folders, in this order, instead of the
/// folder `zelka` below each of Qt's plugin paths.
ZELKA_EXPORT void SetComponentFolders(const QStringList& folders);

/// Speaks a language ("en", "de", "fr") in place of English or of the one that ZELKA_LANGUAGE names. To be
/// called before a control is made. False: there are no words for it, and nothing was changed.
[[nodiscard]] ZELKA_EXPORT bool UseLanguage(const QString& language);

/// Shows help topics in a viewer of the host's own; null: no help. A topic is a page's file name with an
/// anchor, such as "Zelka_Connection_Tool_Overview.htm#DatabaseTab1".
ZELKA_EXPORT void SetHelpViewer(const std::function<void(const QString& topic)>& show);

/// Shows a dialog that tells which version of the control is registered for the user. Returns when it is
/// closed.
ZELKA_EXPORT void ShowVersion(QWidget* parent = nullptr);

/// Registers this library as the user's control, in place of another one. Where none is registered, the
/// library does so by itself.
ZELKA_EXPORT void RegisterControl();

} // namespace Zelka
