#include "components/hvxdb/TargetRewriter.h"

#include <utility>

void TargetRewriter::Replace(qsizetype start, qsizetype end, QStringView text)
{
    if (m_copied == 0)
        m_text.reserve(m_original.size());
    m_text.append(QStringView(m_original).sliced(m_copied, start - m_copied)).append(text);
    m_copied = end;
}

QString TargetRewriter::Take()
{
    if (m_copied == 0)
        return m_original;
    m_text.append(QStringView(m_original).sliced(m_copied));
    return std::exchange(m_text, QString());
}
