#include "platform/controls/FlexGrid.h"

#include <QDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

class TestFlexGrid : public QObject
{
    Q_OBJECT

private:
    /// A window of a field, a grid of four rows, and another field.
    struct Fixture
    {
        QDialog Window;
        QLineEdit* Before = new QLineEdit(&Window);
        FlexGrid* Grid = new FlexGrid(&Window);
        QLineEdit* After = new QLineEdit(&Window);

        Fixture()
        {
            auto* layout = new QVBoxLayout(&Window);
            layout->addWidget(Before);
            layout->addWidget(Grid);
            layout->addWidget(After);
            Grid->SetGridSize(5, 2);
            Window.resize(300, 300);
            Window.show();
            if (!QTest::qWaitForWindowActive(&Window))
                qFatal("the window does not become active");
        }
        void Click(int row, int column) const
        {
            QTest::mouseClick(Grid->viewport(), Qt::LeftButton, Qt::NoModifier,
                              Grid->CellRect(row, column).center());
        }
    };

private Q_SLOTS:
    void SetGridSize_RowsWithHeader_KeepsTexts()
    {
        FlexGrid grid;
        QCOMPARE(grid.GridRows(), 1);
        grid.SetGridSize(4, 2);
        QCOMPARE(grid.GridRows(), 4);
        QCOMPARE(grid.rowCount(), 3);
        grid.SetTextMatrix(1, 1, QStringLiteral("a"));
        grid.SetGridSize(2, 2);
        QCOMPARE(grid.TextMatrix(1, 1), "a");
        grid.SetGridSize(0, 2);
        QCOMPARE(grid.GridRows(), 1);
    }

    void TextMatrix_HeaderAndCells_HoldTheirTexts()
    {
        FlexGrid grid;
        grid.SetGridSize(3, 2);
        grid.SetTextMatrix(0, 1, QStringLiteral("Value"));
        grid.SetTextMatrix(2, 0, QStringLiteral("NAME"));
        QCOMPARE(grid.TextMatrix(0, 1), "Value");
        QCOMPARE(grid.horizontalHeaderItem(1)->text(), "Value");
        QCOMPARE(grid.TextMatrix(2, 0), "NAME");
        QCOMPARE(grid.item(1, 0)->text(), "NAME");
        QCOMPARE(grid.TextMatrix(1, 1), QString());
    }

    void TextMatrix_OutsideTheGrid_IsEmptyAndIgnored()
    {
        FlexGrid grid;
        grid.SetGridSize(3, 2);
        for (const QPoint cell : {QPoint(3, 0), QPoint(-1, 0), QPoint(1, 2), QPoint(1, -1), QPoint(0, 5)}) {
            grid.SetTextMatrix(cell.x(), cell.y(), QStringLiteral("x"));
            grid.SetCellFont(cell.x(), cell.y(), true, true);
            grid.SetCellMark(cell.x(), cell.y(), QStringLiteral("*"), QStringLiteral("m"));
            QCOMPARE(grid.TextMatrix(cell.x(), cell.y()), QString());
            QCOMPARE(grid.CellMark(cell.x(), cell.y()), QString());
        }
        QCOMPARE(grid.GridRows(), 3);
    }

    void SetCell_Program_TellsLeaveBeforeAndChangeAfter()
    {
        Fixture fixture;
        fixture.Grid->SetCell(1, 1);
        QStringList told;
        const auto tell = [&](const QString& what) {
            told << what + QString::number(fixture.Grid->Row()) + QString::number(fixture.Grid->Col());
        };
        connect(fixture.Grid, &FlexGrid::LeaveCell, this, [&] { tell(QStringLiteral("leave ")); });
        connect(fixture.Grid, &FlexGrid::RowColChange, this, [&] { tell(QStringLiteral("change ")); });
        fixture.Grid->SetCell(3, 0);
        QCOMPARE(told, QStringList({"leave 11", "change 30"}));
        fixture.Grid->SetCell(3, 0);
        fixture.Grid->SetCell(5, 0);
        fixture.Grid->SetCell(0, 0);
        fixture.Grid->SetCell(1, 2);
        QCOMPARE(told.size(), 2);
        QCOMPARE(fixture.Grid->Row(), 3);

        told.clear();
        fixture.Click(4, 1);
        QCOMPARE(told, QStringList({"leave 30", "change 41"}));
        told.clear();
        QTest::keyClick(fixture.Grid, Qt::Key_Up);
        QCOMPARE(told, QStringList({"leave 41", "change 31"}));
    }

    void Row_NoCells_IsNone()
    {
        Fixture fixture;
        fixture.Grid->SetCell(2, 1);
        fixture.Grid->SetGridSize(1, 2);
        QCOMPARE(fixture.Grid->Row(), 0);
    }

    void Click_Cell_TellsWhereTheMouseWas()
    {
        Fixture fixture;
        const QSignalSpy doubleClicks(fixture.Grid, &FlexGrid::CellDblClick);
        fixture.Click(3, 1);
        QCOMPARE(fixture.Grid->MouseRow(), 3);
        QCOMPARE(fixture.Grid->MouseCol(), 1);
        QCOMPARE(doubleClicks.count(), 0);
        QTest::mouseDClick(fixture.Grid->viewport(), Qt::LeftButton, Qt::NoModifier,
                           fixture.Grid->CellRect(3, 1).center());
        QCOMPARE(doubleClicks.count(), 1);
        QTest::mouseDClick(fixture.Grid->viewport(), Qt::RightButton, Qt::NoModifier,
                           fixture.Grid->CellRect(3, 1).center());
        QTest::mouseDClick(fixture.Grid->viewport(), Qt::LeftButton, Qt::NoModifier,
                           fixture.Grid->viewport()->rect().bottomRight());
        QCOMPARE(doubleClicks.count(), 1);
        QCOMPARE(fixture.Grid->MouseRow(), 0);
        QTest::mouseDClick(fixture.Grid->horizontalHeader()->viewport(), Qt::LeftButton);
        QCOMPARE(doubleClicks.count(), 1);
    }

    void Key_Character_IsTold_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<int>("code");
        QTest::newRow("digit") << int(Qt::Key_7) << "7" << 0 << int('7');
        QTest::newRow("capital") << int(Qt::Key_X) << "X" << int(Qt::ShiftModifier) << int('X');
        QTest::newRow("blank") << int(Qt::Key_Space) << " " << 0 << 32;
        QTest::newRow("Enter") << int(Qt::Key_Return) << "\r" << 0 << 13;
        QTest::newRow("Enter of the number pad")
            << int(Qt::Key_Enter) << "\r" << int(Qt::KeypadModifier) << 13;
        QTest::newRow("Backspace") << int(Qt::Key_Backspace) << "\b" << 0 << 8;
        QTest::newRow("F2") << int(Qt::Key_F2) << "" << 0 << 32;
        QTest::newRow("third character of a key")
            << int(Qt::Key_At) << "@" << int(Qt::ControlModifier | Qt::AltModifier) << int('@');
        QTest::newRow("beyond 16 bits")
            << int(Qt::Key_unknown) << QString::fromUcs4(U"\U0001F600", 1) << 0 << 0x1F600;
        QTest::newRow("Delete") << int(Qt::Key_Delete) << "\x7f" << 0 << 0;
        QTest::newRow("Ctrl+C") << int(Qt::Key_C) << "\x03" << int(Qt::ControlModifier) << 0;
        QTest::newRow("Alt+X") << int(Qt::Key_X) << "x" << int(Qt::AltModifier) << 0;
        QTest::newRow("arrow") << int(Qt::Key_Left) << "" << 0 << 0;
    }
    void Key_Character_IsTold()
    {
        QFETCH(const int, key);
        QFETCH(const QString, text);
        QFETCH(const int, modifiers);
        QFETCH(const int, code);
        Fixture fixture;
        fixture.Grid->setFocus();
        QSignalSpy presses(fixture.Grid, &FlexGrid::CellKeyPress);
        QKeyEvent event(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers), text);
        QApplication::sendEvent(fixture.Grid, &event);
        QCOMPARE(presses.count(), code == 0 ? 0 : 1);
        if (code != 0)
            QCOMPARE(presses[0][0].toInt(), code);
    }

    void Key_TabAndBackTab_LeaveTheGrid()
    {
        Fixture fixture;
        fixture.Grid->setFocus();
        QTest::keyClick(fixture.Grid, Qt::Key_Tab);
        QVERIFY(fixture.After->hasFocus());
        QTest::keyClick(fixture.After, Qt::Key_Backtab);
        QVERIFY(fixture.Grid->hasFocus());
        QTest::keyClick(fixture.Grid, Qt::Key_Backtab);
        QVERIFY(fixture.Before->hasFocus());
    }

    void Key_Escape_ReachesTheWindow()
    {
        Fixture fixture;
        fixture.Grid->setFocus();
        QTest::keyClick(fixture.Grid, Qt::Key_Escape);
        QVERIFY(!fixture.Window.isVisible());
    }

    void Focus_Taken_IsTold()
    {
        Fixture fixture;
        fixture.Before->setFocus();
        const QSignalSpy focus(fixture.Grid, &FlexGrid::GotFocus);
        fixture.Grid->setFocus();
        QCOMPARE(focus.count(), 1);
    }

    void CellRect_Cells_AreInTheViewport()
    {
        Fixture fixture;
        QCOMPARE(fixture.Grid->CellRect(0, 0), QRect());
        QCOMPARE(fixture.Grid->CellRect(9, 0), QRect());
        QCOMPARE(fixture.Grid->CellRect(1, 0).topLeft(), QPoint(0, 0));
        QCOMPARE(fixture.Grid->indexAt(fixture.Grid->CellRect(2, 1).center()),
                 fixture.Grid->model()->index(1, 1));
    }

    void SetRowHeights_Any_HoldsForAllRowsWithTheHeader()
    {
        Fixture fixture;
        for (const int height : {12, 33}) {
            fixture.Grid->SetRowHeights(height);
            for (int row = 0; row < 4; ++row)
                QCOMPARE(fixture.Grid->rowHeight(row), height);
            QTRY_COMPARE(fixture.Grid->horizontalHeader()->height(), height);
            QCOMPARE(fixture.Grid->HeightForRows(8), 9 * height + 2 * fixture.Grid->frameWidth());
        }
        fixture.Grid->SetGridSize(7, 2);
        QCOMPARE(fixture.Grid->rowHeight(5), 33);
    }

    void Scrolled_MovedCells_IsTold()
    {
        Fixture fixture;
        fixture.Grid->SetGridSize(50, 2);
        QCoreApplication::processEvents();
        QSignalSpy scrolled(fixture.Grid, &FlexGrid::Scrolled);
        fixture.Grid->verticalScrollBar()->setValue(5);
        QVERIFY(scrolled.count() > 0);
        scrolled.clear();
        fixture.Grid->setColumnWidth(0, 180);
        QVERIFY(scrolled.count() > 0);
        scrolled.clear();
        fixture.Grid->SetRowHeights(50);
        QTRY_VERIFY(scrolled.count() > 0);
        scrolled.clear();
        fixture.Window.resize(500, 400);
        QTRY_VERIFY(scrolled.count() > 0);
    }

    void CellMark_LongName_StaysInSight()
    {
        Fixture fixture;
        FlexGrid& grid = *fixture.Grid;
        grid.SetTextMatrix(1, 0, QString(60, QLatin1Char('W')));
        grid.SetCellFont(1, 0, true, false);
        const auto picture = [&] { return grid.viewport()->grab(grid.CellRect(1, 0)).toImage(); };
        const QImage without = picture();
        grid.SetCellMark(1, 0, QStringLiteral("*"), QStringLiteral("Mandatory parameter"));
        QVERIFY(picture() != without);
        QCOMPARE(grid.TextMatrix(1, 0), QString(60, QLatin1Char('W')));
        QCOMPARE(grid.item(0, 0)->toolTip(), "Mandatory parameter");
        QCOMPARE(grid.item(0, 0)->data(Qt::AccessibleDescriptionRole).toString(), "Mandatory parameter");
        grid.SetCellMark(1, 0, QString(), QString());
        QCOMPARE(picture(), without);

        grid.resizeColumnToContents(0);
        const int width = grid.columnWidth(0);
        grid.SetCellMark(1, 0, QStringLiteral("*"), QStringLiteral("Mandatory parameter"));
        grid.resizeColumnToContents(0);
        QVERIFY(grid.columnWidth(0) > width);
    }

    void SetCellFont_Any_KeepsFamilyAndSizeOfTheGrid()
    {
        FlexGrid grid;
        grid.SetGridSize(2, 2);
        grid.SetCellFont(1, 0, true, true);
        QFont large = grid.font();
        large.setPointSize(31);
        const QFont shown = grid.item(0, 0)->font().resolve(large);
        QCOMPARE(shown.pointSize(), 31);
        QVERIFY(shown.bold());
        QVERIFY(shown.italic());
    }
};

QTEST_MAIN(TestFlexGrid)
#include "TestFlexGrid.moc"
