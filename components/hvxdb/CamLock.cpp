#include "components/hvxdb/CamLock.h"

#include "components/hvxdb/SqlFailure.h"
#include "components/hvxdb/TransactionScope.h"
#include "platform/MachineSeams.h"
#include "platform/ProcessLife.h"

#include <QCoreApplication>
#include <QSysInfo>

bool CamLock::IsHeldByDead()
{
    const std::optional<Holder> holder = ReadHolder();
    return holder && IsDead(*holder) && !SomeoneWrites();
}

void CamLock::Free()
{
    TransactionScope transaction(*m_session, TransactionKind::Alone);
    RemoveDeadHolder();
    transaction.Commit();
}

void CamLock::Take(const QString& token)
{
    TransactionScope transaction(*m_session, TransactionKind::Alone);
    RemoveDeadHolder();
    m_session->Write(HvxStatement::TakeCamLock, {token, Machine().UserName(), QSysInfo::machineHostName(),
                                                 QCoreApplication::applicationPid()});
    transaction.Commit();
}

void CamLock::Beat(const QString& token)
{
    m_session->Write(HvxStatement::BeatCamLock, {token});
}

void CamLock::Release(const QString& token)
{
    m_session->Write(HvxStatement::RemoveCamLock, {token});
}

std::optional<CamLock::Holder> CamLock::ReadHolder()
{
    SqlRows rows = m_session->Read(HvxStatement::ReadCamLock);
    if (!rows.Next())
        return std::nullopt;
    return Holder{rows.Text(0), rows.Text(1), rows.LongNumber(2), rows.LongNumber(3)};
}

bool CamLock::IsDead(const Holder& holder)
{
    const bool ofThisHost = holder.host == QSysInfo::machineHostName();
    if (ofThisHost && !ProcessRuns(holder.process))
        return true;
    return holder.silence > StaleMs;
}

bool CamLock::SomeoneWrites()
{
    // A holder in a long transaction cannot give its sign of life.
    try {
        TransactionScope probe(*m_session, TransactionKind::Alone);
        return false;
    } catch (const ComponentError& error) {
        if (error.Number() == DatabaseErrorNumber::InUse)
            return true;
        throw;
    }
}

void CamLock::RemoveDeadHolder()
{
    const std::optional<Holder> holder = ReadHolder();
    if (!holder)
        return;
    if (!IsDead(*holder) || m_session->Write(HvxStatement::FreeCamLock, {holder->token}) == 0)
        RaiseFailure(DatabaseErrorNumber::InUse, QStringLiteral("The database is locked for maintenance."));
}
