#include "tests/components/network/FullPort.h"
#include "tests/components/network/ScriptedGateway.h"
#include "tests/components/network/SyncCalls.h"

#include <QtTest>

#include <array>
#include <fcntl.h>
#include <netinet/in.h>
#include <unistd.h>

using namespace GatewayFrame;
using Script = ScriptedGateway::Script;

Q_DECLARE_METATYPE(Script)

namespace {

/// What a script does to the wire, whatever came.
Script Bytes(const QByteArray& bytes)
{
    return [bytes](ScriptedGateway& gateway, const Frame&) { gateway.SendBytes(bytes); };
}

Script HangUpBehind(const QByteArray& bytes)
{
    return [bytes](ScriptedGateway& gateway, const Frame&) {
        gateway.SendBytes(bytes);
        gateway.HangUp();
    };
}

Script AnswerWith(const Body& body)
{
    return [body](ScriptedGateway& gateway, const Frame& frame) { gateway.Answer({frame.exchange, body}); };
}

Script AnswerOtherExchangeWith(const Body& body)
{
    return [body](ScriptedGateway& gateway, const Frame& frame) {
        gateway.Answer({frame.exchange + 1, body});
    };
}

} // namespace

/// Codes and texts of everything that can go wrong, and what is open behind it.
class TestSyncFailures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void Open_BadTarget_TellsTheMistake();
    void Open_BadVariable_NamesIt();
    void Open_TargetTooLong_Refused();
    void Open_HostUnknown_NotFound();
    void Open_NobodyListens_RefusedAtOnce();
    void Open_NoRoomForConnections_TimesOut();
    void Open_NoAnswer_ToldAndClosed();
    void Open_Refused_ToldAndClosed();
    void OpenAndSend_BadStream_ToldAndClosed_data();
    void OpenAndSend_BadStream_ToldAndClosed();
    void Send_WrongKindOfAnswer_ToldAndClosed();
    void Open_WrongKindOfAnswer_ToldAndClosed();
    void Send_NotOpen_Told();
    void Send_BadInput_ToldAndStillOpen_data();
    void Send_BadInput_ToldAndStillOpen();
    void Send_Silence_NamesTheElement_data();
    void Send_Silence_NamesTheElement();
    void Send_TextOfTheGateway_OneLineAndNotTooLong_data();
    void Send_TextOfTheGateway_OneLineAndNotTooLong();
    void Send_GatewayGoneWhileIdle_Lost_data();
    void Send_GatewayGoneWhileIdle_Lost();
    void Send_GatewayTakesNothing_SilentWithoutPilingUp();
};

void TestSyncFailures::cleanup()
{
    qunsetenv("ZELKA_GATEWAY");
}

void TestSyncFailures::Open_BadTarget_TellsTheMistake()
{
    SyncConnectionComponent connection;

    QCOMPARE(FailureOfOpen(connection, QStringLiteral("WP=NET4,TIME=soon")),
             QStringLiteral("1/1 The target cannot be used. TIME of NET4 is \"soon\", but has to be a whole "
                            "number from 0 to 30000."));
}

void TestSyncFailures::Open_BadVariable_NamesIt()
{
    SyncConnectionComponent connection;
    qputenv("ZELKA_GATEWAY", "gateway");

    QCOMPARE(FailureOfOpen(connection, QString()),
             QStringLiteral("2/7 The environment variable ZELKA_GATEWAY is \"gateway\", but has to be "
                            "host:port."));
}

void TestSyncFailures::Open_TargetTooLong_Refused()
{
    ScriptedGateway gateway;
    SyncConnectionComponent connection;

    QCOMPARE(FailureOfOpen(connection, gateway.Target(QStringLiteral(",A=") + QString(70'000, u'x'))),
             QStringLiteral("1/1 The target cannot be sent: it is too long or no valid text."));
    QTRY_COMPARE(gateway.Disconnections, 1);
}

void TestSyncFailures::Open_HostUnknown_NotFound()
{
    // No part of a name may be that long, so no server is asked.
    const QString host(64, u'x');
    SyncConnectionComponent connection;

    QCOMPARE(FailureOfOpen(connection, QStringLiteral("WP=SOCKET,HOST=%1,TIME=30000,RETRY=0").arg(host)),
             QStringLiteral("2/1 The host of the gateway %1:4004 was not found.").arg(host));
}

void TestSyncFailures::Open_NobodyListens_RefusedAtOnce()
{
    ScriptedGateway gateway;
    gateway.StopListening();
    SyncConnectionComponent connection;

    // Repeats would take longer than the test may.
    QCOMPARE(
        FailureOfOpen(connection, gateway.Target(QString(), QStringLiteral("TIME=30000,RETRY=1000"))),
        QStringLiteral("2/2 No gateway listens at %1: the connection was refused.").arg(gateway.Address()));
}

void TestSyncFailures::Open_NoRoomForConnections_TimesOut()
{
    const FullPort port;
    SyncConnectionComponent connection;

    QCOMPARE(FailureOfOpen(connection,
                           QStringLiteral("WP=SOCKET,IP=127.0.0.1,PORT=%1,TIME=20,RETRY=2").arg(port.Port())),
             QStringLiteral("2/3 No connection to the gateway 127.0.0.1:%1 within 20 ms, tried 3 times.")
                 .arg(port.Port()));
}

void TestSyncFailures::Open_NoAnswer_ToldAndClosed()
{
    ScriptedGateway gateway([](ScriptedGateway&, const Frame&) {});
    SyncConnectionComponent connection;

    QCOMPARE(FailureOfOpen(connection, gateway.Target(QString(), QStringLiteral("TIME=500,RETRY=1"))),
             QStringLiteral("2/6 The gateway %1 took the connection, but did not answer within 1000 ms.")
                 .arg(gateway.Address()));
    QTRY_COMPARE(gateway.Disconnections, 1);
    QCOMPARE(gateway.Frames.size(), 1U);
}

void TestSyncFailures::Open_Refused_ToldAndClosed()
{
    ScriptedGateway gateway(AnswerWith(Failure{3, 1, QStringLiteral("Bus 7 is not served here.")}));
    SyncConnectionComponent connection;

    QCOMPARE(FailureOfOpen(connection, gateway.Target()), QStringLiteral("3/1 Bus 7 is not served here."));
    QTRY_COMPARE(gateway.Disconnections, 1);
    QVERIFY(FailureOfSend(connection, QString(), QString()).startsWith(QStringLiteral("6/1 ")));
}

void TestSyncFailures::OpenAndSend_BadStream_ToldAndClosed_data()
{
    QTest::addColumn<Script>("script");
    QTest::addColumn<QString>("failure");
    const QByteArray reply = Encode({5, Reply{"0123456789"}});
    const QString malformed = QStringLiteral("5/1 The gateway %1 sent something that is no message.");
    const QString closed = QStringLiteral("2/4 The gateway %1 closed the connection.");
    const QString halfway =
        QStringLiteral("2/4 The gateway %1 closed the connection in the middle of a message.");
    const QString unexpected = QStringLiteral("5/4 The gateway %1 sent a message that answers nothing.");
    QTest::newRow("garbage") << Bytes("HTTP/1.1 400 Bad Request\r\n") << malformed;
    QTest::newRow("indefinite length") << Bytes(QByteArray::fromHex("30800201")) << malformed;
    QTest::newRow("a sequence of something else") << Bytes(QByteArray::fromHex("30030c0141")) << malformed;
    QTest::newRow("garbage behind another answer") << Bytes(Encode({77, Opened{}}) + "garbage") << malformed;
    QTest::newRow("oversized") << Bytes(QByteArray::fromHex("3083010000"))
                               << "5/2 The gateway %1 announced a message of more than 65536 bytes.";
    QTest::newRow("other version") << Bytes(QByteArray::fromHex("3008020102020101"
                                                                "8100"))
                                   << "5/3 The gateway %1 speaks another version of the messages than 1.";
    QTest::newRow("request of its own") << AnswerWith(Request{}) << unexpected;
    QTest::newRow("opening of its own") << AnswerOtherExchangeWith(Open{}) << unexpected;
    QTest::newRow("close") << HangUpBehind({}) << closed;
    QTest::newRow("close behind another answer") << HangUpBehind(Encode({77, Opened{}})) << closed;
    QTest::newRow("close in the first byte") << HangUpBehind(reply.left(1)) << halfway;
    QTest::newRow("close before the last byte") << HangUpBehind(reply.chopped(1)) << halfway;
    QTest::newRow("reset") << Script([](ScriptedGateway& gateway, const Frame&) { gateway.Reset(); })
                           << closed;
}

void TestSyncFailures::OpenAndSend_BadStream_ToldAndClosed()
{
    QFETCH(Script, script);
    QFETCH(QString, failure);
    ScriptedGateway gateway(script);
    SyncConnectionComponent connection;

    QCOMPARE(FailureOfOpen(connection, gateway.Target()), failure.arg(gateway.Address()));
    QTRY_COMPARE(gateway.Disconnections, 1);

    gateway.OnFrame = ScriptedGateway::OnRequest(script);
    QCOMPARE(connection.Open(gateway.Target()), 0);
    QCOMPARE(FailureOfSend(connection, QString(), QStringLiteral("40")), failure.arg(gateway.Address()));
    QTRY_COMPARE(gateway.Disconnections, 2);
    QVERIFY(FailureOfSend(connection, QString(), QString()).startsWith(QStringLiteral("6/1 ")));

    gateway.OnFrame = ScriptedGateway::Echo;
    QCOMPARE(connection.Open(gateway.Target()), 0);
}

void TestSyncFailures::Send_WrongKindOfAnswer_ToldAndClosed()
{
    ScriptedGateway gateway(AnswerWith(Opened{}));
    SyncConnectionComponent connection;
    QCOMPARE(connection.Open(gateway.Target()), 0);

    QCOMPARE(
        FailureOfSend(connection, QString(), QString()),
        QStringLiteral("5/4 The gateway %1 sent a message that answers nothing.").arg(gateway.Address()));
    QTRY_COMPARE(gateway.Disconnections, 1);
}

void TestSyncFailures::Open_WrongKindOfAnswer_ToldAndClosed()
{
    ScriptedGateway gateway(AnswerWith(Reply{"40"}));
    SyncConnectionComponent connection;

    QCOMPARE(
        FailureOfOpen(connection, gateway.Target()),
        QStringLiteral("5/4 The gateway %1 sent a message that answers nothing.").arg(gateway.Address()));
    QTRY_COMPARE(gateway.Disconnections, 1);
}

void TestSyncFailures::Send_NotOpen_Told()
{
    SyncConnectionComponent connection;

    QCOMPARE(FailureOfSend(connection, QString(), QString()),
             QStringLiteral("6/1 The connection is not open."));
}

void TestSyncFailures::Send_BadInput_ToldAndStillOpen_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("request");
    QTest::addColumn<QString>("failure");
    QTest::newRow("target") << "ADDR=1"
                            << "40"
                            << "1/1 The target of the request cannot be used. The parameter \"ADDR\" stands "
                               "before the first \"WP=\".";
    QTest::newRow("character above 255")
        << "" << QString(QChar(256)) << "6/4 The request holds a character that is no byte.";
    QTest::newRow("too long") << "" << QString(65'530, u'x')
                              << "6/5 The request is too long or its target no valid text: 65530 bytes of "
                                 "data.";
}

void TestSyncFailures::Send_BadInput_ToldAndStillOpen()
{
    QFETCH(QString, target);
    QFETCH(QString, request);
    ScriptedGateway gateway;
    SyncConnectionComponent connection;
    QCOMPARE(connection.Open(gateway.Target()), 0);

    QTEST(FailureOfSend(connection, target, request), "failure");
    QCOMPARE(gateway.Frames.size(), 1U);
    QCOMPARE(FailureOfSend(connection, QString(), QString()), QString());
}

void TestSyncFailures::Send_Silence_NamesTheElement_data()
{
    QTest::addColumn<QString>("opened");
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("failure");
    const QString thrice = QStringLiteral("4/1 No answer from %1 within 20 ms, tried 3 times.");
    const QString once = QStringLiteral("4/1 No answer from %1 within 1000 ms, tried once.");
    QTest::newRow("address of the request")
        << ",WP=NET4,ADDR=1"
        << "WP=NET4,ADDR=17,TIME=20,RETRY=2,wp=opt" << thrice.arg("ADDR 17");
    QTest::newRow("another kind of hop") << ""
                                         << "WP=SNMPNODE,TIME=20,RETRY=2" << thrice.arg("SNMPNODE");
    QTest::newRow("hop without an address") << ""
                                            << "WP=NET4,TIME=20,RETRY=2" << thrice.arg("NET4");
    QTest::newRow("address of the opened target") << ",WP=NET4,ADDR=4094,WP=OPT"
                                                  << "" << once.arg("ADDR 4094");
}

void TestSyncFailures::Send_Silence_NamesTheElement()
{
    QFETCH(QString, opened);
    QFETCH(QString, target);
    ScriptedGateway gateway(ScriptedGateway::OnRequest([](ScriptedGateway&, const Frame&) {}));
    SyncConnectionComponent connection;
    QCOMPARE(connection.Open(gateway.Target(opened, QStringLiteral("TIME=1000,RETRY=0"))), 0);

    QTEST(FailureOfSend(connection, target, QStringLiteral("40")), "failure");
}

void TestSyncFailures::Send_TextOfTheGateway_OneLineAndNotTooLong_data()
{
    QTest::addColumn<Failure>("failure");
    QTest::addColumn<QString>("told");
    const QString ellipsis(QChar(0x2026));
    QTest::newRow("as it is") << Failure{9, -3, QString::fromUtf8("Über Bus 7 <b>")}
                              << QString::fromUtf8("9/-3 Über Bus 7 <b>");
    QTest::newRow("several lines") << Failure{3, 2, QStringLiteral("One.\r\nTwo.\t\x1b[31mThree.\n")}
                                   << "3/2 One. Two. [31mThree.";
    QTest::newRow("long") << Failure{3, 2, QString(501, u'x')}
                          << QStringLiteral("3/2 ") + QString(500, u'x') + ellipsis;
    QTest::newRow("just short enough")
        << Failure{3, 2, QString(500, u'x')} << QStringLiteral("3/2 ") + QString(500, u'x');
    QTest::newRow("cut in a character")
        << Failure{3, 2, QString(499, u'x') + QString::fromUtf8("\xf0\x9f\x94\x8c") + QString(9, u'x')}
        << QStringLiteral("3/2 ") + QString(499, u'x') + ellipsis;
    QTest::newRow("none") << Failure{3, 2, QStringLiteral(" \n")}
                          << "3/2 The gateway %1 refused with the codes 3 and 2.";
}

void TestSyncFailures::Send_TextOfTheGateway_OneLineAndNotTooLong()
{
    QFETCH(Failure, failure);
    QFETCH(QString, told);
    ScriptedGateway gateway(ScriptedGateway::OnRequest(AnswerWith(failure)));
    SyncConnectionComponent connection;
    QCOMPARE(connection.Open(gateway.Target()), 0);

    QCOMPARE(FailureOfSend(connection, QString(), QString()),
             told.replace(QStringLiteral("%1"), gateway.Address()));
}

void TestSyncFailures::Send_GatewayGoneWhileIdle_Lost_data()
{
    QTest::addColumn<bool>("eventsRun");
    QTest::newRow("events run meanwhile") << true;
    QTest::newRow("no events run meanwhile") << false;
}

void TestSyncFailures::Send_GatewayGoneWhileIdle_Lost()
{
    QFETCH(bool, eventsRun);
    ScriptedGateway gateway;
    SyncConnectionComponent connection;
    QCOMPARE(connection.Open(gateway.Target()), 0);
    gateway.HangUp();
    if (eventsRun)
        QTRY_COMPARE(gateway.Disconnections, 1);

    QCOMPARE(FailureOfSend(connection, QString(), QString()),
             QStringLiteral("2/4 The gateway %1 closed the connection.").arg(gateway.Address()));
    QVERIFY(FailureOfSend(connection, QString(), QString()).startsWith(QStringLiteral("6/1 ")));
}

void TestSyncFailures::Send_GatewayTakesNothing_SilentWithoutPilingUp()
{
    ScriptedGateway gateway;
    SyncConnectionComponent connection;
    QCOMPARE(connection.Open(gateway.Target()), 0);
    gateway.StopReading();
    const QString large(65'000, u'x');

    // 65 MB if every attempt were handed over, far more than the network keeps for a gateway that is stuck.
    QVERIFY(FailureOfSend(connection, QStringLiteral("WP=NET4,TIME=1,RETRY=1000"), large)
                .startsWith(QStringLiteral("4/1 ")));
    gateway.ReadAgain();
    QCOMPARE(FailureOfSend(connection, QString(), QStringLiteral("last")), QString());
    QVERIFY(gateway.Frames.size() < 500U);
}

QTEST_GUILESS_MAIN(TestSyncFailures)
#include "TestSyncFailures.moc"
