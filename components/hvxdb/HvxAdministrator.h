#pragma once

#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxdb/HvxStore.h"

/// Opens the source; tables that are missing are made where that is possible. Raises ComponentError.
std::shared_ptr<HvxStore> OpenStore(const QString& source);

/// The administration of one opened database.
class HvxAdministrator : public HvxAdministration
{
public:
    /// Opens the source as OpenStore does.
    explicit HvxAdministrator(const QString& source);

    [[nodiscard]] const Catalogue& CatalogueData() const override;
    void ForEachConnection(const std::function<void(const ConnectionRecord&)>& take) override;
    void ForEachNode(const QString& under, const std::function<void(const NodeRecord&)>& take) override;
    [[nodiscard]] std::unique_ptr<HvxBulkWriter> BeginBulkWrite() override;
    [[nodiscard]] std::vector<ManagerRecord> Managers() override;
    QString AddManager(const QString& device, const QString& path, const QString& commandText) override;
    void RemoveManager(const QString& device) override;
    [[nodiscard]] JournalPart JournalAfter(qint32 afterId, qint32 most) override;
    [[nodiscard]] qint32 JournalIdBefore(qint32 count) override;
    /// Needs the edit right, or the ownership of the database file.
    void SetRights(const QString& user, bool scan, bool edit) override;
    [[nodiscard]] QStringList Check() override;
    [[nodiscard]] std::unique_ptr<QObject> LockForMaintenance() override;

private:
    std::shared_ptr<HvxStore> m_store;
};
