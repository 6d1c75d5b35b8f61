#include "tests/browser/AwayDatabase.h"

#include <QFile>

namespace {

/// Moves a database with what stands beside it.
void Move(const QString& from, const QString& to)
{
    for (const char* part : {"", "-wal", "-shm"}) {
        const QString end = QString::fromLatin1(part);
        if (QFile::exists(from + end))
            QVERIFY(QFile::rename(from + end, to + end));
    }
}

} // namespace

/// What a file has that a server has not: it is locked as a whole, moved and replaced.
class TestRefreshOnSqlite : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void File_Locked_TreesStayAndTheNextRefreshCatchesUp();
    void File_LockedInTheReload_TreesStayAndTheNextRefreshCatchesUp();
    void File_MovedAway_TreesStayAndTheNextRefreshCatchesUp();
    void File_MovedAwayInTheRefresh_TheNextRefreshCatchesUp_data();
    void File_MovedAwayInTheRefresh_TheNextRefreshCatchesUp();
    void File_MovedAwayInTheReload_TheNextRefreshCatchesUp_data();
    void File_MovedAwayInTheReload_TheNextRefreshCatchesUp();
    void File_ReplacedByAnother_IsShown_data();
    void File_ReplacedByAnother_IsShown();
    void Refresh_ByAReaderAlone_TellsNothing();
};

void TestRefreshOnSqlite::File_Locked_TreesStayAndTheNextRefreshCatchesUp()
{
    AwayDatabase f;
    f.ChangeMuch();
    const PlainSql other(f.Source);
    other.Run(QStringLiteral("BEGIN IMMEDIATE"));
    QCOMPARE(f.ProblemWhileAway(), QString());
    other.Run(QStringLiteral("ROLLBACK"));
    QCOMPARE(f.ProblemWhenBack(), QString());
}

void TestRefreshOnSqlite::File_LockedInTheReload_TreesStayAndTheNextRefreshCatchesUp()
{
    AwayDatabase f;
    const QStringList before = f.Shown();
    f.ChangeMuch();
    QVERIFY(f.Trim());
    const PlainSql other(f.Source);
    f.BeforeInReload(QStringLiteral("BeginTransaction"),
                     [&] { other.Run(QStringLiteral("BEGIN IMMEDIATE")); });
    f.Tick();
    QVERIFY2(f.Operator.Texts().value(0) == RefreshedControl::ReloadText(),
             qPrintable(f.Operator.Texts().join(u'/')));
    QVERIFY(f.Line().isVisible());
    QCOMPARE(f.Entries("tvwNodesTree").Count(), 4);
    QCOMPARE(f.ProblemWhileAway(), QString());
    other.Run(QStringLiteral("ROLLBACK"));
    QCOMPARE(f.ProblemWhenBack(), QString());
    QVERIFY(f.Shown() != before);
}

void TestRefreshOnSqlite::File_MovedAway_TreesStayAndTheNextRefreshCatchesUp()
{
    AwayDatabase f;
    f.ChangeMuch();
    const QString away = f.Source + QStringLiteral(".away");
    Move(f.Source, away);
    QCOMPARE(f.ProblemWhileAway(), QString());
    Move(away, f.Source);
    QCOMPARE(f.ProblemWhenBack(), QString());
}

void TestRefreshOnSqlite::File_MovedAwayInTheRefresh_TheNextRefreshCatchesUp_data()
{
    QTest::addColumn<QString>("call");
    for (const char* call : {"GetJournalLastId", "GetJournalRecordById", "GetJournalChangesAfterId",
                             "JournalClearByRecordLimit", "CommitTransaction"})
        QTest::newRow(call) << QString::fromLatin1(call);
}

void TestRefreshOnSqlite::File_MovedAwayInTheRefresh_TheNextRefreshCatchesUp()
{
    QFETCH(QString, call);
    AwayDatabase f;
    f.ChangeMuch();
    const QString away = f.Source + QStringLiteral(".away");
    f.Before(call, [&] { Move(f.Source, away); });
    f.Tick();
    // Who has the file open reads it to the end.
    // Who has the file open reads it to the end; what is asked behind that is told.
    for (const QString& text : f.Operator.Texts())
        QVERIFY2(CommandTexts::Told().contains(text), qPrintable(text));
    QVERIFY(f.Shows("Arctic"));
    QCOMPARE(f.ProblemWhileAway(), QString());
    Move(away, f.Source);
    QCOMPARE(f.ProblemWhenBack(), QString());
}

void TestRefreshOnSqlite::File_MovedAwayInTheReload_TheNextRefreshCatchesUp_data()
{
    QTest::addColumn<QString>("call");
    for (const char* call : {"QueryParentsWithID", "BeginTransaction", "QueryNodesWithIdEx"})
        QTest::newRow(call) << QString::fromLatin1(call);
}

void TestRefreshOnSqlite::File_MovedAwayInTheReload_TheNextRefreshCatchesUp()
{
    QFETCH(QString, call);
    AwayDatabase f;
    f.ChangeMuch();
    QVERIFY(f.Trim());
    const QString away = f.Source + QStringLiteral(".away");
    f.BeforeInReload(call, [&] { Move(f.Source, away); });
    f.Tick();
    QCOMPARE(f.Operator.Texts().value(0), RefreshedControl::ReloadText());
    QVERIFY(f.Entries("tvwNodesTree").Count() > 1);
    QVERIFY(f.Entries("tvwConTree").Count() > 1);
    f.Tick();
    QVERIFY(f.Line().isVisible());
    Move(away, f.Source);
    QCOMPARE(f.ProblemWhenBack(true), QString());
}

void TestRefreshOnSqlite::File_ReplacedByAnother_IsShown_data()
{
    QTest::addColumn<int>("moreChanges");
    /// Ticks while there is no file.
    QTest::addColumn<bool>("seenAway");
    QTest::addColumn<bool>("told");
    for (const bool seenAway : {false, true}) {
        const char* const when = seenAway ? "seen away" : "at once";
        QTest::addRow("lower id, %s", when) << -3 << seenAway << false;
        QTest::addRow("same id, %s", when) << 0 << seenAway << true;
        QTest::addRow("higher id, %s", when) << 5 << seenAway << true;
    }
}

void TestRefreshOnSqlite::File_ReplacedByAnother_IsShown()
{
    QFETCH(int, moreChanges);
    QFETCH(bool, seenAway);
    QFETCH(bool, told);
    AwayDatabase f;
    const DatabaseFixture another(DatabaseFixture::Contents::Empty);
    {
        const auto writer = another.OpenComponent();
        writer->SaveParent(QStringLiteral("Omega"), QString::fromLatin1(DatabaseFixture::GammaTarget));
        for (int id = 3; id <= f.LastId() + moreChanges; ++id)
            writer->SaveNode(QStringLiteral("Node %1").arg(id), QString(), QStringLiteral("WP=NET4,ADDR=3"),
                             QStringLiteral("Omega"), QString());
    }
    Move(f.Source, f.Source + QStringLiteral(".old"));
    if (seenAway)
        QCOMPARE(f.ProblemWhileAway(), QString());
    Move(another.Source(), f.Source);
    f.Operator.Boxes.clear();
    f.Tick();
    QCOMPARE(f.Operator.Texts(), told ? QStringList(RefreshedControl::ReloadText()) : QStringList());
    QCOMPARE(f.Difference(), QString());
    QCOMPARE(f.ProblemWhenBack(), QString());
}

void TestRefreshOnSqlite::Refresh_ByAReaderAlone_TellsNothing()
{
    RefreshedControl f;
    f.Control->SetJournalRecordLimit(1);
    f.Control->SetJournalRecordsToKeep(1);
    f.Sql(QStringLiteral("DELETE FROM user_rights"));
    f.Tick();
    QCOMPARE(f.Operator.Texts(), QStringList());
    QVERIFY(f.Line().isHidden());
}

QTEST_MAIN(TestRefreshOnSqlite)
#include "TestRefreshOnSqlite.moc"
