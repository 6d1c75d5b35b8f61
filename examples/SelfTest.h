#pragma once

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QTextStream>
#include <QTimer>

#include <ZelkaBrowser/T4ZelkaBrowser.h>

/// Lets an example try itself: picks the first node with the keyboard, as an operator would, prints what the
/// host gets, and ends with 0, or with 1 when there is no target. No part of a real host.
namespace SelfTest {

inline void Press(QWidget& widget, Qt::Key key)
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(&widget, &press);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier);
    QApplication::sendEvent(&widget, &release);
}

inline void Run(T4ZelkaBrowser& browser)
{
    QTimer::singleShot(0, &browser, [&browser] {
        const QList<QAbstractItemView*> views = browser.findChildren<QAbstractItemView*>();
        for (QAbstractItemView* view : views) {
            if (!view->isVisible())
                continue;
            for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Right, Qt::Key_Down})
                Press(*view, key);
        }
        QString target;
        const bool isThere = browser.GetTarget(target);
        QTextStream(stdout) << browser.Sobriquet() << ": " << target << Qt::endl;
        QApplication::exit(isThere ? 0 : 1);
    });
}

} // namespace SelfTest
