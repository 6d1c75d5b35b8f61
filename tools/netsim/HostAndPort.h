#pragma once

#include <QHostAddress>
#include <QString>

#include <optional>

/// Where a gateway listens.
struct HostAndPort
{
    QHostAddress host;
    quint16 port = 0;

    /// Reads "127.0.0.1:4004", "localhost:4004" or "[::1]:4004"; nothing when it is none of these.
    [[nodiscard]] static std::optional<HostAndPort> Read(const QString& text)
    {
        const qsizetype colon = text.lastIndexOf(u':');
        bool isNumber = false;
        const quint16 port = QStringView(text).mid(colon + 1).toUShort(&isNumber);
        QString host = text.left(std::max<qsizetype>(colon, 0));
        if (host.startsWith(u'[') && host.endsWith(u']'))
            host = host.mid(1, host.size() - 2);
        if (host == u"localhost")
            return isNumber ? std::optional(HostAndPort{QHostAddress::LocalHost, port}) : std::nullopt;
        QHostAddress address;
        if (!isNumber || !address.setAddress(host))
            return std::nullopt;
        return HostAndPort{address, port};
    }
    [[nodiscard]] QString Text() const
    {
        const QString name = host.toString();
        const QString shown = name.contains(u':') ? u'[' + name + u']' : name;
        return QStringLiteral("%1:%2").arg(shown).arg(port);
    }
};
