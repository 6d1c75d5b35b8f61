#include "components/hvxdb/HvxAdministration.h"
#include "platform/MachineSeams.h"
#include "tests/tools/NetworkCommandFixture.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QMap>
#include <QTest>
#include <QUrl>

#include <csignal>

/// `zelka scan --save` and `--dry-run` in this process, on scripted components and a database.
class TestScanSave : public QObject, private NetworkCommandFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { End(); }

    void Save_FreeNames_AreUnderTheConnection();
    void Save_Timing_IsTheNodes();
    void Save_AsLines_FollowTheFoundNodes();
    void Save_Json_IsOneObjectForEachNode();
    void Save_NobodyAnswers_HasNothingToDo();
    void Save_KnownNodes_StayAsTheyAre_data();
    void Save_KnownNodes_StayAsTheyAre();
    void Save_NamesOfTheOptions_AreGiven_data();
    void Save_NamesOfTheOptions_AreGiven();
    void Save_Conflicts_FollowTheRule_data();
    void Save_Conflicts_FollowTheRule();
    void Save_Replaced_KeepsItsManager();
    void Save_DoubleNames_GoToOneNode_data();
    void Save_DoubleNames_GoToOneNode();
    void DryRun_Conflicts_AreTold_data();
    void DryRun_Conflicts_AreTold();
    void DryRun_WithoutTheEditRight_Works();

    void Save_Mistake_EndsBeforeAnythingIsOpened_data();
    void Save_Mistake_EndsBeforeAnythingIsOpened();
    void Save_WithoutTheEditRight_IsRefusedAtOnce();
    void Save_Bus_IsTheStoredOne_data();
    void Save_Bus_IsTheStoredOne();

    void Save_ConnectionTouchedDuringTheScan_IsPrevented_data();
    void Save_ConnectionTouchedDuringTheScan_IsPrevented();
    void Save_NodeSavedElsewhereDuringTheScan_IsSeen();
    void Save_DatabaseFreeDuringTheScan_TakesOtherWrites();
    void Save_ScanEndsEarly_SavesNothing_data();
    void Save_ScanEndsEarly_SavesNothing();

private:
    /// Identifications that nodes answer with, all of type "T4"; the other addresses are silent.
    QMap<int, QString> Nodes;

    [[nodiscard]] int Scan(const QStringList& arguments, const QString& connection = QStringLiteral("Alpha"))
    {
        return Run().Run(QStringList{"scan", connection, "--source", Database().Source(), "--from", "1",
                                     "--to", "50", "--interval", "0"} +
                         arguments);
    }
    /// Nodes whose names meet all that can be in their way.
    void PutConflicts();
    /// "address state name" of each object that was printed.
    [[nodiscard]] QStringList States() const;
    /// The reason that was printed for a node.
    [[nodiscard]] QString ReasonAt(int address) const;
    /// Connection and target of a node in the database; empty without it.
    [[nodiscard]] QString Record(const QString& name) const;
    [[nodiscard]] QStringList Contents() const;
};

namespace {

const QString LongName = QString(33, u'x');

/// A column of the objects that were printed.
QStringList ColumnOf(const QJsonDocument& document, const QString& key)
{
    QStringList texts;
    for (const QJsonValue& value : document.array())
        texts << value.toObject().value(key).toVariant().toString();
    return texts;
}

} // namespace

void TestScanSave::init()
{
    Begin();
    Nodes.clear();
    Network().OnSend = [this](const QString& target, const QString& request) {
        const int address = target.section(QStringLiteral("ADDR="), 1).section(u',', 0, 0).toInt();
        if (!Nodes.contains(address))
            ScriptedNetwork::Raise();
        return request == u"40" ? Nodes.value(address) : QStringLiteral("T4");
    };
}

void TestScanSave::PutConflicts()
{
    Nodes = {{17, "South"},  {30, "East"},     {31, "Gamma"}, {32, "Mill"}, {33, " "},
             {34, LongName}, {35, "new node"}, {36, "MILL"},  {37, "a\tb"}, {38, "O'Hara"}};
}

QStringList TestScanSave::States() const
{
    const QStringList addresses = ColumnOf(Run().Json(), QStringLiteral("address"));
    const QStringList states = ColumnOf(Run().Json(), QStringLiteral("state"));
    const QStringList names = ColumnOf(Run().Json(), QStringLiteral("name"));
    QStringList all;
    for (qsizetype i = 0; i < addresses.size(); ++i)
        all << QStringList{addresses[i], states[i], names[i]}.join(u' ');
    return all;
}

QString TestScanSave::ReasonAt(int address) const
{
    for (const QJsonValue& value : Run().Json().array()) {
        if (value[QStringLiteral("address")].toInt() == address)
            return value[QStringLiteral("reason")].toString();
    }
    return QStringLiteral("none");
}

QString TestScanSave::Record(const QString& name) const
{
    QString id;
    QString conName;
    QString target;
    const auto component = Database().OpenComponent();
    component->GetNodeID(name, id);
    if (id.isEmpty())
        return {};
    component->GetNode(name, conName, target);
    return conName + u';' + target;
}

QStringList TestScanSave::Contents() const
{
    return Database().Rows(QStringLiteral("SELECT name || '|' || target FROM node ORDER BY id")) +
           Database().Rows(QStringLiteral("SELECT name || '|' || target FROM connection ORDER BY id")) +
           Database().Rows(QStringLiteral("SELECT max(id) FROM journal"));
}

// Saving ----------------------------------------------------------------------------------------------------

void TestScanSave::Save_FreeNames_AreUnderTheConnection()
{
    Nodes = {{1, "Mill"}, {50, "Tower"}};

    QCOMPARE(Scan({"--save"}, "alpha"), 0);

    QCOMPARE(Record("Mill"), "Alpha;WP=NET4,ADDR=1");
    QCOMPARE(Record("Tower"), "Alpha;WP=NET4,ADDR=50");
    QCOMPARE(Run().Words(), QStringList());
    VerifyReleased();
}

void TestScanSave::Save_Timing_IsTheNodes()
{
    Nodes = {{1, "Mill"}};

    QCOMPARE(Scan({"--save", "--retries", "3", "--time-out", "1500"}), 0);

    QCOMPARE(Record("Mill"), "Alpha;WP=NET4,ADDR=1,TIME=1500,RETRY=3");
}

void TestScanSave::Save_AsLines_FollowTheFoundNodes()
{
    Nodes = {{1, "Mill"}, {17, "North"}, {31, "Gamma"}};

    QCOMPARE(Scan({"--save", "--on-conflict", "skip"}), 1);

    QCOMPARE(Run().Lines(),
             (QStringList{"1\tT4\tMill", "17\tT4\tNorth", "31\tT4\tGamma", "1\tsaved\tMill\t",
                          "17\tknown\tNorth\t", "31\trefused\tGamma\tA connection has the name."}));
    QCOMPARE(Run().Words(),
             QStringList{"zelka: 1 of 3 found nodes are refused. 1 of 3 found nodes are saved."});
}

void TestScanSave::Save_Json_IsOneObjectForEachNode()
{
    Nodes = {{1, "Mill"}, {31, "Gamma"}};

    QCOMPARE(Scan({"--save", "--on-conflict", "skip", "--json", "--name-from", "id"}), 1);

    const QJsonArray expected{QJsonObject{{"address", 1},
                                          {"type", "T4"},
                                          {"identification", "Mill"},
                                          {"name", "Mill"},
                                          {"state", "saved"},
                                          {"reason", ""}},
                              QJsonObject{{"address", 31},
                                          {"type", "T4"},
                                          {"identification", "Gamma"},
                                          {"name", "Gamma"},
                                          {"state", "refused"},
                                          {"reason", "A connection has the name."}}};
    QCOMPARE(Run().Json().array(), expected);
}

void TestScanSave::Save_NobodyAnswers_HasNothingToDo()
{
    const QStringList before = Contents();

    QCOMPARE(Scan({"--save", "--json"}), 0);

    QVERIFY(Run().Json().isArray());
    QCOMPARE(States() + Run().Words(), QStringList());
    QCOMPARE(Contents(), before);
}

void TestScanSave::Save_KnownNodes_StayAsTheyAre_data()
{
    QTest::addColumn<QString>("rule");
    QTest::newRow("fail") << "fail";
    QTest::newRow("skip") << "skip";
    QTest::newRow("replace") << "replace";
}

void TestScanSave::Save_KnownNodes_StayAsTheyAre()
{
    QFETCH(QString, rule);
    Nodes = {{17, "NORTH"}, {18, "South "}};
    const QStringList before = Contents();

    QCOMPARE(Scan({"--save", "--json", "--on-conflict", rule}), 0);

    QCOMPARE(States(), (QStringList{"17 known NORTH", "18 known South"}));
    QCOMPARE(Contents(), before);
}

void TestScanSave::Save_NamesOfTheOptions_AreGiven_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("name");
    QTest::newRow("none") << QStringList{} << "A1";
    QTest::newRow("prefix") << QStringList{"--prefix", " Hub "} << "Hub,30 A1 T4";
    QTest::newRow("prefix and part") << QStringList{"--prefix", "Hub", "--name-from", "id"} << "Hub,A1";
    QTest::newRow("two parts") << QStringList{"--prefix", "Hub", "--name-from", "address,type"}
                               << "Hub,30 T4";
    QTest::newRow("order") << QStringList{"--name-from", "type,id,address"} << "30 A1 T4";
    QTest::newRow("parts alone") << QStringList{"--name-from", "address,id"} << "30 A1";
    QTest::newRow("blank prefix") << QStringList{"--prefix", " ", "--name-from", "address"} << "30";
    QTest::newRow("empty prefix") << QStringList{"--prefix", ""} << "30 A1 T4";
    QTest::newRow("comma as prefix") << QStringList{"--prefix", ",", "--name-from", "id"} << ",,A1";
}

void TestScanSave::Save_NamesOfTheOptions_AreGiven()
{
    QFETCH(QStringList, options);
    QFETCH(QString, name);
    Nodes = {{30, "A1"}};

    QCOMPARE(Scan(QStringList{"--save", "--json"} + options), 0);

    QCOMPARE(States(), QStringList{"30 saved " + name});
    QCOMPARE(Record(name), "Alpha;WP=NET4,ADDR=30");
}

void TestScanSave::Save_Conflicts_FollowTheRule_data()
{
    QTest::addColumn<QString>("rule");
    QTest::addColumn<QString>("free");
    QTest::addColumn<QString>("nodes");
    QTest::addColumn<QString>("words");
    QTest::newRow("fail") << "fail"
                          << "unsaved"
                          << "refused"
                          << "8 of 10 found nodes are refused. Nothing is saved.";
    QTest::newRow("skip") << "skip"
                          << "saved"
                          << "refused"
                          << "8 of 10 found nodes are refused. 2 of 10 found nodes are saved.";
    QTest::newRow("replace") << "replace"
                             << "saved"
                             << "replaced"
                             << "6 of 10 found nodes are refused. 4 of 10 found nodes are saved.";
}

void TestScanSave::Save_Conflicts_FollowTheRule()
{
    QFETCH(QString, rule);
    QFETCH(QString, free);
    QFETCH(QString, nodes);
    QFETCH(QString, words);
    PutConflicts();
    const QStringList before = Contents();
    const bool saves = rule != u"fail";
    const bool replaces = rule == u"replace";

    QCOMPARE(Scan({"--save", "--json", "--on-conflict", rule}), 1);

    QCOMPARE(States(), (QStringList{"17 " + nodes + " South", "30 " + nodes + " East", "31 refused Gamma",
                                    "32 " + free + " Mill", "33 refused ", "34 refused " + LongName,
                                    "35 refused new node", "36 refused MILL", "37 refused a\tb",
                                    "38 " + free + " O'Hara"}));
    QCOMPARE(Run().Words(), QStringList{"zelka: " + words});
    QCOMPARE(Contents() == before, !saves);
    QCOMPARE(Record("Mill"), saves ? "Alpha;WP=NET4,ADDR=32" : "");
    QCOMPARE(Record("O'Hara"), saves ? "Alpha;WP=NET4,ADDR=38" : "");
    QCOMPARE(Record("South") == u"Alpha;WP=NET4,ADDR=17", replaces);
    QCOMPARE(Record("East") == u"Alpha;WP=NET4,ADDR=30", replaces);
    QCOMPARE(Database().RunSql(QStringLiteral("SELECT count(*) FROM node")).toInt(), saves ? 5 : 3);
}

void TestScanSave::Save_Replaced_KeepsItsManager()
{
    Nodes = {{30, "North"}, {31, "West"}, {32, "South"}};
    const auto managerOf = [this](const QString& name) {
        QString conName;
        QString target;
        QString device;
        QString commandLine;
        Database().OpenComponent()->GetNodeEx(name, conName, target, device, commandLine);
        return QStringList{target, device, commandLine}.join(u';');
    };

    QCOMPARE(Scan({"--save", "--on-conflict", "replace"}), 0);

    QCOMPARE(managerOf("North"), "WP=NET4,ADDR=30;NET4;1|-port 1");
    QCOMPARE(managerOf("West"), "WP=NET4,ADDR=31;;");
    QCOMPARE(managerOf("South"), "WP=NET4,ADDR=32;NET4;-port 2");
}

void TestScanSave::Save_DoubleNames_GoToOneNode_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("states");
    QTest::newRow("free") << "Mill" << QStringList{"5 saved Mill", "17 refused Mill", "18 refused Mill"};
    QTest::newRow("known") << "North" << QStringList{"5 refused North", "17 known North", "18 refused North"};
    QTest::newRow("elsewhere") << "East"
                               << QStringList{"5 replaced East", "17 refused East", "18 refused East"};
}

void TestScanSave::Save_DoubleNames_GoToOneNode()
{
    QFETCH(QString, name);
    QFETCH(QStringList, states);
    Nodes = {{5, name}, {17, name}, {18, name}};

    QCOMPARE(Scan({"--save", "--json", "--on-conflict", "replace"}), 1);

    QCOMPARE(States(), states);
    const int owner = states[1].contains(u"known") ? 17 : 5;
    QCOMPARE(ReasonAt(18), QStringLiteral("The node found at address %1 has the name.").arg(owner));
    QVERIFY(Record(name).contains(QStringLiteral("ADDR=%1").arg(owner)));
}

// Dry run ---------------------------------------------------------------------------------------------------

void TestScanSave::DryRun_Conflicts_AreTold_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("words");
    QTest::newRow("alone") << QStringList{} << "8 of 11 found nodes would be refused.";
    QTest::newRow("with save") << QStringList{"--save"} << "8 of 11 found nodes would be refused.";
    QTest::newRow("skip") << QStringList{"--on-conflict", "skip"} << "8 of 11 found nodes would be refused.";
    QTest::newRow("replace") << QStringList{"--on-conflict", "replace"}
                             << "7 of 11 found nodes would be refused.";
}

void TestScanSave::DryRun_Conflicts_AreTold()
{
    QFETCH(QStringList, options);
    QFETCH(QString, words);
    PutConflicts();
    // Known, so that it keeps its name.
    Nodes[18] = "South";
    const QStringList before = Contents();

    QCOMPARE(Scan(QStringList{"--dry-run", "--json"} + options), 1);

    QCOMPARE(States(),
             (QStringList{"17 taken South", "18 known South", "30 taken East", "31 taken Gamma",
                          "32 new Mill", "33 unusable ", "34 unusable " + LongName, "35 unusable new node",
                          "36 taken MILL", "37 unusable a\tb", "38 new O'Hara"}));
    QCOMPARE(ColumnOf(Run().Json(), "reason"),
             (QStringList{"The node found at address 18 has the name.", "",
                          "A node of the connection \"Beta\" has the name.", "A connection has the name.", "",
                          "The name is blank.", "The name has 33 characters, 32 are allowed.",
                          "\"new node\" cannot be used as a node name.",
                          "The node found at address 32 has the name.", "The name holds control characters.",
                          ""}));
    QCOMPARE(Run().Words(), QStringList{"zelka: " + words});
    QCOMPARE(Contents(), before);
}

void TestScanSave::DryRun_WithoutTheEditRight_Works()
{
    const QString source = Database().SourceWithoutEditRight();
    HvxAdministration::Open(Database().Source())
        ->SetRights(Database().OnServer() ? QUrl(source).userName() : Machine().UserName(), true, false);
    Nodes = {{1, "Mill"}, {40, "North"}};

    QCOMPARE(Run().Run({"scan", "Alpha", "--source", source, "--from", "1", "--to", "40", "--interval", "0",
                        "--dry-run", "--on-conflict", "replace"}),
             0);

    QCOMPARE(Run().Lines().mid(2),
             (QStringList{"1\tnew\tMill\t",
                          "40\telsewhere\tNorth\tThe node at address 17 of this connection has the name."}));
}

// Refusals before the scan
// ------------------------------------------------------------------------------------

void TestScanSave::Save_Mistake_EndsBeforeAnythingIsOpened_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("words");
    QTest::newRow("prefix alone") << QStringList{"--prefix", "x"} << "--prefix needs --save or --dry-run.";
    QTest::newRow("parts alone") << QStringList{"--name-from", "id"}
                                 << "--name-from needs --save or --dry-run.";
    QTest::newRow("rule alone") << QStringList{"--on-conflict", "fail"}
                                << "--on-conflict needs --save or --dry-run.";
    QTest::newRow("unknown part") << QStringList{"--save", "--name-from", "id,name"} << "--name-from";
    QTest::newRow("no part") << QStringList{"--save", "--name-from", ""} << "--name-from";
    QTest::newRow("parts apart") << QStringList{"--save", "--name-from", "id", "type"} << "type";
    QTest::newRow("unknown rule") << QStringList{"--save", "--on-conflict", "rename"} << "--on-conflict";
}

void TestScanSave::Save_Mistake_EndsBeforeAnythingIsOpened()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, words);

    QCOMPARE(Scan(arguments), 2);

    QCOMPARE(Run().Words().size(), 1);
    QVERIFY2(Run().Words().first().contains(words), qUtf8Printable(Run().Words().first()));
    QCOMPARE(Network().Calls, QStringList());
}

void TestScanSave::Save_WithoutTheEditRight_IsRefusedAtOnce()
{
    const QString source = Database().SourceWithoutEditRight();
    HvxAdministration::Open(Database().Source())
        ->SetRights(Database().OnServer() ? QUrl(source).userName() : Machine().UserName(), true, false);

    QCOMPARE(Run().Run({"scan", "Alpha", "--source", source, "--from", "1", "--to", "1", "--save"}), 1);

    QVERIFY2(Run().Words().value(0).endsWith("has no right to edit the database."),
             qUtf8Printable(Run().Words().value(0)));
    QCOMPARE(Network().Calls, QStringList());
}

void TestScanSave::Save_Bus_IsTheStoredOne_data()
{
    QTest::addColumn<QString>("connection");
    QTest::addColumn<QString>("bus");
    QTest::addColumn<QString>("words");
    QTest::newRow("its own") << "Alpha"
                             << "254"
                             << "";
    QTest::newRow("another")
        << "alpha"
        << "12"
        << "The connection \"Alpha\" leads to bus 254, so nodes of bus 12 cannot be saved "
           "under it.";
    QTest::newRow("none") << "Line"
                          << "1"
                          << "The connection \"Line\" leads over no bus.";
}

void TestScanSave::Save_Bus_IsTheStoredOne()
{
    QFETCH(QString, connection);
    QFETCH(QString, bus);
    QFETCH(QString, words);
    Database().OpenComponent()->SaveParent("Line", "WP=COM,PORT=1,WP=OPT,PR=T4DT");
    Nodes = {{1, "Mill"}};

    QCOMPARE(Scan({"--save", "--bus", bus}, connection), words.isEmpty() ? 0 : 1);

    QCOMPARE(Run().Words(), words.isEmpty() ? QStringList() : QStringList{"zelka: " + words});
    QCOMPARE(Network().Calls.isEmpty(), !words.isEmpty());
    QCOMPARE(Record("Mill").isEmpty(), !words.isEmpty());
}

// What happens meanwhile
// --------------------------------------------------------------------------------------

void TestScanSave::Save_ConnectionTouchedDuringTheScan_IsPrevented_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("change");
    for (const char* option : {"--save", "--dry-run"}) {
        for (const char* change : {"removed", "renamed", "changed", "anew"})
            QTest::addRow("%s %s", option, change) << option << change;
    }
}

void TestScanSave::Save_ConnectionTouchedDuringTheScan_IsPrevented()
{
    QFETCH(QString, option);
    QFETCH(QString, change);
    Nodes = {{1, "Mill"}};
    QStringList before;
    Network().OnClose = [&] {
        const auto other = Database().OpenComponent();
        if (change == u"renamed")
            other->ReplaceParentName("Alpha", "Omega");
        else if (change == u"changed")
            other->ReplaceParentTarget("Alpha", DatabaseFixture::BetaTarget);
        else
            other->DeleteParent("Alpha", true);
        if (change == u"anew")
            other->SaveParent("Alpha", DatabaseFixture::AlphaTarget);
        before = Contents();
    };

    QCOMPARE(Scan({option, "--json"}), 1);

    QCOMPARE(Run().Words().last(), "zelka: Node saving is prevented, because another application has changed "
                                   "(deleted) connection Alpha.");
    QCOMPARE(Run().Words().contains("zelka: Nothing is saved."), option == u"--save");
    QCOMPARE(States(), QStringList{"1 found Mill"});
    QCOMPARE(Contents(), before);
}

void TestScanSave::Save_NodeSavedElsewhereDuringTheScan_IsSeen()
{
    Nodes = {{1, "Mill"}};
    Network().OnClose = [&] {
        Database().OpenComponent()->SaveNode("Mill", "", "WP=NET4,ADDR=9", "Alpha", "");
    };

    QCOMPARE(Scan({"--save", "--json"}), 1);

    QCOMPARE(ReasonAt(1), "The node at address 9 of this connection has the name.");
    QCOMPARE(Record("Mill"), "Alpha;WP=NET4,ADDR=9");
}

void TestScanSave::Save_DatabaseFreeDuringTheScan_TakesOtherWrites()
{
    Nodes = {{1, "Mill"}};
    int written = 0;
    Network().OnSend = [&, answer = Network().OnSend](const QString& target, const QString& request) {
        Database().OpenComponent()->SaveNode(QStringLiteral("Other %1").arg(++written), "", "WP=NET4,ADDR=9",
                                             "Beta", "");
        return answer(target, request);
    };

    QCOMPARE(Scan({"--save"}), 0);

    QCOMPARE(written, 51);
    QCOMPARE(Record("Mill"), "Alpha;WP=NET4,ADDR=1");
}

void TestScanSave::Save_ScanEndsEarly_SavesNothing_data()
{
    QTest::addColumn<bool>("interrupted");
    QTest::addColumn<bool>("json");
    QTest::addColumn<QStringList>("words");
    const QStringList failed{"zelka: Nothing is saved.",
                             "zelka: The scan ended at address 3. Trouble (Major code = 2, Minor code = 5)"};
    for (const bool json : {false, true}) {
        QTest::addRow("Ctrl+C%s", json ? " json" : "")
            << true << json << QStringList{"zelka: Nothing is saved."};
        QTest::addRow("network%s", json ? " json" : "") << false << json << failed;
    }
}

void TestScanSave::Save_ScanEndsEarly_SavesNothing()
{
    QFETCH(bool, interrupted);
    QFETCH(bool, json);
    Nodes = {{1, "Mill"}, {4, "Tower"}};
    const QStringList before = Contents();
    Network().OnSend = [&, answer = Network().OnSend](const QString& target, const QString& request) {
        if (target.contains(QStringLiteral("ADDR=3,"))) {
            Network().Major = 2;
            Network().Minor = 5;
            Network().Text = QStringLiteral("Trouble");
            if (interrupted)
                InterruptWait();
        }
        return answer(target, request);
    };

    QCOMPARE(Scan(json ? QStringList{"--save", "--json"} : QStringList{"--save"}), interrupted ? 130 : 4);

    QTEST(Run().Words(), "words");
    if (json)
        QCOMPARE(States(), QStringList{"1 found Mill"});
    else
        QCOMPARE(Run().Lines(), QStringList{"1\tT4\tMill"});
    QCOMPARE(Contents(), before);
    VerifyReleased();
}

QTEST_GUILESS_MAIN(TestScanSave)
#include "TestScanSave.moc"
