#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <limits>
#include <optional>

/// A disturbance of what a gateway sends.
struct WireFault
{
    enum class Kind
    {
        None,
        /// Reads nothing and sends nothing until the fault is taken away; then all that waits goes on.
        Freeze,
        /// Bytes that begin no frame instead of the frame.
        Garbage,
        /// The frame byte by byte.
        Trickle,
        /// Half of the frame, then the end of the connection.
        Cut,
        /// The beginning of a frame that is announced as far too long.
        Oversize,
        /// The connection is reset before the frame.
        Reset,
        /// The frame in a version that nobody knows.
        Version,
        /// No new connections, from now on, whatever `fromFrame` is; those that are open stay.
        Refuse,
    };
    static constexpr int Always = std::numeric_limits<int>::max();

    Kind kind = Kind::None;
    /// The first frame that is disturbed; 1: the next one that the gateway sends.
    int fromFrame = 1;
    /// So many frames are disturbed. Freeze and Refuse last until they are taken away.
    int count = Always;

    /// `frame`: position of a frame behind the setting of the fault, from 1.
    [[nodiscard]] bool Disturbs(qint64 frame) const
    {
        return kind != Kind::None && kind != Kind::Refuse && frame >= fromFrame && frame - fromFrame < count;
    }
};

/// The names of the kinds, in their order.
[[nodiscard]] QStringList WireFaultNames();
[[nodiscard]] QString NameOf(WireFault::Kind kind);
/// Nothing for a name that none has.
[[nodiscard]] std::optional<WireFault::Kind> WireFaultNamed(const QString& name);

/// The bytes that go out instead of a frame; those of the frame for the kinds that leave them alone.
[[nodiscard]] QByteArray Disturbed(const QByteArray& frame, WireFault::Kind kind);
