#include "browser/NodeRows.h"

#include "model/ItemList.h"
#include "model/TextHelpers.h"

namespace {

/// ValInt, which takes its time, with a short way for what ids look like.
qint32 IdOf(QStringView text)
{
    constexpr qsizetype longestShort = 9;
    if (text.isEmpty() || text.size() > longestShort)
        return ValInt(text);
    qint32 id = 0;
    for (const QChar digit : text) {
        if (digit < QLatin1Char('0') || digit > QLatin1Char('9'))
            return ValInt(text);
        id = id * 10 + (digit.unicode() - u'0');
    }
    return id;
}

} // namespace

void NodeRows::SetList(const QString& list)
{
    m_list = list;
    m_next = 0;
    m_given = 0;
}

std::span<const NewTreeEntry> NodeRows::Next(int count)
{
    const auto wanted = static_cast<std::size_t>(qBound(0, count, LargestSpan));
    std::size_t rows = 0;
    while (rows < wanted && !AtEnd()) {
        NewTreeEntry& row = m_rows[rows];
        row.text = NextItem();
        row.id = AtEnd() ? 0 : IdOf(NextItem());
        ++rows;
    }
    m_given += static_cast<int>(rows);
    return std::span(m_rows).first(rows);
}

QStringView NodeRows::NextItem()
{
    const qsizetype start = m_next;
    const qsizetype separator = m_list.indexOf(TabChar, start);
    // A separator that is the last character belongs to the last item.
    if (separator < 0 || separator == m_list.size() - 1) {
        m_next = m_list.size();
        return QStringView(m_list).sliced(start);
    }
    m_next = separator + 1;
    return QStringView(m_list).sliced(start, separator - start);
}
