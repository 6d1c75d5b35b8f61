#pragma once

#include <QString>

#include <optional>

/// Where a gateway listens.
struct GatewayAddress
{
    QString host;
    quint16 port = 0;

    /// Reads "host:port"; an IPv6 address stands in brackets. Nothing for any other text.
    [[nodiscard]] static std::optional<GatewayAddress> FromText(const QString& text);
    /// The same text.
    [[nodiscard]] QString Text() const;
};
