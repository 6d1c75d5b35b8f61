#include "host/workstation/NodeTalk.h"

#include "components/syncconn/SyncFailure.h"
#include "platform/ComponentError.h"
#include "platform/ComponentFailure.h"
#include "platform/Components.h"
#include "platform/Words.h"

#include <utility>

namespace {

/// The element was silent or refused; the next request can go the same way.
bool LeavesItOpen(qint32 major)
{
    return major == SyncFailure::Major::Element || major == SyncFailure::Major::Refused;
}

} // namespace

struct NodeTalk::Session
{
    std::shared_ptr<SyncConnection> connection;
    State state = State::Closed;
    QString target;
    std::function<void()> changed;

    void Become(State next)
    {
        state = next;
        if (changed)
            changed();
    }

    void Close()
    {
        target.clear();
        // Kept here: closing may let events run.
        const std::shared_ptr<SyncConnection> closing = std::exchange(connection, nullptr);
        Become(State::Closed);
        if (closing)
            closing->Close();
    }

    /// Raises ComponentError. False: refused, or disconnected meanwhile.
    bool Open(const std::shared_ptr<SyncConnection>& opening, const QString& toTarget)
    {
        connection = opening;
        target = toTarget;
        Become(State::Opening);
        if (opening->Open(toTarget) != 0 || connection != opening)
            return false;
        Become(State::Open);
        return true;
    }

    /// What follows from a failure of that connection, which may be another one's by now.
    Answer Failed(const std::shared_ptr<SyncConnection>& failed, const QString& otherwise)
    {
        const ComponentFailure last = LastFailureOf(*failed);
        if (failed == connection) {
            if (state == State::Asking && LeavesItOpen(last.major))
                Become(State::Open);
            else
                Close();
        }
        return {false, last.major == SyncFailure::Major::Gateway, last.Told(otherwise)};
    }

    Answer Exchange(const std::shared_ptr<SyncConnection>& over, const QString& toTarget,
                    const QString& bytes)
    {
        QString reply;
        try {
            if (state == State::Closed && !Open(over, toTarget))
                return Failed(over, Words::tr("Connection could not be opened."));
            Become(State::Asking);
            over->Send(QString(), bytes, reply);
        } catch (const ComponentError& error) {
            return Failed(over, error.Description());
        }
        if (connection == over)
            Become(State::Open);
        return {true, false, reply};
    }
};

NodeTalk::NodeTalk(std::function<void()> changed) : m_session(std::make_shared<Session>())
{
    m_session->changed = std::move(changed);
}

NodeTalk::~NodeTalk()
{
    m_session->changed = nullptr;
    m_session->Close();
}

NodeTalk::State NodeTalk::Now() const
{
    return m_session->state;
}

const QString& NodeTalk::Target() const
{
    return m_session->target;
}

NodeTalk::Answer NodeTalk::Ask(const QString& target, const QString& request)
{
    // This object may be gone when a wait ends.
    const std::shared_ptr<Session> session = m_session;
    if (session->state == State::Opening || session->state == State::Asking)
        return {false, false, Words::tr("A request is under way already.")};
    if (session->target != target)
        session->Close();

    std::shared_ptr<SyncConnection> connection = session->connection;
    std::unique_ptr<HvxUtility> utility;
    try {
        utility = CreateHvxUtility(HvxUtilityId);
        if (!connection)
            connection = CreateSyncConnection(HvxSyncConnId);
    } catch (const ComponentError& error) {
        return {false, true, error.Description()};
    }
    QString bytes;
    try {
        utility->U2A(request, bytes);
    } catch (const ComponentError& error) {
        return {false, false, error.Description()};
    }
    return session->Exchange(connection, target, bytes);
}

void NodeTalk::Disconnect()
{
    m_session->Close();
}
