#include "platform/controls/KeyboardReturn.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>

KeyboardReturn::KeyboardReturn()
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(PatienceMs);
    connect(&m_patience, &QTimer::timeout, this, &KeyboardReturn::GiveBack);
    qApp->installEventFilter(this);
}

bool KeyboardReturn::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Show:
        if (qobject_cast<QDialog*>(watched) && (HasKeyboard() || m_patience.isActive()))
            m_withKeyboard.insert(watched);
        break;
    case QEvent::WindowActivate:
        if (qobject_cast<QDialog*>(watched))
            m_withKeyboard.insert(watched);
        break;
    case QEvent::WindowDeactivate: {
        const auto* dialog = qobject_cast<const QDialog*>(watched);
        // One that is hidden loses it by that.
        if (dialog && !dialog->isHidden())
            m_withKeyboard.remove(watched);
        break;
    }
    case QEvent::Hide:
        if (!event->spontaneous())
            Close(watched);
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void KeyboardReturn::Close(QObject* dialog)
{
    const bool hadKeyboard = m_withKeyboard.remove(dialog);
    const auto* closed = qobject_cast<const QDialog*>(dialog);
    // The second of two may not have got the keyboard yet.
    if (!closed || !(hadKeyboard || m_patience.isActive()))
        return;
    m_below = closed->parentWidget();
    m_patience.start();
}

void KeyboardReturn::GiveBack()
{
    if (HasKeyboard() || !m_below)
        return;
    QWidget* const modal = QApplication::activeModalWidget();
    QWidget* const window = modal ? modal : m_below->window();
    if (window->isVisible())
        Activate(*window);
}

bool KeyboardReturn::HasKeyboard() const
{
    return QApplication::activeWindow() != nullptr;
}

void KeyboardReturn::Activate(QWidget& window)
{
    window.activateWindow();
}
