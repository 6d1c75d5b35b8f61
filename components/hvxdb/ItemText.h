#pragma once

#include <QString>

/// What a text becomes as an item of a list: tabs and control characters become blanks.

constexpr QChar ItemSeparator = u'\t';

/// True for the characters that an item cannot hold.
constexpr bool IsControl(QChar character)
{
    const char16_t code = character.unicode();
    return code < 0x20 || (code >= 0x7f && code < 0xa0);
}

inline QString ListItem(QString text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (IsControl(text.at(i)))
            text[i] = u' ';
    }
    return text;
}
