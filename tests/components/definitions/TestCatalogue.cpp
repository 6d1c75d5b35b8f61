#include "components/hvxdb/Catalogue.h"

#include <QtTest>

#include <algorithm>
#include <functional>

namespace {

using Change = std::function<void(Catalogue&)>;

/// The built-in catalogue, read once.
const Catalogue& BuiltIn()
{
    static const Catalogue catalogue = [] {
        Catalogue read;
        QStringList problems;
        if (!ReadCatalogue(BuiltInCatalogueFile(), read, problems))
            qFatal("%s", qPrintable(problems.join(u'\n')));
        return read;
    }();
    return catalogue;
}

/// A copy with one change.
Catalogue Changed(const Change& change)
{
    Catalogue catalogue = BuiltIn();
    change(catalogue);
    return catalogue;
}

WaypointDefinition& Waypoint(Catalogue& catalogue, const QString& name)
{
    return *std::find_if(catalogue.waypoints.begin(), catalogue.waypoints.end(),
                         [&name](const WaypointDefinition& waypoint) { return waypoint.name == name; });
}

TypeDefinition& Type(std::vector<TypeDefinition>& types, const QString& shortName)
{
    return *std::find_if(types.begin(), types.end(),
                         [&shortName](const TypeDefinition& type) { return type.shortName == shortName; });
}

ParameterDefinition& Parameter(Catalogue& catalogue, const QString& waypoint, const QString& keyword)
{
    std::vector<ParameterDefinition>& rows = Waypoint(catalogue, waypoint).parameters;
    return *std::find_if(rows.begin(), rows.end(),
                         [&keyword](const ParameterDefinition& row) { return row.keyword == keyword; });
}

/// Puts new parameters in front of the waypoint's own.
void AddParameters(Catalogue& catalogue, const QString& waypoint, int count)
{
    std::vector<ParameterDefinition>& rows = Waypoint(catalogue, waypoint).parameters;
    for (int i = 0; i < count; ++i) {
        ParameterDefinition parameter;
        parameter.keyword = QStringLiteral("X%1").arg(i);
        parameter.longName = QStringLiteral("EXTRA %1").arg(i);
        rows.insert(rows.begin(), parameter);
    }
}

/// A connection waypoint with `own` parameters, then TIME and RETRY.
void AddWaypoint(Catalogue& catalogue, const QString& name, int own)
{
    WaypointDefinition waypoint = Waypoint(catalogue, "DUNE");
    waypoint.name = name;
    waypoint.longName = name;
    waypoint.parameters.erase(waypoint.parameters.begin());
    catalogue.waypoints.push_back(waypoint);
    AddParameters(catalogue, name, own);
}

/// Puts a connection type in front of "Unknown".
void AddConType(Catalogue& catalogue, const QString& name, const std::vector<HopDefinition>& hops)
{
    catalogue.conTypes.insert(catalogue.conTypes.end() - 1, TypeDefinition{name, name, hops});
}

std::vector<HopDefinition> Hops(const QString& waypoint, int count)
{
    return std::vector<HopDefinition>(static_cast<size_t>(count), HopDefinition{waypoint, true});
}

/// Hops over new waypoints of at most nine parameters, that many in all.
std::vector<HopDefinition> HopsWithItems(Catalogue& catalogue, int hops, int parameters)
{
    constexpr int timing = 2;
    std::vector<HopDefinition> list;
    for (int left = hops; left > 0; --left) {
        const QString name = QStringLiteral("Y%1").arg(left);
        const int share = parameters / left;
        AddWaypoint(catalogue, name, share - timing);
        list.push_back({name, true});
        parameters -= share;
    }
    return list;
}

/// Adds connection types until there are that many.
void AddConTypes(Catalogue& catalogue, int count)
{
    for (int i = static_cast<int>(catalogue.conTypes.size()); i < count; ++i) {
        const QString name = QStringLiteral("Y%1").arg(i);
        AddWaypoint(catalogue, name, 0);
        AddConType(catalogue, name, {{name, true}});
    }
}

/// Adds node types until there are that many.
void AddNodeTypes(Catalogue& catalogue, int count)
{
    for (int i = static_cast<int>(catalogue.nodeTypes.size()); i < count; ++i) {
        const QString name = QStringLiteral("Y%1").arg(i);
        AddWaypoint(catalogue, name, 0);
        catalogue.nodeTypes.push_back({name, name, {{name, true}}});
    }
}

/// What is told of a type when one target could match it and the other one.
QString Alike(const QString& other)
{
    return QStringLiteral("a target could match its hops and those of ") + other;
}

} // namespace

class TestCatalogue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ReadCatalogue_BuiltIn_KeepsAllRules();
    void ReadCatalogue_BuiltIn_HasAllRows();
    void ReadCatalogue_BuiltIn_HasParameter_data();
    void ReadCatalogue_BuiltIn_HasParameter();
    void CheckCatalogue_BrokenRule_NamesRow_data();
    void CheckCatalogue_BrokenRule_NamesRow();
    void CheckCatalogue_AtTheLimit_Passes_data();
    void CheckCatalogue_AtTheLimit_Passes();
    void CheckCatalogue_SeveralBrokenRules_NamesEachRow();
    void CheckCatalogue_Empty_MissesUnknown();
};

void TestCatalogue::ReadCatalogue_BuiltIn_KeepsAllRules()
{
    Catalogue catalogue;
    QStringList problems{"left from before"};

    QVERIFY(ReadCatalogue(BuiltInCatalogueFile(), catalogue, problems));

    QCOMPARE(problems, QStringList());
    QCOMPARE(CheckCatalogue(catalogue), QStringList());
}

void TestCatalogue::ReadCatalogue_BuiltIn_HasAllRows()
{
    QStringList waypoints;
    for (const WaypointDefinition& waypoint : BuiltIn().waypoints)
        waypoints << waypoint.name + ' ' + QString::number(waypoint.parameters.size());

    QCOMPARE(waypoints, QStringList({"BUST4 4", "SOCKET 5", "KD7 4", "VRL 4", "DUNE 3", "COM 5", "MODEM 5",
                                     "X25 3", "ISDN 3", "LAN 3", "SNMP 3", "SNMPPRX 4", "OPT 3", "NET4 6",
                                     "FE 6", "NEMML 5", "SNMPNODE 5"}));
    QCOMPARE(BuiltIn().conTypes.size(), size_t(17));
    QCOMPARE(BuiltIn().nodeTypes.size(), size_t(3));
}

void TestCatalogue::ReadCatalogue_BuiltIn_HasParameter_data()
{
    QTest::addColumn<QString>("waypoint");
    QTest::addColumn<QString>("keyword");
    /// "long name; requirement; default; kind".
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* waypoint, const char* keyword, const char* expected) {
        QTest::addRow("%s %s", waypoint, keyword)
            << QString(waypoint) << QString(keyword) << QString(expected);
    };
    row("BUST4", "ID", "BUS NUMBER; 1; ; 0..999999");
    row("BUST4", "SPEED", "BUS SPEED; 0; 9600; 1200 2400 9600 19200 57600");
    row("BUST4", "TIME", "TIME OUT; 0; 2000; 0..30000");
    row("BUST4", "RETRY", "RETRY COUNT; 0; 2; 0..1000");
    row("SOCKET", "HOST", "HOST NAME; 2; ; text 64");
    row("SOCKET", "IP", "IP ADDRESS; 2; ; text 39");
    row("SOCKET", "PORT", "PORT NUMBER; 1; 4004; 0..65535");
    row("KD7", "BUSID", "BUS NUMBER; 1; ; 0..999999");
    row("KD7", "SLOT", "SLOT; 0; 0; 0..255");
    row("VRL", "BUS", "BUS NUMBER; 1; ; 0..999999");
    row("VRL", "HOP", "RADIO HOP; 0; 1; 1..64");
    row("DUNE", "UNIT", "UNIT; 1; ; 0..999");
    row("COM", "PORT", "COM PORT; 1; 1; 1..255");
    row("COM", "BAUD", "BAUD RATE; 0; 9600; 1200 2400 9600 19200 57600");
    row("COM", "PARITY", "PARITY; 0; EVEN; NONE EVEN ODD");
    row("MODEM", "PHONE", "PHONE NUMBER; 1; ; text 32");
    row("MODEM", "USER", "USER NAME; 0; ; text 32");
    row("MODEM", "PSW", "PASSWORD; 1; ; text 32");
    row("X25", "CALL", "CALL ADDRESS; 1; ; text 15");
    row("ISDN", "PHONE", "PHONE NUMBER; 1; ; text 32");
    row("LAN", "STATION", "STATION NAME; 1; ; text 64");
    row("SNMP", "VERSION", "VERSION; 0; 2c; 1 2c");
    row("SNMPPRX", "HOST", "HOST NAME; 1; ; text 64");
    row("SNMPPRX", "PORT", "PORT NUMBER; 0; 161; 0..65535");
    row("OPT", "PR", "PROTOCOL; 0; T4DT; T4DT T4DL");
    row("OPT", "DT", "DATA TYPE; 0; TEXT; TEXT UNIHEX");
    row("OPT", "VERIFY", "VERIFY; 0; YES; YES NO");
    row("NET4", "ADDR", "ADDRESS; 1; ; 0..4094");
    row("NET4", "SUB", "SUBADDRESS; 0; 0; 0..255");
    row("NET4", "PRIO", "PRIORITY; 0; NORMAL; LOW NORMAL HIGH");
    row("NET4", "CRC", "CHECKSUM; 0; ON; ON OFF");
    row("FE", "ID", "FE ID; 0; ; 0..255");
    row("FE", "CH", "FE CHANNEL; 0; 0; 0..255");
    row("FE", "MODE", "FE MODE; 0; AUTO; AUTO MASTER SLAVE");
    row("FE", "WIN", "WINDOW SIZE; 0; 2; 1..7");
    row("FE", "ACK", "ACK TIMER; 0; 100; 0..9999");
    row("FE", "PKT", "PACKET SIZE; 0; 18; 18 32 64 128 256 512 768 1020 1032");
    row("NEMML", "USER", "USER NAME; 1; ; text 32");
    row("NEMML", "PSW", "PASSWORD; 1; ; text 32");
    row("NEMML", "PATH", "PATH; 0; ; text 64");
    row("NEMML", "RETRY", "RETRY COUNT; 0; 2; 0..1000");
    row("SNMPNODE", "HOST", "HOST NAME; 1; ; text 64");
    row("SNMPNODE", "PORT", "PORT NUMBER; 0; 161; 0..65535");
    row("SNMPNODE", "COMMUNITY", "COMMUNITY; 0; public; text 32");
    row("SNMPNODE", "SECTION", "SECTION; 0; ; 0..255");
    row("SNMPNODE", "STATION", "STATION; 0; ; 0..255");
}

void TestCatalogue::ReadCatalogue_BuiltIn_HasParameter()
{
    QFETCH(QString, waypoint);
    QFETCH(QString, keyword);
    QFETCH(QString, expected);

    Catalogue catalogue = BuiltIn();
    const ParameterDefinition& parameter = Parameter(catalogue, waypoint, keyword);
    QString kind = QStringLiteral("free");
    if (parameter.kind == ParameterKind::Text)
        kind = QStringLiteral("text %1").arg(parameter.textLength);
    if (parameter.kind == ParameterKind::WholeNumber)
        kind = QStringLiteral("%1..%2").arg(parameter.low).arg(parameter.high);
    if (parameter.kind == ParameterKind::List)
        kind = parameter.values.join(u' ');
    QCOMPARE(QStringLiteral("%1; %2; %3; %4")
                 .arg(parameter.longName)
                 .arg(parameter.requirement)
                 .arg(parameter.defaultValue, kind),
             expected);
}

void TestCatalogue::CheckCatalogue_BrokenRule_NamesRow_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("problem");
    const auto row = [](const char* name, const QString& problem, const Change& change) {
        QTest::newRow(name) << change << problem;
    };
    // Rows of waypoints.
    row("keyword twice", "waypoint NET4, parameter sub: there are two of this keyword",
        [](Catalogue& c) { Parameter(c, "NET4", "PRIO").keyword = "sub"; });
    row("long name twice",
        "waypoint NET4, parameter PRIO: another parameter has the long name \"Subaddress\"",
        [](Catalogue& c) { Parameter(c, "NET4", "PRIO").longName = "Subaddress"; });
    row("eleven parameters", "waypoint SOCKET: 11 parameters, at most 10 are possible",
        [](Catalogue& c) { AddParameters(c, "SOCKET", 6); });
    row("ten parameters in a node's waypoint", "waypoint FE: 10 parameters, at most 9 are possible",
        [](Catalogue& c) { AddParameters(c, "FE", 4); });
    row("ten parameters in the options", "waypoint OPT: 10 parameters, at most 9 are possible",
        [](Catalogue& c) { AddParameters(c, "OPT", 7); });
    row("bar in the default", "waypoint NET4, parameter CRC: the default must not hold \"|\"",
        [](Catalogue& c) { Parameter(c, "NET4", "CRC").defaultValue = "A|B"; });
    row("negative lower bound", "waypoint NET4, parameter ADDR: a bound is negative",
        [](Catalogue& c) { Parameter(c, "NET4", "ADDR").low = -1; });
    row("list value with Default",
        "waypoint NET4, parameter CRC: the list value \"bydefault\" must not hold \"Default\"",
        [](Catalogue& c) { Parameter(c, "NET4", "CRC").values << "bydefault"; });
    row("no RETRY at the end", "waypoint BUST4: its last parameters must be TIME and RETRY",
        [](Catalogue& c) { Waypoint(c, "BUST4").parameters.pop_back(); });
    row("RETRY before TIME", "waypoint SNMP: its last parameters must be TIME and RETRY", [](Catalogue& c) {
        std::vector<ParameterDefinition>& rows = Waypoint(c, "SNMP").parameters;
        std::swap(rows[rows.size() - 1], rows[rows.size() - 2]);
    });
    row("no parameters at all", "waypoint LAN: its last parameters must be TIME and RETRY",
        [](Catalogue& c) { Waypoint(c, "LAN").parameters.clear(); });
    row("VERIFY not last", "waypoint OPT: its last parameter must be VERIFY", [](Catalogue& c) {
        std::vector<ParameterDefinition>& rows = Waypoint(c, "OPT").parameters;
        std::swap(rows[0], rows[2]);
    });
    row("options without rows", "waypoint OPT: its last parameter must be VERIFY",
        [](Catalogue& c) { Waypoint(c, "OPT").parameters.clear(); });

    row("exclusive group in a node's first waypoint",
        "node type NET4: its first waypoint NET4 has parameter SUB in an exclusive group",
        [](Catalogue& c) { Parameter(c, "NET4", "SUB").requirement = 2; });
    row("two waypoints of one name", "waypoint fe: there are two of this name", [](Catalogue& c) {
        c.waypoints.push_back(Waypoint(c, "FE"));
        c.waypoints.back().name = "fe";
    });

    // Types.
    row("eleven hops", "connection type X: 11 hops, at most 10 are possible", [](Catalogue& c) {
        AddWaypoint(c, "Y", 0);
        AddConType(c, "X", Hops("Y", 11));
    });
    row("eleven hops of a node", "node type X: 11 hops, at most 10 are possible", [](Catalogue& c) {
        AddWaypoint(c, "Y", 0);
        c.nodeTypes.push_back({"X", "X", Hops("Y", 11)});
    });
    row("100 items in a connection",
        "connection type X: hops x 3 + parameters x 2 is 100, at most 99 is possible",
        [](Catalogue& c) { AddConType(c, "X", HopsWithItems(c, 6, 41)); });
    row("100 items in a node", "node type X: hops x 3 + parameters x 2 is 100, at most 99 is possible",
        [](Catalogue& c) {
            c.nodeTypes.push_back({"X", "X", HopsWithItems(c, 6, 41)});
        });
    row("OPT before the end", "connection type X: OPT must be the last hop", [](Catalogue& c) {
        AddConType(c, "X", {{"OPT", true}, {"LAN", true}});
    });
    row("OPT twice", "connection type X: OPT must be the last hop", [](Catalogue& c) {
        AddWaypoint(c, "Y", 1);
        AddConType(c, "X", {{"Y", true}, {"OPT", true}, {"OPT", false}});
    });
    row("unknown waypoint", "connection type X: there is no waypoint \"Y\"", [](Catalogue& c) {
        AddConType(c, "X", {{"Y", true}});
    });
    row("unknown waypoint of a node", "node type X: there is no waypoint \"Y\"", [](Catalogue& c) {
        c.nodeTypes.push_back({"X", "X", {{"Y", true}}});
    });
    row("no hops", "connection type X: has no hops", [](Catalogue& c) { AddConType(c, "X", {}); });
    row("no hops of a node", "node type X: has no hops", [](Catalogue& c) {
        c.nodeTypes.push_back({"X", "X", {}});
    });
    row("short name twice", "connection type t4bus: there are two of this name", [](Catalogue& c) {
        AddConType(c, "t4bus", {{"SNMPPRX", true}});
    });
    row("long name twice in types", "connection type X: another type has the long name \"t4 BUS\"",
        [](Catalogue& c) {
            AddConType(c, "X", {{"SNMPPRX", true}});
            Type(c.conTypes, "X").longName = "t4 BUS";
        });
    row("node short name twice", "node type net4: there are two of this name", [](Catalogue& c) {
        c.nodeTypes.push_back({"net4", "Other", {{"FE", true}}});
    });
    row("node long name twice", "node type X: another type has the long name \"T4 NODE\"", [](Catalogue& c) {
        c.nodeTypes.push_back({"X", "T4 NODE", {{"FE", true}}});
    });
    row("SNMP in a node's long name", "node type NEMML: its long name must not hold \"SNMP\"",
        [](Catalogue& c) { Type(c.nodeTypes, "NEMML").longName = "Element with Snmp"; });
    row("101 types", "connection types: 101, at most 100 are possible",
        [](Catalogue& c) { AddConTypes(c, 101); });
    row("101 node types", "node types: 101, at most 100 are possible",
        [](Catalogue& c) { AddNodeTypes(c, 101); });
    row("Unknown not last", "connection types: the last one must be \"Unknown\"", [](Catalogue& c) {
        std::swap(c.conTypes[c.conTypes.size() - 1], c.conTypes[c.conTypes.size() - 2]);
    });
    row("no Unknown", "connection types: the last one must be \"Unknown\"",
        [](Catalogue& c) { c.conTypes.pop_back(); });
    row("Unknown under another long name",
        "connection types: \"Unknown\" must have this short name and this long name",
        [](Catalogue& c) { c.conTypes.back().longName = "Other"; });
    row("Unknown with hops", "connection type Unknown: must have no hops", [](Catalogue& c) {
        c.conTypes.back().hops = {{"SNMPPRX", true}};
    });

    // Types that one target could match.
    row("the same hops", "connection type X: " + Alike("connection type SNMP"), [](Catalogue& c) {
        AddConType(c, "X", {{"snmp", false}});
    });
    row("optional hop missing", "connection type X: " + Alike("connection type LAN"), [](Catalogue& c) {
        AddConType(c, "X", {{"LAN", true}});
    });
    row("optional hop more", "connection type X: " + Alike("connection type SNMP"), [](Catalogue& c) {
        AddConType(c, "X", {{"SNMP", true}, {"OPT", false}});
    });
    row("different optional hops", "connection type X: " + Alike("connection type LAN"), [](Catalogue& c) {
        AddConType(c, "X", {{"LAN", true}, {"SNMP", false}});
    });
    row("optional hops that go on differently", "connection type X: " + Alike("connection type LAN"),
        [](Catalogue& c) {
            AddConType(c, "X", {{"LAN", false}, {"OPT", false}});
        });
    row("mandatory where the other is optional", "connection type X: " + Alike("connection type LAN"),
        [](Catalogue& c) {
            AddConType(c, "X", {{"LAN", true}, {"OPT", true}});
        });
    row("node types with the same first hop", "node type X: " + Alike("node type NEMML"), [](Catalogue& c) {
        c.nodeTypes.push_back({"X", "X", {{"nemml", true}, {"FE", true}}});
    });

    // Texts that could not stand in a target or in a list.
    row("waypoint without a name", "waypoint : the name is empty", [](Catalogue& c) {
        AddWaypoint(c, "", 0);
        c.waypoints.back().longName = "Y";
    });
    row("waypoint without a long name", "waypoint FE: the long name is empty",
        [](Catalogue& c) { Waypoint(c, "FE").longName = " "; });
    row("comma in a name", "waypoint A,B: the name holds \",\" or \"=\"",
        [](Catalogue& c) { AddWaypoint(c, "A,B", 0); });
    row("equals in a keyword", "waypoint FE, parameter C=H: the keyword holds \",\" or \"=\"",
        [](Catalogue& c) { Parameter(c, "FE", "CH").keyword = "C=H"; });
    row("empty keyword", "waypoint FE, parameter : the keyword is empty",
        [](Catalogue& c) { Parameter(c, "FE", "CH").keyword.clear(); });
    row("keyword WP", "waypoint FE, parameter wp: the keyword WP begins a hop",
        [](Catalogue& c) { Parameter(c, "FE", "CH").keyword = "wp"; });
    row("tab in a long name",
        "waypoint FE, parameter CH: the long name holds blanks at its ends or control characters",
        [](Catalogue& c) { Parameter(c, "FE", "CH").longName = "FE\tCHANNEL"; });
    row("blank behind a short name",
        "connection type LAN : the short name holds blanks at its ends or control characters",
        [](Catalogue& c) { Type(c.conTypes, "LAN").shortName = "LAN "; });
    row("empty long name of a type", "node type NEMML: the long name is empty",
        [](Catalogue& c) { Type(c.nodeTypes, "NEMML").longName.clear(); });
    row("comma in a default", "waypoint FE, parameter CH: the default holds \",\" or control characters",
        [](Catalogue& c) { Parameter(c, "FE", "CH").defaultValue = "1,2"; });
    row("comma in a list value",
        "waypoint NET4, parameter CRC: a list value holds \",\" or control characters",
        [](Catalogue& c) { Parameter(c, "NET4", "CRC").values << "A,B"; });
    row("empty list value", "waypoint NET4, parameter CRC: a list value is empty",
        [](Catalogue& c) { Parameter(c, "NET4", "CRC").values << ""; });
    row("empty list", "waypoint NET4, parameter CRC: the list has no values",
        [](Catalogue& c) { Parameter(c, "NET4", "CRC").values.clear(); });
    row("text of no length", "waypoint LAN, parameter STATION: the length of the text must be 1 or more",
        [](Catalogue& c) { Parameter(c, "LAN", "STATION").textLength = 0; });
    row("bounds the wrong way round", "waypoint FE, parameter WIN: the lower bound is above the upper bound",
        [](Catalogue& c) { Parameter(c, "FE", "WIN").high = 0; });
    row("requirement of two digits", "waypoint FE, parameter WIN: the requirement must be one digit",
        [](Catalogue& c) { Parameter(c, "FE", "WIN").requirement = 10; });
    row("negative requirement", "waypoint FE, parameter WIN: the requirement must be one digit",
        [](Catalogue& c) { Parameter(c, "FE", "WIN").requirement = -1; });
}

void TestCatalogue::CheckCatalogue_BrokenRule_NamesRow()
{
    QFETCH(Change, change);
    QFETCH(QString, problem);

    QCOMPARE(CheckCatalogue(Changed(change)), QStringList(problem));
}

void TestCatalogue::CheckCatalogue_AtTheLimit_Passes_data()
{
    QTest::addColumn<Change>("change");
    const auto row = [](const char* name, const Change& change) { QTest::newRow(name) << change; };
    row("ten parameters", [](Catalogue& c) { AddParameters(c, "SOCKET", 5); });
    row("nine parameters in a node's waypoint", [](Catalogue& c) { AddParameters(c, "FE", 3); });
    row("ten hops", [](Catalogue& c) {
        AddWaypoint(c, "Y", 0);
        AddConType(c, "X", Hops("Y", 10));
    });
    row("99 items in a connection", [](Catalogue& c) { AddConType(c, "X", HopsWithItems(c, 5, 42)); });
    row("99 items in a node", [](Catalogue& c) {
        c.nodeTypes.push_back({"X", "X", HopsWithItems(c, 5, 42)});
    });
    row("bounds of one value", [](Catalogue& c) { Parameter(c, "FE", "WIN").low = 7; });
    row("bounds at nothing",
        [](Catalogue& c) { Parameter(c, "FE", "WIN").high = Parameter(c, "FE", "WIN").low = 0; });
    row("100 types", [](Catalogue& c) { AddConTypes(c, 100); });
    row("100 node types", [](Catalogue& c) { AddNodeTypes(c, 100); });
    row("the same rows in two waypoints",
        [](Catalogue& c) { Waypoint(c, "KD7").parameters = Waypoint(c, "BUST4").parameters; });
    row("exclusive group in a node's second waypoint",
        [](Catalogue& c) { Parameter(c, "FE", "CH").requirement = 2; });
    row("SNMP in the long name of an SNMP node type", [](Catalogue& c) {
        c.nodeTypes.push_back({"mysnmp", "My SNMP", {{"SNMP", true}}});
    });
    row("Default in a default", [](Catalogue& c) { Parameter(c, "NEMML", "PATH").defaultValue = "Default"; });
    row("node's OPT before the end",
        [](Catalogue& c) { Type(c.nodeTypes, "NET4").hops[2].mandatory = true; });
    row("node's waypoint without TIME", [](Catalogue& c) { Waypoint(c, "NET4").parameters.resize(1); });
    row("shorter list that the longer one cannot be cut to", [](Catalogue& c) {
        AddConType(c, "X", {{"SNMPPRX", true}});
    });
    row("longer list behind a mandatory hop", [](Catalogue& c) {
        AddConType(c, "X", {{"LAN", true}, {"SNMP", true}, {"OPT", false}});
    });
    row("no optional hop in common", [](Catalogue& c) {
        AddConType(c, "X", {{"SNMPPRX", true}, {"LAN", true}, {"SNMP", false}});
    });
    row("free parameter without a default", [](Catalogue& c) { AddParameters(c, "FE", 1); });
    row("largest requirement", [](Catalogue& c) { Parameter(c, "FE", "CH").requirement = 9; });
    row("no node types", [](Catalogue& c) { c.nodeTypes.clear(); });
    row("unused waypoint", [](Catalogue& c) {
        AddWaypoint(c, "Y", 0);
        Waypoint(c, "Y").parameters.clear();
    });
}

void TestCatalogue::CheckCatalogue_AtTheLimit_Passes()
{
    QFETCH(Change, change);

    QCOMPARE(CheckCatalogue(Changed(change)), QStringList());
}

void TestCatalogue::CheckCatalogue_SeveralBrokenRules_NamesEachRow()
{
    Catalogue catalogue = BuiltIn();
    Parameter(catalogue, "NET4", "ADDR").low = -5;
    Parameter(catalogue, "FE", "WIN").requirement = 12;
    Type(catalogue.conTypes, "LAN").hops.clear();

    QCOMPARE(
        CheckCatalogue(catalogue),
        QStringList({"connection type LAN: has no hops", "waypoint NET4, parameter ADDR: a bound is negative",
                     "waypoint FE, parameter WIN: the requirement must be one digit"}));
}

void TestCatalogue::CheckCatalogue_Empty_MissesUnknown()
{
    QCOMPARE(CheckCatalogue(Catalogue()), QStringList("connection types: the last one must be \"Unknown\""));
}

QTEST_GUILESS_MAIN(TestCatalogue)
#include "TestCatalogue.moc"
