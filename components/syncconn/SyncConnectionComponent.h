#pragma once

#include "platform/SyncConnection.h"

#include <memory>

class GatewaySession;

/// Registers the component under both its identifiers.
void RegisterSyncConnections();

/// The connection component: TCP to the gateway that the SOCKET hop of the target names, else to the one of
/// this workstation (the environment variable ZELKA_GATEWAY, "host:port", default 127.0.0.1:4004).
///
/// Each attempt of a request waits for TIME milliseconds and is repeated RETRY times, both from the request's
/// target, else from the target of Open; the latter drive the connecting as well. Answers to earlier
/// exchanges are dropped. After a failure that leaves the stream unusable the connection is closed; after
/// silence or a refusal of a request it stays open.
///
/// Failures: SyncFailure.h has the codes. Open and Send raise ComponentError with the number
/// SyncFailure::Raised, and so does GetLastError before the first failure. Destroying the component during a
/// wait ends that wait as Close does.
class SyncConnectionComponent : public SyncConnection
{
public:
    SyncConnectionComponent();
    ~SyncConnectionComponent() override;
    SyncConnectionComponent(const SyncConnectionComponent&) = delete;
    SyncConnectionComponent& operator=(const SyncConnectionComponent&) = delete;

    [[nodiscard]] qint32 Open(const QString& target) override;
    void Send(const QString& target, const QString& request, QString& reply) override;
    void Close() override;
    void GetLastError(qint32& major, qint32& minor, qint32& third, QString& text) override;

private:
    /// Shared with the wait that is under way, which may outlive the component.
    std::shared_ptr<GatewaySession> m_session;
};
