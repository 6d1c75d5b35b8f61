#include "dialogs/ConNameBox.h"
#include "tests/scan/SaveScanFixture.h"

/// One found node on its way from the scan dialog into the database.
class TestFrmScanSave : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Save_FoundNode_IsOfferedAndSaved();
    void Save_DialogCancelled_LeavesAllAsItWas();
    void Save_BlankIdentification_ProposesABlankName();
    void Save_MarkedNode_IsSavedAtItsAddress();
    void Save_NothingSelected_TellsSo_data();
    void Save_NothingSelected_TellsSo();
    void Save_UnknownNodeType_TellsAndGoesOn();
    void Save_ConnectionNotAsScanned_AsksFirst_data();
    void Save_ConnectionNotAsScanned_AsksFirst();
    void Save_ConnectionSavedFirst_GoesOnUnderItsName();
    void Save_ConnectionDialogCancelled_EndsThere();
    void Save_BusTyped_AsksUntilItIsTypedBack();
    void Save_BusTyped_SavesTheConnectionWithIt();
    void Save_WhileScanning_DoesNothing_data();
    void Save_WhileScanning_DoesNothing();
    void Save_NoConnectionOfTheDirectPage_DoesNothing();
    void Save_HostDestroysTheForm_Ends_data();
    void Save_HostDestroysTheForm_Ends();
    void Select_ConnectionChangedElsewhere_AsksNothing();
};

// Saving ----------------------------------------------------------------------------------------------------

void TestFrmScanSave::Save_FoundNode_IsOfferedAndSaved()
{
    SaveScanFixture f;
    f.ScanNodes();
    f.ClickRow(2);
    const QStringList before = f.Whole();
    QString name;
    QStringList given;
    f.InForm([&](QDialog& form) {
        name = f.FindIn<ConNameBox>(form, "txtNodeName").text();
        given = {f.FindIn<QLineEdit>(form, "txtNodeType").text(), f.Direct().NodeAddress, f.Direct().Retry,
                 f.Direct().Time, QString::number(f.Direct().NodeDbID)};
        f.ClickIn(form, "cmdSave");
    });

    f.Click("cmdSave");

    QString id;
    QVERIFY(f.Gateway().GetNodeTypeIdDb("NET4", id));
    QCOMPARE(f.Forms, QStringList{"Save Node"});
    QCOMPARE(name, "Hub 17");
    QCOMPARE(given, (QStringList{"T4 Node", "17", "5", "700", id}));
    QVERIFY2(f.TargetOf("Hub 17").startsWith("WP=NET4,ADDR=17,"), qPrintable(f.TargetOf("Hub 17")));
    QVERIFY2(f.TargetOf("Hub 17").contains(",TIME=700,RETRY=5"), qPrintable(f.TargetOf("Hub 17")));
    QCOMPARE(f.TreeContents(), SaveFixture::FreshTreeContents());
    QCOMPARE(f.Whole(), before);
    QCOMPARE(f.Grid().Row(), 2);
    QCOMPARE(f.Form->focusWidget(), &f.Grid());
    QCOMPARE(f.Enabled(), "save all select close bus");
    QVERIFY(f.Operator.Boxes.empty());
    QVERIFY(f.IsAtRest());
}

void TestFrmScanSave::Save_DialogCancelled_LeavesAllAsItWas()
{
    SaveScanFixture f;
    f.ScanNodes();
    f.ClickRow(2);
    const QStringList before = f.Whole();
    const QStringList records = f.Records();
    f.PressInForm({"cmdCancel"});

    f.Click("cmdSave");

    QCOMPARE(f.Forms.size(), 1);
    QCOMPARE(f.Records(), records);
    QCOMPARE(f.Whole(), before);
    QCOMPARE(f.Grid().Row(), 2);
    QVERIFY(f.IsAtRest());
}

void TestFrmScanSave::Save_BlankIdentification_ProposesABlankName()
{
    SaveScanFixture f;
    f.ScanNodes();
    f.ClickRow(3);
    QString name = "none";
    f.InForm([&](QDialog& form) {
        name = f.FindIn<ConNameBox>(form, "txtNodeName").text();
        form.reject();
    });

    f.Click("cmdSave");

    QCOMPARE(name, QString());
}

void TestFrmScanSave::Save_MarkedNode_IsSavedAtItsAddress()
{
    SaveScanFixture f;
    f.ScanNodes();
    f.Grid().MarkNodeRow(2, true);
    f.PressInForm({"cmdSave"});

    f.Press("cmdSave");

    QVERIFY2(f.TargetOf("Hub 17").startsWith("WP=NET4,ADDR=17,"), qPrintable(f.TargetOf("Hub 17")));
    QVERIFY(f.Grid().IsMarked(2));
}

// Messages --------------------------------------------------------------------------------------------------

void TestFrmScanSave::Save_NothingSelected_TellsSo_data()
{
    QTest::addColumn<int>("row");
    QTest::newRow("no row") << 0;
    QTest::newRow("blank row") << 5;
}

void TestFrmScanSave::Save_NothingSelected_TellsSo()
{
    QFETCH(const int, row);
    SaveScanFixture f;
    f.ScanNodes();
    f.Grid().SelectGridRow(static_cast<qint16>(row));
    const QStringList before = f.Whole();

    f.Press("cmdSave");

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Plain("Nothing selected.")});
    QCOMPARE(f.Grid().Row(), row);
    QCOMPARE(f.Whole(), before);
    QVERIFY(f.IsAtRest());
}

void TestFrmScanSave::Save_UnknownNodeType_TellsAndGoesOn()
{
    SaveScanFixture f;
    f.ScanNodes();
    f.ClickRow(1);
    f.Direct().NodeDbID = 99;
    const QStringList before = f.Whole();
    f.Component.FailTimes("GetNodeTypeId", 1);
    qint32 id = -1;
    f.InForm([&](QDialog& form) {
        id = f.Direct().NodeDbID;
        form.reject();
    });

    f.Click("cmdSave");

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Plain("Node type NET4 not found.")});
    QCOMPARE(id, 0);
    QCOMPARE(f.Whole(), before);
}

// Connection ------------------------------------------------------------------------------------------------

void TestFrmScanSave::Save_ConnectionNotAsScanned_AsksFirst_data()
{
    QTest::addColumn<QString>("how");
    QTest::addColumn<QString>("question");
    QTest::newRow("only direct") << "direct" << SaveScanFixture::OnlyDirect();
    QTest::newRow("changed") << "changed" << SaveScanFixture::ChangedElsewhere();
    QTest::newRow("removed") << "removed" << SaveScanFixture::ChangedElsewhere();
}

void TestFrmScanSave::Save_ConnectionNotAsScanned_AsksFirst()
{
    QFETCH(const QString, how);
    QFETCH(const QString, question);
    SaveScanFixture f;
    f.ScanNodes();
    // Before the selection is looked at.
    f.Grid().SelectGridRow(0);
    f.Spoil(how);
    const QStringList before = f.Whole();
    const QStringList records = f.Records();
    f.Operator.Answers = {BoxAnswer::Cancel};

    f.Press("cmdSave");

    QCOMPARE(f.Operator.Boxes, std::vector{f.Question(question)});
    QCOMPARE(f.Whole(), before);
    QCOMPARE(f.NewDirect().ConName, how == "direct" ? "Alpha" : "");
    QCOMPARE(f.Records(), records);
    QCOMPARE(f.Grid().Row(), 0);
    QVERIFY(f.Forms.isEmpty());
    QVERIFY(f.IsAtRest());
}

void TestFrmScanSave::Save_ConnectionSavedFirst_GoesOnUnderItsName()
{
    SaveScanFixture f;
    f.ScanNodes();
    f.ClickRow(2);
    f.Spoil("removed");
    f.InForm([&](QDialog& form) {
        f.FindIn<ConNameBox>(form, "txtConName").setText("Omega");
        f.PressInForm({"cmdSave"});
        f.ClickIn(form, "cmdSave");
    });

    f.Click("cmdSave");

    QCOMPARE(f.Operator.Texts(), QStringList{f.ChangedElsewhere()});
    QCOMPARE(f.Forms.size(), 2);
    QCOMPARE(f.Form->windowTitle(), "Scan Omega");
    QCOMPARE(f.Direct().ConName, "Omega");
    QCOMPARE(f.Direct().ConDbID, f.IdOfConnection("Omega"));
    QVERIFY2(f.TargetOf("Hub 17").startsWith("WP=NET4,ADDR=17,"), qPrintable(f.TargetOf("Hub 17")));
    QCOMPARE(f.Grid().Row(), 2);
    QCOMPARE(f.MissingEntries(), QStringList());
    QVERIFY(f.IsAtRest());
}

void TestFrmScanSave::Save_ConnectionDialogCancelled_EndsThere()
{
    SaveScanFixture f;
    f.ScanNodes();
    f.ClickRow(2);
    f.Spoil("changed");
    const QStringList before = f.Whole();
    f.PressInForm({"cmdCancel"});

    f.Click("cmdSave");

    QCOMPARE(f.Operator.Boxes, std::vector{f.Question(f.ChangedElsewhere())});
    QCOMPARE(f.Forms.size(), 1);
    QCOMPARE(f.Whole(), before);
    QCOMPARE(f.Form->windowTitle(), "Scan Alpha");
    QCOMPARE(f.Grid().Row(), 2);
    QVERIFY(f.IsAtRest());
}

void TestFrmScanSave::Save_BusTyped_AsksUntilItIsTypedBack()
{
    SaveScanFixture f;
    f.ScanNodes();
    f.ClickRow(1);
    f.Box("txtBus").setText("7");
    f.Operator.Answers = {BoxAnswer::Cancel};

    f.Click("cmdSave");

    QCOMPARE(f.Operator.Boxes, std::vector{f.Question(f.OnlyDirect())});
    QVERIFY(f.Forms.isEmpty());

    f.Box("txtBus").setText("254");
    f.PressInForm({"cmdCancel"});
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
    QCOMPARE(f.Forms, QStringList{"Save Node"});
}

void TestFrmScanSave::Save_BusTyped_SavesTheConnectionWithIt()
{
    SaveScanFixture f;
    f.ScanNodes();
    f.ClickRow(2);
    f.Box("txtBus").setText("7");
    f.InForm([&](QDialog& form) {
        f.PressInForm({"cmdSave"});
        f.ClickIn(form, "cmdSave");
    });

    f.Click("cmdSave");

    QCOMPARE(f.Operator.Texts(), (QStringList{f.OnlyDirect(), "Connection Alpha exists in database. Do you "
                                                              "want to replace it ?"}));
    QCOMPARE(f.Forms.size(), 2);
    QVERIFY2(f.Records().filter("Alpha").first().contains("WP=BUST4,ID=7,"),
             qPrintable(f.Records().join(u'\n')));
    QVERIFY(f.TargetOf("Hub 17") != "none");
    QCOMPARE(f.Direct().ConDbID, f.IdOfConnection("Alpha"));
    QCOMPARE(f.NewDirect().ConName, QString());
    QVERIFY(f.IsAtRest());
}

// Other states ----------------------------------------------------------------------------------------------

void TestFrmScanSave::Save_WhileScanning_DoesNothing_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<bool>("stopping");
    for (const char* command : {"cmdSave", "cmdSaveAll"}) {
        QTest::addRow("%s", command) << command << false;
        QTest::addRow("%s, stopping", command) << command << true;
    }
}

void TestFrmScanSave::Save_WhileScanning_DoesNothing()
{
    QFETCH(const QString, command);
    QFETCH(const bool, stopping);
    SaveScanFixture f;
    f.ShowScan();
    f.TakeTrees();
    f.Start(3, 20);
    f.Step();
    f.ClickRow(1);
    if (stopping)
        f.Click("cmdStartStop");
    f.Spoil("changed");
    f.ForgetAll();
    const QStringList before = f.Whole();
    const QString state = f.State();

    f.Press(command.toLatin1());

    QVERIFY(f.Operator.Boxes.empty());
    QVERIFY(f.Component.Calls.isEmpty());
    QCOMPARE(f.Whole(), before);
    QCOMPARE(f.State(), state);
    f.WalkToTheEnd();
    QVERIFY(f.IsReleased());
}

void TestFrmScanSave::Save_NoConnectionOfTheDirectPage_DoesNothing()
{
    SaveScanFixture f;
    f.ScanNodes();
    f.ClickRow(1);
    const std::unique_ptr<ConData> gone = std::move(Model().NewDirectObject);

    f.Click("cmdSave");
    f.Click("cmdSaveAll");

    QVERIFY(f.Operator.Boxes.empty());
    QVERIFY(f.Component.Calls.isEmpty());
    Model().NewDirectObject = std::make_unique<ConData>();
}

void TestFrmScanSave::Save_HostDestroysTheForm_Ends_data()
{
    QTest::addColumn<QString>("under");
    QTest::addColumn<int>("boxes");
    QTest::addColumn<int>("forms");
    QTest::newRow("question") << "question" << 1 << 0;
    QTest::newRow("connection dialog") << "connection" << 1 << 1;
    QTest::newRow("nothing selected") << "nothing" << 1 << 0;
    QTest::newRow("node type") << "type" << 1 << 0;
    QTest::newRow("node dialog") << "node" << 0 << 1;
}

void TestFrmScanSave::Save_HostDestroysTheForm_Ends()
{
    QFETCH(const QString, under);
    SaveScanFixture f;
    f.ScanNodes();
    f.ClickRow(1);
    const QStringList before = f.Whole();
    const QStringList records = f.Records();
    if (under == "question" || under == "connection")
        f.Spoil("direct");
    else if (under == "nothing")
        f.Grid().SelectGridRow(0);
    else if (under == "type")
        f.Component.Fail("GetNodeTypeId");
    if (under == "connection" || under == "node")
        f.InForm([&](QDialog&) { f.Form.reset(); });
    else
        f.Operator.WhileOpen = [&](const RecordedBox&) { f.Form.reset(); };

    f.Press("cmdSave");

    QVERIFY(!f.Form);
    QTEST(int(f.Operator.Boxes.size()), "boxes");
    QTEST(int(f.Forms.size()), "forms");
    QCOMPARE(f.Whole(), before);
    QCOMPARE(f.Records(), records);
    QVERIFY(f.IsAtRest());
}

void TestFrmScanSave::Select_ConnectionChangedElsewhere_AsksNothing()
{
    SaveScanFixture f;
    f.ScanNodes();
    f.ClickRow(2);
    f.Spoil("removed");

    f.Click("cmdSelect");

    QVERIFY(f.Operator.Boxes.empty());
    QVERIFY(!f.Form->isVisible());
    QCOMPARE(f.Direct().NodeAddress, "17");
    QCOMPARE(f.Direct().NodeName, "Before");
}

QTEST_MAIN(TestFrmScanSave)
#include "TestFrmScanSave.moc"
