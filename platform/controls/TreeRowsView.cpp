#include "platform/controls/TreeRowsView.h"

#include "platform/controls/AccessibleTreeEvents.h"

#include <QHelpEvent>
#include <QHoverEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QToolTip>

#include <algorithm>

namespace {

/// A row is never shown wider than this; what is behind it is an ellipsis.
constexpr int WidestRow = 8000;

/// Whether an entry is one of the children `start` to `end` of `parent` or stands below one.
bool IsAmong(QModelIndex index, const QModelIndex& parent, int start, int end)
{
    for (; index.isValid(); index = index.parent()) {
        if (index.row() >= start && index.row() <= end && index.parent() == parent)
            return true;
    }
    return false;
}

} // namespace

TreeRowsView::TreeRowsView(QWidget* parent) : QAbstractItemView(parent), m_delegate(new TreeRowDelegate(this))
{
    setItemDelegate(m_delegate);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    // Only a move by the operator or SelectIndex scrolls; a change of the model never does.
    setAutoScroll(false);
    viewport()->setAttribute(Qt::WA_Hover);
    m_accessibleEvents = new AccessibleTreeEvents(this);
    MeasureRowHeight();
}

void TreeRowsView::SetIconProvider(TreeRowDelegate::IconProvider provider)
{
    m_delegate->SetIconProvider(std::move(provider));
    scheduleDelayedItemsLayout();
    viewport()->update();
}

void TreeRowsView::setModel(QAbstractItemModel* newModel)
{
    if (m_rows)
        disconnect(m_rows, nullptr, this, nullptr);
    m_rows = qobject_cast<TreeRows*>(newModel);
    Q_ASSERT(m_rows || !newModel);
    QAbstractItemView::setModel(m_rows);
    m_accessibleEvents->Watch(m_rows);
    if (!m_rows)
        return;
    connect(m_rows, &TreeRows::VisibleRowsChanged, this, [this] { scheduleDelayedItemsLayout(); });
    connect(m_rows, &QAbstractItemModel::rowsRemoved, this, [this] { scheduleDelayedItemsLayout(); });
    connect(m_rows, &QAbstractItemModel::rowsMoved, this, [this] { scheduleDelayedItemsLayout(); });
    connect(m_rows, &TreeRows::Expanded, viewport(), qOverload<>(&QWidget::update));
    connect(m_rows, &TreeRows::Collapsed, viewport(), qOverload<>(&QWidget::update));
}

void TreeRowsView::reset()
{
    m_anchor = QPersistentModelIndex();
    m_anchorOffset = 0;
    m_widestRow = 0;
    m_hovered = QPersistentModelIndex();
    QAbstractItemView::reset();
    m_settingScrollBars = true;
    verticalScrollBar()->setValue(0);
    horizontalScrollBar()->setValue(0);
    m_settingScrollBars = false;
    scheduleDelayedItemsLayout();
}

// Geometry ----------------------------------------------------------------------------------------------

int TreeRowsView::Indentation() const
{
    return style()->pixelMetric(QStyle::PM_TreeViewIndentation, nullptr, this);
}

int TreeRowsView::RowWidth() const
{
    return std::max(viewport()->width(), m_widestRow);
}

QRect TreeRowsView::OnViewport(const QRect& logical) const
{
    return QStyle::visualRect(layoutDirection(), viewport()->rect(),
                              logical.translated(-horizontalOffset(), -verticalOffset()));
}

void TreeRowsView::MeasureRowHeight()
{
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.features |= QStyleOptionViewItem::HasDisplay;
    if (m_delegate->HasIconProvider())
        option.features |= QStyleOptionViewItem::HasDecoration;
    option.text = QStringLiteral("Ag");
    const int height = style()->sizeFromContents(QStyle::CT_ItemViewItem, &option, QSize(), this).height();
    m_rowHeight = std::max(1, height);
}

QRect TreeRowsView::visualRect(const QModelIndex& index) const
{
    const_cast<TreeRowsView*>(this)->executeDelayedItemsLayout();
    const int row = m_rows ? m_rows->VisibleRowOf(index) : -1;
    if (row < 0)
        return {};
    const int left = (m_rows->DepthOf(index) + 1) * Indentation();
    return OnViewport(QRect(left, row * m_rowHeight, std::max(0, RowWidth() - left), m_rowHeight));
}

QRect TreeRowsView::IndicatorRect(const QModelIndex& index) const
{
    const int row = m_rows ? m_rows->VisibleRowOf(index) : -1;
    if (row < 0 || !HasChildren(index))
        return {};
    const int indentation = Indentation();
    return OnViewport(
        QRect(m_rows->DepthOf(index) * indentation, row * m_rowHeight, indentation, m_rowHeight));
}

QModelIndex TreeRowsView::indexAt(const QPoint& point) const
{
    const_cast<TreeRowsView*>(this)->executeDelayedItemsLayout();
    const int y = point.y() + verticalOffset();
    return m_rows && y >= 0 ? m_rows->IndexAtVisibleRow(y / m_rowHeight) : QModelIndex();
}

int TreeRowsView::horizontalOffset() const
{
    return horizontalScrollBar()->value();
}

int TreeRowsView::verticalOffset() const
{
    return verticalScrollBar()->value();
}

bool TreeRowsView::isIndexHidden(const QModelIndex& index) const
{
    Q_UNUSED(index)
    return false;
}

QModelIndex TreeRowsView::NearestVisible(QModelIndex index) const
{
    if (!m_rows)
        return {};
    while (index.isValid() && m_rows->VisibleRowOf(index) < 0)
        index = index.parent();
    return index;
}

bool TreeRowsView::HasChildren(const QModelIndex& index) const
{
    return m_rows && m_rows->rowCount(index) > 0;
}

void TreeRowsView::scrollTo(const QModelIndex& index, ScrollHint hint)
{
    if (!m_rows || !index.isValid())
        return;
    const QPersistentModelIndex target = index;
    for (QPersistentModelIndex above = index.parent(); above.isValid(); above = above.parent())
        m_rows->SetExpanded(above, true);
    executeDelayedItemsLayout();
    const int row = m_rows->VisibleRowOf(target);
    if (row < 0)
        return;
    const int top = row * m_rowHeight;
    const int bottom = top + m_rowHeight - viewport()->height();
    QScrollBar* bar = verticalScrollBar();
    switch (hint) {
    case PositionAtTop:
        bar->setValue(top);
        break;
    case PositionAtBottom:
        bar->setValue(bottom);
        break;
    case PositionAtCenter:
        bar->setValue((top + bottom) / 2);
        break;
    case EnsureVisible:
        // The top comes last: it counts where the viewport is lower than a row.
        if (bar->value() < bottom)
            bar->setValue(bottom);
        if (bar->value() > top)
            bar->setValue(top);
        break;
    }
}

void TreeRowsView::doItemsLayout()
{
    MeasureRowHeight();
    QAbstractItemView::doItemsLayout();
}

void TreeRowsView::updateGeometries()
{
    QAbstractItemView::updateGeometries();
    m_settingScrollBars = true;
    const QSize shown = viewport()->size();
    const int rows = m_rows ? m_rows->VisibleRowCount() : 0;
    verticalScrollBar()->setSingleStep(m_rowHeight);
    verticalScrollBar()->setPageStep(shown.height());
    verticalScrollBar()->setRange(0, std::max(0, rows * m_rowHeight - shown.height()));
    horizontalScrollBar()->setSingleStep(Indentation());
    horizontalScrollBar()->setPageStep(shown.width());
    horizontalScrollBar()->setRange(0, std::max(0, m_widestRow - shown.width()));
    RestoreAnchor();
    m_settingScrollBars = false;
    TakeAnchor();
}

void TreeRowsView::TakeAnchor()
{
    if (!m_rows)
        return;
    const int top = verticalOffset();
    m_anchor = m_rows->IndexAtVisibleRow(top / m_rowHeight);
    m_anchorOffset = top % m_rowHeight;
}

void TreeRowsView::RestoreAnchor()
{
    const QModelIndex anchor = NearestVisible(m_anchor);
    if (!anchor.isValid())
        return;
    verticalScrollBar()->setValue(m_rows->VisibleRowOf(anchor) * m_rowHeight + m_anchorOffset);
}

void TreeRowsView::scrollContentsBy(int dx, int dy)
{
    Q_UNUSED(dx)
    Q_UNUSED(dy)
    if (!m_settingScrollBars)
        TakeAnchor();
    viewport()->update();
}

// Changes of the model ----------------------------------------------------------------------------------

void TreeRowsView::rowsInserted(const QModelIndex& parent, int start, int end)
{
    QAbstractItemView::rowsInserted(parent, start, end);
    scheduleDelayedItemsLayout();
}

void TreeRowsView::rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end)
{
    MoveAnchorOutOf(parent, start, end);
    MoveCurrentOutOf(parent, start, end);
    QAbstractItemView::rowsAboutToBeRemoved(parent, start, end);
}

void TreeRowsView::MoveAnchorOutOf(const QModelIndex& parent, int start, int end)
{
    if (!m_rows || !IsAmong(m_anchor, parent, start, end))
        return;
    // What stands behind the removed rows takes their place; without it, what stands before them.
    m_anchorOffset = 0;
    QModelIndex above = parent;
    QModelIndex next = m_rows->index(end + 1, 0, parent);
    for (; !next.isValid() && above.isValid(); above = above.parent())
        next = m_rows->index(above.row() + 1, 0, above.parent());
    if (!next.isValid()) {
        const int first = m_rows->VisibleRowOf(m_rows->index(start, 0, parent));
        next = m_rows->IndexAtVisibleRow(first - 1);
    }
    m_anchor = next;
}

/// The entry behind the removed ones becomes the current one, else the one before, else the parent.
void TreeRowsView::MoveCurrentOutOf(const QModelIndex& parent, int start, int end)
{
    if (!m_rows || !IsAmong(currentIndex(), parent, start, end))
        return;
    const bool selected = selectionModel()->isSelected(currentIndex());
    QModelIndex next = m_rows->index(end + 1, 0, parent);
    if (!next.isValid())
        next = m_rows->index(start - 1, 0, parent);
    if (!next.isValid())
        next = parent;
    selectionModel()->setCurrentIndex(next, selected ? QItemSelectionModel::ClearAndSelect
                                                     : QItemSelectionModel::NoUpdate);
}

// Selection and cursor ----------------------------------------------------------------------------------

void TreeRowsView::GoToEntry(const QModelIndex& index)
{
    if (!index.isValid())
        return;
    const QPersistentModelIndex target = index;
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    scrollTo(target);
}

void TreeRowsView::ClickEntry(const QModelIndex& index)
{
    setFocus(Qt::MouseFocusReason);
    GoToEntry(index);
}

void TreeRowsView::OpenEntry(const QModelIndex& index)
{
    const QPersistentModelIndex entry = index;
    ClickEntry(index);
    if (HasChildren(entry))
        m_rows->SetExpanded(entry, !m_rows->IsExpanded(entry));
}

void TreeRowsView::setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command)
{
    const QModelIndex index = indexAt(rect.topLeft());
    selectionModel()->select(QItemSelection(index, index), command);
}

QRegion TreeRowsView::visualRegionForSelection(const QItemSelection& selection) const
{
    QRegion region;
    if (!m_rows)
        return region;
    const int last = (verticalOffset() + viewport()->height()) / m_rowHeight;
    for (int row = verticalOffset() / m_rowHeight; row <= last; ++row) {
        const QModelIndex index = m_rows->IndexAtVisibleRow(row);
        if (!index.isValid())
            break;
        if (selection.contains(index))
            region += visualRect(index);
    }
    return region;
}

QModelIndex TreeRowsView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    Q_UNUSED(modifiers)
    executeDelayedItemsLayout();
    const int rows = m_rows ? m_rows->VisibleRowCount() : 0;
    if (rows == 0)
        return {};
    const QModelIndex current = NearestVisible(currentIndex());
    if (!current.isValid())
        return m_rows->IndexAtVisibleRow(action == MoveEnd ? rows - 1 : 0);

    const int row = m_rows->VisibleRowOf(current);
    const int page = std::max(1, viewport()->height() / m_rowHeight - 1);
    const auto shown = [this, rows](int target) {
        return m_rows->IndexAtVisibleRow(std::clamp(target, 0, rows - 1));
    };
    switch (action) {
    case MoveUp:
    case MovePrevious:
        return shown(row - 1);
    case MoveDown:
    case MoveNext:
        return shown(row + 1);
    case MovePageUp:
        return shown(row - page);
    case MovePageDown:
        return shown(row + page);
    case MoveHome:
        return shown(0);
    case MoveEnd:
        return shown(rows - 1);
    case MoveLeft:
        if (current != currentIndex())
            return current;
        return current.parent().isValid() ? current.parent() : current;
    case MoveRight:
        return HasChildren(current) && m_rows->IsExpanded(current) ? shown(row + 1) : current;
    }
    return current;
}

// Painting ----------------------------------------------------------------------------------------------

void TreeRowsView::paintEvent(QPaintEvent* event)
{
    executeDelayedItemsLayout();
    if (!m_rows)
        return;
    QPainter painter(viewport());
    QStyleOptionViewItem plain;
    initViewItemOption(&plain);
    const QRect dirty = event->rect();
    const int last = (dirty.bottom() + verticalOffset()) / m_rowHeight;
    for (int row = (dirty.top() + verticalOffset()) / m_rowHeight; row <= last; ++row) {
        const QModelIndex index = m_rows->IndexAtVisibleRow(row);
        if (!index.isValid())
            break;
        DrawRow(painter, plain, index, row);
    }
}

void TreeRowsView::DrawRow(QPainter& painter, const QStyleOptionViewItem& plain, const QModelIndex& index,
                           int row)
{
    QStyleOptionViewItem option = plain;
    option.showDecorationSelected =
        style()->styleHint(QStyle::SH_ItemView_ShowDecorationSelected, &option, this);
    if (selectionModel()->isSelected(index))
        option.state |= QStyle::State_Selected;
    if (hasFocus() && index == currentIndex())
        option.state |= QStyle::State_HasFocus;
    if (index == m_hovered)
        option.state |= QStyle::State_MouseOver;
    option.viewItemPosition = QStyleOptionViewItem::OnlyOne;
    const int depth = m_rows->DepthOf(index);
    const int left = (depth + 1) * Indentation();
    const int top = row * m_rowHeight;

    option.rect = OnViewport(QRect(0, top, RowWidth(), m_rowHeight));
    style()->drawPrimitive(QStyle::PE_PanelItemViewRow, &option, &painter, this);
    DrawBranches(painter, option, index, row, depth);
    option.rect = OnViewport(QRect(left, top, std::max(0, RowWidth() - left), m_rowHeight));
    m_delegate->paint(&painter, option, index);
    NoteWidth(left + m_delegate->sizeHint(plain, index).width());
}

void TreeRowsView::DrawBranches(QPainter& painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index, int row, int depth)
{
    const int indentation = Indentation();
    QStyleOptionViewItem branch = option;
    branch.state &= ~(QStyle::State_MouseOver | QStyle::State_HasFocus);
    QModelIndex entry = index;
    for (int level = depth; level >= 0; --level, entry = entry.parent()) {
        branch.rect = OnViewport(QRect(level * indentation, row * m_rowHeight, indentation, m_rowHeight));
        branch.state &=
            ~(QStyle::State_Item | QStyle::State_Sibling | QStyle::State_Children | QStyle::State_Open);
        if (level == depth) {
            branch.state |= QStyle::State_Item;
            if (HasChildren(index))
                branch.state |= QStyle::State_Children;
            if (m_rows->IsExpanded(index))
                branch.state |= QStyle::State_Open;
        }
        if (entry.row() + 1 < m_rows->rowCount(entry.parent()))
            branch.state |= QStyle::State_Sibling;
        style()->drawPrimitive(QStyle::PE_IndicatorBranch, &branch, &painter, this);
    }
}

void TreeRowsView::NoteWidth(int width)
{
    width = std::min(width, WidestRow);
    if (width <= m_widestRow)
        return;
    m_widestRow = width;
    // Scroll bars must not change while painting.
    if (width > viewport()->width())
        scheduleDelayedItemsLayout();
}

bool TreeRowsView::viewportEvent(QEvent* event)
{
    switch (event->type()) {
    case QEvent::HoverEnter:
    case QEvent::HoverMove: {
        const QModelIndex hovered = indexAt(static_cast<QHoverEvent*>(event)->position().toPoint());
        if (hovered != m_hovered)
            viewport()->update();
        m_hovered = hovered;
        break;
    }
    case QEvent::HoverLeave:
        m_hovered = QPersistentModelIndex();
        viewport()->update();
        break;
    case QEvent::ToolTip: {
        const auto* help = static_cast<QHelpEvent*>(event);
        if (ShowFullText(help->pos(), help->globalPos()))
            return true;
        break;
    }
    default:
        break;
    }
    return QAbstractItemView::viewportEvent(event);
}

/// A text that does not fit into the viewport is shown as a tip.
bool TreeRowsView::ShowFullText(const QPoint& place, const QPoint& globalPlace)
{
    const QModelIndex index = indexAt(place);
    if (!index.isValid())
        return false;
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    const QRect rect = visualRect(index);
    const QRect seen = rect & viewport()->rect();
    if (m_delegate->sizeHint(option, index).width() <= seen.width())
        return false;
    const QString text = index.data().toString().left(TreeRowDelegate::LongestShownText);
    QToolTip::showText(globalPlace, QStringLiteral("<span>%1</span>").arg(text.toHtmlEscaped()), this, seen);
    return true;
}
