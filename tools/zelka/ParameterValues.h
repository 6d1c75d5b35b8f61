#pragma once

#include "tools/zelka/Assignments.h"

#include <QJsonArray>
#include <QString>

#include <set>

class ConData;
class DatabaseSession;

/// The parameters of the connection or node that a working copy holds, as they are set from the command line.
///
/// A value is checked against the database's definitions before it is written, and spread where it holds for
/// the whole connection. All refusals raise CommandError (Refused) that names the parameter, the value and
/// what is allowed.
class ParameterValues
{
public:
    /// Waypoints 1 to `waypointCount` of `con`.
    ParameterValues(const DatabaseSession& session, ConData& con, int waypointCount);

    void Set(const ParameterAssignment& assignment);
    /// All values of a target, none of them spread; its waypoints stand in the order of those of the working
    /// copy, which may have more.
    void SetTarget(const QString& target);

    /// Checks each waypoint that is mandatory or has a value by the rules of the dialogs.
    /// `isConnection`: the shared rows between the first waypoint and the last are left out.
    void CheckRules(bool isConnection) const;
    /// Writes the defaults of mandatory parameters of a waypoint that have no value.
    void WriteMandatoryDefaults(int waypoint);
    /// True when a value of the waypoint was set.
    [[nodiscard]] bool WasSet(int waypoint) const { return m_set.contains(waypoint); }
    /// The value that holds: the default where there is none.
    [[nodiscard]] QString EffectiveValue(int waypoint, int row) const;
    /// All parameters: "key", as Set takes it, "longName", "value" (a password masked), "default" and
    /// "required", the requirement digit.
    [[nodiscard]] QJsonArray Describe() const;

private:
    /// Where a parameter stands; row 0: nowhere.
    struct Place
    {
        int waypoint = 0;
        int row = 0;
    };
    struct Key
    {
        /// Number or name; empty for any waypoint.
        QString waypoint;
        QString keyword;
    };

    [[nodiscard]] Place Find(const ParameterAssignment& assignment) const;
    [[nodiscard]] bool Matches(const Key& key, int waypoint) const;
    [[nodiscard]] bool IsShared(const Place& place) const;
    [[nodiscard]] int RowOf(int waypoint, const QString& keyword) const;
    [[nodiscard]] bool NameRepeats(int waypoint) const;
    /// "BUST4.ID", or "2.ID" where the waypoint's name stands more than once.
    [[nodiscard]] QString KeyOf(int waypoint, int row) const;
    [[nodiscard]] QString KnownKeys() const;
    /// Gives the value that was written.
    QString Write(const Place& place, const ParameterAssignment& assignment);
    [[nodiscard]] bool IsUsed(int waypoint) const;
    void CheckWaypoint(int waypoint, int rowCount) const;

    const DatabaseSession& m_session;
    ConData& m_con;
    int m_waypointCount;
    std::set<int> m_set;
};
