#include "database/DatabaseState.h"
#include "model/ModelState.h"
#include "tests/database/SaveFaults.h"
#include "tests/scan/network/SaveListFixture.h"

using namespace SaveTexts;

/// One found node on its way into the database.
class TestFoundNodeSave : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void LoadFoundNodeType_Type_IsTheNodes();
    void LoadFoundNodeType_FailedCall_IsTold_data();
    void LoadFoundNodeType_FailedCall_IsTold();
    void LoadFoundNodeType_NoShortName_IsToldByTheLoadToo();
    void FoundNodeRows_Texts_AreTrimmed();
    void FoundNodeRows_NodeWithoutAddress_EndsThem();
    void SaveFoundNode_NewNode_IsUnderTheConnection();
    void SaveFoundNode_ExistingNode_StaysUnasked();
    void SaveFoundNode_ExistingNode_IsReplaced();
    void SaveFoundNode_ShownConnection_IsNotReadAnew_data();
    void SaveFoundNode_ShownConnection_IsNotReadAnew();
    void SaveFoundNode_Manager_IsTheConnections_data();
    void SaveFoundNode_Manager_IsTheConnections();
    void SaveFoundNode_NoControl_SavesTheRecord();
    void SaveFoundNode_NameOfAConnection_IsNotSaved();
    void SaveFoundNode_WrongTarget_IsToldAndRolledBack();
    void SaveFoundNode_ReplaceFails_KeepsTheOldNode();
    void SaveFoundNode_ConnectionChangedElsewhere_IsPrevented_data();
    void SaveFoundNode_ConnectionChangedElsewhere_IsPrevented();
    void SaveFoundNode_HeldElsewhere_IsDenied();
    void SaveFoundNode_TreeGoneUnderTheQuestion_EndsWithoutAWord();
    void SaveFoundNode_DatabaseClosedUnderTheQuestion_IsNotSaved();
    void SaveFoundNode_AnyCallFails_LeavesAllOrNothing_data();
    void SaveFoundNode_AnyCallFails_LeavesAllOrNothing();
};

static const QString Saved101 = QStringLiteral("WP=NET4,ADDR=101,TIME=1500,RETRY=3");

static FoundNodeOutcome SaveRow(SaveListFixture& fixture, int row, bool mayReplace)
{
    return SaveFoundNode(fixture.Direct, fixture.NewDirect, fixture.Row(row), mayReplace);
}

// Before the saves ------------------------------------------------------------------------------------------

void TestFoundNodeSave::LoadFoundNodeType_Type_IsTheNodes()
{
    SaveListFixture f;
    f.Component.Answer("GetNodeTypeId(NET4)", {"5"});

    QVERIFY(TakeFoundNodeType(f.Direct));
    QCOMPARE(f.Direct.NodeDbID, 5);
    f.Component.Answer("GetNodeTypeId(NET4)", {"0"});
    QVERIFY(LoadFoundNodeType(f.Direct));

    QCOMPARE(f.Direct.NodeTypeName, "NET4");
    QCOMPARE(f.Direct.GetConWpName(1), "NET4");
    QCOMPARE(f.Direct.GetWpData(1).GetWpParam(1, 1), "ADDR");
    QCOMPARE(f.Direct.GetWpData(1).GetWpParam(5, 1), "TIME");
    QCOMPARE(f.Direct.GetWpData(1).GetWpParam(6, 1), "RETRY");
    QVERIFY(f.Operator.Boxes.empty());
}

void TestFoundNodeSave::LoadFoundNodeType_FailedCall_IsTold_data()
{
    QTest::addColumn<QString>("failing");
    QTest::addColumn<QString>("told");
    QTest::newRow("id") << "GetNodeTypeId"
                        << "Node type NET4 not found.";
    QTest::newRow("long name") << "GetNodeTypeLongName"
                               << "Unknown node type:NET4";
    QTest::newRow("waypoints") << "GetNodeTypeWpList"
                               << "Unknown node type:NET4";
    QTest::newRow("parameters") << "GetWpParameters"
                                << "Unknown node type:NET4";
}

void TestFoundNodeSave::LoadFoundNodeType_FailedCall_IsTold()
{
    QFETCH(QString, failing);
    QFETCH(QString, told);
    SaveListFixture f;
    f.Direct.NodeDbID = 77;
    f.Component.Fail(failing);

    QVERIFY(!LoadFoundNodeType(f.Direct));

    QCOMPARE(f.Operator.Boxes.back(), RecordedBox::Plain(told));
    QVERIFY(f.Direct.NodeDbID != 77);
}

void TestFoundNodeSave::LoadFoundNodeType_NoShortName_IsToldByTheLoadToo()
{
    SaveListFixture f;
    f.Component.Fail("GetNodeTypeShortName");

    QVERIFY(!LoadFoundNodeType(f.Direct));

    QCOMPARE(f.Operator.Texts(), (QStringList{"Error: Unknown node type.", "Unknown node type:NET4"}));
}

void TestFoundNodeSave::FoundNodeRows_Texts_AreTrimmed()
{
    const std::vector<ScanSaveRow> rows = FoundNodeRows({{" 17 ", " T ", " A1 "}}, " 3 ", " 1500 ");

    QCOMPARE(rows.size(), std::size_t(1));
    const ScanSaveRow& row = rows.front();
    QCOMPARE((QStringList{row.address, row.shownAddress, row.name, row.retries, row.timeOut, row.type}),
             (QStringList{"17", "17", "A1", "3", "1500", "T"}));
    QCOMPARE(row.state, SaveState::NameExists);
    QVERIFY(!row.nameTooLong);
}

void TestFoundNodeSave::FoundNodeRows_NodeWithoutAddress_EndsThem()
{
    const std::vector<ScanSaveRow> rows =
        FoundNodeRows({{"17", "T", "A1"}, {" ", "T", "A2"}, {"19", "T", "A3"}}, "3", "1500");

    QCOMPARE(rows.size(), std::size_t(1));
    QVERIFY(FoundNodeRows({}, "3", "1500").empty());
}

// Save ------------------------------------------------------------------------------------------------------

void TestFoundNodeSave::SaveFoundNode_NewNode_IsUnderTheConnection()
{
    SaveListFixture f;
    f.FindNodes({"West"});
    QStringList selected;
    Model().SelectTreeEntry = [&](TreeEntries& tree, TreeEntries::Index entry) {
        selected << tree.Text(entry);
    };

    QCOMPARE(SaveRow(f, 1, false), FoundNodeOutcome::Saved);

    QCOMPARE(f.TargetOf("West"), Saved101);
    QCOMPARE(f.Steps().first(), "Begin");
    QCOMPARE(f.Steps().value(1), "GetParentID(Alpha)");
    QCOMPARE(f.Steps().last(), "Commit");
    QCOMPARE(f.TreeContents(), SaveFixture::FreshTreeContents());
    QCOMPARE(selected, QStringList{"West"});
    QVERIFY(f.Operator.Boxes.empty());
}

void TestFoundNodeSave::SaveFoundNode_ExistingNode_StaysUnasked()
{
    SaveListFixture f;
    f.FindNodes({"North"});
    const BeforeSave before(f);
    const QStringList flags = f.DirectFlags();

    QCOMPARE(SaveRow(f, 1, false), FoundNodeOutcome::NotSaved);

    before.CheckUnchanged();
    QCOMPARE(f.DirectFlags(), flags);
    QVERIFY(f.Operator.Boxes.empty());
}

void TestFoundNodeSave::SaveFoundNode_ExistingNode_IsReplaced()
{
    SaveListFixture f;
    f.FindNodes({"East"});

    QCOMPARE(SaveRow(f, 1, true), FoundNodeOutcome::Saved);

    QCOMPARE(f.TargetOf("East"), Saved101);
    QCOMPARE(f.Nodes(), (QStringList{"East", "North", "South"}));
    QCOMPARE(f.TreeContents(), SaveFixture::FreshTreeContents());
}

void TestFoundNodeSave::SaveFoundNode_ShownConnection_IsNotReadAnew_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("new") << "West";
    QTest::newRow("replaced") << "North";
    QTest::newRow("replaced on another connection") << "East";
}

void TestFoundNodeSave::SaveFoundNode_ShownConnection_IsNotReadAnew()
{
    QFETCH(QString, name);
    SaveListFixture f;
    f.FindNodes({name});

    QCOMPARE(SaveRow(f, 1, true), FoundNodeOutcome::Saved);

    QCOMPARE(f.Component.Calls.filter("GetParentNodesWithID"), QStringList());
    QCOMPARE(f.TreeContents(), SaveFixture::FreshTreeContents());
}

void TestFoundNodeSave::SaveFoundNode_Manager_IsTheConnections_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("new") << "West";
    QTest::newRow("replaced") << "North";
}

void TestFoundNodeSave::SaveFoundNode_Manager_IsTheConnections()
{
    QFETCH(QString, name);
    SaveListFixture f;
    f.FindNodes({name});
    f.Direct.NodeType = "NET4";
    f.Direct.CommandLine = "1|-port 9";

    QCOMPARE(SaveRow(f, 1, true), FoundNodeOutcome::Saved);

    const QStringList records = f.Records().filter("-port 9");
    QCOMPARE(records.size(), 1);
    QVERIFY2(records[0].startsWith(name) && records[0].contains("1|-port 9"), qPrintable(records[0]));
    QCOMPARE(f.TreeContents(), SaveFixture::FreshTreeContents());
}

void TestFoundNodeSave::SaveFoundNode_NoControl_SavesTheRecord()
{
    SaveListFixture f;
    f.FindNodes({"West", "North"});
    Model().ConObject.reset();

    QCOMPARE(SaveRow(f, 1, false), FoundNodeOutcome::Saved);
    QCOMPARE(SaveRow(f, 2, true), FoundNodeOutcome::Saved);

    QCOMPARE(f.TargetOf("West"), Saved101);
    QVERIFY(f.TargetOf("North").contains("ADDR=102"));
}

void TestFoundNodeSave::SaveFoundNode_NameOfAConnection_IsNotSaved()
{
    SaveListFixture f;
    f.FindNodes({"Beta"});
    const BeforeSave before(f);

    QCOMPARE(SaveRow(f, 1, true), FoundNodeOutcome::NotSaved);

    before.CheckUnchanged();
    QCOMPARE(f.Operator.Texts(), QStringList{UnknownError});
}

void TestFoundNodeSave::SaveFoundNode_WrongTarget_IsToldAndRolledBack()
{
    SaveListFixture f;
    f.FindNodes({"West"});
    const BeforeSave before(f);
    f.Component.Answer("CheckTargetSyntax", {"", "ERROR"});

    QCOMPARE(SaveRow(f, 1, false), FoundNodeOutcome::NotSaved);

    before.CheckUnchanged();
    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Plain(NoSaving)});
}

void TestFoundNodeSave::SaveFoundNode_ReplaceFails_KeepsTheOldNode()
{
    SaveListFixture f;
    f.FindNodes({"North"});
    const BeforeSave before(f);
    const QStringList flags = f.DirectFlags();
    f.Component.Fail("SaveNode");

    QCOMPARE(SaveRow(f, 1, true), FoundNodeOutcome::NotSaved);

    QCOMPARE(f.Component.Count("DeleteNodeFromBrowser"), 1);
    before.CheckUnchanged();
    QCOMPARE(f.DirectFlags(), flags);
    QVERIFY(!f.Operator.Boxes.empty());
}

void TestFoundNodeSave::SaveFoundNode_ConnectionChangedElsewhere_IsPrevented_data()
{
    QTest::addColumn<QString>("how");
    for (const char* how : {"changed", "removed", "cannot be read"})
        QTest::newRow(how) << how;
}

void TestFoundNodeSave::SaveFoundNode_ConnectionChangedElsewhere_IsPrevented()
{
    QFETCH(QString, how);
    SaveListFixture f;
    f.FindNodes({"West"});
    if (how == "changed")
        f.ChangeElsewhere("Alpha");
    else if (how == "removed")
        f.RemoveElsewhere("Alpha");
    else
        f.Component.Fail("GetParentID");
    const BeforeSave before(f);

    QCOMPARE(SaveRow(f, 1, false), FoundNodeOutcome::ConnectionChanged);

    before.CheckUnchanged();
    QCOMPARE(f.Operator.Boxes.back(),
             RecordedBox::Plain("Node saving is prevented, because another application has changed (deleted) "
                                "connection Alpha."));
    QCOMPARE(f.NewDirect.ConName, "Alpha");
}

void TestFoundNodeSave::SaveFoundNode_HeldElsewhere_IsDenied()
{
    SaveListFixture f;
    f.FindNodes({"West"});
    const BeforeSave before(f);
    f.Component.Fail("BeginTransaction", DatabaseErrorNumber::InUse);
    f.Operator.Answers = {BoxAnswer::Ok, BoxAnswer::Cancel};

    QCOMPARE(SaveRow(f, 1, false), FoundNodeOutcome::Denied);

    before.CheckUnchanged();
    QCOMPARE(f.Operator.Boxes.size(), std::size_t(3));
    QCOMPARE(f.Operator.Boxes.back(), RecordedBox::Error(Denied));
    QCOMPARE(f.NewDirect.ConName, "");
}

void TestFoundNodeSave::SaveFoundNode_TreeGoneUnderTheQuestion_EndsWithoutAWord()
{
    SaveListFixture f;
    f.FindNodes({"West"});
    const QStringList records = f.Records();
    auto tree = std::make_unique<TreeEntries>();
    f.Con().NodesTree = tree.get();
    f.Component.FailTimes("BeginTransaction", 1, DatabaseErrorNumber::InUse);
    f.Operator.WhileOpen = [&](const RecordedBox&) {
        tree.reset();
        f.Con().NodesTree = nullptr;
    };

    QVERIFY(SaveRow(f, 1, false) != FoundNodeOutcome::Saved);

    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
    QCOMPARE(f.Records(), records);
    QCOMPARE(f.Component.Store.Levels(), 0);
}

void TestFoundNodeSave::SaveFoundNode_DatabaseClosedUnderTheQuestion_IsNotSaved()
{
    SaveListFixture f;
    f.FindNodes({"West"});
    const QStringList records = f.Records();
    f.Component.FailTimes("BeginTransaction", 1, DatabaseErrorNumber::InUse);
    f.Operator.WhileOpen = [](const RecordedBox& box) {
        if (box.flags == BoxFlags::OkCancel) {
            Model().Database = nullptr;
            Database().DbObject.reset();
        }
    };

    QCOMPARE(SaveRow(f, 1, false), FoundNodeOutcome::Denied);

    QCOMPARE(f.Records(), records);
}

// Faults ----------------------------------------------------------------------------------------------------

void TestFoundNodeSave::SaveFoundNode_AnyCallFails_LeavesAllOrNothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("mode");
    for (const char* name : {"West", "North"}) {
        for (std::size_t mode = 0; mode < FaultMode::All().size(); ++mode)
            QTest::addRow("%s, %s", name, FaultMode::All()[mode].name) << name << static_cast<int>(mode);
    }
}

/// Prepares a node with a manager; North exists and is replaced.
static void Prepare(SaveListFixture& f, const QString& name)
{
    f.FindNodes({name});
    f.Direct.NodeType = "NET4";
    f.Direct.CommandLine = "1|-port 9";
}

void TestFoundNodeSave::SaveFoundNode_AnyCallFails_LeavesAllOrNothing()
{
    QFETCH(QString, name);
    QFETCH(int, mode);
    const FaultMode& fault = FaultMode::All()[static_cast<std::size_t>(mode)];
    SaveListFixture whole;
    Prepare(whole, name);
    QCOMPARE(SaveRow(whole, 1, true), FoundNodeOutcome::Saved);
    const auto calls = static_cast<int>(whole.Component.Calls.size());
    QVERIFY(calls > 10);

    int failures = 0;
    for (int k = 1; k <= calls; ++k) {
        SaveListFixture f;
        Prepare(f, name);
        const QStringList records = f.Records();
        const QStringList trees = f.Trees();
        const QStringList flags = f.DirectFlags();
        bool warned = false;
        f.Operator.WhileOpen = [&](const RecordedBox& box) {
            const bool asks = box.flags == BoxFlags::OkCancel;
            f.Operator.Answers = {asks ? fault.retry : BoxAnswer::Ok};
            warned = warned || box.text.contains("may be corrupted");
            // What cannot be rolled back stays open.
            QVERIFY2(asks || fault.goesOn || f.Component.Store.Levels() == 0, qPrintable(box.text));
        };
        if (fault.goesOn)
            f.Component.FailFrom(k, fault.number);
        else
            f.Component.FailCall(k, fault.number);

        const FoundNodeOutcome outcome = SaveRow(f, 1, true);

        f.Component.Repair();
        const QByteArray at = QStringLiteral("call %1 %2: %3")
                                  .arg(k)
                                  .arg(f.Component.Calls.value(k - 1), f.Operator.Texts().join(" / "))
                                  .toUtf8();
        while (warned && f.Component.Store.Levels() > 0)
            QVERIFY2(f.Gateway().RollbackTransactionDb(), at);
        QVERIFY2(f.Component.Store.Levels() == 0, at);
        if (outcome == FoundNodeOutcome::Saved) {
            QVERIFY2(f.TargetOf(name) == Saved101, at);
            QVERIFY2(f.TreeContents() == SaveFixture::FreshTreeContents(), at);
            continue;
        }
        ++failures;
        QVERIFY2(!f.Operator.Boxes.empty(), at);
        QVERIFY2(f.Records() == records, at);
        QVERIFY2(f.Trees() == trees, at);
        QVERIFY2(f.DirectFlags() == flags, at);
    }
    QVERIFY(failures > calls / 2 || fault.retry == BoxAnswer::Ok);
}

QTEST_GUILESS_MAIN(TestFoundNodeSave)
#include "TestFoundNodeSave.moc"
