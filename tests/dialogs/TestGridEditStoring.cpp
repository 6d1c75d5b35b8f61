#include "tests/dialogs/GridFixture.h"

#include <QSignalSpy>

class TestGridEditStoring : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Commit_EachKind_StoresTheText_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("stored");
        QTest::newRow("number") << int(GridFixture::Number) << "17"
                                << "17";
        QTest::newRow("leading zeros") << int(GridFixture::Number) << "0017"
                                       << "17";
        QTest::newRow("lowest") << int(GridFixture::Number) << "0"
                                << "0";
        QTest::newRow("highest") << int(GridFixture::Number) << "255"
                                 << "255";
        QTest::newRow("text") << int(GridFixture::LimitedText) << "  a b "
                              << "a b";
        QTest::newRow("free") << int(GridFixture::Free) << " x "
                              << "x";
    }
    void Commit_EachKind_StoresTheText()
    {
        QFETCH(const int, row);
        QFETCH(const QString, typed);
        QFETCH(const QString, stored);
        GridFixture fixture;
        fixture.Open(row, QStringLiteral("25"));
        QTest::keyClicks(fixture.Text, typed);
        QVERIFY(GridCommitEdit());
        QCOMPARE(fixture.Cell(row), stored);
        QVERIFY(fixture.NothingOpen());
        QVERIFY(fixture.Grid->hasFocus());
    }

    void Commit_EmptyNumber_IsAcceptedWhateverTheBounds()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::Narrow, QStringLiteral("25"));
        QTest::keyClick(fixture.Text, Qt::Key_Delete);
        QVERIFY(GridCommitEdit());
        QCOMPARE(fixture.Cell(GridFixture::Narrow), QString());
        QCOMPARE(fixture.Data.Operator.Texts(), QStringList());
    }

    void Commit_OutOfRange_TellsAndKeepsTheCell_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("box");
        QTest::newRow("above") << int(GridFixture::Number) << "300"
                               << "Value 300 out of range [ 0, 255]. Give a new value.";
        QTest::newRow("below") << int(GridFixture::Narrow) << "9"
                               << "Value 9 out of range [ 10, 99]. Give a new value.";
        QTest::newRow("fifteen digits") << int(GridFixture::Number) << "999999999999999"
                                        << "Value 999999999999999 out of range [ 0, 255]. Give a new value.";
    }
    void Commit_OutOfRange_TellsAndKeepsTheCell()
    {
        QFETCH(const int, row);
        QFETCH(const QString, text);
        QFETCH(const QString, box);
        GridFixture fixture;
        fixture.Open(row, QStringLiteral("25"));
        fixture.Text->setText(text);
        QVERIFY(!GridCommitEdit());
        QCOMPARE(fixture.Data.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Plain(box)});
        QCOMPARE(fixture.Cell(row), "25");
        QVERIFY(fixture.NothingOpen());
        QVERIFY(GridCommitEdit());
    }

    void Commit_NegativeBounds_StoresNegativeNumbers()
    {
        GridFixture fixture;
        fixture.Define(GridFixture::Number, "NUM", {"1", "0", "3", ""}, {"-10", "10"});
        fixture.Open(GridFixture::Number, QStringLiteral("-5"));
        QTest::keyClick(fixture.Text, Qt::Key_Down);
        QVERIFY(GridCommitEdit());
        QCOMPARE(fixture.Cell(GridFixture::Number), "-6");
        fixture.Open(GridFixture::Number);
        fixture.Text->setText(QStringLiteral("-11"));
        QVERIFY(!GridCommitEdit());
        QCOMPARE(fixture.Data.Operator.Texts(),
                 QStringList{"Value -11 out of range [-10, 10]. Give a new value."});
    }

    void Commit_BoundsOfManyDigits_AreExact()
    {
        GridFixture fixture;
        fixture.Define(GridFixture::Number, "NUM", {"1", "0", "3", ""}, {"0", "2147483647"});
        fixture.Open(GridFixture::Number);
        QTest::keyClicks(fixture.Text, QStringLiteral("2147483648"));
        QCOMPARE(fixture.Text->text(), "214748364");
        QTest::keyClicks(fixture.Text, QStringLiteral("7"));
        QVERIFY(GridCommitEdit());
        QCOMPARE(fixture.Cell(GridFixture::Number), "2147483647");
    }

    void Commit_WithNothingOpen_StoresNothing()
    {
        GridFixture fixture;
        fixture.SetCell(GridFixture::Number, QStringLiteral("25"));
        fixture.Grid->SetCell(GridFixture::Number, 1);
        QVERIFY(GridCommitEdit());
        QCOMPARE(fixture.Cell(GridFixture::Number), "25");
    }

    void Commit_FromTheBox_IsNotRepeated()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::Narrow);
        fixture.Text->setText(QStringLiteral("5"));
        fixture.Data.Operator.WhileOpen = [](const RecordedBox&) { GridCommitEdit(); };
        QVERIFY(!GridCommitEdit());
        QCOMPARE(fixture.Data.Operator.Boxes.size(), 1U);
    }

    void Enter_OutOfRange_TellsOnceAndKeepsTheCell()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::Narrow, QStringLiteral("25"));
        QTest::keyClicks(fixture.Text, QStringLiteral("5"));
        QTest::keyClick(fixture.Text, Qt::Key_Return);
        QCOMPARE(fixture.Data.Operator.Texts(),
                 QStringList{"Value 5 out of range [ 10, 99]. Give a new value."});
        QCOMPARE(fixture.Cell(GridFixture::Narrow), "25");
        QVERIFY(fixture.Grid->hasFocus());
    }

    void CellNotified_PlacedByTheProgram_StoresNothingOnce()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::Number, QStringLiteral("25"));
        QTest::keyClicks(fixture.Text, QStringLiteral("7"));
        GridCellNotified();
        QVERIFY(!GridEdit().GridCellPlaced);
        QVERIFY(fixture.Text->isVisible());
        QCOMPARE(fixture.Cell(GridFixture::Number), "25");
        GridCellNotified();
        QVERIFY(fixture.NothingOpen());
        QCOMPARE(fixture.Cell(GridFixture::Number), "7");
    }

    void Click_OtherCell_StoresInTheCellOfTheEdit()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::Number, QStringLiteral("25"));
        QTest::keyClicks(fixture.Text, QStringLiteral("7"));
        fixture.ClickCell(GridFixture::Free, 1);
        QCOMPARE(fixture.Cell(GridFixture::Number), "7");
        QCOMPARE(fixture.Cell(GridFixture::Free), QString());
        QCOMPARE(fixture.Grid->Row(), int(GridFixture::Free));
        QVERIFY(fixture.NothingOpen());
    }

    void Place_OtherCell_StoresInTheCellOfTheEdit()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::Number, QStringLiteral("25"));
        QTest::keyClicks(fixture.Text, QStringLiteral("7"));
        fixture.Open(GridFixture::LimitedText);
        QCOMPARE(fixture.Cell(GridFixture::Number), "7");
        QVERIFY(fixture.Text->hasFocus());
        QCOMPARE(fixture.Text->text(), QString());
    }

    void Focus_OtherControl_Stores()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::Number, QStringLiteral("25"));
        QTest::keyClicks(fixture.Text, QStringLiteral("7"));
        QTest::mouseClick(fixture.Other, Qt::LeftButton);
        QCOMPARE(fixture.Cell(GridFixture::Number), "7");
        QVERIFY(fixture.NothingOpen());
        QVERIFY(fixture.Other->hasFocus());
    }

    void Focus_OtherControlOutOfRange_ClosesAndTells()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::Narrow, QStringLiteral("25"));
        QTest::keyClicks(fixture.Text, QStringLiteral("5"));
        QTest::mouseClick(fixture.Other, Qt::LeftButton);
        QVERIFY(fixture.NothingOpen());
        QTRY_COMPARE(fixture.Data.Operator.Texts(),
                     QStringList{"Value 5 out of range [ 10, 99]. Give a new value."});
        QCOMPARE(fixture.Cell(GridFixture::Narrow), "25");
        QVERIFY(fixture.Other->hasFocus());
    }

    void Focus_ButtonOutOfRange_LeavesTheEditToItsHandler()
    {
        GridFixture fixture;
        bool stored = true;
        connect(fixture.Ok, &QPushButton::clicked, this, [&] { stored = GridCommitEdit(); });
        fixture.Open(GridFixture::Narrow, QStringLiteral("25"));
        QTest::keyClicks(fixture.Text, QStringLiteral("5"));
        QTest::keyClick(fixture.Text, Qt::Key_Tab);
        fixture.Open(GridFixture::Narrow);
        QTest::keyClicks(fixture.Text, QStringLiteral("6"));
        fixture.Data.Operator.Boxes.clear();
        fixture.Ok->setFocus();
        QVERIFY(fixture.Text->isVisible());
        QCOMPARE(fixture.Data.Operator.Texts(), QStringList());
        fixture.Ok->click();
        QVERIFY(!stored);
        QCOMPARE(fixture.Data.Operator.Texts(),
                 QStringList{"Value 6 out of range [ 10, 99]. Give a new value."});
        QVERIFY(fixture.NothingOpen());
    }

    void Focus_ButtonInRange_Stores()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::Narrow, QStringLiteral("25"));
        QTest::keyClicks(fixture.Text, QStringLiteral("61"));
        QTest::mouseClick(fixture.Ok, Qt::LeftButton);
        QCOMPARE(fixture.Cell(GridFixture::Narrow), "61");
    }

    void Focus_OtherWindow_KeepsTheEdit()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::Number, QStringLiteral("25"));
        QTest::keyClicks(fixture.Text, QStringLiteral("7"));
        QDialog other;
        other.show();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        QVERIFY(!fixture.Text->hasFocus());
        QVERIFY(fixture.Text->isVisible());
        QCOMPARE(fixture.Cell(GridFixture::Number), "25");
        other.close();
        fixture.Window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&fixture.Window));
        QCOMPARE(fixture.Text->text(), "7");
    }

    void Spinner_Press_KeepsTheEditOpen()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::Number, QStringLiteral("25"));
        fixture.ClickSpinner(0);
        QVERIFY(fixture.Text->isVisible());
        QVERIFY(GridCommitEdit());
        QCOMPARE(fixture.Cell(GridFixture::Number), "26");
    }

    void Parameters_OwnCursor_LeavesTheOperatorsCell()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::LimitedText);
        const QSignalSpy leaves(fixture.Grid, &FlexGrid::LeaveCell);
        ParameterGrid& cells = GridParameters();
        cells.MoveTo(GridFixture::Number, ParameterGrid::NameColumn);
        cells.SetText(QStringLiteral("NUMBER"));
        cells.SetFont(true, false);
        cells.MoveTo(0, ParameterGrid::ValueColumn);
        cells.SetText(QStringLiteral("Value"));
        QCOMPARE(fixture.Grid->TextMatrix(GridFixture::Number, 0), "NUMBER");
        QCOMPARE(fixture.Grid->TextMatrix(0, 1), "Value");
        QCOMPARE(cells.Text(), "Value");
        QCOMPARE(leaves.count(), 0);
        QCOMPARE(fixture.Grid->Row(), int(GridFixture::LimitedText));
        QVERIFY(fixture.Text->isVisible());

        cells.MoveTo(12, ParameterGrid::ValueColumn);
        cells.SetText(QStringLiteral("far"));
        QCOMPARE(fixture.Grid->GridRows(), 13);
        QCOMPARE(fixture.Grid->TextMatrix(12, 1), "far");
        cells.SetPassword(3, QStringLiteral("pw"));
        QCOMPARE(cells.PasswordRow(), 3);
        QCOMPARE(cells.PasswordValue(), "pw");
    }

    void Parameters_Fonts_CarryAMarkThatNeedsNoColour_data()
    {
        QTest::addColumn<bool>("bold");
        QTest::addColumn<bool>("italic");
        QTest::addColumn<QString>("mark");
        QTest::newRow("optional") << false << false << "";
        QTest::newRow("mandatory") << true << false << "*";
        QTest::newRow("group") << true << true << "**";
    }
    void Parameters_Fonts_CarryAMarkThatNeedsNoColour()
    {
        QFETCH(const bool, bold);
        QFETCH(const bool, italic);
        QFETCH(const QString, mark);
        GridFixture fixture;
        GridParameters().MoveTo(1, 0);
        GridParameters().SetText(QStringLiteral("NAME"));
        GridParameters().SetFont(bold, italic);
        const QTableWidgetItem& cell = *fixture.Grid->item(0, 0);
        QCOMPARE(cell.font().bold(), bold);
        QCOMPARE(cell.font().italic(), italic);
        QCOMPARE(fixture.Grid->CellMark(1, 0), mark);
        QCOMPARE(cell.toolTip().isEmpty(), mark.isEmpty());
        QCOMPARE(fixture.Grid->TextMatrix(1, 0), "NAME");
    }
};

QTEST_MAIN(TestGridEditStoring)
#include "TestGridEditStoring.moc"
