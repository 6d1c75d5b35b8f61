#include "components/hvxdb/HvxDatabaseComponent.h"
#include "database/Gateway.h"
#include "database/NodeTargetSaving.h"
#include "database/SaveRoutines.h"
#include "database/UnitOfWork.h"
#include "model/ModelState.h"
#include "model/TreeFilling.h"
#include "platform/Components.h"
#include "tests/components/DatabaseFixture.h"
#include "tests/support/CheckedTree.h"
#include "tests/support/GatewayFixture.h"

#include <QTest>

/// The save routines on a real database: afterwards the trees are what a fill would make of them.
class TestSaveRoutinesOnDatabase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Action_Committed_TreesAreWhatAFillGives_data();
    void Action_Committed_TreesAreWhatAFillGives();
    void Action_RolledBack_LeavesRecordsAndTrees_data();
    void Action_RolledBack_LeavesRecordsAndTrees();
    void Action_DatabaseHeldByAnother_IsTold();
    void SaveConnectionChanges_Rename_KeepsTheNodes();
    void SaveConnectionChanges_NameOfANode_IsRefused();
    void SaveNodeChanges_Record_HoldsAllThatWasGiven();
    void SaveNodeChanges_UsersText_IsKept();
    void SaveNodeChanges_NoSuchManager_SavesTheRest();
    void SaveNewNode_NoSuchConnection_SavesNothing();
    void SaveNodeWithValues_ScannedNode_HasItsTarget();
    void RemoveConnection_TakesItsNodes();
};

using Action = std::function<bool(TreeEntries& conTree, TreeEntries& nodesTree)>;
Q_DECLARE_METATYPE(Action)

static const QString NewConTarget =
    QStringLiteral("WP=BUST4,ID=7,SPEED=9600,TIME=2000,RETRY=2,WP=OPT,PR=T4DT,DT=TEXT,VERIFY=YES");
static const QString NewNodeTarget =
    QStringLiteral("WP=NET4,ADDR=99,SUB=0,PRIO=NORMAL,CRC=ON,TIME=2000,RETRY=2");

/// An open database and the trees that show it.
class FileFixture : public GatewayFixture
{
public:
    FileFixture()
    {
        const QString source = File.Source();
        RegisterComponent(HvxDatabaseId, [source] {
            auto component = std::make_unique<HvxDatabaseComponent>(source);
            component->SetBusyTimeout(0);
            return component;
        });
        Model().ConObject = std::make_unique<ConData>();
        Open();
        Show(true);
    }
    ~FileFixture() { Model().ConObject.reset(); }

    DatabaseFixture File;
    CheckedTree ConTree;
    CheckedTree NodesTree;
    qint32 Position = 0;
    QString ErrorText;

    /// Shows the children of all connections, nodes or waypoints.
    void Show(bool viewNodes)
    {
        Model().ConObject->ViewNodesChecked = viewNodes;
        Fill(ConTree, NodesTree);
    }

    bool Run(const Action& action, bool commit)
    {
        UnitOfWork unit({&ConTree, &NodesTree});
        return unit.Run([&](UnitOfWork& running) {
            running.Begin();
            if (!action(ConTree, NodesTree))
                UnitOfWork::Fail();
            if (commit)
                running.Commit();
            else
                UnitOfWork::GiveUp();
        });
    }

    [[nodiscard]] QStringList Shown() const { return Lines(ConTree, 0) + Lines(NodesTree, 0); }
    /// What trees filled now would show.
    [[nodiscard]] static QStringList Stored()
    {
        CheckedTree conTree;
        CheckedTree nodesTree;
        Fill(conTree, nodesTree);
        return Lines(conTree, 0) + Lines(nodesTree, 0);
    }

    /// Connection, target, type, "index|tail".
    [[nodiscard]] static QStringList Record(const QString& node)
    {
        QStringList fields(4);
        return ::Gateway().GetNodeExDb(node, fields[0], fields[1], fields[2], fields[3]) ? fields
                                                                                         : QStringList();
    }

private:
    static void Fill(TreeEntries& conTree, TreeEntries& nodesTree)
    {
        QString list;
        PairTable rows;
        int count = 0;
        qint32 position = 0;
        if (!::Gateway().QueryParentsDb(list))
            qFatal("There are no connections.");
        PairListToTable(list, rows, count);
        FillConnectionTree("Connections", "C", count, rows, conTree, true);
        for (int i = 0; i < conTree.ChildCount(1); ++i)
            FillChildEntries(conTree, conTree.Child(1, i), Model().ConObject->ViewNodesChecked);
        if (!::Gateway().QueryNodesDb("", "", list, position))
            qFatal("There are no nodes.");
        PairListToTable(list, rows, count);
        FillConnectionTree("Nodes", "N", count, rows, nodesTree, true);
    }

    static QStringList Lines(const TreeEntries& tree, TreeEntries::Index parent)
    {
        QStringList lines;
        for (int i = 0; i < tree.ChildCount(parent); ++i) {
            const TreeEntries::Index child = tree.Child(parent, i);
            lines << tree.Key(child) + u' ' + tree.Text(child) + u' ' + tree.Tag(child) << Lines(tree, child);
        }
        return lines;
    }
};

/// Changes North of Alpha.
static bool ChangeNorth(TreeEntries& conTree, TreeEntries& nodesTree, const QString& newName,
                        const QString& conName, const QString& commandLine = QStringLiteral("1|-port 9"))
{
    qint32 position = 0;
    QString errorText;
    return SaveNodeChanges("North", newName, "Alpha", conName, "NET4", commandLine, NewNodeTarget, nodesTree,
                           conTree, position, errorText);
}

static void Actions()
{
    static qint32 position = 0;
    static QString text;
    QTest::addColumn<bool>("viewNodes");
    QTest::addColumn<Action>("action");
    const std::vector<std::pair<const char*, Action>> actions{
        {"connection renamed",
         [](TreeEntries& con, TreeEntries&) {
             return SaveConnectionChanges("Alpha", "Zulu", NewConTarget, con,
                                          Model().ConObject->ViewNodesChecked, position);
         }},
        {"connection retargeted",
         [](TreeEntries& con, TreeEntries&) {
             return SaveConnectionChanges("Beta", "Beta", NewConTarget, con,
                                          Model().ConObject->ViewNodesChecked, position);
         }},
        {"connection added",
         [](TreeEntries& con, TreeEntries&) {
             return SaveNewConnection("Delta", NewConTarget, con, position,
                                      Model().ConObject->ViewNodesChecked, text);
         }},
        {"node changed",
         [](TreeEntries& con, TreeEntries& nodes) { return ChangeNorth(con, nodes, "North", "Alpha"); }},
        {"node renamed",
         [](TreeEntries& con, TreeEntries& nodes) { return ChangeNorth(con, nodes, "Zulu", "Alpha"); }},
        {"node moved",
         [](TreeEntries& con, TreeEntries& nodes) { return ChangeNorth(con, nodes, "North", "Gamma"); }},
        {"node added",
         [](TreeEntries& con, TreeEntries& nodes) {
             return SaveNewNode("Delta", "Beta", "NET4", "", NewNodeTarget, nodes, con, position, text);
         }},
        {"node removed",
         [](TreeEntries& con, TreeEntries& nodes) { return RemoveNodeEntry("East", con, nodes, true); }},
    };
    for (const auto& [name, action] : actions) {
        QTest::addRow("%s, nodes shown", name) << true << action;
        QTest::addRow("%s, waypoints shown", name) << false << action;
    }
}

void TestSaveRoutinesOnDatabase::Action_Committed_TreesAreWhatAFillGives_data()
{
    Actions();
}

void TestSaveRoutinesOnDatabase::Action_Committed_TreesAreWhatAFillGives()
{
    QFETCH(bool, viewNodes);
    QFETCH(Action, action);
    FileFixture fixture;
    fixture.Show(viewNodes);
    const QStringList before = fixture.Shown();

    QVERIFY(fixture.Run(action, true));

    QVERIFY(fixture.Shown() != before);
    QCOMPARE(fixture.Shown(), FileFixture::Stored());
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestSaveRoutinesOnDatabase::Action_RolledBack_LeavesRecordsAndTrees_data()
{
    Actions();
}

void TestSaveRoutinesOnDatabase::Action_RolledBack_LeavesRecordsAndTrees()
{
    QFETCH(bool, viewNodes);
    QFETCH(Action, action);
    FileFixture fixture;
    fixture.Show(viewNodes);
    const QStringList before = fixture.Shown();

    QVERIFY(!fixture.Run(action, false));

    QCOMPARE(fixture.Shown(), before);
    QCOMPARE(FileFixture::Stored(), before);
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestSaveRoutinesOnDatabase::Action_DatabaseHeldByAnother_IsTold()
{
    FileFixture fixture;
    const QStringList before = fixture.Shown();
    const auto other = fixture.File.OpenComponent();
    qint32 started = 0;
    other->BeginTransaction(started);
    other->DeleteNode("South");
    fixture.Operator.Answers = {BoxAnswer::Cancel};

    QVERIFY(!fixture.Run(
        [](TreeEntries& con, TreeEntries& nodes) { return ChangeNorth(con, nodes, "N", "Alpha"); }, true));

    QCOMPARE(fixture.Shown(), before);
    QCOMPARE(fixture.Operator.Texts(),
             (QStringList{"Database is in use by another application, do you want to try again ?",
                          "Database access is denied, because another application is using it."}));
    other->RollbackTransaction();
}

void TestSaveRoutinesOnDatabase::SaveConnectionChanges_Rename_KeepsTheNodes()
{
    FileFixture fixture;
    QString target;

    QVERIFY(SaveConnectionChanges("Alpha", "Omega", NewConTarget, fixture.ConTree, true, fixture.Position));

    QVERIFY(::Gateway().GetParentDb("Omega", target));
    QCOMPARE(target, NewConTarget);
    QVERIFY(!::Gateway().GetParentDb("Alpha", target));
    QCOMPARE(FileFixture::Record("North").value(0), "Omega");
    QCOMPARE(fixture.ConTree.ChildCount(fixture.Position), 2);
}

void TestSaveRoutinesOnDatabase::SaveConnectionChanges_NameOfANode_IsRefused()
{
    FileFixture fixture;
    const QStringList before = fixture.Shown();

    QVERIFY(!fixture.Run(
        [&](TreeEntries& con, TreeEntries&) {
            return SaveConnectionChanges("Alpha", "North", NewConTarget, con, true, fixture.Position);
        },
        true));

    QCOMPARE(fixture.Shown(), before);
    QCOMPARE(FileFixture::Stored(), before);
}

void TestSaveRoutinesOnDatabase::SaveNodeChanges_Record_HoldsAllThatWasGiven()
{
    FileFixture fixture;

    QVERIFY(ChangeNorth(fixture.ConTree, fixture.NodesTree, "Omega", "Gamma"));

    QCOMPARE(FileFixture::Record("Omega"), (QStringList{"Gamma", NewNodeTarget, "NET4", "1|-port 9"}));
    QCOMPARE(FileFixture::Record("North"), QStringList(4, QString()));
}

void TestSaveRoutinesOnDatabase::SaveNodeChanges_UsersText_IsKept()
{
    FileFixture fixture;
    const auto other = fixture.File.OpenComponent();
    other->UpdateUsersList("North", "NodeWP", "somebody");

    QVERIFY(ChangeNorth(fixture.ConTree, fixture.NodesTree, "North", "Beta"));

    QString users;
    other->GetUsersList("North", "NodeWP", users);
    QCOMPARE(users, "somebody");
}

void TestSaveRoutinesOnDatabase::SaveNodeChanges_NoSuchManager_SavesTheRest()
{
    FileFixture fixture;

    QVERIFY(ChangeNorth(fixture.ConTree, fixture.NodesTree, "North", "Alpha", "77|-port 9"));

    QCOMPARE(FileFixture::Record("North"), (QStringList{"Alpha", NewNodeTarget, "NET4", "-port 9"}));
    QCOMPARE(fixture.Operator.Texts().last(), "Manager index doesn't exist.");
}

void TestSaveRoutinesOnDatabase::SaveNewNode_NoSuchConnection_SavesNothing()
{
    FileFixture fixture;
    const QStringList before = fixture.Shown();

    QVERIFY(!SaveNewNode("Omega", "nowhere", "NET4", "", NewNodeTarget, fixture.NodesTree, fixture.ConTree,
                         fixture.Position, fixture.ErrorText));

    QCOMPARE(fixture.Shown(), before);
    QCOMPARE(FileFixture::Stored(), before);
}

void TestSaveRoutinesOnDatabase::SaveNodeWithValues_ScannedNode_HasItsTarget()
{
    FileFixture fixture;
    Model().ConObject->ConTree = &fixture.ConTree;
    Model().ConObject->NodesTree = &fixture.NodesTree;
    ConData con;
    QVERIFY(con.SetWpDataFromNodeType("T4 Node"));
    con.ConName = "Beta";

    QVERIFY(SaveNodeWithValues(con, false, "Scanned", "", "4000", "3", "1500"));

    QCOMPARE(FileFixture::Record("Scanned").value(1), "WP=NET4,ADDR=4000,TIME=1500,RETRY=3");
    QCOMPARE(fixture.Shown(), FileFixture::Stored());
}

void TestSaveRoutinesOnDatabase::RemoveConnection_TakesItsNodes()
{
    FileFixture fixture;

    QVERIFY(RemoveConnection("Alpha"));

    qint32 count = 0;
    QVERIFY(::Gateway().GetNodeCountDb(count));
    QCOMPARE(count, 1);
    QCOMPARE(FileFixture::Record("North"), QStringList(4, QString()));
}

QTEST_GUILESS_MAIN(TestSaveRoutinesOnDatabase)
#include "TestSaveRoutinesOnDatabase.moc"
