#include "tests/dialogs/GridFixture.h"

class TestGridEditKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void TextBox_Escape_LosesTheEditAndKeepsTheWindow()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::Number, QStringLiteral("25"));
        QTest::keyClicks(fixture.Text, QStringLiteral("7"));
        QTest::keyClick(fixture.Text, Qt::Key_Escape);
        QCOMPARE(fixture.Cell(GridFixture::Number), "25");
        QVERIFY(fixture.NothingOpen());
        QVERIFY(fixture.Grid->hasFocus());
        QVERIFY(fixture.Window.isVisible());
    }

    void TextBox_Enter_StoresAndKeepsTheWindow()
    {
        GridFixture fixture;
        fixture.Ok->setDefault(true);
        bool clicked = false;
        connect(fixture.Ok, &QPushButton::clicked, this, [&] { clicked = true; });
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
            fixture.Open(GridFixture::LimitedText);
            QTest::keyClicks(fixture.Text, key == Qt::Key_Enter ? QStringLiteral("b") : QStringLiteral("a"));
            QTest::keyClick(fixture.Text, key);
            QCOMPARE(fixture.Cell(GridFixture::LimitedText), key == Qt::Key_Enter ? "b" : "a");
            QVERIFY(fixture.NothingOpen());
            QVERIFY(fixture.Grid->hasFocus());
        }
        QVERIFY(!clicked);
        QVERIFY(fixture.Window.isVisible());
    }

    void TextBox_PlainArrowsWithSpinner_Spin()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::Number, QStringLiteral("25"));
        QTest::keyClick(fixture.Text, Qt::Key_Down);
        QCOMPARE(fixture.Text->text(), "24");
        QTest::keyClick(fixture.Text, Qt::Key_Up);
        QTest::keyClick(fixture.Text, Qt::Key_Up);
        QCOMPARE(fixture.Text->text(), "26");
        QCOMPARE(fixture.Grid->Row(), int(GridFixture::Number));
        QCOMPARE(fixture.Cell(GridFixture::Number), "25");
    }

    void TextBox_ArrowsWithModifier_MoveARow_data()
    {
        QTest::addColumn<int>("modifier");
        QTest::newRow("Shift") << int(Qt::ShiftModifier);
        QTest::newRow("Ctrl") << int(Qt::ControlModifier);
        QTest::newRow("Alt") << int(Qt::AltModifier);
    }
    void TextBox_ArrowsWithModifier_MoveARow()
    {
        QFETCH(const int, modifier);
        GridFixture fixture;
        fixture.Open(GridFixture::Number, QStringLiteral("25"));
        QTest::keyClicks(fixture.Text, QStringLiteral("31"));
        QTest::keyClick(fixture.Text, Qt::Key_Down, Qt::KeyboardModifier(modifier));
        QCOMPARE(fixture.Cell(GridFixture::Number), "31");
        QCOMPARE(fixture.Grid->Row(), int(GridFixture::LimitedText));
        QVERIFY(fixture.Text->hasFocus());
        QVERIFY(fixture.Spinner->isHidden());
        QTest::keyClick(fixture.Text, Qt::Key_Up, Qt::KeyboardModifier(modifier));
        QCOMPARE(fixture.Grid->Row(), int(GridFixture::Number));
        QCOMPARE(fixture.Text->selectedText(), "31");
        QVERIFY(fixture.Data.Computer.Steps.contains(QStringLiteral("Pump")));
    }

    void TextBox_PlainArrowsWithoutSpinner_MoveARow()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::LimitedText);
        QTest::keyClicks(fixture.Text, QStringLiteral("abc"));
        QTest::keyClick(fixture.Text, Qt::Key_Down);
        QCOMPARE(fixture.Cell(GridFixture::LimitedText), "abc");
        QVERIFY(fixture.Combo->hasFocus());
        QCOMPARE(fixture.Grid->Row(), int(GridFixture::List));
        fixture.Open(GridFixture::LimitedText);
        QTest::keyClick(fixture.Text, Qt::Key_Up);
        QCOMPARE(fixture.Grid->Row(), int(GridFixture::Number));
        QVERIFY(fixture.Spinner->isVisible());
    }

    void TextBox_UpInTheFirstRow_OpensItAgain()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::Number, QStringLiteral("25"));
        QTest::keyClicks(fixture.Text, QStringLiteral("9"));
        QTest::keyClick(fixture.Text, Qt::Key_Up, Qt::ShiftModifier);
        QCOMPARE(fixture.Grid->Row(), int(GridFixture::Number));
        QCOMPARE(fixture.Cell(GridFixture::Number), "9");
        QCOMPARE(fixture.Text->selectedText(), "9");
        QVERIFY(fixture.Text->hasFocus());
    }

    void TextBox_DownBehindTheLastParameter_StopsAtTheLastRow()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::Narrow, QStringLiteral("12"));
        QTest::keyClick(fixture.Text, Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(fixture.Grid->Row(), int(GridFixture::Unused));
        QVERIFY(fixture.NothingOpen());
        QVERIFY(fixture.Grid->hasFocus());

        fixture.Grid->SetGridSize(GridFixture::Unused, 2);
        fixture.Open(GridFixture::Narrow);
        QTest::keyClick(fixture.Text, Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(fixture.Grid->Row(), int(GridFixture::Narrow));
        QVERIFY(fixture.Text->hasFocus());
    }

    void TextBox_MoveWhileTheFormGoes_DoesNothingMore()
    {
        auto* window = new GridFixture;
        window->Open(GridFixture::LimitedText);
        window->Data.Computer.WhilePumping = [&] { GridDetach(*window->Grid); };
        QTest::keyClick(window->Text, Qt::Key_Down);
        QVERIFY(window->NothingOpen());
        QCOMPARE(window->Grid->Row(), int(GridFixture::LimitedText));
        delete window;
    }

    void TextBox_Tab_ReachesTheNextControlAndStores()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::LimitedText);
        QTest::keyClicks(fixture.Text, QStringLiteral("abc"));
        QTest::keyClick(fixture.Text, Qt::Key_Tab);
        QVERIFY(fixture.Other->hasFocus());
        QCOMPARE(fixture.Cell(GridFixture::LimitedText), "abc");
        QVERIFY(fixture.NothingOpen());
        QTest::keyClick(fixture.Other, Qt::Key_Backtab);
        QVERIFY(fixture.Grid->hasFocus());
    }

    void TextBox_BackTab_ReachesTheGrid()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::LimitedText);
        QTest::keyClicks(fixture.Text, QStringLiteral("abc"));
        QTest::keyClick(fixture.Text, Qt::Key_Backtab);
        QVERIFY(fixture.Grid->hasFocus());
        QCOMPARE(fixture.Cell(GridFixture::LimitedText), "abc");
    }

    void Grid_Character_BeginsANewValue()
    {
        GridFixture fixture;
        fixture.SetCell(GridFixture::Number, QStringLiteral("25"));
        fixture.Grid->SetCell(GridFixture::Number, 1);
        fixture.Grid->setFocus();
        QTest::keyClick(fixture.Grid, '7');
        QCOMPARE(fixture.Text->text(), "7");
        QCOMPARE(fixture.Text->cursorPosition(), 1);
        QVERIFY(!fixture.Text->hasSelectedText());
        QTest::keyClick(fixture.Text, '1');
        QCOMPARE(fixture.Text->text(), "71");
    }

    void Grid_CharacterThatIsNotAllowed_OpensTheStoredValue()
    {
        GridFixture fixture;
        fixture.SetCell(GridFixture::Number, QStringLiteral("25"));
        fixture.Grid->SetCell(GridFixture::Number, 1);
        fixture.Grid->setFocus();
        QTest::keyClick(fixture.Grid, 'x');
        QCOMPARE(fixture.Text->selectedText(), "25");
        QCOMPARE(fixture.Beeps(), 0);
    }

    void Grid_EnterBlankOrF2_OpenTheStoredValue_data()
    {
        QTest::addColumn<int>("key");
        QTest::newRow("Enter") << int(Qt::Key_Return);
        QTest::newRow("blank") << int(Qt::Key_Space);
        QTest::newRow("F2") << int(Qt::Key_F2);
        QTest::newRow("Backspace") << int(Qt::Key_Backspace);
    }
    void Grid_EnterBlankOrF2_OpenTheStoredValue()
    {
        QFETCH(const int, key);
        GridFixture fixture;
        fixture.SetCell(GridFixture::LimitedText, QStringLiteral("abc"));
        fixture.Grid->SetCell(GridFixture::LimitedText, 1);
        fixture.Grid->setFocus();
        QTest::keyClick(fixture.Grid, Qt::Key(key));
        QCOMPARE(fixture.Text->selectedText(), "abc");
        QVERIFY(fixture.Window.isVisible());
    }

    void Grid_AnyCharacter_BeginsATextInEachScript()
    {
        GridFixture fixture;
        fixture.Grid->SetCell(GridFixture::LimitedText, 1);
        fixture.Grid->setFocus();
        QTest::sendKeyEvent(QTest::Click, fixture.Grid, Qt::Key_unknown, QString::fromUtf8("Ж"),
                            Qt::NoModifier);
        QCOMPARE(fixture.Text->text(), QString::fromUtf8("Ж"));
    }

    void Grid_EscapeWithoutEdit_ClosesTheWindow()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::Number);
        QTest::keyClick(fixture.Text, Qt::Key_Escape);
        QTest::keyClick(fixture.Grid, Qt::Key_Escape);
        QVERIFY(!fixture.Window.isVisible());
    }
};

QTEST_MAIN(TestGridEditKeys)
#include "TestGridEditKeys.moc"
