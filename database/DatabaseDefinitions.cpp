#include "database/DatabaseClass.h"
#include "model/TextHelpers.h"

bool DatabaseClass::GetConTypeListDb(QString& list)
{
    return RunDirect([&](HvxDatabase& component) { component.GetConTypeList(list); });
}

bool DatabaseClass::GetConTypeIdDb(const QString& shortName, QString& id)
{
    return RunDirect([&](HvxDatabase& component) { component.GetConTypeId(Trim(shortName), id); });
}

bool DatabaseClass::GetConTypeLongNameDb(const QString& shortName, QString& longName)
{
    return RunDirect([&](HvxDatabase& component) { component.GetConTypeLongName(shortName, longName); });
}

bool DatabaseClass::GetConTypeShortNameDb(const QString& longName, QString& shortName)
{
    return RunDirect([&](HvxDatabase& component) { component.GetConTypeShortName(longName, shortName); });
}

bool DatabaseClass::GetConTypeWpListDb(const QString& shortName, int mode, QString& list)
{
    return RunDirect([&](HvxDatabase& component) { component.GetConTypeWpList(shortName, mode, list); });
}

bool DatabaseClass::AnalyzeConTypeDb(const QString& target, QString& result)
{
    return RunDirect([&](HvxDatabase& component) { component.AnalyzeConType(target, result); });
}

bool DatabaseClass::GetNodeTypeListDb(QString& list)
{
    return RunDirect([&](HvxDatabase& component) { component.GetNodeTypeList(list); });
}

bool DatabaseClass::GetNodeTypeIdDb(const QString& shortName, QString& id)
{
    return RunDirect([&](HvxDatabase& component) { component.GetNodeTypeId(Trim(shortName), id); });
}

bool DatabaseClass::GetNodeTypeLongNameDb(const QString& shortName, QString& longName)
{
    return RunDirect([&](HvxDatabase& component) { component.GetNodeTypeLongName(shortName, longName); });
}

bool DatabaseClass::GetNodeTypeShortNameDb(const QString& longName, QString& shortName)
{
    return RunDirect([&](HvxDatabase& component) { component.GetNodeTypeShortName(longName, shortName); });
}

bool DatabaseClass::GetNodeTypeWpListDb(const QString& shortName, int mode, QString& list)
{
    return RunDirect([&](HvxDatabase& component) { component.GetNodeTypeWpList(shortName, mode, list); });
}

bool DatabaseClass::AnalyzeNodeTypeDb(const QString& target, QString& result)
{
    return RunDirect([&](HvxDatabase& component) { component.AnalyzeNodeType(target, result); });
}

bool DatabaseClass::GetWpLongNameDb(const QString& waypoint, QString& longName)
{
    return RunDirect([&](HvxDatabase& component) { component.GetWpLongName(waypoint, longName); });
}

bool DatabaseClass::GetWpParametersDb(const QString& waypoint, int mode, QString& list)
{
    return RunDirect([&](HvxDatabase& component) { component.GetWpParameters(waypoint, mode, list); });
}

bool DatabaseClass::GetWpParametersLongNamesDb(const QString& waypoint, int mode, QString& list)
{
    return RunDirect(
        [&](HvxDatabase& component) { component.GetWpParametersLongNames(waypoint, mode, list); });
}
