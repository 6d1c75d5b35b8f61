#include "tools/netsim/NetworkFile.h"

#include "platform/JsonText.h"
#include "tools/netsim/NetworkTexts.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonParseError>

#include <algorithm>
#include <limits>

namespace {

constexpr qint64 LongestTime = 1'000'000'000;
/// A file of all buses and addresses that an operator could want; more is a file of something else.
constexpr qint64 LargestFile = 64LL * 1024 * 1024;

QString Keyed(const QString& where, const QString& key)
{
    return where.isEmpty() ? key : where + u'.' + key;
}

QString Numbered(const QString& where, qsizetype position)
{
    return QStringLiteral("%1[%2]").arg(where).arg(position);
}

} // namespace

void NetworkFile::Read(const QByteArray& text)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError) {
        Problem(LineAndColumn(text, error.offset), error.errorString());
        return;
    }
    if (const DoubledKey doubled = FindDoubledKey(text); doubled.IsThere())
        Problem(LineAndColumn(text, doubled.offset),
                QStringLiteral("\"%1\" is given twice").arg(doubled.key));
    if (document.isObject())
        ReadRoot(document.object());
    else
        Problem(QStringLiteral("file"), QStringLiteral("must be an object"));
}

void NetworkFile::ReadRoot(const QJsonObject& root)
{
    RefuseOtherKeys(root, QString(), {u"seed", u"buses"});
    qint64 seed = m_network.seed;
    TakeNumber(root, QString(), QStringLiteral("seed"), std::numeric_limits<quint32>::max(), seed);
    m_network.seed = static_cast<quint32>(seed);
    const QString key = QStringLiteral("buses");
    const QJsonArray buses = Array(root, QString(), key);
    if (buses.size() > NetworkLimits::MostBuses)
        Problem(key, QStringLiteral("there can be %1 buses at most").arg(NetworkLimits::MostBuses));
    for (qsizetype i = 0; i < buses.size(); ++i) {
        const QString where = Numbered(key, i);
        if (IsObject(buses.at(i), where))
            ReadBus(buses.at(i).toObject(), where);
    }
}

void NetworkFile::ReadBus(const QJsonObject& row, const QString& where)
{
    RefuseOtherKeys(row, where, {u"number", u"defaults", u"nodes"});
    int number = 0;
    const bool isNumbered =
        NeedNumber(row, where, QStringLiteral("number"), NetworkLimits::HighestBus, number);
    if (isNumbered && m_network.buses.count(number) > 0)
        Problem(Keyed(where, QStringLiteral("number")),
                QStringLiteral("bus %1 is there already").arg(number));

    NodeDescription defaults;
    if (const QString key = QStringLiteral("defaults");
        row.contains(key) && IsObject(row.value(key), Keyed(where, key))) {
        const QJsonObject values = row.value(key).toObject();
        RefuseOtherKeys(values, Keyed(where, key),
                        {u"type", u"delayMs", u"jitterMs", u"loss", u"silent", u"appearsAfterMs",
                         u"vanishesAfterMs", u"repeatsEveryMs"});
        ReadProperties(values, Keyed(where, key), defaults);
    }
    const QString key = QStringLiteral("nodes");
    const QJsonArray nodes = Array(row, where, key);
    NetworkDescription::Bus bus;
    for (qsizetype i = 0; i < nodes.size(); ++i) {
        const QString place = Numbered(Keyed(where, key), i);
        if (IsObject(nodes.at(i), place))
            ReadNode(nodes.at(i).toObject(), place, defaults, bus);
    }
    if (isNumbered)
        m_network.buses.emplace(number, std::move(bus));
}

void NetworkFile::ReadNode(const QJsonObject& row, const QString& where, NodeDescription node,
                           NetworkDescription::Bus& bus)
{
    RefuseOtherKeys(row, where,
                    {u"address", u"identification", u"type", u"delayMs", u"jitterMs", u"loss", u"silent",
                     u"appearsAfterMs", u"vanishesAfterMs", u"repeatsEveryMs"});
    ReadProperties(row, where, node);
    int address = 0;
    if (!NeedNumber(row, where, QStringLiteral("address"), NetworkLimits::HighestAddress, address))
        return;
    if (!bus.emplace(address, std::move(node)).second)
        Problem(Keyed(where, QStringLiteral("address")),
                QStringLiteral("address %1 is there already").arg(address));
}

void NetworkFile::ReadProperties(const QJsonObject& row, const QString& where, NodeDescription& node)
{
    if (const QString key = QStringLiteral("identification"); row.contains(key))
        node.identification = Text(row.value(key), Keyed(where, key));
    if (const QString key = QStringLiteral("type"); row.value(key).isNull())
        node.type.reset();
    else if (row.contains(key))
        node.type = Text(row.value(key), Keyed(where, key));
    NodeBehaviour& behaviour = node.behaviour;
    TakeNumber(row, where, QStringLiteral("delayMs"), NetworkLimits::LongestDelay, behaviour.delayMs);
    TakeNumber(row, where, QStringLiteral("jitterMs"), NetworkLimits::LongestDelay, behaviour.jitterMs);
    if (const QString key = QStringLiteral("loss"); row.contains(key)) {
        behaviour.loss = row.value(key).toDouble(-1);
        if (!(behaviour.loss >= 0 && behaviour.loss <= 1))
            Problem(Keyed(where, key), QStringLiteral("must be a number from 0 to 1"));
    }
    if (const QString key = QStringLiteral("silent"); row.contains(key)) {
        behaviour.silent = row.value(key).toBool();
        if (!row.value(key).isBool())
            Problem(Keyed(where, key), QStringLiteral("must be true or false"));
    }
    ReadPresence(row, where, node.presence);
}

void NetworkFile::ReadPresence(const QJsonObject& row, const QString& where, NodePresence& presence)
{
    qint64 time = 0;
    if (TakeNumber(row, where, QStringLiteral("appearsAfterMs"), LongestTime, time))
        presence.appearsAfterMs = time;
    if (TakeNumber(row, where, QStringLiteral("vanishesAfterMs"), LongestTime, time))
        presence.vanishesAfterMs = time;
    TakeNumber(row, where, QStringLiteral("repeatsEveryMs"), LongestTime, presence.repeatsEveryMs);
    const auto& [appears, vanishes, repeats] = presence;
    if (appears && vanishes && *appears == *vanishes)
        Problem(Keyed(where, QStringLiteral("vanishesAfterMs")),
                QStringLiteral("must differ from appearsAfterMs"));
    if (repeats > 0 && (appears.value_or(0) >= repeats || vanishes.value_or(0) >= repeats))
        Problem(Keyed(where, QStringLiteral("repeatsEveryMs")),
                QStringLiteral("must be longer than appearsAfterMs and vanishesAfterMs"));
}

void NetworkFile::RefuseOtherKeys(const QJsonObject& row, const QString& where,
                                  std::initializer_list<QStringView> keys)
{
    const QStringList rowKeys = row.keys();
    for (const QString& key : rowKeys) {
        if (std::find(keys.begin(), keys.end(), key) == keys.end())
            Problem(Keyed(where, key), QStringLiteral("is not known here"));
    }
}

QJsonArray NetworkFile::Array(const QJsonObject& row, const QString& where, const QString& key)
{
    const QJsonValue value = row.value(key);
    if (value.isUndefined())
        Problem(Keyed(where, key), QStringLiteral("is missing"));
    else if (!value.isArray())
        Problem(Keyed(where, key), QStringLiteral("must be an array"));
    return value.toArray();
}

bool NetworkFile::IsObject(const QJsonValue& value, const QString& where)
{
    if (!value.isObject())
        Problem(where, QStringLiteral("must be an object"));
    return value.isObject();
}

QString NetworkFile::Text(const QJsonValue& value, const QString& where)
{
    const QString text = value.toString();
    if (!value.isString())
        Problem(where, QStringLiteral("must be a text"));
    else if (!IsEightBit(text))
        Problem(where, QStringLiteral("must have 8-bit characters only"));
    else if (text.size() > NetworkLimits::LongestText)
        Problem(where, QStringLiteral("can have %1 characters at most").arg(NetworkLimits::LongestText));
    return text;
}

bool NetworkFile::TakeNumber(const QJsonObject& row, const QString& where, const QString& key, qint64 highest,
                             qint64& number)
{
    const QJsonValue value = row.value(key);
    if (value.isUndefined())
        return false;
    const double given = value.toDouble(-1);
    if (!(given >= 0 && given <= static_cast<double>(highest)) ||
        given != static_cast<double>(static_cast<qint64>(given))) {
        Problem(Keyed(where, key), QStringLiteral("must be a whole number from 0 to %1").arg(highest));
        return false;
    }
    number = static_cast<qint64>(given);
    return true;
}

void NetworkFile::TakeNumber(const QJsonObject& row, const QString& where, const QString& key, qint64 highest,
                             int& number)
{
    qint64 taken = number;
    TakeNumber(row, where, key, highest, taken);
    number = static_cast<int>(taken);
}

bool NetworkFile::NeedNumber(const QJsonObject& row, const QString& where, const QString& key, qint64 highest,
                             int& number)
{
    qint64 taken = number;
    if (!row.contains(key))
        Problem(Keyed(where, key), QStringLiteral("is missing"));
    const bool isThere = TakeNumber(row, where, key, highest, taken);
    number = static_cast<int>(taken);
    return isThere;
}

void NetworkFile::Problem(const QString& where, const QString& text)
{
    m_problems << where + QStringLiteral(": ") + text;
}

// The linker would drop the resources of a static library.
static void InitializeNetworkResource()
{
    Q_INIT_RESOURCE(netsim);
}

QString DemoNetworkPath()
{
    InitializeNetworkResource();
    return QStringLiteral(":/zelka/netsim/demo.json");
}

bool ReadNetworkFile(const QString& path, NetworkDescription& network, QStringList& problems)
{
    QFile file(path);
    QStringList found;
    if (!file.open(QIODevice::ReadOnly))
        found << file.errorString();
    else if (file.size() > LargestFile)
        found << QStringLiteral("is too large for a network");
    else
        NetworkFile(network, found).Read(file.readAll());
    for (const QString& problem : std::as_const(found))
        problems << path + QStringLiteral(": ") + problem;
    return found.isEmpty();
}
