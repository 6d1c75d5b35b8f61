#include "database/ReadBracket.h"

#include "database/DatabaseState.h"
#include "platform/MsgBox.h"

#include <utility>

namespace {

/// True while some bracket holds its transaction.
bool bracketOpen = false;

} // namespace

ReadBracket::ReadBracket(DatabaseClass& database) : m_database(&database)
{
    if (bracketOpen || !Database().DatabaseOpen ||
        !database.BeginTransactionWithoutResumeDb(m_transactionOpen) || !m_transactionOpen)
        return;
    bracketOpen = true;
    m_observerBefore = SetBoxObserver([this] { End(); });
}

ReadBracket::~ReadBracket()
{
    End();
}

void ReadBracket::End()
{
    if (!m_transactionOpen)
        return;
    bracketOpen = false;
    const std::function<void()> before = SetBoxObserver(std::exchange(m_observerBefore, nullptr));
    Q_UNUSED(before) // this bracket's own, which may be running
    bool open = std::exchange(m_transactionOpen, false);
    if (m_database && !m_database->CommitTransactionDb(open) && !m_database->RollbackTransactionDb())
        m_database->LeaveTransaction();
}
