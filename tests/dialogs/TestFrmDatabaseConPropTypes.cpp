#include "tests/dialogs/ConPropFixture.h"

#include <QTest>

namespace {

const QString NoSaving = QStringLiteral(
    "No saving, because of an error in waypoint parameters or mandatory waypoint is missing all its "
    "parameters.");

} // namespace

/// Changes of the connection's type: what forbids them, what they load, what a failure leaves.
class TestFrmDatabaseConPropTypes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Type_Other_LoadsItsWaypoints();
    void Type_Other_AsksForItsDefinitions();
    void Type_Other_WithParametersShown_ShowsThem();
    void Type_SameAgain_DoesNothing();
    void Type_ByKeyboard_Changes();
    void Type_WithNodes_data();
    void Type_WithNodes();
    void Type_CountFailed_IsLikeOneNode();
    void Type_SnmpWithoutNodes_Changes();
    void Type_NewConnection_IsNotHeldByNodes();
    void Type_SimpleForScannedNodes_data();
    void Type_SimpleForScannedNodes();
    void Type_OtherForScannedNodes_Changes();
    void Type_Refused_KeepsTheValues();
    void Type_LoadFails_ClearsTheListAndSavesNothing_data();
    void Type_LoadFails_ClearsTheListAndSavesNothing();
    void Type_LoadFails_OldTypeLoadsAgain();
    void Type_LoadFails_ThenRefusedType_OldTypeLoadsAgain();
    void Type_DamagedDefinition_TellsTheError();
    void Type_UnknownAgain_LoadsTheStoredWaypoints();
};

void TestFrmDatabaseConPropTypes::Type_Other_LoadsItsWaypoints()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");

    fixture.ChooseType("KD7 Mediation Bus");

    const QStringList rows{"KD7 Bus", "Options"};
    QCOMPARE(fixture.Rows(), rows);
    QCOMPARE(fixture.Types().currentText(), "KD7 Mediation Bus");
    QCOMPARE(fixture.Con().ConTypeID, 2);
    QCOMPARE(fixture.Con().ConWpCount, 2);
    QCOMPARE(fixture.Con().GetConWpName(1), "KD7");
    QCOMPARE(fixture.Con().GetWpData(1).GetWpParam(1, 2), "");
    QCOMPARE(fixture.ShownPicture(), 2);
    QVERIFY(fixture.Operator.Boxes.empty());
}

void TestFrmDatabaseConPropTypes::Type_Other_AsksForItsDefinitions()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.Forget();

    fixture.ChooseType("SNMP Direct");

    const QStringList reads{"GetConTypeShortName(SNMP Direct)",
                            "GetConTypeId(SNMP)",
                            "GetConTypeWpList(,14)",
                            "GetWpLongName(SNMP)",
                            "GetWpParameters(SNMP,0)",
                            "GetWpParametersLongNames(SNMP,0)",
                            "GetTargetItemList()"};
    QCOMPARE(fixture.TakeReads(), reads);
}

void TestFrmDatabaseConPropTypes::Type_Other_WithParametersShown_ShowsThem()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.ShowParameters();

    fixture.ChooseType("SNMP Direct");

    const QStringList rows{"SNMP||", "     VERSION|2c|D", "     TIME OUT|2000|D", "     RETRY COUNT|2|D"};
    QCOMPARE(fixture.Rows(), rows);
}

void TestFrmDatabaseConPropTypes::Type_SameAgain_DoesNothing()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.Forget();

    fixture.ChooseType("T4 Bus");

    QCOMPARE(fixture.TakeReads(), QStringList());
    QCOMPARE(fixture.Con().GetWpData(1).GetWpParam(1, 2), "254");
}

void TestFrmDatabaseConPropTypes::Type_ByKeyboard_Changes()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.Types().setFocus();

    QTest::keyClick(&fixture.Types(), Qt::Key_Down);

    QCOMPARE(fixture.Types().currentText(), "T4 Bus over TCP/IP");
    const QStringList rows{"TCP/IP Socket", "T4 Bus", "Options"};
    QCOMPARE(fixture.Rows(), rows);
    QCOMPARE(fixture.ShownPicture(), 1);
}

void TestFrmDatabaseConPropTypes::Type_WithNodes_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("oldType");
    QTest::addColumn<QString>("newType");
    QTest::addColumn<QString>("refusal");

    const QString bus = "WP=BUST4,ID=1";
    const QString snmp = "WP=SNMP,VERSION=1";
    const QString fixed = "Connection type cannot be changed, because the %1 connection already has node(s).";
    QTest::newRow("SNMP to bus") << snmp << "SNMP Direct"
                                 << "T4 Bus" << fixed.arg("T4 Bus");
    QTest::newRow("SNMP to simple") << snmp << "SNMP Direct"
                                    << "Simple Serial" << fixed.arg("Simple Serial");
    QTest::newRow("bus to simple")
        << bus << "T4 Bus"
        << "Simple Serial"
        << "Simple Serial cannot be used, because the connection already has node(s).";
    QTest::newRow("bus to SNMP") << bus << "T4 Bus"
                                 << "SNMP Direct"
                                 << "";
    QTest::newRow("bus to bus") << bus << "T4 Bus"
                                << "T4 Bus over TCP/IP"
                                << "";
}

void TestFrmDatabaseConPropTypes::Type_WithNodes()
{
    QFETCH(QString, target);
    QFETCH(QString, oldType);
    QFETCH(QString, newType);
    QFETCH(QString, refusal);
    ConPropFixture fixture;
    fixture.AddStored("Delta", target);
    fixture.Component.Store.AddNode("West", "Delta", "NET4", SaveFixture::EastTarget);
    fixture.Edit("Delta");
    fixture.Forget();
    QString shownUnderBox;
    fixture.Operator.WhileOpen = [&](const RecordedBox&) { shownUnderBox = fixture.Types().currentText(); };

    fixture.ChooseType(newType);

    if (refusal.isEmpty()) {
        QVERIFY(fixture.Operator.Boxes.empty());
        QCOMPARE(fixture.Types().currentText(), newType);
        return;
    }
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Plain(refusal)});
    QCOMPARE(shownUnderBox, oldType);
    QCOMPARE(fixture.Types().currentText(), oldType);
    QCOMPARE(fixture.TakeReads(), QStringList());
}

void TestFrmDatabaseConPropTypes::Type_CountFailed_IsLikeOneNode()
{
    ConPropFixture fixture;
    fixture.Component.Fail("GetParentNodesCount");
    fixture.Edit("Gamma");
    fixture.Forget();

    fixture.ChooseType("T4 Bus");

    QCOMPARE(fixture.Operator.Texts(),
             QStringList{"Connection type cannot be changed, because the T4 Bus connection already has "
                         "node(s)."});
    QCOMPARE(fixture.Types().currentText(), "SNMP Direct");
}

void TestFrmDatabaseConPropTypes::Type_SnmpWithoutNodes_Changes()
{
    ConPropFixture fixture;
    fixture.Edit("Gamma");

    fixture.ChooseType("Simple Serial");

    QVERIFY(fixture.Operator.Boxes.empty());
    const QStringList rows{"Serial Port", "Options"};
    QCOMPARE(fixture.Rows(), rows);
    QCOMPARE(fixture.ShownPicture(), 7);
}

void TestFrmDatabaseConPropTypes::Type_NewConnection_IsNotHeldByNodes()
{
    ConPropFixture fixture;
    fixture.AddCopyOf("Alpha");

    fixture.ChooseType("Simple Serial");

    QVERIFY(fixture.Operator.Boxes.empty());
    QCOMPARE(fixture.Types().currentText(), "Simple Serial");
}

void TestFrmDatabaseConPropTypes::Type_SimpleForScannedNodes_data()
{
    QTest::addColumn<bool>("isNew");
    QTest::addColumn<bool>("selectPressed");
    QTest::addColumn<bool>("saveFromScan");

    QTest::newRow("selected, new") << true << true << false;
    QTest::newRow("selected, stored") << false << true << false;
    QTest::newRow("from the scan") << true << false << true;
    QTest::newRow("both") << true << true << true;
}

void TestFrmDatabaseConPropTypes::Type_SimpleForScannedNodes()
{
    QFETCH(bool, isNew);
    QFETCH(bool, selectPressed);
    QFETCH(bool, saveFromScan);
    ConPropFixture fixture;
    if (isNew)
        fixture.AddCopyOf("Gamma");
    else
        fixture.Edit("Gamma");
    fixture.Con().SelectPressed = selectPressed;
    fixture.Con().SaveFromScan = saveFromScan;
    fixture.Forget();

    fixture.ChooseType("Simple Serial");

    QCOMPARE(fixture.Operator.Boxes,
             std::vector<RecordedBox>{RecordedBox::Plain(
                 "Simple Serial cannot be used as a connection type for the scanned nodes.")});
    QCOMPARE(fixture.Types().currentText(), "SNMP Direct");
    QCOMPARE(fixture.TakeReads(), QStringList());
}

void TestFrmDatabaseConPropTypes::Type_OtherForScannedNodes_Changes()
{
    ConPropFixture fixture;
    fixture.AddCopyOf("Gamma");
    fixture.Con().SelectPressed = true;

    fixture.ChooseType("T4 Bus");

    QVERIFY(fixture.Operator.Boxes.empty());
    QCOMPARE(fixture.Types().currentText(), "T4 Bus");
}

void TestFrmDatabaseConPropTypes::Type_Refused_KeepsTheValues()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");

    fixture.ChooseType("Simple Serial");

    QCOMPARE(fixture.Con().GetWpData(1).GetWpParam(1, 2), "254");
    QCOMPARE(fixture.ShownPicture(), 0);
    const QStringList rows{"T4 Bus", "Options"};
    QCOMPARE(fixture.Rows(), rows);
}

void TestFrmDatabaseConPropTypes::Type_LoadFails_ClearsTheListAndSavesNothing_data()
{
    QTest::addColumn<QString>("call");

    for (const char* call : {"GetConTypeShortName", "GetConTypeId", "GetConTypeWpList", "GetWpLongName",
                             "GetWpParameters", "GetWpParametersLongNames", "GetTargetItemList"})
        QTest::newRow(call) << QString::fromLatin1(call);
}

void TestFrmDatabaseConPropTypes::Type_LoadFails_ClearsTheListAndSavesNothing()
{
    QFETCH(QString, call);
    ConPropFixture fixture;
    fixture.Edit("Alpha");
    const QStringList records = fixture.Records();
    const QStringList trees = fixture.Trees();
    fixture.Component.Fail(call);

    fixture.ChooseType("KD7 Mediation Bus");

    QVERIFY(fixture.Operator.Boxes.empty());
    QCOMPARE(fixture.Rows(), QStringList());
    QCOMPARE(fixture.Types().currentText(), "KD7 Mediation Bus");
    fixture.Component.Repair();
    fixture.Click("cmdSave");
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Plain(NoSaving)});
    QVERIFY(fixture.Form->isVisible());
    QCOMPARE(fixture.Records(), records);
    QCOMPARE(fixture.Trees(), trees);
}

void TestFrmDatabaseConPropTypes::Type_LoadFails_OldTypeLoadsAgain()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.Component.FailTimes("GetWpParameters", 1);
    fixture.ChooseType("KD7 Mediation Bus");

    fixture.ChooseType("T4 Bus");

    const QStringList rows{"T4 Bus", "Options"};
    QCOMPARE(fixture.Rows(), rows);
    QCOMPARE(fixture.Con().ConWpCount, 2);
    QCOMPARE(fixture.Con().ConTypeID, 0);
    QCOMPARE(fixture.ShownPicture(), 0);
}

void TestFrmDatabaseConPropTypes::Type_LoadFails_ThenRefusedType_OldTypeLoadsAgain()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.Component.FailTimes("GetConTypeShortName", 1);
    fixture.ChooseType("KD7 Mediation Bus");

    fixture.ChooseType("Simple Serial");

    QCOMPARE(fixture.Operator.Texts(),
             QStringList{"Simple Serial cannot be used, because the connection already has node(s)."});
    QCOMPARE(fixture.Types().currentText(), "T4 Bus");
    const QStringList rows{"T4 Bus", "Options"};
    QCOMPARE(fixture.Rows(), rows);
}

void TestFrmDatabaseConPropTypes::Type_DamagedDefinition_TellsTheError()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.Component.AnswerOnce("GetWpParameters", {QString(21, u'\t') + u'x'});

    fixture.ChooseType("KD7 Mediation Bus");

    QCOMPARE(fixture.Operator.Boxes.size(), std::size_t(1));
    QCOMPARE(fixture.Operator.Boxes[0].title, ErrorBoxTitle());
    QVERIFY(fixture.Operator.Boxes[0].text.startsWith("Index out of range: "));
    QCOMPARE(fixture.Rows(), QStringList());
    QCOMPARE(fixture.Con().ConWpCount, 0);
}

void TestFrmDatabaseConPropTypes::Type_UnknownAgain_LoadsTheStoredWaypoints()
{
    ConPropFixture fixture;
    fixture.AddStored("Odd", "WP=OPT,PR=T4DL,WP=BUST4,ID=9");
    fixture.Edit("Odd");
    fixture.ChooseType("SNMP Direct");

    fixture.ChooseType("Unknown");

    const QStringList rows{"Options", "T4 Bus"};
    QCOMPARE(fixture.Rows(), rows);
    QCOMPARE(fixture.Con().ConTypeID, -1);
    QCOMPARE(fixture.ShownPicture(), 14);
}

QTEST_MAIN(TestFrmDatabaseConPropTypes)
#include "TestFrmDatabaseConPropTypes.moc"
