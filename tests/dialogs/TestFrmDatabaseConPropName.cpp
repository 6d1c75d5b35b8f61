#include "tests/dialogs/ConPropFixture.h"

#include <QClipboard>
#include <QTest>

namespace {

/// Gives the focus as a click or a key does, and lets the box hear of it.
void MoveFocus(QWidget& widget)
{
    widget.setFocus(Qt::TabFocusReason);
    QTRY_VERIFY(widget.hasFocus());
}

} // namespace

/// The name box of the connection dialog.
class TestFrmDatabaseConPropName : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Name_Open_HasFocusAndIsSelected();
    void Name_Empty_TellsWhatBelongsThere();
    void Comma_Typed_IsCutWithTheBell();
    void Comma_TypedInTheMiddle_CutsWhatFollows();
    void Comma_Pasted_IsCut_data();
    void Comma_Pasted_IsCut();
    void Comma_None_NoBell();
    void Escape_AfterChange_BringsTheNameBack();
    void Escape_WithoutChange_KeepsTheDialogOpen();
    void Escape_AfterLeaving_BringsTheLeftTextBack();
    void Escape_AfterAVisitToAnotherWindow_BringsTheFirstTextBack_data();
    void Escape_AfterAVisitToAnotherWindow_BringsTheFirstTextBack();
    void Focus_ByTab_SelectsTheText();
    void Focus_ByClick_SelectsTheText();
    void Focus_SecondClick_PlacesTheCaret();
    void Focus_ByDrag_KeepsTheOperatorsSelection();
};

void TestFrmDatabaseConPropName::Name_Open_HasFocusAndIsSelected()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");

    QVERIFY(fixture.Name().hasFocus());
    QCOMPARE(fixture.Name().selectedText(), "Alpha");
    QTest::keyClicks(fixture.Form->focusWidget(), "Omega");
    QCOMPARE(fixture.Name().text(), "Omega");
}

void TestFrmDatabaseConPropName::Name_Empty_TellsWhatBelongsThere()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");

    QCOMPARE(fixture.Name().placeholderText(), "Connection Name");
}

void TestFrmDatabaseConPropName::Comma_Typed_IsCutWithTheBell()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");

    fixture.TypeName("Line 1,");
    QCOMPARE(fixture.Name().text(), "Line 1");
    QCOMPARE(fixture.Computer.Steps, QStringList{"Beep"});
    QTest::keyClicks(&fixture.Name(), "7");

    QCOMPARE(fixture.Name().text(), "Line 17");
    QCOMPARE(fixture.Computer.Steps, QStringList{"Beep"});
}

void TestFrmDatabaseConPropName::Comma_TypedInTheMiddle_CutsWhatFollows()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.Name().setFocus();
    fixture.Name().setCursorPosition(2);

    QTest::keyClicks(&fixture.Name(), ",");

    QCOMPARE(fixture.Name().text(), "Al");
    QCOMPARE(fixture.Name().cursorPosition(), 2);
    QCOMPARE(fixture.Computer.Steps, QStringList{"Beep"});
}

void TestFrmDatabaseConPropName::Comma_Pasted_IsCut_data()
{
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<QString>("text");

    QTest::newRow("inside") << "One,Two"
                            << "One";
    QTest::newRow("several") << "One,Two,Three"
                             << "One";
    QTest::newRow("first") << ",One"
                           << "";
    QTest::newRow("alone") << ","
                           << "";
}

void TestFrmDatabaseConPropName::Comma_Pasted_IsCut()
{
    QFETCH(QString, pasted);
    QFETCH(QString, text);
    ConPropFixture fixture;
    fixture.Edit("Alpha");
    QGuiApplication::clipboard()->setText(pasted);
    fixture.Name().setFocus();
    fixture.Name().selectAll();

    QTest::keySequence(&fixture.Name(), QKeySequence::Paste);

    QCOMPARE(fixture.Name().text(), text);
    QCOMPARE(fixture.Computer.Steps, QStringList{"Beep"});
}

void TestFrmDatabaseConPropName::Comma_None_NoBell()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");

    fixture.TypeName("A.B; C'D");

    QCOMPARE(fixture.Name().text(), "A.B; C'D");
    QCOMPARE(fixture.Computer.Steps, QStringList());
}

void TestFrmDatabaseConPropName::Escape_AfterChange_BringsTheNameBack()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.TypeName("Omega");

    QTest::keyClick(&fixture.Name(), Qt::Key_Escape);

    QCOMPARE(fixture.Name().text(), "Alpha");
    QVERIFY(fixture.Form->isVisible());
}

void TestFrmDatabaseConPropName::Escape_WithoutChange_KeepsTheDialogOpen()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");

    QTest::keyClick(&fixture.Name(), Qt::Key_Escape);
    QTest::keyClick(&fixture.Name(), Qt::Key_Escape);

    QCOMPARE(fixture.Name().text(), "Alpha");
    QVERIFY(fixture.Form->isVisible());
}

void TestFrmDatabaseConPropName::Escape_AfterLeaving_BringsTheLeftTextBack()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.TypeName("Omega");
    MoveFocus(fixture.List());
    MoveFocus(fixture.Name());
    QTest::keyClicks(&fixture.Name(), "Sigma");

    QTest::keyClick(&fixture.Name(), Qt::Key_Escape);

    QCOMPARE(fixture.Name().text(), "Omega");
}

void TestFrmDatabaseConPropName::Escape_AfterAVisitToAnotherWindow_BringsTheFirstTextBack_data()
{
    QTest::addColumn<Qt::FocusReason>("reason");

    QTest::newRow("menu of the box") << Qt::PopupFocusReason;
    QTest::newRow("another window") << Qt::ActiveWindowFocusReason;
}

void TestFrmDatabaseConPropName::Escape_AfterAVisitToAnotherWindow_BringsTheFirstTextBack()
{
    QFETCH(Qt::FocusReason, reason);
    ConPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.TypeName("Omega");
    QFocusEvent out(QEvent::FocusOut, reason);
    QFocusEvent in(QEvent::FocusIn, reason);
    QApplication::sendEvent(&fixture.Name(), &out);
    QApplication::sendEvent(&fixture.Name(), &in);

    QTest::keyClick(&fixture.Name(), Qt::Key_Escape);

    QCOMPARE(fixture.Name().text(), "Alpha");
}

void TestFrmDatabaseConPropName::Focus_ByTab_SelectsTheText()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");
    MoveFocus(fixture.Button("cmdHelp"));
    fixture.Name().deselect();

    QTest::keyClick(&fixture.Button("cmdHelp"), Qt::Key_Tab);

    QVERIFY(fixture.Name().hasFocus());
    QCOMPARE(fixture.Name().selectedText(), "Alpha");
}

void TestFrmDatabaseConPropName::Focus_ByClick_SelectsTheText()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");
    MoveFocus(fixture.List());
    fixture.Name().deselect();

    QTest::mouseClick(&fixture.Name(), Qt::LeftButton);

    QVERIFY(fixture.Name().hasFocus());
    QCOMPARE(fixture.Name().selectedText(), "Alpha");
}

void TestFrmDatabaseConPropName::Focus_SecondClick_PlacesTheCaret()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");
    MoveFocus(fixture.List());
    QTest::mouseClick(&fixture.Name(), Qt::LeftButton);

    // Far from the first one, which it would make a double click.
    QTest::mouseClick(&fixture.Name(), Qt::LeftButton, {}, QPoint(fixture.Name().width() - 5, 5));

    QCOMPARE(fixture.Name().selectedText(), "");
    QCOMPARE(fixture.Name().cursorPosition(), 5);
}

void TestFrmDatabaseConPropName::Focus_ByDrag_KeepsTheOperatorsSelection()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");
    MoveFocus(fixture.List());
    ConNameBox& name = fixture.Name();
    const QPoint start(name.width() - 5, name.height() / 2);
    name.setText("A long name of a connection");

    QTest::mousePress(&name, Qt::LeftButton, {}, start);
    const QPoint end = start - QPoint(name.width() - 30, 0);
    QMouseEvent move(QEvent::MouseMove, end, name.mapToGlobal(end), Qt::LeftButton, Qt::LeftButton, {});
    QApplication::sendEvent(&name, &move);
    QTest::mouseRelease(&name, Qt::LeftButton, {}, end);

    QVERIFY(name.hasSelectedText());
    QVERIFY(name.selectedText() != name.text());
}

QTEST_MAIN(TestFrmDatabaseConPropName)
#include "TestFrmDatabaseConPropName.moc"
