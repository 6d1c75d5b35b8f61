// A shown tree of a million entries: what one insertion, removal or key costs with the view kept current, at
// two sizes; a QTreeWidget with the same rows stands beside it.

#include "bench/BenchSupport.h"
#include "model/TreeEntries.h"
#include "platform/controls/TreeView.h"

#include <QApplication>
#include <QKeyEvent>
#include <QRandomGenerator>
#include <QTreeWidget>

#include <functional>
#include <memory>

namespace {

constexpr int Few = 10000;
constexpr int Many = 1000000;
constexpr int Changes = 1000;
/// A QTreeWidget of a million takes its time for each.
constexpr int WidgetChanges = 100;

QString RandomName(QRandomGenerator& random)
{
    return QStringLiteral("Node %1").arg(random.bounded(10000000), 7, 10, QLatin1Char('0'));
}

/// A shown view of `count` sorted entries under an expanded root.
class ShownEntries
{
public:
    explicit ShownEntries(int count)
    {
        view.resize(400, 600);
        view.setModel(&entries);
        view.show();
        entries.Add(0, QStringLiteral("R,0"), QStringLiteral("Nodes"));
        entries.SetExpanded(1, true);
        seconds = Bench::Seconds([&] { Load(count); });
    }

    /// Seconds for a removal and an insertion, each followed by what the view then paints.
    double PerChange()
    {
        return Bench::Seconds([this] {
                   for (int step = 0; step < Changes; ++step) {
                       entries.Remove(entries.Child(1, random.bounded(entries.ChildCount(1))));
                       QCoreApplication::processEvents();
                       entries.Add(1, QStringLiteral("N,%1").arg(++lastId), RandomName(random));
                       QCoreApplication::processEvents();
                   }
               }) /
               Changes;
    }

    /// Seconds for a key and what it paints.
    double PerKey(Qt::Key key, const QString& text = QString())
    {
        constexpr int Keys = 200;
        view.SelectIndex(entries.ModelIndex(entries.Child(1, entries.ChildCount(1) / 2)));
        return Bench::Seconds([&] {
                   for (int step = 0; step < Keys; ++step) {
                       QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
                       QCoreApplication::sendEvent(&view, &event);
                       QCoreApplication::processEvents();
                   }
               }) /
               Keys;
    }

    TreeEntries entries;
    TreeView view;
    double seconds = 0;

private:
    void Load(int count)
    {
        constexpr int Batch = 32000;
        while (lastId < count) {
            std::vector<QString> names;
            std::vector<NewTreeEntry> batch;
            const int size = std::min(Batch, count - lastId);
            for (int at = 0; at < size; ++at)
                names.push_back(RandomName(random));
            for (const QString& name : names)
                batch.push_back({++lastId, name});
            entries.SetSorted(1, false);
            entries.AddNodes(1, batch);
            QCoreApplication::processEvents();
            entries.SetSorted(1, true);
            QCoreApplication::processEvents();
        }
    }

    QRandomGenerator random{3};
    int lastId = 0;
};

struct WidgetTimes
{
    double load = 0;
    double perChange = 0;
};

WidgetTimes MeasureWidget(int count)
{
    QRandomGenerator random(3);
    QTreeWidget widget;
    widget.resize(400, 600);
    widget.show();
    auto* root = new QTreeWidgetItem(&widget, {QStringLiteral("Nodes")});
    root->setExpanded(true);
    WidgetTimes times;
    times.load = Bench::Seconds([&] {
        QList<QTreeWidgetItem*> items;
        for (int at = 0; at < count; ++at)
            items.append(new QTreeWidgetItem({RandomName(random)}));
        root->addChildren(items);
        root->sortChildren(0, Qt::AscendingOrder);
        QCoreApplication::processEvents();
    });
    times.perChange = Bench::Seconds([&] {
                          for (int step = 0; step < WidgetChanges; ++step) {
                              delete root->takeChild(random.bounded(root->childCount()));
                              QCoreApplication::processEvents();
                              root->insertChild(random.bounded(root->childCount()),
                                                new QTreeWidgetItem({RandomName(random)}));
                              QCoreApplication::processEvents();
                          }
                      }) /
                      WidgetChanges;
    return times;
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    auto few = std::make_unique<ShownEntries>(Few);
    auto many = std::make_unique<ShownEntries>(Many);
    const double manyLoad = many->seconds;
    const double manyChange = many->PerChange();
    Bench::PrintRatio(
        QStringLiteral("removal and insertion in a shown tree of %1 beside %2").arg(Many).arg(Few),
        {manyChange, few->PerChange()}, 3);
    Bench::PrintRatio(QStringLiteral("key Up in a shown tree of %1 beside %2").arg(Many).arg(Few),
                      {many->PerKey(Qt::Key_Up), few->PerKey(Qt::Key_Up)}, 3);
    Bench::PrintRatio(
        QStringLiteral("search key in a shown tree of %1 beside %2").arg(Many).arg(Few),
        {many->PerKey(Qt::Key_N, QStringLiteral("n")), few->PerKey(Qt::Key_N, QStringLiteral("n"))}, 3);
    few.reset();
    many.reset();
    const WidgetTimes widget = MeasureWidget(Many);
    Bench::PrintNote(
        QStringLiteral("for comparison, %1 rows in a QTreeWidget: loading %2 s (ours %3 s), a removal "
                       "and an insertion %4 ms (ours %5 ms)")
            .arg(Many)
            .arg(widget.load, 0, 'f', 2)
            .arg(manyLoad, 0, 'f', 2)
            .arg(widget.perChange * 1e3, 0, 'f', 1)
            .arg(manyChange * 1e3, 0, 'f', 3));
    return Bench::ExitCode();
}
