#include "tests/browser/CommandFixture.h"

#include <QScrollBar>

namespace {

/// A control with many records beside those of the commands.
class PlaceFixture : public CommandFixture
{
public:
    PlaceFixture()
    {
        for (int number = 1; number <= 60; ++number)
            AddNode(QStringLiteral("Row %1").arg(number, 3, 10, QLatin1Char('0')));
        Refresh();
    }

    TinyDatabase& Store() { return Component.Store; }
    void Refresh()
    {
        Tick();
        Forget();
    }
    void AddNode(const QString& name)
    {
        Store().SaveNode(name, QString(), NodeTarget(30), QStringLiteral("Alpha"), QString());
    }
    [[nodiscard]] QScrollBar& ScrollBar() const { return *Find<TreeView>(ShownTree()).verticalScrollBar(); }
    /// The entry at the upper edge of the view.
    [[nodiscard]] QString TopText() const
    {
        return Find<TreeView>(ShownTree()).indexAt(QPoint(60, 2)).data().toString();
    }
    [[nodiscard]] QLabel& Line() const { return Find<QLabel>("lblAsOf"); }
    static void SetClock(const QDateTime& time)
    {
        Machine().WallClock = [time] { return time; };
    }
};

const QDateTime Noon(QDate(2026, 3, 4), QTime(12, 0, 5));

} // namespace

class TestRefreshPlace : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom)); }
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    // The operator's place ---------------------------------------------------------------------------------

    void Patch_Elsewhere_DisturbsNothing_data()
    {
        QTest::addColumn<QString>("view");
        QTest::newRow("node view") << QStringLiteral("nodes");
        QTest::newRow("connection view") << QStringLiteral("connections");
    }
    void Patch_Elsewhere_DisturbsNothing()
    {
        QFETCH(const QString, view);
        PlaceFixture f;
        f.Select(view, QStringLiteral("node/Row 030"));
        const TreeEntries::Index selected = f.Selected();
        const QString target = f.TargetText();
        const QString caption = f.Caption();
        const QString top = f.TopText();
        QVERIFY(f.ScrollBar().value() > 0);
        for (int number = 1; number <= 9; ++number)
            f.AddNode(QStringLiteral("Before %1").arg(number));
        f.Store().DeleteNode(QStringLiteral("Mid"));
        f.ChangeElsewhere(QStringLiteral("node/North"));
        f.Tick();
        QCOMPARE(f.Selected(), selected);
        QCOMPARE(f.SelectedText(), QStringLiteral("Row 030"));
        QCOMPARE(f.TopText(), top);
        QCOMPARE(f.TargetText(), target);
        QCOMPARE(f.Caption(), caption);
        QVERIFY(f.Enabled("cmdDatabaseProp"));
        QCOMPARE(f.Component.Count(QStringLiteral("GetParent")), 0);
        QCOMPARE(f.Component.Count(QStringLiteral("QueryParentsWithID")), 0);
        QCOMPARE(f.ConEntries().Expanded(f.Con(QStringLiteral("Beta"))), view != QLatin1String("nodes"));
    }

    void Patch_OfTheSelectedEntry_KeepsItSelected()
    {
        PlaceFixture f;
        f.Select(QStringLiteral("connections"), QStringLiteral("node/Row 030"));
        const TreeEntries::Index selected = f.Selected();
        const QString top = f.TopText();
        f.Store().DeleteNodeFromBrowser(QStringLiteral("Row 030"));
        f.AddNode(QStringLiteral("Row 030"));
        f.Tick();
        QCOMPARE(f.Selected(), selected);
        QCOMPARE(f.TopText(), top);
        // It is what the database holds, so a click on it is no stale one.
        f.Click("tvwConTree", selected);
        QCOMPARE(f.Operator.Texts(), QStringList());
    }

    void Patch_SelectedEntryGone_SelectsItsNeighbourWithoutAClick()
    {
        PlaceFixture f;
        f.Select(QStringLiteral("nodes"), QStringLiteral("node/North"));
        const QString target = f.TargetText();
        f.Store().DeleteNode(QStringLiteral("North"));
        f.Tick();
        QCOMPARE(f.SelectedText(), QStringLiteral("Row 001"));
        QCOMPARE(f.TargetText(), target);
        QCOMPARE(f.Component.Count(QStringLiteral("GetNodeNmaTag")), 0);
        QVERIFY(f.Enabled("cmdDatabaseRemove"));
    }

    void Patch_LastEntryGone_DisablesWhatNeedsOne()
    {
        CommandFixture f;
        f.Select(QStringLiteral("nodes"), QStringLiteral("node/North"));
        for (const char* name : {"North", "Mid", "South"})
            f.Component.Store.DeleteNode(QString::fromLatin1(name));
        f.Tick();
        QCOMPARE(f.SelectedText(), QStringLiteral("Nodes"));
        QVERIFY(!f.Enabled("cmdDatabaseRemove"));
        QVERIFY(!f.Enabled("cmdDatabaseProp"));
        QVERIFY(f.Enabled("cmdDatabaseAdd"));
    }

    void Patch_NodeOnAnEmptySelectedConnection_OffersToLoadIt()
    {
        CommandFixture f;
        f.Component.Store.SaveParent(QStringLiteral("Empty"), CommandFixture::AlphaTarget());
        f.Tick();
        f.View(QStringLiteral("connections"));
        f.Click("tvwConTree", f.Con(QStringLiteral("Empty")));
        QVERIFY(!f.Enabled("cmdLoadMore"));
        f.Component.Store.SaveNode(QStringLiteral("West"), QString(), CommandFixture::NodeTarget(30),
                                   QStringLiteral("Empty"), QString());
        f.Tick();
        QVERIFY(f.Enabled("cmdLoadMore"));
        QCOMPARE(f.ConEntries().ChildCount(f.Con(QStringLiteral("Empty"))), 0);
        f.DoubleClick("tvwConTree", f.Con(QStringLiteral("Empty")));
        QCOMPARE(f.ConEntries().ChildCount(f.Con(QStringLiteral("Empty"))), 1);
    }

    void Patch_OfTheSelectedConnection_ClosesItAlone()
    {
        CommandFixture f;
        f.Select(QStringLiteral("connections"), QStringLiteral("con/Alpha"));
        f.ChangeElsewhere(QStringLiteral("con/Alpha"));
        f.Tick();
        QCOMPARE(f.SelectedText(), QStringLiteral("Alpha"));
        QCOMPARE(f.ConEntries().ChildCount(f.Con(QStringLiteral("Alpha"))), 0);
        QCOMPARE(f.ConEntries().ChildCount(f.Con(QStringLiteral("Beta"))), 1);
        QVERIFY(f.Enabled("cmdLoadMore"));
        f.DoubleClick("tvwConTree", f.Con(QStringLiteral("Alpha")));
        QCOMPARE(f.ConEntries().ChildCount(f.Con(QStringLiteral("Alpha"))), 2);
    }

    void Patch_NodeOnAConnectionThatCouldNotBeLoaded_DoesNotPassForAll()
    {
        CommandFixture f;
        f.ShowConnections();
        f.Find<QCheckBox>("chkViewNodes").setChecked(true);
        f.Component.FailTimes(QStringLiteral("GetParentNodesWithIdEx"), 1);
        f.DoubleClick("tvwConTree", f.Con(QStringLiteral("Alpha")));
        QVERIFY(!f.ConEntries().Expanded(f.Con(QStringLiteral("Alpha"))));
        f.ChangeElsewhere(QStringLiteral("node/North"));
        f.Tick();
        QCOMPARE(f.ConEntries().ChildCount(f.Con(QStringLiteral("Alpha"))), 0);
        f.DoubleClick("tvwConTree", f.Con(QStringLiteral("Alpha")));
        QCOMPARE(f.ConEntries().ChildCount(f.Con(QStringLiteral("Alpha"))), 2);
    }

    void Reload_SelectedNodeBelow_StaysSelectedAndOpen()
    {
        CommandFixture f;
        f.Select(QStringLiteral("connections"), QStringLiteral("node/South"));
        const QString target = f.TargetText();
        Load().ReloadDue = true;
        f.Tick();
        QCOMPARE(f.Component.Count(QStringLiteral("QueryParentsWithID")), 1);
        QCOMPARE(f.SelectedText(), QStringLiteral("South"));
        QVERIFY(f.ConEntries().Expanded(f.Con(QStringLiteral("Alpha"))));
        QCOMPARE(f.TargetText(), target);
        QVERIFY(f.Enabled("cmdDatabaseRemove"));
    }

    void StaleEntry_Clicked_IsCurrentBehindTheRefresh()
    {
        PlaceFixture f;
        f.Select(QStringLiteral("connections"), QStringLiteral("none"));
        const TreeEntries::Index north = f.ConNode(QStringLiteral("North"));
        f.ChangeElsewhere(QStringLiteral("node/North"));
        f.Click("tvwConTree", north);
        QCOMPARE(f.Operator.Texts(), QStringList{CommandFixture::ChangedText(QStringLiteral("Node North"))});
        QCOMPARE(f.ConNode(QStringLiteral("North")), north);
        f.Forget();
        f.Click("tvwConTree", north);
        QCOMPARE(f.Operator.Texts(), QStringList());
        QVERIFY(!f.TargetText().isEmpty());
    }

    void OwnSave_SeenAgain_KeepsItsConnectionOpen()
    {
        CommandFixture f;
        f.Select(QStringLiteral("connections"), QStringLiteral("node/North"));
        f.Press("cmdDatabaseRemove");
        f.Tick();
        QVERIFY(f.ConEntries().Expanded(f.Con(QStringLiteral("Alpha"))));
        QCOMPARE(f.ConEntries().ChildCount(f.Con(QStringLiteral("Alpha"))), 1);
    }

    // Several controls -------------------------------------------------------------------------------------

    void TwoControls_AnyRefreshes_BothAreCurrent()
    {
        CommandFixture f;
        f.Component.Store.DeleteNode(QStringLiteral("Mid"));
        T4ZelkaBrowser second;
        second.show();
        auto& nodes = static_cast<TreeEntries&>(*Child<TreeView>(second, "tvwNodesTree").model());
        QCOMPARE(nodes.ChildCount(1), 2);
        QCOMPARE(f.NodeEntries().ChildCount(1), 3);
        f.Tick();
        QCOMPARE(f.NodeEntries().ChildCount(1), 2);
        f.ChangeElsewhere(QStringLiteral("node/North"));
        f.Component.Store.DeleteNode(QStringLiteral("South"));
        Child<QPushButton>(second, "cmdRefresh").click();
        for (const TreeEntries* tree : {&f.NodeEntries(), &nodes}) {
            QCOMPARE(tree->ChildCount(1), 1);
            QCOMPARE(tree->Id(tree->Child(1, 0)), f.Component.Store.Now.lastRecordId);
        }
    }

    void TwoControls_RecordsMissed_BothAreLoaded()
    {
        CommandFixture f;
        T4ZelkaBrowser second;
        second.show();
        auto& nodes = static_cast<TreeEntries&>(*Child<TreeView>(second, "tvwNodesTree").model());
        f.Component.Store.DeleteNode(QStringLiteral("Mid"));
        f.Component.Store.DeleteNode(QStringLiteral("South"));
        f.Component.Store.JournalClearByRecordLimit(1, 1);
        f.Tick();
        QCOMPARE(f.NodeEntries().ChildCount(1), 1);
        QCOMPARE(nodes.ChildCount(1), 1);
        QCOMPARE(f.Operator.Texts().size(), 1);
    }

    void ControlDestroyed_UnderTheBox_EndsTheRefresh_data()
    {
        QTest::addColumn<QString>("method");
        QTest::newRow("reload") << QString();
        QTest::newRow("failure") << QStringLiteral("GetJournalLastId");
    }
    void ControlDestroyed_UnderTheBox_EndsTheRefresh()
    {
        QFETCH(const QString, method);
        CommandFixture f;
        f.Component.Store.DeleteNode(QStringLiteral("Mid"));
        f.Component.Store.DeleteNode(QStringLiteral("South"));
        f.Component.Store.JournalClearByRecordLimit(1, 1);
        if (!method.isEmpty())
            f.Component.Fail(method);
        f.Operator.WhileOpen = [&](const RecordedBox&) { f.Control.reset(); };
        f.Tick();
        QVERIFY(!f.Control);
        QCOMPARE(Browser().Busy, 0);
        QCOMPARE(f.Component.Store.Levels(), 0);
    }

    // As of when -------------------------------------------------------------------------------------------

    void Line_DatabaseCannotBeRead_TellsSinceWhen_data()
    {
        QTest::addColumn<QString>("method");
        QTest::newRow("not begun") << QStringLiteral("BeginTransaction");
        QTest::newRow("failed") << QStringLiteral("GetJournalLastId");
    }
    void Line_DatabaseCannotBeRead_TellsSinceWhen()
    {
        QFETCH(const QString, method);
        PlaceFixture f;
        QVERIFY(f.Line().isHidden());
        f.SetClock(Noon);
        f.Tick();
        QVERIFY(f.Line().isHidden());
        f.SetClock(Noon.addSecs(3600));
        f.Component.Fail(method);
        f.Tick();
        QVERIFY(f.Line().isVisible());
        QCOMPARE(f.Line().text(), QStringLiteral("As of 12:00; the database cannot be read now."));
        f.SetClock(Noon.addDays(1));
        f.Tick();
        QCOMPARE(f.Line().text(), QStringLiteral("As of 04/03/2026 12:00; the database cannot be read now."));
        QCOMPARE(f.NodeEntries().ChildCount(1), 63);

        f.Component.Repair();
        f.Tick();
        QVERIFY(f.Line().isHidden());
        f.Component.Fail(method);
        f.Tick();
        QCOMPARE(f.Line().text(), QStringLiteral("As of 12:00; the database cannot be read now."));
    }

    void Line_ReloadNotWhole_StaysUntilOneIs()
    {
        PlaceFixture f;
        Load().ReloadDue = true;
        f.Component.Fail(QStringLiteral("QueryParentsWithID"));
        f.Tick();
        QVERIFY(f.Line().isVisible());
        f.Component.Repair();
        f.Tick();
        QVERIFY(f.Line().isHidden());
    }

    void Line_NeverLoaded_TellsNoTime()
    {
        PlaceFixture f;
        Load().AsOf = QDateTime();
        f.Component.Fail(QStringLiteral("BeginTransaction"));
        f.Tick();
        QCOMPARE(f.Line().text(), QStringLiteral("The database cannot be read now."));
    }

    void Line_Narrow_WrapsAndIsDescribed()
    {
        PlaceFixture f;
        const int width = f.Control->minimumSizeHint().width();
        const int height = f.Find<TreeView>("tvwNodesTree").height();
        f.Component.Fail(QStringLiteral("BeginTransaction"));
        f.Tick();
        QVERIFY(f.Line().wordWrap());
        // Its text is its name, which a name of its own would hide.
        QVERIFY(f.Line().accessibleName().isEmpty());
        QVERIFY(!f.Line().accessibleDescription().isEmpty());
        QCOMPARE(f.Control->minimumSizeHint().width(), width);
        f.Component.Repair();
        f.Tick();
        QCoreApplication::processEvents();
        QCOMPARE(f.Find<TreeView>("tvwNodesTree").height(), height);
    }
};

QTEST_MAIN(TestRefreshPlace)
#include "TestRefreshPlace.moc"
