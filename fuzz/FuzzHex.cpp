#include "components/hvxutil/HvxUtilityComponent.h"
#include "fuzz/Fuzzing.h"
#include "platform/ComponentError.h"

#include <optional>

/// Texts of any characters as hexadecimal digits, and any bytes there and back.

namespace {

std::optional<QString> TextOf(const QString& hex)
{
    const QString before = QStringLiteral("before");
    QString text = before;
    try {
        HvxUtilityComponent().Hex2U(hex, text);
        return text;
    } catch (const ComponentError& error) {
        Require(error.Number() == HvxUtilityRefused && !error.Description().isEmpty(), "a refusal is told");
        Require(text == before, "a refusal leaves the text as it was");
        return std::nullopt;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString hex = QString::fromUtf8(bytes);
    if (const std::optional<QString> text = TextOf(hex))
        Require(QString::fromLatin1(text->toLatin1().toHex()) == hex.toLower(),
                "digits come back from the text");

    const QString digits = QString::fromLatin1(bytes.toHex());
    const QString expected = QString::fromLatin1(bytes);
    Require(TextOf(digits) == expected, "bytes come back from digits in lower case");
    Require(TextOf(digits.toUpper()) == expected, "bytes come back from digits in upper case");
    Require(!TextOf(digits + u'0'), "an odd number of digits is refused");
    return 0;
}
