#include "model/ConData.h"

#include "model/TextHelpers.h"
#include "platform/IndexError.h"

namespace {

constexpr int ValueColumn = 2;
constexpr int SavedColumn = 3;
constexpr int LongNameColumn = 4;

} // namespace

ConData::ConData() : Initialized(true) {}

ConData::~ConData() = default;

ConData::Waypoint& ConData::At(int waypoint)
{
    CheckIndex("waypoint", waypoint, 1, MaxWaypoints);
    return m_waypoints[static_cast<size_t>(waypoint - 1)];
}

const ConData::Waypoint& ConData::At(int waypoint) const
{
    CheckIndex("waypoint", waypoint, 1, MaxWaypoints);
    return m_waypoints[static_cast<size_t>(waypoint - 1)];
}

void ConData::SetConWpName(int waypoint, const QString& name)
{
    At(waypoint).name = name;
}

const QString& ConData::GetConWpName(int waypoint) const
{
    return At(waypoint).name;
}

void ConData::SetConWpLongName(int waypoint, const QString& name)
{
    At(waypoint).longName = name;
}

const QString& ConData::GetConWpLongName(int waypoint) const
{
    return At(waypoint).longName;
}

void ConData::SetConWpId(int waypoint, int id)
{
    At(waypoint).id = id;
}

int ConData::GetConWpId(int waypoint) const
{
    return At(waypoint).id;
}

void ConData::SetConWpMandatory(int waypoint, const QString& flag)
{
    At(waypoint).mandatory = flag;
}

const QString& ConData::GetConWpMandatory(int waypoint) const
{
    return At(waypoint).mandatory;
}

WpData& ConData::GetWpData(int waypoint)
{
    return At(waypoint).table;
}

const WpData& ConData::GetWpData(int waypoint) const
{
    return At(waypoint).table;
}

void ConData::SetWpDataItem(int waypoint, int row, int column, const QString& value)
{
    GetWpData(waypoint).SetWpParam(row, column, value);
}

void ConData::Clear()
{
    SelectPressed = false;
    NodeAddress.clear();
    NodeName.clear();
    NodeDbID = 0;
    NodeTypeName.clear();
    NodeTypeID = 0;
    NodeWpCount = 0;
    NodeType.clear();
    CommandLine.clear();
    Retry.clear();
    Time.clear();
    TargetString.clear();
    SaveFromScan = false;
    ConName.clear();
    ConDbID = 0;
    ConTypeName.clear();
    ConTypeID = 0;
    NewCon = false;
    NewNode = false;
    ReduceParameterCount = 0;
    SelectedWpIndx = 0;
    if (!Initialized)
        return;
    ClearWP();
    for (Waypoint& waypoint : m_waypoints)
        waypoint.longName.clear();
}

void ConData::ClearWP()
{
    ConWpCount = 0;
    NodeWpCount = 0;
    for (Waypoint& waypoint : m_waypoints) {
        waypoint.name.clear();
        waypoint.mandatory.clear();
        waypoint.id = 0;
        waypoint.table.ClearTable();
    }
}

void ConData::Copy(const ConData& source, bool includeSavedValues)
{
    SelectPressed = source.SelectPressed;
    NodeAddress = source.NodeAddress;
    NodeName = source.NodeName;
    NodeDbID = source.NodeDbID;
    NodeTypeName = source.NodeTypeName;
    NodeTypeID = source.NodeTypeID;
    NodeWpCount = source.NodeWpCount;
    Retry = source.Retry;
    Time = source.Time;
    ConName = source.ConName;
    ConDbID = source.ConDbID;
    ConTypeName = source.ConTypeName;
    ConTypeID = source.ConTypeID;
    NewCon = source.NewCon;
    NewNode = source.NewNode;
    ReduceParameterCount = source.ReduceParameterCount;
    SaveFromScan = source.SaveFromScan;
    SelectedWpIndx = source.SelectedWpIndx;
    if (source.Initialized)
        CopyWaypoints(source, includeSavedValues);
}

void ConData::CopyWaypoints(const ConData& source, bool includeSavedValues)
{
    ConWpCount = source.ConWpCount;
    for (int i = 1; i <= MaxWaypoints; ++i) {
        Waypoint& to = At(i);
        const Waypoint& from = source.At(i);
        to.name = from.name;
        to.longName = from.longName;
        to.mandatory = from.mandatory;
        to.id = from.id;
        to.table.SetWpParamCount(from.table.WpParamCount());
        for (int row = 1; row <= WpData::RowCount; ++row) {
            for (int column = 1; column <= WpData::ColumnCount; ++column) {
                if (column != SavedColumn || includeSavedValues)
                    to.table.SetWpParam(row, column, from.table.GetWpParam(row, column));
            }
        }
    }
}

void ConData::CopyColumn(int from, int to)
{
    if (!Initialized)
        return;
    for (int i = 1; i <= ConWpCount; ++i) {
        WpData& table = GetWpData(i);
        for (int row = 1; row <= table.WpParamCount(); ++row)
            table.SetWpParam(row, to, table.GetWpParam(row, from));
    }
}

void ConData::SetParamCopy()
{
    CopyColumn(ValueColumn, SavedColumn);
}

void ConData::ResetWpParamValues()
{
    CopyColumn(SavedColumn, ValueColumn);
}

bool ConData::ParamValuesChanged() const
{
    if (!Initialized)
        return false;
    for (int i = 1; i <= ConWpCount; ++i) {
        const WpData& table = GetWpData(i);
        for (int row = 1; row <= table.WpParamCount(); ++row) {
            const QStringView value = TrimBlanks(table.GetWpParam(row, ValueColumn));
            const QStringView saved = TrimBlanks(table.GetWpParam(row, SavedColumn));
            if (value.compare(saved, Qt::CaseInsensitive) != 0)
                return true;
        }
    }
    return false;
}

bool ConData::GetWpParamByName(const QString& longName, QString& value) const
{
    for (int i = 1; i <= ConWpCount; ++i) {
        if (GetWpData(i).GetWpParamByNameEx(longName, value, LongNameColumn))
            return true;
    }
    return false;
}

bool ConData::SetWpParamByName(const QString& longName, const QString& value)
{
    for (int i = 1; i <= ConWpCount; ++i) {
        if (GetWpData(i).SetWpParamByNameEx(longName, value, LongNameColumn))
            return true;
    }
    return false;
}
