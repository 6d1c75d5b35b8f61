#pragma once

#include "components/syncconn/FrameReader.h"
#include "components/syncconn/GatewayAddress.h"
#include "components/syncconn/GatewayFrame.h"

#include <QDeadlineTimer>
#include <QTcpSocket>

class QEventLoop;

/// A TCP connection to a gateway that waits in an event loop of its own, one wait at a time.
///
/// While it waits events run, and whoever handles one may call Close, which ends the wait. Nothing runs while
/// no wait is under way; what the gateway does meanwhile shows at the next one. Must not be destroyed during
/// a wait.
class GatewaySocket
{
public:
    enum class Event
    {
        Connected,
        /// The answer came.
        Answer,
        TimeOut,
        /// Close was called, or the program ends.
        Closed,
        /// There is no connection, or no longer one; `Error` tells why.
        Lost,
        // The connection lives, but what came is no use.
        Malformed,
        Oversized,
        OtherVersion,
        /// A message that only a workstation sends.
        Unexpected,
    };

    GatewaySocket();

    /// Connects; a connection that there was is dropped. The look-up of the host counts as part of the wait.
    /// Connected, TimeOut, Closed or Lost.
    [[nodiscard]] Event Connect(const GatewayAddress& address, int milliseconds);
    /// Drops the connection and ends the wait that is under way.
    void Close();

    [[nodiscard]] bool IsConnected() const;
    /// Hands bytes over for sending; nothing goes out on a lost connection.
    void Write(const QByteArray& bytes);
    /// Bytes were handed over that the network has not taken yet.
    [[nodiscard]] bool IsWriting() const { return m_socket.bytesToWrite() > 0; }
    /// Waits for the answer to an exchange; answers to others are dropped. What has come counts even when the
    /// time is over. `answer` stays as it was unless Answer.
    [[nodiscard]] Event ReadAnswer(qint32 exchange, const QDeadlineTimer& deadline,
                                   GatewayFrame::Frame& answer);

    /// Why the connection is lost.
    [[nodiscard]] QAbstractSocket::SocketError Error() const { return m_socket.error(); }
    [[nodiscard]] QString ErrorText() const { return m_socket.errorString(); }
    /// It was lost in the middle of a message.
    [[nodiscard]] bool HasHalfAFrame() const { return m_reader.HasRest(); }

private:
    /// Lets events run until the socket has news, the time is over or Close is called.
    void Wait(const QDeadlineTimer& deadline);
    /// Takes frames out of what has come; nothing when more has to come.
    [[nodiscard]] std::optional<Event> TakeAnswer(qint32 exchange, GatewayFrame::Frame& answer);

    QTcpSocket m_socket;
    FrameReader m_reader;
    /// Of the wait that is under way.
    QEventLoop* m_loop = nullptr;
    bool m_closed = false;
};
