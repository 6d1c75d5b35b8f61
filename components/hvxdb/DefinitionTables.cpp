#include "components/hvxdb/DefinitionTables.h"

#include <QHash>

namespace {

void ReadTypes(SqlSession& session, const QString& typeTable, const QString& hopTable,
               std::vector<TypeDefinition>& types)
{
    QHash<qint64, size_t> places;
    session.ReadText(QStringLiteral("SELECT id, short_name, long_name FROM %1 ORDER BY id").arg(typeTable),
                     [&](const QSqlQuery& row) {
                         places.insert(row.value(0).toLongLong(), types.size());
                         types.push_back({row.value(1).toString(), row.value(2).toString(), {}});
                     });
    session.ReadText(QStringLiteral("SELECT type_id, waypoint, mandatory FROM %1 ORDER BY type_id, position")
                         .arg(hopTable),
                     [&](const QSqlQuery& row) {
                         const auto place = places.constFind(row.value(0).toLongLong());
                         if (place != places.constEnd())
                             types[*place].hops.push_back({row.value(1).toString(), row.value(2).toBool()});
                     });
}

using WaypointPlaces = QHash<QString, size_t>;

WaypointPlaces ReadWaypoints(SqlSession& session, std::vector<WaypointDefinition>& waypoints)
{
    WaypointPlaces places;
    session.ReadText(QStringLiteral("SELECT name, long_name FROM waypoint ORDER BY position, name"),
                     [&](const QSqlQuery& row) {
                         places.insert(row.value(0).toString(), waypoints.size());
                         waypoints.push_back({row.value(0).toString(), row.value(1).toString(), {}});
                     });
    return places;
}

ParameterDefinition ParameterOfRow(const QSqlQuery& row)
{
    ParameterDefinition parameter;
    parameter.keyword = row.value(1).toString();
    parameter.longName = row.value(2).toString();
    parameter.requirement = row.value(3).toInt();
    parameter.defaultValue = row.value(4).toString();
    parameter.kind = static_cast<ParameterKind>(row.value(5).toInt());
    parameter.textLength = row.value(6).toInt();
    parameter.low = row.value(7).toInt();
    parameter.high = row.value(8).toInt();
    return parameter;
}

void ReadParameters(SqlSession& session, const WaypointPlaces& places,
                    std::vector<WaypointDefinition>& waypoints)
{
    session.ReadText(
        QStringLiteral("SELECT waypoint, keyword, long_name, requirement, default_value, kind, text_length,"
                       " low, high FROM parameter ORDER BY waypoint, position"),
        [&](const QSqlQuery& row) {
            const auto place = places.constFind(row.value(0).toString());
            if (place != places.constEnd())
                waypoints[*place].parameters.push_back(ParameterOfRow(row));
        });
}

void ReadValues(SqlSession& session, const WaypointPlaces& places, std::vector<WaypointDefinition>& waypoints)
{
    session.ReadText(QStringLiteral("SELECT waypoint, keyword, value FROM parameter_value"
                                    " ORDER BY waypoint, keyword, position"),
                     [&](const QSqlQuery& row) {
                         const auto place = places.constFind(row.value(0).toString());
                         if (place == places.constEnd())
                             return;
                         for (ParameterDefinition& parameter : waypoints[*place].parameters) {
                             if (parameter.keyword == row.value(1).toString())
                                 parameter.values << row.value(2).toString();
                         }
                     });
}

void WriteTypes(SqlSession& session, const QString& typeTable, const QString& hopTable,
                const std::vector<TypeDefinition>& types)
{
    for (size_t id = 0; id < types.size(); ++id) {
        const TypeDefinition& type = types[id];
        session.RunText(
            QStringLiteral("INSERT INTO %1 (id, short_name, long_name) VALUES (?, ?, ?)").arg(typeTable),
            {static_cast<qint64>(id), type.shortName, type.longName});
        for (size_t position = 0; position < type.hops.size(); ++position) {
            const HopDefinition& hop = type.hops[position];
            session.RunText(QStringLiteral("INSERT INTO %1 (type_id, position, waypoint, mandatory)"
                                           " VALUES (?, ?, ?, ?)")
                                .arg(hopTable),
                            {static_cast<qint64>(id), static_cast<qint64>(position), hop.waypoint,
                             hop.mandatory ? 1 : 0});
        }
    }
}

void WriteParameter(SqlSession& session, const QString& waypoint, size_t position,
                    const ParameterDefinition& parameter)
{
    session.RunText(
        QStringLiteral("INSERT INTO parameter (waypoint, position, keyword, long_name, requirement,"
                       " default_value, kind, text_length, low, high)"
                       " VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
        {waypoint, static_cast<qint64>(position), parameter.keyword, parameter.longName,
         parameter.requirement, parameter.defaultValue, static_cast<int>(parameter.kind),
         parameter.textLength, parameter.low, parameter.high});
    for (qsizetype i = 0; i < parameter.values.size(); ++i) {
        session.RunText(QStringLiteral("INSERT INTO parameter_value (waypoint, keyword, position, value)"
                                       " VALUES (?, ?, ?, ?)"),
                        {waypoint, parameter.keyword, static_cast<qint64>(i), parameter.values[i]});
    }
}

} // namespace

QStringList DefinitionTableNames()
{
    return {QStringLiteral("con_type"),           QStringLiteral("con_type_hop"), QStringLiteral("node_type"),
            QStringLiteral("node_type_waypoint"), QStringLiteral("waypoint"),     QStringLiteral("parameter"),
            QStringLiteral("parameter_value")};
}

Catalogue ReadDefinitions(SqlSession& session)
{
    Catalogue catalogue;
    ReadTypes(session, QStringLiteral("con_type"), QStringLiteral("con_type_hop"), catalogue.conTypes);
    ReadTypes(session, QStringLiteral("node_type"), QStringLiteral("node_type_waypoint"),
              catalogue.nodeTypes);
    const WaypointPlaces places = ReadWaypoints(session, catalogue.waypoints);
    ReadParameters(session, places, catalogue.waypoints);
    ReadValues(session, places, catalogue.waypoints);
    return catalogue;
}

void WriteDefinitions(SqlSession& session, const Catalogue& catalogue)
{
    WriteTypes(session, QStringLiteral("con_type"), QStringLiteral("con_type_hop"), catalogue.conTypes);
    WriteTypes(session, QStringLiteral("node_type"), QStringLiteral("node_type_waypoint"),
               catalogue.nodeTypes);
    for (size_t i = 0; i < catalogue.waypoints.size(); ++i) {
        const WaypointDefinition& waypoint = catalogue.waypoints[i];
        session.RunText(QStringLiteral("INSERT INTO waypoint (name, position, long_name) VALUES (?, ?, ?)"),
                        {waypoint.name, static_cast<qint64>(i), waypoint.longName});
        for (size_t row = 0; row < waypoint.parameters.size(); ++row)
            WriteParameter(session, waypoint.name, row, waypoint.parameters[row]);
    }
}
