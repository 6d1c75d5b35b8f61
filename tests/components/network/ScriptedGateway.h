#pragma once

#include "components/syncconn/FrameReader.h"
#include "components/syncconn/GatewayFrame.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <functional>
#include <map>
#include <sys/socket.h>
#include <vector>

/// A gateway under the control of a test, in the test's own thread: records what comes and answers by a
/// procedure.
class ScriptedGateway
{
public:
    using Script = std::function<void(ScriptedGateway& gateway, const GatewayFrame::Frame& frame)>;

    /// Opens every path and sends the data of each request back.
    static void Echo(ScriptedGateway& gateway, const GatewayFrame::Frame& frame)
    {
        if (const auto* request = std::get_if<GatewayFrame::Request>(&frame.body))
            gateway.Answer({frame.exchange, GatewayFrame::Reply{request->data}});
        else
            gateway.Answer({frame.exchange, GatewayFrame::Opened{}});
    }
    /// Opens every path and does something else with requests.
    static Script OnRequest(const Script& script)
    {
        return [script](ScriptedGateway& gateway, const GatewayFrame::Frame& frame) {
            if (std::holds_alternative<GatewayFrame::Request>(frame.body))
                script(gateway, frame);
            else
                Echo(gateway, frame);
        };
    }

    explicit ScriptedGateway(Script onFrame = Echo) : OnFrame(std::move(onFrame))
    {
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] { Accept(); });
        if (!m_server.listen(QHostAddress::LocalHost))
            qFatal("no port to listen at");
        m_port = m_server.serverPort();
    }

    Script OnFrame;
    /// What came, in order.
    std::vector<GatewayFrame::Frame> Frames;
    int Connections = 0;
    int Disconnections = 0;

    [[nodiscard]] QString Address() const { return QStringLiteral("127.0.0.1:%1").arg(m_port); }
    /// Target of this gateway; answers have 30 s unless `timing` says otherwise.
    [[nodiscard]] QString Target(const QString& behind = QString(),
                                 const QString& timing = QStringLiteral("TIME=30000,RETRY=0")) const
    {
        return QStringLiteral("WP=SOCKET,IP=127.0.0.1,PORT=%1,%2%3")
            .arg(QString::number(m_port), timing, behind);
    }

    void Answer(const GatewayFrame::Frame& frame) { SendBytes(GatewayFrame::Encode(frame)); }
    /// To the workstation that connected last.
    void SendBytes(const QByteArray& bytes)
    {
        m_peer->write(bytes);
        m_peer->flush();
    }
    /// One byte each time events run.
    void SendByteByByte(const QByteArray& bytes)
    {
        if (bytes.isEmpty())
            return;
        SendBytes(bytes.left(1));
        QTimer::singleShot(0, m_peer, [this, bytes] { SendByteByByte(bytes.mid(1)); });
    }
    /// Closes behind what was sent.
    void HangUp() { m_peer->disconnectFromHost(); }
    /// Closes so that the far end sees a reset.
    void Reset()
    {
        const linger none{1, 0};
        ::setsockopt(static_cast<int>(m_peer->socketDescriptor()), SOL_SOCKET, SO_LINGER, &none, sizeof none);
        m_peer->abort();
    }
    /// Nobody listens any more; what is connected stays so.
    void StopListening() { m_server.close(); }
    /// Leaves what comes in the network, as one that is stuck does.
    void StopReading()
    {
        m_reading = false;
        m_peer->setReadBufferSize(1);
    }
    void ReadAgain()
    {
        m_reading = true;
        m_peer->setReadBufferSize(0);
        Read(m_peer);
    }

private:
    void Accept()
    {
        ++Connections;
        m_peer = m_server.nextPendingConnection();
        QTcpSocket* const peer = m_peer;
        QObject::connect(peer, &QTcpSocket::disconnected, &m_server, [this] { ++Disconnections; });
        QObject::connect(peer, &QTcpSocket::readyRead, &m_server, [this, peer] { Read(peer); });
    }
    void Read(QTcpSocket* peer)
    {
        if (!m_reading)
            return;
        m_readers[peer].Append(peer->readAll());
        QByteArray bytes;
        while (m_readers[peer].Next(bytes) == FrameReader::Result::Frame) {
            GatewayFrame::Frame frame;
            if (GatewayFrame::Decode(bytes, frame) != GatewayFrame::Decoding::Done)
                qFatal("the component sent no frame");
            Frames.push_back(frame);
            OnFrame(*this, frame);
        }
    }

    std::map<QTcpSocket*, FrameReader> m_readers;
    QTcpSocket* m_peer = nullptr;
    quint16 m_port = 0;
    bool m_reading = true;
    /// Last, so that its sockets, which are its children, go first.
    QTcpServer m_server;
};
