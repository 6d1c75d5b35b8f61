#include "docs/pictures/program/WindowPictures.h"

#include "browser/T4ZelkaBrowser.h"
#include "components/hvxdb/HvxAdministration.h"
#include "docs/pictures/program/Camera.h"
#include "docs/pictures/program/DemoGateway.h"
#include "docs/pictures/program/Stage.h"
#include "host/node-manager/NodeManagerWindow.h"
#include "host/node-manager/StartArguments.h"
#include "host/workstation/WorkstationWindow.h"
#include "model/TreeEntries.h"
#include "model/TreeFilling.h"
#include "platform/controls/TreeView.h"
#include "support/HelpWindow.h"
#include "support/modHTMLHelp.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QToolButton>
#include <QTreeView>

void TakeFindDialogs(T4ZelkaBrowser& browser, const Camera& camera)
{
    Find<QRadioButton>(browser, "optCon").setChecked(true);
    auto& viewNodes = Find<QCheckBox>(browser, "chkViewNodes");
    viewNodes.setChecked(true);
    camera.WithDialog(
        [&] { Find<QToolButton>(browser, "FindElement").click(); }, QStringLiteral("find"),
        [](QDialog& find) {
            Find<QLineEdit>(find, "txtMatch_Patern").setText(QStringLiteral("harbour"));
            WaitUntil([&] { return !Find<QLabel>(find, "lblHits").text().trimmed().isEmpty(); });
        },
        [&](QDialog& find) {
            camera.WithDialog(
                [&] { Find<QPushButton>(find, "Go").click(); }, QStringLiteral("found"),
                [](QDialog& found) { WaitUntil([&] { return !found.property("searching").toBool(); }); });
        });
    viewNodes.setChecked(false);
}

void TakeLoads(const QString& database, const Camera& camera)
{
    SetDataSource(database);
    T4ZelkaBrowser browser;
    browser.SetBrowserTabIndex(0);
    browser.resize(620, 560);
    camera.WithProgress([&] { browser.show(); }, QStringLiteral("load"));
    Find<QRadioButton>(browser, "optCon").setChecked(true);
    Find<QCheckBox>(browser, "chkViewNodes").setChecked(true);
    auto& view = Find<TreeView>(browser, "tvwConTree");
    const auto& entries = static_cast<const TreeEntries&>(*view.model());
    const TreeEntries::Index connection = entries.Child(entries.FindByKey(RootKey), 0);
    view.ClickIndex(entries.ModelIndex(connection));
    QApplication::processEvents();
    camera.WithProgress([&] { Q_EMIT view.DblClick(); }, QStringLiteral("load-nodes"));
}

void TakeNodeManager(const Camera& camera)
{
    StartArguments arguments;
    arguments.node = QStringLiteral("Harbour Tower radio 1");
    arguments.device = QStringLiteral("Radio terminal");
    arguments.all = QStringList{QStringLiteral("-sobriquet"), arguments.node, QStringLiteral("-device"),
                                arguments.device};
    NodeManagerWindow window(arguments);
    window.show();
    QApplication::processEvents();
    camera.Take(window, QStringLiteral("node-manager"));
}

void TakeHelp(const Camera& camera)
{
    if (!QFileInfo::exists(modHTMLHelp::HelpFilePath()))
        return;
    modHTMLHelp::ShowHelpTopic(QStringLiteral("Keyboard.htm"));
    if (HelpWindow* const window = HelpWindow::Current()) {
        window->resize(860, 560);
        const QAbstractItemModel& contents = *Find<QTreeView>(*window, "tvwContents").model();
        WaitUntil([&contents] { return contents.rowCount() > 0; });
        QApplication::processEvents();
        camera.Take(*window, QStringLiteral("help"));
    }
    HelpWindow::End();
}

void TakeWorkstation(const QString& database, const Camera& camera)
{
    const QTemporaryDir folder;
    QSettings settings(folder.filePath(QStringLiteral("kept.ini")), QSettings::IniFormat);
    WorkstationWindow window(settings, QFileInfo(database).fileName(), WorkstationWindow::Place::Default);
    window.resize(960, 600);
    window.show();
    window.Start();
    SelectEntry(*window.Control(), "tvwNodesTree", QStringLiteral("Harbour Tower radio 1"), true);
    const DemoGateway gateway;
    Find<QPushButton>(window, "cmdReadTarget").click();
    const auto& log = Find<QPlainTextEdit>(window, "txtLog");
    Find<QPushButton>(window, "cmdSend").click();
    WaitUntil([&log] { return log.blockCount() > 2; });
    QApplication::processEvents();
    camera.Take(window, QStringLiteral("workstation"));
    camera.WithDialog([&] { Find<QAction>(window, "mnuAbout").trigger(); }, QStringLiteral("about"), {},
                      [&](QDialog& about) {
                          camera.WithDialog([&] { Find<QPushButton>(about, "cmdVersion").click(); },
                                            QStringLiteral("version"));
                      });
}
