#include "database/JournalPatch.h"
#include "model/TreeFilling.h"
#include "tests/support/CheckedTree.h"
#include "tests/support/GatewayFixture.h"

#include <QPersistentModelIndex>
#include <QTest>

namespace {

/// Connections Alpha (id 1) with the nodes North (3) and South (4), expanded, and Beta (2) with East (5),
/// closed and not read yet; in the database and in both trees.
class PatchFixture : public GatewayFixture
{
public:
    PatchFixture()
    {
        TinyDatabase& store = Component.Store;
        store.AddConnection("Alpha", "WP=BUST4,ID=1");
        store.AddConnection("Beta", "WP=BUST4,ID=2");
        for (const auto& [name, conName] :
             {std::pair("North", "Alpha"), std::pair("South", "Alpha"), std::pair("East", "Beta")})
            store.AddNode(name, conName, QString(), NodeTarget());
        ConTree.FillWithTwoConnections();
        NodesTree.Add(0, RootKey, "Nodes");
        NodesTree.SetSorted(1, true);
        for (const TinyDatabase::Node& node : store.Now.nodes)
            NodesTree.Add(1, QStringLiteral("N,%1").arg(node.id), node.name);
        Fill(Alpha());
        Open();
    }

    CheckedTree ConTree;
    CheckedTree NodesTree;
    bool ViewNodes = true;

    static QString NodeTarget() { return QStringLiteral("WP=NET4,ADDR=1"); }
    [[nodiscard]] TreeEntries::Index Alpha() const { return Con("Alpha"); }
    [[nodiscard]] TreeEntries::Index Beta() const { return Con("Beta"); }
    [[nodiscard]] TreeEntries::Index Con(const QString& name) const
    {
        TreeEntries::Index entry = 0;
        FindConnectionEntry(name, ConTree, entry);
        return entry;
    }
    /// Loads the nodes of a connection as the progress form does.
    void Fill(TreeEntries::Index connection)
    {
        ConTree.SetSorted(connection, true);
        ConTree.SetExpanded(connection, true);
        for (const TinyDatabase::Node& node : Component.Store.Now.nodes) {
            if (node.conName == ConTree.Text(connection))
                ConTree.Add(connection, QStringLiteral("N,%1").arg(node.id), node.name);
        }
    }
    /// Applies what the Journal tells since its first record.
    void Patch() { Patch(1); }
    void Patch(qint32 afterId)
    {
        JournalPatch patch(ConTree, NodesTree, ViewNodes);
        for (const TinyDatabase::JournalRecord& record : Component.Store.Now.journal) {
            if (record.id > afterId)
                patch.Apply(record.recordType, record.text1, record.number);
        }
        patch.Finish();
    }
    void PatchOne(qint32 operation, const QString& name, qint32 id)
    {
        JournalPatch patch(ConTree, NodesTree, ViewNodes);
        patch.Apply(operation, name, id);
        patch.Finish();
    }
    /// Another application writes the node anew. Gives the new id.
    qint32 SaveNode(const QString& name, const QString& conName)
    {
        Component.Store.ReplaceNodeTarget(name, conName, NodeTarget());
        return Component.Store.Now.lastRecordId;
    }
    qint32 AddNode(const QString& name, const QString& conName)
    {
        Component.Store.SaveNode(name, QString(), NodeTarget(), conName, QString());
        return Component.Store.Now.lastRecordId;
    }
    [[nodiscard]] QStringList Nodes() const { return NodesTree.Children(1); }
    [[nodiscard]] QStringList Connections() const { return ConTree.Children(1); }
    [[nodiscard]] QStringList AlphaNodes() const { return ConTree.Children(Alpha()); }
};

const QStringList AllConnections{"C,1 Alpha", "C,2 Beta"};
const QStringList AllNodes{"N,5 East", "N,3 North", "N,4 South"};
const QStringList AllOfAlpha{"N,3 North", "N,4 South"};

} // namespace

class TestJournalPatch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Each kind of record ----------------------------------------------------------------------------------

    void NodeDeleted_LeavesBothTrees()
    {
        PatchFixture f;
        f.PatchOne(20, "North", 3);
        QCOMPARE(f.Nodes(), (QStringList{"N,5 East", "N,4 South"}));
        QCOMPARE(f.AlphaNodes(), QStringList{"N,4 South"});
        QVERIFY(f.ConTree.Expanded(f.Alpha()));
    }

    void NodeDeleted_TheOnlyOne_ConnectionStaysExpanded()
    {
        PatchFixture f;
        f.PatchOne(20, "North", 3);
        f.PatchOne(20, "South", 4);
        QCOMPARE(f.ConTree.ChildCount(f.Alpha()), 0);
        QVERIFY(f.ConTree.Expanded(f.Alpha()));
        f.AddNode("West", "Alpha");
        f.Patch();
        QCOMPARE(f.AlphaNodes(), QStringList{"N,6 West"});
    }

    void ConnectionDeleted_GoesWithItsNodes()
    {
        PatchFixture f;
        f.PatchOne(21, "Alpha", 1);
        QCOMPARE(f.Connections(), QStringList{"C,2 Beta"});
        QCOMPARE(f.ConTree.Count(), 2);
        QCOMPARE(f.Nodes(), AllNodes);
    }

    void NodeSaved_New_StandsInBothTrees_data() { SaveRows(30, 40); }
    void NodeSaved_New_StandsInBothTrees()
    {
        QFETCH(const int, operation);
        PatchFixture f;
        const qint32 id = f.AddNode("Mid", "Alpha");
        f.PatchOne(operation, "Mid", id);
        QCOMPARE(f.Nodes(), (QStringList{"N,5 East", "N,6 Mid", "N,3 North", "N,4 South"}));
        QCOMPARE(f.AlphaNodes(), (QStringList{"N,6 Mid", "N,3 North", "N,4 South"}));
    }

    void ConnectionSaved_New_StandsClosed_data() { SaveRows(31, 41); }
    void ConnectionSaved_New_StandsClosed()
    {
        QFETCH(const int, operation);
        PatchFixture f;
        f.PatchOne(operation, "Aachen", 9);
        QCOMPARE(f.Connections(), (QStringList{"C,9 Aachen", "C,1 Alpha", "C,2 Beta"}));
        QVERIFY(!f.ConTree.Expanded(f.Con("Aachen")));
        QCOMPARE(f.AlphaNodes(), AllOfAlpha);
    }

    void ConnectionSaved_Changed_IsClosedAndRead_data() { SaveRows(31, 41); }
    void ConnectionSaved_Changed_IsClosedAndRead()
    {
        QFETCH(const int, operation);
        PatchFixture f;
        const QPersistentModelIndex before = f.ConTree.ModelIndex(f.Alpha());
        f.ConTree.SetTag(f.Alpha(), "Nodes");
        f.PatchOne(operation, "Alpha", 9);
        QCOMPARE(f.Connections(), (QStringList{"C,9 Alpha", "C,2 Beta"}));
        QVERIFY(before == f.ConTree.ModelIndex(f.Alpha()));
        QVERIFY(!f.ConTree.Expanded(f.Alpha()));
        QCOMPARE(f.ConTree.ChildCount(f.Alpha()), 0);
        QCOMPARE(f.ConTree.Tag(f.Alpha()), QString());
    }

    void UnknownOperation_ChangesNothing_data()
    {
        QTest::addColumn<int>("operation");
        for (const int operation : {-1, 0, 1, 19, 22, 29, 32, 39, 42, 50})
            QTest::addRow("%d", operation) << operation;
    }
    void UnknownOperation_ChangesNothing()
    {
        QFETCH(const int, operation);
        PatchFixture f;
        f.PatchOne(operation, "Alpha", 9);
        f.PatchOne(operation, "North", 9);
        QCOMPARE(f.Connections(), AllConnections);
        QCOMPARE(f.Nodes(), AllNodes);
        QCOMPARE(f.AlphaNodes(), AllOfAlpha);
        QCOMPARE(f.Component.Calls, QStringList());
    }

    void Record_WithoutAnId_TakesTheEntryAway()
    {
        PatchFixture f;
        f.PatchOne(30, "North", 0);
        f.PatchOne(41, "Beta", -7);
        QCOMPARE(f.Nodes(), (QStringList{"N,5 East", "N,4 South"}));
        QCOMPARE(f.Connections(), QStringList{"C,1 Alpha"});
    }

    // In place ---------------------------------------------------------------------------------------------

    void NodeSaved_OnItsConnection_KeepsItsHandles_data()
    {
        QTest::addColumn<bool>("deletedFirst");
        QTest::newRow("changed") << false;
        QTest::newRow("deleted and saved") << true;
    }
    void NodeSaved_OnItsConnection_KeepsItsHandles()
    {
        QFETCH(const bool, deletedFirst);
        PatchFixture f;
        const QPersistentModelIndex below = f.ConTree.ModelIndex(f.ConTree.FindByKey("N,3"));
        const QPersistentModelIndex flat = f.NodesTree.ModelIndex(f.NodesTree.FindByKey("N,3"));
        if (deletedFirst) {
            f.Component.Store.DeleteNodeFromBrowser("North");
            f.AddNode("North", "Alpha");
        } else {
            f.SaveNode("North", "Alpha");
        }
        f.Patch();
        QVERIFY(below == f.ConTree.ModelIndex(f.ConTree.FindByKey("N,6")));
        QVERIFY(flat == f.NodesTree.ModelIndex(f.NodesTree.FindByKey("N,6")));
        QCOMPARE(f.AlphaNodes(), (QStringList{"N,6 North", "N,4 South"}));
    }

    void NodeSaved_Twice_StandsOnce()
    {
        PatchFixture f;
        f.SaveNode("North", "Alpha");
        f.SaveNode("North", "Alpha");
        f.Patch();
        QCOMPARE(f.Nodes(), (QStringList{"N,5 East", "N,7 North", "N,4 South"}));
        QCOMPARE(f.AlphaNodes(), (QStringList{"N,7 North", "N,4 South"}));
        f.Patch();
        QCOMPARE(f.AlphaNodes(), (QStringList{"N,7 North", "N,4 South"}));
    }

    void NodeSaved_ThenDeleted_IsGone()
    {
        PatchFixture f;
        f.SaveNode("North", "Alpha");
        f.AddNode("West", "Alpha");
        f.Component.Store.DeleteNode("North");
        f.Component.Store.DeleteNode("West");
        f.Patch();
        QCOMPARE(f.AlphaNodes(), QStringList{"N,4 South"});
        QCOMPARE(f.Nodes(), (QStringList{"N,5 East", "N,4 South"}));
    }

    void NodeSaved_InAnotherCase_IsTheSameEntry()
    {
        PatchFixture f;
        const QPersistentModelIndex below = f.ConTree.ModelIndex(f.ConTree.FindByKey("N,3"));
        f.Component.Store.ReplaceNodeName("North", "NORTH");
        f.Patch();
        QCOMPARE(f.AlphaNodes(), (QStringList{"N,6 NORTH", "N,4 South"}));
        QVERIFY(below == f.ConTree.ModelIndex(f.ConTree.FindByKey("N,6")));
        f.PatchOne(41, "ALPHA", 7);
        QCOMPARE(f.Connections(), (QStringList{"C,7 ALPHA", "C,2 Beta"}));
    }

    void NodeRenamed_OldNameGoesNewOneComes()
    {
        PatchFixture f;
        f.Component.Store.ReplaceNodeName("North", "Arctic");
        f.Patch();
        QCOMPARE(f.AlphaNodes(), (QStringList{"N,6 Arctic", "N,4 South"}));
        QCOMPARE(f.Nodes(), (QStringList{"N,6 Arctic", "N,5 East", "N,4 South"}));
    }

    void EntryOfTheKey_UnderAnotherName_TakesTheName()
    {
        PatchFixture f;
        f.ConTree.SetText(f.ConTree.FindByKey("N,3"), "Old");
        f.NodesTree.SetText(f.NodesTree.FindByKey("N,3"), "Old");
        f.ConTree.SetText(f.Beta(), "Old");
        f.PatchOne(40, "North", 3);
        f.PatchOne(41, "Beta", 2);
        QCOMPARE(f.AlphaNodes(), AllOfAlpha);
        QCOMPARE(f.Nodes(), AllNodes);
        QCOMPARE(f.Connections(), AllConnections);
    }

    void OwnSave_AlreadyShown_ChangesNothing()
    {
        PatchFixture f;
        f.Component.Store.ReplaceParentTarget("Alpha", "WP=BUST4,ID=7");
        f.ConTree.SetKey(f.Alpha(), "C,6");
        f.SaveNode("North", "Alpha");
        f.ConTree.SetKey(f.ConTree.FindByKey("N,3"), "N,7,6");
        f.NodesTree.SetKey(f.NodesTree.FindByKey("N,3"), "N,7");
        f.Patch();
        QCOMPARE(f.AlphaNodes(), (QStringList{"N,7,6 North", "N,4 South"}));
        QVERIFY(f.ConTree.Expanded(f.Alpha()));
    }

    void OwnSave_TwiceAlreadyShown_DoesNotCloseTheConnection()
    {
        PatchFixture f;
        f.Component.Store.ReplaceParentTarget("Alpha", "WP=BUST4,ID=7");
        f.Component.Store.ReplaceParentTarget("Alpha", "WP=BUST4,ID=8");
        f.ConTree.SetKey(f.Alpha(), "C,7");
        f.Patch();
        QCOMPARE(f.AlphaNodes(), AllOfAlpha);
        QVERIFY(f.ConTree.Expanded(f.Alpha()));
    }

    // Under which connection -------------------------------------------------------------------------------

    void NodeSaved_ConnectionCollapsed_IsNotAddedBelow()
    {
        PatchFixture f;
        f.AddNode("West", "Beta");
        f.Patch();
        QCOMPARE(f.ConTree.ChildCount(f.Beta()), 0);
        QCOMPARE(f.Nodes().size(), 4);
    }

    void NodeSaved_ConnectionCollapsedWithItsNodes_LosesThem()
    {
        PatchFixture f;
        f.ConTree.SetExpanded(f.Alpha(), false);
        f.AddNode("West", "Alpha");
        f.Patch();
        QCOMPARE(f.ConTree.ChildCount(f.Alpha()), 0);
        QVERIFY(!f.ConTree.Expanded(f.Alpha()));
    }

    void NodeSaved_CollapsedButShownAlready_ChangesNothing()
    {
        PatchFixture f;
        f.SaveNode("North", "Alpha");
        f.ConTree.SetKey(f.ConTree.FindByKey("N,3"), "N,6");
        f.ConTree.SetExpanded(f.Alpha(), false);
        f.Patch();
        QCOMPARE(f.AlphaNodes(), (QStringList{"N,6 North", "N,4 South"}));
    }

    void NodeSaved_NodesNotShown_HasNoEntryBelow()
    {
        PatchFixture f;
        f.ViewNodes = false;
        f.ConTree.RemoveChildren(f.Alpha());
        f.ConTree.Add(f.Alpha(), "W,1,1", "KD7 Bus");
        f.SaveNode("North", "Alpha");
        f.Patch();
        QCOMPARE(f.AlphaNodes(), QStringList{"W,1,1 KD7 Bus"});
        QCOMPARE(f.Nodes(), (QStringList{"N,5 East", "N,6 North", "N,4 South"}));
    }

    void NodeMoved_StandsUnderItsNewConnection_data()
    {
        QTest::addColumn<bool>("open");
        QTest::newRow("open") << true;
        QTest::newRow("closed") << false;
    }
    void NodeMoved_StandsUnderItsNewConnection()
    {
        QFETCH(const bool, open);
        PatchFixture f;
        if (open)
            f.Fill(f.Beta());
        f.SaveNode("North", "Beta");
        f.Patch();
        QCOMPARE(f.AlphaNodes(), QStringList{"N,4 South"});
        QCOMPARE(f.ConTree.Children(f.Beta()), open ? (QStringList{"N,5 East", "N,6 North"}) : QStringList());
    }

    void NodeMoved_NewConnectionLoadedSince_StandsOnce()
    {
        PatchFixture f;
        f.SaveNode("East", "Alpha");
        f.ConTree.RemoveChildren(f.Alpha());
        f.Fill(f.Alpha());
        f.ConTree.SetExpanded(f.Beta(), true);
        f.ConTree.Add(f.Beta(), "N,5", "East");
        f.Patch();
        QCOMPARE(f.ConTree.ChildCount(f.Beta()), 0);
        QCOMPARE(f.AlphaNodes(), (QStringList{"N,6 East", "N,3 North", "N,4 South"}));
    }

    void ConnectionAndItsNode_Saved_StandClosed()
    {
        PatchFixture f;
        f.SaveNode("North", "Alpha");
        f.Component.Store.ReplaceParentTarget("Alpha", "WP=BUST4,ID=7");
        f.Patch();
        QCOMPARE(f.ConTree.ChildCount(f.Alpha()), 0);
        QVERIFY(!f.ConTree.Expanded(f.Alpha()));
    }

    void ConnectionRenamed_StandsClosedUnderItsNewName()
    {
        PatchFixture f;
        f.Component.Store.ReplaceParentName("Alpha", "Omega");
        f.Patch();
        QCOMPARE(f.Connections(), (QStringList{"C,2 Beta", "C,6 Omega"}));
        QVERIFY(f.ConTree.FindByText("North", true) == 0);
    }

    void ConnectionDeletedAndSavedAgain_StandsOnce()
    {
        PatchFixture f;
        f.Component.Store.DeleteParent("Alpha", true);
        f.Component.Store.SaveParent("Alpha", "WP=BUST4,ID=7");
        f.AddNode("North", "Alpha");
        f.Patch();
        QCOMPARE(f.Connections(), (QStringList{"C,6 Alpha", "C,2 Beta"}));
        QCOMPARE(f.ConTree.ChildCount(f.Alpha()), 0);
        QCOMPARE(f.Nodes(), (QStringList{"N,5 East", "N,7 North"}));
    }

    // Names that stand for something else ------------------------------------------------------------------

    void Connection_CalledLikeTheRootOrAWaypoint_IsTheOneMeant_data()
    {
        QTest::addColumn<int>("operation");
        QTest::newRow("deleted") << 21;
        QTest::newRow("saved") << 41;
    }
    void Connection_CalledLikeTheRootOrAWaypoint_IsTheOneMeant()
    {
        QFETCH(const int, operation);
        PatchFixture f;
        f.ConTree.RemoveChildren(f.Alpha());
        f.ConTree.Add(f.Alpha(), "W,1,1", "Beta");
        f.ConTree.Add(1, "C,8", "connections");
        f.PatchOne(operation, "BETA", 9);
        f.PatchOne(operation, "Connections", 10);
        const bool deleted = operation == 21;
        QCOMPARE(f.Connections(), deleted ? QStringList{"C,1 Alpha"}
                                          : (QStringList{"C,1 Alpha", "C,9 BETA", "C,10 Connections"}));
        QCOMPARE(f.AlphaNodes(), QStringList{"W,1,1 Beta"});
    }

    void Node_CalledLikeTheRootOrAConnection_LeavesThemAlone()
    {
        PatchFixture f;
        f.PatchOne(20, "Nodes", 3);
        f.PatchOne(20, "Alpha", 3);
        f.PatchOne(21, "North", 3);
        QCOMPARE(f.Connections(), AllConnections);
        QCOMPARE(f.Nodes(), AllNodes);
        QCOMPARE(f.AlphaNodes(), AllOfAlpha);
    }

    // Reads ------------------------------------------------------------------------------------------------

    void NodeRead_OnceForEachSavedNode_AsTheRecordsCome()
    {
        PatchFixture f;
        JournalPatch patch(f.ConTree, f.NodesTree, true);
        patch.Apply(30, "North", 9);
        QCOMPARE(f.Component.Calls, QStringList{"GetNode(North)"});
        patch.Apply(20, "North", 9);
        patch.Apply(41, "Alpha", 9);
        QCOMPARE(f.Nodes(), AllNodes);
        patch.Finish();
        QCOMPARE(f.Component.Calls, QStringList{"GetNode(North)"});
    }

    void NodeRead_Gone_StandsInTheFlatTreeAlone()
    {
        PatchFixture f;
        f.Component.Store.Now.nodes.clear();
        f.PatchOne(30, "North", 9);
        QCOMPARE(f.Nodes(), (QStringList{"N,5 East", "N,9 North", "N,4 South"}));
        QCOMPARE(f.AlphaNodes(), QStringList{"N,4 South"});
        QCOMPARE(f.Operator.Texts(), QStringList());
    }

    void NodeRead_FailsOnce_IsReadAgain()
    {
        PatchFixture f;
        f.Component.FailTimes("GetNode", 1);
        f.SaveNode("North", "Alpha");
        f.Patch();
        QCOMPARE(f.AlphaNodes(), (QStringList{"N,6 North", "N,4 South"}));
    }

    void NodeRead_ConnectionUnknown_HasNoEntryBelow()
    {
        PatchFixture f;
        f.Component.Answer("GetNode", {"Omega", "WP=NET4"});
        f.PatchOne(30, "North", 9);
        QCOMPARE(f.AlphaNodes(), QStringList{"N,4 South"});
    }

    // Loads that are to be continued -----------------------------------------------------------------------

    void Mark_NodeDeleted_PassesToTheOneBefore()
    {
        PatchFixture f;
        f.ConTree.SetKey(f.ConTree.FindByKey("N,4"), "N,-4");
        f.PatchOne(20, "South", 4);
        QCOMPARE(f.AlphaNodes(), QStringList{"N,-3 North"});
    }

    void Mark_NodeSaved_PassesToTheOneBefore()
    {
        PatchFixture f;
        f.ConTree.SetKey(f.ConTree.FindByKey("N,4"), "N,-4");
        const QPersistentModelIndex south = f.ConTree.ModelIndex(f.ConTree.FindByKey("N,4"));
        f.SaveNode("South", "Alpha");
        f.Patch();
        QCOMPARE(f.AlphaNodes(), (QStringList{"N,-3 North", "N,6 South"}));
        QVERIFY(south == f.ConTree.ModelIndex(f.ConTree.FindByKey("N,6")));
    }

    void Mark_NodeShownAlready_Stays()
    {
        PatchFixture f;
        f.ConTree.SetKey(f.ConTree.FindByKey("N,4"), "N,-4");
        f.PatchOne(40, "South", 4);
        QCOMPARE(f.AlphaNodes(), (QStringList{"N,3 North", "N,-4 South"}));
    }

    void Mark_NoneBefore_EmptiesAndClosesTheConnection_data()
    {
        QTest::addColumn<int>("operation");
        QTest::newRow("deleted") << 20;
        QTest::newRow("saved") << 40;
    }
    void Mark_NoneBefore_EmptiesAndClosesTheConnection()
    {
        QFETCH(const int, operation);
        PatchFixture f;
        // Only the first node was loaded; the other one has been saved since.
        f.ConTree.SetKey(f.ConTree.FindByKey("N,3"), "N,-3");
        f.PatchOne(operation, "North", 9);
        QCOMPARE(f.ConTree.ChildCount(f.Alpha()), 0);
        QVERIFY(!f.ConTree.Expanded(f.Alpha()));
        f.AddNode("West", "Alpha");
        f.Patch();
        QCOMPARE(f.ConTree.ChildCount(f.Alpha()), 0);
    }

    // Trees ------------------------------------------------------------------------------------------------

    void Tree_NotFilledYet_IsLeftAlone()
    {
        PatchFixture f;
        f.ConTree.Clear();
        f.NodesTree.Clear();
        f.Component.Store.SaveParent("New", "WP=BUST4,ID=7");
        f.SaveNode("North", "New");
        f.Patch();
        QCOMPARE(f.ConTree.Count(), 0);
        QCOMPARE(f.NodesTree.Count(), 0);
    }

    void Finish_Again_TakesTheLaterRecordsAlone()
    {
        PatchFixture f;
        JournalPatch patch(f.ConTree, f.NodesTree, true);
        patch.Apply(20, "North", 3);
        patch.Finish();
        f.NodesTree.Add(1, "N,3", "North");
        patch.Apply(20, "South", 4);
        patch.Finish();
        QCOMPARE(f.Nodes(), (QStringList{"N,5 East", "N,3 North"}));
    }

private:
    static void SaveRows(int newOne, int changed)
    {
        QTest::addColumn<int>("operation");
        QTest::newRow("new") << newOne;
        QTest::newRow("changed") << changed;
    }
};

QTEST_GUILESS_MAIN(TestJournalPatch)
#include "TestJournalPatch.moc"
