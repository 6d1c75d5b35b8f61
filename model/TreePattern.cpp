#include "model/TreePattern.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace {

/// Makes eight bytes of one.
constexpr quint64 EightTimes = 0x0101010101010101u;
constexpr quint64 HighBits = 0x80 * EightTimes;
constexpr uchar SharpS = 0xdf;
constexpr uchar Micro = 0xb5;
constexpr uchar YDiaeresis = 0xff;

/// Upper case of the letters that keep to Latin-1.
const std::array<uchar, 256>& UpperLatin1()
{
    static const std::array<uchar, 256> table = [] {
        std::array<uchar, 256> upper = {};
        for (char32_t letter = 0; letter < upper.size(); ++letter) {
            const char32_t raised = QChar::toUpper(letter);
            upper[letter] = uchar(raised < upper.size() ? raised : letter);
        }
        return upper;
    }();
    return table;
}

quint64 Load(const uchar* text)
{
    quint64 bytes = 0;
    std::memcpy(&bytes, text, sizeof(bytes));
    return bytes;
}

/// Whether a letter is not one of the first 128.
bool HasHighLetter(const uchar* text, qsizetype length)
{
    constexpr qsizetype step = sizeof(quint64);
    if (length < step)
        return std::any_of(text, text + length, [](uchar letter) { return letter >= 0x80; });
    // The last eight may overlap those before them.
    quint64 all = Load(text + length - step);
    for (qsizetype at = 0; at + step < length; at += step)
        all |= Load(text + at);
    return (all & HighBits) != 0;
}

} // namespace

TreePattern::TreePattern(const QString& searched) : m_upper(searched.toUpper())
{
    m_isLatin1 =
        std::all_of(m_upper.cbegin(), m_upper.cend(), [](QChar letter) { return letter.unicode() <= 0xff; });
    if (m_isLatin1)
        m_latin1 = m_upper.toLatin1();
    if (!m_latin1.isEmpty()) {
        const auto last = uchar(m_latin1.back());
        const char32_t lower = QChar::toLower(char32_t(last));
        m_lastUpper = last * EightTimes;
        m_lastLower = (lower <= 0xff ? lower : last) * EightTimes;
    }
    constexpr qsizetype longestShift = std::numeric_limits<uchar>::max();
    const std::array<uchar, 256>& upper = UpperLatin1();
    for (size_t letter = 0; letter < m_shift.size(); ++letter) {
        const qsizetype before =
            m_latin1.isEmpty() ? -1 : m_latin1.lastIndexOf(char(upper[letter]), m_latin1.size() - 2);
        const bool stands = m_latin1.size() > 1 && before >= 0;
        m_shift[letter] = uchar(
            std::clamp<qsizetype>(stands ? m_latin1.size() - 1 - before : m_latin1.size(), 1, longestShift));
    }
}

bool TreePattern::OccursIn(const TreeTextView& text) const
{
    const uchar* const latin1 = text.Latin1();
    if (latin1 && !Grows(latin1, text.Length()))
        return OccursInLatin1(latin1, text.Length());
    return OccursInUpper(text);
}

bool TreePattern::Grows(const uchar* text, qsizetype length)
{
    return HasHighLetter(text, length) && std::any_of(text, text + length, [](uchar letter) {
               return letter == SharpS || letter == Micro || letter == YDiaeresis;
           });
}

bool TreePattern::HasLastLetter(const uchar* text, qsizetype length) const
{
    constexpr qsizetype step = sizeof(quint64);
    const auto hasZero = [](quint64 bytes) { return ((bytes - EightTimes) & ~bytes & HighBits) != 0; };
    const auto holds = [&](quint64 bytes) {
        return hasZero(bytes ^ m_lastUpper) || hasZero(bytes ^ m_lastLower);
    };
    if (length < step)
        return std::any_of(text, text + length, [this](uchar letter) {
            return letter == uchar(m_lastUpper) || letter == uchar(m_lastLower);
        });
    if (holds(Load(text + length - step)))
        return true;
    for (qsizetype at = 0; at + step < length; at += step) {
        if (holds(Load(text + at)))
            return true;
    }
    return false;
}

bool TreePattern::OccursInLatin1(const uchar* text, qsizetype length) const
{
    if (!m_isLatin1)
        return false;
    const qsizetype size = m_latin1.size();
    if (size <= 1)
        return size == 0 || HasLastLetter(text, length);
    const std::array<uchar, 256>& upper = UpperLatin1();
    const auto* const pattern = reinterpret_cast<const uchar*>(m_latin1.constData());
    const uchar last = pattern[size - 1];
    for (qsizetype end = size - 1; end < length; end += m_shift[text[end]]) {
        if (upper[text[end]] != last)
            continue;
        const uchar* const start = text + end - size + 1;
        qsizetype same = 0;
        while (same < size - 1 && upper[start[same]] == pattern[same])
            ++same;
        if (same == size - 1)
            return true;
    }
    return false;
}

bool TreePattern::OccursInUpper(const TreeTextView& text) const
{
    return text.ToString().toUpper().contains(m_upper);
}
