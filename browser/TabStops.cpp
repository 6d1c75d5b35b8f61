#include "browser/TabStops.h"

#include <QWidget>

void SetTabStop(QWidget& widget, bool flag)
{
    const int policy = widget.focusPolicy();
    widget.setFocusPolicy(
        static_cast<Qt::FocusPolicy>(flag ? policy | Qt::TabFocus : policy & ~Qt::TabFocus));
}
