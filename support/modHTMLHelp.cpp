#include "support/modHTMLHelp.h"

#include "platform/HelpHook.h"
#include "platform/ModuleFolder.h"
#include "platform/MsgBox.h"
#include "support/HelpFile.h"
#include "support/HelpWindow.h"

#include <QDir>
#include <QFileInfo>

#include <optional>

namespace {

/// In the folder of the control: in a build all is in one folder; an installation has its library in a folder
/// below the one that programs lie beside, or in one for a kind of machine below that.
QStringList HelpFilePlaces()
{
    return {QStringLiteral("Browser4.qch"), QStringLiteral("../share/zelka-browser/help/Browser4.qch"),
            QStringLiteral("../../share/zelka-browser/help/Browser4.qch")};
}

bool IsKnown(quint32 number)
{
    return number == HelpErrors::UnusableFile || number == HelpErrors::NoWorkingFolder;
}

} // namespace

void modHTMLHelp::ShowHelpTopic(const QString& topic)
{
    ShowTopicOf(HelpFilePath(), topic);
}

void modHTMLHelp::ShowTopicOf(const QString& file, const QString& topic)
{
    if (!QFileInfo::exists(file))
        return;
    std::optional<ComponentError> failure;
    try {
        HelpWindow::Open(file).ShowTopic(topic);
    } catch (const ComponentError& error) {
        failure = error;
    }
    if (failure)
        ReportHelpError(*failure);
}

QString modHTMLHelp::HelpFilePath()
{
    return HelpFileOf(ModuleFolder());
}

QString modHTMLHelp::HelpFileOf(const QString& controlFolder)
{
    const QDir folder(controlFolder);
    const QStringList places = HelpFilePlaces();
    for (const QString& place : places) {
        if (folder.exists(place))
            return QDir::cleanPath(folder.filePath(place));
    }
    return folder.filePath(places.first());
}

void modHTMLHelp::ReportHelpError(const ComponentError& error)
{
    // The words of a known error tell all; another is looked up by its number.
    ErrorBox(IsKnown(error.Number()) ? error.Description() : DescriptionWithNumber(error));
}

void OfferHelp()
{
    Help().ShowHelpTopic = modHTMLHelp::ShowHelpTopic;
    Help().HelpFilePath = modHTMLHelp::HelpFilePath;
}
