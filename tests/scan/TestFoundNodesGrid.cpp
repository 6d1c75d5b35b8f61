#include "scan/FoundNodesGrid.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

/// The grid of found nodes: rows, order, mark, selection.
class TestFoundNodesGrid : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Init_Empty_HasHeadersWidthsAndRows();
    void Init_AfterNodes_ForgetsThem();
    void Init_LargeFont_ShowsTheHeaders();
    void Store_WideType_IsShownWhole();
    void Store_InOrder_FillsRowsFromTheTop();
    void Store_BeyondTheBlankRows_AddsOneRowEach();
    void Store_OutOfOrder_SortsByNumber();
    void Store_OutOfOrder_MovesMarksWithTheirRows();
    void Store_KnownAddress_KeepsTextsAndTakesTheMarkAway();
    void Find_Address_GivesItsRowOrTheLastGreater_data();
    void Find_Address_GivesItsRowOrTheLastGreater();
    void Mark_Row_IsSeenInItalicsSignAndWords();
    void Mark_Unmark_LeavesNothing();
    void Select_ByProgram_SelectsTheWholeRowAndDoesNotScroll();
    void Click_Anywhere_SelectsTheNearestNode_data();
    void Click_Anywhere_SelectsTheNearestNode();
    void Click_NothingFound_SelectsNothing();
    void Click_RightButton_TellsNothing();
    void Key_BetweenNodes_TellsAndStaysOnThem();
    void Store_ManyNodes_CountsTo4095();
};

namespace {

QString RowText(const FoundNodesGrid& grid, int row)
{
    return grid.TextMatrix(row, 0) + u'|' + grid.TextMatrix(row, 1) + u'|' + grid.TextMatrix(row, 2);
}

QStringList Addresses(const FoundNodesGrid& grid)
{
    QStringList addresses;
    for (qint16 row = 1; row <= grid.FoundCount(); ++row)
        addresses << grid.TextMatrix(row, 0) + (grid.IsMarked(row) ? QStringLiteral("*") : QString());
    return addresses;
}

/// Nodes with addresses 10, 20, …
void Fill(FoundNodesGrid& grid, int count)
{
    for (int k = 1; k <= count; ++k)
        grid.StoreFoundNode(static_cast<qint16>(10 * k), QStringLiteral("T"), QStringLiteral("Node"));
}

void Show(FoundNodesGrid& grid, int height = 600)
{
    grid.resize(500, height);
    grid.show();
    QVERIFY(QTest::qWaitForWindowExposed(&grid));
}

} // namespace

void TestFoundNodesGrid::Init_Empty_HasHeadersWidthsAndRows()
{
    FoundNodesGrid grid;
    Show(grid);

    QCOMPARE(grid.GridRows(), 20);
    QCOMPARE(grid.columnCount(), 3);
    QCOMPARE(RowText(grid, 0), "Address|Type|Identification");
    const int thousandTwips = qRound(1000.0 * grid.logicalDpiX() / 1440);
    QCOMPARE(thousandTwips, 67);
    QCOMPARE(grid.columnWidth(0), thousandTwips);
    QCOMPARE(grid.columnWidth(1), thousandTwips);
    QCOMPARE(grid.columnWidth(2), grid.viewport()->width() - 2 * thousandTwips);
    for (int column = 0; column < 3; ++column) {
        QVERIFY(grid.horizontalHeaderItem(column)->font().bold());
        QVERIFY(grid.horizontalHeaderItem(column)->textAlignment() & Qt::AlignLeft);
    }
    QVERIFY(!grid.font().bold());
    QVERIFY(grid.selectedItems().isEmpty());
}

void TestFoundNodesGrid::Init_AfterNodes_ForgetsThem()
{
    FoundNodesGrid grid;
    Fill(grid, 25);
    grid.MarkNodeRow(1, true);
    grid.setColumnWidth(0, 200);

    grid.InitFoundNodesGrid();

    QCOMPARE(grid.FoundCount(), qint16(0));
    QCOMPARE(grid.GridRows(), 20);
    for (int row = 1; row < grid.GridRows(); ++row)
        QCOMPARE(RowText(grid, row), "||");
    QVERIFY(!grid.IsMarked(1));
    QCOMPARE(grid.columnWidth(0), 67);
    QCOMPARE(grid.Row(), 0);
}

void TestFoundNodesGrid::Init_LargeFont_ShowsTheHeaders()
{
    FoundNodesGrid grid;
    QFont font = grid.font();
    font.setPointSizeF(font.pointSizeF() * 2);
    grid.setFont(font);
    grid.horizontalHeader()->setFont(font);

    grid.InitFoundNodesGrid();

    QVERIFY(grid.columnWidth(0) >= QFontMetrics(font).horizontalAdvance("Address"));
    QVERIFY(grid.rowHeight(0) >= QFontMetrics(font).height());
}

void TestFoundNodesGrid::Store_WideType_IsShownWhole()
{
    FoundNodesGrid grid;
    Show(grid);
    const int usual = grid.columnWidth(1);
    grid.StoreFoundNode(1, QStringLiteral("T"), QStringLiteral("Node"));
    QCOMPARE(grid.columnWidth(1), usual);

    const QString wide(12, u'W');
    grid.StoreFoundNode(2, wide, QStringLiteral("Node"));
    const int needed = grid.columnWidth(1);
    QVERIFY(needed > grid.fontMetrics().horizontalAdvance(wide));
    grid.StoreFoundNode(3, QStringLiteral("T"), QStringLiteral("Node"));
    QCOMPARE(grid.columnWidth(1), needed);
    grid.StoreFoundNode(4, QString(200, u'W'), QStringLiteral("Node"));
    QCOMPARE(grid.columnWidth(1), grid.viewport()->width() / 2);

    grid.InitFoundNodesGrid();
    QCOMPARE(grid.columnWidth(1), usual);
}

void TestFoundNodesGrid::Store_InOrder_FillsRowsFromTheTop()
{
    FoundNodesGrid grid;

    grid.StoreFoundNode(3, "T4", " North ");
    grid.StoreFoundNode(4094, QString(), "South");

    QCOMPARE(grid.FoundCount(), qint16(2));
    QCOMPARE(RowText(grid, 1), "3|T4| North ");
    QCOMPARE(RowText(grid, 2), "4094||South");
    QCOMPARE(grid.Row(), 1);
    for (int column = 0; column < 3; ++column)
        QVERIFY(grid.item(1, column)->textAlignment() & Qt::AlignLeft);
}

void TestFoundNodesGrid::Store_BeyondTheBlankRows_AddsOneRowEach()
{
    FoundNodesGrid grid;
    Fill(grid, 19);
    QCOMPARE(grid.GridRows(), 20);

    grid.StoreFoundNode(200, "T", "Node");
    QCOMPARE(grid.GridRows(), 21);
    grid.StoreFoundNode(210, "T", "Node");

    QCOMPARE(grid.GridRows(), 22);
    QCOMPARE(RowText(grid, 21), "210|T|Node");
    QVERIFY(grid.item(20, 2)->textAlignment() & Qt::AlignLeft);
}

void TestFoundNodesGrid::Store_OutOfOrder_SortsByNumber()
{
    FoundNodesGrid grid;
    grid.StoreFoundNode(9, "T9", "Nine");
    grid.StoreFoundNode(100, "T100", "Hundred");

    grid.StoreFoundNode(17, "T17", "Seventeen");
    grid.StoreFoundNode(0, "T0", "Zero");

    QCOMPARE(Addresses(grid), QStringList({"0", "9", "17", "100"}));
    QCOMPARE(RowText(grid, 3), "17|T17|Seventeen");
    QCOMPARE(RowText(grid, 5), "||");
    QCOMPARE(grid.Row(), 1);
}

void TestFoundNodesGrid::Store_OutOfOrder_MovesMarksWithTheirRows()
{
    FoundNodesGrid grid;
    Fill(grid, 3);
    grid.MarkNodeRow(2, true);

    grid.StoreFoundNode(15, "T", "New");

    QCOMPARE(Addresses(grid), QStringList({"10", "15", "20*", "30"}));
    QVERIFY(grid.item(2, 2)->font().italic());
    QVERIFY(!grid.item(1, 2)->font().italic());
}

void TestFoundNodesGrid::Store_KnownAddress_KeepsTextsAndTakesTheMarkAway()
{
    FoundNodesGrid grid;
    Fill(grid, 3);
    grid.MarkNodeRow(2, true);

    grid.StoreFoundNode(20, "T2", "Renamed");

    QCOMPARE(RowText(grid, 2), "20|T|Node");
    QCOMPARE(Addresses(grid), QStringList({"10", "20", "30"}));
    QCOMPARE(grid.Row(), 2);
}

void TestFoundNodesGrid::Find_Address_GivesItsRowOrTheLastGreater_data()
{
    QTest::addColumn<int>("address");
    QTest::addColumn<bool>("found");
    QTest::addColumn<int>("row");
    QTest::newRow("first") << 10 << true << 1;
    QTest::newRow("last") << 30 << true << 3;
    QTest::newRow("behind all") << 31 << false << 0;
    QTest::newRow("before the last") << 25 << false << 3;
    QTest::newRow("before all") << 1 << false << 3;
    QTest::newRow("beginning of another") << 3 << false << 3;
}

void TestFoundNodesGrid::Find_Address_GivesItsRowOrTheLastGreater()
{
    QFETCH(const int, address);
    FoundNodesGrid grid;
    Fill(grid, 3);

    qint16 row = -1;
    QTEST(grid.FindNodeRow(static_cast<qint16>(address), row), "found");
    QTEST(int(row), "row");
}

void TestFoundNodesGrid::Mark_Row_IsSeenInItalicsSignAndWords()
{
    FoundNodesGrid grid;
    Fill(grid, 3);

    grid.MarkNodeRow(2, true);

    for (int column = 0; column < 3; ++column) {
        const QTableWidgetItem& cell = *grid.item(1, column);
        QVERIFY(cell.font().italic());
        QVERIFY(!cell.font().bold());
        QCOMPARE(cell.toolTip(), "no answer");
        QCOMPARE(cell.data(Qt::AccessibleDescriptionRole).toString(), "no answer");
        QVERIFY(!grid.item(0, column)->font().italic());
    }
    QCOMPARE(grid.CellMark(2, 0), "?");
    QCOMPARE(grid.TextMatrix(2, 0), "20");
    QCOMPARE(grid.Row(), 2);
}

void TestFoundNodesGrid::Mark_Unmark_LeavesNothing()
{
    FoundNodesGrid grid;
    Fill(grid, 1);
    grid.MarkNodeRow(1, true);

    grid.MarkNodeRow(1, false);

    for (int column = 0; column < 3; ++column) {
        QVERIFY(!grid.item(0, column)->font().italic());
        QVERIFY(grid.item(0, column)->toolTip().isEmpty());
        QVERIFY(grid.CellMark(1, column).isEmpty());
    }
}

void TestFoundNodesGrid::Select_ByProgram_SelectsTheWholeRowAndDoesNotScroll()
{
    FoundNodesGrid grid;
    Fill(grid, 100);
    Show(grid, 200);
    grid.verticalScrollBar()->setValue(50);

    grid.SelectGridRow(2);

    QCOMPARE(grid.verticalScrollBar()->value(), 50);
    QCOMPARE(grid.Row(), 2);
    QCOMPARE(grid.Col(), 0);
    QCOMPARE(grid.selectionModel()->selectedRows().size(), 1);
    QCOMPARE(grid.selectedItems().size(), 3);
    grid.SelectGridRow(0);
    QCOMPARE(grid.Row(), 0);
    QVERIFY(grid.selectedItems().isEmpty());
}

void TestFoundNodesGrid::Click_Anywhere_SelectsTheNearestNode_data()
{
    QTest::addColumn<int>("clicked");
    QTest::addColumn<int>("selected");
    QTest::addColumn<int>("told");
    QTest::newRow("header") << 0 << 1 << 0;
    QTest::newRow("first") << 1 << 1 << 1;
    QTest::newRow("last") << 3 << 3 << 1;
    QTest::newRow("first blank row") << 4 << 3 << 0;
    QTest::newRow("last blank row") << 19 << 3 << 0;
    QTest::newRow("below the rows") << -1 << 3 << 0;
}

void TestFoundNodesGrid::Click_Anywhere_SelectsTheNearestNode()
{
    QFETCH(const int, clicked);
    FoundNodesGrid grid;
    Fill(grid, 3);
    Show(grid);
    grid.SelectGridRow(2);
    QSignalSpy told(&grid, &FoundNodesGrid::NodeClick);

    if (clicked == 0) {
        QTest::mouseClick(grid.horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(100, 5));
    } else {
        const QPoint place =
            clicked > 0 ? grid.CellRect(clicked, 2).center() : QPoint(100, grid.viewport()->height() - 5);
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, place);
    }

    QTEST(grid.Row(), "selected");
    QTEST(int(told.count()), "told");
    QCOMPARE(grid.selectedItems().size(), 3);
}

void TestFoundNodesGrid::Click_NothingFound_SelectsNothing()
{
    FoundNodesGrid grid;
    Show(grid);
    const QSignalSpy told(&grid, &FoundNodesGrid::NodeClick);

    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, grid.CellRect(2, 0).center());
    QTest::mouseClick(grid.horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(100, 5));

    QCOMPARE(grid.Row(), 0);
    QVERIFY(told.isEmpty());
}

void TestFoundNodesGrid::Click_RightButton_TellsNothing()
{
    FoundNodesGrid grid;
    Fill(grid, 3);
    Show(grid);
    const QSignalSpy told(&grid, &FoundNodesGrid::NodeClick);

    QTest::mouseClick(grid.viewport(), Qt::RightButton, {}, grid.CellRect(2, 0).center());

    QVERIFY(told.isEmpty());
}

void TestFoundNodesGrid::Key_BetweenNodes_TellsAndStaysOnThem()
{
    FoundNodesGrid grid;
    Fill(grid, 3);
    Show(grid);
    const QSignalSpy told(&grid, &FoundNodesGrid::NodeClick);

    QTest::keyClick(&grid, Qt::Key_Down);
    QCOMPARE(grid.Row(), 2);
    QTest::keyClick(&grid, Qt::Key_PageDown);
    QCOMPARE(grid.Row(), 3);
    QTest::keyClick(&grid, Qt::Key_Up);

    QCOMPARE(grid.Row(), 2);
    QCOMPARE(told.count(), 3);
}

void TestFoundNodesGrid::Store_ManyNodes_CountsTo4095()
{
    FoundNodesGrid grid;

    for (qint16 address = 0; address <= 4094; ++address)
        grid.StoreFoundNode(address, QString(), QString());

    QCOMPARE(grid.FoundCount(), qint16(4095));
    QCOMPARE(grid.GridRows(), 4096);
    QCOMPARE(grid.TextMatrix(4095, 0), "4094");
}

QTEST_MAIN(TestFoundNodesGrid)
#include "TestFoundNodesGrid.moc"
