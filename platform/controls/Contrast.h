#pragma once

#include <QColor>

/// How well two colours can be told apart, and colours that can, after WCAG 2.1 (relative luminance and
/// contrast ratio).

/// From 1 (the same) to 21 (black and white).
[[nodiscard]] double ContrastRatio(const QColor& first, const QColor& second);

/// What text needs against what is behind it.
inline constexpr double TextContrast = 4.5;

/// The colour, made lighter or darker as far as it takes to be read as text on `background`.
[[nodiscard]] QColor Readable(const QColor& color, const QColor& background);
