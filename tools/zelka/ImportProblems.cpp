#include "tools/zelka/ImportProblems.h"

void ImportProblems::Add(qint64 line, const QString& text)
{
    ++m_count;
    if (m_listed.size() == MaxListed) {
        const auto last = std::prev(m_listed.end());
        if (last->first <= line)
            return;
        m_listed.erase(last);
    }
    m_listed.emplace(line, text);
}
