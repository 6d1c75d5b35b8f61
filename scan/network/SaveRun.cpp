#include "scan/network/SaveRun.h"

#include "scan/network/FoundNodeSave.h"
#include "scan/network/ScanState.h"

namespace {

/// The row behind a position of the selection; null: there is none.
ScanSaveRow* SelectedRow(int position)
{
    const std::vector<ScanSelSaveRow>& selected = Scan().ScanSelSaveRows;
    if (position < 0 || position >= Scan().ScanSelSaveCount())
        return nullptr;
    const int row = selected[static_cast<std::size_t>(position)].row;
    if (row < 1 || row > Scan().ScanSaveCount())
        return nullptr;
    return &Scan().ScanSaveList[static_cast<std::size_t>(row - 1)];
}

} // namespace

SaveRun::Step SaveRun::SaveNext()
{
    const ScanSaveRow* const row = SelectedRow(m_savedCount);
    if (!row)
        return Step::Done;
    // A copy, since a box lets the host empty the list.
    const ScanSaveRow node = *row;
    const FoundNodeOutcome outcome = SaveFoundNode(m_direct, m_newDirect, node, !Scan().ScanSelSaveMode);
    if (outcome == FoundNodeOutcome::Denied)
        return Step::Denied;
    if (outcome == FoundNodeOutcome::ConnectionChanged)
        return Step::Failed;
    if (ScanSaveRow* const done = SelectedRow(m_savedCount))
        done->state = outcome == FoundNodeOutcome::Saved ? SaveState::Saved : SaveState::NameExists;
    if (outcome == FoundNodeOutcome::Failed)
        return Step::Failed;
    ++m_savedCount;
    return Step::More;
}
