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
    const auto* dialog = event->type() == QEvent::Hide ? qobject_cast<const QDialog*>(watched) : nullptr;
    // The second of two may not have got the keyboard yet.
    if (dialog && !event->spontaneous() && (HasKeyboard(*dialog) || m_patience.isActive())) {
        m_below = dialog->parentWidget();
        m_patience.start();
    }
    return QObject::eventFilter(watched, event);
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

bool KeyboardReturn::HasKeyboard(const QWidget& dialog) const
{
    return dialog.isActiveWindow();
}

bool KeyboardReturn::HasKeyboard() const
{
    return QApplication::activeWindow() != nullptr;
}

void KeyboardReturn::Activate(QWidget& window)
{
    window.activateWindow();
}
