#include "browser/frmConNodesProgress.h"
#include "browser/frmLoadProgress.h"
#include "platform/controls/IntervalTimer.h"
#include "tests/browser/BrowserTestSupport.h"

#include <QEventLoop>
#include <QProgressBar>
#include <QSignalSpy>
#include <QTest>

namespace {

const QString Denied = QStringLiteral("Database access is denied, because another application is using it.");
const QString CommitFailure = QStringLiteral("Failure to commit database operations.");
const QString LoadingFailure = QStringLiteral("Database loading failure.");
const QString UnknownError = QStringLiteral("Unknown error in access to database.");
const QString RollbackFailure =
    QStringLiteral("Failure to roll back database changes. Warning, database may be corrupted.");
const QString InterruptQuestion = QStringLiteral("Do you want to interrupt database loading ?");

/// Calls back for each progress form that is shown.
class FormWatcher : public QObject
{
public:
    FormWatcher() { qApp->installEventFilter(this); }

    std::function<void(ProgressForm& form)> Shown;
    int Count = 0;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* form = qobject_cast<ProgressForm*>(watched);
        if (form && event->type() == QEvent::Show) {
            ++Count;
            if (Shown)
                Shown(*form);
        }
        return false;
    }
};

class LoadsFixture : public BrowserFixture
{
public:
    explicit LoadsFixture(int nodes = 0)
    {
        Component.Store.MaxRows = 32001;
        Component.Store.AddConnection(QStringLiteral("Alpha"), QStringLiteral("WP=BUST4,ID=254"));
        Component.Store.AddConnection(QStringLiteral("Empty"), QStringLiteral("WP=BUST4,ID=3"));
        AddNodes(QStringLiteral("Alpha"), nodes);
        Browser().BrowserTabIndex = 0;
    }

    FormWatcher Forms;

    [[nodiscard]] TreeEntries::Index Alpha() const
    {
        return ConEntries().FindByText(QStringLiteral("Alpha"), false);
    }
    [[nodiscard]] qint32 IdOfNode(int number) const
    {
        return Component.Store.Now.nodes[static_cast<std::size_t>(number - 1)].id;
    }
    [[nodiscard]] QStringList Queries(const char* method) const
    {
        return Component.Calls.filter(QString::fromLatin1(method));
    }
    void ShowNodesOfConnections() const
    {
        ShowConnections();
        Find<QCheckBox>("chkViewNodes").setChecked(true);
    }
    /// Presses Cancel as soon as the bar has come to `value`.
    void CancelAt(int value)
    {
        Forms.Shown = [value](ProgressForm& form) {
            auto* stop = form.findChild<QPushButton*>(QStringLiteral("cmdLoadStop"));
            auto* bar = form.findChild<QProgressBar*>(QStringLiteral("LoadPrgBar"));
            auto pressed = std::make_shared<bool>(false);
            connect(bar, &QProgressBar::valueChanged, stop, [=](int shown) {
                // The bar also moves while the database is opened.
                if (shown >= value && bar->maximum() != 100 && !std::exchange(*pressed, true))
                    QMetaObject::invokeMethod(stop, &QPushButton::click, Qt::QueuedConnection);
            });
        };
    }
    static void connect(QProgressBar* bar, void (QProgressBar::*signal)(int), QObject* context,
                        const std::function<void(int)>& call)
    {
        QObject::connect(bar, signal, context, call);
    }
};

} // namespace

class TestBrowserLoads : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The node tree ----------------------------------------------------------------------------------------

    void FirstLoad_NumberOfNodes_DecidesOnTheLimit_data()
    {
        QTest::addColumn<int>("nodes");
        QTest::addColumn<QString>("query");
        QTest::addColumn<int>("entries");
        QTest::addColumn<bool>("more");
        QTest::newRow("none") << 0 << QStringLiteral("QueryNodesWithIdEx(,,0)") << 0 << false;
        QTest::newRow("one") << 1 << QStringLiteral("QueryNodesWithIdEx(,,0)") << 1 << false;
        QTest::newRow("a span") << 100 << QStringLiteral("QueryNodesWithIdEx(,,0)") << 100 << false;
        QTest::newRow("5000") << 5000 << QStringLiteral("QueryNodesWithIdEx(,,0)") << 5000 << false;
        QTest::newRow("5001") << 5001 << QStringLiteral("QueryNodesWithIdEx(,,-5001)") << 5000 << true;
        QTest::newRow("6000") << 6000 << QStringLiteral("QueryNodesWithIdEx(,,-5001)") << 5000 << true;
    }
    void FirstLoad_NumberOfNodes_DecidesOnTheLimit()
    {
        QFETCH(const int, nodes);
        QFETCH(const QString, query);
        QFETCH(const int, entries);
        QFETCH(const bool, more);
        LoadsFixture f(nodes);
        f.Start();
        QCOMPARE(f.Queries("QueryNodesWithIdEx"), QStringList{query});
        QCOMPARE(f.NodeEntries().ChildCount(1), entries);
        QCOMPARE(Load().LoadMoreId, more ? f.IdOfNode(5000) : 0);
        QCOMPARE(Load().LoadLimit, more ? 32000 : 5000);
        QCOMPARE(f.Enabled("cmdLoadMore"), more);
        QVERIFY(f.NodeEntries().Sorted(1) && f.NodeEntries().Expanded(1));
    }

    void LoadMore_InTheNodeView_GoesOnBehindTheLastRow()
    {
        LoadsFixture f(5002);
        f.Start();
        f.Component.TakeCalls();
        f.Find<QPushButton>("cmdLoadMore").click();
        QCOMPARE(f.Queries("QueryNodesWithIdEx"),
                 QStringList{QStringLiteral("QueryNodesWithIdEx(,,%1)").arg(f.IdOfNode(5000))});
        QCOMPARE(f.NodeEntries().ChildCount(1), 5002);
        QCOMPARE(Load().LoadMoreId, 0);
        QVERIFY(!f.Enabled("cmdLoadMore"));
        QVERIFY(f.NodeEntries().Sorted(1) && f.NodeEntries().Expanded(1));
        QVERIFY(!Load().LoadTree);
        QCOMPARE(f.Component.Count(QStringLiteral("OpenDatabase")), 0);
    }

    void LoadMore_EntryThatTheTreeHasAlready_IsNotDoubled()
    {
        LoadsFixture f(5002);
        f.Start();
        f.NodeEntries().Add(1, QStringLiteral("N,%1").arg(f.IdOfNode(5001)), QStringLiteral("Node 005001"));
        f.Find<QPushButton>("cmdLoadMore").click();
        QCOMPARE(f.NodeEntries().ChildCount(1), 5002);
    }

    void FirstLoad_CountFails_StopsAtTheLimitWithTheComponentsPosition()
    {
        LoadsFixture f(5500);
        f.Component.Fail(QStringLiteral("GetNodeCount"));
        f.Start();
        QCOMPARE(f.NodeEntries().ChildCount(1), 5000);
        QCOMPARE(Load().LoadMoreId, 0);
        QCOMPARE(Load().LoadLimit, 5000);
    }

    void FirstLoad_SeveralAnswers_AllGoIn()
    {
        LoadsFixture f(250);
        f.Component.Store.MaxRows = 100;
        f.Start();
        QCOMPARE(f.NodeEntries().ChildCount(1), 250);
        QCOMPARE(f.Queries("QueryNodesWithIdEx"),
                 QStringList({QStringLiteral("QueryNodesWithIdEx(,,0)"),
                              QStringLiteral("QueryNodesWithIdEx(,,%1)").arg(f.IdOfNode(100)),
                              QStringLiteral("QueryNodesWithIdEx(,,%1)").arg(f.IdOfNode(200))}));
        QCOMPARE(f.Component.Store.Levels(), 0);
    }

    void FirstLoad_Rows_AreSortedWithoutCase()
    {
        LoadsFixture f;
        for (const char* name : {"delta", "Alpha 2", "charlie", "Bravo"})
            f.Component.Store.AddNode(QString::fromLatin1(name), QStringLiteral("Alpha"), QString(),
                                      QString());
        f.Start();
        QStringList names;
        for (int row = 0; row < 4; ++row)
            names << f.NodeEntries().Text(f.NodeEntries().Child(1, row));
        QCOMPARE(names, QStringList({QStringLiteral("Alpha 2"), QStringLiteral("Bravo"),
                                     QStringLiteral("charlie"), QStringLiteral("delta")}));
    }

    void FirstLoad_Form_ShowsItsStepsAndTheBar()
    {
        LoadsFixture f(300);
        QStringList labels;
        QList<int> openingValues;
        QList<int> values;
        f.Forms.Shown = [&](ProgressForm& form) {
            auto* label = form.findChild<QLabel*>(QStringLiteral("lblLoadLabel1"));
            labels << label->text();
            QVERIFY(form.isModal());
            QCOMPARE(form.findChild<QPushButton*>(QStringLiteral("cmdLoadStop"))->text(),
                     QStringLiteral("&Cancel"));
            auto* bar = form.findChild<QProgressBar*>(QStringLiteral("LoadPrgBar"));
            QObject::connect(bar, &QProgressBar::valueChanged, &form, [&, label, bar](int value) {
                if (labels.last() != label->text())
                    labels << label->text();
                (bar->maximum() == 300 ? values : openingValues) << value;
            });
        };
        f.Start();
        QCOMPARE(
            labels,
            QStringList({QStringLiteral("Database loading in progress."), QStringLiteral("Opening Database."),
                         QStringLiteral("Checking security options."),
                         QStringLiteral("Reading journal table."), QStringLiteral("Loading Nodes.")}));
        QCOMPARE(openingValues, QList<int>({1, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100}));
        QCOMPARE(values, QList<int>({1, 101, 201, 300}));
    }

    void NodeLoad_LimitAndCount_SetTheBarsEnd_data()
    {
        QTest::addColumn<int>("limit");
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("end");
        QTest::newRow("no node") << 5000 << 0 << 2;
        QTest::newRow("two nodes") << 1 << 2 << 2;
        QTest::newRow("three nodes") << 5000 << 3 << 3;
        QTest::newRow("large limit") << 1000 << 7000 << 7000;
        QTest::newRow("small limit") << 999 << 7000 << 999;
        QTest::newRow("small limit, fewer nodes") << 999 << 300 << 300;
    }
    void NodeLoad_LimitAndCount_SetTheBarsEnd()
    {
        QFETCH(const int, limit);
        QFETCH(const int, count);
        QFETCH(const int, end);
        LoadsFixture f(5);
        f.Start();
        Load().LoadTree = &f.NodeEntries();
        Load().LoadAddRoot = true;
        Load().LoadLimit = limit;
        Load().NodeCount = count;
        QPair<int, int> range;
        f.Forms.Shown = [&](ProgressForm& form) {
            const auto* bar = form.findChild<QProgressBar*>(QStringLiteral("LoadPrgBar"));
            QObject::connect(&form, &QDialog::finished, &form, [&range, bar] {
                range = {bar->minimum(), bar->maximum()};
            });
        };
        frmLoadProgress form;
        form.exec();
        QCOMPARE(range, qMakePair(1, end));
    }

    // Cancel -----------------------------------------------------------------------------------------------

    void Cancel_Confirmed_KeepsWhatIsInAndOffersMore()
    {
        LoadsFixture f(1000);
        f.CancelAt(100);
        f.Start();
        QCOMPARE(f.Operator.Boxes,
                 std::vector<RecordedBox>{RecordedBox(
                     {InterruptQuestion, BoxFlags::OkCancel, QStringLiteral("Interrupt Loading")})});
        QCOMPARE(f.NodeEntries().ChildCount(1), 100);
        QCOMPARE(Load().LoadMoreId, f.IdOfNode(100));
        QCOMPARE(Load().LoadLimit, 32000);
        QVERIFY(f.Enabled("cmdLoadMore"));
        QVERIFY(f.NodeEntries().Sorted(1) && f.NodeEntries().Expanded(1));

        f.Forms.Shown = nullptr;
        f.Find<QPushButton>("cmdLoadMore").click();
        QCOMPARE(f.NodeEntries().ChildCount(1), 1000);
    }

    void Cancel_Declined_GoesOn()
    {
        LoadsFixture f(1000);
        f.CancelAt(100);
        f.Operator.Answers = {BoxAnswer::Cancel};
        f.Start();
        QCOMPARE(f.Operator.Texts(), QStringList{InterruptQuestion});
        QCOMPARE(f.NodeEntries().ChildCount(1), 1000);
    }

    void Cancel_WhileTheQuestionStandsOpen_TheLoadGoesOn()
    {
        LoadsFixture f(1000);
        f.CancelAt(100);
        int meanwhile = 0;
        f.Operator.Answers = {BoxAnswer::Ok};
        f.Operator.WhileOpen = [&](const RecordedBox&) {
            while (f.NodeEntries().ChildCount(1) < 500)
                QCoreApplication::processEvents();
            meanwhile = f.NodeEntries().ChildCount(1);
        };
        f.Start();
        QCOMPARE(meanwhile, 500);
        QCOMPARE(f.NodeEntries().ChildCount(1), 500);
    }

    void Cancel_LoadEndsWhileTheQuestionStandsOpen_ClosesAfterTheAnswer()
    {
        LoadsFixture f(1000);
        f.CancelAt(100);
        bool formStayed = false;
        f.Operator.WhileOpen = [&](const RecordedBox&) {
            while (!f.NodeEntries().Expanded(1))
                QCoreApplication::processEvents();
            for (int round = 0; round < 20; ++round)
                QCoreApplication::processEvents();
            formStayed = qobject_cast<frmLoadProgress*>(QApplication::activeModalWidget()) != nullptr;
        };
        f.Start();
        QVERIFY(formStayed);
        QCOMPARE(f.NodeEntries().ChildCount(1), 1000);
        QCOMPARE(Load().LoadMoreId, 0);
    }

    void CloseOfTheWindow_DuringALoad_IsCancel_data()
    {
        QTest::addColumn<bool>("escape");
        QTest::newRow("close") << false;
        QTest::newRow("escape") << true;
    }
    void CloseOfTheWindow_DuringALoad_IsCancel()
    {
        QFETCH(const bool, escape);
        LoadsFixture f(1000);
        bool stayed = false;
        f.Forms.Shown = [&](ProgressForm& form) {
            auto* bar = form.findChild<QProgressBar*>(QStringLiteral("LoadPrgBar"));
            QObject::connect(bar, &QProgressBar::valueChanged, &form, [&, bar](int value) {
                if (value != 201 || bar->maximum() != 1000)
                    return;
                if (escape)
                    QTest::keyClick(&form, Qt::Key_Escape);
                else
                    form.close();
                stayed = form.isVisible();
            });
        };
        f.Start();
        QVERIFY(stayed);
        QCOMPARE(f.Operator.Texts(), QStringList{InterruptQuestion});
        QCOMPARE(f.NodeEntries().ChildCount(1), 200);
    }

    void Cancel_WhileTheDatabaseOpens_StopsBehindTheFirstRow()
    {
        LoadsFixture f(1000);
        f.Forms.Shown = [&](ProgressForm& form) {
            auto* stop = form.findChild<QPushButton*>(QStringLiteral("cmdLoadStop"));
            QTimer::singleShot(0, stop, &QPushButton::click);
        };
        f.Start();
        QCOMPARE(f.NodeEntries().ChildCount(1), 1);
        QCOMPARE(Load().LoadMoreId, f.IdOfNode(1));
    }

    // Failures ---------------------------------------------------------------------------------------------

    void NodeLoad_Denied_StaysOpenUntilTheOperatorClosesIt()
    {
        LoadsFixture f(10);
        f.Component.BeforeCall = [&](const QString& call) {
            if (call.startsWith(QLatin1String("GetNodeCount")))
                f.Component.Fail(QStringLiteral("BeginTransaction"));
        };
        bool stayed = false;
        f.Operator.WhileOpen = [&](const RecordedBox& box) {
            if (box.text != Denied)
                return;
            auto* form = qobject_cast<frmLoadProgress*>(QApplication::activeModalWidget());
            QTimer::singleShot(20, form, [&, form] {
                stayed = form->isVisible();
                f.Component.BeforeCall = nullptr;
                f.Component.Repair();
                form->close();
            });
        };
        f.Start();
        QVERIFY(stayed);
        QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Error(Denied)});
        QCOMPARE(f.NodeEntries().Count(), 1);
        QVERIFY(!f.NodeEntries().Sorted(1));
        QVERIFY(Browser().ControlInitialized);
    }

    void NodeLoad_StepFails_TellsAndUnloads_data()
    {
        QTest::addColumn<QString>("method");
        QTest::addColumn<bool>("rollbackFails");
        QTest::addColumn<QStringList>("texts");
        QTest::newRow("query") << QStringLiteral("QueryNodesWithIdEx") << false
                               << QStringList{UnknownError, LoadingFailure};
        QTest::newRow("query, rollback") << QStringLiteral("QueryNodesWithIdEx") << true
                                         << QStringList{RollbackFailure, LoadingFailure, RollbackFailure};
        QTest::newRow("commit") << QStringLiteral("CommitTransaction") << false
                                << QStringList{CommitFailure, LoadingFailure};
    }
    void NodeLoad_StepFails_TellsAndUnloads()
    {
        QFETCH(const QString, method);
        QFETCH(const bool, rollbackFails);
        QFETCH(const QStringList, texts);
        LoadsFixture f(10);
        f.Start();
        Load().LoadMoreId = 1;
        f.Component.Fail(method);
        if (rollbackFails)
            f.Component.Fail(QStringLiteral("RollbackTransaction"));
        Load().LoadTree = &f.NodeEntries();
        Load().LoadParentNode = 1;
        Load().LoadAddRoot = false;
        frmLoadProgress form;
        form.exec();
        QCOMPARE(f.Operator.Texts(), texts);
        QVERIFY(!form.isVisible());
        QCOMPARE(f.NodeEntries().ChildCount(1), 10);
        QCOMPARE(Browser().Busy, 1); // the form's own
    }

    void NodeLoad_OuterCommitFails_TellsRollsBackAndUnloads()
    {
        LoadsFixture f(10);
        f.Start();
        Load().LoadTree = &f.NodeEntries();
        Load().LoadParentNode = 1;
        // The query's own commit works.
        int commits = 0;
        f.Component.BeforeCall = [&](const QString& call) {
            if (call.startsWith(QLatin1String("CommitTransaction")) && ++commits == 2)
                f.Component.FailTimes(QStringLiteral("CommitTransaction"), 1);
        };
        frmLoadProgress form;
        form.exec();
        f.Component.BeforeCall = nullptr;
        QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Error(CommitFailure)});
        QVERIFY(!form.isVisible());
        QCOMPARE(f.Component.Store.Levels(), 0);
    }

    void NodeLoad_NoDatabase_UnloadsAtOnce()
    {
        BrowserFixture f;
        frmLoadProgress form;
        form.exec();
        QCOMPARE(f.Operator.Texts(), QStringList());
        QCOMPARE(f.Component.Calls, QStringList());
    }

    void LoadMore_InTheNodeView_RestoresTheSelectionsTarget()
    {
        LoadsFixture f(5002);
        f.Start();
        f.Click("tvwNodesTree", f.NodeEntries().Child(1, 0));
        const QString target = f.TargetText();
        QVERIFY(!target.isEmpty());
        f.Find<QLineEdit>("txtTarget").clear();
        f.Find<QPushButton>("cmdLoadMore").click();
        QCOMPARE(f.TargetText(), target);
    }

    void LoadMore_Failed_LeavesTheTreeSortedAndExpanded()
    {
        LoadsFixture f(5002);
        f.Start();
        f.Component.Fail(QStringLiteral("QueryNodesWithIdEx"));
        f.Find<QPushButton>("cmdLoadMore").click();
        QCOMPARE(f.NodeEntries().ChildCount(1), 5000);
        QVERIFY(f.NodeEntries().Sorted(1) && f.NodeEntries().Expanded(1));
        QVERIFY(f.Enabled("cmdLoadMore"));
    }

    void ConNodesLoad_StepFails_TellsAndUnloads_data()
    {
        QTest::addColumn<QString>("method");
        QTest::addColumn<QStringList>("texts");
        QTest::newRow("count") << QStringLiteral("GetParentNodesCount")
                               << QStringList{UnknownError,
                                              QStringLiteral("Failure in database operation. All "
                                                             "modifications rolled back "
                                                             "successfully.")};
        QTest::newRow("query") << QStringLiteral("GetParentNodesWithIdEx")
                               << QStringList{UnknownError, LoadingFailure};
    }
    void ConNodesLoad_StepFails_TellsAndUnloads()
    {
        QFETCH(const QString, method);
        QFETCH(const QStringList, texts);
        LoadsFixture f(10);
        f.Start();
        f.ShowNodesOfConnections();
        Load().LoadTree = &f.ConEntries();
        Load().LoadParentNode = f.Alpha();
        f.Component.Fail(method);
        frmConNodesProgress form;
        form.exec();
        QCOMPARE(f.Operator.Texts(), texts);
        QCOMPARE(f.Component.Store.Levels(), 0);
        QCOMPARE(f.ConEntries().ChildCount(f.Alpha()), 0);
    }

    void ConNodesLoad_Denied_StaysOpenUntilTheOperatorClosesIt()
    {
        LoadsFixture f(10);
        f.Start();
        f.ShowNodesOfConnections();
        Load().LoadTree = &f.ConEntries();
        Load().LoadParentNode = f.Alpha();
        f.Component.Fail(QStringLiteral("BeginTransaction"));
        frmConNodesProgress form;
        f.Operator.WhileOpen = [&](const RecordedBox&) { QTimer::singleShot(20, &form, &QDialog::close); };
        form.exec();
        QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Error(Denied)});
    }

    // The nodes of a connection ----------------------------------------------------------------------------

    void ConNodes_Cancelled_CarryTheMarkAndGoOnBehindIt()
    {
        LoadsFixture f(120);
        f.Start();
        f.ShowNodesOfConnections();
        f.CancelAt(50);
        f.DoubleClick("tvwConTree", f.Alpha());
        QCOMPARE(f.ConEntries().ChildCount(f.Alpha()), 50);
        const TreeEntries::Index marked = f.ConEntries().FindContinued(f.Alpha());
        QCOMPARE(f.ConEntries().Key(marked), QStringLiteral("N,%1").arg(-f.IdOfNode(50)));
        QVERIFY(f.ConEntries().Expanded(f.Alpha()) && f.ConEntries().Sorted(f.Alpha()));
        QVERIFY(f.Enabled("cmdLoadMore"));

        f.Forms.Shown = nullptr;
        f.Component.TakeCalls();
        f.Find<QPushButton>("cmdLoadMore").click();
        QCOMPARE(f.Queries("GetParentNodesWithIdEx"),
                 QStringList{QStringLiteral("GetParentNodesWithIdEx(Alpha,%1)").arg(f.IdOfNode(50))});
        QCOMPARE(f.ConEntries().ChildCount(f.Alpha()), 120);
        QCOMPARE(f.ConEntries().FindContinued(f.Alpha()), 0);
        QCOMPARE(f.ConEntries().Key(marked), QStringLiteral("N,%1").arg(f.IdOfNode(50)));
        QVERIFY(!f.Enabled("cmdLoadMore"));
    }

    void ConNodes_CancelledOnTheLastRow_OfferMoreAndFindNothing()
    {
        LoadsFixture f(50);
        f.Start();
        f.ShowNodesOfConnections();
        f.CancelAt(50);
        f.DoubleClick("tvwConTree", f.Alpha());
        QCOMPARE(f.ConEntries().ChildCount(f.Alpha()), 50);
        QVERIFY(f.ConEntries().FindContinued(f.Alpha()) != 0);
        QVERIFY(f.Enabled("cmdLoadMore"));

        f.Forms.Shown = nullptr;
        f.Find<QPushButton>("cmdLoadMore").click();
        QCOMPARE(f.ConEntries().ChildCount(f.Alpha()), 50);
        QCOMPARE(f.ConEntries().FindContinued(f.Alpha()), 0);
        QVERIFY(!f.Enabled("cmdLoadMore"));
    }

    void ConNodes_MarkedNodeClicked_IsNotStaleAndLoadMoreGoesOn()
    {
        LoadsFixture f(120);
        f.Start();
        f.ShowNodesOfConnections();
        f.CancelAt(50);
        f.DoubleClick("tvwConTree", f.Alpha());
        f.Operator.Boxes.clear();
        f.Forms.Shown = nullptr;
        f.Click("tvwConTree", f.ConEntries().FindContinued(f.Alpha()));
        QCOMPARE(f.Operator.Texts(), QStringList());
        QCOMPARE(f.Control->Sobriquet(), QStringLiteral("Node 000050"));
        f.Find<QPushButton>("cmdLoadMore").click();
        QCOMPARE(f.ConEntries().ChildCount(f.Alpha()), 120);
    }

    void ConNodes_SeveralAnswers_AllGoIn()
    {
        LoadsFixture f(250);
        f.Component.Store.MaxRows = 100;
        f.Start();
        f.ShowNodesOfConnections();
        bool sortedMeanwhile = false;
        f.Component.BeforeCall = [&](const QString& call) {
            if (call.startsWith(QLatin1String("GetParentNodesWithIdEx")))
                sortedMeanwhile = sortedMeanwhile || f.ConEntries().Sorted(f.Alpha());
        };
        f.DoubleClick("tvwConTree", f.Alpha());
        f.Component.BeforeCall = nullptr;
        QVERIFY(!sortedMeanwhile && f.ConEntries().Sorted(f.Alpha()));
        QCOMPARE(f.ConEntries().ChildCount(f.Alpha()), 250);
        QCOMPARE(f.Component.Count(QStringLiteral("GetParentNodesWithIdEx")), 3);
    }

    void ConNodes_EmptyConnection_ShowOneOfTwoAndNoChild()
    {
        LoadsFixture f(3);
        f.Start();
        f.ShowNodesOfConnections();
        QString bar;
        QString caption;
        f.Forms.Shown = [&](ProgressForm& form) {
            caption = form.findChild<QPushButton*>(QStringLiteral("cmdLoadStop"))->text();
            auto* shown = form.findChild<QProgressBar*>(QStringLiteral("LoadPrgBar"));
            QObject::connect(&form, &QDialog::finished, &form, [&bar, shown] {
                bar = QStringLiteral("%1 of %2").arg(shown->value()).arg(shown->maximum());
            });
        };
        const TreeEntries::Index empty = f.ConEntries().FindByText(QStringLiteral("Empty"), false);
        f.DoubleClick("tvwConTree", empty);
        QCOMPARE(bar, QStringLiteral("1 of 2"));
        QCOMPARE(caption, QStringLiteral("Cancel"));
        QCOMPARE(f.ConEntries().ChildCount(empty), 0);
        QVERIFY(!f.Enabled("cmdLoadMore"));
    }

    void ConNodes_WithRoot_ReplaceTheTree()
    {
        LoadsFixture f(3);
        f.Start();
        f.ShowNodesOfConnections();
        Load().LoadTree = &f.ConEntries();
        Load().LoadParentNode = f.Alpha();
        Load().LoadAddRoot = true;
        Load().LoadRootKey = QStringLiteral("Connections");
        Load().LoadKeySuffix = QStringLiteral("N");
        frmConNodesProgress form;
        form.exec();
        QCOMPARE(f.ConEntries().Count(), 4);
        QCOMPARE(f.ConEntries().Key(1), QStringLiteral("R,0"));
        QCOMPARE(f.ConEntries().Text(1), QStringLiteral("Connections"));
        QCOMPARE(f.ConEntries().ChildCount(1), 3);
        QVERIFY(f.ConEntries().Sorted(1) && f.ConEntries().Expanded(1));
    }

    void LoadMore_ConnectionViewWithoutNodesChosen_LoadsNothing()
    {
        LoadsFixture f(3);
        f.Start();
        f.ShowConnections();
        f.Component.TakeCalls();
        const int forms = f.Forms.Count;
        f.Find<QPushButton>("cmdLoadMore").setEnabled(true);
        f.Find<QPushButton>("cmdLoadMore").click();
        QCOMPARE(f.Forms.Count, forms);
        QCOMPARE(f.Component.Calls, QStringList());
    }

    void LoadMore_RootOrNothingSelected_RestoresTheTimerAndStops()
    {
        LoadsFixture f(3);
        f.Start();
        f.ShowNodesOfConnections();
        f.Control->SetRefreshTimer(true);
        const int forms = f.Forms.Count;
        auto& more = f.Find<QPushButton>("cmdLoadMore");
        more.setEnabled(true);
        more.click();
        f.Click("tvwConTree", 1);
        more.setEnabled(true);
        more.click();
        QCOMPARE(f.Forms.Count, forms);
        QVERIFY(f.Find<IntervalTimer>("tmrRefreshTimer").Enabled());
    }

    void LoadMore_AnyOutcome_TimerIsOffMeanwhileAndOnAgain()
    {
        LoadsFixture f(5002);
        f.Start();
        f.Control->SetRefreshTimer(true);
        auto& timer = f.Find<IntervalTimer>("tmrRefreshTimer");
        bool ran = false;
        f.Forms.Shown = [&](ProgressForm&) { ran = timer.Enabled(); };
        f.Find<QPushButton>("cmdLoadMore").click();
        QVERIFY(!ran);
        QVERIFY(timer.Enabled());
    }

    // Views ------------------------------------------------------------------------------------------------

    void OptCon_FirstTime_FillsTheTreeOnce()
    {
        LoadsFixture f(3);
        f.Start();
        f.Component.TakeCalls();
        f.ShowConnections();
        QCOMPARE(f.ConEntries().Text(1), QStringLiteral("Connections"));
        QCOMPARE(f.ConEntries().ChildCount(1), 2);
        QCOMPARE(f.ConEntries().Key(f.Alpha()).left(2), QStringLiteral("C,"));
        QVERIFY(f.ConEntries().Expanded(1) && f.ConEntries().Sorted(1));
        QVERIFY(Model().ConObject->optCon);
        QCOMPARE(f.Caption(), QStringLiteral("Connections"));
        QVERIFY(f.Find<QCheckBox>("chkViewNodes").isVisible());
        QVERIFY(f.Find<TreeView>("tvwConTree").isVisible() && !f.Find<TreeView>("tvwNodesTree").isVisible());

        f.Find<QRadioButton>("optNodes").setChecked(true);
        QVERIFY(!Model().ConObject->optCon);
        QCOMPARE(f.Caption(), QStringLiteral("Nodes"));
        QVERIFY(!f.Find<QCheckBox>("chkViewNodes").isVisible());
        QVERIFY(!f.Find<TreeView>("tvwConTree").isVisible() && f.Find<TreeView>("tvwNodesTree").isVisible());
        f.ShowConnections();
        QCOMPARE(f.Component.Count(QStringLiteral("QueryParentsWithID")), 1);
    }

    void OptCon_FirstTime_ShowsTheBusyPointerBeforeItAsks()
    {
        LoadsFixture f(3);
        f.Start();
        QList<bool> pointers;
        Machine().ShowBusyPointer = [&](bool busy) { pointers << busy; };
        bool busyBefore = false;
        f.Component.BeforeCall = [&](const QString&) {
            busyBefore = !pointers.isEmpty() && pointers.first();
            f.Component.BeforeCall = nullptr;
        };
        f.ShowConnections();
        QVERIFY(busyBefore);
        QCOMPARE(pointers.last(), false);
    }

    void OptCon_QueryFails_PutsThePointerBackAndTellsNothingOfItsOwn()
    {
        LoadsFixture f(3);
        f.Start();
        QList<bool> pointers;
        Machine().ShowBusyPointer = [&](bool busy) { pointers << busy; };
        f.Component.Fail(QStringLiteral("QueryParentsWithID"));
        f.ShowConnections();
        QCOMPARE(f.Operator.Texts(), QStringList{UnknownError});
        QCOMPARE(pointers.first(), true);
        QCOMPARE(pointers.last(), false);
        QCOMPARE(f.ConEntries().Count(), 0);
        QVERIFY(!Model().ConObject->optCon);

        f.Component.Repair();
        f.Find<QRadioButton>("optNodes").setChecked(true);
        f.ShowConnections();
        QCOMPARE(f.ConEntries().ChildCount(1), 2);
    }

    void ViewNodes_Switched_ChangesTheChildrenOfOpenConnections()
    {
        LoadsFixture f(3);
        f.Component.Store.AddConnection(QStringLiteral("Closed"), QStringLiteral("WP=BUST4,ID=5"));
        f.Start();
        f.ShowConnections();
        auto& viewNodes = f.Find<QCheckBox>("chkViewNodes");
        const auto kindBelowAlpha = [&] { return f.ConEntries().Kind(f.ConEntries().Child(f.Alpha(), 0)); };
        f.DoubleClick("tvwConTree", f.Alpha());
        QCOMPARE(kindBelowAlpha(), QLatin1Char('W'));

        viewNodes.setChecked(true);
        QVERIFY(Model().ConObject->ViewNodesChecked);
        QCOMPARE(f.ConEntries().ChildCount(f.Alpha()), 3);
        QCOMPARE(kindBelowAlpha(), QLatin1Char('N'));
        QVERIFY(f.ConEntries().Expanded(f.Alpha()));
        QVERIFY(!Load().LoadTree);

        viewNodes.setChecked(false);
        QVERIFY(!Model().ConObject->ViewNodesChecked);
        QCOMPARE(f.ConEntries().ChildCount(f.Alpha()), 1);
        QCOMPARE(kindBelowAlpha(), QLatin1Char('W'));
        QCOMPARE(f.ConEntries().ChildCount(f.ConEntries().FindByText(QStringLiteral("Closed"), false)), 0);
    }

    void ViewNodes_LookupFails_EndsAtOnce()
    {
        LoadsFixture f(3);
        f.Start();
        f.ShowConnections();
        f.DoubleClick("tvwConTree", f.Alpha());
        const TreeEntries::Index empty = f.ConEntries().FindByText(QStringLiteral("Empty"), false);
        f.DoubleClick("tvwConTree", empty);
        f.Find<QCheckBox>("chkViewNodes").setChecked(true);
        f.DoubleClick("tvwConTree", f.Alpha());
        f.Component.TakeCalls();
        f.Component.Fail(QStringLiteral("GetTargetItemList"));
        f.Find<QCheckBox>("chkViewNodes").setChecked(false);
        QCOMPARE(f.Component.Count(QStringLiteral("GetTargetItemList")), 1);
        QCOMPARE(f.ConEntries().ChildCount(f.Alpha()), 0);
    }

    // Refresh ----------------------------------------------------------------------------------------------

    void Refresh_WithoutNews_OpensNoForm()
    {
        LoadsFixture f(3);
        f.Start();
        const int forms = f.Forms.Count;
        f.Find<QPushButton>("cmdRefresh").click();
        f.Component.Store.SaveParent(QStringLiteral("Third"), QStringLiteral("WP=BUST4,ID=9"));
        f.Find<QPushButton>("cmdRefresh").click();
        QCOMPARE(f.Forms.Count, forms);
    }

    void Tick_DuringALoadOrWithoutDatabase_IsLeftOut()
    {
        LoadsFixture f(5002);
        f.Start();
        auto& timer = f.Find<IntervalTimer>("tmrRefreshTimer");
        f.Component.TakeCalls();
        f.Forms.Shown = [&](ProgressForm&) { Q_EMIT timer.Timer(); };
        f.Find<QPushButton>("cmdLoadMore").click();
        QCOMPARE(f.Component.Count(QStringLiteral("GetJournalLastId")), 0);

        Q_EMIT timer.Timer();
        QCOMPARE(f.Component.Count(QStringLiteral("GetJournalLastId")), 2);
        f.Control->FreeObjects();
        Q_EMIT timer.Timer();
        QCOMPARE(f.Component.Count(QStringLiteral("GetJournalLastId")), 2);
    }

    void Tick_Done_LeavesTheTimerAsThePropertySays()
    {
        LoadsFixture f(3);
        f.Start();
        auto& timer = f.Find<IntervalTimer>("tmrRefreshTimer");
        f.Control->SetRefreshTimer(true);
        Q_EMIT timer.Timer();
        QVERIFY(timer.Enabled());
        f.Control->SetRefreshTimer(false);
        Q_EMIT timer.Timer();
        QVERIFY(!timer.Enabled());
    }
};

QTEST_MAIN(TestBrowserLoads)
#include "TestBrowserLoads.moc"
