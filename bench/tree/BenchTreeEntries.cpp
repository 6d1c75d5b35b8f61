// A million entries without a window: loading in batches beside the bare read and sort of the same rows,
// memory of an entry by its own count and by the allocator's, and single changes at two sizes.

#include "bench/BareRows.h"
#include "bench/BenchSupport.h"
#include "model/TreeEntries.h"

#include <QCoreApplication>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <algorithm>
#include <malloc.h>
#include <memory>
#include <vector>

namespace {

constexpr int Nodes = 1000000;
constexpr int Batch = 32000;

/// Nodes with names of 12 characters; shuffled: in no relation to their ids.
void MakeDatabase(const QString& file, bool shuffled)
{
    std::vector<int> numbers(Nodes);
    for (int at = 0; at < Nodes; ++at)
        numbers[size_t(at)] = at;
    if (shuffled) {
        QRandomGenerator random(1);
        std::shuffle(numbers.begin(), numbers.end(), random);
    }
    // The bare side opens what is there; an empty file is an empty database.
    if (!QFile(file).open(QIODevice::WriteOnly))
        qFatal("no place for the measured database");
    BareDatabase database(file);
    database.Execute("CREATE TABLE node (id INTEGER PRIMARY KEY, name TEXT); BEGIN");
    sqlite3_stmt* insert = database.Prepare("INSERT INTO node VALUES (?, ?)");
    for (int at = 0; at < Nodes; ++at) {
        sqlite3_bind_int(insert, 1, at + 1);
        BindText(insert, 2, QStringLiteral("Node %1").arg(numbers[size_t(at)], 7, 10, QLatin1Char('0')));
        database.Step(insert);
    }
    sqlite3_finalize(insert);
    database.Execute("COMMIT");
}

void ReadAndSort(const QString& file)
{
    BareDatabase database(file);
    std::vector<BareRow> rows = ReadBareRows(database, 0, Nodes);
    SortBareRows(rows);
}

std::unique_ptr<TreeEntries> LoadTree(const QString& file)
{
    auto entries = std::make_unique<TreeEntries>();
    const TreeEntries::Index root = entries->Add(0, QStringLiteral("R,0"), QStringLiteral("Nodes"));
    entries->SetExpanded(root, true);
    BareDatabase database(file);
    int last = 0;
    for (;;) {
        const std::vector<BareRow> rows = ReadBareRows(database, last, Batch);
        if (rows.empty())
            return entries;
        last = rows.back().id;
        std::vector<NewTreeEntry> batch;
        batch.reserve(rows.size());
        for (const BareRow& row : rows)
            batch.push_back({row.id, row.name});
        entries->SetSorted(root, false);
        entries->AddNodes(root, batch);
        entries->SetSorted(root, true);
    }
}

void CompareLoading(const QString& file, const QString& order)
{
    std::unique_ptr<TreeEntries> entries;
    const Bench::Sides sides = Bench::Compare(
        3, [&] { entries = LoadTree(file); },
        [&] {
            entries.reset();
            ReadAndSort(file);
        });
    Bench::PrintRatio(QStringLiteral("%1 entries in batches of %2, names %3")
                          .arg(entries->Count() - 1)
                          .arg(Batch)
                          .arg(order),
                      sides, 1.5);
    Bench::PrintFigure(QStringLiteral("memory of an entry, names %1, own count").arg(order),
                       double(entries->MemoryBytes()) / entries->Count(), QStringLiteral("bytes"), 160);
}

/// What the allocator holds for the entries: all that loading left behind.
void MeasureAllocator(const QString& file)
{
    malloc_trim(0);
    const struct mallinfo2 before = mallinfo2();
    const std::unique_ptr<TreeEntries> entries = LoadTree(file);
    const struct mallinfo2 after = mallinfo2();
    const double bytes = double(after.uordblks + after.hblkhd) - double(before.uordblks + before.hblkhd);
    Bench::PrintFigure(QStringLiteral("memory of an entry by the allocator"), bytes / entries->Count(),
                       QStringLiteral("bytes"), 160);
}

/// 10,000 removals and insertions at random places of a sorted parent; seconds.
double RandomChanges(int count)
{
    TreeEntries entries;
    const TreeEntries::Index root = entries.Add(0, QStringLiteral("R,0"), QStringLiteral("Nodes"));
    entries.SetExpanded(root, true);
    entries.SetSorted(root, true);
    QRandomGenerator random(2);
    const auto name = [&random] {
        return QStringLiteral("Node %1").arg(random.bounded(10000000), 7, 10, QLatin1Char('0'));
    };
    int id = 0;
    while (id < count)
        entries.Add(root, QStringLiteral("N,%1").arg(++id), name());
    return Bench::Seconds([&] {
        for (int step = 0; step < 10000; ++step) {
            entries.Remove(entries.Child(root, random.bounded(entries.ChildCount(root))));
            entries.Add(root, QStringLiteral("N,%1").arg(++id), name());
        }
    });
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    for (const bool shuffled : {false, true}) {
        const QString file =
            folder.filePath(shuffled ? QStringLiteral("shuffled") : QStringLiteral("rising"));
        MakeDatabase(file, shuffled);
        CompareLoading(file, shuffled ? QStringLiteral("shuffled") : QStringLiteral("rising"));
    }
    MeasureAllocator(folder.filePath(QStringLiteral("shuffled")));
    Bench::PrintRatio(QStringLiteral("10,000 removals and insertions at 1,000,000 beside 10,000 entries"),
                      {RandomChanges(Nodes), RandomChanges(10000)}, 10);
    return Bench::ExitCode();
}
