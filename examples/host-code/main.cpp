// A host made in code: the browser in a window, the target of what the operator picks in its status bar.
//
//   host-code [--database FILE-OR-URL] [--self-test]

#include "../SelfTest.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QMainWindow>
#include <QSettings>
#include <QStatusBar>

#include <ZelkaBrowser/SettingsPropertyBag.h>
#include <ZelkaBrowser/T4ZelkaBrowser.h>
#include <ZelkaBrowser/Zelka.h>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOptions({{"database", "Database to show.", "source"}, {"self-test", "Pick a node and end."}});
    parser.process(application);
    if (parser.isSet("database"))
        Zelka::ChooseDatabase(parser.value("database"));

    QMainWindow window;
    auto* browser = new T4ZelkaBrowser(&window);
    window.setCentralWidget(browser);

    // The control's properties, as they were when the host was last closed. Reading them starts the control.
    QSettings settings(QSettings::IniFormat, QSettings::UserScope, "Example", "HostCode");
    SettingsPropertyBag kept(settings, "Browser");
    if (!kept.Holds("BrowserTabIndex"))
        kept.WriteProperty("BrowserTabIndex", 0); // the first time: the Database page
    browser->UserControl_ReadProperties(kept);

    // A pick changes the name first and the target then: ask when both are there.
    QObject::connect(
        browser, &T4ZelkaBrowser::SobriquetChanged, &window,
        [&window, browser](const QString& name) {
            QString target;
            window.statusBar()->showMessage(browser->GetTarget(target) ? name + ": " + target : QString());
        },
        Qt::QueuedConnection);

    window.resize(640, 720);
    window.show();
    if (parser.isSet("self-test"))
        SelfTest::Run(*browser);
    const int code = QApplication::exec();
    browser->UserControl_WriteProperties(kept);
    return code;
}
