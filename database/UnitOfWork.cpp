#include "database/UnitOfWork.h"

#include "database/DatabaseError.h"
#include "database/DatabaseTexts.h"
#include "database/Gateway.h"

#include <algorithm>

UnitOfWork::UnitOfWork(const std::vector<TreeEntries*>& trees)
{
    for (TreeEntries* tree : trees) {
        if (tree)
            m_trees.emplace_back(tree);
    }
}

UnitOfWork::~UnitOfWork() = default;

bool UnitOfWork::Run(const std::function<void(UnitOfWork& unit)>& work)
{
    const HeldBoxes held;
    try {
        work(*this);
        return true;
    } catch (...) {
        Gateway().ReportDatabaseFailure(CurrentErrorNumber(), m_transactionOpen);
        m_transactionOpen = false;
        UndoPatches();
        return false;
    }
}

void UnitOfWork::Begin(DatabaseClass::TransactionUse use)
{
    RequireTrees();
    if (!Gateway().BeginTransactionDb(m_transactionOpen, use)) {
        ErrorBox(DatabaseText::AccessDenied());
        GiveUp();
    }
    NotePatches();
}

void UnitOfWork::BeginQuietly()
{
    RequireTrees();
    if (!Gateway().BeginTransactionDbRefresh(m_transactionOpen))
        GiveUp();
    NotePatches();
}

void UnitOfWork::NotePatches()
{
    RequireTrees();
    // Not earlier: what other code does to the trees while a box stands open is not this transaction's.
    for (const QPointer<TreeEntries>& tree : m_trees)
        m_patches.push_back(std::make_unique<TreePatches>(std::initializer_list<TreeEntries*>{tree}));
}

void UnitOfWork::RequireTrees() const
{
    if (std::any_of(m_trees.begin(), m_trees.end(), [](const auto& tree) { return tree.isNull(); }))
        GiveUp();
}

void UnitOfWork::Commit()
{
    if (!Gateway().CommitTransactionDb(m_transactionOpen)) {
        ErrorBox(DatabaseText::CommitFailure());
        GiveUp();
    }
    KeepPatches();
}

void UnitOfWork::CommitBeforeRefusal()
{
    // Half a patch would pass for the whole record; without it the next refresh finds what the trees miss.
    (void)Gateway().CommitTransactionDb(m_transactionOpen);
    UndoPatches();
}

bool UnitOfWork::Rollback()
{
    const bool done = Gateway().RollbackTransactionDb();
    UndoPatches();
    return done;
}

bool UnitOfWork::RollbackForGood()
{
    const bool done = Rollback();
    m_transactionOpen = m_transactionOpen && !done;
    return done;
}

void UnitOfWork::KeepPatches()
{
    for (const std::unique_ptr<TreePatches>& patches : m_patches)
        patches->Keep();
    m_patches.clear();
}

void UnitOfWork::UndoPatches()
{
    // What was not kept is undone at its end.
    m_patches.clear();
}

void UnitOfWork::Refuse(const QString& text, int flags, const QString& title)
{
    Rollback();
    MsgBox(text, flags, title);
    GiveUp();
}

void UnitOfWork::RefuseEnded(const QString& text)
{
    MsgBox(text);
    GiveUp();
}

void UnitOfWork::GiveUp()
{
    throw DatabaseFailure(DbError::Reported);
}

void UnitOfWork::Fail()
{
    throw DatabaseFailure(DbError::Unreported);
}
