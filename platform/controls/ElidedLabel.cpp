#include "platform/controls/ElidedLabel.h"

#include <QEvent>

namespace {

/// Characters that stay in any case.
constexpr int ShortestShown = 8;

} // namespace

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

void ElidedLabel::SetFullText(const QString& text)
{
    m_fullText = text;
    setAccessibleName(text);
    ShowText();
    updateGeometry();
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {qMin(sizeHint().width(), fontMetrics().averageCharWidth() * ShortestShown),
            QLabel::minimumSizeHint().height()};
}

QSize ElidedLabel::sizeHint() const
{
    const int margins = contentsMargins().left() + contentsMargins().right() + 2 * margin();
    return {fontMetrics().horizontalAdvance(m_fullText) + margins + 1, QLabel::sizeHint().height()};
}

void ElidedLabel::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    ShowText();
}

void ElidedLabel::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        ShowText();
}

void ElidedLabel::ShowText()
{
    const QString shown = fontMetrics().elidedText(m_fullText, Qt::ElideMiddle, contentsRect().width());
    setText(shown);
    setToolTip(shown == m_fullText ? QString() : m_fullText);
}
