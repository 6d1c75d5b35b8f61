#pragma once

#include "components/syncconn/FrameReader.h"
#include "components/syncconn/GatewayFrame.h"

#include <QTcpSocket>
#include <QTest>

/// A workstation's end of a connection to a gateway in the same process.
class GatewayClient
{
public:
    explicit GatewayClient(quint16 port)
    {
        m_socket.connectToHost(QHostAddress::LocalHost, port);
        if (!QTest::qWaitFor([this] { return m_socket.state() == QAbstractSocket::ConnectedState; }))
            qFatal("no gateway on port %d", port);
    }

    void Send(qint32 exchange, GatewayFrame::Body body)
    {
        m_socket.write(GatewayFrame::Encode({exchange, std::move(body)}));
    }
    void SendBytes(const QByteArray& bytes) { m_socket.write(bytes); }
    void Ask(qint32 exchange, const QString& target, const QByteArray& data)
    {
        Send(exchange, GatewayFrame::Request{target, 0, data});
    }

    /// Waits for the next frame; one with exchange -1 when none comes.
    [[nodiscard]] GatewayFrame::Frame Next()
    {
        GatewayFrame::Frame frame{-1, GatewayFrame::Opened()};
        const QByteArray bytes = NextFrame();
        if (GatewayFrame::Decode(bytes, frame) != GatewayFrame::Decoding::Done)
            frame.exchange = -1;
        return frame;
    }
    /// The same as bytes; none when none comes.
    [[nodiscard]] QByteArray NextFrame()
    {
        QByteArray bytes;
        (void)QTest::qWaitFor([&] { return NextBytes(bytes) == FrameReader::Result::Frame; });
        return bytes;
    }
    /// What can be made of what has come so far.
    FrameReader::Result NextBytes(QByteArray& frame)
    {
        m_reader.Append(m_socket.readAll());
        return m_reader.Next(frame);
    }
    /// Opens a path and waits until it is open.
    void Open(const QString& target)
    {
        Send(1, GatewayFrame::Open{target});
        const GatewayFrame::Frame opened{1, GatewayFrame::Opened()};
        QCOMPARE(Next(), opened);
    }
    /// Waits until the gateway has ended the connection.
    [[nodiscard]] bool WaitForEnd()
    {
        return QTest::qWaitFor([this] { return m_socket.state() == QAbstractSocket::UnconnectedState; });
    }
    [[nodiscard]] QTcpSocket& Socket() { return m_socket; }
    [[nodiscard]] bool HasRest() const { return m_reader.HasRest(); }

private:
    QTcpSocket m_socket;
    FrameReader m_reader;
};
