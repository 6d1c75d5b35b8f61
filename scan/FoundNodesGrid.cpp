#include "scan/FoundNodesGrid.h"

#include "model/TextHelpers.h"
#include "platform/Words.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>
#include <QStyle>

#include <algorithm>
#include <array>
#include <vector>

namespace {

constexpr int TwipsPerInch = 1440;
constexpr int NarrowColumnTwips = 1000;
/// Around the text of a row, in pixels.
constexpr int RowMargin = 6;

constexpr std::array<const char*, FoundNodesGrid::ColumnCount> Headers{
    QT_TRANSLATE_NOOP("Words", "Address"), QT_TRANSLATE_NOOP("Words", "Type"),
    QT_TRANSLATE_NOOP("Words", "Identification")};

const QString NoAnswerMark = QStringLiteral("?");

QString NoAnswer()
{
    return Words::tr("no answer");
}

} // namespace

FoundNodesGrid::FoundNodesGrid(QWidget* parent) : FlexGrid(parent)
{
    setSelectionBehavior(QAbstractItemView::SelectRows);
    horizontalHeader()->setSectionsClickable(true);
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, [this] { Click(0); });
    InitFoundNodesGrid();
}

void FoundNodesGrid::InitFoundNodesGrid()
{
    m_foundCount = 0;
    m_gridRows = EmptyGridRows;
    SelectGridRow(0);
    clear();
    SetGridSize(m_gridRows, ColumnCount);
    for (int column = AddressColumn; column < ColumnCount; ++column) {
        SetTextMatrix(0, column, Words::tr(Headers[static_cast<std::size_t>(column)]));
        SetCellFont(0, column, true, false);
    }
    const int narrow = qRound(double(NarrowColumnTwips) * logicalDpiX() / TwipsPerInch);
    for (const int column : {AddressColumn, TypeColumn})
        setColumnWidth(column, std::max(narrow, HeaderWidth(column)));
    horizontalHeader()->setSectionResizeMode(IdentificationColumn, QHeaderView::Stretch);
    SetRowHeights(fontMetrics().height() + RowMargin);
    verticalScrollBar()->setValue(0);
}

/// A large font needs more than the usual width.
int FoundNodesGrid::HeaderWidth(int column) const
{
    QFont font = horizontalHeader()->font();
    font.setBold(true);
    return QFontMetrics(font).horizontalAdvance(TextMatrix(0, column)) +
           2 * style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, horizontalHeader());
}

int FoundNodesGrid::TextWidth(const QString& text) const
{
    const int margin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1;
    return fontMetrics().horizontalAdvance(text) + 2 * margin + 1;
}

// Rows --------------------------------------------------------------------------------------------------

void FoundNodesGrid::StoreFoundNode(qint16 address, const QString& type, const QString& identification)
{
    qint16 row = 0;
    if (FindNodeRow(address, row)) {
        MarkNodeRow(row, false);
        return;
    }
    AddNodeRow(address, type, identification);
    if (row > 0)
        SortFoundRows();
}

bool FoundNodesGrid::FindNodeRow(qint16 address, qint16& row) const
{
    const QString searched = QString::number(address);
    row = 0;
    for (qint16 k = 1; k <= m_foundCount; ++k) {
        const QString cell = TextMatrix(k, AddressColumn);
        const QStringView text = TrimBlanks(cell);
        if (text == searched) {
            row = k;
            return true;
        }
        if (!text.isEmpty() && Val(text) > address)
            row = k;
    }
    return false;
}

void FoundNodesGrid::AddNodeRow(qint16 address, const QString& type, const QString& identification)
{
    ++m_foundCount;
    if (m_foundCount > m_gridRows - 1) {
        ++m_gridRows;
        SetGridSize(m_gridRows, ColumnCount);
    }
    SetTextMatrix(m_foundCount, AddressColumn, QString::number(address));
    SetTextMatrix(m_foundCount, TypeColumn, type);
    // Nodes tell any type; the identification keeps its half.
    const int wanted = std::min(TextWidth(type), viewport()->width() / 2);
    setColumnWidth(TypeColumn, std::max(columnWidth(TypeColumn), wanted));
    SetTextMatrix(m_foundCount, IdentificationColumn, identification);
    SelectGridRow(1);
}

void FoundNodesGrid::SortFoundRows()
{
    using RowCells = std::array<QTableWidgetItem*, ColumnCount>;
    std::vector<RowCells> rows(static_cast<std::size_t>(m_foundCount));
    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (std::size_t column = 0; column < ColumnCount; ++column)
            rows[row][column] = takeItem(static_cast<int>(row), static_cast<int>(column));
    }
    std::stable_sort(rows.begin(), rows.end(), [](const RowCells& first, const RowCells& second) {
        return Val(first[AddressColumn]->text()) < Val(second[AddressColumn]->text());
    });
    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (std::size_t column = 0; column < ColumnCount; ++column)
            setItem(static_cast<int>(row), static_cast<int>(column), rows[row][column]);
    }
}

void FoundNodesGrid::MarkNodeRow(qint16 row, bool mark)
{
    const QString meaning = mark ? NoAnswer() : QString();
    for (int column = AddressColumn; column < ColumnCount; ++column) {
        SetCellFont(row, column, false, mark);
        SetCellMark(row, column, mark && column == AddressColumn ? NoAnswerMark : QString(), meaning);
    }
    SelectGridRow(row);
}

bool FoundNodesGrid::IsMarked(qint16 row) const
{
    return !CellMark(row, AddressColumn).isEmpty();
}

void FoundNodesGrid::SelectGridRow(qint16 row)
{
    // What the operator looks at stays where it is.
    setAutoScroll(false);
    if (row > 0)
        SetCell(row, AddressColumn);
    else
        setCurrentItem(nullptr);
    setAutoScroll(true);
}

// Events ------------------------------------------------------------------------------------------------

void FoundNodesGrid::Click(int row)
{
    if (m_foundCount == 0) {
        SelectGridRow(0);
        return;
    }
    const auto nearest = static_cast<qint16>(std::clamp(row, 1, int(m_foundCount)));
    SelectGridRow(nearest);
    scrollTo(currentIndex());
    if (row == nearest)
        Q_EMIT NodeClick();
}

void FoundNodesGrid::mouseReleaseEvent(QMouseEvent* event)
{
    FlexGrid::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton)
        return;
    ClickAt(event->position().toPoint().y());
}

void FoundNodesGrid::ClickAt(int y)
{
    const int row = rowAt(y) + 1;
    Click(row > 0 || y < 0 ? row : GridRows());
}

void FoundNodesGrid::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
    if (event->reason() != QContextMenuEvent::Mouse) {
        Q_EMIT ContextMenu(MenuPlace());
        return;
    }
    const QPointer<FoundNodesGrid> alive = this;
    const QPoint place = event->globalPos();
    ClickAt(viewport()->mapFromGlobal(place).y());
    if (alive)
        Q_EMIT ContextMenu(place);
}

QPoint FoundNodesGrid::MenuPlace()
{
    const QModelIndex selected = currentIndex();
    if (!selected.isValid())
        return viewport()->mapToGlobal(QPoint(0, 0));
    scrollTo(selected);
    return viewport()->mapToGlobal(visualRect(selected).center());
}

void FoundNodesGrid::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
        event->accept();
        Q_EMIT ContextMenu(MenuPlace());
        return;
    }
    const int before = Row();
    FlexGrid::keyPressEvent(event);
    if (Row() == before)
        return;
    // Keys go through the found nodes only.
    Click(std::min(Row(), int(m_foundCount)));
}
