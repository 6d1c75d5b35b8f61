#pragma once

#include "tests/components/DatabaseFixture.h"
#include "tests/convergence/ChangeLog.h"

#include <QHash>

#include <map>
#include <vector>

/// Writes down, inside the database, each record that ever enters the Journal, as clean-ups take most of them
/// away; and checks by that what workstations tell of their changes.
class JournalWitness
{
public:
    explicit JournalWitness(const DatabaseFixture& database);

    /// What is wrong; empty when all is well: ids do not rise, the records do not lead to what the tables
    /// hold, a change was done without a record, a record has come without a change. `mostUnclaimed`: saves
    /// of which nobody could tell any more.
    [[nodiscard]] QStringList Check(const std::vector<LoggedChange>& changes, int mostUnclaimed);
    [[nodiscard]] std::size_t RecordCount() const { return m_records.size(); }

private:
    struct Record
    {
        qint32 id;
        bool isConnection;
        bool isSave;
        QString name;
        qint32 number;
    };

    void Read();
    void CheckTables(QStringList& problems) const;
    void CheckClaims(const std::vector<LoggedChange>& changes, QStringList& problems) const;
    void CheckRecords(const std::vector<LoggedChange>& changes, int mostUnclaimed,
                      QStringList& problems) const;
    [[nodiscard]] bool IsSavedAgain(std::size_t record) const;

    const DatabaseFixture& m_database;
    std::vector<Record> m_records;
};
