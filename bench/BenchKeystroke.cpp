// What a keystroke in a field of the Direct page costs until the target is composed and shown.

#include "bench/BenchSupport.h"
#include "browser/BrowserState.h"
#include "browser/T4ZelkaBrowser.h"
#include "components/hvxdb/HvxAdministration.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>

namespace {

constexpr int Keystrokes = 20000;
constexpr double BarMs = 0.1;

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    RegisterHvxDatabase();
    SetDataSource(QApplication::arguments().value(1) + QStringLiteral("/thousands.mdb"));
    T4ZelkaBrowser browser;
    browser.SetBrowserTabIndex(1);
    browser.resize(900, 650);
    browser.show();
    auto& list = *browser.findChild<QComboBox*>(QStringLiteral("cboDirectConName"));
    list.setCurrentIndex(0);
    Q_EMIT list.activated(0);
    for (const char* field : {"txtTimeOut", "txtRetries", "txtFeId", "txtFeChannel"})
        browser.findChild<QLineEdit*>(QString::fromLatin1(field))->setText(QStringLiteral("7"));
    auto& address = *browser.findChild<QLineEdit*>(QStringLiteral("txtAddress"));
    const QString target = browser.findChild<QLineEdit*>(QStringLiteral("txtTarget"))->text();
    if (target.isEmpty() || !target.contains(QLatin1String("WP=FE,ID=7,CH=7"))) {
        qCritical("The target is %s", qUtf8Printable(target));
        return 2;
    }

    const double seconds = Bench::Seconds([&] {
        for (int i = 0; i < Keystrokes; ++i)
            address.setText(QString::number(i % 4095));
    });
    Bench::PrintFigure(QStringLiteral("a keystroke of the Direct page"), seconds / Keystrokes * 1e3,
                       QStringLiteral("ms"), BarMs);
    return Bench::ExitCode();
}
