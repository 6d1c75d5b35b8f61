#include "tests/browser/CommandFixture.h"

// The commands by key and double click.

class TestCommandKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Enter_OnAConnection_OpensItsChildrenAndItsProperties_data();
    void Enter_OnAConnection_OpensItsChildrenAndItsProperties();
    void ShiftEnter_OnAWaypointBehindTheRoot_OpensItsProperties();
    void Enter_OnAnyOther_OpensItsProperties_data();
    void Enter_OnAnyOther_OpensItsProperties();
    void Delete_InEitherView_AsksToRemove_data();
    void Delete_InEitherView_AsksToRemove();
    void DoubleClick_OnAnEntry_OpensItsPropertiesOnce_data();
    void DoubleClick_OnAnEntry_OpensItsPropertiesOnce();
    void DoubleClick_OnAConnection_OpensItsChildrenAlone();
    void DoubleClick_StaleEntry_IsToldOnce();
    void Keys_WhileADialogStandsOpen_RunNoSecondCommand();
    void Keys_WhileAQuestionStandsOpen_RunNoSecondCommand();
    void Clicked_WithoutReason_RunsNothing();
};

void TestCommandKeys::Enter_OnAConnection_OpensItsChildrenAndItsProperties_data()
{
    QTest::addColumn<bool>("viewNodes");
    QTest::addColumn<bool>("shift");
    QTest::addColumn<int>("children");
    QTest::newRow("waypoints") << false << false << 3;
    QTest::newRow("nodes") << true << false << 1;
    QTest::newRow("waypoints, Shift") << false << true << 0;
    QTest::newRow("nodes, Shift") << true << true << 0;
}
void TestCommandKeys::Enter_OnAConnection_OpensItsChildrenAndItsProperties()
{
    QFETCH(const bool, viewNodes);
    QFETCH(const bool, shift);
    QFETCH(const int, children);
    CommandFixture f;
    f.ShowConnections();
    f.Find<QCheckBox>("chkViewNodes").setChecked(viewNodes);
    const TreeEntries::Index beta = f.Con(QStringLiteral("Beta"));
    f.Click("tvwConTree", beta);
    int childrenInDialog = -1;
    f.InDialog = [&](ConData&) { childrenInDialog = f.ConEntries().ChildCount(beta); };
    QTest::keyClick(&f.Find<TreeView>("tvwConTree"), Qt::Key_Return,
                    shift ? Qt::ShiftModifier : Qt::NoModifier);
    QCOMPARE(f.Dialogs, QStringList{QStringLiteral("connection")});
    QCOMPARE(childrenInDialog, children);
    QCOMPARE(f.Control->Sobriquet(), QStringLiteral("Beta"));
    QCOMPARE(f.SelectedText(), QStringLiteral("Beta"));
    QVERIFY(f.IsAtRest());

    // Now that it is open, the same key shows the dialog again.
    QTest::keyClick(&f.Find<TreeView>("tvwConTree"), Qt::Key_Enter);
    QCOMPARE(f.Dialogs.size(), 2);
}

void TestCommandKeys::ShiftEnter_OnAWaypointBehindTheRoot_OpensItsProperties()
{
    CommandFixture f;
    f.Select(QStringLiteral("waypoints"), QStringLiteral("root"));
    f.Find<TreeView>("tvwConTree")
        .SelectIndex(f.ConEntries().ModelIndex(f.ConEntries().Child(f.Con(QStringLiteral("Alpha")), 0)));
    QVERIFY(!f.Enabled("cmdDatabaseProp"));
    QTest::keyClick(&f.Find<TreeView>("tvwConTree"), Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(f.Dialogs, QStringList{QStringLiteral("connection")});
}

void TestCommandKeys::Enter_OnAnyOther_OpensItsProperties_data()
{
    QTest::addColumn<QString>("view");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QStringList>("dialogs");
    const QStringList connection{QStringLiteral("connection")};
    const QStringList node{QStringLiteral("node")};
    QTest::newRow("waypoint") << QStringLiteral("waypoints") << QStringLiteral("wp/Alpha") << connection;
    QTest::newRow("open connection") << QStringLiteral("waypoints") << QStringLiteral("con/Alpha")
                                     << connection;
    QTest::newRow("node below") << QStringLiteral("connections") << QStringLiteral("node/North") << node;
    QTest::newRow("node") << QStringLiteral("nodes") << QStringLiteral("node/North") << node;
    QTest::newRow("root") << QStringLiteral("waypoints") << QStringLiteral("root") << QStringList();
    QTest::newRow("root of the nodes") << QStringLiteral("nodes") << QStringLiteral("root") << QStringList();
}
void TestCommandKeys::Enter_OnAnyOther_OpensItsProperties()
{
    QFETCH(const QString, view);
    QFETCH(const QString, selected);
    QFETCH(const QStringList, dialogs);
    CommandFixture f;
    f.Select(view, selected);
    const QString target = f.TargetText();
    QTest::keyClick(&f.Find<TreeView>(f.ShownTree()), Qt::Key_Return);
    QCOMPARE(f.Dialogs, dialogs);
    QCOMPARE(f.TargetText(), target);
    QVERIFY(f.IsAtRest());
}

void TestCommandKeys::Delete_InEitherView_AsksToRemove_data()
{
    QTest::addColumn<QString>("view");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<int>("questions");
    const auto row = [](const char* name, const char* view, const char* selected, int key, int modifiers,
                        int questions) {
        QTest::newRow(name) << QString::fromLatin1(view) << QString::fromLatin1(selected) << key << modifiers
                            << questions;
    };
    row("node", "nodes", "node/North", Qt::Key_Delete, 0, 1);
    row("node, Shift", "nodes", "node/North", Qt::Key_Delete, Qt::ShiftModifier, 0);
    row("node, period", "nodes", "node/North", Qt::Key_Period, 0, 0);
    row("root", "nodes", "root", Qt::Key_Delete, 0, 0);
    row("node below", "connections", "node/North", Qt::Key_Delete, 0, 1);
    row("connection", "connections", "con/Alpha", Qt::Key_Delete, 0, 1);
    row("connection, Shift", "connections", "con/Alpha", Qt::Key_Delete, Qt::ShiftModifier, 0);
    row("connection, period", "connections", "con/Alpha", Qt::Key_Period, 0, 1);
    row("root of the connections", "connections", "root", Qt::Key_Delete, 0, 0);
}
void TestCommandKeys::Delete_InEitherView_AsksToRemove()
{
    QFETCH(const QString, view);
    QFETCH(const QString, selected);
    QFETCH(const int, key);
    QFETCH(const int, modifiers);
    QFETCH(const int, questions);
    CommandFixture f;
    f.Select(view, selected);
    f.Operator.Answers = {BoxAnswer::Cancel};
    QTest::keyClick(&f.Find<TreeView>(f.ShownTree()), Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    QCOMPARE(static_cast<int>(f.Operator.Boxes.size()), questions);
    QCOMPARE(f.Component.Store.Now.nodes.size(), std::size_t(3));
    QVERIFY(f.IsAtRest());
}

void TestCommandKeys::DoubleClick_OnAnEntry_OpensItsPropertiesOnce_data()
{
    QTest::addColumn<QString>("view");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("clicked");
    QTest::addColumn<QString>("dialog");
    QTest::newRow("waypoint") << QStringLiteral("waypoints") << QStringLiteral("con/Alpha")
                              << QStringLiteral("wp/Alpha") << QStringLiteral("connection");
    QTest::newRow("waypoint behind the root") << QStringLiteral("waypoints") << QStringLiteral("root")
                                              << QStringLiteral("wp/Alpha") << QStringLiteral("connection");
    QTest::newRow("node below") << QStringLiteral("connections") << QStringLiteral("root")
                                << QStringLiteral("node/North") << QStringLiteral("node");
    QTest::newRow("node") << QStringLiteral("nodes") << QStringLiteral("root") << QStringLiteral("node/North")
                          << QStringLiteral("node");
}
void TestCommandKeys::DoubleClick_OnAnEntry_OpensItsPropertiesOnce()
{
    QFETCH(const QString, view);
    QFETCH(const QString, before);
    QFETCH(const QString, clicked);
    QFETCH(const QString, dialog);
    CommandFixture f;
    f.Select(view, before);
    const QString name = clicked.section(QLatin1Char('/'), 1);
    const TreeEntries::Index entry = clicked.startsWith(QLatin1String("wp/"))
                                         ? f.ConEntries().Child(f.Con(name), 0)
                                         : f.Entries(f.ShownTree()).FindByText(name, true);
    f.DoubleClick(f.ShownTree(), entry);
    QCOMPARE(f.Dialogs, QStringList{dialog});
    QCOMPARE(f.Selected(), entry);
    QVERIFY(f.TargetText().startsWith(QLatin1String("WP=BUST4,ID=254")));
    QVERIFY(f.IsAtRest());

    // The click that belonged to it is over: the next one counts.
    f.Click(f.ShownTree(), 1);
    QCOMPARE(f.TargetText(), QString());
}

void TestCommandKeys::DoubleClick_OnAConnection_OpensItsChildrenAlone()
{
    CommandFixture f;
    f.ShowConnections();
    f.DoubleClick("tvwConTree", f.Con(QStringLiteral("Beta")));
    QCOMPARE(f.Dialogs, QStringList());
    QCOMPARE(f.ConEntries().ChildCount(f.Con(QStringLiteral("Beta"))), 3);
}

void TestCommandKeys::DoubleClick_StaleEntry_IsToldOnce()
{
    CommandFixture f;
    f.Select(QStringLiteral("nodes"), QStringLiteral("node/North"));
    // Changed between the first and the second press.
    connect(&f.Find<TreeView>("tvwNodesTree"), &TreeView::ClickEnded, this, [&f, done = false]() mutable {
        if (!std::exchange(done, true))
            f.ChangeElsewhere(QStringLiteral("node/North"));
    });
    f.DoubleClick("tvwNodesTree", f.Selected());
    QCOMPARE(f.Operator.Texts(), QStringList{CommandFixture::ChangedText(QStringLiteral("Node North"))});
    QCOMPARE(f.Dialogs, QStringList());
    QCOMPARE(f.SelectedText(), QStringLiteral("North"));
    QVERIFY(f.IsAtRest());
}

void TestCommandKeys::Keys_WhileADialogStandsOpen_RunNoSecondCommand()
{
    CommandFixture f;
    f.Select(QStringLiteral("nodes"), QStringLiteral("node/North"));
    f.Control->SetManageVisible(true);
    int programs = 0;
    Machine().StartProgram = [&](const QString&, const QStringList&) { return ++programs > 0; };
    f.InDialog = [&](ConData&) {
        auto& tree = f.Find<TreeView>("tvwNodesTree");
        QTest::keyClick(&tree, Qt::Key_Return);
        QTest::keyClick(&tree, Qt::Key_Delete);
        for (const char* button :
             {"cmdDatabaseAdd", "cmdDatabaseProp", "cmdDatabaseRemove", "cmdDatabaseManage"})
            f.Press(button);
        Q_EMIT f.Find<IntervalTimer>("tmrRefreshTimer").Timer();
        QVERIFY(!f.TimerOn());
        QCOMPARE(f.Component.Count(QStringLiteral("GetJournalLastId")), 0);
    };
    f.Press("cmdDatabaseProp");
    QCOMPARE(f.Dialogs.size(), 1);
    QCOMPARE(f.Operator.Texts(), QStringList());
    QCOMPARE(programs, 0);
    QVERIFY(f.IsAtRest());
}

void TestCommandKeys::Keys_WhileAQuestionStandsOpen_RunNoSecondCommand()
{
    CommandFixture f;
    f.Select(QStringLiteral("nodes"), QStringLiteral("node/North"));
    f.Operator.WhileOpen = [&](const RecordedBox&) {
        QTest::keyClick(&f.Find<TreeView>("tvwNodesTree"), Qt::Key_Delete);
        f.Press("cmdDatabaseAdd");
    };
    f.Operator.Answers = {BoxAnswer::Cancel};
    f.Press("cmdDatabaseRemove");
    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
    QCOMPARE(f.Dialogs, QStringList());
    QVERIFY(f.IsAtRest());
}

void TestCommandKeys::Clicked_WithoutReason_RunsNothing()
{
    // Without rights and with nothing selected, whatever signal comes.
    CommandFixture f(false);
    f.Select(QStringLiteral("waypoints"), QStringLiteral("none"));
    for (const char* button : {"cmdDatabaseAdd", "cmdDatabaseProp", "cmdDatabaseRemove"})
        Q_EMIT f.Find<QPushButton>(button).clicked();
    QCOMPARE(f.Dialogs, QStringList());
    QCOMPARE(f.Operator.Texts(), QStringList());
    QCOMPARE(f.Component.Calls, QStringList());

    // A control in a form editor has nothing to work on.
    ResetModuleState();
    T4ZelkaBrowser drawn;
    drawn.SetUserMode(false);
    drawn.show();
    for (const char* button : {"cmdDatabaseAdd", "cmdDatabaseProp", "cmdDatabaseRemove", "cmdDatabaseManage"})
        Q_EMIT Child<QPushButton>(drawn, button).clicked();
    QCOMPARE(f.Operator.Texts(), QStringList());
    QVERIFY(!Database().DbObject);
}

QTEST_MAIN(TestCommandKeys)
#include "TestCommandKeys.moc"
