#include "platform/controls/LongList.h"

#include <QComboBox>
#include <QListView>
#include <QStringListModel>

void PrepareLongList(QComboBox& combo, QStringListModel& names)
{
    combo.setModel(&names);
    // A drop-down that grows to the screen would measure every row before it opens.
    combo.setStyleSheet(QStringLiteral("QComboBox { combobox-popup: 0; }"));
    combo.setMaxVisibleItems(20);
    if (auto* list = qobject_cast<QListView*>(combo.view())) {
        list->setUniformItemSizes(true);
        list->setLayoutMode(QListView::Batched);
    }
}
