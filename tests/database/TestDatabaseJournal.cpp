#include "database/DatabaseState.h"
#include "tests/support/GatewayFixture.h"

#include <QTest>

/// The Journal as the refresh reads it.
class TestDatabaseJournal : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void GetJournalLastIdDb_GrowsWithEachChange();
    void GetJournalChangesAfterIdDb_ListsIdsInOrder();
    void GetJournalChangesAfterIdDb_NoChange_IsEmpty();
    void GetJournalRecordByIdDb_TellsWhatChanged();
    void GetJournalRecordByIdDb_RecordGone_AnswersTypeZero();
    void JournalClearByRecordLimitDb_KeepsTheNewest();
    void ClosedSession_FailsAtTheBegin();
    void InsideARefresh_ReadsInOneTransaction();
};

/// An open session with three Journal records behind the first: two connections saved, one deleted.
class JournalFixture : public GatewayFixture
{
public:
    JournalFixture()
    {
        Component.Store.SaveParent("A", "WP=OPT");
        Component.Store.SaveParent("B", "WP=OPT");
        Component.Store.DeleteParent("A", true);
        Open();
    }
};

void TestDatabaseJournal::GetJournalLastIdDb_GrowsWithEachChange()
{
    JournalFixture fixture;
    qint32 before = 0;
    qint32 after = 0;

    QVERIFY(fixture.Gateway().GetJournalLastIdDb(before));
    QVERIFY(fixture.Gateway().ReplaceParentTargetDb("B", "WP=X"));
    QVERIFY(fixture.Gateway().GetJournalLastIdDb(after));

    QCOMPARE(before, 4);
    QCOMPARE(after, 5);
}

void TestDatabaseJournal::GetJournalChangesAfterIdDb_ListsIdsInOrder()
{
    JournalFixture fixture;
    QString list;

    QVERIFY(fixture.Gateway().GetJournalChangesAfterIdDb(2, list));

    QCOMPARE(list, "3\t4");
}

void TestDatabaseJournal::GetJournalChangesAfterIdDb_NoChange_IsEmpty()
{
    JournalFixture fixture;
    QString list = "old";

    QVERIFY(fixture.Gateway().GetJournalChangesAfterIdDb(4, list));

    QCOMPARE(list, "");
}

void TestDatabaseJournal::GetJournalRecordByIdDb_TellsWhatChanged()
{
    JournalFixture fixture;
    qint32 recordType = 0;
    QString name;
    qint32 objectId = 0;
    QString extra;

    QVERIFY(fixture.Gateway().GetJournalRecordByIdDb(4, recordType, name, objectId, extra));

    QCOMPARE(recordType, 21);
    QCOMPARE(name, "A");
    QCOMPARE(objectId, 1);
}

void TestDatabaseJournal::GetJournalRecordByIdDb_RecordGone_AnswersTypeZero()
{
    JournalFixture fixture;
    qint32 recordType = -1;
    QString name;
    qint32 objectId = 0;
    QString extra;

    QVERIFY(fixture.Gateway().GetJournalRecordByIdDb(99, recordType, name, objectId, extra));

    QCOMPARE(recordType, 0);
}

void TestDatabaseJournal::JournalClearByRecordLimitDb_KeepsTheNewest()
{
    JournalFixture fixture;
    QString list;

    QVERIFY(fixture.Gateway().JournalClearByRecordLimitDb(2, 1));
    QVERIFY(fixture.Gateway().GetJournalChangesAfterIdDb(1, list));

    QCOMPARE(list, "4");
}

void TestDatabaseJournal::ClosedSession_FailsAtTheBegin()
{
    GatewayFixture fixture;
    qint32 id = 0;

    QVERIFY(!fixture.Gateway().GetJournalLastIdDb(id));

    QCOMPARE(fixture.Operator.Boxes,
             std::vector{
                 RecordedBox::Error("Database access is denied, because another application is using it.")});
}

void TestDatabaseJournal::InsideARefresh_ReadsInOneTransaction()
{
    JournalFixture fixture;
    bool transactionOpen = false;
    qint32 id = 0;
    QString list;

    QVERIFY(fixture.Gateway().BeginTransactionDbRefresh(transactionOpen));
    QVERIFY(fixture.Gateway().GetJournalLastIdDb(id));
    QVERIFY(fixture.Gateway().GetJournalChangesAfterIdDb(1, list));
    QCOMPARE(fixture.Component.Store.Commits, 0);
    QVERIFY(fixture.Gateway().CommitTransactionDb(transactionOpen));

    QCOMPARE(fixture.Component.Store.Commits, 1);
    // The inner commits set the pointer back while the outer transaction still runs.
    QCOMPARE(fixture.Pointers, (QList<int>{11, 11, 1, 11, 1, 1}));
}

QTEST_GUILESS_MAIN(TestDatabaseJournal)
#include "TestDatabaseJournal.moc"
