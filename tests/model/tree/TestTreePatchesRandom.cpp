#include "TreeSnapshot.h"
#include "model/TreePatches.h"

#include <QAbstractItemModelTester>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QSortFilterProxyModel>
#include <QTest>

#include <map>

/// Random patches, undone: the tree and those who look at it are as before.
class TestTreePatchesRandom : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Undo_RandomPatches_TreeAsBefore_data();
    void Undo_RandomPatches_TreeAsBefore();
    void Undo_RandomPatchesWithKeeps_TreeAsKept_data();
    void Undo_RandomPatchesWithKeeps_TreeAsKept();
    void Undo_RandomPatchesOfLongLists_TreeAsBefore_data();
    void Undo_RandomPatchesOfLongLists_TreeAsBefore();
    void Undo_LargeTree_CostOfTheChanges();
};

namespace {

/// A tree that is patched at random, with others who follow it by its signals.
class PatchedTree
{
public:
    explicit PatchedTree(quint32 seed)
        : m_random(seed), m_tester(&entries, QAbstractItemModelTester::FailureReportingMode::Fatal)
    {
        follower.setSourceModel(&entries);
    }

    void Patch();
    void Hold();
    /// The indexes held since Hold that never went away lead to where they led, and the follower shows the
    /// tree.
    void CompareFollowers() const;

    TreeEntries entries;
    QSortFilterProxyModel follower;

private:
    int Below(int limit) { return int(m_random.bounded(limit)); }
    TreeEntries::Index AnyEntry();
    QString AnyKey();
    QString AnyText() { return QStringLiteral("%1 text %2").arg(QChar(u'A' + Below(52))).arg(Below(30)); }
    void AddBatch();
    void Change(TreeEntries::Index entry);
    static void CompareBelow(const QAbstractItemModel& left, const QModelIndex& leftParent,
                             const QAbstractItemModel& right, const QModelIndex& rightParent);

    QRandomGenerator m_random;
    QAbstractItemModelTester m_tester;
    std::map<TreeEntries::Index, QPersistentModelIndex> m_held;
};

TreeEntries::Index PatchedTree::AnyEntry()
{
    // Down to a leaf more often than not, or a removal would take too much with it.
    TreeEntries::Index entry = 0;
    while (Below(8) != 0 && entries.ChildCount(entry) != 0)
        entry = entries.Child(entry, Below(entries.ChildCount(entry)));
    return entry;
}

QString PatchedTree::AnyKey()
{
    static const QStringList kinds = {"C,%1", "W,%1,1", "W,%1,2", "N,-%1", "N,%1,3", "N,%1", "N,%1"};
    return kinds.at(Below(int(kinds.size()))).arg(Below(150) + 1);
}

void PatchedTree::AddBatch()
{
    std::vector<QString> texts;
    for (int count = Below(8); count > 0; --count)
        texts.push_back(AnyText());
    std::vector<NewTreeEntry> batch;
    for (const QString& text : texts)
        batch.push_back({Below(200) - 40, text});
    if (Below(2) == 0)
        entries.AddNodes(AnyEntry(), batch, Below(2));
    else
        entries.AddConnections(AnyEntry(), batch);
}

void PatchedTree::Change(TreeEntries::Index entry)
{
    switch (Below(5)) {
    case 0:
        entries.SetText(entry, AnyText());
        break;
    case 1:
        entries.SetKey(entry, AnyKey());
        break;
    case 2:
        entries.SetTag(entry, Below(3) == 0 ? QString() : AnyText());
        break;
    case 3:
        entries.SetExpanded(entry, Below(2) == 0);
        break;
    default:
        entries.SetSorted(entry, Below(2) == 0);
    }
}

void PatchedTree::Patch()
{
    const int operation = Below(100);
    // A removal near the top takes nearly all.
    if (entries.Count() < 60 && operation < 70)
        return AddBatch();
    const int removals = entries.Count() > 120 ? 40 : 10;
    if (operation < removals)
        entries.Remove(AnyEntry());
    else if (operation < removals + 3)
        entries.RemoveChildren(AnyEntry());
    else if (operation < 55)
        entries.Add(AnyEntry(), AnyKey(), AnyText());
    else if (operation < 60)
        AddBatch();
    else
        Change(AnyEntry());
}

void PatchedTree::Hold()
{
    m_held.clear();
    for (int count = 0; count < 40; ++count) {
        if (const TreeEntries::Index entry = AnyEntry())
            m_held[entry] = entries.ModelIndex(entry);
    }
}

void PatchedTree::CompareFollowers() const
{
    for (const auto& [entry, index] : m_held) {
        if (index.isValid())
            QCOMPARE(QModelIndex(index), entries.ModelIndex(entry));
    }
    CompareBelow(entries, {}, follower, {});
}

void PatchedTree::CompareBelow(const QAbstractItemModel& left, const QModelIndex& leftParent,
                               const QAbstractItemModel& right, const QModelIndex& rightParent)
{
    QCOMPARE(right.rowCount(rightParent), left.rowCount(leftParent));
    for (int row = 0; row < left.rowCount(leftParent); ++row) {
        const QModelIndex leftIndex = left.index(row, 0, leftParent);
        const QModelIndex rightIndex = right.index(row, 0, rightParent);
        QCOMPARE(rightIndex.data(TreeEntries::IndexRole), leftIndex.data(TreeEntries::IndexRole));
        QCOMPARE(rightIndex.data(), leftIndex.data());
        CompareBelow(left, leftIndex, right, rightIndex);
    }
}

void AddSeeds(quint32 first, quint32 count)
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = first; seed < first + count; ++seed)
        QTest::addRow("numbers %u", seed) << seed;
}

} // namespace

void TestTreePatchesRandom::Undo_RandomPatches_TreeAsBefore_data()
{
    AddSeeds(1, 6);
}

void TestTreePatchesRandom::Undo_RandomPatches_TreeAsBefore()
{
    QFETCH(quint32, seed);
    PatchedTree tree(seed);
    QRandomGenerator lengths(seed);
    while (tree.entries.Count() < 100)
        tree.Patch();
    int roundsWithChanges = 0;

    for (int round = 0; round < 40; ++round) {
        const QStringList before = TreeSnapshot(tree.entries);
        tree.Hold();
        {
            TreePatches patches({&tree.entries});
            for (int count = int(lengths.bounded(60)); count > 0; --count)
                tree.Patch();
            roundsWithChanges += int(TreeSnapshot(tree.entries) != before);
        }
        QCOMPARE(TreeSnapshot(tree.entries), before);
        tree.CompareFollowers();
        if (QTest::currentTestFailed())
            return;
        // Goes on from a tree that was restored, not always from the same one.
        for (int step = 0; step < 10; ++step)
            tree.Patch();
    }
    QVERIFY(roundsWithChanges > 30);
}

void TestTreePatchesRandom::Undo_RandomPatchesWithKeeps_TreeAsKept_data()
{
    AddSeeds(101, 4);
}

void TestTreePatchesRandom::Undo_RandomPatchesWithKeeps_TreeAsKept()
{
    QFETCH(quint32, seed);
    PatchedTree tree(seed);
    QRandomGenerator choices(seed);
    TreePatches patches({&tree.entries});
    QStringList kept = TreeSnapshot(tree.entries);

    for (int step = 0; step < 2500; ++step) {
        tree.Patch();
        const int choice = int(choices.bounded(50));
        if (choice < 2) {
            patches.Keep();
            kept = TreeSnapshot(tree.entries);
        } else if (choice == 2) {
            patches.Undo();
            QCOMPARE(TreeSnapshot(tree.entries), kept);
            tree.CompareFollowers();
        }
        if (QTest::currentTestFailed())
            return;
    }
}

void TestTreePatchesRandom::Undo_RandomPatchesOfLongLists_TreeAsBefore_data()
{
    QTest::addColumn<quint32>("seed");
    QTest::addColumn<bool>("sorted");
    for (const quint32 seed : {201u, 202u}) {
        QTest::addRow("numbers %u, sorted", seed) << seed << true;
        QTest::addRow("numbers %u, unsorted", seed) << seed << false;
    }
}

/// Lists that are kept in many parts: single changes, whole families and all at once.
void TestTreePatchesRandom::Undo_RandomPatchesOfLongLists_TreeAsBefore()
{
    QFETCH(quint32, seed);
    QFETCH(bool, sorted);
    QRandomGenerator random(seed);
    TreeEntries entries;
    entries.Add(0, "R,0", "Nodes");
    entries.SetSorted(1, sorted);
    entries.SetExpanded(1, true);
    int id = 0;
    const auto add = [&](int count) {
        for (; count > 0; --count) {
            const auto entry = entries.Add(1, QStringLiteral("C,%1").arg(++id),
                                           QStringLiteral("Con %1").arg(random.bounded(100000)));
            entries.Add(entry, QStringLiteral("N,%1").arg(id), QStringLiteral("Node %1").arg(id));
            entries.SetExpanded(entry, random.bounded(3) == 0);
        }
    };
    const auto remove = [&](int count) {
        for (; count > 0 && entries.ChildCount(1) != 0; --count)
            entries.Remove(entries.Child(1, int(random.bounded(entries.ChildCount(1)))));
    };
    add(1200);

    for (int round = 0; round < 8; ++round) {
        const QStringList before = TreeSnapshot(entries);
        {
            const TreePatches patches({&entries});
            remove(int(random.bounded(900)));
            add(int(random.bounded(900)));
            if (random.bounded(3) == 0)
                entries.SetSorted(1, !sorted);
            if (random.bounded(3) == 0)
                entries.RemoveChildren(1);
            add(int(random.bounded(600)));
            QVERIFY(TreeSnapshot(entries) != before);
        }
        QVERIFY(TreeSnapshot(entries) == before);
        add(50);
        remove(60);
    }
}

/// A change to a tree of many entries is undone without a look at all of them.
void TestTreePatchesRandom::Undo_LargeTree_CostOfTheChanges()
{
    TreeEntries entries;
    entries.Add(0, "R,0", "Nodes");
    entries.SetSorted(1, true);
    std::vector<QString> texts;
    std::vector<NewTreeEntry> nodes;
    for (int id = 1; id <= 200000; ++id)
        texts.push_back(QStringLiteral("Node %1").arg(id, 7, 10, QChar(u'0')));
    for (int id = 1; id <= 200000; ++id)
        nodes.push_back({id, texts[size_t(id - 1)]});
    QCOMPARE(entries.AddNodes(1, nodes), 200000);
    QElapsedTimer timer;
    timer.start();

    for (int round = 0; round < 1000; ++round) {
        TreePatches patches({&entries});
        const TreeEntries::Index entry = entries.Child(1, round * 199);
        const QString text = entries.Text(entry);
        entries.SetText(entry, "Renamed");
        entries.Remove(entries.Child(1, round));
        entries.Add(1, "C,1", "Node 0100000 b");
        patches.Undo();
        QCOMPARE(entries.Text(entry), text);
        QCOMPARE(entries.Child(1, round * 199), entry);
    }

    QCOMPARE(entries.ChildCount(1), 200000);
    // A walk over all entries a round would take minutes.
    QVERIFY2(timer.elapsed() < 10000, qPrintable(QString::number(timer.elapsed())));
}

QTEST_GUILESS_MAIN(TestTreePatchesRandom)
#include "TestTreePatchesRandom.moc"
