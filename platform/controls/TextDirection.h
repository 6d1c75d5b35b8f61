#pragma once

#include <QString>

/// A text as it is shown where lines run in a direction: in lines from right to left, names, numbers and
/// addresses keep the order of their own characters, with signs and points where they were written. The
/// characters that see to it are not seen and belong to what is shown only.
[[nodiscard]] inline QString Isolated(const QString& text, Qt::LayoutDirection direction)
{
    constexpr QChar firstStrongIsolate(0x2068);
    constexpr QChar popIsolate(0x2069);
    return direction == Qt::LeftToRight || text.isEmpty() ? text : firstStrongIsolate + text + popIsolate;
}
