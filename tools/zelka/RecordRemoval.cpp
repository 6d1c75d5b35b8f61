#include "tools/zelka/RecordRemoval.h"

#include "database/DatabaseClass.h"
#include "database/SaveRoutines.h"
#include "database/UnitOfWork.h"
#include "model/TextHelpers.h"

namespace {

void RequireUnchanged(UnitOfWork& unit, EditSession& session, const FoundRecord& record, qint32 id)
{
    QString current;
    const bool found = record.isConnection ? session.Gateway().GetParentIDDb(record.name, current)
                                           : session.Gateway().GetNodeIDDb(record.name, current);
    if (!found || ValInt(current) != id)
        unit.Refuse(
            QStringLiteral("The %1 \"%2\" is not removed, because another application has changed it.")
                .arg(record.Kind(), record.name));
}

void RemoveConnectionRecord(UnitOfWork& unit, EditSession& session, RemovedRecord& removed, bool force)
{
    const QString& name = removed.record.name;
    if (!session.Gateway().GetParentNodesCountDb(name, removed.nodes))
        unit.Fail();
    if (removed.nodes > 0 && !force)
        unit.Refuse(removed.nodes == 1
                        ? QStringLiteral("The connection \"%1\" has 1 node, which would be removed with it; "
                                         "--force removes both.")
                              .arg(name)
                        : QStringLiteral("The connection \"%1\" has %2 nodes, which would be removed with "
                                         "it; --force removes all.")
                              .arg(name, QString::number(removed.nodes)));
    if (!RemoveConnection(name))
        unit.Fail();
}

} // namespace

RemovedRecord RemoveRecord(EditSession& session, const FoundRecord& record, bool force,
                           const std::optional<qint32>& ifId)
{
    session.ShowEntry(record);
    RemovedRecord removed{record, 0};
    UnitOfWork work{&session.ConTree(), &session.NodesTree()};
    const bool done = work.Run([&](UnitOfWork& unit) {
        unit.Begin();
        RequireUnchanged(unit, session, record, ifId.value_or(record.id));
        if (record.isConnection)
            RemoveConnectionRecord(unit, session, removed, force);
        else if (!RemoveNodeEntry(record.name, session.ConTree(), session.NodesTree(), true))
            unit.Fail();
        unit.Commit();
    });
    if (!done)
        session.Session().Refused();
    return removed;
}
