#include "browser/NodeRows.h"
#include "model/ItemList.h"
#include "model/TextHelpers.h"

#include <QTest>

class TestNodeRows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Next_AnyList_GivesTheRowsOfThePairTable_data()
    {
        QTest::addColumn<QString>("list");
        QTest::newRow("empty") << QString();
        QTest::newRow("one") << QStringLiteral("a\t1");
        QTest::newRow("two") << QStringLiteral("a\t1\tb\t22");
        QTest::newRow("odd") << QStringLiteral("a\t1\tb");
        QTest::newRow("empty name") << QStringLiteral("\t5\tb\t6");
        QTest::newRow("separator at the end") << QStringLiteral("a\t1\t");
        QTest::newRow("separator alone") << QStringLiteral("\t");
        QTest::newRow("two separators") << QStringLiteral("\t\t");
        QTest::newRow("no number") << QStringLiteral("a\tx\tb\t7y");
        QTest::newRow("large ids") << QStringLiteral("a\t999999999\tb\t1234567890\tc\t99999999999");
        QTest::newRow("other numbers") << QStringLiteral("a\t-5\tb\t 7\tc\t1.5\td\t");
        QTest::newRow("beyond the basic plane") << QStringLiteral("caf\u00e9 \U0001F4E1\t9");
    }
    void Next_AnyList_GivesTheRowsOfThePairTable()
    {
        QFETCH(const QString, list);
        PairTable expected;
        int count = 0;
        QVERIFY(ConvertItemListToArray(list, true, expected, count));

        NodeRows rows;
        rows.SetList(list);
        for (const ItemPair& pair : expected) {
            const auto next = rows.Next(1);
            QCOMPARE(next.size(), std::size_t(1));
            QCOMPARE(next[0].text.toString(), pair.first);
            QCOMPARE(next[0].id, ValInt(pair.second));
        }
        QVERIFY(rows.AtEnd());
        QVERIFY(rows.Next(1).empty());
        QCOMPARE(rows.Given(), count);
    }

    void Next_MoreThanASpan_GivesSpansOfAtMostAHundred()
    {
        QStringList items;
        for (int id = 1; id <= 250; ++id)
            items << QStringLiteral("n%1").arg(id) << QString::number(id);
        NodeRows rows;
        rows.SetList(items.join(TabChar));
        QCOMPARE(rows.Next(1000).size(), std::size_t(100));
        QCOMPARE(rows.Next(100).front().id, 101);
        QCOMPARE(rows.Next(100).size(), std::size_t(50));
        QCOMPARE(rows.Given(), 250);
        QVERIFY(rows.Next(-1).empty());
    }

    void SetList_Again_StartsAnew()
    {
        NodeRows rows;
        rows.SetList(QStringLiteral("a\t1"));
        (void)rows.Next(1);
        rows.SetList(QStringLiteral("b\t2"));
        QCOMPARE(rows.Given(), 0);
        QCOMPARE(rows.Next(1).front().id, 2);
    }
};

QTEST_APPLESS_MAIN(TestNodeRows)
#include "TestNodeRows.moc"
