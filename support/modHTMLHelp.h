#pragma once

#include "platform/ComponentError.h"

#include <QString>

/// The help file of the control and the window that shows its topics.
namespace modHTMLHelp {

/// Shows a topic such as "Browser4Scan00000045.htm"; one that names a place in its page is scrolled to. Where
/// there is no help file nothing happens; a file that cannot be used is told in an error box.
void ShowHelpTopic(const QString& topic);
/// The same with a topic of any help file.
void ShowTopicOf(const QString& file, const QString& topic);

/// The help file: beside the control, or where an installation keeps it. Where there is none, the file that
/// is missed.
[[nodiscard]] QString HelpFilePath();
/// The same for a control that lies in `folder`.
[[nodiscard]] QString HelpFileOf(const QString& folder);

/// Tells the operator in an error box why the help could not be shown.
void ReportHelpError(const ComponentError& error);

} // namespace modHTMLHelp

/// Gives the help to the control and its dialogs.
void OfferHelp();
