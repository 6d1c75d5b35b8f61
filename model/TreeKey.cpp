#include "model/TreeKey.h"

#include <limits>

namespace {

constexpr qint32 LargestNumber = std::numeric_limits<qint32>::max();

/// Digits without sign, blanks or leading zeros.
std::optional<qint32> ParseNumber(QStringView text)
{
    if (text.isEmpty() || (text.size() > 1 && text.front() == u'0'))
        return std::nullopt;
    qint64 value = 0;
    for (const QChar digit : text) {
        if (digit < u'0' || digit > u'9')
            return std::nullopt;
        value = value * 10 + (digit.unicode() - u'0');
        if (value > LargestNumber)
            return std::nullopt;
    }
    return qint32(value);
}

} // namespace

std::optional<TreeKey> TreeKey::Parse(QStringView text)
{
    if (text.size() < 3 || text[1] != u',' || text[0].unicode() > 0x7f)
        return std::nullopt;
    TreeKey key;
    key.kind = char(text[0].unicode());

    QStringView first = text.sliced(2);
    if (const qsizetype comma = first.indexOf(u','); comma >= 0) {
        const std::optional<qint32> second = ParseNumber(first.sliced(comma + 1));
        // Field 3 counts from 1; 0 stands for a key without it.
        if (!second || *second == 0)
            return std::nullopt;
        key.second = *second;
        first.truncate(comma);
    }
    const bool negative = first.startsWith(u'-');
    const std::optional<qint32> id = ParseNumber(negative ? first.sliced(1) : first);
    if (!id || (negative && *id == 0))
        return std::nullopt;
    key.id = negative ? -*id : *id;
    return key.IsValid() ? std::optional(key) : std::nullopt;
}

bool TreeKey::IsValid() const
{
    switch (kind) {
    case 'R':
        return id == 0 && second == 0;
    case 'C':
        return id >= 0 && second == 0;
    case 'W':
        return id >= 0 && second > 0;
    case 'N':
        return id >= -LargestNumber && second >= 0;
    default:
        return false;
    }
}

QString TreeKey::Format() const
{
    QString text = QString(QLatin1Char(kind)) + u',' + QString::number(id);
    if (second != 0)
        text += u',' + QString::number(second);
    return text;
}

quint32 TreeKey::Hash() const
{
    // Ids that follow each other stay neighbours in the index: a load in the order of ids then works on
    // memory that the processor has at hand, and each bucket still gets its share.
    constexpr quint32 SecondStride = 0x85ebca77;
    constexpr quint32 KindStride = 0x9e3779b1;
    return quint32(qAbs(id)) + quint32(second) * SecondStride + quint32(kind) * KindStride;
}
