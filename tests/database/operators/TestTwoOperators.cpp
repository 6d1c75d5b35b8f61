#include "platform/MsgBox.h"
#include "tests/components/DatabaseFixture.h"
#include "tests/database/operators/OperatorCommands.h"
#include "tests/database/operators/OperatorSession.h"
#include "tests/support/FakeMachine.h"

#include <QTest>

#include <algorithm>
#include <bit>
#include <map>

/// How an operator answers the question whether to try again while the other holds the database.
enum class WhenBusy
{
    GiveUp,
    Wait,
};

/// Both operators in front of their screens.
class BothOperators : public BoxPresenter
{
public:
    std::array<OperatorSession*, 2> Sessions{};
    std::array<bool, 2> Replaces{};
    int Current = 0;
    WhenBusy Busy = WhenBusy::GiveUp;
    /// The question whether to try again stands open.
    bool Waiting = false;

    BoxAnswer ShowMsgBox(const QString& text, int flags, const QString&) override
    {
        OperatorSession& session = *Sessions[static_cast<size_t>(Current)];
        if ((flags & BoxFlags::ButtonMask) == BoxFlags::Plain) {
            session.Told << text;
            return BoxAnswer::Ok;
        }
        // The other may work while a question stands open.
        const bool sharing = text.startsWith(QLatin1String("Database is in use"));
        Waiting = sharing && Busy == WhenBusy::Wait;
        session.StepOutside();
        Waiting = false;
        if (sharing ? Busy == WhenBusy::Wait : Replaces[static_cast<size_t>(Current)])
            return BoxAnswer::Ok;
        session.Told << text;
        return BoxAnswer::Cancel;
    }
    bool ShowInputBox(const QString&, const QString&, QString&) override { return false; }
};

/// What came of one run.
struct Outcome
{
    std::array<bool, 2> done{};
    std::array<QStringList, 2> told;
    QString contents;
};

/// All records of a database, without ids.
static QString ContentsOf(const QString& source)
{
    HvxDatabaseComponent component(source);
    component.OpenDatabase();
    QStringList lines;
    QString list;
    PairTable rows;
    int count = 0;
    component.QueryParentsWithID(QString(), list);
    PairListToTable(list, rows, count);
    for (const ItemPair& row : rows) {
        QString target;
        component.GetParent(row.first, target);
        lines << row.first + u'=' + target;
    }
    qint32 position = 0;
    component.QueryNodesWithIdEx(QString(), QString(), list, position);
    PairListToTable(list, rows, count);
    for (const ItemPair& row : rows) {
        QStringList fields(4);
        component.GetNodeEx(row.first, fields[0], fields[1], fields[2], fields[3]);
        lines << row.first + u'=' + fields.join(u';');
    }
    lines.sort();
    return lines.join(u'\n');
}

/// On a server, where each order takes many times as long, some of the pairs stand for all.
static bool IsTried(int first, int second)
{
    return !DatabaseFixture::OnServer() || (first + 3 * second) % 43 == 3;
}

/// Two operators change one database, in every order of what they do.
class TestTwoOperators : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void Commands_Alone_Succeed();
    void OneBetweenTheOthersTransactions_NothingIsLost_data();
    void OneBetweenTheOthersTransactions_NothingIsLost();
    void OneInsideTheOthersTransaction_IsHeldOff_data();
    void OneInsideTheOthersTransaction_IsHeldOff();
    void TransactionsInAnyOrder_NothingIsLost_data();
    void TransactionsInAnyOrder_NothingIsLost();
    void cleanupTestCase();

private:
    using Commands = std::array<const OperatorCommand*, 2>;
    /// `waiting`: the second operator stands before the question whether to try again.
    using Chooser = std::function<int(const std::array<TurnState, 2>& states, bool waiting)>;

    /// Together: both have opened their programs before either begins.
    Outcome Run(const Commands& commands, const Chooser& choose, WhenBusy busy, bool together = true);
    /// Contents after whole commands in the given order; empty when one of them is refused.
    QString Serial(const std::vector<const OperatorCommand*>& order);
    void Check(const Commands& commands, const Outcome& outcome, const QString& schedule);
    /// For each step of a command that is not disturbed, whether it is made outside any transaction.
    std::vector<bool> StepsOutside(const OperatorCommand& command);
    /// The second command as a whole before step `step` of the first, from 0; then the first goes on.
    void RunBefore(const Commands& commands, size_t step, WhenBusy busy);

    FakeMachine m_machine;
    std::unique_ptr<DatabaseFixture> m_database;
    std::vector<OperatorCommand> m_commands;
    std::map<QString, QString> m_serial;
    int m_runs = 0;
    int m_refused = 0;
};

void TestTwoOperators::initTestCase()
{
    m_database = std::make_unique<DatabaseFixture>();
    m_commands = OperatorCommands();
}

Outcome TestTwoOperators::Run(const Commands& commands, const Chooser& choose, WhenBusy busy, bool together)
{
    // A copy of the file takes a tenth of the time; a server copies by itself.
    const auto fresh = DatabaseFixture::OnServer() ? std::make_unique<DatabaseFixture>() : nullptr;
    const QString source = fresh ? fresh->Source() : m_database->Folder() + QStringLiteral("/Run.mdb");
    if (!fresh) {
        for (const char* suffix : {"", "-wal", "-shm"})
            QFile::remove(source + QLatin1String(suffix));
        QFile::copy(m_database->Source(), source);
    }

    BothOperators presenter;
    presenter.Busy = busy;
    presenter.Replaces = {commands[0]->replaces, commands[1]->replaces};
    BoxPresenter* before = SetBoxPresenter(&presenter);
    Outcome outcome;
    Turns turns;
    std::array<std::unique_ptr<OperatorSession>, 2> sessions;
    std::array<std::function<void()>, 2> works;
    for (int who = 0; who < 2; ++who) {
        const auto place = static_cast<size_t>(who);
        works[place] = [&, who, place] {
            OperatorSession& session = *sessions[place];
            session.Open();
            session.BeginSteps();
            session.StepOutside();
            outcome.done[place] = commands[place]->run(session);
            session.EndSteps();
            session.Close();
            outcome.told[place] = session.Told;
        };
    }
    int opened = together ? 0 : 2;
    turns.Run(
        works,
        [&](const std::array<TurnState, 2>& states) {
            return opened < 2 ? opened++ : choose(states, presenter.Waiting);
        },
        [&](int who) {
            const auto place = static_cast<size_t>(who);
            if (!sessions[place])
                sessions[place] = std::make_unique<OperatorSession>(who, source, turns);
            presenter.Sessions[place] = sessions[place].get();
            presenter.Current = who;
            sessions[place]->Enter();
        },
        [&](int who) { sessions[static_cast<size_t>(who)]->Leave(); });
    SetBoxPresenter(before);
    ++m_runs;
    outcome.contents = ContentsOf(source);
    return outcome;
}

QString TestTwoOperators::Serial(const std::vector<const OperatorCommand*>& order)
{
    QString key;
    for (const OperatorCommand* command : order)
        key += command->name + u'|';
    const auto known = m_serial.find(key);
    if (known != m_serial.end())
        return known->second;

    const OperatorCommand idle{QStringLiteral("nothing"), [](OperatorSession&) { return true; }};
    Commands commands{&idle, &idle};
    for (size_t k = 0; k < order.size(); ++k)
        commands[k] = order[k];
    // The second operator opens the program after the first has done its work.
    const Outcome outcome = Run(
        commands, [](const std::array<TurnState, 2>& states, bool) { return states[0].finished ? 1 : 0; },
        WhenBusy::GiveUp, false);
    const bool allDone = outcome.done[0] && outcome.done[1];
    return m_serial[key] = allDone ? outcome.contents : QString();
}

void TestTwoOperators::Check(const Commands& commands, const Outcome& outcome, const QString& schedule)
{
    const QString what = QStringLiteral("%1 | %2 | %3 | told: %4 / %5 | contents:\n%6")
                             .arg(commands[0]->name, commands[1]->name, schedule, outcome.told[0].join(u';'),
                                  outcome.told[1].join(u';'), outcome.contents);
    std::vector<const OperatorCommand*> done;
    for (size_t who = 0; who < 2; ++who) {
        if (outcome.done[who]) {
            done.push_back(commands[who]);
            continue;
        }
        ++m_refused;
        QVERIFY2(!outcome.told[who].isEmpty(), qPrintable(what));
    }
    QStringList allowed{Serial(done)};
    std::reverse(done.begin(), done.end());
    allowed << Serial(done);
    allowed.removeAll(QString());
    QVERIFY2(allowed.contains(outcome.contents), qPrintable(what));
}

void TestTwoOperators::Commands_Alone_Succeed()
{
    const QString untouched = Serial({});
    for (const OperatorCommand& command : m_commands) {
        const QString contents = Serial({&command});
        QVERIFY2(!contents.isEmpty(), qPrintable(command.name));
        QVERIFY2(contents != untouched, qPrintable(command.name));
    }
}

void TestTwoOperators::OneBetweenTheOthersTransactions_NothingIsLost_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("second");
    const auto count = static_cast<int>(OperatorCommands().size());
    for (int first = 0; first < count; ++first) {
        for (int second = 0; second < count; ++second) {
            if (IsTried(first, second))
                QTest::addRow("%d and %d", first, second) << first << second;
        }
    }
}

std::vector<bool> TestTwoOperators::StepsOutside(const OperatorCommand& command)
{
    const OperatorCommand idle{QStringLiteral("nothing"), [](OperatorSession&) { return true; }};
    std::vector<bool> outside;
    Run(
        {&command, &idle},
        [&](const std::array<TurnState, 2>& states, bool) {
            outside.push_back(states[0].outside);
            return 0;
        },
        WhenBusy::GiveUp);
    return outside;
}

void TestTwoOperators::RunBefore(const Commands& commands, size_t step, WhenBusy busy)
{
    // One step more than the opening of the program.
    const Outcome outcome = Run(
        commands,
        [&](const std::array<TurnState, 2>& states, bool waiting) {
            // Who waits for the other gives it the turn.
            return static_cast<size_t>(states[0].steps) <= step || (waiting && !states[0].outside) ? 0 : 1;
        },
        busy);
    Check(commands, outcome, QStringLiteral("before step %1").arg(step));
}

void TestTwoOperators::OneBetweenTheOthersTransactions_NothingIsLost()
{
    QFETCH(int, first);
    QFETCH(int, second);
    const Commands commands{&m_commands[static_cast<size_t>(first)],
                            &m_commands[static_cast<size_t>(second)]};
    const std::vector<bool> outside = StepsOutside(*commands[0]);
    for (size_t step = 0; step < outside.size() && !QTest::currentTestFailed(); ++step) {
        if (outside[step])
            RunBefore(commands, step, WhenBusy::GiveUp);
        else if (step > 0 && outside[step - 1])
            RunBefore(commands, step, WhenBusy::Wait);
    }
}

void TestTwoOperators::OneInsideTheOthersTransaction_IsHeldOff_data()
{
    QTest::addColumn<int>("first");
    const auto count = static_cast<int>(OperatorCommands().size());
    for (int first = 0; first < count; ++first) {
        if (IsTried(first, 1))
            QTest::addRow("%d", first) << first;
    }
}

void TestTwoOperators::OneInsideTheOthersTransaction_IsHeldOff()
{
    QFETCH(int, first);
    const OperatorCommand& interrupted = m_commands[static_cast<size_t>(first)];
    const std::vector<bool> outside = StepsOutside(interrupted);
    for (const char* name : {"edit Alpha's id", "add West", "remove North"}) {
        const auto second = std::find_if(m_commands.begin(), m_commands.end(), [&](const auto& command) {
            return command.name == QLatin1String(name);
        });
        for (size_t step = 0; step < outside.size() && !QTest::currentTestFailed(); ++step) {
            if (!outside[step])
                RunBefore({&interrupted, &*second}, step, WhenBusy::GiveUp);
        }
    }
}

void TestTwoOperators::TransactionsInAnyOrder_NothingIsLost_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("second");
    const auto count = static_cast<int>(OperatorCommands().size());
    for (int first = 0; first < count; ++first) {
        for (int second = first; second < count; ++second) {
            if (IsTried(first, second))
                QTest::addRow("%d and %d", first, second) << first << second;
        }
    }
}

void TestTwoOperators::TransactionsInAnyOrder_NothingIsLost()
{
    QFETCH(int, first);
    QFETCH(int, second);
    const Commands commands{&m_commands[static_cast<size_t>(first)],
                            &m_commands[static_cast<size_t>(second)]};
    // Each order of the transactions of both, as bits: which side runs its next one. A replacement has three,
    // the others two.
    const int transactions = commands[0]->replaces || commands[1]->replaces ? 6 : 4;
    for (unsigned order = 0; order < (1U << transactions); ++order) {
        if (std::popcount(order) != transactions / 2)
            continue;
        const Outcome outcome = Run(
            commands,
            [&](const std::array<TurnState, 2>& states, bool) {
                const int over = states[0].transactions + states[1].transactions;
                // Nobody is interrupted inside a transaction.
                if (!states[0].outside || !states[1].outside)
                    return states[0].outside ? 1 : 0;
                return over < transactions ? static_cast<int>((order >> over) & 1U) : 0;
            },
            WhenBusy::GiveUp);
        Check(commands, outcome, QStringLiteral("order %1").arg(order, transactions, 2, QLatin1Char('0')));
        if (QTest::currentTestFailed())
            return;
    }
}

void TestTwoOperators::cleanupTestCase()
{
    qInfo("%d orders of two operators' work, %d commands refused", m_runs, m_refused);
    m_database.reset();
}

QTEST_GUILESS_MAIN(TestTwoOperators)
#include "TestTwoOperators.moc"
