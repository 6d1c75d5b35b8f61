#include "model/ConOrderClass.h"
#include "platform/IndexError.h"
#include "tests/model/ScriptedModelDatabase.h"

#include <QTest>

class TestConOrderClass : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Picture_EmptyTable_IsTheUnknownOne();
    void AddItem_Row21_GivesFalse();
    void GetPicIndx_TwoRowsSamePosition_LaterWins();
    void LoadConTypesInOrder_OfferedTypes_StandInOrder();
    void LoadConTypesInOrder_Again_ReplacesRows();
    void LoadConTypesInOrder_EachCallFailing_KeepsRowsSoFar();
    void LoadConTypesInOrder_MoreThanTwentyTypes_EndsAtThe21st();
    void LoadConTypesInOrder_PositionBehindTheList_AsksForEmptyName();
    void LoadConTypesInOrder_PositionOutOfRange_RaisesIndexError_data();
    void LoadConTypesInOrder_PositionOutOfRange_RaisesIndexError();
    void LongName_Rows_data();
    void LongName_Rows();
};

static const QString Order = QStringLiteral("0,1,2,9,14,6,7");
static const QString Pictures = QStringLiteral("0,1,2,9,16,6,7");

/// Types "S0", "S1" ... with long names "Long 0", "Long 1" ...
static void AddTypes(ScriptedModelDatabase& database, int count)
{
    QStringList types;
    for (int i = 0; i < count; ++i) {
        types << QStringLiteral("S%1").arg(i);
        database.Answers[QStringLiteral("GetConTypeLongNameDb(S%1)").arg(i)] = {
            QStringLiteral("Long %1").arg(i)};
    }
    database.Answers[QStringLiteral("GetConTypeListDb()")] = {types.join(TabChar)};
}

void TestConOrderClass::Picture_EmptyTable_IsTheUnknownOne()
{
    const ConOrderClass order;

    for (const int position : {-1, 0, 1, 16}) {
        QCOMPARE(order.GetPicIndxByBrowserPos(position), 14);
        QCOMPARE(order.GetPicIndxByResourcePos(position), 14);
    }
    QCOMPARE(order.ConnectionCount(), 0);
}

void TestConOrderClass::AddItem_Row21_GivesFalse()
{
    ConOrderClass order;
    for (int i = 0; i < 20; ++i)
        QVERIFY(order.AddItem("s", "l", i, i, i));

    QVERIFY(!order.AddItem("s", "l", 20, 20, 5));

    QCOMPARE(order.ConnectionCount(), 20);
    QCOMPARE(order.GetPicIndxByBrowserPos(20), 14);
}

void TestConOrderClass::GetPicIndx_TwoRowsSamePosition_LaterWins()
{
    ConOrderClass order;
    order.AddItem("a", "A", 5, 0, 1);
    order.AddItem("b", "B", 5, 0, 2);

    QCOMPARE(order.GetPicIndxByBrowserPos(0), 2);
    QCOMPARE(order.GetPicIndxByResourcePos(5), 2);
}

void TestConOrderClass::LoadConTypesInOrder_OfferedTypes_StandInOrder()
{
    ScriptedModelDatabase database;
    AddTypes(database, 17);
    ConOrderClass order;

    QVERIFY(order.LoadConTypesInOrder(database, Order, Pictures));

    QCOMPARE(order.ConnectionCount(), 7);
    QStringList names;
    for (int row = 1; row <= 7; ++row)
        names << order.LongName(row);
    QCOMPARE(names, (QStringList{"Long 0", "Long 1", "Long 2", "Long 9", "Long 14", "Long 6", "Long 7"}));
    QCOMPARE(order.GetPicIndxByBrowserPos(4), 16);
    QCOMPARE(order.GetPicIndxByResourcePos(14), 16);
    QCOMPARE(order.GetPicIndxByResourcePos(9), 9);
    QCOMPARE(order.GetPicIndxByResourcePos(15), 14);
    QCOMPARE(order.GetPicIndxByBrowserPos(7), 14);
}

void TestConOrderClass::LoadConTypesInOrder_Again_ReplacesRows()
{
    ScriptedModelDatabase database;
    AddTypes(database, 17);
    ConOrderClass order;
    order.LoadConTypesInOrder(database, Order, Pictures);

    QVERIFY(order.LoadConTypesInOrder(database, "3", "3"));

    QCOMPARE(order.ConnectionCount(), 1);
    QCOMPARE(order.LongName(1), QStringLiteral("Long 3"));
}

void TestConOrderClass::LoadConTypesInOrder_EachCallFailing_KeepsRowsSoFar()
{
    for (int call = 0; call < 8; ++call) {
        ScriptedModelDatabase database;
        AddTypes(database, 17);
        database.FailingCall = call;
        ConOrderClass order;
        order.AddItem("old", "Old", 0, 0, 0);

        QVERIFY(!order.LoadConTypesInOrder(database, Order, Pictures));

        QCOMPARE(database.Calls.size(), call + 1);
        QCOMPARE(order.ConnectionCount(), qMax(0, call - 1));
    }
}

void TestConOrderClass::LoadConTypesInOrder_MoreThanTwentyTypes_EndsAtThe21st()
{
    ScriptedModelDatabase database;
    AddTypes(database, 30);
    QStringList positions;
    for (int i = 0; i < 21; ++i)
        positions << QString::number(i);
    ConOrderClass order;

    QVERIFY(!order.LoadConTypesInOrder(database, positions.join(u','), positions.join(u',')));

    QCOMPARE(order.ConnectionCount(), 20);
    QCOMPARE(order.LongName(20), QStringLiteral("Long 19"));
}

void TestConOrderClass::LoadConTypesInOrder_PositionBehindTheList_AsksForEmptyName()
{
    ScriptedModelDatabase database;
    AddTypes(database, 3);
    ConOrderClass order;

    QVERIFY(!order.LoadConTypesInOrder(database, "0,9", "0,9"));

    QCOMPARE(order.ConnectionCount(), 1);
    QCOMPARE(database.Calls.last(), QStringLiteral("GetConTypeLongNameDb()"));
}

void TestConOrderClass::LoadConTypesInOrder_PositionOutOfRange_RaisesIndexError_data()
{
    QTest::addColumn<QString>("order");
    QTest::newRow("negative") << QStringLiteral("-1");
    QTest::newRow("behind item 100") << QStringLiteral("100");
    QTest::newRow("behind any item") << QStringLiteral("2147483647");
}

void TestConOrderClass::LoadConTypesInOrder_PositionOutOfRange_RaisesIndexError()
{
    QFETCH(QString, order);
    ScriptedModelDatabase database;
    AddTypes(database, 3);
    ConOrderClass table;

    QVERIFY_EXCEPTION_THROWN(table.LoadConTypesInOrder(database, order, "0"), IndexError);
}

void TestConOrderClass::LongName_Rows_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("raises");
    QTest::newRow("0") << 0 << true;
    QTest::newRow("behind the last") << 2 << false;
    QTest::newRow("20") << 20 << false;
    QTest::newRow("21") << 21 << true;
}

void TestConOrderClass::LongName_Rows()
{
    QFETCH(int, row);
    QFETCH(bool, raises);
    ConOrderClass order;
    order.AddItem("a", "A", 0, 0, 0);

    if (raises)
        QVERIFY_EXCEPTION_THROWN((void)order.LongName(row), IndexError);
    else
        QCOMPARE(order.LongName(row), QString());
}

QTEST_GUILESS_MAIN(TestConOrderClass)
#include "TestConOrderClass.moc"
