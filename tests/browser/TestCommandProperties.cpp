#include "database/ConnectionSave.h"
#include "database/SaveRoutines.h"
#include "tests/browser/CommandFixture.h"

namespace {

void SaveConnectionAs(ConData& con, const QString& name)
{
    QString text = name;
    QVERIFY(SaveConnection(con, text));
}

/// Saves the node of a dialog under a name, over a connection.
void SaveNodeAs(ConData& con, const QString& name, const QString& conName)
{
    QString error;
    qint32 position = 0;
    QVERIFY(SaveNodeChanges(con.NodeName, name, con.ConName, conName, con.NodeType, con.CommandLine,
                            CommandFixture::NodeTarget(77), *con.NodesTree, *con.ConTree, position, error));
    con.SelectedTreeNodeIndex = position;
}

} // namespace

class TestCommandProperties : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Properties_BySelection_ShowsTheRecord_data();
    void Properties_BySelection_ShowsTheRecord();
    void Properties_ReadInOneTransaction_EntriesAreCheckedFirst_data();
    void Properties_ReadInOneTransaction_EntriesAreCheckedFirst();
    void Properties_Cancelled_LeavesAllAsItWas_data();
    void Properties_Cancelled_LeavesAllAsItWas();
    void Properties_SavedConnection_StaysSelectedWithItsNewTarget();
    void Properties_SavedConnection_MovedByItsNewName_IsInSight();
    void Properties_SavedFromAWaypoint_ShowsTheConnectionWithItsWaypoints();
    void Properties_SavedNode_StaysSelectedWithItsNewTarget_data();
    void Properties_SavedNode_StaysSelectedWithItsNewTarget();
    void Properties_NodeMovedInTheConnectionView_IsFoundUnderItsNewConnection();
    void Properties_StaleEntry_IsToldBehindTheRollback_data();
    void Properties_StaleEntry_IsToldBehindTheRollback();
    void Properties_RefusedStep_IsToldAndEnds_data();
    void Properties_RefusedStep_IsToldAndEnds();
    void Properties_AnyCallFails_ComesToRest();
    void Properties_RootOrNothingSelected_DoesNothing_data();
    void Properties_RootOrNothingSelected_DoesNothing();
    void Properties_WithoutEditRight_StillOpens();
    void Properties_ChangeByAnotherUnderTheDialog_IsShownBehindIt();
};

void TestCommandProperties::Properties_BySelection_ShowsTheRecord_data()
{
    QTest::addColumn<QString>("view");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QString>("record");
    const auto row = [](const char* view, const char* selected, const char* record) {
        QTest::addRow("%s %s", view, selected)
            << QString::fromLatin1(view) << QString::fromLatin1(selected) << QString::fromLatin1(record);
    };
    row("connections", "con/Beta", "connection Beta 2");
    row("connections", "node/North", "node North 4 over Alpha, DEV1, 1|-port 1");
    row("waypoints", "con/Alpha", "connection Alpha 1");
    row("waypoints", "wp/Beta", "connection Beta 2");
    row("nodes", "node/South", "node South 5 over Beta, , ");
}
void TestCommandProperties::Properties_BySelection_ShowsTheRecord()
{
    QFETCH(const QString, view);
    QFETCH(const QString, selected);
    QFETCH(const QString, record);
    CommandFixture f;
    f.Select(view, selected);
    const TreeEntries::Index entry = f.Selected();
    Model().ConObject->NewCon = true;
    Model().ConObject->NewNode = true;
    Model().ConObject->SaveFromScan = true;
    QString seen;
    bool asExpected = false;
    f.InDialog = [&](ConData& con) {
        if (f.Dialogs.last() == QLatin1String("connection"))
            seen = QStringLiteral("connection %1 %2").arg(con.ConName).arg(con.ConDbID);
        else
            seen = QStringLiteral("node %1 %2 over %3, %4, %5")
                       .arg(con.NodeName)
                       .arg(con.NodeDbID)
                       .arg(con.ConName, con.NodeType, con.CommandLine);
        asExpected = !con.NewCon && !con.NewNode && !con.SaveFromScan && f.Component.Store.Levels() == 0 &&
                     !f.TimerOn() && con.ConTree == &f.ConEntries() && con.NodesTree == &f.NodeEntries() &&
                     con.SelectedTreeNodeIndex == entry && con.optCon == (view != QLatin1String("nodes")) &&
                     con.ViewNodesChecked == (view == QLatin1String("connections"));
    };
    f.Press("cmdDatabaseProp");
    QCOMPARE(seen, record);
    QVERIFY(asExpected);
    QCOMPARE(f.Dialogs.size(), 1);
    QVERIFY(f.IsAtRest());
}

void TestCommandProperties::Properties_ReadInOneTransaction_EntriesAreCheckedFirst_data()
{
    QTest::addColumn<QString>("view");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QStringList>("checks");
    QTest::newRow("connection") << QStringLiteral("connections") << QStringLiteral("con/Alpha")
                                << QStringList{QStringLiteral("GetParentID(Alpha)")};
    QTest::newRow("waypoint") << QStringLiteral("waypoints") << QStringLiteral("wp/Alpha")
                              << QStringList{QStringLiteral("GetParentID(Alpha)")};
    QTest::newRow("node below") << QStringLiteral("connections") << QStringLiteral("node/North")
                                << QStringList{QStringLiteral("GetParentID(Alpha)"),
                                               QStringLiteral("GetNodeID(North)")};
    QTest::newRow("node") << QStringLiteral("nodes") << QStringLiteral("node/North")
                          << QStringList{QStringLiteral("GetNodeID(North)")};
}
void TestCommandProperties::Properties_ReadInOneTransaction_EntriesAreCheckedFirst()
{
    QFETCH(const QString, view);
    QFETCH(const QString, selected);
    QFETCH(const QStringList, checks);
    CommandFixture f;
    f.Select(view, selected);
    QStringList transaction;
    f.InDialog = [&](ConData&) { transaction = f.Component.TakeCalls(); };
    f.Press("cmdDatabaseProp");

    QCOMPARE(transaction.first(), QStringLiteral("BeginTransaction()"));
    QVERIFY(transaction.last().startsWith(QLatin1String("CommitTransaction(")));
    int level = 0;
    QStringList reads;
    for (qsizetype k = 0; k < transaction.size(); ++k) {
        if (transaction[k].startsWith(QLatin1String("BeginTransaction")))
            ++level;
        else if (transaction[k].startsWith(QLatin1String("CommitTransaction")))
            --level;
        else
            reads << transaction[k];
        QCOMPARE(level == 0, k == transaction.size() - 1);
    }
    QCOMPARE(reads.mid(0, checks.size()), checks);
    QCOMPARE(f.Component.Store.Rollbacks, 0);
}

void TestCommandProperties::Properties_Cancelled_LeavesAllAsItWas_data()
{
    QTest::addColumn<QString>("view");
    QTest::addColumn<QString>("selected");
    QTest::newRow("connection") << QStringLiteral("connections") << QStringLiteral("con/Alpha");
    QTest::newRow("waypoint") << QStringLiteral("waypoints") << QStringLiteral("wp/Beta");
    QTest::newRow("node below") << QStringLiteral("connections") << QStringLiteral("node/North");
    QTest::newRow("node") << QStringLiteral("nodes") << QStringLiteral("node/North");
}
void TestCommandProperties::Properties_Cancelled_LeavesAllAsItWas()
{
    QFETCH(const QString, view);
    QFETCH(const QString, selected);
    CommandFixture f;
    f.Select(view, selected);
    const TreeEntries::Index entry = f.Selected();
    const QString target = f.TargetText();
    const QString nodeType = f.Control->NodeType();
    const int entries = f.Entries(f.ShownTree()).Count();
    // What the operator changed in the working copy does not show.
    f.InDialog = [](ConData& con) { con.GetWpData(1).SetWpParam(1, 2, QStringLiteral("1")); };
    f.Press("cmdDatabaseProp");
    QCOMPARE(f.Selected(), entry);
    QCOMPARE(f.TargetText(), target);
    QCOMPARE(f.Control->NodeType(), nodeType);
    QCOMPARE(f.Entries(f.ShownTree()).Count(), entries);
    QVERIFY(f.Enabled("cmdDatabaseProp"));
    QVERIFY(f.IsAtRest());
}

void TestCommandProperties::Properties_SavedConnection_StaysSelectedWithItsNewTarget()
{
    CommandFixture f;
    f.Select(QStringLiteral("connections"), QStringLiteral("con/Alpha"));
    f.InDialog = [](ConData& con) {
        con.GetWpData(1).SetWpParam(1, 2, QStringLiteral("9"));
        SaveConnectionAs(con, QStringLiteral("Renamed"));
    };
    f.Press("cmdDatabaseProp");
    QCOMPARE(f.SelectedText(), QStringLiteral("Renamed"));
    QCOMPARE(f.TargetText(), QStringLiteral("WP=BUST4,ID=9"));
    QCOMPARE(f.Control->Sobriquet(), QStringLiteral("Renamed"));
    QCOMPARE(f.Caption(), QStringLiteral("T4 Bus: Renamed"));
    QCOMPARE(f.Con(QStringLiteral("Alpha")), 0);
    QCOMPARE(f.ConEntries().ChildCount(f.Con(QStringLiteral("Renamed"))), 2);
    QCOMPARE(f.Component.Count(QStringLiteral("QueryParentsWithID")), 0);
    QVERIFY(f.IsAtRest());
}

void TestCommandProperties::Properties_SavedConnection_MovedByItsNewName_IsInSight()
{
    CommandFixture f;
    for (int k = 0; k < 100; ++k)
        f.Component.Store.SaveParent(QStringLiteral("Bus %1").arg(k), CommandFixture::AlphaTarget());
    f.Press("cmdRefresh");
    f.Select(QStringLiteral("waypoints"), QStringLiteral("con/Alpha"));
    f.InDialog = [](ConData& con) { SaveConnectionAs(con, QStringLiteral("Zulu")); };

    f.Press("cmdDatabaseProp");

    const auto& view = f.Find<TreeView>("tvwConTree");
    QCOMPARE(f.SelectedText(), QStringLiteral("Zulu"));
    QVERIFY(view.viewport()->rect().contains(view.visualRect(view.SelectedIndex()).center()));
}

void TestCommandProperties::Properties_SavedFromAWaypoint_ShowsTheConnectionWithItsWaypoints()
{
    CommandFixture f;
    f.Select(QStringLiteral("waypoints"), QStringLiteral("wp/Beta"));
    f.InDialog = [](ConData& con) { SaveConnectionAs(con, con.ConName); };
    f.Press("cmdDatabaseProp");
    QCOMPARE(f.SelectedText(), QStringLiteral("Beta"));
    QCOMPARE(f.TargetText(), QStringLiteral("WP=SOCKET,HOST=gw-2,WP=BUST4,ID=7"));
    QCOMPARE(f.ConEntries().ChildCount(f.Con(QStringLiteral("Beta"))), 3);
    QVERIFY(f.ConEntries().Expanded(f.Con(QStringLiteral("Beta"))));
}

void TestCommandProperties::Properties_SavedNode_StaysSelectedWithItsNewTarget_data()
{
    QTest::addColumn<QString>("view");
    QTest::newRow("node view") << QStringLiteral("nodes");
    QTest::newRow("connection view") << QStringLiteral("connections");
}
void TestCommandProperties::Properties_SavedNode_StaysSelectedWithItsNewTarget()
{
    QFETCH(const QString, view);
    CommandFixture f;
    f.Select(view, QStringLiteral("node/North"));
    f.InDialog = [](ConData& con) { SaveNodeAs(con, QStringLiteral("Norden"), QStringLiteral("Alpha")); };
    f.Press("cmdDatabaseProp");
    QCOMPARE(f.SelectedText(), QStringLiteral("Norden"));
    QCOMPARE(f.TargetText(), QStringLiteral("WP=BUST4,ID=254,WP=NET4,ADDR=77"));
    QCOMPARE(f.Control->Sobriquet(), QStringLiteral("Norden"));
    QCOMPARE(f.Control->NodeType(), QStringLiteral("DEV1"));
    QCOMPARE(f.Node(QStringLiteral("North")), 0);
    QCOMPARE(f.Component.Count(QStringLiteral("QueryNodesWithIdEx")), 0);
    QVERIFY(f.IsAtRest());
}

void TestCommandProperties::Properties_NodeMovedInTheConnectionView_IsFoundUnderItsNewConnection()
{
    CommandFixture f;
    f.Select(QStringLiteral("connections"), QStringLiteral("node/North"));
    f.InDialog = [](ConData& con) { SaveNodeAs(con, QStringLiteral("North"), QStringLiteral("Beta")); };
    f.Press("cmdDatabaseProp");
    QCOMPARE(f.SelectedText(), QStringLiteral("North"));
    QCOMPARE(f.ConEntries().Parent(f.Selected()), f.Con(QStringLiteral("Beta")));
    QCOMPARE(f.TargetText(), QStringLiteral("WP=SOCKET,HOST=gw-2,WP=BUST4,ID=7,WP=NET4,ADDR=77"));
    QCOMPARE(f.Caption(), QStringLiteral("T4 Bus over TCP/IP: Beta"));
}

void TestCommandProperties::Properties_StaleEntry_IsToldBehindTheRollback_data()
{
    CommandFixture::StaleRows();
    QTest::newRow("node's connection") << QStringLiteral("connections") << QStringLiteral("node/North")
                                       << QStringLiteral("con/Alpha") << QStringLiteral("Connection Alpha");
}
void TestCommandProperties::Properties_StaleEntry_IsToldBehindTheRollback()
{
    QFETCH(const QString, view);
    QFETCH(const QString, selected);
    QFETCH(const QString, changed);
    QFETCH(const QString, told);
    CommandFixture f;
    f.Select(view, selected);
    f.ChangeElsewhere(changed);
    bool heldWhileOpen = false;
    f.Operator.WhileOpen = [&](const RecordedBox&) { heldWhileOpen = f.Component.Store.Levels() > 0; };
    f.Press("cmdDatabaseProp");

    QCOMPARE(f.Operator.Boxes,
             std::vector<RecordedBox>{RecordedBox::Plain(CommandFixture::ChangedText(told))});
    QVERIFY(!heldWhileOpen);
    QCOMPARE(f.Component.Store.Rollbacks, 1);
    QCOMPARE(f.Dialogs, QStringList());
    QCOMPARE(Load().JournalLastId, f.Component.Store.Now.lastJournalId);
    QVERIFY(f.IsAtRest());

    f.Press("cmdDatabaseProp");
    QCOMPARE(f.Dialogs.size(), 1);
    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
}

void TestCommandProperties::Properties_RefusedStep_IsToldAndEnds_data()
{
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QString>("failing");
    QTest::addColumn<QString>("told");
    QTest::newRow("begin") << QStringLiteral("con/Alpha") << QStringLiteral("BeginTransaction")
                           << QStringLiteral(
                                  "Database access is denied, because another application is using it.");
    QTest::newRow("connection") << QStringLiteral("con/Alpha") << QStringLiteral("GetConTypeWpList")
                                << QStringLiteral("Failure to get connection data from database.");
    QTest::newRow("node") << QStringLiteral("node/North") << QStringLiteral("GetNodeTypeWpList")
                          << QStringLiteral("Failure to get node data from database.");
    QTest::newRow("commit") << QStringLiteral("con/Alpha") << QStringLiteral("outer commit")
                            << QStringLiteral("Failure to commit database operations.");
}
void TestCommandProperties::Properties_RefusedStep_IsToldAndEnds()
{
    QFETCH(const QString, selected);
    QFETCH(const QString, failing);
    QFETCH(const QString, told);
    CommandFixture f;
    f.Select(QStringLiteral("connections"), selected);
    if (failing == QLatin1String("outer commit"))
        f.FailOuterCommit();
    else
        f.Component.Fail(failing);
    f.Press("cmdDatabaseProp");
    f.Component.BeforeCall = nullptr;
    QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Error(told)});
    QCOMPARE(f.Dialogs, QStringList());
    QVERIFY(f.IsAtRest());
}

void TestCommandProperties::Properties_AnyCallFails_ComesToRest()
{
    const QString view = QStringLiteral("waypoints");
    const QString selected = QStringLiteral("wp/Alpha");
    int calls = 0;
    {
        CommandFixture f;
        f.Select(view, selected);
        f.Press("cmdDatabaseProp");
        calls = static_cast<int>(f.Component.Calls.size());
    }
    QVERIFY(calls > 10);
    for (int k = 1; k <= calls; ++k) {
        CommandFixture f;
        f.Select(view, selected);
        f.Component.FailCall(k);
        f.Press("cmdDatabaseProp");
        QVERIFY2(f.IsAtRest(), qPrintable(QString::number(k)));
        QVERIFY2(!f.Dialogs.isEmpty() || !f.Operator.Boxes.empty(), qPrintable(QString::number(k)));
    }
}

void TestCommandProperties::Properties_RootOrNothingSelected_DoesNothing_data()
{
    CommandFixture::NoRecordRows();
}
void TestCommandProperties::Properties_RootOrNothingSelected_DoesNothing()
{
    QFETCH(const QString, view);
    QFETCH(const QString, selected);
    CommandFixture f;
    f.Select(view, selected);
    f.Press("cmdDatabaseProp");
    QCOMPARE(f.Component.Calls, QStringList());
    QCOMPARE(f.Dialogs, QStringList());
    QCOMPARE(f.Operator.Texts(), QStringList());
    QVERIFY(f.IsAtRest());
}

void TestCommandProperties::Properties_WithoutEditRight_StillOpens()
{
    CommandFixture f(false);
    f.Select(QStringLiteral("connections"), QStringLiteral("con/Alpha"));
    QVERIFY(f.Enabled("cmdDatabaseProp"));
    f.Press("cmdDatabaseProp");
    QCOMPARE(f.Dialogs, QStringList{QStringLiteral("connection")});
    QVERIFY(!f.Enabled("cmdDatabaseAdd"));
    QVERIFY(!f.Enabled("cmdDatabaseRemove"));
}

void TestCommandProperties::Properties_ChangeByAnotherUnderTheDialog_IsShownBehindIt()
{
    CommandFixture f;
    f.Select(QStringLiteral("connections"), QStringLiteral("node/North"));
    f.InDialog = [&](ConData&) {
        f.Component.Store.SaveParent(QStringLiteral("Aaa"), CommandFixture::AlphaTarget());
        f.ChangeElsewhere(QStringLiteral("con/Beta"));
    };
    f.Press("cmdDatabaseProp");
    QVERIFY(f.Con(QStringLiteral("Aaa")) != 0);
    QCOMPARE(f.SelectedText(), QStringLiteral("North"));
    QCOMPARE(f.ConEntries().Kind(f.Selected()), QLatin1Char('N'));
    QVERIFY(f.ConEntries().Expanded(f.Con(QStringLiteral("Alpha"))));
    QVERIFY(!f.ConEntries().Expanded(f.Con(QStringLiteral("Beta"))));
    QVERIFY(f.IsAtRest());
}

QTEST_MAIN(TestCommandProperties)
#include "TestCommandProperties.moc"
