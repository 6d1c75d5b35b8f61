#include "platform/controls/MarkDelegate.h"

#include "platform/controls/TextDirection.h"

#include <QApplication>
#include <QFontMetrics>

namespace {

QString MarkOf(const QModelIndex& index)
{
    const QString mark = index.data(MarkDelegate::MarkRole).toString();
    return mark.isEmpty() ? mark : u' ' + mark;
}

} // namespace

void MarkDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const
{
    QStyleOptionViewItem marked = option;
    initStyleOption(&marked, index);
    const QStyle* style = marked.widget ? marked.widget->style() : QApplication::style();
    if (const QString mark = MarkOf(index); !mark.isEmpty()) {
        const QFontMetrics metrics(marked.font);
        const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, marked.widget) + 1;
        const int space = marked.rect.width() - metrics.horizontalAdvance(mark) - 2 * margin;
        marked.text = metrics.elidedText(marked.text, marked.textElideMode, space) + mark;
    }
    style->drawControl(QStyle::CE_ItemViewItem, &marked, painter, marked.widget);
}

QSize MarkDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    QStyleOptionViewItem marked = option;
    initStyleOption(&marked, index);
    size.rwidth() += QFontMetrics(marked.font).horizontalAdvance(MarkOf(index));
    return size;
}

void MarkDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    option->text = Isolated(option->text, option->direction);
}
