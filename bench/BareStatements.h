#pragma once

#include "bench/BareDatabase.h"
#include "components/hvxdb/HvxStatements.h"

#include <QStringList>

#include <map>

/// The component's own SQL through the C API, each statement prepared once.
class BareStatements
{
public:
    explicit BareStatements(const QString& file);
    ~BareStatements();
    BareStatements(const BareStatements&) = delete;
    BareStatements& operator=(const BareStatements&) = delete;

    /// Runs a statement and reads what it gives.
    void Run(HvxStatement statement, const QStringList& values = {});

private:
    BareDatabase m_database;
    std::map<HvxStatement, sqlite3_stmt*> m_prepared;
    qint64 m_characters = 0;
};
