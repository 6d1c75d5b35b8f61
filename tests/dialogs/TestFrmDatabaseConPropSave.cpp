#include "tests/dialogs/ConPropFixture.h"

#include <QAbstractItemModelTester>
#include <QTest>

/// Saves from the connection dialog: what is written, and that the dialog closes then.
class TestFrmDatabaseConPropSave : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Save_NewConnection_WritesAndCloses();
    void Save_NewConnectionFromNothing_WritesTheTypeShown();
    void Save_Rename_RenamesAndRetargets();
    void Save_SameName_RetargetsOnly();
    void Save_RenameAndRetype_IsOneTransaction();
    void Save_BlanksAtTheEnds_AreRemoved();
    void Save_NameOfTheLoadedOneWithBlanks_IsTheSameName();
    void Save_NewWithTakenName_ReplacesWhenAllowed();
    void Save_NewWithTakenName_CancelKeepsTheDialog();
    void Save_ByEnterInTheName_Saves();
    void Save_ByAccessKey_Saves();
    void Save_EnterInTheList_DoesNotSave();
    void Exec_AfterASave_IsAccepted();

private:
    static QString TargetOf(const ConPropFixture& fixture, const QString& name);
};

QString TestFrmDatabaseConPropSave::TargetOf(const ConPropFixture& fixture, const QString& name)
{
    for (const TinyDatabase::Connection& connection : fixture.Component.Store.Now.connections) {
        if (connection.name == name)
            return connection.target;
    }
    return QStringLiteral("there is none");
}

void TestFrmDatabaseConPropSave::Save_NewConnection_WritesAndCloses()
{
    ConPropFixture fixture;
    const QAbstractItemModelTester tester(&fixture.ConTree);
    fixture.AddCopyOf("Alpha");
    fixture.TypeName("Omega");
    const int commits = fixture.Component.Store.Commits;

    fixture.Click("cmdSave");

    QVERIFY(!fixture.Form->isVisible());
    QCOMPARE(fixture.Component.Store.Commits, commits + 1);
    QCOMPARE(fixture.Form->result(), int(QDialog::Accepted));
    QCOMPARE(TargetOf(fixture, "Omega"), SaveFixture::AlphaTarget);
    QCOMPARE(fixture.Con().ConName, "Omega");
    QCOMPARE(fixture.Con().ConDbID, fixture.IdOfConnection("Omega"));
    QCOMPARE(fixture.ConTree.Text(fixture.Con().SelectedTreeNodeIndex), "Omega");
    QCOMPARE(fixture.TreeContents(), SaveFixture::FreshTreeContents());
    QVERIFY(fixture.Operator.Boxes.empty());
}

void TestFrmDatabaseConPropSave::Save_NewConnectionFromNothing_WritesTheTypeShown()
{
    ConPropFixture fixture;
    fixture.AddFromNothing();
    fixture.ChooseType("KD7 Mediation Bus");
    fixture.SetValue(1, "12");
    fixture.TypeName("Omega");

    fixture.Click("cmdSave");

    QCOMPARE(TargetOf(fixture, "Omega"), "WP=KD7,BUSID=12");
    QCOMPARE(fixture.TreeContents(), SaveFixture::FreshTreeContents());
}

void TestFrmDatabaseConPropSave::Save_Rename_RenamesAndRetargets()
{
    ConPropFixture fixture;
    const QAbstractItemModelTester tester(&fixture.ConTree);
    fixture.Edit("Alpha");
    fixture.TypeName("Omega");
    fixture.Forget();

    fixture.Click("cmdSave");

    QVERIFY(!fixture.Form->isVisible());
    QCOMPARE(TargetOf(fixture, "Alpha"), "there is none");
    QCOMPARE(TargetOf(fixture, "Omega"), SaveFixture::AlphaTarget);
    QCOMPARE(fixture.Component.Count("ReplaceParentName"), 1);
    QCOMPARE(fixture.Component.Count("ReplaceParentTarget"), 1);
    QCOMPARE(fixture.TreeContents(), SaveFixture::FreshTreeContents());
}

void TestFrmDatabaseConPropSave::Save_SameName_RetargetsOnly()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.SetValue(1, "99");
    fixture.Forget();

    fixture.Click("cmdSave");

    QVERIFY(!fixture.Form->isVisible());
    QVERIFY(TargetOf(fixture, "Alpha").startsWith("WP=BUST4,ID=99,"));
    QCOMPARE(fixture.Component.Count("ReplaceParentName"), 0);
    QCOMPARE(fixture.Component.Count("ReplaceParentTarget"), 1);
    QCOMPARE(fixture.TreeContents(), SaveFixture::FreshTreeContents());
}

void TestFrmDatabaseConPropSave::Save_RenameAndRetype_IsOneTransaction()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.ChooseType("KD7 Mediation Bus");
    fixture.SetValue(1, "5");
    fixture.TypeName("Omega");
    const int commits = fixture.Component.Store.Commits;

    fixture.Click("cmdSave");

    QCOMPARE(fixture.Component.Store.Commits, commits + 1);
    QCOMPARE(TargetOf(fixture, "Omega"), "WP=KD7,BUSID=5");
    QCOMPARE(TargetOf(fixture, "Alpha"), "there is none");
    QCOMPARE(fixture.TreeContents(), SaveFixture::FreshTreeContents());
}

void TestFrmDatabaseConPropSave::Save_BlanksAtTheEnds_AreRemoved()
{
    ConPropFixture fixture;
    fixture.AddCopyOf("Alpha");
    fixture.TypeName("  Omega  ");

    fixture.Click("cmdSave");

    QCOMPARE(fixture.Name().text(), "Omega");
    QCOMPARE(TargetOf(fixture, "Omega"), SaveFixture::AlphaTarget);
}

void TestFrmDatabaseConPropSave::Save_NameOfTheLoadedOneWithBlanks_IsTheSameName()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.TypeName("Alpha   ");
    fixture.Forget();

    fixture.Click("cmdSave");

    QVERIFY(fixture.Operator.Boxes.empty());
    QVERIFY(!fixture.Form->isVisible());
    QCOMPARE(fixture.Component.Count("ReplaceParentName"), 0);
}

void TestFrmDatabaseConPropSave::Save_NewWithTakenName_ReplacesWhenAllowed()
{
    ConPropFixture fixture;
    // A connection that was prepared under its name, as the scan does.
    fixture.EditConnection("Beta");
    fixture.Con().ConName = "Alpha";
    fixture.Con().NewCon = true;
    fixture.Show();
    fixture.Operator.Answers = {BoxAnswer::Ok};

    fixture.Click("cmdSave");

    const std::vector<RecordedBox> boxes{
        {"Connection Alpha exists in database. Do you want to replace it ?", 1, "Replace Connection"}};
    QCOMPARE(fixture.Operator.Boxes, boxes);
    QCOMPARE(fixture.LevelsUnderBoxes, 0);
    QVERIFY(!fixture.Form->isVisible());
    QCOMPARE(TargetOf(fixture, "Alpha"), SaveFixture::BetaTarget);
    QCOMPARE(fixture.TreeContents(), SaveFixture::FreshTreeContents());
}

void TestFrmDatabaseConPropSave::Save_NewWithTakenName_CancelKeepsTheDialog()
{
    ConPropFixture fixture;
    fixture.EditConnection("Beta");
    fixture.Con().ConName = "Alpha";
    fixture.Con().NewCon = true;
    fixture.Show();
    fixture.Operator.Answers = {BoxAnswer::Cancel};
    const QStringList records = fixture.Records();

    fixture.Click("cmdSave");

    QCOMPARE(fixture.Operator.Boxes.size(), std::size_t(1));
    QVERIFY(fixture.Form->isVisible());
    QVERIFY(fixture.Con().NewCon);
    QCOMPARE(fixture.Records(), records);
    QCOMPARE(fixture.Component.Store.Levels(), 0);
}

void TestFrmDatabaseConPropSave::Save_ByEnterInTheName_Saves()
{
    ConPropFixture fixture;
    fixture.Edit("Gamma");
    fixture.TypeName("Omega");

    QTest::keyClick(&fixture.Name(), Qt::Key_Return);

    QVERIFY(!fixture.Form->isVisible());
    QCOMPARE(TargetOf(fixture, "Omega"), SaveFixture::GammaTarget);
}

void TestFrmDatabaseConPropSave::Save_ByAccessKey_Saves()
{
    ConPropFixture fixture;
    fixture.Edit("Gamma");
    fixture.TypeName("Omega");

    QTest::keyClick(&fixture.Name(), Qt::Key_S, Qt::AltModifier);

    QTRY_VERIFY(!fixture.Form->isVisible());
    QCOMPARE(TargetOf(fixture, "Omega"), SaveFixture::GammaTarget);
}

void TestFrmDatabaseConPropSave::Save_EnterInTheList_DoesNotSave()
{
    ConPropFixture fixture;
    fixture.Edit("Gamma");
    fixture.TypeName("Omega");
    fixture.List().setFocus();
    fixture.Forget();

    QTest::keyClick(&fixture.List(), Qt::Key_Return);

    QVERIFY(fixture.Form->isVisible());
    QCOMPARE(fixture.TakeReads(), QStringList());
    QCOMPARE(fixture.Operator.Texts(),
             QStringList{"Select connection part name or parameter from the listbox."});
}

void TestFrmDatabaseConPropSave::Exec_AfterASave_IsAccepted()
{
    ConPropFixture fixture;
    fixture.EditConnection("Gamma");
    frmDatabaseConProp form(fixture.Con());
    QTimer::singleShot(0, &form, [&form] {
        QTest::keyClicks(form.findChild<QWidget*>("txtConName"), "Omega");
        QTest::mouseClick(form.findChild<QWidget*>("cmdSave"), Qt::LeftButton);
    });

    QCOMPARE(form.exec(), int(QDialog::Accepted));
    QCOMPARE(TargetOf(fixture, "Omega"), SaveFixture::GammaTarget);
}

QTEST_MAIN(TestFrmDatabaseConPropSave)
#include "TestFrmDatabaseConPropSave.moc"
