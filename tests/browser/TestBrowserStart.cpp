#include "browser/ConnectionPictures.h"
#include "dialogs/DialogState.h"
#include "platform/controls/IntervalTimer.h"
#include "tests/browser/BrowserTestSupport.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>

namespace {

const QString AlphaTarget = QStringLiteral("WP=BUST4,ID=254");

} // namespace

class TestBrowserStart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Start_WithDatabase_AsksInOrder()
    {
        BrowserFixture f;
        f.Start();

        QStringList methods = f.Methods();
        const QStringList opening = {QStringLiteral("OpenDatabase"), QStringLiteral("GetSecRights"),
                                     QStringLiteral("GetConTypeList")};
        QCOMPARE(methods.mid(0, 3), opening);
        QCOMPARE(methods.count(QStringLiteral("GetConTypeLongName")), 7);
        methods.removeAll(QStringLiteral("GetConTypeLongName"));
        const QStringList lists = {QStringLiteral("GetJournalLastId"), QStringLiteral("GetNodeCount"),
                                   QStringLiteral("QueryNodesWithIdEx"),
                                   QStringLiteral("GetNodeTypeLongName"),
                                   QStringLiteral("GetNodeTypeLongName")};
        QCOMPARE(methods.mid(3, 5), lists);
        // Its last is the list of the page that is shown.
        QCOMPARE(methods.mid(methods.size() - 3),
                 QStringList({QStringLiteral("GetWpLongName"), QStringLiteral("GetWpLongName"),
                              QStringLiteral("QueryParentsWithID")}));
        QCOMPARE(f.Operator.Texts(), QStringList());
    }

    void Start_WithDatabase_LeavesTreesFlagsAndObjects()
    {
        BrowserFixture f;
        Browser().BrowserTabIndex = 0;
        f.Component.Store.AddConnection(QStringLiteral("Alpha"), AlphaTarget);
        f.AddNodes(QStringLiteral("Alpha"), 3);
        f.Start();

        QVERIFY(Database().DatabaseOpen && Database().EditRight && Database().ScanRight);
        QVERIFY(Browser().ControlInitialized);
        QCOMPARE(f.NodeEntries().Count(), 4);
        QCOMPARE(f.NodeEntries().Key(1), QStringLiteral("R,0"));
        QCOMPARE(f.NodeEntries().Text(1), QStringLiteral("Nodes"));
        QVERIFY(f.NodeEntries().Expanded(1) && f.NodeEntries().Sorted(1));
        QCOMPARE(f.ConEntries().Count(), 0);
        QVERIFY(!Load().LoadTree);
        QCOMPARE(Load().LoadMoreId, 0);
        QCOMPARE(Load().LoadLimit, 5000);
        QCOMPARE(Load().NodeCount, 3);
        for (const auto* object : {&Model().ConObject, &Model().DirectObject, &Model().NewDirectObject,
                                   &Model().SavedDirectObject})
            QVERIFY(*object && (*object)->Initialized);
        QVERIFY(!Model().ConObject->ConTree && !Model().ConObject->NodesTree);
        QCOMPARE(Model().ConOrderObject->ConnectionCount(), 7);
        QCOMPARE(Browser().Busy, 0);
    }

    void Start_ConnectionTypes_AreOfferedInTheBrowsersOrder()
    {
        BrowserFixture f;
        f.Start();
        const QList<std::pair<int, int>> picturesOfTypes = {{0, 0},   {1, 1}, {2, 2}, {9, 9},
                                                            {14, 16}, {6, 6}, {7, 7}};
        int browserPosition = 0;
        for (const auto& [type, picture] : picturesOfTypes) {
            QCOMPARE(Model().ConOrderObject->GetPicIndxByResourcePos(type), picture);
            QCOMPARE(Model().ConOrderObject->GetPicIndxByBrowserPos(browserPosition++), picture);
        }
        QCOMPARE(Model().ConOrderObject->GetPicIndxByResourcePos(3), 14);
    }

    void Start_SharedNames_FallBackWhereTheDatabaseHasNone()
    {
        BrowserFixture f;
        f.Start();
        QCOMPARE(Model().TimeRetryNames[0], QStringLiteral("TIME OUT"));
        QCOMPARE(Model().TimeRetryNames[1], QStringLiteral("RETRY COUNT"));
    }

    void Start_SharedNames_AreTheDatabasesWhereItHasThem()
    {
        BrowserFixture f;
        f.Component.Answer(QStringLiteral("GetWpLongName(TIME)"), {QStringLiteral("PATIENCE")});
        f.Component.Answer(QStringLiteral("GetWpLongName(RETRY)"), {QStringLiteral("REPEATS")});
        f.Start();
        QCOMPARE(Model().TimeRetryNames[0], QStringLiteral("PATIENCE"));
        QCOMPARE(Model().TimeRetryNames[1], QStringLiteral("REPEATS"));
    }

    void Start_Pictures_AreThereUntilTheControlIsHidden()
    {
        BrowserFixture f;
        f.Start();
        for (int index = 0; index < ConnectionPictureCount; ++index)
            QVERIFY(!Dialogs().ConPictures[static_cast<std::size_t>(index)].isNull());
        QVERIFY(Dialogs().ConPictures[17].isNull());
        QVERIFY(!f.Find<QLabel>("imgConArray").pixmap().isNull());

        f.Control->hide();
        QVERIFY(Dialogs().ConPictures[0].isNull());
        f.Control->show();
        QVERIFY(Dialogs().ConPictures[0].isNull());
    }

    void Start_Timer_RunsAfterwardsIfItIsOn_data()
    {
        QTest::addColumn<bool>("on");
        QTest::newRow("on") << true;
        QTest::newRow("off") << false;
    }
    void Start_Timer_RunsAfterwardsIfItIsOn()
    {
        QFETCH(const bool, on);
        BrowserFixture f;
        f.Control = std::make_unique<T4ZelkaBrowser>();
        f.Control->SetRefreshTimer(on);
        bool ranMeanwhile = false;
        bool timerIsDue = false;
        f.Component.BeforeCall = [&](const QString& call) {
            // The last reads of the start come behind the timer.
            timerIsDue = timerIsDue || call.startsWith(QLatin1String("GetWpLongName"));
            if (!timerIsDue)
                ranMeanwhile = ranMeanwhile || f.Find<IntervalTimer>("tmrRefreshTimer").Runs();
        };
        f.Start();
        f.Component.BeforeCall = nullptr;
        QVERIFY(!ranMeanwhile);
        QCOMPARE(f.Find<IntervalTimer>("tmrRefreshTimer").Runs(), on);
    }

    void Start_Help_GetsTheFilesPath()
    {
        BrowserFixture f;
        Help().HelpFilePath = [] { return QStringLiteral("browser.help"); };
        f.Start();
        QCOMPARE(f.Find<QObject>("cdlBrowserHelp").property("HelpFile").toString(),
                 QStringLiteral("browser.help"));
        QCOMPARE(qApp->property("HelpFile").toString(), QStringLiteral("browser.help"));
    }

    void Show_FirstTime_ShowsNodesOnTheDirectPage()
    {
        BrowserFixture f;
        f.Start();
        QVERIFY(f.Find<QRadioButton>("optNodes").isChecked());
        QCOMPARE(f.Find<QTabWidget>("tabMain").currentIndex(), 1);
        QVERIFY(f.Find<QTabWidget>("tabMain").isTabEnabled(0));
        QVERIFY(!Model().ConObject->optCon);
    }

    void Show_TabIndex_ChoosesThePage_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<int>("page");
        QTest::newRow("database") << 0 << 0;
        QTest::newRow("direct") << 1 << 1;
        QTest::newRow("any other") << 7 << 0;
    }
    void Show_TabIndex_ChoosesThePage()
    {
        QFETCH(const int, index);
        QFETCH(const int, page);
        BrowserFixture f;
        Browser().BrowserTabIndex = index;
        f.Start();
        QCOMPARE(f.Find<QTabWidget>("tabMain").currentIndex(), page);
    }

    void Show_Again_ForcesTheNodesView()
    {
        BrowserFixture f;
        f.StartOnDatabasePage();
        f.Find<QRadioButton>("optCon").setChecked(true);
        f.Control->hide();
        f.Control->show();
        QVERIFY(f.Find<QRadioButton>("optNodes").isChecked());
        QCOMPARE(f.Component.Created, 1);
    }

    void Start_NoDatabase_RunsDirectOnly_data()
    {
        QTest::addColumn<quint32>("number");
        QTest::addColumn<QString>("text");
        QTest::newRow("missing") << DatabaseErrorNumber::SourceMissing
                                 << QStringLiteral("Unable to open HVX Database, because the database file "
                                                   "(Dbs.mdb) is missing or ODBC DSN DBS32 is not set to the "
                                                   "database.");
        QTest::newRow("read-only") << DatabaseErrorNumber::ReadOnly
                                   << QStringLiteral("Unable to open HVX Database, because the database file "
                                                     "(Dbs.mdb) is in read-only mode.");
    }
    void Start_NoDatabase_RunsDirectOnly()
    {
        QFETCH(const quint32, number);
        QFETCH(const QString, text);
        BrowserFixture f;
        f.Component.Fail(QStringLiteral("OpenDatabase"), number);
        f.Control = std::make_unique<T4ZelkaBrowser>();
        f.Control->SetRefreshTimer(true);
        f.Find<QTabWidget>("tabNode").setCurrentIndex(2);
        f.Start();

        QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Error(text)});
        const auto& tabMain = f.Find<QTabWidget>("tabMain");
        QCOMPARE(tabMain.currentIndex(), 1);
        QVERIFY(!tabMain.isTabEnabled(0));
        QCOMPARE(f.Find<QTabWidget>("tabNode").currentIndex(), 0);
        QVERIFY(!Database().EditRight);
        QVERIFY(!f.Control->RefreshTimer());
        QVERIFY(!f.Find<IntervalTimer>("tmrRefreshTimer").Enabled());
        QVERIFY(Browser().ControlInitialized);
        QCOMPARE(f.Component.Count(QStringLiteral("GetNodeCount")), 0);
        QCOMPARE(f.Find<QLabel>("lblFeId").text(), QStringLiteral("Fe Id:"));
    }

    void Start_NoComponent_KeepsTheLabelsAndTellsTwice()
    {
        BrowserFixture f;
        f.Component.CreationFailure = 0x80080005;
        f.Start();
        QCOMPARE(
            f.Operator.Boxes,
            std::vector<RecordedBox>(
                {RecordedBox::Error(QStringLiteral("Unable to open HVX Database, another application has "
                                                   "either locked the database or ODBC setting DSN=DBS32 "
                                                   "does not exist.")),
                 RecordedBox::Plain(QStringLiteral("Failure in fetching RMX/30 privileges."))}));
        QCOMPARE(f.Find<QLabel>("lblFeId").text(), QStringLiteral("FE ID:"));
        QCOMPARE(f.Find<QTabWidget>("tabNode").tabText(0), QStringLiteral("NET4"));
    }

    void Start_NoDatabaseWithTabIndexZero_MovesToTheDirectPage()
    {
        BrowserFixture f;
        f.Component.Fail(QStringLiteral("OpenDatabase"), DatabaseErrorNumber::SourceMissing);
        Browser().BrowserTabIndex = 0;
        f.Start();
        QCOMPARE(f.Find<QTabWidget>("tabMain").currentIndex(), 1);
        QVERIFY(!f.Find<QTabWidget>("tabMain").isTabEnabled(0));
        QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
    }

    void TabMain_DatabasePageWithoutDatabaseAndTabIndexZero_IsTakenAwaySilently()
    {
        BrowserFixture f;
        f.Component.Fail(QStringLiteral("OpenDatabase"), DatabaseErrorNumber::SourceMissing);
        f.Start();
        f.Operator.Boxes.clear();
        Browser().BrowserTabIndex = 0;
        auto& tabMain = f.Find<QTabWidget>("tabMain");
        tabMain.setTabEnabled(0, true);
        tabMain.setCurrentIndex(0);
        QCOMPARE(tabMain.currentIndex(), 1);
        QVERIFY(!tabMain.isTabEnabled(0));
        QCOMPARE(f.Operator.Texts(), QStringList());
    }

    void MousePointer_OfTheDatabase_IsBusyForElevenAlone()
    {
        BrowserFixture f;
        f.Start();
        QList<bool> pointers;
        Machine().ShowBusyPointer = [&](bool busy) { pointers << busy; };
        for (const int pointer : {11, 1, 0, 5})
            Q_EMIT Database().DbObject->SetMousePointer(pointer);
        QCOMPARE(pointers, QList<bool>({true, false, false, false}));
    }

    void TabMain_DatabasePageWithoutDatabase_IsDenied()
    {
        BrowserFixture f;
        f.Component.Fail(QStringLiteral("OpenDatabase"), DatabaseErrorNumber::SourceMissing);
        f.Start();
        f.Operator.Boxes.clear();
        f.Find<QTabWidget>("tabMain").setCurrentIndex(0);
        QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Plain(
                                       QStringLiteral("No database, access to database tab is denied."))});
        QCOMPARE(f.Find<QTabWidget>("tabMain").currentIndex(), 1);
    }

    void Start_ReadsThatFail_AreToldAndTheStartGoesOn_data()
    {
        QTest::addColumn<QString>("method");
        QTest::addColumn<QStringList>("texts");
        const QString unknown = QStringLiteral("Unknown error in access to database.");
        QTest::newRow("rights") << QStringLiteral("GetSecRights")
                                << QStringList{QStringLiteral("Failure in fetching RMX/30 privileges.")};
        QTest::newRow("journal") << QStringLiteral("GetJournalLastId")
                                 << QStringList{unknown, QStringLiteral("Journal table access failure.")};
        QTest::newRow("count") << QStringLiteral("GetNodeCount") << QStringList{unknown};
        QTest::newRow("types") << QStringLiteral("GetConTypeList") << QStringList{};
    }
    void Start_ReadsThatFail_AreToldAndTheStartGoesOn()
    {
        QFETCH(const QString, method);
        QFETCH(const QStringList, texts);
        BrowserFixture f;
        f.AddNodes(QStringLiteral("Alpha"), 3);
        f.Component.Fail(method);
        f.Start();
        QCOMPARE(f.Operator.Texts(), texts);
        QVERIFY(Browser().ControlInitialized);
        QCOMPARE(f.NodeEntries().Count(), 4);
        if (method == QLatin1String("GetSecRights"))
            QVERIFY(!Database().ScanRight && !Database().EditRight);
        if (method == QLatin1String("GetJournalLastId"))
            QCOMPARE(Load().JournalLastId, 1);
        if (method == QLatin1String("GetNodeCount"))
            QCOMPARE(Load().NodeCount, 5000);
    }

    void InitProperties_OnARunningControl_OpensTheDatabaseAnew()
    {
        BrowserFixture f;
        f.Start();
        f.Component.TakeCalls();
        bool initializedMeanwhile = false;
        f.Component.BeforeCall = [&](const QString& call) {
            if (call.startsWith(QLatin1String("OpenDatabase")))
                initializedMeanwhile = Browser().ControlInitialized;
        };
        f.Control->UserControl_InitProperties();
        f.Component.BeforeCall = nullptr;
        QVERIFY(!initializedMeanwhile);
        QCOMPARE(f.Methods().mid(0, 2),
                 QStringList({QStringLiteral("CloseDatabase"), QStringLiteral("OpenDatabase")}));
        QVERIFY(Database().DatabaseOpen);
        QCOMPARE(f.NodeEntries().Count(), 1);
    }

    void InitProperties_NotShownYet_StandsAtTheRootOfTheConnectionView()
    {
        BrowserFixture f;
        f.AddNodes(QStringLiteral("Alpha"), 3);
        f.Control = std::make_unique<T4ZelkaBrowser>();
        f.Control->UserControl_InitProperties();
        QVERIFY(f.Find<QRadioButton>("optCon").isChecked());
        QVERIFY(Model().ConObject->optCon);
        QCOMPARE(f.ConEntries().Count(), 0);
        QVERIFY(f.Enabled("cmdDatabaseAdd"));
        for (const char* button :
             {"cmdDatabaseProp", "cmdDatabaseRemove", "cmdDbScan", "cmdDatabaseManage", "cmdLoadMore"})
            QVERIFY2(!f.Enabled(button), button);
        QCOMPARE(f.Picture(), 14);
    }

    void InitProperties_TargetThatTheHostSet_IsForgotten()
    {
        BrowserFixture f;
        f.Start();
        QVERIFY(f.Control->SetTarget(AlphaTarget));
        f.Control->UserControl_InitProperties();
        QString target = QStringLiteral("before");
        QVERIFY(!f.Control->GetTarget(target));
        QCOMPARE(target, QString());
    }

    void Methods_BeforeTheStart_GiveFalse()
    {
        BrowserFixture f;
        f.Control = std::make_unique<T4ZelkaBrowser>();
        QString target = QStringLiteral("before");
        QVERIFY(!f.Control->GetTarget(target));
        QVERIFY(!f.Control->SetTarget(AlphaTarget));
        QVERIFY(!f.Control->GetSobriquetTarget(QStringLiteral("North"), target));
        QVERIFY(!f.Control->NodeManagerExists());
        f.Control->InitializeDirectTab();
        f.Control->FreeObjects();
        QCOMPARE(target, QStringLiteral("before"));
        QCOMPARE(f.Operator.Texts(), QStringList());
        QCOMPARE(f.Component.Created, 0);
    }

    void InitProperties_BehindADoubleClick_SkipsNoClick()
    {
        BrowserFixture f;
        f.Component.Store.AddConnection(QStringLiteral("Alpha"), AlphaTarget);
        f.AddNodes(QStringLiteral("Alpha"), 1);
        f.StartOnDatabasePage();
        auto& view = f.Find<TreeView>("tvwNodesTree");
        Q_EMIT view.DblClick();
        f.Control->UserControl_InitProperties();
        view.SelectIndex(f.NodeEntries().ModelIndex(f.NodeEntries().Child(1, 0)));
        f.Find<QRadioButton>("optNodes").setChecked(true);
        QVERIFY(!f.TargetText().isEmpty());
    }

    void SecondControl_InTheProcess_UsesTheOpenDatabase()
    {
        BrowserFixture f;
        f.Start();
        DatabaseClass* const gateway = Database().DbObject.get();
        const ConData* const working = Model().ConObject.get();
        {
            T4ZelkaBrowser second;
            second.show();
            QCOMPARE(Database().DbObject.get(), gateway);
            QVERIFY(Model().ConObject.get() != working);
            QCOMPARE(f.Component.Created, 1);
            QVERIFY(Database().DatabaseOpen);
        }
        QVERIFY(!Database().DatabaseOpen);
        QCOMPARE(f.Operator.Texts(), QStringList());
    }

    void FreeObjects_AnyTime_ClosesAndLaterReadsFailSilently()
    {
        BrowserFixture f;
        f.StartOnDatabasePage();
        Load().LoadTree = &f.NodeEntries();
        Load().LoadParentNode = 1;
        f.Control->FreeObjects();
        QCOMPARE(f.Methods(), QStringList{QStringLiteral("CloseDatabase")});
        QVERIFY(!Load().LoadTree);
        QCOMPARE(Load().LoadParentNode, 0);
        QVERIFY(!Database().DatabaseOpen && !Database().DbObject && !Model().Database);
        QVERIFY(Model().ConObject);

        QString target = QStringLiteral("as it was");
        QVERIFY(!f.Control->GetSobriquetTarget(QStringLiteral("Node 000001"), target));
        QVERIFY(!f.Control->GetTarget(target));
        QVERIFY(!f.Control->NodeManagerExists());
        QCOMPARE(target, QStringLiteral("as it was"));
        f.Control->FreeObjects();
        f.Find<QRadioButton>("optCon").setChecked(true);
        f.Find<QPushButton>("cmdRefresh").click();
        QCOMPARE(f.Operator.Texts(), QStringList());
    }

    void FreeObjects_InTheMiddleOfTheOpening_LeavesARunningControl()
    {
        BrowserFixture f;
        f.Control = std::make_unique<T4ZelkaBrowser>();
        f.Component.BeforeCall = [&](const QString& call) {
            if (call.startsWith(QLatin1String("QueryNodesWithIdEx")))
                QMetaObject::invokeMethod(f.Control.get(), &T4ZelkaBrowser::FreeObjects,
                                          Qt::QueuedConnection);
        };
        f.AddNodes(QStringLiteral("Alpha"), 500);
        f.Start();
        QVERIFY(!Database().DatabaseOpen);
        QCOMPARE(f.Find<QTabWidget>("tabMain").currentIndex(), 1);
    }

    void Destruction_OpenDatabase_ClosesItAndLetsGoOfTheTrees()
    {
        BrowserFixture f;
        f.Start();
        Model().ConObject->ConTree = &f.ConEntries();
        Model().ConObject->NodesTree = &f.NodeEntries();
        Load().LoadTree = &f.NodeEntries();
        f.Component.TakeCalls();
        f.Control.reset();
        QCOMPARE(f.Methods(), QStringList{QStringLiteral("CloseDatabase")});
        QVERIFY(!Model().ConObject->ConTree && !Model().ConObject->NodesTree);
        QVERIFY(!Load().LoadTree);
    }

    void DirectTab_Labels_AreTheRowsOfTheKeywords()
    {
        BrowserFixture f;
        f.Start();
        const QList<std::pair<const char*, QString>> labels = {
            {"lblAddr", QStringLiteral("Address:")},      {"lblTime", QStringLiteral("Time Out:")},
            {"lblRetry", QStringLiteral("Retry Count:")}, {"lblFeId", QStringLiteral("Fe Id:")},
            {"lblFeCh", QStringLiteral("Fe Channel:")},   {"lblUser", QStringLiteral("User Name:")},
            {"lblPsw", QStringLiteral("Password:")},      {"lblPath", QStringLiteral("Path:")},
            {"lblTimeMML", QStringLiteral("Time Out:")},  {"lblRetryMML", QStringLiteral("Retry Count:")}};
        for (const auto& [name, text] : labels)
            QCOMPARE(f.Find<QLabel>(name).text(), text);
        QCOMPARE(f.Find<QTabWidget>("tabNode").tabText(0), QStringLiteral("T4 Node"));
        QCOMPARE(f.Find<QTabWidget>("tabNode").tabText(1), QStringLiteral("MML Network Element"));
        QCOMPARE(f.Find<QTabWidget>("tabNode").tabText(2), QStringLiteral("SNMP Node"));
    }

    void DirectTab_AmpersandInALongName_IsDoubled()
    {
        BrowserFixture f;
        f.Component.Answer(QStringLiteral("GetNodeTypeLongName(NET4)"), {QStringLiteral("R&D Node")});
        f.Component.Answer(QStringLiteral("GetWpParameters(NEMML,0)"), {QStringLiteral("PATH\tx")});
        f.Component.Answer(QStringLiteral("GetWpParametersLongNames(NEMML,0)"),
                           {QStringLiteral("ROOT&PATH\t0|")});
        f.Start();
        QCOMPARE(f.Find<QTabWidget>("tabNode").tabText(0), QStringLiteral("R&&D Node"));
        QCOMPARE(f.Find<QLabel>("lblPath").text(), QStringLiteral("Root&&Path:"));
    }
};

QTEST_MAIN(TestBrowserStart)
#include "TestBrowserStart.moc"
