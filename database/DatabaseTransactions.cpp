#include "database/DatabaseClass.h"
#include "database/DatabaseError.h"
#include "database/DatabaseState.h"
#include "database/DatabaseTexts.h"
#include "platform/MsgBox.h"
#include "platform/Words.h"

#include <QPointer>

namespace {

QString RollbackFailure()
{
    return Words::tr("Failure to roll back database changes. Warning, database may be corrupted.");
}

bool OperatorWantsAnotherTry()
{
    return MsgBox(Words::tr("Database is in use by another application, do you want to try again ?"),
                  BoxFlags::OkCancel, Words::tr("Database sharing problem")) == BoxAnswer::Ok;
}

} // namespace

// The verbs -----------------------------------------------------------------------------------------------

std::optional<quint32> DatabaseClass::BeginFailure(bool& transactionOpen, TransactionUse use)
{
    try {
        RollBackLeftTransactions();
        qint32 started = 0;
        if (use == TransactionUse::Writing)
            Component().BeginTransactionToWrite(started);
        else
            Component().BeginTransaction(started);
        if (started != 0) {
            transactionOpen = true;
            Q_EMIT SetMousePointer(BusyPointer);
        }
        return std::nullopt;
    } catch (...) {
        const quint32 number = CurrentErrorNumber();
        Q_EMIT SetMousePointer(NormalPointer);
        return number;
    }
}

void DatabaseClass::RollBackLeftTransactions()
{
    for (; m_leftTransactions > 0; --m_leftTransactions)
        Component().RollbackTransaction();
}

bool DatabaseClass::BeginTransactionDb(bool& transactionOpen, TransactionUse use)
{
    const QPointer<DatabaseClass> alive(this);
    transactionOpen = false;
    while (const std::optional<quint32> failure = BeginFailure(transactionOpen, use)) {
        if (failure != DatabaseErrorNumber::InUse || !OperatorWantsAnotherTry() || !alive)
            return false;
    }
    return true;
}

bool DatabaseClass::BeginSilently(bool& transactionOpen)
{
    transactionOpen = false;
    return !BeginFailure(transactionOpen, TransactionUse::Reading);
}

bool DatabaseClass::BeginTransactionWithoutResumeDb(bool& transactionOpen)
{
    return BeginSilently(transactionOpen);
}

bool DatabaseClass::BeginTransactionDbRefresh(bool& transactionOpen)
{
    return BeginSilently(transactionOpen);
}

bool DatabaseClass::RollbackTransactionDb()
{
    const bool done = RunDirect([this](HvxDatabase& component) {
        RollBackLeftTransactions();
        component.RollbackTransaction();
    });
    Q_EMIT SetMousePointer(NormalPointer);
    return done;
}

bool DatabaseClass::CommitTransactionDb(bool& transactionOpen)
{
    qint32 started = transactionOpen ? 1 : 0;
    if (!RunDirect([&](HvxDatabase& component) {
            RollBackLeftTransactions();
            component.CommitTransaction(started);
        })) {
        Q_EMIT SetMousePointer(NormalPointer);
        return false;
    }
    if (transactionOpen)
        Q_EMIT SetMousePointer(NormalPointer);
    transactionOpen = false;
    return true;
}

void DatabaseClass::ReportDatabaseFailure(quint32 errorNumber, bool& transactionOpen)
{
    const bool unreported = errorNumber == DbError::Unreported;
    const bool reported = errorNumber == DbError::Reported;
    if (transactionOpen && !RollbackTransactionDb()) {
        LeaveTransaction();
        ErrorBox(unreported ? tr("Failure in a database operation and database also failed to roll "
                                 "back its changes. Warning, database may be corrupted.")
                            : RollbackFailure());
    } else if (!unreported && !reported) {
        ErrorBox(tr("Unknown error in access to database."));
    } else if (unreported && transactionOpen) {
        ErrorBox(tr("Failure in database operation. All modifications rolled back successfully."));
    }
}

// The ways in which operations run ------------------------------------------------------------------------

bool DatabaseClass::RunInTransaction(const Work& work, const QString& commitFailure, TransactionUse use)
{
    const QPointer<DatabaseClass> alive(this);
    bool transactionOpen = false;
    if (!BeginTransactionDb(transactionOpen, use)) {
        ErrorBox(DatabaseText::AccessDenied());
        return false;
    }
    try {
        work(Component());
        if (CommitTransactionDb(transactionOpen))
            return true;
        ErrorBox(commitFailure);
        throw DatabaseFailure(DbError::Reported);
    } catch (...) {
        // The host may have freed the database while the box stood open; its transaction went with it.
        if (alive)
            ReportDatabaseFailure(CurrentErrorNumber(), transactionOpen);
        return false;
    }
}

bool DatabaseClass::RunInTransaction(const Work& work, TransactionUse use)
{
    return RunInTransaction(work, DatabaseText::CommitFailure(), use);
}

bool DatabaseClass::RunInSession(const Work& work, TransactionUse use)
{
    return Database().DatabaseOpen && RunInTransaction(work, use);
}

bool DatabaseClass::RunDirect(const Work& work)
{
    try {
        work(Component());
        return true;
    } catch (...) {
        return false;
    }
}
