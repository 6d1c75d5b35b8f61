#include "components/hvxdb/JournalRows.h"

#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxdb/HvxNames.h"
#include "components/hvxdb/ItemText.h"

#include <algorithm>

namespace {

enum Column
{
    RecordId,
    RecordType,
    RecordText1,
    RecordNumber,
    RecordText2,
    NodeKey,
    NodeId,
    NodeConnection,
    NodeTarget,
    NodeType,
    NodeTail,
    NodeManager,
    ColumnCount,
};

constexpr int NoRow = -1;

bool TellsOfSavedNode(qint64 recordType)
{
    return recordType == 30 || recordType == 40;
}

/// True when no node has that name, given that the engine's own key of it leads to none.
bool IsSureToBeGone(const QString& name)
{
    return !NeedsOwnKey(name) && std::none_of(name.cbegin(), name.cend(), IsControl);
}

} // namespace

bool JournalRows::Unpack(const QString& packed, qint64 count)
{
    std::vector<qsizetype> ends;
    ends.reserve(static_cast<size_t>(count) * ColumnCount);
    const QChar* const text = packed.constData();
    for (qsizetype at = 0; at < packed.size(); ++at) {
        if (text[at] == PackedFieldSeparator)
            ends.push_back(at);
    }
    if (count > 0)
        ends.push_back(packed.size());
    if (ends.size() != static_cast<size_t>(count) * ColumnCount)
        return false;
    m_text = packed;
    m_ends = std::move(ends);
    m_ids.reserve(static_cast<size_t>(count));
    m_nodes.reserve(count);
    while (Count() < count)
        TakeLastRow();
    // An aggregate takes the rows in whatever order the engine finds them.
    if (std::is_sorted(m_ids.begin(), m_ids.end()))
        return true;
    *this = JournalRows();
    return false;
}

void JournalRows::Append(const SqlRows& row)
{
    for (int column = 0; column < ColumnCount; ++column) {
        m_text += row.Text(column);
        m_ends.push_back(m_text.size());
        m_text += PackedFieldSeparator;
    }
    TakeLastRow();
}

/// Makes the first row whose id is not known yet one that can be found.
void JournalRows::TakeLastRow()
{
    const int row = Count();
    m_ids.push_back(Number(row, RecordId));
    if (TellsOfSavedNode(Number(row, RecordType)))
        TakeNode(row);
}

/// Keeps where the node stands; that there is none, too.
void JournalRows::TakeNode(int row)
{
    const QStringView name = Field(row, RecordText1);
    if (!Field(row, NodeId).isEmpty()) {
        const QStringView key = Field(row, NodeKey);
        m_nodes.insert(key.toString(), row);
        // Nearly always: the name of the record leads to that very node.
        if (key.compare(name, Qt::CaseInsensitive) == 0)
            return;
    }
    const QString text = name.toString();
    if (!IsSureToBeGone(text))
        return;
    const QString key = FoldedName(text);
    if (!m_nodes.contains(key))
        m_nodes.insert(key, NoRow);
}

QStringView JournalRows::Field(int row, int column) const
{
    const size_t field = static_cast<size_t>(row) * ColumnCount + static_cast<size_t>(column);
    const qsizetype begin = field == 0 ? 0 : m_ends[field - 1] + 1;
    return QStringView(m_text).sliced(begin, m_ends[field] - begin);
}

qint64 JournalRows::Number(int row, int column) const
{
    const QStringView field = Field(row, column);
    constexpr qsizetype surelyInRange = 18;
    if (field.isEmpty() || field.size() > surelyInRange)
        return field.toLongLong();
    // Nearly always plain digits, and a refresh takes tens of thousands of them.
    qint64 number = 0;
    for (const QChar digit : field) {
        if (digit < u'0' || digit > u'9')
            return field.toLongLong();
        number = number * 10 + (digit.unicode() - u'0');
    }
    return number;
}

JournalRecord JournalRows::Record(qint64 id) const
{
    const auto found = std::lower_bound(m_ids.begin(), m_ids.end(), id);
    if (found == m_ids.end() || *found != id)
        return {};
    const int row = static_cast<int>(found - m_ids.begin());
    return {static_cast<qint32>(Number(row, RecordType)), Text(row, RecordText1),
            static_cast<qint32>(Number(row, RecordNumber)), Text(row, RecordText2)};
}

std::optional<NodeRow> JournalRows::Node(const QString& key) const
{
    const auto found = m_nodes.constFind(key);
    if (found == m_nodes.constEnd())
        return std::nullopt;
    const int row = *found;
    if (row == NoRow)
        return NodeRow();
    return NodeRow{true,
                   static_cast<qint32>(Number(row, NodeId)),
                   Text(row, NodeConnection),
                   Text(row, NodeTarget),
                   Text(row, NodeType),
                   Text(row, NodeTail),
                   Text(row, NodeManager)};
}
