#pragma once

#include <QByteArray>
#include <QString>

#include <variant>

/// The messages between a workstation and a gateway, as gateway.asn defines them; docs/gateway.md tells what
/// they mean.
namespace GatewayFrame {

/// Version of the messages that this program writes and understands.
constexpr int Version = 1;
/// A frame with its header is never longer, in bytes.
constexpr int LargestFrame = 65'536;

/// Opens a path to a target; answered by Opened or Failure.
struct Open
{
    QString target;

    bool operator==(const Open&) const = default;
};
struct Opened
{
    bool operator==(const Opened&) const = default;
};
/// A request to what `target` names behind the open path; answered by Reply, Failure or, when the element is
/// silent, not at all. A repeat has the same exchange number and the next `attempt`, from 0.
struct Request
{
    QString target;
    qint32 attempt = 0;
    QByteArray data;

    bool operator==(const Request&) const = default;
};
struct Reply
{
    QByteArray data;

    bool operator==(const Reply&) const = default;
};
struct Failure
{
    qint32 major = 0;
    qint32 minor = 0;
    QString text;

    bool operator==(const Failure&) const = default;
};

using Body = std::variant<Open, Opened, Request, Reply, Failure>;

/// One message. The answer to a message repeats its exchange number.
struct Frame
{
    qint32 exchange = 0;
    Body body;

    bool operator==(const Frame&) const = default;
};

/// Gives the bytes of a frame; empty when it would be longer than LargestFrame or a field is out of range.
[[nodiscard]] QByteArray Encode(const Frame& frame);

enum class Decoding
{
    Done,
    /// No frame of this schema.
    Malformed,
    /// A frame of another version.
    OtherVersion,
};
/// Reads the bytes of exactly one frame; `frame` stays as it was unless Done.
[[nodiscard]] Decoding Decode(const QByteArray& bytes, Frame& frame);

} // namespace GatewayFrame
