#pragma once

#include "components/syncconn/GatewayAddress.h"
#include "components/syncconn/GatewaySocket.h"
#include "components/syncconn/SyncFailure.h"
#include "components/syncconn/TargetReader.h"

#include <optional>

/// A path through a gateway: opens it, carries one request at a time over it, and keeps the last failure.
///
/// Open and Send let events run while they wait. Whoever handles one may call any method: Close ends the
/// wait, Open and Send fail as busy. Must not be destroyed during a wait.
class GatewaySession
{
public:
    /// Connects to the gateway and opens the target; what was open is closed first.
    /// Raises ComponentError; the session is closed then.
    void Open(const QString& target);
    /// Gives the reply to a request, both as byte-strings; the reply in hexadecimal digits when the target
    /// that counts wants them. Raises ComponentError.
    [[nodiscard]] QString Send(const QString& target, const QString& request);
    /// Never fails.
    void Close();

    [[nodiscard]] const std::optional<SyncFailure::Record>& LastFailure() const { return m_lastFailure; }

private:
    using Event = GatewaySocket::Event;

    void FindGateway();
    void Connect();
    void OpenPath(const QString& target);
    [[nodiscard]] QByteArray Exchange(const TargetReader& own, GatewayFrame::Request& request);

    [[nodiscard]] qint32 NextExchange();
    void FailIfBusy();
    /// Records the failure and raises it.
    [[noreturn]] void Fail(qint32 major, qint32 minor, const QString& text);
    /// The same behind a closing: the stream is of no use any more.
    [[noreturn]] void FailAndClose(qint32 major, qint32 minor, const QString& text);
    [[noreturn]] void FailByEvent(Event event);
    [[noreturn]] void FailLost();
    [[noreturn]] void FailRefused(const GatewayFrame::Failure& failure);

    GatewaySocket m_socket;
    GatewayAddress m_gateway;
    /// Of Open.
    TargetReader m_target;
    bool m_open = false;
    bool m_busy = false;
    qint32 m_exchange = 0;
    std::optional<SyncFailure::Record> m_lastFailure;
};
