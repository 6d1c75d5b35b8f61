#include "platform/controls/LongList.h"

#include <QComboBox>
#include <QListView>
#include <QStringListModel>

void PrepareLongList(QComboBox& combo, QStringListModel& names)
{
    combo.setModel(&names);
    if (auto* list = qobject_cast<QListView*>(combo.view())) {
        list->setUniformItemSizes(true);
        list->setLayoutMode(QListView::Batched);
    }
}
