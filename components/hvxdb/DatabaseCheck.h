#pragma once

#include "components/hvxdb/HvxStore.h"

#include <QStringList>

/// Looks through a whole database for damage: one text per problem.
///
/// Only reads. Raises ComponentError when the database cannot be read at all.
class DatabaseCheck
{
public:
    explicit DatabaseCheck(HvxStore& store) : m_store(&store) {}

    [[nodiscard]] QStringList Run();

private:
    void CheckFile();
    void CheckSchema();
    void CheckReferences();
    void CheckNames();
    void CheckConnections();
    void CheckNodes();
    void CheckJournal();
    void CheckRecord(const QString& kind, qint64 id, const QString& name, const QString& key,
                     const QString& target);
    void ReadManagers();
    void Report(const QString& problem) { m_problems << problem; }

    HvxStore* m_store;
    QStringList m_problems;
    QStringList m_devices;
    qint64 m_lastId = 0;
};
