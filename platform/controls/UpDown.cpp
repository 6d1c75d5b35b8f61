#include "platform/controls/UpDown.h"

#include <QKeyEvent>
#include <QToolButton>
#include <QVBoxLayout>

UpDown::UpDown(QWidget* parent) : QWidget(parent)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    const auto addButton = [this, layout](Qt::ArrowType arrow, const QString& name, int by) {
        auto* button = new QToolButton(this);
        button->setArrowType(arrow);
        button->setAutoRepeat(true);
        button->setFocusPolicy(Qt::NoFocus);
        button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
        button->setAccessibleName(name);
        connect(button, &QToolButton::clicked, this, [this, by] { Press(by); });
        layout->addWidget(button, 1);
    };
    addButton(Qt::UpArrow, tr("Up"), 1);
    addButton(Qt::DownArrow, tr("Down"), -1);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
}

void UpDown::SetBuddy(QLineEdit* field, int low, int high)
{
    if (m_field)
        m_field->removeEventFilter(this);
    m_field = field;
    if (m_field)
        m_field->installEventFilter(this);
    m_low = low;
    m_high = high;
}

QSize UpDown::sizeHint() const
{
    return {18, 20};
}

void UpDown::Press(int by)
{
    Step(by);
    if (by > 0)
        Q_EMIT UpClick();
    else
        Q_EMIT DownClick();
}

bool UpDown::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && isEnabled()) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool plain = (key->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
        if (plain && (key->key() == Qt::Key_Up || key->key() == Qt::Key_Down)) {
            Press(key->key() == Qt::Key_Up ? 1 : -1);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void UpDown::Step(int by)
{
    if (!m_field || !m_field->isEnabled() || m_field->isReadOnly())
        return;
    bool isNumber = false;
    const qint64 value = m_field->text().trimmed().toLongLong(&isNumber);
    m_field->setText(QString::number(isNumber ? qBound(qint64{m_low}, value + by, qint64{m_high}) : m_low));
}
