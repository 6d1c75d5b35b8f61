#pragma once

#include "components/hvxdb/HvxStore.h"

#include <QStringList>

/// Looks through a whole database for damage: one text per problem, what cannot be read included. Only reads.
class DatabaseCheck
{
public:
    explicit DatabaseCheck(HvxStore& store) : m_store(&store) {}

    [[nodiscard]] QStringList Run();

private:
    void CheckFile();
    void CheckSchema();
    void CheckDefinitions();
    void CheckReferences();
    void CheckNames();
    void CheckConnections();
    void CheckNodes();
    void CheckJournal();
    void CheckRecord(const QString& kind, qint64 id, const QString& name, const QString& key,
                     const QString& target);
    void ReadSequence();
    void ReadManagers();
    void Report(const QString& problem) { m_problems << problem; }

    HvxStore* m_store;
    QStringList m_problems;
    /// As they are stored now.
    Definitions m_definitions;
    QStringList m_devices;
    qint64 m_lastId = 0;
};
