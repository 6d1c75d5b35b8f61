#include "browser/JournalAgreement.h"

#include "database/Gateway.h"
#include "model/ItemList.h"
#include "model/TextHelpers.h"

#include <QHash>
#include <QStringList>

namespace {

/// A save of one's own leaves two or three records.
constexpr qsizetype MostRecords = 16;

// Types of the records.
constexpr qint32 NodeDeleted = 20;
constexpr qint32 ConnectionDeleted = 21;
constexpr qint32 NodeSaved = 30;
constexpr qint32 ConnectionSaved = 31;
constexpr qint32 NodeChanged = 40;
constexpr qint32 ConnectionChanged = 41;

/// How a record was left; no id: deleted.
struct Outcome
{
    QString name;
    qint32 id = 0;
};
using Outcomes = QHash<QString, Outcome>;

bool ReadOutcomes(const QStringList& ids, Outcomes& connections, Outcomes& nodes)
{
    for (const QString& id : ids) {
        qint32 type = 0;
        QString name;
        qint32 number = 0;
        QString extra;
        if (!Gateway().GetJournalRecordByIdDb(ValInt(id), type, name, number, extra))
            return false;
        const QString key = name.toCaseFolded();
        if (type == NodeDeleted)
            nodes[key] = {name, 0};
        else if (type == ConnectionDeleted)
            connections[key] = {name, 0};
        else if (type == NodeSaved || type == NodeChanged)
            nodes[key] = {name, number};
        else if (type == ConnectionSaved || type == ConnectionChanged)
            connections[key] = {name, number};
    }
    return true;
}

/// What is called so is the record that was left, or is not there.
bool ShowsNothingElse(const TreeEntries& tree, const Outcome& outcome, bool isNode)
{
    const TreeEntries::Index entry = tree.FindByText(outcome.name, isNode);
    return entry == 0 || (outcome.id != 0 && qAbs(tree.Id(entry)) == outcome.id);
}

bool Shows(const TreeEntries& tree, const Outcome& outcome, const QString& keyPrefix)
{
    if (tree.Count() == 0)
        return true;
    const bool isNode = keyPrefix == QLatin1String("N,");
    if (!ShowsNothingElse(tree, outcome, isNode))
        return false;
    return outcome.id == 0 ||
           tree.Text(tree.FindByKey(keyPrefix + QString::number(outcome.id))) == outcome.name;
}

} // namespace

bool TreesShowJournal(const TreeEntries& conTree, const TreeEntries& nodesTree, qint32 afterId,
                      qint32& lastId)
{
    qint32 type = 0;
    QString name;
    qint32 number = 0;
    QString extra;
    if (!Gateway().GetJournalRecordByIdDb(afterId, type, name, number, extra) || type == 0)
        return false;
    QString list;
    if (!Gateway().GetJournalChangesAfterIdDb(afterId, list))
        return false;
    const QStringList ids = list.split(TabChar, Qt::SkipEmptyParts);
    Outcomes connections;
    Outcomes nodes;
    if (ids.isEmpty() || ids.size() > MostRecords || !ReadOutcomes(ids, connections, nodes))
        return false;
    for (const Outcome& outcome : std::as_const(connections)) {
        if (!Shows(conTree, outcome, QStringLiteral("C,")))
            return false;
    }
    for (const Outcome& outcome : std::as_const(nodes)) {
        if (!Shows(nodesTree, outcome, QStringLiteral("N,")) || !ShowsNothingElse(conTree, outcome, true))
            return false;
    }
    lastId = ValInt(ids.last());
    return true;
}
