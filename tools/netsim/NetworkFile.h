#pragma once

#include "tools/netsim/NetworkDescription.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <initializer_list>

/// Turns the JSON text of a network file into a network, and names every place that it cannot take.
///
/// Layout of the text, where only `number`, `nodes` and `address` are needed:
///   seed: whole number from 0
///   buses: number, defaults (all of a node but address and identification), nodes
///   nodes: address (0 to 4094), identification, type (null: it does not tell it), delayMs, jitterMs,
///     loss (0 to 1), silent, appearsAfterMs, vanishesAfterMs, repeatsEveryMs
/// Texts have 8-bit characters. A key that is unknown or given twice is a mistake.
class NetworkFile
{
public:
    NetworkFile(NetworkDescription& network, QStringList& problems) : m_network(network), m_problems(problems)
    {}

    /// Adds one line a mistake to the problems, such as "buses[1].nodes[3].address: must be …"; a text that
    /// is no JSON gives one with line and column. With any problem the network is of no use.
    void Read(const QByteArray& text);

private:
    void ReadRoot(const QJsonObject& root);
    void ReadBus(const QJsonObject& row, const QString& where);
    void ReadNode(const QJsonObject& row, const QString& where, NodeDescription node,
                  NetworkDescription::Bus& bus);
    void ReadProperties(const QJsonObject& row, const QString& where, NodeDescription& node);
    void ReadPresence(const QJsonObject& row, const QString& where, NodePresence& presence);

    void RefuseOtherKeys(const QJsonObject& row, const QString& where,
                         std::initializer_list<QStringView> keys);
    [[nodiscard]] QJsonArray Array(const QJsonObject& row, const QString& where, const QString& key);
    [[nodiscard]] bool IsObject(const QJsonValue& value, const QString& where);
    [[nodiscard]] QString Text(const QJsonValue& value, const QString& where);
    /// Leaves `number` as it is unless `row` has such a key with such a number; gives whether it has.
    bool TakeNumber(const QJsonObject& row, const QString& where, const QString& key, qint64 highest,
                    qint64& number);
    void TakeNumber(const QJsonObject& row, const QString& where, const QString& key, qint64 highest,
                    int& number);
    /// The same for one that must be there.
    bool NeedNumber(const QJsonObject& row, const QString& where, const QString& key, qint64 highest,
                    int& number);
    void Problem(const QString& where, const QString& text);

    NetworkDescription& m_network;
    QStringList& m_problems;
};

/// Path of the network that is built in; it fits the demo database.
[[nodiscard]] QString DemoNetworkPath();

/// Reads a file. False: `problems` has a line for each, which begins with the path.
[[nodiscard]] bool ReadNetworkFile(const QString& path, NetworkDescription& network, QStringList& problems);
