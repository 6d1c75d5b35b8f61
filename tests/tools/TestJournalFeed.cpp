#include "platform/ComponentError.h"
#include "platform/HvxDatabase.h"
#include "tests/tools/ListedDatabase.h"
#include "tools/zelka/JournalFeed.h"

#include <QTest>

/// What a reader of the Journal gets and is told, whatever becomes of the Journal and its database.
class TestJournalFeed : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void Begin_Missing_Raises();
    void GiveNew_AtFirst_GivesWhatWasAskedFor_data();
    void GiveNew_AtFirst_GivesWhatWasAskedFor();
    void GiveNew_Again_GivesWhatCameSince();
    void GiveNew_ManyRecords_GivesEachOnce();
    void GiveNew_Over_Ends();
    void GiveNew_Trimmed_TellsAndGoesOnWithTheOldest();
    void GiveNew_TrimmedBehindPosition_TellsNothing();
    void GiveNew_BegunAnew_TellsAndGivesFromTheOldest();
    void GiveNew_BeyondTheEnd_WaitsForThatId();
    void TryGiveNew_Away_TellsOnceAndOnceThatItIsBack();
    void TryGiveNew_InUse_KeepsTheConnection();
    void TryGiveNew_OtherFailure_OpensAnew();

private:
    void Fill(qint32 first, qint32 last);
    [[nodiscard]] QString Given();

    std::vector<JournalEntry> m_journal;
    /// The number of the failure that each access ends with; 0: none.
    quint32 m_failure = 0;
    int m_opened = 0;
    qint32 m_overBehind = 0;
    QStringList m_given;
    QStringList m_told;
    std::unique_ptr<JournalFeed> m_feed;

    friend class FailingDatabase;
};

/// The test's Journal, as long as nothing fails.
class FailingDatabase : public ListedDatabase
{
public:
    explicit FailingDatabase(const TestJournalFeed& test) : m_test(&test) {}

    [[nodiscard]] JournalPart JournalAfter(qint32 afterId, qint32 most) override
    {
        Follow();
        return ListedDatabase::JournalAfter(afterId, most);
    }
    [[nodiscard]] qint32 JournalIdBefore(qint32 count) override
    {
        Follow();
        return ListedDatabase::JournalIdBefore(count);
    }

    void Follow()
    {
        if (m_test->m_failure != 0)
            throw ComponentError(m_test->m_failure, QStringLiteral("Test"), QStringLiteral("It fails."));
        journal = m_test->m_journal;
    }

private:
    const TestJournalFeed* m_test;
};

void TestJournalFeed::init()
{
    m_failure = 0;
    m_opened = 0;
    m_overBehind = 0;
    m_given.clear();
    m_told.clear();
    Fill(2, 7);
    const auto open = [this] {
        auto database = std::make_unique<FailingDatabase>(*this);
        database->Follow();
        ++m_opened;
        return database;
    };
    m_feed = std::make_unique<JournalFeed>(JournalFeed::Ends{
        open, [this](const JournalEntry& entry) { m_given << QString::number(entry.id); },
        [this](const QString& text) { m_told << text; },
        [this] { return m_overBehind != 0 && m_given.contains(QString::number(m_overBehind)); }});
}

/// The Journal with these ids.
void TestJournalFeed::Fill(qint32 first, qint32 last)
{
    m_journal.clear();
    for (qint32 id = first; id <= last; ++id)
        m_journal.push_back({id, 30, QStringLiteral("North"), id, 0});
}

/// What was given since the last call.
QString TestJournalFeed::Given()
{
    const QString given = m_given.join(u' ');
    m_given.clear();
    return given;
}

void TestJournalFeed::Begin_Missing_Raises()
{
    m_failure = DatabaseErrorNumber::SourceMissing;

    QVERIFY_EXCEPTION_THROWN(m_feed->Begin(0, -1), ComponentError);
}

void TestJournalFeed::GiveNew_AtFirst_GivesWhatWasAskedFor_data()
{
    QTest::addColumn<qint32>("after");
    QTest::addColumn<qint32>("newest");
    QTest::addColumn<QString>("given");
    QTest::newRow("all") << 0 << -1 << QStringLiteral("2 3 4 5 6 7");
    QTest::newRow("after") << 4 << -1 << QStringLiteral("5 6 7");
    QTest::newRow("newest") << 0 << 2 << QStringLiteral("6 7");
    QTest::newRow("none") << 0 << 0 << QString();
    QTest::newRow("newest behind a record") << 6 << 4 << QStringLiteral("7");
    QTest::newRow("fewer of those behind") << 3 << 2 << QStringLiteral("6 7");
    QTest::newRow("more than there are") << 0 << 99 << QStringLiteral("2 3 4 5 6 7");
    QTest::newRow("behind the last") << 7 << -1 << QString();
}

void TestJournalFeed::GiveNew_AtFirst_GivesWhatWasAskedFor()
{
    QFETCH(qint32, after);
    QFETCH(qint32, newest);

    m_feed->Begin(after, newest);
    m_feed->GiveNew();

    QTEST(Given(), "given");
    QCOMPARE(m_told, QStringList());
}

void TestJournalFeed::GiveNew_Again_GivesWhatCameSince()
{
    m_feed->Begin(0, 1);
    m_feed->GiveNew();
    QCOMPARE(Given(), QStringLiteral("7"));

    m_feed->GiveNew();
    QCOMPARE(Given(), QString());
    Fill(2, 9);
    m_feed->GiveNew();

    QCOMPARE(Given(), QStringLiteral("8 9"));
}

void TestJournalFeed::GiveNew_ManyRecords_GivesEachOnce()
{
    Fill(2, 3501);

    m_feed->Begin(0, -1);
    m_feed->GiveNew();

    QCOMPARE(m_given.size(), 3500);
    QCOMPARE(m_given.last(), QStringLiteral("3501"));
}

void TestJournalFeed::GiveNew_Over_Ends()
{
    m_overBehind = 4;

    m_feed->Begin(0, -1);
    m_feed->GiveNew();

    QCOMPARE(Given(), QStringLiteral("2 3 4"));
}

void TestJournalFeed::GiveNew_Trimmed_TellsAndGoesOnWithTheOldest()
{
    m_feed->Begin(0, -1);
    m_feed->GiveNew();
    (void)Given();

    Fill(20, 21);
    m_feed->GiveNew();
    m_feed->GiveNew();

    QCOMPARE(Given(), QStringLiteral("20 21"));
    QCOMPARE(m_told, QStringList{QStringLiteral(
                         "The records 8 to 19 have left the Journal; those from 20 on follow.")});
}

void TestJournalFeed::GiveNew_TrimmedBehindPosition_TellsNothing()
{
    m_feed->Begin(0, -1);
    m_feed->GiveNew();
    (void)Given();

    Fill(8, 9);
    m_feed->GiveNew();

    QCOMPARE(Given(), QStringLiteral("8 9"));
    QCOMPARE(m_told, QStringList());
}

void TestJournalFeed::GiveNew_BegunAnew_TellsAndGivesFromTheOldest()
{
    m_feed->Begin(0, -1);
    m_feed->GiveNew();
    (void)Given();

    Fill(2, 3);
    m_feed->GiveNew();
    m_feed->GiveNew();

    QCOMPARE(Given(), QStringLiteral("2 3"));
    QCOMPARE(m_told, QStringList{QStringLiteral(
                         "The Journal has begun anew; its records follow from the oldest on.")});
}

void TestJournalFeed::GiveNew_BeyondTheEnd_WaitsForThatId()
{
    m_feed->Begin(9, -1);
    m_feed->GiveNew();

    Fill(2, 11);
    m_feed->GiveNew();

    QCOMPARE(Given(), QStringLiteral("10 11"));
    QCOMPARE(m_told, QStringList());
}

void TestJournalFeed::TryGiveNew_Away_TellsOnceAndOnceThatItIsBack()
{
    m_feed->Begin(7, -1);

    m_failure = DatabaseErrorNumber::SourceMissing;
    m_feed->TryGiveNew();
    m_feed->TryGiveNew();
    QCOMPARE(m_told, QStringList{QStringLiteral("Waiting for the database. It fails.")});
    m_failure = 0;
    Fill(2, 8);
    m_feed->TryGiveNew();
    m_feed->TryGiveNew();

    QCOMPARE(m_told.size(), 2);
    QCOMPARE(m_told.last(), QStringLiteral("The database can be read again."));
    QCOMPARE(Given(), QStringLiteral("8"));
}

void TestJournalFeed::TryGiveNew_InUse_KeepsTheConnection()
{
    m_feed->Begin(7, -1);

    m_failure = DatabaseErrorNumber::InUse;
    m_feed->TryGiveNew();
    m_failure = 0;
    m_feed->TryGiveNew();

    QCOMPARE(m_opened, 1);
    QCOMPARE(
        m_told.first(),
        QStringLiteral("Waiting for the database. The database is in use by another program: It fails."));
}

void TestJournalFeed::TryGiveNew_OtherFailure_OpensAnew()
{
    m_feed->Begin(7, -1);

    m_failure = DatabaseErrorNumber::UnusableFile;
    m_feed->TryGiveNew();
    m_failure = 0;
    m_feed->TryGiveNew();

    QCOMPARE(m_opened, 2);
}

QTEST_GUILESS_MAIN(TestJournalFeed)
#include "TestJournalFeed.moc"
