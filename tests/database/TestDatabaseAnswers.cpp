#include "database/DatabaseState.h"
#include "tests/support/GatewayFixture.h"

#include <QTest>

/// What operations make of the component's answers beyond passing them on.
class TestDatabaseAnswers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void GetParentIDDb_Id_MustNotBeBlank_data();
    void GetParentIDDb_Id_MustNotBeBlank();
    void GetNodeIDDb_Id_MustNotBeBlank_data();
    void GetNodeIDDb_Id_MustNotBeBlank();
    void GetParentIDDb_UnknownName_IsSilentBehindItsCommit();
    void NameExist_AnswerTrueInAnyCase_Exists_data();
    void NameExist_AnswerTrueInAnyCase_Exists();
    void DeleteConnectionDb_RemovesNodesFirstInOneTransaction();
    void DeleteConnectionDb_ConnectionCannotGo_KeepsTheNodes();
    void CheckTargetSyntaxDb_Answer_data();
    void CheckTargetSyntaxDb_Answer();
    void CheckTargetSyntaxDb_Fails_IsNotValid();
    void SetUserSecurityDb_Rights_data();
    void SetUserSecurityDb_Rights();
    void SetUserSecurityDb_Fails_GivesNoRights();
    void GetTargetWpListDb_Connection_ListsItsHops();
    void GetTargetWpListDb_NoHops_GivesNone();
    void GetTargetWpListDb_BlankName_CallsNothing();
    void GetTargetWpListDb_ClosedSession_IsFalse();
    void GetTargetWpListDb_UnknownConnection_IsFalse();
    void GetTargetWpListDb_DamagedList_IsFalse_data();
    void GetTargetWpListDb_DamagedList_IsFalse();
};

static void IdRows()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<bool>("found");
    QTest::newRow("number") << "17" << true;
    QTest::newRow("zero") << "0" << true;
    QTest::newRow("empty") << "" << false;
    QTest::newRow("blanks") << "   " << false;
}

void TestDatabaseAnswers::GetParentIDDb_Id_MustNotBeBlank_data()
{
    IdRows();
}

void TestDatabaseAnswers::GetParentIDDb_Id_MustNotBeBlank()
{
    QFETCH(QString, id);
    QFETCH(bool, found);
    GatewayFixture fixture;
    fixture.Open();
    fixture.Component.Answer("GetParentID", {id});
    QString given;

    QCOMPARE(fixture.Gateway().GetParentIDDb("A", given), found);

    QCOMPARE(given, id);
}

void TestDatabaseAnswers::GetNodeIDDb_Id_MustNotBeBlank_data()
{
    IdRows();
}

void TestDatabaseAnswers::GetNodeIDDb_Id_MustNotBeBlank()
{
    QFETCH(QString, id);
    QFETCH(bool, found);
    GatewayFixture fixture;
    fixture.Open();
    fixture.Component.Answer("GetNodeID", {id});
    QString given;

    QCOMPARE(fixture.Gateway().GetNodeIDDb("N", given), found);

    QCOMPARE(given, id);
}

void TestDatabaseAnswers::GetParentIDDb_UnknownName_IsSilentBehindItsCommit()
{
    GatewayFixture fixture;
    fixture.Open();
    QString id;

    QVERIFY(!fixture.Gateway().GetParentIDDb("nobody", id));

    QCOMPARE(fixture.Component.Calls.last(), "CommitTransaction(1)");
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestDatabaseAnswers::NameExist_AnswerTrueInAnyCase_Exists_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("exists");
    QTest::newRow("TRUE") << "TRUE" << true;
    QTest::newRow("True") << "True" << true;
    QTest::newRow("true") << "true" << true;
    QTest::newRow("FALSE") << "FALSE" << false;
    QTest::newRow("empty") << "" << false;
    QTest::newRow("with a blank") << "TRUE " << false;
}

void TestDatabaseAnswers::NameExist_AnswerTrueInAnyCase_Exists()
{
    QFETCH(QString, answer);
    QFETCH(bool, exists);
    GatewayFixture fixture;
    fixture.Open();
    fixture.Component.Answer("ParentNameExist", {answer});
    fixture.Component.Answer("NodeNameExist", {answer});
    bool connection = !exists;
    bool node = !exists;

    QVERIFY(fixture.Gateway().ConNameExistDb("A", connection));
    QVERIFY(fixture.Gateway().NodeNameExistDb("N", node));

    QCOMPARE(connection, exists);
    QCOMPARE(node, exists);
}

void TestDatabaseAnswers::DeleteConnectionDb_RemovesNodesFirstInOneTransaction()
{
    GatewayFixture fixture;
    fixture.Component.Store.AddConnection("A", "WP=OPT");
    fixture.Component.Store.AddNode("N", "A", "NET4", "WP=NET4");
    fixture.Open();
    QString name = " A  ";

    QVERIFY(fixture.Gateway().DeleteConnectionDb(name));

    QCOMPARE(name, "A");
    QCOMPARE(fixture.Component.Store.Now.nodes.size(), 0u);
    QCOMPARE(fixture.Component.Store.Now.connections.size(), 0u);
    QCOMPARE(fixture.Component.Store.Commits, 1);
}

void TestDatabaseAnswers::DeleteConnectionDb_ConnectionCannotGo_KeepsTheNodes()
{
    GatewayFixture fixture;
    fixture.Component.Store.AddConnection("A", "WP=OPT");
    fixture.Component.Store.AddNode("N", "A", "NET4", "WP=NET4");
    fixture.Open();
    fixture.Component.Fail("DeleteParent");
    QString name = "A";

    QVERIFY(!fixture.Gateway().DeleteConnectionDb(name));

    QCOMPARE(fixture.Component.Store.Now.nodes.size(), 1u);
}

void TestDatabaseAnswers::CheckTargetSyntaxDb_Answer_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("valid");
    QTest::newRow("OK") << "OK" << true;
    QTest::newRow("O") << "O" << true;
    QTest::newRow("K") << "K" << true;
    QTest::newRow("empty") << "" << true;
    QTest::newRow("ok") << "ok" << false;
    QTest::newRow("OK and more") << "OK." << false;
    QTest::newRow("KO") << "KO" << false;
    QTest::newRow("ERROR") << "ERROR" << false;
}

void TestDatabaseAnswers::CheckTargetSyntaxDb_Answer()
{
    QFETCH(QString, answer);
    QFETCH(bool, valid);
    GatewayFixture fixture;
    fixture.Open();
    fixture.Component.Answer("CheckTargetSyntax", {"WP=x", answer});
    QString reformatted;
    bool given = !valid;

    QVERIFY(fixture.Gateway().CheckTargetSyntaxDb("wp=x", 0, reformatted, given));

    QCOMPARE(given, valid);
    QCOMPARE(reformatted, "WP=x");
}

void TestDatabaseAnswers::CheckTargetSyntaxDb_Fails_IsNotValid()
{
    GatewayFixture fixture;
    fixture.Open();
    fixture.Component.Fail("CheckTargetSyntax");
    QString reformatted = "as it was";
    bool valid = true;

    QVERIFY(!fixture.Gateway().CheckTargetSyntaxDb("WP=X", 0, reformatted, valid));

    QVERIFY(!valid);
    QCOMPARE(reformatted, "as it was");
}

void TestDatabaseAnswers::SetUserSecurityDb_Rights_data()
{
    QTest::addColumn<QStringList>("answer");
    QTest::addColumn<bool>("scan");
    QTest::addColumn<bool>("edit");
    QTest::newRow("both") << QStringList{"1", "1"} << true << true;
    QTest::newRow("scan only") << QStringList{"1", "0"} << true << false;
    QTest::newRow("edit only") << QStringList{"0", "1"} << false << true;
    QTest::newRow("none") << QStringList{"0", "0"} << false << false;
    QTest::newRow("any number but zero") << QStringList{"-1", "7"} << true << true;
}

void TestDatabaseAnswers::SetUserSecurityDb_Rights()
{
    QFETCH(QStringList, answer);
    QFETCH(bool, scan);
    QFETCH(bool, edit);
    GatewayFixture fixture;
    fixture.Open();
    fixture.Component.Answer("GetSecRights", answer);

    QVERIFY(fixture.Gateway().SetUserSecurityDb());

    QCOMPARE(Database().ScanRight, scan);
    QCOMPARE(Database().EditRight, edit);
}

void TestDatabaseAnswers::SetUserSecurityDb_Fails_GivesNoRights()
{
    GatewayFixture fixture;
    fixture.Open();
    fixture.Component.Fail("GetSecRights");
    Database().ScanRight = true;
    Database().EditRight = true;

    QVERIFY(!fixture.Gateway().SetUserSecurityDb());

    QVERIFY(!Database().ScanRight);
    QVERIFY(!Database().EditRight);
}

static QStringList Flat(const PairTable& table)
{
    QStringList rows;
    for (const ItemPair& row : table)
        rows << row.first + u'/' + row.second;
    return rows;
}

void TestDatabaseAnswers::GetTargetWpListDb_Connection_ListsItsHops()
{
    GatewayFixture fixture;
    fixture.Component.Store.AddConnection("A", "WP=BUST4,ID=254,WP=NET4,ADDR=4094,TIME=1,WP=OPT");
    fixture.Open();
    PairTable waypoints{{"old", "row"}};
    int count = 0;

    QVERIFY(fixture.Gateway().GetTargetWpListDb("A", waypoints, count));

    QCOMPARE(Flat(waypoints), (QStringList{"BUST4/1", "NET4/1", "OPT/1"}));
    QCOMPARE(count, 3);
}

void TestDatabaseAnswers::GetTargetWpListDb_NoHops_GivesNone()
{
    GatewayFixture fixture;
    fixture.Component.Store.AddConnection("A", "");
    fixture.Open();
    PairTable waypoints{{"old", "row"}};
    int count = -1;

    QVERIFY(fixture.Gateway().GetTargetWpListDb("A", waypoints, count));

    QCOMPARE(waypoints.size(), 0u);
    QCOMPARE(count, 0);
}

void TestDatabaseAnswers::GetTargetWpListDb_BlankName_CallsNothing()
{
    GatewayFixture fixture;
    fixture.Open();
    PairTable waypoints;
    int count = -1;

    QVERIFY(fixture.Gateway().GetTargetWpListDb("  ", waypoints, count));

    QCOMPARE(count, 0);
    QCOMPARE(fixture.Component.Calls, QStringList{});
}

void TestDatabaseAnswers::GetTargetWpListDb_ClosedSession_IsFalse()
{
    GatewayFixture fixture;
    PairTable waypoints;
    int count = -1;

    QVERIFY(!fixture.Gateway().GetTargetWpListDb("  ", waypoints, count));
    QVERIFY(!fixture.Gateway().GetTargetWpListDb("A", waypoints, count));

    QCOMPARE(fixture.Component.Calls, QStringList{});
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestDatabaseAnswers::GetTargetWpListDb_UnknownConnection_IsFalse()
{
    GatewayFixture fixture;
    fixture.Open();
    PairTable waypoints;
    int count = -1;

    QVERIFY(!fixture.Gateway().GetTargetWpListDb("nobody", waypoints, count));

    QCOMPARE(fixture.Operator.Texts(), QStringList{"Unknown error in access to database."});
}

void TestDatabaseAnswers::GetTargetWpListDb_DamagedList_IsFalse_data()
{
    QTest::addColumn<QString>("list");
    QTest::newRow("empty") << "";
    QTest::newRow("a hop too few") << "2\t1\tWP\tOPT";
    QTest::newRow("no name") << "1\t1\tWP";
    QTest::newRow("more hops than items") << "2000000000\t1\tWP\tOPT";
    QTest::newRow("negative hop count") << "-1\t1\tWP\tOPT";
    QTest::newRow("negative pair count") << "2\t-1\tWP\tOPT\t1\tWP\tOPT";
    QTest::newRow("more pairs than items") << "2\t2000000000\tWP\tOPT";
    QTest::newRow("item 101") << "1\t50" + QString("\tx").repeated(99);
}

void TestDatabaseAnswers::GetTargetWpListDb_DamagedList_IsFalse()
{
    QFETCH(QString, list);
    GatewayFixture fixture;
    fixture.Open();
    fixture.Component.Answer("GetParent", {"WP=OPT"});
    fixture.Component.Answer("GetTargetItemList", {list});
    PairTable waypoints;
    int count = -1;

    QVERIFY(!fixture.Gateway().GetTargetWpListDb("A", waypoints, count));

    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

QTEST_GUILESS_MAIN(TestDatabaseAnswers)
#include "TestDatabaseAnswers.moc"
