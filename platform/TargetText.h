#pragma once

#include <QStringView>

/// One item of a target: keyword and value, or a piece of text without "=".
struct TargetItem
{
    /// Where the item stands in the target; its end is one behind its last character.
    qsizetype start = 0;
    qsizetype end = 0;
    /// What stands before the first "="; the whole item when it has none.
    QStringView keyword;
    QStringView value;
    bool hasEquals = false;

    /// "WP=", in any case, begins a hop.
    [[nodiscard]] bool IsHop() const
    {
        constexpr char16_t caseBit = 0x20;
        return hasEquals && keyword.size() == 2 && (keyword[0].unicode() | caseBit) == u'w' &&
               (keyword[1].unicode() | caseBit) == u'p';
    }
};

/// Reads a target item by item: "," between items, the first "=" of an item behind its keyword.
///
/// Reads any text to its end and allocates nothing. Items without a character are passed over. The text has
/// to outlive the reader and its items.
class TargetText
{
public:
    explicit TargetText(QStringView text) : m_text(text) {}

    /// False behind the last item; `item` then stays as it was.
    bool Next(TargetItem& item)
    {
        const char16_t* const characters = m_text.utf16();
        const qsizetype size = m_text.size();
        while (m_position < size && characters[m_position] == u',')
            ++m_position;
        if (m_position >= size)
            return false;

        const qsizetype start = m_position;
        qsizetype equals = -1;
        for (; m_position < size && characters[m_position] != u','; ++m_position) {
            if (characters[m_position] == u'=' && equals < 0)
                equals = m_position;
        }
        item.start = start;
        item.end = m_position;
        item.hasEquals = equals >= 0;
        const qsizetype keywordEnd = item.hasEquals ? equals : m_position;
        item.keyword = m_text.sliced(start, keywordEnd - start);
        item.value = item.hasEquals ? m_text.sliced(equals + 1, m_position - equals - 1) : QStringView();
        return true;
    }

private:
    QStringView m_text;
    qsizetype m_position = 0;
};
