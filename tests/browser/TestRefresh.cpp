#include "tests/browser/CommandFixture.h"

#include <QRegularExpression>

namespace {

const QString JournalAccess = QStringLiteral("Error in access to Journal table.");
const QString PositionError =
    QStringLiteral("Browser refresh error, incorrect value as reference to Journal table.");
const QString CleaningError =
    QStringLiteral("Error in Journal table cleaning, in database method JournalClearByRecordLimit.");
const QString CommitError = QStringLiteral("Failure to commit database operations.");
const QString UnknownError = QStringLiteral("Unknown error in access to database.");
const QString ReloadFollows =
    QStringLiteral("Connections and nodes must be reloaded, because of changes made by another application. "
                   "Automatic reload follows.");
const QString AccessFailure = QStringLiteral("Journal table access failure.");

/// A control whose connections show their nodes, all open.
class RefreshFixture : public CommandFixture
{
public:
    RefreshFixture() { Select(QStringLiteral("connections"), QStringLiteral("none")); }

    TinyDatabase& Store() { return Component.Store; }
    void Click() const { Find<QPushButton>("cmdRefresh").click(); }
    /// Another application adds a node.
    void AddNode(const QString& name)
    {
        Store().SaveNode(name, QString(), NodeTarget(30), QStringLiteral("Alpha"), QString());
    }
    /// The Journal no longer holds what the control has seen last.
    void TrimJournal()
    {
        for (int change = 0; change < 2; ++change)
            Store().ReplaceParentTarget(QStringLiteral("Beta"), BetaTarget());
        Store().JournalClearByRecordLimit(1, 1);
    }
    [[nodiscard]] QStringList Work() const
    {
        return Component.Calls.filter(QRegularExpression(QStringLiteral("^(?!.*Transaction\\()")));
    }
    [[nodiscard]] QStringList NamesBelow(TreeEntries::Index entry) const
    {
        QStringList names;
        for (int row = 0; row < ConEntries().ChildCount(entry); ++row)
            names << ConEntries().Text(ConEntries().Child(entry, row));
        return names;
    }
    [[nodiscard]] qint32 LastId() { return Store().Now.lastJournalId; }
    [[nodiscard]] int Loads() const { return Component.Count(QStringLiteral("QueryParentsWithID")); }
};

} // namespace

class TestRefresh : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Outcomes ---------------------------------------------------------------------------------------------

    void NothingNew_TrimsTheJournalInOneTransaction()
    {
        RefreshFixture f;
        const int commits = f.Store().Commits;
        f.Click();
        QCOMPARE(f.Work(),
                 QStringList({QStringLiteral("GetJournalLastId()"), QStringLiteral("GetJournalRecordById(1)"),
                              QStringLiteral("JournalClearByRecordLimit(12000,2000)"),
                              QStringLiteral("JournalClearByDayLimit(2,1)"),
                              QStringLiteral("GetJournalLastId()")}));
        QCOMPARE(f.Component.Calls.first(), QStringLiteral("BeginTransaction()"));
        QCOMPARE(f.Store().Commits, commits + 1);
        QCOMPARE(f.Operator.Texts(), QStringList());
        QCOMPARE(Load().JournalLastId, 1);
    }

    void Changes_OfAnother_ArePatchedInOneTransaction()
    {
        RefreshFixture f;
        f.AddNode(QStringLiteral("West"));
        f.Store().DeleteNode(QStringLiteral("South"));
        const int commits = f.Store().Commits;
        f.Click();
        QCOMPARE(f.Work(),
                 QStringList({QStringLiteral("GetJournalLastId()"), QStringLiteral("GetJournalRecordById(1)"),
                              QStringLiteral("GetJournalChangesAfterId(1)"),
                              QStringLiteral("GetJournalRecordById(2)"), QStringLiteral("GetNode(West)"),
                              QStringLiteral("GetJournalRecordById(3)"),
                              QStringLiteral("JournalClearByRecordLimit(12000,2000)"),
                              QStringLiteral("JournalClearByDayLimit(2,1)")}));
        QCOMPARE(f.Store().Commits, commits + 1);
        QCOMPARE(f.NamesBelow(f.Con(QStringLiteral("Alpha"))),
                 QStringList({QStringLiteral("Mid"), QStringLiteral("North"), QStringLiteral("West")}));
        QVERIFY(f.ConEntries().Expanded(f.Con(QStringLiteral("Beta"))));
        QCOMPARE(f.ConNode(QStringLiteral("South")), 0);
        QCOMPARE(f.Node(QStringLiteral("South")), 0);
        QVERIFY(f.Node(QStringLiteral("West")) != 0);
        QCOMPARE(Load().JournalLastId, 3);
        QCOMPARE(f.Operator.Texts(), QStringList());
    }

    void RecordsMissed_AreToldBehindTheTransactionAndLoaded()
    {
        RefreshFixture f;
        f.AddNode(QStringLiteral("West"));
        f.TrimJournal();
        int levels = -1;
        int loads = -1;
        f.Operator.WhileOpen = [&](const RecordedBox&) {
            levels = f.Store().Levels();
            loads = f.Loads();
        };
        f.Click();
        QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Plain(ReloadFollows)});
        QCOMPARE(levels, 0);
        QCOMPARE(loads, 0);
        QVERIFY(f.Node(QStringLiteral("West")) != 0);
        QCOMPARE(f.ConEntries().ChildCount(1), 2);
        QCOMPARE(Load().JournalLastId, f.LastId());
        QCOMPARE(f.Methods().mid(0, 4),
                 QStringList({QStringLiteral("GetJournalLastId"), QStringLiteral("GetJournalRecordById"),
                              QStringLiteral("GetJournalLastId"), QStringLiteral("QueryParentsWithID")}));
        f.Forget();
        f.Click();
        QCOMPARE(f.Loads(), 0);
    }

    void Position_AtTheFirstRecord_ItDecides_data()
    {
        QTest::addColumn<bool>("trimmed");
        QTest::newRow("whole Journal") << false;
        QTest::newRow("trimmed Journal") << true;
    }
    void Position_AtTheFirstRecord_ItDecides()
    {
        QFETCH(const bool, trimmed);
        RefreshFixture f;
        f.AddNode(QStringLiteral("West"));
        f.Click();
        f.AddNode(QStringLiteral("East"));
        if (trimmed)
            f.TrimJournal();
        Load().JournalLastId = 1;
        f.Click();
        QCOMPARE(f.Operator.Texts(), trimmed ? QStringList{ReloadFollows} : QStringList());
        QVERIFY(f.Node(QStringLiteral("East")) != 0);
        QCOMPARE(f.NodeEntries().ChildCount(1), 5);
        QCOMPARE(Load().JournalLastId, f.LastId());
    }

    void Record_GoneBetweenListAndRead_LoadsTheTrees()
    {
        RefreshFixture f;
        f.AddNode(QStringLiteral("West"));
        f.Component.AnswerOnce(QStringLiteral("GetJournalRecordById(2)"), {QStringLiteral("0"), {}, {}, {}});
        f.Click();
        QCOMPARE(f.Operator.Texts(), QStringList{ReloadFollows});
        QVERIFY(f.Node(QStringLiteral("West")) != 0);
        QCOMPARE(Load().JournalLastId, 2);
    }

    void Record_OfAnotherOperation_IsSkipped()
    {
        RefreshFixture f;
        f.AddNode(QStringLiteral("West"));
        f.Store().Now.journal.push_back({++f.Store().Now.lastJournalId, 99, QStringLiteral("North"), 7});
        f.Click();
        QVERIFY(f.Node(QStringLiteral("North")) != 0);
        QVERIFY(f.Node(QStringLiteral("West")) != 0);
        QCOMPARE(Load().JournalLastId, 3);
    }

    void List_Empty_LeavesThePosition()
    {
        RefreshFixture f;
        f.AddNode(QStringLiteral("West"));
        f.Component.AnswerOnce(QStringLiteral("GetJournalChangesAfterId"), {QString()});
        f.Click();
        QCOMPARE(Load().JournalLastId, 1);
        f.Click();
        QCOMPARE(Load().JournalLastId, 2);
        QVERIFY(f.Node(QStringLiteral("West")) != 0);
    }

    void LatestId_MovedByTheTrimming_IsThePosition()
    {
        RefreshFixture f;
        f.Component.AnswerOnce(QStringLiteral("GetJournalLastId"), {QStringLiteral("1")});
        f.Component.AnswerOnce(QStringLiteral("GetJournalLastId"), {QStringLiteral("7")});
        f.Click();
        QCOMPARE(Load().JournalLastId, 7);
        QCOMPARE(f.Loads(), 0);
    }

    void LatestId_BelowThePosition_TakesItAndLoadsQuietly()
    {
        RefreshFixture f;
        f.AddNode(QStringLiteral("West"));
        Load().JournalLastId = 50;
        f.Click();
        QCOMPARE(Load().JournalLastId, 2);
        QCOMPARE(f.Operator.Texts(), QStringList());
        QVERIFY(f.Node(QStringLiteral("West")) != 0);
    }

    // Timer ------------------------------------------------------------------------------------------------

    void Click_Done_LeavesTheTimer_data()
    {
        QTest::addColumn<QString>("outcome");
        QTest::addColumn<bool>("on");
        QTest::newRow("nothing new") << QString() << false;
        QTest::newRow("patched") << QStringLiteral("patched") << true;
        QTest::newRow("reloaded") << QStringLiteral("reloaded") << false;
        QTest::newRow("not begun") << QStringLiteral("BeginTransaction") << true;
        QTest::newRow("failed") << QStringLiteral("GetJournalLastId") << true;
    }
    void Click_Done_LeavesTheTimer()
    {
        QFETCH(const QString, outcome);
        QFETCH(const bool, on);
        for (const bool property : {true, false}) {
            RefreshFixture f;
            f.Control->SetRefreshTimer(property);
            if (outcome == QLatin1String("patched"))
                f.AddNode(QStringLiteral("West"));
            else if (outcome == QLatin1String("reloaded"))
                f.TrimJournal();
            else if (!outcome.isEmpty())
                f.Component.Fail(outcome);
            f.Click();
            QCOMPARE(f.TimerOn(), property && on);
            f.Tick();
            QCOMPARE(f.TimerOn(), property);
        }
    }

    void Tick_TimerIsOffMeanwhile()
    {
        RefreshFixture f;
        bool on = true;
        f.Component.BeforeCall = [&](const QString&) { on = f.TimerOn(); };
        f.Tick();
        f.Component.BeforeCall = nullptr;
        QVERIFY(!on);
        QVERIFY(f.TimerOn());
    }

    // Messages ---------------------------------------------------------------------------------------------

    void Failure_OfEachCall_IsToldAndUndone_data()
    {
        QTest::addColumn<QString>("method");
        QTest::addColumn<bool>("news");
        QTest::addColumn<QStringList>("told");
        QTest::newRow("begin") << QStringLiteral("BeginTransaction") << true << QStringList();
        for (const bool news : {false, true}) {
            const char* const when = news ? "news" : "nothing new";
            QTest::addRow("last id, %s", when)
                << QStringLiteral("GetJournalLastId") << news << QStringList{UnknownError, JournalAccess};
            QTest::addRow("record limit, %s", when) << QStringLiteral("JournalClearByRecordLimit") << news
                                                    << QStringList{UnknownError, CleaningError};
        }
        QTest::newRow("last record") << QStringLiteral("GetJournalRecordById(1)") << true
                                     << QStringList{UnknownError, PositionError};
        QTest::newRow("changes") << QStringLiteral("GetJournalChangesAfterId") << true
                                 << QStringList{UnknownError, JournalAccess};
        QTest::newRow("record") << QStringLiteral("GetJournalRecordById(3)") << true
                                << QStringList{UnknownError, JournalAccess};
    }
    void Failure_OfEachCall_IsToldAndUndone()
    {
        QFETCH(const QString, method);
        QFETCH(const bool, news);
        QFETCH(const QStringList, told);
        RefreshFixture f;
        if (news) {
            f.Store().DeleteNode(QStringLiteral("North"));
            f.AddNode(QStringLiteral("West"));
        }
        f.Component.Fail(method);
        int levels = 0;
        f.Operator.WhileOpen = [&](const RecordedBox&) { levels = qMax(levels, f.Store().Levels()); };
        f.Click();
        QCOMPARE(f.Operator.Texts(), told);
        QCOMPARE(levels, 0);
        QCOMPARE(Load().JournalLastId, 1);
        QVERIFY(f.Node(QStringLiteral("North")) != 0 && f.ConNode(QStringLiteral("North")) != 0);
        QCOMPARE(f.Node(QStringLiteral("West")), 0);
        QVERIFY(f.IsAtRest());

        f.Component.Repair();
        f.Operator.Boxes.clear();
        f.Click();
        QCOMPARE(f.Node(QStringLiteral("North")) == 0, news);
        QCOMPARE(f.ConNode(QStringLiteral("North")) == 0, news);
        QCOMPARE(f.Node(QStringLiteral("West")) != 0, news);
        QCOMPARE(f.Operator.Texts(), QStringList());
    }

    void Failure_OfTheCommit_IsToldAndUndone_data()
    {
        QTest::addColumn<QString>("outcome");
        for (const char* outcome : {"nothing new", "patched", "reloaded"})
            QTest::newRow(outcome) << QString::fromLatin1(outcome);
    }
    void Failure_OfTheCommit_IsToldAndUndone()
    {
        QFETCH(const QString, outcome);
        RefreshFixture f;
        if (outcome == QLatin1String("patched"))
            f.AddNode(QStringLiteral("West"));
        else if (outcome == QLatin1String("reloaded"))
            f.TrimJournal();
        f.FailOuterCommit();
        f.Click();
        QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Error(CommitError)});
        QCOMPARE(Load().JournalLastId, 1);
        QCOMPARE(f.Node(QStringLiteral("West")), 0);
        QCOMPARE(f.Loads(), 0);
        QVERIFY(f.IsAtRest());
    }

    void Failure_OfTheDayLimit_GoesOn()
    {
        RefreshFixture f;
        f.AddNode(QStringLiteral("West"));
        f.Component.Fail(QStringLiteral("JournalClearByDayLimit"));
        f.Click();
        QCOMPARE(f.Operator.Texts(), QStringList{UnknownError});
        QVERIFY(f.Node(QStringLiteral("West")) != 0);
        QCOMPARE(Load().JournalLastId, 2);
    }

    void Position_BelowOne_IsTold()
    {
        RefreshFixture f;
        f.AddNode(QStringLiteral("West"));
        Load().JournalLastId = 0;
        f.Click();
        QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Plain(PositionError)});
        QCOMPARE(Load().JournalLastId, 0);
        QCOMPARE(f.Component.Count(QStringLiteral("GetJournalRecordById")), 0);
        QVERIFY(f.IsAtRest());
    }

    // Trimming ---------------------------------------------------------------------------------------------

    void Limits_Zero_SwitchTheTrimmingOff_data()
    {
        QTest::addColumn<int>("records");
        QTest::addColumn<int>("days");
        QTest::addColumn<QStringList>("calls");
        const QString byRecords = QStringLiteral("JournalClearByRecordLimit(5,20)");
        const QString byDays = QStringLiteral("JournalClearByDayLimit(7,6)");
        QTest::newRow("both") << 5 << 7 << QStringList{byRecords, byDays};
        QTest::newRow("records") << 5 << 0 << QStringList{byRecords};
        QTest::newRow("days") << 0 << 7 << QStringList{byDays};
        QTest::newRow("none") << 0 << 0 << QStringList();
        QTest::newRow("below zero") << -1 << -1 << QStringList();
    }
    void Limits_Zero_SwitchTheTrimmingOff()
    {
        QFETCH(const int, records);
        QFETCH(const int, days);
        QFETCH(const QStringList, calls);
        for (const bool news : {false, true}) {
            RefreshFixture f;
            f.Control->SetJournalRecordLimit(records);
            f.Control->SetJournalRecordsToKeep(20);
            f.Control->SetJournalDayLimit(days);
            f.Control->SetJournalDaysToKeep(6);
            if (news)
                f.AddNode(QStringLiteral("West"));
            f.Click();
            QCOMPARE(f.Component.Calls.filter(QStringLiteral("JournalClear")), calls);
        }
    }

    void Limit_Exceeded_TrimsWhatWasApplied()
    {
        RefreshFixture f;
        f.Control->SetJournalRecordLimit(2);
        f.Control->SetJournalRecordsToKeep(1);
        for (const char* name : {"West", "Wild", "Wide"})
            f.AddNode(QString::fromLatin1(name));
        f.Click();
        QCOMPARE(f.Store().Now.journal.size(), std::size_t(2));
        QCOMPARE(f.NodeEntries().ChildCount(1), 6);
        f.AddNode(QStringLiteral("Wise"));
        f.Click();
        QVERIFY(f.Node(QStringLiteral("Wise")) != 0);
        QCOMPARE(f.Operator.Texts(), QStringList());
    }

    // Reload -----------------------------------------------------------------------------------------------

    void Reload_ChangedWhileTheListsAreRead_IsCaughtUp()
    {
        RefreshFixture f;
        f.TrimJournal();
        f.Component.BeforeCall = [&](const QString& call) {
            if (!call.startsWith(QLatin1String("GetNodeCount")))
                return;
            f.Component.BeforeCall = nullptr;
            f.Store().SaveParent(QStringLiteral("Late"), CommandFixture::AlphaTarget());
        };
        f.Click();
        QCOMPARE(f.Con(QStringLiteral("Late")), 0);
        f.Click();
        QVERIFY(f.Con(QStringLiteral("Late")) != 0);
        QCOMPARE(f.Operator.Texts(), QStringList{ReloadFollows});
    }

    void Reload_JournalUnreadable_IsToldAndStartsAtTheFirstRecord()
    {
        RefreshFixture f;
        f.TrimJournal();
        f.Operator.WhileOpen = [&](const RecordedBox& box) {
            if (box.text == ReloadFollows)
                f.Component.Fail(QStringLiteral("GetJournalLastId"));
        };
        f.Click();
        QCOMPARE(f.Operator.Texts().count(AccessFailure), 3);
        QCOMPARE(Load().JournalLastId, 1);
        QCOMPARE(f.NodeEntries().ChildCount(1), 3);
    }

    void Reload_ListUnreadable_IsMadeAgainWithoutABox_data()
    {
        QTest::addColumn<QString>("method");
        QTest::newRow("connections") << QStringLiteral("QueryParentsWithID");
        QTest::newRow("nodes") << QStringLiteral("QueryNodesWithIdEx");
    }
    void Reload_ListUnreadable_IsMadeAgainWithoutABox()
    {
        QFETCH(const QString, method);
        RefreshFixture f;
        f.Store().SaveParent(QStringLiteral("New"), CommandFixture::AlphaTarget());
        f.AddNode(QStringLiteral("West"));
        f.TrimJournal();
        f.Component.FailTimes(method, 1);
        f.Click();
        QVERIFY(f.Con(QStringLiteral("New")) == 0 || f.Node(QStringLiteral("West")) == 0);
        f.Operator.Boxes.clear();
        f.Click();
        QVERIFY(f.Con(QStringLiteral("New")) != 0 && f.Node(QStringLiteral("West")) != 0);
        QCOMPARE(f.Operator.Texts(), QStringList());
        f.Forget();
        f.Click();
        QCOMPARE(f.Loads(), 0);
    }

    void Reload_DatabaseClosedUnderTheBox_LoadsNothing()
    {
        RefreshFixture f;
        f.TrimJournal();
        f.Operator.WhileOpen = [&](const RecordedBox&) { f.Control->FreeObjects(); };
        f.Click();
        QCOMPARE(f.Operator.Texts(), QStringList{ReloadFollows});
        QCOMPARE(f.Loads(), 0);
        QCOMPARE(f.NodeEntries().ChildCount(1), 3);
    }

    void Start_NodesUnreadable_AreLoadedByTheNextRefresh()
    {
        RefreshFixture f;
        f.Component.FailTimes(QStringLiteral("QueryNodesWithIdEx"), 1);
        f.Control->UserControl_InitProperties();
        QCOMPARE(f.NodeEntries().ChildCount(1), 0);
        f.Operator.Boxes.clear();
        f.Click();
        QCOMPARE(f.NodeEntries().ChildCount(1), 3);
        QCOMPARE(f.Operator.Texts(), QStringList());
    }
};

QTEST_MAIN(TestRefresh)
#include "TestRefresh.moc"
