#include "components/hvxdb/RecordLists.h"

#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxdb/ItemText.h"

#include <algorithm>
#include <limits>

namespace {

constexpr qint32 NoLimit = std::numeric_limits<qint32>::max();

/// A pair list of that many rows has one separator less than items. More control characters than that came
/// out of a name.
bool HoldsForeignControls(const QString& items, qint64 rows)
{
    return std::count_if(items.cbegin(), items.cend(), IsControl) != 2 * rows - 1;
}

} // namespace

QString RecordLists::Connections(const QString& filter) const
{
    qint32 position = 0;
    if (filter.isEmpty())
        return Page({HvxStatement::ConnectionList, HvxStatement::ConnectionListRows, {}}, NoLimit, position);
    return Page(
        {HvxStatement::ConnectionListOfName, HvxStatement::ConnectionListOfNameRows, {FoldedName(filter)}},
        NoLimit, position);
}

QString RecordLists::Nodes(const QString& conName, const QString& nodeType, qint32& position) const
{
    return Page(NodeStatements(conName, nodeType), NodesPerAnswer, position);
}

QString RecordLists::NodesOfConnection(const QString& conName) const
{
    qint32 position = 0;
    return Page(
        {HvxStatement::NodeListOfConnection, HvxStatement::NodeListOfConnectionRows, {FoldedName(conName)}},
        NoLimit, position);
}

QString RecordLists::NodesOfConnection(const QString& conName, qint32& position) const
{
    return Page(
        {HvxStatement::NodeListOfConnection, HvxStatement::NodeListOfConnectionRows, {FoldedName(conName)}},
        ConnectionNodesPerAnswer, position);
}

qint32 RecordLists::NodeCount() const
{
    SqlRows rows = m_store->Session().Read(HvxStatement::NodeCount);
    return rows.Next() ? rows.Number(0) : 0;
}

qint32 RecordLists::NodeCount(const QString& conName) const
{
    SqlRows rows = m_store->Session().Read(HvxStatement::NodeCountOfConnection, {FoldedName(conName)});
    return rows.Next() ? rows.Number(0) : 0;
}

RecordLists::ListStatements RecordLists::NodeStatements(const QString& conName, const QString& nodeType)
{
    if (conName.isEmpty() && nodeType.isEmpty())
        return {HvxStatement::NodeList, HvxStatement::NodeListRows, {}};
    if (nodeType.isEmpty())
        return {HvxStatement::NodeListOfConnection,
                HvxStatement::NodeListOfConnectionRows,
                {FoldedName(conName)}};
    if (conName.isEmpty())
        return {HvxStatement::NodeListOfType, HvxStatement::NodeListOfTypeRows, {nodeType}};
    return {HvxStatement::NodeListOfConnectionAndType,
            HvxStatement::NodeListOfConnectionAndTypeRows,
            {FoldedName(conName), nodeType}};
}

QString RecordLists::Page(const ListStatements& list, qint32 most, qint32& position) const
{
    const bool limited = position < 0;
    const qint32 after = limited ? 0 : position;
    const qint32 limit = limited ? static_cast<qint32>(std::min<qint64>(-qint64(position), most)) : most;
    QString items;
    qint64 taken = 0;
    qint32 next = 0;
    {
        // The filter stands in the statement twice: for the rows and for what follows them.
        const QVariantList values = list.filters + list.filters + QVariantList{after, limit};
        SqlRows rows = m_store->Session().Read(list.page, values);
        if (rows.Next() && rows.LongNumber(0) > 0) {
            taken = rows.LongNumber(0);
            items = rows.Text(2);
            next = rows.Number(3) != 0 ? rows.Number(1) : 0;
        }
    }
    if (taken > 0 && HoldsForeignControls(items, taken))
        items = PageByRows(list, after, limit);
    position = next;
    return items;
}

QString RecordLists::PageByRows(const ListStatements& list, qint32 after, qint32 limit) const
{
    QString items;
    SqlRows rows = m_store->Session().Read(list.rows, list.filters + QVariantList{after, limit});
    while (rows.Next()) {
        if (!items.isEmpty())
            items += ItemSeparator;
        items += ListItem(rows.Text(1)) + ItemSeparator + rows.Text(0);
    }
    return items;
}
