#include "tests/dialogs/ConPropFixture.h"
#include "tests/dialogs/OnDatabase.h"

#include <QTest>

namespace {

const QString Changed = QStringLiteral("Save is prevented, because another application has changed this "
                                       "connection. Close dialog and try again.");

using DialogOnDatabase = OnDatabase<ConPropFixture>;

} // namespace

/// Whole saves of the connection dialog on a database.
class TestFrmDatabaseConPropOnDatabase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Save_New_IsStored();
    void Save_NewFromNothing_IsStoredWithItsType();
    void Save_Rename_KeepsTheNodes();
    void Save_Retarget_TakesANewId();
    void Save_RenameAndRetype_IsStored();
    void Save_Replace_KeepsTheNodes();
    void Save_ReplaceCancelled_KeepsTheRecord();
    void Save_ChangedElsewhere_IsPrevented();
    void Save_DeletedElsewhere_IsPrevented();
    void Save_DeletedAndMadeAnewElsewhere_IsPrevented();
    void Save_NameOfANode_IsRefused_data();
    void Save_NameOfANode_IsRefused();
    void Save_HeldByAnother_IsDenied();
    void Save_TwiceInARow_GoesOn();
    void Load_ManyConnections_OpensAtOnce();
};

void TestFrmDatabaseConPropOnDatabase::Save_New_IsStored()
{
    DialogOnDatabase dialog;
    dialog.Fixture.AddCopyOf("Alpha");
    dialog.Fixture.TypeName("Omega");

    dialog.Fixture.Click("cmdSave");

    QVERIFY(!dialog.Fixture.Form->isVisible());
    QCOMPARE(dialog.TargetOf("Omega"), DatabaseFixture::AlphaTarget);
    QCOMPARE(QString::number(dialog.Fixture.Con().ConDbID), dialog.IdOf("Omega"));
    QVERIFY(dialog.TreesAgree());
    QVERIFY(dialog.IsFree());
    QVERIFY(dialog.Fixture.Operator.Boxes.empty());
}

void TestFrmDatabaseConPropOnDatabase::Save_NewFromNothing_IsStoredWithItsType()
{
    DialogOnDatabase dialog;
    dialog.Fixture.AddFromNothing();
    dialog.Fixture.ChooseType(dialog.Fixture.TypeTexts()[1]);
    dialog.Fixture.TypeName("Omega");

    dialog.Fixture.Click("cmdSave");

    QVERIFY(!dialog.Fixture.Form->isVisible());
    QString analysis;
    dialog.Other->AnalyzeConType(dialog.TargetOf("Omega"), analysis);
    QVERIFY2(analysis.startsWith("1\t"), qPrintable(analysis));
    QVERIFY(dialog.TreesAgree());
}

void TestFrmDatabaseConPropOnDatabase::Save_Rename_KeepsTheNodes()
{
    DialogOnDatabase dialog;
    dialog.Fixture.Edit("Alpha");
    dialog.Fixture.TypeName("Omega");

    dialog.Fixture.Click("cmdSave");

    QCOMPARE(dialog.TargetOf("Omega"), DatabaseFixture::AlphaTarget);
    QCOMPARE(dialog.TargetOf("Alpha"), "there is none");
    qint32 count = 0;
    dialog.Other->GetParentNodesCount("Omega", count);
    QCOMPARE(count, 2);
    QVERIFY(dialog.TreesAgree());
}

void TestFrmDatabaseConPropOnDatabase::Save_Retarget_TakesANewId()
{
    DialogOnDatabase dialog;
    const QString before = dialog.IdOf("Gamma");
    dialog.Fixture.Edit("Gamma");
    dialog.Fixture.SetValue(1, "1");

    dialog.Fixture.Click("cmdSave");

    QVERIFY(dialog.TargetOf("Gamma").startsWith("WP=SNMP,VERSION=1,"));
    QVERIFY(dialog.IdOf("Gamma") != before);
    QCOMPARE(QString::number(dialog.Fixture.Con().ConDbID), dialog.IdOf("Gamma"));
    QVERIFY(dialog.TreesAgree());
}

void TestFrmDatabaseConPropOnDatabase::Save_RenameAndRetype_IsStored()
{
    DialogOnDatabase dialog;
    dialog.Fixture.Edit("Gamma");
    dialog.Fixture.ChooseType(dialog.Fixture.TypeTexts()[0]);
    dialog.Fixture.SetValue(1, "5");
    dialog.Fixture.TypeName("Omega");

    dialog.Fixture.Click("cmdSave");

    QCOMPARE(dialog.TargetOf("Gamma"), "there is none");
    QVERIFY(dialog.TargetOf("Omega").startsWith("WP=BUST4,ID=5"));
    QVERIFY(dialog.TreesAgree());
}

void TestFrmDatabaseConPropOnDatabase::Save_Replace_KeepsTheNodes()
{
    DialogOnDatabase dialog;
    dialog.Fixture.EditConnection("Beta");
    dialog.Fixture.Con().ConName = "Alpha";
    dialog.Fixture.Con().NewCon = true;
    dialog.Fixture.Show();
    bool freeUnderBox = false;
    dialog.Fixture.Operator.WhileOpen = [&](const RecordedBox&) { freeUnderBox = dialog.IsFree(); };

    dialog.Fixture.Click("cmdSave");

    QCOMPARE(dialog.Fixture.Operator.Texts(),
             QStringList{"Connection Alpha exists in database. Do you want to replace it ?"});
    QVERIFY(freeUnderBox);
    QCOMPARE(dialog.TargetOf("Alpha"), DatabaseFixture::BetaTarget);
    qint32 count = 0;
    dialog.Other->GetParentNodesCount("Alpha", count);
    QCOMPARE(count, 2);
    QVERIFY(dialog.TreesAgree());
}

void TestFrmDatabaseConPropOnDatabase::Save_ReplaceCancelled_KeepsTheRecord()
{
    DialogOnDatabase dialog;
    dialog.Fixture.EditConnection("Beta");
    dialog.Fixture.Con().ConName = "Alpha";
    dialog.Fixture.Con().NewCon = true;
    dialog.Fixture.Show();
    dialog.Fixture.Operator.Answers = {BoxAnswer::Cancel};

    dialog.Fixture.Click("cmdSave");

    QVERIFY(dialog.Fixture.Form->isVisible());
    QCOMPARE(dialog.TargetOf("Alpha"), DatabaseFixture::AlphaTarget);
    QVERIFY(dialog.IsFree());
    QVERIFY(dialog.TreesAgree());
}

void TestFrmDatabaseConPropOnDatabase::Save_ChangedElsewhere_IsPrevented()
{
    DialogOnDatabase dialog;
    dialog.Fixture.Edit("Gamma");
    dialog.Fixture.TypeName("Omega");
    dialog.Other->ReplaceParentTarget("Gamma", "WP=SNMP,VERSION=1");

    dialog.Fixture.Click("cmdSave");

    QCOMPARE(dialog.Fixture.Operator.Texts(), QStringList{Changed});
    QVERIFY(dialog.Fixture.Form->isVisible());
    QCOMPARE(dialog.TargetOf("Gamma"), "WP=SNMP,VERSION=1");
    QCOMPARE(dialog.TargetOf("Omega"), "there is none");
    QVERIFY(dialog.IsFree());
}

void TestFrmDatabaseConPropOnDatabase::Save_DeletedElsewhere_IsPrevented()
{
    DialogOnDatabase dialog;
    dialog.Fixture.Edit("Gamma");
    dialog.Other->DeleteParent("Gamma", true);

    dialog.Fixture.Click("cmdSave");

    QCOMPARE(dialog.Fixture.Operator.Texts(), QStringList{Changed});
    QVERIFY(dialog.Fixture.Form->isVisible());
    QCOMPARE(dialog.TargetOf("Gamma"), "there is none");
}

void TestFrmDatabaseConPropOnDatabase::Save_DeletedAndMadeAnewElsewhere_IsPrevented()
{
    DialogOnDatabase dialog;
    dialog.Fixture.Edit("Gamma");
    dialog.Other->DeleteParent("Gamma", true);
    dialog.Other->SaveParent("Gamma", DatabaseFixture::GammaTarget);

    dialog.Fixture.Click("cmdSave");

    QCOMPARE(dialog.Fixture.Operator.Texts(), QStringList{Changed});
    QVERIFY(dialog.Fixture.Form->isVisible());
    QCOMPARE(dialog.TargetOf("Gamma"), DatabaseFixture::GammaTarget);
}

void TestFrmDatabaseConPropOnDatabase::Save_NameOfANode_IsRefused_data()
{
    QTest::addColumn<bool>("isNew");

    QTest::newRow("new") << true;
    QTest::newRow("rename") << false;
}

void TestFrmDatabaseConPropOnDatabase::Save_NameOfANode_IsRefused()
{
    QFETCH(bool, isNew);
    DialogOnDatabase dialog;
    if (isNew)
        dialog.Fixture.AddCopyOf("Gamma");
    else
        dialog.Fixture.Edit("Gamma");
    dialog.Fixture.TypeName("North");

    dialog.Fixture.Click("cmdSave");

    QCOMPARE(dialog.Fixture.Operator.Texts(),
             QStringList{"Node name North already exists in the database. No saving, because connections and "
                         "nodes cannot share the same name."});
    QVERIFY(dialog.Fixture.Form->isVisible());
    QVERIFY(dialog.IsFree());
    QVERIFY(dialog.TreesAgree());
}

void TestFrmDatabaseConPropOnDatabase::Save_HeldByAnother_IsDenied()
{
    DialogOnDatabase().SaveWhileHeldByAnother();
}

void TestFrmDatabaseConPropOnDatabase::Save_TwiceInARow_GoesOn()
{
    DialogOnDatabase dialog;
    dialog.Fixture.Edit("Gamma");
    dialog.Fixture.Click("cmdSave");

    dialog.Fixture.Edit("Gamma");
    dialog.Fixture.Click("cmdSave");

    QVERIFY(dialog.Fixture.Operator.Boxes.empty());
    QVERIFY(!dialog.Fixture.Form->isVisible());
    QVERIFY(dialog.TreesAgree());
}

void TestFrmDatabaseConPropOnDatabase::Load_ManyConnections_OpensAtOnce()
{
    DatabaseFixture file;
    const std::unique_ptr<HvxAdministration> administration = HvxAdministration::Open(file.Source());
    const std::unique_ptr<HvxBulkWriter> writer = administration->BeginBulkWrite();
    constexpr int connections = 20'000;
    for (int k = 0; k < connections; ++k)
        writer->AddConnection(QStringLiteral("Line %1").arg(k), DatabaseFixture::AlphaTarget);
    writer->Commit();
    HvxDatabaseComponent* component = nullptr;
    const QString source = file.Source();
    ConPropFixture fixture([&component, source] {
        RegisterComponent(HvxDatabaseId, [&component, source] {
            auto made = std::make_unique<HvxDatabaseComponent>(source);
            component = made.get();
            return made;
        });
    });
    fixture.EditConnection("Line 19999");
    const qint64 before = component->StatementCount();

    fixture.Show();

    QCOMPARE(fixture.Name().text(), "Line 19999");
    // One question for the nodes, within its transaction; the definitions are in memory.
    QVERIFY(component->StatementCount() - before <= 6);
}

QTEST_MAIN(TestFrmDatabaseConPropOnDatabase)
#include "TestFrmDatabaseConPropOnDatabase.moc"
