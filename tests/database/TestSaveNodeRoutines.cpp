#include "database/SaveRoutines.h"
#include "tests/database/SavingFixture.h"

#include <QTest>

/// A node is written and its entries in both trees follow.
class TestSaveNodeRoutines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void SaveNodeChanges_Calls_InOrder();
    void SaveNodeChanges_CommandLine_GivesTailAndIndex_data();
    void SaveNodeChanges_CommandLine_GivesTailAndIndex();
    void SaveNodeChanges_NoSuchManager_IsToldAndTheNodeSaved();
    void SaveNodeChanges_FailedCall_TellsWhyInTheText_data();
    void SaveNodeChanges_FailedCall_TellsWhyInTheText();
    void SaveNodeChanges_NodesTree_EntryIsRenewedInPlace();
    void SaveNodeChanges_NodesTree_WithoutTheEntry_GetsOne();
    void SaveNodeChanges_NodesTree_NotFilledYet_IsLeftAlone();
    void SaveNodeChanges_NodesTree_KeyTaken_GivesFalse();
    void SaveNewNode_Calls_InOrder();
    void SaveNewNode_Names_AreTrimmed();
    void SaveNewNode_Refused_TellsWhyInTheText_data();
    void SaveNewNode_Refused_TellsWhyInTheText();
    void SaveNewNode_FailedCall_TellsWhyWhereItKnows_data();
    void SaveNewNode_FailedCall_TellsWhyWhereItKnows();
    void SaveNewNode_NodesTree_GetsItsEntry();
    void SaveNewNode_NodesTree_NotFilledYet_IsLeftAlone();
};

static const QString Target = QStringLiteral("WP=NET4,ADDR=99");
static const QString UnknownError = QStringLiteral("Unknown error in access to database.");

/// Changes North on Alpha.
static bool ChangeNorth(SavingFixture& fixture, const QString& newName, const QString& commandLine = {},
                        const QString& conName = QStringLiteral("Alpha"))
{
    return SaveNodeChanges("North", newName, "Alpha", conName, "NET4", commandLine, Target, fixture.NodesTree,
                           fixture.ConTree, fixture.Position, fixture.ErrorText);
}

/// Saves a node on Alpha.
static bool SaveOnAlpha(SavingFixture& fixture, const QString& name, const QString& commandLine = {})
{
    return SaveNewNode(name, "Alpha", "NET4", commandLine, Target, fixture.NodesTree, fixture.ConTree,
                       fixture.Position, fixture.ErrorText);
}

void TestSaveNodeRoutines::SaveNodeChanges_Calls_InOrder()
{
    SavingFixture fixture;

    QVERIFY(SaveNodeChanges(" North ", " Omega ", " Alpha ", " Alpha ", " NET4 ", "12|abc", " WP=X ",
                            fixture.NodesTree, fixture.ConTree, fixture.Position, fixture.ErrorText));

    QCOMPARE(fixture.Work(), (QStringList{"DeleteNodeFromBrowser(North)", "GetUsersList(Omega,NodeWP,)",
                                          "SaveNode(Omega,NET4,WP=X,Alpha,abc)",
                                          "GetUsersList(Omega,NodeWP,)", "UpdateUsersList(Omega,NodeWP,)",
                                          "UpdateNodeNmaidx(Omega,12)", "GetNodeID(Omega)"}));
    QCOMPARE(fixture.ErrorText, QString());
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestSaveNodeRoutines::SaveNodeChanges_CommandLine_GivesTailAndIndex_data()
{
    QTest::addColumn<QString>("commandLine");
    QTest::addColumn<QString>("tail");
    QTest::addColumn<QString>("index");
    QTest::newRow("index and tail") << "12|abc"
                                    << "abc"
                                    << "12";
    QTest::newRow("tail alone") << "abc"
                                << "abc"
                                << "";
    QTest::newRow("bar and tail") << "|abc"
                                  << "abc"
                                  << "";
    QTest::newRow("index alone") << "12|"
                                 << ""
                                 << "12";
    QTest::newRow("nothing") << ""
                             << ""
                             << "";
    QTest::newRow("a bar in the tail") << "12|-x a|b"
                                       << "-x a|b"
                                       << "12";
    QTest::newRow("blanks stay") << "12| abc "
                                 << " abc "
                                 << "12";
}

void TestSaveNodeRoutines::SaveNodeChanges_CommandLine_GivesTailAndIndex()
{
    QFETCH(QString, commandLine);
    QFETCH(QString, tail);
    QFETCH(QString, index);
    SavingFixture fixture;

    QVERIFY(ChangeNorth(fixture, "North", commandLine));

    QVERIFY(
        fixture.Work().contains(QStringLiteral("SaveNode(North,NET4,WP=NET4,ADDR=99,Alpha,%1)").arg(tail)));
    QCOMPARE(fixture.Component.Count("UpdateNodeNmaidx"), index.isEmpty() ? 0 : 1);
    QCOMPARE(fixture.Component.Store.Now.nodes.back().index, index);
}

void TestSaveNodeRoutines::SaveNodeChanges_NoSuchManager_IsToldAndTheNodeSaved()
{
    SavingFixture fixture;

    QVERIFY(ChangeNorth(fixture, "North", "99|abc"));

    QCOMPARE(fixture.Operator.Boxes,
             (std::vector{RecordedBox::Error(UnknownError),
                          RecordedBox{"Manager index doesn't exist.", 48, ApplicationTitle()}}));
    QCOMPARE(fixture.Component.Store.Now.nodes.back().tail, "abc");
    QCOMPARE(fixture.Nodes(), (QStringList{"N,5 East", "N,6 North", "N,4 South"}));
    QCOMPARE(fixture.ErrorText, QString());
}

void TestSaveNodeRoutines::SaveNodeChanges_FailedCall_TellsWhyInTheText_data()
{
    QTest::addColumn<QString>("failing");
    QTest::addColumn<QString>("text");
    QTest::newRow("deletion") << "DeleteNodeFromBrowser"
                              << "Node North not found from database.";
    QTest::newRow("users") << "GetUsersList"
                           << "Failure in saving node Omega into database.";
    QTest::newRow("save") << "SaveNode"
                          << "Failure in saving node Omega into database.";
    QTest::newRow("users anew") << "UpdateUsersList"
                                << "Failure in saving node Omega into database.";
    QTest::newRow("id") << "GetNodeID"
                        << "Database error, Node ID missing.";
}

void TestSaveNodeRoutines::SaveNodeChanges_FailedCall_TellsWhyInTheText()
{
    QFETCH(QString, failing);
    QFETCH(QString, text);
    SavingFixture fixture;
    fixture.Component.Fail(failing);

    QVERIFY(!ChangeNorth(fixture, " Omega ", "12|abc"));

    QVERIFY(fixture.Work().last().startsWith(failing + u'('));
    QCOMPARE(fixture.ErrorText, text);
    QCOMPARE(fixture.Operator.Texts(), QStringList{UnknownError});
    QCOMPARE(fixture.Position, -7);
}

void TestSaveNodeRoutines::SaveNodeChanges_NodesTree_EntryIsRenewedInPlace()
{
    SavingFixture fixture;
    const TreeEntries::Index north = fixture.NodesTree.FindByKey("N,3");
    const QPersistentModelIndex selected = fixture.NodesTree.ModelIndex(north);

    QVERIFY(ChangeNorth(fixture, "Zulu"));

    QCOMPARE(fixture.Nodes(), (QStringList{"N,5 East", "N,4 South", "N,6 Zulu"}));
    QVERIFY(selected == fixture.NodesTree.ModelIndex(north));
    QCOMPARE(fixture.Position, north);
}

void TestSaveNodeRoutines::SaveNodeChanges_NodesTree_WithoutTheEntry_GetsOne()
{
    SavingFixture fixture;
    fixture.NodesTree.Remove(fixture.NodesTree.FindByKey("N,3"));

    QVERIFY(ChangeNorth(fixture, "Omega"));

    QCOMPARE(fixture.Nodes(), (QStringList{"N,5 East", "N,6 Omega", "N,4 South"}));
    QCOMPARE(fixture.Position, fixture.NodesTree.FindByKey("N,6"));
}

void TestSaveNodeRoutines::SaveNodeChanges_NodesTree_NotFilledYet_IsLeftAlone()
{
    SavingFixture fixture;
    fixture.NodesTree.Clear();

    QVERIFY(ChangeNorth(fixture, "Omega"));

    QCOMPARE(fixture.NodesTree.Count(), 0);
    QCOMPARE(fixture.Position, 0);
}

void TestSaveNodeRoutines::SaveNodeChanges_NodesTree_KeyTaken_GivesFalse()
{
    SavingFixture fixture;
    fixture.Component.Answer("GetNodeID", {"5"});

    QVERIFY(!ChangeNorth(fixture, "Omega"));

    QCOMPARE(fixture.Nodes(), (QStringList{"N,5 East", "N,4 South"}));
    QCOMPARE(fixture.ErrorText, QString());
}

void TestSaveNodeRoutines::SaveNewNode_Calls_InOrder()
{
    SavingFixture fixture;

    QVERIFY(SaveOnAlpha(fixture, "Omega", "12|abc"));

    QCOMPARE(fixture.Work(),
             (QStringList{"NodeNameExist(Omega)", "GetUsersList(Omega,NodeWP,)",
                          "SaveNode(Omega,NET4,WP=NET4,ADDR=99,Alpha,abc)", "GetUsersList(Omega,NodeWP,)",
                          "UpdateUsersList(Omega,NodeWP,)", "GetNodeID(Omega)"}));
    QCOMPARE(fixture.ErrorText, QString());
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestSaveNodeRoutines::SaveNewNode_Names_AreTrimmed()
{
    SavingFixture fixture;

    QVERIFY(SaveNewNode("  Omega ", " Alpha  ", "NET4", "", Target, fixture.NodesTree, fixture.ConTree,
                        fixture.Position, fixture.ErrorText));

    QVERIFY(fixture.Work().contains("SaveNode(Omega,NET4,WP=NET4,ADDR=99,Alpha,)"));
    QCOMPARE(fixture.NodesTree.Text(fixture.Position), "Omega");
}

void TestSaveNodeRoutines::SaveNewNode_Refused_TellsWhyInTheText_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("calls");
    QTest::newRow("empty") << ""
                           << "Node name is empty." << 0;
    QTest::newRow("blanks") << "   "
                            << "Node name is empty." << 0;
    QTest::newRow("taken") << " south "
                           << "Node south already exists. Give a new name." << 1;
}

void TestSaveNodeRoutines::SaveNewNode_Refused_TellsWhyInTheText()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    QFETCH(int, calls);
    SavingFixture fixture;

    QVERIFY(!SaveOnAlpha(fixture, name));

    QCOMPARE(fixture.ErrorText, text);
    QCOMPARE(fixture.Work().size(), calls);
    QCOMPARE(fixture.NodesTree.Count(), 4);
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestSaveNodeRoutines::SaveNewNode_FailedCall_TellsWhyWhereItKnows_data()
{
    QTest::addColumn<QString>("failing");
    QTest::addColumn<QString>("text");
    QTest::newRow("name search") << "NodeNameExist"
                                 << "";
    QTest::newRow("users") << "GetUsersList"
                           << "";
    QTest::newRow("save") << "SaveNode"
                          << "";
    QTest::newRow("users anew") << "UpdateUsersList"
                                << "";
    QTest::newRow("id") << "GetNodeID"
                        << "Database error, Node ID missing.";
}

void TestSaveNodeRoutines::SaveNewNode_FailedCall_TellsWhyWhereItKnows()
{
    QFETCH(QString, failing);
    QFETCH(QString, text);
    SavingFixture fixture;
    fixture.Component.Fail(failing);

    QVERIFY(!SaveOnAlpha(fixture, "Omega", "12|abc"));

    QVERIFY(fixture.Work().last().startsWith(failing + u'('));
    QCOMPARE(fixture.ErrorText, text);
    QCOMPARE(fixture.Operator.Texts(), QStringList{UnknownError});
    QCOMPARE(fixture.Position, -7);
    QCOMPARE(fixture.NodesTree.Count(), 4);
}

void TestSaveNodeRoutines::SaveNewNode_NodesTree_GetsItsEntry()
{
    SavingFixture fixture;

    QVERIFY(SaveOnAlpha(fixture, "omega"));

    QCOMPARE(fixture.Nodes(), (QStringList{"N,5 East", "N,3 North", "N,6 omega", "N,4 South"}));
    QCOMPARE(fixture.Position, fixture.NodesTree.FindByKey("N,6"));
}

void TestSaveNodeRoutines::SaveNewNode_NodesTree_NotFilledYet_IsLeftAlone()
{
    SavingFixture fixture;
    fixture.NodesTree.Clear();

    QVERIFY(SaveOnAlpha(fixture, "Omega"));

    QCOMPARE(fixture.NodesTree.Count(), 0);
    QCOMPARE(fixture.Position, 0);
}

QTEST_GUILESS_MAIN(TestSaveNodeRoutines)
#include "TestSaveNodeRoutines.moc"
