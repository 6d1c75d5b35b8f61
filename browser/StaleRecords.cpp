#include "browser/StaleRecords.h"

#include "database/Gateway.h"
#include "model/TextHelpers.h"
#include "platform/Words.h"

namespace {

/// An id in the database equals the one in an entry's key, whose sign is the continuation mark.
bool SameId(const QString& databaseId, qint32 id)
{
    return ValInt(databaseId) == qAbs(id);
}

bool HasId(const TreeEntries& tree, TreeEntries::Index entry)
{
    return !GetItem(tree.Key(entry), 2, QLatin1Char(',')).isEmpty();
}

QString TwiceAnnounced(const QString& text)
{
    return text + u' ' + Words::tr("Automatic update follows, try again.");
}

} // namespace

QString ConnectionChangedText(const QString& name)
{
    return Words::tr("Connection %1 cannot be accessed, because another application has changed it. "
                     "Automatic update follows, try again.")
        .arg(name);
}

QString NodeChangedText(const QString& name)
{
    return Words::tr("Node %1 cannot be accessed, because another application has changed it. "
                     "Automatic update follows, try again.")
        .arg(name);
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
        stale = {Words::tr("Missing connection index."), false};
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
        stale = {Words::tr("Missing node index."), false};
    else if (changed)
        stale = {NodeChangedText(name), true};
    return hasId && !changed;
}

bool CheckConName(const QString& name, qint32 id, StaleRecord& stale)
{
    QString databaseId;
    if (Gateway().GetParentIDDb(name, databaseId) && SameId(databaseId, id))
        return true;
    stale = {TwiceAnnounced(ConnectionChangedText(name)), true};
    return false;
}

bool CheckNodeName(const QString& name, qint32 id, StaleRecord& stale)
{
    QString databaseId;
    if (!Gateway().GetNodeIDDb(name, databaseId)) {
        stale = {TwiceAnnounced(NodeChangedText(name)), true};
        return false;
    }
    if (SameId(databaseId, id))
        return true;
    stale = {NodeChangedText(name), true};
    return false;
}
