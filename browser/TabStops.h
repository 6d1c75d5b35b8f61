#pragma once

class QWidget;

/// Whether the Tab key stops at a control.
void SetTabStop(QWidget& widget, bool flag);
