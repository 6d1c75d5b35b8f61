// Takes the pictures of the windows that the documents show: opens each on the demo database through the
// control, as an operator would, and writes what it looks like.
//
// zelka-pictures DATABASE LARGE-DATABASE FOLDER system|light|dark|contrast
//
// On the large database, of any kind, it takes the windows that stand only while much is loaded.

#include "browser/T4ZelkaBrowser.h"
#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxutil/HvxUtilityComponent.h"
#include "components/syncconn/SyncConnectionComponent.h"
#include "dialogs/frmChSelPktSize.h"
#include "docs/pictures/program/Camera.h"
#include "docs/pictures/program/ScanPictures.h"
#include "docs/pictures/program/Stage.h"
#include "docs/pictures/program/WindowPictures.h"
#include "platform/controls/Display.h"
#include "platform/controls/Theme.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTreeWidget>

#include <cstdio>
#include <functional>
#include <optional>

namespace {

QString ManagerProgram()
{
    return QStringLiteral("/usr/bin/zelka-node-manager");
}

void TakeNodeDialog(T4ZelkaBrowser& browser, const Camera& camera)
{
    Find<QRadioButton>(browser, "optNodes").setChecked(true);
    SelectEntry(browser, "tvwNodesTree", QStringLiteral("Harbour Tower radio 1"), true);
    auto& properties = Find<QPushButton>(browser, "cmdDatabaseProp");
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

} // namespace

int main(int argc, char** argv)
{
    UseOffscreenWithoutDisplay();
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const std::optional<Theme> theme = arguments.size() == 5 ? ThemeOfName(arguments[4]) : std::nullopt;
    if (!theme) {
        std::fprintf(stderr, "usage: zelka-pictures DATABASE LARGE-DATABASE FOLDER %s\n",
                     qPrintable(ThemeNames().join(u'|')));
        return 2;
    }
    ApplyTheme(*theme);
    const bool scaled = qApp->devicePixelRatio() > 1;
    const Camera camera(arguments[3], scaled ? arguments[4] + QStringLiteral("-200") : arguments[4]);

    RegisterHvxDatabase();
    RegisterSyncConnections();
    RegisterHvxUtility();
    TakeLoads(arguments[2], camera);
    SetDataSource(arguments[1]);
    T4ZelkaBrowser browser;
    browser.SetBrowserTabIndex(0);
    browser.SetManageVisible(true);
    browser.resize(620, 560);
    browser.show();
    QApplication::processEvents();

    TakeFindDialogs(browser, camera);
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
    TakeNodeManager(camera);
    TakeHelp(camera);
    return camera.AllTaken() ? 0 : 1;
}
