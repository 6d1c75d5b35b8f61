// From process start to the first 5,000 of a million nodes on the screen, beside a bare window of that size.
//
// The program starts itself once for each side; the child ends as soon as its window has been painted.

#include "bench/BenchSupport.h"
#include "browser/T4ZelkaBrowser.h"
#include "components/hvxdb/HvxAdministration.h"
#include "model/TreeEntries.h"
#include "platform/controls/TreeView.h"

#include <QApplication>
#include <QProcess>
#include <QTimer>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int FirstNodes = 5000;
/// The pause that opening a database always takes.
constexpr double OpenSeconds = 0.2;
const QSize WindowSize(900, 650);

/// Ends the process at the first paint that shows what is waited for.
class LeaveWhenPainted : public QObject
{
public:
    explicit LeaveWhenPainted(QAbstractItemModel* model) : m_model(model) {}

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint &&
            (!m_model || m_model->rowCount(m_model->index(0, 0)) >= FirstNodes))
            QTimer::singleShot(0, [] { std::_Exit(0); });
        return false;
    }

private:
    QAbstractItemModel* m_model;
};

int ShowBareWindow()
{
    QWidget window;
    LeaveWhenPainted leave(nullptr);
    window.installEventFilter(&leave);
    window.resize(WindowSize);
    window.show();
    return QApplication::exec();
}

int ShowNodes(const QString& file)
{
    RegisterHvxDatabase();
    SetDataSource(file);
    T4ZelkaBrowser browser;
    browser.SetBrowserTabIndex(0);
    browser.resize(WindowSize);
    auto* tree = browser.findChild<TreeView*>(QStringLiteral("tvwNodesTree"));
    LeaveWhenPainted leave(tree->model());
    tree->viewport()->installEventFilter(&leave);
    browser.show();
    return QApplication::exec();
}

void RunSelf(const QStringList& arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(QCoreApplication::applicationFilePath(), arguments);
    if (!process.waitForFinished(60000) || process.exitCode() != 0)
        std::exit(2);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.value(1) == QLatin1String("bare"))
        return ShowBareWindow();
    if (arguments.value(1) == QLatin1String("nodes"))
        return ShowNodes(arguments.value(2));

    const QString file = arguments.value(1) + QStringLiteral("/million.mdb");
    Bench::Sides sides = Bench::Compare(
        7,
        [&] {
            RunSelf({QStringLiteral("nodes"), file});
        },
        [&] { RunSelf({QStringLiteral("bare")}); });
    sides.ours = std::max(0.0, sides.ours - OpenSeconds);
    Bench::PrintRatio(
        QStringLiteral("first %1 of a million nodes from process start, less the 200 ms of the open")
            .arg(FirstNodes),
        sides, 1.5);
    return Bench::ExitCode();
}
