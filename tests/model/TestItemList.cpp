#include "model/ItemList.h"
#include "platform/IndexError.h"

#include <QTest>

class TestItemList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ConvertItemListToArray_PairMode_FillsColumnsInTurn_data();
    void ConvertItemListToArray_PairMode_FillsColumnsInTurn();
    void ConvertItemListToArray_PlainMode_EachItemIsARow();
    void ConvertItemListToArray_UsedTable_HoldsTheNewRowsOnly();
    void ConvertItemListToArray_LongestAnswer_KeepsAllRows();
    void PairListToTable_IsThePairMode();
    void ItemListToArray_Lists_GiveItems_data();
    void ItemListToArray_Lists_GiveItems();
    void ItemListToArray_HundredItems_Fit();
    void ItemListToArray_Item101_RaisesIndexError();
    void SplitText_AnySeparator_GivesFields_data();
    void SplitText_AnySeparator_GivesFields();
    void SplitText_MoreThanHundredFields_HasNoLimit();
    void GetItem_Fields_data();
    void GetItem_Fields();
};

static QStringList Flat(const PairTable& table)
{
    QStringList rows;
    for (const ItemPair& row : table)
        rows << row.first + u'=' + row.second;
    return rows;
}

void TestItemList::ConvertItemListToArray_PairMode_FillsColumnsInTurn_data()
{
    QTest::addColumn<QString>("list");
    QTest::addColumn<QStringList>("rows");
    QTest::newRow("empty text") << QString() << QStringList();
    QTest::newRow("one character") << QStringLiteral("a") << QStringList{"a="};
    QTest::newRow("one pair") << QStringLiteral("a\tb") << QStringList{"a=b"};
    QTest::newRow("odd number of items") << QStringLiteral("a\tb\tc") << QStringList{"a=b", "c="};
    QTest::newRow("tab at the end belongs to the last item")
        << QStringLiteral("a\tb\t") << QStringList{"a=b\t"};
    QTest::newRow("two tabs at the end") << QStringLiteral("a\t\t") << QStringList{"a=\t"};
    QTest::newRow("a tab alone") << QStringLiteral("\t") << QStringList{"\t="};
    QTest::newRow("empty item between") << QStringLiteral("a\t\tc\td") << QStringList{"a=", "c=d"};
    QTest::newRow("empty item first") << QStringLiteral("\tb") << QStringList{"=b"};
}

void TestItemList::ConvertItemListToArray_PairMode_FillsColumnsInTurn()
{
    QFETCH(QString, list);
    QFETCH(QStringList, rows);
    PairTable table;
    int count = -1;

    QVERIFY(ConvertItemListToArray(list, true, table, count));

    QCOMPARE(Flat(table), rows);
    QCOMPARE(count, rows.size());
}

void TestItemList::ConvertItemListToArray_PlainMode_EachItemIsARow()
{
    PairTable table;
    int count = 0;

    QVERIFY(ConvertItemListToArray("a\t\tc", false, table, count));

    QCOMPARE(Flat(table), (QStringList{"a=", "=", "c="}));
    QCOMPARE(count, 3);
}

void TestItemList::ConvertItemListToArray_UsedTable_HoldsTheNewRowsOnly()
{
    PairTable table{{"old", "row"}, {"old", "row"}};
    int count = 7;

    QVERIFY(ConvertItemListToArray("a\tb", true, table, count));

    QCOMPARE(Flat(table), QStringList{"a=b"});
    QCOMPARE(count, 1);
}

void TestItemList::ConvertItemListToArray_LongestAnswer_KeepsAllRows()
{
    constexpr int Rows = 32001;
    QStringList items;
    for (int i = 1; i <= Rows; ++i)
        items << QStringLiteral("Node %1").arg(i) << QString::number(i);
    PairTable table;
    int count = 0;

    QVERIFY(ConvertItemListToArray(items.join(TabChar), true, table, count));

    QCOMPARE(count, Rows);
    QCOMPARE(table.front().first, QStringLiteral("Node 1"));
    QCOMPARE(table.back().first, QStringLiteral("Node 32001"));
    QCOMPARE(table.back().second, QStringLiteral("32001"));
}

void TestItemList::PairListToTable_IsThePairMode()
{
    PairTable table;
    int count = 0;

    QVERIFY(PairListToTable("BUST4\t1\tOPT\t0", table, count));

    QCOMPARE(Flat(table), (QStringList{"BUST4=1", "OPT=0"}));
    QCOMPARE(count, 2);
}

void TestItemList::ItemListToArray_Lists_GiveItems_data()
{
    QTest::addColumn<QString>("list");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("empty text") << QString() << QStringList();
    QTest::newRow("one character") << QStringLiteral("a") << QStringList{"a"};
    QTest::newRow("empty item") << QStringLiteral("a\t\tb") << QStringList{"a", "", "b"};
    QTest::newRow("tab at the end") << QStringLiteral("a\tb\t") << QStringList{"a", "b\t"};
    QTest::newRow("a target") << QStringLiteral("1\t2\tWP\tBUST4\tID\t254")
                              << QStringList{"1", "2", "WP", "BUST4", "ID", "254"};
}

void TestItemList::ItemListToArray_Lists_GiveItems()
{
    QFETCH(QString, list);
    QFETCH(QStringList, expected);
    std::vector<QString> items{"old"};
    int count = -1;

    QVERIFY(ItemListToArray(list, items, count));

    QCOMPARE(QStringList(items.begin(), items.end()), expected);
    QCOMPARE(count, expected.size());
}

void TestItemList::ItemListToArray_HundredItems_Fit()
{
    std::vector<QString> items;
    int count = 0;

    QVERIFY(ItemListToArray(QString(99, TabChar) + u'x', items, count));

    QCOMPARE(count, 100);
    QCOMPARE(items.back(), QStringLiteral("x"));
}

void TestItemList::ItemListToArray_Item101_RaisesIndexError()
{
    std::vector<QString> items;
    int count = 0;

    QVERIFY_EXCEPTION_THROWN(ItemListToArray(QString(100, TabChar) + u'x', items, count), IndexError);
}

void TestItemList::SplitText_AnySeparator_GivesFields_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QChar>("separator");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("empty text") << QString() << QChar(u',') << QStringList();
    QTest::newRow("order list") << QStringLiteral("0,1,14") << QChar(u',') << QStringList{"0", "1", "14"};
    QTest::newRow("other separator") << QStringLiteral("1_01") << QChar(u'_') << QStringList{"1", "01"};
    QTest::newRow("separator at the end") << QStringLiteral("a,b,") << QChar(u',') << QStringList{"a", "b,"};
    QTest::newRow("no separator") << QStringLiteral("a b") << QChar(u',') << QStringList{"a b"};
}

void TestItemList::SplitText_AnySeparator_GivesFields()
{
    QFETCH(QString, text);
    QFETCH(QChar, separator);
    QFETCH(QStringList, expected);
    std::vector<QString> items;
    int count = -1;

    QVERIFY(SplitText(text, separator, items, count));

    QCOMPARE(QStringList(items.begin(), items.end()), expected);
    QCOMPARE(count, expected.size());
}

void TestItemList::SplitText_MoreThanHundredFields_HasNoLimit()
{
    std::vector<QString> items;
    int count = 0;

    QVERIFY(SplitText(QString(250, u',') + u'x', u',', items, count));

    QCOMPARE(count, 251);
}

void TestItemList::GetItem_Fields_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("expected");
    QTest::newRow("whole text without a separator") << QStringLiteral("C") << 1 << QStringLiteral("C");
    QTest::newRow("first field") << QStringLiteral("C,12") << 1 << QStringLiteral("C");
    QTest::newRow("last field") << QStringLiteral("C,12") << 2 << QStringLiteral("12");
    QTest::newRow("field behind the last") << QStringLiteral("C,12") << 3 << QString();
    QTest::newRow("middle field") << QStringLiteral("W,12,3") << 2 << QStringLiteral("12");
    QTest::newRow("empty field") << QStringLiteral("a,,b") << 2 << QString();
    QTest::newRow("empty field at the end") << QStringLiteral("a,") << 2 << QString();
    QTest::newRow("empty text") << QString() << 1 << QString();
}

void TestItemList::GetItem_Fields()
{
    QFETCH(QString, text);
    QFETCH(int, number);
    QFETCH(QString, expected);

    QCOMPARE(GetItem(text, number, u','), expected);
}

QTEST_GUILESS_MAIN(TestItemList)
#include "TestItemList.moc"
