#include "tests/dialogs/GridFixture.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>

class TestGridEditTyping : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Number_Key_IsFiltered_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("caret");
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("after");
        QTest::addColumn<int>("beeps");
        QTest::newRow("digit") << "2" << 1 << int('5') << "25" << 0;
        QTest::newRow("at the limit") << "25" << 2 << int('5') << "255" << 0;
        QTest::newRow("above the limit") << "25" << 2 << int('9') << "25" << 1;
        QTest::newRow("in front") << "25" << 0 << int('3') << "25" << 1;
        QTest::newRow("in front, fits") << "25" << 0 << int('1') << "125" << 0;
        QTest::newRow("in the midst") << "25" << 1 << int('1') << "215" << 0;
        QTest::newRow("into nothing") << "" << 0 << int('7') << "7" << 0;
        QTest::newRow("leading zero") << "0" << 1 << int('7') << "07" << 0;
        QTest::newRow("letter") << "25" << 2 << int('x') << "25" << 0;
        QTest::newRow("minus") << "25" << 0 << int('-') << "25" << 0;
        QTest::newRow("point") << "25" << 2 << int('.') << "25" << 0;
        QTest::newRow("blank") << "25" << 2 << int(' ') << "25" << 0;
        QTest::newRow("Backspace") << "25" << 2 << int(Qt::Key_Backspace) << "2" << 0;
        QTest::newRow("Backspace in the midst") << "125" << 1 << int(Qt::Key_Backspace) << "25" << 0;
        QTest::newRow("Backspace at the start") << "25" << 0 << int(Qt::Key_Backspace) << "25" << 0;
        QTest::newRow("Backspace in nothing") << "" << 0 << int(Qt::Key_Backspace) << "" << 0;
        QTest::newRow("Backspace, the only one") << "2" << 1 << int(Qt::Key_Backspace) << "" << 0;
        QTest::newRow("Backspace, still too much") << "9999" << 4 << int(Qt::Key_Backspace) << "9999" << 1;
        QTest::newRow("Delete") << "25" << 0 << int(Qt::Key_Delete) << "5" << 0;
    }
    void Number_Key_IsFiltered()
    {
        QFETCH(const QString, text);
        QFETCH(const int, caret);
        QFETCH(const int, key);
        QFETCH(const QString, after);
        QFETCH(const int, beeps);
        GridFixture fixture;
        fixture.Open(GridFixture::Number, text);
        fixture.Text->deselect();
        fixture.Text->setCursorPosition(caret);
        if (key < Qt::Key_Escape)
            QTest::keyClick(fixture.Text, char(key));
        else
            QTest::keyClick(fixture.Text, Qt::Key(key));
        QCOMPARE(fixture.Text->text(), after);
        QCOMPARE(fixture.Beeps(), beeps);
    }

    void Number_DigitOverSelection_IsComparedAlone()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::Number, QStringLiteral("25"));
        QTest::keyClick(fixture.Text, '9');
        QCOMPARE(fixture.Text->text(), "9");
        QCOMPARE(fixture.Beeps(), 0);
    }

    void Number_DigitOverSelectionAboveTheLimit_IsRefused()
    {
        GridFixture fixture;
        fixture.Define(GridFixture::Number, "NUM", {"1", "0", "3", ""}, {"0", "5"});
        fixture.Open(GridFixture::Number, QStringLiteral("2"));
        QTest::keyClick(fixture.Text, '7');
        QCOMPARE(fixture.Text->text(), "2");
        QCOMPARE(fixture.Beeps(), 1);
        QTest::keyClick(fixture.Text, Qt::Key_Backspace);
        QCOMPARE(fixture.Text->text(), QString());
        QCOMPARE(fixture.Beeps(), 1);
    }

    void TextKeyPress_ControlKeys_Pass_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("after");
        QTest::newRow("Tab") << 9 << 9;
        QTest::newRow("copy") << 3 << 3;
        QTest::newRow("Enter") << 13 << 0;
        QTest::newRow("above Enter") << 14 << 0;
        QTest::newRow("no key") << 0 << 0;
        QTest::newRow("digit of another script") << 0x0664 << 0;
        QTest::newRow("before 0") << int('/') << 0;
        QTest::newRow("behind 9") << int(':') << 0;
    }
    void TextKeyPress_ControlKeys_Pass()
    {
        QFETCH(int, key);
        QFETCH(const int, after);
        GridFixture fixture;
        fixture.Open(GridFixture::Number);
        GridTextKeyPress(key);
        QCOMPARE(key, after);
        QCOMPARE(fixture.Beeps(), 0);
    }

    void OtherKinds_AnyKey_IsTyped()
    {
        GridFixture fixture;
        for (const int row : {GridFixture::LimitedText, GridFixture::Free}) {
            fixture.Open(row);
            QTest::keyClicks(fixture.Text, QStringLiteral("-x. 9"));
            QCOMPARE(fixture.Text->text(), "-x. 9");
        }
        int enter = 13;
        GridTextKeyPress(enter);
        QCOMPARE(enter, 0);
    }

    void OtherKinds_TooLong_StopsAtTheLimitWithABeep()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::LimitedText);
        QTest::keyClicks(fixture.Text, QStringLiteral("123456789"));
        QCOMPARE(fixture.Text->text(), "12345678");
        QCOMPARE(fixture.Beeps(), 1);
    }

    void StoredText_LongerThanTheLimit_IsNotCutAndMayShrink()
    {
        GridFixture fixture;
        const QString stored = QStringLiteral("twelve chars");
        fixture.Open(GridFixture::LimitedText, stored);
        QCOMPARE(fixture.Text->text(), stored);
        QVERIFY(GridCommitEdit());
        QCOMPARE(fixture.Cell(GridFixture::LimitedText), stored);

        fixture.Open(GridFixture::LimitedText);
        fixture.Text->end(false);
        QTest::keyClick(fixture.Text, Qt::Key_Backspace);
        QTest::keyClicks(fixture.Text, QStringLiteral("xy"));
        QCOMPARE(fixture.Text->text(), "twelve char");
        fixture.Text->selectAll();
        QTest::keyClicks(fixture.Text, QStringLiteral("1234567890"));
        QCOMPARE(fixture.Text->text(), "12345678");
    }

    void LimitOfNone_IsNoLimit()
    {
        GridFixture fixture;
        fixture.Define(GridFixture::LimitedText, "TXT", {"0", "0", "2", ""}, {"0"});
        fixture.Open(GridFixture::LimitedText);
        QTest::keyClicks(fixture.Text, QString(20, QLatin1Char('a')));
        QCOMPARE(fixture.Text->text().size(), 20);
    }

    void Paste_IntoANumber_LetsDigitsAloneIn_data()
    {
        QTest::addColumn<QString>("pasted");
        QTest::addColumn<QString>("after");
        QTest::addColumn<int>("beeps");
        QTest::newRow("digits") << "17"
                                << "17" << 0;
        QTest::newRow("minus") << "-17"
                               << "25" << 1;
        QTest::newRow("letters") << "17a"
                                 << "25" << 1;
        QTest::newRow("point") << "1.7"
                               << "25" << 1;
        QTest::newRow("blanks and a line end") << " 17\n"
                                               << "17" << 0;
    }
    void Paste_IntoANumber_LetsDigitsAloneIn()
    {
        QFETCH(const QString, pasted);
        QFETCH(const QString, after);
        QFETCH(const int, beeps);
        GridFixture fixture;
        fixture.Open(GridFixture::Number, QStringLiteral("25"));
        QApplication::clipboard()->setText(pasted);
        QTest::keySequence(fixture.Text, QKeySequence::Paste);
        QCOMPARE(fixture.Text->text(), after);
        QCOMPARE(fixture.Beeps(), beeps);
    }

    void Paste_AboveTheLimit_IsRefusedAtStoring()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::Number, QStringLiteral("25"));
        QApplication::clipboard()->setText(QStringLiteral("300"));
        QTest::keySequence(fixture.Text, QKeySequence::Paste);
        QCOMPARE(fixture.Text->text(), "300");
        QVERIFY(!GridCommitEdit());
        QCOMPARE(fixture.Cell(GridFixture::Number), "25");
    }

    void Paste_IntoAText_IsTaken()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::LimitedText, QStringLiteral("25"));
        QApplication::clipboard()->setText(QStringLiteral("-a b"));
        QTest::keySequence(fixture.Text, QKeySequence::Paste);
        QCOMPARE(fixture.Text->text(), "-a b");
    }

    void InputMethod_LettersIntoANumber_AreRefused()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::Number, QStringLiteral("25"));
        QInputMethodEvent letters;
        letters.setCommitString(QStringLiteral("x"));
        QApplication::sendEvent(fixture.Text, &letters);
        QCOMPARE(fixture.Text->text(), "25");
    }

    void StoredText_NoNumber_MayOnlyLoseWhatIsStrange()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::Number, QStringLiteral("a2b"));
        QCOMPARE(fixture.Text->text(), "a2b");
        fixture.Text->end(false);
        QTest::keyClick(fixture.Text, Qt::Key_Backspace);
        QCOMPARE(fixture.Text->text(), "a2");
        fixture.Text->home(false);
        QTest::keyClick(fixture.Text, Qt::Key_Delete);
        QCOMPARE(fixture.Text->text(), "2");
    }

    void Spin_AtTheBounds_Beeps_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("button");
        QTest::addColumn<QString>("after");
        QTest::addColumn<int>("beeps");
        QTest::newRow("up") << "41" << 0 << "42" << 0;
        QTest::newRow("down") << "41" << 1 << "40" << 0;
        QTest::newRow("up to the bound") << "98" << 0 << "99" << 0;
        QTest::newRow("up at the bound") << "99" << 0 << "99" << 1;
        QTest::newRow("down to the bound") << "11" << 1 << "10" << 0;
        QTest::newRow("down at the bound") << "10" << 1 << "10" << 1;
        QTest::newRow("up from nothing") << "" << 0 << "1" << 0;
        QTest::newRow("down from nothing") << "" << 1 << "" << 1;
        QTest::newRow("up from above") << "500" << 0 << "500" << 1;
        QTest::newRow("down from above") << "500" << 1 << "499" << 0;
    }
    void Spin_AtTheBounds_Beeps()
    {
        QFETCH(const QString, text);
        QFETCH(const int, button);
        QFETCH(const QString, after);
        QFETCH(const int, beeps);
        GridFixture fixture;
        fixture.Open(GridFixture::Narrow, text);
        fixture.ClickSpinner(button);
        QCOMPARE(fixture.Text->text(), after);
        QCOMPARE(fixture.Beeps(), beeps);
        QVERIFY(fixture.Text->hasFocus());
        QCOMPARE(fixture.Cell(GridFixture::Narrow), text);
    }
};

QTEST_MAIN(TestGridEditTyping)
#include "TestGridEditTyping.moc"
