#include "browser/StaleRecords.h"

#include "database/Gateway.h"
#include "model/TextHelpers.h"

namespace {

const QString ConnectionKind = QStringLiteral("Connection ");
const QString NodeKind = QStringLiteral("Node ");

const QString ChangedSentence =
    QStringLiteral(" cannot be accessed, because another application has changed it.");
const QString UpdateSentence = QStringLiteral(" Automatic update follows, try again.");

/// An id in the database equals the one in an entry's key, whose sign is the continuation mark.
bool SameId(const QString& databaseId, qint32 id)
{
    return ValInt(databaseId) == qAbs(id);
}

bool HasId(const TreeEntries& tree, TreeEntries::Index entry)
{
    return !GetItem(tree.Key(entry), 2, QLatin1Char(',')).isEmpty();
}

QString TwiceAnnounced(const QString& kind, const QString& name)
{
    return kind + name + ChangedSentence + UpdateSentence + UpdateSentence;
}

} // namespace

QString ConnectionChangedText(const QString& name)
{
    return ConnectionKind + name + ChangedSentence + UpdateSentence;
}

QString NodeChangedText(const QString& name)
{
    return NodeKind + name + ChangedSentence + UpdateSentence;
}

void ConEntryChanged(const TreeEntries& tree, TreeEntries::Index entry, bool& hasId, bool& changed)
{
    hasId = HasId(tree, entry);
    QString id;
    changed = hasId && !(Gateway().GetParentIDDb(tree.Text(entry), id) && SameId(id, tree.Id(entry)));
}

void NodeEntryChanged(const TreeEntries& tree, TreeEntries::Index entry, bool& hasId, bool& changed)
{
    hasId = HasId(tree, entry);
    QString id;
    changed = hasId && !(Gateway().GetNodeIDDb(tree.Text(entry), id) && SameId(id, tree.Id(entry)));
}

bool ConnectionIsCurrent(const TreeEntries& tree, TreeEntries::Index entry)
{
    bool hasId = false;
    bool changed = false;
    ConEntryChanged(tree, entry, hasId, changed);
    return hasId && !changed;
}

bool NodeIsCurrent(const TreeEntries& tree, TreeEntries::Index entry)
{
    bool hasId = false;
    bool changed = false;
    NodeEntryChanged(tree, entry, hasId, changed);
    return hasId && !changed;
}

bool CheckConEntry(const TreeEntries& tree, TreeEntries::Index entry, StaleRecord& stale)
{
    bool hasId = false;
    bool changed = false;
    const QString name = tree.Text(entry);
    ConEntryChanged(tree, entry, hasId, changed);
    if (!hasId)
        stale = {QStringLiteral("Missing connection index."), false};
    else if (changed)
        stale = {ConnectionChangedText(name), true};
    return hasId && !changed;
}

bool CheckNodeEntry(const TreeEntries& tree, TreeEntries::Index entry, StaleRecord& stale)
{
    bool hasId = false;
    bool changed = false;
    const QString name = tree.Text(entry);
    NodeEntryChanged(tree, entry, hasId, changed);
    if (!hasId)
        stale = {QStringLiteral("Missing node index."), false};
    else if (changed)
        stale = {NodeChangedText(name), true};
    return hasId && !changed;
}

bool CheckConName(const QString& name, qint32 id, StaleRecord& stale)
{
    QString databaseId;
    if (Gateway().GetParentIDDb(name, databaseId) && SameId(databaseId, id))
        return true;
    stale = {TwiceAnnounced(ConnectionKind, name), true};
    return false;
}

bool CheckNodeName(const QString& name, qint32 id, StaleRecord& stale)
{
    QString databaseId;
    if (!Gateway().GetNodeIDDb(name, databaseId)) {
        stale = {TwiceAnnounced(NodeKind, name), true};
        return false;
    }
    if (SameId(databaseId, id))
        return true;
    stale = {NodeChangedText(name), true};
    return false;
}
