#include "platform/controls/TreeRowDelegate.h"

void TreeRowDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (option->text.size() > LongestShownText)
        option->text = option->text.left(LongestShownText) + QChar(0x2026);
    if (option->features.testFlag(QStyleOptionViewItem::HasDecoration) || !m_iconProvider)
        return;
    option->icon = m_iconProvider(index);
    if (!option->icon.isNull())
        option->features |= QStyleOptionViewItem::HasDecoration;
}
