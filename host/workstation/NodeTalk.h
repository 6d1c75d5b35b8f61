#pragma once

#include <QString>

#include <functional>
#include <memory>

/// Talks to the network element that a target names: opens the target, sends one request at a time and waits
/// for its reply.
///
/// While it waits events run; whoever handles one may disconnect, which ends the wait with a failure, and may
/// destroy the object. Thread: the one that made it.
class NodeTalk
{
public:
    struct Answer
    {
        bool good = false;
        /// Nothing is known of the network: no component, or no gateway that can be reached.
        bool noNetwork = false;
        /// The reply, one 8-bit character a byte; or the words and codes of the failure, in one line.
        QString text;
    };
    enum class State
    {
        Closed,
        Opening,
        Open,
        /// A reply is waited for.
        Asking,
    };

    /// `changed` runs after each change of the state and never once the object is gone.
    explicit NodeTalk(std::function<void()> changed);
    ~NodeTalk();
    NodeTalk(const NodeTalk&) = delete;
    NodeTalk& operator=(const NodeTalk&) = delete;

    [[nodiscard]] State Now() const;
    /// The target that is open or being opened; else empty.
    [[nodiscard]] const QString& Target() const;

    /// Opens the target unless it is open, after closing another one, and sends the request. Nothing is done
    /// while a wait is under way. A failure that leaves the connection useless closes it.
    [[nodiscard]] Answer Ask(const QString& target, const QString& request);
    /// Ends a wait as well.
    void Disconnect();

private:
    struct Session;
    /// Shared with the wait that is under way, which may outlive the object.
    std::shared_ptr<Session> m_session;
};
