#include "browser/LoadingProcedure.h"

#include "browser/LoadState.h"
#include "database/DatabaseError.h"
#include "database/Gateway.h"
#include "platform/MsgBox.h"
#include "platform/Words.h"

#include <exception>

LoadStep LoadingProcedure::Next()
{
    try {
        const LoadStep step = Step();
        Load().LoadFailed = step == LoadStep::GivenUp;
        return step;
    } catch (const std::exception&) {
        return ReportFailure(CurrentErrorNumber());
    }
}

bool LoadingProcedure::BeginTransaction()
{
    m_transactionOpen = false;
    if (Gateway().BeginTransactionDb(m_transactionOpen))
        return true;
    ErrorBox(Words::tr("Database access is denied, because another application is using it."));
    return false;
}

void LoadingProcedure::CommitTransaction()
{
    if (Gateway().CommitTransactionDb(m_transactionOpen))
        return;
    ErrorBox(Words::tr("Failure to commit database operations."));
    throw DatabaseFailure(DbError::Reported);
}

void LoadingProcedure::FailLoading()
{
    ErrorBox(Words::tr("Database loading failure."));
    throw DatabaseFailure(DbError::Reported);
}

LoadStep LoadingProcedure::ReportFailure(quint32 errorNumber)
{
    Load().LoadFailed = true;
    const bool wasOpen = m_transactionOpen;
    const bool rolledBack = wasOpen && Gateway().RollbackTransactionDb();
    if (wasOpen && !rolledBack)
        Gateway().LeaveTransaction();
    m_transactionOpen = false;
    const bool unreported = errorNumber == DbError::Unreported;

    if (wasOpen && unreported && rolledBack) {
        ErrorBox(Words::tr("Failure in database operation. All modifications rolled back successfully."));
    } else if (wasOpen && unreported) {
        ErrorBox(Words::tr("Failure in a database operation and database also failed to roll back its "
                           "changes. Warning, database may be corrupted."));
    } else if (wasOpen && !rolledBack) {
        ErrorBox(Words::tr("Failure to roll back database changes. Warning, database may be corrupted."));
    }
    return unreported || errorNumber == DbError::Reported ? LoadStep::Done : LoadStep::GivenUp;
}
