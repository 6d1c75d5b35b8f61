#include "platform/controls/CommandMenu.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QMenu>

namespace {

/// Keeps a command like its button for as long as the menu stands open, since a refresh may fall due.
class FollowsButton : public QObject
{
public:
    FollowsButton(QAction& action, QAbstractButton& button)
        : QObject(&action), m_action(action), m_button(button)
    {
        button.installEventFilter(this);
        Follow();
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::EnabledChange || event->type() == QEvent::ToolTipChange)
            Follow();
        return QObject::eventFilter(watched, event);
    }

private:
    void Follow()
    {
        m_action.setEnabled(m_button.isEnabled());
        m_action.setToolTip(m_button.toolTip());
        m_action.setStatusTip(m_button.toolTip());
    }

    QAction& m_action;
    QAbstractButton& m_button;
};

} // namespace

CommandMenu::CommandMenu(QWidget& window) : m_menu(new QMenu(&window))
{
    m_menu->setAttribute(Qt::WA_DeleteOnClose);
    m_menu->setToolTipsVisible(true);
    m_menu->setSeparatorsCollapsible(true);
}

QAction* CommandMenu::Add(const QString& text, const QString& keys)
{
    // Behind a tab, keys are shown and not listened to: the window listens itself.
    return m_menu->addAction(keys.isEmpty() ? text : text + QLatin1Char('\t') + keys);
}

void CommandMenu::AddCommand(QAbstractButton& button, const QString& text, const QString& keys)
{
    if (button.isHidden())
        return;
    QAction* const action = Add(text.isEmpty() ? button.text() : text, keys);
    action->setObjectName(button.objectName());
    new FollowsButton(*action, button);
    // Queued: a command that shows a dialog must not stand inside the events of a menu.
    QObject::connect(action, &QAction::triggered, &button, &QAbstractButton::click, Qt::QueuedConnection);
}

void CommandMenu::AddCopy(const QString& text, const QString& copied, const QString& whyNot,
                          const QString& keys)
{
    QAction* const action = Add(text, keys);
    action->setEnabled(!copied.isEmpty());
    if (copied.isEmpty())
        action->setToolTip(whyNot);
    QObject::connect(action, &QAction::triggered, action,
                     [copied] { QGuiApplication::clipboard()->setText(copied); });
}

void CommandMenu::AddLine()
{
    m_menu->addSeparator();
}

void CommandMenu::Open(const QPoint& place)
{
    if (m_menu->isEmpty())
        m_menu->deleteLater();
    else
        m_menu->popup(place);
}
