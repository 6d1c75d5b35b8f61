#include "tests/dialogs/DirectPropFixture.h"
#include "tests/dialogs/WaypointOperator.h"

#include <QTest>

/// When the dialog of the Direct tab's connection offers Apply and Save.
class TestFrmDirectPropChanges : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Unchanged_Stored_OffersNothing_data();
    void Unchanged_Stored_OffersNothing();
    void Unchanged_NotAsStored_OffersBoth_data();
    void Unchanged_NotAsStored_OffersBoth();
    void Name_Changed_OffersUntilItIsBack_data();
    void Name_Changed_OffersUntilItIsBack();
    void Type_Changed_Offers();
    void Type_Back_ComparesTheValues();
    void Type_BackWithTheValues_OffersNothing();
    void Type_OfNoValues_BackOffersNothing();
    void Type_CannotBeLoaded_OffersUntilItIsBack();
    void Value_Changed_OffersUntilItIsBack();
    void Value_LettersAndBlanks_AreNoChange();
    void Value_Shared_OffersUntilItIsBack();
    void Parameters_Shown_ChangeNothing();
    void Rights_DecideWhatIsOffered_data();
    void Rights_DecideWhatIsOffered();

private:
    /// Opens a waypoint's row of the list and enters a value into the parameter that was selected.
    static void Enter(const DirectPropFixture& fixture, int row, const QString& value);
};

void TestFrmDirectPropChanges::Enter(const DirectPropFixture& fixture, int row, const QString& value)
{
    fixture.ClickRow(row);
    const WaypointOperator waypoint("CmdOk", value);
    fixture.Click("cmdProperties");
    QCOMPARE(waypoint.Seen.size(), 1);
}

void TestFrmDirectPropChanges::Unchanged_Stored_OffersNothing_data()
{
    QTest::addColumn<QString>("connection");
    for (const char* name : {"Alpha", "Beta", "Gamma"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestFrmDirectPropChanges::Unchanged_Stored_OffersNothing()
{
    QFETCH(QString, connection);
    DirectPropFixture fixture;
    // What an earlier connection left behind as its saved values is not this one's.
    fixture.EditDirect("Alpha");
    fixture.Direct().SetParamCopy();
    fixture.EditDirect(connection);

    fixture.Show();

    QCOMPARE(fixture.Offered(), "");
}

void TestFrmDirectPropChanges::Unchanged_NotAsStored_OffersBoth_data()
{
    QTest::addColumn<bool>("isNew");
    QTest::newRow("under a name of its own") << true;
    QTest::newRow("under the name of its record") << false;
}

void TestFrmDirectPropChanges::Unchanged_NotAsStored_OffersBoth()
{
    QFETCH(bool, isNew);
    DirectPropFixture fixture;
    fixture.AddDirect("Alpha", isNew ? "Mine" : "Alpha");
    fixture.Direct().NewCon = isNew;

    fixture.Show();

    QCOMPARE(fixture.Offered(), "Apply Save");
}

void TestFrmDirectPropChanges::Name_Changed_OffersUntilItIsBack_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("offered");
    QTest::newRow("other") << "Omega"
                           << "Apply Save";
    QTest::newRow("longer") << "Alpha 2"
                            << "Apply Save";
    QTest::newRow("blanks at the ends") << "  Alpha "
                                        << "";
    QTest::newRow("other letters") << "aLPHA"
                                   << "";
    QTest::newRow("only blanks") << "   "
                                 << "Apply Save";
}

void TestFrmDirectPropChanges::Name_Changed_OffersUntilItIsBack()
{
    QFETCH(QString, name);
    QFETCH(QString, offered);
    DirectPropFixture fixture;
    fixture.Edit("Alpha");

    fixture.TypeName(name);
    QCOMPARE(fixture.Offered(), offered);
    fixture.TypeName("Alpha");

    QCOMPARE(fixture.Offered(), "");
}

void TestFrmDirectPropChanges::Type_Changed_Offers()
{
    DirectPropFixture fixture;
    fixture.Edit("Alpha");

    fixture.ChooseType("SNMP Direct");

    QCOMPARE(fixture.Offered(), "Apply Save");
}

void TestFrmDirectPropChanges::Type_Back_ComparesTheValues()
{
    DirectPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.ChooseType("SNMP Direct");

    fixture.ChooseType("T4 Bus");

    // They are empty now.
    QCOMPARE(fixture.Offered(), "Apply Save");
}

void TestFrmDirectPropChanges::Type_BackWithTheValues_OffersNothing()
{
    DirectPropFixture fixture;
    fixture.Edit("Gamma");
    fixture.ChooseType("T4 Bus");
    fixture.SetDirectValue(1, "9");
    fixture.Direct().SetParamCopy();
    fixture.ChooseType("SNMP Direct");
    QCOMPARE(fixture.Offered(), "Apply Save");

    // The others get their defaults, which are what was stored.
    fixture.ShowParameters();
    Enter(fixture, 2, "2c");

    QCOMPARE(fixture.Offered(), "");
}

void TestFrmDirectPropChanges::Type_OfNoValues_BackOffersNothing()
{
    DirectPropFixture fixture;
    fixture.AddStored("Bare", "WP=BUST4");
    fixture.Edit("Bare");
    fixture.ChooseType("SNMP Direct");

    fixture.ChooseType("T4 Bus");

    QCOMPARE(fixture.Offered(), "");
}

void TestFrmDirectPropChanges::Type_CannotBeLoaded_OffersUntilItIsBack()
{
    DirectPropFixture fixture;
    fixture.Edit("Gamma");
    fixture.Component.FailTimes("GetWpParameters", 1);

    fixture.ChooseType("T4 Bus");
    QCOMPARE(fixture.Rows(), QStringList());
    QCOMPARE(fixture.Offered(), "Apply Save");
    fixture.ChooseType("SNMP Direct");
    QCOMPARE(fixture.Offered(), "Apply Save");
    fixture.ShowParameters();
    Enter(fixture, 2, "2c");

    QCOMPARE(fixture.Offered(), "");
}

void TestFrmDirectPropChanges::Value_Changed_OffersUntilItIsBack()
{
    DirectPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.ShowParameters();

    Enter(fixture, 2, "99");
    QCOMPARE(fixture.Offered(), "Apply Save");
    Enter(fixture, 2, "254");

    QCOMPARE(fixture.Offered(), "");
}

void TestFrmDirectPropChanges::Value_LettersAndBlanks_AreNoChange()
{
    DirectPropFixture fixture;
    fixture.Edit("Gamma");
    fixture.ShowParameters();

    fixture.SetDirectValue(1, "2C ");
    fixture.ShowParameters();
    QCOMPARE(fixture.Offered(), "");
    fixture.SetDirectValue(1, "2d");
    fixture.ShowParameters();
    QCOMPARE(fixture.Offered(), "Apply Save");
}

void TestFrmDirectPropChanges::Value_Shared_OffersUntilItIsBack()
{
    DirectPropFixture fixture;
    Model().TimeRetryNames = {"TIME OUT", "RETRY COUNT"};
    fixture.Edit("Beta");
    fixture.ShowParameters();

    Enter(fixture, 5, "777");
    QCOMPARE(fixture.Direct().GetWpData(2).GetWpParam(3, 2), "777");
    QCOMPARE(fixture.Offered(), "Apply Save");
    Enter(fixture, 5, "2000");

    QCOMPARE(fixture.Offered(), "");
}

void TestFrmDirectPropChanges::Parameters_Shown_ChangeNothing()
{
    DirectPropFixture fixture;
    fixture.Edit("Alpha");

    fixture.ShowParameters();

    QVERIFY(fixture.Rows().size() > 2);
    QCOMPARE(fixture.Offered(), "");
}

void TestFrmDirectPropChanges::Rights_DecideWhatIsOffered_data()
{
    QTest::addColumn<bool>("scan");
    QTest::addColumn<bool>("edit");
    QTest::addColumn<QString>("offered");
    QTest::newRow("both") << true << true << "Apply Save";
    QTest::newRow("scan") << true << false << "Apply";
    QTest::newRow("edit") << false << true << "Save";
    QTest::newRow("none") << false << false << "";
}

void TestFrmDirectPropChanges::Rights_DecideWhatIsOffered()
{
    QFETCH(bool, scan);
    QFETCH(bool, edit);
    QFETCH(QString, offered);
    DirectPropFixture fixture;
    Database().ScanRight = scan;
    Database().EditRight = edit;
    fixture.Edit("Alpha");
    QCOMPARE(fixture.Offered(), "");

    fixture.TypeName("Omega");
    QCOMPARE(fixture.Offered(), offered);
    fixture.Forget();
    QTest::keyClick(&fixture.Name(), Qt::Key_Return);

    QCOMPARE(fixture.Form->isVisible(), !edit);
    QCOMPARE(fixture.Component.Calls.isEmpty(), !edit);
}

QTEST_MAIN(TestFrmDirectPropChanges)
#include "TestFrmDirectPropChanges.moc"
