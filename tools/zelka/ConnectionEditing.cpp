#include "tools/zelka/ConnectionEditing.h"

#include "database/ConnectionSave.h"
#include "database/DatabaseClass.h"
#include "database/SaveSupport.h"
#include "model/ConData.h"
#include "model/TextHelpers.h"
#include "tools/zelka/CommandError.h"
#include "tools/zelka/ParameterValues.h"
#include "tools/zelka/RecordTypes.h"

namespace {

[[noreturn]] void Refuse(const QString& text)
{
    throw CommandError(ExitCode::Refused, text);
}

void RefuseNodeFields(const RecordChanges& changes)
{
    const std::pair<const char*, bool> fields[] = {{"connection", changes.connection.has_value()},
                                                   {"manager", changes.manager.has_value()},
                                                   {"tail", changes.tail.has_value()}};
    for (const auto& [key, given] : fields) {
        if (given)
            throw CommandError(ExitCode::Usage,
                               QStringLiteral("A connection has no %1.").arg(QString::fromLatin1(key)));
    }
}

/// What a connection that has nodes may not become.
void RefuseTypeForNodes(EditSession& session, const RecordType& type)
{
    const ConData& con = session.Con();
    if (con.NewCon || type.shortName.compare(con.ConTypeName, Qt::CaseInsensitive) == 0)
        return;
    qint32 nodes = 0;
    if (!session.Gateway().GetParentNodesCountDb(con.ConName, nodes))
        Refuse(QStringLiteral("Nodes count for connection ") + con.ConName +
               QStringLiteral("failed. Close the dialog and try again. "));
    if (nodes < 1)
        return;
    if (TextContains(con.ConTypeName, u"SNMP"))
        Refuse(QStringLiteral("Connection type cannot be changed, because the ") + type.longName +
               QStringLiteral(" connection already has node(s)."));
    if (TextContains(type.longName, u"Simple"))
        Refuse(type.longName +
               QStringLiteral(" cannot be used, because the connection already has node(s)."));
}

/// Empty tables of the type.
void TakeType(EditSession& session, const RecordType& type)
{
    RefuseTypeForNodes(session, type);
    session.Session().Require(session.Con().SetWpDataFromConType(type.longName));
    session.Con().ConTypeName = type.shortName;
}

void ApplyChanges(EditSession& session, const RecordChanges& changes)
{
    ConData& con = session.Con();
    QString target;
    if (changes.target) {
        target = session.CheckedTarget(*changes.target);
        TakeType(session, ConnectionTypeOfTarget(session.Session(), target));
    } else if (changes.type) {
        const RecordType type = ConnectionType(session.Session(), *changes.type);
        // The type that the connection has keeps its values.
        if (type.shortName.compare(con.ConTypeName, Qt::CaseInsensitive) != 0)
            TakeType(session, type);
    }
    ParameterValues values(session.Session(), con, con.ConWpCount);
    values.SetTarget(target);
    for (const ParameterAssignment& assignment : changes.parameters)
        values.Set(assignment);
    values.CheckRules(true);
}

EditedRecord Save(EditSession& session, const QString& name)
{
    if (IsReservedConnectionName(name))
        Refuse(SaveText::ReservedName());
    QString saved = name;
    if (!SaveConnection(session.Con(), saved))
        session.Session().Refused();
    return {QStringLiteral("connection"), saved, session.Con().ConDbID};
}

} // namespace

EditedRecord AddConnection(EditSession& session, const RecordChanges& changes,
                           const std::optional<QString>& like)
{
    RefuseNodeFields(changes);
    RefuseTypeBesideTarget(changes);
    const QString name = CheckedNewName(changes.name.value_or(QString()));
    ConData& con = session.Con();
    if (like)
        session.LoadConnection(FindConnection(session.Session(), *like));
    else
        con.Clear();
    con.NewCon = true;
    con.ConName = QStringLiteral("New Connection");
    con.ConDbID = 0;
    ApplyChanges(session, changes);
    return Save(session, name);
}

EditedRecord ChangeConnection(EditSession& session, const FoundRecord& record, const RecordChanges& changes,
                              const std::optional<qint32>& ifId)
{
    RefuseNodeFields(changes);
    RefuseTypeBesideTarget(changes);
    const QString name = changes.name ? CheckedNewName(*changes.name) : record.name;
    session.LoadConnection(record);
    session.ShowEntry(record);
    ConData& con = session.Con();
    con.NewCon = false;
    if (ifId)
        con.ConDbID = *ifId;
    ApplyChanges(session, changes);
    return Save(session, name);
}
