#include "tests/dialogs/DirectPropFixture.h"
#include "tests/dialogs/OnDatabase.h"

#include <QTest>

using DialogOnDatabase = OnDatabase<DirectPropFixture>;

/// The dialog of the Direct tab's connection on a database, beside another application that uses it too.
class TestFrmDirectPropOnDatabase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Save_OverTheRecord_KeepsTheNodes();
    void Save_OtherName_IsStoredBeside();
    void Save_AppliedOne_IsStored();
    void Save_TwiceInARow_GoesOn();
    void Save_ChangedElsewhere_IsWrittenOver();
    void Save_RemovedElsewhere_IsStoredAnew();
    void Save_NewTakenElsewhere_IsRefused();
    void Save_NameOfANode_IsRefused();
    void Save_RightTakenAway_IsRefused();
    void Save_HeldByAnother_IsDenied();
    void Apply_HeldByAnother_WritesNothing();
};

void TestFrmDirectPropOnDatabase::Save_OverTheRecord_KeepsTheNodes()
{
    DialogOnDatabase dialog;
    const QString before = dialog.IdOf("Alpha");
    dialog.Fixture.Edit("Alpha");
    dialog.Fixture.SetDirectValue(1, "99");
    dialog.Fixture.ShowParameters();

    dialog.Fixture.Click("cmdSave");

    QVERIFY(!dialog.Fixture.Form->isVisible());
    QVERIFY(dialog.TargetOf("Alpha").startsWith("WP=BUST4,ID=99,"));
    QVERIFY(dialog.IdOf("Alpha") != before);
    QCOMPARE(QString::number(dialog.Fixture.Direct().ConDbID), dialog.IdOf("Alpha"));
    qint32 count = 0;
    dialog.Other->GetParentNodesCount("Alpha", count);
    QCOMPARE(count, 2);
    QVERIFY(dialog.TreesAgree());
    QVERIFY(dialog.IsFree());
    QVERIFY(dialog.Fixture.Operator.Boxes.empty());
}

void TestFrmDirectPropOnDatabase::Save_OtherName_IsStoredBeside()
{
    DialogOnDatabase dialog;
    dialog.Fixture.Edit("Gamma");
    dialog.Fixture.TypeName("Omega");

    dialog.Fixture.Click("cmdSave");

    QCOMPARE(dialog.TargetOf("Omega"), DatabaseFixture::GammaTarget);
    QCOMPARE(dialog.TargetOf("Gamma"), DatabaseFixture::GammaTarget);
    QVERIFY(dialog.TreesAgree());
}

void TestFrmDirectPropOnDatabase::Save_AppliedOne_IsStored()
{
    DialogOnDatabase dialog;
    dialog.Fixture.Edit("Gamma");
    dialog.Fixture.TypeName("Omega");
    dialog.Fixture.Click("cmdApply");
    QCOMPARE(dialog.TargetOf("Omega"), "there is none");
    dialog.Fixture.Direct().Copy(dialog.Fixture.NewDirect());

    dialog.Fixture.Show();
    dialog.Fixture.Click("cmdSave");

    QCOMPARE(dialog.TargetOf("Omega"), DatabaseFixture::GammaTarget);
    QCOMPARE(QString::number(dialog.Fixture.Direct().ConDbID), dialog.IdOf("Omega"));
    QVERIFY(dialog.TreesAgree());
}

void TestFrmDirectPropOnDatabase::Save_TwiceInARow_GoesOn()
{
    DialogOnDatabase dialog;
    dialog.Fixture.Edit("Gamma");
    dialog.Fixture.TypeName("Omega");
    dialog.Fixture.Click("cmdSave");
    dialog.Fixture.Direct().SelectPressed = false;

    dialog.Fixture.Show();
    QCOMPARE(dialog.Fixture.Offered(), "");
    dialog.Fixture.ChooseType(dialog.Fixture.TypeTexts()[0]);
    dialog.Fixture.SetDirectValue(1, "5");
    dialog.Fixture.Click("cmdSave");

    QVERIFY(dialog.Fixture.Operator.Boxes.empty());
    QVERIFY(dialog.TargetOf("Omega").startsWith("WP=BUST4,ID=5"));
    QVERIFY(dialog.TreesAgree());
}

void TestFrmDirectPropOnDatabase::Save_ChangedElsewhere_IsWrittenOver()
{
    DialogOnDatabase dialog;
    dialog.Fixture.Edit("Gamma");
    dialog.Fixture.ChooseType(dialog.Fixture.TypeTexts()[0]);
    dialog.Fixture.SetDirectValue(1, "5");
    dialog.Other->ReplaceParentTarget("Gamma", "WP=SNMP,VERSION=1");

    dialog.Fixture.Click("cmdSave");

    QVERIFY(dialog.Fixture.Operator.Boxes.empty());
    QVERIFY(dialog.TargetOf("Gamma").startsWith("WP=BUST4,ID=5"));
    QVERIFY(dialog.TreesAgree());
}

void TestFrmDirectPropOnDatabase::Save_RemovedElsewhere_IsStoredAnew()
{
    DialogOnDatabase dialog;
    dialog.Fixture.Edit("Gamma");
    dialog.Fixture.SetDirectValue(1, "1");
    dialog.Fixture.ShowParameters();
    dialog.Other->DeleteParent("Gamma", true);

    dialog.Fixture.Click("cmdSave");

    QVERIFY(dialog.Fixture.Operator.Boxes.empty());
    QVERIFY(dialog.TargetOf("Gamma").startsWith("WP=SNMP,VERSION=1,"));
    QCOMPARE(QString::number(dialog.Fixture.Direct().ConDbID), dialog.IdOf("Gamma"));
}

void TestFrmDirectPropOnDatabase::Save_NewTakenElsewhere_IsRefused()
{
    DialogOnDatabase dialog;
    dialog.Fixture.EditApplied("Gamma", "Mine");
    dialog.Other->SaveParent("Mine", DatabaseFixture::AlphaTarget);

    dialog.Fixture.Click("cmdSave");

    QCOMPARE(dialog.Fixture.Operator.Texts(),
             QStringList{"Error: Connection name Mine alredy exists in database."});
    QVERIFY(dialog.Fixture.Form->isVisible());
    QCOMPARE(dialog.TargetOf("Mine"), DatabaseFixture::AlphaTarget);
    QVERIFY(dialog.IsFree());
}

void TestFrmDirectPropOnDatabase::Save_NameOfANode_IsRefused()
{
    DialogOnDatabase dialog;
    dialog.Fixture.Edit("Gamma");
    dialog.Fixture.TypeName("North");

    dialog.Fixture.Click("cmdSave");

    QCOMPARE(dialog.Fixture.Operator.Texts().last(), "Database error, failure in SaveParent.");
    QVERIFY(dialog.Fixture.Form->isVisible());
    QCOMPARE(dialog.TargetOf("North"), "there is none");
    QVERIFY(dialog.IsFree());
    QVERIFY(dialog.TreesAgree());
}

void TestFrmDirectPropOnDatabase::Save_RightTakenAway_IsRefused()
{
    DialogOnDatabase dialog;
    dialog.Fixture.Edit("Gamma");
    dialog.Fixture.TypeName("Omega");
    QVERIFY(dialog.Fixture.Button("cmdSave").isEnabled());
    Database().EditRight = false;

    dialog.Fixture.TypeName("Omega 2");

    QCOMPARE(dialog.Fixture.Offered(), "Apply");
    QTest::keyClick(&dialog.Fixture.Name(), Qt::Key_Return);
    QCOMPARE(dialog.TargetOf("Omega 2"), "there is none");
}

void TestFrmDirectPropOnDatabase::Save_HeldByAnother_IsDenied()
{
    DialogOnDatabase().SaveWhileHeldByAnother();
}

void TestFrmDirectPropOnDatabase::Apply_HeldByAnother_WritesNothing()
{
    DialogOnDatabase dialog;
    dialog.Fixture.Edit("Gamma");
    dialog.Fixture.TypeName("Omega");
    qint32 started = 0;
    dialog.Other->BeginTransaction(started);
    dialog.Other->ReplaceParentTarget("Alpha", DatabaseFixture::BetaTarget);

    dialog.Fixture.Click("cmdApply");

    dialog.Other->RollbackTransaction();
    QVERIFY(dialog.Fixture.Operator.Boxes.empty());
    QVERIFY(!dialog.Fixture.Form->isVisible());
    QCOMPARE(dialog.Fixture.NewDirect().ConName, "Omega");
    QCOMPARE(dialog.TargetOf("Omega"), "there is none");
}

QTEST_MAIN(TestFrmDirectPropOnDatabase)
#include "TestFrmDirectPropOnDatabase.moc"
