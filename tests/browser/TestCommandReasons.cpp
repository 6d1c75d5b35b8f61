#include "platform/controls/DisabledReason.h"
#include "tests/browser/BrowserTestSupport.h"

#include <QComboBox>
#include <QTabWidget>

namespace {

/// Connection Alpha with a managed node North and a plain node Mid, connection Gamma of an SNMP type.
class ReasonsFixture : public BrowserFixture
{
public:
    explicit ReasonsFixture(bool scan = true, bool edit = true)
    {
        TinyDatabase& store = Component.Store;
        store.ScanRight = scan;
        store.EditRight = edit;
        store.AddConnection(QStringLiteral("Alpha"), QStringLiteral("WP=BUST4,ID=254"));
        store.AddConnection(QStringLiteral("Gamma"), QStringLiteral("WP=SNMP"));
        store.AddNode(QStringLiteral("North"), QStringLiteral("Alpha"), QStringLiteral("DEV1"),
                      QStringLiteral("WP=NET4,ADDR=17"));
        store.AddNode(QStringLiteral("Mid"), QStringLiteral("Alpha"), QString(),
                      QStringLiteral("WP=NET4,ADDR=1"));
        store.Managers = {{QStringLiteral("1"), QStringLiteral("DEV1"), QStringLiteral("/opt/dev1")}};
        Component.Answer(QStringLiteral("AnalyzeConType(WP=SNMP)"), {QStringLiteral("14\tSNMP")});
        Component.Answer(QStringLiteral("GetTargetItemList(WP=SNMP)"), {QStringLiteral("1\t1\tWP\tSNMP")});
        StartOnDatabasePage();
    }

    void ClickConnection(const char* name) const
    {
        Click("tvwConTree", ConEntries().FindByText(QString::fromLatin1(name), false));
    }
    void ClickNode(const char* tree, const char* name) const
    {
        Click(tree, Entries(tree).FindByText(QString::fromLatin1(name), true));
    }
    /// What stands behind the usual tool tip; empty for a command that can be given.
    [[nodiscard]] QString Reason(const char* button) const
    {
        const QWidget& command = Find<QWidget>(button);
        const QString reason = command.toolTip().section(QLatin1Char('\n'), 1);
        // Those who listen are told the same.
        if (!command.accessibleDescription().endsWith(reason))
            qFatal("the description of %s tells something else", button);
        if (command.isEnabled() != reason.isEmpty())
            qFatal("%s has a reason and can be given, or has none and cannot", button);
        return reason;
    }
};

} // namespace

#define COMPARE_REASON(fixture, button, reason) QCOMPARE((fixture).Reason(button), ReasonText(reason))

/// Why commands are disabled.
class TestCommandReasons : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void NodeView_Root_TellsToSelect()
    {
        ReasonsFixture f;
        f.Click("tvwNodesTree", 1);
        COMPARE_REASON(f, "cmdDatabaseAdd", DisabledReason::None);
        COMPARE_REASON(f, "cmdDatabaseProp", DisabledReason::RootSelected);
        COMPARE_REASON(f, "cmdDatabaseRemove", DisabledReason::RootSelected);
        COMPARE_REASON(f, "cmdDbScan", DisabledReason::ScanInNodeView);
        COMPARE_REASON(f, "cmdDatabaseManage", DisabledReason::NoNodeSelected);
        COMPARE_REASON(f, "cmdLoadMore", DisabledReason::AllLoaded);
    }

    void NodeView_NodeWithoutManager_TellsIt()
    {
        ReasonsFixture f;
        f.ClickNode("tvwNodesTree", "Mid");
        COMPARE_REASON(f, "cmdDatabaseManage", DisabledReason::NoManager);
        COMPARE_REASON(f, "cmdDatabaseProp", DisabledReason::None);
        f.ClickNode("tvwNodesTree", "North");
        COMPARE_REASON(f, "cmdDatabaseManage", DisabledReason::None);
    }

    void ConnectionView_AnySelection_TellsTheReason()
    {
        ReasonsFixture f;
        f.ShowConnections();
        f.Click("tvwConTree", 1);
        COMPARE_REASON(f, "cmdDbScan", DisabledReason::NoConnectionSelected);
        COMPARE_REASON(f, "cmdDatabaseManage", DisabledReason::NodesNotViewed);
        COMPARE_REASON(f, "cmdLoadMore", DisabledReason::NodesNotViewed);
        f.ClickConnection("Gamma");
        COMPARE_REASON(f, "cmdDbScan", DisabledReason::SnmpConnection);
        f.ClickConnection("Alpha");
        COMPARE_REASON(f, "cmdDbScan", DisabledReason::None);
    }

    void ConnectionView_WaypointBehindTheRoot_TellsOfIt()
    {
        ReasonsFixture f;
        f.ShowConnections();
        const TreeEntries::Index alpha = f.ConEntries().FindByText(QStringLiteral("Alpha"), false);
        f.DoubleClick("tvwConTree", alpha);
        f.Click("tvwConTree", 1);
        f.Click("tvwConTree", f.ConEntries().Child(alpha, 0));
        COMPARE_REASON(f, "cmdDatabaseProp", DisabledReason::WaypointSelected);
        COMPARE_REASON(f, "cmdDbScan", DisabledReason::WaypointSelected);
    }

    void ConnectionView_NodesViewed_TellsTheReason()
    {
        ReasonsFixture f;
        f.ShowConnections();
        f.Find<QCheckBox>("chkViewNodes").setChecked(true);
        f.DoubleClick("tvwConTree", f.ConEntries().FindByText(QStringLiteral("Alpha"), false));
        COMPARE_REASON(f, "cmdLoadMore", DisabledReason::AllLoadedHere);
        COMPARE_REASON(f, "cmdDatabaseManage", DisabledReason::NoNodeSelected);
        f.ClickNode("tvwConTree", "Mid");
        COMPARE_REASON(f, "cmdDatabaseAdd", DisabledReason::AddBelowNode);
        COMPARE_REASON(f, "cmdDbScan", DisabledReason::NodeSelected);
        f.Click("tvwConTree", 1);
        COMPARE_REASON(f, "cmdLoadMore", DisabledReason::NoConnectionSelected);
    }

    void Rights_Missing_ComeFirst()
    {
        ReasonsFixture f(false, false);
        f.ShowConnections();
        f.ClickConnection("Alpha");
        COMPARE_REASON(f, "cmdDatabaseAdd", DisabledReason::NoEditRight);
        COMPARE_REASON(f, "cmdDatabaseRemove", DisabledReason::NoEditRight);
        COMPARE_REASON(f, "cmdDbScan", DisabledReason::NoScanRight);
        COMPARE_REASON(f, "cmdScan", DisabledReason::NoScanRight);
    }

    void DirectPage_Connections_TellTheReason()
    {
        ReasonsFixture f;
        auto& pages = f.Find<QTabWidget>("tabMain");
        auto& names = f.Find<QComboBox>("cboDirectConName");
        auto& nodePages = f.Find<QTabWidget>("tabNode");
        pages.setCurrentIndex(1);
        const auto choose = [&](const char* name) {
            names.setCurrentText(QString::fromLatin1(name));
            names.setCurrentIndex(names.findText(QString::fromLatin1(name)));
            Q_EMIT names.activated(names.currentIndex());
        };
        choose("Gamma");
        COMPARE_REASON(f, "cmdScan", DisabledReason::SnmpConnection);
        QCOMPARE(nodePages.tabToolTip(0), ReasonText(DisabledReason::SnmpConnection));
        QCOMPARE(nodePages.tabToolTip(1), ReasonText(DisabledReason::SnmpConnection));
        QVERIFY(nodePages.tabToolTip(2).isEmpty());
        choose("Alpha");
        COMPARE_REASON(f, "cmdScan", DisabledReason::None);
        QVERIFY(nodePages.tabToolTip(0).isEmpty());
        QCOMPARE(nodePages.tabToolTip(2), ReasonText(DisabledReason::OnlySnmpConnection));
    }

    void NoDatabase_AllCommands_TellIt()
    {
        BrowserFixture f;
        f.Component.Fail(QStringLiteral("OpenDatabase"), DatabaseErrorNumber::SourceMissing);
        f.Start();
        QVERIFY(!Database().DatabaseOpen);
        const QString reason = ReasonText(DisabledReason::DatabaseClosed);
        for (const char* button : {"cmdDatabaseAdd", "cmdDatabaseProp", "cmdDbScan", "cmdLoadMore"})
            QVERIFY2(f.Find<QWidget>(button).toolTip().endsWith(reason), button);
        QCOMPARE(f.Find<QTabWidget>("tabMain").tabToolTip(0), reason);
    }

    void Selection_ChangedWithoutAClick_ChangesTheReason()
    {
        ReasonsFixture f;
        f.Click("tvwNodesTree", 1);
        f.Find<TreeView>("tvwNodesTree").SelectIndex({});
        COMPARE_REASON(f, "cmdDatabaseProp", DisabledReason::NothingSelected);
    }
};

QTEST_MAIN(TestCommandReasons)
#include "TestCommandReasons.moc"
