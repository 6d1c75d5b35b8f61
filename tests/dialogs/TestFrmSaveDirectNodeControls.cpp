#include "dialogs/DialogState.h"
#include "model/ModelState.h"
#include "platform/HelpHook.h"
#include "tests/dialogs/SaveDirectNodeFixture.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

/// Captions, keys, pages and the smaller buttons of the dialog that saves a node of the Direct tab.
class TestFrmSaveDirectNodeControls : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Caption_EachControl_ReadsAsNamed_data();
    void Caption_EachControl_ReadsAsNamed();
    void AccessKeys_AllControls_AreDifferent();
    void AccessibleName_EachControl_IsThere();
    void Tab_FromTheName_VisitsAllControls();
    void Resize_Smaller_KeepsEverythingInside();
    void TypeName_Comma_IsCutWithTheBell();
    void FixedBoxes_Typing_ChangesNothing();
    void Page_Left_StoresItsValues();
    void Page_Shown_ShowsItsValues();
    void FePage_NeverFilled_IsNotStored();
    void Time_Entered_GoesToTheOtherWaypoints();
    void Cancel_Click_SavesNothing();
    void Help_ClickOrF1_ShowsTheTopic();
    void Manager_Click_ShowsTheFormForTheNode();
    void Manager_NoConObject_DoesNothing();
    void Manager_DialogGone_EndsWithoutIt();
};

void TestFrmSaveDirectNodeControls::Caption_EachControl_ReadsAsNamed_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("buddy");
    const QList<QStringList> rows{{"lblNodeName", "Node Name:", "txtNodeName"},
                                  {"lblConName", "Connection Name:", "txtConName"},
                                  {"lblConType", "Connection Type:", "txtConType"},
                                  {"lblNodeType", "Node Class:", "txtNodeType"},
                                  {"lblWPlist", "Node Definition:", "lstWPlist"},
                                  {"lblParameterHeader", "NET4-waypoint parameters:", "grdNodeParam"},
                                  {"cmdManager", "Manager Info", ""},
                                  {"cmdSave", "Save", ""},
                                  {"cmdCancel", "Cancel", ""},
                                  {"cmdHelp", "Help", ""}};
    for (const QStringList& row : rows)
        QTest::newRow(qPrintable(row[0])) << row[0] << row[1] << row[2];
}

void TestFrmSaveDirectNodeControls::Caption_EachControl_ReadsAsNamed()
{
    QFETCH(QString, control);
    QFETCH(QString, caption);
    QFETCH(QString, buddy);
    SaveDirectNodeFixture f;
    f.ShowOn("Alpha");

    QCOMPARE(f.Find<QWidget>(qPrintable(control)).property("text").toString().remove(u'&'), caption);
    if (!buddy.isEmpty())
        QCOMPARE(f.Find<QLabel>(qPrintable(control)).buddy()->objectName(), buddy);
}

void TestFrmSaveDirectNodeControls::AccessKeys_AllControls_AreDifferent()
{
    SaveDirectNodeFixture f;
    f.ShowOn("Alpha");

    QStringList keys;
    for (const QLabel* label : f.Form->findChildren<QLabel*>())
        keys << QKeySequence::mnemonic(label->text()).toString();
    for (const QAbstractButton* button : f.Form->findChildren<QAbstractButton*>())
        keys << QKeySequence::mnemonic(button->text()).toString();
    keys.removeAll(QString());
    QCOMPARE(keys.size(), 9);
    QCOMPARE(keys.removeDuplicates(), 0);
}

void TestFrmSaveDirectNodeControls::AccessibleName_EachControl_IsThere()
{
    SaveDirectNodeFixture f;
    f.ShowOn("Alpha");

    for (const char* name :
         {"txtNodeName", "txtConName", "txtConType", "txtNodeType", "lstWPlist", "grdNodeParam",
          "txtGridEdit", "cboGridEdit", "spnGridEdit", "cmdManager", "cmdSave", "cmdCancel", "cmdHelp"})
        QVERIFY2(!f.Find<QWidget>(name).accessibleName().isEmpty(), name);
}

void TestFrmSaveDirectNodeControls::Tab_FromTheName_VisitsAllControls()
{
    SaveDirectNodeFixture f;
    f.ShowOn("Alpha");
    f.Find<QWidget>("txtNodeName").setFocus();

    const QStringList all{"txtNodeName",  "txtConName", "txtConType", "txtNodeType", "lstWPlist",
                          "grdNodeParam", "cmdManager", "cmdSave",    "cmdCancel",   "cmdHelp"};
    QStringList visited{f.Form->focusWidget()->objectName()};
    while (visited.size() < all.size()) {
        QTest::keyClick(f.Form->focusWidget(), Qt::Key_Tab);
        visited << f.Form->focusWidget()->objectName();
    }
    QCOMPARE(visited, all);
}

void TestFrmSaveDirectNodeControls::Resize_Smaller_KeepsEverythingInside()
{
    SaveDirectNodeFixture f;
    f.ShowOn("Alpha");
    f.Form->resize(10, 10);
    QCoreApplication::processEvents();

    for (const char* name : {"txtNodeName", "txtConName", "txtConType", "txtNodeType", "lstWPlist",
                             "grdNodeParam", "cmdManager", "cmdSave", "cmdCancel", "cmdHelp"}) {
        const auto& control = f.Find<QWidget>(name);
        QVERIFY2(f.Form->rect().contains(QRect(control.mapTo(f.Form.get(), QPoint()), control.size())), name);
    }
}

void TestFrmSaveDirectNodeControls::TypeName_Comma_IsCutWithTheBell()
{
    SaveDirectNodeFixture f;
    f.ShowOn("Alpha");
    f.Computer.Steps.clear();
    f.TypeName("Nor,th");

    QCOMPARE(f.Name(), "North");
    QCOMPARE(f.Computer.Steps.count("Beep"), 1);
}

void TestFrmSaveDirectNodeControls::FixedBoxes_Typing_ChangesNothing()
{
    SaveDirectNodeFixture f;
    f.ShowOn("Alpha");
    for (const char* name : {"txtConName", "txtConType", "txtNodeType"}) {
        auto& box = f.Find<QLineEdit>(name);
        const QString before = box.text();
        QTest::keyClicks(&box, "x");
        QCOMPARE(box.text(), before);
    }
}

// Pages -----------------------------------------------------------------------------------------------------

void TestFrmSaveDirectNodeControls::Page_Left_StoresItsValues()
{
    SaveDirectNodeFixture f;
    f.ShowOn("Alpha");
    f.TypeValue(1, "100");
    f.ClickPage(1);

    QCOMPARE(f.Value(1, 1), "100");
    QCOMPARE(f.Value(1, 2), "0");
    QCOMPARE(f.Value(1, 3), "NORMAL");
    QCOMPARE(f.Direct().SelectedWpIndx, 2);
}

void TestFrmSaveDirectNodeControls::Page_Shown_ShowsItsValues()
{
    SaveDirectNodeFixture f;
    f.ShowOn("Alpha");
    f.ClickPage(1);

    QCOMPARE(f.Text("lblParameterHeader"), "OPT-waypoint parameters:");
    QCOMPARE(f.Column(1), (QStringList{"T4DT", "TEXT", "YES"}));
    f.EnterValue(3, "NO");
    f.ClickPage(0);
    f.ClickPage(1);
    QCOMPARE(f.Cell(3), "NO");
    QCOMPARE(f.Value(2, 3), "NO");
}

void TestFrmSaveDirectNodeControls::FePage_NeverFilled_IsNotStored()
{
    SaveDirectNodeFixture f;
    f.ShowOn("Alpha");
    f.ClickPage(2);
    f.ClickPage(0);

    QCOMPARE(f.Value(3, 2), QString());
    f.ClickPage(2);
    f.EnterValue(1, "7");
    f.ClickPage(0);
    QCOMPARE(f.Value(3, 1), "7");
    QCOMPARE(f.Value(3, 2), "0");
}

void TestFrmSaveDirectNodeControls::Time_Entered_GoesToTheOtherWaypoints()
{
    SaveDirectNodeFixture f;
    Model().TimeRetryNames = {"TIME OUT", "RETRY COUNT"};
    f.ShowOn("Alpha");
    f.Direct().SetWpDataItem(2, 1, 4, "TIME OUT");
    f.EnterValue(5, "4000");
    f.ClickPage(1);
    Model().TimeRetryNames = {};

    QCOMPARE(f.Value(1, 5), "4000");
    QCOMPARE(f.Value(2, 1), "4000");
}

// Buttons ---------------------------------------------------------------------------------------------------

void TestFrmSaveDirectNodeControls::Cancel_Click_SavesNothing()
{
    SaveDirectNodeFixture f;
    f.ShowOnNew("Delta");
    const QStringList before = f.Records();
    const QStringList flags = f.Flags();
    f.EnterValue(1, "100");
    f.TypeName("West");
    f.Click("cmdCancel");

    QVERIFY(!f.Form->isVisible());
    QCOMPARE(f.Form->result(), int(QDialog::Rejected));
    QCOMPARE(f.Records(), before);
    QCOMPARE(f.Flags(), flags);
}

void TestFrmSaveDirectNodeControls::Help_ClickOrF1_ShowsTheTopic()
{
    SaveDirectNodeFixture f;
    QStringList topics;
    Help().ShowHelpTopic = [&](const QString& topic) { topics << topic; };
    f.ShowOn("Alpha");
    f.Click("cmdHelp");
    QTest::keyClick(f.Form->focusWidget(), Qt::Key_F1);

    QCOMPARE(topics, QStringList(2, "Browser4Save_One_Node.htm#SaveDirect1"));
}

void TestFrmSaveDirectNodeControls::Manager_Click_ShowsTheFormForTheNode()
{
    SaveDirectNodeFixture f;
    QStringList seen;
    Dialogs().ShowManagerInfo = [&](QWidget* parent) {
        seen << f.Con().NodeType << f.Con().CommandLine;
        QCOMPARE(parent, f.Form.get());
        f.Con().NodeType = "NET4";
        f.Con().CommandLine = "1|-port 5";
    };
    f.ShowOn("Alpha");
    f.Direct().NodeType = "NEMML";
    f.Direct().CommandLine = "-port 3";
    f.Con().NodeType = "own";
    f.Con().CommandLine = "own line";
    f.Click("cmdManager");

    QCOMPARE(seen, (QStringList{"NEMML", "-port 3"}));
    QCOMPARE((QStringList{f.Direct().NodeType, f.Direct().CommandLine}), (QStringList{"NET4", "1|-port 5"}));
    QCOMPARE((QStringList{f.Con().NodeType, f.Con().CommandLine}), (QStringList{"own", "own line"}));
}

void TestFrmSaveDirectNodeControls::Manager_NoConObject_DoesNothing()
{
    SaveDirectNodeFixture f;
    int shown = 0;
    Dialogs().ShowManagerInfo = [&](QWidget*) { ++shown; };
    f.ShowOn("Alpha");
    Model().ConObject.reset();
    f.Click("cmdManager");

    QCOMPARE(shown, 0);
    QVERIFY(f.Form->isVisible());
}

void TestFrmSaveDirectNodeControls::Manager_DialogGone_EndsWithoutIt()
{
    SaveDirectNodeFixture f;
    std::unique_ptr<ConData> former;
    Dialogs().ShowManagerInfo = [&](QWidget*) {
        f.Form.reset();
        former = std::exchange(Model().ConObject, std::make_unique<ConData>());
    };
    f.ShowOn("Alpha");
    f.Direct().NodeType = "NEMML";
    f.Click("cmdManager");

    QVERIFY(!f.Form);
    QCOMPARE(Model().ConObject->NodeType, QString());
}

QTEST_MAIN(TestFrmSaveDirectNodeControls)
#include "TestFrmSaveDirectNodeControls.moc"
