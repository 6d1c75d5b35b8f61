#include "tests/dialogs/DirectPropFixture.h"

#include <QTest>

/// What the dialog of the Direct tab's connection shows when it opens, and how it closes without a result.
class TestFrmDirectPropLoad : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Form_Open_HasItsCaptions();
    void Form_Open_IsModalAndResizable();
    void Tab_FromTheName_FollowsTheForm();
    void Load_StoredConnection_ShowsNameTypeAndDefinition();
    void Load_StoredConnection_AsksTheDatabaseThrice();
    void Load_AppliedConnection_CountsNoNodes();
    void Load_CountFails_TellsAndForbidsTypes();
    void Load_TypeWithoutLongName_LeavesTheFormEmpty();
    void Load_NewOfUnknownType_TakesTheFirst();
    void Load_StoredOfUnknownType_JoinsTheList();
    void Load_TooManyTypes_TellsTheError();
    void Load_Database_IsNotHeld();
    void Type_Refused_TellsAsForAStoredConnection_data();
    void Type_Refused_TellsAsForAStoredConnection();
    void Type_Simple_IsAllowedWhileNothingWasTaken();
    void Name_CommaAndEscape_AreThoseOfTheNameBox();
    void Properties_NothingSelected_Tells();
    void Help_ButtonAndKey_ShowTheTopic();
    void Cancel_EachWay_PutsTheConnectionBack_data();
    void Cancel_EachWay_PutsTheConnectionBack();
    void Cancel_NothingChanged_LeavesTheTarget();
    void Gone_WithoutAResult_PutsTheConnectionBack();
};

void TestFrmDirectPropLoad::Form_Open_HasItsCaptions()
{
    DirectPropFixture fixture;
    fixture.Edit("Alpha");

    QCOMPARE(fixture.Form->windowTitle(), "Connection Properties");
    QCOMPARE(fixture.Find<QLabel>("Label1").text(), "Name:");
    QCOMPARE(fixture.Find<QLabel>("Label2").text(), "Type:");
    QCOMPARE(fixture.Find<QLabel>("Label3").text(), "Definition:");
    QCOMPARE(fixture.Find<QCheckBox>("chkShowParameters").text(), "Show Parameters");
    QCOMPARE(fixture.Button("cmdProperties").text(), "&Properties");
    QCOMPARE(fixture.Button("cmdApply").text(), "&Apply");
    QCOMPARE(fixture.Button("cmdSave").text(), "&Save");
    QCOMPARE(fixture.Button("cmdCancel").text(), "&Cancel");
    QCOMPARE(fixture.Button("cmdHelp").text(), "&Help");
    for (const char* name : {"txtConName", "cboConType", "imgConArray", "lvWPlist", "chkShowParameters",
                             "cmdProperties", "cmdApply", "cmdSave", "cmdCancel", "cmdHelp"})
        QVERIFY2(!fixture.Find<QWidget>(name).accessibleName().isEmpty(), name);
}

void TestFrmDirectPropLoad::Form_Open_IsModalAndResizable()
{
    DirectPropFixture fixture;
    fixture.Edit("Alpha");

    QVERIFY(fixture.Form->isModal());
    const int listBefore = fixture.List().height();
    fixture.Form->resize(fixture.Form->size() + QSize(180, 140));
    QTRY_COMPARE(fixture.List().height(), listBefore + 140);
}

void TestFrmDirectPropLoad::Tab_FromTheName_FollowsTheForm()
{
    DirectPropFixture fixture;
    fixture.EditApplied("Alpha", "Mine");
    QStringList order{fixture.Form->focusWidget()->objectName()};

    for (int k = 0; k < 9; ++k) {
        QTest::keyClick(fixture.Form->focusWidget(), Qt::Key_Tab);
        order << fixture.Form->focusWidget()->objectName();
    }

    const QStringList expected{"txtConName", "cboConType", "lvWPlist",  "chkShowParameters", "cmdProperties",
                               "cmdApply",   "cmdSave",    "cmdCancel", "cmdHelp",           "txtConName"};
    QCOMPARE(order, expected);
}

void TestFrmDirectPropLoad::Load_StoredConnection_ShowsNameTypeAndDefinition()
{
    DirectPropFixture fixture;
    fixture.Edit("Beta");

    QCOMPARE(fixture.Name().text(), "Beta");
    QCOMPARE(fixture.Name().selectedText(), "Beta");
    QCOMPARE(fixture.TypeTexts().size(), 7);
    QCOMPARE(fixture.Types().currentText(), "T4 Bus over TCP/IP");
    const QStringList rows{"TCP/IP Socket", "T4 Bus", "Options"};
    QCOMPARE(fixture.Rows(), rows);
    QCOMPARE(fixture.ShownPicture(), 1);
    QVERIFY(fixture.Operator.Boxes.empty());
}

void TestFrmDirectPropLoad::Load_StoredConnection_AsksTheDatabaseThrice()
{
    DirectPropFixture fixture;
    fixture.Edit("Beta");

    const QStringList reads{"GetParentNodesCount(Beta)", "GetConTypeLongName(T4TCP)", "GetConTypeList()"};
    QCOMPARE(fixture.TakeReads(), reads);
}

void TestFrmDirectPropLoad::Load_AppliedConnection_CountsNoNodes()
{
    DirectPropFixture fixture;
    fixture.EditApplied("Gamma", "Mine");

    QCOMPARE(fixture.Name().text(), "Mine");
    QCOMPARE(fixture.Types().currentText(), "SNMP Direct");
    const QStringList reads{"GetConTypeLongName(SNMP)", "GetConTypeList()"};
    QCOMPARE(fixture.TakeReads(), reads);
}

void TestFrmDirectPropLoad::Load_CountFails_TellsAndForbidsTypes()
{
    DirectPropFixture fixture;
    fixture.Component.Fail("GetParentNodesCount");
    fixture.Edit("Gamma");

    fixture.ChooseType("T4 Bus");

    QCOMPARE(fixture.Operator.Texts(),
             (QStringList{"Unknown error in access to database.",
                          "Nodes count for connection Gammafailed. Close the dialog and try again. ",
                          "Connection type cannot be changed, because the T4 Bus connection already has "
                          "node(s)."}));
    QCOMPARE(fixture.Types().currentText(), "SNMP Direct");
    QCOMPARE(fixture.Offered(), "");
}

void TestFrmDirectPropLoad::Load_TypeWithoutLongName_LeavesTheFormEmpty()
{
    DirectPropFixture fixture;
    fixture.AddDirect("Alpha", "Mine");
    fixture.Component.Fail("GetConTypeLongName");

    fixture.Show();
    fixture.TypeName("Omega");
    fixture.ShowParameters();

    QCOMPARE(fixture.TypeTexts(), QStringList());
    QCOMPARE(fixture.Rows(), QStringList());
    QCOMPARE(fixture.ShownPicture(), -1);
    QCOMPARE(fixture.Offered(), "");
}

void TestFrmDirectPropLoad::Load_NewOfUnknownType_TakesTheFirst()
{
    DirectPropFixture fixture;
    QVERIFY(fixture.Direct().SetConDataToUnknownCon());
    fixture.Direct().NewCon = true;
    const QStringList held = fixture.Held();

    fixture.Show();

    QCOMPARE(fixture.Types().currentText(), "T4 Bus");
    QCOMPARE(fixture.Direct().ConTypeName, "T4BUS");
    const QStringList rows{"T4 Bus", "Options"};
    QCOMPARE(fixture.Rows(), rows);
    QCOMPARE(fixture.Offered(), "Apply Save");
    fixture.Click("cmdCancel");
    QCOMPARE(fixture.Held(), held);
}

void TestFrmDirectPropLoad::Load_StoredOfUnknownType_JoinsTheList()
{
    DirectPropFixture fixture;
    fixture.AddStored("Odd", "WP=OPT,PR=T4DL,WP=BUST4,ID=9");

    fixture.Edit("Odd");

    QCOMPARE(fixture.TypeTexts().last(), "Unknown");
    QCOMPARE(fixture.Types().currentText(), "Unknown");
    QCOMPARE(fixture.ShownPicture(), 14);
    QCOMPARE(fixture.Offered(), "");
}

void TestFrmDirectPropLoad::Load_TooManyTypes_TellsTheError()
{
    DirectPropFixture fixture;
    fixture.EditDirect("Alpha");
    fixture.Component.Answer("GetConTypeList", {QString(100, u'\t') + u'x'});

    fixture.Show();
    fixture.TypeName("Omega");

    QCOMPARE(fixture.Operator.Boxes.size(), std::size_t(1));
    QVERIFY(fixture.Operator.Boxes[0].text.startsWith("Index out of range: "));
    QCOMPARE(fixture.Offered(), "");
}

void TestFrmDirectPropLoad::Load_Database_IsNotHeld()
{
    DirectPropFixture fixture;
    fixture.Edit("Beta");

    QCOMPARE(fixture.Component.Store.Levels(), 0);
}

void TestFrmDirectPropLoad::Type_Refused_TellsAsForAStoredConnection_data()
{
    QTest::addColumn<QString>("connection");
    QTest::addColumn<bool>("selectPressed");
    QTest::addColumn<QString>("text");
    QTest::newRow("nodes") << "Alpha" << false
                           << "Simple Serial cannot be used, because the connection already has node(s).";
    QTest::newRow("nodes to be scanned")
        << "Gamma" << true << "Simple Serial cannot be used as a connection type for the scanned nodes.";
}

void TestFrmDirectPropLoad::Type_Refused_TellsAsForAStoredConnection()
{
    QFETCH(QString, connection);
    QFETCH(bool, selectPressed);
    QFETCH(QString, text);
    DirectPropFixture fixture;
    fixture.EditDirect(connection);
    fixture.Direct().SelectPressed = selectPressed;
    fixture.Show();
    const QString type = fixture.Types().currentText();

    fixture.ChooseType("Simple Serial");

    QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Plain(text)});
    QCOMPARE(fixture.Types().currentText(), type);
    QCOMPARE(fixture.Offered(), "");
}

void TestFrmDirectPropLoad::Type_Simple_IsAllowedWhileNothingWasTaken()
{
    DirectPropFixture fixture;
    fixture.EditApplied("Alpha", "Mine");

    fixture.ChooseType("Simple Serial");

    QVERIFY(fixture.Operator.Boxes.empty());
    const QStringList rows{"Serial Port", "Options"};
    QCOMPARE(fixture.Rows(), rows);
    QCOMPARE(fixture.ShownPicture(), 7);
}

void TestFrmDirectPropLoad::Name_CommaAndEscape_AreThoseOfTheNameBox()
{
    DirectPropFixture fixture;
    fixture.Edit("Alpha");

    fixture.TypeName("Om,ega");
    QCOMPARE(fixture.Name().text(), "Omega");
    QCOMPARE(fixture.Computer.Steps, QStringList{"Beep"});
    QTest::keyClick(&fixture.Name(), Qt::Key_Escape);

    QCOMPARE(fixture.Name().text(), "Alpha");
    QVERIFY(fixture.Form->isVisible());
    QCOMPARE(fixture.Offered(), "");
}

void TestFrmDirectPropLoad::Properties_NothingSelected_Tells()
{
    DirectPropFixture fixture;
    fixture.Edit("Alpha");

    fixture.Click("cmdProperties");

    QCOMPARE(fixture.Operator.Texts(),
             QStringList{"Select connection part name or parameter from the listbox."});
}

void TestFrmDirectPropLoad::Help_ButtonAndKey_ShowTheTopic()
{
    DirectPropFixture fixture;
    fixture.Edit("Alpha");

    fixture.Click("cmdHelp");
    QTest::keyClick(&fixture.List(), Qt::Key_F1);

    const QString topic = "Browser4Connection_Definition.htm";
    QCOMPARE(fixture.Topics, QStringList({topic, topic}));
}

// Cancel --------------------------------------------------------------------------------------------------

void TestFrmDirectPropLoad::Cancel_EachWay_PutsTheConnectionBack_data()
{
    QTest::addColumn<QString>("way");
    for (const char* way : {"button", "Escape", "closed", "access key"})
        QTest::newRow(way) << QString::fromLatin1(way);
}

void TestFrmDirectPropLoad::Cancel_EachWay_PutsTheConnectionBack()
{
    QFETCH(QString, way);
    DirectPropFixture fixture;
    fixture.EditDirect("Alpha");
    fixture.Direct().TargetString = "WP=BUST4,ID=254";
    const QStringList held = fixture.Held();
    const QStringList records = fixture.Records();
    fixture.Show();
    fixture.ChooseType("SNMP Direct");
    fixture.SetDirectValue(1, "1");
    // Refused, after the target was composed.
    fixture.TypeName("Beta");
    fixture.Click("cmdSave");
    QVERIFY(fixture.Held() != held);

    if (way == "button")
        fixture.Click("cmdCancel");
    else if (way == "Escape")
        QTest::keyClick(&fixture.List(), Qt::Key_Escape);
    else if (way == "closed")
        fixture.Form->close();
    else
        QTest::keyClick(&fixture.Name(), Qt::Key_C, Qt::AltModifier);

    QTRY_VERIFY(!fixture.Form->isVisible());
    QCOMPARE(fixture.Form->result(), int(QDialog::Rejected));
    QCOMPARE(fixture.Held(), held);
    QCOMPARE(fixture.Direct().TargetString, "WP=BUST4,ID=254");
    QCOMPARE(fixture.NewDirect().ConName, "Mine");
    QCOMPARE(fixture.Records(), records);
}

void TestFrmDirectPropLoad::Cancel_NothingChanged_LeavesTheTarget()
{
    DirectPropFixture fixture;
    fixture.EditDirect("Alpha");
    fixture.Direct().TargetString = "WP=BUST4,ID=254";
    const QStringList held = fixture.Held();
    fixture.Show();

    fixture.Click("cmdCancel");

    QCOMPARE(fixture.Held(), held);
    QCOMPARE(fixture.Direct().TargetString, "WP=BUST4,ID=254");
}

void TestFrmDirectPropLoad::Gone_WithoutAResult_PutsTheConnectionBack()
{
    DirectPropFixture fixture;
    fixture.EditDirect("Alpha");
    const QStringList held = fixture.Held();
    fixture.Show();
    fixture.ChooseType("SNMP Direct");

    fixture.Form.reset();

    QCOMPARE(fixture.Held(), held);
}

QTEST_MAIN(TestFrmDirectPropLoad)
#include "TestFrmDirectPropLoad.moc"
