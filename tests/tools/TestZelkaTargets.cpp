#include "ZelkaRunner.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTest>

/// `zelka list`, `zelka target`, `zelka check`, and how arguments are taken.
class TestZelkaTargets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void Usage_WrongArguments_EndWithTwo_data();
    void Usage_WrongArguments_EndWithTwo();
    void Usage_Json_StaysADocument_data();
    void Usage_Json_StaysADocument();
    void Usage_UnknownWord_IsNamed();
    void Output_DeviceFull_IsRefused_data();
    void Output_DeviceFull_IsRefused();
    void Help_EveryCommand_HasOne_data();
    void Help_EveryCommand_HasOne();
    void Version_IsPrinted();

    void List_Options_Select_data();
    void List_Options_Select();
    void List_Json_HasNamesAndIds();
    void List_NothingFound_IsAnEmptyArray();
    void List_UnknownConnection_IsRefused();
    void List_MoreThanOneAnswer_GivesAll();

    void Target_Name_PrintsItsTarget_data();
    void Target_Name_PrintsItsTarget();
    void Target_Json_TellsTheKind();
    void Target_UnknownName_IsRefused_data();
    void Target_UnknownName_IsRefused();
    void Target_UnknownNodeType_IsRefused();
    void Target_UnknownParameter_IsToldAndLeftOut();

    void Check_Target_IsRewritten_data();
    void Check_Target_IsRewritten();
    void Check_BadTarget_IsRefused_data();
    void Check_BadTarget_IsRefused();

private:
    ZelkaRunner m_zelka;
};

void TestZelkaTargets::initTestCase()
{
    m_zelka.MakeSmallDatabase();
    const ZelkaResult result = m_zelka.Run(
        {"db", "import", "-"}, QStringLiteral("kind,name,target,connection\n"
                                              "connection,Žurawin,\"WP=SOCKET,IP=192.0.2.1,PORT=4004,"
                                              "WP=BUST4,ID=1\",\n"
                                              "node,Žurawin radio,\"WP=NET4,ADDR=3,TIME=2000\",Žurawin\n"
                                              "node,\"Radio, spare\",\"WP=NET4,ADDR=4,SUB=0\",Žurawin\n"
                                              "node,塔 😀,\"WP=NET4,ADDR=5,WP=OPT\",Bus\n")
                                   .toUtf8());
    QCOMPARE(result.words, QByteArray());
    QCOMPARE(result.code, 0);
}

void TestZelkaTargets::Usage_WrongArguments_EndWithTwo_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("none") << QStringList{};
    QTest::newRow("unknown command") << QStringList{"delete"};
    QTest::newRow("db alone") << QStringList{"db"};
    QTest::newRow("list alone") << QStringList{"list"};
    QTest::newRow("list of something else") << QStringList{"list", "types"};
    QTest::newRow("--under of connections") << QStringList{"list", "connections", "--under", "Bus"};
    QTest::newRow("target without a name") << QStringList{"target"};
    QTest::newRow("two names") << QStringList{"target", "a", "b"};
    QTest::newRow("check without a target") << QStringList{"check"};
    QTest::newRow("option without a value") << QStringList{"list", "nodes", "--match"};
}

void TestZelkaTargets::Usage_WrongArguments_EndWithTwo()
{
    QFETCH(QStringList, arguments);

    const ZelkaResult result = m_zelka.Run(arguments);

    QCOMPARE(result.code, 2);
    QCOMPARE(result.data, QByteArray());
    QVERIFY2(result.words.startsWith("zelka: "), result.words.constData());
    QCOMPARE(result.words.count('\n'), 1);
}

void TestZelkaTargets::Usage_Json_StaysADocument_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("name missing") << QStringList{"target", "--json"};
    QTest::newRow("value missing") << QStringList{"list", "nodes", "--json", "--match"};
    QTest::newRow("unknown command") << QStringList{"delete", "--json"};
}

void TestZelkaTargets::Usage_Json_StaysADocument()
{
    QFETCH(QStringList, arguments);

    const ZelkaResult result = m_zelka.Run(arguments);

    QCOMPARE(result.code, 2);
    QVERIFY(!result.Json().object().value("error").toString().isEmpty());
}

void TestZelkaTargets::Usage_UnknownWord_IsNamed()
{
    QCOMPARE(m_zelka.Run({"list", "types"}).Words(),
             QStringLiteral("zelka: Unknown argument: types. Run with --help for more information.\n"));
}

void TestZelkaTargets::Output_DeviceFull_IsRefused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("target") << QStringList{"target", "Bus"};
    QTest::newRow("list") << QStringList{"list", "nodes", "--json"};
    QTest::newRow("export") << QStringList{"db", "export"};
    QTest::newRow("help") << QStringList{"--help"};
}

void TestZelkaTargets::Output_DeviceFull_IsRefused()
{
    QFETCH(QStringList, arguments);

    const ZelkaResult result = m_zelka.RunInShell("exec \"$@\" >/dev/full", arguments);

    QCOMPARE(result.code, 1);
    QVERIFY2(result.words.startsWith("zelka: The output cannot be written"), result.words.constData());
    QCOMPARE(result.words.count('\n'), 1);
}

void TestZelkaTargets::Help_EveryCommand_HasOne_data()
{
    QTest::addColumn<QStringList>("command");
    QTest::addColumn<QString>("word");
    QTest::newRow("zelka") << QStringList{} << "Exit codes";
    QTest::newRow("db") << QStringList{"db"} << "init";
    QTest::newRow("init") << QStringList{"db", "init"} << "--force";
    QTest::newRow("import") << QStringList{"db", "import"} << "fail|skip|update|rename";
    QTest::newRow("export") << QStringList{"db", "export"} << "--under";
    QTest::newRow("db check") << QStringList{"db", "check"} << "--json";
    QTest::newRow("rights") << QStringList{"db", "rights"} << "yes|no";
    QTest::newRow("managers") << QStringList{"db", "managers"} << "remove";
    QTest::newRow("managers add") << QStringList{"db", "managers", "add"} << "--command";
    QTest::newRow("list") << QStringList{"list"} << "connections";
    QTest::newRow("list nodes") << QStringList{"list", "nodes"} << "--match";
    QTest::newRow("target") << QStringList{"target"} << "--full";
    QTest::newRow("check") << QStringList{"check"} << "--source";
}

void TestZelkaTargets::Help_EveryCommand_HasOne()
{
    QFETCH(QStringList, command);
    QFETCH(QString, word);

    const ZelkaResult result = m_zelka.Run(command + QStringList{"--help"});

    QCOMPARE(result.code, 0);
    QVERIFY2(QString::fromUtf8(result.data).contains(word), result.data.constData());
    QCOMPARE(result.words, QByteArray());
}

void TestZelkaTargets::Version_IsPrinted()
{
    QCOMPARE(m_zelka.Run({"--version"}).Lines(), QStringList{"zelka " ZELKA_VERSION});
}

void TestZelkaTargets::List_Options_Select_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("expected");
    const QString radio = QStringLiteral("Žurawin radio");
    const QString tower = QStringLiteral("塔 😀");
    QTest::newRow("connections") << QStringList{"connections"}
                                 << QStringList{"Bus", QStringLiteral("Žurawin")};
    QTest::newRow("connections that match")
        << QStringList{"connections", "--match", "ŻURAWIN"} << QStringList();
    QTest::newRow("connections that match in another case")
        << QStringList{"connections", "--match", "žURA"} << QStringList{QStringLiteral("Žurawin")};
    QTest::newRow("nodes") << QStringList{"nodes"} << QStringList{"Tower", radio, "Radio, spare", tower};
    QTest::newRow("nodes under") << QStringList{"nodes", "--under", "bus"} << QStringList{"Tower", tower};
    QTest::newRow("nodes that match")
        << QStringList{"nodes", "--match", "RADIO"} << QStringList{radio, "Radio, spare"};
    QTest::newRow("nodes that match under")
        << QStringList{"nodes", "--under", "Bus", "--match", "o"} << QStringList{"Tower"};
    QTest::newRow("no pattern") << QStringList{"nodes", "--match", "%"} << QStringList();
    QTest::newRow("empty text") << QStringList{"nodes", "--under", "Bus", "--match", ""}
                                << QStringList{"Tower", tower};
}

void TestZelkaTargets::List_Options_Select()
{
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, expected);

    const ZelkaResult result = m_zelka.Run(QStringList{"list"} + arguments);

    QCOMPARE(result.code, 0);
    QCOMPARE(result.Lines(), expected);
    QCOMPARE(result.words, QByteArray());
}

void TestZelkaTargets::List_Json_HasNamesAndIds()
{
    const QJsonArray nodes = m_zelka.Run({"list", "nodes", "--under", "Bus", "--json"}).Json().array();

    QCOMPARE(nodes.size(), 2);
    QCOMPARE(nodes.at(0).toObject().value("name").toString(), QStringLiteral("Tower"));
    QCOMPARE(nodes.at(1).toObject().value("name").toString(), QStringLiteral("塔 😀"));
    const int first = nodes.at(0).toObject().value("id").toInt();
    QVERIFY(first > 0 && first < nodes.at(1).toObject().value("id").toInt());
}

void TestZelkaTargets::List_NothingFound_IsAnEmptyArray()
{
    const ZelkaResult result = m_zelka.Run({"list", "nodes", "--match", "zzz", "--json"});

    QCOMPARE(result.code, 0);
    QVERIFY(result.Json().isArray());
    QCOMPARE(result.Json().array().size(), 0);
}

void TestZelkaTargets::List_UnknownConnection_IsRefused()
{
    const ZelkaResult result = m_zelka.Run({"list", "nodes", "--under", "Tower", "--json"});

    QCOMPARE(result.code, 1);
    QCOMPARE(result.Words(), QStringLiteral("zelka: There is no connection \"Tower\".\n"));
    QCOMPARE(result.Json().object(), (QJsonObject{{"error", "There is no connection \"Tower\"."}}));
}

void TestZelkaTargets::List_MoreThanOneAnswer_GivesAll()
{
    // One answer of the database holds 32001 nodes at most.
    const ZelkaRunner zelka;
    QCOMPARE(zelka.Run({"db", "init", "--connections", "1", "--nodes", "70000"}).code, 0);

    const QStringList nodes = zelka.Run({"list", "nodes"}).Lines();

    QCOMPARE(nodes.size(), 70000);
    QCOMPARE(nodes.last(), QStringLiteral("Node 0070000"));
    QCOMPARE(zelka.Run({"list", "nodes", "--json"}).Json().array().size(), 70000);
    QCOMPARE(zelka.Run({"list", "nodes", "--under", "line 0000001"}).Lines().size(), 70000);
}

void TestZelkaTargets::Target_Name_PrintsItsTarget_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("expected");
    QTest::newRow("connection") << QStringList{"Bus"} << "WP=BUST4,ID=254";
    QTest::newRow("connection in another case") << QStringList{" bUS "} << "WP=BUST4,ID=254";
    QTest::newRow("connection, stored")
        << QStringList{"--full", "Bus"} << "WP=BUST4,ID=254,SPEED=9600,WP=OPT,PR=T4DT";
    QTest::newRow("node") << QStringList{"Tower"} << "WP=BUST4,ID=254,WP=NET4,ADDR=4094";
    QTest::newRow("node, stored") << QStringList{"Tower", "--full"}
                                  << "WP=BUST4,ID=254,SPEED=9600,WP=OPT,PR=T4DT,"
                                     "WP=NET4,ADDR=4094,PRIO=NORMAL,WP=OPT,PR=T4DT";
    QTest::newRow("two hops") << QStringList{QStringLiteral("Žurawin radio")}
                              << "WP=SOCKET,IP=192.0.2.1,WP=BUST4,ID=1,WP=NET4,ADDR=3";
    QTest::newRow("comma in the name")
        << QStringList{"Radio, spare"} << "WP=SOCKET,IP=192.0.2.1,WP=BUST4,ID=1,WP=NET4,ADDR=4";
    QTest::newRow("emoji") << QStringList{QStringLiteral("塔 😀")} << "WP=BUST4,ID=254,WP=NET4,ADDR=5";
}

void TestZelkaTargets::Target_Name_PrintsItsTarget()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, expected);

    const ZelkaResult result = m_zelka.Run(QStringList{"target"} + arguments);

    QCOMPARE(result.words, QByteArray());
    QCOMPARE(result.code, 0);
    QCOMPARE(result.Lines(), QStringList{expected});
}

void TestZelkaTargets::Target_Json_TellsTheKind()
{
    QCOMPARE(m_zelka.Run({"target", "Bus", "--json"}).Json().object(),
             (QJsonObject{{"name", "Bus"}, {"kind", "connection"}, {"target", "WP=BUST4,ID=254"}}));
    QCOMPARE(
        m_zelka.Run({"target", "Tower", "--json"}).Json().object(),
        (QJsonObject{{"name", "Tower"}, {"kind", "node"}, {"target", "WP=BUST4,ID=254,WP=NET4,ADDR=4094"}}));
}

void TestZelkaTargets::Target_UnknownName_IsRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("unknown") << "Towe";
    QTest::newRow("pattern") << "T%";
    QTest::newRow("empty") << "";
    QTest::newRow("quote") << "x' OR '1'='1";
    QTest::newRow("10,000 characters") << QString(10000, u'x');
}

void TestZelkaTargets::Target_UnknownName_IsRefused()
{
    QFETCH(QString, name);

    const ZelkaResult result = m_zelka.Run({"target", name, "--json"});

    QCOMPARE(result.code, 1);
    const QString text = QStringLiteral("There is no connection or node \"%1\".").arg(name);
    QCOMPARE(result.Words(), QStringLiteral("zelka: %1\n").arg(text));
    QCOMPARE(result.Json().object(), (QJsonObject{{"error", text}}));
}

void TestZelkaTargets::Target_UnknownNodeType_IsRefused()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    zelka.Sql("UPDATE node SET target = 'WP=ODD,X=1';");

    const ZelkaResult result = zelka.Run({"target", "Tower"});

    QCOMPARE(result.code, 1);
    QCOMPARE(result.data, QByteArray());
    QCOMPARE(result.Words(), QStringLiteral("zelka: Failure to get node data from database.\n"));
    QCOMPARE(zelka.Run({"target", "Tower", "--full"}).Lines(),
             QStringList{"WP=BUST4,ID=254,SPEED=9600,WP=OPT,PR=T4DT,WP=ODD,X=1"});
}

void TestZelkaTargets::Target_UnknownParameter_IsToldAndLeftOut()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    zelka.Sql("UPDATE connection SET target = 'WP=BUST4,ID=254,ODD=1';");

    const ZelkaResult result = zelka.Run({"target", "Bus"});

    QCOMPARE(result.code, 0);
    QCOMPARE(result.Lines(), QStringList{"WP=BUST4,ID=254"});
    QCOMPARE(result.Words(), QStringLiteral("zelka: Unknown parameter:ODD\n"));
}

void TestZelkaTargets::Check_Target_IsRewritten_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("expected");
    QTest::newRow("as it is") << "WP=BUST4,ID=254"
                              << "WP=BUST4,ID=254";
    QTest::newRow("lower case") << "wp=bust4,id=254,wp=opt,pr=t4dl"
                                << "WP=BUST4,ID=254,WP=OPT,PR=t4dl";
    QTest::newRow("unknown names") << "WP=odd,Key=Value"
                                   << "WP=odd,Key=Value";
    QTest::newRow("not only ASCII") << QStringLiteral("WP=LAN,STATION=Žurawin 😀")
                                    << QStringLiteral("WP=LAN,STATION=Žurawin 😀");
}

void TestZelkaTargets::Check_Target_IsRewritten()
{
    QFETCH(QString, target);
    QFETCH(QString, expected);

    const ZelkaResult lines = m_zelka.Run({"check", target});

    QCOMPARE(lines.code, 0);
    QCOMPARE(lines.Lines(), QStringList{expected});
    QCOMPARE(m_zelka.Run({"check", target, "--json"}).Json().object(), (QJsonObject{{"target", expected}}));
}

void TestZelkaTargets::Check_BadTarget_IsRefused_data()
{
    QTest::addColumn<QString>("target");
    QTest::newRow("empty") << "";
    QTest::newRow("no waypoint") << "ID=254";
    QTest::newRow("item without a sign") << "WP=BUST4,ID";
}

void TestZelkaTargets::Check_BadTarget_IsRefused()
{
    QFETCH(QString, target);

    const ZelkaResult result = m_zelka.Run({"check", target, "--json"});

    QCOMPARE(result.code, 1);
    const QString text = QStringLiteral("The target \"%1\" is refused.").arg(target);
    QCOMPARE(result.Words(), QStringLiteral("zelka: %1\n").arg(text));
    QCOMPARE(result.Json().object(), (QJsonObject{{"error", text}}));
}

QTEST_GUILESS_MAIN(TestZelkaTargets)
#include "TestZelkaTargets.moc"
