#include "database/ConnectionSave.h"
#include "tests/database/SaveFixture.h"

#include <QTest>

/// SaveConnection where it saves: which save happens, in which steps, and what follows.
class TestConnectionSave : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ReservedName_AnyCase_IsKnown_data();
    void ReservedName_AnyCase_IsKnown();
    void New_FreeName_IsSavedAsNew();
    void New_BlanksAtTheEnds_AreRemoved();
    void New_TakenName_IsRefused();
    void New_SameNameExists_IsReplacedAfterAQuestion();
    void New_SameNameExistsAndCancel_ChangesNothing();
    void Existing_NewName_IsRenamedAndRetargeted();
    void Existing_SameName_IsRetargetedOnly();
    void Existing_OtherType_ChangesNameAndTypeInOneGo();
    void Existing_TakenName_IsRefused_data();
    void Existing_TakenName_IsRefused();
    void Replace_CaseOfTheStoredNameDiffers_IsNotAsked();
    void Saved_WaypointsShown_AreRefilled();
    void Saved_TwiceInARow_KnowsItsOwnId();
};

static void CompareAfterSave(const SaveFixture& fixture, const QString& name)
{
    QCOMPARE(fixture.Con().ConName, name);
    QCOMPARE(fixture.Con().ConDbID, fixture.IdOfConnection(name));
    QCOMPARE(fixture.ConTree.Text(fixture.Con().SelectedTreeNodeIndex), name);
    QCOMPARE(fixture.ConTree.Key(fixture.Con().SelectedTreeNodeIndex),
             QStringLiteral("C,%1").arg(fixture.IdOfConnection(name)));
    QCOMPARE(fixture.TreeContents(), SaveFixture::FreshTreeContents());
    QCOMPARE(fixture.Component.Store.Levels(), 0);
    QCOMPARE(fixture.Pointers.last(), DatabaseClass::NormalPointer);
    QCOMPARE(fixture.LevelsUnderBoxes, 0);
}

void TestConnectionSave::ReservedName_AnyCase_IsKnown_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("reserved");
    QTest::newRow("as it is") << "New Connection" << true;
    QTest::newRow("small") << "new connection" << true;
    QTest::newRow("blanks") << " NEW CONNECTION  " << true;
    QTest::newRow("longer") << "New Connection 2" << false;
    QTest::newRow("empty") << "" << false;
}

void TestConnectionSave::ReservedName_AnyCase_IsKnown()
{
    QFETCH(QString, name);
    QFETCH(bool, reserved);

    QCOMPARE(IsReservedConnectionName(name), reserved);
}

void TestConnectionSave::New_FreeName_IsSavedAsNew()
{
    SaveFixture fixture;
    fixture.AddConnection();
    fixture.SetValue(1, "99");

    QVERIFY(fixture.Save("Delta"));

    const QString target =
        SaveFixture::AlphaTarget.section("254", 0, 0) + "99" + SaveFixture::AlphaTarget.section("254", 1);
    QCOMPARE(fixture.Target(), target);
    QCOMPARE(
        fixture.Steps(),
        (QStringList{"Begin", QStringLiteral("CheckTargetSyntax(%1,-1)").arg(target),
                     "ParentNameExist(Delta)", "NodeNameExist(Delta)", "ParentNameExist(Delta)",
                     "GetUsersList(Delta,Parent,)", QStringLiteral("SaveParent(Delta,%1)").arg(target),
                     "GetUsersList(Delta,Parent,)", "UpdateUsersList(Delta,Parent,)", "GetParentID(Delta)",
                     "GetParentNodesWithID(Delta)", "GetParentID(Delta)", "Commit"}));
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
    QVERIFY(fixture.Con().NewCon);
    QCOMPARE(fixture.Component.Store.Commits, 1);
    CompareAfterSave(fixture, "Delta");
}

void TestConnectionSave::New_BlanksAtTheEnds_AreRemoved()
{
    SaveFixture fixture;
    fixture.AddConnection();
    QString name = "  Delta ";

    QVERIFY(SaveConnection(fixture.Con(), name));

    QCOMPARE(name, "Delta");
    CompareAfterSave(fixture, "Delta");
}

void TestConnectionSave::New_TakenName_IsRefused()
{
    SaveFixture fixture;
    fixture.AddConnection();
    const QStringList flags = fixture.Flags();
    QString name = "Beta ";

    QVERIFY(!SaveConnection(fixture.Con(), name));

    QCOMPARE(name, "Beta");
    QCOMPARE(fixture.Operator.Boxes,
             (std::vector<RecordedBox>{
                 {"Connection Beta already exists. Give a new name.", BoxFlags::Plain, "Information"}}));
    QCOMPARE(fixture.Flags(), flags);
    QCOMPARE(fixture.LevelsUnderBoxes, 0);
}

void TestConnectionSave::New_SameNameExists_IsReplacedAfterAQuestion()
{
    SaveFixture fixture;
    fixture.AddConnection();
    fixture.Con().ConName = "Beta";
    fixture.Con().ConDbID = 0;
    const QString id = QString::number(fixture.IdOfConnection("Beta"));

    QVERIFY(fixture.Save(" Beta"));

    QCOMPARE(fixture.Operator.Boxes,
             (std::vector<RecordedBox>{{"Connection Beta exists in database. Do you want to replace it ?",
                                        BoxFlags::OkCancel, "Replace Connection"}}));
    QCOMPARE(fixture.Steps(),
             (QStringList{"Begin", QStringLiteral("CheckTargetSyntax(%1,-1)").arg(SaveFixture::AlphaTarget),
                          "ParentNameExist(Beta)", "GetParentID(Beta)", "Rollback", "Begin",
                          "GetParentID(Beta)", "NodeNameExist(Beta)",
                          QStringLiteral("ReplaceParentTarget(Beta,%1)").arg(SaveFixture::AlphaTarget),
                          "GetParentID(Beta)", "GetParentNodesWithID(Beta)", "GetParentID(Beta)", "Commit"}));
    QVERIFY(!fixture.Con().NewCon);
    QVERIFY(id.toInt() != fixture.Con().ConDbID);
    QVERIFY(fixture.Records().contains("Beta|" + SaveFixture::AlphaTarget));
    CompareAfterSave(fixture, "Beta");
}

void TestConnectionSave::New_SameNameExistsAndCancel_ChangesNothing()
{
    SaveFixture fixture;
    fixture.AddConnection();
    fixture.Con().ConName = "Beta";
    const QStringList flags = fixture.Flags();
    const QStringList records = fixture.Records();
    const QStringList trees = fixture.Trees();
    fixture.Operator.Answers = {BoxAnswer::Cancel};

    QVERIFY(!fixture.Save("Beta"));

    QCOMPARE(fixture.Operator.Texts(),
             QStringList{"Connection Beta exists in database. Do you want to replace it ?"});
    QCOMPARE(fixture.Flags(), flags);
    QCOMPARE(fixture.Records(), records);
    QCOMPARE(fixture.Trees(), trees);
    QCOMPARE(fixture.Component.Store.Levels(), 0);
}

void TestConnectionSave::Existing_NewName_IsRenamedAndRetargeted()
{
    SaveFixture fixture;
    fixture.EditConnection("Alpha");
    fixture.SetValue(1, "7");

    QVERIFY(fixture.Save("Omega"));

    QCOMPARE(
        fixture.Steps(),
        (QStringList{"Begin", QStringLiteral("CheckTargetSyntax(%1,-1)").arg(fixture.Target()),
                     "ParentNameExist(Omega)", "NodeNameExist(Omega)", "GetParentID(Alpha)",
                     "ParentNameExist(Omega)", "ReplaceParentName(Alpha,Omega)",
                     QStringLiteral("ReplaceParentTarget(Omega,%1)").arg(fixture.Target()),
                     "GetParentID(Omega)", "GetParentNodesWithID(Omega)", "GetParentID(Omega)", "Commit"}));
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
    QCOMPARE(fixture.IdOfConnection("Alpha"), 0);
    QVERIFY(fixture.Records().contains("Omega|" + fixture.Target()));
    CompareAfterSave(fixture, "Omega");
}

void TestConnectionSave::Existing_SameName_IsRetargetedOnly()
{
    SaveFixture fixture;
    fixture.EditConnection("Alpha");
    fixture.SetValue(1, "7");

    QVERIFY(fixture.Save("Alpha  "));

    QCOMPARE(
        fixture.Steps(),
        (QStringList{"Begin", QStringLiteral("CheckTargetSyntax(%1,-1)").arg(fixture.Target()),
                     "ParentNameExist(Alpha)", "NodeNameExist(Alpha)", "GetParentID(Alpha)",
                     QStringLiteral("ReplaceParentTarget(Alpha,%1)").arg(fixture.Target()),
                     "GetParentID(Alpha)", "GetParentNodesWithID(Alpha)", "GetParentID(Alpha)", "Commit"}));
    QVERIFY(fixture.Records().contains("Alpha|" + fixture.Target()));
    CompareAfterSave(fixture, "Alpha");
}

void TestConnectionSave::Existing_OtherType_ChangesNameAndTypeInOneGo()
{
    SaveFixture fixture;
    fixture.EditConnection("Alpha");
    QVERIFY(fixture.Con().SetWpDataFromConType("KD7 Mediation Bus"));
    fixture.SetValue(1, "12");

    QVERIFY(fixture.Save("Omega"));

    QVERIFY(fixture.Target().startsWith("WP=KD7,BUSID=12"));
    QVERIFY(fixture.Records().contains("Omega|" + fixture.Target()));
    QCOMPARE(fixture.Component.Store.Commits, 1);
    CompareAfterSave(fixture, "Omega");
}

void TestConnectionSave::Existing_TakenName_IsRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("another's") << "Beta";
    QTest::newRow("another's in other letters") << "bETA";
    QTest::newRow("its own in other letters") << "ALPHA";
}

void TestConnectionSave::Existing_TakenName_IsRefused()
{
    QFETCH(QString, name);
    SaveFixture fixture;
    fixture.EditConnection("Alpha");
    const QStringList flags = fixture.Flags();
    const QStringList records = fixture.Records();

    QVERIFY(!fixture.Save(name));

    QCOMPARE(fixture.Operator.Boxes,
             (std::vector<RecordedBox>{
                 {"Connection " + name + " already exists. Give a new name.", 0, "Information"}}));
    QCOMPARE(fixture.Steps().last(), "Rollback");
    QCOMPARE(fixture.Flags(), flags);
    QCOMPARE(fixture.Records(), records);
}

void TestConnectionSave::Replace_CaseOfTheStoredNameDiffers_IsNotAsked()
{
    SaveFixture fixture;
    fixture.AddConnection();
    fixture.Con().ConName = "Beta";

    QVERIFY(!fixture.Save("BETA"));

    QCOMPARE(fixture.Operator.Texts(), QStringList{"Connection BETA already exists. Give a new name."});
}

void TestConnectionSave::Saved_WaypointsShown_AreRefilled()
{
    SaveFixture fixture;
    fixture.EditConnection("Gamma");
    fixture.Con().ViewNodesChecked = false;

    QVERIFY(fixture.Save("Gamma"));

    const TreeEntries::Index entry = fixture.Con().SelectedTreeNodeIndex;
    QCOMPARE(fixture.ConTree.ChildCount(entry), 1);
    QCOMPARE(fixture.ConTree.Kind(fixture.ConTree.Child(entry, 0)), QChar('W'));
    QCOMPARE(fixture.ConTree.Text(fixture.ConTree.Child(entry, 0)), "SNMP");
}

void TestConnectionSave::Saved_TwiceInARow_KnowsItsOwnId()
{
    SaveFixture fixture;
    fixture.EditConnection("Alpha");

    QVERIFY(fixture.Save("Alpha"));
    QVERIFY(fixture.Save("Omega"));

    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
    CompareAfterSave(fixture, "Omega");
}

QTEST_GUILESS_MAIN(TestConnectionSave)
#include "TestConnectionSave.moc"
