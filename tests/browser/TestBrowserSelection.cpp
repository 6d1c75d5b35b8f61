#include "tests/browser/BrowserTestSupport.h"

#include <QTabWidget>
#include <QTest>

namespace {

const QString AlphaTarget = QStringLiteral("WP=BUST4,ID=254,SPEED=9600,TIME=2000,RETRY=2");
const QString BetaTarget = QStringLiteral(
    "WP=SOCKET,HOST=gw-2,PORT=4004,WP=BUST4,ID=7,SPEED=9600,WP=OPT,PR=T4DT,DT=TEXT,VERIFY=YES");
const QString NorthTarget = QStringLiteral("WP=NET4,ADDR=17,SUB=0,TIME=2000,RETRY=2");

/// Connections Alpha and Beta; node North on Alpha with a manager's device, South on Beta.
class SelectionFixture : public BrowserFixture
{
public:
    SelectionFixture()
    {
        TinyDatabase& store = Component.Store;
        store.AddConnection(QStringLiteral("Alpha"), AlphaTarget);
        store.AddConnection(QStringLiteral("Beta"), BetaTarget);
        store.AddNode(QStringLiteral("North"), QStringLiteral("Alpha"), QStringLiteral("DEV1"), NorthTarget,
                      QStringLiteral("-port 1"));
        store.AddNode(QStringLiteral("South"), QStringLiteral("Beta"), QString(),
                      QStringLiteral("WP=NET4,ADDR=18"));
        store.Managers = {{QStringLiteral("1"), QStringLiteral("DEV1"), QStringLiteral("/opt/dev1")}};
        StartOnDatabasePage();
    }

    TreeEntries::Index Con(const char* name) const
    {
        return ConEntries().FindByText(QString::fromLatin1(name), false);
    }
    TreeEntries::Index ConNode(const char* name) const
    {
        return ConEntries().FindByText(QString::fromLatin1(name), true);
    }
    TreeEntries::Index Node(const char* name) const
    {
        return NodeEntries().FindByText(QString::fromLatin1(name), true);
    }
    /// The connection view with a connection opened, its nodes or its waypoints.
    void OpenConnection(const char* name, bool nodes)
    {
        ShowConnections();
        Find<QCheckBox>("chkViewNodes").setChecked(nodes);
        DoubleClick("tvwConTree", Con(name));
        Component.TakeCalls();
    }
    void ClickConnection(const char* name)
    {
        ShowConnections();
        Click("tvwConTree", Con(name));
    }
    [[nodiscard]] QString HostTarget() const
    {
        QString target;
        return Control->GetTarget(target) ? target : QStringLiteral("refused");
    }
};

QString StaleText(const QString& what)
{
    return what +
           QStringLiteral(" cannot be accessed, because another application has changed it. Automatic update "
                          "follows, try again.");
}

} // namespace

class TestBrowserSelection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ClickConnection_Current_ShowsItsReducedTarget()
    {
        SelectionFixture f;
        f.Control->SetNodeType(QStringLiteral("DEV1"));
        f.Control->SetCommandLine(QStringLiteral("-port 1"));
        f.ClickConnection("Beta");
        const QString target = QStringLiteral("WP=SOCKET,HOST=gw-2,WP=BUST4,ID=7");
        QCOMPARE(f.TargetText(), target);
        QCOMPARE(f.HostTarget(), target);
        QCOMPARE(f.Control->Sobriquet(), QStringLiteral("Beta"));
        QCOMPARE(f.Control->NodeType(), QString());
        QCOMPARE(f.Control->CommandLine(), QString());
        QCOMPARE(f.Caption(), QStringLiteral("T4 Bus over TCP/IP: Beta"));
        QCOMPARE(f.Picture(), 1);
    }

    void Click_NameWithBlanksAtItsEnds_GivesTheTrimmedSobriquet()
    {
        SelectionFixture f;
        f.Component.Store.AddConnection(QStringLiteral(" Padded "), AlphaTarget);
        f.ClickConnection(" Padded ");
        QCOMPARE(f.Control->Sobriquet(), QStringLiteral("Padded"));
        QCOMPARE(f.Caption(), QStringLiteral("T4 Bus:  Padded "));
    }

    void ClickWaypoint_OfAConnection_ShowsTheWholeConnectionsTarget()
    {
        SelectionFixture f;
        f.OpenConnection("Beta", false);
        QCOMPARE(f.ConEntries().ChildCount(f.Con("Beta")), 3);
        const bool addBefore = f.Enabled("cmdDatabaseAdd");
        f.Click("tvwConTree", f.ConEntries().Child(f.Con("Beta"), 1));
        QCOMPARE(f.TargetText(), QStringLiteral("WP=SOCKET,HOST=gw-2,WP=BUST4,ID=7"));
        QCOMPARE(f.Control->Sobriquet(), QStringLiteral("Beta"));
        QCOMPARE(f.Caption(), QStringLiteral("T4 Bus over TCP/IP: Beta"));
        QCOMPARE(f.Enabled("cmdDatabaseAdd"), addBefore);
    }

    void ClickNode_InTheConnectionView_ShowsConnectionAndNodePart()
    {
        SelectionFixture f;
        f.OpenConnection("Alpha", true);
        f.Click("tvwConTree", f.ConNode("North"));
        QCOMPARE(f.TargetText(), QStringLiteral("WP=BUST4,ID=254,WP=NET4,ADDR=17"));
        QCOMPARE(f.Control->Sobriquet(), QStringLiteral("North"));
        QCOMPARE(f.Control->NodeType(), QStringLiteral("DEV1"));
        QCOMPARE(f.Control->CommandLine(), QStringLiteral("-port 1"));
        QCOMPARE(f.Caption(), QStringLiteral("T4 Bus: Alpha"));
    }

    void ClickNode_InTheNodeView_ShowsConnectionAndNodePart()
    {
        SelectionFixture f;
        f.Click("tvwNodesTree", f.Node("North"));
        QCOMPARE(f.TargetText(), QStringLiteral("WP=BUST4,ID=254,WP=NET4,ADDR=17"));
        QCOMPARE(f.HostTarget(), QStringLiteral("WP=BUST4,ID=254,WP=NET4,ADDR=17"));
        QCOMPARE(f.Control->Sobriquet(), QStringLiteral("North"));
        QCOMPARE(f.Control->NodeType(), QStringLiteral("DEV1"));
        QCOMPARE(f.Control->CommandLine(), QStringLiteral("-port 1"));
        QCOMPARE(f.Caption(), QStringLiteral("T4 Bus: Alpha"));
        QCOMPARE(f.Picture(), 0);
    }

    void ClickRoot_EitherView_ClearsTheTarget_data()
    {
        QTest::addColumn<bool>("connections");
        QTest::addColumn<QString>("caption");
        QTest::newRow("connections") << true << QStringLiteral("Connections");
        QTest::newRow("nodes") << false << QStringLiteral("Nodes");
    }
    void ClickRoot_EitherView_ClearsTheTarget()
    {
        QFETCH(const bool, connections);
        QFETCH(const QString, caption);
        SelectionFixture f;
        if (connections)
            f.ClickConnection("Alpha");
        else
            f.Click("tvwNodesTree", f.Node("North"));
        QVERIFY(!f.TargetText().isEmpty());
        f.Click(connections ? "tvwConTree" : "tvwNodesTree", 1);
        QCOMPARE(f.TargetText(), QString());
        QCOMPARE(f.Control->Sobriquet(), QString());
        QCOMPARE(f.Control->NodeType(), QString());
        QCOMPARE(f.Control->CommandLine(), QString());
        QCOMPARE(f.Caption(), caption);
        QCOMPARE(f.Picture(), 14);
        QVERIFY(!f.Enabled("cmdDatabaseProp") && !f.Enabled("cmdDatabaseRemove"));
    }

    void ClickConnection_UnknownType_ShowsPictureFourteen()
    {
        SelectionFixture f;
        f.Component.Answer(QStringLiteral("AnalyzeConType"), {QStringLiteral("-1\tUnknown")});
        f.ClickConnection("Alpha");
        QCOMPARE(f.Picture(), 14);
        QCOMPARE(f.Caption(), QStringLiteral("Unknown: Alpha"));
    }

    void Click_LookupFails_LeavesWhatThereIs_data()
    {
        QTest::addColumn<QString>("method");
        QTest::addColumn<QString>("caption");
        QTest::newRow("connection") << QStringLiteral("GetParent(Beta)") << QStringLiteral("T4 Bus: Alpha");
        QTest::newRow("type") << QStringLiteral("AnalyzeConType") << QStringLiteral("T4 Bus: Alpha");
        QTest::newRow("long name") << QStringLiteral("GetConTypeLongName") << QStringLiteral("T4 Bus: Alpha");
        QTest::newRow("waypoints") << QStringLiteral("GetConTypeWpList")
                                   << QStringLiteral("T4 Bus over TCP/IP: Beta");
    }
    void Click_LookupFails_LeavesWhatThereIs()
    {
        QFETCH(const QString, method);
        QFETCH(const QString, caption);
        SelectionFixture f;
        f.ClickConnection("Alpha");
        f.Component.Fail(method);
        f.Component.Fail(QStringLiteral("GetConTypeLongName()"));
        f.Click("tvwConTree", f.Con("Beta"));
        QCOMPARE(f.Caption(), caption);
        QCOMPARE(f.TargetText(), QStringLiteral("WP=BUST4,ID=254"));
        QCOMPARE(f.Control->Sobriquet(), QStringLiteral("Alpha"));
        QCOMPARE(f.Operator.Texts(), QStringList());
    }

    void ClickNode_ALaterStepFails_ShowsNoHalfTarget_data()
    {
        QTest::addColumn<QString>("method");
        QTest::addColumn<QString>("hostTarget");
        QTest::newRow("node") << QStringLiteral("GetNode") << QStringLiteral("refused");
        QTest::newRow("manager") << QStringLiteral("GetNodeNmaTag") << QStringLiteral("WP=NET4,ADDR=17");
        QTest::newRow("connection") << QStringLiteral("GetParent") << QStringLiteral("WP=NET4,ADDR=17");
    }
    void ClickNode_ALaterStepFails_ShowsNoHalfTarget()
    {
        QFETCH(const QString, method);
        QFETCH(const QString, hostTarget);
        SelectionFixture f;
        f.Click("tvwNodesTree", f.Node("South"));
        f.Component.Fail(method);
        f.Click("tvwNodesTree", f.Node("North"));
        QCOMPARE(f.TargetText(), QString());
        QCOMPARE(f.Control->Sobriquet(), QString());
        f.Component.Repair();
        QCOMPARE(f.HostTarget(), hostTarget);
    }

    // Stale entries ----------------------------------------------------------------------------------------

    void Click_StaleEntry_TellsUpdatesAndKeepsThePlace_data()
    {
        QTest::addColumn<QByteArray>("kind");
        QTest::addColumn<QString>("told");
        QTest::newRow("connection") << QByteArray("C") << QStringLiteral("Connection Alpha");
        QTest::newRow("waypoint") << QByteArray("W") << QStringLiteral("Connection Alpha");
        QTest::newRow("node below") << QByteArray("N") << QStringLiteral("Node North");
        QTest::newRow("node of a stale connection") << QByteArray("NC") << QStringLiteral("Connection Alpha");
        QTest::newRow("node") << QByteArray("n") << QStringLiteral("Node North");
    }
    void Click_StaleEntry_TellsUpdatesAndKeepsThePlace()
    {
        QFETCH(const QByteArray, kind);
        QFETCH(const QString, told);
        SelectionFixture f;
        const bool nodes = kind.startsWith('N');
        const char* tree = kind == "n" ? "tvwNodesTree" : "tvwConTree";
        if (kind != "n")
            f.OpenConnection("Alpha", nodes);
        TreeEntries::Index entry = kind == "n" ? f.Node("North")
                                   : nodes     ? f.ConNode("North")
                                               : f.Con("Alpha");
        if (kind == "W")
            entry = f.ConEntries().Child(entry, 0);
        f.Control->SetTarget(QStringLiteral("WP=BUST4,ID=1"));

        // Another application saves the record anew.
        if (kind == "N" || kind == "n") {
            f.Component.Store.DeleteNode(QStringLiteral("North"));
            f.Component.Store.SaveNode(QStringLiteral("North"), QString(), NorthTarget,
                                       QStringLiteral("Alpha"), QString());
        } else {
            f.Component.Store.ReplaceParentTarget(QStringLiteral("Alpha"), AlphaTarget);
        }
        f.Operator.Boxes.clear();
        // A connection that was saved anew is closed, with what was selected in it.
        const bool closed = kind == "W" || kind == "NC";
        const QString selected = closed ? QStringLiteral("Alpha") : f.Entries(tree).Text(entry);
        f.Click(tree, entry);

        QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Plain(StaleText(told))});
        QCOMPARE(f.HostTarget(), QStringLiteral("WP=BUST4,ID=1"));
        QCOMPARE(f.Find<TreeView>(tree).SelectedIndex().data().toString(), selected);
        QCOMPARE(Browser().Busy, 0);

        // After the update the same click works.
        entry = kind == "n" ? f.Node("North") : f.Con("Alpha");
        QVERIFY(entry != 0);
        f.Click(tree, entry);
        QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
        QVERIFY(f.TargetText().startsWith(QLatin1String("WP=BUST4,ID=254")));
    }

    void Click_RenamedConnection_TellsTheOldName()
    {
        SelectionFixture f;
        f.ClickConnection("Beta");
        f.Component.Store.ReplaceParentName(QStringLiteral("Alpha"), QStringLiteral("Omega"));
        f.Click("tvwConTree", f.Con("Alpha"));
        QCOMPARE(f.Operator.Texts(), QStringList{StaleText(QStringLiteral("Connection Alpha"))});
        QCOMPARE(f.Con("Alpha"), 0);
        QVERIFY(f.Con("Omega") != 0);
    }

    void Click_StaleEntryWithoutDatabaseAccess_IsToldAsChanged()
    {
        SelectionFixture f;
        f.Component.Fail(QStringLiteral("GetNodeID"));
        f.Click("tvwNodesTree", f.Node("North"));
        QVERIFY(f.Operator.Texts().contains(StaleText(QStringLiteral("Node North"))));
        QCOMPARE(f.TargetText(), QString());
    }

    void Click_TheOtherView_IsNotAsked()
    {
        SelectionFixture f;
        f.ShowConnections();
        f.Component.TakeCalls();
        Q_EMIT f.Find<TreeView>("tvwNodesTree").NodeClick(f.NodeEntries().ModelIndex(f.Node("North")));
        Q_EMIT f.Find<TreeView>("tvwNodesTree").Click();
        QCOMPARE(f.Component.Calls, QStringList());

        f.Find<QRadioButton>("optNodes").setChecked(true);
        f.Component.TakeCalls();
        Q_EMIT f.Find<TreeView>("tvwConTree").NodeClick(f.ConEntries().ModelIndex(f.Con("Alpha")));
        Q_EMIT f.Find<TreeView>("tvwConTree").Click();
        QCOMPARE(f.Component.Calls, QStringList());
    }

    void NodeClick_StaleConnection_SkipsTheNextClickAlone()
    {
        SelectionFixture f;
        f.ShowConnections();
        f.Component.Store.ReplaceParentTarget(QStringLiteral("Alpha"), AlphaTarget);
        auto& view = f.Find<TreeView>("tvwConTree");
        Q_EMIT view.NodeClick(f.ConEntries().ModelIndex(f.Con("Alpha")));
        view.SelectIndex(f.ConEntries().ModelIndex(f.Con("Beta")));
        Q_EMIT view.Click();
        QCOMPARE(f.TargetText(), QString());
        Q_EMIT view.Click();
        QCOMPARE(f.Control->Sobriquet(), QStringLiteral("Beta"));
    }

    void TurnBackToTheDatabasePage_SelectedNode_ShowsItsTargetAgain()
    {
        SelectionFixture f;
        f.Click("tvwNodesTree", f.Node("North"));
        const QString target = f.TargetText();
        f.Find<QTabWidget>("tabMain").setCurrentIndex(1);
        f.Find<QLineEdit>("txtTarget").clear();
        f.Find<QTabWidget>("tabMain").setCurrentIndex(0);
        QCOMPARE(f.TargetText(), target);
    }

    // Targets ----------------------------------------------------------------------------------------------

    void SetTarget_Valid_ChangesTheHostsTargetAndNothingOnScreen()
    {
        SelectionFixture f;
        f.Click("tvwNodesTree", f.Node("North"));
        const QString shown = f.TargetText();
        QVERIFY(f.Control->SetTarget(QStringLiteral("WP=BUST4,ID=9")));
        QCOMPARE(f.HostTarget(), QStringLiteral("WP=BUST4,ID=9"));
        QCOMPARE(f.TargetText(), shown);
        f.Click("tvwNodesTree", f.Node("South"));
        QCOMPARE(f.HostTarget(), f.TargetText());
    }

    void SetTarget_RefusedOrNotAsked_LeavesTheTarget()
    {
        SelectionFixture f;
        QVERIFY(f.Control->SetTarget(QStringLiteral("WP=BUST4,ID=9")));
        QVERIFY(!f.Control->SetTarget(QStringLiteral("nonsense")));
        f.Component.Fail(QStringLiteral("CheckTargetSyntax"));
        QVERIFY(!f.Control->SetTarget(QStringLiteral("WP=BUST4,ID=8")));
        f.Component.Repair();
        QCOMPARE(f.HostTarget(), QStringLiteral("WP=BUST4,ID=9"));
    }

    void GetTarget_Outcomes_SetTheTextOnlyWhenAsked()
    {
        SelectionFixture f;
        QString target = QStringLiteral("before");
        QVERIFY(!f.Control->GetTarget(target)); // nothing is selected
        QCOMPARE(target, QString());
        target = QStringLiteral("before");
        f.Component.AnswerOnce(QStringLiteral("CheckTargetSyntax"),
                               {QStringLiteral("rewritten"), QStringLiteral("ERROR")});
        QVERIFY(!f.Control->GetTarget(target));
        QCOMPARE(target, QString());
        target = QStringLiteral("before");
        f.Component.Fail(QStringLiteral("CheckTargetSyntax"));
        QVERIFY(!f.Control->GetTarget(target));
        QCOMPARE(target, QStringLiteral("before"));
    }

    void TypeInTarget_AnyText_IsTheHostsTarget()
    {
        SelectionFixture f;
        auto& text = f.Find<QLineEdit>("txtTarget");
        text.setFocus();
        QTest::keyClicks(&text, QStringLiteral("WP=BUST4,ID=77"));
        QCOMPARE(f.HostTarget(), QStringLiteral("WP=BUST4,ID=77"));
    }

    void GetSobriquetTarget_StoredNode_JoinsReducedConnectionAndStoredNode()
    {
        SelectionFixture f;
        f.Click("tvwNodesTree", f.Node("South"));
        const QString loaded = Model().ConObject->ConName;
        QString target;
        QVERIFY(f.Control->GetSobriquetTarget(QStringLiteral("North"), target));
        QCOMPARE(target, QStringLiteral("WP=BUST4,ID=254,") + NorthTarget);
        QCOMPARE(Model().ConObject->ConName, loaded);
    }

    void GetSobriquetTarget_NoSuchNodeOrFailure_LeavesTheText_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("failing");
        QTest::newRow("unknown") << QStringLiteral("Nowhere") << QStringLiteral("none");
        QTest::newRow("empty") << QString() << QStringLiteral("none");
        QTest::newRow("node fails") << QStringLiteral("North") << QStringLiteral("GetNodeEx");
        QTest::newRow("connection fails") << QStringLiteral("North") << QStringLiteral("GetParent");
    }
    void GetSobriquetTarget_NoSuchNodeOrFailure_LeavesTheText()
    {
        QFETCH(const QString, name);
        QFETCH(const QString, failing);
        SelectionFixture f;
        f.Component.Fail(failing);
        QString target = QStringLiteral("before");
        QVERIFY(!f.Control->GetSobriquetTarget(name, target));
        QCOMPARE(target, QStringLiteral("before"));
    }

    void GetSobriquetTarget_ElevenWaypoints_IsFalseAndNoError()
    {
        SelectionFixture f;
        QStringList hops;
        for (int hop = 0; hop < 11; ++hop)
            hops << QStringLiteral("BUST4\t1");
        f.Component.Answer(QStringLiteral("GetConTypeWpList"), {hops.join(QLatin1Char('\t'))});
        QString target = QStringLiteral("before");
        QVERIFY(!f.Control->GetSobriquetTarget(QStringLiteral("North"), target));
        QCOMPARE(target, QStringLiteral("before"));
    }

    void Click_DamagedDefinitions_ShowsTheErrorAndTheControlLivesOn()
    {
        SelectionFixture f;
        QStringList hops;
        for (int hop = 0; hop < 11; ++hop)
            hops << QStringLiteral("BUST4\t1");
        f.ShowConnections();
        f.Component.Answer(QStringLiteral("GetConTypeWpList(,0)"), {hops.join(QLatin1Char('\t'))});
        f.Click("tvwConTree", f.Con("Alpha"));
        QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
        QCOMPARE(f.Operator.Boxes[0].title, ErrorBoxTitle());
        QCOMPARE(f.Component.Store.Levels(), 0);
        f.Click("tvwConTree", f.Con("Beta"));
        QCOMPARE(f.Control->Sobriquet(), QStringLiteral("Beta"));
    }

    void NodeManagerExists_ByNodeType_data()
    {
        QTest::addColumn<QString>("nodeType");
        QTest::addColumn<QString>("failing");
        QTest::addColumn<bool>("exists");
        QTest::newRow("has one") << QStringLiteral("DEV1") << QStringLiteral("none") << true;
        QTest::newRow("unknown") << QStringLiteral("DEV2") << QStringLiteral("none") << false;
        QTest::newRow("blank") << QStringLiteral("  ") << QStringLiteral("none") << false;
        QTest::newRow("failure") << QStringLiteral("DEV1") << QStringLiteral("GetNMAInfo") << false;
    }
    void NodeManagerExists_ByNodeType()
    {
        QFETCH(const QString, nodeType);
        QFETCH(const QString, failing);
        QFETCH(const bool, exists);
        SelectionFixture f;
        f.Component.Fail(failing);
        f.Control->SetNodeType(nodeType);
        QCOMPARE(f.Control->NodeManagerExists(), exists);
    }

    void NodeManagerExists_NeedsATypeAndAPath_data()
    {
        QTest::addColumn<QString>("nodeType");
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("exists");
        QTest::newRow("both") << QStringLiteral("DEV9") << QStringLiteral("/opt/dev9") << true;
        QTest::newRow("empty type") << QString() << QStringLiteral("/opt/dev9") << false;
        QTest::newRow("blank type") << QStringLiteral("  ") << QStringLiteral("/opt/dev9") << false;
        QTest::newRow("blank path") << QStringLiteral("DEV9") << QStringLiteral("  ") << false;
    }
    void NodeManagerExists_NeedsATypeAndAPath()
    {
        QFETCH(const QString, nodeType);
        QFETCH(const QString, path);
        QFETCH(const bool, exists);
        SelectionFixture f;
        f.Component.Answer(QStringLiteral("GetNMAInfo"), {path, QString(), QStringLiteral("1")});
        f.Control->SetNodeType(nodeType);
        QCOMPARE(f.Control->NodeManagerExists(), exists);
    }

    void SmallMethods_GiveTheirTexts()
    {
        SelectionFixture f;
        QString text = QStringLiteral("a&b");
        QCOMPARE(f.Control->DoubleAnyChar(text, QStringLiteral("&x")), QStringLiteral("a&&b"));
        QCOMPARE(text, QStringLiteral("a&&b"));
        QCOMPARE(f.Control->ConvertWordsBeginningUpperCase(QStringLiteral("TIME OUT"), QStringLiteral(" &")),
                 QStringLiteral("Time Out"));
        QVERIFY(!f.Control->testi());
        QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Plain(QStringLiteral("heippa"))});
    }

    // Skipped clicks ---------------------------------------------------------------------------------------

    void DoubleClick_ClosedConnection_OpensItsWaypoints()
    {
        SelectionFixture f;
        f.ShowConnections();
        f.DoubleClick("tvwConTree", f.Con("Beta"));
        QStringList texts;
        for (int row = 0; row < 3; ++row)
            texts << f.ConEntries().Text(f.ConEntries().Child(f.Con("Beta"), row));
        QCOMPARE(texts, QStringList({QStringLiteral("TCP/IP Socket"), QStringLiteral("T4 Bus"),
                                     QStringLiteral("Options")}));
        QVERIFY(f.ConEntries().Expanded(f.Con("Beta")));
    }

    void DoubleClick_ClosedConnectionWithNodesChosen_OpensItsNodes()
    {
        SelectionFixture f;
        f.OpenConnection("Alpha", true);
        QCOMPARE(f.ConEntries().ChildCount(f.Con("Alpha")), 1);
        QCOMPARE(f.ConEntries().Key(f.ConNode("North")).section(QLatin1Char(','), 0, 0), QStringLiteral("N"));
        QVERIFY(f.ConEntries().Expanded(f.Con("Alpha")));
        QVERIFY(!Load().LoadTree);
    }

    void DoubleClick_ConnectionWithChildren_LoadsNothing()
    {
        SelectionFixture f;
        f.OpenConnection("Alpha", false);
        f.DoubleClick("tvwConTree", f.Con("Alpha"));
        QCOMPARE(f.Component.Count(QStringLiteral("GetTargetItemList")),
                 f.Component.Count(QStringLiteral("GetConTypeWpList")));
        QCOMPARE(f.ConEntries().ChildCount(f.Con("Alpha")), 1);
    }

    void DoubleClick_TheRoot_DoesNothingAndSkipsOneClickAlone()
    {
        SelectionFixture f;
        f.ShowConnections();
        f.DoubleClick("tvwConTree", 1);
        f.Click("tvwConTree", f.Con("Alpha"));
        QCOMPARE(f.Control->Sobriquet(), QStringLiteral("Alpha"));
    }

    void DoubleClick_ClosedConnection_DoesNotSkipTheNextClick_data()
    {
        QTest::addColumn<bool>("nodes");
        QTest::newRow("waypoints") << false;
        QTest::newRow("nodes") << true;
    }
    void DoubleClick_ClosedConnection_DoesNotSkipTheNextClick()
    {
        QFETCH(const bool, nodes);
        SelectionFixture f;
        f.ShowConnections();
        f.Find<QCheckBox>("chkViewNodes").setChecked(nodes);
        f.Click("tvwConTree", f.Con("Alpha"));
        QCOMPARE(f.Enabled("cmdLoadMore"), nodes);
        Q_EMIT f.Find<TreeView>("tvwConTree").DblClick();
        // All its nodes are in.
        QVERIFY(!f.Enabled("cmdLoadMore"));
        f.Find<QLineEdit>("txtTarget").clear();
        Q_EMIT f.Find<TreeView>("tvwConTree").Click();
        QCOMPARE(f.TargetText(), QStringLiteral("WP=BUST4,ID=254"));
    }

    void DoubleClick_AnyOther_SkipsTheNextClickAlone_data()
    {
        QTest::addColumn<bool>("connections");
        QTest::newRow("connection view") << true;
        QTest::newRow("node view") << false;
    }
    void DoubleClick_AnyOther_SkipsTheNextClickAlone()
    {
        QFETCH(const bool, connections);
        SelectionFixture f;
        auto& view = f.Find<TreeView>(connections ? "tvwConTree" : "tvwNodesTree");
        if (connections) {
            f.OpenConnection("Alpha", true);
            f.Click("tvwConTree", f.ConNode("North"));
        } else {
            f.Click("tvwNodesTree", f.Node("North"));
        }
        const QString target = f.TargetText();
        f.Find<QLineEdit>("txtTarget").clear();
        {
            const BusyScope noCommand;
            Q_EMIT view.DblClick();
        }
        Q_EMIT view.Click();
        QCOMPARE(f.TargetText(), QString());
        Q_EMIT view.Click();
        QCOMPARE(f.TargetText(), target);
    }

    void ChangeOfView_StartedControl_FocusesTheTree_data()
    {
        QTest::addColumn<bool>("started");
        QTest::newRow("started") << true;
        QTest::newRow("not yet") << false;
    }
    void ChangeOfView_StartedControl_FocusesTheTree()
    {
        QFETCH(const bool, started);
        SelectionFixture f;
        f.Find<QLineEdit>("txtTarget").setFocus();
        Browser().ControlInitialized = started;
        f.ShowConnections();
        QCOMPARE(f.Control->focusWidget() == &f.Find<TreeView>("tvwConTree"), started);
    }

    void DoubleClick_NodeOrWaypoint_PressesProperties_data()
    {
        QTest::addColumn<QByteArray>("kind");
        QTest::newRow("node in the node view") << QByteArray("n");
        QTest::newRow("node") << QByteArray("N");
        QTest::newRow("waypoint") << QByteArray("W");
    }
    void DoubleClick_NodeOrWaypoint_PressesProperties()
    {
        QFETCH(const QByteArray, kind);
        SelectionFixture f;
        int pressed = 0;
        connect(&f.Find<QPushButton>("cmdDatabaseProp"), &QPushButton::clicked, [&] { ++pressed; });
        if (kind == "n") {
            f.DoubleClick("tvwNodesTree", f.Node("North"));
        } else {
            f.OpenConnection("Alpha", kind == "N");
            f.DoubleClick("tvwConTree", f.ConEntries().Child(f.Con("Alpha"), 0));
        }
        QCOMPARE(pressed, 1);
        // Only the click that belongs to the double click was skipped.
        if (kind == "n")
            f.Click("tvwNodesTree", f.Node("South"));
        else
            f.Click("tvwConTree", f.Con("Beta"));
        QCOMPARE(f.Control->Sobriquet(), kind == "n" ? QStringLiteral("South") : QStringLiteral("Beta"));
    }

    void DoubleClick_RootWithoutChildren_DoesNothing()
    {
        BrowserFixture f;
        f.StartOnDatabasePage();
        f.ShowConnections();
        QCOMPARE(f.ConEntries().Count(), 1);
        int ran = 0;
        connect(&f.Find<QPushButton>("cmdDatabaseProp"), &QPushButton::clicked, [&] { ++ran; });
        f.DoubleClick("tvwConTree", 1);
        QCOMPARE(ran, 0);
    }

    void DoubleClick_WaypointBehindTheRoot_RunsPropertiesThoughTheButtonIsDisabled()
    {
        SelectionFixture f;
        f.OpenConnection("Alpha", false);
        f.Click("tvwConTree", 1);
        bool enabled = true;
        f.InDialog = [&](ConData&) { enabled = f.Enabled("cmdDatabaseProp"); };
        f.DoubleClick("tvwConTree", f.ConEntries().Child(f.Con("Alpha"), 0));
        QVERIFY(!enabled);
        QCOMPARE(f.Dialogs, QStringList{QStringLiteral("connection")});
    }
};

QTEST_MAIN(TestBrowserSelection)
#include "TestBrowserSelection.moc"
