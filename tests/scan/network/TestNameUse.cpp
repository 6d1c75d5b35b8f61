#include "scan/network/NameUse.h"
#include "tests/scan/network/SaveListFixture.h"

#include <QTest>

/// To what a name belongs.
class TestNameUse : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void FindNameUse_Names_AreFound_data();
    void FindNameUse_Names_AreFound();
    void FindNameUse_FailedCall_GivesFalse_data();
    void FindNameUse_FailedCall_GivesFalse();
};

Q_DECLARE_METATYPE(NameUse)

static ScanSaveRow RowOf(const QString& address, const QString& name)
{
    ScanSaveRow row;
    row.address = address;
    row.name = name;
    return row;
}

void TestNameUse::FindNameUse_Names_AreFound_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("name");
    QTest::addColumn<NameUse>("use");
    QTest::addColumn<QString>("stored");
    QTest::newRow("free") << "17"
                          << "West" << NameUse::Free << " ";
    QTest::newRow("same node") << "17"
                               << "North" << NameUse::SameNode << "Alpha 17";
    QTest::newRow("same node, other letters") << "17"
                                              << "north" << NameUse::SameNode << "Alpha 17";
    QTest::newRow("elsewhere") << "99"
                               << "North" << NameUse::NodeElsewhere << "Alpha 17";
    QTest::newRow("of another connection") << "4094"
                                           << "East" << NameUse::OtherNode << "Beta 4094";
    QTest::newRow("without an address") << "17"
                                        << "Agent" << NameUse::OtherNode << "Alpha ";
    QTest::newRow("connection") << "17"
                                << "Gamma" << NameUse::Connection << " ";
}

void TestNameUse::FindNameUse_Names_AreFound()
{
    QFETCH(QString, address);
    QFETCH(QString, name);
    SaveListFixture f;
    f.Component.Store.AddNode("Agent", "Alpha", "", "WP=SNMPNODE,HOST=a,ADDR=17");
    NameFinding finding{NameUse::Connection, "left", "left"};

    QVERIFY(FindNameUse("Alpha", RowOf(address, name), finding));

    QTEST(finding.use, "use");
    QTEST(finding.conName + ' ' + finding.address, "stored");
    QVERIFY(f.Operator.Boxes.empty());
}

void TestNameUse::FindNameUse_FailedCall_GivesFalse_data()
{
    QTest::addColumn<QString>("failing");
    for (const char* failing : {"ParentNameExist", "NodeNameExist", "GetNodeEx", "GetTargetItemList"})
        QTest::newRow(failing) << failing;
}

void TestNameUse::FindNameUse_FailedCall_GivesFalse()
{
    QFETCH(QString, failing);
    SaveListFixture f;
    f.Component.Fail(failing);
    NameFinding finding;

    QVERIFY(!FindNameUse("Alpha", RowOf("17", "North"), finding));
}

QTEST_GUILESS_MAIN(TestNameUse)
#include "TestNameUse.moc"
