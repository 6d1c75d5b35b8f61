#include "platform/MachineSeams.h"
#include "tests/components/DatabaseFixture.h"

#include <QTest>

/// Making, filling and checking databases.
class TestHvxAdministration : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Create_Url_Refused();
    void Definitions_Written_AreReadBackTheSame();

    void Open_LostTables_AreMadeAtOnce();
    void Open_MissingFile_Raises();
    void ForEachConnection_GivesAllInOrderOfIds();
    void ForEachNode_All_GivesAllFields();
    void ForEachNode_Under_OnlyThoseOfConnection();
    void ForEach_TakerFails_NextReadWorks();

    void BulkWriter_NothingIsThereUntilCommit();
    void BulkWriter_Abandoned_LeavesNothing();
    void BulkWriter_Failures_Refused_data();
    void BulkWriter_Failures_Refused();
    void BulkWriter_RefusedRecord_OthersGoOn();
    void BulkWriter_Update_NewContentsAndCase();
    void BulkWriter_IdsAndJournal_AreThoseOfSingleWrites();
    void BulkWriter_WhileOtherWrites_InUse();

    void Managers_AddAndRemove();
    void Managers_AddTaken_Refused();
    void Managers_RemoveUnknown_Refused();
    void Managers_Remove_TakesIndexFromNodes();

    void Check_GoodDatabase_NoProblems();
    void Check_Damage_IsNamed_data();
    void Check_Damage_IsNamed();
};

namespace {

const QString Alpha = QStringLiteral("Alpha");
const QString North = QStringLiteral("North");

NodeRecord SimpleNode(const QString& name, const QString& conName)
{
    NodeRecord node;
    node.name = name;
    node.conName = conName;
    return node;
}

} // namespace

void TestHvxAdministration::Create_Url_Refused()
{
    QCOMPARE(DatabaseFixture::ErrorOf([&] {
                 CreateHvxDatabase(QStringLiteral("odbc://server/dbs32"), DatabaseFixture::BuiltInCatalogue(),
                                   false);
             }),
             DatabaseErrorNumber::SourceMissing);
}

void TestHvxAdministration::Definitions_Written_AreReadBackTheSame()
{
    const DatabaseFixture fixture(DatabaseFixture::Contents::Empty);
    const auto administration = HvxAdministration::Open(fixture.Source());
    const Catalogue& written = DatabaseFixture::BuiltInCatalogue();
    const Catalogue& read = administration->CatalogueData();

    QCOMPARE(read.conTypes.size(), written.conTypes.size());
    QCOMPARE(read.conTypes.back().longName, QStringLiteral("Unknown"));
    QCOMPARE(read.conTypes[1].hops.size(), written.conTypes[1].hops.size());
    QCOMPARE(read.conTypes[1].hops[2].waypoint, QStringLiteral("OPT"));
    QCOMPARE(read.conTypes[1].hops[2].mandatory, false);
    QCOMPARE(read.nodeTypes.size(), written.nodeTypes.size());
    QCOMPARE(read.nodeTypes[0].hops.size(), written.nodeTypes[0].hops.size());
    QCOMPARE(read.waypoints.size(), written.waypoints.size());
    for (size_t i = 0; i < written.waypoints.size(); ++i) {
        QCOMPARE(read.waypoints[i].name, written.waypoints[i].name);
        QCOMPARE(read.waypoints[i].longName, written.waypoints[i].longName);
        QCOMPARE(read.waypoints[i].parameters.size(), written.waypoints[i].parameters.size());
        for (size_t row = 0; row < written.waypoints[i].parameters.size(); ++row) {
            const ParameterDefinition& left = read.waypoints[i].parameters[row];
            const ParameterDefinition& right = written.waypoints[i].parameters[row];
            QCOMPARE(left.keyword, right.keyword);
            QCOMPARE(left.longName, right.longName);
            QCOMPARE(left.requirement, right.requirement);
            QCOMPARE(left.defaultValue, right.defaultValue);
            QCOMPARE(static_cast<int>(left.kind), static_cast<int>(right.kind));
            QCOMPARE(left.textLength, right.textLength);
            QCOMPARE(left.low, right.low);
            QCOMPARE(left.high, right.high);
            QCOMPARE(left.values, right.values);
        }
    }
}

void TestHvxAdministration::Open_LostTables_AreMadeAtOnce()
{
    const DatabaseFixture fixture;
    fixture.RunSql(QStringLiteral("DROP TABLE users_text"));

    const auto administration = HvxAdministration::Open(fixture.Source());

    QCOMPARE(administration->Check(), QStringList());
}

void TestHvxAdministration::Open_MissingFile_Raises()
{
    const QTemporaryDir folder;

    QCOMPARE(DatabaseFixture::ErrorOf(
                 [&] { (void)HvxAdministration::Open(folder.filePath(QStringLiteral("Dbs.mdb"))); }),
             DatabaseErrorNumber::SourceMissing);
}

void TestHvxAdministration::ForEachConnection_GivesAllInOrderOfIds()
{
    const DatabaseFixture fixture;
    fixture.OpenComponent()->ReplaceParentTarget(Alpha, QStringLiteral("WP=LAN"));
    const auto administration = HvxAdministration::Open(fixture.Source());

    QStringList connections;
    administration->ForEachConnection([&](const ConnectionRecord& connection) {
        connections << QStringLiteral("%1 %2").arg(connection.id).arg(connection.name);
        if (connection.name == Alpha)
            QCOMPARE(connection.target, QStringLiteral("WP=LAN"));
    });

    QCOMPARE(connections,
             (QStringList{QStringLiteral("2 Beta"), QStringLiteral("3 Gamma"), QStringLiteral("7 Alpha")}));
}

void TestHvxAdministration::ForEachNode_All_GivesAllFields()
{
    const DatabaseFixture fixture;
    const auto administration = HvxAdministration::Open(fixture.Source());

    std::vector<NodeRecord> nodes;
    administration->ForEachNode(QString(), [&](const NodeRecord& node) { nodes.push_back(node); });

    QCOMPARE(nodes.size(), 3U);
    QCOMPARE(nodes[0].id, 4);
    QCOMPARE(nodes[0].name, North);
    QCOMPARE(nodes[0].conName, Alpha);
    QCOMPARE(nodes[0].nodeType, QStringLiteral("NET4"));
    QCOMPARE(nodes[0].target, QString::fromLatin1(DatabaseFixture::NorthTarget));
    QCOMPARE(nodes[0].managerIndex, QStringLiteral("1"));
    QCOMPARE(nodes[0].commandTail, QStringLiteral("-port 1"));
    QCOMPARE(nodes[1].managerIndex, QString());
    QCOMPARE(nodes[2].name, QStringLiteral("East"));
}

void TestHvxAdministration::ForEachNode_Under_OnlyThoseOfConnection()
{
    const DatabaseFixture fixture;
    const auto administration = HvxAdministration::Open(fixture.Source());

    QStringList names;
    administration->ForEachNode(QStringLiteral("ALPHA"), [&](const NodeRecord& node) { names << node.name; });
    administration->ForEachNode(QStringLiteral("Nowhere"),
                                [&](const NodeRecord& node) { names << node.name; });

    QCOMPARE(names, (QStringList{North, QStringLiteral("South")}));
}

void TestHvxAdministration::ForEach_TakerFails_NextReadWorks()
{
    const DatabaseFixture fixture;
    const auto administration = HvxAdministration::Open(fixture.Source());
    QCOMPARE(DatabaseFixture::ErrorOf([&] {
                 administration->ForEachConnection(
                     [](const ConnectionRecord&) { throw ComponentError(42, QString(), QString()); });
             }),
             42U);

    int count = 0;
    administration->ForEachConnection([&](const ConnectionRecord&) { ++count; });

    QCOMPARE(count, 3);
}

void TestHvxAdministration::BulkWriter_NothingIsThereUntilCommit()
{
    const DatabaseFixture fixture;
    const auto administration = HvxAdministration::Open(fixture.Source());
    const auto writer = administration->BeginBulkWrite();
    writer->AddConnection(QStringLiteral("Delta"), QString());
    writer->AddNode(SimpleNode(QStringLiteral("West"), QStringLiteral("delta")));
    QCOMPARE(fixture.RunSql(QStringLiteral("SELECT count(*) FROM node")).toInt(), 3);

    writer->Commit();

    QCOMPARE(fixture.RunSql(QStringLiteral("SELECT count(*) FROM node")).toInt(), 4);
}

void TestHvxAdministration::BulkWriter_Abandoned_LeavesNothing()
{
    const DatabaseFixture fixture;
    const auto administration = HvxAdministration::Open(fixture.Source());
    {
        const auto writer = administration->BeginBulkWrite();
        writer->AddConnection(QStringLiteral("Delta"), QString());
    }

    QCOMPARE(fixture.RunSql(QStringLiteral("SELECT count(*) FROM connection")).toInt(), 3);
    administration->BeginBulkWrite()->Commit();
}

using BulkAction = std::function<void(HvxBulkWriter&)>;
Q_DECLARE_METATYPE(BulkAction)

void TestHvxAdministration::BulkWriter_Failures_Refused_data()
{
    const QString other = QStringLiteral("Other");
    NodeRecord managed = SimpleNode(other, Alpha);
    managed.managerIndex = QStringLiteral("9");
    NodeRecord wrongIndex = SimpleNode(other, Alpha);
    wrongIndex.managerIndex = QStringLiteral("first");
    QTest::addColumn<BulkAction>("write");
    QTest::newRow("taken connection") << BulkAction(
        [](HvxBulkWriter& writer) { writer.AddConnection(QStringLiteral(" ALPHA"), QString()); });
    QTest::newRow("connection like node") << BulkAction(
        [](HvxBulkWriter& writer) { writer.AddConnection(QStringLiteral("north"), QString()); });
    QTest::newRow("taken node") << BulkAction(
        [](HvxBulkWriter& writer) { writer.AddNode(SimpleNode(QStringLiteral("NORTH"), Alpha)); });
    QTest::newRow("node like connection") << BulkAction(
        [](HvxBulkWriter& writer) { writer.AddNode(SimpleNode(QStringLiteral("beta"), Alpha)); });
    QTest::newRow("unknown connection")
        << BulkAction([=](HvxBulkWriter& writer) { writer.AddNode(SimpleNode(other, other)); });
    QTest::newRow("unknown manager") << BulkAction([=](HvxBulkWriter& writer) { writer.AddNode(managed); });
    QTest::newRow("manager is no number")
        << BulkAction([=](HvxBulkWriter& writer) { writer.AddNode(wrongIndex); });
    QTest::newRow("empty name") << BulkAction(
        [](HvxBulkWriter& writer) { writer.AddNode(SimpleNode(QStringLiteral(" "), Alpha)); });
    QTest::newRow("update of unknown connection")
        << BulkAction([=](HvxBulkWriter& writer) { writer.UpdateConnection(other, other); });
    QTest::newRow("update of unknown node")
        << BulkAction([=](HvxBulkWriter& writer) { writer.UpdateNode(SimpleNode(other, Alpha)); });
    QTest::newRow("update to unknown connection")
        << BulkAction([=](HvxBulkWriter& writer) { writer.UpdateNode(SimpleNode(North, other)); });
}

void TestHvxAdministration::BulkWriter_Failures_Refused()
{
    QFETCH(BulkAction, write);
    const DatabaseFixture fixture;
    const auto administration = HvxAdministration::Open(fixture.Source());
    const auto writer = administration->BeginBulkWrite();

    QCOMPARE(DatabaseFixture::ErrorOf([&] { write(*writer); }), DatabaseErrorNumber::Refused);

    writer->Commit();
    QCOMPARE(fixture.RunSql(QStringLiteral("SELECT max(id) FROM journal")).toInt(), 7);
}

void TestHvxAdministration::BulkWriter_RefusedRecord_OthersGoOn()
{
    const DatabaseFixture fixture;
    const auto administration = HvxAdministration::Open(fixture.Source());
    const auto writer = administration->BeginBulkWrite();
    QVERIFY(DatabaseFixture::ErrorOf([&] { writer->AddNode(SimpleNode(North, Alpha)); }) != 0);

    writer->AddNode(SimpleNode(QStringLiteral("West"), Alpha));
    writer->Commit();

    QCOMPARE(fixture.RunSql(QStringLiteral("SELECT id FROM node WHERE name = 'West'")).toInt(), 7);
}

void TestHvxAdministration::BulkWriter_Update_NewContentsAndCase()
{
    const DatabaseFixture fixture;
    const auto administration = HvxAdministration::Open(fixture.Source());
    const auto writer = administration->BeginBulkWrite();
    NodeRecord node = SimpleNode(QStringLiteral("NORTH"), QStringLiteral("Beta"));
    node.target = QStringLiteral("WP=NET4,ADDR=5");
    node.commandTail = QStringLiteral("-z");
    writer->UpdateConnection(QStringLiteral("ALPHA"), QStringLiteral("WP=LAN,STATION=x"));
    writer->UpdateNode(node);
    writer->AddConnection(QStringLiteral("ÖL"), QString());
    writer->UpdateConnection(QStringLiteral("öl"), QString());
    writer->AddNode(SimpleNode(QStringLiteral("West"), QStringLiteral("Öl")));
    writer->Commit();

    QStringList names;
    administration->ForEachConnection([&](const ConnectionRecord& connection) { names << connection.name; });
    QCOMPARE(names.last(), QStringLiteral("öl"));
    QVERIFY(names.contains(QStringLiteral("ALPHA")));
    QString conName;
    QString target;
    QString nodeType;
    QString commandLine;
    fixture.OpenComponent()->GetNodeEx(North, conName, target, nodeType, commandLine);
    QCOMPARE(conName, QStringLiteral("Beta"));
    QCOMPARE(target, QStringLiteral("WP=NET4,ADDR=5"));
    QCOMPARE(nodeType, QString());
    QCOMPARE(commandLine, QStringLiteral("-z"));
    QCOMPARE(administration->Check().filter(QStringLiteral("key")), QStringList());
}

void TestHvxAdministration::BulkWriter_IdsAndJournal_AreThoseOfSingleWrites()
{
    const DatabaseFixture fixture;
    const auto administration = HvxAdministration::Open(fixture.Source());
    const auto writer = administration->BeginBulkWrite();
    writer->AddNode(SimpleNode(QStringLiteral("A"), Alpha));
    writer->UpdateConnection(Alpha, QString());
    writer->AddNode(SimpleNode(QStringLiteral("B"), Alpha));
    writer->Commit();

    QCOMPARE(fixture.Rows(QStringLiteral("SELECT record_type || ' ' || text1 || ' ' || number FROM journal"
                                         " WHERE id > 7 ORDER BY id")),
             (QStringList{QStringLiteral("30 A 7"), QStringLiteral("41 Alpha 8"), QStringLiteral("30 B 9")}));
    QCOMPARE(fixture.Rows(QStringLiteral("SELECT id FROM node WHERE name IN ('A', 'B') ORDER BY id")),
             (QStringList{QStringLiteral("7"), QStringLiteral("9")}));
}

void TestHvxAdministration::BulkWriter_WhileOtherWrites_InUse()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    const auto administration = HvxAdministration::Open(fixture.Source());
    qint32 started = 0;
    component->BeginTransaction(started);
    component->SaveParent(QStringLiteral("Delta"), QString());

    // A file says so at the begin, a server at the first record.
    QCOMPARE(DatabaseFixture::ErrorOf([&] {
                 administration->BeginBulkWrite()->AddConnection(QStringLiteral("Omega"), QString());
             }),
             DatabaseErrorNumber::InUse);
}

void TestHvxAdministration::Managers_AddAndRemove()
{
    const DatabaseFixture fixture;
    const auto administration = HvxAdministration::Open(fixture.Source());

    QCOMPARE(administration->AddManager(QStringLiteral(" NEMML "), QStringLiteral("/opt/mml"),
                                        QStringLiteral("-q")),
             QStringLiteral("2"));
    std::vector<ManagerRecord> managers = administration->Managers();
    QCOMPARE(managers.size(), 2U);
    QCOMPARE(managers[1].index, QStringLiteral("2"));
    QCOMPARE(managers[1].device, QStringLiteral("NEMML"));
    QCOMPARE(managers[1].path, QStringLiteral("/opt/mml"));
    QCOMPARE(managers[1].commandText, QStringLiteral("-q"));

    administration->RemoveManager(QStringLiteral("nemml"));
    QCOMPARE(administration->Managers().size(), 1U);
    QCOMPARE(administration->AddManager(QStringLiteral("NEMML"), QString(), QString()), QStringLiteral("3"));
}

void TestHvxAdministration::Managers_AddTaken_Refused()
{
    const DatabaseFixture fixture;
    const auto administration = HvxAdministration::Open(fixture.Source());

    QCOMPARE(DatabaseFixture::ErrorOf(
                 [&] { administration->AddManager(QStringLiteral("net4"), QString(), QString()); }),
             DatabaseErrorNumber::Refused);
    QCOMPARE(DatabaseFixture::ErrorOf([&] { administration->AddManager(QString(), QString(), QString()); }),
             DatabaseErrorNumber::Refused);
}

void TestHvxAdministration::Managers_RemoveUnknown_Refused()
{
    const DatabaseFixture fixture;
    const auto administration = HvxAdministration::Open(fixture.Source());

    QCOMPARE(DatabaseFixture::ErrorOf([&] { administration->RemoveManager(QStringLiteral("NEMML")); }),
             DatabaseErrorNumber::Refused);
}

void TestHvxAdministration::Managers_Remove_TakesIndexFromNodes()
{
    const DatabaseFixture fixture;
    const auto administration = HvxAdministration::Open(fixture.Source());

    administration->RemoveManager(QStringLiteral("NET4"));

    QString text;
    QString commandLine;
    fixture.OpenComponent()->GetNodeEx(North, text, text, text, commandLine);
    QCOMPARE(commandLine, QStringLiteral("-port 1"));
    QCOMPARE(fixture.RunSql(QStringLiteral("SELECT text1 FROM journal ORDER BY id DESC")).toString(), North);
}

void TestHvxAdministration::Check_GoodDatabase_NoProblems()
{
    const DatabaseFixture fixture;

    QCOMPARE(HvxAdministration::Open(fixture.Source())->Check(), QStringList());
}

void TestHvxAdministration::Check_Damage_IsNamed_data()
{
    QTest::addColumn<QString>("damage");
    QTest::addColumn<QString>("problem");
    QTest::newRow("name key") << QStringLiteral("UPDATE node SET name_key = 'wrong' WHERE name = 'North'")
                              << QStringLiteral("Node North: its name key is wrong.");
    // A server refuses these.
    if (!DatabaseFixture::OnServer()) {
        QTest::newRow("reference") << QStringLiteral(
                                          "UPDATE node SET connection_key = 77 WHERE name = 'East'")
                                   << QStringLiteral("Node East: its connection is missing.");
        QTest::newRow("manager") << QStringLiteral("UPDATE node SET manager_index = 77 WHERE name = 'East'")
                                 << QStringLiteral("Node East: there is no manager 77.");
    }
    QTest::newRow("device") << QStringLiteral("UPDATE node SET node_type = 'KX' WHERE name = 'East'")
                            << QStringLiteral("Node East: there is no manager for KX.");
    QTest::newRow("node target") << QStringLiteral("UPDATE node SET target = 'rubbish' WHERE name = 'East'")
                                 << QStringLiteral("Node East: its target rubbish cannot be read.");
    QTest::newRow("connection target")
        << QStringLiteral("UPDATE connection SET target = '' WHERE name = 'Beta'")
        << QStringLiteral("Connection Beta: its target  cannot be read.");
    QTest::newRow("id not given") << QStringLiteral("UPDATE connection SET id = 77 WHERE name = 'Beta'")
                                  << QStringLiteral("Connection Beta: its id 77 is not one of 1 to 6.");
    QTest::newRow("id in both tables") << QStringLiteral("UPDATE connection SET id = 4 WHERE name = 'Beta'")
                                       << QStringLiteral("Id 4: a connection and a node have it.");
    QTest::newRow("version text") << QStringLiteral("DELETE FROM journal WHERE id = 1")
                                  << QStringLiteral("Journal: record 1 does not name the version.");
    QTest::newRow("Journal beyond the sequence")
        << QStringLiteral("INSERT INTO journal (record_type, text1, number) VALUES (30, 'x', 99)")
        << QStringLiteral("Journal: 1 records name ids that were never given.");
    QTest::newRow("definitions") << QStringLiteral(
                                        "UPDATE parameter SET keyword = 'TIME' WHERE keyword = 'RETRY'")
                                 << QStringLiteral("Definitions: ");
    QTest::newRow("index") << QStringLiteral("DROP INDEX node_connection")
                           << QStringLiteral("Schema: node_connection is missing.");
    QTest::newRow("version") << QStringLiteral("UPDATE setting SET value = 2 WHERE name = 'schema_version'")
                             << QStringLiteral("Schema: version 2 instead of 1.");
}

void TestHvxAdministration::Check_Damage_IsNamed()
{
    QFETCH(QString, damage);
    QFETCH(QString, problem);
    const DatabaseFixture fixture;
    // The damage comes while the database is open: some of it would keep it from opening.
    const auto administration = HvxAdministration::Open(fixture.Source());
    fixture.RunSql(damage);

    const QStringList problems = administration->Check();

    const auto names = [&](const QString& text) { return text.startsWith(problem); };
    QVERIFY2(std::any_of(problems.cbegin(), problems.cend(), names), qPrintable(problems.join(u'\n')));
}

QTEST_GUILESS_MAIN(TestHvxAdministration)
#include "TestHvxAdministration.moc"
