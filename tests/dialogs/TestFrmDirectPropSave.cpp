#include "tests/database/SaveExpectations.h"
#include "tests/dialogs/DirectPropFixture.h"

#include <QAbstractItemModelTester>

/// Save in the dialog of the Direct tab's connection: when it closes, and what stays when it does not.
class TestFrmDirectPropSave : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Save_OverTheRecord_WritesAndCloses();
    void Save_OtherName_WritesAndCloses();
    void Save_OtherType_IsWritten();
    void Save_BlanksAtTheEnds_AreRemoved();
    void Save_ByEnterInTheName_Saves();
    void Save_Closed_KeepsTheChanges();
    void Save_Refused_TellsAndKeepsTheInput_data();
    void Save_Refused_TellsAndKeepsTheInput();
    void Save_NewWithATakenName_TellsAndKeepsTheInput();
    void Save_Denied_TellsAndKeepsTheInput();
    void Save_CommitFails_KeepsTheInput();
    void Save_AfterARefusal_CanBeRepeated();
    void Save_EachCallFails_ClosesOnlyWhenSaved();

private:
    static void CheckSaved(const DirectPropFixture& fixture, const QString& name, const QString& target);
    /// The dialog is as it was, and so is the database.
    static void CheckNothingSaved(const DirectPropFixture& fixture, const QStringList& records,
                                  const QStringList& held);
};

using namespace SaveTexts;

void TestFrmDirectPropSave::CheckSaved(const DirectPropFixture& fixture, const QString& name,
                                       const QString& target)
{
    QVERIFY(!fixture.Form->isVisible());
    QCOMPARE(fixture.Form->result(), int(QDialog::Accepted));
    QVERIFY(fixture.Operator.Boxes.empty());
    QVERIFY2(fixture.Records().contains(name + '|' + target), qPrintable(fixture.Records().join('\n')));
    QCOMPARE(fixture.Direct().ConName, name);
    QCOMPARE(fixture.Direct().ConDbID, fixture.IdOfConnection(name));
    QVERIFY(fixture.Direct().SelectPressed);
    QCOMPARE(fixture.NewDirect().ConName, "");
    QCOMPARE(fixture.TreeContents(), SaveFixture::FreshTreeContents());
}

void TestFrmDirectPropSave::CheckNothingSaved(const DirectPropFixture& fixture, const QStringList& records,
                                              const QStringList& held)
{
    QVERIFY(fixture.Form->isVisible());
    QCOMPARE(fixture.Held(), held);
    QCOMPARE(fixture.NewDirect().ConName, "Mine");
    QCOMPARE(fixture.Records(), records);
    QCOMPARE(fixture.Component.Store.Levels(), 0);
    QCOMPARE(fixture.LevelsUnderBoxes, 0);
    QCOMPARE(fixture.TreeContents(), SaveFixture::FreshTreeContents());
}

void TestFrmDirectPropSave::Save_OverTheRecord_WritesAndCloses()
{
    DirectPropFixture fixture;
    const QAbstractItemModelTester tester(&fixture.ConTree);
    fixture.Edit("Gamma");
    fixture.SetDirectValue(1, "1");
    fixture.ShowParameters();

    fixture.Click("cmdSave");

    CheckSaved(fixture, "Gamma", "WP=SNMP,VERSION=1,TIME=2000,RETRY=2");
    QCOMPARE(fixture.Component.Count("SaveParent"), 0);
}

void TestFrmDirectPropSave::Save_OtherName_WritesAndCloses()
{
    DirectPropFixture fixture;
    const QAbstractItemModelTester tester(&fixture.ConTree);
    fixture.Edit("Gamma");
    fixture.TypeName("Omega");

    fixture.Click("cmdSave");

    CheckSaved(fixture, "Omega", SaveFixture::GammaTarget);
    QVERIFY(fixture.IdOfConnection("Gamma") != 0);
}

void TestFrmDirectPropSave::Save_OtherType_IsWritten()
{
    DirectPropFixture fixture;
    fixture.Edit("Gamma");
    fixture.ChooseType("KD7 Mediation Bus");
    fixture.SetDirectValue(1, "12");

    fixture.Click("cmdSave");

    CheckSaved(fixture, "Gamma", "WP=KD7,BUSID=12");
    QCOMPARE(fixture.Direct().ConTypeName, "KD7");
    QCOMPARE(fixture.Direct().ConTypeID, 2);
}

void TestFrmDirectPropSave::Save_BlanksAtTheEnds_AreRemoved()
{
    DirectPropFixture fixture;
    fixture.Edit("Gamma");
    fixture.TypeName("  Omega ");

    fixture.Click("cmdSave");

    QCOMPARE(fixture.Name().text(), "Omega");
    CheckSaved(fixture, "Omega", SaveFixture::GammaTarget);
}

void TestFrmDirectPropSave::Save_ByEnterInTheName_Saves()
{
    DirectPropFixture fixture;
    fixture.Edit("Gamma");
    fixture.TypeName("Omega");

    QTest::keyClick(&fixture.Name(), Qt::Key_Return);

    CheckSaved(fixture, "Omega", SaveFixture::GammaTarget);
}

void TestFrmDirectPropSave::Save_Closed_KeepsTheChanges()
{
    DirectPropFixture fixture;
    fixture.Edit("Gamma");
    fixture.TypeName("Omega");
    fixture.SetDirectValue(1, "1");
    fixture.Click("cmdSave");

    fixture.Form.reset();

    QCOMPARE(fixture.Direct().ConName, "Omega");
    QCOMPARE(fixture.Direct().GetWpData(1).GetWpParam(1, 2), "1");
    QVERIFY(fixture.Direct().SelectPressed);
}

void TestFrmDirectPropSave::Save_Refused_TellsAndKeepsTheInput_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("left");
    QTest::addColumn<std::vector<RecordedBox>>("boxes");
    const RecordedBox reserved =
        RecordedBox::Error("'New Connection' cannot be used as a connection name, give a new name.");
    const RecordedBox failed = RecordedBox::Plain("Error in connection database saving.");
    const RecordedBox taken = RecordedBox::Plain("Connection Beta already exists. Give a new name.");
    QTest::newRow("blanks") << "  "
                            << "" << std::vector{RecordedBox::Plain(NoSaving)};
    QTest::newRow("reserved") << "NEW connection "
                              << "NEW connection" << std::vector{reserved};
    QTest::newRow("taken") << "Beta "
                           << "Beta" << std::vector{taken, failed};
    QTest::newRow("name of a node") << "North"
                                    << "North"
                                    << std::vector{
                                           RecordedBox::Error(UnknownError),
                                           RecordedBox::Plain("Database error, failure in SaveParent.")};
}

void TestFrmDirectPropSave::Save_Refused_TellsAndKeepsTheInput()
{
    QFETCH(QString, typed);
    QFETCH(QString, left);
    QFETCH(std::vector<RecordedBox>, boxes);
    DirectPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.TypeName(typed);
    const QStringList records = fixture.Records();
    const QStringList held = fixture.Held();

    fixture.Click("cmdSave");

    QCOMPARE(fixture.Operator.Boxes, boxes);
    QCOMPARE(fixture.Name().text(), left);
    CheckNothingSaved(fixture, records, held);
}

void TestFrmDirectPropSave::Save_NewWithATakenName_TellsAndKeepsTheInput()
{
    DirectPropFixture fixture;
    fixture.EditApplied("Alpha", "Mine");
    fixture.TypeName("Beta");
    const QStringList records = fixture.Records();
    const QStringList held = fixture.Held();

    fixture.Click("cmdSave");

    QCOMPARE(fixture.Operator.Boxes,
             std::vector{RecordedBox::Plain("Error: Connection name Beta alredy exists in database.")});
    CheckNothingSaved(fixture, records, held);
}

void TestFrmDirectPropSave::Save_Denied_TellsAndKeepsTheInput()
{
    DirectPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.TypeName("Omega");
    const QStringList records = fixture.Records();
    const QStringList held = fixture.Held();
    fixture.Component.Fail("BeginTransaction");

    fixture.Click("cmdSave");

    QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Error(Denied)});
    fixture.Component.Repair();
    CheckNothingSaved(fixture, records, held);
}

void TestFrmDirectPropSave::Save_CommitFails_KeepsTheInput()
{
    DirectPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.TypeName("Omega");
    const QStringList records = fixture.Records();
    const QStringList held = fixture.Held();
    fixture.Component.BeforeCall = [&](const QString& call) {
        if (call == "CommitTransaction(1)" && fixture.Component.Store.Levels() == 1)
            fixture.Component.FailTimes("CommitTransaction", 1);
    };

    fixture.Click("cmdSave");

    QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Error(CommitFailure)});
    QCOMPARE(fixture.Name().text(), "Omega");
    fixture.Component.BeforeCall = {};
    CheckNothingSaved(fixture, records, held);
}

void TestFrmDirectPropSave::Save_AfterARefusal_CanBeRepeated()
{
    DirectPropFixture fixture;
    fixture.Edit("Gamma");
    fixture.TypeName("Beta");
    fixture.Click("cmdSave");
    fixture.Forget();

    fixture.TypeName("Omega");
    fixture.Click("cmdSave");

    CheckSaved(fixture, "Omega", SaveFixture::GammaTarget);
}

void TestFrmDirectPropSave::Save_EachCallFails_ClosesOnlyWhenSaved()
{
    // The first run meets no failure.
    int calls = 0;
    int closed = 0;
    for (int k = 0; k <= calls; ++k) {
        DirectPropFixture fixture;
        fixture.Edit("Gamma");
        fixture.TypeName("Omega");
        const QStringList held = fixture.Held();
        fixture.Forget();
        if (k > 0)
            fixture.Component.FailCall(k, DatabaseErrorNumber::Refused);

        fixture.Click("cmdSave");

        if (k == 0)
            calls = static_cast<int>(fixture.Component.Calls.size());
        if (fixture.Form->isVisible()) {
            QCOMPARE(fixture.Held(), held);
            QVERIFY(!fixture.Operator.Boxes.empty());
        } else {
            QVERIFY(fixture.IdOfConnection("Omega") != 0);
            QVERIFY(fixture.Direct().SelectPressed);
            ++closed;
        }
    }
    QVERIFY(calls > 20);
    // A type that cannot be read does not hold up a save.
    QCOMPARE(closed, 2);
}

QTEST_MAIN(TestFrmDirectPropSave)
#include "TestFrmDirectPropSave.moc"
