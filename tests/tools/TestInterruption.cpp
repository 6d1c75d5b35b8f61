#include "tools/zelka/Interruption.h"

#include <QTest>

/// Ctrl+C during a command.
class TestInterruption : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Asked_NothingHappened_False();
    void Asked_Signal_True_data();
    void Asked_Signal_True();
    void Asked_NextCommand_ForgetsTheFirst();
    void End_HandlersBefore_AreBack();
    void Begin_IgnoredSignal_StaysIgnored();
    void Signal_Second_EndsAtOnce();
};

namespace {

void Handler(int /*signal*/) {}

/// The handler that stands for a signal now.
void (*HandlerOf(int signal))(int)
{
    struct sigaction now = {};
    sigaction(signal, nullptr, &now);
    return now.sa_handler;
}

} // namespace

void TestInterruption::Asked_NothingHappened_False()
{
    const Interruption interruption;

    QVERIFY(!Interruption::Asked());
}

void TestInterruption::Asked_Signal_True_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("Ctrl+C") << SIGINT;
    QTest::newRow("end") << SIGTERM;
    QTest::newRow("terminal closed") << SIGHUP;
}

void TestInterruption::Asked_Signal_True()
{
    QFETCH(int, signal);
    const Interruption interruption;

    QCOMPARE(raise(signal), 0);

    QVERIFY(Interruption::Asked());
}

void TestInterruption::Asked_NextCommand_ForgetsTheFirst()
{
    {
        const Interruption first;
        QCOMPARE(raise(SIGINT), 0);
    }

    const Interruption second;

    QVERIFY(!Interruption::Asked());
}

void TestInterruption::End_HandlersBefore_AreBack()
{
    const auto before = std::signal(SIGINT, Handler);
    {
        const Interruption interruption;
        QVERIFY(HandlerOf(SIGINT) != Handler);
    }

    QVERIFY(HandlerOf(SIGINT) == Handler);
    std::signal(SIGINT, before);
}

void TestInterruption::Begin_IgnoredSignal_StaysIgnored()
{
    const auto before = std::signal(SIGHUP, SIG_IGN);

    {
        const Interruption interruption;
        QCOMPARE(raise(SIGHUP), 0);
        QVERIFY(!Interruption::Asked());
    }
    std::signal(SIGHUP, before);
}

void TestInterruption::Signal_Second_EndsAtOnce()
{
    const Interruption interruption;

    QCOMPARE(raise(SIGINT), 0);

    QVERIFY(HandlerOf(SIGINT) == SIG_DFL);
}

QTEST_GUILESS_MAIN(TestInterruption)
#include "TestInterruption.moc"
