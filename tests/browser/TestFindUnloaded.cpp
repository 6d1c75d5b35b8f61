#include "tests/browser/FindOperator.h"

#include <QTest>

namespace {

/// Connection Alpha with numbered nodes, Beta with "South" and "Number node".
class UnloadedFixture : public BrowserFixture
{
public:
    explicit UnloadedFixture(int nodes = 5)
    {
        Component.Store.MaxRows = 32001;
        Component.Store.AddConnection(QStringLiteral("Alpha"), QStringLiteral("WP=BUST4,ID=254"));
        Component.Store.AddConnection(QStringLiteral("Beta"),
                                      QStringLiteral("WP=SOCKET,HOST=gw,WP=BUST4,ID=3"));
        AddNodes(QStringLiteral("Alpha"), nodes);
        Component.Store.AddNode(QStringLiteral("South"), QStringLiteral("Beta"), QString(),
                                QStringLiteral("WP=NET4,ADDR=18"));
        StartOnDatabasePage();
    }

    void ShowNodesOfConnections() const
    {
        ShowConnections();
        Find<QCheckBox>("chkViewNodes").setChecked(true);
    }
    [[nodiscard]] TreeEntries::Index Con(const QString& name) const
    {
        return ConEntries().FindByText(name, false);
    }
    [[nodiscard]] QString SelectedIn(const char* tree) const
    {
        return Find<TreeView>(tree).SelectedIndex().data().toString();
    }
    /// The rows that a search shows, and the line below them; the operator goes back.
    QStringList RowsFor(const QString& text, QString* state = nullptr) const
    {
        QStringList rows;
        FindOperator::Search(*Control, text, [&](QDialog& result) {
            rows = FindOperator::RowsOf(result);
            if (state)
                *state = FindOperator::FindIn<QLabel>(result, "lblState").text();
            result.reject();
        });
        return rows;
    }
};

const QString NotLoaded = QStringLiteral("Not loaded yet");

} // namespace

/// The Find command on what is in the database and not in the tree.
class TestFindUnloaded : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void NodeView_NodeBehindTheFirstLoad_IsFoundAndLoaded();
    void NodeView_AllLoaded_AsksNothing();
    void ConnectionView_ClosedConnection_NodeIsFoundAndLoaded();
    void ConnectionView_Waypoints_AreFoundAndLoaded();
    void ConnectionView_PartlyLoaded_TheRestIsFound();
    void ConnectionView_InterruptedLoad_NodeIsThere();
    void Search_ManyHits_EndWithALineThatTellsOfMore();
    void Search_ManySlices_CanBeStopped();
    void Search_LongerThanAMoment_ShowsThatItRuns();
    void Search_Fails_IsToldAndTheLoadedHitsStay_data();
    void Search_Fails_IsToldAndTheLoadedHitsStay();
    void Search_FailsWithoutAHit_GoesBack();
    void Choose_EntryGoneMeanwhile_IsTold();
    void Choose_LoadFails_TellsOnce_data();
    void Choose_LoadFails_TellsOnce();
    void Search_DatabaseFreedMeanwhile_Ends();
    void Search_ControlDestroyedUnderItsBox_Ends();
};

void TestFindUnloaded::NodeView_NodeBehindTheFirstLoad_IsFoundAndLoaded()
{
    UnloadedFixture f(5002);
    const qint32 next = Load().LoadMoreId;
    QVERIFY(next != 0);
    QCOMPARE(f.RowsFor(QStringLiteral("5002")),
             QStringList({NotLoaded, QStringLiteral(" Alpha"), QStringLiteral("  Node 005002")}));
    QCOMPARE(f.Component.Calls.filter(QStringLiteral("FindNodesWithIdEx")),
             QStringList{QStringLiteral("FindNodesWithIdEx(5002,%1)").arg(next)});
    FindOperator::Search(*f.Control, QStringLiteral("5002"),
                         FindOperator::Choose(QStringLiteral("  Node 005002")));
    QCOMPARE(f.SelectedIn("tvwNodesTree"), QStringLiteral("Node 005002"));
    QCOMPARE(f.Control->Sobriquet(), QStringLiteral("Node 005002"));
    QCOMPARE(f.NodeEntries().ChildCount(1), 5001);
    // The rest comes as before.
    QCOMPARE(Load().LoadMoreId, next);
    f.Find<QPushButton>("cmdLoadMore").click();
    QCOMPARE(f.NodeEntries().ChildCount(1), 5003);
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestFindUnloaded::NodeView_AllLoaded_AsksNothing()
{
    UnloadedFixture f;
    QCOMPARE(f.RowsFor(QStringLiteral("south")),
             QStringList({QStringLiteral("Nodes"), QStringLiteral(" South")}));
    QCOMPARE(f.Component.Calls, QStringList());
}

void TestFindUnloaded::ConnectionView_ClosedConnection_NodeIsFoundAndLoaded()
{
    UnloadedFixture f;
    f.ShowNodesOfConnections();
    FindOperator::Search(*f.Control, QStringLiteral("OUT"), FindOperator::Choose(QStringLiteral("  South")));
    QCOMPARE(f.SelectedIn("tvwConTree"), QStringLiteral("South"));
    QCOMPARE(f.Control->Sobriquet(), QStringLiteral("South"));
    QVERIFY(f.ConEntries().Expanded(f.Con(QStringLiteral("Beta"))));
    QVERIFY(!f.ConEntries().Expanded(f.Con(QStringLiteral("Alpha"))));
    // Now it is one of the tree.
    QCOMPARE(
        f.RowsFor(QStringLiteral("out")),
        QStringList({QStringLiteral("Connections"), QStringLiteral(" Beta"), QStringLiteral("  South")}));
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestFindUnloaded::ConnectionView_Waypoints_AreFoundAndLoaded()
{
    UnloadedFixture f;
    f.ShowConnections();
    QString bus;
    f.Component.Store.GetWpLongName(QStringLiteral("BUST4"), bus);
    QCOMPARE(f.RowsFor(bus), QStringList({NotLoaded, QStringLiteral(" Alpha"), QStringLiteral("  ") + bus,
                                          QStringLiteral(" Beta"), QStringLiteral("  ") + bus}));
    FindOperator::Search(*f.Control, bus, [](QDialog& result) {
        FindOperator::ClickRow(result, 4);
        FindOperator::ClickIn(result, "btnOK");
    });
    QCOMPARE(f.SelectedIn("tvwConTree"), bus);
    QCOMPARE(f.Find<TreeView>("tvwConTree").SelectedIndex().parent().data().toString(),
             QStringLiteral("Beta"));
    QCOMPARE(f.Find<TreeView>("tvwConTree").SelectedIndex().row(), 1);
}

void TestFindUnloaded::ConnectionView_PartlyLoaded_TheRestIsFound()
{
    UnloadedFixture f(10);
    f.ShowNodesOfConnections();
    const TreeEntries::Index alpha = f.Con(QStringLiteral("Alpha"));
    // As a load that was interrupted behind its fourth row leaves it.
    const auto idOf = [&](int number) { return f.Component.Store.Now.nodes[std::size_t(number - 1)].id; };
    for (int number = 1; number <= 4; ++number)
        f.ConEntries().Add(alpha, QStringLiteral("N,%1").arg(number == 4 ? -idOf(4) : idOf(number)),
                           QStringLiteral("Node %1").arg(number, 6, 10, QLatin1Char('0')));
    f.ConEntries().SetSorted(alpha, true);
    f.ConEntries().SetExpanded(alpha, true);
    const QStringList rows = f.RowsFor(QStringLiteral("node 00000"));
    QCOMPARE(rows.indexOf(NotLoaded), 6);
    QCOMPARE(rows.size(), 6 + 2 + 5);
    FindOperator::Search(*f.Control, QStringLiteral("000009"),
                         FindOperator::Choose(QStringLiteral("  Node 000009")));
    QCOMPARE(f.SelectedIn("tvwConTree"), QStringLiteral("Node 000009"));
    QCOMPARE(f.ConEntries().ChildCount(alpha), 10);
    QCOMPARE(f.ConEntries().FindContinued(alpha), 0);
}

void TestFindUnloaded::ConnectionView_InterruptedLoad_NodeIsThere()
{
    UnloadedFixture f(500);
    f.Component.Store.MaxRows = 100;
    f.ShowNodesOfConnections();
    f.Component.BeforeCall = [&](const QString& call) {
        if (!call.startsWith(QLatin1String("GetParentNodesWithIdEx")))
            return;
        QTimer::singleShot(0, qApp, [] {
            if (auto* form = qobject_cast<QDialog*>(QApplication::activeModalWidget());
                form && form->objectName() == QLatin1String("frmConNodesProgress"))
                FindOperator::ClickIn(*form, "cmdLoadStop");
        });
    };
    FindOperator::Search(*f.Control, QStringLiteral("000499"),
                         FindOperator::Choose(QStringLiteral("  Node 000499")));
    f.Component.BeforeCall = nullptr;
    const TreeEntries::Index alpha = f.Con(QStringLiteral("Alpha"));
    QCOMPARE(f.SelectedIn("tvwConTree"), QStringLiteral("Node 000499"));
    QVERIFY(f.ConEntries().ChildCount(alpha) < 500);
    f.Operator.Boxes.clear();
    f.Find<QPushButton>("cmdLoadMore").click();
    QCOMPARE(f.ConEntries().ChildCount(alpha), 500);
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestFindUnloaded::Search_ManyHits_EndWithALineThatTellsOfMore()
{
    UnloadedFixture f(1500);
    f.Component.Store.MaxRows = 600;
    f.ShowNodesOfConnections();
    f.Component.TakeCalls();
    const QStringList rows = f.RowsFor(QStringLiteral("node"));
    QCOMPARE(rows.size(), 2 + 1000 + 1);
    QCOMPARE(rows.last(), QStringLiteral(" There are more than 1000. Search for a longer text."));
    // It looks no further than that.
    QCOMPARE(f.Component.Count(QStringLiteral("FindNodesWithIdEx")), 2);
}

void TestFindUnloaded::Search_ManySlices_CanBeStopped()
{
    UnloadedFixture f(300);
    f.Component.Store.MaxRows = 1;
    f.ShowNodesOfConnections();
    int calls = 0;
    f.Component.BeforeCall = [&](const QString& call) {
        if (!call.startsWith(QLatin1String("FindNodesWithIdEx")) || ++calls != 3)
            return;
        QTimer::singleShot(0, qApp, [] {
            FindOperator::FindIn<QPushButton>(*QApplication::activeModalWidget(), "cmdSearchStop").click();
        });
    };
    QString state;
    const QStringList rows = f.RowsFor(QStringLiteral("node"), &state);
    QCOMPARE(rows.first(3),
             QStringList({NotLoaded, QStringLiteral(" Alpha"), QStringLiteral("  Node 000001")}));
    QVERIFY2(calls < 10, qPrintable(QString::number(calls)));
    QCOMPARE(state, QStringLiteral("Entries found: %1\nWhat is not loaded yet was not searched to the end.")
                        .arg(rows.size() - 2));
}

void TestFindUnloaded::Search_LongerThanAMoment_ShowsThatItRuns()
{
    UnloadedFixture f(400);
    f.Component.Store.MaxRows = 1;
    f.ShowNodesOfConnections();
    bool shown = false;
    int calls = 0;
    f.Component.BeforeCall = [&](const QString& call) {
        // Held up until it is seen.
        if (!call.startsWith(QLatin1String("FindNodesWithIdEx")) || ++calls != 2)
            return;
        auto& frame = FindOperator::FindIn<QWidget>(*QApplication::activeModalWidget(), "fraSearch");
        shown = !frame.isVisible() && QTest::qWaitFor([&] { return frame.isVisible(); });
    };
    f.RowsFor(QStringLiteral("south"));
    f.Component.BeforeCall = nullptr;
    QVERIFY(shown);
}

void TestFindUnloaded::Search_Fails_IsToldAndTheLoadedHitsStay_data()
{
    QTest::addColumn<QString>("method");
    QTest::addColumn<QString>("text");
    QTest::newRow("begin") << QStringLiteral("BeginTransaction")
                           << QStringLiteral(
                                  "Database access is denied, because another application is using it.");
    QTest::newRow("search") << QStringLiteral("FindNodesWithIdEx")
                            << QStringLiteral("Unknown error in access to database.");
    QTest::newRow("commit") << QStringLiteral("CommitTransaction")
                            << QStringLiteral("Failure to commit database operations.");
}

void TestFindUnloaded::Search_Fails_IsToldAndTheLoadedHitsStay()
{
    QFETCH(const QString, method);
    QFETCH(const QString, text);
    UnloadedFixture f;
    f.ShowNodesOfConnections();
    f.Component.Fail(method);
    QString state;
    QStringList rows;
    FindOperator::Search(*f.Control, QStringLiteral("a"), [&](QDialog& result) {
        rows = FindOperator::RowsOf(result);
        state = FindOperator::FindIn<QLabel>(result, "lblState").text();
        f.Component.Repair();
        FindOperator::ClickIn(result, "btnOK");
    });
    QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Error(text)});
    QCOMPARE(rows,
             QStringList({QStringLiteral("Connections"), QStringLiteral(" Alpha"), QStringLiteral(" Beta")}));
    QCOMPARE(state,
             QStringLiteral("Entries found: 2\nWhat is not loaded yet could not be searched to the end."));
    QCOMPARE(f.SelectedIn("tvwConTree"), QStringLiteral("Alpha"));
    QCOMPARE(f.Component.Store.Levels(), 0);
}

void TestFindUnloaded::Search_FailsWithoutAHit_GoesBack()
{
    UnloadedFixture f;
    f.ShowNodesOfConnections();
    f.Component.Fail(QStringLiteral("FindNodesWithIdEx"));
    bool back = false;
    FindOperator::Search(*f.Control, QStringLiteral("south"), nullptr, [&](QDialog& find) {
        back = true;
        find.reject();
    });
    QVERIFY(back);
    QCOMPARE(f.Operator.Texts(), QStringList({QStringLiteral("Unknown error in access to database."),
                                              QStringLiteral("No items found!")}));
}

void TestFindUnloaded::Choose_EntryGoneMeanwhile_IsTold()
{
    UnloadedFixture f;
    f.ShowNodesOfConnections();
    FindOperator::Search(*f.Control, QStringLiteral("south"), [&](QDialog& result) {
        f.Component.Store.DeleteNode(QStringLiteral("South"));
        FindOperator::ClickIn(result, "btnOK");
    });
    QCOMPARE(f.Operator.Texts(), QStringList{QStringLiteral("South is not in the database any more.")});
    QCOMPARE(Browser().Busy, 0);
}

void TestFindUnloaded::Choose_LoadFails_TellsOnce_data()
{
    QTest::addColumn<bool>("viewNodes");
    QTest::addColumn<QString>("method");
    QTest::addColumn<QStringList>("texts");
    const QString unknown = QStringLiteral("Unknown error in access to database.");
    QTest::newRow("nodes") << true << QStringLiteral("GetParentNodesWithIdEx")
                           << QStringList{unknown, QStringLiteral("Database loading failure.")};
    QTest::newRow("waypoints") << false << QStringLiteral("GetParent") << QStringList{unknown};
}

void TestFindUnloaded::Choose_LoadFails_TellsOnce()
{
    QFETCH(const bool, viewNodes);
    QFETCH(const QString, method);
    QFETCH(const QStringList, texts);
    UnloadedFixture f;
    f.ShowNodesOfConnections();
    f.Find<QCheckBox>("chkViewNodes").setChecked(viewNodes);
    QString socket;
    f.Component.Store.GetWpLongName(QStringLiteral("SOCKET"), socket);
    FindOperator::Search(*f.Control, viewNodes ? QStringLiteral("south") : socket, [&](QDialog& result) {
        f.Component.Fail(method);
        FindOperator::ClickIn(result, "btnOK");
    });
    QCOMPARE(f.Operator.Texts(), texts);
    QCOMPARE(f.Component.Store.Levels(), 0);
}

void TestFindUnloaded::Search_DatabaseFreedMeanwhile_Ends()
{
    UnloadedFixture f(300);
    f.Component.Store.MaxRows = 1;
    f.ShowNodesOfConnections();
    int calls = 0;
    f.Component.BeforeCall = [&](const QString& call) {
        if (call.startsWith(QLatin1String("FindNodesWithIdEx")) && ++calls == 3)
            QTimer::singleShot(0, qApp, [&] { f.Control->FreeObjects(); });
    };
    const QStringList rows = f.RowsFor(QStringLiteral("node"));
    QCOMPARE(rows.first(2), QStringList({NotLoaded, QStringLiteral(" Alpha")}));
    QVERIFY(calls < 10);
}

void TestFindUnloaded::Search_ControlDestroyedUnderItsBox_Ends()
{
    UnloadedFixture f;
    f.ShowNodesOfConnections();
    f.Component.Fail(QStringLiteral("FindNodesWithIdEx"));
    f.Operator.WhileOpen = [&](const RecordedBox&) { f.Control.reset(); };
    FindOperator::Search(*f.Control, QStringLiteral("alpha"), nullptr);
    QVERIFY(!f.Control);
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(Browser().Busy, 0);
}

QTEST_MAIN(TestFindUnloaded)
#include "TestFindUnloaded.moc"
