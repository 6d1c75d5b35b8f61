#include "platform/IndexError.h"
#include "tests/model/ScriptedModelDatabase.h"

#include <QTest>

class TestConDataTargets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void SetTargetString_Waypoints_AreComposed_data();
    void SetTargetString_Waypoints_AreComposed();
    void SetTargetString_NodeFlag_GoesToTheCheck_data();
    void SetTargetString_NodeFlag_GoesToTheCheck();
    void SetTargetString_CheckRewrites_StoresTheRewrittenText();
    void SetTargetString_CheckFails_LeavesTargetEmpty_data();
    void SetTargetString_CheckFails_LeavesTargetEmpty();
    void SetTargetString_NoDatabase_LeavesTargetEmpty();
    void SetTargetStringForBusScanning_Waypoints_AreComposed_data();
    void SetTargetStringForBusScanning_Waypoints_AreComposed();
    void SetTargetStringForBusScanning_NameWithBlanks_IsThatHopToo();
    void SetTargetStringForBusScanning_CheckFails_LeavesTargetEmpty();
    void SetTargetWithoutDefaults_Waypoints_AreComposed_data();
    void SetTargetWithoutDefaults_Waypoints_AreComposed();
    void SetNodeTargetWithoutDefaults_Waypoints_AreComposed_data();
    void SetNodeTargetWithoutDefaults_Waypoints_AreComposed();
    void Builders_MoreThanTenRows_RaiseIndexError();
};

/// A waypoint as "NAME flag KEYWORD=value/default ..."; "_" stands for a blank in a value.
static void FillWaypoint(ConData& con, int waypoint, const QString& description)
{
    const QStringList parts = description.split(u' ');
    con.SetConWpName(waypoint, parts[0]);
    con.SetConWpMandatory(waypoint, parts[1]);
    for (int row = 1; row <= parts.size() - 2; ++row) {
        QString parameter = parts[row + 1];
        parameter.replace(u'_', u' ');
        con.SetWpDataItem(waypoint, row, 1, parameter.section(u'=', 0, 0));
        con.SetWpDataItem(waypoint, row, 2, parameter.section(u'=', 1).section(u'/', 0, 0));
        con.SetWpDataItem(waypoint, row, 6, parameter.section(u'/', 1));
    }
    con.GetWpData(waypoint).SetWpParamCount(static_cast<int>(parts.size()) - 2);
}

static void FillWaypoints(ConData& con, const QStringList& descriptions)
{
    for (int i = 1; i <= descriptions.size(); ++i)
        FillWaypoint(con, i, descriptions[i - 1]);
}

static void AddTargetColumns()
{
    QTest::addColumn<QStringList>("waypoints");
    QTest::addColumn<QString>("target");
}

void TestConDataTargets::SetTargetString_Waypoints_AreComposed_data()
{
    AddTargetColumns();
    QTest::newRow("no waypoint") << QStringList() << QString();
    QTest::newRow("three hops") << QStringList{"BUST4 1 ID=254/", "NET4 1 ADDR=4094/", "OPT 0 PR=T4DT/T4DT"}
                                << "WP=BUST4,ID=254,WP=NET4,ADDR=4094,WP=OPT,PR=T4DT";
    QTest::newRow("defaults stay") << QStringList{"BUST4 1 ID=254/ SPEED=9600/9600"}
                                   << "WP=BUST4,ID=254,SPEED=9600";
    QTest::newRow("empty values are left out") << QStringList{"NET4 1 ADDR= SUB=1 CRC="} << "WP=NET4,SUB=1";
    QTest::newRow("optional hop without values")
        << QStringList{"BUST4 1 ID=1", "OPT 0 PR="} << "WP=BUST4,ID=1";
    QTest::newRow("mandatory hop without values")
        << QStringList{"BUST4 1 ID=", "OPT 0 PR=T4DT"} << "WP=BUST4,WP=OPT,PR=T4DT";
    QTest::newRow("empty flag counts as mandatory") << QStringList{"BUST4  ID="} << "WP=BUST4";
    QTest::newRow("another flag does not") << QStringList{"BUST4 11 ID="} << QString();
    QTest::newRow("single optional hop without values") << QStringList{"BUST4 0 ID="} << QString();
    QTest::newRow("first hop left out, no comma")
        << QStringList{"BUST4 0 ID=", "OPT 0 PR=T4DT"} << "WP=OPT,PR=T4DT";
    QTest::newRow("a blank is a value") << QStringList{"NET4 0 ADDR=_"} << "WP=NET4,ADDR= ";
    QTest::newRow("nothing is escaped") << QStringList{"NEMML 1 PATH=a,b=c"} << "WP=NEMML,PATH=a,b=c";
    QTest::newRow("case stays") << QStringList{"opt 1 pr=T4dl"} << "WP=opt,pr=T4dl";
}

void TestConDataTargets::SetTargetString_Waypoints_AreComposed()
{
    QFETCH(QStringList, waypoints);
    QFETCH(QString, target);
    ScriptedModelDatabase database;
    ConData con;
    FillWaypoints(con, waypoints);
    con.ConWpCount = static_cast<int>(waypoints.size());

    QVERIFY(con.SetTargetString(false));

    QCOMPARE(con.TargetString, target);
    QCOMPARE(database.Calls, QStringList{QStringLiteral("CheckTargetSyntaxDb(%1,0)").arg(target)});
}

void TestConDataTargets::SetTargetString_NodeFlag_GoesToTheCheck_data()
{
    QTest::addColumn<bool>("nodeTarget");
    QTest::addColumn<QString>("call");
    QTest::newRow("connection") << false << "CheckTargetSyntaxDb(WP=NET4,ADDR=1,0)";
    QTest::newRow("node") << true << "CheckTargetSyntaxDb(WP=NET4,ADDR=1,-1)";
}

void TestConDataTargets::SetTargetString_NodeFlag_GoesToTheCheck()
{
    QFETCH(bool, nodeTarget);
    QFETCH(QString, call);
    ScriptedModelDatabase database;
    ConData con;
    FillWaypoint(con, 1, "NET4 1 ADDR=1");
    con.ConWpCount = 1;

    QVERIFY(con.SetTargetString(nodeTarget));

    QCOMPARE(database.Calls, QStringList{call});
}

void TestConDataTargets::SetTargetString_CheckRewrites_StoresTheRewrittenText()
{
    ScriptedModelDatabase database;
    database.Rewritten = "WP=NET4,ADDR=1";
    ConData con;
    FillWaypoint(con, 1, "net4 1 addr=1");
    con.ConWpCount = 1;

    QVERIFY(con.SetTargetString(true));

    QCOMPARE(con.TargetString, QStringLiteral("WP=NET4,ADDR=1"));
}

void TestConDataTargets::SetTargetString_CheckFails_LeavesTargetEmpty_data()
{
    QTest::addColumn<bool>("valid");
    QTest::addColumn<int>("failing");
    QTest::newRow("refused") << false << -1;
    QTest::newRow("call failed") << true << 0;
}

void TestConDataTargets::SetTargetString_CheckFails_LeavesTargetEmpty()
{
    QFETCH(bool, valid);
    QFETCH(int, failing);
    ScriptedModelDatabase database;
    database.SyntaxValid = valid;
    database.FailingCall = failing;
    ConData con;
    con.TargetString = "WP=OLD";
    FillWaypoint(con, 1, "NET4 1 ADDR=1");
    con.ConWpCount = 1;

    QVERIFY(!con.SetTargetString(false));

    QCOMPARE(con.TargetString, QString());
}

void TestConDataTargets::SetTargetString_NoDatabase_LeavesTargetEmpty()
{
    ConData con;
    con.TargetString = "WP=OLD";

    QVERIFY(!con.SetTargetString(false));
    QCOMPARE(con.TargetString, QString());
}

void TestConDataTargets::SetTargetStringForBusScanning_Waypoints_AreComposed_data()
{
    AddTargetColumns();
    QTest::newRow("no waypoint") << QStringList() << ",WP=OPT,VERIFY=NO";
    QTest::newRow("VERIFY last with a value") << QStringList{"KD7 1 BUSID=254", "OPT 0 PR=T4DT VERIFY=YES"}
                                              << "WP=KD7,BUSID=254,WP=OPT,PR=T4DT,VERIFY=NO";
    QTest::newRow("VERIFY without a value") << QStringList{"KD7 1 BUSID=254", "OPT 0 PR=T4DT VERIFY="}
                                            << "WP=KD7,BUSID=254,WP=OPT,PR=T4DTVERIFY=NO";
    QTest::newRow("VERIFY first") << QStringList{"OPT 0 VERIFY=YES PR=T4DT"} << "WP=OPT,,PR=T4DTVERIFY=NO";
    QTest::newRow("VERIFY between") << QStringList{"OPT 0 PR=T4DT VERIFY=YES DT=TEXT"}
                                    << "WP=OPT,PR=T4DT,,DT=TEXTVERIFY=NO";
    QTest::newRow("keyword holding VERIFY")
        << QStringList{"OPT 0 PR=T4DT xverifyx=YES"} << "WP=OPT,PR=T4DT,VERIFY=NO";
    QTest::newRow("VERIFY alone in an optional hop")
        << QStringList{"KD7 1 BUSID=1", "OPT 0 VERIFY=YES"} << "WP=KD7,BUSID=1,WP=OPT,VERIFY=NO";
    QTest::newRow("bare mandatory option hop")
        << QStringList{"KD7 1 BUSID=1", "OPT 1 VERIFY=YES"} << "WP=KD7,BUSID=1,WP=OPT,WP=OPT,VERIFY=NO";
    QTest::newRow("no option hop") << QStringList{"KD7 1 BUSID=1"} << "WP=KD7,BUSID=1,WP=OPT,VERIFY=NO";
    QTest::newRow("opt in lower case is another hop")
        << QStringList{"opt 0 PR=T4DT"} << "WP=opt,PR=T4DT,WP=OPT,VERIFY=NO";
    QTest::newRow("BUST4 is dropped")
        << QStringList{"SOCKET 1 PORT=1", "BUST4 1 ID=254", "OPT 0 PR=T4DT VERIFY=NO"}
        << "WP=SOCKET,PORT=1,WP=OPT,PR=T4DT,VERIFY=NO";
    QTest::newRow("BUST4 first leaves no comma")
        << QStringList{"BUST4 1 ID=254", "KD7 1 BUSID=1"} << "WP=KD7,BUSID=1,WP=OPT,VERIFY=NO";
    QTest::newRow("BUST4 alone") << QStringList{"BUST4 1 ID="} << ",WP=OPT,VERIFY=NO";
}

void TestConDataTargets::SetTargetStringForBusScanning_Waypoints_AreComposed()
{
    QFETCH(QStringList, waypoints);
    QFETCH(QString, target);
    ScriptedModelDatabase database;
    ConData con;
    FillWaypoints(con, waypoints);
    con.ConWpCount = static_cast<int>(waypoints.size());

    QVERIFY(con.SetTargetStringForBusScanning());

    QCOMPARE(con.TargetString, target);
    QCOMPARE(database.Calls, QStringList{QStringLiteral("CheckTargetSyntaxDb(%1,0)").arg(target)});
}

void TestConDataTargets::SetTargetStringForBusScanning_NameWithBlanks_IsThatHopToo()
{
    ScriptedModelDatabase database;
    ConData con;
    FillWaypoints(con, {"BUST4 1 ID=254", "OPT 0 PR=T4DT VERIFY=NO"});
    con.SetConWpName(1, " BUST4 ");
    con.ConWpCount = 2;

    QVERIFY(con.SetTargetStringForBusScanning());

    QCOMPARE(con.TargetString, "WP=OPT,PR=T4DT,VERIFY=NO");
}

void TestConDataTargets::SetTargetStringForBusScanning_CheckFails_LeavesTargetEmpty()
{
    ScriptedModelDatabase database;
    database.SyntaxValid = false;
    ConData con;
    con.TargetString = "WP=OLD";

    QVERIFY(!con.SetTargetStringForBusScanning());
    QCOMPARE(con.TargetString, QString());
}

void TestConDataTargets::SetTargetWithoutDefaults_Waypoints_AreComposed_data()
{
    AddTargetColumns();
    QTest::newRow("no waypoint") << QStringList() << QString();
    QTest::newRow("defaults are left out")
        << QStringList{"BUST4 1 ID=254/ SPEED=9600/9600 TIME=500/2000"} << "WP=BUST4,ID=254,TIME=500";
    QTest::newRow("default but for case")
        << QStringList{"OPT 0 PR=t4dt/T4DT DT=UNIHEX/TEXT"} << "WP=OPT,DT=UNIHEX";
    QTest::newRow("last hop of defaults disappears")
        << QStringList{"BUST4 1 ID=254/", "OPT 1 PR=T4DT/T4DT"} << "WP=BUST4,ID=254";
    QTest::newRow("other hops of defaults stay bare")
        << QStringList{"SOCKET 0 PORT=4004/4004", "BUST4 0 ID=", "OPT 0 DT=UNIHEX/TEXT"}
        << "WP=SOCKET,WP=BUST4,WP=OPT,DT=UNIHEX";
    QTest::newRow("two hops without values") << QStringList{"BUST4 1 ID=", "OPT 1 PR="} << "WP=BUST4";
    QTest::newRow("a single hop always appears") << QStringList{"BUST4 0 ID="} << "WP=BUST4";
    QTest::newRow("blank differs from an empty default") << QStringList{"NET4 1 ADDR=_/"} << "WP=NET4,ADDR= ";
    QTest::newRow("blank as default") << QStringList{"NET4 1 ADDR=_/_"} << "WP=NET4";
    QTest::newRow("value without a default") << QStringList{"NET4 1 ADDR=7/"} << "WP=NET4,ADDR=7";
}

void TestConDataTargets::SetTargetWithoutDefaults_Waypoints_AreComposed()
{
    QFETCH(QStringList, waypoints);
    QFETCH(QString, target);
    const ScriptedModelDatabase database;
    ConData con;
    FillWaypoints(con, waypoints);
    con.ConWpCount = static_cast<int>(waypoints.size());
    con.TargetString = "untouched";
    QString text = "old";

    con.SetTargetWithoutDefaults(text);

    QCOMPARE(text, target);
    QCOMPARE(con.TargetString, QStringLiteral("untouched"));
    QVERIFY(database.Calls.isEmpty());
}

void TestConDataTargets::SetNodeTargetWithoutDefaults_Waypoints_AreComposed_data()
{
    AddTargetColumns();
    QTest::newRow("no waypoint") << QStringList() << QString();
    QTest::newRow("node") << QStringList{"NET4 1 ADDR=4094/ SUB=0/0", "OPT 1 PR=T4DT/T4DT"}
                          << "WP=NET4,ADDR=4094";
    QTest::newRow("single hop of defaults disappears") << QStringList{"NET4 1 ADDR= SUB=0/0"} << QString();
    QTest::newRow("middle hop disappears")
        << QStringList{"NET4 1 ADDR=1", "OPT 1 PR=", "FE 0 ID=3"} << "WP=NET4,ADDR=1,WP=FE,ID=3";
    QTest::newRow("dropped first hop leaves its comma")
        << QStringList{"NET4 1 ADDR=", "OPT 1 DT=UNIHEX/TEXT"} << ",WP=OPT,DT=UNIHEX";
}

void TestConDataTargets::SetNodeTargetWithoutDefaults_Waypoints_AreComposed()
{
    QFETCH(QStringList, waypoints);
    QFETCH(QString, target);
    const ScriptedModelDatabase database;
    ConData con;
    FillWaypoints(con, waypoints);
    con.NodeWpCount = static_cast<int>(waypoints.size());
    con.TargetString = "untouched";
    QString text = "old";

    con.SetNodeTargetWithoutDefaults(text);

    QCOMPARE(text, target);
    QCOMPARE(con.TargetString, QStringLiteral("untouched"));
    QVERIFY(database.Calls.isEmpty());
}

void TestConDataTargets::Builders_MoreThanTenRows_RaiseIndexError()
{
    const ScriptedModelDatabase database;
    ConData con;
    FillWaypoint(con, 1, "NET4 1 ADDR=1");
    con.GetWpData(1).SetWpParamCount(11);
    con.ConWpCount = 1;
    con.NodeWpCount = 1;
    QString text;

    QVERIFY_EXCEPTION_THROWN(con.SetTargetString(false), IndexError);
    QVERIFY_EXCEPTION_THROWN(con.SetTargetStringForBusScanning(), IndexError);
    QVERIFY_EXCEPTION_THROWN(con.SetTargetWithoutDefaults(text), IndexError);
    QVERIFY_EXCEPTION_THROWN(con.SetNodeTargetWithoutDefaults(text), IndexError);
    QVERIFY(database.Calls.isEmpty());
}

QTEST_GUILESS_MAIN(TestConDataTargets)
#include "TestConDataTargets.moc"
