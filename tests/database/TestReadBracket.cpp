#include "database/DatabaseState.h"
#include "database/ReadBracket.h"
#include "tests/support/GatewayFixture.h"

#include <QTest>

#include <optional>

/// One transaction around the reads of a click.
class TestReadBracket : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Reads_NestInOneTransaction();
    void End_EndsEarlyAndOnce();
    void ClosedSession_DoesNothing();
    void BeginFails_ReadsRunOnTheirOwn_data();
    void BeginFails_ReadsRunOnTheirOwn();
    void NothingStarted_DoesNothing();
    void NestedBracket_DoesNothing();
    void BracketBehindAnother_Works();
    void Box_EndsTheBracketBeforeItIsShown_data();
    void Box_EndsTheBracketBeforeItIsShown();
    void FailingRead_LeavesNothingOpenAtItsBox();
    void CommitOfAReadFails_LeavesNothingOpen();
    void CommitFails_RollsBackSilently();
    void GatewayFreedMeanwhile_DoesNothing();
    void EarlierObserver_ComesBack();
};

void TestReadBracket::Reads_NestInOneTransaction()
{
    GatewayFixture fixture;
    fixture.Open();
    QString list;
    qint32 count = 0;

    {
        ReadBracket bracket(fixture.Gateway());
        QVERIFY(bracket.IsOpen());
        QVERIFY(fixture.Gateway().QueryParentsDb(list));
        QVERIFY(fixture.Gateway().GetNodeCountDb(count));
        QCOMPARE(fixture.Component.Store.Commits, 0);
    }

    QCOMPARE(fixture.Component.Store.Commits, 1);
    QCOMPARE(fixture.Component.Store.Levels(), 0);
    QCOMPARE(fixture.Component.Calls.first(), "BeginTransaction()");
    QCOMPARE(fixture.Component.Calls.last(), "CommitTransaction(1)");
    QCOMPARE(fixture.Pointers, (QList<int>{11, 11, 1, 11, 1, 1}));
}

void TestReadBracket::End_EndsEarlyAndOnce()
{
    GatewayFixture fixture;
    fixture.Open();

    {
        ReadBracket bracket(fixture.Gateway());
        bracket.End();
        QVERIFY(!bracket.IsOpen());
        bracket.End();
    }

    QCOMPARE(fixture.Component.Calls, (QStringList{"BeginTransaction()", "CommitTransaction(1)"}));
}

void TestReadBracket::ClosedSession_DoesNothing()
{
    GatewayFixture fixture;

    {
        ReadBracket bracket(fixture.Gateway());
        QVERIFY(!bracket.IsOpen());
    }

    QCOMPARE(fixture.Component.Calls, QStringList{});
    QCOMPARE(fixture.Pointers, QList<int>{});
}

void TestReadBracket::BeginFails_ReadsRunOnTheirOwn_data()
{
    QTest::addColumn<quint32>("number");
    QTest::newRow("in use") << 0x80040040u;
    QTest::newRow("other") << 0x80040001u;
}

void TestReadBracket::BeginFails_ReadsRunOnTheirOwn()
{
    QFETCH(quint32, number);
    GatewayFixture fixture;
    fixture.Open();
    fixture.Component.FailTimes("BeginTransaction", 1, number);
    qint32 count = 0;

    {
        ReadBracket bracket(fixture.Gateway());
        QVERIFY(!bracket.IsOpen());
        QVERIFY(fixture.Gateway().GetNodeCountDb(count));
    }

    QCOMPARE(fixture.Component.Calls, (QStringList{"BeginTransaction()", "BeginTransaction()",
                                                   "GetNodeCount()", "CommitTransaction(1)"}));
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestReadBracket::NothingStarted_DoesNothing()
{
    GatewayFixture fixture;
    fixture.Open();
    fixture.Component.Answer("BeginTransaction", {"0"});

    {
        ReadBracket bracket(fixture.Gateway());
        QVERIFY(!bracket.IsOpen());
    }

    QCOMPARE(fixture.Component.Calls, QStringList{"BeginTransaction()"});
}

void TestReadBracket::NestedBracket_DoesNothing()
{
    GatewayFixture fixture;
    fixture.Open();

    {
        ReadBracket outer(fixture.Gateway());
        {
            ReadBracket inner(fixture.Gateway());
            QVERIFY(!inner.IsOpen());
        }
        QVERIFY(outer.IsOpen());
        QCOMPARE(fixture.Component.Store.Levels(), 1);
    }

    QCOMPARE(fixture.Component.Calls, (QStringList{"BeginTransaction()", "CommitTransaction(1)"}));
}

void TestReadBracket::BracketBehindAnother_Works()
{
    GatewayFixture fixture;
    fixture.Open();

    {
        ReadBracket first(fixture.Gateway());
    }
    ReadBracket second(fixture.Gateway());

    QVERIFY(second.IsOpen());
}

void TestReadBracket::Box_EndsTheBracketBeforeItIsShown_data()
{
    QTest::addColumn<bool>("inputBox");
    QTest::newRow("message box") << false;
    QTest::newRow("input box") << true;
}

void TestReadBracket::Box_EndsTheBracketBeforeItIsShown()
{
    QFETCH(bool, inputBox);
    GatewayFixture fixture;
    fixture.Open();
    std::optional<int> levels;
    fixture.Operator.WhileOpen = [&](const RecordedBox&) { levels = fixture.Component.Store.Levels(); };
    ReadBracket bracket(fixture.Gateway());

    QString value;
    if (inputBox)
        InputBox("prompt", "title", value);
    else
        MsgBox("text");

    if (!inputBox)
        QCOMPARE(levels, std::optional<int>(0));
    QVERIFY(!bracket.IsOpen());
    QCOMPARE(fixture.Component.Store.Commits, 1);
    QCOMPARE(fixture.Operator.Boxes.size(), 1u);
}

void TestReadBracket::FailingRead_LeavesNothingOpenAtItsBox()
{
    GatewayFixture fixture;
    fixture.Open();
    fixture.Component.Fail("GetNodeCount");
    std::optional<int> levels;
    fixture.Operator.WhileOpen = [&](const RecordedBox&) { levels = fixture.Component.Store.Levels(); };
    ReadBracket bracket(fixture.Gateway());
    qint32 count = 0;

    QVERIFY(!fixture.Gateway().GetNodeCountDb(count));

    QCOMPARE(levels, std::optional<int>(0));
    QVERIFY(!bracket.IsOpen());
    QCOMPARE(fixture.Operator.Texts(), QStringList{"Unknown error in access to database."});
}

void TestReadBracket::CommitOfAReadFails_LeavesNothingOpen()
{
    GatewayFixture fixture;
    fixture.Open();
    fixture.Component.FailTimes("CommitTransaction", 1);
    ReadBracket bracket(fixture.Gateway());
    qint32 count = 0;

    QVERIFY(!fixture.Gateway().GetNodeCountDb(count));

    QVERIFY(!bracket.IsOpen());
    QCOMPARE(fixture.Component.Store.Levels(), 0);
    QCOMPARE(fixture.Operator.Texts(), QStringList{"Failure to commit database operations."});
}

void TestReadBracket::CommitFails_RollsBackSilently()
{
    GatewayFixture fixture;
    fixture.Open();
    fixture.Component.Fail("CommitTransaction");

    {
        ReadBracket bracket(fixture.Gateway());
    }

    QCOMPARE(fixture.Component.Calls,
             (QStringList{"BeginTransaction()", "CommitTransaction(1)", "RollbackTransaction()"}));
    QCOMPARE(fixture.Component.Store.Levels(), 0);
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestReadBracket::GatewayFreedMeanwhile_DoesNothing()
{
    GatewayFixture fixture;
    fixture.Open();

    {
        ReadBracket bracket(fixture.Gateway());
        Database().DbObject.reset();
    }

    QCOMPARE(fixture.Component.Calls, QStringList{"BeginTransaction()"});
}

void TestReadBracket::EarlierObserver_ComesBack()
{
    GatewayFixture fixture;
    fixture.Open();
    int told = 0;
    SetBoxObserver([&] { ++told; });

    {
        ReadBracket bracket(fixture.Gateway());
    }
    MsgBox("text");
    SetBoxObserver(nullptr);

    QCOMPARE(told, 1);
}

QTEST_GUILESS_MAIN(TestReadBracket)
#include "TestReadBracket.moc"
