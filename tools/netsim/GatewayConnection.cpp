#include "tools/netsim/GatewayConnection.h"

#include "components/syncconn/SyncFailure.h"
#include "tools/netsim/FaultSchedule.h"
#include "tools/netsim/NetworkTexts.h"
#include "tools/netsim/SimulatedNetwork.h"
#include "tools/netsim/SocketReset.h"

#include <QHostAddress>

#include <algorithm>

namespace {

/// Characters of a refused target that are told back.
constexpr qsizetype LongestMistake = 200;

QString NameOf(const NetworkPath& path)
{
    const QString bus = path.bus ? QString::number(*path.bus) : QStringLiteral("gateway");
    return path.address ? QStringLiteral("%1/%2").arg(bus).arg(*path.address) : bus;
}

/// A request in the log.
QString Shown(const QByteArray& request)
{
    constexpr qsizetype longest = 40;
    return Printable(QString::fromLatin1(request.left(longest)));
}

} // namespace

GatewayConnection::GatewayConnection(QTcpSocket* socket, SimulatedNetwork& network, FaultSchedule& faults,
                                     std::function<qint64()> clock, QObject* parent)
    : QObject(parent),
      m_socket(socket),
      m_network(network),
      m_faults(faults),
      m_clock(std::move(clock)),
      m_name(QStringLiteral("%1:%2").arg(socket->peerAddress().toString()).arg(socket->peerPort()))
{
    m_socket->setParent(this);
    m_socket->setReadBufferSize(GatewayFrame::LargestFrame);
    m_socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    m_life.start();
    m_due.setSingleShot(true);
    m_due.setTimerType(Qt::PreciseTimer);
    connect(&m_due, &QTimer::timeout, this, &GatewayConnection::SendDue);
    connect(&m_nextByte, &QTimer::timeout, this, &GatewayConnection::SendNextByte);
    connect(m_socket, &QTcpSocket::readyRead, this, &GatewayConnection::Read);
    connect(m_socket, &QTcpSocket::disconnected, this, [this] {
        m_closing = true;
        m_nextByte.stop();
        Q_EMIT Noted(m_name + QStringLiteral(" has gone"), false);
        Q_EMIT Ended();
    });
}

void GatewayConnection::Resume()
{
    SendDue();
    Read();
}

void GatewayConnection::Read()
{
    while (!m_closing && !m_faults.IsFrozen()) {
        QByteArray frame;
        switch (m_reader.Next(frame)) {
        case FrameReader::Result::Frame:
            HandleBytes(frame);
            break;
        case FrameReader::Result::Incomplete:
            if (m_socket->bytesAvailable() == 0)
                return;
            m_reader.Append(m_socket->readAll());
            break;
        case FrameReader::Result::Malformed:
            return GiveUp(QStringLiteral("sent bytes that begin no frame"));
        case FrameReader::Result::Oversized:
            return GiveUp(QStringLiteral("announced a frame that is too long"));
        }
    }
}

void GatewayConnection::HandleBytes(const QByteArray& bytes)
{
    GatewayFrame::Frame frame;
    switch (GatewayFrame::Decode(bytes, frame)) {
    case GatewayFrame::Decoding::Malformed:
        return GiveUp(QStringLiteral("sent a malformed frame"));
    case GatewayFrame::Decoding::OtherVersion:
        return GiveUp(QStringLiteral("sent a frame of another version"));
    case GatewayFrame::Decoding::Done:
        break;
    }
    if (const auto* open = std::get_if<GatewayFrame::Open>(&frame.body))
        HandleOpen(frame.exchange, *open);
    else if (const auto* request = std::get_if<GatewayFrame::Request>(&frame.body))
        HandleRequest(frame.exchange, *request);
    else
        GiveUp(QStringLiteral("sent an answer"));
}

void GatewayConnection::HandleOpen(qint32 exchange, const GatewayFrame::Open& open)
{
    NetworkPath path;
    if (!FollowPath(exchange, open.target, path))
        return;
    m_path = path;
    Q_EMIT Noted(QStringLiteral("%1 opens %2").arg(m_name, NameOf(path)), true);
    Queue(exchange, GatewayFrame::Opened(), 0);
}

void GatewayConnection::HandleRequest(qint32 exchange, const GatewayFrame::Request& request)
{
    if (!m_path)
        return Refuse(exchange, SyncFailure::Minor::NotOpened, QStringLiteral("No path has been opened."));
    NetworkPath path = *m_path;
    if (!FollowPath(exchange, request.target, path))
        return;
    const SimulatedNetwork::Answer answer =
        m_network.AnswerTo(path, request.data, request.attempt, m_clock());
    const QString asked = QStringLiteral("%1 asks %2 \"%3\", attempt %4: ")
                              .arg(m_name, NameOf(path), Shown(request.data))
                              .arg(request.attempt);
    switch (answer.kind) {
    case SimulatedNetwork::Kind::Silence:
        Q_EMIT Noted(asked + QStringLiteral("silence"), true);
        break;
    case SimulatedNetwork::Kind::Reply:
        Q_EMIT Noted(asked + QStringLiteral("reply after %1 ms").arg(answer.delayMs), true);
        Queue(exchange, GatewayFrame::Reply{answer.data}, answer.delayMs);
        break;
    case SimulatedNetwork::Kind::NoSuchRequest:
        Refuse(exchange, SyncFailure::Minor::BadRequest, QStringLiteral("The gateway has no such request."));
        break;
    }
}

bool GatewayConnection::FollowPath(qint32 exchange, const QString& target, NetworkPath& path)
{
    QString mistake;
    if (!path.Follow(target, mistake)) {
        Refuse(exchange, SyncFailure::Minor::BadRequest,
               QStringLiteral("The target cannot be followed: %1.").arg(mistake.left(LongestMistake)));
        return false;
    }
    if (!m_network.CanReach(path)) {
        Refuse(exchange, SyncFailure::Minor::UnknownBus,
               QStringLiteral("Bus %1 is not served here.").arg(path.bus.value_or(0)));
        return false;
    }
    return true;
}

void GatewayConnection::Refuse(qint32 exchange, qint32 minor, const QString& text)
{
    Q_EMIT Noted(QStringLiteral("%1 is refused: %2").arg(m_name, text), true);
    Queue(exchange, GatewayFrame::Failure{SyncFailure::Major::Refused, minor, text}, 0);
}

void GatewayConnection::Queue(qint32 exchange, GatewayFrame::Body body, int delayMs)
{
    if (m_waiting.size() >= MostWaiting)
        return GiveUp(QStringLiteral("lets too many answers wait"));
    m_waiting.emplace(m_life.elapsed() + delayMs, GatewayFrame::Encode({exchange, std::move(body)}));
    SendDue();
}

void GatewayConnection::SendDue()
{
    // A frame that goes out byte by byte holds up those behind it; a frozen gateway all of them.
    while (!m_closing && m_trickle.isEmpty() && !m_faults.IsFrozen() && !m_waiting.empty()) {
        const auto first = m_waiting.begin();
        const qint64 wait = first->first - m_life.elapsed();
        if (wait > 0) {
            m_due.start(static_cast<int>(wait));
            return;
        }
        const WireFault::Kind fault = m_faults.TakeFrame();
        if (fault == WireFault::Kind::Freeze)
            return;
        const QByteArray frame = first->second;
        m_waiting.erase(first);
        Send(frame, fault);
    }
}

void GatewayConnection::Send(const QByteArray& frame, WireFault::Kind fault)
{
    if (fault != WireFault::Kind::None)
        Q_EMIT Noted(QStringLiteral("%1 gets the fault \"%2\"").arg(m_name, ::NameOf(fault)), true);
    switch (fault) {
    case WireFault::Kind::Trickle:
        m_trickle = frame;
        m_nextByte.start(0);
        return;
    case WireFault::Kind::Reset:
        m_closing = true;
        ResetSocket(*m_socket);
        return;
    case WireFault::Kind::Cut:
        m_closing = true;
        m_socket->write(Disturbed(frame, fault));
        m_socket->disconnectFromHost();
        return;
    default:
        m_socket->write(Disturbed(frame, fault));
        if (m_socket->bytesToWrite() > MostUnread)
            GiveUp(QStringLiteral("does not read its answers"));
    }
}

void GatewayConnection::SendNextByte()
{
    if (m_faults.IsFrozen() || m_closing)
        return m_nextByte.stop();
    m_socket->write(m_trickle.left(1));
    m_socket->flush();
    m_trickle.remove(0, 1);
    if (!m_trickle.isEmpty())
        return;
    m_nextByte.stop();
    SendDue();
}

void GatewayConnection::GiveUp(const QString& reason)
{
    m_closing = true;
    Q_EMIT Noted(QStringLiteral("%1 %2; its connection is closed").arg(m_name, reason), false);
    m_socket->abort();
}
