#include "platform/IndexError.h"
#include "tests/dialogs/ConPropFixture.h"

#include <QTest>

/// What the connection dialog shows when it opens.
class TestFrmDatabaseConPropLoad : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Form_Open_HasItsCaptions();
    void Form_Open_IsModalAndResizable();
    void Tab_FromTheName_FollowsTheForm();
    void Load_StoredConnection_ShowsNameTypeAndDefinition();
    void Load_StoredConnection_AsksTheDatabaseThrice();
    void Load_EachOfferedType_ShowsItsPicture_data();
    void Load_EachOfferedType_ShowsItsPicture();
    void Load_CountFails_TellsAndOpens();
    void Load_TypeWithoutLongName_LeavesTheFormEmpty();
    void Load_EmptyForm_StaysEmptyAndSavesNothing();
    void Load_NewConnectionOfUnknownType_TakesTheFirst();
    void Load_NewConnectionFromNothing_FirstTypeFails_ListIsEmpty();
    void Load_NewCopy_SelectsItsType();
    void Load_StoredConnectionOfUnknownType_JoinsTheList();
    void Load_TypeThatIsNotOffered_JoinsTheList_data();
    void Load_TypeThatIsNotOffered_JoinsTheList();
    void Load_TypeListFails_KeepsTheTypeName();
    void Load_TooManyTypes_TellsTheError();
    void Load_NoTypesOffered_ShowsTheOneThere_data();
    void Load_NoTypesOffered_ShowsTheOneThere();
    void Load_NewConnectionWithoutOfferedTypes_SelectsNothing();
    void Load_StoredNameWithComma_IsCut();
    void Load_EditRight_DecidesSave_data();
    void Load_EditRight_DecidesSave();
    void Help_ButtonAndKey_ShowTheTopic();
    void Cancel_Click_ClosesAndKeepsTheRecord();
    void Escape_OutsideTheName_IsCancel_data();
    void Escape_OutsideTheName_IsCancel();
};

void TestFrmDatabaseConPropLoad::Form_Open_HasItsCaptions()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");

    QCOMPARE(fixture.Form->windowTitle(), "Connection Properties");
    QCOMPARE(fixture.Find<QLabel>("Label1").text(), "Name:");
    QCOMPARE(fixture.Find<QLabel>("Label2").text(), "Type:");
    QCOMPARE(fixture.Find<QLabel>("Label3").text(), "Definition:");
    QCOMPARE(fixture.Find<QCheckBox>("chkShowParameters").text(), "Show Parameters");
    QCOMPARE(fixture.Button("cmdProperties").text(), "&Properties");
    QCOMPARE(fixture.Button("cmdSave").text(), "&Save");
    QCOMPARE(fixture.Button("cmdCancel").text(), "&Cancel");
    QCOMPARE(fixture.Button("cmdHelp").text(), "&Help");
    for (const char* name : {"txtConName", "cboConType", "imgConArray", "lvWPlist", "chkShowParameters",
                             "cmdProperties", "cmdSave", "cmdCancel", "cmdHelp"})
        QVERIFY2(!fixture.Find<QWidget>(name).accessibleName().isEmpty(), name);
}

void TestFrmDatabaseConPropLoad::Form_Open_IsModalAndResizable()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");

    QVERIFY(fixture.Form->isModal());
    QCOMPARE(fixture.Form->size(), QSize(520, 460));
    QVERIFY(fixture.Button("cmdSave").isDefault());

    const int listBefore = fixture.List().height();
    fixture.Form->resize(700, 600);
    QTRY_COMPARE(fixture.List().height(), listBefore + 140);
}

void TestFrmDatabaseConPropLoad::Tab_FromTheName_FollowsTheForm()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");
    QStringList order{fixture.Form->focusWidget()->objectName()};

    for (int k = 0; k < 8; ++k) {
        QTest::keyClick(fixture.Form->focusWidget(), Qt::Key_Tab);
        order << fixture.Form->focusWidget()->objectName();
    }

    const QStringList expected{"txtConName", "cboConType", "lvWPlist", "chkShowParameters", "cmdProperties",
                               "cmdSave",    "cmdCancel",  "cmdHelp",  "txtConName"};
    QCOMPARE(order, expected);
}

void TestFrmDatabaseConPropLoad::Load_StoredConnection_ShowsNameTypeAndDefinition()
{
    ConPropFixture fixture;
    fixture.Edit("Beta");

    QCOMPARE(fixture.Name().text(), "Beta");
    const QStringList types{"T4 Bus",      "T4 Bus over TCP/IP", "KD7 Mediation Bus", "DUNE Gateway",
                            "SNMP Direct", "VRL Radio Link",     "Simple Serial"};
    QCOMPARE(fixture.TypeTexts(), types);
    QCOMPARE(fixture.Types().currentText(), "T4 Bus over TCP/IP");
    const QStringList rows{"TCP/IP Socket", "T4 Bus", "Options"};
    QCOMPARE(fixture.Rows(), rows);
    QCOMPARE(fixture.ShownPicture(), 1);
    QVERIFY(fixture.Operator.Boxes.empty());
}

void TestFrmDatabaseConPropLoad::Load_StoredConnection_AsksTheDatabaseThrice()
{
    ConPropFixture fixture;
    fixture.Edit("Beta");

    const QStringList reads{"GetParentNodesCount(Beta)", "GetConTypeLongName(T4TCP)", "GetConTypeList()"};
    QCOMPARE(fixture.TakeReads(), reads);
}

void TestFrmDatabaseConPropLoad::Load_EachOfferedType_ShowsItsPicture_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("picture");

    QTest::newRow("T4 bus") << "WP=BUST4,ID=1"
                            << "T4 Bus" << 0;
    QTest::newRow("T4 over TCP") << "WP=SOCKET,PORT=1,WP=BUST4,ID=1"
                                 << "T4 Bus over TCP/IP" << 1;
    QTest::newRow("KD7") << "WP=KD7,BUSID=1"
                         << "KD7 Mediation Bus" << 2;
    QTest::newRow("SNMP") << "WP=SNMP,VERSION=1"
                          << "SNMP Direct" << 16;
    QTest::newRow("simple") << "WP=COM,PORT=1"
                            << "Simple Serial" << 7;
}

void TestFrmDatabaseConPropLoad::Load_EachOfferedType_ShowsItsPicture()
{
    QFETCH(QString, target);
    QFETCH(QString, type);
    QFETCH(int, picture);
    ConPropFixture fixture;
    fixture.AddStored("Delta", target);

    fixture.Edit("Delta");

    QCOMPARE(fixture.Types().currentText(), type);
    QCOMPARE(fixture.ShownPicture(), picture);
}

void TestFrmDatabaseConPropLoad::Load_CountFails_TellsAndOpens()
{
    ConPropFixture fixture;
    fixture.Component.Fail("GetParentNodesCount");

    fixture.Edit("Gamma");

    // The gateway has told why the count failed.
    const std::vector<RecordedBox> boxes{
        RecordedBox::Error("Unknown error in access to database."),
        RecordedBox::Plain("Nodes count for connection Gammafailed. Close the dialog and try again. ")};
    QCOMPARE(fixture.Operator.Boxes, boxes);
    QCOMPARE(fixture.Name().text(), "Gamma");
    QCOMPARE(fixture.Types().currentText(), "SNMP Direct");
    QVERIFY(fixture.Button("cmdSave").isEnabled());
}

void TestFrmDatabaseConPropLoad::Load_TypeWithoutLongName_LeavesTheFormEmpty()
{
    ConPropFixture fixture;
    fixture.Component.Fail("GetConTypeLongName");

    fixture.Edit("Alpha");

    QCOMPARE(fixture.Name().text(), "");
    QCOMPARE(fixture.TypeTexts(), QStringList());
    QCOMPARE(fixture.Rows(), QStringList());
    QCOMPARE(fixture.ShownPicture(), -1);
    QVERIFY(!fixture.Button("cmdSave").isEnabled());
    const QStringList reads{"GetParentNodesCount(Alpha)", "GetConTypeLongName(T4BUS)"};
    QCOMPARE(fixture.TakeReads(), reads);
    QVERIFY(fixture.Operator.Boxes.empty());
}

void TestFrmDatabaseConPropLoad::Load_EmptyForm_StaysEmptyAndSavesNothing()
{
    ConPropFixture fixture;
    fixture.Component.Fail("GetConTypeLongName");
    fixture.Edit("Alpha");
    fixture.Forget();

    fixture.ShowParameters();
    fixture.TypeName("Omega");
    QTest::keyClick(&fixture.Name(), Qt::Key_Return);
    fixture.Click("cmdProperties");

    QCOMPARE(fixture.Rows(), QStringList());
    QCOMPARE(fixture.TakeReads(), QStringList());
    QCOMPARE(fixture.Operator.Texts(),
             QStringList{"Select connection part name or parameter from the listbox."});
    QVERIFY(fixture.Form->isVisible());
}

void TestFrmDatabaseConPropLoad::Load_NewConnectionOfUnknownType_TakesTheFirst()
{
    ConPropFixture fixture;
    fixture.AddFromNothing();

    QCOMPARE(fixture.Name().text(), "New Connection");
    QCOMPARE(fixture.Types().currentText(), "T4 Bus");
    QCOMPARE(fixture.TypeTexts().size(), 7);
    QCOMPARE(fixture.Con().ConTypeName, "T4BUS");
    QCOMPARE(fixture.Con().ConTypeID, 0);
    const QStringList rows{"T4 Bus", "Options"};
    QCOMPARE(fixture.Rows(), rows);
    QCOMPARE(fixture.ShownPicture(), 0);
    QCOMPARE(fixture.Component.Count("GetParentNodesCount"), 0);
    QVERIFY(fixture.Operator.Boxes.empty());
}

void TestFrmDatabaseConPropLoad::Load_NewConnectionFromNothing_FirstTypeFails_ListIsEmpty()
{
    ConPropFixture fixture;
    fixture.PrepareFromNothing();
    fixture.Component.Fail("GetConTypeWpList");

    fixture.Show();

    QCOMPARE(fixture.Types().currentText(), "T4 Bus");
    QCOMPARE(fixture.Rows(), QStringList());
    QCOMPARE(fixture.Con().ConWpCount, 0);
    fixture.Component.Repair();
    fixture.ChooseType("KD7 Mediation Bus");
    const QStringList rows{"KD7 Bus", "Options"};
    QCOMPARE(fixture.Rows(), rows);
}

void TestFrmDatabaseConPropLoad::Load_NewCopy_SelectsItsType()
{
    ConPropFixture fixture;
    fixture.AddCopyOf("Gamma");

    QCOMPARE(fixture.Name().text(), "New Connection");
    QCOMPARE(fixture.Types().currentText(), "SNMP Direct");
    QCOMPARE(fixture.ShownPicture(), 16);
    QCOMPARE(fixture.Con().GetWpData(1).GetWpParam(1, 2), "2c");
    const QStringList reads{"GetConTypeLongName(SNMP)", "GetConTypeList()"};
    QCOMPARE(fixture.TakeReads(), reads);
}

void TestFrmDatabaseConPropLoad::Load_StoredConnectionOfUnknownType_JoinsTheList()
{
    ConPropFixture fixture;
    fixture.AddStored("Odd", "WP=OPT,PR=T4DL,WP=BUST4,ID=9");

    fixture.Edit("Odd");

    QCOMPARE(fixture.TypeTexts().size(), 8);
    QCOMPARE(fixture.TypeTexts().last(), "Unknown");
    QCOMPARE(fixture.Types().currentText(), "Unknown");
    QCOMPARE(fixture.ShownPicture(), 14);
    const QStringList rows{"Options", "T4 Bus"};
    QCOMPARE(fixture.Rows(), rows);
    QCOMPARE(fixture.Con().ConTypeName, "Unknown");
    QCOMPARE(fixture.Con().GetWpData(2).GetWpParam(1, 2), "9");
}

void TestFrmDatabaseConPropLoad::Load_TypeThatIsNotOffered_JoinsTheList_data()
{
    QTest::addColumn<bool>("isNew");

    QTest::newRow("stored") << false;
    QTest::newRow("copy") << true;
}

void TestFrmDatabaseConPropLoad::Load_TypeThatIsNotOffered_JoinsTheList()
{
    QFETCH(bool, isNew);
    ConPropFixture fixture;
    fixture.AddStored("Dialled", "WP=MODEM,PHONE=123,PSW=x,WP=BUST4,ID=4");

    if (isNew)
        fixture.AddCopyOf("Dialled");
    else
        fixture.Edit("Dialled");

    QCOMPARE(fixture.TypeTexts().last(), "T4 Bus over Modem");
    QCOMPARE(fixture.Types().currentText(), "T4 Bus over Modem");
    QCOMPARE(fixture.ShownPicture(), 14);
    QCOMPARE(fixture.Con().GetWpData(1).GetWpParam(1, 2), "123");
    QCOMPARE(fixture.Component.Count("GetConTypeShortName"), 0);
}

void TestFrmDatabaseConPropLoad::Load_TypeListFails_KeepsTheTypeName()
{
    ConPropFixture fixture;
    fixture.Component.Fail("GetConTypeList");

    fixture.AddFromNothing();

    QCOMPARE(fixture.Con().ConTypeName, "Unknown");
    QCOMPARE(fixture.Types().currentText(), "T4 Bus");
    QCOMPARE(fixture.Rows().size(), 2);
    QVERIFY(fixture.Operator.Boxes.empty());
}

void TestFrmDatabaseConPropLoad::Load_TooManyTypes_TellsTheError()
{
    ConPropFixture fixture;
    fixture.Component.Answer("GetConTypeList", {QString(100, u'\t') + u'x'});

    fixture.Edit("Alpha");

    QCOMPARE(fixture.Operator.Boxes.size(), std::size_t(1));
    QCOMPARE(fixture.Operator.Boxes[0].title, ErrorBoxTitle());
    QVERIFY(fixture.Operator.Boxes[0].text.startsWith("Index out of range: "));
    QVERIFY(!fixture.Button("cmdSave").isEnabled());
    QVERIFY(fixture.Form->isVisible());
}

void TestFrmDatabaseConPropLoad::Load_NoTypesOffered_ShowsTheOneThere_data()
{
    QTest::addColumn<bool>("hasTable");

    QTest::newRow("empty table") << true;
    QTest::newRow("no table") << false;
}

void TestFrmDatabaseConPropLoad::Load_NoTypesOffered_ShowsTheOneThere()
{
    QFETCH(bool, hasTable);
    ConPropFixture fixture;
    Model().ConOrderObject = hasTable ? std::make_unique<ConOrderClass>() : nullptr;

    fixture.Edit("Alpha");

    QCOMPARE(fixture.TypeTexts(), QStringList{"T4 Bus"});
    QCOMPARE(fixture.Types().currentText(), "T4 Bus");
    QCOMPARE(fixture.ShownPicture(), 14);
    QCOMPARE(fixture.Rows().size(), 2);
}

void TestFrmDatabaseConPropLoad::Load_NewConnectionWithoutOfferedTypes_SelectsNothing()
{
    ConPropFixture fixture;
    Model().ConOrderObject.reset();

    fixture.AddFromNothing();

    QCOMPARE(fixture.TypeTexts(), QStringList());
    QCOMPARE(fixture.Rows(), QStringList());
    QVERIFY(fixture.Operator.Boxes.empty());
}

void TestFrmDatabaseConPropLoad::Load_StoredNameWithComma_IsCut()
{
    ConPropFixture fixture;
    fixture.AddStored("Old, bad", "WP=BUST4,ID=1");
    fixture.Edit("Old, bad");

    QCOMPARE(fixture.Name().text(), "Old");
    QCOMPARE(fixture.Computer.Steps, QStringList{"Beep"});
}

void TestFrmDatabaseConPropLoad::Load_EditRight_DecidesSave_data()
{
    QTest::addColumn<bool>("right");

    QTest::newRow("may edit") << true;
    QTest::newRow("may not") << false;
}

void TestFrmDatabaseConPropLoad::Load_EditRight_DecidesSave()
{
    QFETCH(bool, right);
    ConPropFixture fixture;
    Database().EditRight = right;
    fixture.Edit("Alpha");
    fixture.Forget();

    QCOMPARE(fixture.Button("cmdSave").isEnabled(), right);
    QTest::keyClick(&fixture.Name(), Qt::Key_Return);

    QCOMPARE(fixture.Component.Calls.isEmpty(), !right);
    QCOMPARE(fixture.Form->isVisible(), !right);
}

void TestFrmDatabaseConPropLoad::Help_ButtonAndKey_ShowTheTopic()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");

    fixture.Click("cmdHelp");
    QTest::keyClick(&fixture.Name(), Qt::Key_F1);
    QTest::keyClick(&fixture.List(), Qt::Key_F1);

    const QString topic = "Browser4Properties00000007.htm";
    QCOMPARE(fixture.Topics, QStringList({topic, topic, topic}));
}

void TestFrmDatabaseConPropLoad::Cancel_Click_ClosesAndKeepsTheRecord()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.TypeName("Omega");
    fixture.Forget();

    fixture.Click("cmdCancel");

    QVERIFY(!fixture.Form->isVisible());
    QCOMPARE(fixture.Form->result(), int(QDialog::Rejected));
    QCOMPARE(fixture.Con().ConName, "Alpha");
    QCOMPARE(fixture.TakeReads(), QStringList());
}

void TestFrmDatabaseConPropLoad::Escape_OutsideTheName_IsCancel_data()
{
    QTest::addColumn<QString>("control");

    QTest::newRow("type") << "cboConType";
    QTest::newRow("list") << "lvWPlist";
    QTest::newRow("check box") << "chkShowParameters";
    QTest::newRow("button") << "cmdHelp";
}

void TestFrmDatabaseConPropLoad::Escape_OutsideTheName_IsCancel()
{
    QFETCH(QString, control);
    ConPropFixture fixture;
    fixture.Edit("Alpha");
    QWidget& widget = fixture.Find<QWidget>(control.toLatin1().constData());
    widget.setFocus();

    QTest::keyClick(&widget, Qt::Key_Escape);

    QVERIFY(!fixture.Form->isVisible());
    QCOMPARE(fixture.Form->result(), int(QDialog::Rejected));
}

QTEST_MAIN(TestFrmDatabaseConPropLoad)
#include "TestFrmDatabaseConPropLoad.moc"
