#include "tests/components/DatabaseFixture.h"

#include <QTest>

/// Lists and counts of the database component.
class TestHvxQueries : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void QueryParents_All_OrderedById();
    void QueryParents_Filter_OneOrNone_data();
    void QueryParents_Filter_OneOrNone();
    void QueryNodes_EmptyDatabase_EmptyListAndPositionZero();
    void QueryNodes_Positions_data();
    void QueryNodes_Positions();
    void QueryNodes_Filters_data();
    void QueryNodes_Filters();
    void QueryNodes_FilterWithPosition_GoesOnWithinFilter();
    void QueryNodes_MoreThanOneAnswer_GoesOnToTheEnd();
    void QueryNodes_FirstOf5001_StopsBehindThem_data();
    void QueryNodes_FirstOf5001_StopsBehindThem();
    void ParentNodes_All_OrderedById();
    void ParentNodes_MissingConnection_EmptyList();
    void ParentNodesEx_MoreThanThousand_GoesOn();
    void ParentNodesEx_FirstN_GivesPosition();
    void Counts_AllAndOfConnection();
    void ControlCharacters_InNames_BecomeBlanks_data();
    void ControlCharacters_InNames_BecomeBlanks();
    void List_CostsOneStatement();
};

namespace {

void AddNodes(const DatabaseFixture& fixture, const QString& conName, int count)
{
    const auto administration = HvxAdministration::Open(fixture.Source());
    const auto writer = administration->BeginBulkWrite();
    for (int i = 1; i <= count; ++i) {
        NodeRecord node;
        node.name = QStringLiteral("%1 node %2").arg(conName).arg(i);
        node.conName = conName;
        writer->AddNode(node);
    }
    writer->Commit();
}

qsizetype PairCount(const QString& list)
{
    return list.isEmpty() ? 0 : (list.count(u'\t') + 1) / 2;
}

} // namespace

void TestHvxQueries::QueryParents_All_OrderedById()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    component->ReplaceParentTarget(QStringLiteral("Alpha"), QString());

    QString list;
    component->QueryParentsWithID(QString(), list);

    QCOMPARE(list, QStringLiteral("Beta\t2\tGamma\t3\tAlpha\t7"));
}

void TestHvxQueries::QueryParents_Filter_OneOrNone_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("expected");
    QTest::newRow("name") << QStringLiteral("beta") << QStringLiteral("Beta\t2");
    QTest::newRow("unknown") << QStringLiteral("Nowhere") << QString();
    QTest::newRow("a node") << QStringLiteral("North") << QString();
}

void TestHvxQueries::QueryParents_Filter_OneOrNone()
{
    QFETCH(QString, filter);
    const DatabaseFixture fixture;

    QString list = QStringLiteral("a");
    fixture.OpenComponent()->QueryParentsWithID(filter, list);

    QTEST(list, "expected");
}

void TestHvxQueries::QueryNodes_EmptyDatabase_EmptyListAndPositionZero()
{
    const DatabaseFixture fixture(DatabaseFixture::Contents::Empty);
    const auto component = fixture.OpenComponent();

    for (const qint32 start : {0, -5, 7}) {
        qint32 position = start;
        QString list = QStringLiteral("a");
        component->QueryNodesWithIdEx(QString(), QString(), list, position);
        QCOMPARE(list, QString());
        QCOMPARE(position, 0);
    }
}

void TestHvxQueries::QueryNodes_Positions_data()
{
    QTest::addColumn<qint32>("position");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<qint32>("next");
    const QString all = QStringLiteral("North\t4\tSouth\t5\tEast\t6");
    QTest::newRow("from the start") << 0 << all << 0;
    QTest::newRow("first one") << -1 << QStringLiteral("North\t4") << 4;
    QTest::newRow("first two") << -2 << QStringLiteral("North\t4\tSouth\t5") << 5;
    QTest::newRow("first three are all") << -3 << all << 0;
    QTest::newRow("first of more than there are") << -5001 << all << 0;
    QTest::newRow("first of the most there can be") << std::numeric_limits<qint32>::min() << all << 0;
    QTest::newRow("behind an id") << 4 << QStringLiteral("South\t5\tEast\t6") << 0;
    QTest::newRow("behind an id that is gone") << 2 << all << 0;
    QTest::newRow("behind the last") << 6 << QString() << 0;
}

void TestHvxQueries::QueryNodes_Positions()
{
    QFETCH(qint32, position);
    const DatabaseFixture fixture;

    QString list;
    fixture.OpenComponent()->QueryNodesWithIdEx(QString(), QString(), list, position);

    QTEST(list, "expected");
    QTEST(position, "next");
}

void TestHvxQueries::QueryNodes_Filters_data()
{
    QTest::addColumn<QString>("conName");
    QTest::addColumn<QString>("nodeType");
    QTest::addColumn<QString>("expected");
    QTest::newRow("connection") << QStringLiteral("ALPHA") << QString()
                                << QStringLiteral("North\t4\tSouth\t5");
    QTest::newRow("type") << QString() << QStringLiteral("net4") << QStringLiteral("North\t4\tSouth\t5");
    QTest::newRow("both") << QStringLiteral("Alpha") << QStringLiteral("NET4")
                          << QStringLiteral("North\t4\tSouth\t5");
    QTest::newRow("both without a node") << QStringLiteral("Beta") << QStringLiteral("NET4") << QString();
    QTest::newRow("unknown connection") << QStringLiteral("Nowhere") << QString() << QString();
    QTest::newRow("unknown type") << QString() << QStringLiteral("NEMML") << QString();
}

void TestHvxQueries::QueryNodes_Filters()
{
    QFETCH(QString, conName);
    QFETCH(QString, nodeType);
    const DatabaseFixture fixture;

    QString list;
    qint32 position = 0;
    fixture.OpenComponent()->QueryNodesWithIdEx(conName, nodeType, list, position);

    QTEST(list, "expected");
    QCOMPARE(position, 0);
}

void TestHvxQueries::QueryNodes_FilterWithPosition_GoesOnWithinFilter()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();

    QString list;
    qint32 position = -1;
    component->QueryNodesWithIdEx(QStringLiteral("Alpha"), QStringLiteral("NET4"), list, position);
    QCOMPARE(list, QStringLiteral("North\t4"));
    QCOMPARE(position, 4);
    component->QueryNodesWithIdEx(QStringLiteral("Alpha"), QStringLiteral("NET4"), list, position);

    // A node follows in the table, but none of this connection.
    QCOMPARE(list, QStringLiteral("South\t5"));
    QCOMPARE(position, 0);
}

void TestHvxQueries::QueryNodes_MoreThanOneAnswer_GoesOnToTheEnd()
{
    const DatabaseFixture fixture(DatabaseFixture::Contents::Empty);
    const auto component = fixture.OpenComponent();
    component->SaveParent(QStringLiteral("Alpha"), QString());
    AddNodes(fixture, QStringLiteral("Alpha"), 32'003);

    QString list;
    qint32 position = 0;
    component->QueryNodesWithIdEx(QString(), QString(), list, position);
    QCOMPARE(PairCount(list), 32'001);
    QCOMPARE(position, 32'002);
    QVERIFY(list.endsWith(QStringLiteral("\tAlpha node 32001\t32002")));
    component->QueryNodesWithIdEx(QString(), QString(), list, position);

    QCOMPARE(list, QStringLiteral("Alpha node 32002\t32003\tAlpha node 32003\t32004"));
    QCOMPARE(position, 0);
    position = -40'000;
    component->QueryNodesWithIdEx(QString(), QString(), list, position);
    QCOMPARE(PairCount(list), 32'001);
}

void TestHvxQueries::QueryNodes_FirstOf5001_StopsBehindThem_data()
{
    QTest::addColumn<int>("nodes");
    QTest::addColumn<qint32>("next");
    QTest::newRow("5000") << 5000 << 0;
    QTest::newRow("5001") << 5001 << 0;
    QTest::newRow("5002") << 5002 << 5002;
}

void TestHvxQueries::QueryNodes_FirstOf5001_StopsBehindThem()
{
    QFETCH(int, nodes);
    const DatabaseFixture fixture(DatabaseFixture::Contents::Empty);
    const auto component = fixture.OpenComponent();
    component->SaveParent(QStringLiteral("Alpha"), QString());
    AddNodes(fixture, QStringLiteral("Alpha"), nodes);

    QString list;
    qint32 position = -5001;
    component->QueryNodesWithIdEx(QString(), QString(), list, position);

    QCOMPARE(PairCount(list), qMin(nodes, 5001));
    QTEST(position, "next");
}

void TestHvxQueries::ParentNodes_All_OrderedById()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    component->ReplaceNodeName(QStringLiteral("North"), QStringLiteral("Far North"));

    QString list;
    component->GetParentNodesWithID(QStringLiteral("alpha"), list);

    QCOMPARE(list, QStringLiteral("South\t5\tFar North\t7"));
}

void TestHvxQueries::ParentNodes_MissingConnection_EmptyList()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();

    QString list = QStringLiteral("a");
    qint32 position = -5;
    qint32 count = 7;
    component->GetParentNodesWithID(QStringLiteral("Nowhere"), list);
    QCOMPARE(list, QString());
    list = QStringLiteral("a");
    component->GetParentNodesWithIdEx(QString(), list, position);
    QCOMPARE(list, QString());
    QCOMPARE(position, 0);
    component->GetParentNodesCount(QStringLiteral("Nowhere"), count);
    QCOMPARE(count, 0);
}

void TestHvxQueries::ParentNodesEx_MoreThanThousand_GoesOn()
{
    const DatabaseFixture fixture;
    AddNodes(fixture, QStringLiteral("Gamma"), 1001);
    AddNodes(fixture, QStringLiteral("Beta"), 1);
    const auto component = fixture.OpenComponent();

    QString list;
    qint32 position = 0;
    component->GetParentNodesWithIdEx(QStringLiteral("Gamma"), list, position);
    QCOMPARE(PairCount(list), 1000);
    QCOMPARE(position, 1006);
    component->GetParentNodesWithIdEx(QStringLiteral("Gamma"), list, position);

    QCOMPARE(list, QStringLiteral("Gamma node 1001\t1007"));
    QCOMPARE(position, 0);
}

void TestHvxQueries::ParentNodesEx_FirstN_GivesPosition()
{
    const DatabaseFixture fixture;

    QString list;
    qint32 position = -1;
    fixture.OpenComponent()->GetParentNodesWithIdEx(QStringLiteral("Alpha"), list, position);

    QCOMPARE(list, QStringLiteral("North\t4"));
    QCOMPARE(position, 4);
}

void TestHvxQueries::Counts_AllAndOfConnection()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();

    qint32 count = 0;
    component->GetNodeCount(count);
    QCOMPARE(count, 3);
    component->GetParentNodesCount(QStringLiteral(" ALPHA"), count);
    QCOMPARE(count, 2);
    component->GetParentNodesCount(QStringLiteral("Gamma"), count);
    QCOMPARE(count, 0);
}

void TestHvxQueries::ControlCharacters_InNames_BecomeBlanks_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("tab") << QStringLiteral("a\tb");
    QTest::newRow("line end") << QStringLiteral("a\nb");
    QTest::newRow("delete") << QStringLiteral("a\u007fb");
    QTest::newRow("from the upper range") << QStringLiteral("a\u0085b");
}

void TestHvxQueries::ControlCharacters_InNames_BecomeBlanks()
{
    QFETCH(QString, name);
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    component->SaveNode(name, QString(), QString(), QStringLiteral("Gamma"), QString());

    QString list;
    qint32 position = 0;
    component->QueryNodesWithIdEx(QString(), QString(), list, position);
    QCOMPARE(list, QStringLiteral("North\t4\tSouth\t5\tEast\t6\ta b\t7"));
    component->GetParentNodesWithID(QStringLiteral("Gamma"), list);
    QCOMPARE(list, QStringLiteral("a b\t7"));
    position = -1;
    component->QueryNodesWithIdEx(QStringLiteral("Gamma"), QString(), list, position);
    QCOMPARE(list, QStringLiteral("a b\t7"));
    QCOMPARE(position, 0);
}

void TestHvxQueries::List_CostsOneStatement()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    const qint64 before = component->StatementCount();

    QString list;
    qint32 position = -2;
    component->QueryNodesWithIdEx(QString(), QString(), list, position);

    QCOMPARE(component->StatementCount() - before, 1);
}

QTEST_GUILESS_MAIN(TestHvxQueries)
#include "TestHvxQueries.moc"
