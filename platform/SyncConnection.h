#pragma once

#include "platform/ComponentWithLastError.h"

/// Programmatic identifiers of the connection component: the one of scans and of the one that asks for buses.
inline const QString T4SyncConnId = QStringLiteral("Zelka.T4SyncConn.3");
inline const QString HvxSyncConnId = QStringLiteral("Zelka.HVXSyncConn.1");

/// A connection to network elements: opened on a target, it carries one request at a time and waits for the
/// reply.
///
/// Open and Send let events run while they wait, so that windows stay alive; whoever handles such an event
/// may call Close, which ends the wait with an error, and may let go of the connection when the caller
/// further down the stack holds it too. Thread: the one that created it.
class SyncConnection : public ComponentWithLastError
{
public:
    /// Gives 0 on success; any other value, or ComponentError raised, is a failure that GetLastError tells.
    [[nodiscard]] virtual qint32 Open(const QString& target) = 0;
    /// Sends a request to what `target` names behind the target of Open; empty: to that target itself.
    /// `request` and `reply` hold one 8-bit character a byte; with "DT=UNIHEX" in the target that counts,
    /// `reply` comes as pairs of hexadecimal digits.
    /// Raises ComponentError for silence, a refusal, a lost connection and a malformed reply, and when a
    /// request is under way already; `reply` then stays as it was.
    virtual void Send(const QString& target, const QString& request, QString& reply) = 0;
    /// Does nothing on a connection that is not open. Never fails.
    virtual void Close() = 0;
};
