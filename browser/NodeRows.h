#pragma once

#include "model/TreeEntries.h"

#include <QString>

#include <array>
#include <span>

/// Hands out the rows of an answer with nodes (names and ids in turn) in spans, without copying a name.
///
/// The same rules for separators and the end of the text as for item lists; an odd last name has the id 0.
class NodeRows
{
public:
    /// Rows of the largest span.
    static constexpr int LargestSpan = 100;

    void SetList(const QString& list);
    /// No row is left.
    [[nodiscard]] bool AtEnd() const { return m_next >= m_list.size(); }
    /// Rows handed out so far.
    [[nodiscard]] int Given() const { return m_given; }
    /// The next rows, at most `count` and at most LargestSpan; valid until the next call.
    [[nodiscard]] std::span<const NewTreeEntry> Next(int count);

private:
    [[nodiscard]] QStringView NextItem();

    QString m_list;
    qsizetype m_next = 0;
    int m_given = 0;
    std::array<NewTreeEntry, LargestSpan> m_rows;
};
