#pragma once

#include "platform/HvxUtility.h"
#include "platform/SyncConnection.h"

#include <QString>
#include <QTimer>

#include <functional>
#include <memory>

/// The connection of a command to the network and the utility that reads its replies, closed with the object.
///
/// While the command waits for the network, `isOver` is looked at every 100 ms; as soon as it says so the
/// connection is closed, which ends the wait with an error.
class NetworkSession
{
public:
    /// Raises CommandError (NetworkUnavailable) when a component cannot be created.
    NetworkSession(const QString& connectionId, std::function<bool()> isOver);
    ~NetworkSession();
    NetworkSession(const NetworkSession&) = delete;
    NetworkSession& operator=(const NetworkSession&) = delete;

    /// Raises CommandError (NetworkUnavailable).
    void Open(const QString& target);
    [[nodiscard]] SyncConnection& Connection() const { return *m_connection; }
    [[nodiscard]] HvxUtility& Utility() const { return *m_utility; }
    [[nodiscard]] bool IsOver() const { return m_isOver(); }

    /// Raises CommandError (NetworkUnavailable): `lead`, then the words and codes of the connection; where it
    /// has none, `otherwise`.
    [[noreturn]] void Fail(const QString& lead, const QString& otherwise = QString()) const;

private:
    void CloseWhenOver();

    std::function<bool()> m_isOver;
    std::unique_ptr<SyncConnection> m_connection;
    std::unique_ptr<HvxUtility> m_utility;
    QTimer m_look;
};
