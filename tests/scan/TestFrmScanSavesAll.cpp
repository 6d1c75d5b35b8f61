#include "tests/scan/SaveScanFixture.h"

#include <QLineEdit>
#include <QRadioButton>

/// All found nodes on their way from the scan dialog into the database.
class TestFrmScanSavesAll : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void SaveAll_Nodes_AreNamedListedAndSaved();
    void SaveAll_Identifications_StayTheNames();
    void SaveAll_NamingCancelled_LeavesAllAsItWas();
    void SaveAll_NothingFound_TellsSo();
    void SaveAll_UnknownType_TellsAndEnds_data();
    void SaveAll_UnknownType_TellsAndEnds();
    void SaveAll_ConnectionNotAsScanned_AsksFirst_data();
    void SaveAll_ConnectionNotAsScanned_AsksFirst();
    void SaveAll_ConnectionSavedFirst_GoesOnUnderItsName();
    void SaveAll_ConnectionChangedDuringTheRun_IsAskedAboutNext();
    void SaveAll_HostDestroysTheForm_Ends_data();
    void SaveAll_HostDestroysTheForm_Ends();
    void SaveAll_WithoutTheEditRight_IsNotOffered();
};

/// The operator names the nodes as offered and works in the list.
static void WorkInList(SaveScanFixture& f, const std::function<void(QDialog& list)>& work)
{
    f.InForm([&f, work](QDialog& naming) {
        f.InForm(work);
        f.ClickIn(naming, "cmdOK");
    });
}

static void SaveWholeList(SaveScanFixture& f)
{
    WorkInList(f, [&f](QDialog& list) {
        f.ClickIn(list, "cmdSelectAll");
        f.ClickIn(list, "cmdSave");
        f.ClickIn(list, "cmdCancel");
    });
}

void TestFrmScanSavesAll::SaveAll_Nodes_AreNamedListedAndSaved()
{
    SaveScanFixture f;
    f.ScanNodes();
    f.ClickRow(2);
    const QStringList before = f.Whole();
    QString prefix;
    QStringList lines;
    f.InForm([&](QDialog& naming) {
        prefix = f.FindIn<QLineEdit>(naming, "txtPrefix").text();
        f.InForm([&](QDialog& list) {
            const auto& shown = f.FindIn<QListWidget>(list, "lstNotSavedNodes");
            for (int line = 0; line < shown.count(); ++line)
                lines << shown.item(line)->text().mid(0, 26);
            f.ClickIn(list, "cmdSelectAll");
            f.ClickIn(list, "cmdSave");
            f.ClickIn(list, "cmdCancel");
        });
        f.ClickIn(naming, "cmdOK");
    });

    f.Click("cmdSaveAll");

    QCOMPARE(f.Forms, (QStringList{"Scan Results: Save All", "Scan Results Selection for Database Saving"}));
    QCOMPARE(prefix, "Alpha");
    QCOMPARE(lines, (QStringList{"   3   Alpha,3 West T3    ", "  17   Alpha,17 Hub 17 T17",
                                 "  20   Alpha,20  T20      "}));
    QVERIFY2(f.TargetOf("Alpha,17 Hub 17 T17").startsWith("WP=NET4,ADDR=17,"),
             qPrintable(f.Records().join(u'\n')));
    QVERIFY(f.TargetOf("Alpha,3 West T3").endsWith("TIME=700,RETRY=5"));
    QVERIFY(f.TargetOf("Alpha,20  T20") != "none");
    QCOMPARE(f.TreeContents(), SaveFixture::FreshTreeContents());
    QCOMPARE(f.Whole(), before);
    QCOMPARE(f.Grid().Row(), 2);
    QCOMPARE(f.Enabled(), "save all select close bus");
    QVERIFY(f.Operator.Boxes.empty());
    QVERIFY(f.IsAtRest());
}

void TestFrmScanSavesAll::SaveAll_Identifications_StayTheNames()
{
    SaveScanFixture f;
    f.ScanNodes();
    f.InForm([&](QDialog& naming) {
        f.FindIn<QRadioButton>(naming, "optNodeId").click();
        f.InForm([](QDialog& list) { list.reject(); });
        f.ClickIn(naming, "cmdOK");
    });

    f.Click("cmdSaveAll");

    QStringList names;
    for (const ScanSaveRow& row : Scan().ScanSaveList)
        names << row.name;
    QCOMPARE(names, (QStringList{"West", "Hub 17", ""}));
}

void TestFrmScanSavesAll::SaveAll_NamingCancelled_LeavesAllAsItWas()
{
    SaveScanFixture f;
    f.ScanNodes();
    f.ClickRow(3);
    const QStringList before = f.Whole();
    const QStringList records = f.Records();
    f.PressInForm({"cmdCancel"});

    f.Click("cmdSaveAll");

    QCOMPARE(f.Whole(), before);
    QCOMPARE(f.Records(), records);
    QCOMPARE(f.Grid().Row(), 3);
    QCOMPARE(Scan().ScanSaveCount(), 0);
    QVERIFY(f.IsAtRest());
}

// Messages --------------------------------------------------------------------------------------------------

void TestFrmScanSavesAll::SaveAll_NothingFound_TellsSo()
{
    SaveScanFixture f;
    f.ShowScan();
    f.TakeTrees();
    f.Grid().SelectGridRow(4);
    const QStringList before = f.Whole();

    f.Press("cmdSaveAll");

    QCOMPARE(f.Operator.Boxes,
             std::vector{RecordedBox::Plain("The nodes list is empty. First scan network and then save the "
                                            "found nodes.")});
    QCOMPARE(f.Grid().Row(), 0);
    QCOMPARE(f.Whole(), before);
    QVERIFY(f.Forms.isEmpty());
}

void TestFrmScanSavesAll::SaveAll_UnknownType_TellsAndEnds_data()
{
    QTest::addColumn<QString>("failing");
    QTest::addColumn<QString>("told");
    QTest::newRow("id") << "GetNodeTypeId"
                        << "Node type NET4 not found.";
    QTest::newRow("long name") << "GetNodeTypeLongName"
                               << "Unknown node type:NET4";
}

void TestFrmScanSavesAll::SaveAll_UnknownType_TellsAndEnds()
{
    QFETCH(const QString, failing);
    QFETCH(const QString, told);
    SaveScanFixture f;
    f.ScanNodes();
    f.ClickRow(2);
    const QStringList before = f.Whole();
    f.Component.Fail(failing);

    f.Click("cmdSaveAll");

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Plain(told)});
    QCOMPARE(f.Whole(), before);
    QVERIFY(f.Forms.isEmpty());
    QVERIFY(f.IsAtRest());
}

// Connection ------------------------------------------------------------------------------------------------

void TestFrmScanSavesAll::SaveAll_ConnectionNotAsScanned_AsksFirst_data()
{
    QTest::addColumn<QString>("how");
    QTest::addColumn<QString>("question");
    QTest::newRow("only direct") << "direct" << SaveScanFixture::OnlyDirect();
    QTest::newRow("changed") << "changed" << SaveScanFixture::ChangedElsewhere();
    QTest::newRow("removed") << "removed" << SaveScanFixture::ChangedElsewhere();
}

void TestFrmScanSavesAll::SaveAll_ConnectionNotAsScanned_AsksFirst()
{
    QFETCH(const QString, how);
    QFETCH(const QString, question);
    SaveScanFixture f;
    f.ScanNodes();
    f.ClickRow(2);
    f.Spoil(how);
    const QStringList before = f.Whole();
    const QStringList records = f.Records();
    f.Operator.Answers = {BoxAnswer::Cancel};

    f.Click("cmdSaveAll");

    QCOMPARE(f.Operator.Boxes, std::vector{f.Question(question)});
    QCOMPARE(f.Whole(), before);
    QCOMPARE(f.Records(), records);
    QCOMPARE(f.Grid().Row(), 2);
    QVERIFY(Scan().ScanSaveList.empty());
    QVERIFY(f.Forms.isEmpty());
}

void TestFrmScanSavesAll::SaveAll_ConnectionSavedFirst_GoesOnUnderItsName()
{
    SaveScanFixture f;
    f.ScanNodes();
    f.ClickRow(1);
    f.Spoil("removed");
    f.InForm([&](QDialog& connection) {
        f.FindIn<QLineEdit>(connection, "txtConName").setText("Omega");
        SaveWholeList(f);
        f.ClickIn(connection, "cmdSave");
    });

    f.Click("cmdSaveAll");

    QCOMPARE(f.Operator.Boxes, std::vector{f.Question(f.ChangedElsewhere())});
    QCOMPARE(f.Forms.size(), 3);
    QCOMPARE(f.Form->windowTitle(), "Scan Omega");
    QVERIFY(f.TargetOf("Omega,17 Hub 17 T17") != "none");
    QCOMPARE(f.Direct().ConName, "Omega");
    QCOMPARE(f.Direct().ConDbID, f.IdOfConnection("Omega"));
    QCOMPARE(f.MissingEntries(), QStringList());
    QVERIFY(f.IsAtRest());
}

void TestFrmScanSavesAll::SaveAll_ConnectionChangedDuringTheRun_IsAskedAboutNext()
{
    SaveScanFixture f;
    f.ScanNodes();
    f.ClickRow(1);
    WorkInList(f, [&](QDialog& list) {
        f.Spoil("changed");
        f.ClickIn(list, "cmdSelectAll");
        f.ClickIn(list, "cmdSave");
        f.ClickIn(list, "cmdCancel");
    });
    const QStringList nodes = f.Records();

    f.Click("cmdSaveAll");

    QCOMPARE(f.Operator.Texts().mid(0, 1),
             QStringList{"Node saving is prevented, because another application has changed (deleted) "
                         "connection Alpha."});
    QCOMPARE(f.Records(), nodes);
    f.Operator.Boxes.clear();
    f.Operator.Answers = {BoxAnswer::Cancel};

    f.Click("cmdSave");

    QCOMPARE(f.Operator.Boxes, std::vector{f.Question(f.OnlyDirect())});
}

// Host ------------------------------------------------------------------------------------------------------

void TestFrmScanSavesAll::SaveAll_HostDestroysTheForm_Ends_data()
{
    QTest::addColumn<QString>("under");
    QTest::addColumn<int>("boxes");
    QTest::addColumn<int>("forms");
    QTest::newRow("question") << "question" << 1 << 0;
    QTest::newRow("connection dialog") << "connection" << 1 << 1;
    QTest::newRow("nothing found") << "nothing" << 1 << 0;
    QTest::newRow("node type") << "type" << 1 << 0;
    QTest::newRow("naming") << "naming" << 0 << 1;
    QTest::newRow("list") << "list" << 0 << 2;
    QTest::newRow("run") << "run" << 1 << 2;
}

void TestFrmScanSavesAll::SaveAll_HostDestroysTheForm_Ends()
{
    QFETCH(const QString, under);
    SaveScanFixture f;
    f.ScanNodes();
    if (under == "question" || under == "connection")
        f.Spoil("direct");
    else if (under == "nothing")
        f.Grid().InitFoundNodesGrid();
    else if (under == "type")
        f.Component.Fail("GetNodeTypeId");
    const auto destroy = [&f](QDialog&) { f.Form.reset(); };
    if (under == "connection" || under == "naming")
        f.InForm(destroy);
    else if (under == "list")
        WorkInList(f, destroy);
    else
        f.Operator.WhileOpen = [&](const RecordedBox&) { f.Form.reset(); };
    if (under == "run")
        WorkInList(f, [&f](QDialog& list) {
            f.Spoil("changed");
            f.ClickIn(list, "cmdSelectAll");
            f.ClickIn(list, "cmdSave");
        });
    const QStringList before = f.Whole();
    const QStringList records = f.Records();

    f.Press("cmdSaveAll");

    QVERIFY(!f.Form);
    QTEST(int(f.Operator.Boxes.size()), "boxes");
    QTEST(int(f.Forms.size()), "forms");
    QCOMPARE(f.Whole(), before);
    QCOMPARE(f.Records(), records);
    QVERIFY(f.IsAtRest());
}

void TestFrmScanSavesAll::SaveAll_WithoutTheEditRight_IsNotOffered()
{
    SaveScanFixture f;
    Database().EditRight = false;
    f.ScanNodes();
    f.ClickRow(1);

    QCOMPARE(f.Enabled(), "close bus");
}

QTEST_MAIN(TestFrmScanSavesAll)
#include "TestFrmScanSavesAll.moc"
