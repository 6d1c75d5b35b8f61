#include "tests/browser/BrowserTestSupport.h"
#include "tests/support/ModalForms.h"

#include <QComboBox>
#include <QTabWidget>
#include <QTest>

namespace {

const QString DatabaseTopic = QStringLiteral("Zelka_Connection_Tool_Overview.htm#DatabaseTab1");
const QString DirectTopic = QStringLiteral("Zelka_Connection_Tool_Overview.htm#DirectTab1");

/// Connection Alpha with a managed node North, connection Gamma of an SNMP type with node South, connection
/// Empty without nodes.
class ButtonsFixture : public BrowserFixture
{
public:
    explicit ButtonsFixture(bool scan = true, bool edit = true)
    {
        TinyDatabase& store = Component.Store;
        store.ScanRight = scan;
        store.EditRight = edit;
        store.AddConnection(QStringLiteral("Alpha"), QStringLiteral("WP=BUST4,ID=254"));
        store.AddConnection(QStringLiteral("Gamma"), QStringLiteral("WP=SNMP"));
        store.AddConnection(QStringLiteral("Empty"), QStringLiteral("WP=BUST4,ID=3"));
        store.AddNode(QStringLiteral("North"), QStringLiteral("Alpha"), QStringLiteral("DEV1"),
                      QStringLiteral("WP=NET4,ADDR=17"));
        store.AddNode(QStringLiteral("South"), QStringLiteral("Gamma"), QString(),
                      QStringLiteral("WP=NET4,ADDR=1"));
        store.Managers = {{QStringLiteral("1"), QStringLiteral("DEV1"), QStringLiteral("/opt/dev1")}};
        Component.Answer(QStringLiteral("AnalyzeConType(WP=SNMP)"), {QStringLiteral("14\tSNMP")});
        Component.Answer(QStringLiteral("GetTargetItemList(WP=SNMP)"), {QStringLiteral("1\t1\tWP\tSNMP")});
        StartOnDatabasePage();
    }

    TreeEntries::Index Con(const QString& name) const { return ConEntries().FindByText(name, false); }

    /// Selects by a text such as "con/Alpha", "wp/Alpha", "node/North", "root", "none".
    void Select(bool connectionView, bool viewNodes, const QString& what) const
    {
        if (connectionView) {
            ShowConnections();
            Find<QCheckBox>("chkViewNodes").setChecked(viewNodes);
            for (const char* name : {"Alpha", "Gamma"})
                DoubleClick("tvwConTree", Con(QString::fromLatin1(name)));
        }
        const char* tree = connectionView ? "tvwConTree" : "tvwNodesTree";
        const QString name = what.section(QLatin1Char('/'), 1);
        if (what == QLatin1String("root"))
            Click(tree, 1);
        else if (what.startsWith(QLatin1String("con/")))
            Click(tree, Con(name));
        else if (what.startsWith(QLatin1String("wp/")))
            Click(tree, ConEntries().Child(Con(name), 0));
        else if (what.startsWith(QLatin1String("node/")))
            Click(tree, Entries(tree).FindByText(name, true));
        else
            Find<TreeView>(tree).SelectIndex({});
    }
    /// Which commands can be pressed: A P R S M L for Add, Properties, Remove, Scan, Manage, Load More.
    [[nodiscard]] QString Buttons() const
    {
        QString enabled;
        const std::pair<const char*, char> buttons[] = {{"cmdDatabaseAdd", 'A'},    {"cmdDatabaseProp", 'P'},
                                                        {"cmdDatabaseRemove", 'R'}, {"cmdDbScan", 'S'},
                                                        {"cmdDatabaseManage", 'M'}, {"cmdLoadMore", 'L'}};
        for (const auto& [name, letter] : buttons)
            enabled += Enabled(name) ? QLatin1Char(letter) : QLatin1Char('-');
        return enabled;
    }
    void Key(const char* tree, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(&Find<TreeView>(tree), key, modifiers);
    }
};

} // namespace

class TestBrowserButtons : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Selection_RightsAndView_EnableTheCommands_data()
    {
        QTest::addColumn<bool>("scan");
        QTest::addColumn<bool>("edit");
        QTest::addColumn<int>("view"); // 0 nodes, 1 connections with waypoints, 2 connections with nodes
        QTest::addColumn<QString>("selected");
        QTest::addColumn<QString>("buttons");
        const auto row = [](bool scan, bool edit, int view, const char* selected, const char* buttons) {
            static const char* const views[] = {"nodes", "waypoints", "connections"};
            QTest::addRow("%s%s%s %s", scan ? "scan " : "", edit ? "edit " : "", views[view], selected)
                << scan << edit << view << QString::fromLatin1(selected) << QString::fromLatin1(buttons);
        };
        row(true, true, 0, "root", "A-----");
        row(true, true, 0, "node/North", "APR-M-");
        row(true, true, 0, "node/South", "APR---");
        row(true, true, 1, "root", "A-----");
        row(true, true, 1, "con/Alpha", "APRS--");
        row(true, true, 1, "con/Gamma", "APR---");
        row(true, true, 2, "root", "A-----");
        row(true, true, 2, "con/Alpha", "APRS--");
        row(true, true, 2, "con/Gamma", "APR---");
        row(true, true, 2, "con/Empty", "APRS--");
        row(true, true, 2, "node/North", "-PR-M-");
        row(true, true, 2, "node/South", "-PR---");
        row(false, true, 1, "con/Alpha", "APR---");
        row(true, false, 1, "con/Alpha", "-P-S--");
        row(false, false, 1, "con/Alpha", "-P----");
        row(true, false, 2, "node/North", "-P--M-");
        row(true, false, 0, "node/North", "-P--M-");
        row(true, false, 0, "root", "------");
        row(false, false, 0, "node/South", "-P----");
    }
    void Selection_RightsAndView_EnableTheCommands()
    {
        QFETCH(const bool, scan);
        QFETCH(const bool, edit);
        QFETCH(const int, view);
        QFETCH(const QString, selected);
        QFETCH(const QString, buttons);
        ButtonsFixture f(scan, edit);
        f.Select(view > 0, view == 2, selected);
        QCOMPARE(f.Buttons(), buttons);
        QCOMPARE(f.Enabled("cmdScan"), false);
    }

    void ClosedConnectionWithNodes_ViewNodes_OffersLoadMore()
    {
        ButtonsFixture f;
        f.ShowConnections();
        f.Find<QCheckBox>("chkViewNodes").setChecked(true);
        f.Click("tvwConTree", f.Con(QStringLiteral("Alpha")));
        QCOMPARE(f.Buttons(), QStringLiteral("APRS-L"));
        f.Click("tvwConTree", f.Con(QStringLiteral("Empty")));
        QCOMPARE(f.Buttons(), QStringLiteral("APRS--"));
    }

    void ViewNodes_Switched_JudgesTheSelectedConnectionAnew()
    {
        ButtonsFixture f;
        f.ShowConnections();
        f.Click("tvwConTree", f.Con(QStringLiteral("Alpha")));
        QCOMPARE(f.Buttons(), QStringLiteral("APRS--"));
        f.Find<QCheckBox>("chkViewNodes").setChecked(true);
        QCOMPARE(f.Buttons(), QStringLiteral("APRS-L"));
        f.Find<QCheckBox>("chkViewNodes").setChecked(false);
        QCOMPARE(f.Buttons(), QStringLiteral("APRS--"));
    }

    void SnmpFamily_ByIdOrName_OffersNoScan_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<bool>("scan");
        QTest::newRow("its id") << QStringLiteral("15\tOTHER") << false;
        QTest::newRow("its name") << QStringLiteral("0\tmySnmp2") << false;
        QTest::newRow("neither") << QStringLiteral("0\tT4BUS") << true;
    }
    void SnmpFamily_ByIdOrName_OffersNoScan()
    {
        QFETCH(const QString, type);
        QFETCH(const bool, scan);
        ButtonsFixture f;
        f.Component.Answer(QStringLiteral("AnalyzeConType"), {type});
        f.Component.Answer(QStringLiteral("GetConTypeLongName"), {QStringLiteral("Type")});
        f.Component.Answer(QStringLiteral("GetConTypeWpList"), {QStringLiteral("BUST4\t1")});
        f.ShowConnections();
        f.Click("tvwConTree", f.Con(QStringLiteral("Alpha")));
        QVERIFY(f.Enabled("cmdDatabaseProp"));
        QCOMPARE(f.Enabled("cmdDbScan"), scan);
    }

    void NothingSelected_AddAndManageStay_ViewNodesDecidesOnManage()
    {
        ButtonsFixture f;
        QCOMPARE(f.Buttons(), QStringLiteral("A---M-"));
        f.ShowConnections();
        QCOMPARE(f.Buttons(), QStringLiteral("A-----"));
        f.Find<QCheckBox>("chkViewNodes").setChecked(true);
        f.Find<QRadioButton>("optNodes").setChecked(true);
        f.ShowConnections();
        QCOMPARE(f.Buttons(), QStringLiteral("A---M-"));
    }

    void WaypointSelected_AfterAChangeOfView_IsJudgedByItsConnection()
    {
        ButtonsFixture f;
        f.Select(true, false, QStringLiteral("wp/Gamma"));
        f.Find<QRadioButton>("optNodes").setChecked(true);
        f.ShowConnections();
        QCOMPARE(f.Buttons(), QStringLiteral("APR---"));
        f.Select(true, false, QStringLiteral("wp/Alpha"));
        f.Find<QRadioButton>("optNodes").setChecked(true);
        f.ShowConnections();
        QCOMPARE(f.Buttons(), QStringLiteral("APRS--"));
    }

    void FailedCount_ClosedConnection_LeavesLoadMoreAsItWas()
    {
        ButtonsFixture f;
        f.ShowConnections();
        f.Find<QCheckBox>("chkViewNodes").setChecked(true);
        f.Click("tvwConTree", f.Con(QStringLiteral("Alpha")));
        f.Component.Fail(QStringLiteral("GetParentNodesCount"));
        f.Click("tvwConTree", f.Con(QStringLiteral("Empty")));
        QVERIFY(f.Enabled("cmdLoadMore"));
    }

    // Keys -------------------------------------------------------------------------------------------------

    void KeyInATree_Command_PressesItsButton_data()
    {
        QTest::addColumn<int>("view");
        QTest::addColumn<QString>("selected");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<int>("removes");
        QTest::addColumn<int>("properties");
        const int shift = Qt::ShiftModifier;
        const QString alpha = QStringLiteral("con/Alpha");
        const QString north = QStringLiteral("node/North");
        QTest::newRow("connection, Delete") << 1 << alpha << int(Qt::Key_Delete) << 0 << 1 << 0;
        QTest::newRow("connection, Shift+Delete") << 1 << alpha << int(Qt::Key_Delete) << shift << 0 << 0;
        QTest::newRow("connection, period") << 1 << alpha << int(Qt::Key_Period) << 0 << 1 << 0;
        QTest::newRow("connection, Enter") << 1 << alpha << int(Qt::Key_Return) << 0 << 0 << 1;
        QTest::newRow("connection, keypad Enter")
            << 1 << alpha << int(Qt::Key_Enter) << int(Qt::KeypadModifier) << 0 << 1;
        QTest::newRow("connection, Shift+Enter") << 1 << alpha << int(Qt::Key_Return) << shift << 0 << 1;
        QTest::newRow("node below, Enter") << 2 << north << int(Qt::Key_Return) << 0 << 0 << 1;
        QTest::newRow("root, Enter") << 1 << QStringLiteral("root") << int(Qt::Key_Return) << 0 << 0 << 0;
        QTest::newRow("root, Delete") << 1 << QStringLiteral("root") << int(Qt::Key_Delete) << 0 << 0 << 0;
        QTest::newRow("node, Delete") << 0 << north << int(Qt::Key_Delete) << 0 << 1 << 0;
        QTest::newRow("node, Shift+Delete") << 0 << north << int(Qt::Key_Delete) << shift << 0 << 0;
        QTest::newRow("node, period") << 0 << north << int(Qt::Key_Period) << 0 << 0 << 0;
        QTest::newRow("node, Enter") << 0 << north << int(Qt::Key_Return) << 0 << 0 << 1;
    }
    void KeyInATree_Command_PressesItsButton()
    {
        QFETCH(const int, view);
        QFETCH(const QString, selected);
        QFETCH(const int, key);
        QFETCH(const int, modifiers);
        QFETCH(const int, removes);
        QFETCH(const int, properties);
        ButtonsFixture f;
        f.Select(view > 0, view == 2, selected);
        int removed = 0;
        int shown = 0;
        connect(&f.Find<QPushButton>("cmdDatabaseRemove"), &QPushButton::clicked, [&] { ++removed; });
        connect(&f.Find<QPushButton>("cmdDatabaseProp"), &QPushButton::clicked, [&] { ++shown; });
        f.Key(view > 0 ? "tvwConTree" : "tvwNodesTree", Qt::Key(key), Qt::KeyboardModifiers(modifiers));
        QCOMPARE(removed, removes);
        QCOMPARE(shown, properties);
    }

    void KeyInATree_AnyOtherKey_SelectsFirst()
    {
        ButtonsFixture f;
        f.Select(false, false, QStringLiteral("node/North"));
        f.Find<QLineEdit>("txtTarget").clear();
        f.Key("tvwNodesTree", Qt::Key_Shift);
        QVERIFY(!f.TargetText().isEmpty());

        f.Select(true, false, QStringLiteral("con/Alpha"));
        f.Find<QLineEdit>("txtTarget").clear();
        f.Key("tvwConTree", Qt::Key_Shift);
        QVERIFY(!f.TargetText().isEmpty());
    }

    void EnterOnAClosedConnection_OpensIt()
    {
        ButtonsFixture f;
        f.ShowConnections();
        f.Click("tvwConTree", f.Con(QStringLiteral("Alpha")));
        f.Key("tvwConTree", Qt::Key_Return);
        QCOMPARE(f.ConEntries().ChildCount(f.Con(QStringLiteral("Alpha"))), 1);
        f.Click("tvwConTree", f.Con(QStringLiteral("Empty")));
        QCOMPARE(f.Control->Sobriquet(), QStringLiteral("Empty"));
    }

    void ArrowKey_InATree_SelectsTheNextEntry()
    {
        ButtonsFixture f;
        f.Select(false, false, QStringLiteral("node/North"));
        f.Key("tvwNodesTree", Qt::Key_Down);
        QCOMPARE(f.Control->Sobriquet(), QStringLiteral("South"));
    }

    void F1_Anywhere_AsksForItsTopic_data()
    {
        QTest::addColumn<QByteArray>("control");
        QTest::addColumn<int>("page");
        QTest::addColumn<QString>("topic");
        QTest::newRow("connection tree") << QByteArray("tvwConTree") << 0 << DatabaseTopic;
        QTest::newRow("node tree") << QByteArray("tvwNodesTree") << 0 << DatabaseTopic;
        QTest::newRow("pages, database") << QByteArray("tabMain") << 0 << DatabaseTopic;
        QTest::newRow("pages, direct") << QByteArray("tabMain") << 1 << DirectTopic;
        QTest::newRow("node pages") << QByteArray("tabNode") << 1 << DirectTopic;
    }
    void F1_Anywhere_AsksForItsTopic()
    {
        QFETCH(const QByteArray, control);
        QFETCH(const int, page);
        QFETCH(const QString, topic);
        ButtonsFixture f;
        f.Find<QTabWidget>("tabMain").setCurrentIndex(page);
        f.Component.TakeCalls();
        QStringList topics;
        Help().ShowHelpTopic = [&](const QString& asked) { topics << asked; };
        QWidget* widget = &f.Find<QWidget>(control);
        if (auto* tabs = qobject_cast<QTabWidget*>(widget))
            widget = tabs->tabBar();
        QTest::keyClick(widget, Qt::Key_F1);
        QCOMPARE(topics, QStringList{topic});
        QCOMPARE(f.Component.Calls, QStringList());
    }

    void HelpButton_EitherPage_AsksForItsTopic()
    {
        ButtonsFixture f;
        f.Find<QPushButton>("cmdDatabaseHelp").click(); // without help nothing happens
        QStringList topics;
        Help().ShowHelpTopic = [&](const QString& asked) { topics << asked; };
        f.Find<QPushButton>("cmdDatabaseHelp").click();
        f.Find<QPushButton>("cmdDirectHelp").click();
        QCOMPARE(topics, QStringList({DatabaseTopic, DirectTopic}));
    }

    void CtrlF_OnThePages_PressesFindOnTheFirstAlone()
    {
        ButtonsFixture f;
        f.Control->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(f.Control.get()));
        int pressed = 0;
        connect(&f.Find<QToolButton>("FindElement"), &QToolButton::clicked, [&] { ++pressed; });
        f.Find<TreeView>("tvwNodesTree").setFocus();
        ModalForms::InNextDialog([](QDialog& dialog) { dialog.reject(); });
        f.Key("tvwNodesTree", Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(pressed, 1);
        f.Find<QTabWidget>("tabMain").setCurrentIndex(1);
        f.Find<QLineEdit>("txtTarget").setFocus();
        QTest::keyClick(&f.Find<QLineEdit>("txtTarget"), Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(pressed, 1);
    }

    void TabKey_OnTheTabs_MovesTheFocus_data()
    {
        QTest::addColumn<QByteArray>("from");
        QTest::addColumn<int>("page");
        QTest::addColumn<int>("nodePage");
        QTest::addColumn<bool>("connections");
        QTest::addColumn<bool>("shift");
        QTest::addColumn<QByteArray>("to");
        const QByteArray tabMain("tabMain");
        const QByteArray tabNode("tabNode");
        QTest::newRow("nodes") << tabMain << 0 << 0 << false << false << QByteArray("tvwNodesTree");
        QTest::newRow("connections") << tabMain << 0 << 0 << true << false << QByteArray("tvwConTree");
        QTest::newRow("direct") << tabMain << 1 << 0 << false << false << QByteArray("cboDirectConName");
        QTest::newRow("NET4") << tabNode << 1 << 0 << false << false << QByteArray("txtAddress");
        QTest::newRow("NEMML") << tabNode << 1 << 1 << false << false << QByteArray("txtUserName");
        QTest::newRow("SNMP") << tabNode << 1 << 2 << false << false << QByteArray("txtHost");
        QTest::newRow("back") << tabNode << 1 << 2 << false << true << QByteArray("cmdDirectHelp");
    }
    void TabKey_OnTheTabs_MovesTheFocus()
    {
        QFETCH(const QByteArray, from);
        QFETCH(const int, page);
        QFETCH(const int, nodePage);
        QFETCH(const bool, connections);
        QFETCH(const bool, shift);
        QFETCH(const QByteArray, to);
        ButtonsFixture f;
        if (connections)
            f.ShowConnections();
        f.Find<QTabWidget>("tabMain").setCurrentIndex(page);
        // The page of SNMP nodes is offered behind such a connection alone.
        f.Find<QTabWidget>("tabNode").setTabEnabled(nodePage, true);
        f.Find<QTabWidget>("tabNode").setCurrentIndex(nodePage);
        f.Control->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(f.Control.get()));
        QTabBar* bar = f.Find<QTabWidget>(from).tabBar();
        bar->setFocus();
        QTest::keyClick(bar, shift ? Qt::Key_Backtab : Qt::Key_Tab,
                        shift ? Qt::ShiftModifier : Qt::NoModifier);
        QCOMPARE(f.Control->focusWidget(), &f.Find<QWidget>(to));
    }

    void TabKey_OnScan_LeadsToThePages()
    {
        ButtonsFixture f;
        f.Find<QTabWidget>("tabMain").setCurrentIndex(1);
        f.Control->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(f.Control.get()));
        auto& scan = f.Find<QPushButton>("cmdScan");
        scan.setEnabled(true);
        scan.setFocus();
        QTest::keyClick(&scan, Qt::Key_Tab);
        QCOMPARE(f.Control->focusWidget(), f.Find<QTabWidget>("tabMain").tabBar());
    }

    void TabMain_TurnedPage_MovesTheTabStops()
    {
        ButtonsFixture f;
        auto& tabMain = f.Find<QTabWidget>("tabMain");
        const QList<QByteArray> database = {"tvwNodesTree",      "optCon",         "optNodes",
                                            "chkViewNodes",      "cmdDatabaseAdd", "cmdDatabaseRemove",
                                            "cmdDatabaseProp",   "cmdDbScan",      "cmdDatabaseHelp",
                                            "cmdDatabaseManage", "cmdLoadMore"};
        const QList<QByteArray> direct = {
            "cboDirectConName", "txtDirectConType", "cmdDirectConProp", "cmdDirectHelp", "txtAddress",
            "txtFeId",          "txtRetries",       "txtFeChannel",     "txtTimeOut",    "cmdScan",
            "txtUserName",      "txtPassword",      "txtPath",          "txtTimeMML",    "txtRetryMML"};
        for (const int page : {1, 0}) {
            tabMain.setCurrentIndex(page);
            for (const QByteArray& name : database)
                QCOMPARE(bool(f.Find<QWidget>(name).focusPolicy() & Qt::TabFocus), page == 0);
            for (const QByteArray& name : direct)
                QCOMPARE(bool(f.Find<QWidget>(name).focusPolicy() & Qt::TabFocus), page == 1);
            const QWidget* nodeTabs = f.Find<QTabWidget>("tabNode").tabBar();
            QCOMPARE(bool(nodeTabs->focusPolicy() & Qt::TabFocus), page == 1);
        }
    }

    void TabMain_DirectPageWithoutConnections_OffersNoScan()
    {
        BrowserFixture f;
        f.StartOnDatabasePage();
        f.Find<QPushButton>("cmdScan").setEnabled(true);
        f.Find<QTabWidget>("tabMain").setCurrentIndex(1);
        QVERIFY(!f.Enabled("cmdScan"));
    }

    void Captions_AccessKeys_AreUniqueOnEachPage()
    {
        ButtonsFixture f;
        for (const char* page : {"pagDatabase", "pagDirect"}) {
            QStringList keys;
            for (const QAbstractButton* button : f.Find<QWidget>(page).findChildren<QAbstractButton*>()) {
                const QKeySequence key = QKeySequence::mnemonic(button->text());
                if (!key.isEmpty() && button->objectName() != QLatin1String("cmdRefresh"))
                    keys << key.toString();
            }
            QCOMPARE(keys.removeDuplicates(), 0);
        }
    }

    void Captions_AllControls_AreThere()
    {
        ButtonsFixture f;
        const QList<std::pair<const char*, QString>> captions = {
            {"cmdDatabaseAdd", QStringLiteral("&Add ...")},
            {"cmdDatabaseProp", QStringLiteral("&Properties..")},
            {"cmdDatabaseRemove", QStringLiteral("&Remove")},
            {"cmdDbScan", QStringLiteral("&Scan...")},
            {"cmdDatabaseManage", QStringLiteral("&Manage")},
            {"cmdRefresh", QStringLiteral("&Refresh")},
            {"cmdLoadMore", QStringLiteral("&Load More")},
            {"cmdDatabaseHelp", QStringLiteral("&Help")},
            {"cmdDirectConProp", QStringLiteral("Pr&operties...")},
            {"cmdDirectHelp", QStringLiteral("H&elp")},
            {"cmdScan", QStringLiteral("S&can...")},
            {"optCon", QStringLiteral("Connections")},
            {"optNodes", QStringLiteral("Nodes")},
            {"chkViewNodes", QStringLiteral("View Nodes")},
        };
        for (const auto& [name, caption] : captions)
            QCOMPARE(f.Find<QAbstractButton>(name).text(), caption);
        QCOMPARE(f.Find<QToolButton>("FindElement").toolTip(), QStringLiteral("Find in tree"));
        QVERIFY(!f.Find<QToolButton>("FindElement").icon().isNull());
        QCOMPARE(f.Find<QLineEdit>("txtDirectConType").text(), QStringLiteral("Connection Type Disabled"));
        const auto& tabMain = f.Find<QTabWidget>("tabMain");
        QCOMPARE(tabMain.tabText(0) + tabMain.tabText(1), QStringLiteral("DatabaseDirect"));
    }
};

QTEST_MAIN(TestBrowserButtons)
#include "TestBrowserButtons.moc"
