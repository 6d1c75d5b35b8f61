#include "tools/netsim/WireFault.h"

#include "components/syncconn/GatewayFrame.h"

namespace {

/// The same frame with the next version number in it.
QByteArray OtherVersion(const QByteArray& frame)
{
    // The version is the first value behind the header of the sequence, in one byte.
    const QByteArray version = QByteArray::fromHex("0201") + static_cast<char>(GatewayFrame::Version);
    constexpr qsizetype shortestHeader = 2;
    QByteArray other = frame;
    const qsizetype at = other.indexOf(version, shortestHeader);
    if (at >= 0)
        other[at + version.size() - 1] = static_cast<char>(GatewayFrame::Version + 1);
    return other;
}

} // namespace

QStringList WireFaultNames()
{
    return {QStringLiteral("none"),    QStringLiteral("freeze"),  QStringLiteral("garbage"),
            QStringLiteral("trickle"), QStringLiteral("cut"),     QStringLiteral("oversize"),
            QStringLiteral("reset"),   QStringLiteral("version"), QStringLiteral("refuse")};
}

QString NameOf(WireFault::Kind kind)
{
    return WireFaultNames().at(static_cast<qsizetype>(kind));
}

std::optional<WireFault::Kind> WireFaultNamed(const QString& name)
{
    const qsizetype at = WireFaultNames().indexOf(name);
    return at < 0 ? std::nullopt : std::optional(static_cast<WireFault::Kind>(at));
}

QByteArray Disturbed(const QByteArray& frame, WireFault::Kind kind)
{
    switch (kind) {
    case WireFault::Kind::Garbage:
        return QByteArrayLiteral("\xFF\x00\x47garbage\x80\x80\x30\xFF");
    case WireFault::Kind::Cut:
        return frame.left(frame.size() / 2);
    case WireFault::Kind::Oversize:
        // A sequence of 2,147,483,647 bytes.
        return QByteArray::fromHex("30847FFFFFFF") + frame;
    case WireFault::Kind::Version:
        return OtherVersion(frame);
    case WireFault::Kind::Reset:
        return {};
    case WireFault::Kind::None:
    case WireFault::Kind::Freeze:
    case WireFault::Kind::Trickle:
    case WireFault::Kind::Refuse:
        return frame;
    }
    Q_UNREACHABLE();
}
