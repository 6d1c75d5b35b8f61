#pragma once

#include "model/TreeEntries.h"

#include <QPointer>

#include <vector>

class UnitOfWork;

/// One look at the Journal, in one transaction: what came after the last record seen is brought into the
/// trees, and the Journal is trimmed.
///
/// Load().JournalLastId moves on with the commit. Failures are told behind the transaction, which is rolled
/// back; the trees and the position are as they were then. Thread: the control's.
class JournalRefresh
{
public:
    /// The trees of one control. `viewNodes`: connections show their nodes.
    struct Trees
    {
        QPointer<TreeEntries> con;
        QPointer<TreeEntries> nodes;
        bool viewNodes = false;
    };
    /// Beyond which the Journal is trimmed, and what is kept then; a limit of 0: never.
    struct Limits
    {
        int recordLimit = 0;
        int recordsToKeep = 0;
        int dayLimit = 0;
        int daysToKeep = 0;
    };
    enum class Outcome
    {
        /// It could not begin, or a failure has been told.
        Failed,
        NothingNew,
        Patched,
        /// Records have left the Journal before they were seen, or it holds others than those that were seen:
        /// the trees must be loaded anew.
        RecordsMissed,
        /// The trees must be loaded anew because an earlier load was not whole, or because the Journal begins
        /// anew.
        LoadDue,
    };

    JournalRefresh(std::vector<Trees> trees, const Limits& limits);

    [[nodiscard]] Outcome Run();

private:
    [[nodiscard]] Outcome Read(UnitOfWork& unit);
    [[nodiscard]] Outcome NothingNew(UnitOfWork& unit, qint32 latestId);
    [[nodiscard]] Outcome Patch(UnitOfWork& unit);
    void RequireTrees() const;
    [[nodiscard]] bool JournalClean() const;
    void CleanOrGiveUp() const;

    std::vector<Trees> m_trees;
    Limits m_limits;
};
