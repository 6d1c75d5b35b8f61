#include "components/hvxdb/HvxStore.h"

#include "components/hvxdb/DefinitionTables.h"
#include "components/hvxdb/HvxSchema.h"
#include "components/hvxdb/SqlFailure.h"
#include "platform/MachineSeams.h"

void HvxStore::Open(const QString& source)
{
    if (IsOpen() && m_loaded && source == m_source) {
        ReadState();
        CheckState();
        return;
    }
    Close();
    m_session.Connect(source);
    m_source = source;
    try {
        Load();
        CheckState();
    } catch (const ComponentError& error) {
        if (error.Number() != DatabaseErrorNumber::InUse)
            Close();
        throw;
    }
}

void HvxStore::Close()
{
    m_session.Disconnect();
    m_cache.Clear();
    m_counted.reset();
    m_definitions = Definitions();
    m_definitionsVersion = 0;
    m_loaded = false;
    ForgetState();
}

void HvxStore::Load()
{
    HvxSchema(m_session, HvxSchema::ScriptsOf(m_session.Engine())).Prepare();
    m_session.Engine().Settle(m_session.Database());
    ReadState();
    m_loaded = true;
}

void HvxStore::Begin()
{
    SqlSession& session = Session();
    if (!m_loaded)
        Load();
    session.Begin();
    if (m_session.Level() > 1)
        return;
    m_cache.Clear();
    try {
        const std::optional<quint32> version = m_session.DataVersion();
        if (!version || version != m_stateVersion)
            ReadState();
        CheckState();
    } catch (const ComponentError&) {
        m_session.Rollback();
        throw;
    }
}

void HvxStore::Commit()
{
    Session().Commit();
    EndTransaction();
}

void HvxStore::Rollback()
{
    m_cache.Clear();
    if (!IsOpen() || !InTransaction())
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
    if (!IsOpen())
        RaiseRefusal(QStringLiteral("The database is not open."));
    return m_session;
}

void HvxStore::CheckState()
{
    if (!m_heldLock.isEmpty() && m_heldLock != m_ownLock)
        RaiseFailure(DatabaseErrorNumber::InUse, QStringLiteral("The database is locked for maintenance."));
}

void HvxStore::ReadState()
{
    ForgetState();
    qint32 definitionsVersion = 0;
    try {
        SqlRows rows = m_session.Read(HvxStatement::SessionState);
        if (rows.Next()) {
            definitionsVersion = rows.Number(0);
            m_heldLock = rows.Text(1);
        }
    } catch (const ComponentError& error) {
        if (error.Number() != EngineFailure)
            throw;
        RaiseFailure(DatabaseErrorNumber::CamAccess, error.Description());
    }
    UseDefinitionsVersion(definitionsVersion);
    m_stateVersion = m_session.DataVersion();
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
    SqlRows rows = Session().Read(HvxStatement::RightsOfUser, {Machine().UserName()});
    UserRights rights;
    if (rows.Next()) {
        rights.mayScan = rows.Number(0) != 0;
        rights.mayEdit = rows.Number(1) != 0;
    }
    return rights;
}

void HvxStore::RequireEditRight()
{
    const QString user = Machine().UserName();
    if (!m_rights || user != m_rightsUser || !m_stateVersion) {
        m_rights = ReadRights();
        m_rightsUser = user;
    }
    if (!m_rights->mayEdit)
        RaiseRefusal(QStringLiteral("%1 has no right to edit the database.").arg(user));
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

StoreScope::StoreScope(HvxStore& store) : m_store(&store)
{
    store.Begin();
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

WriteScope::WriteScope(HvxStore& store) : StoreScope(store)
{
    store.RequireEditRight();
}
