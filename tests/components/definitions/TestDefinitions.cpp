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
    void Lists_EmptyCatalogue_AreEmpty();
    void Parameter_AnyCase_GivesDefinition();
    void Answers_SharedText_AreNotCopied();
    void Lists_ControlCharacters_BecomeBlanks();
    void Lists_EmptyLastDefault_EndInNoTab();
    void LookUps_NonLatinNames_IgnoreCase();
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

QTEST_GUILESS_MAIN(TestDefinitions)
#include "TestDefinitions.moc"
