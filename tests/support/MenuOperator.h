#pragma once

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTest>
#include <QWidget>

/// An operator's hand on context menus.
namespace MenuOperator {

/// The right button at a place of a scroll area's viewport, as a desktop tells of it.
inline void RightClick(QWidget& viewport, const QPoint& place)
{
    QTest::mousePress(&viewport, Qt::RightButton, {}, place);
    QContextMenuEvent asked(QContextMenuEvent::Mouse, place, viewport.mapToGlobal(place));
    QApplication::sendEvent(&viewport, &asked);
    QTest::mouseRelease(&viewport, Qt::RightButton, {}, place);
}

/// The menu key.
inline void MenuKey(QWidget& focused)
{
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, focused.rect().center(),
                            focused.mapToGlobal(focused.rect().center()));
    QApplication::sendEvent(&focused, &asked);
}

/// The menu that is open; null: none.
inline QMenu* Opened()
{
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

/// Its entries, without "&" and the keys behind them; "-" before those that cannot be chosen, "|" for lines.
inline QStringList Entries()
{
    QStringList entries;
    if (const QMenu* const menu = Opened()) {
        for (const QAction* action : menu->actions())
            entries << (action->isSeparator()
                            ? QStringLiteral("|")
                            : (action->isEnabled() ? QString() : QStringLiteral("-")) +
                                  action->text().section(QLatin1Char('\t'), 0, 0).remove(QLatin1Char('&')));
    }
    return entries;
}

/// Chooses an entry and lets it run.
inline void Choose(const QString& entry)
{
    QMenu* const menu = Opened();
    if (!menu)
        qFatal("no menu is open");
    for (QAction* action : menu->actions()) {
        if (action->text().section(QLatin1Char('\t'), 0, 0).remove(QLatin1Char('&')) != entry)
            continue;
        menu->close();
        action->trigger();
        QCoreApplication::processEvents();
        return;
    }
    qFatal("there is no entry %s", qPrintable(entry));
}

inline void Close()
{
    if (QMenu* const menu = Opened())
        menu->close();
}

} // namespace MenuOperator
