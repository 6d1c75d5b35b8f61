#pragma once

#include <QString>

#include <map>

/// Why a file cannot be imported: the first problems in the order of their lines, and how many there are.
class ImportProblems
{
public:
    /// Problems of which the text is kept.
    static constexpr std::size_t MaxListed = 1000;

    void Add(qint64 line, const QString& text);

    [[nodiscard]] bool Empty() const { return m_count == 0; }
    [[nodiscard]] qint64 Count() const { return m_count; }
    /// Line (from 1) and text; those of one line in the order in which they were added.
    [[nodiscard]] const std::multimap<qint64, QString>& Listed() const { return m_listed; }

private:
    qint64 m_count = 0;
    std::multimap<qint64, QString> m_listed;
};
