#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// Definitions of a tiny database: all connection and node types, and the waypoints that tests use most.
/// Look-ups that find nothing raise ComponentError (Refused).
namespace TinyDefinitions {

struct Type
{
    QString id;
    QString shortName;
    QString longName;
    /// Each "name flag".
    QStringList hops;
};

struct Parameter
{
    QString keyword;
    QString longName;
    QString digit;
    QString defaultValue;
    /// 1 free, 2 text of `low` characters, 3 number from `low` to `high`, 4 one of `values`.
    qint32 kind = 1;
    qint32 low = 0;
    qint32 high = 0;
    QStringList values{};
};

struct Waypoint
{
    QString name;
    QString longName;
    std::vector<Parameter> parameters;
};

const std::vector<Type>& ConTypes();
const std::vector<Type>& NodeTypes();

/// By short name (or, with an empty name, by id); by long name.
const Type& TypeNamed(const std::vector<Type>& types, const QString& shortName, qint32 id = -1);
const Type& TypeWithLongName(const std::vector<Type>& types, const QString& longName);
const Waypoint& WaypointNamed(const QString& name);
const Parameter& ParameterNamed(const QString& waypoint, const QString& keyword);

QString ShortNames(const std::vector<Type>& types);
/// Pair list of waypoint and flag.
QString WaypointList(const Type& type);
QString ParameterList(const Waypoint& waypoint);
QString LongNameList(const Waypoint& waypoint);

/// "id<tab>short name" of the type that has the hops of a target.
QString AnalyzeConnection(const QString& target);
QString AnalyzeNode(const QString& target);
QString TargetItemList(const QString& target);
bool IsTarget(const QString& target);

} // namespace TinyDefinitions
