#include "platform/controls/FlexGrid.h"

FlexGrid::FlexGrid(QWidget* parent) : QTableWidget(parent)
{
    setEditTriggers(QAbstractItemView::NoEditTriggers);
}
