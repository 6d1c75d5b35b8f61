// The node view of a million nodes, loaded to the end with Load More, beside the bare read and sort of the
// same rows; what a loaded entry holds in memory.

#include "bench/BareRows.h"
#include "bench/BenchSupport.h"
#include "browser/T4ZelkaBrowser.h"
#include "components/hvxdb/HvxAdministration.h"
#include "database/DatabaseState.h"
#include "model/TreeEntries.h"
#include "platform/controls/TreeView.h"

#include <QApplication>
#include <QPushButton>
#include <QTreeWidget>

#include <limits>
#include <vector>

namespace {

/// Loads everything as an operator would; gives the bytes of the entries.
qint64 LoadNodeView(int& loaded)
{
    T4ZelkaBrowser browser;
    browser.resize(800, 600);
    browser.show();
    auto* more = browser.findChild<QPushButton*>(QStringLiteral("cmdLoadMore"));
    while (more->isEnabled())
        more->click();
    auto* tree = browser.findChild<TreeView*>(QStringLiteral("tvwNodesTree"));
    const auto* entries = qobject_cast<TreeEntries*>(tree->model());
    loaded = entries->Count() - 1;
    return entries->MemoryBytes();
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QString file = application.arguments().value(1) + QStringLiteral("/million.mdb");
    RegisterHvxDatabase();
    SetDataSource(file);

    int loaded = 0;
    qint64 bytes = 0;
    std::vector<BareRow> rows;
    const Bench::Sides sides = Bench::Compare(
        2, [&] { bytes = LoadNodeView(loaded); },
        [&] {
            BareDatabase database(file);
            rows = ReadBareRows(database, 0, std::numeric_limits<int>::max());
            SortBareRows(rows);
        });
    if (loaded != int(rows.size())) {
        Bench::PrintNote(
            QStringLiteral("node view: %1 of %2 nodes loaded: MISSED").arg(loaded).arg(rows.size()));
        return 1;
    }
    Bench::PrintRatio(QStringLiteral("node view of %1 nodes to the end").arg(loaded), sides, 1.5);
    Bench::PrintFigure(QStringLiteral("memory of a loaded entry"), double(bytes) / loaded,
                       QStringLiteral("bytes"), 160);

    QTreeWidget widget;
    widget.resize(800, 600);
    widget.show();
    const double seconds = Bench::Seconds([&] {
        QList<QTreeWidgetItem*> items;
        items.reserve(qsizetype(rows.size()));
        for (const BareRow& row : rows)
            items.append(new QTreeWidgetItem({row.name}));
        widget.addTopLevelItems(items);
        QCoreApplication::processEvents();
    });
    Bench::PrintNote(QStringLiteral("for comparison: a QTreeWidget filled with the sorted rows takes %1 s")
                         .arg(seconds, 0, 'f', 2));
    return Bench::ExitCode();
}
