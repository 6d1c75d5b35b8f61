#pragma once

#include "database/DatabaseClass.h"

#include <QPointer>

#include <functional>

/// Holds one silent transaction around the reads of one click, so that the component can answer them from
/// one snapshot.
///
/// It helps and never hinders: without a session, when the begin fails or inside another bracket it does
/// nothing, and the reads run on their own. It ends with the object, and before any box is shown, so that the
/// database is not held while the operator thinks. For reads only: when its commit fails it rolls back. The
/// pointer follows its begin and commit as that of any transaction.
/// Thread: the gateway's.
class ReadBracket
{
public:
    explicit ReadBracket(DatabaseClass& database);
    ~ReadBracket();
    ReadBracket(const ReadBracket&) = delete;
    ReadBracket& operator=(const ReadBracket&) = delete;

    /// True while this bracket holds a transaction.
    [[nodiscard]] bool IsOpen() const { return m_transactionOpen; }
    /// Ends the transaction early.
    void End();

private:
    QPointer<DatabaseClass> m_database;
    bool m_transactionOpen = false;
    std::function<void()> m_observerBefore;
};
