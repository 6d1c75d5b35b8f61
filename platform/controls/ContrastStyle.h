#pragma once

#include <QProxyStyle>

/// The usual look with a clear outline around all that can be used, and a thick one around what has the
/// focus: on black, shades alone would show nothing.
class ContrastStyle : public QProxyStyle
{
    Q_OBJECT

public:
    ContrastStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
};
