#include "ZelkaRunner.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QTest>

#include <sqlite3.h>

/// `zelka db`: making, checking, rights, managers, and databases that cannot be used.
class TestZelkaDatabase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Init_Empty_MakesAUsableDatabase();
    void Init_Source_MakesThatFile();
    void Init_Existing_IsRefusedAndUntouched();
    void Init_Force_KeepsTheOldDatabase();
    void Init_Demo_IsANetworkThatChecks();
    void Init_DemoTwice_GivesTheSameRecords();
    void Init_Nodes_MakesThemByRule();
    void Init_ConnectionsAlone_MakesThem();
    void Init_DemoAndNodes_MakesBoth();
    void Init_Rights_FollowTheKind_data();
    void Init_Rights_FollowTheKind();
    void Init_Catalogue_IsTaken();
    void Init_BadCatalogue_IsRefusedAndNothingMade_data();
    void Init_BadCatalogue_IsRefusedAndNothingMade();
    void Init_BadArguments_AreUsage_data();
    void Init_BadArguments_AreUsage();
    void Init_FolderMissing_IsTold();
    void Init_DiskFull_IsToldAndLeavesNothingHalf();

    void Check_GoodDatabase_FindsNothing();
    void Check_DamagedDatabase_ListsProblems();

    void Rights_Set_AreStored();
    void Rights_WithoutEdit_ImportIsRefused();
    void Rights_BadArguments_AreUsage_data();
    void Rights_BadArguments_AreUsage();

    void Managers_AddListRemove_Work();
    void Managers_Refusals_AreTold_data();
    void Managers_Refusals_AreTold();

    void Unavailable_AnyCommand_EndsWithThree_data();
    void Unavailable_AnyCommand_EndsWithThree();
    void Unavailable_LockedByAnother_EndsWithThree_data();
    void Unavailable_LockedByAnother_EndsWithThree();
    void Unavailable_Maintenance_EndsWithThree();
};

void TestZelkaDatabase::Init_Empty_MakesAUsableDatabase()
{
    const ZelkaRunner zelka;

    const ZelkaResult made = zelka.Run({"db", "init"});

    QCOMPARE(made.code, 0);
    QCOMPARE(made.Lines(),
             QStringList{QStringLiteral("Made the database \"%1\" with 0 connections and 0 nodes.")
                             .arg(zelka.Database())});
    QCOMPARE(made.words, QByteArray());
    QVERIFY(QFileInfo::exists(zelka.Database()));
    QCOMPARE(zelka.Run({"list", "connections"}).data, QByteArray());
    QCOMPARE(zelka.Run({"db", "check"}).code, 0);
}

void TestZelkaDatabase::Init_Source_MakesThatFile()
{
    const ZelkaRunner zelka;
    const QString other = zelka.Path(QStringLiteral("ostatní 星.mdb"));

    const ZelkaResult made = zelka.Run({"db", "init", "--source", other, "--json"});

    QCOMPARE(made.code, 0);
    QCOMPARE(made.Json().object().value("source").toString(), other);
    QVERIFY(QFileInfo::exists(other));
    QVERIFY(!QFileInfo::exists(zelka.Database()));
    QCOMPARE(zelka.Run({"list", "nodes", "--source", other}).code, 0);
}

void TestZelkaDatabase::Init_Existing_IsRefusedAndUntouched()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    const QByteArray before = ZelkaRunner::Read(zelka.Database());

    const ZelkaResult refused = zelka.Run({"db", "init", "--json"});

    QCOMPARE(refused.code, 1);
    QVERIFY(!refused.Json().object().value("error").toString().isEmpty());
    QCOMPARE(refused.words.count('\n'), 1);
    QCOMPARE(ZelkaRunner::Read(zelka.Database()), before);
    QCOMPARE(zelka.Run({"list", "nodes"}).Lines(), QStringList{"Tower"});
}

void TestZelkaDatabase::Init_Force_KeepsTheOldDatabase()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();

    const ZelkaResult made = zelka.Run({"db", "init", "--force", "--json"});

    QCOMPARE(made.code, 0);
    const QString kept = made.Json().object().value("kept").toString();
    QVERIFY(QFileInfo::exists(kept));
    QVERIFY2(made.Words().contains(kept), made.words.constData());
    QCOMPARE(zelka.Run({"list", "nodes"}).data, QByteArray());
    QCOMPARE(zelka.Run({"list", "nodes", "--source", kept}).Lines(), QStringList{"Tower"});
}

void TestZelkaDatabase::Init_Demo_IsANetworkThatChecks()
{
    const ZelkaRunner zelka;

    const ZelkaResult made = zelka.Run({"db", "init", "--demo", "--json"});

    QCOMPARE(made.code, 0);
    QCOMPARE(made.Json().object().value("connections").toInt(), 40);
    QCOMPARE(made.Json().object().value("nodes").toInt(), 600);
    QCOMPARE(made.Json().object().value("kept").toString(), QString());
    QCOMPARE(zelka.Run({"list", "connections"}).Lines().size(), 40);
    QCOMPARE(zelka.Run({"list", "nodes"}).Lines().size(), 600);
    const QJsonArray managers = zelka.Run({"db", "managers", "list", "--json"}).Json().array();
    QCOMPARE(managers.size(), 3);
    for (const QJsonValue& manager : managers)
        QVERIFY(manager.toObject().value("path").toString().endsWith("/zelka-node-manager"));
    QCOMPARE(zelka.Run({"db", "check"}).Lines(), QStringList{"No problem was found."});
}

void TestZelkaDatabase::Init_DemoTwice_GivesTheSameRecords()
{
    const ZelkaRunner first;
    const ZelkaRunner second;
    first.MakeDemoDatabase();
    second.MakeDemoDatabase();

    const QByteArray records = first.Run({"db", "export"}).data;

    QVERIFY(records.size() > 40'000);
    QCOMPARE(second.Run({"db", "export"}).data, records);
}

void TestZelkaDatabase::Init_Nodes_MakesThemByRule()
{
    const ZelkaRunner zelka;

    const ZelkaResult made = zelka.Run({"db", "init", "--nodes", "3000", "--json"});

    QCOMPARE(made.code, 0);
    QCOMPARE(made.Json().object().value("connections").toInt(), 40);
    QCOMPARE(made.Json().object().value("nodes").toInt(), 3000);
    const QStringList nodes = zelka.Run({"list", "nodes"}).Lines();
    QCOMPARE(nodes.size(), 3000);
    QCOMPARE(nodes[1233], QStringLiteral("Node 0001234"));
    QCOMPARE(zelka.Run({"list", "nodes", "--under", "Line 0000001"}).Lines().size(), 75);
    QCOMPARE(zelka.Run({"db", "check"}).code, 0);
    QCOMPARE(zelka.Run({"target", "Node 0000002"}).Lines(),
             QStringList{"WP=SOCKET,IP=10.0.0.1,WP=BUST4,ID=1,WP=NET4,ADDR=1"});
}

void TestZelkaDatabase::Init_ConnectionsAlone_MakesThem()
{
    const ZelkaRunner zelka;

    QCOMPARE(zelka.Run({"db", "init", "--connections", "1200"}).code, 0);

    QCOMPARE(zelka.Run({"list", "connections"}).Lines().size(), 1200);
    QCOMPARE(zelka.Run({"list", "nodes"}).data, QByteArray());
}

void TestZelkaDatabase::Init_DemoAndNodes_MakesBoth()
{
    const ZelkaRunner zelka;

    const ZelkaResult made =
        zelka.Run({"db", "init", "--demo", "--connections", "2", "--nodes", "10", "--json"});

    QCOMPARE(made.Json().object().value("connections").toInt(), 42);
    QCOMPARE(made.Json().object().value("nodes").toInt(), 610);
    QCOMPARE(zelka.Run({"list", "nodes"}).Lines().size(), 610);
}

void TestZelkaDatabase::Init_Rights_FollowTheKind_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<int>("everyoneEdits");
    QTest::newRow("empty") << QStringList() << 0;
    QTest::newRow("by rule") << QStringList{"--nodes", "5"} << 0;
    QTest::newRow("demo") << QStringList{"--demo"} << 1;
}

void TestZelkaDatabase::Init_Rights_FollowTheKind()
{
    QFETCH(QStringList, options);
    QFETCH(int, everyoneEdits);
    const ZelkaRunner zelka;

    QCOMPARE(zelka.Run(QStringList{"db", "init"} + options).code, 0);

    QCOMPARE(zelka.Query("SELECT may_edit FROM user_rights WHERE user_name = '*'"),
             QByteArray::number(everyoneEdits));
    // The creator edits in any case.
    QCOMPARE(zelka.Run({"db", "import", "-"}, "kind,name,target\nconnection,x,WP=LAN\n").code, 0);
}

void TestZelkaDatabase::Init_Catalogue_IsTaken()
{
    const ZelkaRunner zelka;
    const QString file = zelka.Write("catalogue.json", ZelkaRunner::Read(QStringLiteral(ZELKA_CATALOGUE)));

    QCOMPARE(zelka.Run({"db", "init", "--catalogue", file}).code, 0);

    QCOMPARE(zelka.Run({"check", "wp=bust4,id=1"}).Lines(), QStringList{"WP=BUST4,ID=1"});
}

void TestZelkaDatabase::Init_BadCatalogue_IsRefusedAndNothingMade_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("missing") << QByteArray();
    QTest::newRow("no JSON") << QByteArray("types: all");
    QTest::newRow("nothing in it") << QByteArray("{}");
}

void TestZelkaDatabase::Init_BadCatalogue_IsRefusedAndNothingMade()
{
    QFETCH(QByteArray, text);
    const ZelkaRunner zelka;
    const QString file = text.isEmpty() ? zelka.Path("nowhere.json") : zelka.Write("catalogue.json", text);

    const ZelkaResult refused = zelka.Run({"db", "init", "--catalogue", file});

    QCOMPARE(refused.code, 1);
    QVERIFY2(refused.Words().contains(file), refused.words.constData());
    QCOMPARE(refused.words.count('\n'), 1);
    QVERIFY(!QFileInfo::exists(zelka.Database()));
}

void TestZelkaDatabase::Init_BadArguments_AreUsage_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::newRow("negative") << QStringList{"--nodes", "-1"};
    QTest::newRow("no number") << QStringList{"--nodes", "many"};
    QTest::newRow("too many") << QStringList{"--nodes", "600000000"};
    QTest::newRow("too many for the connections") << QStringList{"--connections", "1", "--nodes", "1048065"};
    QTest::newRow("unknown option") << QStringList{"--fast"};
    QTest::newRow("extra argument") << QStringList{"file"};
}

void TestZelkaDatabase::Init_BadArguments_AreUsage()
{
    QFETCH(QStringList, options);
    const ZelkaRunner zelka;

    const ZelkaResult result = zelka.Run(QStringList{"db", "init"} + options);

    QCOMPARE(result.code, 2);
    QVERIFY(!result.words.isEmpty());
    QCOMPARE(result.data, QByteArray());
    QVERIFY(!QFileInfo::exists(zelka.Database()));
}

void TestZelkaDatabase::Init_FolderMissing_IsTold()
{
    const ZelkaRunner zelka;
    const QString file = zelka.Write("plain", "text");

    const ZelkaResult result = zelka.Run({"db", "init", "--source", file + "/Dbs.mdb"});

    QVERIFY(result.code == 1 || result.code == 3);
    QCOMPARE(result.words.count('\n'), 1);
    QCOMPARE(ZelkaRunner::Read(file), QByteArray("text"));
}

void TestZelkaDatabase::Init_DiskFull_IsToldAndLeavesNothingHalf()
{
    // A limit on the size of files fails as a full disk does.
    const ZelkaRunner zelka;

    const ZelkaResult result = zelka.RunInShell("trap '' XFSZ; ulimit -f 2000; exec \"$@\"",
                                                {"db", "init", "--nodes", "50000", "--json"});

    QVERIFY(result.code == 1 || result.code == 3);
    QVERIFY(!result.Json().object().value("error").toString().isEmpty());
    QVERIFY2(result.Words().contains("was made but not filled"), result.words.constData());
    QCOMPARE(zelka.Run({"list", "nodes"}).data, QByteArray());
    QCOMPARE(zelka.Run({"db", "check"}).code, 0);
}

void TestZelkaDatabase::Check_GoodDatabase_FindsNothing()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();

    const ZelkaResult result = zelka.Run({"db", "check", "--json"});

    QCOMPARE(result.code, 0);
    QVERIFY(result.Json().object().value("problems").isArray());
    QCOMPARE(result.Json().object().value("problems").toArray().size(), 0);
}

void TestZelkaDatabase::Check_DamagedDatabase_ListsProblems()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    zelka.Sql("PRAGMA foreign_keys = OFF; UPDATE node SET connection_key = 999;");

    const ZelkaResult lines = zelka.Run({"db", "check"});
    const ZelkaResult json = zelka.Run({"db", "check", "--json"});

    QCOMPARE(lines.code, 1);
    QVERIFY(!lines.Lines().isEmpty());
    QVERIFY2(lines.Words().contains("problem"), lines.words.constData());
    QCOMPARE(json.code, 1);
    QCOMPARE(json.Json().object().value("problems").toArray().size(), lines.Lines().size());
}

void TestZelkaDatabase::Rights_Set_AreStored()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();

    const ZelkaResult result =
        zelka.Run({"db", "rights", "žofie", "--scan", "yes", "--edit", "no", "--json"});

    QCOMPARE(result.code, 0);
    QCOMPARE(result.Json().object(),
             (QJsonObject{{"user", QStringLiteral("žofie")}, {"scan", true}, {"edit", false}}));
    QCOMPARE(zelka.Query("SELECT may_scan || may_edit FROM user_rights WHERE user_name = 'žofie'"),
             QByteArray("10"));
    QCOMPARE(zelka.Run({"db", "rights", "žofie", "--scan", "no", "--edit", "yes"}).data, QByteArray());
    QCOMPARE(zelka.Query("SELECT may_scan || may_edit FROM user_rights WHERE user_name = 'žofie'"),
             QByteArray("01"));
}

void TestZelkaDatabase::Rights_WithoutEdit_ImportIsRefused()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    zelka.Sql("UPDATE user_rights SET may_edit = 0;");
    const QByteArray records = "kind,name,target\nconnection,x,WP=LAN\n";

    const ZelkaResult refused = zelka.Run({"db", "import", "-"}, records);

    QCOMPARE(refused.code, 1);
    QCOMPARE(refused.words.count('\n'), 1);
    QCOMPARE(zelka.Run({"list", "connections"}).Lines(), QStringList{"Bus"});
    // Looking is allowed.
    QCOMPARE(zelka.Run({"db", "import", "-", "--dry-run"}, records).code, 0);
    QCOMPARE(zelka.Run({"db", "export"}).code, 0);
}

void TestZelkaDatabase::Rights_BadArguments_AreUsage_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::newRow("no user") << QStringList{"--scan", "yes", "--edit", "yes"};
    QTest::newRow("blank user") << QStringList{" ", "--scan", "yes", "--edit", "yes"};
    QTest::newRow("no edit") << QStringList{"u", "--scan", "yes"};
    QTest::newRow("no scan") << QStringList{"u", "--edit", "yes"};
    QTest::newRow("other word") << QStringList{"u", "--scan", "maybe", "--edit", "yes"};
}

void TestZelkaDatabase::Rights_BadArguments_AreUsage()
{
    QFETCH(QStringList, options);
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();

    const ZelkaResult result = zelka.Run(QStringList{"db", "rights"} + options);

    QCOMPARE(result.code, 2);
    QVERIFY(!result.words.isEmpty());
}

void TestZelkaDatabase::Managers_AddListRemove_Work()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();

    const ZelkaResult added =
        zelka.Run({"db", "managers", "add", "Ústředna", "/opt/e", "--command", "-v \"x\""});

    QCOMPARE(added.code, 0);
    const QString index = added.Lines().value(0);
    QVERIFY(index.toInt() > 1);
    QCOMPARE(zelka.Run({"db", "managers", "list"}).Lines(),
             (QStringList{"1\tRadio\t/opt/radio\t", index + QStringLiteral("\tÚstředna\t/opt/e\t-v \"x\"")}));
    const QJsonObject listed =
        zelka.Run({"db", "managers", "list", "--json"}).Json().array().at(1).toObject();
    QCOMPARE(listed, (QJsonObject{{"index", index},
                                  {"device", QStringLiteral("Ústředna")},
                                  {"path", "/opt/e"},
                                  {"command", "-v \"x\""}}));
    QCOMPARE(zelka.Run({"db", "managers", "remove", "Ústředna"}).code, 0);
    QCOMPARE(zelka.Run({"db", "managers", "list"}).Lines(), QStringList{"1\tRadio\t/opt/radio\t"});
}

void TestZelkaDatabase::Managers_Refusals_AreTold_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("code");
    QTest::newRow("device has one") << QStringList{"add", "radio", "/opt/x"} << 1;
    QTest::newRow("remove unknown") << QStringList{"remove", "Nobody"} << 1;
    QTest::newRow("blank device") << QStringList{"add", " ", "/opt/x"} << 2;
    QTest::newRow("no path") << QStringList{"add", "x"} << 2;
    QTest::newRow("no verb") << QStringList{} << 2;
}

void TestZelkaDatabase::Managers_Refusals_AreTold()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, code);
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();

    const ZelkaResult result = zelka.Run(QStringList{"db", "managers"} + arguments);

    QCOMPARE(result.code, code);
    QVERIFY(!result.words.isEmpty());
    QCOMPARE(zelka.Run({"db", "managers", "list"}).Lines(), QStringList{"1\tRadio\t/opt/radio\t"});
}

void TestZelkaDatabase::Unavailable_AnyCommand_EndsWithThree_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QStringList>("arguments");
    const QHash<QString, QStringList> commands = {
        {"list connections", {"list", "connections"}},
        {"list nodes", {"list", "nodes"}},
        {"target", {"target", "x"}},
        {"check", {"check", "WP=LAN"}},
        {"db check", {"db", "check"}},
        {"db export", {"db", "export"}},
        {"db import", {"db", "import", "-"}},
        {"db rights", {"db", "rights", "u", "--scan", "yes", "--edit", "yes"}},
        {"db managers", {"db", "managers", "list"}}};
    for (auto command = commands.begin(); command != commands.end(); ++command)
        QTest::addRow("missing, %s", qUtf8Printable(command.key())) << "missing" << command.value();
    for (const char* kind : {"zeros", "text", "folder", "newer", "read-only", "read-only folder", "foreign",
                             "no definitions", "cut"}) {
        QTest::addRow("%s, list", kind) << kind << commands["list nodes"];
        QTest::addRow("%s, export", kind) << kind << commands["db export"];
    }
}

void TestZelkaDatabase::Unavailable_AnyCommand_EndsWithThree()
{
    QFETCH(QString, kind);
    QFETCH(QStringList, arguments);
    const ZelkaRunner zelka;
    if (kind == "zeros") {
        zelka.Write("Dbs.mdb", QByteArray(8192, '\0'));
    } else if (kind == "text") {
        zelka.Write("Dbs.mdb", "This is no database.\n");
    } else if (kind == "folder") {
        QVERIFY(QDir().mkpath(zelka.Database()));
    } else if (kind == "newer") {
        zelka.MakeSmallDatabase();
        zelka.Sql("UPDATE setting SET value = 99 WHERE name = 'schema_version';");
    } else if (kind == "read-only") {
        zelka.MakeSmallDatabase();
        QVERIFY(QFile::setPermissions(zelka.Database(), QFile::ReadOwner));
    } else if (kind == "read-only folder") {
        zelka.MakeSmallDatabase();
        QVERIFY(QFile::setPermissions(zelka.Path("."), QFile::ReadOwner | QFile::ExeOwner));
    } else if (kind == "foreign") {
        zelka.Write("Dbs.mdb", QByteArray());
        zelka.Sql("CREATE TABLE recipe (title TEXT);");
    } else if (kind == "no definitions") {
        zelka.MakeSmallDatabase();
        zelka.Sql("DELETE FROM con_type;");
    } else if (kind == "cut") {
        zelka.MakeSmallDatabase();
        const QByteArray whole = ZelkaRunner::Read(zelka.Database());
        zelka.Write("Dbs.mdb", whole.left(whole.size() / 2));
    }
    const QByteArray before = ZelkaRunner::Read(zelka.Database());
    const QStringList filesBefore = QDir(zelka.Path(".")).entryList(QDir::Files);

    const ZelkaResult lines = zelka.Run(arguments);
    const ZelkaResult json = zelka.Run(arguments + QStringList{"--json"});
    QVERIFY(QFile::setPermissions(zelka.Path("."), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));

    QCOMPARE(lines.code, 3);
    QCOMPARE(lines.data, QByteArray());
    QVERIFY2(lines.words.startsWith("zelka: "), lines.words.constData());
    QCOMPARE(lines.words.count('\n'), 1);
    QCOMPARE(json.code, arguments.contains("export") ? 2 : 3);
    QVERIFY(!json.Json().object().value("error").toString().isEmpty());
    QCOMPARE(ZelkaRunner::Read(zelka.Database()), before);
    QCOMPARE(QDir(zelka.Path(".")).entryList(QDir::Files), filesBefore);
}

void TestZelkaDatabase::Unavailable_LockedByAnother_EndsWithThree_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("words");
    const QString denied = "Database access is denied, because another application is using it.";
    const QString inUse = "The database is in use by another program: ";
    QTest::newRow("list connections") << QStringList{"list", "connections"} << denied;
    QTest::newRow("list nodes") << QStringList{"list", "nodes"} << denied;
    QTest::newRow("target") << QStringList{"target", "Tower"} << denied;
    QTest::newRow("import") << QStringList{"db", "import", "-"} << inUse;
    QTest::newRow("rights") << QStringList{"db", "rights", "u", "--scan", "no", "--edit", "no"} << inUse;
    QTest::newRow("managers") << QStringList{"db", "managers", "add", "x", "y"} << inUse;
}

void TestZelkaDatabase::Unavailable_LockedByAnother_EndsWithThree()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, words);
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    sqlite3* other = nullptr;
    QCOMPARE(sqlite3_open(QFile::encodeName(zelka.Database()).constData(), &other), SQLITE_OK);
    QCOMPARE(
        sqlite3_exec(other, "BEGIN EXCLUSIVE; UPDATE setting SET value = value;", nullptr, nullptr, nullptr),
        SQLITE_OK);

    const ZelkaResult result =
        zelka.Run(arguments + QStringList{"--json"}, "kind,name,target\nconnection,x,WP=LAN\n");
    sqlite3_exec(other, "ROLLBACK;", nullptr, nullptr, nullptr);
    sqlite3_close(other);

    QCOMPARE(result.code, 3);
    QVERIFY2(result.Words().startsWith("zelka: " + words), result.words.constData());
    QCOMPARE(result.words.count('\n'), 1);
    QVERIFY2(result.Json().object().value("error").toString().startsWith(words), result.data.constData());
    QCOMPARE(zelka.Run({"list", "nodes"}).Lines(), QStringList{"Tower"});
}

void TestZelkaDatabase::Unavailable_Maintenance_EndsWithThree()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    zelka.Sql("INSERT INTO cam_lock VALUES (1, 'token', 'somebody', 'elsewhere', 1, unixepoch() * 1000);");

    const ZelkaResult list = zelka.Run({"list", "nodes"});
    const ZelkaResult import = zelka.Run({"db", "import", "-"}, "kind,name,target\nconnection,x,WP=LAN\n");

    QCOMPARE(list.code, 3);
    QVERIFY2(list.words.startsWith("zelka: "), list.words.constData());
    QCOMPARE(import.code, 3);
    QCOMPARE(import.words.count('\n'), 1);
    zelka.Sql("DELETE FROM cam_lock;");
    QCOMPARE(zelka.Run({"list", "connections"}).Lines(), QStringList{"Bus"});
}

QTEST_GUILESS_MAIN(TestZelkaDatabase)
#include "TestZelkaDatabase.moc"
