#include "SmallTree.h"
#include "TreeSnapshot.h"
#include "model/TreePatches.h"

#include <QAbstractItemModelTester>
#include <QTest>

#include <memory>
#include <stdexcept>

/// Where recording begins and ends, several trees, and trees that change meanwhile.
class TestTreePatchesScope : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void End_NotKept_Undoes();
    void End_Kept_Stays();
    void End_OutsideOfRecording_NothingNoted();
    void Keep_Between_UndoesWhatFollows();
    void Exception_ThroughScope_Undoes();

    void Trees_Several_AllUndone();
    void Trees_NullOrTwice_AreFine();
    void Inner_KeptOrNot_OuterDecides_data();
    void Inner_KeptOrNot_OuterDecides();
    void Inner_OtherTree_IsItsOwn();
    void Clear_Meanwhile_LeftAsItIs();
    void Clear_ThenKeep_NotedAnew();
    void Tree_DestroyedMeanwhile_IsLeftAlone();
    void Receiver_ChangesTree_UndoneToo();
    void Receiver_ClearsTreeDuringUndo_EndsIt();
    void Receiver_ChangesTreeDuringUndo_TreeStaysWhole();

private:
    TreeEntries::Index At(const QString& key) const { return m_entries->FindByKey(key); }

    std::unique_ptr<TreeEntries> m_entries;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

void TestTreePatchesScope::init()
{
    m_entries = std::make_unique<TreeEntries>();
    m_tester = std::make_unique<QAbstractItemModelTester>(
        m_entries.get(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    FillSmallTree(*m_entries);
}

void TestTreePatchesScope::cleanup()
{
    m_tester.reset();
    m_entries.reset();
}

// Beginning and end ---------------------------------------------------------------------------------------

void TestTreePatchesScope::End_NotKept_Undoes()
{
    const QStringList before = TreeSnapshot(*m_entries);
    {
        const TreePatches patches({m_entries.get()});
        m_entries->Remove(At("C,10"));
    }
    QCOMPARE(TreeSnapshot(*m_entries), before);
}

void TestTreePatchesScope::End_Kept_Stays()
{
    QStringList kept;
    {
        TreePatches patches({m_entries.get()});
        m_entries->Remove(At("C,10"));
        kept = TreeSnapshot(*m_entries);
        patches.Keep();
    }
    QCOMPARE(TreeSnapshot(*m_entries), kept);
    QCOMPARE(At("C,10"), 0);
}

void TestTreePatchesScope::End_OutsideOfRecording_NothingNoted()
{
    {
        const TreePatches patches({m_entries.get()});
    }
    m_entries->Remove(At("C,10"));
    TreePatches patches({m_entries.get()});

    patches.Undo();

    QCOMPARE(At("C,10"), 0);
}

void TestTreePatchesScope::Keep_Between_UndoesWhatFollows()
{
    TreePatches patches({m_entries.get()});
    m_entries->Remove(At("C,10"));
    patches.Keep();
    const QStringList kept = TreeSnapshot(*m_entries);

    m_entries->Remove(At("C,11"));
    m_entries->Add(1, "C,10", "Alpha");
    patches.Undo();

    QCOMPARE(TreeSnapshot(*m_entries), kept);
}

void TestTreePatchesScope::Exception_ThroughScope_Undoes()
{
    const QStringList before = TreeSnapshot(*m_entries);
    try {
        const TreePatches patches({m_entries.get()});
        m_entries->RemoveChildren(1);
        throw std::runtime_error("a damaged list");
    } catch (const std::runtime_error&) {
    }
    QCOMPARE(TreeSnapshot(*m_entries), before);
}

// Several trees -------------------------------------------------------------------------------------------

void TestTreePatchesScope::Trees_Several_AllUndone()
{
    TreeEntries other;
    other.Add(0, "R,0", "Nodes");
    other.Add(1, "N,20", "Zeta");
    const QStringList before = TreeSnapshot(*m_entries);
    const QStringList otherBefore = TreeSnapshot(other);
    TreePatches patches({m_entries.get(), &other});

    m_entries->Remove(At("N,20"));
    other.Remove(2);
    patches.Undo();

    QCOMPARE(TreeSnapshot(*m_entries), before);
    QCOMPARE(TreeSnapshot(other), otherBefore);
}

void TestTreePatchesScope::Trees_NullOrTwice_AreFine()
{
    const QStringList before = TreeSnapshot(*m_entries);
    {
        TreePatches patches({nullptr, m_entries.get(), m_entries.get(), nullptr});
        m_entries->Remove(At("C,10"));
        patches.Undo();
        QCOMPARE(TreeSnapshot(*m_entries), before);
        m_entries->Remove(At("C,10"));
        patches.Keep();
    }
    QCOMPARE(At("C,10"), 0);
    TreePatches nothing({});
    nothing.Undo();
}

void TestTreePatchesScope::Inner_KeptOrNot_OuterDecides_data()
{
    QTest::addColumn<bool>("innerKept");
    QTest::addColumn<bool>("outerKept");
    QTest::newRow("neither") << false << false;
    QTest::newRow("inner") << true << false;
    QTest::newRow("outer") << false << true;
    QTest::newRow("both") << true << true;
}

void TestTreePatchesScope::Inner_KeptOrNot_OuterDecides()
{
    QFETCH(bool, innerKept);
    QFETCH(bool, outerKept);
    const QStringList before = TreeSnapshot(*m_entries);
    QStringList done;
    {
        TreePatches outer({m_entries.get()});
        m_entries->Remove(At("C,11"));
        {
            TreePatches inner({m_entries.get()});
            m_entries->Remove(At("C,10"));
            if (innerKept)
                inner.Keep();
            else
                inner.Undo();
        }
        m_entries->SetText(At("C,12"), "Delta");
        done = TreeSnapshot(*m_entries);
        if (outerKept)
            outer.Keep();
    }
    QCOMPARE(TreeSnapshot(*m_entries), outerKept ? done : before);
    QCOMPARE(At("C,10") == 0, outerKept);
}

void TestTreePatchesScope::Inner_OtherTree_IsItsOwn()
{
    TreeEntries other;
    other.Add(0, "R,0", "Nodes");
    TreePatches outer({m_entries.get()});
    {
        const TreePatches inner({m_entries.get(), &other});
        m_entries->Remove(At("C,10"));
        other.Add(1, "N,1", "Node");
    }
    QCOMPARE(other.Count(), 1);
    QCOMPARE(At("C,10"), 0);
    outer.Undo();
    QVERIFY(At("C,10") != 0);
}

// Trees that change their ways ------------------------------------------------------------------------------

void TestTreePatchesScope::Clear_Meanwhile_LeftAsItIs()
{
    QStringList loaded;
    {
        TreePatches patches({m_entries.get()});
        m_entries->Remove(At("C,10"));
        m_entries->Clear();
        m_entries->Add(0, "R,0", "Loaded anew");
        m_entries->Add(1, "C,1", "One");
        loaded = TreeSnapshot(*m_entries);
        patches.Undo();
        QCOMPARE(TreeSnapshot(*m_entries), loaded);
        m_entries->Add(1, "C,2", "Two");
    }
    QCOMPARE(m_entries->Count(), 3);
}

void TestTreePatchesScope::Clear_ThenKeep_NotedAnew()
{
    TreePatches patches({m_entries.get()});
    m_entries->Clear();
    m_entries->Add(0, "R,0", "Loaded anew");
    patches.Keep();
    m_entries->Add(1, "C,1", "One");

    patches.Undo();

    QCOMPARE(m_entries->Count(), 1);
}

void TestTreePatchesScope::Tree_DestroyedMeanwhile_IsLeftAlone()
{
    TreeEntries other;
    other.Add(0, "R,0", "Nodes");
    TreePatches patches({m_entries.get(), &other});
    m_entries->Remove(At("C,10"));
    other.Add(1, "N,1", "Node");
    m_tester.reset();
    m_entries.reset();

    patches.Undo();

    QCOMPARE(other.Count(), 1);
}

void TestTreePatchesScope::Receiver_ChangesTree_UndoneToo()
{
    const QStringList before = TreeSnapshot(*m_entries);
    connect(m_entries.get(), &QAbstractItemModel::rowsInserted, m_entries.get(),
            [this](const QModelIndex& parent) {
                m_entries->SetExpanded(parent, true);
                m_entries->SetTag(TreeEntries::EntryOf(parent), "has children");
            });
    connect(static_cast<TreeRows*>(m_entries.get()), &TreeRows::Expanded, m_entries.get(),
            [this](const QModelIndex& index) {
                const auto entry = TreeEntries::EntryOf(index);
                if (m_entries->ChildCount(entry) == 1)
                    m_entries->SetText(entry, "Expanded");
            });
    TreePatches patches({m_entries.get()});
    m_entries->Add(At("C,12"), "N,70", "Node");
    QVERIFY(m_entries->FindByText("Expanded", false) != 0);
    disconnect(m_entries.get(), &QAbstractItemModel::rowsInserted, m_entries.get(), nullptr);

    patches.Undo();

    QCOMPARE(TreeSnapshot(*m_entries), before);
}

void TestTreePatchesScope::Receiver_ClearsTreeDuringUndo_EndsIt()
{
    TreePatches patches({m_entries.get()});
    m_entries->Remove(At("C,10"));
    m_entries->Add(1, "C,60", "One");
    m_entries->SetTag(1, "tag");
    m_entries->Add(1, "C,61", "Two");
    connect(m_entries.get(), &QAbstractItemModel::rowsRemoved, m_entries.get(), [this] {
        if (m_entries->Count() != 0)
            m_entries->Clear();
    });

    patches.Undo();

    QCOMPARE(m_entries->Count(), 0);
}

void TestTreePatchesScope::Receiver_ChangesTreeDuringUndo_TreeStaysWhole()
{
    TreePatches patches({m_entries.get()});
    m_entries->SetText(At("C,12"), "Aa");
    m_entries->SetSorted(At("C,10"), true);
    m_entries->Remove(At("N,20"));
    m_entries->SetKey(At("C,11"), "C,111");
    m_entries->RemoveChildren(1);
    m_entries->Add(1, "C,60", "One");
    // Takes keys and places that the undo wants back.
    connect(m_entries.get(), &QAbstractItemModel::rowsRemoved, m_entries.get(), [this] {
        m_entries->Add(1, "N,21", "In the way");
        m_entries->Add(1, "C,11", "In the way too");
    });

    patches.Undo();

    // The tester has seen each step; what came in between stays.
    QCOMPARE(m_entries->Count(), 3);
    QVERIFY(m_entries->FindByText("In the way", true) != 0);
    QCOMPARE(At("C,60"), 0);
    QVERIFY(m_entries->Add(1, "C,10", "Alpha") != 0);
    QCOMPARE(m_entries->Text(m_entries->Child(1, 0)), QStringLiteral("Alpha"));
}

QTEST_GUILESS_MAIN(TestTreePatchesScope)
#include "TestTreePatchesScope.moc"
