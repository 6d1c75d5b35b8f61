#include "tests/dialogs/GridFixture.h"

#include <QScrollBar>

class TestGridEditKinds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void PlaceCell_EachKind_OpensItsEditor_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<bool>("text");
        QTest::addColumn<bool>("spinner");
        QTest::addColumn<int>("limit");
        QTest::newRow("number") << int(GridFixture::Number) << true << true << 15;
        QTest::newRow("limited text") << int(GridFixture::LimitedText) << true << false << 8;
        QTest::newRow("free") << int(GridFixture::Free) << true << false << 15;
        QTest::newRow("password") << int(GridFixture::Password) << true << false << 32;
        QTest::newRow("list") << int(GridFixture::List) << false << false << 0;
    }
    void PlaceCell_EachKind_OpensItsEditor()
    {
        QFETCH(const int, row);
        QFETCH(const bool, text);
        QFETCH(const bool, spinner);
        QFETCH(const int, limit);
        GridFixture fixture;
        fixture.Open(row);

        QCOMPARE(fixture.Text->isVisible(), text);
        QCOMPARE(fixture.Spinner->isVisible(), spinner);
        QCOMPARE(fixture.Combo->isVisible(), !text);
        QVERIFY(text ? fixture.Text->hasFocus() : fixture.Combo->hasFocus());
        if (text)
            QCOMPARE(fixture.Text->maxLength(), limit);
    }

    void PlaceCell_AnyRow_AsksForItsParameterAndMarksTheNotification()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::Number);
        QCOMPARE(fixture.Data.Component.Calls, QStringList({"TargetParamProperties(WAYPOINT,NUM)",
                                                            "TargetParamValueBoundsLong(WAYPOINT,NUM)"}));
        QCOMPARE(GridEdit().GridParamName, "NUM");
        QCOMPARE(GridEdit().GridParameter.values, std::vector<QString>({" 0", " 255"}));
        QVERIFY(GridEdit().GridCellPlaced);
        QCOMPARE(fixture.Grid->Row(), 1);
        QCOMPARE(fixture.Grid->Col(), 1);
    }

    void PlaceCell_NextKind_ClosesTheEditorOfTheOneBefore()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::List);
        fixture.Open(GridFixture::Number);
        QVERIFY(fixture.Combo->isHidden());
        fixture.Open(GridFixture::LimitedText);
        QVERIFY(fixture.Spinner->isHidden());
        fixture.Open(GridFixture::List);
        QVERIFY(fixture.Text->isHidden());
        QVERIFY(fixture.Combo->hasFocus());
    }

    void PlaceCell_NoSuchCell_ChangesNothing()
    {
        GridFixture fixture;
        fixture.Grid->SetCell(GridFixture::Free, 1);
        fixture.Open(0);
        fixture.Open(20);
        fixture.Open(-1);
        QVERIFY(fixture.NothingOpen());
        QCOMPARE(fixture.Grid->Row(), int(GridFixture::Free));
        QCOMPARE(fixture.Data.Component.Calls, QStringList());
    }

    void Open_StoredText_IsSelectedWhole()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::LimitedText, QStringLiteral("stored"));
        QCOMPARE(fixture.Text->text(), "stored");
        QCOMPARE(fixture.Text->selectedText(), "stored");
    }

    void Open_NameColumnOrRowWithoutParameter_OpensNothing()
    {
        GridFixture fixture;
        GridPlaceCell(GridFixture::Number, 0);
        QVERIFY(fixture.NothingOpen());
        GridPlaceCell(GridFixture::Unused, 1);
        QVERIFY(fixture.NothingOpen());
        fixture.DoubleClickCell(GridFixture::Number, 0);
        QVERIFY(fixture.NothingOpen());
        fixture.DoubleClickCell(GridFixture::Unused, 1);
        QVERIFY(fixture.NothingOpen());
        QTest::keyClick(fixture.Grid, 'x');
        QVERIFY(fixture.NothingOpen());
        QCOMPARE(fixture.Cell(GridFixture::Unused), QString());
    }

    void Open_ReadOnlyGrid_OpensNothing()
    {
        GridFixture fixture;
        fixture.Grid->SetReadOnly(true);
        fixture.Open(GridFixture::Number);
        fixture.DoubleClickCell(GridFixture::LimitedText, 1);
        QTest::keyClick(fixture.Grid, '7');
        QVERIFY(fixture.NothingOpen());
    }

    void DoubleClick_ValueCell_OpensItsEditor()
    {
        GridFixture fixture;
        fixture.SetCell(GridFixture::LimitedText, QStringLiteral("abc"));
        fixture.DoubleClickCell(GridFixture::LimitedText, 1);
        QVERIFY(fixture.Text->hasFocus());
        QCOMPARE(fixture.Text->selectedText(), "abc");
        fixture.ClickCell(GridFixture::Free, 1);
        QVERIFY(fixture.NothingOpen());
    }

    void Fetch_Failure_KeepsTheKindInForce()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::Number);
        fixture.Data.Component.Fail(QStringLiteral("TargetParamProperties"));
        fixture.Open(GridFixture::Free, QStringLiteral("7"));
        QVERIFY(fixture.Spinner->isVisible());
        QCOMPARE(GridEdit().GridParameter.kind, 3);
        QCOMPARE(GridEdit().GridParameter.values, std::vector<QString>({" 0", " 255"}));
        QCOMPARE(fixture.Data.Operator.Texts(), QStringList());
    }

    void Fetch_FailureInTheMidst_KeepsWhatWasThere()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::LimitedText);
        fixture.Data.Component.Fail(QStringLiteral("TargetParamValueBoundsLong"));
        fixture.Open(GridFixture::Number);
        QCOMPARE(GridEdit().GridParameter.kind, 2);
        QVERIFY(fixture.Spinner->isHidden());
    }

    void SetupRowHeight_Always_RowsAreAsHighAsTheComboBox()
    {
        GridFixture fixture;
        QFont large = fixture.Grid->font();
        large.setPointSizeF(large.pointSizeF() * 2);
        fixture.Grid->setFont(large);
        GridSetupRowHeight();
        QCOMPARE(fixture.Combo->font().pointSizeF(), large.pointSizeF());
        QCOMPARE(fixture.Combo->count(), 2);
        QCOMPARE(fixture.Combo->itemText(0), " 1");
        QCOMPARE(fixture.Combo->itemText(1), " 2");
        for (int row = 0; row < fixture.Grid->rowCount(); ++row)
            QCOMPARE(fixture.Grid->rowHeight(row), fixture.Combo->sizeHint().height());
        QCOMPARE(fixture.Grid->horizontalHeader()->height(), fixture.Combo->sizeHint().height());
        fixture.Open(GridFixture::Number);
        QCOMPARE(fixture.Text->font().pointSizeF(), large.pointSizeF());
    }

    void Place_WithoutSpinner_CoversTheCell()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::Free);
        QCOMPARE(fixture.Text->geometry(), fixture.Grid->CellRect(GridFixture::Free, 1));
        fixture.Open(GridFixture::List);
        const QRect cell = fixture.Grid->CellRect(GridFixture::List, 1);
        QCOMPARE(fixture.Combo->geometry().topLeft(), cell.topLeft());
        QCOMPARE(fixture.Combo->width(), cell.width());
        QCOMPARE(fixture.Combo->height(), fixture.Combo->sizeHint().height());
    }

    void Place_WithSpinner_SharesTheCell()
    {
        GridFixture fixture;
        fixture.Window.resize(700, 300);
        fixture.Open(GridFixture::Number);
        const QRect cell = fixture.Grid->CellRect(GridFixture::Number, 1);
        QCOMPARE(fixture.Spinner->width(), int(0.07 * cell.width()));
        QCOMPARE(fixture.Text->geometry() | fixture.Spinner->geometry(), cell);
        QCOMPARE(fixture.Text->width(), cell.width() - fixture.Spinner->width());
        QCOMPARE(fixture.Spinner->geometry().right(), cell.right());
    }

    void Place_NarrowCell_LeavesASpinnerThatCanBeHit()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::Number);
        QVERIFY(fixture.Spinner->width() >= 16);
        QCOMPARE(fixture.Text->geometry().right() + 1, fixture.Spinner->geometry().left());
    }

    void Place_LargerFont_RowsAndEditorFollow_data()
    {
        QTest::addColumn<int>("row");
        QTest::newRow("text") << int(GridFixture::LimitedText);
        QTest::newRow("list") << int(GridFixture::List);
    }
    void Place_LargerFont_RowsAndEditorFollow()
    {
        QFETCH(const int, row);
        GridFixture fixture;
        fixture.Open(row, QStringLiteral("C"));
        QFont large = fixture.Grid->font();
        large.setPointSize(2 * large.pointSize());
        fixture.Grid->setFont(large);

        QWidget& editor = row == GridFixture::List ? static_cast<QWidget&>(*fixture.Combo) : *fixture.Text;
        QCOMPARE(editor.font().pointSize(), large.pointSize());
        QCOMPARE(fixture.Grid->rowHeight(0), fixture.Combo->sizeHint().height());
        QTRY_COMPARE(editor.geometry().topLeft(), fixture.Grid->CellRect(row, 1).topLeft());
        QVERIFY(qAbs(editor.height() - fixture.Grid->rowHeight(0)) <= 1);
        QVERIFY(editor.hasFocus());
    }

    void Place_ScrolledOrResized_FollowsTheCell()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::Number);
        const QRect before = fixture.Text->geometry();
        fixture.Window.resize(600, 200);
        QTRY_COMPARE(fixture.Text->geometry() | fixture.Spinner->geometry(), fixture.Grid->CellRect(1, 1));
        QVERIFY(fixture.Text->width() > before.width());

        fixture.Grid->SetRowHeights(60);
        QTRY_COMPARE(fixture.Text->height(), fixture.Grid->CellRect(1, 1).height());
        QTRY_VERIFY(fixture.Grid->verticalScrollBar()->maximum() > 0);
        fixture.Grid->verticalScrollBar()->setValue(fixture.Grid->verticalScrollBar()->maximum());
        QVERIFY(fixture.Grid->CellRect(1, 1).top() < 0);
        QTRY_COMPARE(fixture.Text->geometry().top(), fixture.Grid->CellRect(1, 1).top());

        fixture.Grid->setColumnWidth(0, 40);
        QTRY_COMPARE(fixture.Text->geometry().left(), fixture.Grid->CellRect(1, 1).left());
    }

    void Detach_OtherGrid_KeepsTheService()
    {
        GridFixture fixture;
        {
            const FlexGrid another;
            GridDetach(another);
        }
        QCOMPARE(GridEdit().GridControl, fixture.Grid);
        GridDetach(*fixture.Grid);
        QVERIFY(!GridEdit().GridControl);
        QCOMPARE(GridEdit().GridPasswordValue, QString());
        QTest::keyClick(fixture.Grid, 'x');
        QVERIFY(fixture.NothingOpen());
    }

    void Procedures_WithoutGrid_DoNothing()
    {
        int key = '1';
        GridPlaceCell(1, 1);
        GridOpenEditor(key);
        GridSetupRowHeight();
        GridDblClick();
        GridKeyPress(key);
        GridTextKeyPress(key);
        int code = 40;
        GridTextKeyDown(code, 1);
        code = 27;
        GridComboKeyDown(code, 0);
        GridSpinUp();
        GridParameters().MoveTo(1, 1);
        GridParameters().SetText(QStringLiteral("x"));
        QCOMPARE(GridParameters().Text(), QString());
        QVERIFY(GridCommitEdit());
    }
};

QTEST_MAIN(TestGridEditKinds)
#include "TestGridEditKinds.moc"
