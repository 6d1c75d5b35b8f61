#pragma once

#include "components/hvxdb/RecordRows.h"
#include "components/hvxdb/SqlSession.h"

#include <QHash>

#include <optional>
#include <vector>

/// Records of the Journal that were read together, and the nodes of which they tell, as one text out of which
/// each is taken when it is asked for.
///
/// Rows have the columns of HvxStatement::JournalChunkInColumns and come by rising id.
class JournalRows
{
public:
    /// Takes all rows from what HvxStatement::JournalChunk gives for them. False, and nothing is taken: a
    /// stored text holds the separator, or the rows are in another order.
    [[nodiscard]] bool Unpack(const QString& packed, qint64 count);
    /// Takes one more row.
    void Append(const SqlRows& row);

    [[nodiscard]] int Count() const { return static_cast<int>(m_ids.size()); }
    /// Ascending.
    [[nodiscard]] const std::vector<qint64>& Ids() const { return m_ids; }
    /// Type 0 when there is none.
    [[nodiscard]] JournalRecord Record(qint64 id) const;
    /// The node of a key, or that no node has it; nothing when the rows do not tell.
    [[nodiscard]] std::optional<NodeRow> Node(const QString& key) const;

private:
    [[nodiscard]] QStringView Field(int row, int column) const;
    [[nodiscard]] qint64 Number(int row, int column) const;
    [[nodiscard]] QString Text(int row, int column) const { return Field(row, column).toString(); }
    void TakeLastRow();
    void TakeNode(int row);

    /// The fields of all rows, a separator behind each.
    QString m_text;
    /// Where each field ends.
    std::vector<qsizetype> m_ends;
    std::vector<qint64> m_ids;
    /// The row in which a node stands by its key; NoRow: no node has that key.
    QHash<QString, int> m_nodes;
};
