#include "browser/JournalRefresh.h"

#include "browser/LoadState.h"
#include "database/Gateway.h"
#include "database/JournalPatch.h"
#include "database/UnitOfWork.h"
#include "model/ItemList.h"
#include "model/TextHelpers.h"
#include "platform/Words.h"

#include <QScopeGuard>

namespace {

/// Of a record that is not, or no longer, in the Journal.
constexpr qint32 NoRecord = 0;

[[noreturn]] void TellAndGiveUp(const QString& text)
{
    MsgBox(text);
    UnitOfWork::GiveUp();
}

[[noreturn]] void TellJournalAccess()
{
    TellAndGiveUp(Words::tr("Error in access to Journal table."));
}

[[noreturn]] void TellPosition()
{
    TellAndGiveUp(Words::tr("Browser refresh error, incorrect value as reference to Journal table."));
}

qint32 LatestId()
{
    qint32 id = 0;
    if (!Gateway().GetJournalLastIdDb(id))
        TellJournalAccess();
    return id;
}

bool ReadRecord(qint32 id, SeenRecord& record)
{
    QString extra;
    record.id = id;
    return Gateway().GetJournalRecordByIdDb(id, record.operation, record.name, record.objectId, extra);
}

/// True when the record at the position is not the one that was seen there: another history of the database
/// has taken the place of the one that the trees show.
bool IsOfAnotherHistory(const SeenRecord& record)
{
    const SeenRecord& seen = Load().JournalLastRecord;
    return seen.id == record.id && seen != record;
}

/// Ids of the records behind one.
std::vector<qint32> IdsAfter(qint32 id)
{
    QString list;
    if (!Gateway().GetJournalChangesAfterIdDb(id, list))
        TellJournalAccess();
    PairTable items;
    int count = 0;
    if (!ConvertItemListToArray(list, false, items, count))
        TellAndGiveUp(Words::tr("Error in item list conversion."));
    std::vector<qint32> ids;
    ids.reserve(items.size());
    for (const ItemPair& item : items)
        ids.push_back(ValInt(item.first));
    return ids;
}

} // namespace

JournalRefresh::JournalRefresh(std::vector<Trees> trees, const Limits& limits)
    : m_trees(std::move(trees)), m_limits(limits)
{}

JournalRefresh::Outcome JournalRefresh::Run()
{
    std::vector<TreeEntries*> patched;
    for (const Trees& trees : m_trees) {
        patched.push_back(trees.con);
        patched.push_back(trees.nodes);
    }
    auto outcome = Outcome::Failed;
    const bool done = UnitOfWork(patched).Run([&](UnitOfWork& unit) {
        auto restorePosition =
            qScopeGuard([before = Load().JournalLastId] { Load().JournalLastId = before; });
        unit.BeginQuietly();
        outcome = Read(unit);
        restorePosition.dismiss();
    });
    return done ? outcome : Outcome::Failed;
}

JournalRefresh::Outcome JournalRefresh::Read(UnitOfWork& unit)
{
    const qint32 latestId = LatestId();
    const qint32 position = Load().JournalLastId;
    if (Load().ReloadDue) {
        unit.Commit();
        return Outcome::LoadDue;
    }
    if (latestId < position)
        return NothingNew(unit, latestId);
    SeenRecord record;
    const bool isThere = position >= 1 && ReadRecord(position, record);
    if (!isThere && latestId > position)
        TellPosition();
    if (isThere && (IsOfAnotherHistory(record) || (latestId > position && record.operation == NoRecord))) {
        unit.Commit();
        return Outcome::RecordsMissed;
    }
    if (latestId > position)
        return Patch(unit);
    const Outcome outcome = NothingNew(unit, latestId);
    Load().JournalLastRecord = isThere ? record : SeenRecord();
    return outcome;
}

JournalRefresh::Outcome JournalRefresh::NothingNew(UnitOfWork& unit, qint32 latestId)
{
    const bool beganAnew = latestId < Load().JournalLastId;
    CleanOrGiveUp();
    // Trimming may have moved it.
    Load().JournalLastId = LatestId();
    unit.Commit();
    return beganAnew ? Outcome::LoadDue : Outcome::NothingNew;
}

JournalRefresh::Outcome JournalRefresh::Patch(UnitOfWork& unit)
{
    RequireTrees();
    std::vector<JournalPatch> patches;
    for (const Trees& trees : m_trees)
        patches.emplace_back(*trees.con, *trees.nodes, trees.viewNodes);
    const std::vector<qint32> ids = IdsAfter(Load().JournalLastId);
    if (!ids.empty())
        Load().JournalLastId = ids.back();
    SeenRecord record;
    for (const qint32 id : ids) {
        if (!ReadRecord(id, record))
            TellJournalAccess();
        if (record.operation == NoRecord) {
            unit.Commit();
            return Outcome::RecordsMissed;
        }
        for (JournalPatch& patch : patches)
            patch.Apply(record.operation, record.name, record.objectId);
    }
    RequireTrees();
    for (JournalPatch& patch : patches)
        patch.Finish();
    CleanOrGiveUp();
    unit.Commit();
    Load().JournalLastRecord = record;
    return Outcome::Patched;
}

/// The host may have destroyed a control under a box that asks.
void JournalRefresh::RequireTrees() const
{
    for (const Trees& trees : m_trees) {
        if (!trees.con || !trees.nodes)
            UnitOfWork::GiveUp();
    }
}

void JournalRefresh::CleanOrGiveUp() const
{
    if (!JournalClean())
        UnitOfWork::GiveUp();
}

bool JournalRefresh::JournalClean() const
{
    if (m_limits.recordLimit > 0 &&
        !Gateway().JournalClearByRecordLimitDb(m_limits.recordLimit, m_limits.recordsToKeep)) {
        MsgBox(Words::tr("Error in Journal table cleaning, in database method JournalClearByRecordLimit."));
        return false;
    }
    if (m_limits.dayLimit > 0)
        (void)Gateway().JournalClearByDayLimitDb(m_limits.dayLimit, m_limits.daysToKeep);
    return true;
}
