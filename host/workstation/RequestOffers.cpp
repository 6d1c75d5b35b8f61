#include "host/workstation/RequestOffers.h"

#include "platform/Words.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QStyledItemDelegate>

namespace {

/// Shows the words of an offer behind its request.
class OfferDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->text = index.data(Qt::AccessibleTextRole).toString();
    }
};

void Offer(QComboBox& box, const QString& request, const QString& words)
{
    box.addItem(request);
    box.setItemData(box.count() - 1, request + QStringLiteral("  ") + words, Qt::AccessibleTextRole);
}

} // namespace

void OfferRequests(QComboBox& box)
{
    Offer(box, QStringLiteral("40"), Words::tr("identification"));
    Offer(box, QStringLiteral("03"), Words::tr("type"));
    box.view()->setItemDelegate(new OfferDelegate(box.view()));
}
