#pragma once

#include <QString>

/// What texts of nodes may hold, and how they are shown.

/// All characters have 8 bits.
[[nodiscard]] inline bool IsEightBit(QStringView text)
{
    for (const QChar character : text) {
        if (character.unicode() > 0xFF)
            return false;
    }
    return true;
}

/// The text without what would break a line of a list or of a log.
[[nodiscard]] inline QString Printable(QString text)
{
    for (QChar& character : text) {
        if (!character.isPrint())
            character = u' ';
    }
    return text;
}
