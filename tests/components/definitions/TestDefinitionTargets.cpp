#include "components/hvxdb/Definitions.h"

#include <QtTest>

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

const QString ConnectionTarget = QStringLiteral("WP=BUST4,ID=254,WP=NET4,ADDR=4094,WP=OPT,PR=T4DT");

} // namespace

class TestDefinitionTargets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Targets_NoDefinitions_AreCheckedAndSplit();
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
    void Targets_AnyText_NeverRaise();
};

void TestDefinitionTargets::Targets_NoDefinitions_AreCheckedAndSplit()
{
    const Definitions none;
    QString reformatted;

    QVERIFY(none.CheckTarget("wp=bust4,id=254", reformatted));
    QCOMPARE(reformatted, "WP=bust4,id=254");
    QCOMPARE(none.TargetItemList("wp=bust4,id=254"), Tabs("1/2/WP/bust4/id/254"));
    QCOMPARE(none.AnalyzeConType("WP=BUST4"), Tabs("-1/Unknown"));
    QCOMPARE(none.AnalyzeNodeType("WP=NET4"), Tabs("-1/Unknown"));
}

void TestDefinitionTargets::AnalyzeConType_Target_GivesType_data()
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

void TestDefinitionTargets::AnalyzeConType_Target_GivesType()
{
    QFETCH(QString, target);
    QFETCH(QString, answer);

    QCOMPARE(BuiltIn().AnalyzeConType(target), answer);
}

void TestDefinitionTargets::AnalyzeConType_TwoTypesMatch_LowestIdWins()
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

void TestDefinitionTargets::AnalyzeConType_OptionalHopInTheMiddle_MustBeThere()
{
    Catalogue catalogue;
    catalogue.waypoints = {{"A", "Hop A", {}}, {"B", "Hop B", {}}, {"C", "Hop C", {}}, {"D", "Hop D", {}}};
    catalogue.conTypes = {{"ABCD", "All", {{"A", true}, {"B", false}, {"C", true}, {"D", false}}}};
    const Definitions definitions(catalogue);

    QCOMPARE(definitions.AnalyzeConType("WP=A,WP=B,WP=C"), Tabs("0/ABCD"));
    QCOMPARE(definitions.AnalyzeConType("WP=A,WP=C"), Tabs("-1/Unknown"));
    QCOMPARE(definitions.AnalyzeConType("WP=A"), Tabs("-1/Unknown"));
}

void TestDefinitionTargets::AnalyzeNodeType_Target_GivesType_data()
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

void TestDefinitionTargets::AnalyzeNodeType_Target_GivesType()
{
    QFETCH(QString, target);
    QFETCH(QString, answer);

    QCOMPARE(BuiltIn().AnalyzeNodeType(target), answer);
}

void TestDefinitionTargets::TargetItemList_Target_GivesPairs_data()
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

void TestDefinitionTargets::TargetItemList_Target_GivesPairs()
{
    QFETCH(QString, target);
    QFETCH(QString, list);

    QCOMPARE(BuiltIn().TargetItemList(target), list);
}

void TestDefinitionTargets::CheckTarget_Accepted_GivesCanonicalCase_data()
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

void TestDefinitionTargets::CheckTarget_Accepted_GivesCanonicalCase()
{
    QFETCH(QString, target);
    QFETCH(QString, reformatted);

    QString answer = QStringLiteral("before");
    QVERIFY(BuiltIn().CheckTarget(target, answer));
    QCOMPARE(answer, reformatted);
}

void TestDefinitionTargets::CheckTarget_Refused_GivesEmptyText_data()
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

void TestDefinitionTargets::CheckTarget_Refused_GivesEmptyText()
{
    QFETCH(QString, target);

    QString answer = QStringLiteral("before");
    QVERIFY(!BuiltIn().CheckTarget(target, answer));
    QCOMPARE(answer, QString());
}

void TestDefinitionTargets::CheckTarget_CanonicalTarget_IsSharedWithTheAnswer()
{
    const QString target = QString("WP=NET4,ADDR=%1").arg(17);
    QString answer;

    QVERIFY(BuiltIn().CheckTarget(target, answer));

    QCOMPARE(answer.constData(), target.constData());
}

void TestDefinitionTargets::CheckTarget_OneTextForBoth_GivesTheAnswer()
{
    QString text = QStringLiteral(",wp=net4,addr=1");
    QVERIFY(BuiltIn().CheckTarget(text, text));
    QCOMPARE(text, "WP=NET4,ADDR=1");

    text = QStringLiteral("wp=net4,addr");
    QVERIFY(!BuiltIn().CheckTarget(text, text));
    QCOMPARE(text, QString());
}

void TestDefinitionTargets::CheckTarget_CheckedTwice_GivesTheSame()
{
    QString once;
    QString twice;
    QVERIFY(BuiltIn().CheckTarget(",,wp=net4,,addr=1,foo=,wp=opt,", once));
    QVERIFY(BuiltIn().CheckTarget(once, twice));
    QCOMPARE(once, "WP=NET4,ADDR=1,foo=,WP=OPT");
    QCOMPARE(twice, once);
}

void TestDefinitionTargets::Targets_AnyText_NeverRaise()
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

QTEST_GUILESS_MAIN(TestDefinitionTargets)
#include "TestDefinitionTargets.moc"
