#include "ZelkaRunner.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTest>

/// `zelka remove`, `zelka show`, and what all commands that write have in common.
class TestZelkaEditRecords : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Remove_Node_LeavesItsConnection();
    void Remove_EmptyConnection_NeedsNoForce();
    void Remove_ConnectionWithNodes_NeedsForce();
    void Remove_Json_TellsWhatWent();
    void Remove_UnknownName_IsRefused();
    void Remove_IfId_GuardsTheRemoval_data();
    void Remove_IfId_GuardsTheRemoval();
    void Show_Connection_TellsIdAndKeys();
    void Show_Node_TellsManagerAndKeys();
    void Show_Json_HasAllParameters();
    void Show_Password_IsMasked();
    void Show_UnknownName_IsRefused();
    void Write_WithoutRight_IsRefused_data();
    void Write_WithoutRight_IsRefused();
    void Write_DatabaseInUse_EndsWithItsCode();
    void Write_NoDatabase_EndsWithItsCode();
};

static QStringList Names(const ZelkaRunner& zelka)
{
    return zelka.Run({"list", "connections"}).Lines() + zelka.Run({"list", "nodes"}).Lines();
}

// Removing ------------------------------------------------------------------------------------------------

void TestZelkaEditRecords::Remove_Node_LeavesItsConnection()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();

    const ZelkaResult result = zelka.Run({"remove", "tOWER"});

    QCOMPARE(result.words, QByteArray());
    QCOMPARE(result.code, 0);
    QCOMPARE(result.Lines(), QStringList{"Removed the node \"Tower\"."});
    QCOMPARE(Names(zelka), QStringList{"Bus"});
}

void TestZelkaEditRecords::Remove_EmptyConnection_NeedsNoForce()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    QCOMPARE(zelka.Run({"remove", "Tower"}).code, 0);

    const ZelkaResult result = zelka.Run({"remove", "bus"});

    QCOMPARE(result.code, 0);
    QCOMPARE(result.Lines(), QStringList{"Removed the connection \"Bus\"."});
    QCOMPARE(Names(zelka), QStringList{});
}

void TestZelkaEditRecords::Remove_ConnectionWithNodes_NeedsForce()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();

    const ZelkaResult one = zelka.Run({"remove", "Bus"});
    QCOMPARE(one.code, 1);
    QCOMPARE(one.Words(), QStringLiteral("zelka: The connection \"Bus\" has 1 node, which would be removed "
                                         "with it; --force removes both.\n"));
    QCOMPARE(zelka.Run({"add", "node", "Mast", "--like", "Tower"}).code, 0);
    const ZelkaResult two = zelka.Run({"remove", "Bus"});
    QCOMPARE(two.code, 1);
    QCOMPARE(two.Words(), QStringLiteral("zelka: The connection \"Bus\" has 2 nodes, which would be removed "
                                         "with it; --force removes all.\n"));
    QCOMPARE(Names(zelka), (QStringList{"Bus", "Tower", "Mast"}));

    const ZelkaResult forced = zelka.Run({"remove", "Bus", "--force"});

    QCOMPARE(forced.code, 0);
    QCOMPARE(forced.Lines(), QStringList{"Removed the connection \"Bus\" and its 2 nodes."});
    QCOMPARE(Names(zelka), QStringList{});
}

void TestZelkaEditRecords::Remove_Json_TellsWhatWent()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    const int bus = zelka.Query("SELECT id FROM connection").toInt();
    const int tower = zelka.Query("SELECT id FROM node").toInt();

    QCOMPARE(zelka.Run({"remove", "Tower", "--json"}).Json().object(),
             (QJsonObject{{"name", "Tower"}, {"kind", "node"}, {"id", tower}}));
    QCOMPARE(zelka.Run({"remove", "Bus", "--json"}).Json().object(),
             (QJsonObject{{"name", "Bus"}, {"kind", "connection"}, {"id", bus}, {"nodes", 0}}));
}

void TestZelkaEditRecords::Remove_UnknownName_IsRefused()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();

    const ZelkaResult result = zelka.Run({"remove", "T%", "--force"});

    QCOMPARE(result.code, 1);
    QCOMPARE(result.Words(), QStringLiteral("zelka: There is no connection or node \"T%\".\n"));
    QCOMPARE(Names(zelka), (QStringList{"Bus", "Tower"}));
}

void TestZelkaEditRecords::Remove_IfId_GuardsTheRemoval_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("table");
    QTest::newRow("node") << "Tower"
                          << "node";
    QTest::newRow("connection") << "Bus"
                                << "connection";
}

void TestZelkaEditRecords::Remove_IfId_GuardsTheRemoval()
{
    QFETCH(QString, name);
    QFETCH(QString, table);
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    const int id = zelka.Query("SELECT id FROM " + table.toUtf8()).toInt();

    const ZelkaResult stale = zelka.Run({"remove", name, "--force", "--if-id", QString::number(id + 1)});
    QCOMPARE(stale.code, 1);
    QCOMPARE(stale.Words(), QStringLiteral("zelka: The %1 \"%2\" is not removed, because another application "
                                           "has changed it.\n")
                                .arg(table, name));
    QCOMPARE(Names(zelka), (QStringList{"Bus", "Tower"}));

    QCOMPARE(zelka.Run({"remove", name, "--force", "--if-id", QString::number(id)}).code, 0);
    QVERIFY(!Names(zelka).contains(name));
}

// Showing -------------------------------------------------------------------------------------------------

void TestZelkaEditRecords::Show_Connection_TellsIdAndKeys()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    const QString id = QString::fromUtf8(zelka.Query("SELECT id FROM connection"));

    const ZelkaResult result = zelka.Run({"show", "bus"});

    QCOMPARE(result.code, 0);
    QCOMPARE(result.Lines(),
             (QStringList{"name: Bus", "kind: connection", "id: " + id, "type: T4BUS", "BUST4.ID=254",
                          "BUST4.SPEED=9600", "BUST4.TIME= (default 2000)", "BUST4.RETRY= (default 2)",
                          "OPT.PR=T4DT", "OPT.DT= (default TEXT)", "OPT.VERIFY= (default YES)"}));
}

void TestZelkaEditRecords::Show_Node_TellsManagerAndKeys()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();

    const QStringList lines = zelka.Run({"show", "Tower"}).Lines();

    QCOMPARE(lines.mid(3, 5), (QStringList{"type: NET4", "connection: Bus", "manager: Radio", "command: 1|-x",
                                           "NET4.ADDR=4094"}));
    QVERIFY(lines.contains(QStringLiteral("FE.ID=")));
}

void TestZelkaEditRecords::Show_Json_HasAllParameters()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    const QStringList ids = zelka.Run({"list", "connections", "--ids"}).Lines();

    const QJsonObject shown = zelka.Run({"show", "Bus", "--json"}).Json().object();

    QCOMPARE(QString::number(shown["id"].toInt()) + "\tBus", ids.value(0));
    QCOMPARE(shown["parameters"].toArray().size(), 7);
    QCOMPARE(shown["parameters"].toArray().first().toObject(), (QJsonObject{{"key", "BUST4.ID"},
                                                                            {"longName", "BUS NUMBER"},
                                                                            {"value", "254"},
                                                                            {"default", ""},
                                                                            {"required", 1}}));
}

void TestZelkaEditRecords::Show_Password_IsMasked()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    QCOMPARE(
        zelka.Run({"add", "connection", "Modem", "--type", "T4MODEM", "PHONE=1", "ID=1", "PSW=secret"}).code,
        0);

    const ZelkaResult result = zelka.Run({"show", "Modem"});

    QVERIFY(result.Lines().contains(QStringLiteral("MODEM.PSW=******")));
    QVERIFY(!result.data.contains("secret"));
}

void TestZelkaEditRecords::Show_UnknownName_IsRefused()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();

    const ZelkaResult result = zelka.Run({"show", "Mast"});

    QCOMPARE(result.code, 1);
    QCOMPARE(result.Words(), QStringLiteral("zelka: There is no connection or node \"Mast\".\n"));
}

// Rights and databases that cannot be written -------------------------------------------------------------

void TestZelkaEditRecords::Write_WithoutRight_IsRefused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("add connection") << QStringList{"add", "connection", "N", "--type", "SNMP"};
    QTest::newRow("add node") << QStringList{"add", "node", "N", "--like", "Tower"};
    QTest::newRow("set connection") << QStringList{"set", "Bus", "ID=1"};
    QTest::newRow("set node") << QStringList{"set", "Tower", "ADDR=1"};
    QTest::newRow("remove") << QStringList{"remove", "Tower"};
    QTest::newRow("remove with force") << QStringList{"remove", "Bus", "--force"};
}

void TestZelkaEditRecords::Write_WithoutRight_IsRefused()
{
    QFETCH(QStringList, arguments);
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    zelka.Sql("DELETE FROM user_rights; INSERT INTO user_rights VALUES ('*', 1, 0);");
    const QByteArray journal = zelka.Query("SELECT max(id) FROM journal");

    const ZelkaResult result = zelka.Run(arguments);

    QCOMPARE(result.code, 1);
    QVERIFY2(result.Words().endsWith(QStringLiteral(" has no right to edit the database.\n")),
             result.words.constData());
    QCOMPARE(result.Words().count(u'\n'), 1);
    QCOMPARE(zelka.Query("SELECT max(id) FROM journal"), journal);
    QCOMPARE(zelka.Run({"show", "Bus"}).code, 0);
}

void TestZelkaEditRecords::Write_DatabaseInUse_EndsWithItsCode()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    // Maintenance on another machine, alive for a while.
    const QByteArray beat = QByteArray::number(QDateTime::currentMSecsSinceEpoch() + 600'000);
    zelka.Sql("INSERT INTO cam_lock VALUES (1, 'token', 'someone', 'elsewhere', 1, " + beat + ");");

    const ZelkaResult result = zelka.Run({"remove", "Tower"});

    QCOMPARE(result.code, 3);
    QCOMPARE(result.Words(), QStringLiteral("zelka: Access to HVX Database is denied, another application "
                                            "might be using it.\n"));
    zelka.Sql("DELETE FROM cam_lock;");
    QCOMPARE(Names(zelka), (QStringList{"Bus", "Tower"}));
}

void TestZelkaEditRecords::Write_NoDatabase_EndsWithItsCode()
{
    const ZelkaRunner zelka;

    const ZelkaResult result =
        zelka.Run({"add", "connection", "N", "--type", "SNMP", "--source", zelka.Path("none/Dbs.mdb")});

    QCOMPARE(result.code, 3);
    QVERIFY(!result.words.isEmpty());
}

QTEST_GUILESS_MAIN(TestZelkaEditRecords)
#include "TestZelkaEditRecords.moc"
