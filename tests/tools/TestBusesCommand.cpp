#include "tests/tools/NetworkCommandFixture.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTest>

/// `zelka buses` in this process, on scripted components.
class TestBusesCommand : public QObject, private NetworkCommandFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { End(); }

    void Buses_Answered_AreListed();
    void Buses_Json_IsAnArray();
    void Buses_None_PrintsNothing();
    void Buses_ConnectionWithoutBus_IsRefused();
    void Buses_Failure_TellsWhy_data();
    void Buses_Failure_TellsWhy();
    void Buses_Interrupted_EndsTheWait();

private:
    [[nodiscard]] int Buses(const QStringList& arguments = {},
                            const QString& connection = QStringLiteral("Beta"))
    {
        return Run().Run(QStringList{"buses", connection, "--source", Database().Source()} + arguments);
    }
};

void TestBusesCommand::Buses_Answered_AreListed()
{
    Database().OpenComponent()->SaveParent(QStringLiteral("Mediation"),
                                           QStringLiteral("WP=KD7,BUSID=3,WP=OPT,PR=T4DT"));
    Network().OnSend = [](const QString&, const QString&) {
        return QStringLiteral("m:11,1,3\r12\r 40 \r254\r");
    };

    QCOMPARE(Buses({}, QStringLiteral("Mediation")), 0);

    QCOMPARE(Run().Lines(), (QStringList{"12", "40"}));
    const QString target = QStringLiteral("WP=KD7,BUSID=254,WP=NET4,ADDR=4094,WP=OPT,PR=T4DT");
    QCOMPARE(Network().Calls.mid(0, 5),
             (QStringList{"Create Zelka.HVXSyncConn.1", "Create Zelka.HVXUtil.1", "Open " + target,
                          "U2A m:11,1,3\r", "Send |m:11,1,3\r"}));
    VerifyReleased();
}

void TestBusesCommand::Buses_Json_IsAnArray()
{
    Network().OnSend = [](const QString&, const QString&) { return QStringLiteral("m:11,1,3\r12\r254\r"); };

    QCOMPARE(Buses({"--json"}), 0);

    QCOMPARE(Run().Json().array(), (QJsonArray{QJsonObject{{"bus", 12}}}));
}

void TestBusesCommand::Buses_None_PrintsNothing()
{
    Network().OnSend = [](const QString&, const QString&) { return QStringLiteral("m:11,1,3\r"); };

    QCOMPARE(Buses(), 0);

    QCOMPARE(Run().Lines() + Run().Words(), QStringList());
}

void TestBusesCommand::Buses_ConnectionWithoutBus_IsRefused()
{
    Database().OpenComponent()->SaveParent(QStringLiteral("Line"),
                                           QStringLiteral("WP=COM,PORT=1,WP=OPT,PR=T4DT"));

    QCOMPARE(Buses({}, QStringLiteral("Line")), 1);

    QCOMPARE(Run().Words(), QStringList{"zelka: The connection \"Line\" leads over no bus."});
    QCOMPARE(Network().Calls, QStringList());
}

void TestBusesCommand::Buses_Failure_TellsWhy_data()
{
    QTest::addColumn<QString>("step");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("words");
    QTest::newRow("open")
        << "Open"
        << "Nobody listens"
        << "Connection could not be opened. Nobody listens (Major code = 2, Minor code = 0)";
    QTest::newRow("request") << "Send"
                             << "Reset"
                             << "Buses could not be scanned. Reset (Major code = 2, Minor code = 0)";
    QTest::newRow("reply") << "GetBERData"
                           << ""
                           << "Buses could not be scanned. No element";
    QTest::newRow("text") << "A2U"
                          << ""
                          << "Buses could not be scanned. No element";
}

void TestBusesCommand::Buses_Failure_TellsWhy()
{
    QFETCH(QString, step);
    QFETCH(QString, text);
    QFETCH(QString, words);
    Network().Text = text;
    Network().Major = 2;
    Network().OnOpen = [&](const QString&) { return step == u"Open" ? 1 : 0; };
    Network().OnSend = [&](const QString&, const QString&) {
        if (step == u"Send")
            ScriptedNetwork::Raise();
        return QStringLiteral("m:11,1,3\r12\r254\r");
    };
    Network().OnConvert = [&](const QString& method, const QString& input) {
        if (step == method)
            ScriptedNetwork::Raise(QStringLiteral("No element"));
        return input;
    };

    QCOMPARE(Buses({"--json"}), 4);

    QCOMPARE(Run().Words(), QStringList{"zelka: " + words});
    QCOMPARE(Run().Json().object(), (QJsonObject{{"error", words}}));
    VerifyReleased();
}

void TestBusesCommand::Buses_Interrupted_EndsTheWait()
{
    Network().OnSend = [&](const QString&, const QString&) {
        InterruptWait();
        return QString();
    };

    QCOMPARE(Buses(), 130);

    QCOMPARE(Run().Lines() + Run().Words(), QStringList());
    VerifyReleased();
}

QTEST_GUILESS_MAIN(TestBusesCommand)
#include "TestBusesCommand.moc"
