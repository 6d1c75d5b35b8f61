#pragma once

#include <QString>

/// Codes that the connection component gives for its last failure, and the error number that it raises.
/// docs/gateway.md lists them with their texts.
namespace SyncFailure {

/// Number of the ComponentError that Open and Send raise.
constexpr quint32 Raised = 0x80040200;

/// Major codes: where it failed.
namespace Major {
/// The target itself.
constexpr qint32 Target = 1;
/// The way to the gateway.
constexpr qint32 Gateway = 2;
/// What the gateway answered.
constexpr qint32 Refused = 3;
/// The network element.
constexpr qint32 Element = 4;
/// What came over the wire is no message.
constexpr qint32 Protocol = 5;
/// The use of the component.
constexpr qint32 Usage = 6;
} // namespace Major

namespace Minor {
// Target
constexpr qint32 BadTarget = 1;
// Gateway
constexpr qint32 HostNotFound = 1;
constexpr qint32 ConnectionRefused = 2;
constexpr qint32 ConnectTimeOut = 3;
constexpr qint32 ConnectionLost = 4;
constexpr qint32 OtherNetworkError = 5;
/// The gateway took the connection and did not answer the opening.
constexpr qint32 NoAnswer = 6;
/// ZELKA_GATEWAY does not name a gateway.
constexpr qint32 BadAddress = 7;
// Refused: the gateway's own codes, of which these are agreed upon
constexpr qint32 UnknownBus = 1;
constexpr qint32 BadRequest = 2;
constexpr qint32 NotOpened = 3;
// Element
constexpr qint32 Silent = 1;
// Protocol
constexpr qint32 MalformedFrame = 1;
constexpr qint32 OversizedFrame = 2;
constexpr qint32 OtherVersion = 3;
constexpr qint32 UnexpectedFrame = 4;
// Usage
constexpr qint32 NotOpen = 1;
constexpr qint32 Busy = 2;
constexpr qint32 Closed = 3;
constexpr qint32 BadText = 4;
constexpr qint32 TooLong = 5;
} // namespace Minor

/// One failure, as GetLastError gives it.
struct Record
{
    qint32 major = 0;
    qint32 minor = 0;
    QString text;
};

} // namespace SyncFailure
