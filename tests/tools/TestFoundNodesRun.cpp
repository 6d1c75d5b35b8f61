#include "components/hvxdb/HvxDatabaseComponent.h"
#include "database/DatabaseClass.h"
#include "model/ConData.h"
#include "tests/components/DatabaseFixture.h"
#include "tests/support/FakeMachine.h"
#include "tests/support/ScriptedDatabase.h"
#include "tools/zelka/AddressWalk.h"
#include "tools/zelka/CommandContext.h"
#include "tools/zelka/CommandError.h"
#include "tools/zelka/DatabaseSession.h"
#include "tools/zelka/FoundNodesRun.h"
#include "tools/zelka/Interruption.h"
#include "tools/zelka/ScanSaveOptions.h"

#include <QBuffer>
#include <QTest>

#include <csignal>

/// The saves of `zelka scan` on a database whose calls fail, and which others change between them.
class TestFoundNodesRun : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Run_AnyCallFails_TellsWhatIsSaved_data();
    void Run_AnyCallFails_TellsWhatIsSaved();
    void DryRun_AnyCallFails_ChangesNothing();
    void Run_CtrlC_EndsBehindTheNodeUnderWay_data();
    void Run_CtrlC_EndsBehindTheNodeUnderWay();
    void Run_CtrlCDuringTheCheck_SavesNothing();
    void Run_ConnectionTouchedBetweenSaves_EndsThere_data();
    void Run_ConnectionTouchedBetweenSaves_EndsThere();
    void Run_NameGivenAwayBetweenSaves_IsRefused_data();
    void Run_NameGivenAwayBetweenSaves_IsRefused();
    void Run_ReplacedNodeGoneMeanwhile_IsSaved();
    void Run_DatabaseHeldElsewhere_EndsUnavailable();
    void Run_NodeTypeMissing_IsToldOnce();
    void Run_DatabaseGone_EndsUnavailable();
};

namespace {

/// Nodes found on Alpha and a database between whose calls something happens.
class FoundNodes
{
public:
    explicit FoundNodes(const char* options = "--save --on-conflict replace")
        : FoundNodes(std::make_shared<DatabaseFixture>(), options)
    {}
    explicit FoundNodes(const std::shared_ptr<DatabaseFixture>& file,
                        const char* options = "--save --on-conflict replace")
        : File(*file), m_file(file), m_component(std::make_unique<HvxDatabaseComponent>(File.Source()))
    {
        m_component->SetBusyTimeout(0);
        Script.Backing = m_component.get();
        m_data.open(QIODevice::WriteOnly);
        m_words.open(QIODevice::WriteOnly);
        m_context.source = File.Source().toStdString();
        CLI::App app;
        m_options.Declare(app);
        app.parse(options);
        const DatabaseSession session(m_context);
        if (!session.Connection().SetParentConData(QStringLiteral("Alpha"), true))
            qFatal("The connection cannot be read.");
        m_direct.Copy(session.Connection());
    }

    /// Runs before the k-th save begins, from 1; North is the first one and is replaced.
    void BeforeSave(int k, const std::function<void()>& work)
    {
        Script.BeforeCall = [this, k, work, done = false](const QString& call) mutable {
            // The node that gives way is read to check its name and once more for its manager.
            const bool saving = Script.Count(QStringLiteral("GetNodeEx")) == 2;
            if (done || !saving || Script.Count(QStringLiteral("SaveNode")) != k - 1 ||
                call != u"BeginTransaction()" || m_component->InTransaction())
                return;
            done = true;
            work();
        };
    }

    /// Gives the exit code; nodes "North", "Mill" and "Tower" were found at 101 to 103.
    int Run(const QStringList& names = {"North", "Mill", "Tower"})
    {
        const Interruption interruption;
        Script.Calls.clear();
        FoundNodesRun run(m_context, m_options, m_direct);
        int address = 101;
        for (const QString& name : names)
            run.Take({address++, QStringLiteral("T"), name}, QStringLiteral("3"), QStringLiteral("1500"));
        try {
            run.Run();
            run.RequireNoneRefused();
            return 0;
        } catch (const CommandError& error) {
            if (error.Code() != ExitCode::Refused || error.Told())
                run.TellEnd();
            Error = error.Text();
            return static_cast<int>(error.Code());
        } catch (const ComponentError& error) {
            run.TellEnd();
            Error = error.Description();
            return -1;
        }
    }

    /// "address state" of each line.
    [[nodiscard]] QStringList States() const
    {
        QStringList states;
        for (const QString& line : Lines(m_data))
            states << line.section(u'\t', 0, 1).replace(u'\t', u' ');
        return states;
    }
    [[nodiscard]] QString Reason(int line) const { return Lines(m_data).value(line).section(u'\t', 3); }
    [[nodiscard]] QStringList Words() const { return Lines(m_words); }
    /// The target of a node, as another program finds it; empty without one.
    [[nodiscard]] QString TargetOf(const QString& name) const
    {
        return File.RunSql(QStringLiteral("SELECT target FROM node WHERE name = '%1'").arg(name)).toString();
    }
    [[nodiscard]] QStringList Contents() const
    {
        return File.Rows(QStringLiteral("SELECT name || '|' || target FROM node ORDER BY id")) +
               File.Rows(QStringLiteral("SELECT max(id) FROM journal"));
    }

    /// What the end of the program does: nothing is held any more.
    void EndProgram() { m_component.reset(); }

    const DatabaseFixture& File;
    ScriptedDatabase Script;
    FakeMachine Clock;
    /// What the command ended with.
    QString Error;

private:
    static QStringList Lines(const QBuffer& buffer)
    {
        return QString::fromUtf8(buffer.data()).split(u'\n', Qt::SkipEmptyParts);
    }

    std::shared_ptr<DatabaseFixture> m_file;
    std::unique_ptr<HvxDatabaseComponent> m_component;
    QBuffer m_data;
    QBuffer m_words;
    CommandOutput m_output{m_data, m_words};
    CommandContext m_context{m_output, {}, false, {}};
    ScanSaveOptions m_options;
    ConData m_direct;
};

QString SavedTarget(int address)
{
    return QStringLiteral("WP=NET4,ADDR=%1,TIME=1500,RETRY=3").arg(address);
}

/// Brings the records of the nodes back to what they were.
void Restore(const DatabaseFixture& file)
{
    file.RunSql(QStringLiteral("DELETE FROM node WHERE name IN ('Mill', 'Tower', 'Afterwards')"));
    file.RunSql(QStringLiteral("UPDATE node SET target = '%1' WHERE name = 'North'")
                    .arg(QString::fromLatin1(DatabaseFixture::NorthTarget)));
}

/// What is wrong with the outcome of a run of North, Mill and Tower; empty: nothing.
QString ProblemWith(const FoundNodes& found, int code)
{
    const QStringList names{"North", "Mill", "Tower"};
    const QStringList states = found.States();
    int saved = 0;
    for (int i = 0; i < names.size(); ++i) {
        const QString target = found.TargetOf(names[i]);
        const QString state = states.value(i).section(u' ', 1);
        const bool isSaved = state == u"saved" || state == u"replaced";
        saved += isSaved ? 1 : 0;
        const QString before = i == 0 ? QString::fromLatin1(DatabaseFixture::NorthTarget) : QString();
        if (target != (isSaved ? SavedTarget(101 + i) : before))
            return names[i] + u' ' + state + u' ' + target;
    }
    const QString told = saved == 0 ? QStringLiteral("zelka: Nothing is saved.")
                                    : QStringLiteral("zelka: %1 of 3 found nodes are saved.").arg(saved);
    if (code == 0)
        return saved == 3 ? QString() : states.join(u';');
    if (!found.Words().contains(told) && !found.Error.endsWith(told.section(u' ', 1)))
        return found.Words().join(u';') + u';' + found.Error;
    if (!states.isEmpty() && states.size() != names.size())
        return states.join(u';');
    return {};
}

} // namespace

// Failures --------------------------------------------------------------------------------------------------

void TestFoundNodesRun::Run_AnyCallFails_TellsWhatIsSaved_data()
{
    QTest::addColumn<quint32>("number");
    QTest::addColumn<bool>("goesOn");
    QTest::newRow("refused") << DatabaseErrorNumber::Refused << false;
    QTest::newRow("in use") << DatabaseErrorNumber::InUse << false;
    QTest::newRow("refused from there on") << DatabaseErrorNumber::Refused << true;
}

void TestFoundNodesRun::Run_AnyCallFails_TellsWhatIsSaved()
{
    QFETCH(quint32, number);
    QFETCH(bool, goesOn);
    int calls = 0;
    // Making one for each call would take most of the time.
    const auto file = std::make_shared<DatabaseFixture>();
    {
        FoundNodes found(file);
        QCOMPARE(found.Run(), 0);
        QCOMPARE(ProblemWith(found, 0), QString());
        calls = static_cast<int>(found.Script.Calls.size());
    }
    QVERIFY(calls > 30);
    int failed = 0;
    for (int k = 1; k <= calls; ++k) {
        Restore(*file);
        FoundNodes found(file);
        if (goesOn)
            found.Script.FailFrom(k, number);
        else
            found.Script.FailCall(k, number);

        const int code = found.Run();

        found.EndProgram();
        failed += code != 0 ? 1 : 0;
        const QString problem = ProblemWith(found, code);
        QVERIFY2(
            problem.isEmpty(),
            qUtf8Printable(QStringLiteral("%1 %2: %3").arg(k).arg(found.Script.Calls.value(k - 1), problem)));
        // Others go on.
        found.File.OpenComponent()->SaveNode("Afterwards", "", "WP=NET4,ADDR=9", "Beta", "");
    }
    QVERIFY(failed > calls / 2);
}

void TestFoundNodesRun::DryRun_AnyCallFails_ChangesNothing()
{
    int calls = 0;
    const auto file = std::make_shared<DatabaseFixture>();
    for (int k = 0; k <= calls; ++k) {
        FoundNodes found(file, "--dry-run --on-conflict replace");
        const QStringList before = found.Contents();
        if (k > 0)
            found.Script.FailCall(k);

        const int code = found.Run();

        QCOMPARE(found.Contents(), before);
        if (code == 0)
            QCOMPARE(found.States(), (QStringList{"101 elsewhere", "102 new", "103 new"}));
        else
            QVERIFY(found.States().isEmpty());
        if (k == 0)
            calls = static_cast<int>(found.Script.Calls.size());
        QCOMPARE(code == 0, found.Error.isEmpty());
    }
    QVERIFY(calls > 10);
}

void TestFoundNodesRun::Run_NodeTypeMissing_IsToldOnce()
{
    FoundNodes found;
    const QStringList before = found.Contents();
    found.Script.Fail("GetNodeTypeId");

    QCOMPARE(found.Run(), static_cast<int>(ExitCode::Refused));

    QCOMPARE(found.Error, "Node type NET4 not found.");
    QCOMPARE(found.Words().count("zelka: Node type NET4 not found."), 1);
    QCOMPARE(found.States(), (QStringList{"101 unsaved", "102 unsaved", "103 unsaved"}));
    QCOMPARE(found.Contents(), before);
}

void TestFoundNodesRun::Run_DatabaseGone_EndsUnavailable()
{
    FoundNodes found;
    found.Script.Fail("OpenDatabase");

    QVERIFY(found.Run() != 0);

    QVERIFY(found.Words().contains("zelka: Nothing is saved."));
    QCOMPARE(found.States(), QStringList());
}

// Ctrl+C
// ------------------------------------------------------------------------------------------------------

void TestFoundNodesRun::Run_CtrlC_EndsBehindTheNodeUnderWay_data()
{
    QTest::addColumn<int>("during");
    QTest::addColumn<int>("code");
    QTest::addColumn<QStringList>("states");
    QTest::addColumn<QStringList>("words");
    QTest::newRow("first") << 1 << 130 << QStringList{"101 replaced", "102 unsaved", "103 unsaved"}
                           << QStringList{"zelka: 1 of 3 found nodes are saved."};
    QTest::newRow("second") << 2 << 130 << QStringList{"101 replaced", "102 saved", "103 unsaved"}
                            << QStringList{"zelka: 2 of 3 found nodes are saved."};
    QTest::newRow("last") << 3 << 0 << QStringList{"101 replaced", "102 saved", "103 saved"} << QStringList{};
}

void TestFoundNodesRun::Run_CtrlC_EndsBehindTheNodeUnderWay()
{
    QFETCH(int, during);
    QFETCH(int, code);
    FoundNodes found;
    found.BeforeSave(during, [] { (void)std::raise(SIGINT); });

    QCOMPARE(found.Run(), code);

    QTEST(found.States(), "states");
    QTEST(found.Words(), "words");
    QCOMPARE(ProblemWith(found, code), QString());
}

void TestFoundNodesRun::Run_CtrlCDuringTheCheck_SavesNothing()
{
    FoundNodes found;
    const QStringList before = found.Contents();
    found.Script.BeforeCall = [](const QString& call) {
        if (call == u"NodeNameExist(Mill)")
            (void)std::raise(SIGINT);
    };

    QCOMPARE(found.Run(), 130);

    QCOMPARE(found.Words(), QStringList{"zelka: Nothing is saved."});
    QCOMPARE(found.States(), QStringList());
    QCOMPARE(found.Contents(), before);
}

// Beside other programs
// -----------------------------------------------------------------------------------------

void TestFoundNodesRun::Run_ConnectionTouchedBetweenSaves_EndsThere_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<int>("before");
    for (const char* change : {"renamed", "changed"}) {
        for (const int before : {1, 2, 3})
            QTest::addRow("%s before %d", change, before) << change << before;
    }
}

void TestFoundNodesRun::Run_ConnectionTouchedBetweenSaves_EndsThere()
{
    QFETCH(QString, change);
    QFETCH(int, before);
    FoundNodes found;
    found.BeforeSave(before, [&] {
        const auto other = found.File.OpenComponent();
        if (change == u"renamed")
            other->ReplaceParentName("Alpha", "Omega");
        else
            other->ReplaceParentTarget("Alpha", DatabaseFixture::BetaTarget);
    });

    QCOMPARE(found.Run(), static_cast<int>(ExitCode::Refused));

    const QString words = QStringLiteral("Node saving is prevented, because another application has changed "
                                         "(deleted) connection Alpha.");
    QStringList expected{"101 replaced", "102 saved", "103 saved"};
    expected[before - 1] = QString::number(100 + before) + " failed";
    for (int i = before; i < 3; ++i)
        expected[i] = QString::number(101 + i) + " unsaved";
    QCOMPARE(found.States(), expected);
    QCOMPARE(found.Reason(before - 1), words);
    QCOMPARE(found.Words().first(), "zelka: " + words);
    QCOMPARE(ProblemWith(found, 1), QString());
}

void TestFoundNodesRun::Run_NameGivenAwayBetweenSaves_IsRefused_data()
{
    QTest::addColumn<bool>("connection");
    QTest::newRow("node") << false;
    QTest::newRow("connection") << true;
}

void TestFoundNodesRun::Run_NameGivenAwayBetweenSaves_IsRefused()
{
    QFETCH(bool, connection);
    FoundNodes found;
    found.BeforeSave(2, [&] {
        const auto other = found.File.OpenComponent();
        if (connection)
            other->SaveParent("Mill", DatabaseFixture::BetaTarget);
        else
            other->SaveNode("Mill", "", "WP=NET4,ADDR=9", "Beta", "");
    });

    QCOMPARE(found.Run(), static_cast<int>(ExitCode::Refused));

    QCOMPARE(found.States(), (QStringList{"101 replaced", "102 refused", "103 saved"}));
    QVERIFY(!found.Reason(1).isEmpty());
    QCOMPARE(found.Error, "1 of 3 found nodes are refused. 2 of 3 found nodes are saved.");
    QCOMPARE(found.TargetOf("Mill"), connection ? "" : "WP=NET4,ADDR=9");
}

void TestFoundNodesRun::Run_ReplacedNodeGoneMeanwhile_IsSaved()
{
    FoundNodes found;
    found.BeforeSave(1, [&] { found.File.OpenComponent()->DeleteNode("North"); });

    QCOMPARE(found.Run(), 0);

    QCOMPARE(found.States(), (QStringList{"101 saved", "102 saved", "103 saved"}));
    QCOMPARE(ProblemWith(found, 0), QString());
}

void TestFoundNodesRun::Run_DatabaseHeldElsewhere_EndsUnavailable()
{
    FoundNodes found;
    const auto other = found.File.OpenComponent();
    found.BeforeSave(2, [&] {
        qint32 started = 0;
        other->BeginTransaction(started);
        other->DeleteNode("East");
    });

    QCOMPARE(found.Run(), static_cast<int>(ExitCode::DatabaseUnavailable));
    other->RollbackTransaction();

    QCOMPARE(found.States(), (QStringList{"101 replaced", "102 failed", "103 unsaved"}));
    QCOMPARE(found.Reason(1), "Database access is denied, because another application is using it.");
    QCOMPARE(ProblemWith(found, 3), QString());
}

QTEST_GUILESS_MAIN(TestFoundNodesRun)
#include "TestFoundNodesRun.moc"
