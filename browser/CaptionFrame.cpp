#include "browser/CaptionFrame.h"

#include <QEvent>
#include <QLayout>
#include <QStyle>
#include <QStyleOptionGroupBox>

namespace {

/// What is laid out at most; far more than any screen shows.
constexpr qsizetype LongestShown = 500;

} // namespace

CaptionFrame::CaptionFrame(QWidget* parent) : QGroupBox(parent) {}

void CaptionFrame::SetCaption(const QString& caption)
{
    m_caption = caption;
    ShowCaption();
}

QSize CaptionFrame::minimumSizeHint() const
{
    // That of a group box counts its title.
    const int contents = layout() ? layout()->totalMinimumSize().width() : 0;
    return {contents, QGroupBox::minimumSizeHint().height()};
}

void CaptionFrame::resizeEvent(QResizeEvent* event)
{
    QGroupBox::resizeEvent(event);
    ShowCaption();
}

void CaptionFrame::changeEvent(QEvent* event)
{
    QGroupBox::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        ShowCaption();
}

void CaptionFrame::ShowCaption()
{
    // A title that came with the form is the first caption.
    if (m_caption.isNull())
        m_caption = title();
    const int frame = 2 * style()->pixelMetric(QStyle::PM_LayoutLeftMargin, nullptr, this);
    const QString start = m_caption.left(LongestShown);
    QString shown = fontMetrics().elidedText(start, Qt::ElideRight, qMax(0, width() - frame));
    setToolTip(shown == m_caption ? QString() : start);
    setAccessibleName(start);
    shown.replace(QLatin1Char('&'), QLatin1String("&&"));
    setTitle(shown);
}
