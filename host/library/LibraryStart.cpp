#include "platform/ModuleFile.h"
#include "platform/MsgBox.h"
#include "platform/controls/WindowBoxPresenter.h"
#include "support/ComponentVersion.h"

#include <QCoreApplication>
#include <QFileInfo>

// What the library does for its host once the application object exists, or when it is loaded later.

namespace {

/// Boxes in windows, pointer and bell; the components that are installed beside the library are found; a user
/// who has no control registered yet gets this one.
void StartLibrary()
{
    InstallWindowSeams();
    static WindowBoxPresenter presenter;
    SetBoxPresenter(&presenter);

    const QString file = ModuleFile();
    QCoreApplication::addLibraryPath(QFileInfo(file).path() + QStringLiteral("/" ZELKA_PLUGINS_FROM_LIBRARY));
    RegisterControlOnce(file);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(StartLibrary)
