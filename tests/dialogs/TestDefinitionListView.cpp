#include "dialogs/DefinitionListView.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

namespace {

/// A list 500 wide with the three columns, one waypoint and `parameters` of it.
class ShownList
{
public:
    explicit ShownList(int parameters = 2)
    {
        View.resize(500, 200);
        View.AddColumn("Connection Definition", 0.45);
        View.AddColumn("Value", 0.19);
        View.AddColumn("M/D", 0.06);
        View.AddItem(" 1_01", {"T4 Bus", "", ""});
        for (int row = 1; row <= parameters; ++row)
            View.AddItem(QStringLiteral(" 1_ %1").arg(row),
                         {QStringLiteral("     ROW %1").arg(row), "9600", "M/D"});
        View.show();
        if (!QTest::qWaitForWindowExposed(&View))
            qFatal("The list is not shown.");
    }

    DefinitionListView View;

    [[nodiscard]] int AllWidth() const
    {
        int width = 0;
        for (int column = 0; column < View.columnCount(); ++column)
            width += View.columnWidth(column);
        return width;
    }
    /// The columns fill the list, the three as 45 to 19 to 6.
    [[nodiscard]] bool KeepsShares() const
    {
        const int width = View.viewport()->width();
        return AllWidth() == width && qAbs(View.columnWidth(0) - width * 45 / 70) <= 2 &&
               qAbs(View.columnWidth(1) - width * 19 / 70) <= 2;
    }
    [[nodiscard]] QPoint Center(int row, int column) const
    {
        return View.visualRect(View.model()->index(row - 1, column)).center();
    }
    void HoverOver(int row, int column)
    {
        const QPoint position = Center(row, column);
        QHelpEvent help(QEvent::ToolTip, position, View.viewport()->mapToGlobal(position));
        QApplication::sendEvent(View.viewport(), &help);
    }
};

} // namespace

/// The list of a connection's definition, by itself.
class TestDefinitionListView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void New_HasNothing();
    void Columns_Added_HaveTheirTitlesAndShares();
    void Columns_Resized_KeepTheirShares();
    void Columns_BarAppears_StayInSight();
    void Columns_LongText_GetsTheRoomThatOthersHave();
    void Columns_TooLongText_LeavesTheOthersWhole();
    void Columns_TitleBeyondItsShare_IsShownWhole();
    void Columns_NarrowList_ShowTheirTitles();
    void Columns_LargerFont_ShowTheirTitles();
    void Columns_Single_FillsTheList();
    void Clear_Filled_LeavesNothing();
    void Rows_WithParameters_WaypointsAreBold();
    void Rows_WithoutParameters_NothingIsBold();
    void Select_NoRow_GivesNothing();
    void Select_Row_GivesItsKey();
    void Select_BehindTheEnd_KeepsWhatIsSelected();
    void Select_FarDown_ScrollsThere();
    void Chosen_EnterDoubleClick_IsTold();
    void Chosen_OtherKeysAndButtons_IsNotTold();
    void ToolTip_CutText_IsShownWhole();
    void ToolTip_WholeText_IsNotRepeated();
};

void TestDefinitionListView::New_HasNothing()
{
    const DefinitionListView view;

    QCOMPARE(view.columnCount(), 0);
    QCOMPARE(view.topLevelItemCount(), 0);
    QCOMPARE(view.SelectedKey(), "");
    QCOMPARE(view.SelectedRow(), 0);
}

void TestDefinitionListView::Columns_Added_HaveTheirTitlesAndShares()
{
    const ShownList list;

    QCOMPARE(list.View.headerItem()->text(0), "Connection Definition");
    QCOMPARE(list.View.headerItem()->text(1), "Value");
    QCOMPARE(list.View.headerItem()->text(2), "M/D");
    QCOMPARE(list.View.headerItem()->toolTip(2), "M: mandatory, D: default value in use");
    QVERIFY(list.KeepsShares());
}

void TestDefinitionListView::Columns_Resized_KeepTheirShares()
{
    ShownList list;

    list.View.resize(1000, 200);

    QTRY_VERIFY(list.View.columnWidth(0) > 600);
    QVERIFY(list.KeepsShares());
}

void TestDefinitionListView::Columns_BarAppears_StayInSight()
{
    const ShownList list(100);

    QVERIFY(list.View.verticalScrollBar()->isVisible());
    QVERIFY(list.KeepsShares());
    QVERIFY(!list.View.horizontalScrollBar()->isVisible());
}

void TestDefinitionListView::Columns_LongText_GetsTheRoomThatOthersHave()
{
    ShownList list;

    list.View.AddItem(" 1_ 3", {"     HOST NAME", "a-rather-long.example.net", "M"});

    const QModelIndex value = list.View.model()->index(3, 1);
    QTRY_COMPARE(list.View.columnWidth(1), list.View.sizeHintForIndex(value).width());
    QCOMPARE(list.AllWidth(), list.View.viewport()->width());
}

void TestDefinitionListView::Columns_TooLongText_LeavesTheOthersWhole()
{
    ShownList list;

    list.View.AddItem(" 1_ 3", {"     HOST NAME", QString(500, u'x'), "M"});

    QTRY_VERIFY(list.View.columnWidth(1) > 200);
    QVERIFY(list.View.columnWidth(0) >= list.View.header()->sectionSizeHint(0));
    QVERIFY(list.View.columnWidth(2) >= list.View.header()->sectionSizeHint(2));
    QCOMPARE(list.AllWidth(), list.View.viewport()->width());
}

void TestDefinitionListView::Columns_TitleBeyondItsShare_IsShownWhole()
{
    ShownList list;
    const int title = list.View.header()->sectionSizeHint(2);

    list.View.resize(10 * title, 200);

    QTRY_COMPARE(list.View.columnWidth(2), title);
    QCOMPARE(list.AllWidth(), list.View.viewport()->width());
}

void TestDefinitionListView::Columns_NarrowList_ShowTheirTitles()
{
    ShownList list;

    list.View.resize(120, 200);

    QTRY_COMPARE(list.View.columnWidth(1), list.View.header()->sectionSizeHint(1));
    for (int column = 0; column < 3; ++column)
        QVERIFY(list.View.columnWidth(column) >= list.View.header()->sectionSizeHint(column));
}

void TestDefinitionListView::Columns_LargerFont_ShowTheirTitles()
{
    ShownList list;
    QFont font = list.View.font();
    font.setPointSize(3 * font.pointSize());

    list.View.setFont(font);

    for (int column = 0; column < 3; ++column)
        QVERIFY(list.View.columnWidth(column) >= list.View.header()->sectionSizeHint(column));
}

void TestDefinitionListView::Columns_Single_FillsTheList()
{
    ShownList list;

    list.View.Clear();
    list.View.AddColumn("Connection Definition", 0.91);

    QCOMPARE(list.View.columnCount(), 1);
    QCOMPARE(list.View.columnWidth(0), list.View.viewport()->width());
}

void TestDefinitionListView::Clear_Filled_LeavesNothing()
{
    ShownList list;
    list.View.SelectRow(2);

    list.View.Clear();

    QCOMPARE(list.View.columnCount(), 0);
    QCOMPARE(list.View.topLevelItemCount(), 0);
    QCOMPARE(list.View.SelectedRow(), 0);
}

void TestDefinitionListView::Rows_WithParameters_WaypointsAreBold()
{
    const ShownList list;

    QVERIFY(list.View.topLevelItem(0)->font(0).bold());
    QVERIFY(!list.View.topLevelItem(1)->font(0).bold());
    QCOMPARE(list.View.topLevelItem(1)->text(0), "     ROW 1");
    QCOMPARE(list.View.topLevelItem(1)->text(2), "M/D");
}

void TestDefinitionListView::Rows_WithoutParameters_NothingIsBold()
{
    DefinitionListView view;
    view.AddColumn("Connection Definition", 0.91);
    view.AddItem(" 1_1", {"T4 Bus"});

    QVERIFY(!view.topLevelItem(0)->font(0).bold());
}

void TestDefinitionListView::Select_NoRow_GivesNothing()
{
    ShownList list;
    list.View.setFocus();

    QCOMPARE(list.View.SelectedKey(), "");
    QCOMPARE(list.View.SelectedRow(), 0);
}

void TestDefinitionListView::Select_Row_GivesItsKey()
{
    ShownList list;

    QTest::mouseClick(list.View.viewport(), Qt::LeftButton, {}, list.Center(3, 0));
    QCOMPARE(list.View.SelectedKey(), " 1_ 2");
    QCOMPARE(list.View.SelectedRow(), 3);
    list.View.SelectRow(1);
    QCOMPARE(list.View.SelectedKey(), " 1_01");
    QCOMPARE(list.View.SelectedRow(), 1);
}

void TestDefinitionListView::Select_BehindTheEnd_KeepsWhatIsSelected()
{
    ShownList list;
    list.View.SelectRow(2);

    list.View.SelectRow(4);
    list.View.SelectRow(0);

    QCOMPARE(list.View.SelectedRow(), 2);
}

void TestDefinitionListView::Select_FarDown_ScrollsThere()
{
    ShownList list(100);

    list.View.SelectRow(90);

    QVERIFY(list.View.viewport()->rect().contains(list.Center(90, 0)));
}

void TestDefinitionListView::Chosen_EnterDoubleClick_IsTold()
{
    ShownList list;
    const QSignalSpy chosen(&list.View, &DefinitionListView::Chosen);

    QTest::keyClick(&list.View, Qt::Key_Return);
    QCOMPARE(chosen.count(), 1);
    QTest::keyClick(&list.View, Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(chosen.count(), 2);
    QTest::mouseDClick(list.View.viewport(), Qt::LeftButton, {}, list.Center(2, 1));
    QCOMPARE(chosen.count(), 3);
    QCOMPARE(list.View.SelectedRow(), 2);
    QTest::mouseDClick(list.View.viewport(), Qt::LeftButton, {}, list.View.viewport()->rect().bottomRight());
    QCOMPARE(chosen.count(), 4);
}

void TestDefinitionListView::Chosen_OtherKeysAndButtons_IsNotTold()
{
    ShownList list;
    const QSignalSpy chosen(&list.View, &DefinitionListView::Chosen);

    QTest::keyClick(&list.View, Qt::Key_Down);
    QTest::keyClick(&list.View, Qt::Key_Space);
    QTest::mouseClick(list.View.viewport(), Qt::LeftButton, {}, list.Center(2, 0));
    QTest::mouseDClick(list.View.viewport(), Qt::RightButton, {}, list.Center(2, 0));
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, {}, QString(), true);
    QApplication::sendEvent(&list.View, &repeated);

    QCOMPARE(chosen.count(), 0);
    QVERIFY(repeated.isAccepted());
}

void TestDefinitionListView::ToolTip_CutText_IsShownWhole()
{
    ShownList list;
    const QString longText = "     " + QString(100, u'x') + "<b>";
    list.View.topLevelItem(1)->setText(0, longText);

    list.HoverOver(2, 0);

    QCOMPARE(QToolTip::text(), QString(100, u'x') + "&lt;b&gt;");
    QToolTip::hideText();
}

void TestDefinitionListView::ToolTip_WholeText_IsNotRepeated()
{
    ShownList list;

    list.HoverOver(2, 0);

    QVERIFY(!QToolTip::isVisible() || QToolTip::text().isEmpty());
}

QTEST_MAIN(TestDefinitionListView)
#include "TestDefinitionListView.moc"
