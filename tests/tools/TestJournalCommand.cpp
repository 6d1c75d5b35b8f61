#include "tests/components/DatabaseFixture.h"
#include "tests/support/FakeMachine.h"
#include "tests/tools/ProcessRun.h"

#include <QJsonObject>
#include <QTest>

#include <csignal>
#include <ctime>
#include <vector>

/// `zelka db journal` in this process, with a clock of its own, so that following it takes no time.
class TestJournalCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void Journal_Plain_PrintsEachChange();
    void Journal_LastAndAfter_PrintThose_data();
    void Journal_LastAndAfter_PrintThose();
    void Journal_Kinds_AreWords_data();
    void Journal_Kinds_AreWords();
    void Journal_NameWithControls_StaysOneLine();
    void Journal_Json_IsAnObjectALine();
    void Journal_SummerAndWinter_AreLocalTimes();
    void Journal_AfterATrimmedRecord_Tells();

    void Follow_Changes_ArePrintedAsTheyCome();
    void Follow_Interval_IsTheTimeBetweenTwoLooks();
    void Follow_Signal_EndsAtOnce_data();
    void Follow_Signal_EndsAtOnce();
    void Follow_Maintenance_IsWaitedFor();

private:
    using Step = std::function<void()>;

    /// Runs the command; behind each look at the Journal comes the next step, behind the last one the end.
    [[nodiscard]] int Run(const QStringList& arguments, const std::vector<Step>& steps = {},
                          qint64 intervalMs = 1000);
    [[nodiscard]] QStringList Lines() const { return m_run->Lines(); }
    [[nodiscard]] QStringList Words() const { return m_run->Words(); }

    std::unique_ptr<DatabaseFixture> m_fixture;
    std::unique_ptr<FakeMachine> m_machine;
    std::unique_ptr<ProcessRun> m_run;
};

namespace {

/// The columns behind id and time.
QStringList WhatOf(const QStringList& lines)
{
    QStringList what;
    for (const QString& line : lines)
        what << line.section(u'\t', 2);
    return what;
}

} // namespace

void TestJournalCommand::initTestCase()
{
    qputenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
    tzset();
}

void TestJournalCommand::cleanupTestCase()
{
    qunsetenv("TZ");
    tzset();
}

void TestJournalCommand::init()
{
    m_fixture = std::make_unique<DatabaseFixture>();
    m_machine = std::make_unique<FakeMachine>();
    m_run = std::make_unique<ProcessRun>();
}

void TestJournalCommand::cleanup()
{
    m_run.reset();
    m_machine.reset();
    m_fixture.reset();
}

int TestJournalCommand::Run(const QStringList& arguments, const std::vector<Step>& steps, qint64 intervalMs)
{
    size_t done = 0;
    qint64 nextStep = m_machine->NowMs;
    Machine().Sleep = [&, sleep = Machine().Sleep](int ms) {
        if (m_machine->NowMs >= nextStep) {
            nextStep = m_machine->NowMs + intervalMs;
            if (done < steps.size())
                steps[done]();
            else
                (void)std::raise(SIGTERM);
            ++done;
        }
        sleep(ms);
    };
    return m_run->Run(QStringList{QStringLiteral("db"), QStringLiteral("journal"), QStringLiteral("--source"),
                                  m_fixture->Source()} +
                      arguments);
}

void TestJournalCommand::Journal_Plain_PrintsEachChange()
{
    m_fixture->RunSql(QStringLiteral("UPDATE journal SET changed = 1700000000"));

    QCOMPARE(Run({}), 0);

    const QStringList lines = Lines();
    QCOMPARE(lines.size(), 6);
    QCOMPARE(lines.first(), QStringLiteral("2\t2023-11-14T23:13:20+01:00\tconnection added\tAlpha\t1"));
    QCOMPARE(lines.last(), QStringLiteral("7\t2023-11-14T23:13:20+01:00\tnode added\tEast\t6"));
    QCOMPARE(Words(), QStringList());
}

void TestJournalCommand::Journal_LastAndAfter_PrintThose_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("ids");
    QTest::newRow("last") << QStringList{"--last", "2"} << QStringLiteral("6 7");
    QTest::newRow("last none") << QStringList{"--last", "0"} << QString();
    QTest::newRow("last of few") << QStringList{"--last", "6"} << QStringLiteral("2 3 4 5 6 7");
    QTest::newRow("after") << QStringList{"--after", "5"} << QStringLiteral("6 7");
    QTest::newRow("after the version text") << QStringList{"--after", "1"} << QStringLiteral("2 3 4 5 6 7");
    QTest::newRow("after the last") << QStringList{"--after", "7"} << QString();
    QTest::newRow("both") << QStringList{"--after", "3", "--last", "1"} << QStringLiteral("7");
}

void TestJournalCommand::Journal_LastAndAfter_PrintThose()
{
    QFETCH(QStringList, arguments);

    QCOMPARE(Run(arguments), 0);

    QStringList ids;
    for (const QString& line : Lines())
        ids << line.section(u'\t', 0, 0);
    QTEST(ids.join(u' '), "ids");
}

void TestJournalCommand::Journal_Kinds_AreWords_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("words");
    QTest::newRow("20") << 20 << QStringLiteral("node deleted");
    QTest::newRow("21") << 21 << QStringLiteral("connection deleted");
    QTest::newRow("30") << 30 << QStringLiteral("node added");
    QTest::newRow("31") << 31 << QStringLiteral("connection added");
    QTest::newRow("40") << 40 << QStringLiteral("node changed");
    QTest::newRow("41") << 41 << QStringLiteral("connection changed");
    QTest::newRow("other") << 77 << QStringLiteral("record of type 77");
}

void TestJournalCommand::Journal_Kinds_AreWords()
{
    QFETCH(int, kind);
    QFETCH(QString, words);
    m_fixture->RunSql(QStringLiteral("UPDATE journal SET record_type = %1 WHERE id = 7").arg(kind));

    QCOMPARE(Run({QStringLiteral("--last"), QStringLiteral("1")}), 0);

    QCOMPARE(WhatOf(Lines()), QStringList{words + QStringLiteral("\tEast\t6")});
}

void TestJournalCommand::Journal_NameWithControls_StaysOneLine()
{
    m_fixture->OpenComponent()->SaveParent(QStringLiteral("a\tb\nc"), QString());

    QCOMPARE(Run({QStringLiteral("--last"), QStringLiteral("1")}), 0);

    QCOMPARE(WhatOf(Lines()), QStringList{QStringLiteral("connection added\ta b c\t7")});
}

void TestJournalCommand::Journal_Json_IsAnObjectALine()
{
    m_fixture->OpenComponent()->SaveParent(QStringLiteral("a\tb"), QString());
    m_fixture->RunSql(QStringLiteral("UPDATE journal SET changed = 1700000000"));

    QCOMPARE(Run({QStringLiteral("--last"), QStringLiteral("2"), QStringLiteral("--json")}), 0);

    QCOMPARE(Lines().size(), 2);
    const QJsonObject object = QJsonDocument::fromJson(Lines().last().toUtf8()).object();
    const QJsonObject expected{{QStringLiteral("id"), 8},
                               {QStringLiteral("time"), QStringLiteral("2023-11-14T23:13:20+01:00")},
                               {QStringLiteral("type"), 31},
                               {QStringLiteral("what"), QStringLiteral("connection added")},
                               {QStringLiteral("name"), QStringLiteral("a\tb")},
                               {QStringLiteral("record"), 7}};
    QCOMPARE(object, expected);
}

void TestJournalCommand::Journal_SummerAndWinter_AreLocalTimes()
{
    m_fixture->RunSql(QStringLiteral("UPDATE journal SET changed = 1698539400 WHERE id = 6"));
    m_fixture->RunSql(QStringLiteral("UPDATE journal SET changed = 1698543000 WHERE id = 7"));

    QCOMPARE(Run({QStringLiteral("--last"), QStringLiteral("2")}), 0);

    // The hour that comes twice.
    QCOMPARE(Lines().first().section(u'\t', 1, 1), QStringLiteral("2023-10-29T02:30:00+02:00"));
    QCOMPARE(Lines().last().section(u'\t', 1, 1), QStringLiteral("2023-10-29T02:30:00+01:00"));
}

void TestJournalCommand::Journal_AfterATrimmedRecord_Tells()
{
    m_fixture->OpenComponent()->JournalClearByRecordLimit(3, 2);

    QCOMPARE(Run({QStringLiteral("--after"), QStringLiteral("2")}), 0);

    QCOMPARE(Lines().size(), 2);
    QCOMPARE(Words(),
             QStringList{QStringLiteral("zelka: The records 3 to 5 have left the Journal; those from "
                                        "6 on follow.")});
}

void TestJournalCommand::Follow_Changes_ArePrintedAsTheyCome()
{
    const auto component = m_fixture->OpenComponent();
    QStringList atEachStep;
    const auto note = [&] { atEachStep << WhatOf(Lines()).value(static_cast<int>(Lines().size()) - 1); };

    const int code =
        Run({QStringLiteral("--follow"), QStringLiteral("--last"), QStringLiteral("1")},
            {[&] {
                 note();
                 component->ReplaceNodeName(QStringLiteral("North"), QStringLiteral("Far North"));
             },
             [&] {
                 note();
                 component->DeleteParent(QStringLiteral("Gamma"), false);
             },
             [&] { note(); }, [&] { note(); }});

    QCOMPARE(code, 0);
    QCOMPARE(atEachStep,
             (QStringList{QStringLiteral("node added\tEast\t6"), QStringLiteral("node changed\tFar North\t7"),
                          QStringLiteral("connection deleted\tGamma\t3"),
                          QStringLiteral("connection deleted\tGamma\t3")}));
    QCOMPARE(Lines().size(), 4);
    QCOMPARE(Words(), QStringList());
}

void TestJournalCommand::Follow_Interval_IsTheTimeBetweenTwoLooks()
{
    const auto component = m_fixture->OpenComponent();
    const qint64 begin = m_machine->NowMs;
    qint64 seen = 0;

    const int code = Run({QStringLiteral("--follow"), QStringLiteral("--last"), QStringLiteral("0"),
                          QStringLiteral("--interval"), QStringLiteral("2.5")},
                         {[&] { component->DeleteNode(QStringLiteral("East")); },
                          [&] { seen = Lines().isEmpty() ? 0 : m_machine->NowMs - begin; }},
                         2500);

    QCOMPARE(code, 0);
    QCOMPARE(seen, 2500);
}

void TestJournalCommand::Follow_Signal_EndsAtOnce_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("Ctrl+C") << SIGINT;
    QTest::newRow("end") << SIGTERM;
}

void TestJournalCommand::Follow_Signal_EndsAtOnce()
{
    QFETCH(int, signal);
    const qint64 begin = m_machine->NowMs;

    const int code = Run({QStringLiteral("--follow"), QStringLiteral("--interval"), QStringLiteral("3600")},
                         {[&] { (void)std::raise(signal); }}, 3'600'000);

    QCOMPARE(code, 0);
    QCOMPARE(Lines().size(), 6);
    QVERIFY(m_machine->NowMs - begin <= 100);
}

void TestJournalCommand::Follow_Maintenance_IsWaitedFor()
{
    const auto administration = HvxAdministration::Open(m_fixture->Source());
    std::unique_ptr<QObject> lock;

    const int code = Run({QStringLiteral("--follow"), QStringLiteral("--last"), QStringLiteral("0")},
                         {[&] { lock = administration->LockForMaintenance(); }, [] {},
                          [&] {
                              lock.reset();
                              m_fixture->OpenComponent()->DeleteNode(QStringLiteral("East"));
                          },
                          [] {}});

    QCOMPARE(code, 0);
    QCOMPARE(WhatOf(Lines()), QStringList{QStringLiteral("node deleted\tEast\t6")});
    QCOMPARE(Words().size(), 2);
    QVERIFY2(Words().first().contains(QStringLiteral("in use")), qUtf8Printable(Words().first()));
    QCOMPARE(Words().last(), QStringLiteral("zelka: The database can be read again."));
}

QTEST_GUILESS_MAIN(TestJournalCommand)
#include "TestJournalCommand.moc"
