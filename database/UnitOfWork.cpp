#include "database/UnitOfWork.h"

#include "database/DatabaseError.h"
#include "database/DatabaseTexts.h"
#include "database/Gateway.h"

UnitOfWork::UnitOfWork(std::initializer_list<TreeEntries*> trees) : m_patches(trees) {}

bool UnitOfWork::Run(const std::function<void(UnitOfWork& unit)>& work)
{
    const HeldBoxes held;
    try {
        work(*this);
        return true;
    } catch (...) {
        Gateway().ReportDatabaseFailure(CurrentErrorNumber(), m_transactionOpen);
        m_transactionOpen = false;
        m_patches.Undo();
        return false;
    }
}

void UnitOfWork::Begin()
{
    if (Gateway().BeginTransactionDb(m_transactionOpen))
        return;
    ErrorBox(DatabaseText::AccessDenied());
    GiveUp();
}

void UnitOfWork::Commit()
{
    if (!Gateway().CommitTransactionDb(m_transactionOpen)) {
        ErrorBox(DatabaseText::CommitFailure());
        GiveUp();
    }
    m_patches.Keep();
}

void UnitOfWork::CommitBeforeRefusal()
{
    if (Gateway().CommitTransactionDb(m_transactionOpen))
        m_patches.Keep();
}

bool UnitOfWork::Rollback()
{
    const bool done = Gateway().RollbackTransactionDb();
    m_patches.Undo();
    return done;
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
