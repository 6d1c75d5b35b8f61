#include "components/syncconn/GatewaySocket.h"

#include <QEventLoop>
#include <QNetworkProxy>
#include <QTimer>

namespace {

/// Bytes that are kept when nobody reads them; a gateway that sends more has to wait.
constexpr qint64 ReadBuffer = 4 * GatewayFrame::LargestFrame;

bool IsAnswer(const GatewayFrame::Body& body)
{
    return !std::holds_alternative<GatewayFrame::Open>(body) &&
           !std::holds_alternative<GatewayFrame::Request>(body);
}

} // namespace

GatewaySocket::GatewaySocket()
{
    // A gateway belongs to the network of the workstation.
    m_socket.setProxy(QNetworkProxy::NoProxy);
    m_socket.setReadBufferSize(ReadBuffer);
}

GatewaySocket::Event GatewaySocket::Connect(const GatewayAddress& address, int milliseconds)
{
    m_socket.abort();
    m_reader.Clear();
    m_closed = false;
    const QDeadlineTimer deadline(milliseconds, Qt::PreciseTimer);
    m_socket.connectToHost(address.host, address.port);
    while (m_socket.state() == QAbstractSocket::HostLookupState ||
           m_socket.state() == QAbstractSocket::ConnectingState) {
        if (deadline.hasExpired()) {
            m_socket.abort();
            return Event::TimeOut;
        }
        Wait(deadline);
        if (m_closed)
            return Event::Closed;
    }
    if (!IsConnected())
        return m_socket.error() == QAbstractSocket::SocketTimeoutError ? Event::TimeOut : Event::Lost;
    // Each message is small and waits for its answer.
    m_socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    return Event::Connected;
}

void GatewaySocket::Close()
{
    m_closed = true;
    m_socket.abort();
    m_reader.Clear();
    if (m_loop)
        m_loop->quit();
}

bool GatewaySocket::IsConnected() const
{
    return m_socket.state() == QAbstractSocket::ConnectedState;
}

void GatewaySocket::Write(const QByteArray& bytes)
{
    if (IsConnected())
        m_socket.write(bytes);
}

GatewaySocket::Event GatewaySocket::ReadAnswer(qint32 exchange, const QDeadlineTimer& deadline,
                                               GatewayFrame::Frame& answer)
{
    bool lastLook = false;
    for (;;) {
        if (const auto event = TakeAnswer(exchange, answer))
            return *event;
        if (!IsConnected())
            return Event::Lost;
        // The thread may have been busy with other events until the time was over: the answer may be there
        // and not yet read.
        if (lastLook)
            return Event::TimeOut;
        lastLook = deadline.hasExpired();
        Wait(deadline);
        if (m_closed)
            return Event::Closed;
    }
}

void GatewaySocket::Wait(const QDeadlineTimer& deadline)
{
    QEventLoop loop;
    bool woken = false;
    const auto wake = [&] {
        woken = true;
        loop.quit();
    };
    QTimer timer;
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, &loop, wake);
    QObject::connect(&m_socket, &QTcpSocket::readyRead, &loop, wake);
    QObject::connect(&m_socket, &QTcpSocket::connected, &loop, wake);
    QObject::connect(&m_socket, &QTcpSocket::disconnected, &loop, wake);
    QObject::connect(&m_socket, &QTcpSocket::errorOccurred, &loop, wake);
    timer.start(static_cast<int>(deadline.remainingTime()));

    m_loop = &loop;
    (void)loop.exec();
    m_loop = nullptr;
    // Otherwise the program ends, which ends all loops.
    if (!woken)
        m_closed = true;
}

std::optional<GatewaySocket::Event> GatewaySocket::TakeAnswer(qint32 exchange, GatewayFrame::Frame& answer)
{
    m_reader.Append(m_socket.readAll());
    QByteArray bytes;
    for (;;) {
        switch (m_reader.Next(bytes)) {
        case FrameReader::Result::Incomplete:
            return std::nullopt;
        case FrameReader::Result::Malformed:
            return Event::Malformed;
        case FrameReader::Result::Oversized:
            return Event::Oversized;
        case FrameReader::Result::Frame:
            break;
        }
        GatewayFrame::Frame frame;
        const GatewayFrame::Decoding decoding = GatewayFrame::Decode(bytes, frame);
        if (decoding != GatewayFrame::Decoding::Done)
            return decoding == GatewayFrame::Decoding::Malformed ? Event::Malformed : Event::OtherVersion;
        if (!IsAnswer(frame.body))
            return Event::Unexpected;
        if (frame.exchange == exchange) {
            answer = std::move(frame);
            return Event::Answer;
        }
    }
}
