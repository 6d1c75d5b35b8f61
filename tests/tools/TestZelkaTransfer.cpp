#include "ZelkaRunner.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QTest>

namespace {

const QByteArray Header = "kind,name,target,connection,manager,command\r\n";

/// What MakeSmallDatabase stores, as export writes it.
const QByteArray SmallRecords =
    Header + "connection,Bus,\"WP=BUST4,ID=254,SPEED=9600,WP=OPT,PR=T4DT\",,,\r\n"
             "node,Tower,\"WP=NET4,ADDR=4094,PRIO=NORMAL,WP=OPT,PR=T4DT\",Bus,Radio,1|-x\r\n";

} // namespace

/// `zelka db import` and `zelka db export`.
class TestZelkaTransfer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Export_ToStandardOutput_WritesAllRecords();
    void Export_ToFile_WritesTheSame();
    void Export_Under_WritesOneConnectionWithItsNodes();
    void Export_UnknownConnection_IsRefusedAndNoFileMade();
    void Export_FileThatCannotBeWritten_IsRefused();
    void Export_JsonToStandardOutput_IsUsage();

    void RoundTrip_Demo_GivesTheSameBytes();
    void RoundTrip_OddTexts_GiveTheSameBytes();
    void RoundTrip_ExportUnder_CanBeImported();

    void Import_Good_IsReported();
    void Import_FromFile_Works();
    void Import_Problem_IsListedAndNothingImported_data();
    void Import_Problem_IsListedAndNothingImported();
    void Import_ProblemsAsJson_AreOneDocument();
    void Import_ThousandsOfProblems_AreCounted();
    void Import_DryRun_WritesNothing();
    void Import_OnConflict_DoesAsTold_data();
    void Import_OnConflict_DoesAsTold();
    void Import_Update_UnchangedRecordsKeepTheirId();
    void Import_Rename_IsReported();
    void Import_DiskFull_WritesNothing();
    void Import_FileMissing_IsRefused();
    void Import_Folder_IsRefused();
    void Import_BadArguments_AreUsage_data();
    void Import_BadArguments_AreUsage();
};

void TestZelkaTransfer::Export_ToStandardOutput_WritesAllRecords()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();

    const ZelkaResult result = zelka.Run({"db", "export"});

    QCOMPARE(result.code, 0);
    QCOMPARE(result.data, SmallRecords);
    QCOMPARE(result.words, QByteArray());
    QCOMPARE(zelka.Run({"db", "export", "-"}).data, SmallRecords);
}

void TestZelkaTransfer::Export_ToFile_WritesTheSame()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    const QString file = zelka.Path("out.csv");

    const ZelkaResult lines = zelka.Run({"db", "export", file});
    const ZelkaResult json = zelka.Run({"db", "export", file, "--json"});

    QCOMPARE(lines.code, 0);
    QCOMPARE(lines.Lines(), QStringList{"Exported 1 connection and 1 node."});
    QCOMPARE(json.Json().object(), (QJsonObject{{"file", file}, {"connections", 1}, {"nodes", 1}}));
    QCOMPARE(ZelkaRunner::Read(file), SmallRecords);
}

void TestZelkaTransfer::Export_Under_WritesOneConnectionWithItsNodes()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    QCOMPARE(zelka
                 .Run({"db", "import", "-"}, "kind,name,target,connection\nconnection,Other,WP=LAN,\n"
                                             "node,Far,WP=NET4,Other\n")
                 .code,
             0);

    QCOMPARE(zelka.Run({"db", "export", "--under", "bus"}).data, SmallRecords);
    QCOMPARE(zelka.Run({"db", "export", "--under", "Other"}).data,
             Header + "connection,Other,WP=LAN,,,\r\nnode,Far,WP=NET4,Other,,\r\n");
}

void TestZelkaTransfer::Export_UnknownConnection_IsRefusedAndNoFileMade()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    const QString file = zelka.Path("out.csv");

    const ZelkaResult result = zelka.Run({"db", "export", file, "--under", "Tower"});

    QCOMPARE(result.code, 1);
    QCOMPARE(result.Words(), QStringLiteral("zelka: There is no connection \"Tower\".\n"));
    QVERIFY(!QFileInfo::exists(file));
    QCOMPARE(zelka.Run({"db", "export", "--under", "Tower"}).data, QByteArray());
}

void TestZelkaTransfer::Export_FileThatCannotBeWritten_IsRefused()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();

    const ZelkaResult result = zelka.Run({"db", "export", zelka.Path("no/such/folder.csv")});

    QCOMPARE(result.code, 1);
    QVERIFY2(result.Words().contains("cannot be written"), result.words.constData());
}

void TestZelkaTransfer::Export_JsonToStandardOutput_IsUsage()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();

    QCOMPARE(zelka.Run({"db", "export", "--json"}).code, 2);
    QCOMPARE(zelka.Run({"db", "export", "-", "--json"}).code, 2);
}

void TestZelkaTransfer::RoundTrip_Demo_GivesTheSameBytes()
{
    const ZelkaRunner from;
    from.MakeDemoDatabase();
    const ZelkaRunner to;
    QCOMPARE(to.Run({"db", "init"}).code, 0);
    const QJsonArray managers = from.Run({"db", "managers", "list", "--json"}).Json().array();
    for (const QJsonValue& manager : managers)
        QCOMPARE(
            to.Run({"db", "managers", "add", manager.toObject().value("device").toString(), "/opt/m"}).code,
            0);
    const QByteArray records = from.Run({"db", "export"}).data;

    const ZelkaResult imported = to.Run({"db", "import", "-"}, records);

    QCOMPARE(imported.Lines(), QStringList{"Imported 40 connections and 600 nodes."});
    QCOMPARE(to.Run({"db", "export"}).data, records);
    QCOMPARE(to.Run({"db", "check"}).code, 0);
}

void TestZelkaTransfer::RoundTrip_OddTexts_GiveTheSameBytes()
{
    const QByteArray records =
        Header + QStringLiteral("connection,\"Say \"\"hello\"\"\",\"WP=LAN,STATION=a=b\",,,\r\n"
                                "connection,星見台 😀,\"WP=MODEM,PHONE=\t1\",,,\r\n"
                                "node,\"a, b, c\",WP=NET4,\"Say \"\"hello\"\"\",,|x|y\r\n"
                                "node,\"\"\"\"\"\",\"WP=NEMML,PATH=\"\"x\r\ny\"\"\",星見台 😀,, -x \r\n"
                                "node,' OR 1=1; --,\"WP=FOO,BAR= \",星見台 😀,,\"line\nbreak\"\r\n")
                     .toUtf8();
    const ZelkaRunner zelka;
    QCOMPARE(zelka.Run({"db", "init"}).code, 0);

    const ZelkaResult imported = zelka.Run({"db", "import", "-"}, records);

    QCOMPARE(imported.words, QByteArray());
    QCOMPARE(imported.code, 0);
    QCOMPARE(zelka.Run({"db", "export"}).data, records);
}

void TestZelkaTransfer::RoundTrip_ExportUnder_CanBeImported()
{
    const ZelkaRunner from;
    from.MakeDemoDatabase();
    const ZelkaRunner to;
    QCOMPARE(to.Run({"db", "init"}).code, 0);
    const QByteArray records = from.Run({"db", "export", "--under", "Workshop serial port 1"}).data;

    QCOMPARE(to.Run({"db", "managers", "add", "T4 Transmission", "/opt/m"}).code, 0);

    QCOMPARE(to.Run({"db", "import", "-"}, records).Lines(),
             QStringList{"Imported 1 connection and 2 nodes."});
}

void TestZelkaTransfer::Import_Good_IsReported()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();

    const ZelkaResult result =
        zelka.Run({"db", "import", "-", "--json"}, "name,kind,connection,target\nMast,node,line,WP=NET4\n"
                                                   "Line,connection,,WP=LAN\nMast 2,node,Bus,WP=NET4\n");

    QCOMPARE(result.code, 0);
    QCOMPARE(result.Json().object(), (QJsonObject{{"dryRun", false},
                                                  {"connectionsAdded", 1},
                                                  {"nodesAdded", 2},
                                                  {"updated", 0},
                                                  {"unchanged", 0},
                                                  {"skipped", 0},
                                                  {"renamed", QJsonArray()}}));
    QCOMPARE(zelka.Run({"list", "nodes", "--under", "Line"}).Lines(), QStringList{"Mast"});
}

void TestZelkaTransfer::Import_FromFile_Works()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    const QString file = zelka.Write("in.csv", "\xEF\xBB\xBFkind,name,target\r\nconnection,Line,WP=LAN\r\n");

    const ZelkaResult result = zelka.Run({"db", "import", file});

    QCOMPARE(result.Lines(), QStringList{"Imported 1 connection and 0 nodes."});
    QCOMPARE(zelka.Run({"list", "connections"}).Lines(), (QStringList{"Bus", "Line"}));
}

void TestZelkaTransfer::Import_Problem_IsListedAndNothingImported_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("problem");
    QTest::newRow("bad kind") << QByteArray("hub,a,WP=LAN,,,")
                              << "the kind is \"hub\" and not connection or node";
    QTest::newRow("empty name") << QByteArray("connection,,WP=LAN,,,") << "the name is empty";
    QTest::newRow("long name") << QByteArray("connection," + QByteArray(256, 'x') + ",WP=LAN,,,")
                               << "the name has more than 255 characters";
    QTest::newRow("10,000 characters") << QByteArray("node," + QByteArray(10000, 'x') + ",WP=LAN,Bus,,")
                                       << "the name has more than 255 characters";
    QTest::newRow("control characters")
        << QByteArray("node,a\tb,WP=LAN,Bus,,") << "the name holds control characters";
    QTest::newRow("comma") << QByteArray("connection,\"a,b\",WP=LAN,,,")
                           << "the name \"a,b\" of a connection holds a comma";
    QTest::newRow("reserved") << QByteArray("node,New Node,WP=LAN,Bus,,")
                              << "the name \"New Node\" is reserved";
    QTest::newRow("taken in the file")
        << QByteArray("node,GOOD,WP=LAN,Bus,,") << "the name \"GOOD\" is taken by line 2";
    QTest::newRow("taken by a connection")
        << QByteArray("node,bus,WP=LAN,Bus,,") << "the name \"bus\" is taken by a stored connection";
    QTest::newRow("taken by a node") << QByteArray("connection,TOWER,WP=LAN,,,")
                                     << "the name \"TOWER\" is taken by a stored node";
    QTest::newRow("unknown connection") << QByteArray("node,a,WP=LAN,Sub,,") << "unknown connection \"Sub\"";
    QTest::newRow("no connection") << QByteArray("node,a,WP=LAN,,,") << "the node has no connection";
    QTest::newRow("refused target") << QByteArray("node,a,LAN,Bus,,") << "the target \"LAN\" is refused";
    QTest::newRow("unknown manager") << QByteArray("node,a,WP=LAN,Bus,Nobody,")
                                     << "unknown manager \"Nobody\"";
    QTest::newRow("unknown manager index")
        << QByteArray("node,a,WP=LAN,Bus,Radio,77|x") << "unknown manager index \"77\"";
    QTest::newRow("malformed quoting") << QByteArray("node,a\"b,WP=LAN,Bus,,") << "malformed quoting";
    QTest::newRow("open quote") << QByteArray("node,\"a,WP=LAN,Bus,,")
                                << "malformed quoting: a quote is not closed";
    QTest::newRow("wrong number of fields") << QByteArray("node,a,WP=LAN,Bus") << "4 fields instead of 6";
    QTest::newRow("not UTF-8") << QByteArray("node,a\xE4,WP=LAN,Bus,,")
                               << "the record holds bytes that are not UTF-8";
}

void TestZelkaTransfer::Import_Problem_IsListedAndNothingImported()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, problem);
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    const QString file = zelka.Write("in.csv", Header + "connection,Good,WP=LAN,,,\r\n" + line + "\r\n");

    const ZelkaResult result = zelka.Run({"db", "import", file});

    QCOMPARE(result.code, 1);
    QCOMPARE(result.data, QByteArray());
    QCOMPARE(result.Words(),
             QStringLiteral("zelka: %1:3: %2\nzelka: Nothing was imported: 1 problem found.\n")
                 .arg(file, problem));
    QCOMPARE(zelka.Run({"db", "export"}).data, SmallRecords);
}

void TestZelkaTransfer::Import_ProblemsAsJson_AreOneDocument()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();

    const ZelkaResult result =
        zelka.Run({"db", "import", "-", "--json"}, "kind,name,target\nconnection,,WP=LAN\nhub,a,WP=LAN\n");

    QCOMPARE(result.code, 1);
    const QJsonObject document = result.Json().object();
    QCOMPARE(document.value("problemCount").toInt(), 2);
    QCOMPARE(document.value("error").toString(), QStringLiteral("Nothing was imported: 2 problems found."));
    QCOMPARE(
        document.value("problems").toArray(),
        (QJsonArray{QJsonObject{{"line", 2}, {"text", "the name is empty"}},
                    QJsonObject{{"line", 3}, {"text", "the kind is \"hub\" and not connection or node"}}}));
    QVERIFY2(result.Words().contains("standard input:2: the name is empty"), result.words.constData());
}

void TestZelkaTransfer::Import_ThousandsOfProblems_AreCounted()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    QByteArray records = "kind,name,target\n";
    for (int i = 0; i < 1500; ++i)
        records += "connection,,WP=LAN\n";

    const ZelkaResult result = zelka.Run({"db", "import", "-"}, records);

    QCOMPARE(result.code, 1);
    QCOMPARE(result.words.count('\n'), 1001);
    QVERIFY(
        result.Words().endsWith("Nothing was imported: 1500 problems found (the first 1000 are listed).\n"));
}

void TestZelkaTransfer::Import_DryRun_WritesNothing()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();

    const ZelkaResult good =
        zelka.Run({"db", "import", "-", "--dry-run"}, "kind,name,target\nconnection,Line,WP=LAN\n");
    const ZelkaResult bad =
        zelka.Run({"db", "import", "-", "--dry-run"}, "kind,name,target\nconnection,Bus,WP=LAN\n");

    QCOMPARE(good.code, 0);
    QCOMPARE(good.Lines(), QStringList{"Would import 1 connection and 0 nodes."});
    QCOMPARE(bad.code, 1);
    QCOMPARE(zelka.Run({"db", "export"}).data, SmallRecords);
}

void TestZelkaTransfer::Import_OnConflict_DoesAsTold_data()
{
    QTest::addColumn<QString>("rule");
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("stored");
    const QByteArray bus = "connection,Bus,\"WP=BUST4,ID=254,SPEED=9600,WP=OPT,PR=T4DT\",,,\r\n";
    const QByteArray tower = "node,Tower,\"WP=NET4,ADDR=4094,PRIO=NORMAL,WP=OPT,PR=T4DT\",Bus,Radio,1|-x\r\n";
    QTest::newRow("default") << "" << 1 << bus + tower;
    QTest::newRow("fail") << "fail" << 1 << bus + tower;
    QTest::newRow("skip") << "skip" << 0 << bus + tower + "node,Mast,WP=NET4,Bus,,\r\n";
    QTest::newRow("update") << "update" << 0
                            << QByteArray(
                                   "connection,BUS,\"WP=BUST4,ID=7\",,,\r\nnode,tower,WP=NET4,BUS,,\r\n"
                                   "node,Mast,WP=NET4,BUS,,\r\n");
    QTest::newRow("rename") << "rename" << 0
                            << bus + "connection,BUS (2),\"WP=BUST4,ID=7\",,,\r\n" + tower +
                                   "node,tower (2),WP=NET4,BUS (2),,\r\nnode,Mast,WP=NET4,BUS (2),,\r\n";
}

void TestZelkaTransfer::Import_OnConflict_DoesAsTold()
{
    QFETCH(QString, rule);
    QFETCH(int, code);
    QFETCH(QByteArray, stored);
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    QStringList arguments{"db", "import", "-"};
    if (!rule.isEmpty())
        arguments << "--on-conflict" << rule;

    const ZelkaResult result = zelka.Run(arguments, Header + "connection,BUS,\"WP=BUST4,ID=7\",,,\r\n"
                                                             "node,tower,WP=NET4,Bus,,\r\n"
                                                             "node,Mast,WP=NET4,bus,,\r\n");

    QCOMPARE(result.code, code);
    QCOMPARE(zelka.Run({"db", "export"}).data, Header + stored);
    QCOMPARE(zelka.Run({"db", "check"}).code, 0);
}

void TestZelkaTransfer::Import_Update_UnchangedRecordsKeepTheirId()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    const QByteArray before = zelka.Run({"list", "nodes", "--json"}).data;

    const ZelkaResult result = zelka.Run({"db", "import", "-", "--on-conflict", "update"}, SmallRecords);

    QCOMPARE(result.Lines(), QStringList{"Imported 0 connections and 0 nodes, 2 unchanged."});
    QCOMPARE(zelka.Run({"list", "nodes", "--json"}).data, before);
}

void TestZelkaTransfer::Import_Rename_IsReported()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    const QByteArray records = "kind,name,target\nconnection,Tower,WP=LAN\n";

    const ZelkaResult lines =
        zelka.Run({"db", "import", "-", "--on-conflict", "rename", "--dry-run"}, records);
    const ZelkaResult json = zelka.Run({"db", "import", "-", "--on-conflict", "rename", "--json"}, records);

    QCOMPARE(lines.Lines(), (QStringList{"Line 2: \"Tower\" is named \"Tower (2)\".",
                                         "Would import 1 connection and 0 nodes, 1 renamed."}));
    QCOMPARE(json.Json().object().value("renamed").toArray(),
             (QJsonArray{QJsonObject{{"line", 2}, {"from", "Tower"}, {"to", "Tower (2)"}}}));
    QCOMPARE(zelka.Run({"list", "connections"}).Lines(), (QStringList{"Bus", "Tower (2)"}));
}

void TestZelkaTransfer::Import_DiskFull_WritesNothing()
{
    // The disk of a server is not this one.
    const ZelkaRunner zelka;
    const QString file = zelka.Path(QStringLiteral("Full.mdb"));
    const QByteArray head = "kind,name,target,connection\nconnection,Bus,WP=BUST4,\n";
    QByteArray records = "kind,name,target,connection\n";
    for (int i = 0; i < 30'000; ++i)
        records += "node,Node " + QByteArray::number(i) + ",WP=NET4,Bus\n";
    QCOMPARE(zelka.Run({"db", "init", "--source", file}).code, 0);
    QCOMPARE(zelka.Run({"db", "import", "-", "--source", file}, head).code, 0);
    const QByteArray before = zelka.Run({"db", "export", "--source", file}).data;

    const ZelkaResult result = zelka.RunInShell("trap '' XFSZ; ulimit -f 2000; exec \"$@\"",
                                                {"db", "import", "-", "--source", file}, records);

    QVERIFY(result.code == 1 || result.code == 3);
    QCOMPARE(result.words.count('\n'), 1);
    QCOMPARE(zelka.Run({"db", "export", "--source", file}).data, before);
    QCOMPARE(zelka.Run({"db", "check", "--source", file}).code, 0);
}

void TestZelkaTransfer::Import_FileMissing_IsRefused()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();

    const ZelkaResult result = zelka.Run({"db", "import", "nowhere.csv", "--json"});

    QCOMPARE(result.code, 1);
    QVERIFY2(result.Words().contains("\"nowhere.csv\" cannot be read"), result.words.constData());
    QVERIFY(!result.Json().object().value("error").toString().isEmpty());
}

void TestZelkaTransfer::Import_Folder_IsRefused()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();

    QCOMPARE(zelka.Run({"db", "import", zelka.Path(".")}).code, 1);
}

void TestZelkaTransfer::Import_BadArguments_AreUsage_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::newRow("no file") << QStringList{};
    QTest::newRow("unknown rule") << QStringList{"-", "--on-conflict", "merge"};
    QTest::newRow("number as a rule") << QStringList{"-", "--on-conflict", "7"};
    QTest::newRow("two files") << QStringList{"a", "b"};
}

void TestZelkaTransfer::Import_BadArguments_AreUsage()
{
    QFETCH(QStringList, options);
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();

    QCOMPARE(zelka.Run(QStringList{"db", "import"} + options).code, 2);
}

QTEST_GUILESS_MAIN(TestZelkaTransfer)
#include "TestZelkaTransfer.moc"
