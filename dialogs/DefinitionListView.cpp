#include "dialogs/DefinitionListView.h"

#include "model/ItemList.h"
#include "platform/controls/TreeRowDelegate.h"

#include <QEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolTip>

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
    return QStringLiteral("M/D");
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
    Clear();
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
        headerItem()->setToolTip(column, QStringLiteral("M: mandatory, D: default value in use"));
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

void DefinitionListView::FitColumns()
{
    for (int column = 0; column < columnCount() && column < static_cast<int>(m_shares.size()); ++column) {
        const int wanted = qRound(m_shares[static_cast<std::size_t>(column)] * width());
        setColumnWidth(column, qMax(wanted, header()->sectionSizeHint(column)));
    }
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
