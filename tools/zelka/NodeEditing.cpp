#include "tools/zelka/NodeEditing.h"

#include "database/DatabaseClass.h"
#include "database/ManagerLaunch.h"
#include "database/NodeSave.h"
#include "model/ConData.h"
#include "model/GridChecks.h"
#include "model/GridTexts.h"
#include "model/PacketSizes.h"
#include "model/ParameterLists.h"
#include "model/TextHelpers.h"
#include "tools/zelka/CommandError.h"
#include "tools/zelka/ParameterValues.h"
#include "tools/zelka/RecordTypes.h"

#include <algorithm>

namespace {

[[noreturn]] void Refuse(const QString& text)
{
    throw CommandError(ExitCode::Refused, text);
}

QString NodeExists(const QString& name)
{
    return QStringLiteral("Node ") + name + QStringLiteral(" already exists. Give a new name.");
}

// Type and values -----------------------------------------------------------------------------------------

/// Nodes of the SNMP family stand on its connections, all others on all others.
void RefuseOtherFamily(EditSession& session, const RecordType& type, const QString& conName)
{
    const RecordType conType = TypeOfConnection(session.Session(), conName);
    if (IsSnmpNodeType(type) != IsSnmpConnectionType(conType))
        Refuse(QStringLiteral("A node of the type \"%1\" cannot be on a connection of the type \"%2\".")
                   .arg(type.longName, conType.longName));
}

void TakeType(EditSession& session, const RecordType& type)
{
    if (!session.Con().SetWpDataFromNodeType(type.longName))
        session.Session().Refused();
    session.Con().NodeTypeName = type.shortName;
}

RecordType ApplyType(EditSession& session, const RecordChanges& changes, QString& target)
{
    if (changes.target) {
        target = session.CheckedTarget(*changes.target);
        const RecordType type = NodeTypeOfTarget(session.Session(), target);
        TakeType(session, type);
        return type;
    }
    const RecordType type = NodeType(session.Session(), changes.type.value_or(session.Con().NodeTypeName));
    // The type that the node has keeps its values.
    if (type.shortName.compare(session.Con().NodeTypeName, Qt::CaseInsensitive) != 0)
        TakeType(session, type);
    return type;
}

void CheckPacketSize(const ConData& con, const RecordType& type, const ParameterValues& values)
{
    if (type.longName.compare(u"T4 Node", Qt::CaseInsensitive) != 0)
        return;
    for (int i = 1; i <= con.NodeWpCount; ++i) {
        if (con.GetConWpLongName(i) != u"FE Parameters" || !values.WasSet(i))
            continue;
        const QString channel = values.EffectiveValue(i, FeChannelRow);
        const int size = PacketSizeOfChannel(ValInt(channel));
        if (size != 0 && size != ValInt(values.EffectiveValue(i, FePacketSizeRow)))
            Refuse(QStringLiteral("The FE CHANNEL and PACKET SIZE should be matched: channel %1 needs the "
                                  "packet size %2.")
                       .arg(channel)
                       .arg(size));
    }
}

void ApplyValues(EditSession& session, const RecordChanges& changes, const RecordType& type,
                 const QString& target)
{
    ConData& con = session.Con();
    ParameterValues values(session.Session(), con, con.NodeWpCount);
    values.SetTarget(target);
    for (const ParameterAssignment& assignment : changes.parameters)
        values.Set(assignment);
    CheckPacketSize(con, type, values);
    values.CheckRules(false);
    // The save wants them in the node's own waypoint.
    values.WriteMandatoryDefaults(1);
}

// Manager -------------------------------------------------------------------------------------------------

/// Index of the manager of a device, whose name gets the database's spelling.
QString ManagerIndex(EditSession& session, QString& device)
{
    QString list;
    PairTable managers;
    int count = 0;
    session.Session().Require(session.Gateway().GetNMANamesDb(list));
    PairListToTable(list, managers, count);
    QStringList known;
    for (const ItemPair& manager : managers) {
        if (manager.first.compare(device, Qt::CaseInsensitive) == 0) {
            device = manager.first;
            return ManagerIndexOf(manager.second);
        }
        known << manager.first;
    }
    Refuse(QStringLiteral("There is no manager for the device \"%1\"; known are %2.")
               .arg(device, known.isEmpty() ? QStringLiteral("none") : known.join(QStringLiteral(", "))));
}

void ApplyManager(EditSession& session, const RecordChanges& changes)
{
    if (!changes.manager && !changes.tail)
        return;
    ConData& con = session.Con();
    QString index = ManagerIndexOf(con.CommandLine);
    const QString tail = changes.tail.value_or(ManagerTailOf(con.CommandLine));
    if (std::any_of(tail.begin(), tail.end(), [](QChar c) { return c.category() == QChar::Other_Control; }))
        Refuse(QStringLiteral("The tail holds control characters."));
    if (changes.manager) {
        con.NodeType = Trim(*changes.manager);
        index = con.NodeType.isEmpty() ? QString() : ManagerIndex(session, con.NodeType);
    }
    con.CommandLine = index + u'|' + tail;
}

// Saving --------------------------------------------------------------------------------------------------

/// A taken name is refused, so that the save never comes to ask whether it may replace. `id`: of the node
/// itself, which may change the case of its own name.
void RefuseTakenName(EditSession& session, const QString& name, qint32 id)
{
    bool exists = false;
    session.Session().Require(session.Gateway().NodeNameExistDb(name, exists));
    if (!exists)
        return;
    QString taken;
    session.Session().Require(session.Gateway().GetNodeIDDb(name, taken));
    if (ValInt(taken) != id)
        Refuse(NodeExists(name));
    session.Con().NodeName = name;
}

EditedRecord Save(EditSession& session, const QString& name, const QString& conName)
{
    if (IsReservedNodeName(name))
        Refuse(QStringLiteral("'New Node' cannot be used as a node name, give a new name."));
    ConData& con = session.Con();
    con.SelectedWpIndx = 1;
    GridTexts grid;
    const int rowCount = ShownParameterCount(con.GetWpData(1), 0);
    ShowWpRows(grid, con, 1, rowCount);
    NodeSaveRequest request{name, conName, {}, grid, rowCount};
    if (!SaveNode(con, request))
        session.Session().Refused();
    return {QStringLiteral("node"), request.name, con.NodeDbID};
}

QString ConnectionOf(EditSession& session, const RecordChanges& changes)
{
    return changes.connection ? FindConnection(session.Session(), *changes.connection).name
                              : session.Con().ConName;
}

} // namespace

EditedRecord AddNode(EditSession& session, const RecordChanges& changes, const std::optional<QString>& like)
{
    RefuseTypeBesideTarget(changes);
    const QString name = CheckedNewName(changes.name.value_or(QString()));
    ConData& con = session.Con();
    if (like)
        session.LoadNode(FindNode(session.Session(), *like));
    else
        con.Clear();
    con.ConName = ConnectionOf(session, changes);
    con.NewNode = true;
    con.NodeName = QStringLiteral("New Node");
    con.NodeDbID = 0;
    QString target;
    const RecordType type = ApplyType(session, changes, target);
    RefuseOtherFamily(session, type, con.ConName);
    ApplyValues(session, changes, type, target);
    ApplyManager(session, changes);
    RefuseTakenName(session, name, 0);
    return Save(session, name, con.ConName);
}

EditedRecord ChangeNode(EditSession& session, const FoundRecord& record, const RecordChanges& changes,
                        const std::optional<qint32>& ifId)
{
    RefuseTypeBesideTarget(changes);
    const QString name = changes.name ? CheckedNewName(*changes.name) : record.name;
    session.LoadNode(record);
    session.ShowEntry(record);
    ConData& con = session.Con();
    const QString conName = ConnectionOf(session, changes);
    QString target;
    const RecordType type = ApplyType(session, changes, target);
    if (changes.connection || changes.type || changes.target)
        RefuseOtherFamily(session, type, conName);
    ApplyValues(session, changes, type, target);
    ApplyManager(session, changes);
    if (changes.name)
        RefuseTakenName(session, name, con.NodeDbID);
    if (ifId)
        con.NodeDbID = *ifId;
    return Save(session, name, conName);
}
