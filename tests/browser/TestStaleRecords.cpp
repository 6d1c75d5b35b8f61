#include "browser/JournalAgreement.h"
#include "browser/StaleRecords.h"
#include "database/DatabaseState.h"
#include "model/TreeFilling.h"
#include "tests/support/GatewayFixture.h"

namespace {

/// Connections Alpha (id 1) and Beta (2), node North (3) on Alpha, in the database and in both trees.
class RecordsFixture : public GatewayFixture
{
public:
    RecordsFixture()
    {
        Component.Store.AddConnection(QStringLiteral("Alpha"), QStringLiteral("WP=BUST4,ID=1"));
        Component.Store.AddConnection(QStringLiteral("Beta"), QStringLiteral("WP=BUST4,ID=2"));
        Component.Store.AddNode(QStringLiteral("North"), QStringLiteral("Alpha"), QString(), NodeTarget);
        ConTree.Add(0, RootKey, QStringLiteral("Connections"));
        ConTree.Add(1, QStringLiteral("C,1"), QStringLiteral("Alpha"));
        ConTree.Add(1, QStringLiteral("C,2"), QStringLiteral("Beta"));
        ConTree.Add(2, QStringLiteral("N,3,1"), QStringLiteral("North"));
        NodesTree.Add(0, RootKey, QStringLiteral("Nodes"));
        NodesTree.Add(1, QStringLiteral("N,3"), QStringLiteral("North"));
        Open();
    }

    TreeEntries ConTree;
    TreeEntries NodesTree;
    const QString NodeTarget = QStringLiteral("WP=NET4,ADDR=1");

    [[nodiscard]] bool Agree(qint32 afterId, qint32& lastId) const
    {
        return TreesShowJournal(ConTree, NodesTree, afterId, lastId);
    }
    /// Agreement since the first record.
    [[nodiscard]] bool Agree() const
    {
        qint32 lastId = 0;
        return Agree(1, lastId) && lastId == Component.Store.Now.lastJournalId;
    }
    void SetNode(TreeEntries& tree, int id, const QString& suffix = QString())
    {
        tree.SetKey(tree.FindByText(QStringLiteral("North"), true), QStringLiteral("N,%1").arg(id) + suffix);
    }
};

QString Once(const QString& what)
{
    return what + QStringLiteral(" cannot be accessed, because another application has changed it. "
                                 "Automatic update follows, try again.");
}

QString Twice(const QString& what)
{
    return Once(what) + QStringLiteral(" Automatic update follows, try again.");
}

} // namespace

class TestStaleRecords : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void CheckEntry_Current_IsAccepted();
    void CheckEntry_ContinuedNode_IsJudgedByItsId();
    void CheckEntry_Changed_IsTold_data();
    void CheckEntry_Changed_IsTold();
    void CheckEntry_WithoutIndex_IsToldWithoutTheDatabase();
    void CheckName_MismatchAndFailure_HaveTheirTexts_data();
    void CheckName_MismatchAndFailure_HaveTheirTexts();

    void Journal_OwnSave_AgreesWithPatchedTrees();
    void Journal_SaveByAnother_Disagrees_data();
    void Journal_SaveByAnother_Disagrees();
    void Journal_OldNodeUnderItsConnection_Disagrees();
    void Journal_Deletions_AgreeOnceTheEntriesAreGone();
    void Journal_Rename_AgreesWithTheNewNameAlone();
    void Journal_UnfilledTree_AgreesWithEverything();
    void Journal_CannotTell_Disagrees_data();
    void Journal_CannotTell_Disagrees();
};

void TestStaleRecords::CheckEntry_Current_IsAccepted()
{
    RecordsFixture f;
    StaleRecord stale;
    QVERIFY(CheckConEntry(f.ConTree, 2, stale));
    QVERIFY(CheckNodeEntry(f.NodesTree, 2, stale));
    QVERIFY(CheckNodeEntry(f.ConTree, 4, stale));
    QVERIFY(CheckConName(QStringLiteral("Alpha"), 1, stale));
    QVERIFY(CheckNodeName(QStringLiteral("North"), 3, stale));
    QCOMPARE(stale.text, QString());
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestStaleRecords::CheckEntry_ContinuedNode_IsJudgedByItsId()
{
    RecordsFixture f;
    StaleRecord stale;
    f.SetNode(f.NodesTree, -3);
    QVERIFY(CheckNodeEntry(f.NodesTree, 2, stale));
}

void TestStaleRecords::CheckEntry_Changed_IsTold_data()
{
    QTest::addColumn<bool>("isNode");
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("told");
    for (const char* change : {"saved anew", "deleted", "unreadable"}) {
        QTest::addRow("connection %s", change)
            << false << QString::fromLatin1(change) << Once(QStringLiteral("Connection Alpha"));
        QTest::addRow("node %s", change)
            << true << QString::fromLatin1(change) << Once(QStringLiteral("Node North"));
    }
}
void TestStaleRecords::CheckEntry_Changed_IsTold()
{
    QFETCH(const bool, isNode);
    QFETCH(const QString, change);
    QFETCH(const QString, told);
    RecordsFixture f;
    TinyDatabase& store = f.Component.Store;
    if (change == QLatin1String("unreadable")) {
        f.Component.Fail(isNode ? QStringLiteral("GetNodeID") : QStringLiteral("GetParentID"));
    } else if (change == QLatin1String("deleted")) {
        store.DeleteNode(QStringLiteral("North"));
        if (!isNode)
            store.DeleteParent(QStringLiteral("Alpha"), true);
    } else if (isNode) {
        store.ReplaceNodeTarget(QStringLiteral("North"), QStringLiteral("Alpha"), f.NodeTarget);
    } else {
        store.ReplaceParentTarget(QStringLiteral("Alpha"), QStringLiteral("WP=BUST4,ID=9"));
    }
    StaleRecord stale;
    QVERIFY(!(isNode ? CheckNodeEntry(f.NodesTree, 2, stale) : CheckConEntry(f.ConTree, 2, stale)));
    QCOMPARE(stale.text, told);
    QVERIFY(stale.refreshFollows);
}

void TestStaleRecords::CheckEntry_WithoutIndex_IsToldWithoutTheDatabase()
{
    RecordsFixture f;
    StaleRecord stale;
    QVERIFY(!CheckConEntry(f.ConTree, 4711, stale));
    QCOMPARE(stale.text, QStringLiteral("Missing connection index."));
    QVERIFY(!stale.refreshFollows);
    QVERIFY(!CheckNodeEntry(f.NodesTree, 4711, stale));
    QCOMPARE(stale.text, QStringLiteral("Missing node index."));
    QVERIFY(!stale.refreshFollows);
    QCOMPARE(f.Component.Calls, QStringList());
}

void TestStaleRecords::CheckName_MismatchAndFailure_HaveTheirTexts_data()
{
    QTest::addColumn<bool>("isNode");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("told");
    QTest::newRow("connection, other id")
        << false << QStringLiteral("Alpha") << 2 << Twice(QStringLiteral("Connection Alpha"));
    QTest::newRow("connection gone") << false << QStringLiteral("Omega") << 1
                                     << Twice(QStringLiteral("Connection Omega"));
    QTest::newRow("node, other id") << true << QStringLiteral("North") << 2
                                    << Once(QStringLiteral("Node North"));
    QTest::newRow("node gone") << true << QStringLiteral("Omega") << 3 << Twice(QStringLiteral("Node Omega"));
}
void TestStaleRecords::CheckName_MismatchAndFailure_HaveTheirTexts()
{
    QFETCH(const bool, isNode);
    QFETCH(const QString, name);
    QFETCH(const int, id);
    QFETCH(const QString, told);
    RecordsFixture f;
    StaleRecord stale;
    QVERIFY(!(isNode ? CheckNodeName(name, id, stale) : CheckConName(name, id, stale)));
    QCOMPARE(stale.text, told);
    QVERIFY(stale.refreshFollows);
}

// Journal ---------------------------------------------------------------------------------------------------

void TestStaleRecords::Journal_OwnSave_AgreesWithPatchedTrees()
{
    RecordsFixture f;
    f.Component.Store.SaveParent(QStringLiteral("New"), QStringLiteral("WP=BUST4,ID=3"));
    f.ConTree.Add(1, QStringLiteral("C,4"), QStringLiteral("New"));
    QVERIFY(f.Agree());

    // Deleted and saved again under its name, as a changed node is.
    f.Component.Store.DeleteNodeFromBrowser(QStringLiteral("North"));
    f.Component.Store.SaveNode(QStringLiteral("North"), QString(), f.NodeTarget, QStringLiteral("Alpha"),
                               QString());
    QVERIFY(!f.Agree());
    f.SetNode(f.NodesTree, 5);
    f.SetNode(f.ConTree, 5, QStringLiteral(",1"));
    QVERIFY(f.Agree());
}

void TestStaleRecords::Journal_SaveByAnother_Disagrees_data()
{
    QTest::addColumn<QString>("change");
    for (const char* change : {"new connection", "new node", "changed connection", "changed node",
                               "deleted node", "renamed connection"})
        QTest::newRow(change) << QString::fromLatin1(change);
}
void TestStaleRecords::Journal_SaveByAnother_Disagrees()
{
    QFETCH(const QString, change);
    RecordsFixture f;
    TinyDatabase& store = f.Component.Store;
    const QString target = QStringLiteral("WP=BUST4,ID=3");
    if (change == QLatin1String("new connection"))
        store.SaveParent(QStringLiteral("New"), target);
    else if (change == QLatin1String("new node"))
        store.SaveNode(QStringLiteral("New"), QString(), f.NodeTarget, QStringLiteral("Alpha"), QString());
    else if (change == QLatin1String("changed connection"))
        store.ReplaceParentTarget(QStringLiteral("Alpha"), target);
    else if (change == QLatin1String("changed node"))
        store.ReplaceNodeTarget(QStringLiteral("North"), QStringLiteral("Beta"), f.NodeTarget);
    else if (change == QLatin1String("deleted node"))
        store.DeleteNode(QStringLiteral("North"));
    else
        store.ReplaceParentName(QStringLiteral("Alpha"), QStringLiteral("Omega"));
    qint32 lastId = 1;
    QVERIFY(!f.Agree(1, lastId));
    QCOMPARE(lastId, 1);
}

void TestStaleRecords::Journal_OldNodeUnderItsConnection_Disagrees()
{
    RecordsFixture f;
    f.Component.Store.ReplaceNodeTarget(QStringLiteral("North"), QStringLiteral("Beta"), f.NodeTarget);
    f.SetNode(f.NodesTree, f.Component.Store.Now.lastRecordId);
    QVERIFY(!f.Agree());
    f.ConTree.Remove(4);
    QVERIFY(f.Agree());
}

void TestStaleRecords::Journal_Deletions_AgreeOnceTheEntriesAreGone()
{
    RecordsFixture f;
    f.Component.Store.DeleteParentNodes(QStringLiteral("Alpha"));
    f.Component.Store.DeleteParent(QStringLiteral("Alpha"), true);
    f.NodesTree.Remove(2);
    QVERIFY(!f.Agree());
    f.ConTree.Remove(2);
    QVERIFY(f.Agree());
}

void TestStaleRecords::Journal_Rename_AgreesWithTheNewNameAlone()
{
    RecordsFixture f;
    f.Component.Store.ReplaceParentName(QStringLiteral("Beta"), QStringLiteral("BETA"));
    f.ConTree.SetKey(3, QStringLiteral("C,%1").arg(f.Component.Store.Now.lastRecordId));
    QVERIFY(!f.Agree());
    f.ConTree.SetText(3, QStringLiteral("BETA"));
    QVERIFY(f.Agree());
}

void TestStaleRecords::Journal_UnfilledTree_AgreesWithEverything()
{
    RecordsFixture f;
    f.ConTree.Clear();
    f.Component.Store.SaveParent(QStringLiteral("New"), QStringLiteral("WP=BUST4,ID=3"));
    QVERIFY(f.Agree());
}

void TestStaleRecords::Journal_CannotTell_Disagrees_data()
{
    QTest::addColumn<QString>("why");
    for (const char* why : {"trimmed", "no record", "no list", "too many", "nothing new"})
        QTest::newRow(why) << QString::fromLatin1(why);
}
void TestStaleRecords::Journal_CannotTell_Disagrees()
{
    QFETCH(const QString, why);
    RecordsFixture f;
    f.ConTree.Clear();
    f.NodesTree.Clear();
    const int records = why == QLatin1String("too many") ? 17 : why == QLatin1String("nothing new") ? 0 : 16;
    for (int k = 0; k < records; ++k)
        f.Component.Store.SaveParent(QStringLiteral("New %1").arg(k), QStringLiteral("WP=BUST4,ID=3"));
    QCOMPARE(f.Agree(), records == 16);
    if (why == QLatin1String("trimmed"))
        f.Component.Store.Now.journal.front().recordType = 0;
    else if (why == QLatin1String("no record"))
        f.Component.Fail(QStringLiteral("GetJournalRecordById"));
    else if (why == QLatin1String("no list"))
        f.Component.Fail(QStringLiteral("GetJournalChangesAfterId"));
    QVERIFY(!f.Agree());
}

QTEST_GUILESS_MAIN(TestStaleRecords)
#include "TestStaleRecords.moc"
