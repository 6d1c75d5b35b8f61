#include "tests/browser/CommandFixture.h"

namespace {

QString NodeQuestion(const QString& name)
{
    return QStringLiteral("Do you want to remove Node ") + name + QStringLiteral(" from database ?");
}

QString ConnectionQuestion(const QString& name)
{
    return QStringLiteral("Do you want to remove Connection ") + name +
           QStringLiteral(" and all its nodes from database ?");
}

RecordedBox Question(const QString& text)
{
    return {text, BoxFlags::OkCancel, ApplicationTitle()};
}

} // namespace

class TestCommandRemove : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Remove_BySelection_AsksFirst_data();
    void Remove_BySelection_AsksFirst();
    void Remove_Cancelled_ChangesNothing_data();
    void Remove_Cancelled_ChangesNothing();
    void Remove_NodeInTheNodeView_SelectsTheNextOne();
    void Remove_NodeInTheConnectionView_KeepsItsParentExpanded();
    void Remove_LastNodeOfAConnection_SelectsTheConnection();
    void Remove_LastNodeOfAll_SelectsTheRoot();
    void Remove_Connection_GoesWithItsNodesByTheJournal_data();
    void Remove_Connection_GoesWithItsNodesByTheJournal();
    void Remove_OneTransaction_ChecksThenDeletes_data();
    void Remove_OneTransaction_ChecksThenDeletes();
    void Remove_StaleEntry_IsToldAndStays_data();
    void Remove_StaleEntry_IsToldAndStays();
    void Remove_RefusedStep_IsToldAndUndone_data();
    void Remove_RefusedStep_IsToldAndUndone();
    void Remove_AnyCallFails_TreesAgreeWithTheDatabase();
    void Remove_NothingSelectedOrRoot_AsksNothing_data();
    void Remove_NothingSelectedOrRoot_AsksNothing();
    void Remove_WithoutEditRight_DoesNothing();
};

void TestCommandRemove::Remove_BySelection_AsksFirst_data()
{
    QTest::addColumn<QString>("view");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QString>("question");
    QTest::newRow("node") << QStringLiteral("nodes") << QStringLiteral("node/North")
                          << NodeQuestion(QStringLiteral("North"));
    QTest::newRow("node below") << QStringLiteral("connections") << QStringLiteral("node/South")
                                << NodeQuestion(QStringLiteral("South"));
    QTest::newRow("connection") << QStringLiteral("connections") << QStringLiteral("con/Beta")
                                << ConnectionQuestion(QStringLiteral("Beta"));
    QTest::newRow("waypoint") << QStringLiteral("waypoints") << QStringLiteral("wp/Alpha")
                              << ConnectionQuestion(QStringLiteral("Alpha"));
}
void TestCommandRemove::Remove_BySelection_AsksFirst()
{
    QFETCH(const QString, view);
    QFETCH(const QString, selected);
    QFETCH(const QString, question);
    CommandFixture f;
    f.Select(view, selected);
    QStringList callsBefore;
    bool timerOn = true;
    f.Operator.WhileOpen = [&](const RecordedBox&) {
        callsBefore = f.Component.Calls;
        timerOn = f.TimerOn();
    };
    f.Press("cmdDatabaseRemove");
    QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>{Question(question)});
    QCOMPARE(callsBefore, QStringList());
    QVERIFY(!timerOn);
    QVERIFY(f.IsAtRest());
}

void TestCommandRemove::Remove_Cancelled_ChangesNothing_data()
{
    Remove_BySelection_AsksFirst_data();
}
void TestCommandRemove::Remove_Cancelled_ChangesNothing()
{
    QFETCH(const QString, view);
    QFETCH(const QString, selected);
    CommandFixture f;
    f.Select(view, selected);
    const TreeEntries::Index entry = f.Selected();
    const QString target = f.TargetText();
    f.Operator.Answers = {BoxAnswer::Cancel};
    f.Press("cmdDatabaseRemove");
    QCOMPARE(f.Component.Calls, QStringList());
    QCOMPARE(f.Selected(), entry);
    QCOMPARE(f.TargetText(), target);
    QCOMPARE(f.Component.Store.Now.nodes.size(), std::size_t(3));
    QVERIFY(f.IsAtRest());
}

void TestCommandRemove::Remove_NodeInTheNodeView_SelectsTheNextOne()
{
    CommandFixture f;
    f.Select(QStringLiteral("nodes"), QStringLiteral("node/North"));
    f.Press("cmdDatabaseRemove");
    QCOMPARE(f.Node(QStringLiteral("North")), 0);
    QCOMPARE(f.SelectedText(), QStringLiteral("South"));
    QCOMPARE(f.Control->Sobriquet(), QStringLiteral("South"));
    QCOMPARE(f.TargetText(), QStringLiteral("WP=SOCKET,HOST=gw-2,WP=BUST4,ID=7,WP=NET4,ADDR=18"));
    QCOMPARE(f.Caption(), QStringLiteral("T4 Bus over TCP/IP: Beta"));
    QCOMPARE(f.Picture(), 1);
    QVERIFY(f.Enabled("cmdDatabaseRemove"));
    // The own change is known, so nothing is loaded again.
    f.Forget();
    f.Find<QPushButton>("cmdRefresh").click();
    QCOMPARE(f.Component.Count(QStringLiteral("QueryNodesWithIdEx")), 0);
    QCOMPARE(Load().JournalLastId, f.Component.Store.Now.lastJournalId);
}

void TestCommandRemove::Remove_NodeInTheConnectionView_KeepsItsParentExpanded()
{
    CommandFixture f;
    f.Select(QStringLiteral("connections"), QStringLiteral("node/North"));
    f.Press("cmdDatabaseRemove");
    const TreeEntries::Index alpha = f.Con(QStringLiteral("Alpha"));
    QVERIFY(f.ConEntries().Expanded(alpha));
    QCOMPARE(f.ConEntries().ChildCount(alpha), 1);
    QCOMPARE(f.Node(QStringLiteral("North")), 0);
    QCOMPARE(f.SelectedText(), QStringLiteral("Mid"));
    QCOMPARE(f.Control->Sobriquet(), QStringLiteral("Mid"));
    QVERIFY(f.IsAtRest());
}

void TestCommandRemove::Remove_LastNodeOfAConnection_SelectsTheConnection()
{
    CommandFixture f;
    f.Select(QStringLiteral("connections"), QStringLiteral("node/South"));
    f.Press("cmdDatabaseRemove");
    QVERIFY(f.ConEntries().Expanded(f.Con(QStringLiteral("Beta"))));
    QCOMPARE(f.SelectedText(), QStringLiteral("Beta"));
    QCOMPARE(f.Control->Sobriquet(), QStringLiteral("Beta"));
    QCOMPARE(f.TargetText(), QStringLiteral("WP=SOCKET,HOST=gw-2,WP=BUST4,ID=7"));
    QCOMPARE(f.Picture(), 1);
}

void TestCommandRemove::Remove_LastNodeOfAll_SelectsTheRoot()
{
    CommandFixture f;
    f.Select(QStringLiteral("nodes"), QStringLiteral("node/Mid"));
    for (int k = 0; k < 3; ++k)
        f.Press("cmdDatabaseRemove");
    QCOMPARE(f.NodeEntries().Count(), 1);
    QCOMPARE(f.Selected(), 1);
    QCOMPARE(f.TargetText(), QString());
    QVERIFY(!f.Enabled("cmdDatabaseRemove"));
    QVERIFY(f.IsAtRest());
}

void TestCommandRemove::Remove_Connection_GoesWithItsNodesByTheJournal_data()
{
    QTest::addColumn<QString>("view");
    QTest::addColumn<QString>("selected");
    QTest::newRow("connection") << QStringLiteral("connections") << QStringLiteral("con/Alpha");
    QTest::newRow("waypoint") << QStringLiteral("waypoints") << QStringLiteral("wp/Alpha");
}
void TestCommandRemove::Remove_Connection_GoesWithItsNodesByTheJournal()
{
    QFETCH(const QString, view);
    QFETCH(const QString, selected);
    CommandFixture f;
    f.Select(view, selected);
    f.Press("cmdDatabaseRemove");
    QCOMPARE(f.Con(QStringLiteral("Alpha")), 0);
    QCOMPARE(f.Node(QStringLiteral("North")), 0);
    QCOMPARE(f.Node(QStringLiteral("Mid")), 0);
    QVERIFY(f.Node(QStringLiteral("South")) != 0);
    QCOMPARE(f.Component.Store.Now.connections.size(), std::size_t(1));
    QCOMPARE(f.SelectedText(), QStringLiteral("Beta"));
    QCOMPARE(f.Control->Sobriquet(), QStringLiteral("Beta"));
    QCOMPARE(f.Caption(), QStringLiteral("T4 Bus over TCP/IP: Beta"));
    QCOMPARE(f.TargetText(), QStringLiteral("WP=SOCKET,HOST=gw-2,WP=BUST4,ID=7"));
    QVERIFY(f.ConEntries().Expanded(f.Con(QStringLiteral("Beta"))));
    QVERIFY(f.Enabled("cmdDatabaseRemove"));
    QVERIFY(f.IsAtRest());
}

void TestCommandRemove::Remove_OneTransaction_ChecksThenDeletes_data()
{
    QTest::addColumn<QString>("view");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QStringList>("changes");
    QTest::newRow("node") << QStringLiteral("nodes") << QStringLiteral("node/North")
                          << QStringList{QStringLiteral("GetNodeID(North)"),
                                         QStringLiteral("DeleteNode(North)")};
    QTest::newRow("connection") << QStringLiteral("waypoints") << QStringLiteral("con/Alpha")
                                << QStringList{QStringLiteral("GetParentID(Alpha)"),
                                               QStringLiteral("DeleteParentNodes(Alpha)"),
                                               QStringLiteral("DeleteParent(Alpha,True)")};
}
void TestCommandRemove::Remove_OneTransaction_ChecksThenDeletes()
{
    QFETCH(const QString, view);
    QFETCH(const QString, selected);
    QFETCH(const QStringList, changes);
    CommandFixture f;
    f.Select(view, selected);
    f.Press("cmdDatabaseRemove");
    int level = 0;
    QStringList first;
    for (const QString& call : f.Component.Calls) {
        if (call.startsWith(QLatin1String("BeginTransaction")))
            ++level;
        else if (call.startsWith(QLatin1String("CommitTransaction")))
            --level;
        else
            first << call;
        if (level == 0)
            break;
    }
    QCOMPARE(first, changes);
    QCOMPARE(f.Component.Store.Rollbacks, 0);
}

void TestCommandRemove::Remove_StaleEntry_IsToldAndStays_data()
{
    CommandFixture::StaleRows();
}
void TestCommandRemove::Remove_StaleEntry_IsToldAndStays()
{
    QFETCH(const QString, view);
    QFETCH(const QString, selected);
    QFETCH(const QString, changed);
    QFETCH(const QString, told);
    CommandFixture f;
    f.Select(view, selected);
    bool heldWhileOpen = false;
    f.Operator.WhileOpen = [&](const RecordedBox&) {
        heldWhileOpen = heldWhileOpen || f.Component.Store.Levels() > 0;
        // Another application is quicker than the operator.
        if (f.Operator.Boxes.size() == 1)
            f.ChangeElsewhere(changed);
    };
    f.Press("cmdDatabaseRemove");
    QCOMPARE(f.Operator.Texts().size(), 2);
    QCOMPARE(f.Operator.Boxes[1], RecordedBox::Plain(CommandFixture::ChangedText(told)));
    QVERIFY(!heldWhileOpen);
    QCOMPARE(f.Component.Store.Now.nodes.size(), std::size_t(3));
    QCOMPARE(f.Component.Store.Now.connections.size(), std::size_t(2));
    QCOMPARE(Load().JournalLastId, f.Component.Store.Now.lastJournalId);
    QVERIFY(f.IsAtRest());
}

void TestCommandRemove::Remove_RefusedStep_IsToldAndUndone_data()
{
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QString>("failing");
    QTest::addColumn<QStringList>("told");
    const QString node = QStringLiteral("node/North");
    const QString connection = QStringLiteral("con/Alpha");
    const QString denied =
        QStringLiteral("Database access is denied, because another application is using it.");
    const QString unknown = QStringLiteral("Unknown error in access to database.");
    const QString noCommit = QStringLiteral("Failure to commit database operations.");
    QTest::newRow("begin") << node << QStringLiteral("BeginTransaction") << QStringList{denied};
    QTest::newRow("node") << node << QStringLiteral("DeleteNode")
                          << QStringList{unknown, QStringLiteral("Failure in removing Node North.")};
    QTest::newRow("commit") << node << QStringLiteral("outer commit") << QStringList{noCommit};
    QTest::newRow("connection") << connection << QStringLiteral("DeleteParent")
                                << QStringList{unknown,
                                               QStringLiteral("Failure in removing Connection Alpha.")};
    QTest::newRow("its nodes") << connection << QStringLiteral("DeleteParentNodes")
                               << QStringList{unknown,
                                              QStringLiteral("Failure in removing Connection Alpha.")};
    QTest::newRow("connection, commit")
        << connection << QStringLiteral("outer commit") << QStringList{noCommit};
}
void TestCommandRemove::Remove_RefusedStep_IsToldAndUndone()
{
    QFETCH(const QString, selected);
    QFETCH(const QString, failing);
    QFETCH(const QStringList, told);
    CommandFixture f;
    f.Select(QStringLiteral("connections"), selected);
    const TreeEntries::Index below = f.ConNode(QStringLiteral("North"));
    if (failing == QLatin1String("outer commit"))
        f.FailOuterCommit();
    else
        f.Component.Fail(failing);
    f.Press("cmdDatabaseRemove");
    f.Component.BeforeCall = nullptr;

    QCOMPARE(f.Operator.Texts().mid(1), told);
    for (std::size_t box = 1; box < f.Operator.Boxes.size(); ++box)
        QCOMPARE(f.Operator.Boxes[box], RecordedBox::Error(f.Operator.Boxes[box].text));
    QCOMPARE(f.Component.Store.Now.nodes.size(), std::size_t(3));
    QVERIFY(f.Node(QStringLiteral("North")) != 0);
    QCOMPARE(f.ConNode(QStringLiteral("North")), below);
    QVERIFY(f.Con(QStringLiteral("Alpha")) != 0);
    QVERIFY(f.IsAtRest());
}

void TestCommandRemove::Remove_AnyCallFails_TreesAgreeWithTheDatabase()
{
    int calls = 0;
    {
        CommandFixture f;
        f.Select(QStringLiteral("connections"), QStringLiteral("node/North"));
        f.Press("cmdDatabaseRemove");
        calls = static_cast<int>(f.Component.Calls.size());
    }
    QVERIFY(calls > 5);
    for (int k = 1; k <= calls; ++k) {
        CommandFixture f;
        f.Select(QStringLiteral("connections"), QStringLiteral("node/North"));
        f.Component.FailCall(k);
        f.Press("cmdDatabaseRemove");
        const bool stored = f.Component.Store.Now.nodes.size() == 3;
        const QByteArray number = QByteArray::number(k);
        QVERIFY2(stored == (f.Node(QStringLiteral("North")) != 0), number);
        QVERIFY2(stored == (f.ConNode(QStringLiteral("North")) != 0), number);
        QVERIFY2(!stored || f.Operator.Boxes.size() > 1, number);
        QVERIFY2(f.IsAtRest(), number);
    }
}

void TestCommandRemove::Remove_NothingSelectedOrRoot_AsksNothing_data()
{
    CommandFixture::NoRecordRows();
}
void TestCommandRemove::Remove_NothingSelectedOrRoot_AsksNothing()
{
    QFETCH(const QString, view);
    QFETCH(const QString, selected);
    CommandFixture f;
    f.Select(view, selected);
    f.Find<QLineEdit>("txtTarget").setFocus();
    f.Press("cmdDatabaseRemove");
    QCOMPARE(f.Operator.Texts(), QStringList());
    QCOMPARE(f.Component.Calls, QStringList());
    QCOMPARE(f.Component.Store.Now.nodes.size(), std::size_t(3));
    // With nothing selected the view at least has the focus again.
    QCOMPARE(f.Control->focusWidget() == &f.Find<QWidget>(f.ShownTree()), selected == QLatin1String("none"));
    QVERIFY(f.IsAtRest());
}

void TestCommandRemove::Remove_WithoutEditRight_DoesNothing()
{
    CommandFixture f(false);
    f.Select(QStringLiteral("nodes"), QStringLiteral("node/North"));
    QVERIFY(!f.Enabled("cmdDatabaseRemove"));
    f.Press("cmdDatabaseRemove");
    QCOMPARE(f.Operator.Texts(), QStringList());
    QCOMPARE(f.Component.Calls, QStringList());
}

QTEST_MAIN(TestCommandRemove)
#include "TestCommandRemove.moc"
