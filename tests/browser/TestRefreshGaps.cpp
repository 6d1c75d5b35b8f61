#include "tests/browser/RefreshedControl.h"

#include <thread>

namespace {

constexpr qint64 LastPossibleId = 2'147'483'647;

/// Another program with a transaction of its own in plain SQL. On a server what it has to wait for runs in a
/// thread; on a file it is refused instead.
class Writer
{
public:
    explicit Writer(const QString& source) : m_sql(source)
    {
        m_sql.Run(DatabaseFixture::OnServer() ? QStringLiteral("SET lock_timeout = 0")
                                              : QStringLiteral("PRAGMA busy_timeout = 0"));
    }
    void Begin() const { m_sql.Run(QStringLiteral("BEGIN")); }
    void Run(const QString& text) const { m_sql.Run(text); }
    void Commit() const { m_sql.Run(QStringLiteral("COMMIT")); }
    void Rollback() const { m_sql.Run(QStringLiteral("ROLLBACK")); }
    /// True when it is refused.
    [[nodiscard]] bool IsRefused(const QString& text) const
    {
        return DatabaseFixture::ErrorOf([&] { m_sql.Run(text); }) != 0;
    }

    /// On a server: starts a transaction that waits for another's; `meanwhile` runs when it does and ends the
    /// other one.
    static void RunWaiting(const QString& source, const QString& text, const std::function<void()>& meanwhile)
    {
        const PlainSql watcher(source);
        std::thread thread([&] {
            const Writer writer(source);
            writer.Begin();
            writer.Run(text);
            writer.Commit();
        });
        const QString waiting =
            QStringLiteral("SELECT count(*) FROM pg_locks WHERE NOT granted AND"
                           " database = (SELECT oid FROM pg_database WHERE datname = current_database())");
        while (watcher.Run(waiting).toInt() == 0)
            QThread::msleep(5);
        meanwhile();
        thread.join();
    }

private:
    PlainSql m_sql;
};

} // namespace

/// Nothing of the Journal is skipped and nothing stalls the refresh, however ids come, go and stay out.
class TestRefreshGaps : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Writers_OneAfterTheOther_EachStepIsShown_data();
    void Writers_OneAfterTheOther_EachStepIsShown();
    void Writers_RolledBackInBetween_GapsAreFollowed();
    void Record_PutInBelowThePosition_StallsNothing();
    void Ids_JumpFarAhead_AreFollowed_data();
    void Ids_JumpFarAhead_AreFollowed();
    void JournalIds_UsedUp_WritersAreRefusedAndNothingStalls();
    void RecordIds_UsedUp_WritersAreRefusedAndNothingStalls();

    void Trimmed_BetweenTwoCalls_EndsEqual_data();
    void Trimmed_BetweenTwoCalls_EndsEqual();
    void Trimmed_ByAnOpenTransaction_TellsNothing();
    void Trimmed_BeforeTheRefresh_IsLoadedWhenItMust_data();
    void Trimmed_BeforeTheRefresh_IsLoadedWhenItMust();

    void Record_OfWhatHasGone_EndsEqual_data();
    void Record_OfWhatHasGone_EndsEqual();
    void AnyCall_Fails_TheNextRefreshCatchesUp_data();
    void AnyCall_Fails_TheNextRefreshCatchesUp();
    void Changes_WhileListsAreRead_EndEqual_data();
    void Changes_WhileListsAreRead_EndEqual();
    void Journal_BeginsAnew_IsLoaded_data();
    void Journal_BeginsAnew_IsLoaded();
};

// Writers ---------------------------------------------------------------------------------------------------

void TestRefreshGaps::Writers_OneAfterTheOther_EachStepIsShown_data()
{
    QTest::addColumn<bool>("firstCommits");
    QTest::newRow("first commits") << true;
    QTest::newRow("first rolls back") << false;
}

void TestRefreshGaps::Writers_OneAfterTheOther_EachStepIsShown()
{
    QFETCH(bool, firstCommits);
    RefreshedControl f;
    const auto tick = [&f] {
        f.Tick();
        QCOMPARE(f.Difference(), QString());
    };
    const QString wild = RefreshedControl::NewNode(QStringLiteral("Wild"), QStringLiteral("Beta"));
    const Writer first(f.Source);
    first.Begin();
    first.Run(RefreshedControl::NewNode(QStringLiteral("West")));
    tick();
    const auto endFirst = [&] {
        tick();
        first.Run(QStringLiteral("DELETE FROM node WHERE name = 'South'"));
        tick();
        if (firstCommits)
            first.Commit();
        else
            first.Rollback();
        // On a server the second goes on by itself from here.
        f.Tick();
    };
    if (DatabaseFixture::OnServer()) {
        Writer::RunWaiting(f.Source, wild, endFirst);
    } else {
        const Writer second(f.Source);
        QVERIFY(second.IsRefused(wild));
        endFirst();
        second.Begin();
        second.Run(wild);
        tick();
        second.Commit();
    }
    tick();
    QVERIFY(f.Shows("Wild"));
    QCOMPARE(f.Shows("West"), firstCommits);
    QCOMPARE(f.Shows("South"), !firstCommits);
    QCOMPARE(f.Operator.Texts(), QStringList());
    QVERIFY(f.Line().isHidden());
}

void TestRefreshGaps::Writers_RolledBackInBetween_GapsAreFollowed()
{
    RefreshedControl f;
    const Writer writer(f.Source);
    for (int round = 0; round < 5; ++round) {
        writer.Begin();
        for (int k = 0; k < 3; ++k)
            writer.Run(RefreshedControl::NewNode(QStringLiteral("Undone %1").arg(k)));
        writer.Rollback();
        f.Tick();
        QCOMPARE(f.Difference(), QString());
        writer.Run(RefreshedControl::NewNode(QStringLiteral("Done %1").arg(round)));
        if (round % 2 == 0)
            f.Tick();
    }
    f.Tick();
    QCOMPARE(f.Difference(), QString());
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestRefreshGaps::Record_PutInBelowThePosition_StallsNothing()
{
    RefreshedControl f;
    const QString put = QStringLiteral("INSERT INTO journal (id, record_type, text1, number)"
                                       " SELECT %1, 40, name, id FROM node WHERE name = 'North'");
    // On a server only the owner of the tables can do so, who draws the ids from their sequence.
    QList<qint32> ids{f.LastId() + 5, f.LastId() + 6};
    if (DatabaseFixture::OnServer()) {
        for (qint32& id : ids)
            id = f.Sql(QStringLiteral("SELECT nextval('journal_sequence')")).toInt();
    }
    f.Sql(put.arg(ids[1]));
    f.Tick();
    QCOMPARE(Load().JournalLastId, ids[1]);
    QCOMPARE(f.Difference(), QString());
    // It is not seen, and who writes the records themselves never puts one there.
    f.Sql(put.arg(ids[0]));
    f.Tick();
    QCOMPARE(Load().JournalLastId, ids[1]);
    QCOMPARE(f.Difference(), QString());
    f.ChangeMuch();
    f.Tick();
    QCOMPARE(f.Difference(), QString());
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestRefreshGaps::Ids_JumpFarAhead_AreFollowed_data()
{
    QTest::addColumn<qint64>("id");
    QTest::newRow("2^20") << qint64(1 << 20);
    QTest::newRow("2^30") << qint64(1 << 30);
    QTest::newRow("near 2^31") << LastPossibleId - 100;
}

void TestRefreshGaps::Ids_JumpFarAhead_AreFollowed()
{
    QFETCH(qint64, id);
    RefreshedControl f;
    f.AddNode("Before");
    f.JumpTo(id);
    f.AddNode("After");
    f.Tick();
    QCOMPARE(Load().JournalLastId, static_cast<qint32>(id) + 1);
    QCOMPARE(f.Difference(), QString());
    f.ChangeMuch();
    f.Tick();
    QCOMPARE(f.Difference(), QString());
    // The gap does not count as records.
    QCOMPARE(f.Sql(QStringLiteral("SELECT count(*) FROM journal WHERE text1 = 'Before'")).toInt(), 1);
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestRefreshGaps::JournalIds_UsedUp_WritersAreRefusedAndNothingStalls()
{
    RefreshedControl f;
    f.JumpTo(LastPossibleId - 2);
    f.AddNode("Last but one");
    f.AddNode("Last");
    f.Tick();
    QCOMPARE(Load().JournalLastId, static_cast<qint32>(LastPossibleId));
    QCOMPARE(f.Difference(), QString());
    const auto other = f.Other();
    QCOMPARE(DatabaseFixture::ErrorOf([&] { other->DeleteNode(QStringLiteral("North")); }),
             DatabaseErrorNumber::Refused);
    for (int tick = 0; tick < 3; ++tick) {
        f.Tick();
        QCOMPARE(f.Difference(), QString());
    }
    QCOMPARE(f.Operator.Texts(), QStringList());
    QVERIFY(f.Line().isHidden());
}

void TestRefreshGaps::RecordIds_UsedUp_WritersAreRefusedAndNothingStalls()
{
    RefreshedControl f;
    f.Sql(DatabaseFixture::OnServer()
              ? QStringLiteral("SELECT setval('record_sequence', %1)").arg(LastPossibleId - 2)
              : QStringLiteral("UPDATE record_sequence SET last_id = %1").arg(LastPossibleId - 2));
    f.AddNode("Last but one");
    f.AddNode("Last");
    f.Tick();
    QCOMPARE(f.Difference(), QString());
    const auto other = f.Other();
    QCOMPARE(DatabaseFixture::ErrorOf(
                 [&] { other->ReplaceNodeName(QStringLiteral("North"), QStringLiteral("N")); }),
             DatabaseErrorNumber::Refused);
    other->DeleteNode(QStringLiteral("North"));
    f.Tick();
    QCOMPARE(f.Difference(), QString());
    QCOMPARE(f.Operator.Texts(), QStringList());
}

// A trimmed Journal -----------------------------------------------------------------------------------------

void TestRefreshGaps::Trimmed_BetweenTwoCalls_EndsEqual_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<bool>("trimsItself");
    for (const bool trimsItself : {false, true}) {
        for (const char* call :
             {"BeginTransaction", "GetJournalLastId", "GetJournalRecordById", "GetJournalChangesAfterId",
              "GetNode", "JournalClearByRecordLimit", "JournalClearByDayLimit", "CommitTransaction"})
            QTest::addRow("%s%s", call, trimsItself ? ", trims too" : "")
                << QString::fromLatin1(call) << trimsItself;
    }
}

void TestRefreshGaps::Trimmed_BetweenTwoCalls_EndsEqual()
{
    QFETCH(QString, call);
    QFETCH(bool, trimsItself);
    RefreshedControl f;
    if (trimsItself) {
        f.Control->SetJournalRecordLimit(2);
        f.Control->SetJournalRecordsToKeep(1);
    }
    f.ChangeMuch();
    bool trimmed = false;
    f.Before(call, [&] { trimmed = f.Trim(); });
    f.Tick();
    // On a file the open refresh keeps others from writing, on a server it sees the Journal as it was.
    QCOMPARE(trimmed, DatabaseFixture::OnServer() || call == QLatin1String("BeginTransaction"));
    QCOMPARE(f.Difference(), QString());
    const bool missed = call == QLatin1String("BeginTransaction");
    QCOMPARE(f.Operator.Texts(), missed ? QStringList(RefreshedControl::ReloadText()) : QStringList());
    QVERIFY(f.Line().isHidden());
    f.AddNode("Wild");
    f.Tick();
    QCOMPARE(f.Difference(), QString());
    QVERIFY(f.Operator.Texts().size() <= 1);
}

void TestRefreshGaps::Trimmed_ByAnOpenTransaction_TellsNothing()
{
    RefreshedControl f;
    f.Control->SetJournalRecordLimit(2);
    f.Control->SetJournalRecordsToKeep(1);
    f.ChangeMuch();
    const Writer other(f.Source);
    other.Begin();
    other.Run(QStringLiteral("DELETE FROM journal WHERE id > 1 AND id < %1").arg(f.LastId()));
    f.Tick();
    QCOMPARE(f.Operator.Texts(), QStringList());
    // On a server others read on; on a file they wait for the next refresh.
    QCOMPARE(f.Line().isHidden(), DatabaseFixture::OnServer());
    QCOMPARE(f.Difference().isEmpty(), DatabaseFixture::OnServer());
    other.Commit();
    f.Tick();
    QCOMPARE(f.Difference(), QString());
    QVERIFY(f.Line().isHidden());
}

void TestRefreshGaps::Trimmed_BeforeTheRefresh_IsLoadedWhenItMust_data()
{
    QTest::addColumn<int>("kept");
    QTest::addColumn<bool>("loaded");
    QTest::newRow("position kept") << 4 << false;
    QTest::newRow("position gone") << 3 << true;
    QTest::newRow("newest kept") << 1 << true;
}

void TestRefreshGaps::Trimmed_BeforeTheRefresh_IsLoadedWhenItMust()
{
    QFETCH(int, kept);
    QFETCH(bool, loaded);
    RefreshedControl f;
    for (const char* name : {"One", "Two", "Three"})
        f.AddNode(name);
    QVERIFY(f.Trim(kept));
    f.Tick();
    QCOMPARE(f.Operator.Texts(), loaded ? QStringList(RefreshedControl::ReloadText()) : QStringList());
    QCOMPARE(f.Difference(), QString());
    f.Tick();
    QCOMPARE(f.Operator.Texts().size(), loaded ? 1 : 0);
    QCOMPARE(f.Difference(), QString());
}

// What is read ----------------------------------------------------------------------------------------------

void TestRefreshGaps::Record_OfWhatHasGone_EndsEqual_data()
{
    QTest::addColumn<QStringList>("changes");
    const QString west = RefreshedControl::NewNode(QStringLiteral("West"));
    QTest::newRow("node") << QStringList{west, QStringLiteral("DELETE FROM node WHERE name = 'West'")};
    QTest::newRow("node of the database")
        << QStringList{QStringLiteral("UPDATE node SET target = '' WHERE name = 'North'"),
                       QStringLiteral("DELETE FROM node WHERE name = 'North'")};
    QTest::newRow("connection") << QStringList{west,
                                               QStringLiteral("DELETE FROM connection WHERE name = 'Alpha'")};
    QTest::newRow("connection under another name")
        << QStringList{west, QStringLiteral("UPDATE connection SET name = 'Zeta' WHERE name = 'Alpha'")};
    QTest::newRow("connection, made again")
        << QStringList{west, QStringLiteral("DELETE FROM connection WHERE name = 'Alpha'"),
                       QStringLiteral("INSERT INTO connection (name, target) VALUES ('Alpha', '')"), west};
    QTest::newRow("node, its name a connection's")
        << QStringList{west, QStringLiteral("DELETE FROM node WHERE name = 'West'"),
                       QStringLiteral("INSERT INTO connection (name, target) VALUES ('West', '')")};
    QTest::newRow("node, moved") << QStringList{
        west, QStringLiteral("UPDATE node SET connection_key = (SELECT row_key FROM connection"
                             " WHERE name = 'Beta') WHERE name = 'West'")};
}

void TestRefreshGaps::Record_OfWhatHasGone_EndsEqual()
{
    QFETCH(QStringList, changes);
    RefreshedControl f;
    for (const QString& change : changes)
        f.Sql(change);
    f.Tick();
    QCOMPARE(f.Difference(), QString());
    f.Tick();
    QCOMPARE(f.Difference(), QString());
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestRefreshGaps::AnyCall_Fails_TheNextRefreshCatchesUp_data()
{
    QTest::addColumn<bool>("trimmed");
    QTest::addColumn<bool>("goesOn");
    QTest::newRow("patch, one call") << false << false;
    QTest::newRow("patch, all that follow") << false << true;
    QTest::newRow("load, one call") << true << false;
    QTest::newRow("load, all that follow") << true << true;
}

void TestRefreshGaps::AnyCall_Fails_TheNextRefreshCatchesUp()
{
    QFETCH(bool, trimmed);
    QFETCH(bool, goesOn);
    constexpr quint32 failure = DatabaseErrorNumber::Refused;
    RefreshedControl f;
    int calls = 0;
    // The first round counts, in each other one a call fails.
    for (int k = 0; k <= calls; ++k) {
        f.Sql(QStringLiteral("UPDATE node SET target = target WHERE name = 'North'"));
        f.AddNode(qPrintable(QStringLiteral("Node %1").arg(k)));
        f.Sql(QStringLiteral("DELETE FROM node WHERE name = 'Node %1'").arg(k - 1));
        if (trimmed)
            QVERIFY(f.Trim());
        f.Calls.TakeCalls();
        if (k > 0 && goesOn)
            f.Calls.FailFrom(k, failure);
        else if (k > 0)
            f.Calls.FailCall(k, failure);
        f.Tick();
        f.Calls.Repair();
        if (k == 0)
            calls = static_cast<int>(f.Calls.Calls.size());
        f.Operator.Boxes.clear();
        f.Tick();
        QVERIFY2(f.Difference().isEmpty(), qPrintable(QStringLiteral("call %1\n").arg(k) + f.Difference()));
        QVERIFY(f.Operator.Texts().isEmpty() ||
                f.Operator.Texts() == QStringList(RefreshedControl::ReloadText()));
        QVERIFY(f.Line().isHidden());
    }
    QVERIFY(calls > 8);
}

void TestRefreshGaps::Changes_WhileListsAreRead_EndEqual_data()
{
    QTest::addColumn<QString>("call");
    for (const char* call : {"GetJournalLastId", "QueryParentsWithID", "GetNodeCount", "BeginTransaction",
                             "QueryNodesWithIdEx", "GetParentNodesWithIdEx", "GetParentNodesWithID"})
        QTest::newRow(call) << QString::fromLatin1(call);
}

void TestRefreshGaps::Changes_WhileListsAreRead_EndEqual()
{
    QFETCH(QString, call);
    RefreshedControl f;
    f.AddNode("One");
    f.AddNode("Two");
    QVERIFY(f.Trim());
    bool changed = false;
    f.BeforeInReload(call, [&] { changed = DatabaseFixture::ErrorOf([&] { f.ChangeMuch(); }) == 0; });
    f.Tick();
    QCOMPARE(f.Operator.Texts(), QStringList(RefreshedControl::ReloadText()));
    f.Calls.BeforeCall = nullptr;
    f.Tick();
    QCOMPARE(f.Difference(), QString());
    if (!changed) {
        f.ChangeMuch();
        f.Tick();
        QCOMPARE(f.Difference(), QString());
    }
    QCOMPARE(f.Operator.Texts(), QStringList(RefreshedControl::ReloadText()));
    QVERIFY(f.Line().isHidden());
}

void TestRefreshGaps::Journal_BeginsAnew_IsLoaded_data()
{
    QTest::addColumn<int>("more");
    QTest::addColumn<bool>("told");
    QTest::newRow("lower") << -3 << false;
    QTest::newRow("equal") << 0 << true;
    QTest::newRow("next") << 1 << true;
    QTest::newRow("higher") << 7 << true;
}

void TestRefreshGaps::Journal_BeginsAnew_IsLoaded()
{
    QFETCH(int, more);
    QFETCH(bool, told);
    RefreshedControl f;
    const int last = f.LastId() + more;
    for (const char* table : {"node", "connection"})
        f.Sql(QStringLiteral("DELETE FROM %1").arg(QString::fromLatin1(table)));
    f.Sql(QStringLiteral("DELETE FROM journal WHERE id > 1"));
    if (DatabaseFixture::OnServer())
        f.JumpTo(1);
    f.Sql(QStringLiteral("INSERT INTO connection (name, target) VALUES ('Omega', '')"));
    for (int id = 3; id <= last; ++id)
        f.Sql(RefreshedControl::NewNode(QStringLiteral("Node %1").arg(id), QStringLiteral("Omega")));
    QCOMPARE(f.LastId(), last);
    f.Tick();
    QCOMPARE(f.Operator.Texts(), told ? QStringList(RefreshedControl::ReloadText()) : QStringList());
    QCOMPARE(f.Difference(), QString());
    f.Sql(QStringLiteral("UPDATE node SET name = 'Renamed' WHERE name = 'Node 3'"));
    f.Sql(QStringLiteral("INSERT INTO connection (name, target) VALUES ('Alpha', '')"));
    f.AddNode("West");
    f.Tick();
    QCOMPARE(f.Difference(), QString());
    QCOMPARE(f.Operator.Texts().size(), told ? 1 : 0);
}

QTEST_MAIN(TestRefreshGaps)
#include "TestRefreshGaps.moc"
