#include "platform/TargetText.h"

#include <QtTest>

namespace {

/// Each item as "keyword|value", "keyword" without "=", "!" in front of a hop; items separated by blanks.
QString Items(const QString& text)
{
    QStringList items;
    TargetText reader(text);
    TargetItem item;
    while (reader.Next(item)) {
        QString shown = item.IsHop() ? QStringLiteral("!") : QString();
        shown += item.keyword;
        if (item.hasEquals)
            shown += u'|' + item.value.toString();
        items << shown;
    }
    return items.join(u' ');
}

} // namespace

class TestTargetText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Next_Text_GivesItems_data();
    void Next_Text_GivesItems();
    void Next_Item_TellsItsPlace();
    void Next_BehindTheLast_StaysFalseAndKeepsTheItem();
    void Next_Copy_ReadsOnByItself();
};

void TestTargetText::Next_Text_GivesItems_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("items");
    QTest::newRow("target") << "WP=NET4,ADDR=1"
                            << "!WP|NET4 ADDR|1";
    QTest::newRow("any case") << "wp=a,Wp=b,wP=c"
                              << "!wp|a !Wp|b !wP|c";
    QTest::newRow("not a hop") << "WPX=a,W=b,P=c,VP=d,WQ=e,WP"
                               << "WPX|a W|b P|c VP|d WQ|e WP";
    QTest::newRow("other characters with the same bit")
        << QString(u"\u0157P=a,W\u0150=b"_qs) << QString(u"\u0157P|a W\u0150|b"_qs);
    QTest::newRow("first equals") << "A=b=c,D=="
                                  << "A|b=c D|=";
    QTest::newRow("empty keyword and value") << "=,A=,=b"
                                             << "| A| |b";
    QTest::newRow("empty items") << ",,A=1,,B=2,,"
                                 << "A|1 B|2";
    QTest::newRow("blanks") << "A=1"
                            << "A|1";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("only commas") << ",,,"
                                 << "";
    QTest::newRow("one character") << "A"
                                   << "A";
}

void TestTargetText::Next_Text_GivesItems()
{
    QFETCH(QString, text);
    QFETCH(QString, items);

    QCOMPARE(Items(text), items);
}

void TestTargetText::Next_Item_TellsItsPlace()
{
    const QString text = QStringLiteral(",,AB=cde,F");
    TargetText reader(text);
    TargetItem item;

    QVERIFY(reader.Next(item));
    QCOMPARE(item.start, 2);
    QCOMPARE(item.end, 8);
    QCOMPARE(item.value.utf16(), QStringView(text).utf16() + 5);

    QVERIFY(reader.Next(item));
    QCOMPARE(item.start, 9);
    QCOMPARE(item.end, 10);
    QVERIFY(!item.hasEquals);
    QVERIFY(item.value.isEmpty());
}

void TestTargetText::Next_BehindTheLast_StaysFalseAndKeepsTheItem()
{
    TargetText reader(u"A=1,");
    TargetItem item;
    QVERIFY(reader.Next(item));

    QVERIFY(!reader.Next(item));
    QVERIFY(!reader.Next(item));
    QCOMPARE(item.keyword, u"A");
}

void TestTargetText::Next_Copy_ReadsOnByItself()
{
    TargetText reader(u"A=1,B=2");
    TargetItem item;
    QVERIFY(reader.Next(item));
    TargetText copy = reader;

    QVERIFY(copy.Next(item));
    QCOMPARE(item.keyword, u"B");
    QVERIFY(reader.Next(item));
    QCOMPARE(item.keyword, u"B");
}

QTEST_GUILESS_MAIN(TestTargetText)
#include "TestTargetText.moc"
