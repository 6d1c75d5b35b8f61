#include "tests/dialogs/DirectPropFixture.h"

#include <QTest>

/// Apply: the connection of the Direct tab goes into use, and the database stays as it is.
class TestFrmDirectPropApply : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Apply_OtherName_IsANewConnection();
    void Apply_OwnName_IsAChangeOfTheStoredOne_data();
    void Apply_OwnName_IsAChangeOfTheStoredOne();
    void Apply_NewOne_StaysNew_data();
    void Apply_NewOne_StaysNew();
    void Apply_BlanksAtTheEnds_AreRemoved();
    void Apply_OtherType_IsTaken();
    void Apply_UnknownType_IsTaken();
    void Apply_TypeUnread_IsTypeZero_data();
    void Apply_TypeUnread_IsTypeZero();
    void Apply_ReservedName_IsTaken();
    void Apply_AsksForTheTargetAndTheTypeAlone();
    void Apply_FormerOne_IsReplaced();
    void Apply_Refused_TellsAndKeepsTheInput_data();
    void Apply_Refused_TellsAndKeepsTheInput();
    void Apply_RefusedThenCancelled_PutsTheConnectionBack();
    void Apply_WithoutARecord_NeedsNone();
    void Apply_ByAccessKey_Applies();
    void Applied_ShownAgain_CanBeSaved_data();
    void Applied_ShownAgain_CanBeSaved();
};

void TestFrmDirectPropApply::Apply_OtherName_IsANewConnection()
{
    DirectPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.SetDirectValue(1, "99");
    fixture.TypeName("Omega");

    fixture.Click("cmdApply");

    QVERIFY(!fixture.Form->isVisible());
    QCOMPARE(fixture.Form->result(), int(QDialog::Accepted));
    QVERIFY(fixture.Operator.Boxes.empty());
    const ConData& applied = fixture.NewDirect();
    QCOMPARE(applied.ConName, "Omega");
    QCOMPARE(applied.ConDbID, 0);
    QVERIFY(applied.NewCon);
    QCOMPARE(applied.ConTypeName, "T4BUS");
    QCOMPARE(applied.ConTypeID, 0);
    QCOMPARE(applied.ConWpCount, 2);
    QCOMPARE(applied.GetWpData(1).GetWpParam(1, 2), "99");
    QCOMPARE(applied.TargetString, "WP=BUST4,ID=99");
    QVERIFY(!applied.SelectPressed);
    QVERIFY(fixture.Direct().SelectPressed);
    QCOMPARE(fixture.Direct().ConName, "Alpha");
    QCOMPARE(fixture.Direct().GetWpData(1).GetWpParam(1, 2), "99");
}

void TestFrmDirectPropApply::Apply_OwnName_IsAChangeOfTheStoredOne_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("as it is") << "Alpha";
    QTest::newRow("other letters") << "ALPHA";
}

void TestFrmDirectPropApply::Apply_OwnName_IsAChangeOfTheStoredOne()
{
    QFETCH(QString, name);
    DirectPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.SetDirectValue(1, "99");
    fixture.TypeName(name);

    fixture.Click("cmdApply");

    QCOMPARE(fixture.NewDirect().ConName, name);
    QCOMPARE(fixture.NewDirect().ConDbID, 0);
    QVERIFY(!fixture.NewDirect().NewCon);
}

void TestFrmDirectPropApply::Apply_NewOne_StaysNew_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("its name") << "Mine";
    QTest::newRow("the name of a stored one") << "Alpha";
}

void TestFrmDirectPropApply::Apply_NewOne_StaysNew()
{
    QFETCH(QString, name);
    DirectPropFixture fixture;
    fixture.EditApplied("Alpha", "Mine");
    fixture.TypeName(name);

    fixture.Click("cmdApply");

    QCOMPARE(fixture.NewDirect().ConName, name);
    QVERIFY(fixture.NewDirect().NewCon);
}

void TestFrmDirectPropApply::Apply_BlanksAtTheEnds_AreRemoved()
{
    DirectPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.TypeName("  Omega ");

    fixture.Click("cmdApply");

    QCOMPARE(fixture.NewDirect().ConName, "Omega");
}

void TestFrmDirectPropApply::Apply_OtherType_IsTaken()
{
    DirectPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.ChooseType("SNMP Direct");
    fixture.SetDirectValue(1, "1");

    fixture.Click("cmdApply");

    QCOMPARE(fixture.Direct().ConTypeName, "SNMP");
    QCOMPARE(fixture.Direct().ConTypeID, 14);
    QCOMPARE(fixture.NewDirect().ConTypeName, "SNMP");
    QCOMPARE(fixture.NewDirect().ConTypeID, 14);
    QCOMPARE(fixture.NewDirect().TargetString, "WP=SNMP,VERSION=1");
}

void TestFrmDirectPropApply::Apply_UnknownType_IsTaken()
{
    DirectPropFixture fixture;
    fixture.AddStored("Odd", "WP=OPT,PR=T4DL,WP=BUST4,ID=9");
    fixture.Edit("Odd");
    fixture.TypeName("Omega");

    fixture.Click("cmdApply");

    QCOMPARE(fixture.NewDirect().ConTypeName, "Unknown");
    QCOMPARE(fixture.NewDirect().ConTypeID, ConData::UnknownTypeId);
    QCOMPARE(fixture.NewDirect().TargetString, "WP=OPT,PR=T4DL,WP=BUST4,ID=9");
}

void TestFrmDirectPropApply::Apply_TypeUnread_IsTypeZero_data()
{
    QTest::addColumn<QString>("failing");
    QTest::addColumn<QString>("typeName");
    QTest::newRow("short name") << "GetConTypeShortName"
                                << "";
    QTest::newRow("id") << "GetConTypeId"
                        << "SNMP";
}

void TestFrmDirectPropApply::Apply_TypeUnread_IsTypeZero()
{
    QFETCH(QString, failing);
    QFETCH(QString, typeName);
    DirectPropFixture fixture;
    fixture.Edit("Gamma");
    fixture.TypeName("Omega");
    fixture.Component.Fail(failing);

    fixture.Click("cmdApply");

    QCOMPARE(fixture.NewDirect().ConTypeID, 0);
    QCOMPARE(fixture.NewDirect().ConTypeName, typeName);
    QCOMPARE(fixture.NewDirect().ConName, "Omega");
    QVERIFY(fixture.Operator.Boxes.empty());
}

void TestFrmDirectPropApply::Apply_ReservedName_IsTaken()
{
    DirectPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.TypeName("New Connection");

    fixture.Click("cmdApply");

    QVERIFY(fixture.Operator.Boxes.empty());
    QCOMPARE(fixture.NewDirect().ConName, "New Connection");
}

void TestFrmDirectPropApply::Apply_AsksForTheTargetAndTheTypeAlone()
{
    DirectPropFixture fixture;
    fixture.Edit("Gamma");
    // The name of another, and of a node: nobody asks.
    fixture.TypeName("North");
    const QStringList records = fixture.Records();
    fixture.Forget();

    fixture.Click("cmdApply");

    QCOMPARE(fixture.Component.Calls,
             (QStringList{QStringLiteral("CheckTargetSyntax(%1,-1)").arg(SaveFixture::GammaTarget),
                          "GetConTypeShortName(SNMP Direct)", "GetConTypeId(SNMP)"}));
    QCOMPARE(fixture.Records(), records);
}

void TestFrmDirectPropApply::Apply_FormerOne_IsReplaced()
{
    DirectPropFixture fixture;
    fixture.EditDirect("Beta");
    fixture.NewDirect().Copy(fixture.Direct());
    fixture.Edit("Gamma");
    fixture.TypeName("Omega");

    fixture.Click("cmdApply");

    QCOMPARE(fixture.NewDirect().ConWpCount, 1);
    QCOMPARE(fixture.NewDirect().GetConWpName(1), "SNMP");
    QCOMPARE(fixture.NewDirect().GetConWpName(2), "");
}

void TestFrmDirectPropApply::Apply_Refused_TellsAndKeepsTheInput_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("targetIsRefused");
    QTest::addColumn<QString>("text");
    const QString parameters =
        "Error in waypoint parameters or mandatory waypoint is missing all its parameters.";
    QTest::newRow("no name") << "" << false << "Give Connection Name.";
    QTest::newRow("blanks") << "  " << false << "Give Connection Name.";
    QTest::newRow("target") << "Omega" << true << parameters;
    QTest::newRow("no name, and target") << "" << true << "Give Connection Name.";
}

void TestFrmDirectPropApply::Apply_Refused_TellsAndKeepsTheInput()
{
    QFETCH(QString, name);
    QFETCH(bool, targetIsRefused);
    QFETCH(QString, text);
    DirectPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.Name().clear();
    fixture.TypeName(name);
    if (targetIsRefused)
        fixture.Component.Answer("CheckTargetSyntax", {"", "ERROR"});
    const QStringList held = fixture.Held();

    fixture.Click("cmdApply");

    QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Plain(text)});
    QVERIFY(fixture.Form->isVisible());
    QCOMPARE(fixture.Name().text(), name);
    QCOMPARE(fixture.Held(), held);
    QCOMPARE(fixture.NewDirect().ConName, "Mine");
}

void TestFrmDirectPropApply::Apply_RefusedThenCancelled_PutsTheConnectionBack()
{
    DirectPropFixture fixture;
    fixture.EditDirect("Alpha");
    const QStringList held = fixture.Held();
    fixture.Show();
    fixture.SetDirectValue(1, "99");
    fixture.TypeName("Omega");
    fixture.Component.Answer("CheckTargetSyntax", {"", "ERROR"});
    fixture.Click("cmdApply");

    fixture.Click("cmdCancel");

    QCOMPARE(fixture.Held(), held);
    QCOMPARE(fixture.Direct().TargetString, "");
}

void TestFrmDirectPropApply::Apply_WithoutARecord_NeedsNone()
{
    DirectPropFixture fixture;
    fixture.Edit("Gamma");
    fixture.TypeName("Omega");
    fixture.RemoveElsewhere("Gamma");

    fixture.Click("cmdApply");

    QVERIFY(!fixture.Form->isVisible());
    QCOMPARE(fixture.NewDirect().ConName, "Omega");
}

void TestFrmDirectPropApply::Apply_ByAccessKey_Applies()
{
    DirectPropFixture fixture;
    fixture.Edit("Gamma");
    fixture.TypeName("Omega");

    QTest::keyClick(&fixture.Name(), Qt::Key_A, Qt::AltModifier);

    QTRY_VERIFY(!fixture.Form->isVisible());
    QCOMPARE(fixture.NewDirect().ConName, "Omega");
}

void TestFrmDirectPropApply::Applied_ShownAgain_CanBeSaved_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("as a new one") << "Omega";
    QTest::newRow("over its record") << "Alpha";
}

void TestFrmDirectPropApply::Applied_ShownAgain_CanBeSaved()
{
    QFETCH(QString, name);
    DirectPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.SetDirectValue(1, "99");
    fixture.TypeName(name);
    fixture.Click("cmdApply");
    // As the Direct tab takes it.
    fixture.Direct().Copy(fixture.NewDirect());

    fixture.Show();
    fixture.Click("cmdSave");

    QVERIFY(!fixture.Form->isVisible());
    QVERIFY(fixture.Operator.Boxes.empty());
    const QString target = QString(SaveFixture::AlphaTarget).replace("ID=254", "ID=99");
    QVERIFY(fixture.Records().contains(name + '|' + target));
    QCOMPARE(fixture.Direct().ConDbID, fixture.IdOfConnection(name));
    QCOMPARE(fixture.NewDirect().ConName, "");
    QCOMPARE(fixture.TreeContents(), SaveFixture::FreshTreeContents());
}

QTEST_MAIN(TestFrmDirectPropApply)
#include "TestFrmDirectPropApply.moc"
