#include "dialogs/GridEditors.h"
#include "tests/dialogs/GridFixture.h"

#include <QAbstractItemView>
#include <QWheelEvent>

class TestGridEditCombo : public QObject
{
    Q_OBJECT

private:
    static QStringList Entries(const QComboBox& combo)
    {
        QStringList entries;
        for (int index = 0; index < combo.count(); ++index)
            entries << combo.itemText(index);
        return entries;
    }

private Q_SLOTS:
    void Open_List_HoldsTheDefaultAndTheValues()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::List, QStringLiteral("C"));
        QCOMPARE(Entries(*fixture.Combo), QStringList({"Default (B)", "A", "B", "C"}));
        QCOMPARE(fixture.Combo->currentText(), "C");
        QVERIFY(!fixture.Combo->isEditable());
    }

    void Open_List_ShowsThatItHasTheFocus()
    {
        GridFixture fixture;
        fixture.Window.setAttribute(Qt::WA_KeyboardFocusChange, false);
        fixture.Open(GridFixture::List);
        QVERIFY(fixture.Combo->hasFocus());
        QVERIFY(fixture.Window.testAttribute(Qt::WA_KeyboardFocusChange));
    }

    void Open_NoDefault_ReadsNoValue()
    {
        GridFixture fixture;
        fixture.Define(GridFixture::List, "LST", {"0", "0", "4", "  "}, {"2", "A\tB"});
        fixture.Open(GridFixture::List);
        QCOMPARE(Entries(*fixture.Combo), QStringList({"Default (No value)", "A", "B"}));
    }

    void Open_CellWithoutValue_ShowsNothingAndStoresNothing_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << "";
        QTest::newRow("blanks") << "  ";
    }
    void Open_CellWithoutValue_ShowsNothingAndStoresNothing()
    {
        QFETCH(const QString, text);
        GridFixture fixture;
        fixture.Open(GridFixture::List, text);
        QCOMPARE(fixture.Combo->currentIndex(), -1);
        QVERIFY(GridCommitEdit());
        QCOMPARE(fixture.Cell(GridFixture::List).trimmed(), QString());
    }

    void Open_TextThatIsNotInTheList_ShowsAndKeepsIt()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::List, QStringLiteral("b"));
        QCOMPARE(GridComboText(), "b");
        QCOMPARE(fixture.Combo->currentIndex(), -1);
        QCOMPARE(fixture.Combo->placeholderText(), "b");
        QCOMPARE(fixture.Combo->accessibleDescription(), "b");
        QCOMPARE(fixture.Combo->palette().color(QPalette::PlaceholderText),
                 fixture.Grid->palette().color(QPalette::ButtonText));
        QVERIFY(GridCommitEdit());
        QCOMPARE(fixture.Cell(GridFixture::List), "b");
        fixture.Open(GridFixture::List, QStringLiteral("A"));
        QCOMPARE(GridComboText(), "A");
    }

    void Arrows_FromTextThatIsNotInTheList_ReachTheList()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::List, QStringLiteral("Z"));
        QTest::keyClick(fixture.Combo, Qt::Key_Down);
        QCOMPARE(fixture.Combo->currentText(), "Default (B)");
        QTest::keyClick(fixture.Combo, Qt::Key_Down);
        QCOMPARE(fixture.Combo->currentText(), "A");
        QTest::keyClick(fixture.Combo, Qt::Key_Escape);
        QCOMPARE(fixture.Cell(GridFixture::List), "Z");
    }

    void Store_Default_StoresTheDefaultText()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::List, QStringLiteral("C"));
        QTest::keyClick(fixture.Combo, Qt::Key_Home);
        QCOMPARE(fixture.Combo->currentText(), "Default (B)");
        QVERIFY(GridCommitEdit());
        QCOMPARE(fixture.Cell(GridFixture::List), "B");
    }

    void Store_NoDefault_EmptiesTheCell()
    {
        GridFixture fixture;
        fixture.Define(GridFixture::List, "LST", {"0", "0", "4", ""}, {"2", "A\tB"});
        fixture.Open(GridFixture::List, QStringLiteral("A"));
        fixture.Combo->setCurrentIndex(0);
        QVERIFY(GridCommitEdit());
        QCOMPARE(fixture.Cell(GridFixture::List), QString());
    }

    void Store_AnyTextWithDefaultInIt_StoresTheDefaultText()
    {
        GridFixture fixture;
        fixture.Define(GridFixture::List, "LST", {"0", "0", "4", "B"}, {"2", "B\tMy DEFAULT one"});
        fixture.Open(GridFixture::List, QStringLiteral("C"));
        fixture.Combo->setCurrentIndex(2);
        QVERIFY(GridCommitEdit());
        QCOMPARE(fixture.Cell(GridFixture::List), "B");
    }

    void Keys_PlainArrows_MoveWithinTheList()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::List, QStringLiteral("A"));
        QTest::keyClick(fixture.Combo, Qt::Key_Down);
        QCOMPARE(fixture.Combo->currentText(), "B");
        QTest::keyClick(fixture.Combo, Qt::Key_Up);
        QCOMPARE(fixture.Combo->currentText(), "A");
        QCOMPARE(fixture.Grid->Row(), int(GridFixture::List));
        QCOMPARE(fixture.Cell(GridFixture::List), "A");
    }

    void Keys_ShiftArrows_StoreAndMoveARow()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::List, QStringLiteral("A"));
        QTest::keyClick(fixture.Combo, Qt::Key_Down);
        QTest::keyClick(fixture.Combo, Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(fixture.Cell(GridFixture::List), "B");
        QCOMPARE(fixture.Grid->Row(), int(GridFixture::Free));
        QVERIFY(fixture.Text->hasFocus());
        fixture.Open(GridFixture::List);
        QTest::keyClick(fixture.Combo, Qt::Key_Up, Qt::ShiftModifier);
        QCOMPARE(fixture.Grid->Row(), int(GridFixture::LimitedText));
        QVERIFY(fixture.Combo->isHidden());
    }

    void Keys_Enter_StoresAndKeepsTheWindow()
    {
        GridFixture fixture;
        fixture.Ok->setDefault(true);
        bool clicked = false;
        connect(fixture.Ok, &QPushButton::clicked, this, [&] { clicked = true; });
        fixture.Open(GridFixture::List, QStringLiteral("A"));
        QTest::keyClick(fixture.Combo, 'c');
        QTest::keyClick(fixture.Combo, Qt::Key_Return);
        QCOMPARE(fixture.Cell(GridFixture::List), "C");
        QVERIFY(fixture.NothingOpen());
        QVERIFY(fixture.Grid->hasFocus());
        QVERIFY(!clicked);
    }

    void Keys_Escape_LosesTheEditAndKeepsTheWindow()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::List, QStringLiteral("A"));
        QTest::keyClick(fixture.Combo, Qt::Key_Down);
        QTest::keyClick(fixture.Combo, Qt::Key_Escape);
        QCOMPARE(fixture.Cell(GridFixture::List), "A");
        QVERIFY(fixture.NothingOpen());
        QVERIFY(fixture.Grid->hasFocus());
        QVERIFY(fixture.Window.isVisible());
    }

    void Keys_AltDown_OpensTheListAndEscapeClosesItAlone()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::List, QStringLiteral("A"));
        QTest::keyClick(fixture.Combo, Qt::Key_Down, Qt::AltModifier);
        QTRY_VERIFY(fixture.Combo->view()->isVisible());
        QVERIFY(fixture.Combo->isVisible());
        QTest::keyClick(fixture.Combo->view(), Qt::Key_Escape);
        QTRY_VERIFY(!fixture.Combo->view()->isVisible());
        QVERIFY(fixture.Combo->isVisible());
        QCOMPARE(fixture.Grid->Row(), int(GridFixture::List));
    }

    void ComboKeys_Codes_AreUsedUpAsTheyShould()
    {
        GridFixture fixture;
        int enter = 13;
        GridComboKeyPress(enter);
        QCOMPARE(enter, 0);
        int letter = 'x';
        GridComboKeyPress(letter);
        QCOMPARE(letter, int('x'));
        fixture.Open(GridFixture::List);
        int down = 40;
        GridComboKeyDown(down, 0);
        QCOMPARE(down, 40);
        GridComboKeyDown(down, 1);
        QCOMPARE(down, 0);
    }

    void Focus_OtherControl_Stores()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::List, QStringLiteral("A"));
        QTest::keyClick(fixture.Combo, Qt::Key_Down);
        QTest::mouseClick(fixture.Other, Qt::LeftButton);
        QCOMPARE(fixture.Cell(GridFixture::List), "B");
        QVERIFY(fixture.Combo->isHidden());
    }

    void Wheel_OverTheComboBox_ChangesNoChoice()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::List, QStringLiteral("A"));
        const QPointF place = fixture.Combo->rect().center();
        QWheelEvent wheel(place, fixture.Combo->mapToGlobal(place), QPoint(), QPoint(0, -120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(fixture.Combo, &wheel);
        QCOMPARE(fixture.Combo->currentText(), "A");
    }

    void Grid_Character_OpensTheList()
    {
        GridFixture fixture;
        fixture.SetCell(GridFixture::List, QStringLiteral("A"));
        fixture.Grid->SetCell(GridFixture::List, 1);
        fixture.Grid->setFocus();
        QTest::keyClick(fixture.Grid, 'x');
        QVERIFY(fixture.Combo->hasFocus());
        QCOMPARE(fixture.Combo->currentText(), "A");
    }
};

QTEST_MAIN(TestGridEditCombo)
#include "TestGridEditCombo.moc"
