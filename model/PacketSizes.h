#pragma once

#include <QtGlobal>

#include <array>

/// Rows of a front end's waypoint that depend on each other.
inline constexpr int FeChannelRow = 2;
inline constexpr int FePacketSizeRow = 6;

/// The packet size that a front end's channel needs; 0 for a channel that may have any.
[[nodiscard]] inline int PacketSizeOfChannel(qint32 channel)
{
    constexpr std::array sizes{18, 32, 32, 64, 64, 128, 128, 256, 256, 512, 512, 768, 768, 1020, 1020, 1032};
    if (channel < 0 || channel >= static_cast<qint32>(sizes.size()))
        return 0;
    return sizes[static_cast<std::size_t>(channel)];
}
