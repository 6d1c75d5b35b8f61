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
    f.NodesTree.SetKey(2, QStringLiteral("N,-3"));
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

QTEST_GUILESS_MAIN(TestStaleRecords)
#include "TestStaleRecords.moc"
