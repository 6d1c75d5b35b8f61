#include "tools/netsim/ControlChannel.h"

#include "platform/MachineSeams.h"

#include <QElapsedTimer>
#include <QJsonDocument>
#include <QLocalSocket>
#include <QRegularExpression>

namespace {

/// Milliseconds for which an answer is waited for.
constexpr int LongestWait = 20'000;

QString ChannelName(const HostAndPort& gateway)
{
    static const QRegularExpression unusable(QStringLiteral("[^A-Za-z0-9._-]+"));
    const QString name = QStringLiteral("zelka-netsim-%1-%2").arg(Machine().UserName(), gateway.Text());
    return QString(name).replace(unusable, QStringLiteral("-"));
}

QByteArray Line(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

} // namespace

ControlChannel::ControlChannel(std::function<QJsonObject(const QJsonObject&)> execute, QObject* parent)
    : QObject(parent), m_execute(std::move(execute))
{
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, &ControlChannel::Accept);
}

bool ControlChannel::Listen(const HostAndPort& gateway)
{
    // What a program that was killed has left.
    QLocalServer::removeServer(ChannelName(gateway));
    return m_server.listen(ChannelName(gateway));
}

void ControlChannel::Accept()
{
    while (QLocalSocket* socket = m_server.nextPendingConnection()) {
        socket->setReadBufferSize(LongestRequest);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { Read(*socket); });
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    }
}

void ControlChannel::Read(QLocalSocket& socket)
{
    if (!socket.canReadLine()) {
        if (socket.bytesAvailable() >= LongestRequest)
            socket.abort();
        return;
    }
    socket.write(Line(m_execute(QJsonDocument::fromJson(socket.readLine()).object())));
    // Sent before a command that ends the program takes effect.
    socket.flush();
    socket.disconnectFromServer();
}

bool ControlChannel::Ask(const HostAndPort& gateway, const QJsonObject& request, QJsonObject& answer)
{
    QLocalSocket socket;
    socket.connectToServer(ChannelName(gateway));
    if (!socket.waitForConnected(LongestWait))
        return false;
    socket.write(Line(request));
    QElapsedTimer waited;
    waited.start();
    QByteArray bytes;
    while (!bytes.endsWith('\n')) {
        const qint64 left = LongestWait - waited.elapsed();
        if (left <= 0 || !socket.waitForReadyRead(static_cast<int>(left)))
            return false;
        bytes += socket.readAll();
    }
    answer = QJsonDocument::fromJson(bytes).object();
    return true;
}
