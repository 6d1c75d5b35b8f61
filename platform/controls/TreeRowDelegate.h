#pragma once

#include <QIcon>
#include <QModelIndex>
#include <QStyledItemDelegate>

#include <functional>

/// Gives a row its icon where the model has none of its own, and keeps endless texts out of the layout.
class TreeRowDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using IconProvider = std::function<QIcon(const QModelIndex&)>;

    using QStyledItemDelegate::QStyledItemDelegate;

    void SetIconProvider(IconProvider provider) { m_iconProvider = std::move(provider); }
    [[nodiscard]] bool HasIconProvider() const { return bool(m_iconProvider); }

    /// Characters of a text that are laid out; the rest is shown as an ellipsis.
    static constexpr int LongestShownText = 1000;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    IconProvider m_iconProvider;
};
