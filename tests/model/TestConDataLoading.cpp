#include "platform/IndexError.h"
#include "tests/model/ScriptedModelDatabase.h"
#include "tests/support/RecordingPresenter.h"

#include <QTest>

#include <functional>

class TestConDataLoading : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Model().ConObject = std::make_unique<ConData>(); }
    void cleanup() { Model().ConObject.reset(); }

    void SetWpDataFromConType_KnownType_LoadsEmptyTables();
    void SetWpDataFromConType_UnknownType_TakesTheStoredTargetsHops();
    void SetWpDataFromConType_UnknownTypeWithoutName_LoadsNothing();
    void SetWpDataFromConType_SavedValues_StayAsTheyWere();
    void SetWpDataFromConType_DefinitionWithoutBar_IsTheDigit();
    void SetWpDataFromConType_DamagedDefinitions_RaiseIndexError_data();
    void SetWpDataFromConType_DamagedDefinitions_RaiseIndexError();
    void SetWpDataFromNodeType_KnownType_LeavesConWpCount();
    void SetWpDataFromNodeType_Unknown_IsTold_data();
    void SetWpDataFromNodeType_Unknown_IsTold();
    void SetParentConData_StoredConnection_LoadsValuesInOrder();
    void SetParentConData_UnknownType_LoadsFromTarget();
    void SetParentConData_IdKnown_DoesNotAskForIt();
    void SetParentConData_ClearFirst_EmptiesTheRest();
    void SetParentConData_WithoutClear_KeepsTheRest();
    void SetParentConData_OwnName_SurvivesTheClearing();
    void SetParentConData_UnknownParameters_AreToldOneByOne();
    void SetParentConData_HopWithoutParameters_IsSteppedOver();
    void SetParentConData_DamagedItemList_data();
    void SetParentConData_DamagedItemList();
    void SetParentConData_OversizedItemList_RaisesIndexError_data();
    void SetParentConData_OversizedItemList_RaisesIndexError();
    void SetNodeDataFromNodeName_StoredNode_LoadsNodePart();
    void SetNodeDataFromNodeName_UnknownType_GivesFalseSilently();
    void SetNodeDataFromNodeName_OwnName_SurvivesTheClearing();
    void SetNodeTypeData_AnyInstance_ActsOnConObject();
    void SetNodeTypeData_Failure_LeavesTypeName();
    void SetConDataToUnknownCon_TakesTheTypeOfAnEmptyTarget();
    void GetParentWithoutDefaults_StoredConnection_GivesReducedPart();
    void GetParentWithoutDefaults_Failure_LeavesText();
    void GetNodeWithoutDefaults_StoredNode_GivesReducedPart();
    void GetNodeWithoutDefaults_Failure_IsToldAndGoesOn();
    void GetNodeWithoutDefaults_OtherInstance_LoadsConObject();
    void Loaders_EachCallFailing_GiveFalse_data();
    void Loaders_EachCallFailing_GiveFalse();
    void Loaders_NoDatabase_GiveFalse_data();
    void Loaders_NoDatabase_GiveFalse();
};

using Loader = std::function<bool(ConData& con)>;
Q_DECLARE_METATYPE(Loader)

static const QString BusTarget = QStringLiteral("WP=BUST4,ID=254,TIME=2000,WP=OPT,PR=T4DL");
static const QString NodeTarget = QStringLiteral("WP=NET4,ADDR=4094,SUB=0");

static void AddRecords(ScriptedModelDatabase& database)
{
    database.AddDefinitions();
    database.AddConnection("Con", 12, BusTarget, "0\tT4BUS");
    database.AddNode("Node", {"Con", NodeTarget, "Manager", "2|tail"}, "0\tNET4");
}

/// Column of all used rows of a waypoint.
static QStringList Column(const ConData& con, int waypoint, int column)
{
    QStringList cells;
    for (int row = 1; row <= con.GetWpData(waypoint).WpParamCount(); ++row)
        cells << con.GetWpData(waypoint).GetWpParam(row, column);
    return cells;
}

void TestConDataLoading::SetWpDataFromConType_KnownType_LoadsEmptyTables()
{
    ScriptedModelDatabase database;
    AddRecords(database);
    ConData con;
    con.ConTypeName = "as it was";
    con.SetWpDataItem(1, 1, 2, "old value");

    QVERIFY(con.SetWpDataFromConType("T4 Bus"));

    QCOMPARE(database.Calls, (QStringList{"GetConTypeShortNameDb(T4 Bus)", "GetConTypeIdDb(T4BUS)",
                                          "GetConTypeWpListDb(,0)", "GetWpLongNameDb(BUST4)",
                                          "GetWpParametersDb(BUST4,0)", "GetWpParametersLongNamesDb(BUST4,0)",
                                          "GetWpLongNameDb(OPT)", "GetWpParametersDb(OPT,0)",
                                          "GetWpParametersLongNamesDb(OPT,0)", "GetTargetItemListDb()"}));
    QCOMPARE(con.ConTypeID, 0);
    QCOMPARE(con.ConTypeName, QStringLiteral("as it was"));
    QCOMPARE(con.ConWpCount, 2);
    QCOMPARE(con.GetConWpName(1), QStringLiteral("BUST4"));
    QCOMPARE(con.GetConWpLongName(1), QStringLiteral("T4 Bus"));
    QCOMPARE(con.GetConWpMandatory(1), QStringLiteral("1"));
    QCOMPARE(con.GetConWpMandatory(2), QStringLiteral("0"));
    QCOMPARE(Column(con, 1, 1), (QStringList{"ID", "SPEED", "TIME", "RETRY"}));
    QCOMPARE(Column(con, 1, 2), (QStringList{"", "", "", ""}));
    QCOMPARE(Column(con, 1, 4), (QStringList{"BUS NUMBER", "BUS SPEED", "TIME OUT", "RETRY COUNT"}));
    QCOMPARE(Column(con, 1, 5), (QStringList{"1", "0", "0", "0"}));
    QCOMPARE(Column(con, 1, 6), (QStringList{"", "9600", "2000", "2"}));
    QCOMPARE(con.GetWpData(2).WpParamCount(), 3);
}

void TestConDataLoading::SetWpDataFromConType_UnknownType_TakesTheStoredTargetsHops()
{
    ScriptedModelDatabase database;
    AddRecords(database);
    database.Answers["GetConTypeShortNameDb(Unknown)"] = {"Unknown"};
    database.Answers["GetConTypeIdDb(Unknown)"] = {"-1"};
    database.Answers["GetTargetWpListDb(Con)"] = {"OPT\t1"};
    ConData con;
    con.ConName = "Con";

    QVERIFY(con.SetWpDataFromConType("Unknown"));

    QCOMPARE(con.ConTypeID, -1);
    QCOMPARE(con.ConWpCount, 1);
    QCOMPARE(con.GetConWpName(1), QStringLiteral("OPT"));
    QCOMPARE(con.GetConWpMandatory(1), QStringLiteral("1"));
}

void TestConDataLoading::SetWpDataFromConType_UnknownTypeWithoutName_LoadsNothing()
{
    ScriptedModelDatabase database;
    database.Answers["GetConTypeShortNameDb(Unknown)"] = {"Unknown"};
    database.Answers["GetConTypeIdDb(Unknown)"] = {"-1"};
    database.Answers["GetTargetWpListDb()"] = {""};
    ConData con;
    con.ConWpCount = 3;

    QVERIFY(con.SetWpDataFromConType("Unknown"));

    QCOMPARE(con.ConWpCount, 0);
}

void TestConDataLoading::SetWpDataFromConType_SavedValues_StayAsTheyWere()
{
    ScriptedModelDatabase database;
    AddRecords(database);
    ConData con;
    con.SetWpDataItem(1, 2, 3, "saved");

    QVERIFY(con.SetWpDataFromConType("T4 Bus"));

    QCOMPARE(Column(con, 1, 3), (QStringList{"", "saved", "", ""}));
}

void TestConDataLoading::SetWpDataFromConType_DefinitionWithoutBar_IsTheDigit()
{
    ScriptedModelDatabase database;
    AddRecords(database);
    database.Answers["GetWpParametersLongNamesDb(OPT,0)"] = {"PROTOCOL\tT4DT\tDATA TYPE\t2|TEXT|more"};
    ConData con;

    QVERIFY(con.SetWpDataFromConType("T4 Bus"));

    QCOMPARE(Column(con, 2, 5), (QStringList{"T4DT", "2", ""}));
    QCOMPARE(Column(con, 2, 6), (QStringList{"", "TEXT", ""}));
}

void TestConDataLoading::SetWpDataFromConType_DamagedDefinitions_RaiseIndexError_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("answer");
    QTest::newRow("eleven waypoints")
        << "GetConTypeWpListDb(,0)" << QStringLiteral("OPT\t0\t").repeated(10) + "OPT\t0";
    QTest::newRow("eleven parameters")
        << "GetWpParametersDb(OPT,0)" << QStringLiteral("P\t\t").repeated(10) + "P\tx";
    QTest::newRow("eleven long names")
        << "GetWpParametersLongNamesDb(OPT,0)" << QStringLiteral("P\t0|\t").repeated(10) + "P\t0|";
}

void TestConDataLoading::SetWpDataFromConType_DamagedDefinitions_RaiseIndexError()
{
    QFETCH(QString, call);
    QFETCH(QString, answer);
    ScriptedModelDatabase database;
    AddRecords(database);
    database.Answers[call] = {answer};
    ConData con;

    QVERIFY_EXCEPTION_THROWN(con.SetWpDataFromConType("T4 Bus"), IndexError);

    con.Clear();
    database.AddDefinitions();
    QVERIFY(con.SetWpDataFromConType("T4 Bus"));
    QCOMPARE(con.ConWpCount, 2);
}

void TestConDataLoading::SetWpDataFromNodeType_KnownType_LeavesConWpCount()
{
    ScriptedModelDatabase database;
    AddRecords(database);
    RecordingPresenter operatorBoxes;
    ConData con;
    con.ConWpCount = 7;
    con.NodeTypeName = "as it was";

    QVERIFY(con.SetWpDataFromNodeType("T4 Node"));

    QCOMPARE(database.Calls.mid(0, 3), (QStringList{"GetNodeTypeShortNameDb(T4 Node)",
                                                    "GetNodeTypeIdDb(NET4)", "GetNodeTypeWpListDb(,0)"}));
    QCOMPARE(database.Calls.last(), QStringLiteral("GetTargetItemListDb()"));
    QCOMPARE(con.NodeTypeID, 0);
    QCOMPARE(con.NodeTypeName, QStringLiteral("as it was"));
    QCOMPARE(con.NodeWpCount, 2);
    QCOMPARE(con.ConWpCount, 7);
    QCOMPARE(con.GetConWpName(1), QStringLiteral("NET4"));
    QVERIFY(operatorBoxes.Boxes.empty());
}

void TestConDataLoading::SetWpDataFromNodeType_Unknown_IsTold_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<int>("failing");
    QTest::addColumn<bool>("told");
    QTest::newRow("no short name") << "0" << 0 << true;
    QTest::newRow("no id") << "0" << 1 << false;
    QTest::newRow("negative id") << "-1" << -1 << true;
}

void TestConDataLoading::SetWpDataFromNodeType_Unknown_IsTold()
{
    QFETCH(QString, id);
    QFETCH(int, failing);
    QFETCH(bool, told);
    ScriptedModelDatabase database;
    AddRecords(database);
    database.Answers["GetNodeTypeIdDb(NET4)"] = {id};
    database.FailingCall = failing;
    RecordingPresenter operatorBoxes;
    ConData con;

    QVERIFY(!con.SetWpDataFromNodeType("T4 Node"));

    if (told) {
        QCOMPARE(operatorBoxes.Boxes.size(), 1U);
        QCOMPARE(operatorBoxes.Boxes[0], RecordedBox::Plain("Error: Unknown node type."));
    } else {
        QVERIFY(operatorBoxes.Boxes.empty());
    }
    QCOMPARE(con.NodeWpCount, 0);
}

void TestConDataLoading::SetParentConData_StoredConnection_LoadsValuesInOrder()
{
    ScriptedModelDatabase database;
    AddRecords(database);
    ConData con;

    QVERIFY(con.SetParentConData("Con", true));

    QCOMPARE(database.Calls.mid(0, 4),
             (QStringList{"GetParentIDDb(Con)", "GetParentDb(Con)", "AnalyzeConTypeDb(" + BusTarget + ")",
                          "GetConTypeWpListDb(,0)"}));
    QCOMPARE(database.Calls.last(), "GetTargetItemListDb(" + BusTarget + ")");
    QCOMPARE(con.ConName, QStringLiteral("Con"));
    QCOMPARE(con.ConDbID, 12);
    QCOMPARE(con.ConTypeName, QStringLiteral("T4BUS"));
    QCOMPARE(con.ConTypeID, 0);
    QCOMPARE(con.ConWpCount, 2);
    QCOMPARE(Column(con, 1, 2), (QStringList{"254", "", "2000", ""}));
    QCOMPARE(Column(con, 2, 2), (QStringList{"T4DL", "", ""}));
    QCOMPARE(Column(con, 1, 3), (QStringList{"", "", "", ""}));
}

void TestConDataLoading::SetParentConData_UnknownType_LoadsFromTarget()
{
    ScriptedModelDatabase database;
    AddRecords(database);
    database.AddConnection("Odd", 13, "WP=OPT,PR=T4DL", "-1\tUnknown");
    database.Answers["GetTargetWpListDb(Odd)"] = {"OPT\t1"};
    ConData con;

    QVERIFY(con.SetParentConData("Odd", true));

    QCOMPARE(con.ConTypeID, ConData::UnknownTypeId);
    QCOMPARE(con.ConTypeName, QStringLiteral("Unknown"));
    QCOMPARE(con.ConWpCount, 1);
    QCOMPARE(Column(con, 1, 2), (QStringList{"T4DL", "", ""}));
}

void TestConDataLoading::SetParentConData_IdKnown_DoesNotAskForIt()
{
    ScriptedModelDatabase database;
    AddRecords(database);
    ConData con;
    con.ConDbID = 99;

    QVERIFY(con.SetParentConData("Con", false));

    QCOMPARE(con.ConDbID, 99);
    QVERIFY(!database.Calls.contains("GetParentIDDb(Con)"));
}

void TestConDataLoading::SetParentConData_ClearFirst_EmptiesTheRest()
{
    ScriptedModelDatabase database;
    AddRecords(database);
    ConData con;
    con.NodeName = "Node";
    con.ConDbID = 99;
    con.SetConWpName(3, "KD7");

    QVERIFY(con.SetParentConData("Con", true));

    QCOMPARE(con.NodeName, QString());
    QCOMPARE(con.ConDbID, 12);
    QCOMPARE(con.GetConWpName(3), QString());
}

void TestConDataLoading::SetParentConData_WithoutClear_KeepsTheRest()
{
    ScriptedModelDatabase database;
    AddRecords(database);
    ConData con;
    con.NodeName = "Node";
    con.SetConWpName(3, "KD7");
    con.SetWpDataItem(2, 9, 1, "OLD");
    con.SetWpDataItem(2, 1, 3, "saved");

    QVERIFY(con.SetParentConData("Con", false));

    QCOMPARE(con.NodeName, QStringLiteral("Node"));
    QCOMPARE(con.GetConWpName(3), QStringLiteral("KD7"));
    QCOMPARE(con.GetWpData(2).WpParamCount(), 3);
    QCOMPARE(con.GetWpData(2).GetWpParam(9, 1), QStringLiteral("OLD"));
    QCOMPARE(con.GetWpData(2).GetWpParam(1, 3), QStringLiteral("saved"));
}

void TestConDataLoading::SetParentConData_OwnName_SurvivesTheClearing()
{
    ScriptedModelDatabase database;
    AddRecords(database);
    ConData con;
    con.ConName = "Con";

    QVERIFY(con.SetParentConData(con.ConName, true));

    QCOMPARE(con.ConName, QStringLiteral("Con"));
}

void TestConDataLoading::SetParentConData_UnknownParameters_AreToldOneByOne()
{
    ScriptedModelDatabase database;
    AddRecords(database);
    database.AddConnection("Old", 14, "WP=BUST4,GONE=1,ID=7,speed=9600,WP=OPT,PR=T4DL", "0\tT4BUS");
    RecordingPresenter operatorBoxes;
    ConData con;

    QVERIFY(con.SetParentConData("Old", true));

    QCOMPARE(operatorBoxes.Texts(), (QStringList{"Unknown parameter:GONE", "Unknown parameter:speed"}));
    QCOMPARE(operatorBoxes.Boxes[0], RecordedBox::Plain("Unknown parameter:GONE"));
    QCOMPARE(Column(con, 1, 2), (QStringList{"7", "", "", ""}));
    QCOMPARE(Column(con, 2, 2), (QStringList{"T4DL", "", ""}));
}

void TestConDataLoading::SetParentConData_HopWithoutParameters_IsSteppedOver()
{
    ScriptedModelDatabase database;
    AddRecords(database);
    database.AddConnection("Bare", 15, "WP=BUST4,WP=OPT,PR=T4DL", "0\tT4BUS");
    ConData con;

    QVERIFY(con.SetParentConData("Bare", true));

    QCOMPARE(Column(con, 1, 2), (QStringList{"", "", "", ""}));
    QCOMPARE(Column(con, 2, 2), (QStringList{"T4DL", "", ""}));
}

void TestConDataLoading::SetParentConData_DamagedItemList_data()
{
    QTest::addColumn<QString>("list");
    QTest::newRow("empty") << QString();
    QTest::newRow("no numbers") << QStringLiteral("x\ty\tWP\tBUST4");
    QTest::newRow("hop count alone") << QStringLiteral("2");
    QTest::newRow("negative counts") << QStringLiteral("-1\t-5");
    QTest::newRow("pair count without pairs") << QStringLiteral("1\t0");
}

void TestConDataLoading::SetParentConData_DamagedItemList()
{
    QFETCH(QString, list);
    ScriptedModelDatabase database;
    AddRecords(database);
    database.Answers["GetTargetItemListDb(" + BusTarget + ")"] = {list};
    RecordingPresenter operatorBoxes;
    ConData con;

    QVERIFY(con.SetParentConData("Con", true));

    QCOMPARE(Column(con, 1, 2), (QStringList{"", "", "", ""}));
    QVERIFY(operatorBoxes.Boxes.empty());
}

void TestConDataLoading::SetParentConData_OversizedItemList_RaisesIndexError_data()
{
    QTest::addColumn<QString>("list");
    QTest::newRow("101 items") << "1\t49\tWP\tBUST4" + QStringLiteral("\tID\t1").repeated(48) + "\tx";
    QTest::newRow("more hops than an answer holds") << QStringLiteral("2147483647");
    QTest::newRow("eleven hops") << "11" + QStringLiteral("\t1\tWP\tOPT").repeated(10) +
                                        "\t2\tWP\tOPT\tPR\tT4DL";
}

void TestConDataLoading::SetParentConData_OversizedItemList_RaisesIndexError()
{
    QFETCH(QString, list);
    ScriptedModelDatabase database;
    AddRecords(database);
    database.Answers["GetTargetItemListDb(" + BusTarget + ")"] = {list};
    const RecordingPresenter operatorBoxes;
    ConData con;

    QVERIFY_EXCEPTION_THROWN(con.SetParentConData("Con", true), IndexError);
}

void TestConDataLoading::SetNodeDataFromNodeName_StoredNode_LoadsNodePart()
{
    ScriptedModelDatabase database;
    AddRecords(database);
    ConData con;
    con.ConDbID = 99;

    QVERIFY(con.SetNodeDataFromNodeName("Node"));

    QCOMPARE(database.Calls.mid(0, 3),
             (QStringList{"GetNodeExDb(Node)", "AnalyzeNodeTypeDb(" + NodeTarget + ")",
                          "GetNodeTypeWpListDb(,0)"}));
    QCOMPARE(database.Calls.last(), "GetTargetItemListDb(" + NodeTarget + ")");
    QCOMPARE(con.NodeName, QStringLiteral("Node"));
    QCOMPARE(con.NodeType, QStringLiteral("Manager"));
    QCOMPARE(con.CommandLine, QStringLiteral("2|tail"));
    QCOMPARE(con.ConName, QStringLiteral("Con"));
    QCOMPARE(con.ConDbID, 0);
    QCOMPARE(con.NodeTypeName, QStringLiteral("NET4"));
    QCOMPARE(con.NodeTypeID, 0);
    QCOMPARE(con.NodeWpCount, 2);
    QCOMPARE(con.ConWpCount, 0);
    QCOMPARE(Column(con, 1, 2), (QStringList{"4094", "0", "", ""}));
}

void TestConDataLoading::SetNodeDataFromNodeName_UnknownType_GivesFalseSilently()
{
    ScriptedModelDatabase database;
    AddRecords(database);
    database.AddNode("Odd", {"Con", "WP=X", "", ""}, "-1\tUnknown");
    RecordingPresenter operatorBoxes;
    ConData con;

    QVERIFY(!con.SetNodeDataFromNodeName("Odd"));

    QCOMPARE(con.NodeTypeName, QStringLiteral("Unknown"));
    QCOMPARE(database.Calls.last(), QStringLiteral("AnalyzeNodeTypeDb(WP=X)"));
    QVERIFY(operatorBoxes.Boxes.empty());
}

void TestConDataLoading::SetNodeDataFromNodeName_OwnName_SurvivesTheClearing()
{
    ScriptedModelDatabase database;
    AddRecords(database);
    ConData con;
    con.NodeName = "Node";

    QVERIFY(con.SetNodeDataFromNodeName(con.NodeName));

    QCOMPARE(con.NodeName, QStringLiteral("Node"));
}

void TestConDataLoading::SetNodeTypeData_AnyInstance_ActsOnConObject()
{
    ScriptedModelDatabase database;
    AddRecords(database);
    ConData other;

    QVERIFY(other.SetNodeTypeData("T4 Node"));

    QCOMPARE(Model().ConObject->NodeTypeName, QStringLiteral("T4 Node"));
    QCOMPARE(Model().ConObject->NodeWpCount, 2);
    QCOMPARE(other.NodeWpCount, 0);
    QCOMPARE(other.NodeTypeName, QString());
}

void TestConDataLoading::SetNodeTypeData_Failure_LeavesTypeName()
{
    const ScriptedModelDatabase database;
    const RecordingPresenter operatorBoxes;
    Model().ConObject->NodeTypeName = "as it was";

    QVERIFY(!ConData::SetNodeTypeData("T4 Node"));
    QCOMPARE(Model().ConObject->NodeTypeName, QStringLiteral("as it was"));
    Model().ConObject.reset();
    QVERIFY(!ConData::SetNodeTypeData("T4 Node"));
}

void TestConDataLoading::SetConDataToUnknownCon_TakesTheTypeOfAnEmptyTarget()
{
    ScriptedModelDatabase database;
    AddRecords(database);
    ConData con;
    con.ConName = "Con";
    con.ConWpCount = 2;

    QVERIFY(con.SetConDataToUnknownCon());

    QCOMPARE(database.Calls, QStringList{"AnalyzeConTypeDb()"});
    QCOMPARE(con.ConTypeName, QStringLiteral("Unknown"));
    QCOMPARE(con.ConTypeID, -1);
    QCOMPARE(con.ConName, QString());
    QCOMPARE(con.ConWpCount, 0);
}

void TestConDataLoading::GetParentWithoutDefaults_StoredConnection_GivesReducedPart()
{
    ScriptedModelDatabase database;
    AddRecords(database);
    ConData con;
    con.NodeName = "kept";
    QString target = "old";

    QVERIFY(con.GetParentWithoutDefaults("Con", target));

    QCOMPARE(target, QStringLiteral("WP=BUST4,ID=254,WP=OPT,PR=T4DL"));
    QCOMPARE(con.NodeName, QStringLiteral("kept"));
}

void TestConDataLoading::GetParentWithoutDefaults_Failure_LeavesText()
{
    const ScriptedModelDatabase database;
    ConData con;
    QString target = "as it was";

    QVERIFY(!con.GetParentWithoutDefaults("Con", target));
    QCOMPARE(target, QStringLiteral("as it was"));
}

void TestConDataLoading::GetNodeWithoutDefaults_StoredNode_GivesReducedPart()
{
    ScriptedModelDatabase database;
    AddRecords(database);
    QString target = "old";

    QVERIFY(Model().ConObject->GetNodeWithoutDefaults("Node", target));

    QCOMPARE(target, QStringLiteral("WP=NET4,ADDR=4094"));
}

void TestConDataLoading::GetNodeWithoutDefaults_Failure_IsToldAndGoesOn()
{
    const ScriptedModelDatabase database;
    RecordingPresenter operatorBoxes;
    QString target = "old";

    QVERIFY(Model().ConObject->GetNodeWithoutDefaults("Node", target));

    QCOMPARE(target, QString());
    QCOMPARE(operatorBoxes.Boxes.size(), 1U);
    QCOMPARE(operatorBoxes.Boxes[0], RecordedBox::Error("Failure to get node data from database."));
}

void TestConDataLoading::GetNodeWithoutDefaults_OtherInstance_LoadsConObject()
{
    ScriptedModelDatabase database;
    AddRecords(database);
    ConData other;
    QString target = "old";

    QVERIFY(other.GetNodeWithoutDefaults("Node", target));

    QCOMPARE(target, QString());
    QCOMPARE(Model().ConObject->NodeName, QStringLiteral("Node"));
    QCOMPARE(other.NodeName, QString());
}

static void AddLoaders()
{
    QTest::addColumn<Loader>("load");
    QTest::newRow("SetWpDataFromConType")
        << Loader([](ConData& con) { return con.SetWpDataFromConType("T4 Bus"); });
    QTest::newRow("SetWpDataFromNodeType")
        << Loader([](ConData& con) { return con.SetWpDataFromNodeType("T4 Node"); });
    QTest::newRow("SetParentConData")
        << Loader([](ConData& con) { return con.SetParentConData("Con", true); });
    QTest::newRow("SetNodeDataFromNodeName")
        << Loader([](ConData& con) { return con.SetNodeDataFromNodeName("Node"); });
    QTest::newRow("SetNodeTypeData") << Loader([](ConData&) { return ConData::SetNodeTypeData("T4 Node"); });
    QTest::newRow("SetConDataToUnknownCon")
        << Loader([](ConData& con) { return con.SetConDataToUnknownCon(); });
    QTest::newRow("GetParentWithoutDefaults") << Loader([](ConData& con) {
        QString target;
        return con.GetParentWithoutDefaults("Con", target);
    });
}

void TestConDataLoading::Loaders_EachCallFailing_GiveFalse_data()
{
    AddLoaders();
}

void TestConDataLoading::Loaders_EachCallFailing_GiveFalse()
{
    QFETCH(Loader, load);
    const RecordingPresenter operatorBoxes;
    ScriptedModelDatabase database;
    AddRecords(database);
    ConData con;
    QVERIFY(load(con));
    const QStringList calls = database.Calls;

    for (int failing = 0; failing < calls.size(); ++failing) {
        database.Calls.clear();
        database.FailingCall = failing;
        con.Clear();
        QVERIFY2(!load(con), qPrintable(calls[failing]));
        QCOMPARE(database.Calls, calls.mid(0, failing + 1));
    }
}

void TestConDataLoading::Loaders_NoDatabase_GiveFalse_data()
{
    AddLoaders();
}

void TestConDataLoading::Loaders_NoDatabase_GiveFalse()
{
    QFETCH(Loader, load);
    const RecordingPresenter operatorBoxes;
    ConData con;

    QVERIFY(!load(con));
}

QTEST_GUILESS_MAIN(TestConDataLoading)
#include "TestConDataLoading.moc"
