#include "database/SaveRoutines.h"
#include "tests/database/SavingFixture.h"

#include <QTest>

/// A connection is written and its entry follows.
class TestSaveConnectionRoutines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void SaveConnectionChanges_NewName_WritesNameThenTarget();
    void SaveConnectionChanges_SameName_WritesTheTargetAlone_data();
    void SaveConnectionChanges_SameName_WritesTheTargetAlone();
    void SaveConnectionChanges_TakenName_IsToldAndRefused();
    void SaveConnectionChanges_FailedCall_GivesFalse_data();
    void SaveConnectionChanges_FailedCall_GivesFalse();
    void SaveConnectionChanges_NoId_IsTold();
    void SaveConnectionChanges_NotInTheTree_GivesFalse();
    void SaveConnectionChanges_TreeNotFilledYet_IsLeftAlone();
    void SaveConnectionChanges_Entry_IsRenewedInPlace();
    void SaveConnectionChanges_View_ChoosesTheChildren_data();
    void SaveConnectionChanges_View_ChoosesTheChildren();
    void SaveConnectionChanges_OtherEntriesOfThatText_Stay_data();
    void SaveConnectionChanges_OtherEntriesOfThatText_Stay();
    void SaveNewConnection_Saves_AddsAndFillsItsEntry_data();
    void SaveNewConnection_Saves_AddsAndFillsItsEntry();
    void SaveNewConnection_Name_IsTrimmed();
    void SaveNewConnection_Refused_TellsWhyInTheText_data();
    void SaveNewConnection_Refused_TellsWhyInTheText();
    void SaveNewConnection_FailedCall_TellsWhyInTheText_data();
    void SaveNewConnection_FailedCall_TellsWhyInTheText();
    void SaveNewConnection_KeyTaken_GivesFalse();
    void SaveNewConnection_TreeNotFilledYet_IsLeftAlone();
};

static const QString NewTarget = QStringLiteral("WP=BUST4,ID=7");
static const QString UnknownError = QStringLiteral("Unknown error in access to database.");

void TestSaveConnectionRoutines::SaveConnectionChanges_NewName_WritesNameThenTarget()
{
    SavingFixture fixture;
    const TreeEntries::Index alpha = fixture.Alpha();

    QVERIFY(SaveConnectionChanges(" Alpha ", " Omega ", NewTarget, fixture.ConTree, true, fixture.Position));

    QCOMPARE(fixture.Work(), (QStringList{"ParentNameExist(Omega)", "ReplaceParentName(Alpha,Omega)",
                                          "ReplaceParentTarget(Omega,WP=BUST4,ID=7)", "GetParentID(Omega)",
                                          "GetParentNodesWithID(Omega)"}));
    QCOMPARE(fixture.Connections(), (QStringList{"C,2 Beta", "C,7 Omega"}));
    QCOMPARE(fixture.ConTree.Children(alpha), (QStringList{"N,3,7 North", "N,4,7 South"}));
    QCOMPARE(fixture.Position, alpha);
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestSaveConnectionRoutines::SaveConnectionChanges_SameName_WritesTheTargetAlone_data()
{
    QTest::addColumn<QString>("newName");
    QTest::addColumn<QString>("written");
    QTest::newRow("same") << "Alpha"
                          << "Alpha";
    QTest::newRow("other case") << "ALPHA"
                                << "ALPHA";
    QTest::newRow("blanks around it") << "  alpha "
                                      << "alpha";
}

void TestSaveConnectionRoutines::SaveConnectionChanges_SameName_WritesTheTargetAlone()
{
    QFETCH(QString, newName);
    QFETCH(QString, written);
    SavingFixture fixture;

    QVERIFY(SaveConnectionChanges("Alpha", newName, NewTarget, fixture.ConTree, true, fixture.Position));

    QCOMPARE(fixture.Work(),
             (QStringList{QStringLiteral("ReplaceParentTarget(%1,WP=BUST4,ID=7)").arg(written),
                          QStringLiteral("GetParentID(%1)").arg(written),
                          QStringLiteral("GetParentNodesWithID(%1)").arg(written)}));
    QCOMPARE(fixture.Connections(), (QStringList{"C,6 " + written, "C,2 Beta"}));
}

void TestSaveConnectionRoutines::SaveConnectionChanges_TakenName_IsToldAndRefused()
{
    SavingFixture fixture;

    QVERIFY(!SaveConnectionChanges("Alpha", " beta ", NewTarget, fixture.ConTree, true, fixture.Position));

    QCOMPARE(fixture.Operator.Boxes,
             std::vector{RecordedBox::Plain("Connection beta already exists. Give a new name.")});
    QCOMPARE(fixture.Work(), QStringList{"ParentNameExist(beta)"});
    QCOMPARE(fixture.Connections(), (QStringList{"C,1 Alpha", "C,2 Beta"}));
    QCOMPARE(fixture.Position, -7);
}

void TestSaveConnectionRoutines::SaveConnectionChanges_FailedCall_GivesFalse_data()
{
    QTest::addColumn<QString>("failing");
    QTest::addColumn<bool>("viewNodes");
    QTest::addColumn<QStringList>("told");
    QTest::newRow("name search") << "ParentNameExist" << true << QStringList{UnknownError};
    QTest::newRow("rename") << "ReplaceParentName" << true << QStringList{UnknownError};
    QTest::newRow("target") << "ReplaceParentTarget" << true << QStringList{UnknownError};
    QTest::newRow("id") << "GetParentID" << true
                        << QStringList{UnknownError, "Database error, Connection ID missing."};
    QTest::newRow("nodes") << "GetParentNodesWithID" << true << QStringList{UnknownError};
    QTest::newRow("waypoints") << "GetParent" << false << QStringList{UnknownError};
    QTest::newRow("target's items") << "GetTargetItemList" << false << QStringList{UnknownError};
}

void TestSaveConnectionRoutines::SaveConnectionChanges_FailedCall_GivesFalse()
{
    QFETCH(QString, failing);
    QFETCH(bool, viewNodes);
    QFETCH(QStringList, told);
    SavingFixture fixture;
    fixture.Component.Fail(failing);

    QVERIFY(
        !SaveConnectionChanges("Alpha", "Omega", NewTarget, fixture.ConTree, viewNodes, fixture.Position));

    QVERIFY(fixture.Work().last().startsWith(failing + u'('));
    QCOMPARE(fixture.Operator.Texts(), told);
    QCOMPARE(fixture.Position, -7);
}

void TestSaveConnectionRoutines::SaveConnectionChanges_NoId_IsTold()
{
    SavingFixture fixture;
    fixture.Component.Answer("GetParentID", {" "});

    QVERIFY(!SaveConnectionChanges("Alpha", "Alpha", NewTarget, fixture.ConTree, true, fixture.Position));

    QCOMPARE(fixture.Operator.Boxes,
             std::vector{RecordedBox::Plain("Database error, Connection ID missing.")});
}

void TestSaveConnectionRoutines::SaveConnectionChanges_NotInTheTree_GivesFalse()
{
    SavingFixture fixture;
    fixture.ConTree.Remove(fixture.Alpha());

    QVERIFY(!SaveConnectionChanges("Alpha", "Omega", NewTarget, fixture.ConTree, true, fixture.Position));

    QCOMPARE(fixture.Work().last(), "ReplaceParentTarget(Omega,WP=BUST4,ID=7)");
    QCOMPARE(fixture.ConTree.Count(), 2);
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestSaveConnectionRoutines::SaveConnectionChanges_TreeNotFilledYet_IsLeftAlone()
{
    SavingFixture fixture;
    fixture.ConTree.Clear();

    QVERIFY(SaveConnectionChanges("Alpha", "Omega", NewTarget, fixture.ConTree, true, fixture.Position));

    QCOMPARE(fixture.Position, 0);
    QCOMPARE(fixture.ConTree.Count(), 0);
    QCOMPARE(fixture.Work().last(), "GetParentID(Omega)");
}

void TestSaveConnectionRoutines::SaveConnectionChanges_Entry_IsRenewedInPlace()
{
    SavingFixture fixture;
    const TreeEntries::Index alpha = fixture.Alpha();
    fixture.ShowNodes();
    fixture.ConTree.SetExpanded(fixture.Beta(), true);
    const QPersistentModelIndex selected = fixture.ConTree.ModelIndex(alpha);
    const QPersistentModelIndex child = fixture.ConTree.ModelIndex(fixture.ConTree.Child(alpha, 0));

    QVERIFY(SaveConnectionChanges("ALPHA", "zulu", NewTarget, fixture.ConTree, true, fixture.Position));

    QCOMPARE(fixture.Connections(), (QStringList{"C,2 Beta", "C,7 zulu"}));
    QVERIFY(selected == fixture.ConTree.ModelIndex(alpha));
    QCOMPARE(selected.row(), 1);
    QVERIFY(!child.isValid());
    QVERIFY(fixture.ConTree.Expanded(fixture.Beta()));
    QCOMPARE(fixture.Position, alpha);
}

void TestSaveConnectionRoutines::SaveConnectionChanges_View_ChoosesTheChildren_data()
{
    QTest::addColumn<bool>("before");
    QTest::addColumn<bool>("viewNodes");
    QTest::newRow("nodes") << true << true;
    QTest::newRow("waypoints") << false << false;
    QTest::newRow("nodes, behind waypoints") << false << true;
    QTest::newRow("waypoints, behind nodes") << true << false;
}

void TestSaveConnectionRoutines::SaveConnectionChanges_View_ChoosesTheChildren()
{
    QFETCH(bool, before);
    QFETCH(bool, viewNodes);
    SavingFixture fixture;
    const TreeEntries::Index alpha = fixture.Alpha();
    QVERIFY(FillChildEntries(fixture.ConTree, alpha, before));
    fixture.ConTree.SetExpanded(alpha, false);

    QVERIFY(SaveConnectionChanges("Alpha", "Alpha", "WP=BUST4,ID=7,WP=OPT", fixture.ConTree, viewNodes,
                                  fixture.Position));

    QCOMPARE(fixture.ConTree.Children(alpha), viewNodes ? (QStringList{"N,3,6 North", "N,4,6 South"})
                                                        : (QStringList{"W,6,1 T4 Bus", "W,6,2 Options"}));
    QVERIFY(fixture.ConTree.Expanded(alpha));
    QCOMPARE(fixture.ConTree.Tag(alpha),
             viewNodes ? QStringLiteral("Nodes") : QStringLiteral("2\t2\tWP\tBUST4\tID\t7\t1\tWP\tOPT"));
    QCOMPARE(fixture.ConTree.Sorted(alpha), viewNodes);
}

void TestSaveConnectionRoutines::SaveConnectionChanges_OtherEntriesOfThatText_Stay_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("the root's") << "Connections";
    QTest::newRow("a waypoint's") << "T4 Bus";
}

void TestSaveConnectionRoutines::SaveConnectionChanges_OtherEntriesOfThatText_Stay()
{
    QFETCH(QString, name);
    SavingFixture fixture;
    QVERIFY(FillChildEntries(fixture.ConTree, fixture.Alpha(), false));
    QVERIFY(SaveNewConnection(name, NewTarget, fixture.ConTree, fixture.Position, false, fixture.ErrorText));

    QVERIFY(SaveConnectionChanges(name, "Gamma", NewTarget, fixture.ConTree, false, fixture.Position));

    QCOMPARE(fixture.Connections(), (QStringList{"C,1 Alpha", "C,2 Beta", "C,8 Gamma"}));
    QCOMPARE(fixture.ConTree.Text(1), "Connections");
    QCOMPARE(fixture.ConTree.Children(fixture.Alpha()), QStringList{"W,1,1 T4 Bus"});
}

void TestSaveConnectionRoutines::SaveNewConnection_Saves_AddsAndFillsItsEntry_data()
{
    QTest::addColumn<bool>("viewNodes");
    QTest::addColumn<QStringList>("calls");
    QTest::addColumn<QStringList>("children");
    QTest::newRow("nodes") << true << QStringList{"GetParentNodesWithID(apple)"} << QStringList();
    QTest::newRow("waypoints") << false
                               << QStringList{"GetParent(apple)", "GetTargetItemList(WP=BUST4,ID=7)",
                                              "GetWpLongName(BUST4)"}
                               << QStringList{"W,6,1 T4 Bus"};
}

void TestSaveConnectionRoutines::SaveNewConnection_Saves_AddsAndFillsItsEntry()
{
    QFETCH(bool, viewNodes);
    QFETCH(QStringList, calls);
    QFETCH(QStringList, children);
    SavingFixture fixture;

    QVERIFY(SaveNewConnection("apple", NewTarget, fixture.ConTree, fixture.Position, viewNodes,
                              fixture.ErrorText));

    QCOMPARE(fixture.Work(), (QStringList{"ParentNameExist(apple)", "GetUsersList(apple,Parent,)",
                                          "SaveParent(apple,WP=BUST4,ID=7)", "GetUsersList(apple,Parent,)",
                                          "UpdateUsersList(apple,Parent,)", "GetParentID(apple)"}) +
                                 calls);
    QCOMPARE(fixture.Connections(), (QStringList{"C,1 Alpha", "C,6 apple", "C,2 Beta"}));
    QCOMPARE(fixture.Position, fixture.ConTree.FindByKey("C,6"));
    QCOMPARE(fixture.ConTree.Children(fixture.Position), children);
    QVERIFY(fixture.ConTree.Expanded(fixture.Position));
    QCOMPARE(fixture.ErrorText, QString());
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestSaveConnectionRoutines::SaveNewConnection_Name_IsTrimmed()
{
    SavingFixture fixture;

    QVERIFY(SaveNewConnection("  Gamma  ", NewTarget, fixture.ConTree, fixture.Position, true,
                              fixture.ErrorText));

    QCOMPARE(fixture.ConTree.Text(fixture.Position), "Gamma");
    QCOMPARE(fixture.Component.Store.Now.connections.back().name, "Gamma");
}

void TestSaveConnectionRoutines::SaveNewConnection_Refused_TellsWhyInTheText_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("calls");
    QTest::newRow("empty") << ""
                           << "Error: Connection name is empty." << 0;
    QTest::newRow("blanks") << "  "
                            << "Error: Connection name is empty." << 0;
    QTest::newRow("taken") << " ALPHA "
                           << "Error: Connection name ALPHA alredy exists in database." << 1;
}

void TestSaveConnectionRoutines::SaveNewConnection_Refused_TellsWhyInTheText()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    QFETCH(int, calls);
    SavingFixture fixture;

    QVERIFY(!SaveNewConnection(name, NewTarget, fixture.ConTree, fixture.Position, true, fixture.ErrorText));

    QCOMPARE(fixture.ErrorText, text);
    QCOMPARE(fixture.Work().size(), calls);
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
    QCOMPARE(fixture.ConTree.Count(), 3);
    QCOMPARE(fixture.Position, -7);
}

void TestSaveConnectionRoutines::SaveNewConnection_FailedCall_TellsWhyInTheText_data()
{
    QTest::addColumn<QString>("failing");
    QTest::addColumn<bool>("viewNodes");
    QTest::addColumn<QString>("text");
    QTest::newRow("name search") << "ParentNameExist" << true << "Error: Database search error.";
    QTest::newRow("save") << "SaveParent" << true << "Database error, failure in SaveParent.";
    QTest::newRow("users") << "UpdateUsersList" << true << "Database error, failure in SaveParent.";
    QTest::newRow("id") << "GetParentID" << true << "Database error, Connection ID missing.";
    QTest::newRow("nodes") << "GetParentNodesWithID" << true << "";
    QTest::newRow("waypoints") << "GetParent" << false << "";
}

void TestSaveConnectionRoutines::SaveNewConnection_FailedCall_TellsWhyInTheText()
{
    QFETCH(QString, failing);
    QFETCH(bool, viewNodes);
    QFETCH(QString, text);
    SavingFixture fixture;
    fixture.Component.Fail(failing);

    QVERIFY(!SaveNewConnection("Gamma", NewTarget, fixture.ConTree, fixture.Position, viewNodes,
                               fixture.ErrorText));

    QVERIFY(fixture.Work().last().startsWith(failing + u'('));
    QCOMPARE(fixture.ErrorText, text);
    QCOMPARE(fixture.Operator.Texts(), QStringList{UnknownError});
    QCOMPARE(fixture.Position, -7);
}

void TestSaveConnectionRoutines::SaveNewConnection_KeyTaken_GivesFalse()
{
    SavingFixture fixture;
    fixture.Component.Answer("GetParentID", {"2"});

    QVERIFY(
        !SaveNewConnection("Gamma", NewTarget, fixture.ConTree, fixture.Position, true, fixture.ErrorText));

    QCOMPARE(fixture.Connections(), (QStringList{"C,1 Alpha", "C,2 Beta"}));
    QCOMPARE(fixture.ErrorText, QString());
}

void TestSaveConnectionRoutines::SaveNewConnection_TreeNotFilledYet_IsLeftAlone()
{
    SavingFixture fixture;
    fixture.ConTree.Clear();

    QVERIFY(
        SaveNewConnection("Gamma", NewTarget, fixture.ConTree, fixture.Position, true, fixture.ErrorText));

    QCOMPARE(fixture.Position, 0);
    QCOMPARE(fixture.ConTree.Count(), 0);
    QCOMPARE(fixture.Component.Store.Now.connections.back().name, "Gamma");
}

QTEST_GUILESS_MAIN(TestSaveConnectionRoutines)
#include "TestSaveConnectionRoutines.moc"
