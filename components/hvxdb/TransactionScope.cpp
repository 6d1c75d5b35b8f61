#include "components/hvxdb/TransactionScope.h"

#include "platform/ComponentError.h"

TransactionScope::~TransactionScope()
{
    if (!m_open)
        return;
    try {
        m_session->Rollback();
    } catch (const ComponentError&) {
        // The failure that led here is the one to tell; a connection that cannot undo is undone at its end.
    }
}

void TransactionScope::Commit()
{
    m_session->Commit();
    m_open = false;
}
