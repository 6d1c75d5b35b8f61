#include "platform/controls/Contrast.h"

#include <algorithm>
#include <cmath>

namespace {

double Linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& color)
{
    return 0.2126 * Linear(color.redF()) + 0.7152 * Linear(color.greenF()) + 0.0722 * Linear(color.blueF());
}

} // namespace

double ContrastRatio(const QColor& first, const QColor& second)
{
    const auto [dark, light] = std::minmax({Luminance(first), Luminance(second)});
    return (light + 0.05) / (dark + 0.05);
}

QColor Readable(const QColor& color, const QColor& background)
{
    // The side with more room: one of the two always reaches the ratio.
    const bool lighter = ContrastRatio(Qt::white, background) > ContrastRatio(Qt::black, background);
    const QColor limit = lighter ? Qt::white : Qt::black;
    constexpr int steps = 20;
    for (int step = 0; step < steps; ++step) {
        const double part = double(step) / steps;
        const auto mix = [part](double from, double to) { return from + (to - from) * part; };
        const QColor mixed = QColor::fromRgbF(float(mix(color.redF(), limit.redF())),
                                              float(mix(color.greenF(), limit.greenF())),
                                              float(mix(color.blueF(), limit.blueF())));
        if (ContrastRatio(mixed, background) >= TextContrast)
            return mixed;
    }
    return limit;
}
