#include "ZelkaRunner.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTest>

/// `zelka add node` and `zelka set` of a node.
class TestZelkaEditNodes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void Add_Definition_IsStored_data();
    void Add_Definition_IsStored();
    void Add_Manager_IsStored_data();
    void Add_Manager_IsStored();
    void Add_Json_TellsNameAndId();
    void Add_Refused_ChangesNothing_data();
    void Add_Refused_ChangesNothing();
    void Add_WrongUsage_IsToldSo_data();
    void Add_WrongUsage_IsToldSo();
    void Set_Changes_AreStored_data();
    void Set_Changes_AreStored();
    void Set_Manager_IsStored_data();
    void Set_Manager_IsStored();
    void Set_CaseOfItsName_IsStored();
    void Set_Refused_ChangesNothing_data();
    void Set_Refused_ChangesNothing();
    void Set_IfId_GuardsTheChange();
    void Set_KeepsTheUsersText();

private:
    /// A database with "Bus", "Tower" and the SNMP connection "Net".
    static void MakeDatabase(const ZelkaRunner& zelka);
    static QByteArray Contents(const ZelkaRunner& zelka);
    /// "device|manager index|tail" of a node.
    static QByteArray Manager(const ZelkaRunner& zelka, const QString& name);
    static QString Target(const ZelkaRunner& zelka, const QString& name);

    ZelkaRunner m_zelka;
};

namespace {

const QString BusTarget = QStringLiteral("WP=BUST4,ID=254,SPEED=9600,WP=OPT,PR=T4DT,");

QString SqlText(const QString& text)
{
    return u'\'' + QString(text).replace(u'\'', QStringLiteral("''")) + u'\'';
}

} // namespace

void TestZelkaEditNodes::initTestCase()
{
    MakeDatabase(m_zelka);
}

void TestZelkaEditNodes::MakeDatabase(const ZelkaRunner& zelka)
{
    zelka.MakeSmallDatabase();
    QCOMPARE(zelka.Run({"add", "connection", "Net", "--type", "SNMP"}).code, 0);
    QCOMPARE(zelka.Run({"db", "managers", "add", "Sonde", "/opt/sonde"}).code, 0);
}

QByteArray TestZelkaEditNodes::Contents(const ZelkaRunner& zelka)
{
    return zelka.Rows("SELECT id || name || target FROM connection ORDER BY id") + '/' +
           zelka.Rows("SELECT id || name || target || node_type || command_tail FROM node ORDER BY id") +
           '/' + zelka.Query("SELECT count(*) FROM journal");
}

QByteArray TestZelkaEditNodes::Manager(const ZelkaRunner& zelka, const QString& name)
{
    return zelka.Query(
        "SELECT node_type || '|' || coalesce(CAST(manager_index AS TEXT), '-') || '|' || command_tail"
        " FROM node WHERE name = " +
        SqlText(name).toUtf8());
}

QString TestZelkaEditNodes::Target(const ZelkaRunner& zelka, const QString& name)
{
    return zelka.Run({"target", name, "--full"}).Lines().value(0);
}

// Adding --------------------------------------------------------------------------------------------------

void TestZelkaEditNodes::Add_Definition_IsStored_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("target");
    const QStringList bus{"--connection", "bUS"};
    QTest::newRow("type") << "A1" << bus + QStringList{"--type", "T4 Node", "ADDR=1"}
                          << BusTarget + "WP=NET4,ADDR=1,WP=OPT";
    QTest::newRow("waypoints") << "A2"
                               << bus + QStringList{"--type", "net4", "NET4.ADDR=1", "2.PR=T4DL", "FE.ID=3"}
                               << BusTarget + "WP=NET4,ADDR=1,WP=OPT,PR=T4DL,WP=FE,ID=3";
    QTest::newRow("channel and size")
        << "A3" << bus + QStringList{"--type", "NET4", "ADDR=1", "CH=3", "PKT=64"}
        << BusTarget + "WP=NET4,ADDR=1,WP=OPT,WP=FE,CH=3,PKT=64";
    QTest::newRow("channel that needs no size")
        << "A4" << bus + QStringList{"--type", "NET4", "ADDR=1", "FE.CH=16", "PKT=32"}
        << BusTarget + "WP=NET4,ADDR=1,WP=OPT,WP=FE,CH=16,PKT=32";
    QTest::newRow("target") << "A5" << bus + QStringList{"--target", "wp=net4,addr=2,wp=opt,dt=UNIHEX"}
                            << BusTarget + "WP=NET4,ADDR=2,WP=OPT,DT=UNIHEX";
    QTest::newRow("target that leaves a waypoint out")
        << "A6" << bus + QStringList{"--target", "WP=NET4,ADDR=2,WP=FE,ID=1"}
        << BusTarget + "WP=NET4,ADDR=2,WP=OPT,WP=FE,ID=1";
    QTest::newRow("password") << "A7" << bus + QStringList{"--type", "NEMML", "USER=u", "PSW=p=q"}
                              << BusTarget + "WP=NEMML,USER=u,PSW=p=q";
    QTest::newRow("SNMP") << "A8"
                          << QStringList{"--connection", "Net", "--type", "SNMPNODE", "HOST=h", "SECTION=1"}
                          << "WP=SNMP,WP=SNMPNODE,HOST=h,SECTION=1";
    QTest::newRow("like another") << "A9" << QStringList{"--like", "tower", "ADDR=9"}
                                  << BusTarget + "WP=NET4,ADDR=9,PRIO=NORMAL,WP=OPT,PR=T4DT";
    QTest::newRow("not only ASCII") << QStringLiteral(" Žurawin 塔 😀 ")
                                    << bus + QStringList{"--type", "NEMML", "PSW=p",
                                                         QStringLiteral("USER=Čeněk 塔")}
                                    << BusTarget + QStringLiteral("WP=NEMML,USER=Čeněk 塔,PSW=p");
}

void TestZelkaEditNodes::Add_Definition_IsStored()
{
    QFETCH(QString, name);
    QFETCH(QStringList, options);
    QFETCH(QString, target);

    const ZelkaResult result = m_zelka.Run(QStringList{"add", "node", name} + options);

    QCOMPARE(result.words, QByteArray());
    QCOMPARE(result.code, 0);
    const QString id = QString::fromUtf8(m_zelka.Query("SELECT max(id) FROM node"));
    QCOMPARE(result.Lines(),
             QStringList{QStringLiteral("Added the node \"%1\", id %2.").arg(name.trimmed(), id)});
    QCOMPARE(Target(m_zelka, name), target);
}

void TestZelkaEditNodes::Add_Manager_IsStored_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("manager");
    QTest::newRow("none") << "M1" << QStringList{} << QByteArray("|-|");
    QTest::newRow("device") << "M2" << QStringList{"--manager", "radio"} << QByteArray("Radio|1|");
    QTest::newRow("device and tail") << "M3" << QStringList{"--manager", "Sonde", "--command-tail=-x \"a b\""}
                                     << QByteArray("Sonde|2|-x \"a b\"");
    QTest::newRow("tail alone") << "M4" << QStringList{"--command-tail", "a|b"} << QByteArray("|-|a|b");
}

void TestZelkaEditNodes::Add_Manager_IsStored()
{
    QFETCH(QString, name);
    QFETCH(QStringList, options);
    QFETCH(QByteArray, manager);

    const ZelkaResult result = m_zelka.Run(
        QStringList{"add", "node", name, "--connection", "Bus", "--type", "NET4", "ADDR=1"} + options);

    QCOMPARE(result.words, QByteArray());
    QCOMPARE(result.code, 0);
    QCOMPARE(Manager(m_zelka, name), manager);
}

void TestZelkaEditNodes::Add_Json_TellsNameAndId()
{
    const ZelkaResult result = m_zelka.Run({"add", "node", "Json", "--like", "Tower", "--json"});

    QCOMPARE(result.code, 0);
    const int id = m_zelka.Query("SELECT id FROM node WHERE name = 'Json'").toInt();
    QCOMPARE(result.Json().object(), (QJsonObject{{"name", "Json"}, {"kind", "node"}, {"id", id}}));
    QCOMPARE(Manager(m_zelka, "Json"), QByteArray("Radio|1|-x"));
}

void TestZelkaEditNodes::Add_Refused_ChangesNothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("text");
    const QStringList bus{"--connection", "Bus"};
    const QStringList good = bus + QStringList{"--type", "NET4", "ADDR=1"};
    QTest::newRow("taken") << "tower" << good << "Node tower already exists. Give a new name.";
    QTest::newRow("taken by a connection")
        << "bus" << good
        << "Node name bus already exists in the database. No saving, because nodes and connections cannot "
           "share the same name.";
    QTest::newRow("reserved") << "NEW node" << good
                              << "'New Node' cannot be used as a node name, give a new name.";
    QTest::newRow("empty name") << " " << good << "Give node name.";
    QTest::newRow("comma") << "a,b" << good << "The name \"a,b\" holds a comma.";
    QTest::newRow("no such connection")
        << "N" << QStringList{"--connection", "Tram", "--type", "NET4", "ADDR=1"}
        << "There is no connection \"Tram\".";
    QTest::newRow("unknown type") << "N" << bus + QStringList{"--type", "T4BUS"}
                                  << "There is no node type \"T4BUS\"; known are NET4 (T4 Node), NEMML (MML "
                                     "Network Element), SNMPNODE (SNMP Node).";
    QTest::newRow("mandatory parameter")
        << "N" << bus + QStringList{"--type", "NET4"}
        << "Mandatory parameter without value (check parameter names with bold font). Concerned: NET4.ADDR.";
    QTest::newRow("no password") << "N" << bus + QStringList{"--type", "NEMML", "USER=u"}
                                 << "Mandatory and mutually exclusive parameters are set incorrectly (check "
                                    "parameters with bold and italic font). Concerned: NEMML.PSW.";
    QTest::newRow("unknown keyword")
        << "N" << bus + QStringList{"--type", "NEMML", "ADDR=1"}
        << "ADDR=1: There is no such parameter; known are NEMML.USER, NEMML.PSW, "
           "NEMML.PATH, NEMML.TIME, NEMML.RETRY.";
    QTest::newRow("out of range") << "N" << bus + QStringList{"--type", "NET4", "ADDR=4095"}
                                  << "ADDR=4095: Value 4095 out of range [ 0, 4094]. Give a new value.";
    QTest::newRow("channel without its size")
        << "N" << good + QStringList{"CH=15", "PKT=1020"}
        << "The FE CHANNEL and PACKET SIZE should be matched: channel 15 needs the packet size 1032.";
    QTest::newRow("SNMP node on a bus") << "N" << bus + QStringList{"--type", "SNMPNODE", "HOST=h"}
                                        << "A node of the type \"SNMP Node\" cannot be on a connection of "
                                           "the type \"T4 Bus\".";
    QTest::newRow("bus node on SNMP")
        << "N" << QStringList{"--connection", "Net", "--like", "Tower"}
        << "A node of the type \"T4 Node\" cannot be on a connection of the type \"SNMP Direct\".";
    QTest::newRow("bad target") << "N" << bus + QStringList{"--target", "ADDR=1"}
                                << "The target \"ADDR=1\" is refused.";
    QTest::newRow("target of no type") << "N" << bus + QStringList{"--target", "WP=OPT,PR=T4DT"}
                                       << "No node type has the waypoints of the target \"WP=OPT,PR=T4DT\".";
    QTest::newRow("waypoint out of place")
        << "N" << bus + QStringList{"--target", "WP=NET4,ADDR=1,WP=BUST4,ID=1"}
        << "WP=BUST4: The waypoint does not belong here in the target \"WP=NET4,ADDR=1,WP=BUST4,ID=1\".";
    QTest::newRow("unknown manager")
        << "N" << good + QStringList{"--manager", "Gauge"}
        << "There is no manager for the device \"Gauge\"; known are Radio, Sonde.";
    QTest::newRow("tail with a line break")
        << "N" << good + QStringList{"--command-tail", "a\nb"} << "The tail holds control characters.";
    QTest::newRow("like a missing one")
        << "N" << QStringList{"--like", "Mast"} << "There is no node \"Mast\".";
    QTest::newRow("like a connection") << "N" << QStringList{"--like", "Bus"} << "There is no node \"Bus\".";
}

void TestZelkaEditNodes::Add_Refused_ChangesNothing()
{
    QFETCH(QString, name);
    QFETCH(QStringList, options);
    QFETCH(QString, text);
    const QByteArray before = Contents(m_zelka);

    const ZelkaResult result = m_zelka.Run(QStringList{"add", "node", name, "--json"} + options);

    QCOMPARE(result.Words(), QStringLiteral("zelka: %1\n").arg(text));
    QCOMPARE(result.code, 1);
    QCOMPARE(result.Json().object(), (QJsonObject{{"error", text}}));
    QCOMPARE(Contents(m_zelka), before);
}

void TestZelkaEditNodes::Add_WrongUsage_IsToldSo_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("part");
    QTest::newRow("no connection") << QStringList{"N", "--type", "NET4", "ADDR=1"}
                                   << "--connection is required.";
    QTest::newRow("no origin") << QStringList{"N", "--connection", "Bus"} << "1 option";
    QTest::newRow("connection twice")
        << QStringList{"N", "--connection", "Bus", "--type", "NET4", "connection=Bus"}
        << "connection is given twice.";
    QTest::newRow("type beside like's target")
        << QStringList{"N", "--connection", "Bus", "--type", "NET4", "target=WP=NET4,ADDR=1"}
        << "A type and a target cannot be given together.";
}

void TestZelkaEditNodes::Add_WrongUsage_IsToldSo()
{
    QFETCH(QStringList, options);
    QFETCH(QString, part);

    const ZelkaResult result = m_zelka.Run(QStringList{"add", "node"} + options);

    QCOMPARE(result.code, 2);
    QVERIFY2(result.Words().contains(part), result.words.constData());
}

// Changing ------------------------------------------------------------------------------------------------

void TestZelkaEditNodes::Set_Changes_AreStored_data()
{
    QTest::addColumn<QStringList>("values");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("target");
    QTest::newRow("parameter") << QStringList{"ADDR=7"} << "Tower"
                               << BusTarget + "WP=NET4,ADDR=7,PRIO=NORMAL,WP=OPT,PR=T4DT";
    QTest::newRow("name and parameter") << QStringList{"name=Mast", "PRIO=high"} << "Mast"
                                        << BusTarget + "WP=NET4,ADDR=4094,PRIO=HIGH,WP=OPT,PR=T4DT";
    QTest::newRow("target") << QStringList{"target=WP=NET4,ADDR=2"} << "Tower"
                            << BusTarget + "WP=NET4,ADDR=2,WP=OPT";
    QTest::newRow("the same type keeps values") << QStringList{"type=T4 Node"} << "Tower"
                                                << BusTarget + "WP=NET4,ADDR=4094,PRIO=NORMAL,WP=OPT,PR=T4DT";
    QTest::newRow("another type starts anew")
        << QStringList{"type=NEMML", "USER=u", "PSW=p"} << "Tower" << BusTarget + "WP=NEMML,USER=u,PSW=p";
    QTest::newRow("another connection") << QStringList{"connection=line"} << "Tower"
                                        << "WP=KD7,BUSID=1,WP=NET4,ADDR=4094,PRIO=NORMAL,WP=OPT,PR=T4DT";
    QTest::newRow("another family") << QStringList{"connection=Net", "type=SNMPNODE", "HOST=h"} << "Tower"
                                    << "WP=SNMP,WP=SNMPNODE,HOST=h";
    QTest::newRow("not only ASCII") << QStringList{QStringLiteral("name=Žurawin 塔 😀")}
                                    << QStringLiteral("Žurawin 塔 😀")
                                    << BusTarget + "WP=NET4,ADDR=4094,PRIO=NORMAL,WP=OPT,PR=T4DT";
}

void TestZelkaEditNodes::Set_Changes_AreStored()
{
    QFETCH(QStringList, values);
    QFETCH(QString, name);
    QFETCH(QString, target);
    const ZelkaRunner zelka;
    MakeDatabase(zelka);
    QCOMPARE(zelka.Run({"add", "connection", "Line", "--type", "KD7", "BUSID=1"}).code, 0);

    const ZelkaResult result = zelka.Run(QStringList{"set", "tower"} + values);

    QCOMPARE(result.words, QByteArray());
    QCOMPARE(result.code, 0);
    const QString id = QString::fromUtf8(zelka.Query("SELECT id FROM node"));
    QCOMPARE(result.Lines(), QStringList{QStringLiteral("Changed the node \"%1\", id %2.").arg(name, id)});
    QCOMPARE(Target(zelka, name), target);
    QCOMPARE(zelka.Run({"list", "nodes"}).Lines(), QStringList{name});
    QCOMPARE(Manager(zelka, name), QByteArray("Radio|1|-x"));
}

void TestZelkaEditNodes::Set_Manager_IsStored_data()
{
    QTest::addColumn<QStringList>("values");
    QTest::addColumn<QByteArray>("manager");
    QTest::newRow("device") << QStringList{"manager=sonde"} << QByteArray("Sonde|2|-x");
    QTest::newRow("tail") << QStringList{"tail=-y z"} << QByteArray("Radio|1|-y z");
    QTest::newRow("both") << QStringList{"manager=Sonde", "tail="} << QByteArray("Sonde|2|");
    QTest::newRow("none") << QStringList{"manager="} << QByteArray("|-|-x");
}

void TestZelkaEditNodes::Set_Manager_IsStored()
{
    QFETCH(QStringList, values);
    QFETCH(QByteArray, manager);
    const ZelkaRunner zelka;
    MakeDatabase(zelka);

    const ZelkaResult result = zelka.Run(QStringList{"set", "Tower"} + values);

    QCOMPARE(result.words, QByteArray());
    QCOMPARE(result.code, 0);
    QCOMPARE(Manager(zelka, "Tower"), manager);
    QCOMPARE(Target(zelka, "Tower"), BusTarget + "WP=NET4,ADDR=4094,PRIO=NORMAL,WP=OPT,PR=T4DT");
}

void TestZelkaEditNodes::Set_CaseOfItsName_IsStored()
{
    const ZelkaRunner zelka;
    MakeDatabase(zelka);

    const ZelkaResult result = zelka.Run({"set", "Tower", "name=TOWER"});

    QCOMPARE(result.words, QByteArray());
    QCOMPARE(result.code, 0);
    QCOMPARE(zelka.Run({"list", "nodes"}).Lines(), QStringList{"TOWER"});
    QCOMPARE(Manager(zelka, "TOWER"), QByteArray("Radio|1|-x"));
}

void TestZelkaEditNodes::Set_Refused_ChangesNothing_data()
{
    QTest::addColumn<QStringList>("values");
    QTest::addColumn<QString>("text");
    QTest::newRow("taken name") << QStringList{"name=mast"} << "Node mast already exists. Give a new name.";
    QTest::newRow("name of a connection")
        << QStringList{"name=Bus"}
        << "Node name Bus already exists in the database. No saving, because nodes and connections cannot "
           "share the same name.";
    QTest::newRow("reserved name") << QStringList{"name=new node"}
                                   << "'New Node' cannot be used as a node name, give a new name.";
    QTest::newRow("no such connection")
        << QStringList{"connection=Tram"} << "There is no connection \"Tram\".";
    QTest::newRow("other family") << QStringList{"connection=Net"}
                                  << "A node of the type \"T4 Node\" cannot be on a connection of the type "
                                     "\"SNMP Direct\".";
    QTest::newRow("mandatory") << QStringList{"ADDR="}
                               << "Mandatory parameter without value (check parameter names with bold font). "
                                  "Concerned: NET4.ADDR.";
    QTest::newRow("unknown manager")
        << QStringList{"manager=Gauge", "ADDR=1"}
        << "There is no manager for the device \"Gauge\"; known are Radio, Sonde.";
}

void TestZelkaEditNodes::Set_Refused_ChangesNothing()
{
    QFETCH(QStringList, values);
    QFETCH(QString, text);
    const ZelkaRunner zelka;
    MakeDatabase(zelka);
    QCOMPARE(zelka.Run({"add", "node", "Mast", "--like", "Tower"}).code, 0);
    const QByteArray before = Contents(zelka);

    const ZelkaResult result = zelka.Run(QStringList{"set", "Tower"} + values);

    QCOMPARE(result.Words(), QStringLiteral("zelka: %1\n").arg(text));
    QCOMPARE(result.code, 1);
    QCOMPARE(Contents(zelka), before);
}

void TestZelkaEditNodes::Set_IfId_GuardsTheChange()
{
    const ZelkaRunner zelka;
    MakeDatabase(zelka);
    const int id = zelka.Query("SELECT id FROM node").toInt();
    const QString stale = QStringLiteral("zelka: Save is prevented, because another application has changed "
                                         "this node. Close dialog and try again.\n");

    for (const char* const value : {"ADDR=1", "name=Mast"}) {
        const ZelkaResult result = zelka.Run({"set", "Tower", value, "--if-id", QString::number(id + 1)});
        QCOMPARE(result.code, 1);
        QCOMPARE(result.Words(), stale);
    }
    QCOMPARE(zelka.Run({"list", "nodes", "--ids"}).Lines(), QStringList{QString::number(id) + "\tTower"});

    QCOMPARE(zelka.Run({"set", "Tower", "ADDR=1", "--if-id", QString::number(id)}).code, 0);
    QCOMPARE(zelka.Run({"set", "Tower", "ADDR=2", "--if-id", QString::number(id)}).code, 1);
}

void TestZelkaEditNodes::Set_KeepsTheUsersText()
{
    const ZelkaRunner zelka;
    MakeDatabase(zelka);
    zelka.Sql("INSERT INTO users_text VALUES ('NodeWP', 'tower', 'someone');");

    QCOMPARE(zelka.Run({"set", "Tower", "ADDR=1"}).code, 0);

    QCOMPARE(zelka.Query("SELECT users FROM users_text WHERE name_key = 'tower'"), QByteArray("someone"));
}

QTEST_GUILESS_MAIN(TestZelkaEditNodes)
#include "TestZelkaEditNodes.moc"
