#include "tests/support/TinyDefinitions.h"

#include "model/ItemList.h"
#include "platform/ComponentError.h"
#include "platform/HvxDatabase.h"

#include <algorithm>

namespace TinyDefinitions {

namespace {

const QString UnknownAnswer = QStringLiteral("-1\tUnknown");

[[noreturn]] void RaiseUnknown(const QString& what, const QString& name)
{
    throw ComponentError(DatabaseErrorNumber::Refused, QStringLiteral("TinyDefinitions"),
                         QStringLiteral("Unknown %1 \"%2\".").arg(what, name));
}

Type MakeType(int id, const char* shortName, const char* longName, const char* hops)
{
    return {QString::number(id), QString::fromLatin1(shortName), QString::fromLatin1(longName),
            QString::fromLatin1(hops).split(u',', Qt::SkipEmptyParts)};
}

Parameter Free(const char* keyword, const char* longName, const char* digit, const char* defaultValue = "")
{
    return {QString::fromLatin1(keyword), QString::fromLatin1(longName), QString::fromLatin1(digit),
            QString::fromLatin1(defaultValue)};
}

Parameter Text(Parameter parameter, qint32 length)
{
    parameter.kind = 2;
    parameter.low = length;
    return parameter;
}

Parameter Number(Parameter parameter, qint32 low, qint32 high)
{
    parameter.kind = 3;
    parameter.low = low;
    parameter.high = high;
    return parameter;
}

Parameter OneOf(Parameter parameter, const char* values)
{
    parameter.kind = 4;
    parameter.values = QString::fromLatin1(values).split(u' ');
    return parameter;
}

Parameter Time()
{
    return Number(Free("TIME", "TIME OUT", "0", "2000"), 0, 30000);
}
Parameter Retry()
{
    return Number(Free("RETRY", "RETRY COUNT", "0", "2"), 0, 1000);
}

const std::vector<Waypoint>& Waypoints()
{
    static const std::vector<Waypoint> waypoints{
        {"BUST4",
         "T4 Bus",
         {Number(Free("ID", "BUS NUMBER", "1"), 0, 999999),
          OneOf(Free("SPEED", "BUS SPEED", "0", "9600"), "1200 2400 9600 19200 57600"), Time(), Retry()}},
        {"SOCKET",
         "TCP/IP Socket",
         {Text(Free("HOST", "HOST NAME", "2"), 64), Text(Free("IP", "IP ADDRESS", "2"), 39),
          Number(Free("PORT", "PORT NUMBER", "1", "4004"), 0, 65535), Time(), Retry()}},
        {"KD7",
         "KD7 Bus",
         {Number(Free("BUSID", "BUS NUMBER", "1"), 0, 999999), Number(Free("SLOT", "SLOT", "0", "0"), 0, 255),
          Time(), Retry()}},
        {"MODEM",
         "Modem",
         {Text(Free("PHONE", "PHONE NUMBER", "1"), 32), Text(Free("USER", "USER NAME", "0"), 32),
          Text(Free("PSW", "PASSWORD", "1"), 32), Time(), Retry()}},
        {"COM",
         "Serial Port",
         {Number(Free("PORT", "COM PORT", "1", "1"), 1, 255),
          OneOf(Free("BAUD", "BAUD RATE", "0", "9600"), "1200 2400 9600 19200 57600"),
          OneOf(Free("PARITY", "PARITY", "0", "EVEN"), "NONE EVEN ODD"), Time(), Retry()}},
        {"SNMP", "SNMP", {OneOf(Free("VERSION", "VERSION", "0", "2c"), "1 2c"), Time(), Retry()}},
        {"OPT",
         "Options",
         {OneOf(Free("PR", "PROTOCOL", "0", "T4DT"), "T4DT T4DL"),
          OneOf(Free("DT", "DATA TYPE", "0", "TEXT"), "TEXT UNIHEX"),
          OneOf(Free("VERIFY", "VERIFY", "0", "YES"), "YES NO")}},
        {"NET4",
         "T4 Network",
         {Number(Free("ADDR", "ADDRESS", "1"), 0, 4094), Number(Free("SUB", "SUBADDRESS", "0", "0"), 0, 255),
          OneOf(Free("PRIO", "PRIORITY", "0", "NORMAL"), "LOW NORMAL HIGH"),
          OneOf(Free("CRC", "CHECKSUM", "0", "ON"), "ON OFF"), Time(), Retry()}},
        {"FE",
         "FE Parameters",
         {Number(Free("ID", "FE ID", "0"), 0, 255), Number(Free("CH", "FE CHANNEL", "0", "0"), 0, 255)}},
        {"NEMML",
         "MML Parameters",
         {Text(Free("USER", "USER NAME", "1"), 32), Text(Free("PSW", "PASSWORD", "1"), 32),
          Text(Free("PATH", "PATH", "0"), 64), Time(), Retry()}},
        {"SNMPNODE",
         "SNMP Node Parameters",
         {Text(Free("HOST", "HOST NAME", "1"), 64), Number(Free("PORT", "PORT NUMBER", "0", "161"), 0, 65535),
          Text(Free("COMMUNITY", "COMMUNITY", "0", "public"), 32),
          Number(Free("SECTION", "SECTION", "0"), 0, 255), Number(Free("STATION", "STATION", "0"), 0, 255)}},
    };
    return waypoints;
}

/// Items of a target: keyword and value.
PairTable PairsOf(const QString& target)
{
    PairTable pairs;
    const QStringList items = target.split(u',', Qt::SkipEmptyParts);
    for (const QString& item : items)
        pairs.push_back({item.section(u'=', 0, 0), item.section(u'=', 1)});
    return pairs;
}

QStringList HopNames(const QString& target)
{
    QStringList names;
    for (const ItemPair& pair : PairsOf(target)) {
        if (pair.first == u"WP")
            names << pair.second;
    }
    return names;
}

/// Optional hops at the end may be missing.
bool HasHops(const Type& type, const QStringList& names)
{
    if (type.hops.isEmpty() || names.isEmpty() || names.size() > type.hops.size())
        return false;
    for (qsizetype hop = 0; hop < type.hops.size(); ++hop) {
        const bool present = hop < names.size();
        if (present ? type.hops[hop].section(u' ', 0, 0) != names[hop] : type.hops[hop].endsWith(u'1'))
            return false;
    }
    return true;
}

} // namespace

const std::vector<Type>& ConTypes()
{
    static const std::vector<Type> types{
        MakeType(0, "T4BUS", "T4 Bus", "BUST4 1,OPT 0"),
        MakeType(1, "T4TCP", "T4 Bus over TCP/IP", "SOCKET 1,BUST4 1,OPT 0"),
        MakeType(2, "KD7", "KD7 Mediation Bus", "KD7 1,OPT 0"),
        MakeType(3, "T4MODEM", "T4 Bus over Modem", "MODEM 1,BUST4 1,OPT 0"),
        MakeType(4, "T4X25", "T4 Bus over X.25", "X25 1,BUST4 1,OPT 0"),
        MakeType(5, "KD7TCP", "KD7 Mediation Bus over TCP/IP", "SOCKET 1,KD7 1,OPT 0"),
        MakeType(6, "VRL", "VRL Radio Link", "VRL 1,OPT 0"),
        MakeType(7, "SIMPLE", "Simple Serial", "COM 1,OPT 0"),
        MakeType(8, "KD7MODEM", "KD7 Mediation Bus over Modem", "MODEM 1,KD7 1,OPT 0"),
        MakeType(9, "DUNE", "DUNE Gateway", "SOCKET 1,DUNE 1,OPT 0"),
        MakeType(10, "VRLTCP", "VRL Radio Link over TCP/IP", "SOCKET 1,VRL 1,OPT 0"),
        MakeType(11, "T4ISDN", "T4 Bus over ISDN", "ISDN 1,BUST4 1,OPT 0"),
        MakeType(12, "KD7X25", "KD7 Mediation Bus over X.25", "X25 1,KD7 1,OPT 0"),
        MakeType(13, "LAN", "Local Area Network", "LAN 1,OPT 0"),
        MakeType(14, "SNMP", "SNMP Direct", "SNMP 1"),
        MakeType(15, "SNMPPRX", "SNMP Proxy", "SNMPPRX 1,SNMP 1"),
        MakeType(-1, "Unknown", "Unknown", ""),
    };
    return types;
}

const std::vector<Type>& NodeTypes()
{
    static const std::vector<Type> types{
        MakeType(0, "NET4", "T4 Node", "NET4 1,OPT 1,FE 0"),
        MakeType(1, "NEMML", "MML Network Element", "NEMML 1"),
        MakeType(2, "SNMPNODE", "SNMP Node", "SNMPNODE 1"),
    };
    return types;
}

const Type& TypeNamed(const std::vector<Type>& types, const QString& shortName, qint32 id)
{
    const auto found = std::find_if(types.begin(), types.end(), [&](const Type& type) {
        return shortName.isEmpty() ? type.id == QString::number(id) : type.shortName == shortName;
    });
    if (found == types.end())
        RaiseUnknown(QStringLiteral("type"), shortName);
    return *found;
}

const Type& TypeWithLongName(const std::vector<Type>& types, const QString& longName)
{
    const auto found =
        std::find_if(types.begin(), types.end(), [&](const Type& type) { return type.longName == longName; });
    if (found == types.end())
        RaiseUnknown(QStringLiteral("type"), longName);
    return *found;
}

const Waypoint& WaypointNamed(const QString& name)
{
    const auto found = std::find_if(Waypoints().begin(), Waypoints().end(),
                                    [&](const Waypoint& waypoint) { return waypoint.name == name; });
    if (found == Waypoints().end())
        RaiseUnknown(QStringLiteral("waypoint"), name);
    return *found;
}

const Parameter& ParameterNamed(const QString& waypoint, const QString& keyword)
{
    const std::vector<Parameter>& parameters = WaypointNamed(waypoint).parameters;
    const auto found = std::find_if(parameters.begin(), parameters.end(),
                                    [&](const Parameter& parameter) { return parameter.keyword == keyword; });
    if (found == parameters.end())
        RaiseUnknown(QStringLiteral("parameter"), keyword);
    return *found;
}

QString ShortNames(const std::vector<Type>& types)
{
    QStringList names;
    for (const Type& type : types)
        names << type.shortName;
    return names.join(TabChar);
}

QString WaypointList(const Type& type)
{
    return type.hops.join(TabChar).replace(u' ', TabChar);
}

QString ParameterList(const Waypoint& waypoint)
{
    QStringList items;
    for (const Parameter& parameter : waypoint.parameters)
        items << parameter.keyword << parameter.defaultValue;
    if (!items.isEmpty() && items.last().isEmpty())
        items.removeLast();
    return items.join(TabChar);
}

QString LongNameList(const Waypoint& waypoint)
{
    QStringList items;
    for (const Parameter& parameter : waypoint.parameters)
        items << parameter.longName << parameter.digit + u'|' + parameter.defaultValue;
    return items.join(TabChar);
}

QString AnalyzeConnection(const QString& target)
{
    const QStringList names = HopNames(target);
    for (const Type& type : ConTypes()) {
        if (HasHops(type, names))
            return type.id + TabChar + type.shortName;
    }
    return UnknownAnswer;
}

QString AnalyzeNode(const QString& target)
{
    const QStringList names = HopNames(target);
    for (const Type& type : NodeTypes()) {
        if (!names.isEmpty() && type.hops.first().section(u' ', 0, 0) == names.first())
            return type.id + TabChar + type.shortName;
    }
    return UnknownAnswer;
}

QString TargetItemList(const QString& target)
{
    QStringList hops;
    QStringList items;
    const auto closeHop = [&] {
        if (!items.isEmpty())
            hops << QString::number(items.size() / 2) + TabChar + items.join(TabChar);
        items.clear();
    };
    for (const ItemPair& pair : PairsOf(target)) {
        if (pair.first == u"WP")
            closeHop();
        else if (pair.second.isEmpty())
            continue;
        items << pair.first << pair.second;
    }
    closeHop();
    return (QStringList{QString::number(hops.size())} + hops).join(TabChar);
}

bool IsTarget(const QString& target)
{
    const QStringList items = target.split(u',', Qt::SkipEmptyParts);
    return !items.isEmpty() && items.first().startsWith(u"WP=") &&
           std::all_of(items.begin(), items.end(), [](const QString& item) { return item.contains(u'='); });
}

} // namespace TinyDefinitions
