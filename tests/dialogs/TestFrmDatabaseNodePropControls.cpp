#include "dialogs/DialogState.h"
#include "platform/HelpHook.h"
#include "tests/dialogs/NodePropFixture.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>

/// Captions, keys and the smaller buttons of the node dialog.
class TestFrmDatabaseNodePropControls : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Caption_EachControl_ReadsAsNamed_data();
    void Caption_EachControl_ReadsAsNamed();
    void AccessKeys_AllControls_AreDifferent();
    void AccessibleName_EachControl_IsThere();
    void Tab_FromTheName_VisitsAllControls();
    void Tab_FromAnOpenEditor_GoesOnBehindTheGrid();
    void BackTab_FromAnOpenEditor_GoesToTheGrid();
    void Resize_Smaller_KeepsEverythingInside();
    void TypeName_Comma_IsCutWithTheBell();
    void PasteName_Comma_IsCutWithTheBell();
    void Escape_InTheName_BringsItBack();
    void Escape_InAnEditor_LosesTheEdit_data();
    void Escape_InAnEditor_LosesTheEdit();
    void Escape_InTheGrid_Cancels();
    void Enter_InAnEditor_StoresTheValueAndSavesNothing();
    void Wheel_OverAChoice_ChangesNothing();
    void Cancel_Click_SavesNothing();
    void Help_ClickOrF1_ShowsTheTopic();
    void Manager_Click_ShowsTheForm();
    void Manager_NoForm_DoesNothing();
    void Manager_WhileShown_KeepsTheChoiceOfConnections();
};

void TestFrmDatabaseNodePropControls::Caption_EachControl_ReadsAsNamed_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("buddy");

    QTest::newRow("name") << "lblNodeName"
                          << "Node Name:"
                          << "txtNodeName";
    QTest::newRow("connection") << "lblConName"
                                << "Connection Name:"
                                << "cboConName";
    QTest::newRow("class") << "lblNodeType"
                           << "Node Class:"
                           << "cboNodeType";
    QTest::newRow("pages") << "lblWPlist"
                           << "Node Definition:"
                           << "lstWPlist";
    QTest::newRow("grid") << "lblParameterHeader"
                          << "NET4-waypoint parameters:"
                          << "grdNodeParam";
    QTest::newRow("manager") << "cmdManager"
                             << "Manager Info"
                             << "";
    QTest::newRow("save") << "cmdSave"
                          << "Save"
                          << "";
    QTest::newRow("cancel") << "cmdCancel"
                            << "Cancel"
                            << "";
    QTest::newRow("help") << "cmdHelp"
                          << "Help"
                          << "";
}

void TestFrmDatabaseNodePropControls::Caption_EachControl_ReadsAsNamed()
{
    QFETCH(QString, control);
    QFETCH(QString, caption);
    QFETCH(QString, buddy);
    NodePropFixture f;
    f.ShowNode("North");

    auto& widget = f.Find<QWidget>(qPrintable(control));
    QCOMPARE(widget.property("text").toString().remove(u'&'), caption);
    if (!buddy.isEmpty())
        QCOMPARE(f.Find<QLabel>(qPrintable(control)).buddy()->objectName(), buddy);
}

void TestFrmDatabaseNodePropControls::AccessKeys_AllControls_AreDifferent()
{
    NodePropFixture f;
    f.ShowNode("North");

    QStringList keys;
    for (const QLabel* label : f.Form->findChildren<QLabel*>())
        keys << QKeySequence::mnemonic(label->text()).toString();
    for (const QAbstractButton* button : f.Form->findChildren<QAbstractButton*>())
        keys << QKeySequence::mnemonic(button->text()).toString();
    keys.removeAll(QString());
    QCOMPARE(keys.size(), 8);
    QCOMPARE(keys.removeDuplicates(), 0);
}

void TestFrmDatabaseNodePropControls::AccessibleName_EachControl_IsThere()
{
    NodePropFixture f;
    f.ShowNode("North");

    for (const char* name :
         {"txtNodeName", "cboConName", "cboNodeType", "lstWPlist", "grdNodeParam", "txtGridEdit",
          "cboGridEdit", "spnGridEdit", "cmdManager", "cmdSave", "cmdCancel", "cmdHelp", "imgConArray"})
        QVERIFY2(!f.Find<QWidget>(name).accessibleName().isEmpty(), name);
    // What these two say changes, so it is their name.
    for (const char* name : {"lblConnectionType", "lblParameterHeader"}) {
        auto& label = f.Find<QLabel>(name);
        QCOMPARE(QAccessible::queryAccessibleInterface(&label)->text(QAccessible::Name), label.text());
    }
}

void TestFrmDatabaseNodePropControls::Tab_FromTheName_VisitsAllControls()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.Find<QWidget>("txtNodeName").setFocus();

    QStringList visited{f.Form->focusWidget()->objectName()};
    while (visited.size() < 9) {
        QTest::keyClick(f.Form->focusWidget(), Qt::Key_Tab);
        visited << f.Form->focusWidget()->objectName();
    }
    QCOMPARE(visited, (QStringList{"txtNodeName", "cboConName", "cboNodeType", "lstWPlist", "grdNodeParam",
                                   "cmdManager", "cmdSave", "cmdCancel", "cmdHelp"}));
}

void TestFrmDatabaseNodePropControls::Tab_FromAnOpenEditor_GoesOnBehindTheGrid()
{
    NodePropFixture f;
    f.ShowNode("North");
    for (const int row : {2, 3}) {
        f.OpenEditor(row);
        QTest::keyClick(f.Editor(), Qt::Key_Tab);

        QCOMPARE(f.Form->focusWidget(), &f.Find<QWidget>("cmdManager"));
        QVERIFY(!f.Editor());
    }
}

void TestFrmDatabaseNodePropControls::BackTab_FromAnOpenEditor_GoesToTheGrid()
{
    NodePropFixture f;
    f.ShowNode("North");
    for (const int row : {2, 3}) {
        f.OpenEditor(row);
        QTest::keyClick(f.Editor(), Qt::Key_Backtab, Qt::ShiftModifier);

        QCOMPARE(f.Form->focusWidget(), &f.Find<QWidget>("grdNodeParam"));
        QVERIFY(!f.Editor());
    }
}

void TestFrmDatabaseNodePropControls::Resize_Smaller_KeepsEverythingInside()
{
    NodePropFixture f;
    f.ShowNode("North");
    QCOMPARE(f.Form->size(), QSize(640, 520));
    f.Form->resize(10, 10);
    QCoreApplication::processEvents();

    for (const char* name : {"txtNodeName", "cboConName", "cboNodeType", "lstWPlist", "grdNodeParam",
                             "cmdManager", "cmdSave", "cmdCancel", "cmdHelp"}) {
        const auto& control = f.Find<QWidget>(name);
        QVERIFY2(f.Form->rect().contains(QRect(control.mapTo(f.Form.get(), QPoint()), control.size())), name);
    }
}

void TestFrmDatabaseNodePropControls::TypeName_Comma_IsCutWithTheBell()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.Computer.Steps.clear();
    f.TypeName("Nor,th");

    QCOMPARE(f.Name(), "North");
    QCOMPARE(f.Computer.Steps.count("Beep"), 1);
}

void TestFrmDatabaseNodePropControls::PasteName_Comma_IsCutWithTheBell()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.Computer.Steps.clear();
    auto& box = f.Find<QLineEdit>("txtNodeName");
    box.selectAll();
    box.insert("West,East,South");

    QCOMPARE(f.Name(), "West");
    QCOMPARE(box.cursorPosition(), 4);
    QCOMPARE(f.Computer.Steps.count("Beep"), 1);
}

void TestFrmDatabaseNodePropControls::Escape_InTheName_BringsItBack()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.TypeName("West");
    QTest::keyClick(&f.Find<QLineEdit>("txtNodeName"), Qt::Key_Escape);

    QCOMPARE(f.Name(), "North");
    QVERIFY(f.Form->isVisible());
}

void TestFrmDatabaseNodePropControls::Escape_InAnEditor_LosesTheEdit_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("before");

    QTest::newRow("text box") << 1 << "99"
                              << "17";
    QTest::newRow("combo box") << 3 << "HIGH"
                               << "NORMAL";
}

void TestFrmDatabaseNodePropControls::Escape_InAnEditor_LosesTheEdit()
{
    QFETCH(int, row);
    QFETCH(QString, value);
    QFETCH(QString, before);
    NodePropFixture f;
    f.ShowNode("North");
    f.TypeValue(row, value);
    QTest::keyClick(f.Editor(), Qt::Key_Escape);

    QVERIFY(!f.Editor());
    QCOMPARE(f.Cell(row), before);
    QVERIFY(f.Form->isVisible());
}

void TestFrmDatabaseNodePropControls::Escape_InTheGrid_Cancels()
{
    NodePropFixture f;
    f.ShowNode("North");
    QTest::keyClick(f.Editor(), Qt::Key_Escape);
    QTest::keyClick(&f.Parameters(), Qt::Key_Escape);

    QVERIFY(!f.Form->isVisible());
    QCOMPARE(f.Form->result(), int(QDialog::Rejected));
}

void TestFrmDatabaseNodePropControls::Enter_InAnEditor_StoresTheValueAndSavesNothing()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.Forget();
    f.EnterValue(1, "99");

    QCOMPARE(f.Cell(1), "99");
    QVERIFY(f.Form->isVisible());
    QCOMPARE(f.Component.Count("BeginTransaction"), 0);
}

void TestFrmDatabaseNodePropControls::Wheel_OverAChoice_ChangesNothing()
{
    NodePropFixture f;
    f.ShowNode("North");
    for (const char* name : {"cboConName", "cboNodeType"}) {
        auto& box = f.Find<QComboBox>(name);
        const QPointF place = box.rect().center();
        QWheelEvent turn(place, box.mapToGlobal(place), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                         Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&box, &turn);
        QCOMPARE(box.currentIndex(), 0);
    }
}

void TestFrmDatabaseNodePropControls::Cancel_Click_SavesNothing()
{
    NodePropFixture f;
    f.ShowNode("North");
    const QStringList before = f.Records();
    f.EnterValue(1, "99");
    f.TypeName("West");
    f.Click("cmdCancel");

    QVERIFY(!f.Form->isVisible());
    QCOMPARE(f.Form->result(), int(QDialog::Rejected));
    QCOMPARE(f.Records(), before);
}

void TestFrmDatabaseNodePropControls::Help_ClickOrF1_ShowsTheTopic()
{
    NodePropFixture f;
    QStringList topics;
    Help().ShowHelpTopic = [&](const QString& topic) { topics << topic; };
    f.ShowNode("North");
    f.Click("cmdHelp");
    QTest::keyClick(f.Form->focusWidget(), Qt::Key_F1);

    QCOMPARE(topics, (QStringList{"Browser4Properties00000036.htm", "Browser4Properties00000036.htm"}));
}

void TestFrmDatabaseNodePropControls::Manager_Click_ShowsTheForm()
{
    NodePropFixture f;
    QList<QWidget*> parents;
    Dialogs().ShowManagerInfo = [&](QWidget* parent) { parents << parent; };
    f.ShowNode("North");
    f.Click("cmdManager");

    QCOMPARE(parents, QList<QWidget*>{f.Form.get()});
}

void TestFrmDatabaseNodePropControls::Manager_NoForm_DoesNothing()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.Click("cmdManager");

    QVERIFY(f.Form->isVisible());
    QVERIFY(f.Operator.Boxes.empty());
}

void TestFrmDatabaseNodePropControls::Manager_WhileShown_KeepsTheChoiceOfConnections()
{
    NodePropFixture f;
    Dialogs().ShowManagerInfo = [&](QWidget*) {
        QEvent activation(QEvent::WindowActivate);
        QCoreApplication::sendEvent(f.Form.get(), &activation);
        QCoreApplication::processEvents();
    };
    f.ShowNode("North");
    f.Click("cmdManager");
    f.Choose("cboConName", "Beta");

    QCOMPARE(f.Text("lblConnectionType"), "Connection Type: T4 Bus over TCP/IP");
}

QTEST_MAIN(TestFrmDatabaseNodePropControls)
#include "TestFrmDatabaseNodePropControls.moc"
