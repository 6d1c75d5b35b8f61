#include "components/hvxdb/DefinitionsIndex.h"

#include <QtTest>

class TestDefinitionsIndex : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Find_Name_GivesPosition_data();
    void Find_Name_GivesPosition();
    void Find_EmptyIndex_FindsNothing();
    void Add_NameTwice_KeepsTheFirst();
    void Find_NamesThatAreEqualWithoutCase_AgreeWithTheComparison();
};

void TestDefinitionsIndex::Find_Name_GivesPosition_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("position");
    QTest::newRow("same case") << "NET4" << 0;
    QTest::newRow("other case") << "nEt4" << 0;
    QTest::newRow("non-Latin") << u"\u00e4\u03c3"_qs << 1;
    QTest::newRow("surrogates, other case") << u"\U00010428x"_qs << 2;
    QTest::newRow("empty") << QString() << 3;
    QTest::newRow("beginning") << "NET" << -1;
    QTest::newRow("longer") << "NET4 " << -1;
    QTest::newRow("neighbours of letters") << "N@T4" << -1;
    QTest::newRow("same bits") << "NET\x14" << -1;
}

void TestDefinitionsIndex::Find_Name_GivesPosition()
{
    QFETCH(QString, name);
    QFETCH(int, position);

    DefinitionsIndex index;
    index.Add("Net4", 0);
    index.Add(u"\u00c4\u03a3"_qs, 1);
    index.Add(u"\U00010400X"_qs, 2);
    index.Add(QString(), 3);

    QCOMPARE(index.Find(name), position);
}

void TestDefinitionsIndex::Find_EmptyIndex_FindsNothing()
{
    QCOMPARE(DefinitionsIndex().Find(QString()), -1);
    QCOMPARE(DefinitionsIndex().Find(u"NET4"), -1);
}

void TestDefinitionsIndex::Add_NameTwice_KeepsTheFirst()
{
    DefinitionsIndex index;
    index.Add("NET4", 4);
    index.Add("net4", 5);

    QCOMPARE(index.Find(u"NET4"), 4);
    QCOMPARE(index.Find(u"net4"), 4);
}

void TestDefinitionsIndex::Find_NamesThatAreEqualWithoutCase_AgreeWithTheComparison()
{
    for (char16_t unit = 1; unit < 0xd800; ++unit) {
        const QString name = QString(QChar(unit));
        DefinitionsIndex index;
        index.Add(name, 7);
        for (const QString& other : {name.toUpper(), name.toLower(), name.toCaseFolded()}) {
            const int expected = other.compare(name, Qt::CaseInsensitive) == 0 ? 7 : -1;
            QCOMPARE(index.Find(other), expected);
        }
    }
}

QTEST_GUILESS_MAIN(TestDefinitionsIndex)
#include "TestDefinitionsIndex.moc"
