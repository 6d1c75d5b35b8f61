#include "platform/controls/TreeRowDelegate.h"

#include "platform/controls/TextDirection.h"

void TreeRowDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (option->text.size() > LongestShownText)
        option->text = option->text.left(LongestShownText) + QChar(0x2026);
    option->text = Isolated(option->text, option->direction);
    if (option->features.testFlag(QStyleOptionViewItem::HasDecoration) || !m_iconProvider)
        return;
    option->icon = m_iconProvider(index);
    if (!option->icon.isNull())
        option->features |= QStyleOptionViewItem::HasDecoration;
}
