#include "model/ConData.h"
#include "model/ModelState.h"
#include "model/TextHelpers.h"
#include "platform/IndexError.h"
#include "platform/MsgBox.h"
#include "platform/Words.h"

namespace {

constexpr int KeywordColumn = 1;
constexpr int ValueColumn = 2;
constexpr int LongNameColumn = 4;
constexpr int DigitColumn = 5;
constexpr int DefaultColumn = 6;

/// Most items of a plain list; see ItemListToArray.
constexpr int MaxItems = 100;

/// All parameters, whatever a look-up's mode could leave out.
constexpr int AllParameters = 0;

constexpr QChar DefinitionSeparator = u'|';

/// Item `number` from 1. Behind the last item stands empty text, so that a list cut short loads no values.
const QString& ItemAt(const std::vector<QString>& items, int number)
{
    static const QString none;
    CheckIndex("item", number, 1, MaxItems);
    return number <= static_cast<int>(items.size()) ? items[static_cast<size_t>(number - 1)] : none;
}

void TellUnknownNodeType()
{
    MsgBox(Words::tr("Error: Unknown node type."));
}

} // namespace

bool ConData::LoadWaypoint(int waypoint)
{
    const QString name = GetConWpName(waypoint);
    QString longName;
    QString list;
    PairTable rows;
    int rowCount = 0;
    if (!LookupDatabase().GetWpLongNameDb(name, longName))
        return false;
    SetConWpLongName(waypoint, longName);

    if (!LookupDatabase().GetWpParametersDb(name, AllParameters, list) ||
        !PairListToTable(list, rows, rowCount))
        return false;
    WpData& table = GetWpData(waypoint);
    table.SetWpParamCount(rowCount);
    for (int row = 1; row <= rowCount; ++row) {
        table.SetWpParam(row, KeywordColumn, rows[static_cast<size_t>(row - 1)].first);
        table.SetWpParam(row, ValueColumn, QString());
    }

    if (!LookupDatabase().GetWpParametersLongNamesDb(name, AllParameters, list) ||
        !PairListToTable(list, rows, rowCount))
        return false;
    for (int row = 1; row <= rowCount; ++row) {
        const ItemPair& definition = rows[static_cast<size_t>(row - 1)];
        table.SetWpParam(row, LongNameColumn, definition.first);
        table.SetWpParam(row, DigitColumn, GetItem(definition.second, 1, DefinitionSeparator));
        table.SetWpParam(row, DefaultColumn, GetItem(definition.second, 2, DefinitionSeparator));
    }
    return true;
}

bool ConData::LoadWaypointTables(const PairTable& waypoints, int count)
{
    for (int i = 1; i <= count; ++i) {
        CheckIndex("waypoint row", i, 1, static_cast<int>(waypoints.size()));
        const ItemPair& waypoint = waypoints[static_cast<size_t>(i - 1)];
        SetConWpName(i, waypoint.first);
        SetConWpMandatory(i, waypoint.second);
        if (!LoadWaypoint(i))
            return false;
    }
    return true;
}

bool ConData::OverlayValues(const QString& target)
{
    QString list;
    std::vector<QString> items;
    int itemCount = 0;
    if (!LookupDatabase().GetTargetItemListDb(target, list) || !ItemListToArray(list, items, itemCount))
        return false;
    const int hops = itemCount > 0 ? ValInt(items.front()) : 0;
    int position = 2;
    for (int i = 1; i <= hops; ++i) {
        const int parameters = ValInt(ItemAt(items, position)) - 1;
        position += 3;
        for (int parameter = 0; parameter < parameters; ++parameter) {
            const QString& keyword = ItemAt(items, position);
            if (!GetWpData(i).SetWpParamByName(keyword, ItemAt(items, position + 1)))
                MsgBox(Words::tr("Unknown parameter:%1").arg(keyword));
            position += 2;
        }
    }
    return true;
}

bool ConData::LoadConTypeTables()
{
    PairTable waypoints;
    int count = 0;
    if (ConTypeID < 0) {
        if (!LookupDatabase().GetTargetWpListDb(ConName, waypoints, count))
            return false;
    } else {
        QString list;
        if (!LookupDatabase().GetConTypeWpListDb(QString(), ConTypeID, list) ||
            !PairListToTable(list, waypoints, count))
            return false;
    }
    if (!LoadWaypointTables(waypoints, count))
        return false;
    ConWpCount = count;
    return true;
}

bool ConData::LoadNodeTypeTables()
{
    PairTable waypoints;
    int count = 0;
    QString list;
    if (!LookupDatabase().GetNodeTypeWpListDb(QString(), NodeTypeID, list) ||
        !PairListToTable(list, waypoints, count) || !LoadWaypointTables(waypoints, count))
        return false;
    NodeWpCount = count;
    return true;
}

bool ConData::SetWpDataFromConType(const QString& typeLongName)
{
    QString shortName;
    QString id;
    if (!LookupDatabase().GetConTypeShortNameDb(typeLongName, shortName) ||
        !LookupDatabase().GetConTypeIdDb(shortName, id))
        return false;
    ConTypeID = ValInt(id);
    return LoadConTypeTables() && OverlayValues(QString());
}

bool ConData::SetWpDataFromNodeType(const QString& typeLongName)
{
    QString shortName;
    QString id;
    if (!LookupDatabase().GetNodeTypeShortNameDb(typeLongName, shortName)) {
        TellUnknownNodeType();
        return false;
    }
    if (!LookupDatabase().GetNodeTypeIdDb(shortName, id))
        return false;
    NodeTypeID = ValInt(id);
    if (NodeTypeID < 0) {
        TellUnknownNodeType();
        return false;
    }
    return LoadNodeTypeTables() && OverlayValues(QString());
}

bool ConData::TakeConType(const QString& target)
{
    QString analysis;
    if (!LookupDatabase().AnalyzeConTypeDb(target, analysis))
        return false;
    ConTypeName = GetItem(analysis, 2, TabChar);
    ConTypeID = ValInt(GetItem(analysis, 1, TabChar));
    return true;
}

bool ConData::SetParentConData(const QString& conName, bool clearFirst)
{
    // The name may be this object's own, which the clearing empties.
    const QString name = conName;
    if (clearFirst)
        Clear();
    ConName = name;
    if (ConDbID == 0) {
        QString id;
        if (!LookupDatabase().GetParentIDDb(ConName, id))
            return false;
        ConDbID = ValInt(id);
    }
    QString target;
    return LookupDatabase().GetParentDb(ConName, target) && TakeConType(target) && LoadConTypeTables() &&
           OverlayValues(target);
}

bool ConData::LoadStoredNode()
{
    QString conName;
    QString target;
    QString nodeType;
    QString commandLine;
    QString analysis;
    if (!LookupDatabase().GetNodeExDb(NodeName, conName, target, nodeType, commandLine))
        return false;
    NodeType = nodeType;
    CommandLine = commandLine;
    ConName = conName;
    if (!LookupDatabase().AnalyzeNodeTypeDb(target, analysis))
        return false;
    NodeTypeName = GetItem(analysis, 2, TabChar);
    NodeTypeID = ValInt(GetItem(analysis, 1, TabChar));
    return NodeTypeID >= 0 && LoadNodeTypeTables() && OverlayValues(target);
}

bool ConData::SetNodeDataFromNodeName(const QString& nodeName)
{
    const QString name = nodeName;
    Clear();
    NodeName = name;
    return LoadStoredNode();
}

bool ConData::SetNodeTypeData(const QString& typeLongName)
{
    ConData* con = Model().ConObject.get();
    if (!con)
        return false;
    const QString name = typeLongName;
    if (!con->SetWpDataFromNodeType(name))
        return false;
    con->NodeTypeName = name;
    return true;
}

bool ConData::SetConDataToUnknownCon()
{
    Clear();
    return TakeConType(QString());
}

bool ConData::GetParentWithoutDefaults(const QString& conName, QString& target)
{
    if (!SetParentConData(conName, false))
        return false;
    SetTargetWithoutDefaults(target);
    return true;
}

bool ConData::GetNodeWithoutDefaults(const QString& nodeName, QString& target)
{
    ConData* con = Model().ConObject.get();
    if (!con || !con->SetNodeDataFromNodeName(nodeName))
        ErrorBox(Words::tr("Failure to get node data from database."));
    SetNodeTargetWithoutDefaults(target);
    return true;
}
