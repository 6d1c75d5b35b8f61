#include "components/hvxdb/HvxStore.h"

#include "components/hvxdb/DefinitionTables.h"
#include "components/hvxdb/HvxSchema.h"
#include "components/hvxdb/SqlFailure.h"
#include "platform/MachineSeams.h"

namespace {

const QString NotOpen = QStringLiteral("The database is not open.");

} // namespace

void HvxStore::Open(const QString& source)
{
    if (m_open && m_loaded && source == m_source && !m_session.HasLostSource()) {
        ReadState();
        CheckState();
        return;
    }
    Close();
    m_source = source;
    m_open = true;
    try {
        Connect();
        CheckState();
    } catch (const ComponentError& error) {
        if (error.Number() != DatabaseErrorNumber::InUse)
            Close();
        throw;
    }
}

void HvxStore::Close()
{
    m_open = false;
    m_session.Disconnect();
    m_cache.Clear();
    m_definitions = Definitions();
    m_definitionsVersion = 0;
    m_loaded = false;
    ForgetState();
}

void HvxStore::Connect()
{
    m_loaded = false;
    m_definitionsVersion = 0;
    m_counted.reset();
    m_session.Connect(m_source);
    try {
        Load();
    } catch (const ComponentError& error) {
        if (error.Number() != DatabaseErrorNumber::InUse)
            m_session.Disconnect();
        throw;
    }
}

void HvxStore::Load()
{
    try {
        HvxSchema(m_session, HvxSchema::ScriptsOf(m_session.Engine())).Prepare();
        m_session.Engine().Settle(m_session.Database());
        ReadState();
    } catch (const ComponentError& error) {
        // A server that refuses to show its tables.
        if (error.Number() == DatabaseErrorNumber::Refused)
            RaiseFailure(DatabaseErrorNumber::UnusableFile, error.Description());
        throw;
    }
    m_loaded = true;
}

void HvxStore::Begin(TransactionKind kind)
{
    if (!m_open)
        RaiseRefusal(NotOpen);
    if (InTransaction()) {
        m_session.Begin();
        return;
    }
    Renew();
    if (!m_loaded)
        Load();
    m_cache.Clear();
    try {
        BeginOutermost(kind);
    } catch (const ComponentError&) {
        // A server's end shows only when it is asked again.
        if (!Renew())
            throw;
        BeginOutermost(kind);
    }
}

void HvxStore::BeginOutermost(TransactionKind kind)
{
    const bool mayWrite = m_rights && m_rights->mayEdit;
    const std::optional<SessionState> state = m_session.Begin(mayWrite ? kind : TransactionKind::Records);
    try {
        if (state) {
            UseState(*state);
        } else {
            const std::optional<quint32> version = m_session.DataVersion();
            if (!version || version != m_stateVersion)
                ReadState();
        }
        CheckState();
    } catch (const ComponentError&) {
        m_session.Rollback();
        throw;
    }
}

bool HvxStore::Renew()
{
    if (m_session.IsConnected() && !m_session.HasLostSource())
        return false;
    ForgetState();
    m_session.Disconnect();
    Connect();
    return true;
}

void HvxStore::Commit()
{
    Session().Commit();
    EndTransaction();
}

void HvxStore::Rollback()
{
    m_cache.Clear();
    if (!InTransaction())
        return;
    m_session.Rollback();
    EndTransaction();
}

void HvxStore::EndTransaction()
{
    if (InTransaction())
        return;
    m_cache.Clear();
    // Nobody else could write since the begin, so the state is still the one that is known.
    if (m_stateVersion)
        m_stateVersion = m_session.DataVersion();
}

SqlSession& HvxStore::Session()
{
    if (!m_open)
        RaiseRefusal(NotOpen);
    if (!m_session.IsConnected())
        RaiseFailure(EngineFailure, QStringLiteral("The connection to the database is lost."));
    return m_session;
}

void HvxStore::CheckState()
{
    if (!m_heldLock.isEmpty() && m_heldLock != m_ownLock)
        RaiseFailure(DatabaseErrorNumber::InUse, QStringLiteral("The database is locked for maintenance."));
}

void HvxStore::ReadState()
{
    SessionState state;
    try {
        state = m_session.ReadState();
    } catch (const ComponentError& error) {
        if (error.Number() != EngineFailure || m_session.HasLostSource())
            throw;
        RaiseFailure(DatabaseErrorNumber::CamAccess, error.Description());
    }
    UseState(state);
    m_stateVersion = m_session.DataVersion();
}

void HvxStore::UseState(const SessionState& state)
{
    ForgetState();
    m_heldLock = state.heldLock;
    m_rights = state.rights;
    UseDefinitionsVersion(state.definitionsVersion);
}

void HvxStore::UseDefinitionsVersion(qint32 version)
{
    if (version == m_definitionsVersion)
        return;
    m_definitions = Definitions(ReadDefinitions(m_session));
    m_definitionsVersion = version;
}

UserRights HvxStore::ReadRights()
{
    SqlSession& session = Session();
    const QString user = Machine().UserName();
    // A server knows who is connected.
    const bool isServer = session.Engine().IsServer();
    SqlRows rows = session.Read(HvxStatement::RightsOfUser, isServer ? QVariantList() : QVariantList{user});
    if (!rows.Next())
        return {false, false, user};
    return {rows.Number(0) != 0, rows.Number(1) != 0, isServer ? rows.Text(2) : user};
}

bool HvxStore::KnowsRights() const
{
    if (!m_rights)
        return false;
    return m_session.Engine().IsServer() || (m_stateVersion && m_rights->user == Machine().UserName());
}

void HvxStore::RequireEditRight()
{
    if (!KnowsRights())
        m_rights = ReadRights();
    if (!m_rights->mayEdit)
        RaiseRefusal(QStringLiteral("%1 has no right to edit the database.").arg(m_rights->user));
}

void HvxStore::SetOwnLock(const QString& token)
{
    m_ownLock = token;
    ForgetState();
}

void HvxStore::ForgetState()
{
    m_stateVersion.reset();
    m_rights.reset();
    m_heldLock.clear();
}

StoreScope::StoreScope(HvxStore& store) : StoreScope(store, TransactionKind::Records) {}

StoreScope::StoreScope(HvxStore& store, TransactionKind kind) : m_store(&store)
{
    store.Begin(kind);
}

StoreScope::~StoreScope()
{
    if (!m_open)
        return;
    try {
        m_store->Rollback();
    } catch (const ComponentError&) {
        // The failure that led here is the one to tell; the connection undoes what is left when it ends.
    }
}

void StoreScope::Commit()
{
    m_store->Cache().Clear();
    m_store->Commit();
    m_open = false;
}

WriteScope::WriteScope(HvxStore& store) : StoreScope(store, TransactionKind::Writing)
{
    store.RequireEditRight();
}
