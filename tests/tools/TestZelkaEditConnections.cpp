#include "ZelkaRunner.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTest>

/// `zelka add connection` and `zelka set` of a connection.
class TestZelkaEditConnections : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_zelka.MakeSmallDatabase(); }

    void Add_Definition_IsStored_data();
    void Add_Definition_IsStored();
    void Add_Json_TellsNameAndId();
    void Add_Refused_ChangesNothing_data();
    void Add_Refused_ChangesNothing();
    void Add_WrongUsage_IsToldSo_data();
    void Add_WrongUsage_IsToldSo();
    void Set_Changes_AreStored_data();
    void Set_Changes_AreStored();
    void Set_Rename_KeepsTheNodes();
    void Set_Refused_ChangesNothing_data();
    void Set_Refused_ChangesNothing();
    void Set_TypeWithNodes_IsRefused_data();
    void Set_TypeWithNodes_IsRefused();
    void Set_IfId_GuardsTheChange();
    void Set_IsJournaled();

private:
    /// Connections, nodes and Journal, to see that nothing was written.
    static QByteArray Contents(const ZelkaRunner& zelka);
    static QString Target(const ZelkaRunner& zelka, const QString& name);

    ZelkaRunner m_zelka;
};

namespace {

const QString Missing = QStringLiteral(
    "Mandatory parameter without value (check parameter names with bold font). Concerned: %1.");
const QString Group =
    QStringLiteral("Mandatory and mutually exclusive parameters are set incorrectly (check parameters with "
                   "bold and italic font). Concerned: %1.");

} // namespace

QByteArray TestZelkaEditConnections::Contents(const ZelkaRunner& zelka)
{
    return zelka.Rows("SELECT id || name || target FROM connection ORDER BY id") + '/' +
           zelka.Rows("SELECT id || name || target FROM node ORDER BY id") + '/' +
           zelka.Query("SELECT count(*) FROM journal");
}

QString TestZelkaEditConnections::Target(const ZelkaRunner& zelka, const QString& name)
{
    return zelka.Run({"target", name, "--full"}).Lines().value(0);
}

// Adding --------------------------------------------------------------------------------------------------

void TestZelkaEditConnections::Add_Definition_IsStored_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("target");
    QTest::newRow("short type") << "A1" << QStringList{"--type", "T4BUS", "BUST4.ID=7"} << "WP=BUST4,ID=7";
    QTest::newRow("long type in another case")
        << "A2" << QStringList{"--type", "t4 bus", "bust4.id=7"} << "WP=BUST4,ID=7";
    QTest::newRow("keyword alone") << "A3" << QStringList{"--type", "T4BUS", "ID=7", "PR=t4dl"}
                                   << "WP=BUST4,ID=7,WP=OPT,PR=T4DL";
    QTest::newRow("waypoint number") << "A4" << QStringList{"--type", "T4BUS", "1.ID=007", "2.DT=UNIHEX"}
                                     << "WP=BUST4,ID=7,WP=OPT,DT=UNIHEX";
    QTest::newRow("one of a group") << "A5"
                                    << QStringList{"--type", "T4TCP", "SOCKET.IP=192.0.2.1", "BUST4.ID=0"}
                                    << "WP=SOCKET,IP=192.0.2.1,WP=BUST4,ID=0";
    QTest::newRow("shared parameter")
        << "A6" << QStringList{"--type", "T4TCP", "HOST=h", "ID=1", "BUST4.TIME=500"}
        << "WP=SOCKET,HOST=h,TIME=500,WP=BUST4,ID=1,TIME=500";
    QTest::newRow("shared parameter without its waypoint")
        << "A7" << QStringList{"--type", "T4TCP", "HOST=h", "ID=1", "RETRY=3"}
        << "WP=SOCKET,HOST=h,RETRY=3,WP=BUST4,ID=1,RETRY=3";
    QTest::newRow("password") << "A8" << QStringList{"--type", "T4MODEM", "PHONE=1", "PSW=s e=c", "ID=1"}
                              << "WP=MODEM,PHONE=1,PSW=s e=c,WP=BUST4,ID=1";
    QTest::newRow("target") << "A9" << QStringList{"--target", "wp=bust4,id=9,WP=opt,pr=t4dt"}
                            << "WP=BUST4,ID=9,WP=OPT,PR=T4DT";
    QTest::newRow("target and a parameter")
        << "A10" << QStringList{"--target", "WP=BUST4,ID=9,TIME=3", "ID=10"} << "WP=BUST4,ID=10,TIME=3";
    QTest::newRow("like another") << "A11" << QStringList{"--like", "bus", "ID=3"}
                                  << "WP=BUST4,ID=3,SPEED=9600,WP=OPT,PR=T4DT";
    QTest::newRow("not only ASCII") << QStringLiteral("  Żurawin 塔 😀 ")
                                    << QStringList{"--type", "LAN", QStringLiteral("STATION=Žurawin 😀 塔")}
                                    << QStringLiteral("WP=LAN,STATION=Žurawin 😀 塔");
    QTest::newRow("quotes") << "x' OR \"1\"='1" << QStringList{"--type", "T4BUS", "ID=1"} << "WP=BUST4,ID=1";
}

void TestZelkaEditConnections::Add_Definition_IsStored()
{
    QFETCH(QString, name);
    QFETCH(QStringList, options);
    QFETCH(QString, target);

    const ZelkaResult result = m_zelka.Run(QStringList{"add", "connection", name} + options);

    QCOMPARE(result.words, QByteArray());
    QCOMPARE(result.code, 0);
    const QByteArray id = m_zelka.Query("SELECT max(id) FROM connection");
    QCOMPARE(result.Lines(), QStringList{QStringLiteral("Added the connection \"%1\", id %2.")
                                             .arg(name.trimmed(), QString::fromUtf8(id))});
    QCOMPARE(Target(m_zelka, name), target);
}

void TestZelkaEditConnections::Add_Json_TellsNameAndId()
{
    const ZelkaResult result =
        m_zelka.Run({"add", "connection", "Json", "--type", "T4BUS", "ID=1", "--json"});

    QCOMPARE(result.code, 0);
    const int id = m_zelka.Query("SELECT id FROM connection WHERE name = 'Json'").toInt();
    QCOMPARE(result.Json().object(), (QJsonObject{{"name", "Json"}, {"kind", "connection"}, {"id", id}}));
}

void TestZelkaEditConnections::Add_Refused_ChangesNothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("text");
    const QStringList bus{"--type", "T4BUS", "ID=1"};
    QTest::newRow("taken") << "Bus" << bus << "Connection Bus already exists. Give a new name.";
    QTest::newRow("taken in another case")
        << "bUS" << bus << "Connection bUS already exists. Give a new name.";
    QTest::newRow("taken by a node") << "tower" << bus
                                     << "Node name tower already exists in the database. No saving, because "
                                        "connections and nodes cannot share the same name.";
    QTest::newRow("reserved") << " new CONNECTION " << bus
                              << "'New Connection' cannot be used as a connection name, give a new name.";
    QTest::newRow("empty name") << "  " << bus
                                << "No saving, because of an error in waypoint parameters or mandatory "
                                   "waypoint is missing all its parameters.";
    QTest::newRow("comma") << "a,b" << bus << "The name \"a,b\" holds a comma.";
    QTest::newRow("tab") << "a\tb" << bus << "The name holds control characters.";
    QTest::newRow("256 characters") << QString(256, u'x') << bus << "The name has more than 255 characters.";
    QTest::newRow("mandatory parameter") << "N" << QStringList{"--type", "T4BUS"} << Missing.arg("BUST4.ID");
    QTest::newRow("mandatory parameter emptied")
        << "N" << QStringList{"--target", "WP=BUST4,ID=1", "ID="} << Missing.arg("BUST4.ID");
    QTest::newRow("group without a value")
        << "N" << QStringList{"--type", "T4TCP", "ID=1"} << Group.arg("SOCKET.HOST, SOCKET.IP");
    QTest::newRow("group with two values") << "N" << QStringList{"--type", "T4TCP", "ID=1", "HOST=h", "IP=i"}
                                           << Group.arg("SOCKET.HOST, SOCKET.IP");
    QTest::newRow("no password") << "N" << QStringList{"--type", "T4MODEM", "PHONE=1", "ID=1"}
                                 << Group.arg("MODEM.PSW");
    QTest::newRow("unknown keyword")
        << "N" << QStringList{"--type", "SNMP", "ID=1"}
        << "ID=1: There is no such parameter; known are SNMP.VERSION, SNMP.TIME, SNMP.RETRY.";
    QTest::newRow("unknown waypoint")
        << "N" << QStringList{"--type", "SNMP", "2.TIME=1"}
        << "2.TIME=1: There is no such parameter; known are SNMP.VERSION, SNMP.TIME, SNMP.RETRY.";
    QTest::newRow("above the bounds")
        << "N" << QStringList{"--type", "T4BUS", "ID=1000000"}
        << "ID=1000000: Value 1000000 out of range [ 0, 999999]. Give a new value.";
    QTest::newRow("below the bounds") << "N" << QStringList{"--type", "T4BUS", "ID=-1"}
                                      << "ID=-1: Value -1 out of range [ 0, 999999]. Give a new value.";
    QTest::newRow("no number") << "N" << QStringList{"--type", "T4BUS", "BUST4.ID=7x"}
                               << "BUST4.ID=7x: The value must be a whole number from 0 to 999999.";
    QTest::newRow("not in the list") << "N" << QStringList{"--type", "T4BUS", "ID=1", "PR=X"}
                                     << "PR=X: The value must be one of T4DT, T4DL.";
    QTest::newRow("too long") << "N" << QStringList{"--type", "T4X25", "ID=1", "CALL=1234567890123456"}
                              << "CALL=1234567890123456: The value has 16 characters, 15 are allowed.";
    QTest::newRow("comma in a value")
        << "N" << QStringList{"--type", "LAN", "STATION=a,WP=b"}
        << "STATION=a,WP=b: A value cannot hold a comma or a control character.";
    QTest::newRow("bad target") << "N" << QStringList{"--target", "ID=1"}
                                << "The target \"ID=1\" is refused.";
    QTest::newRow("target of no type")
        << "N" << QStringList{"--target", "WP=OPT,PR=T4DT"}
        << "No connection type has the waypoints of the target \"WP=OPT,PR=T4DT\".";
    QTest::newRow("unknown parameter in a target") << "N" << QStringList{"--target", "WP=SNMP,ODD=1"}
                                                   << "ODD=1: There is no such parameter in waypoint SNMP; "
                                                      "known are SNMP.VERSION, SNMP.TIME, SNMP.RETRY.";
    QTest::newRow("value of a target") << "N" << QStringList{"--target", "WP=SNMP,VERSION=3"}
                                       << "VERSION=3: The value must be one of 1, 2c.";
    QTest::newRow("like a missing one")
        << "N" << QStringList{"--like", "Tram"} << "There is no connection \"Tram\".";
    QTest::newRow("like a node") << "N" << QStringList{"--like", "Tower"}
                                 << "There is no connection \"Tower\".";
}

void TestZelkaEditConnections::Add_Refused_ChangesNothing()
{
    QFETCH(QString, name);
    QFETCH(QStringList, options);
    QFETCH(QString, text);
    const QByteArray before = Contents(m_zelka);

    const ZelkaResult result = m_zelka.Run(QStringList{"add", "connection", name, "--json"} + options);

    QCOMPARE(result.Words(), QStringLiteral("zelka: %1\n").arg(text));
    QCOMPARE(result.code, 1);
    QCOMPARE(result.Json().object(), (QJsonObject{{"error", text}}));
    QCOMPARE(Contents(m_zelka), before);
}

void TestZelkaEditConnections::Add_WrongUsage_IsToldSo_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("part");
    QTest::newRow("no origin") << QStringList{"N", "ID=1"} << "1 option";
    QTest::newRow("two origins") << QStringList{"N", "--type", "T4BUS", "--like", "Bus"} << "1 option";
    QTest::newRow("no equals sign") << QStringList{"N", "--type", "T4BUS", "ID"} << "\"ID\" is no KEY=VALUE.";
    QTest::newRow("no key") << QStringList{"N", "--type", "T4BUS", "=1"} << "\"=1\" is no KEY=VALUE.";
    QTest::newRow("twice") << QStringList{"N", "--type", "T4BUS", "ID=1", "id=2"} << "id is given twice.";
    QTest::newRow("name twice") << QStringList{"N", "--type", "T4BUS", "name=M"} << "name is given twice.";
    QTest::newRow("type beside target") << QStringList{"N", "--type", "T4BUS", "target=WP=SNMP"}
                                        << "A type and a target cannot be given together.";
    QTest::newRow("a node's field") << QStringList{"N", "--type", "T4BUS", "ID=1", "manager=Radio"}
                                    << "A connection has no manager.";
    QTest::newRow("no name") << QStringList{} << "name";
}

void TestZelkaEditConnections::Add_WrongUsage_IsToldSo()
{
    QFETCH(QStringList, options);
    QFETCH(QString, part);

    const ZelkaResult result = m_zelka.Run(QStringList{"add", "connection"} + options);

    QCOMPARE(result.code, 2);
    QVERIFY2(result.Words().contains(part), result.words.constData());
    QCOMPARE(result.data, QByteArray());
}

// Changing ------------------------------------------------------------------------------------------------

void TestZelkaEditConnections::Set_Changes_AreStored_data()
{
    QTest::addColumn<QStringList>("values");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("target");
    QTest::newRow("parameter") << QStringList{"BUST4.ID=7"} << "Bus"
                               << "WP=BUST4,ID=7,SPEED=9600,WP=OPT,PR=T4DT";
    QTest::newRow("value to its default") << QStringList{"SPEED="} << "Bus"
                                          << "WP=BUST4,ID=254,WP=OPT,PR=T4DT";
    QTest::newRow("optional waypoint emptied") << QStringList{"PR="} << "Bus"
                                               << "WP=BUST4,ID=254,SPEED=9600";
    QTest::newRow("name and parameter") << QStringList{"name= Tram ", "ID=1"} << "Tram"
                                        << "WP=BUST4,ID=1,SPEED=9600,WP=OPT,PR=T4DT";
    QTest::newRow("target") << QStringList{"target=WP=BUST4,ID=2"} << "Bus"
                            << "WP=BUST4,ID=2";
    QTest::newRow("the same type keeps values") << QStringList{"TYPE=t4bus"} << "Bus"
                                                << "WP=BUST4,ID=254,SPEED=9600,WP=OPT,PR=T4DT";
    QTest::newRow("another type starts anew") << QStringList{"type=KD7TCP", "HOST=h", "BUSID=2"} << "Bus"
                                              << "WP=SOCKET,HOST=h,WP=KD7,BUSID=2";
    QTest::newRow("not only ASCII") << QStringList{QStringLiteral("name=Żurawin 😀")}
                                    << QStringLiteral("Żurawin 😀")
                                    << "WP=BUST4,ID=254,SPEED=9600,WP=OPT,PR=T4DT";
}

void TestZelkaEditConnections::Set_Changes_AreStored()
{
    QFETCH(QStringList, values);
    QFETCH(QString, name);
    QFETCH(QString, target);
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();

    const ZelkaResult result = zelka.Run(QStringList{"set", "bus"} + values);

    QCOMPARE(result.words, QByteArray());
    QCOMPARE(result.code, 0);
    const QString id = QString::fromUtf8(zelka.Query("SELECT id FROM connection"));
    QCOMPARE(result.Lines(),
             QStringList{QStringLiteral("Changed the connection \"%1\", id %2.").arg(name, id)});
    QCOMPARE(Target(zelka, name), target);
    QCOMPARE(zelka.Run({"list", "connections"}).Lines(), QStringList{name});
}

void TestZelkaEditConnections::Set_Rename_KeepsTheNodes()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();

    QCOMPARE(zelka.Run({"set", "Bus", "name=Tram"}).code, 0);

    QCOMPARE(zelka.Run({"list", "nodes", "--under", "Tram"}).Lines(), QStringList{"Tower"});
}

void TestZelkaEditConnections::Set_Refused_ChangesNothing_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("text");
    QTest::newRow("unknown name") << QStringList{"Tram", "ID=1"} << 1
                                  << "There is no connection or node \"Tram\".";
    QTest::newRow("taken name") << QStringList{"Bus", "name=Other"} << 1
                                << "Connection Other already exists. Give a new name.";
    QTest::newRow("name of a node") << QStringList{"Bus", "name=Tower"} << 1
                                    << "Node name Tower already exists in the database. No saving, because "
                                       "connections and nodes cannot share the same name.";
    QTest::newRow("reserved name")
        << QStringList{"Bus", "name=New Connection"} << 1
        << "'New Connection' cannot be used as a connection name, give a new name.";
    QTest::newRow("comma") << QStringList{"Bus", "name=a,b"} << 1 << "The name \"a,b\" holds a comma.";
    QTest::newRow("value") << QStringList{"Bus", "ID=x"} << 1
                           << "ID=x: The value must be a whole number from 0 to 999999.";
    QTest::newRow("mandatory") << QStringList{"Bus", "BUST4.ID="} << 1 << Missing.arg("BUST4.ID");
    QTest::newRow("a good value before a bad one") << QStringList{"Bus", "ID=1", "SPEED=1"} << 1
                                                   << "SPEED=1: The value must be one of 1200, 2400, 9600, "
                                                      "19200, 57600.";
    QTest::newRow("connection of a connection")
        << QStringList{"Bus", "connection=Other"} << 2 << "A connection has no connection.";
    QTest::newRow("tail of a connection")
        << QStringList{"Bus", "tail=-x"} << 2 << "A connection has no tail.";
}

void TestZelkaEditConnections::Set_Refused_ChangesNothing()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, code);
    QFETCH(QString, text);
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    QCOMPARE(zelka.Run({"add", "connection", "Other", "--type", "SNMP"}).code, 0);
    const QByteArray before = Contents(zelka);

    const ZelkaResult result = zelka.Run(QStringList{"set"} + arguments);

    QCOMPARE(result.Words(), QStringLiteral("zelka: %1\n").arg(text));
    QCOMPARE(result.code, code);
    QCOMPARE(Contents(zelka), before);
}

void TestZelkaEditConnections::Set_TypeWithNodes_IsRefused_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("change");
    QTest::addColumn<QStringList>("rest");
    QTest::addColumn<QString>("text");
    QTest::newRow("from SNMP") << "WP=SNMP,VERSION=1"
                               << "type=T4BUS" << QStringList{"ID=1"}
                               << "Connection type cannot be changed, because the T4 Bus connection already "
                                  "has node(s).";
    QTest::newRow("from SNMP by a target") << "WP=SNMP,VERSION=1"
                                           << "target=WP=BUST4,ID=1" << QStringList{}
                                           << "Connection type cannot be changed, because the T4 Bus "
                                              "connection already has node(s).";
    QTest::newRow("to Simple") << "WP=BUST4,ID=1"
                               << "type=SIMPLE" << QStringList{}
                               << "Simple Serial cannot be used, because the connection already has node(s).";
}

void TestZelkaEditConnections::Set_TypeWithNodes_IsRefused()
{
    QFETCH(QString, before);
    QFETCH(QString, change);
    QFETCH(QStringList, rest);
    QFETCH(QString, text);
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    zelka.Sql("UPDATE connection SET target = '" + before.toUtf8() + "';");

    const ZelkaResult result = zelka.Run({"set", "Bus", change});

    QCOMPARE(result.Words(), QStringLiteral("zelka: %1\n").arg(text));
    QCOMPARE(result.code, 1);
    QCOMPARE(Target(zelka, "Bus"), before);
    QCOMPARE(zelka.Run({"remove", "Tower"}).code, 0);
    QCOMPARE(zelka.Run(QStringList{"set", "Bus", change} + rest).code, 0);
}

void TestZelkaEditConnections::Set_IfId_GuardsTheChange()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    const int id = zelka.Query("SELECT id FROM connection").toInt();

    const ZelkaResult stale = zelka.Run({"set", "Bus", "ID=1", "--if-id", QString::number(id + 1)});
    QCOMPARE(stale.code, 1);
    QCOMPARE(stale.Words(),
             QStringLiteral("zelka: Save is prevented, because another application has changed this "
                            "connection. Close dialog and try again.\n"));
    QCOMPARE(zelka.Run({"target", "Bus"}).Lines(), QStringList{"WP=BUST4,ID=254"});

    QCOMPARE(zelka.Run({"set", "Bus", "ID=1", "--if-id", QString::number(id)}).code, 0);
    QCOMPARE(zelka.Run({"target", "Bus"}).Lines(), QStringList{"WP=BUST4,ID=1"});
    // Each change gives a new id.
    QCOMPARE(zelka.Run({"set", "Bus", "ID=2", "--if-id", QString::number(id)}).code, 1);
}

void TestZelkaEditConnections::Set_IsJournaled()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    const int last = zelka.Query("SELECT max(id) FROM journal").toInt();

    QCOMPARE(zelka.Run({"set", "Bus", "name=Tram", "ID=1"}).code, 0);

    QCOMPARE(
        zelka.Rows("SELECT record_type FROM journal WHERE id > " + QByteArray::number(last) + " ORDER BY id"),
        QByteArray("21,41,41"));
}

QTEST_GUILESS_MAIN(TestZelkaEditConnections)
#include "TestZelkaEditConnections.moc"
