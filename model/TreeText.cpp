#include "model/TreeText.h"

#include <QChar>

#include <algorithm>
#include <array>
#include <cstring>

namespace {

/// Folded characters of Latin-1; the micro sign folds to one outside of it.
const std::array<char16_t, 256>& FoldedLatin1()
{
    static const std::array<char16_t, 256> table = [] {
        std::array<char16_t, 256> folded = {};
        for (char32_t unit = 0; unit < folded.size(); ++unit)
            folded[unit] = char16_t(QChar::toCaseFolded(unit));
        return folded;
    }();
    return table;
}

bool IsLatin1(QStringView text)
{
    char16_t all = 0;
    for (const QChar unit : text)
        all |= unit.unicode();
    return all <= 0xff;
}

void CopyUnits(uchar* to, QStringView text, bool latin1)
{
    if (!latin1) {
        std::memcpy(to, text.utf16(), size_t(text.size()) * sizeof(char16_t));
        return;
    }
    for (const QChar unit : text)
        *to++ = uchar(unit.unicode());
}

} // namespace

TreeTextView TreeTextView::Left(qsizetype length) const
{
    TreeTextView part = *this;
    part.m_length = std::min(m_length, length);
    return part;
}

QString TreeTextView::ToString() const
{
    if (m_narrow)
        return QString::fromLatin1(reinterpret_cast<const char*>(m_narrow), m_length);
    return QStringView(m_wide, m_length).toString();
}

char32_t TreeTextView::Folded(qsizetype at) const
{
    if (m_narrow)
        return FoldedLatin1()[m_narrow[at]];
    const char16_t unit = m_wide[at];
    if (unit <= 0xff)
        return FoldedLatin1()[unit];
    if (QChar::isLowSurrogate(unit) && at > 0 && QChar::isHighSurrogate(m_wide[at - 1]))
        return QChar::toCaseFolded(QChar::surrogateToUcs4(m_wide[at - 1], unit));
    return QChar::toCaseFolded(char32_t(unit));
}

quint32 TreeTextView::FoldedHash() const
{
    const std::array<char16_t, 256>& folded = FoldedLatin1();
    quint32 hash = 2166136261u;
    for (qsizetype at = 0; at < m_length; ++at) {
        const char16_t unit = Unit(at);
        hash = (hash ^ (unit <= 0xff ? folded[unit] : Folded(at))) * 16777619u;
    }
    hash ^= hash >> 16;
    hash *= 0x7feb352du;
    hash ^= hash >> 15;
    return hash;
}

int TreeTextView::CompareFolded(const TreeTextView& left, const TreeTextView& right)
{
    const qsizetype common = std::min(left.m_length, right.m_length);
    if (left.m_narrow && right.m_narrow) {
        const std::array<char16_t, 256>& folded = FoldedLatin1();
        for (qsizetype at = 0; at < common; ++at) {
            if (left.m_narrow[at] == right.m_narrow[at])
                continue;
            if (const int difference = int(folded[left.m_narrow[at]]) - int(folded[right.m_narrow[at]]))
                return difference;
        }
    } else {
        for (qsizetype at = 0; at < common; ++at) {
            // The second half of a pair follows the first one, so equal units fold alike if those before do.
            if (left.Unit(at) == right.Unit(at))
                continue;
            if (const int difference = int(left.Folded(at)) - int(right.Folded(at)))
                return difference;
        }
    }
    return left.m_length < right.m_length ? -1 : int(left.m_length > right.m_length);
}

int TreeTextView::CompareExact(const TreeTextView& left, const TreeTextView& right)
{
    const qsizetype common = std::min(left.m_length, right.m_length);
    for (qsizetype at = 0; at < common; ++at) {
        if (const int difference = int(left.Unit(at)) - int(right.Unit(at)))
            return difference;
    }
    return left.m_length < right.m_length ? -1 : int(left.m_length > right.m_length);
}

int TreeTextView::Compare(const TreeTextView& left, const TreeTextView& right)
{
    if (const int difference = CompareFolded(left, right))
        return difference;
    return CompareExact(left, right);
}

bool TreeTextView::StartsWithFolded(const TreeTextView& prefix) const
{
    return m_length >= prefix.m_length && CompareFolded(Left(prefix.m_length), prefix) == 0;
}

TreeText::TreeText(QStringView text)
{
    const bool latin1 = IsLatin1(text);
    const qsizetype bytes = latin1 ? text.size() : text.size() * qsizetype(sizeof(char16_t));
    if (bytes < Size - 1) {
        m_bytes[FormByte] = latin1 ? uchar(text.size()) : uchar(WideForm + text.size());
        CopyUnits(m_bytes, text, latin1);
        return;
    }
    const Block block = {new uchar[size_t(bytes)], quint32(text.size()), latin1};
    CopyUnits(block.data, text, latin1);
    std::memcpy(m_bytes, &block, sizeof(block));
    m_bytes[FormByte] = BlockForm;
}

TreeText::TreeText(TreeText&& other) noexcept
{
    std::memcpy(m_bytes, other.m_bytes, Size);
    other.m_bytes[FormByte] = 0;
}

TreeText& TreeText::operator=(TreeText&& other) noexcept
{
    if (this != &other) {
        Free();
        std::memcpy(m_bytes, other.m_bytes, Size);
        other.m_bytes[FormByte] = 0;
    }
    return *this;
}

TreeTextView TreeText::WideView() const
{
    const uchar form = m_bytes[FormByte];
    if (form < BlockForm)
        return QStringView(reinterpret_cast<const char16_t*>(m_bytes), form - WideForm);
    const Block block = BlockOf();
    if (block.latin1)
        return TreeTextView(block.data, block.length);
    return QStringView(reinterpret_cast<const char16_t*>(block.data), qsizetype(block.length));
}

qint64 TreeText::BlockBytes() const
{
    if (m_bytes[FormByte] != BlockForm)
        return 0;
    const Block block = BlockOf();
    return qint64(block.length) * (block.latin1 ? 1 : qint64(sizeof(char16_t)));
}

void TreeText::Free()
{
    if (m_bytes[FormByte] == BlockForm)
        delete[] BlockOf().data;
}

TreeText::Block TreeText::BlockOf() const
{
    Block block;
    std::memcpy(&block, m_bytes, sizeof(block));
    return block;
}
