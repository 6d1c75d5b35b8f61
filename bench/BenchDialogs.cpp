// From the press of Properties to the painted dialog, on a database of 20,000 connections.

#include "bench/BenchSupport.h"
#include "browser/T4ZelkaBrowser.h"
#include "components/hvxdb/HvxAdministration.h"
#include "model/TreeEntries.h"
#include "platform/controls/TreeView.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QElapsedTimer>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include <algorithm>

namespace {

constexpr int Rounds = 15;
constexpr double BarMs = 100;

/// Notes when a dialog has been painted and presses its Cancel.
class CloseWhenPainted : public QObject
{
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* dialog = qobject_cast<QDialog*>(watched);
        if (event->type() == QEvent::Paint && dialog && !m_seen) {
            m_seen = true;
            // Behind the painting of all that the dialog holds.
            QTimer::singleShot(0, dialog, [this, dialog] {
                PaintedMs = double(Since.nsecsElapsed()) / 1e6;
                dialog->reject();
            });
        }
        return false;
    }
    void Start()
    {
        m_seen = false;
        PaintedMs = -1;
        Since.start();
    }

    QElapsedTimer Since;
    double PaintedMs = -1;

private:
    bool m_seen = false;
};

void Measure(T4ZelkaBrowser& browser, CloseWhenPainted& watcher, const char* treeName, const QString& what)
{
    auto* tree = browser.findChild<TreeView*>(QString::fromLatin1(treeName));
    auto* button = browser.findChild<QPushButton*>(QStringLiteral("cmdDatabaseProp"));
    auto* entries = qobject_cast<TreeEntries*>(tree->model());
    double worst = 0;
    for (int i = 0; i < Rounds; ++i) {
        const QModelIndex index = entries->ModelIndex(entries->Child(1, i * 31));
        tree->SelectIndex(index);
        QApplication::processEvents();
        button->setEnabled(true);
        watcher.Start();
        button->click();
        if (watcher.PaintedMs < 0) {
            qCritical("%s does not open", qUtf8Printable(what));
            std::exit(2);
        }
        worst = std::max(worst, watcher.PaintedMs);
    }
    Bench::PrintFigure(what + QStringLiteral(", the slowest of %1").arg(Rounds), worst, QStringLiteral("ms"),
                       BarMs);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    RegisterHvxDatabase();
    SetDataSource(QApplication::arguments().value(1) + QStringLiteral("/dialogs.mdb"));
    T4ZelkaBrowser browser;
    browser.SetBrowserTabIndex(0);
    browser.resize(900, 650);
    browser.show();
    CloseWhenPainted watcher;
    QApplication::instance()->installEventFilter(&watcher);
    Measure(browser, watcher, "tvwNodesTree", QStringLiteral("opening the node dialog"));
    browser.findChild<QRadioButton*>(QStringLiteral("optCon"))->setChecked(true);
    QApplication::processEvents();
    Measure(browser, watcher, "tvwConTree", QStringLiteral("opening the connection dialog"));
    return Bench::ExitCode();
}
