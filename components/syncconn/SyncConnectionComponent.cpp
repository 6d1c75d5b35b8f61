#include "components/syncconn/SyncConnectionComponent.h"

#include "components/syncconn/GatewaySession.h"
#include "platform/ComponentError.h"
#include "platform/Components.h"

void RegisterSyncConnections()
{
    for (const QString& id : {T4SyncConnId, HvxSyncConnId})
        RegisterSyncConnection(id, [] { return std::make_unique<SyncConnectionComponent>(); });
}

SyncConnectionComponent::SyncConnectionComponent() : m_session(std::make_shared<GatewaySession>()) {}

SyncConnectionComponent::~SyncConnectionComponent()
{
    m_session->Close();
}

qint32 SyncConnectionComponent::Open(const QString& target)
{
    // Copies, here and below: what is handed in may go away during the wait, and so may this object.
    const std::shared_ptr<GatewaySession> session = m_session;
    const QString ownTarget = target;
    session->Open(ownTarget);
    return 0;
}

void SyncConnectionComponent::Send(const QString& target, const QString& request, QString& reply)
{
    const std::shared_ptr<GatewaySession> session = m_session;
    const QString ownTarget = target;
    const QString ownRequest = request;
    reply = session->Send(ownTarget, ownRequest);
}

void SyncConnectionComponent::Close()
{
    m_session->Close();
}

void SyncConnectionComponent::GetLastError(qint32& major, qint32& minor, qint32& third, QString& text)
{
    const std::optional<SyncFailure::Record>& failure = m_session->LastFailure();
    if (!failure)
        throw ComponentError(SyncFailure::Raised, QStringLiteral("SyncConnection"),
                             QStringLiteral("Nothing has failed."));
    major = failure->major;
    minor = failure->minor;
    third = 0;
    text = failure->text;
}
