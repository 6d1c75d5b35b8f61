#include "tools/zelka/RecordLookup.h"

#include "database/DatabaseClass.h"
#include "model/ItemList.h"
#include "model/TextHelpers.h"
#include "tools/zelka/CommandError.h"
#include "tools/zelka/DatabaseSession.h"

namespace {

/// The name that stands beside an id in a pair list of names and ids.
QString NameOfId(const QString& list, const QString& id, const QString& otherwise)
{
    PairTable rows;
    int count = 0;
    PairListToTable(list, rows, count);
    for (const ItemPair& row : rows) {
        if (row.second == id)
            return row.first;
    }
    return otherwise;
}

bool ReadConnection(const DatabaseSession& session, const QString& name, FoundRecord& record)
{
    bool exists = false;
    session.Require(session.Gateway().ConNameExistDb(name, exists));
    if (!exists)
        return false;
    QString id;
    QString list;
    session.Require(session.Gateway().GetParentIDDb(name, id));
    session.Require(session.Gateway().QueryParentsDb(list));
    record = {true, NameOfId(list, id, name), ValInt(id), QString()};
    return true;
}

bool ReadNode(const DatabaseSession& session, const QString& name, FoundRecord& record)
{
    bool exists = false;
    session.Require(session.Gateway().NodeNameExistDb(name, exists));
    if (!exists)
        return false;
    QString id;
    QString conName;
    QString target;
    QString list;
    session.Require(session.Gateway().GetNodeIDDb(name, id));
    session.Require(session.Gateway().GetNodeDb(name, conName, target));
    session.Require(session.Gateway().GetParentNodesDb(conName, list));
    record = {false, NameOfId(list, id, name), ValInt(id), conName};
    return true;
}

[[noreturn]] void RefuseMissing(const QString& what, const QString& name)
{
    throw CommandError(ExitCode::Refused, QStringLiteral("There is no %1 \"%2\".").arg(what, name));
}

} // namespace

QString FoundRecord::Kind() const
{
    return isConnection ? QStringLiteral("connection") : QStringLiteral("node");
}

FoundRecord FindConnection(const DatabaseSession& session, const QString& name)
{
    FoundRecord record;
    if (!ReadConnection(session, Trim(name), record))
        RefuseMissing(QStringLiteral("connection"), name);
    return record;
}

FoundRecord FindNode(const DatabaseSession& session, const QString& name)
{
    FoundRecord record;
    if (!ReadNode(session, Trim(name), record))
        RefuseMissing(QStringLiteral("node"), name);
    return record;
}

FoundRecord FindRecord(const DatabaseSession& session, const QString& name)
{
    FoundRecord record;
    if (!ReadConnection(session, Trim(name), record) && !ReadNode(session, Trim(name), record))
        RefuseMissing(QStringLiteral("connection or node"), name);
    return record;
}
