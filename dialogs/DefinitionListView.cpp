#include "dialogs/DefinitionListView.h"

#include "model/ItemList.h"
#include "platform/Words.h"
#include "platform/controls/TreeRowDelegate.h"

#include <QEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolTip>

#include <numeric>

namespace {

constexpr int KeyRole = Qt::UserRole;
constexpr QChar KeySeparator = u'_';

/// A parameter's row number has a leading blank, what stands for it in a waypoint's key has none.
bool IsParameterKey(const QString& key)
{
    return GetItem(key, 2, KeySeparator).startsWith(u' ');
}

QString MarkerTitle()
{
    return Words::tr("M/D");
}

/// Widens columns towards what they need, at the cost of those that have more.
void ShareRoom(std::vector<int>& widths, const std::vector<int>& needs)
{
    for (std::size_t to = 0; to < widths.size(); ++to) {
        for (std::size_t from = 0; from < widths.size(); ++from) {
            const int moved = qMax(0, qMin(needs[to] - widths[to], widths[from] - needs[from]));
            widths[from] -= moved;
            widths[to] += moved;
        }
    }
}

} // namespace

DefinitionListView::DefinitionListView(QWidget* parent) : QTreeWidget(parent)
{
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setExpandsOnDoubleClick(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setItemDelegate(new TreeRowDelegate(this));
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(false);
    header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    // No column yet.
    setColumnCount(0);
}

void DefinitionListView::Clear()
{
    clear();
    setColumnCount(0);
    m_shares.clear();
}

void DefinitionListView::AddColumn(const QString& title, double share)
{
    const int column = static_cast<int>(m_shares.size());
    m_shares.push_back(share);
    setColumnCount(column + 1);
    headerItem()->setText(column, title);
    if (title == MarkerTitle())
        headerItem()->setToolTip(column, tr("M: mandatory, D: default value in use"));
    FitColumns();
}

void DefinitionListView::AddItem(const QString& key, const QStringList& texts)
{
    auto* item = new QTreeWidgetItem(this, texts);
    item->setData(0, KeyRole, key);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren);
    if (columnCount() > 1 && !IsParameterKey(key)) {
        QFont bold = font();
        bold.setBold(true);
        item->setFont(0, bold);
    }
}

QString DefinitionListView::SelectedKey() const
{
    const QList<QTreeWidgetItem*> selected = selectedItems();
    return selected.isEmpty() ? QString() : selected.first()->data(0, KeyRole).toString();
}

int DefinitionListView::SelectedRow() const
{
    const QList<QTreeWidgetItem*> selected = selectedItems();
    return selected.isEmpty() ? 0 : indexOfTopLevelItem(selected.first()) + 1;
}

void DefinitionListView::SelectRow(int row)
{
    QTreeWidgetItem* item = topLevelItem(row - 1);
    if (!item)
        return;
    setCurrentItem(item);
    scrollToItem(item);
}

// Columns -------------------------------------------------------------------------------------------------

int DefinitionListView::WidestText(int column) const
{
    int width = 0;
    for (int row = 0; row < topLevelItemCount(); ++row)
        width = qMax(width, sizeHintForIndex(model()->index(row, column)).width());
    return width;
}

void DefinitionListView::FitColumns()
{
    const double allShares = std::accumulate(m_shares.begin(), m_shares.end(), 0.0);
    int rest = viewport()->width();
    std::vector<int> widths;
    std::vector<int> titles;
    std::vector<int> needs;
    for (const double share : m_shares) {
        const int column = static_cast<int>(widths.size());
        widths.push_back(qRound(share / allShares * viewport()->width()));
        rest -= widths.back();
        titles.push_back(header()->sectionSizeHint(column));
        needs.push_back(qMax(titles.back(), WidestText(column)));
    }
    if (widths.empty())
        return;
    widths.back() += rest;
    ShareRoom(widths, titles);
    ShareRoom(widths, needs);
    for (std::size_t index = 0; index < widths.size(); ++index)
        setColumnWidth(static_cast<int>(index), qMax(widths[index], titles[index]));
}

void DefinitionListView::doItemsLayout()
{
    FitColumns();
    QTreeWidget::doItemsLayout();
}

void DefinitionListView::resizeEvent(QResizeEvent* event)
{
    QTreeWidget::resizeEvent(event);
    FitColumns();
}

void DefinitionListView::changeEvent(QEvent* event)
{
    QTreeWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        FitColumns();
}

// Keyboard and mouse ----------------------------------------------------------------------------------------

void DefinitionListView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QTreeWidget::keyPressEvent(event);
        return;
    }
    // Enter must not reach the dialog, whose default button would take it.
    event->accept();
    if (!event->isAutoRepeat())
        Q_EMIT Chosen();
}

void DefinitionListView::mouseDoubleClickEvent(QMouseEvent* event)
{
    QTreeWidget::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton)
        Q_EMIT Chosen();
}

bool DefinitionListView::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QTreeWidget::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    ShowCutText(help->pos(), help->globalPos());
    return true;
}

void DefinitionListView::ShowCutText(const QPoint& position, const QPoint& globalPosition) const
{
    const QModelIndex index = indexAt(position);
    if (!index.isValid() || sizeHintForIndex(index).width() <= columnWidth(index.column())) {
        QToolTip::hideText();
        return;
    }
    const QString text = index.data().toString().trimmed().left(TreeRowDelegate::LongestShownText);
    QToolTip::showText(globalPosition, text.toHtmlEscaped(), viewport(), visualRect(index));
}
