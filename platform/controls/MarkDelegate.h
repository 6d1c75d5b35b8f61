#pragma once

#include <QStyledItemDelegate>

/// Draws cells of a grid with the mark behind their text; what is too long loses its end, not the mark.
class MarkDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// The mark of a cell, a text.
    static constexpr int MarkRole = Qt::UserRole;

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};
