// Takes the pictures of the dialogs that the documents show: opens each on the demo database through the
// control, as an operator would, and writes what it looks like.
//
// zelka-pictures DATABASE FOLDER light|dark

#include "browser/T4ZelkaBrowser.h"
#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxutil/HvxUtilityComponent.h"
#include "components/syncconn/SyncConnectionComponent.h"
#include "dialogs/frmChSelPktSize.h"
#include "docs/pictures/program/Camera.h"
#include "host/workstation/WorkstationWindow.h"
#include "model/TreeEntries.h"
#include "platform/controls/Display.h"
#include "platform/controls/TreeView.h"
#include "tools/netsim/GatewayServer.h"
#include "tools/netsim/NetworkFile.h"
#include "tools/netsim/SimulatedNetwork.h"

#include <QApplication>
#include <QCheckBox>
#include <QDeadlineTimer>
#include <QDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QStyleFactory>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTreeWidget>

#include <cstdio>
#include <functional>

namespace {

constexpr int PaintMs = 150;

QPalette DarkPalette()
{
    QPalette palette(QColor(45, 45, 48));
    palette.setColor(QPalette::Base, QColor(30, 30, 32));
    palette.setColor(QPalette::AlternateBase, QColor(45, 45, 48));
    palette.setColor(QPalette::Highlight, QColor(42, 110, 170));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(130, 130, 130));
    return palette;
}

template <typename Widget>
Widget& Find(QWidget& parent, const char* name)
{
    auto* found = parent.findChild<Widget*>(QString::fromLatin1(name));
    if (!found)
        qFatal("there is no %s", name);
    return *found;
}

void SelectEntry(T4ZelkaBrowser& browser, const char* tree, const QString& text, bool isNode)
{
    auto& view = Find<TreeView>(browser, tree);
    const auto& entries = static_cast<const TreeEntries&>(*view.model());
    const TreeEntries::Index entry = entries.FindByText(text, isNode);
    if (entry == 0)
        qFatal("there is no %s", qUtf8Printable(text));
    view.SelectIndex(entries.ModelIndex(entry));
    QApplication::processEvents();
}

QString ManagerProgram()
{
    return QStringLiteral("/usr/bin/zelka-node-manager");
}

void TakeNodeDialog(T4ZelkaBrowser& browser, const Camera& camera)
{
    Find<QRadioButton>(browser, "optNodes").setChecked(true);
    SelectEntry(browser, "tvwNodesTree", QStringLiteral("Harbour Tower radio 1"), true);
    auto& properties = Find<QPushButton>(browser, "cmdDatabaseProp");
    properties.setEnabled(true);
    camera.WithDialog([&] { properties.click(); }, QStringLiteral("node"),
                      [&](QDialog& dialog) {
                          camera.WithDialog(
                              [&] { Find<QPushButton>(dialog, "cmdManager").click(); },
                              QStringLiteral("manager-info"),
                              [](QDialog& manager) {
                                  // The demo names the program beside it, wherever it was built.
                                  Find<QLineEdit>(manager, "txtCommandLine").setText(ManagerProgram());
                              });
                      });
}

void TakeWaypointDialog(QDialog& connection, const Camera& camera, const QString& parameter,
                        const QString& name)
{
    auto& list = Find<QTreeWidget>(connection, "lvWPlist");
    const QList<QTreeWidgetItem*> rows = list.findItems(parameter, Qt::MatchEndsWith);
    if (rows.isEmpty())
        qFatal("there is no %s", qUtf8Printable(parameter));
    list.setCurrentItem(rows.first());
    camera.WithDialog([&] { Find<QPushButton>(connection, "cmdProperties").click(); }, name);
}

/// Opens the properties of a connection of the demo network.
void WithConnection(T4ZelkaBrowser& browser, const Camera& camera, const QString& connection,
                    const QString& name, const std::function<void(QDialog& dialog)>& work)
{
    Find<QRadioButton>(browser, "optCon").setChecked(true);
    SelectEntry(browser, "tvwConTree", connection, false);
    auto& properties = Find<QPushButton>(browser, "cmdDatabaseProp");
    properties.setEnabled(true);
    camera.WithDialog([&] { properties.click(); }, name,
                      [&](QDialog& dialog) {
                          Find<QCheckBox>(dialog, "chkShowParameters").setChecked(true);
                          work(dialog);
                      });
}

void TakeConnectionDialogs(T4ZelkaBrowser& browser, const Camera& camera)
{
    WithConnection(browser, camera, QStringLiteral("Copper Creek modem"), QStringLiteral("connection-modem"),
                   [&](QDialog& dialog) {
                       TakeWaypointDialog(dialog, camera, QStringLiteral("PASSWORD"),
                                          QStringLiteral("waypoint-password"));
                   });
    WithConnection(
        browser, camera, QStringLiteral("Ellermoor TCP"), QStringLiteral("connection"), [&](QDialog& dialog) {
            TakeWaypointDialog(dialog, camera, QStringLiteral("HOST NAME"), QStringLiteral("waypoint"));
            TakeWaypointDialog(dialog, camera, QStringLiteral("BUS SPEED"), QStringLiteral("waypoint-list"));
        });
}

/// Lets events run until `done` or for half a minute.
void WaitUntil(const std::function<bool()>& done)
{
    constexpr int longestMs = 30'000;
    const QDeadlineTimer deadline(longestMs);
    while (!done() && !deadline.hasExpired())
        QApplication::processEvents(QEventLoop::AllEvents, PaintMs);
}

/// A scan of the demo network, with a node that has fallen silent, and the list of its buses.
void TakeScanDialogs(T4ZelkaBrowser& browser, const Camera& camera)
{
    NetworkDescription description;
    QStringList problems;
    if (!ReadNetworkFile(DemoNetworkPath(), description, problems))
        qFatal("%s", qUtf8Printable(problems.join(u' ')));
    SimulatedNetwork network(description);
    GatewayServer server(network);
    if (!server.Listen())
        qFatal("%s", qUtf8Printable(server.ErrorText()));
    qputenv("ZELKA_GATEWAY", server.Name().toUtf8());

    Find<QRadioButton>(browser, "optCon").setChecked(true);
    SelectEntry(browser, "tvwConTree", QStringLiteral("Harbour Tower bus 254"), false);
    auto& scan = Find<QPushButton>(browser, "cmdDbScan");
    scan.setEnabled(true);
    camera.WithDialog(
        [&] { scan.click(); }, QStringLiteral("scan"),
        [&](QDialog& dialog) {
            camera.WithDialog([&] { Find<QPushButton>(dialog, "cmdScanBus").click(); },
                              QStringLiteral("buses"),
                              [](QDialog& buses) {
                                  auto& ok = Find<QPushButton>(buses, "cmdOK");
                                  WaitUntil([&] { return ok.isEnabled(); });
                              });
            Find<QLineEdit>(dialog, "txtAddrBegin").setText(QStringLiteral("1"));
            Find<QLineEdit>(dialog, "txtAddrEnd").setText(QStringLiteral("9"));
            Find<QLineEdit>(dialog, "txtTimingRetries").setText(QStringLiteral("3"));
            Find<QLineEdit>(dialog, "txtTimingTimeout").setText(QStringLiteral("500"));
            auto& repeat = Find<QCheckBox>(dialog, "chkRepeatScan");
            auto& start = Find<QPushButton>(dialog, "cmdStartStop");
            auto& address = Find<QLabel>(dialog, "lbCurrentAddr");
            const auto reach = [&](const QString& text) {
                WaitUntil([&] { return address.text().endsWith(text); });
            };
            repeat.setChecked(true);
            start.click();
            reach(QStringLiteral(" 9"));
            (void)network.RemoveNode(254, 3);
            reach(QStringLiteral(" 5"));
        },
        [&](QDialog& dialog) {
            auto& start = Find<QPushButton>(dialog, "cmdStartStop");
            start.click();
            WaitUntil([&] { return start.text() == QStringLiteral("S&tart"); });
            camera.WithDialog([&] { Find<QPushButton>(dialog, "cmdSave").click(); },
                              QStringLiteral("save-node"));
            camera.WithDialog(
                [&] { Find<QPushButton>(dialog, "cmdSaveAll").click(); }, QStringLiteral("save-all"),
                [](QDialog& naming) { Find<QLineEdit>(naming, "txtPrefix").setText(QStringLiteral("HT")); },
                [&](QDialog& naming) {
                    camera.WithDialog([&] { Find<QPushButton>(naming, "cmdOK").click(); },
                                      QStringLiteral("save-list"));
                });
        });
    qunsetenv("ZELKA_GATEWAY");
}

/// The operator's window, on a database that it is told by the name of a file that everybody could have.
void TakeWorkstation(const QString& database, const Camera& camera)
{
    const QTemporaryDir folder;
    QSettings settings(folder.filePath(QStringLiteral("kept.ini")), QSettings::IniFormat);
    WorkstationWindow window(settings, QFileInfo(database).fileName(), WorkstationWindow::Place::Default);
    window.resize(960, 600);
    window.show();
    window.Start();
    SelectEntry(*window.Control(), "tvwNodesTree", QStringLiteral("Harbour Tower radio 1"), true);
    QApplication::processEvents();
    camera.Take(window, QStringLiteral("workstation"));
}

} // namespace

int main(int argc, char** argv)
{
    UseOffscreenWithoutDisplay();
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 4) {
        std::fprintf(stderr, "usage: zelka-pictures DATABASE FOLDER light|dark\n");
        return 2;
    }
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    if (arguments[3] == QLatin1String("dark"))
        QApplication::setPalette(DarkPalette());
    const bool scaled = qApp->devicePixelRatio() > 1;
    const Camera camera(arguments[2], scaled ? arguments[3] + QStringLiteral("-200") : arguments[3]);

    RegisterHvxDatabase();
    RegisterSyncConnections();
    RegisterHvxUtility();
    SetDataSource(arguments[1]);
    T4ZelkaBrowser browser;
    browser.SetBrowserTabIndex(0);
    browser.SetManageVisible(true);
    browser.resize(620, 560);
    browser.show();
    QApplication::processEvents();

    TakeNodeDialog(browser, camera);
    TakeConnectionDialogs(browser, camera);
    TakeScanDialogs(browser, camera);
    camera.Take(browser, QStringLiteral("direct"));
    camera.WithDialog([&] { Find<QPushButton>(browser, "cmdDirectConProp").click(); },
                      QStringLiteral("direct-properties"));
    Find<QTabWidget>(browser, "tabMain").setCurrentIndex(0);
    frmChSelPktSize note(&browser);
    camera.WithDialog([&] { note.exec(); }, QStringLiteral("packet-size"));
    camera.Take(browser, QStringLiteral("browser"));
    TakeWorkstation(arguments[1], camera);
    return camera.AllTaken() ? 0 : 1;
}
