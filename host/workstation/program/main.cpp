#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxutil/HvxUtilityComponent.h"
#include "components/syncconn/SyncConnectionComponent.h"
#include "host/workstation/LanguageMenu.h"
#include "host/workstation/ScriptedRun.h"
#include "host/workstation/WorkstationOptions.h"
#include "host/workstation/WorkstationWindow.h"
#include "platform/Language.h"
#include "platform/MsgBox.h"
#include "platform/controls/Display.h"
#include "platform/controls/KeyboardReturn.h"
#include "platform/controls/Theme.h"
#include "platform/controls/WindowBoxPresenter.h"
#include "support/ComponentVersion.h"
#include "support/modHTMLHelp.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QSettings>
#include <QTemporaryDir>

#include <cstdio>

namespace {

/// The folder for the pictures, made where it is missing; empty when that fails.
QString PictureFolder(const QString& chosen)
{
    if (!chosen.isEmpty())
        return QDir().mkpath(chosen) ? QDir(chosen).absolutePath() : QString();
    QTemporaryDir folder(QDir::temp().filePath(QStringLiteral("zelka-workstation-XXXXXX")));
    folder.setAutoRemove(false);
    return folder.isValid() ? folder.path() : QString();
}

/// Before the first window is made, and for the managers that are started from here.
void SpeakLanguage(const QString& language)
{
    qputenv("ZELKA_LANGUAGE", language.toUtf8());
    (void)UseLanguage(language);
}

/// The library that is installed beside this program is the control of a user who has none registered.
void RegisterInstalledControl()
{
    const QString file = QDir::cleanPath(
        QDir(QApplication::applicationDirPath()).filePath(QStringLiteral(ZELKA_CONTROL_FILE)));
    if (QFileInfo::exists(file))
        RegisterControlOnce(file);
}

int RunScripted(QSettings& settings, const QString& source, const WorkstationOptions& options)
{
    const QString folder = PictureFolder(options.screenshots);
    if (folder.isEmpty()) {
        std::fprintf(stderr, "zelka-workstation: cannot make the folder for the screenshots %s\n",
                     qUtf8Printable(options.screenshots));
        return ExitCode::Refused;
    }
    // Nobody could press a button: boxes go to standard error, which is what the built-in presenter does.
    WorkstationWindow window(settings, source, WorkstationWindow::Place::Default);
    window.ShowTheme(ThemeOfName(options.theme).value_or(Theme::System));
    window.show();
    window.Start();
    const int code = ScriptedRun(window, folder).Run();
    window.close();
    return code;
}

int RunForOperator(QSettings& settings, const QString& source, const WorkstationOptions& options)
{
    WindowBoxPresenter presenter;
    SetBoxPresenter(&presenter);
    const KeyboardReturn keyboard;
    int code = ExitCode::Done;
    {
        WorkstationWindow window(settings, source);
        window.ShowTheme(ThemeOfName(options.theme).value_or(WorkstationWindow::StoredTheme(settings)));
        window.StartWhenPainted();
        window.show();
        code = QApplication::exec();
    }
    SetBoxPresenter(nullptr);
    return code;
}

} // namespace

int main(int argc, char** argv)
{
    UseOffscreenWithoutDisplay();
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("zelka-workstation"));
    QApplication::setApplicationVersion(QStringLiteral(ZELKA_VERSION));

    WorkstationOptions options;
    if (const std::optional<int> code = ReadOptions(argc, argv, options))
        return *code;

    Q_INIT_RESOURCE(pictures);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/zelka/pictures/zelka.svg")));
    InstallWindowSeams();
    RegisterHvxDatabase();
    RegisterSyncConnections();
    RegisterHvxUtility();
    OfferHelp();
    RegisterInstalledControl();
    if (!options.database.isEmpty())
        SetDataSource(options.database);

    QSettings settings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Zelka"),
                       QStringLiteral("Workstation"));
    SpeakLanguage(ChosenLanguage(options.language, LanguageMenu::Stored(settings)));
    const QString source = DataSource(options.database);
    if (IsOffscreen() || !options.screenshots.isEmpty())
        return RunScripted(settings, source, options);
    return RunForOperator(settings, source, options);
}
