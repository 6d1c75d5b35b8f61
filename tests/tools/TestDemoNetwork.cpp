#include "components/hvxdb/Definitions.h"
#include "tools/zelka/DemoNetwork.h"
#include "tools/zelka/RuleNetwork.h"

#include <QSet>
#include <QTest>

#include <algorithm>

namespace {

const Definitions& BuiltInDefinitions()
{
    static const Definitions definitions = [] {
        Catalogue catalogue;
        QStringList problems;
        if (!ReadCatalogue(BuiltInCatalogueFile(), catalogue, problems))
            qFatal("%s", qUtf8Printable(problems.join(u'\n')));
        return Definitions(catalogue);
    }();
    return definitions;
}

QString TypeName(const QString& analysis)
{
    return analysis.section(u'\t', 1);
}

struct Hop
{
    QString waypoint;
    QHash<QString, QString> values;
};

std::vector<Hop> HopsOf(const QString& target)
{
    std::vector<Hop> hops;
    const QStringList items = target.split(u',');
    for (const QString& item : items) {
        const QString keyword = item.section(u'=', 0, 0);
        const QString value = item.section(u'=', 1);
        if (keyword == QLatin1StringView("WP"))
            hops.push_back({value, {}});
        else
            hops.back().values.insert(keyword, value);
    }
    return hops;
}

bool IsInBounds(const ParameterDefinition& parameter, const QString& value)
{
    switch (parameter.kind) {
    case ParameterKind::WholeNumber: {
        bool isNumber = false;
        const int number = value.toInt(&isNumber);
        return isNumber && number >= parameter.low && number <= parameter.high;
    }
    case ParameterKind::List:
        return parameter.values.contains(value);
    case ParameterKind::Text:
        return value.size() <= parameter.textLength;
    case ParameterKind::Free:
        return true;
    }
    return false;
}

/// What is wrong with the values of a target; empty when nothing is.
QStringList ValueProblems(const QString& target)
{
    QStringList problems;
    for (const Hop& hop : HopsOf(target)) {
        const auto& waypoints = BuiltInDefinitions().Data().waypoints;
        const auto waypoint =
            std::find_if(waypoints.begin(), waypoints.end(),
                         [&hop](const WaypointDefinition& w) { return w.name == hop.waypoint; });
        if (waypoint == waypoints.end()) {
            problems << hop.waypoint;
            continue;
        }
        QHash<int, int> valuesOfGroup;
        qsizetype known = 0;
        for (const ParameterDefinition& parameter : waypoint->parameters) {
            const bool given = hop.values.contains(parameter.keyword);
            known += given ? 1 : 0;
            if (parameter.requirement > 0)
                valuesOfGroup[parameter.requirement == 1 ? -static_cast<int>(valuesOfGroup.size()) - 1
                                                         : parameter.requirement] += given ? 1 : 0;
            if (given && !IsInBounds(parameter, hop.values.value(parameter.keyword)))
                problems << parameter.keyword;
        }
        if (known != hop.values.size())
            problems << hop.waypoint + QStringLiteral(" has unknown parameters");
        for (const int count : std::as_const(valuesOfGroup)) {
            if (count != 1)
                problems << hop.waypoint + QStringLiteral(" misses a value");
        }
    }
    return problems;
}

} // namespace

class TestDemoNetwork : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Demo_Counts_AreTold();
    void Demo_MadeTwice_IsTheSame();
    void Demo_Names_AreUniqueAndUsable();
    void Demo_Targets_AreAsStored();
    void Demo_ConnectionTypes_AllOfferedAndOthersAreThere();
    void Demo_NodeTypes_AreAllThere();
    void Demo_Nodes_HaveConnectionsAndDifferByTarget();
    void Demo_Managers_AreUsedByManyNodes();
    void SetManagerIndex_OneDevice_GoesToItsNodes();
    void Rule_NamesAndTargets_AreUniqueAndUsable();
    void Rule_NodesBeyondTheAddresses_GetSubaddresses();
};

void TestDemoNetwork::Demo_Counts_AreTold()
{
    const DemoNetwork demo("manager");

    QCOMPARE(static_cast<qint64>(demo.connections.size()), DemoNetwork::ConnectionCount);
    QCOMPARE(static_cast<qint64>(demo.nodes.size()), DemoNetwork::NodeCount);
    QCOMPARE(demo.managers.size(), 3U);
}

void TestDemoNetwork::Demo_MadeTwice_IsTheSame()
{
    const DemoNetwork first("manager");
    const DemoNetwork second("manager");

    const auto sameConnection = [](const ConnectionRecord& a, const ConnectionRecord& b) {
        return a.name == b.name && a.target == b.target;
    };
    const auto sameNode = [](const NodeRecord& a, const NodeRecord& b) {
        return a.name == b.name && a.target == b.target && a.conName == b.conName &&
               a.nodeType == b.nodeType && a.commandTail == b.commandTail;
    };
    QVERIFY(std::equal(first.connections.begin(), first.connections.end(), second.connections.begin(),
                       second.connections.end(), sameConnection));
    QVERIFY(std::equal(first.nodes.begin(), first.nodes.end(), second.nodes.begin(), second.nodes.end(),
                       sameNode));
}

void TestDemoNetwork::Demo_Names_AreUniqueAndUsable()
{
    const DemoNetwork demo("manager");
    QSet<QString> names;
    bool beyondLatin = false;
    for (const ConnectionRecord& connection : demo.connections) {
        QVERIFY2(!connection.name.contains(u','), qUtf8Printable(connection.name));
        QCOMPARE(connection.name, connection.name.trimmed());
        names.insert(FoldedName(connection.name));
    }
    for (const NodeRecord& node : demo.nodes) {
        names.insert(FoldedName(node.name));
        beyondLatin = beyondLatin || node.name.front().unicode() > 0x24F;
    }
    QCOMPARE(names.size(), DemoNetwork::ConnectionCount + DemoNetwork::NodeCount);
    QVERIFY(names.contains(FoldedName("Harbour Tower radio 2")));
    QVERIFY(beyondLatin);
}

void TestDemoNetwork::Demo_Targets_AreAsStored()
{
    const DemoNetwork demo("manager");
    QStringList targets;
    for (const ConnectionRecord& connection : demo.connections)
        targets << connection.target;
    for (const NodeRecord& node : demo.nodes)
        targets << node.target;
    for (const QString& target : std::as_const(targets)) {
        QString reformatted;
        QVERIFY2(BuiltInDefinitions().CheckTarget(target, reformatted), qUtf8Printable(target));
        QCOMPARE(reformatted, target);
        QVERIFY2(ValueProblems(target).isEmpty(),
                 qUtf8Printable(target + u' ' + ValueProblems(target).join(u' ')));
    }
}

void TestDemoNetwork::Demo_ConnectionTypes_AllOfferedAndOthersAreThere()
{
    QSet<QString> types;
    for (const ConnectionRecord& connection : DemoNetwork("manager").connections) {
        const QString type = TypeName(BuiltInDefinitions().AnalyzeConType(connection.target));
        QVERIFY2(type != QLatin1StringView("Unknown"), qUtf8Printable(connection.name));
        types.insert(type);
    }
    for (const char* type : {"T4BUS", "T4TCP", "KD7", "DUNE", "SNMP", "VRL", "SIMPLE", "T4MODEM", "T4X25",
                             "T4ISDN", "LAN", "KD7TCP", "KD7MODEM", "KD7X25", "VRLTCP", "SNMPPRX"})
        QVERIFY2(types.contains(QLatin1StringView(type)), type);
}

void TestDemoNetwork::Demo_NodeTypes_AreAllThere()
{
    QHash<QString, int> types;
    for (const NodeRecord& node : DemoNetwork("manager").nodes)
        ++types[TypeName(BuiltInDefinitions().AnalyzeNodeType(node.target))];

    QCOMPARE(types.size(), 3);
    for (const int count : std::as_const(types))
        QVERIFY(count >= 60);
}

void TestDemoNetwork::Demo_Nodes_HaveConnectionsAndDifferByTarget()
{
    const DemoNetwork demo("manager");
    QSet<QString> connections;
    for (const ConnectionRecord& connection : demo.connections)
        connections.insert(connection.name);
    QSet<QString> usedConnections;
    QSet<QString> wholeTargets;
    for (const NodeRecord& node : demo.nodes) {
        QVERIFY(connections.contains(node.conName));
        usedConnections.insert(node.conName);
        wholeTargets.insert(node.conName + u'\n' + node.target);
    }
    QCOMPARE(usedConnections.size(), connections.size());
    QCOMPARE(wholeTargets.size(), DemoNetwork::NodeCount);
}

void TestDemoNetwork::Demo_Managers_AreUsedByManyNodes()
{
    const DemoNetwork demo("/opt/manager");
    QHash<QString, int> users;
    for (const NodeRecord& node : demo.nodes)
        ++users[node.nodeType];
    for (const ManagerRecord& manager : demo.managers) {
        QCOMPARE(manager.path, QStringLiteral("/opt/manager"));
        QVERIFY2(users.value(manager.device) >= 30, qUtf8Printable(manager.device));
    }
    QVERIFY(users.value(QString()) > 0);
    QCOMPARE(users.size(), 4);
}

void TestDemoNetwork::SetManagerIndex_OneDevice_GoesToItsNodes()
{
    DemoNetwork demo("manager");
    const QString device = demo.managers[1].device;

    demo.SetManagerIndex(device, "42");

    for (const NodeRecord& node : demo.nodes)
        QCOMPARE(node.managerIndex, node.nodeType == device ? QStringLiteral("42") : QString());
}

void TestDemoNetwork::Rule_NamesAndTargets_AreUniqueAndUsable()
{
    constexpr qint64 connections = 8;
    constexpr qint64 nodes = 2000;
    const RuleNetwork network(connections);
    QSet<QString> names;
    QSet<QString> wholeTargets;
    const auto check = [](const QString& target) {
        QString reformatted;
        return BuiltInDefinitions().CheckTarget(target, reformatted) && reformatted == target &&
               ValueProblems(target).isEmpty();
    };
    for (qint64 i = 0; i < connections; ++i) {
        const ConnectionRecord connection = network.Connection(i);
        names.insert(FoldedName(connection.name));
        QVERIFY2(check(connection.target), qUtf8Printable(connection.target));
    }
    for (qint64 i = 0; i < nodes; ++i) {
        const NodeRecord node = network.Node(i);
        QVERIFY(names.contains(FoldedName(node.conName)));
        QCOMPARE(node.name.size(), 12);
        wholeTargets.insert(node.conName + node.target);
        names.insert(FoldedName(node.name));
        QVERIFY2(check(node.target), qUtf8Printable(node.target));
    }
    QCOMPARE(names.size(), connections + nodes);
    QCOMPARE(wholeTargets.size(), nodes);
    QCOMPARE(network.Node(1233).name, QStringLiteral("Node 0001234"));
}

void TestDemoNetwork::Rule_NodesBeyondTheAddresses_GetSubaddresses()
{
    const RuleNetwork network(1);

    QCOMPARE(network.Node(4093).target, QStringLiteral("WP=NET4,ADDR=4094,WP=OPT,PR=T4DT"));
    QCOMPARE(network.Node(4094).target, QStringLiteral("WP=NET4,ADDR=1,SUB=1,WP=OPT,PR=T4DT"));
    const NodeRecord last = network.Node(RuleNetwork::MostNodes(1) - 1);
    QCOMPARE(last.target, QStringLiteral("WP=NET4,ADDR=4094,SUB=255,WP=OPT,PR=T4DT"));
    QVERIFY(ValueProblems(last.target).isEmpty());
}

QTEST_GUILESS_MAIN(TestDemoNetwork)
#include "TestDemoNetwork.moc"
