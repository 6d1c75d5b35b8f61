#pragma once

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <optional>

/// Byte-strings: texts with one character from 0 to 255 a byte, the form in which components hand over bytes.

/// Nothing when a character is above 255.
[[nodiscard]] inline std::optional<QByteArray> BytesOf(QStringView text)
{
    if (std::ranges::any_of(text, [](QChar character) { return character.unicode() > 255; }))
        return std::nullopt;
    return text.toLatin1();
}

[[nodiscard]] inline QString ByteText(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes);
}
