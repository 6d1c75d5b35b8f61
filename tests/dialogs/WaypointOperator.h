#pragma once

#include "dialogs/frmWpProp.h"
#include "platform/controls/FlexGrid.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStringList>
#include <QTest>
#include <QTimer>

/// What a waypoint dialog showed: its heading, how many rows, the row on which it opened.
inline QString SeenWaypoint(const QString& header, int rows, int row)
{
    return QStringLiteral("%1: %2 rows, on %3").arg(header).arg(rows).arg(row);
}

/// Answers the next waypoint dialog: looks at it, may write a value into the row on which it opened, and
/// presses a button.
class WaypointOperator
{
public:
    explicit WaypointOperator(const char* button = "cmdCancel", const QString& value = QString())
        : m_button(button), m_value(value)
    {
        // An access key presses its button a moment later.
        QObject::connect(&m_look, &QTimer::timeout, &m_look, [this] { Answer(); });
        m_look.start(1);
    }

    /// Nothing when no dialog was shown.
    QStringList Seen;

private:
    void Answer()
    {
        auto* form = qobject_cast<frmWpProp*>(QApplication::activeModalWidget());
        if (!form)
            return;
        m_look.stop();
        auto& grid = *form->findChild<FlexGrid*>("grdConParam");
        Seen << SeenWaypoint(form->findChild<QLabel*>("lblParameterHeader")->text(), grid.GridRows() - 1,
                             grid.Row());
        if (!m_value.isEmpty()) {
            auto& box = *form->findChild<QLineEdit*>("txtGridEdit");
            box.setText(m_value);
        }
        QTest::mouseClick(form->findChild<QPushButton*>(QString::fromLatin1(m_button)), Qt::LeftButton);
    }

    QTimer m_look;
    const char* m_button;
    QString m_value;
};
