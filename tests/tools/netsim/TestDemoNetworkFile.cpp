#include "tools/netsim/NetworkFile.h"
#include "tools/netsim/NetworkPath.h"
#include "tools/zelka/DemoNetwork.h"

#include <QSet>
#include <QTest>

namespace {

/// How a bus of the demo network differs from the demo database.
struct Fit
{
    int bus;
    /// Nodes of the database that answer at their address with their name.
    int known;
    /// There, but silent.
    int silent;
    /// Answering with another name at their address.
    int renamed;
    /// Of this bus in the database, answering with their name at another place.
    int moved;
    /// On the bus, and neither address nor name is in the database.
    int unknown;
};
constexpr std::array<Fit, 3> Fits = {{
    {254, 25, 1, 3, 3, 44},
    {253, 23, 1, 2, 2, 36},
    {252, 19, 1, 2, 2, 36},
}};

NetworkDescription Demo()
{
    NetworkDescription network;
    QStringList problems;
    if (!ReadNetworkFile(DemoNetworkPath(), network, problems))
        qFatal("%s", qUtf8Printable(problems.join(u'\n')));
    return network;
}

struct DatabaseNodes
{
    /// Names by bus and address.
    std::map<int, std::map<int, QString>> places;
    QSet<QString> names;
};

DatabaseNodes NodesOfTheDatabase()
{
    const DemoNetwork database(QStringLiteral("manager"));
    QHash<QString, QString> targets;
    for (const ConnectionRecord& connection : database.connections)
        targets.insert(connection.name, connection.target);
    DatabaseNodes nodes;
    for (const NodeRecord& node : database.nodes) {
        const QString target = targets.value(node.conName);
        if (!target.startsWith(QStringLiteral("WP=BUST4")))
            continue;
        NetworkPath path;
        QString mistake;
        if (!path.Follow(target, mistake) || !path.Follow(node.target, mistake) || !path.address)
            continue;
        nodes.places[*path.bus][*path.address] = node.name;
        nodes.names.insert(node.name);
    }
    return nodes;
}

} // namespace

/// The built-in network beside the demo database.
class TestDemoNetworkFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Demo_EachBus_FitsTheDatabase_data();
    void Demo_EachBus_FitsTheDatabase();
    void Demo_Size_IsTold();
    void Demo_Oddities_AreAllThere();
    void Demo_Edges_AreTaken();
};

void TestDemoNetworkFile::Demo_EachBus_FitsTheDatabase_data()
{
    QTest::addColumn<int>("row");
    for (std::size_t i = 0; i < Fits.size(); ++i)
        QTest::addRow("bus %d", Fits[i].bus) << static_cast<int>(i);
}

void TestDemoNetworkFile::Demo_EachBus_FitsTheDatabase()
{
    QFETCH(int, row);
    const Fit& expected = Fits[static_cast<std::size_t>(row)];
    const NetworkDescription network = Demo();
    const DatabaseNodes database = NodesOfTheDatabase();
    const std::map<int, QString>& places = database.places.at(expected.bus);
    QSet<QString> everywhere;
    for (const auto& bus : network.buses) {
        for (const auto& node : bus.second)
            everywhere.insert(node.second.identification);
    }

    Fit found{expected.bus, 0, 0, 0, 0, 0};
    for (const auto& [address, node] : network.buses.at(expected.bus)) {
        const auto place = places.find(address);
        if (place == places.end())
            found.unknown += database.names.contains(node.identification) ? 0 : 1;
        else if (place->second != node.identification)
            ++found.renamed;
        else
            ++(node.behaviour.silent ? found.silent : found.known);
    }
    for (const auto& [address, name] : places) {
        if (network.buses.at(expected.bus).count(address) == 0)
            found.moved += everywhere.contains(name) ? 1 : 0;
    }

    QCOMPARE(found.known, expected.known);
    QCOMPARE(found.silent, expected.silent);
    QCOMPARE(found.renamed, expected.renamed);
    QCOMPARE(found.moved, expected.moved);
    QCOMPARE(found.unknown, expected.unknown);
    QCOMPARE(static_cast<int>(places.size()),
             expected.known + expected.silent + expected.renamed + expected.moved);
}

void TestDemoNetworkFile::Demo_Size_IsTold()
{
    const NetworkDescription network = Demo();

    std::size_t nodes = 0;
    for (const auto& bus : network.buses)
        nodes += bus.second.size();
    QCOMPARE(network.buses.size(), Fits.size());
    QCOMPARE(nodes, 200U);
}

void TestDemoNetworkFile::Demo_Oddities_AreAllThere()
{
    int slow = 0;
    int lossy = 0;
    int comeAndGo = 0;
    int withoutType = 0;
    const NetworkDescription network = Demo();
    for (const auto& bus : network.buses) {
        for (const auto& [address, node] : bus.second) {
            slow += node.behaviour.delayMs >= 700 ? 1 : 0;
            lossy += node.behaviour.loss > 0 ? 1 : 0;
            comeAndGo += node.presence == NodePresence() ? 0 : 1;
            withoutType += node.type ? 0 : 1;
        }
    }

    QCOMPARE(slow, 7);
    QCOMPARE(lossy, 7);
    QCOMPARE(comeAndGo, 7);
    QCOMPARE(withoutType, 2);
}

void TestDemoNetworkFile::Demo_Edges_AreTaken()
{
    const NetworkDescription network = Demo();

    QCOMPARE(network.buses.at(252).begin()->first, 0);
    QCOMPARE(network.buses.at(254).rbegin()->first, 4094);
}

QTEST_GUILESS_MAIN(TestDemoNetworkFile)
#include "TestDemoNetworkFile.moc"
