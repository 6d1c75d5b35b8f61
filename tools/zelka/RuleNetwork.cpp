#include "tools/zelka/RuleNetwork.h"

namespace {

/// Addresses and subaddresses of one bus.
constexpr qint64 Addresses = 4094;
constexpr qint64 Subaddresses = 256;
constexpr qint64 BusNumbers = 1'000'000;

QString Numbered(const QString& word, qint64 position)
{
    return word + QString::number(position + 1).rightJustified(7, u'0');
}

QString ConnectionName(qint64 position)
{
    return Numbered(QStringLiteral("Line "), position);
}

QString HostAddress(qint64 position)
{
    return QStringLiteral("10.%1.%2.%3")
        .arg(position >> 16 & 255)
        .arg(position >> 8 & 255)
        .arg(position & 255);
}

} // namespace

RuleNetwork::RuleNetwork(qint64 connections) : m_connections(connections) {}

qint64 RuleNetwork::MostNodes(qint64 connections)
{
    return connections * Addresses * Subaddresses;
}

ConnectionRecord RuleNetwork::Connection(qint64 position) const
{
    const QString bus = QString::number(position % BusNumbers);
    QString target;
    switch (position % 4) {
    case 0:
        target = QStringLiteral("WP=BUST4,ID=%1,WP=OPT,PR=T4DT").arg(bus);
        break;
    case 1:
        target = QStringLiteral("WP=SOCKET,IP=%1,PORT=4004,WP=BUST4,ID=%2,WP=OPT,PR=T4DT")
                     .arg(HostAddress(position), bus);
        break;
    case 2:
        target = QStringLiteral("WP=KD7,BUSID=%1,WP=OPT,PR=T4DT").arg(bus);
        break;
    default:
        target = QStringLiteral("WP=VRL,BUS=%1,WP=OPT,PR=T4DT").arg(bus);
        break;
    }
    return {0, ConnectionName(position), target};
}

NodeRecord RuleNetwork::Node(qint64 position) const
{
    const qint64 place = position / m_connections;
    NodeRecord node;
    node.name = Numbered(QStringLiteral("Node "), position);
    node.conName = ConnectionName(position % m_connections);
    node.target = place < Addresses ? QStringLiteral("WP=NET4,ADDR=%1,WP=OPT,PR=T4DT").arg(place + 1)
                                    : QStringLiteral("WP=NET4,ADDR=%1,SUB=%2,WP=OPT,PR=T4DT")
                                          .arg(place % Addresses + 1)
                                          .arg(place / Addresses);
    return node;
}
