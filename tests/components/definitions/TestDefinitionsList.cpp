#include "components/hvxdb/DefinitionsList.h"

#include <QtTest>

class TestDefinitionsList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Take_Items_AreSeparatedByOneTab_data();
    void Take_Items_AreSeparatedByOneTab();
    void AddNumber_Number_WritesItsDigits();
    void Add_ControlCharacters_BecomeBlanks();
    void Take_Twice_StartsAnew();
};

void TestDefinitionsList::Take_Items_AreSeparatedByOneTab_data()
{
    QTest::addColumn<QStringList>("items");
    QTest::addColumn<QString>("list");
    QTest::newRow("none") << QStringList() << "";
    QTest::newRow("one") << QStringList{"a"} << "a";
    QTest::newRow("two") << QStringList{"a", "b"} << "a\tb";
    QTest::newRow("empty in the middle") << QStringList{"a", "", "b"} << "a\t\tb";
    QTest::newRow("empty in front") << QStringList{"", "a"} << "\ta";
    QTest::newRow("empty at the end") << QStringList{"a", ""} << "a";
    QTest::newRow("several empty at the end") << QStringList{"a", "", ""} << "a";
    QTest::newRow("all empty") << QStringList{"", ""} << "";
    QTest::newRow("blank at the end") << QStringList{"a", " "} << "a\t ";
    QTest::newRow("tab at the end") << QStringList{"a", "b\t"} << "a\tb ";
}

void TestDefinitionsList::Take_Items_AreSeparatedByOneTab()
{
    QFETCH(QStringList, items);
    QFETCH(QString, list);

    DefinitionsList composed(list.size());
    for (const QString& item : items)
        composed.Add(item);

    QCOMPARE(composed.Take(), list);
}

void TestDefinitionsList::AddNumber_Number_WritesItsDigits()
{
    DefinitionsList list;
    for (const qsizetype number : {0, 9, 10, 123, -4})
        list.AddNumber(number);

    QCOMPARE(list.Take(), "0\t9\t10\t123\t-4");
}

void TestDefinitionsList::Add_ControlCharacters_BecomeBlanks()
{
    DefinitionsList list;
    list.Add(u"a\0b\x1f\x7f|\u0080\u009f\u00a0\u00e4"_qs);
    list.Add(u"\r\n");

    QCOMPARE(list.Take(), u"a b  |  \u00a0\u00e4\t  "_qs);
}

void TestDefinitionsList::Take_Twice_StartsAnew()
{
    DefinitionsList list;
    list.Add(u"a");
    QCOMPARE(list.Take(), "a");
    QCOMPARE(list.Take(), QString());

    list.Add(u"b");
    QCOMPARE(list.Take(), "b");
}

QTEST_GUILESS_MAIN(TestDefinitionsList)
#include "TestDefinitionsList.moc"
