#include "components/hvxdb/DatabaseCopy.h"

#include "components/hvxdb/DatabaseMaker.h"
#include "components/hvxdb/HvxAdministrator.h"
#include "components/hvxdb/RowWriter.h"
#include "components/hvxdb/SqlFailure.h"
#include "platform/MachineSeams.h"

#include <algorithm>

DatabaseCopy::DatabaseCopy(const QString& from, const QString& to, CopyProgress goOn)
    : m_from(from), m_to(to), m_goOn(std::move(goOn))
{}

DatabaseCopyReport DatabaseCopy::Run(bool force)
{
    // Raises for a target that no engine serves.
    HvxEngine::ForSource(m_to);
    m_source = OpenStore(m_from);
    SqlSession& session = m_source->Session();
    m_sourceSide = session.Engine().MakeCopySide(session);
    session.Begin(TransactionKind::Snapshot);
    if (m_sourceSide->IsAt(m_to))
        RaiseRefusal(QStringLiteral("Source and target are the same database."));
    m_report.kept = MakeDatabase(
        m_to, [this](SqlSession& target) { Fill(target); }, force);
    return m_report;
}

void DatabaseCopy::CountSource()
{
    for (const CopiedTable& table : CopiedTables()) {
        const qint64 count = m_source->Session().NumberOfText(table.CountText());
        m_counts.insert(table.name, count);
        m_total += count;
    }
    m_report.connections = m_counts.value(QStringLiteral("connection"));
    m_report.nodes = m_counts.value(QStringLiteral("node"));
}

void DatabaseCopy::Fill(SqlSession& target)
{
    CountSource();
    const std::unique_ptr<CopySide> side = target.Engine().MakeCopySide(target);
    side->BeginRows();
    for (const CopiedTable& table : CopiedTables())
        CopyTable(table, target);
    side->SetCounters(m_sourceSide->Counters());
    m_report.remarks = side->SetRights(RightsFor(target));
    side->EndRows();
    CheckCounts(target);
    AskToGoOn();
}

std::vector<StoredRights> DatabaseCopy::RightsFor(const SqlSession& target)
{
    std::vector<StoredRights> rights = m_sourceSide->Rights();
    if (!m_source->Session().Engine().IsServer() || target.Engine().IsServer())
        return rights;
    // A file knows its users by their login names: whoever copies keeps what he may do on the server.
    const QString name = Machine().UserName();
    const auto isOwn = [&name](const StoredRights& user) { return user.user == name; };
    if (std::none_of(rights.cbegin(), rights.cend(), isOwn)) {
        const UserRights own = m_source->ReadRights();
        rights.push_back({name, own.mayScan, own.mayEdit});
    }
    return rights;
}

void DatabaseCopy::CopyTable(const CopiedTable& table, SqlSession& target)
{
    // The first rows of the new database make room.
    target.RunText(table.DeleteText());
    RowWriter writer(target, table);
    try {
        m_source->Session().ReadText(table.SelectText(), [&](const QSqlQuery& row) {
            writer.Add(row);
            if (++m_done % RowWriter::RowsAtOnce == 0)
                AskToGoOn();
        });
        writer.Finish();
    } catch (const ComponentError& error) {
        if (m_givenUp)
            throw;
        RaiseFailure(
            error.Number(),
            QStringLiteral("The table %1 cannot be copied: %2").arg(table.name, error.Description()));
    }
}

void DatabaseCopy::CheckCounts(SqlSession& target) const
{
    for (const CopiedTable& table : CopiedTables()) {
        const qint64 expected = m_counts.value(table.name);
        const qint64 found = target.NumberOfText(table.CountText());
        if (found != expected) {
            RaiseRefusal(QStringLiteral("The copy of the table %1 has %2 rows instead of %3.")
                             .arg(table.name)
                             .arg(found)
                             .arg(expected));
        }
    }
}

void DatabaseCopy::AskToGoOn()
{
    m_givenUp = m_goOn && !m_goOn(m_done, m_total);
    if (m_givenUp)
        RaiseRefusal(QStringLiteral("The copy was given up; nothing is left of it."));
}

DatabaseCopyReport CopyHvxDatabase(const QString& from, const QString& to, bool force,
                                   const CopyProgress& goOn)
{
    return DatabaseCopy(from, to, goOn).Run(force);
}
