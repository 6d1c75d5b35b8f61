#pragma once

#include "tools/zelka/ImportResolver.h"

#include <QIODevice>

class HvxAdministration;
class HvxBulkWriter;

/// What an import did, or would do.
struct ImportReport
{
    qint64 connectionsAdded = 0;
    qint64 nodesAdded = 0;
    qint64 updated = 0;
    qint64 unchanged = 0;
    qint64 skipped = 0;
    std::vector<ImportRename> renames;
    /// If there are any, nothing was written.
    ImportProblems problems;
};

/// Brings the records of a file into a database, all or nothing, in one transaction.
class ImportRun
{
public:
    ImportRun(HvxAdministration& database, ConflictRule rule, bool dryRun);

    /// Raises CommandError (Refused) for an unreadable device and ComponentError from the database.
    [[nodiscard]] ImportReport Run(QIODevice& device);

private:
    void Resolve(ImportPlan& plan, ImportReport& report);
    static void CountActions(const ImportPlan& plan, ImportReport& report);
    static void WriteRows(const ImportPlan& plan, ImportKind kind, HvxBulkWriter& writer);

    HvxAdministration& m_database;
    ConflictRule m_rule;
    bool m_dryRun;
};
