#include "components/hvxdb/Definitions.h"
#include "platform/ComponentError.h"
#include "platform/HvxDatabase.h"

#include <QtTest>

#include <functional>

namespace {

/// The built-in definitions, read once.
const Definitions& BuiltIn()
{
    static const Definitions definitions = [] {
        Catalogue catalogue;
        QStringList problems;
        if (!ReadCatalogue(BuiltInCatalogueFile(), catalogue, problems))
            qFatal("%s", qPrintable(problems.join(u'\n')));
        return Definitions(catalogue);
    }();
    return definitions;
}

/// An item list is written with "/" for its tabs.
QString Tabs(QString text)
{
    return text.replace(u'/', u'\t');
}

ParameterDefinition Row(const QString& keyword, const QString& longName,
                        const QString& defaultValue = QString())
{
    ParameterDefinition parameter;
    parameter.keyword = keyword;
    parameter.longName = longName;
    parameter.defaultValue = defaultValue;
    return parameter;
}

/// The number that a look-up raises; 0 when it raises nothing.
quint32 RaisedNumber(const std::function<void()>& lookUp)
{
    try {
        lookUp();
    } catch (const ComponentError& error) {
        return error.Number();
    }
    return 0;
}

QString RaisedText(const std::function<void()>& lookUp)
{
    try {
        lookUp();
    } catch (const ComponentError& error) {
        return error.Description();
    }
    return QStringLiteral("nothing raised");
}

const QString ConnectionTarget = QStringLiteral("WP=BUST4,ID=254,WP=NET4,ADDR=4094,WP=OPT,PR=T4DT");

} // namespace

class TestDefinitions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ConTypeList_BuiltIn_GivesShortNamesWithUnknownLast();
    void ConTypeLookUps_KnownType_GiveItsAnswers_data();
    void ConTypeLookUps_KnownType_GiveItsAnswers();
    void ConTypeWpList_EmptyName_TakesModeAsId_data();
    void ConTypeWpList_EmptyName_TakesModeAsId();
    void ConTypeWpList_NameGiven_IgnoresMode();
    void NodeTypeLookUps_KnownType_GiveItsAnswers_data();
    void NodeTypeLookUps_KnownType_GiveItsAnswers();
    void NodeTypeList_BuiltIn_GivesShortNames();
    void NodeTypeWpList_EmptyName_TakesModeAsId();
    void WpLookUps_BuiltIn_GiveParametersAndLongNames_data();
    void WpLookUps_BuiltIn_GiveParametersAndLongNames();
    void WpParameters_EveryWaypoint_HaveAsManyRowsAsLongNames();
    void WpParametersLongNames_EveryRow_HoldsDigitBarDefault();
    void LookUps_UnknownName_RaiseRefused_data();
    void LookUps_UnknownName_RaiseRefused();
    void LookUps_UnknownName_SayWhatIsMissing();
    void LookUps_NoDefinitions_RaiseRefused_data();
    void LookUps_NoDefinitions_RaiseRefused();
    void Targets_NoDefinitions_AreCheckedAndSplit();
    void Lists_EmptyCatalogue_AreEmpty();
    void Parameter_AnyCase_GivesDefinition();
    void Answers_SharedText_AreNotCopied();
    void AnalyzeConType_Target_GivesType_data();
    void AnalyzeConType_Target_GivesType();
    void AnalyzeConType_TwoTypesMatch_LowestIdWins();
    void AnalyzeConType_OptionalHopInTheMiddle_MustBeThere();
    void AnalyzeNodeType_Target_GivesType_data();
    void AnalyzeNodeType_Target_GivesType();
    void TargetItemList_Target_GivesPairs_data();
    void TargetItemList_Target_GivesPairs();
    void CheckTarget_Accepted_GivesCanonicalCase_data();
    void CheckTarget_Accepted_GivesCanonicalCase();
    void CheckTarget_Refused_GivesEmptyText_data();
    void CheckTarget_Refused_GivesEmptyText();
    void CheckTarget_CanonicalTarget_IsSharedWithTheAnswer();
    void CheckTarget_OneTextForBoth_GivesTheAnswer();
    void CheckTarget_CheckedTwice_GivesTheSame();
    void Lists_ControlCharacters_BecomeBlanks();
    void Lists_EmptyLastDefault_EndInNoTab();
    void LookUps_NonLatinNames_IgnoreCase();
    void Targets_AnyText_NeverRaise();
};

void TestDefinitions::ConTypeList_BuiltIn_GivesShortNamesWithUnknownLast()
{
    QCOMPARE(
        BuiltIn().ConTypeList(),
        Tabs("T4BUS/T4TCP/KD7/T4MODEM/T4X25/KD7TCP/VRL/SIMPLE/KD7MODEM/DUNE/VRLTCP/T4ISDN/KD7X25/LAN/SNMP/"
             "SNMPPRX/Unknown"));
}

void TestDefinitions::ConTypeLookUps_KnownType_GiveItsAnswers_data()
{
    QTest::addColumn<QString>("shortName");
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("longName");
    QTest::addColumn<QString>("waypoints");
    const auto row = [](const char* shortName, const char* id, const char* longName, const char* waypoints) {
        QTest::newRow(shortName) << QString(shortName) << QString(id) << QString(longName) << Tabs(waypoints);
    };
    row("T4BUS", "0", "T4 Bus", "BUST4/1/OPT/0");
    row("T4TCP", "1", "T4 Bus over TCP/IP", "SOCKET/1/BUST4/1/OPT/0");
    row("KD7", "2", "KD7 Mediation Bus", "KD7/1/OPT/0");
    row("T4MODEM", "3", "T4 Bus over Modem", "MODEM/1/BUST4/1/OPT/0");
    row("T4X25", "4", "T4 Bus over X.25", "X25/1/BUST4/1/OPT/0");
    row("KD7TCP", "5", "KD7 Mediation Bus over TCP/IP", "SOCKET/1/KD7/1/OPT/0");
    row("VRL", "6", "VRL Radio Link", "VRL/1/OPT/0");
    row("SIMPLE", "7", "Simple Serial", "COM/1/OPT/0");
    row("KD7MODEM", "8", "KD7 Mediation Bus over Modem", "MODEM/1/KD7/1/OPT/0");
    row("DUNE", "9", "DUNE Gateway", "SOCKET/1/DUNE/1/OPT/0");
    row("VRLTCP", "10", "VRL Radio Link over TCP/IP", "SOCKET/1/VRL/1/OPT/0");
    row("T4ISDN", "11", "T4 Bus over ISDN", "ISDN/1/BUST4/1/OPT/0");
    row("KD7X25", "12", "KD7 Mediation Bus over X.25", "X25/1/KD7/1/OPT/0");
    row("LAN", "13", "Local Area Network", "LAN/1/OPT/0");
    row("SNMP", "14", "SNMP Direct", "SNMP/1");
    row("SNMPPRX", "15", "SNMP Proxy", "SNMPPRX/1/SNMP/1");
    row("Unknown", "-1", "Unknown", "");
}

void TestDefinitions::ConTypeLookUps_KnownType_GiveItsAnswers()
{
    QFETCH(QString, shortName);
    QFETCH(QString, id);
    QFETCH(QString, longName);
    QFETCH(QString, waypoints);

    QCOMPARE(BuiltIn().ConTypeId(shortName), id);
    QCOMPARE(BuiltIn().ConTypeId(shortName.toLower()), id);
    QCOMPARE(BuiltIn().ConTypeLongName(shortName.toLower()), longName);
    QCOMPARE(BuiltIn().ConTypeShortName(longName), shortName);
    QCOMPARE(BuiltIn().ConTypeShortName(longName.toUpper()), shortName);
    QCOMPARE(BuiltIn().ConTypeWpList(shortName.toLower(), 0), waypoints);
    QCOMPARE(BuiltIn().ConTypeWpList(QString(), id.toInt()), waypoints);
}

void TestDefinitions::ConTypeWpList_EmptyName_TakesModeAsId_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("waypoints");
    QTest::newRow("first") << 0 << Tabs("BUST4/1/OPT/0");
    QTest::newRow("in the middle") << 9 << Tabs("SOCKET/1/DUNE/1/OPT/0");
    QTest::newRow("last with hops") << 15 << Tabs("SNMPPRX/1/SNMP/1");
    QTest::newRow("Unknown") << -1 << QString();
}

void TestDefinitions::ConTypeWpList_EmptyName_TakesModeAsId()
{
    QFETCH(int, mode);
    QFETCH(QString, waypoints);

    QCOMPARE(BuiltIn().ConTypeWpList(QString(), mode), waypoints);
    QCOMPARE(BuiltIn().ConTypeWpList(QStringLiteral(""), mode), waypoints);
}

void TestDefinitions::ConTypeWpList_NameGiven_IgnoresMode()
{
    QCOMPARE(BuiltIn().ConTypeWpList("SNMP", 0), Tabs("SNMP/1"));
    QCOMPARE(BuiltIn().ConTypeWpList("SNMP", 9999), Tabs("SNMP/1"));
    QCOMPARE(BuiltIn().NodeTypeWpList("NEMML", -5), Tabs("NEMML/1"));
}

void TestDefinitions::NodeTypeList_BuiltIn_GivesShortNames()
{
    QCOMPARE(BuiltIn().NodeTypeList(), Tabs("NET4/NEMML/SNMPNODE"));
}

void TestDefinitions::NodeTypeLookUps_KnownType_GiveItsAnswers_data()
{
    QTest::addColumn<QString>("shortName");
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("longName");
    QTest::addColumn<QString>("waypoints");
    const auto row = [](const char* shortName, const char* id, const char* longName, const char* waypoints) {
        QTest::newRow(shortName) << QString(shortName) << QString(id) << QString(longName) << Tabs(waypoints);
    };
    row("NET4", "0", "T4 Node", "NET4/1/OPT/1/FE/0");
    row("NEMML", "1", "MML Network Element", "NEMML/1");
    row("SNMPNODE", "2", "SNMP Node", "SNMPNODE/1");
}

void TestDefinitions::NodeTypeLookUps_KnownType_GiveItsAnswers()
{
    QFETCH(QString, shortName);
    QFETCH(QString, id);
    QFETCH(QString, longName);
    QFETCH(QString, waypoints);

    QCOMPARE(BuiltIn().NodeTypeId(shortName.toLower()), id);
    QCOMPARE(BuiltIn().NodeTypeLongName(shortName), longName);
    QCOMPARE(BuiltIn().NodeTypeLongName(shortName.toLower()), longName);
    QCOMPARE(BuiltIn().NodeTypeLongName(longName), longName);
    QCOMPARE(BuiltIn().NodeTypeLongName(longName.toUpper()), longName);
    QCOMPARE(BuiltIn().NodeTypeShortName(longName.toLower()), shortName);
    QCOMPARE(BuiltIn().NodeTypeWpList(shortName.toLower(), 7), waypoints);
    QCOMPARE(BuiltIn().NodeTypeWpList(QString(), id.toInt()), waypoints);
}

void TestDefinitions::NodeTypeWpList_EmptyName_TakesModeAsId()
{
    QCOMPARE(BuiltIn().NodeTypeWpList(QString(), 0), Tabs("NET4/1/OPT/1/FE/0"));
    QCOMPARE(BuiltIn().NodeTypeWpList(QString(), 2), Tabs("SNMPNODE/1"));
}

void TestDefinitions::WpLookUps_BuiltIn_GiveParametersAndLongNames_data()
{
    QTest::addColumn<QString>("waypoint");
    QTest::addColumn<QString>("longName");
    QTest::addColumn<QString>("parameters");
    QTest::addColumn<QString>("longNames");
    const auto row = [](const char* waypoint, const char* longName, const char* parameters,
                        const char* longNames) {
        QTest::newRow(waypoint) << QString(waypoint) << QString(longName) << Tabs(parameters)
                                << Tabs(longNames);
    };
    row("SOCKET", "TCP/IP Socket", "HOST//IP//PORT/4004/TIME/2000/RETRY/2",
        "HOST NAME/2|/IP ADDRESS/2|/PORT NUMBER/1|4004/TIME OUT/0|2000/RETRY COUNT/0|2");
    row("OPT", "Options", "PR/T4DT/DT/TEXT/VERIFY/YES", "PROTOCOL/0|T4DT/DATA TYPE/0|TEXT/VERIFY/0|YES");
    row("NET4", "T4 Network", "ADDR//SUB/0/PRIO/NORMAL/CRC/ON/TIME/2000/RETRY/2",
        "ADDRESS/1|/SUBADDRESS/0|0/PRIORITY/0|NORMAL/CHECKSUM/0|ON/TIME OUT/0|2000/RETRY COUNT/0|2");
    row("SNMPNODE", "SNMP Node Parameters", "HOST//PORT/161/COMMUNITY/public/SECTION//STATION",
        "HOST NAME/1|/PORT NUMBER/0|161/COMMUNITY/0|public/SECTION/0|/STATION/0|");
}

void TestDefinitions::WpLookUps_BuiltIn_GiveParametersAndLongNames()
{
    QFETCH(QString, waypoint);
    QFETCH(QString, longName);
    QFETCH(QString, parameters);
    QFETCH(QString, longNames);

    QCOMPARE(BuiltIn().WpLongName(waypoint.toLower()), longName);
    QCOMPARE(BuiltIn().WpParameters(waypoint.toLower()), parameters);
    QCOMPARE(BuiltIn().WpParametersLongNames(waypoint.toLower()), longNames);
}

void TestDefinitions::WpParameters_EveryWaypoint_HaveAsManyRowsAsLongNames()
{
    for (const WaypointDefinition& waypoint : BuiltIn().Data().waypoints) {
        const QString parameters = BuiltIn().WpParameters(waypoint.name);
        const QString longNames = BuiltIn().WpParametersLongNames(waypoint.name);
        QVERIFY2(!parameters.endsWith(u'\t') && !longNames.endsWith(u'\t'), qPrintable(waypoint.name));
        const qsizetype rows = static_cast<qsizetype>(waypoint.parameters.size());
        QCOMPARE((parameters.count(u'\t') + 2) / 2, rows);
        QCOMPARE((longNames.count(u'\t') + 2) / 2, rows);
    }
}

void TestDefinitions::WpParametersLongNames_EveryRow_HoldsDigitBarDefault()
{
    for (const WaypointDefinition& waypoint : BuiltIn().Data().waypoints) {
        const QStringList items = BuiltIn().WpParametersLongNames(waypoint.name).split(u'\t');
        for (size_t row = 0; row < waypoint.parameters.size(); ++row) {
            const ParameterDefinition& parameter = waypoint.parameters[row];
            const qsizetype item = static_cast<qsizetype>(row) * 2;
            QCOMPARE(items.at(item), parameter.longName);
            QCOMPARE(items.at(item + 1),
                     QString::number(parameter.requirement) + "|" + parameter.defaultValue);
        }
    }
}

void TestDefinitions::LookUps_UnknownName_RaiseRefused_data()
{
    QTest::addColumn<std::function<void()>>("lookUp");
    const auto row = [](const char* name, const std::function<void()>& lookUp) {
        QTest::newRow(name) << lookUp;
    };
    row("ConTypeId", [] { (void)BuiltIn().ConTypeId("T4"); });
    row("ConTypeId, empty", [] { (void)BuiltIn().ConTypeId(QString()); });
    row("ConTypeId, long name", [] { (void)BuiltIn().ConTypeId("T4 Bus"); });
    row("ConTypeId, blank behind", [] { (void)BuiltIn().ConTypeId("T4BUS "); });
    row("ConTypeLongName", [] { (void)BuiltIn().ConTypeLongName("T4"); });
    row("ConTypeShortName", [] { (void)BuiltIn().ConTypeShortName("T4BUS"); });
    row("ConTypeWpList, name", [] { (void)BuiltIn().ConTypeWpList("T4", 0); });
    row("ConTypeWpList, place of Unknown", [] { (void)BuiltIn().ConTypeWpList(QString(), 16); });
    row("ConTypeWpList, behind", [] { (void)BuiltIn().ConTypeWpList(QString(), 17); });
    row("ConTypeWpList, negative", [] { (void)BuiltIn().ConTypeWpList(QString(), -2); });
    row("NodeTypeId", [] { (void)BuiltIn().NodeTypeId("Unknown"); });
    row("NodeTypeLongName", [] { (void)BuiltIn().NodeTypeLongName("T4"); });
    row("NodeTypeShortName", [] { (void)BuiltIn().NodeTypeShortName("Unknown"); });
    row("NodeTypeWpList, name", [] { (void)BuiltIn().NodeTypeWpList("BUST4", 0); });
    row("NodeTypeWpList, behind", [] { (void)BuiltIn().NodeTypeWpList(QString(), 3); });
    row("NodeTypeWpList, negative", [] { (void)BuiltIn().NodeTypeWpList(QString(), -1); });
    row("WpLongName", [] { (void)BuiltIn().WpLongName("T4 Bus"); });
    row("WpLongName, TIME", [] { (void)BuiltIn().WpLongName("TIME"); });
    row("WpLongName, RETRY", [] { (void)BuiltIn().WpLongName("RETRY"); });
    row("WpParameters", [] { (void)BuiltIn().WpParameters("WP"); });
    row("WpParametersLongNames", [] { (void)BuiltIn().WpParametersLongNames(QString()); });
    row("Parameter, waypoint", [] { (void)BuiltIn().Parameter("NET5", "ADDR"); });
    row("Parameter, keyword", [] { (void)BuiltIn().Parameter("NET4", "ADDRESS"); });
}

void TestDefinitions::LookUps_UnknownName_RaiseRefused()
{
    QFETCH(std::function<void()>, lookUp);

    QCOMPARE(RaisedNumber(lookUp), DatabaseErrorNumber::Refused);
}

void TestDefinitions::LookUps_UnknownName_SayWhatIsMissing()
{
    QCOMPARE(RaisedText([] { (void)BuiltIn().ConTypeId("T4"); }), "There is no connection type \"T4\".");
    QCOMPARE(RaisedText([] { (void)BuiltIn().NodeTypeWpList("", 9); }), "There is no node type \"9\".");
    QCOMPARE(RaisedText([] { (void)BuiltIn().WpLongName("TIME"); }), "There is no waypoint \"TIME\".");
    QCOMPARE(RaisedText([] { (void)BuiltIn().Parameter("net4", "X%1"); }),
             "There is no parameter \"X%1\" in waypoint NET4.");
    QCOMPARE(RaisedText([] { (void)Definitions().ConTypeList(); }), "There are no definitions.");
}

void TestDefinitions::LookUps_NoDefinitions_RaiseRefused_data()
{
    QTest::addColumn<std::function<void(const Definitions&)>>("lookUp");
    const auto row = [](const char* name, const std::function<void(const Definitions&)>& lookUp) {
        QTest::newRow(name) << lookUp;
    };
    row("ConTypeList", [](const Definitions& none) { (void)none.ConTypeList(); });
    row("ConTypeId", [](const Definitions& none) { (void)none.ConTypeId("T4BUS"); });
    row("ConTypeLongName", [](const Definitions& none) { (void)none.ConTypeLongName("T4BUS"); });
    row("ConTypeShortName", [](const Definitions& none) { (void)none.ConTypeShortName("T4 Bus"); });
    row("ConTypeWpList", [](const Definitions& none) { (void)none.ConTypeWpList(QString(), 0); });
    row("NodeTypeList", [](const Definitions& none) { (void)none.NodeTypeList(); });
    row("NodeTypeId", [](const Definitions& none) { (void)none.NodeTypeId("NET4"); });
    row("NodeTypeLongName", [](const Definitions& none) { (void)none.NodeTypeLongName("NET4"); });
    row("NodeTypeShortName", [](const Definitions& none) { (void)none.NodeTypeShortName("T4 Node"); });
    row("NodeTypeWpList", [](const Definitions& none) { (void)none.NodeTypeWpList(QString(), 0); });
    row("WpLongName", [](const Definitions& none) { (void)none.WpLongName("NET4"); });
    row("WpParameters", [](const Definitions& none) { (void)none.WpParameters("NET4"); });
    row("WpParametersLongNames", [](const Definitions& none) { (void)none.WpParametersLongNames("NET4"); });
    row("Parameter", [](const Definitions& none) { (void)none.Parameter("NET4", "ADDR"); });
}

void TestDefinitions::LookUps_NoDefinitions_RaiseRefused()
{
    QFETCH(std::function<void(const Definitions&)>, lookUp);

    QCOMPARE(RaisedNumber([&lookUp] { lookUp(Definitions()); }), DatabaseErrorNumber::Refused);
}

void TestDefinitions::Targets_NoDefinitions_AreCheckedAndSplit()
{
    const Definitions none;
    QString reformatted;

    QVERIFY(none.CheckTarget("wp=bust4,id=254", reformatted));
    QCOMPARE(reformatted, "WP=bust4,id=254");
    QCOMPARE(none.TargetItemList("wp=bust4,id=254"), Tabs("1/2/WP/bust4/id/254"));
    QCOMPARE(none.AnalyzeConType("WP=BUST4"), Tabs("-1/Unknown"));
    QCOMPARE(none.AnalyzeNodeType("WP=NET4"), Tabs("-1/Unknown"));
}

void TestDefinitions::Lists_EmptyCatalogue_AreEmpty()
{
    const Definitions empty{Catalogue()};

    QCOMPARE(empty.ConTypeList(), QString());
    QCOMPARE(empty.NodeTypeList(), QString());
    QCOMPARE(RaisedNumber([&empty] { (void)empty.ConTypeId("Unknown"); }), DatabaseErrorNumber::Refused);
}

void TestDefinitions::Parameter_AnyCase_GivesDefinition()
{
    const ParameterDefinition& baud = BuiltIn().Parameter("com", "Baud");
    QCOMPARE(baud.longName, "BAUD RATE");
    QCOMPARE(baud.kind, ParameterKind::List);
    QCOMPARE(baud.values, QStringList({"1200", "2400", "9600", "19200", "57600"}));
    QCOMPARE(baud.defaultValue, "9600");

    const ParameterDefinition& address = BuiltIn().Parameter("NET4", "addr");
    QCOMPARE(address.kind, ParameterKind::WholeNumber);
    QCOMPARE(address.requirement, 1);
    QCOMPARE(address.low, 0);
    QCOMPARE(address.high, 4094);
}

void TestDefinitions::Answers_SharedText_AreNotCopied()
{
    QCOMPARE(BuiltIn().WpParameters("NET4").constData(), BuiltIn().WpParameters("net4").constData());
    QCOMPARE(BuiltIn().WpParametersLongNames("FE").constData(),
             BuiltIn().WpParametersLongNames("FE").constData());
    QCOMPARE(BuiltIn().ConTypeList().constData(), BuiltIn().ConTypeList().constData());
    QCOMPARE(BuiltIn().AnalyzeConType("WP=BUST4").constData(),
             BuiltIn().AnalyzeConType("WP=BUST4,ID=1,WP=OPT").constData());
    QCOMPARE(BuiltIn().ConTypeWpList("LAN", 0).constData(),
             BuiltIn().ConTypeWpList(QString(), 13).constData());
}

void TestDefinitions::AnalyzeConType_Target_GivesType_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("answer");
    const auto row = [](const char* name, const QString& target, const char* answer) {
        QTest::newRow(name) << target << Tabs(answer);
    };
    row("all hops", "WP=BUST4,ID=254,WP=OPT,PR=T4DT", "0/T4BUS");
    row("optional hop missing", "WP=BUST4,ID=254", "0/T4BUS");
    row("bare hops", "WP=SOCKET,WP=BUST4", "1/T4TCP");
    row("any case", "wp=socket,wp=kd7,wp=opt", "5/KD7TCP");
    row("one mandatory hop", "WP=SNMP", "14/SNMP");
    row("two mandatory hops", "WP=SNMPPRX,HOST=h,WP=SNMP,VERSION=1", "15/SNMPPRX");
    row("mandatory hop missing", "WP=SNMPPRX,HOST=h", "-1/Unknown");
    row("first of several", "WP=SOCKET,HOST=h", "-1/Unknown");
    row("wrong order", "WP=OPT,PR=T4DT,WP=BUST4,ID=1", "-1/Unknown");
    row("one hop too many", "WP=BUST4,ID=1,WP=OPT,WP=OPT", "-1/Unknown");
    row("with a node's part", ConnectionTarget, "-1/Unknown");
    row("unknown waypoint", "WP=BUST4,WP=FOO", "-1/Unknown");
    row("unknown parameter", "WP=BUST4,FOO=1", "0/T4BUS");
    row("optional hop alone", "WP=OPT,VERIFY=NO", "-1/Unknown");
    row("empty items", ",,WP=VRL,,BUS=1,", "6/VRL");
    row("blank in the name", "WP= BUST4", "-1/Unknown");
    row("empty name", "WP=", "-1/Unknown");
    row("empty", QString(), "-1/Unknown");
    row("blank", " ", "-1/Unknown");
    row("no target", "Unknown", "-1/Unknown");
    row("no equals", "WP,BUST4", "-1/Unknown");
}

void TestDefinitions::AnalyzeConType_Target_GivesType()
{
    QFETCH(QString, target);
    QFETCH(QString, answer);

    QCOMPARE(BuiltIn().AnalyzeConType(target), answer);
}

void TestDefinitions::AnalyzeConType_TwoTypesMatch_LowestIdWins()
{
    Catalogue catalogue;
    catalogue.waypoints = {{"A", "Hop A", {}}, {"B", "Hop B", {}}, {"C", "Hop C", {}}};
    catalogue.conTypes = {
        {"AB", "A and B", {{"A", true}, {"B", false}}},
        {"AC", "A and C", {{"A", true}, {"C", false}}},
    };
    const Definitions definitions(catalogue);

    QCOMPARE(definitions.AnalyzeConType("WP=A"), Tabs("0/AB"));
    QCOMPARE(definitions.AnalyzeConType("WP=A,WP=C"), Tabs("1/AC"));
}

void TestDefinitions::AnalyzeConType_OptionalHopInTheMiddle_MustBeThere()
{
    Catalogue catalogue;
    catalogue.waypoints = {{"A", "Hop A", {}}, {"B", "Hop B", {}}, {"C", "Hop C", {}}, {"D", "Hop D", {}}};
    catalogue.conTypes = {{"ABCD", "All", {{"A", true}, {"B", false}, {"C", true}, {"D", false}}}};
    const Definitions definitions(catalogue);

    QCOMPARE(definitions.AnalyzeConType("WP=A,WP=B,WP=C"), Tabs("0/ABCD"));
    QCOMPARE(definitions.AnalyzeConType("WP=A,WP=C"), Tabs("-1/Unknown"));
    QCOMPARE(definitions.AnalyzeConType("WP=A"), Tabs("-1/Unknown"));
}

void TestDefinitions::AnalyzeNodeType_Target_GivesType_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("answer");
    const auto row = [](const char* name, const QString& target, const char* answer) {
        QTest::newRow(name) << target << Tabs(answer);
    };
    row("first hop", "WP=NET4,ADDR=12,WP=OPT,PR=T4DT", "0/NET4");
    row("first hop alone", "WP=NEMML", "1/NEMML");
    row("any case", "wp=snmpnode,host=h", "2/SNMPNODE");
    row("other hops behind", "WP=NET4,WP=NEMML,WP=FOO", "0/NET4");
    row("comma in front", ",WP=NET4", "0/NET4");
    row("optional waypoint first", "WP=OPT,PR=T4DT,WP=NET4", "-1/Unknown");
    row("connection", "WP=BUST4,ID=1", "-1/Unknown");
    row("unknown waypoint", "WP=FOO,WP=NET4", "-1/Unknown");
    row("empty name", "WP=,WP=NET4", "-1/Unknown");
    row("empty", QString(), "-1/Unknown");
    row("no target", "NET4", "-1/Unknown");
}

void TestDefinitions::AnalyzeNodeType_Target_GivesType()
{
    QFETCH(QString, target);
    QFETCH(QString, answer);

    QCOMPARE(BuiltIn().AnalyzeNodeType(target), answer);
}

void TestDefinitions::TargetItemList_Target_GivesPairs_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("list");
    const auto row = [](const char* name, const QString& target, const char* list) {
        QTest::newRow(name) << target << Tabs(list);
    };
    row("three hops", ConnectionTarget, "3/2/WP/BUST4/ID/254/2/WP/NET4/ADDR/4094/2/WP/OPT/PR/T4DT");
    row("empty", QString(), "0");
    row("bare hop", "WP=BUST4", "1/1/WP/BUST4");
    row("bare hop between", "WP=SOCKET,HOST=h,WP=BUST4,WP=OPT,PR=T4DT",
        "3/2/WP/SOCKET/HOST/h/1/WP/BUST4/2/WP/OPT/PR/T4DT");
    row("definitions' case", "wp=bust4,id=254,Wp=opt,pr=t4dl", "2/2/WP/BUST4/ID/254/2/WP/OPT/PR/t4dl");
    row("empty value in the middle", "WP=NET4,ADDR=1,SUB=,CRC=ON", "1/3/WP/NET4/ADDR/1/CRC/ON");
    row("empty value at the end", "WP=NET4,ADDR=1,SUB=,WP=OPT,PR=", "2/2/WP/NET4/ADDR/1/1/WP/OPT");
    row("only empty values", "WP=NET4,ADDR=,SUB=", "1/1/WP/NET4");
    row("unknown waypoint", "WP=Foo,id=1", "1/2/WP/Foo/id/1");
    row("unknown keyword", "WP=NET4,Foo=1", "1/2/WP/NET4/Foo/1");
    row("keyword of another waypoint", "WP=BUST4,addr=1", "1/2/WP/BUST4/addr/1");
    row("equals in the value", "WP=NEMML,PSW=a=b=", "1/2/WP/NEMML/PSW/a=b=");
    row("value of a blank", "WP=NEMML,PSW= ", "1/2/WP/NEMML/PSW/ ");
    row("blanks kept", "WP=NEMML,PSW= a b , USER=x", "1/3/WP/NEMML/PSW/ a b / USER/x");
    row("repeated keyword", "WP=NET4,ADDR=1,ADDR=2", "1/3/WP/NET4/ADDR/1/ADDR/2");
    row("empty items", ",WP=NET4,,ADDR=1,,", "1/2/WP/NET4/ADDR/1");
    row("items before the first hop", "ADDR=1,WP=NET4,ADDR=2", "1/2/WP/NET4/ADDR/2");
    row("item without equals", "WP=NET4,ADDR,SUB=1", "1/2/WP/NET4/SUB/1");
    row("empty keyword", "WP=NET4,=5", "1/2/WP/NET4//5");
    row("empty name", "WP=", "1/1/WP");
    row("tab in a value", "WP=NEMML,PSW=a\tb", "1/2/WP/NEMML/PSW/a b");
    row("tab at the end", "WP=NEMML,PSW=a\t", "1/2/WP/NEMML/PSW/a ");
    row("line ends", "WP=NEMML,PSW=a\r\nb\x7f", "1/2/WP/NEMML/PSW/a  b ");
    row("tab in a name", "WP=NE\tMML", "1/1/WP/NE MML");
    row("ten hops", QStringList(10, "WP=OPT").join(u','),
        "10/1/WP/OPT/1/WP/OPT/1/WP/OPT/1/WP/OPT/1/WP/OPT/1/WP/OPT/1/WP/OPT/1/WP/OPT/1/WP/OPT/1/WP/OPT");
    row("no target", "anything", "0");
    row("only commas", ",,,", "0");
}

void TestDefinitions::TargetItemList_Target_GivesPairs()
{
    QFETCH(QString, target);
    QFETCH(QString, list);

    QCOMPARE(BuiltIn().TargetItemList(target), list);
}

void TestDefinitions::CheckTarget_Accepted_GivesCanonicalCase_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("reformatted");
    const auto same = [](const char* name, const QString& target) {
        QTest::newRow(name) << target << target;
    };
    const auto row = [](const char* name, const QString& target, const QString& reformatted) {
        QTest::newRow(name) << target << reformatted;
    };
    same("three hops", ConnectionTarget);
    same("bare hops", "WP=SOCKET,WP=BUST4");
    same("unknown waypoint and keyword", "WP=Foo,bar=1,WP=NET4,Baz=2");
    same("out of bounds", "WP=NET4,ADDR=999999999,CRC=maybe");
    same("blanks", "WP=NEMML,PSW= a ,USER= ");
    same("blank before a known name", "WP= bust4, ID=1");
    same("empty value", "WP=NET4,ADDR=");
    same("equals in the value", "WP=NEMML,PSW=a=b=,USER==");
    same("order of rows", "WP=NET4,RETRY=2,ADDR=1,RETRY=3");
    same("tab and line end", "WP=NEMML,PSW=a\tb\n");
    same("empty keyword", "WP=NET4,=5");
    same("empty name", "WP=");
    row("lower case", "wp=bust4,id=254,wp=opt,pr=t4dl,dt=unihex", "WP=BUST4,ID=254,WP=OPT,PR=t4dl,DT=unihex");
    row("probe", "WP=NET4,ADDR=12,RETRY=2,TIME=500,wp=opt,pr=t4dl,dt=unihex",
        "WP=NET4,ADDR=12,RETRY=2,TIME=500,WP=OPT,PR=t4dl,DT=unihex");
    row("mixed case", "Wp=Net4,Addr=1", "WP=NET4,ADDR=1");
    row("name only", "WP=net4,ADDR=1", "WP=NET4,ADDR=1");
    row("keyword only", "WP=NET4,ADDR=1,sub=2,CRC=ON", "WP=NET4,ADDR=1,SUB=2,CRC=ON");
    row("keyword of another waypoint", "WP=BUST4,addr=1,WP=NET4,addr=1", "WP=BUST4,addr=1,WP=NET4,ADDR=1");
    row("unknown waypoint in lower case", "wp=foo,wp=x", "WP=foo,WP=x");
    row("comma in front", ",WP=NET4,ADDR=1", "WP=NET4,ADDR=1");
    row("comma behind", "WP=NET4,ADDR=1,", "WP=NET4,ADDR=1");
    row("empty items everywhere", ",,wp=net4,,,addr=1,,WP=OPT,,", "WP=NET4,ADDR=1,WP=OPT");
}

void TestDefinitions::CheckTarget_Accepted_GivesCanonicalCase()
{
    QFETCH(QString, target);
    QFETCH(QString, reformatted);

    QString answer = QStringLiteral("before");
    QVERIFY(BuiltIn().CheckTarget(target, answer));
    QCOMPARE(answer, reformatted);
}

void TestDefinitions::CheckTarget_Refused_GivesEmptyText_data()
{
    QTest::addColumn<QString>("target");
    const auto row = [](const char* name, const QString& target) { QTest::newRow(name) << target; };
    row("empty", QString());
    row("blank", " ");
    row("only commas", ",,,");
    row("no target", "anything");
    row("parameter first", "ID=254,WP=BUST4");
    row("blank first", " WP=BUST4");
    row("blank behind WP", "WP =BUST4");
    row("WP without equals", "WP");
    row("longer keyword", "WPX=BUST4");
    row("item without equals", "WP=BUST4,ID");
    row("comma in a value", "WP=NEMML,PSW=a,b");
    row("blank item", "WP=BUST4, ,ID=1");
    row("last item without equals", "wp=bust4,id=1,x");
}

void TestDefinitions::CheckTarget_Refused_GivesEmptyText()
{
    QFETCH(QString, target);

    QString answer = QStringLiteral("before");
    QVERIFY(!BuiltIn().CheckTarget(target, answer));
    QCOMPARE(answer, QString());
}

void TestDefinitions::CheckTarget_CanonicalTarget_IsSharedWithTheAnswer()
{
    const QString target = QString("WP=NET4,ADDR=%1").arg(17);
    QString answer;

    QVERIFY(BuiltIn().CheckTarget(target, answer));

    QCOMPARE(answer.constData(), target.constData());
}

void TestDefinitions::CheckTarget_OneTextForBoth_GivesTheAnswer()
{
    QString text = QStringLiteral(",wp=net4,addr=1");
    QVERIFY(BuiltIn().CheckTarget(text, text));
    QCOMPARE(text, "WP=NET4,ADDR=1");

    text = QStringLiteral("wp=net4,addr");
    QVERIFY(!BuiltIn().CheckTarget(text, text));
    QCOMPARE(text, QString());
}

void TestDefinitions::CheckTarget_CheckedTwice_GivesTheSame()
{
    QString once;
    QString twice;
    QVERIFY(BuiltIn().CheckTarget(",,wp=net4,,addr=1,foo=,wp=opt,", once));
    QVERIFY(BuiltIn().CheckTarget(once, twice));
    QCOMPARE(once, "WP=NET4,ADDR=1,foo=,WP=OPT");
    QCOMPARE(twice, once);
}

void TestDefinitions::Lists_ControlCharacters_BecomeBlanks()
{
    Catalogue catalogue;
    catalogue.waypoints = {{"A", "Hop A", {Row("K\n1", "LONG\tNAME", "a\tb\x01")}}};
    catalogue.conTypes = {{"S\tN", "Long", {{"A", true}}}};
    const Definitions definitions(catalogue);

    QCOMPARE(definitions.WpParameters("A"), Tabs("K 1/a b "));
    QCOMPARE(definitions.WpParametersLongNames("A"), Tabs("LONG NAME/0|a b "));
    QCOMPARE(definitions.ConTypeList(), "S N");
    QCOMPARE(definitions.AnalyzeConType("WP=A"), Tabs("0/S N"));
}

void TestDefinitions::Lists_EmptyLastDefault_EndInNoTab()
{
    Catalogue catalogue;
    catalogue.waypoints = {{"A", "Hop A", {Row("K1", "ONE"), Row("K2", "TWO")}}, {"B", "Hop B", {}}};
    const Definitions definitions(catalogue);

    QCOMPARE(definitions.WpParameters("A"), Tabs("K1//K2"));
    QCOMPARE(definitions.WpParameters("B"), QString());
    QCOMPARE(definitions.WpParametersLongNames("B"), QString());
}

void TestDefinitions::LookUps_NonLatinNames_IgnoreCase()
{
    Catalogue catalogue;
    catalogue.waypoints = {{u"ÄÖ"_qs, "Umlauts", {Row(u"ÅΣ"_qs, "KEY")}}};
    const Definitions definitions(catalogue);

    QCOMPARE(definitions.WpLongName(u"äö"_qs), "Umlauts");
    QCOMPARE(definitions.Parameter(u"äÖ"_qs, u"åσ"_qs).longName, "KEY");
    QString answer;
    QVERIFY(definitions.CheckTarget(u"wp=äö,åσ=ß"_qs, answer));
    QCOMPARE(answer, u"WP=ÄÖ,ÅΣ=ß"_qs);
}

void TestDefinitions::Targets_AnyText_NeverRaise()
{
    const QString alphabet = QStringLiteral("WPwp==,,,BUST4OPTid \t\n0|\u00e4\U00010400");
    QRandomGenerator random(20040401);
    for (int i = 0; i < 20000; ++i) {
        QString target;
        const int length = static_cast<int>(random.bounded(40));
        for (int k = 0; k < length; ++k)
            target += alphabet.at(random.bounded(static_cast<int>(alphabet.size())));
        if (random.bounded(2) == 0)
            target.prepend("WP=BUST4,");

        QString answer;
        QString again;
        if (BuiltIn().CheckTarget(target, answer)) {
            QVERIFY(BuiltIn().CheckTarget(answer, again));
            QCOMPARE(again, answer);
            QCOMPARE(BuiltIn().TargetItemList(answer), BuiltIn().TargetItemList(target));
        }
        const QString list = BuiltIn().TargetItemList(target);
        QVERIFY2(!list.endsWith(u'\t'), qPrintable(target));
        QCOMPARE(BuiltIn().AnalyzeConType(target).count(u'\t'), 1);
        QCOMPARE(BuiltIn().AnalyzeNodeType(target).count(u'\t'), 1);
    }
}

QTEST_GUILESS_MAIN(TestDefinitions)
#include "TestDefinitions.moc"
