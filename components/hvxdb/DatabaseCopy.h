#pragma once

#include "components/hvxdb/CopiedTable.h"
#include "components/hvxdb/CopySide.h"
#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxdb/HvxStore.h"

#include <QHash>

/// Copies a database as it is to a new one of any engine: whole or not at all.
///
/// The source is read in one transaction, which keeps no writer waiting. Failures: ComponentError.
class DatabaseCopy
{
public:
    /// `goOn` is asked now and then whether to go on.
    DatabaseCopy(const QString& from, const QString& to, CopyProgress goOn);

    DatabaseCopyReport Run(bool force);

private:
    void CountSource();
    void Fill(SqlSession& target);
    void CopyTable(const CopiedTable& table, SqlSession& target);
    [[nodiscard]] std::vector<StoredRights> RightsFor(const SqlSession& target);
    /// Compares what the new database holds with the source.
    void CheckCounts(SqlSession& target) const;
    void AskToGoOn();

    QString m_from;
    QString m_to;
    CopyProgress m_goOn;
    std::shared_ptr<HvxStore> m_source;
    std::unique_ptr<CopySide> m_sourceSide;
    /// Rows by table.
    QHash<QString, qint64> m_counts;
    qint64 m_total = 0;
    qint64 m_done = 0;
    bool m_givenUp = false;
    DatabaseCopyReport m_report;
};
