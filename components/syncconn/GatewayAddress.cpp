#include "components/syncconn/GatewayAddress.h"

#include <QRegularExpression>

std::optional<GatewayAddress> GatewayAddress::FromText(const QString& text)
{
    static const QRegularExpression form(
        QStringLiteral("\\A(?:\\[([0-9A-Fa-f:.]+(?:%[^\\s\\]]+)?)\\]|([^\\s:\\[\\]]+)):([0-9]{1,5})\\z"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    bool fits = false;
    const quint16 port = match.captured(3).toUShort(&fits);
    if (!fits || port == 0)
        return std::nullopt;
    return GatewayAddress{match.captured(1) + match.captured(2), port};
}

QString GatewayAddress::Text() const
{
    const QString shown = host.contains(u':') ? u'[' + host + u']' : host;
    return shown + u':' + QString::number(port);
}
