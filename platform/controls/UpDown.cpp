#include "platform/controls/UpDown.h"

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
        connect(button, &QToolButton::clicked, this, [this, by] {
            Step(by);
            if (by > 0)
                Q_EMIT UpClick();
            else
                Q_EMIT DownClick();
        });
        layout->addWidget(button, 1);
    };
    addButton(Qt::UpArrow, tr("Up"), 1);
    addButton(Qt::DownArrow, tr("Down"), -1);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
}

void UpDown::SetBuddy(QLineEdit* field, int low, int high)
{
    m_field = field;
    m_low = low;
    m_high = high;
}

QSize UpDown::sizeHint() const
{
    return {18, 20};
}

void UpDown::Step(int by)
{
    if (!m_field || !m_field->isEnabled() || m_field->isReadOnly())
        return;
    bool isNumber = false;
    const qint64 value = m_field->text().trimmed().toLongLong(&isNumber);
    m_field->setText(QString::number(isNumber ? qBound(qint64{m_low}, value + by, qint64{m_high}) : m_low));
}
