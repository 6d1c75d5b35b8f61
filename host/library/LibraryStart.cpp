#include "platform/Language.h"
#include "platform/ModuleFile.h"
#include "platform/MsgBox.h"
#include "platform/controls/WindowBoxPresenter.h"
#include "support/ComponentVersion.h"
#include "support/modHTMLHelp.h"

#include <QCoreApplication>
#include <QFileInfo>

// What the library does for its host once the application object exists, or when it is loaded later.

namespace {

/// Boxes in windows, pointer and bell; the components that are installed beside the library are found; the
/// help is offered, and the language that the environment names is spoken; a user who has no control
/// registered yet gets this one.
void StartLibrary()
{
    InstallWindowSeams();
    static WindowBoxPresenter presenter;
    SetBoxPresenter(&presenter);

    const QString file = ModuleFile();
    QCoreApplication::addLibraryPath(QFileInfo(file).path() + QStringLiteral("/" ZELKA_PLUGINS_FROM_LIBRARY));
    OfferHelp();
    if (const QString language = ChosenLanguage({}, {}); language != LanguageInUse())
        (void)UseLanguage(language);
    RegisterControlOnce(file);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(StartLibrary)
