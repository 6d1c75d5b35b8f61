#include "components/hvxdb/DefinitionsList.h"

#include <algorithm>
#include <utility>

namespace {

constexpr QChar Separator{u'\t'};

bool IsControl(char16_t unit)
{
    return unit < 0x20 || (unit >= 0x7f && unit < 0xa0);
}

} // namespace

void DefinitionsList::Separate()
{
    if (m_started)
        m_text.append(Separator);
    m_started = true;
}

void DefinitionsList::Add(QStringView item)
{
    Separate();
    const qsizetype start = m_text.size();
    m_text.append(item);
    if (std::any_of(item.utf16(), item.utf16() + item.size(), IsControl))
        std::replace_if(
            m_text.begin() + start, m_text.end(), [](QChar c) { return IsControl(c.unicode()); },
            QChar(u' '));
}

void DefinitionsList::AddNumber(qsizetype number)
{
    Separate();
    constexpr qsizetype base = 10;
    if (number >= 0 && number < base)
        m_text.append(QChar(static_cast<char16_t>(u'0' + number)));
    else
        m_text.append(QString::number(number));
}

QString DefinitionsList::Take()
{
    qsizetype size = m_text.size();
    while (size > 0 && m_text.at(size - 1) == Separator)
        --size;
    m_text.truncate(size);
    m_started = false;
    return std::exchange(m_text, QString());
}
