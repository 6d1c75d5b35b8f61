#include "tests/components/DatabaseFixture.h"

#include <QTest>

/// Searches for nodes and waypoints by a part of their names.
class TestHvxFinding : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void FindNodes_Texts_UpperCaseIsCompared_data();
    void FindNodes_Texts_UpperCaseIsCompared();
    void FindNodes_Hit_ComesWithItsConnection();
    void FindNodes_ManyNodes_GoOnToTheEnd();
    void FindNodes_ManyOtherLetters_GoOnToTheEnd();
    void FindNodes_ControlCharacter_BecomesBlank();
    void FindNodes_NothingOpen_Raises();
    void FindWaypoints_LongNames_WithNumbers();
    void FindWaypoints_UnknownWaypoint_KeepsItsShortName();
    void FindWaypoints_ManyConnections_GoOnToTheEnd();
};

namespace {

using Search = void (HvxDatabase::*)(const QString&, QString&, qint32&);

/// The hits of all answers; `answers`: how many there were.
QStringList FindAll(HvxDatabase& component, Search search, const QString& searched, int* answers = nullptr)
{
    QStringList items;
    qint32 position = 0;
    int count = 0;
    do {
        QString list;
        (component.*search)(searched, list, position);
        items += list.split(u'\t', Qt::SkipEmptyParts);
        ++count;
    } while (position != 0);
    if (answers)
        *answers = count;
    return items;
}

QStringList NamesOf(const QStringList& items)
{
    QStringList names;
    for (qsizetype at = 0; at < items.size(); at += 4)
        names << items[at];
    return names;
}

/// Nodes of Alpha, `name` with a number behind it, in one statement.
void AddNodes(const DatabaseFixture& fixture, const QString& name, int count)
{
    fixture.RunSql(QStringLiteral("WITH RECURSIVE counted(number) AS"
                                  " (SELECT 1 UNION ALL SELECT number + 1 FROM counted WHERE number < %2)"
                                  " INSERT INTO node (name, connection_key) SELECT '%1 ' || number,"
                                  " (SELECT row_key FROM connection WHERE name = 'Alpha') FROM counted")
                       .arg(name)
                       .arg(count));
}

} // namespace

void TestHvxFinding::FindNodes_Texts_UpperCaseIsCompared_data()
{
    QTest::addColumn<QString>("searched");
    QTest::addColumn<QString>("found");
    const auto row = [](const char* tag, const char* searched, const char* found) {
        QTest::newRow(tag) << QString::fromUtf8(searched) << QString::fromUtf8(found);
    };
    row("plain", "NODE A", "node a%b|Node a_b");
    row("percent is itself", "a%", "node a%b");
    row("underscore is itself", "a_", "Node a_b");
    row("backslash is itself", "\\", "back\\slash|back\\slash glass");
    row("quote", "'", "o'clock");
    row("sharp s", "strasse", "Straße 7");
    row("sharp s searched", "ß", "Straße 7|back\\slash glass");
    row("cyrillic", "насос", "НАСОС 1");
    row("accent", "é", "CAFÉ");
    row("accent and none", "fe", "");
    row("nothing", "nowhere", "");
}

void TestHvxFinding::FindNodes_Texts_UpperCaseIsCompared()
{
    QFETCH(const QString, searched);
    QFETCH(const QString, found);
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    for (const char* name : {"node a%b", "Node a_b", "back\\slash", "o'clock", "Straße 7",
                             "back\\slash glass", "НАСОС 1", "CAFÉ"})
        component->SaveNode(QString::fromUtf8(name), QString(), QString(), QStringLiteral("Alpha"),
                            QString());
    QCOMPARE(NamesOf(FindAll(*component, &HvxDatabase::FindNodesWithIdEx, searched)),
             found.split(u'|', Qt::SkipEmptyParts));
}

void TestHvxFinding::FindNodes_Hit_ComesWithItsConnection()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    QString id;
    component->GetNodeID(QStringLiteral("East"), id);
    QCOMPARE(FindAll(*component, &HvxDatabase::FindNodesWithIdEx, QStringLiteral("eas")),
             QStringList({QStringLiteral("East"), id, QStringLiteral("Beta"), QStringLiteral("2")}));
}

void TestHvxFinding::FindNodes_ManyNodes_GoOnToTheEnd()
{
    const DatabaseFixture fixture;
    AddNodes(fixture, QStringLiteral("Node"), 20050);
    const auto component = fixture.OpenComponent();
    int answers = 0;
    QStringList expected{QStringLiteral("Node 2004")};
    for (int number = 20040; number <= 20049; ++number)
        expected << QStringLiteral("Node %1").arg(number);
    QCOMPARE(
        NamesOf(FindAll(*component, &HvxDatabase::FindNodesWithIdEx, QStringLiteral("E 2004"), &answers)),
        expected);
    QCOMPARE(answers, 2);
}

void TestHvxFinding::FindNodes_ManyOtherLetters_GoOnToTheEnd()
{
    const DatabaseFixture fixture;
    AddNodes(fixture, QStringLiteral("Насос"), 5001);
    const auto component = fixture.OpenComponent();
    QCOMPARE(NamesOf(FindAll(*component, &HvxDatabase::FindNodesWithIdEx, QStringLiteral("ОС 5001"))),
             QStringList{QStringLiteral("Насос 5001")});
}

void TestHvxFinding::FindNodes_ControlCharacter_BecomesBlank()
{
    const DatabaseFixture fixture;
    fixture.RunSql(
        QStringLiteral("UPDATE node SET name = 'No' || %1 || 'rth' WHERE name = 'North'")
            .arg(DatabaseFixture::OnServer() ? QStringLiteral("chr(9)") : QStringLiteral("char(9)")));
    const auto component = fixture.OpenComponent();
    QCOMPARE(NamesOf(FindAll(*component, &HvxDatabase::FindNodesWithIdEx, QStringLiteral("RTH"))),
             QStringList{QStringLiteral("No rth")});
}

void TestHvxFinding::FindNodes_NothingOpen_Raises()
{
    HvxDatabaseComponent component(QStringLiteral("/nowhere"));
    QString list;
    qint32 position = 0;
    QVERIFY(DatabaseFixture::ErrorOf(
                [&] { component.FindNodesWithIdEx(QStringLiteral("a"), list, position); }) != 0);
    QVERIFY(DatabaseFixture::ErrorOf(
                [&] { component.FindWaypointsWithIdEx(QStringLiteral("a"), list, position); }) != 0);
}

void TestHvxFinding::FindWaypoints_LongNames_WithNumbers()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    QString bus;
    component->GetWpLongName(QStringLiteral("BUST4"), bus);
    QCOMPARE(FindAll(*component, &HvxDatabase::FindWaypointsWithIdEx, bus.toLower()),
             QStringList({bus, QStringLiteral("1"), QStringLiteral("Alpha"), QStringLiteral("1"), bus,
                          QStringLiteral("2"), QStringLiteral("Beta"), QStringLiteral("2")}));
}

void TestHvxFinding::FindWaypoints_UnknownWaypoint_KeepsItsShortName()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    component->ReplaceParentTarget(QStringLiteral("Gamma"), QStringLiteral("WP=STRANGE,A=1"));
    QCOMPARE(NamesOf(FindAll(*component, &HvxDatabase::FindWaypointsWithIdEx, QStringLiteral("strange"))),
             QStringList{QStringLiteral("STRANGE")});
}

void TestHvxFinding::FindWaypoints_ManyConnections_GoOnToTheEnd()
{
    const DatabaseFixture fixture(DatabaseFixture::Contents::Empty);
    {
        const auto administration = HvxAdministration::Open(fixture.Source());
        const auto writer = administration->BeginBulkWrite();
        for (int number = 1; number <= 1100; ++number)
            writer->AddConnection(QStringLiteral("Con %1").arg(number),
                                  QStringLiteral("WP=BUST4,ID=%1").arg(number % 200));
        writer->Commit();
    }
    const auto component = fixture.OpenComponent();
    QString bus;
    component->GetWpLongName(QStringLiteral("BUST4"), bus);
    int answers = 0;
    QCOMPARE(NamesOf(FindAll(*component, &HvxDatabase::FindWaypointsWithIdEx, bus, &answers)).size(), 1100);
    QCOMPARE(answers, 3);
}

QTEST_GUILESS_MAIN(TestHvxFinding)
#include "TestHvxFinding.moc"
