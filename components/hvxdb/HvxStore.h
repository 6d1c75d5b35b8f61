#pragma once

#include "components/hvxdb/Definitions.h"
#include "components/hvxdb/RecordCache.h"
#include "components/hvxdb/SqlSession.h"

/// How many records the Journal has while these are the ends of it.
struct CountedJournal
{
    qint64 oldestId = 0;
    qint64 lastId = 0;
    qint64 count = 0;
};

/// An opened database with what is kept of it in memory: definitions, rights, the rows of the open
/// transaction. The parts of the component and of the administration work on one store each.
///
/// A source that went away (the server ended the connection, the file is another one) is opened anew by the
/// next outermost Begin; until one succeeds every other call raises.
///
/// Thread: the one that opened it. Failures: ComponentError.
class HvxStore
{
public:
    void SetBusyTimeout(int ms) { m_session.SetBusyTimeout(ms); }

    /// Opens the source. After InUse the source stays connected: Begin goes on where this ended.
    void Open(const QString& source);
    void Close();
    /// True too while a source that went away is not back yet.
    [[nodiscard]] bool IsOpen() const { return m_open; }
    /// False also while the opened source could not be read yet because another program has it.
    [[nodiscard]] bool IsLoaded() const { return m_loaded; }
    [[nodiscard]] const QString& Source() const { return m_source; }

    /// Opens a transaction or a level. Raises InUse while another program holds the database; what Open
    /// raises when the source had to be opened anew and could not.
    void Begin() { Begin(TransactionKind::Records); }
    /// The same; see TransactionKind::Writing. Who may not write does not wait.
    void BeginToWrite() { Begin(TransactionKind::Writing); }
    void Begin(TransactionKind kind);
    void Commit();
    void Rollback();

    /// Raises when nothing is open, and when the source went away.
    [[nodiscard]] SqlSession& Session();
    [[nodiscard]] qint64 StatementCount() const { return m_session.StatementCount(); }
    [[nodiscard]] const Definitions& CurrentDefinitions() const { return m_definitions; }
    /// Rows read in the open transaction; empty outside.
    [[nodiscard]] RecordCache& Cache() { return m_cache; }
    /// What was counted last, in whatever transaction.
    [[nodiscard]] std::optional<CountedJournal>& Counted() { return m_counted; }
    [[nodiscard]] bool InTransaction() const { return m_session.Level() > 0; }

    /// Reads the definitions again unless they have this version.
    void UseDefinitionsVersion(qint32 version);
    [[nodiscard]] UserRights ReadRights();
    /// Raises Refused unless the operator may edit. To be asked inside a transaction.
    void RequireEditRight();

    /// The maintenance lock that this store itself holds does not keep it out.
    void SetOwnLock(const QString& token);
    /// To be called behind a change of lock, rights or definitions by this store.
    void ForgetState();

private:
    void Connect();
    void Load();
    void BeginOutermost(TransactionKind kind);
    /// Opens the source anew when it went away. False: it is there.
    bool Renew();
    void CheckState();
    void ReadState();
    void UseState(const SessionState& state);
    void EndTransaction();
    [[nodiscard]] bool KnowsRights() const;

    SqlSession m_session;
    QString m_source;
    bool m_open = false;
    Definitions m_definitions;
    qint32 m_definitionsVersion = 0;
    RecordCache m_cache;
    std::optional<CountedJournal> m_counted;
    QString m_ownLock;
    QString m_heldLock;
    bool m_loaded = false;
    /// The data version for which lock, definitions and rights are known.
    std::optional<quint32> m_stateVersion;
    std::optional<UserRights> m_rights;
};

/// A transaction or level that is undone unless Commit is called: what happens in it happens whole or not at
/// all.
class StoreScope
{
public:
    explicit StoreScope(HvxStore& store);
    ~StoreScope();
    StoreScope(const StoreScope&) = delete;
    StoreScope& operator=(const StoreScope&) = delete;

    void Commit();

protected:
    StoreScope(HvxStore& store, TransactionKind kind);

private:
    HvxStore* m_store;
    bool m_open = true;
};

/// The same for what only those may do who have the edit right; raises Refused for others.
class WriteScope : public StoreScope
{
public:
    explicit WriteScope(HvxStore& store);
};
