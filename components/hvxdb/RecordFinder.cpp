#include "components/hvxdb/RecordFinder.h"

#include "components/hvxdb/ItemText.h"
#include "platform/ComponentError.h"

#include <limits>

namespace {

/// Connections whose targets one call takes apart.
constexpr int ConnectionsPerSearch = 500;
/// Names that one call tests itself, where a database has many with other than plain letters.
constexpr int CandidatesPerSearch = 5000;

void AppendHit(QString& items, const QString& text, qint32 number, const QString& conName, qint32 conId)
{
    if (!items.isEmpty())
        items += ItemSeparator;
    items += ListItem(text) + ItemSeparator + QString::number(number) + ItemSeparator + ListItem(conName) +
             ItemSeparator + QString::number(conId);
}

} // namespace

QString RecordFinder::Nodes(qint32& position) const
{
    SqlSession& session = m_store->Session();
    qint32 end = 0;
    {
        SqlRows last = session.Read(HvxStatement::NodeSearchEnd, {position});
        if (last.Next())
            end = last.Number(0);
    }
    QString items;
    int candidates = 0;
    qint32 lastId = 0;
    const qint32 upTo = end != 0 ? end : std::numeric_limits<qint32>::max();
    SqlRows rows = session.Read(HvxStatement::NodeCandidates, {position, upTo, m_upper, CandidatesPerSearch});
    while (rows.Next()) {
        ++candidates;
        lastId = rows.Number(0);
        const QString name = rows.Text(1);
        if (IsHit(name))
            AppendHit(items, name, lastId, rows.Text(3), rows.Number(2));
    }
    position = candidates == CandidatesPerSearch ? lastId : end;
    return items;
}

QString RecordFinder::Waypoints(qint32& position) const
{
    QString items;
    QHash<QString, QString> longNames;
    int connections = 0;
    qint32 lastId = 0;
    SqlRows rows = m_store->Session().Read(HvxStatement::ConnectionTargets, {position, ConnectionsPerSearch});
    while (rows.Next()) {
        ++connections;
        lastId = rows.Number(0);
        const QStringList texts = WaypointTexts(rows.Text(2), longNames);
        for (qsizetype hop = 0; hop < texts.size(); ++hop) {
            if (IsHit(texts[hop]))
                AppendHit(items, texts[hop], qint32(hop) + 1, rows.Text(1), lastId);
        }
    }
    position = connections == ConnectionsPerSearch ? lastId : 0;
    return items;
}

QStringList RecordFinder::WaypointTexts(const QString& target, QHash<QString, QString>& longNames) const
{
    const Definitions& definitions = m_store->CurrentDefinitions();
    const QStringList items = definitions.TargetItemList(target).split(ItemSeparator);
    const int hops = items.front().toInt();
    QStringList texts;
    // Each hop: the number of its pairs, the pair of WP and its name, the others.
    for (qsizetype at = 1; texts.size() < hops && at + 2 < items.size(); at += 1 + 2 * items[at].toInt()) {
        const QString& name = items[at + 2];
        if (!longNames.contains(name)) {
            try {
                longNames[name] = definitions.WpLongName(name);
            } catch (const ComponentError&) {
                longNames[name] = name;
            }
        }
        texts << longNames[name];
    }
    return texts;
}
