#include "platform/controls/KeyFilter.h"

#include <QKeyEvent>

bool KeyFilter::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    // With Alt as well it is how some keyboards reach further characters.
    const bool isShortcut =
        key.modifiers().testFlag(Qt::ControlModifier) && !key.modifiers().testFlag(Qt::AltModifier);
    const QString typed = key.text();
    const bool isCharacter = !isShortcut && !typed.isEmpty() && typed.front().isPrint();
    return (isCharacter && m_filter(typed.front().unicode()) == 0) || QObject::eventFilter(watched, event);
}
