#pragma once

#include "tools/netsim/HostAndPort.h"

#include <QJsonObject>
#include <QLocalServer>
#include <QObject>

#include <functional>

class QLocalSocket;

/// The way by which commands of the same user reach a simulated network that runs: one JSON object on a line
/// for a command, one for its answer.
class ControlChannel : public QObject
{
    Q_OBJECT

public:
    /// Bytes of one request at most.
    static constexpr qint64 LongestRequest = 65'536;

    /// `execute` gives the answer to a request.
    explicit ControlChannel(std::function<QJsonObject(const QJsonObject&)> execute,
                            QObject* parent = nullptr);

    /// Takes commands for the gateway at that place, which listens already, so that nobody else does. False:
    /// ErrorText tells why.
    [[nodiscard]] bool Listen(const HostAndPort& gateway);
    [[nodiscard]] QString ErrorText() const { return m_server.errorString(); }

    /// Sends a request to the gateway at that place and waits for the answer. False: there is nobody, or no
    /// answer came; `answer` stays as it was.
    [[nodiscard]] static bool Ask(const HostAndPort& gateway, const QJsonObject& request,
                                  QJsonObject& answer);

private:
    void Accept();
    void Read(QLocalSocket& socket);

    std::function<QJsonObject(const QJsonObject&)> m_execute;
    QLocalServer m_server;
};
