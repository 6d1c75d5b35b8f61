#include "docs/pictures/program/ScanPictures.h"

#include "browser/T4ZelkaBrowser.h"
#include "docs/pictures/program/Camera.h"
#include "docs/pictures/program/DemoGateway.h"
#include "docs/pictures/program/Stage.h"
#include "tools/netsim/SimulatedNetwork.h"

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace {

void NameByPrefix(QDialog& naming)
{
    Find<QLineEdit>(naming, "txtPrefix").setText(QStringLiteral("HT"));
}

/// Saves what was found under names that are short enough.
void SaveAll(QDialog& scan, const Camera& camera)
{
    InNextDialog([&](QDialog& naming) {
        NameByPrefix(naming);
        for (const char* part : {"chkNodeId", "chkNodeType"})
            Find<QCheckBox>(naming, part).setChecked(false);
        InNextDialog([&](QDialog& list) {
            Find<QPushButton>(list, "cmdSelectAll").click();
            camera.WithProgress([&] { Find<QPushButton>(list, "cmdSave").click(); },
                                QStringLiteral("save-progress"));
            list.reject();
        });
        Find<QPushButton>(naming, "cmdOK").click();
    });
    Find<QPushButton>(scan, "cmdSaveAll").click();
}

} // namespace

void TakeScanDialogs(T4ZelkaBrowser& browser, const Camera& camera)
{
    DemoGateway gateway;
    Find<QRadioButton>(browser, "optCon").setChecked(true);
    SelectEntry(browser, "tvwConTree", QStringLiteral("Harbour Tower bus 254"), false);
    auto& scan = Find<QPushButton>(browser, "cmdDbScan");
    camera.WithDialog([&] { scan.click(); }, QStringLiteral("scan"),
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
                          (void)gateway.Network().RemoveNode(254, 3);
                          reach(QStringLiteral(" 5"));
                      },
                      [&](QDialog& dialog) {
                          auto& start = Find<QPushButton>(dialog, "cmdStartStop");
                          start.click();
                          WaitUntil([&] { return start.text() == QStringLiteral("S&tart"); });
                          camera.WithDialog([&] { Find<QPushButton>(dialog, "cmdSave").click(); },
                                            QStringLiteral("save-node"));
                          camera.WithDialog([&] { Find<QPushButton>(dialog, "cmdSaveAll").click(); },
                                            QStringLiteral("save-all"), NameByPrefix,
                                            [&](QDialog& naming) {
                                                camera.WithDialog(
                                                    [&] { Find<QPushButton>(naming, "cmdOK").click(); },
                                                    QStringLiteral("save-list"));
                                            });
                          SaveAll(dialog, camera);
                      });
}
