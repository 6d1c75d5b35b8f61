#include "SmallTree.h"
#include "TreeSnapshot.h"
#include "model/TreePatches.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include <array>
#include <functional>
#include <memory>

/// Undoing what was done to trees, one kind of change at a time.
class TestTreePatches : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void Undo_OneChange_TreeAsBefore_data();
    void Undo_OneChange_TreeAsBefore();
    void Undo_AllChangesTogether_TreeAsBefore();
    void Undo_NothingDone_TellsNothing();
    void Undo_RefusedChanges_TellNothing();
    void Undo_SameValueSet_TellsNothing();
    void Undo_RemovedEntry_SameHandleAndAddedOneGone();
    void Undo_AddedEntry_HandleIsNotGivenAgain();
    void Undo_RemovedPage_ComesBack();
    void Undo_BatchAdded_OneRemoval();
    void Undo_ChildrenRemoved_OneInsertion();
    void Undo_OneChangeAmongMany_TellsOne();
    void Undo_Sort_KeepsPersistentIndexes();
    void Undo_Text_KeepsPersistentIndexes();
    void Undo_Twice_SecondDoesNothing();
    void Undo_ThenChanges_AreNotedAnew();

private:
    TreeEntries::Index At(const QString& key) const { return m_entries->FindByKey(key); }

    std::unique_ptr<TreeEntries> m_entries;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

void TestTreePatches::init()
{
    m_entries = std::make_unique<TreeEntries>();
    m_tester = std::make_unique<QAbstractItemModelTester>(
        m_entries.get(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    FillSmallTree(*m_entries);
}

void TestTreePatches::cleanup()
{
    m_tester.reset();
    m_entries.reset();
}

// One kind of change --------------------------------------------------------------------------------------

using Patch = std::function<void(TreeEntries&)>;
Q_DECLARE_METATYPE(Patch)

static TreeEntries::Index EntryAt(const TreeEntries& tree, const char* key)
{
    return tree.FindByKey(QString::fromLatin1(key));
}

static constexpr std::array<NewTreeEntry, 3> threeNodes = {{{50, u"m"}, {51, u"A"}, {52, u"z"}}};

static QList<std::pair<const char*, Patch>> AllPatches()
{
    return {
        {"add, unsorted", [](TreeEntries& t) { t.Add(EntryAt(t, "C,10"), "N,30", "Added"); }},
        {"add, sorted", [](TreeEntries& t) { t.Add(1, "C,30", "Berta"); }},
        {"add, top", [](TreeEntries& t) { t.Add(0, "C,31", "Top"); }},
        {"add, first child", [](TreeEntries& t) { t.Add(EntryAt(t, "C,12"), "N,32", "First"); }},
        {"add a family",
         [](TreeEntries& t) {
             const auto parent = t.Add(EntryAt(t, "C,12"), "N,33", "Parent");
             t.Add(parent, "N,34", "Child");
             t.Add(EntryAt(t, "C,11"), "N,35", "Other");
             t.SetExpanded(parent, true);
         }},
        {"add nodes, unsorted", [](TreeEntries& t) { t.AddNodes(EntryAt(t, "C,10"), threeNodes, 10); }},
        {"add nodes, sorted", [](TreeEntries& t) { t.AddNodes(EntryAt(t, "N,21"), threeNodes); }},
        {"add connections", [](TreeEntries& t) { t.AddConnections(1, threeNodes); }},
        {"remove, first", [](TreeEntries& t) { t.Remove(EntryAt(t, "C,10")); }},
        {"remove, middle", [](TreeEntries& t) { t.Remove(EntryAt(t, "N,21")); }},
        {"remove, last", [](TreeEntries& t) { t.Remove(EntryAt(t, "N,-22")); }},
        {"remove, root", [](TreeEntries& t) { t.Remove(1); }},
        {"remove children", [](TreeEntries& t) { t.RemoveChildren(EntryAt(t, "C,10")); }},
        {"remove children, sorted", [](TreeEntries& t) { t.RemoveChildren(1); }},
        {"remove children, top", [](TreeEntries& t) { t.RemoveChildren(0); }},
        {"key", [](TreeEntries& t) { t.SetKey(EntryAt(t, "C,10"), "C,99"); }},
        {"key, mark taken off", [](TreeEntries& t) { t.SetKey(EntryAt(t, "N,22"), "N,22"); }},
        {"key, mark put on", [](TreeEntries& t) { t.SetKey(EntryAt(t, "N,20"), "N,-20"); }},
        {"text, unsorted", [](TreeEntries& t) { t.SetText(EntryAt(t, "N,20"), "Aaa"); }},
        {"text, sorted, moves down", [](TreeEntries& t) { t.SetText(EntryAt(t, "C,10"), "Omega"); }},
        {"text, sorted, moves up", [](TreeEntries& t) { t.SetText(EntryAt(t, "C,12"), "Aa"); }},
        {"text, sorted, stays", [](TreeEntries& t) { t.SetText(EntryAt(t, "C,11"), "BETA"); }},
        {"tag set", [](TreeEntries& t) { t.SetTag(EntryAt(t, "C,11"), "new"); }},
        {"tag changed", [](TreeEntries& t) { t.SetTag(EntryAt(t, "C,10"), "new"); }},
        {"tag emptied", [](TreeEntries& t) { t.SetTag(EntryAt(t, "C,10"), QString()); }},
        {"expanded", [](TreeEntries& t) { t.SetExpanded(EntryAt(t, "C,12"), true); }},
        {"collapsed", [](TreeEntries& t) { t.SetExpanded(EntryAt(t, "C,10"), false); }},
        {"collapsed by index",
         [](TreeEntries& t) { t.SetExpanded(t.ModelIndex(EntryAt(t, "C,10")), false); }},
        {"sorted", [](TreeEntries& t) { t.SetSorted(EntryAt(t, "C,10"), true); }},
        {"sorted, no children", [](TreeEntries& t) { t.SetSorted(EntryAt(t, "C,12"), true); }},
        {"no longer sorted", [](TreeEntries& t) { t.SetSorted(1, false); }},
        {"sorted off, added, sorted on",
         [](TreeEntries& t) {
             t.SetSorted(1, false);
             t.AddConnections(1, threeNodes);
             t.SetSorted(1, true);
         }},
        {"removed and added again",
         [](TreeEntries& t) {
             t.Remove(EntryAt(t, "C,10"));
             t.Add(1, "C,10", "Alpha");
             t.SetTag(EntryAt(t, "C,10"), "another");
         }},
        {"saved anew: new key, no children",
         [](TreeEntries& t) {
             const auto entry = EntryAt(t, "C,10");
             t.RemoveChildren(entry);
             t.SetKey(entry, "C,77");
             t.SetText(entry, "Renamed");
             t.SetExpanded(entry, false);
         }},
        {"keys exchanged",
         [](TreeEntries& t) {
             const auto first = EntryAt(t, "N,20");
             const auto second = EntryAt(t, "N,21");
             t.SetKey(first, "N,1000");
             t.SetKey(second, "N,20");
             t.SetKey(first, "N,21");
         }},
    };
}

void TestTreePatches::Undo_OneChange_TreeAsBefore_data()
{
    QTest::addColumn<Patch>("patch");
    for (const auto& [name, patch] : AllPatches())
        QTest::newRow(name) << patch;
}

void TestTreePatches::Undo_OneChange_TreeAsBefore()
{
    QFETCH(Patch, patch);
    const QStringList before = TreeSnapshot(*m_entries);
    TreePatches patches({m_entries.get()});

    patch(*m_entries);
    QVERIFY(TreeSnapshot(*m_entries) != before);
    patches.Undo();

    QCOMPARE(TreeSnapshot(*m_entries), before);
}

void TestTreePatches::Undo_AllChangesTogether_TreeAsBefore()
{
    const QStringList before = TreeSnapshot(*m_entries);
    TreePatches patches({m_entries.get()});

    const auto all = AllPatches();
    for (const auto& [name, patch] : all)
        patch(*m_entries);
    patches.Undo();

    QCOMPARE(TreeSnapshot(*m_entries), before);
}

// What views are told ---------------------------------------------------------------------------------------

/// Counts the signals of a model.
class SignalCounts
{
public:
    explicit SignalCounts(TreeEntries* tree)
        : inserted(tree, &QAbstractItemModel::rowsInserted),
          removed(tree, &QAbstractItemModel::rowsRemoved),
          moved(tree, &QAbstractItemModel::rowsMoved),
          changed(tree, &QAbstractItemModel::dataChanged),
          layout(tree, &QAbstractItemModel::layoutChanged),
          reset(tree, &QAbstractItemModel::modelReset)
    {}
    [[nodiscard]] qsizetype All() const
    {
        return inserted.size() + removed.size() + moved.size() + changed.size() + layout.size() +
               reset.size();
    }

    QSignalSpy inserted;
    QSignalSpy removed;
    QSignalSpy moved;
    QSignalSpy changed;
    QSignalSpy layout;
    QSignalSpy reset;
};

void TestTreePatches::Undo_NothingDone_TellsNothing()
{
    TreePatches patches({m_entries.get()});
    const SignalCounts told(m_entries.get());

    patches.Undo();

    QCOMPARE(told.All(), 0);
}

void TestTreePatches::Undo_RefusedChanges_TellNothing()
{
    TreePatches patches({m_entries.get()});
    const SignalCounts told(m_entries.get());

    QCOMPARE(m_entries->Add(1, "C,10", "Taken"), 0);
    QCOMPARE(m_entries->AddNodes(999, threeNodes), 0);
    QVERIFY(!m_entries->Remove(999));
    QVERIFY(!m_entries->SetKey(At("C,10"), "C,11"));
    m_entries->SetTag(999, "tag");
    m_entries->RemoveChildren(At("C,12"));
    patches.Undo();

    QCOMPARE(told.All(), 0);
}

void TestTreePatches::Undo_SameValueSet_TellsNothing()
{
    TreePatches patches({m_entries.get()});
    const SignalCounts told(m_entries.get());

    m_entries->SetText(At("C,10"), "Alpha");
    m_entries->SetTag(At("C,10"), "T4BUS");
    m_entries->SetKey(At("C,10"), "C,10");
    m_entries->SetExpanded(At("C,10"), true);
    m_entries->SetSorted(1, true);
    patches.Undo();

    QCOMPARE(told.All(), 0);
}

void TestTreePatches::Undo_RemovedEntry_SameHandleAndAddedOneGone()
{
    const TreeEntries::Index alpha = At("C,10");
    const TreeEntries::Index waypoint = At("W,10,2");
    TreePatches patches({m_entries.get()});

    m_entries->Remove(alpha);
    const TreeEntries::Index added = m_entries->Add(1, "C,10", "Alpha");
    patches.Undo();

    QVERIFY(!m_entries->Exists(added));
    QCOMPARE(At("C,10"), alpha);
    QCOMPARE(At("W,10,2"), waypoint);
    QCOMPARE(m_entries->Tag(waypoint), QStringLiteral("tag below"));
}

void TestTreePatches::Undo_AddedEntry_HandleIsNotGivenAgain()
{
    TreePatches patches({m_entries.get()});
    const TreeEntries::Index added = m_entries->Add(1, "C,30", "Added");
    patches.Undo();

    QVERIFY(m_entries->Add(1, "C,30", "Added") > added);
}

void TestTreePatches::Undo_RemovedPage_ComesBack()
{
    std::vector<QString> texts;
    for (int id = 1; id <= 5000; ++id)
        texts.push_back(QStringLiteral("Node %1").arg(id));
    std::vector<NewTreeEntry> nodes;
    for (const QString& text : texts)
        nodes.push_back({100000 + int(nodes.size()), text});
    m_entries->AddNodes(At("C,12"), nodes);
    m_entries->Add(1, "C,500", "The last");
    m_tester.reset();
    const QStringList before = TreeSnapshot(*m_entries);
    const qint64 bytes = m_entries->MemoryBytes();
    TreePatches patches({m_entries.get()});

    m_entries->RemoveChildren(At("C,12"));
    QVERIFY(m_entries->MemoryBytes() < bytes / 2);
    patches.Undo();

    QVERIFY(TreeSnapshot(*m_entries) == before);
    // Room that the lists keep for later may differ.
    QVERIFY(qAbs(m_entries->MemoryBytes() - bytes) < 1024);
}

void TestTreePatches::Undo_BatchAdded_OneRemoval()
{
    TreePatches patches({m_entries.get()});
    m_entries->AddNodes(At("C,10"), threeNodes);
    m_entries->Add(At("C,10"), "N,60", "One more");
    const SignalCounts told(m_entries.get());

    patches.Undo();

    QCOMPARE(told.removed.size(), 1);
    QCOMPARE(told.removed.first().value(1).toInt(), 3);
    QCOMPARE(told.removed.first().value(2).toInt(), 6);
    QCOMPARE(told.All(), 1);
}

void TestTreePatches::Undo_ChildrenRemoved_OneInsertion()
{
    TreePatches patches({m_entries.get()});
    m_entries->RemoveChildren(At("C,10"));
    const SignalCounts told(m_entries.get());

    patches.Undo();

    QCOMPARE(told.inserted.size(), 1);
    QCOMPARE(told.inserted.first().value(1).toInt(), 0);
    QCOMPARE(told.inserted.first().value(2).toInt(), 2);
    QCOMPARE(told.All(), 1);
}

void TestTreePatches::Undo_OneChangeAmongMany_TellsOne()
{
    std::vector<NewTreeEntry> nodes;
    for (int id = 1; id <= 20000; ++id)
        nodes.push_back({100000 + id, u"A node"});
    m_tester.reset();
    m_entries->AddNodes(1, nodes);
    TreePatches patches({m_entries.get()});
    m_entries->SetText(At("N,100500"), "Renamed");
    const SignalCounts told(m_entries.get());

    patches.Undo();

    QCOMPARE(told.moved.size(), 1);
    QCOMPARE(told.changed.size(), 1);
    QCOMPARE(told.All(), 2);
}

void TestTreePatches::Undo_Sort_KeepsPersistentIndexes()
{
    const QPersistentModelIndex first = m_entries->ModelIndex(At("N,20"));
    const QPersistentModelIndex last = m_entries->ModelIndex(At("N,22"));
    TreePatches patches({m_entries.get()});

    m_entries->SetSorted(At("C,10"), true);
    QCOMPARE(first.row(), 2);
    patches.Undo();

    QCOMPARE(first.row(), 0);
    QCOMPARE(TreeEntries::EntryOf(first), At("N,20"));
    QCOMPARE(last.row(), 2);
    QCOMPARE(TreeEntries::EntryOf(last), At("N,22"));
}

void TestTreePatches::Undo_Text_KeepsPersistentIndexes()
{
    const QPersistentModelIndex alpha = m_entries->ModelIndex(At("C,10"));
    TreePatches patches({m_entries.get()});

    m_entries->SetText(At("C,10"), "Omega");
    QCOMPARE(alpha.row(), 2);
    patches.Undo();

    QCOMPARE(alpha.row(), 0);
    QCOMPARE(TreeEntries::EntryOf(alpha), At("C,10"));
}

void TestTreePatches::Undo_Twice_SecondDoesNothing()
{
    TreePatches patches({m_entries.get()});
    m_entries->Remove(At("C,10"));
    patches.Undo();
    const SignalCounts told(m_entries.get());

    patches.Undo();

    QCOMPARE(told.All(), 0);
}

void TestTreePatches::Undo_ThenChanges_AreNotedAnew()
{
    const QStringList before = TreeSnapshot(*m_entries);
    TreePatches patches({m_entries.get()});
    m_entries->Remove(At("C,10"));
    patches.Undo();

    m_entries->Remove(At("C,11"));
    patches.Undo();

    QCOMPARE(TreeSnapshot(*m_entries), before);
}

QTEST_GUILESS_MAIN(TestTreePatches)
#include "TestTreePatches.moc"
