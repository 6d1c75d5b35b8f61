#include "tools/zelka/RecordTypes.h"

#include "database/DatabaseClass.h"
#include "model/ItemList.h"
#include "model/TextHelpers.h"
#include "tools/zelka/CommandError.h"
#include "tools/zelka/DatabaseSession.h"

#include <vector>

namespace {

/// The operations of the gateway on one kind of types.
struct TypeOperations
{
    QString what;
    bool (DatabaseClass::*list)(QString& list);
    bool (DatabaseClass::*id)(const QString& shortName, QString& id);
    bool (DatabaseClass::*longName)(const QString& shortName, QString& longName);
    bool (DatabaseClass::*analyze)(const QString& target, QString& result);
};

const TypeOperations& ConnectionTypes()
{
    static const TypeOperations operations{
        QStringLiteral("connection type"), &DatabaseClass::GetConTypeListDb, &DatabaseClass::GetConTypeIdDb,
        &DatabaseClass::GetConTypeLongNameDb, &DatabaseClass::AnalyzeConTypeDb};
    return operations;
}

const TypeOperations& NodeTypes()
{
    static const TypeOperations operations{
        QStringLiteral("node type"), &DatabaseClass::GetNodeTypeListDb, &DatabaseClass::GetNodeTypeIdDb,
        &DatabaseClass::GetNodeTypeLongNameDb, &DatabaseClass::AnalyzeNodeTypeDb};
    return operations;
}

RecordType TypeOfShortName(const DatabaseSession& session, const TypeOperations& operations,
                           const QString& shortName)
{
    RecordType type;
    QString id;
    type.shortName = shortName;
    session.Require((session.Gateway().*operations.longName)(shortName, type.longName));
    session.Require((session.Gateway().*operations.id)(shortName, id));
    type.id = ValInt(id);
    return type;
}

/// Those that a record can be given; the type of unknown targets is none of them.
std::vector<RecordType> KnownTypes(const DatabaseSession& session, const TypeOperations& operations)
{
    QString list;
    std::vector<QString> names;
    int count = 0;
    session.Require((session.Gateway().*operations.list)(list));
    SplitText(list, TabChar, names, count);
    std::vector<RecordType> types;
    for (const QString& name : names) {
        const RecordType type = TypeOfShortName(session, operations, name);
        if (type.id >= 0)
            types.push_back(type);
    }
    return types;
}

RecordType TypeByName(const DatabaseSession& session, const TypeOperations& operations, const QString& name)
{
    const QString wanted = Trim(name);
    QStringList known;
    for (const RecordType& type : KnownTypes(session, operations)) {
        if (type.shortName.compare(wanted, Qt::CaseInsensitive) == 0 ||
            type.longName.compare(wanted, Qt::CaseInsensitive) == 0)
            return type;
        known << type.shortName + QStringLiteral(" (") + type.longName + u')';
    }
    throw CommandError(ExitCode::Refused, QStringLiteral("There is no %1 \"%2\"; known are %3.")
                                              .arg(operations.what, name, known.join(QStringLiteral(", "))));
}

RecordType TypeByTarget(const DatabaseSession& session, const TypeOperations& operations,
                        const QString& target)
{
    QString analysis;
    session.Require((session.Gateway().*operations.analyze)(target, analysis));
    if (ValInt(GetItem(analysis, 1, TabChar)) < 0)
        throw CommandError(
            ExitCode::Refused,
            QStringLiteral("No %1 has the waypoints of the target \"%2\".").arg(operations.what, target));
    return TypeOfShortName(session, operations, GetItem(analysis, 2, TabChar));
}

} // namespace

bool IsSnmpConnectionType(const RecordType& type)
{
    constexpr int snmpTypeId = 15;
    return type.id == snmpTypeId || TextContains(type.shortName, u"SNMP");
}

bool IsSnmpNodeType(const RecordType& type)
{
    return TextContains(type.longName, u"SNMP");
}

RecordType ConnectionType(const DatabaseSession& session, const QString& name)
{
    return TypeByName(session, ConnectionTypes(), name);
}

RecordType NodeType(const DatabaseSession& session, const QString& name)
{
    return TypeByName(session, NodeTypes(), name);
}

RecordType ConnectionTypeOfTarget(const DatabaseSession& session, const QString& target)
{
    return TypeByTarget(session, ConnectionTypes(), target);
}

RecordType NodeTypeOfTarget(const DatabaseSession& session, const QString& target)
{
    return TypeByTarget(session, NodeTypes(), target);
}

RecordType TypeOfConnection(const DatabaseSession& session, const QString& conName)
{
    QString target;
    QString analysis;
    session.Require(session.Gateway().GetParentDb(conName, target));
    session.Require(session.Gateway().AnalyzeConTypeDb(target, analysis));
    return TypeOfShortName(session, ConnectionTypes(), GetItem(analysis, 2, TabChar));
}
