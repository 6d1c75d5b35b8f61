#include "components/syncconn/GatewaySession.h"

#include "components/ByteText.h"
#include "platform/ComponentError.h"

#include <QScopedValueRollback>

#include <limits>

namespace Major = SyncFailure::Major;
namespace Minor = SyncFailure::Minor;

namespace {

const char* const GatewayVariable = "ZELKA_GATEWAY";
const QString DefaultHost = QStringLiteral("127.0.0.1");
/// Characters of a gateway's text that are shown.
constexpr qsizetype LargestText = 500;

QString TriesText(int tries)
{
    return tries == 1 ? QStringLiteral("tried once") : QStringLiteral("tried %1 times").arg(tries);
}

/// What a target leads to, for the operator: the address, else the last hop.
QString ElementText(const TargetReader& target)
{
    if (const TargetHop* node = target.LastHop(u"NET4")) {
        const QString address = node->Value(u"ADDR");
        if (!address.isEmpty())
            return QStringLiteral("ADDR ") + address;
    }
    return target.Hops().empty() ? QStringLiteral("the far end") : target.Hops().back().name;
}

/// A text of the gateway on one line, not too long for a message.
QString OneLine(const QString& text)
{
    QString line;
    for (const QChar character : text)
        line += character.category() == QChar::Other_Control ? QChar(u' ') : character;
    line = line.simplified();
    if (line.size() <= LargestText)
        return line;
    return line.left(line[LargestText - 1].isHighSurrogate() ? LargestText - 1 : LargestText) + QChar(0x2026);
}

} // namespace

void GatewaySession::Open(const QString& target)
{
    FailIfBusy();
    Close();
    if (!m_target.Read(target))
        Fail(Major::Target, Minor::BadTarget,
             QStringLiteral("The target cannot be used. %1.").arg(m_target.Mistake()));
    FindGateway();
    const QScopedValueRollback<bool> busy(m_busy, true);
    Connect();
    OpenPath(target);
    m_open = true;
}

QString GatewaySession::Send(const QString& target, const QString& request)
{
    FailIfBusy();
    if (!m_open)
        Fail(Major::Usage, Minor::NotOpen, QStringLiteral("The connection is not open."));
    TargetReader own;
    if (!own.Read(target))
        Fail(Major::Target, Minor::BadTarget,
             QStringLiteral("The target of the request cannot be used. %1.").arg(own.Mistake()));
    const std::optional<QByteArray> data = BytesOf(request);
    if (!data)
        Fail(Major::Usage, Minor::BadText, QStringLiteral("The request holds a character that is no byte."));

    const QScopedValueRollback<bool> busy(m_busy, true);
    GatewayFrame::Request body{target, 0, *data};
    const QByteArray reply = Exchange(own, body);
    const bool hex = (target.isEmpty() ? m_target : own).WantsHex();
    return ByteText(hex ? reply.toHex().toUpper() : reply);
}

void GatewaySession::Close()
{
    m_open = false;
    m_socket.Close();
}

void GatewaySession::FindGateway()
{
    if (m_target.HasGateway()) {
        m_gateway = {m_target.Host(), m_target.Port()};
        return;
    }
    const QString named = qEnvironmentVariable(GatewayVariable);
    if (named.isEmpty()) {
        m_gateway = {DefaultHost, TargetReader::DefaultPort};
        return;
    }
    const std::optional<GatewayAddress> address = GatewayAddress::FromText(named);
    if (!address)
        Fail(Major::Gateway, Minor::BadAddress,
             QStringLiteral("The environment variable %1 is \"%2\", but has to be host:port.")
                 .arg(QLatin1String(GatewayVariable), named));
    m_gateway = *address;
}

void GatewaySession::Connect()
{
    const int tries = m_target.Retries() + 1;
    for (int attempt = 0; attempt < tries; ++attempt) {
        switch (m_socket.Connect(m_gateway, m_target.TimeOut())) {
        case Event::Connected:
            return;
        case Event::TimeOut:
            break;
        case Event::Closed:
            FailByEvent(Event::Closed);
        default:
            FailLost();
        }
    }
    FailAndClose(Major::Gateway, Minor::ConnectTimeOut,
                 QStringLiteral("No connection to the gateway %1 within %2 ms, %3.")
                     .arg(m_gateway.Text(), QString::number(m_target.TimeOut()), TriesText(tries)));
}

void GatewaySession::OpenPath(const QString& target)
{
    const qint32 exchange = NextExchange();
    const QByteArray bytes = GatewayFrame::Encode({exchange, GatewayFrame::Open{target}});
    if (bytes.isEmpty())
        FailAndClose(Major::Target, Minor::BadTarget,
                     QStringLiteral("The target cannot be sent: it is too long or no valid text."));
    m_socket.Write(bytes);

    // The way is there, so nothing can get lost that a repeat would mend; the gateway has as much time as the
    // attempts of a request have together.
    const int milliseconds = m_target.TimeOut() * (m_target.Retries() + 1);
    GatewayFrame::Frame answer;
    const Event event = m_socket.ReadAnswer(exchange, QDeadlineTimer(milliseconds, Qt::PreciseTimer), answer);
    if (event == Event::TimeOut)
        FailAndClose(Major::Gateway, Minor::NoAnswer,
                     QStringLiteral("The gateway %1 took the connection, but did not answer within %2 ms.")
                         .arg(m_gateway.Text(), QString::number(milliseconds)));
    if (event != Event::Answer)
        FailByEvent(event);
    if (const auto* failure = std::get_if<GatewayFrame::Failure>(&answer.body)) {
        Close();
        FailRefused(*failure);
    }
    if (!std::holds_alternative<GatewayFrame::Opened>(answer.body))
        FailByEvent(Event::Unexpected);
}

QByteArray GatewaySession::Exchange(const TargetReader& own, GatewayFrame::Request& request)
{
    const int timeOut = own.TimeOut(m_target.TimeOut());
    const int tries = own.Retries(m_target.Retries()) + 1;
    const qint32 exchange = NextExchange();
    for (request.attempt = 0; request.attempt < tries; ++request.attempt) {
        const QByteArray bytes = GatewayFrame::Encode({exchange, request});
        if (bytes.isEmpty())
            Fail(Major::Usage, Minor::TooLong,
                 QStringLiteral("The request is too long or its target no valid text: %1 bytes of data.")
                     .arg(request.data.size()));
        // An attempt that the network has not taken yet needs no repeat.
        if (request.attempt == 0 || !m_socket.IsWriting())
            m_socket.Write(bytes);

        GatewayFrame::Frame answer;
        const Event event = m_socket.ReadAnswer(exchange, QDeadlineTimer(timeOut, Qt::PreciseTimer), answer);
        if (event == Event::TimeOut)
            continue;
        if (event != Event::Answer)
            FailByEvent(event);
        if (const auto* failure = std::get_if<GatewayFrame::Failure>(&answer.body))
            FailRefused(*failure);
        if (const auto* reply = std::get_if<GatewayFrame::Reply>(&answer.body))
            return reply->data;
        FailByEvent(Event::Unexpected);
    }
    const TargetReader& element = request.target.isEmpty() ? m_target : own;
    Fail(Major::Element, Minor::Silent,
         QStringLiteral("No answer from %1 within %2 ms, %3.")
             .arg(ElementText(element), QString::number(timeOut), TriesText(tries)));
}

qint32 GatewaySession::NextExchange()
{
    m_exchange = m_exchange == std::numeric_limits<qint32>::max() ? 1 : m_exchange + 1;
    return m_exchange;
}

void GatewaySession::FailIfBusy()
{
    if (m_busy)
        Fail(Major::Usage, Minor::Busy, QStringLiteral("The connection is busy with a request."));
}

void GatewaySession::Fail(qint32 major, qint32 minor, const QString& text)
{
    m_lastFailure = SyncFailure::Record{major, minor, text};
    throw ComponentError(SyncFailure::Raised, QStringLiteral("SyncConnection"), text);
}

void GatewaySession::FailAndClose(qint32 major, qint32 minor, const QString& text)
{
    Close();
    Fail(major, minor, text);
}

void GatewaySession::FailByEvent(Event event)
{
    const QString gateway = m_gateway.Text();
    switch (event) {
    case Event::Malformed:
        FailAndClose(Major::Protocol, Minor::MalformedFrame,
                     QStringLiteral("The gateway %1 sent something that is no message.").arg(gateway));
    case Event::Oversized:
        FailAndClose(Major::Protocol, Minor::OversizedFrame,
                     QStringLiteral("The gateway %1 announced a message of more than %2 bytes.")
                         .arg(gateway, QString::number(GatewayFrame::LargestFrame)));
    case Event::OtherVersion:
        FailAndClose(Major::Protocol, Minor::OtherVersion,
                     QStringLiteral("The gateway %1 speaks another version of the messages than %2.")
                         .arg(gateway, QString::number(GatewayFrame::Version)));
    case Event::Unexpected:
        FailAndClose(Major::Protocol, Minor::UnexpectedFrame,
                     QStringLiteral("The gateway %1 sent a message that answers nothing.").arg(gateway));
    case Event::Closed:
        FailAndClose(Major::Usage, Minor::Closed,
                     QStringLiteral("The connection was closed before the answer came."));
    default:
        FailLost();
    }
}

void GatewaySession::FailLost()
{
    const QString gateway = m_gateway.Text();
    switch (m_socket.Error()) {
    case QAbstractSocket::HostNotFoundError:
        FailAndClose(Major::Gateway, Minor::HostNotFound,
                     QStringLiteral("The host of the gateway %1 was not found.").arg(gateway));
    case QAbstractSocket::ConnectionRefusedError:
        FailAndClose(Major::Gateway, Minor::ConnectionRefused,
                     QStringLiteral("No gateway listens at %1: the connection was refused.").arg(gateway));
    case QAbstractSocket::RemoteHostClosedError:
        FailAndClose(Major::Gateway, Minor::ConnectionLost,
                     (m_socket.HasHalfAFrame()
                          ? QStringLiteral("The gateway %1 closed the connection in the middle of a message.")
                          : QStringLiteral("The gateway %1 closed the connection."))
                         .arg(gateway));
    default:
        FailAndClose(
            Major::Gateway, m_open ? Minor::ConnectionLost : Minor::OtherNetworkError,
            QStringLiteral("No connection to the gateway %1: %2.").arg(gateway, m_socket.ErrorText()));
    }
}

void GatewaySession::FailRefused(const GatewayFrame::Failure& failure)
{
    const QString text = OneLine(failure.text);
    Fail(failure.major, failure.minor,
         !text.isEmpty()
             ? text
             : QStringLiteral("The gateway %1 refused with the codes %2 and %3.")
                   .arg(m_gateway.Text(), QString::number(failure.major), QString::number(failure.minor)));
}
