#pragma once

#include <QString>

#include <optional>

/// Where a message is to go: the hops of the opened target, followed by those of the request's target.
///
/// The bus is the last one that a BUST4, KD7 or VRL hop names, the address that of the last NET4 hop behind
/// it.
struct NetworkPath
{
    /// Without one the path ends at the gateway.
    std::optional<int> bus;
    std::optional<int> address;

    /// Leads the path on over the hops of a target. False: the target cannot be read, or a bus or address in
    /// it is no number that one can have; `mistake` tells it, and the path is of no use.
    [[nodiscard]] bool Follow(const QString& target, QString& mistake);

    bool operator==(const NetworkPath&) const = default;
};
