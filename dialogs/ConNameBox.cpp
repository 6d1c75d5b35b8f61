#include "dialogs/ConNameBox.h"

#include "platform/MachineSeams.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>

namespace {

/// The focus only goes to a menu of the box or to another window, and comes back from there.
bool IsInterruption(Qt::FocusReason reason)
{
    return reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason;
}

} // namespace

ConNameBox::ConNameBox(QWidget* parent) : QLineEdit(parent)
{
    connect(this, &QLineEdit::textChanged, this, &ConNameBox::CutAtComma);
}

void ConNameBox::ShowName(const QString& name)
{
    setText(name);
    selectAll();
    m_savedName = name;
}

void ConNameBox::CutAtComma()
{
    const qsizetype comma = text().indexOf(u',');
    if (comma < 0)
        return;
    setText(text().left(comma));
    Machine().Beep();
}

void ConNameBox::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Escape) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    event->accept();
    setText(m_savedName);
}

void ConNameBox::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    if (IsInterruption(event->reason()))
        return;
    m_savedName = text();
    selectAll();
    m_selectOnRelease = event->reason() == Qt::MouseFocusReason;
}

void ConNameBox::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    if (IsInterruption(event->reason()))
        return;
    m_savedName = text();
    m_selectOnRelease = false;
}

void ConNameBox::mouseReleaseEvent(QMouseEvent* event)
{
    QLineEdit::mouseReleaseEvent(event);
    // A drag has already selected what the operator wants.
    if (m_selectOnRelease && !hasSelectedText())
        selectAll();
    m_selectOnRelease = false;
}
