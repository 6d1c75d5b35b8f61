#include "components/hvxdb/HvxAdministrator.h"

#include "components/hvxdb/BulkWriter.h"
#include "components/hvxdb/DatabaseCheck.h"
#include "components/hvxdb/HvxNames.h"
#include "components/hvxdb/JournalTable.h"
#include "components/hvxdb/MaintenanceLock.h"
#include "components/hvxdb/RightsRoles.h"
#include "components/hvxdb/SqlFailure.h"
#include "platform/MachineSeams.h"

#include <QFileInfo>

std::unique_ptr<HvxAdministration> HvxAdministration::Open(const QString& source)
{
    return std::make_unique<HvxAdministrator>(DataSource(source));
}

std::shared_ptr<HvxStore> OpenStore(const QString& source)
{
    auto store = std::make_shared<HvxStore>();
    try {
        store->Open(source);
    } catch (const ComponentError& error) {
        if (error.Number() != DatabaseErrorNumber::TablesMissing)
            throw;
        // The first try has made the tables if that was possible.
        store->Open(source);
    }
    return store;
}

HvxAdministrator::HvxAdministrator(const QString& source) : m_store(OpenStore(source)) {}

const Catalogue& HvxAdministrator::CatalogueData() const
{
    return m_store->CurrentDefinitions().Data();
}

void HvxAdministrator::ForEachConnection(const std::function<void(const ConnectionRecord&)>& take)
{
    SqlRows rows = m_store->Session().Read(HvxStatement::AllConnections);
    while (rows.Next())
        take({rows.Number(0), rows.Text(1), rows.Text(2)});
}

void HvxAdministrator::ForEachNode(const QString& under, const std::function<void(const NodeRecord&)>& take)
{
    SqlRows rows = under.isEmpty()
                       ? m_store->Session().Read(HvxStatement::AllNodes)
                       : m_store->Session().Read(HvxStatement::AllNodesOfConnection, {FoldedName(under)});
    while (rows.Next()) {
        take({rows.Number(0), rows.Text(1), rows.Text(2), rows.Text(3), rows.Text(4), rows.Text(5),
              rows.Text(6)});
    }
}

std::unique_ptr<HvxBulkWriter> HvxAdministrator::BeginBulkWrite()
{
    return std::make_unique<BulkWriter>(m_store);
}

std::vector<ManagerRecord> HvxAdministrator::Managers()
{
    std::vector<ManagerRecord> managers;
    SqlRows rows = m_store->Session().Read(HvxStatement::ManagerList);
    while (rows.Next())
        managers.push_back({rows.Text(0), rows.Text(1), rows.Text(2), rows.Text(3)});
    return managers;
}

QString HvxAdministrator::AddManager(const QString& device, const QString& path, const QString& commandText)
{
    const QString stored = StoredName(device);
    WriteScope scope(*m_store);
    SqlSession& session = m_store->Session();
    {
        SqlRows rows = session.Read(HvxStatement::ManagerByDevice, {stored});
        if (rows.Next())
            RaiseRefusal(QStringLiteral("The device %1 has a manager.").arg(stored));
    }
    session.Write(HvxStatement::InsertManager, {stored, path, commandText});
    const QString index = QString::number(session.LastInsertId());
    scope.Commit();
    return index;
}

void HvxAdministrator::RemoveManager(const QString& device)
{
    const QString stored = TrimBlanks(device);
    WriteScope scope(*m_store);
    SqlSession& session = m_store->Session();
    session.Write(HvxStatement::ForgetManager, {stored});
    if (session.Write(HvxStatement::DeleteManager, {stored}) == 0)
        RaiseRefusal(QStringLiteral("The device %1 has no manager.").arg(device));
    scope.Commit();
}

JournalPart HvxAdministrator::JournalAfter(qint32 afterId, qint32 most)
{
    JournalPart part;
    // In one transaction, so that the ends are those of the Journal that has these records.
    StoreScope scope(*m_store);
    const JournalEnds ends = JournalTable(*m_store).Ends();
    part.oldestId = static_cast<qint32>(ends.oldestId);
    part.lastId = static_cast<qint32>(ends.lastId);
    if (ends.lastId > afterId) {
        SqlRows rows = m_store->Session().Read(HvxStatement::JournalEntriesAfter, {afterId, most});
        while (rows.Next()) {
            part.entries.push_back(
                {rows.Number(0), rows.Number(1), rows.Text(2), rows.Number(3), rows.LongNumber(4)});
        }
    }
    scope.Commit();
    return part;
}

qint32 HvxAdministrator::JournalIdBefore(qint32 count)
{
    StoreScope scope(*m_store);
    const qint32 id = JournalTable(*m_store).IdBefore(count);
    scope.Commit();
    return id;
}

void HvxAdministrator::SetRights(const QString& user, bool scan, bool edit)
{
    const QString stored = StoredName(user);
    StoreScope scope(*m_store);
    if (m_store->Session().Engine().IsServer()) {
        RightsRoles(m_store->Session()).Set(stored, scan, edit);
        scope.Commit();
        return;
    }
    // The owner can change the file by other means anyway; nobody else is left to give rights back.
    if (QFileInfo(m_store->Source()).owner() != Machine().UserName())
        m_store->RequireEditRight();
    m_store->Session().Write(HvxStatement::StoreRights, {stored, scan ? 1 : 0, edit ? 1 : 0});
    scope.Commit();
    m_store->ForgetState();
}

QStringList HvxAdministrator::Check()
{
    return DatabaseCheck(*m_store).Run();
}

std::unique_ptr<QObject> HvxAdministrator::LockForMaintenance()
{
    return std::make_unique<MaintenanceLock>(m_store);
}
