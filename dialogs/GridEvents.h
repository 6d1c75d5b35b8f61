#pragma once

#include <QObject>

class FlexGrid;
class QComboBox;
class QFocusEvent;
class QKeyEvent;
class QLineEdit;
class UpDown;

/// Turns the events of a grid and its editors into calls of GridEdit's procedures. Lives as long as the
/// service for that grid, at most as long as the grid.
class GridEvents : public QObject
{
    Q_OBJECT

public:
    GridEvents(FlexGrid& grid, QLineEdit& textBox, QComboBox& comboBox, UpDown& spinner);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool TextKey(const QKeyEvent& event);
    bool ComboKey(const QKeyEvent& event);
    void FocusLost(const QFocusEvent& event);
    void ShrinkLimit(const QString& text);
};
