#include "platform/controls/ContrastStyle.h"

#include <QPainter>
#include <QStyleOption>

namespace {

enum class Shape
{
    Box,
    Round,
};

/// In the colour of the text, or, with the focus, thicker in that of the selection.
void DrawOutline(const QStyleOption& option, const QRect& rect, QPainter& painter, Shape shape = Shape::Box)
{
    constexpr int usualWidth = 1;
    constexpr int focusWidth = 2;
    const bool focused = option.state.testFlag(QStyle::State_HasFocus);
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    const QPalette::ColorGroup group = enabled ? QPalette::Active : QPalette::Disabled;
    const int width = focused ? focusWidth : usualWidth;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, shape == Shape::Round);
    painter.setBrush(Qt::NoBrush);
    QPen pen(option.palette.color(group, focused ? QPalette::Highlight : QPalette::WindowText), width);
    pen.setJoinStyle(Qt::MiterJoin);
    painter.setPen(pen);
    const QRect inner = rect.adjusted(width / 2, width / 2, -width + width / 2, -width + width / 2);
    if (shape == Shape::Round)
        painter.drawEllipse(inner);
    else
        painter.drawRect(inner);
    painter.restore();
}

} // namespace

ContrastStyle::ContrastStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void ContrastStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                  const QWidget* widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    switch (element) {
    case PE_PanelButtonCommand:
    case PE_PanelLineEdit:
    case PE_Frame:
    case PE_FrameTabWidget:
    case PE_PanelMenu:
    case PE_IndicatorCheckBox:
    case PE_PanelTipLabel:
        DrawOutline(*option, option->rect, *painter);
        break;
    case PE_FrameGroupBox: {
        // Below the title, where the usual look has its frame.
        constexpr int titleGap = 3;
        const int title = qMax(option->fontMetrics.height(),
                               proxy()->pixelMetric(PM_ExclusiveIndicatorHeight, option, widget));
        DrawOutline(*option, option->rect.adjusted(0, title + titleGap, 0, 0), *painter);
        break;
    }
    case PE_PanelButtonTool:
        if (option->state.testFlag(State_Enabled))
            DrawOutline(*option, option->rect, *painter);
        break;
    case PE_IndicatorRadioButton:
        DrawOutline(*option, option->rect, *painter, Shape::Round);
        break;
    default:
        break;
    }
}

void ContrastStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const
{
    QProxyStyle::drawControl(element, option, painter, widget);
    switch (element) {
    case CE_TabBarTabShape:
    case CE_HeaderSection:
    case CE_ProgressBarGroove:
        DrawOutline(*option, option->rect, *painter);
        break;
    case CE_Splitter:
        painter->fillRect(option->rect.adjusted(1, 1, -1, -1),
                          option->palette.color(QPalette::Disabled, QPalette::Text));
        break;
    default:
        break;
    }
}

void ContrastStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                       QPainter* painter, const QWidget* widget) const
{
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ComboBox || control == CC_SpinBox)
        DrawOutline(*option, option->rect, *painter);
    if (control == CC_ScrollBar)
        DrawOutline(*option, subControlRect(control, option, SC_ScrollBarSlider, widget), *painter);
}
