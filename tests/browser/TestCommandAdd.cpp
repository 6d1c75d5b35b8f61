#include "database/ConnectionSave.h"
#include "database/SaveRoutines.h"
#include "tests/browser/CommandFixture.h"

namespace {

/// Saves the new connection of a dialog under a name.
void SaveAs(ConData& con, const QString& name)
{
    QString text = name;
    QVERIFY(SaveConnection(con, text));
}

/// Saves the new node of a dialog on Alpha.
void SaveNodeAs(ConData& con, const QString& name)
{
    QString error;
    qint32 position = 0;
    QVERIFY(SaveNewNode(name, QStringLiteral("Alpha"), QString(), QString(), CommandFixture::NodeTarget(99),
                        *con.NodesTree, *con.ConTree, position, error));
    con.SelectedTreeNodeIndex = position;
}

} // namespace

class TestCommandAdd : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Add_BySelection_ShowsTheDialogOfItsRecord_data();
    void Add_BySelection_ShowsTheDialogOfItsRecord();
    void Add_ByCopy_ReadsInOneTransactionBeforeTheDialog();
    void Add_DialogOpen_HoldsNothingAndHasTheTrees();
    void Add_Cancelled_LeavesAllAsItWas_data();
    void Add_Cancelled_LeavesAllAsItWas();
    void Add_SavedConnection_IsSelectedWithoutAReload();
    void Add_SavedCopyOfAWaypointsConnection_IsSelected();
    void Add_SavedNode_IsSelectedWithItsTarget_data();
    void Add_SavedNode_IsSelectedWithItsTarget();
    void Add_StaleEntry_IsToldBehindTheRollback_data();
    void Add_StaleEntry_IsToldBehindTheRollback();
    void Add_RefusedStep_IsToldAndEnds_data();
    void Add_RefusedStep_IsToldAndEnds();
    void Add_UnknownTypes_EndsWithoutAWord_data();
    void Add_UnknownTypes_EndsWithoutAWord();
    void Add_AnyCallFails_ComesToRest();
    void Add_WithoutEditRight_DoesNothing();
};

void TestCommandAdd::Add_BySelection_ShowsTheDialogOfItsRecord_data()
{
    QTest::addColumn<QString>("view");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QString>("dialog");
    QTest::addColumn<QString>("copied");
    const auto row = [](const char* view, const char* selected, const char* dialog, const char* copied) {
        QTest::addRow("%s %s", view, selected) << QString::fromLatin1(view) << QString::fromLatin1(selected)
                                               << QString::fromLatin1(dialog) << QString::fromLatin1(copied);
    };
    row("connections", "none", "connection", "Unknown");
    row("connections", "root", "connection", "Unknown");
    row("connections", "con/Beta", "connection", "SOCKET BUST4 OPT");
    row("connections", "node/North", "node", "ADDR 17");
    row("waypoints", "none", "connection", "Unknown");
    row("waypoints", "root", "connection", "Unknown");
    row("waypoints", "con/Beta", "connection", "SOCKET BUST4 OPT");
    row("waypoints", "wp/Beta", "connection", "SOCKET BUST4 OPT");
    row("nodes", "none", "node", "ADDR ");
    row("nodes", "root", "node", "ADDR ");
    row("nodes", "node/South", "node", "ADDR 18");
}

void TestCommandAdd::Add_BySelection_ShowsTheDialogOfItsRecord()
{
    QFETCH(const QString, view);
    QFETCH(const QString, selected);
    QFETCH(const QString, dialog);
    QFETCH(const QString, copied);
    CommandFixture f;
    f.Select(view, selected);
    QString seen;
    QString name;
    bool isNew = false;
    f.InDialog = [&](ConData& con) {
        QStringList waypoints;
        if (dialog == QLatin1String("connection")) {
            for (int k = 1; k <= con.ConWpCount; ++k)
                waypoints << con.GetConWpName(k);
            seen = con.ConWpCount == 0 ? con.ConTypeName : waypoints.join(QLatin1Char(' '));
            name = con.ConName;
            isNew = con.NewCon && !con.SaveFromScan;
        } else {
            seen = con.GetWpData(1).GetWpParam(1, 1) + QLatin1Char(' ') + con.GetWpData(1).GetWpParam(1, 2);
            name = con.NodeName;
            isNew = con.NewNode && con.NodeDbID == 0;
        }
    };
    f.Press("cmdDatabaseAdd");

    QCOMPARE(f.Dialogs, QStringList{dialog});
    QCOMPARE(seen, copied);
    QCOMPARE(name,
             dialog == QLatin1String("node") ? QStringLiteral("New Node") : QStringLiteral("New Connection"));
    QVERIFY(isNew);
    QCOMPARE(f.Operator.Texts(), QStringList());
    QVERIFY(f.IsAtRest());
}

void TestCommandAdd::Add_ByCopy_ReadsInOneTransactionBeforeTheDialog()
{
    CommandFixture f;
    f.Select(QStringLiteral("waypoints"), QStringLiteral("con/Alpha"));
    QStringList before;
    f.InDialog = [&](ConData&) { before = f.Component.TakeCalls(); };
    f.Press("cmdDatabaseAdd");

    QCOMPARE(before.first(), QStringLiteral("BeginTransaction()"));
    QVERIFY(before.indexOf(QStringLiteral("GetParentID(Alpha)")) <
            before.indexOf(QStringLiteral("GetParent(Alpha)")));
    QVERIFY(before.last().startsWith(QLatin1String("CommitTransaction(")));
    QCOMPARE(f.Component.Store.Rollbacks, 0);
    // Behind the dialog the Journal comes first.
    QCOMPARE(f.Methods().first(), QStringLiteral("GetJournalLastId"));
    QVERIFY(f.Methods().indexOf(QStringLiteral("GetParent")) > 0);
}

void TestCommandAdd::Add_DialogOpen_HoldsNothingAndHasTheTrees()
{
    CommandFixture f;
    f.Select(QStringLiteral("connections"), QStringLiteral("con/Beta"));
    const TreeEntries::Index selected = f.Selected();
    bool asExpected = false;
    f.InDialog = [&](ConData& con) {
        asExpected = f.Component.Store.Levels() == 0 && !f.TimerOn() && Browser().Busy > 0 &&
                     con.ConTree == &f.ConEntries() && con.NodesTree == &f.NodeEntries() &&
                     con.ViewNodesChecked && con.optCon && con.SelectedTreeNodeIndex == selected;
    };
    f.Press("cmdDatabaseAdd");
    QVERIFY(asExpected);
    QVERIFY(f.IsAtRest());
}

void TestCommandAdd::Add_Cancelled_LeavesAllAsItWas_data()
{
    QTest::addColumn<QString>("view");
    QTest::addColumn<QString>("selected");
    QTest::newRow("connection") << QStringLiteral("connections") << QStringLiteral("con/Alpha");
    QTest::newRow("waypoint") << QStringLiteral("waypoints") << QStringLiteral("wp/Alpha");
    QTest::newRow("root") << QStringLiteral("waypoints") << QStringLiteral("root");
    QTest::newRow("node") << QStringLiteral("nodes") << QStringLiteral("node/North");
}
void TestCommandAdd::Add_Cancelled_LeavesAllAsItWas()
{
    QFETCH(const QString, view);
    QFETCH(const QString, selected);
    CommandFixture f;
    f.Select(view, selected);
    const TreeEntries::Index entry = f.Selected();
    const QString target = f.TargetText();
    const QString sobriquet = f.Control->Sobriquet();
    const QString caption = f.Caption();
    const int connections = f.ConEntries().Count();
    f.Press("cmdDatabaseAdd");

    QCOMPARE(f.Selected(), entry);
    QCOMPARE(f.TargetText(), target);
    QCOMPARE(f.Control->Sobriquet(), sobriquet);
    QCOMPARE(f.Caption(), caption);
    QCOMPARE(f.ConEntries().Count(), connections);
    QCOMPARE(f.Component.Count(QStringLiteral("QueryParentsWithID")), 0);
    QVERIFY(f.IsAtRest());
}

void TestCommandAdd::Add_SavedConnection_IsSelectedWithoutAReload()
{
    CommandFixture f;
    f.Select(QStringLiteral("connections"), QStringLiteral("con/Beta"));
    f.InDialog = [](ConData& con) { SaveAs(con, QStringLiteral("Copy")); };
    f.Press("cmdDatabaseAdd");

    QCOMPARE(f.SelectedText(), QStringLiteral("Copy"));
    QCOMPARE(f.TargetText(), QStringLiteral("WP=SOCKET,HOST=gw-2,WP=BUST4,ID=7"));
    QCOMPARE(f.Control->Sobriquet(), QStringLiteral("Copy"));
    QCOMPARE(f.Caption(), QStringLiteral("T4 Bus over TCP/IP: Copy"));
    QVERIFY(f.ConEntries().Expanded(f.Con(QStringLiteral("Alpha"))));
    QCOMPARE(f.Component.Count(QStringLiteral("QueryParentsWithID")), 0);
    QCOMPARE(Load().JournalLastId, f.Component.Store.Now.lastJournalId);
    QVERIFY(f.IsAtRest());
}

void TestCommandAdd::Add_SavedCopyOfAWaypointsConnection_IsSelected()
{
    CommandFixture f;
    f.Select(QStringLiteral("waypoints"), QStringLiteral("wp/Alpha"));
    f.InDialog = [](ConData& con) { SaveAs(con, QStringLiteral("Copy")); };
    f.Press("cmdDatabaseAdd");
    QCOMPARE(f.SelectedText(), QStringLiteral("Copy"));
    QCOMPARE(f.Control->Sobriquet(), QStringLiteral("Copy"));
    QCOMPARE(f.TargetText(), QStringLiteral("WP=BUST4,ID=254"));
    QCOMPARE(f.ConEntries().ChildCount(f.Con(QStringLiteral("Copy"))), 1);
}

void TestCommandAdd::Add_SavedNode_IsSelectedWithItsTarget_data()
{
    QTest::addColumn<QString>("view");
    QTest::addColumn<QString>("selected");
    QTest::newRow("copy") << QStringLiteral("nodes") << QStringLiteral("node/North");
    QTest::newRow("new") << QStringLiteral("nodes") << QStringLiteral("root");
    QTest::newRow("copy below a connection") << QStringLiteral("connections") << QStringLiteral("node/North");
}
void TestCommandAdd::Add_SavedNode_IsSelectedWithItsTarget()
{
    QFETCH(const QString, view);
    QFETCH(const QString, selected);
    CommandFixture f;
    f.Select(view, selected);
    f.InDialog = [](ConData& con) { SaveNodeAs(con, QStringLiteral("Nearby")); };
    f.Press("cmdDatabaseAdd");
    QCOMPARE(f.SelectedText(), QStringLiteral("Nearby"));
    QCOMPARE(f.TargetText(), QStringLiteral("WP=BUST4,ID=254,WP=NET4,ADDR=99"));
    QCOMPARE(f.Control->Sobriquet(), QStringLiteral("Nearby"));
    QVERIFY(f.Node(QStringLiteral("Nearby")) != 0);
    QCOMPARE(f.Component.Count(QStringLiteral("QueryNodesWithIdEx")), 0);
    QVERIFY(f.IsAtRest());
}

void TestCommandAdd::Add_StaleEntry_IsToldBehindTheRollback_data()
{
    CommandFixture::StaleRows();
}
void TestCommandAdd::Add_StaleEntry_IsToldBehindTheRollback()
{
    QFETCH(const QString, view);
    QFETCH(const QString, selected);
    QFETCH(const QString, changed);
    QFETCH(const QString, told);
    CommandFixture f;
    f.Select(view, selected);
    const QString selectedText = f.SelectedText();
    f.ChangeElsewhere(changed);
    bool heldWhileOpen = false;
    bool timerWhileOpen = false;
    f.Operator.WhileOpen = [&](const RecordedBox&) {
        heldWhileOpen = f.Component.Store.Levels() > 0;
        timerWhileOpen = f.TimerOn();
    };
    f.Press("cmdDatabaseAdd");

    QCOMPARE(f.Operator.Boxes,
             std::vector<RecordedBox>{RecordedBox::Plain(CommandFixture::ChangedText(told))});
    QVERIFY(!heldWhileOpen);
    QVERIFY(!timerWhileOpen);
    QCOMPARE(f.Dialogs, QStringList());
    QCOMPARE(Load().JournalLastId, f.Component.Store.Now.lastJournalId);
    QVERIFY(f.IsAtRest());

    // The place is kept but in a connection that was closed, and the next try works.
    QCOMPARE(f.SelectedText(), view == QLatin1String("waypoints") ? QStringLiteral("Alpha") : selectedText);
    f.Press("cmdDatabaseAdd");
    QCOMPARE(f.Dialogs.size(), 1);
    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
}

void TestCommandAdd::Add_RefusedStep_IsToldAndEnds_data()
{
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QString>("failing");
    QTest::addColumn<QStringList>("told");
    const QString connection = QStringLiteral("con/Alpha");
    const QString node = QStringLiteral("node/North");
    const QString begin = QStringLiteral("BeginTransaction");
    const QString commit = QStringLiteral("outer commit");
    const QStringList denied{
        QStringLiteral("Database access is denied, because another application is using it.")};
    const QStringList noCommit{QStringLiteral("Failure to commit database operations.")};
    const QString noNode = QStringLiteral("Failure to get node data from database.");
    QTest::newRow("begin") << connection << begin << denied;
    QTest::newRow("connection") << connection << QStringLiteral("GetParent")
                                << QStringList{
                                       QStringLiteral("Failure to get connection data from database.")};
    QTest::newRow("commit") << connection << commit << noCommit;
    QTest::newRow("node, begin") << node << begin << denied;
    // Reading the node is an operation that tells of its own failure as well.
    QTest::newRow("node") << node << QStringLiteral("GetNodeEx")
                          << QStringList{QStringLiteral("Unknown error in access to database."), noNode};
    QTest::newRow("node's type") << node << QStringLiteral("AnalyzeNodeType") << QStringList{noNode};
    QTest::newRow("node, commit") << node << commit << noCommit;
}
void TestCommandAdd::Add_RefusedStep_IsToldAndEnds()
{
    QFETCH(const QString, selected);
    QFETCH(const QString, failing);
    QFETCH(const QStringList, told);
    CommandFixture f;
    f.Select(selected.startsWith(QLatin1String("con")) ? QStringLiteral("connections")
                                                       : QStringLiteral("nodes"),
             selected);
    if (failing == QLatin1String("outer commit"))
        f.FailOuterCommit();
    else
        f.Component.Fail(failing);
    f.Press("cmdDatabaseAdd");
    f.Component.BeforeCall = nullptr;

    QCOMPARE(f.Operator.Texts(), told);
    for (const RecordedBox& box : f.Operator.Boxes)
        QCOMPARE(box, RecordedBox::Error(box.text));
    QCOMPARE(f.Dialogs, QStringList());
    QVERIFY(f.IsAtRest());
}

void TestCommandAdd::Add_UnknownTypes_EndsWithoutAWord_data()
{
    QTest::addColumn<QString>("view");
    QTest::addColumn<QString>("failing");
    QTest::newRow("connection") << QStringLiteral("waypoints") << QStringLiteral("AnalyzeConType");
    QTest::newRow("node") << QStringLiteral("nodes") << QStringLiteral("GetNodeTypeLongName");
    QTest::newRow("its tables") << QStringLiteral("nodes") << QStringLiteral("GetNodeTypeWpList");
}
void TestCommandAdd::Add_UnknownTypes_EndsWithoutAWord()
{
    QFETCH(const QString, view);
    QFETCH(const QString, failing);
    CommandFixture f;
    f.Select(view, QStringLiteral("root"));
    f.Component.Fail(failing);
    f.Press("cmdDatabaseAdd");
    QCOMPARE(f.Component.Count(failing), 1);
    QCOMPARE(f.Dialogs, QStringList());
    QCOMPARE(f.Operator.Texts(), QStringList());
    QVERIFY(f.IsAtRest());
}

void TestCommandAdd::Add_AnyCallFails_ComesToRest()
{
    int calls = 0;
    {
        CommandFixture f;
        f.Select(QStringLiteral("nodes"), QStringLiteral("node/North"));
        f.Press("cmdDatabaseAdd");
        calls = static_cast<int>(f.Component.Calls.size());
    }
    QVERIFY(calls > 10);
    for (int k = 1; k <= calls; ++k) {
        CommandFixture f;
        f.Select(QStringLiteral("nodes"), QStringLiteral("node/North"));
        f.Component.FailCall(k);
        f.Press("cmdDatabaseAdd");
        QVERIFY2(f.IsAtRest(), qPrintable(QString::number(k)));
        // The record stands in the dialog, or the operator knows why not.
        QVERIFY2(!f.Dialogs.isEmpty() || !f.Operator.Boxes.empty(), qPrintable(QString::number(k)));
    }
}

void TestCommandAdd::Add_WithoutEditRight_DoesNothing()
{
    CommandFixture f(false);
    f.Select(QStringLiteral("nodes"), QStringLiteral("node/North"));
    QVERIFY(!f.Enabled("cmdDatabaseAdd"));
    f.Press("cmdDatabaseAdd");
    QCOMPARE(f.Dialogs, QStringList());
    QCOMPARE(f.Component.Calls, QStringList());
    QVERIFY(f.IsAtRest());
}

QTEST_MAIN(TestCommandAdd)
#include "TestCommandAdd.moc"
