#include "database/DatabaseClass.h"
#include "database/DatabaseError.h"
#include "database/DatabaseState.h"
#include "platform/ComponentError.h"
#include "platform/Components.h"
#include "platform/MachineSeams.h"
#include "platform/MsgBox.h"
#include "platform/Words.h"

#include <QPointer>

#include <algorithm>
#include <array>

namespace {

constexpr qint64 OpenTimeLimitMs = 30000;
constexpr int PauseBetweenAttemptsMs = 200;

/// The Journal record whose text tells the format, and what that text must contain.
constexpr qint32 FormatRecordId = 1;
const QString FormatMark = QStringLiteral("HVX R");

/// A number that ends the attempts to open, and the words for it.
struct FatalOpenError
{
    quint32 number;
    const char* text;
};

constexpr std::array<FatalOpenError, 6> FatalOpenErrors{{
    {DatabaseErrorNumber::UpgradeFailed,
     QT_TRANSLATE_NOOP("Words",
                       "Unable to open HVX Database, because upgrading it to latest format failed.")},
    {DatabaseErrorNumber::SourceMissing,
     QT_TRANSLATE_NOOP("Words", "Unable to open HVX Database, because the database file (Dbs.mdb) is missing "
                                "or ODBC DSN DBS32 is not "
                                "set to the database.")},
    {DatabaseErrorNumber::CamAccess,
     QT_TRANSLATE_NOOP("Words", "Unable to open HVX Database, because of CAM access error.")},
    {DatabaseErrorNumber::ReadOnly,
     QT_TRANSLATE_NOOP(
         "Words", "Unable to open HVX Database, because the database file (Dbs.mdb) is in read-only mode.")},
    {DatabaseErrorNumber::TablesMissing,
     QT_TRANSLATE_NOOP(
         "Words",
         "Unable to open HVX Database, because the database file (Dbs.mdb) is missing one or more tables.")},
    {DatabaseErrorNumber::UnusableFile,
     QT_TRANSLATE_NOOP(
         "Words",
         "Unable to open HVX Database, because of unknown table problem in the database file (Dbs.mdb).")},
}};

const char* FatalOpenText(quint32 number)
{
    const auto* const row =
        std::find_if(FatalOpenErrors.begin(), FatalOpenErrors.end(),
                     [number](const FatalOpenError& error) { return error.number == number; });
    return row == FatalOpenErrors.end() ? nullptr : row->text;
}

} // namespace

DatabaseClass::DatabaseClass(QObject* parent) : QObject(parent) {}

DatabaseClass::~DatabaseClass() = default;

HvxDatabase& DatabaseClass::Component()
{
    if (!m_component)
        throw ComponentError(DatabaseErrorNumber::Refused, QStringLiteral("DatabaseClass"),
                             tr("There is no database component."));
    return *m_component;
}

bool DatabaseClass::OpenDb()
{
    if (Database().DatabaseOpen)
        return true;
    const QPointer<DatabaseClass> alive(this);
    OpenAttempt attempt;
    Database().DatabaseOpen = true;
    try {
        m_component = CreateDatabaseComponent(HvxDatabaseId);
        m_leftTransactions = 0;
        if (TryUntilOpen(attempt))
            return true;
    } catch (...) {
        // Who raised it has told the operator, except for the two causes that are told below.
    }
    // The host may close the database while events run or a box stands open: then it has nothing to be told.
    if (!alive)
        return false;
    if (!attempt.stopTrying && Database().DatabaseOpen)
        ErrorBox(tr("Unable to open HVX Database, another application has either locked the database "
                    "or ODBC setting DSN=DBS32 does not exist."));
    Database().EditRight = false;
    Database().DatabaseOpen = false;
    return false;
}

bool DatabaseClass::TryUntilOpen(OpenAttempt& attempt)
{
    const QPointer<DatabaseClass> alive(this);
    const qint64 limit = Machine().MonotonicMs() + OpenTimeLimitMs;
    bool done = false;
    while (!done && Machine().MonotonicMs() < limit) {
        done = TryOpenDatabase(attempt);
        if (!alive || !Database().DatabaseOpen)
            return false;
        if (attempt.inUse) {
            CheckBusyDatabase();
            return true;
        }
        if (attempt.stopTrying)
            return done;
        // Behind a success too: a normal open costs one pause.
        Machine().PumpEvents();
        if (!alive || !Database().DatabaseOpen)
            return false;
        Machine().Sleep(PauseBetweenAttemptsMs);
    }
    return done;
}

bool DatabaseClass::TryOpenDatabase(OpenAttempt& attempt)
{
    attempt = {};
    quint32 number = 0;
    try {
        Component().OpenDatabase();
        return true;
    } catch (...) {
        number = CurrentErrorNumber();
    }
    if (number == DatabaseErrorNumber::InUse) {
        attempt = {true, true};
        return false;
    }
    const char* const text = FatalOpenText(number);
    if (!text)
        return false;
    attempt.stopTrying = true;
    // The component creates missing tables when it notices them, so that the next attempt may find them.
    if (number == DatabaseErrorNumber::TablesMissing &&
        RunDirect([](HvxDatabase& component) { component.OpenDatabase(); }))
        return true;
    ErrorBox(Words::tr(text));
    return false;
}

void DatabaseClass::CheckBusyDatabase()
{
    bool transactionOpen = false;
    if (!BeginTransactionWithoutResumeDb(transactionOpen)) {
        qint32 locked = 0;
        Component().IsCAMlocked(locked);
        if (locked == 0) {
            ErrorBox(tr("Access to HVX Database is denied, another application might be using it."));
            throw DatabaseFailure(DbError::Reported);
        }
        Component().FreeCAMlock();
        if (!BeginTransactionDb(transactionOpen))
            throw DatabaseFailure(DbError::Reported);
    }
    RequireFormat();
    if (CommitTransactionDb(transactionOpen))
        return;
    // The session ends here, so nobody else would give the database back to the other applications.
    RollbackTransactionDb();
    Database().DatabaseOpen = false;
    ErrorBox(tr("Failure to commit HVX Database operations."));
    throw DatabaseFailure(DbError::Reported);
}

void DatabaseClass::RequireFormat()
{
    const QPointer<DatabaseClass> alive(this);
    qint32 recordType = 0;
    qint32 number = 0;
    QString versionText;
    QString text2;
    const bool read = GetJournalRecordByIdDb(FormatRecordId, recordType, versionText, number, text2);
    if (!alive)
        throw DatabaseFailure(DbError::Reported);
    if (read && versionText.contains(FormatMark, Qt::CaseInsensitive))
        return;
    RollbackTransactionDb();
    MsgBox(tr("In correct HVX Database format, at least HVX Database version 4.2 is required."));
    if (alive) {
        Component().CloseDb();
        Database().DatabaseOpen = false;
    }
    throw DatabaseFailure(DbError::Reported);
}

bool DatabaseClass::CloseDb()
{
    if (!Database().DatabaseOpen)
        return true;
    return RunDirect([](HvxDatabase& component) { component.CloseDatabase(); });
}
