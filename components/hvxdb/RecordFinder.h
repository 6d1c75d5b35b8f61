#pragma once

#include "components/hvxdb/HvxStore.h"

#include <QHash>
#include <QStringList>

/// One search for nodes or waypoints by a part of their names, as in HvxDatabase::FindNodesWithIdEx.
/// Failures: ComponentError.
class RecordFinder
{
public:
    RecordFinder(HvxStore& store, const QString& searched) : m_store(&store), m_upper(searched.toUpper()) {}

    [[nodiscard]] QString Nodes(qint32& position) const;
    [[nodiscard]] QString Waypoints(qint32& position) const;

private:
    [[nodiscard]] bool IsHit(const QString& name) const { return name.toUpper().contains(m_upper); }
    /// As a tree shows them: short names where a waypoint has no long one.
    [[nodiscard]] QStringList WaypointTexts(const QString& target, QHash<QString, QString>& longNames) const;

    HvxStore* m_store;
    QString m_upper;
};
