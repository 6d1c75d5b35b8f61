#include "database/Gateway.h"
#include "database/SaveRoutines.h"
#include "database/UnitOfWork.h"
#include "tests/database/SavingFixture.h"

#include <QTest>

/// What a unit of work does to the trees lives and goes with its transaction.
class TestUnitOfWorkTrees : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Ending_OfTheTransaction_DecidesOnThePatches_data();
    void Ending_OfTheTransaction_DecidesOnThePatches();
    void Rollback_SavedNode_StandsWhereItStood();
    void Rollback_SavedConnection_HasItsChildrenAgain();
    void Rollback_RemovedNode_IsThereAgain();
    void Rollback_ThenBegin_KeepsTheSecondTransaction();
    void Patches_OutsideOfTheTransaction_Stay_data();
    void Patches_OutsideOfTheTransaction_Stay();
    void Patches_WhileBoxesAreShownAtTheEnd_Stay_data();
    void Patches_WhileBoxesAreShownAtTheEnd_Stay();
    void Trees_NullOnesAreLeftOut();
    void Trees_GoneMeanwhile_EndTheWorkAtTheNextBegin();
    void Trees_ClearedMeanwhile_StayCleared();
};

enum class End
{
    Commit,
    CommitFails,
    CommitBeforeRefusal,
    CommitBeforeRefusalFails,
    Refuse,
    Fail,
    OtherError,
};
Q_DECLARE_METATYPE(End)

static void EndBy(End end, UnitOfWork& unit)
{
    switch (end) {
    case End::Commit:
    case End::CommitFails:
        return unit.Commit();
    case End::CommitBeforeRefusal:
    case End::CommitBeforeRefusalFails:
        unit.CommitBeforeRefusal();
        UnitOfWork::GiveUp();
    case End::Refuse:
        unit.Refuse("why");
    case End::Fail:
        UnitOfWork::Fail();
    case End::OtherError:
        throw 1;
    }
}

/// A unit over the trees of a fixture, which show all nodes.
class TreesFixture : public SavingFixture
{
public:
    TreesFixture() { ShowNodes(); }

    bool Run(const std::function<void(UnitOfWork& unit)>& work)
    {
        UnitOfWork unit({&ConTree, &NodesTree});
        return unit.Run(work);
    }

    bool SaveNorth(const QString& newName, const QString& conName)
    {
        return SaveNodeChanges("North", newName, "Alpha", conName, "", "", NodeTarget, NodesTree, ConTree,
                               Position, ErrorText);
    }

    /// "handle key text" of all entries of both trees, children behind their parents.
    [[nodiscard]] QStringList All() const
    {
        QStringList all;
        for (const CheckedTree* tree : {&ConTree, &NodesTree})
            Append(*tree, 0, all);
        return all;
    }

private:
    static void Append(const CheckedTree& tree, TreeEntries::Index parent, QStringList& all)
    {
        for (int i = 0; i < tree.ChildCount(parent); ++i) {
            const TreeEntries::Index child = tree.Child(parent, i);
            all << QStringLiteral("%1 %2 %3 %4")
                       .arg(child)
                       .arg(tree.Key(child), tree.Text(child), tree.Expanded(child) ? "open" : "closed");
            Append(tree, child, all);
        }
    }
};

void TestUnitOfWorkTrees::Ending_OfTheTransaction_DecidesOnThePatches_data()
{
    QTest::addColumn<End>("end");
    QTest::addColumn<bool>("kept");
    QTest::newRow("committed") << End::Commit << true;
    QTest::newRow("commit fails") << End::CommitFails << false;
    QTest::newRow("committed, then refused") << End::CommitBeforeRefusal << false;
    QTest::newRow("commit fails, then refused") << End::CommitBeforeRefusalFails << false;
    QTest::newRow("refused") << End::Refuse << false;
    QTest::newRow("failed") << End::Fail << false;
    QTest::newRow("other error") << End::OtherError << false;
}

void TestUnitOfWorkTrees::Ending_OfTheTransaction_DecidesOnThePatches()
{
    QFETCH(End, end);
    QFETCH(bool, kept);
    TreesFixture fixture;
    const QStringList before = fixture.All();
    QStringList patched;

    fixture.Run([&](UnitOfWork& unit) {
        unit.Begin();
        QVERIFY(fixture.SaveNorth("Zulu", "Beta"));
        patched = fixture.All();
        if (end == End::CommitFails || end == End::CommitBeforeRefusalFails)
            fixture.Component.Fail("CommitTransaction");
        EndBy(end, unit);
    });

    QVERIFY(patched != before);
    QCOMPARE(fixture.All(), kept ? patched : before);
    QCOMPARE(fixture.Component.Store.Now.nodes.back().name,
             kept || end == End::CommitBeforeRefusal ? "Zulu" : "East");
}

void TestUnitOfWorkTrees::Rollback_SavedNode_StandsWhereItStood()
{
    TreesFixture fixture;
    const TreeEntries::Index north = fixture.NodesTree.FindByKey("N,3");
    const QPersistentModelIndex selected = fixture.NodesTree.ModelIndex(north);

    QVERIFY(!fixture.Run([&](UnitOfWork& unit) {
        unit.Begin();
        QVERIFY(fixture.SaveNorth("Zulu", "Alpha"));
        UnitOfWork::GiveUp();
    }));

    QCOMPARE(fixture.Nodes(), (QStringList{"N,5 East", "N,3 North", "N,4 South"}));
    QVERIFY(selected == fixture.NodesTree.ModelIndex(north));
}

void TestUnitOfWorkTrees::Rollback_SavedConnection_HasItsChildrenAgain()
{
    TreesFixture fixture;
    const QStringList before = fixture.All();

    QVERIFY(!fixture.Run([&](UnitOfWork& unit) {
        unit.Begin();
        fixture.Component.Fail("GetParentNodesWithID");
        if (!SaveConnectionChanges("Alpha", "Zulu", SavingFixture::AlphaTarget, fixture.ConTree, true,
                                   fixture.Position))
            unit.Refuse("why");
    }));

    QCOMPARE(fixture.All(), before);
    QCOMPARE(fixture.Operator.Texts(), (QStringList{"Unknown error in access to database.", "why"}));
}

void TestUnitOfWorkTrees::Rollback_RemovedNode_IsThereAgain()
{
    TreesFixture fixture;
    const QStringList before = fixture.All();

    QVERIFY(!fixture.Run([&](UnitOfWork& unit) {
        unit.Begin();
        fixture.Component.Fail("DeleteNode");
        if (!RemoveNodeEntry("North", fixture.ConTree, fixture.NodesTree, true))
            UnitOfWork::GiveUp();
    }));

    QCOMPARE(fixture.All(), before);
}

void TestUnitOfWorkTrees::Rollback_ThenBegin_KeepsTheSecondTransaction()
{
    TreesFixture fixture;

    QVERIFY(fixture.Run([&](UnitOfWork& unit) {
        unit.Begin();
        QVERIFY(RemoveNodeEntry("East", fixture.ConTree, fixture.NodesTree, true));
        unit.Rollback();
        MsgBox("Replace it ?", BoxFlags::OkCancel);
        unit.Begin();
        QVERIFY(RemoveNodeEntry("South", fixture.ConTree, fixture.NodesTree, true));
        unit.Commit();
    }));

    QCOMPARE(fixture.Nodes(), (QStringList{"N,5 East", "N,3 North"}));
    QCOMPARE(fixture.ConTree.Children(fixture.Beta()), QStringList{"N,5,2 East"});
    QCOMPARE(fixture.ConTree.Children(fixture.Alpha()), QStringList{"N,3,1 North"});
}

void TestUnitOfWorkTrees::Patches_OutsideOfTheTransaction_Stay_data()
{
    QTest::addColumn<End>("end");
    QTest::newRow("committed") << End::Commit;
    QTest::newRow("refused") << End::Refuse;
    QTest::newRow("failed") << End::Fail;
}

void TestUnitOfWorkTrees::Patches_OutsideOfTheTransaction_Stay()
{
    QFETCH(End, end);
    TreesFixture fixture;
    {
        UnitOfWork unit({&fixture.ConTree, &fixture.NodesTree});
        unit.Run([&](UnitOfWork& running) {
            fixture.NodesTree.Add(1, "N,91", "before");
            running.Begin();
            running.Rollback();
            fixture.NodesTree.Add(1, "N,92", "between");
            running.Begin();
            fixture.NodesTree.Add(1, "N,93", "within");
            EndBy(end, running);
        });
        fixture.NodesTree.Add(1, "N,94", "after");
    }

    QVERIFY(fixture.NodesTree.FindByKey("N,91") != 0);
    QVERIFY(fixture.NodesTree.FindByKey("N,92") != 0);
    QCOMPARE(fixture.NodesTree.FindByKey("N,93") != 0, end == End::Commit);
    QVERIFY(fixture.NodesTree.FindByKey("N,94") != 0);
}

void TestUnitOfWorkTrees::Patches_WhileBoxesAreShownAtTheEnd_Stay_data()
{
    QTest::addColumn<End>("end");
    QTest::newRow("committed") << End::Commit;
    QTest::newRow("refused") << End::Refuse;
    QTest::newRow("failed") << End::Fail;
}

void TestUnitOfWorkTrees::Patches_WhileBoxesAreShownAtTheEnd_Stay()
{
    QFETCH(End, end);
    TreesFixture fixture;
    // A refresh that comes while the operator reads.
    fixture.Operator.WhileOpen = [&](const RecordedBox& box) {
        if (box.text == "one")
            fixture.NodesTree.Add(1, "N,91", "refreshed");
    };

    fixture.Run([&](UnitOfWork& unit) {
        unit.Begin();
        MsgBox("one");
        EndBy(end, unit);
    });

    QVERIFY(fixture.NodesTree.FindByKey("N,91") != 0);
}

void TestUnitOfWorkTrees::Trees_NullOnesAreLeftOut()
{
    SavingFixture fixture;
    UnitOfWork unit({nullptr, &fixture.NodesTree, nullptr});

    QVERIFY(!unit.Run([&](UnitOfWork& running) {
        running.Begin();
        fixture.NodesTree.Add(1, "N,91", "within");
        UnitOfWork::GiveUp();
    }));

    QCOMPARE(fixture.NodesTree.Count(), 4);
}

void TestUnitOfWorkTrees::Trees_GoneMeanwhile_EndTheWorkAtTheNextBegin()
{
    SavingFixture fixture;
    auto tree = std::make_unique<CheckedTree>();
    tree->FillWithTwoConnections();
    UnitOfWork unit({tree.get(), &fixture.NodesTree});

    QVERIFY(!unit.Run([&](UnitOfWork& running) {
        running.Begin();
        tree->Remove(2);
        tree.reset();
        running.Rollback();
        fixture.NodesTree.Add(1, "N,91", "between");
        running.Begin();
        qFatal("There is nothing left to work on.");
    }));

    QCOMPARE(fixture.NodesTree.Count(), 5);
    QCOMPARE(fixture.Component.Count("BeginTransaction"), 1);
    QCOMPARE(fixture.Component.Store.Levels(), 0);
    QCOMPARE(fixture.Operator.Texts(), QStringList());
}

void TestUnitOfWorkTrees::Trees_ClearedMeanwhile_StayCleared()
{
    SavingFixture fixture;
    UnitOfWork unit({&fixture.NodesTree});

    QVERIFY(!unit.Run([&](UnitOfWork& running) {
        running.Begin();
        fixture.NodesTree.Remove(2);
        fixture.NodesTree.Clear();
        UnitOfWork::GiveUp();
    }));

    QCOMPARE(fixture.NodesTree.Count(), 0);
}

QTEST_GUILESS_MAIN(TestUnitOfWorkTrees)
#include "TestUnitOfWorkTrees.moc"
