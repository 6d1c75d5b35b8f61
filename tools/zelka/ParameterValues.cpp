#include "tools/zelka/ParameterValues.h"

#include "database/DatabaseClass.h"
#include "model/ConData.h"
#include "model/GridChecks.h"
#include "model/GridTexts.h"
#include "model/ModelState.h"
#include "model/ParameterLists.h"
#include "model/TextHelpers.h"
#include "tools/zelka/CommandError.h"
#include "tools/zelka/DatabaseSession.h"
#include "tools/zelka/ValueCheck.h"

#include <QJsonObject>

#include <algorithm>

namespace {

constexpr int KeywordColumn = 1;
constexpr int ValueColumn = 2;
constexpr int LongNameColumn = 4;
constexpr int DigitColumn = 5;
constexpr int DefaultColumn = 6;

bool SameText(const QString& one, const QString& other)
{
    return one.compare(other, Qt::CaseInsensitive) == 0;
}

[[noreturn]] void Refuse(const QString& text)
{
    throw CommandError(ExitCode::Refused, text);
}

} // namespace

ParameterValues::ParameterValues(const DatabaseSession& session, ConData& con, int waypointCount)
    : m_session(session), m_con(con), m_waypointCount(std::min(waypointCount, ConData::MaxWaypoints))
{}

// Finding -------------------------------------------------------------------------------------------------

int ParameterValues::RowOf(int waypoint, const QString& keyword) const
{
    const WpData& table = m_con.GetWpData(waypoint);
    for (int row = 1; row <= ShownParameterCount(table, 0); ++row) {
        if (SameText(table.GetWpParam(row, KeywordColumn), keyword))
            return row;
    }
    return 0;
}

bool ParameterValues::Matches(const Key& key, int waypoint) const
{
    return key.waypoint.isEmpty() || key.waypoint == QString::number(waypoint) ||
           SameText(key.waypoint, m_con.GetConWpName(waypoint));
}

bool ParameterValues::IsShared(const Place& place) const
{
    const QString& longName = m_con.GetWpData(place.waypoint).GetWpParam(place.row, LongNameColumn);
    const auto& names = Model().TimeRetryNames;
    return std::any_of(names.begin(), names.end(),
                       [&longName](const QString& name) { return SameText(name, longName); });
}

bool ParameterValues::NameRepeats(int waypoint) const
{
    int found = 0;
    for (int i = 1; i <= m_waypointCount; ++i)
        found += SameText(m_con.GetConWpName(i), m_con.GetConWpName(waypoint)) ? 1 : 0;
    return found > 1;
}

QString ParameterValues::KeyOf(int waypoint, int row) const
{
    const QString name = NameRepeats(waypoint) ? QString::number(waypoint) : m_con.GetConWpName(waypoint);
    return name + u'.' + m_con.GetWpData(waypoint).GetWpParam(row, KeywordColumn);
}

QString ParameterValues::KnownKeys() const
{
    QStringList keys;
    for (int i = 1; i <= m_waypointCount; ++i) {
        for (int row = 1; row <= ShownParameterCount(m_con.GetWpData(i), 0); ++row)
            keys << KeyOf(i, row);
    }
    return keys.join(QStringLiteral(", "));
}

ParameterValues::Place ParameterValues::Find(const ParameterAssignment& assignment) const
{
    const qsizetype dot = assignment.key.indexOf(u'.');
    const Key key{assignment.key.left(std::max(dot, qsizetype{0})), assignment.key.mid(dot + 1)};
    std::vector<Place> places;
    for (int i = 1; i <= m_waypointCount; ++i) {
        const int row = Matches(key, i) ? RowOf(i, key.keyword) : 0;
        if (row > 0)
            places.push_back({i, row});
    }
    if (places.empty())
        Refuse(QStringLiteral("%1: There is no such parameter; known are %2.")
                   .arg(assignment.Text(), KnownKeys()));
    // A value that holds for the whole connection reaches all places from each of them.
    if (places.size() > 1 && !IsShared(places.front())) {
        QStringList keys;
        for (const Place& place : places)
            keys << KeyOf(place.waypoint, place.row);
        Refuse(QStringLiteral("%1: There are several such parameters: %2.")
                   .arg(assignment.Text(), keys.join(QStringLiteral(", "))));
    }
    return places.front();
}

QJsonArray ParameterValues::Describe() const
{
    QJsonArray described;
    for (int i = 1; i <= m_waypointCount; ++i) {
        const WpData& table = m_con.GetWpData(i);
        for (int row = 1; row <= ShownParameterCount(table, 0); ++row) {
            const QString& longName = table.GetWpParam(row, LongNameColumn);
            const QString& value = table.GetWpParam(row, ValueColumn);
            const bool masked = SameText(longName, QStringLiteral("PASSWORD")) && !value.isEmpty();
            described.append(
                QJsonObject{{QStringLiteral("key"), KeyOf(i, row)},
                            {QStringLiteral("longName"), longName},
                            {QStringLiteral("value"), masked ? ParameterGrid::MaskedPassword() : value},
                            {QStringLiteral("default"), table.GetWpParam(row, DefaultColumn)},
                            {QStringLiteral("required"), ValInt(table.GetWpParam(row, DigitColumn))}});
        }
    }
    return described;
}

// Setting -------------------------------------------------------------------------------------------------

void ParameterValues::Set(const ParameterAssignment& assignment)
{
    const Place place = Find(assignment);
    const QString value = Write(place, assignment);
    m_con.UpdateSharedParameterValues(place.waypoint, m_waypointCount,
                                      m_con.GetWpData(place.waypoint).GetWpParam(place.row, LongNameColumn),
                                      value);
}

QString ParameterValues::Write(const Place& place, const ParameterAssignment& assignment)
{
    WpData& table = m_con.GetWpData(place.waypoint);
    const QString value =
        CheckedValue(m_session, m_con.GetConWpName(place.waypoint),
                     table.GetWpParam(place.row, KeywordColumn), assignment.value, assignment.Text());
    table.SetWpParam(place.row, ValueColumn, value);
    m_set.insert(place.waypoint);
    return value;
}

void ParameterValues::SetTarget(const QString& target)
{
    int waypoint = 0;
    for (const QString& item : target.split(u',', Qt::SkipEmptyParts)) {
        const qsizetype equals = item.indexOf(u'=');
        const ParameterAssignment assignment{item.left(equals), item.mid(equals + 1)};
        if (SameText(assignment.key, QStringLiteral("WP"))) {
            ++waypoint;
            while (waypoint <= m_waypointCount && !SameText(m_con.GetConWpName(waypoint), assignment.value))
                ++waypoint;
            if (waypoint > m_waypointCount)
                Refuse(QStringLiteral("%1: The waypoint does not belong here in the target \"%2\".")
                           .arg(item, target));
            continue;
        }
        const int row = RowOf(waypoint, assignment.key);
        if (row == 0)
            Refuse(QStringLiteral("%1: There is no such parameter in waypoint %2; known are %3.")
                       .arg(item, m_con.GetConWpName(waypoint), KnownKeys()));
        Write({waypoint, row}, assignment);
    }
}

// Rules ---------------------------------------------------------------------------------------------------

bool ParameterValues::IsUsed(int waypoint) const
{
    const QString& flag = m_con.GetConWpMandatory(waypoint);
    if (flag.isEmpty() || flag == u"1")
        return true;
    const WpData& table = m_con.GetWpData(waypoint);
    for (int row = 1; row <= ShownParameterCount(table, 0); ++row) {
        if (!table.GetWpParam(row, ValueColumn).isEmpty())
            return true;
    }
    return false;
}

void ParameterValues::CheckRules(bool isConnection) const
{
    for (int i = 1; i <= m_waypointCount; ++i) {
        const int reduceBy = isConnection ? ReducedParameterCount(i, m_waypointCount) : 0;
        if (IsUsed(i))
            CheckWaypoint(i, ShownParameterCount(m_con.GetWpData(i), reduceBy));
    }
}

void ParameterValues::CheckWaypoint(int waypoint, int rowCount) const
{
    GridTexts grid;
    ShowWpRows(grid, m_con, waypoint, rowCount);
    m_con.SelectedWpIndx = waypoint;
    bool groupError = false;
    if (CheckGridValues(m_con, grid, rowCount, groupError))
        return;
    const WpData& table = m_con.GetWpData(waypoint);
    QStringList concerned;
    for (int row = 1; row <= rowCount; ++row) {
        const QString& digit = table.GetWpParam(row, DigitColumn);
        const bool missing = ValInt(digit) == 1 && TrimBlanks(table.GetWpParam(row, ValueColumn)).isEmpty() &&
                             TrimBlanks(table.GetWpParam(row, DefaultColumn)).isEmpty();
        if (missing || (groupError && IsExclusiveParameter(digit)))
            concerned << KeyOf(waypoint, row);
    }
    Refuse(GridRefusalText(groupError) + QStringLiteral(" Concerned: ") +
           concerned.join(QStringLiteral(", ")) + u'.');
}

void ParameterValues::WriteMandatoryDefaults(int waypoint)
{
    WpData& table = m_con.GetWpData(waypoint);
    for (int row = 1; row <= ShownParameterCount(table, 0); ++row) {
        if (ValInt(table.GetWpParam(row, DigitColumn)) == 1 && table.GetWpParam(row, ValueColumn).isEmpty())
            table.SetWpParam(row, ValueColumn, table.GetWpParam(row, DefaultColumn));
    }
}

QString ParameterValues::EffectiveValue(int waypoint, int row) const
{
    const WpData& table = m_con.GetWpData(waypoint);
    const QString& value = table.GetWpParam(row, ValueColumn);
    return value.isEmpty() ? table.GetWpParam(row, DefaultColumn) : value;
}
