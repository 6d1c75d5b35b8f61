#pragma once

#include "components/hvxdb/HvxAdministration.h"

/// Records in memory.
class ListedDatabase : public HvxAdministration
{
public:
    std::vector<ConnectionRecord> connections;
    std::vector<NodeRecord> nodes;
    std::vector<JournalEntry> journal;

    [[nodiscard]] const Catalogue& CatalogueData() const override { return m_catalogue; }
    void ForEachConnection(const std::function<void(const ConnectionRecord&)>& take) override
    {
        for (const ConnectionRecord& connection : connections)
            take(connection);
    }
    void ForEachNode(const QString& under, const std::function<void(const NodeRecord&)>& take) override
    {
        for (const NodeRecord& node : nodes) {
            if (under.isEmpty() || FoldedName(node.conName) == FoldedName(under))
                take(node);
        }
    }
    [[nodiscard]] std::unique_ptr<HvxBulkWriter> BeginBulkWrite() override { return nullptr; }
    [[nodiscard]] std::vector<ManagerRecord> Managers() override { return {}; }
    QString AddManager(const QString&, const QString&, const QString&) override { return {}; }
    void RemoveManager(const QString&) override {}
    [[nodiscard]] JournalPart JournalAfter(qint32 afterId, qint32 most) override
    {
        JournalPart part;
        part.oldestId = journal.empty() ? 0 : journal.front().id;
        part.lastId = journal.empty() ? 1 : journal.back().id;
        for (const JournalEntry& entry : journal) {
            if (entry.id > afterId && static_cast<qint32>(part.entries.size()) < most)
                part.entries.push_back(entry);
        }
        return part;
    }
    [[nodiscard]] qint32 JournalIdBefore(qint32 count) override
    {
        const auto size = static_cast<qint32>(journal.size());
        if (count <= 0)
            return journal.empty() ? 0 : journal.back().id;
        return size > count ? journal[static_cast<size_t>(size - count)].id - 1 : 0;
    }
    void SetRights(const QString&, bool, bool) override {}
    [[nodiscard]] QStringList Check() override { return {}; }
    [[nodiscard]] std::unique_ptr<QObject> LockForMaintenance() override { return nullptr; }

private:
    Catalogue m_catalogue;
};
