#pragma once

#include "components/hvxdb/SqlSession.h"

/// A level that is undone unless Commit is called: makes what happens in it all or nothing.
class TransactionScope
{
public:
    explicit TransactionScope(SqlSession& session, TransactionKind kind = TransactionKind::Records)
        : m_session(&session)
    {
        session.Begin(kind);
    }
    ~TransactionScope();
    TransactionScope(const TransactionScope&) = delete;
    TransactionScope& operator=(const TransactionScope&) = delete;

    void Commit();

private:
    SqlSession* m_session;
    bool m_open = true;
};
