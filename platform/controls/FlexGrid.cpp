#include "platform/controls/FlexGrid.h"

#include "platform/controls/AccessibleControls.h"
#include "platform/controls/MarkDelegate.h"

#include <QAccessible>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>

namespace {

/// The bridge to assistive programs knows of no change of a table's contents, but of its objects' names.
void TellCellChanged(FlexGrid& grid, const QModelIndex& index)
{
    QAccessibleInterface* table = QAccessible::queryAccessibleInterface(&grid);
    if (!table || !table->tableInterface())
        return;
    QAccessibleInterface* cell = table->tableInterface()->cellAt(index.row(), index.column());
    if (!cell)
        return;
    QAccessibleEvent event(cell, QAccessible::NameChanged);
    TellAssistivePrograms(event);
}

constexpr int Backspace = 8;
constexpr int Enter = 13;
constexpr int Blank = 32;
} // namespace

FlexGrid::FlexGrid(QWidget* parent) : QTableWidget(parent)
{
    setItemDelegate(new MarkDelegate(this));
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectItems);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);

    connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, &FlexGrid::Scrolled);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &FlexGrid::Scrolled);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, &FlexGrid::Scrolled);
    connect(verticalHeader(), &QHeaderView::sectionResized, this, &FlexGrid::Scrolled);
}

// Cells -------------------------------------------------------------------------------------------------

void FlexGrid::SetGridSize(int rows, int columns)
{
    setColumnCount(qMax(0, columns));
    setRowCount(qMax(0, rows - 1));
}

int FlexGrid::GridRows() const
{
    return rowCount() + 1;
}

void FlexGrid::SetCell(int row, int column)
{
    if (row >= 1 && row < GridRows() && column >= 0 && column < columnCount())
        setCurrentCell(row - 1, column);
}

QTableWidgetItem* FlexGrid::ItemAt(int row, int column) const
{
    return row == 0 ? horizontalHeaderItem(column) : item(row - 1, column);
}

/// Null outside the grid.
QTableWidgetItem* FlexGrid::MakeItemAt(int row, int column)
{
    if (row < 0 || row >= GridRows() || column < 0 || column >= columnCount())
        return nullptr;
    QTableWidgetItem* cell = ItemAt(row, column);
    if (!cell) {
        cell = new QTableWidgetItem;
        cell->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        if (row == 0)
            setHorizontalHeaderItem(column, cell);
        else
            setItem(row - 1, column, cell);
    }
    return cell;
}

QString FlexGrid::TextMatrix(int row, int column) const
{
    const QTableWidgetItem* cell = ItemAt(row, column);
    return cell ? cell->text() : QString();
}

void FlexGrid::SetTextMatrix(int row, int column, const QString& text)
{
    if (QTableWidgetItem* cell = MakeItemAt(row, column))
        cell->setText(text);
}

void FlexGrid::SetCellFont(int row, int column, bool bold, bool italic)
{
    QTableWidgetItem* cell = MakeItemAt(row, column);
    if (!cell)
        return;
    // Only these two: family and size go on following the grid's font.
    QFont font;
    font.setBold(bold);
    font.setItalic(italic);
    cell->setFont(font);
}

void FlexGrid::SetCellMark(int row, int column, const QString& mark, const QString& meaning)
{
    QTableWidgetItem* cell = MakeItemAt(row, column);
    if (!cell)
        return;
    cell->setData(MarkDelegate::MarkRole, mark);
    cell->setToolTip(meaning);
    cell->setData(Qt::AccessibleDescriptionRole, meaning);
}

QString FlexGrid::CellMark(int row, int column) const
{
    const QTableWidgetItem* cell = ItemAt(row, column);
    return cell ? cell->data(MarkDelegate::MarkRole).toString() : QString();
}

void FlexGrid::dataChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles)
{
    QTableWidget::dataChanged(first, last, roles);
    if (first == last && AssistiveProgramListens())
        TellCellChanged(*this, first);
}

// Geometry ----------------------------------------------------------------------------------------------

QRect FlexGrid::CellRect(int row, int column) const
{
    return row < 1 ? QRect() : visualRect(model()->index(row - 1, column));
}

void FlexGrid::SetRowHeights(int pixels)
{
    verticalHeader()->setMinimumSectionSize(qMin(pixels, verticalHeader()->minimumSectionSize()));
    verticalHeader()->setDefaultSectionSize(pixels);
    horizontalHeader()->setFixedHeight(pixels);
}

int FlexGrid::HeightForRows(int dataRows) const
{
    const QHeaderView& header = *horizontalHeader();
    return qBound(header.minimumHeight(), header.sizeHint().height(), header.maximumHeight()) +
           dataRows * verticalHeader()->defaultSectionSize() + 2 * frameWidth();
}

void FlexGrid::updateGeometries()
{
    QTableWidget::updateGeometries();
    Q_EMIT Scrolled();
}

// Events ------------------------------------------------------------------------------------------------

void FlexGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    const QPointer<FlexGrid> alive = this;
    QTableWidget::currentChanged(current, previous);
    Q_EMIT LeaveCell();
    if (!alive)
        return;
    const QModelIndex cell = currentIndex();
    m_row = cell.isValid() ? cell.row() + 1 : 0;
    m_column = cell.isValid() ? cell.column() : 0;
    Q_EMIT RowColChange();
}

void FlexGrid::keyPressEvent(QKeyEvent* event)
{
    const int character = event->key() == Qt::Key_F2 ? Blank : KeyCharacter(*event);
    if (character == 0) {
        QTableWidget::keyPressEvent(event);
        return;
    }
    event->accept();
    Q_EMIT CellKeyPress(character);
}

void FlexGrid::NoteMouse(const QPoint& place)
{
    const QModelIndex cell = indexAt(place);
    m_mouseRow = cell.isValid() ? cell.row() + 1 : 0;
    m_mouseColumn = cell.isValid() ? cell.column() : 0;
}

void FlexGrid::mousePressEvent(QMouseEvent* event)
{
    NoteMouse(event->position().toPoint());
    QTableWidget::mousePressEvent(event);
}

void FlexGrid::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QPointer<FlexGrid> alive = this;
    const Qt::MouseButton button = event->button();
    NoteMouse(event->position().toPoint());
    QTableWidget::mouseDoubleClickEvent(event);
    if (alive && button == Qt::LeftButton && m_mouseRow > 0)
        Q_EMIT CellDblClick();
}

void FlexGrid::focusInEvent(QFocusEvent* event)
{
    const QPointer<FlexGrid> alive = this;
    QTableWidget::focusInEvent(event);
    if (alive)
        Q_EMIT GotFocus();
}

int KeyCharacter(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers commands =
        event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    // Both together is how some keyboards type their third characters.
    if (commands && commands != (Qt::ControlModifier | Qt::AltModifier))
        return 0;
    if (event.key() == Qt::Key_Backspace)
        return Backspace;
    if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter)
        return Enter;
    const QList<uint> codes = event.text().toUcs4();
    return !codes.isEmpty() && QChar::isPrint(codes.first()) ? static_cast<int>(codes.first()) : 0;
}
