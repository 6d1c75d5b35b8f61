#include "platform/Components.h"
#include "tests/components/network/ScriptedGateway.h"
#include "tests/components/network/SyncCalls.h"

#include <QtTest>

using namespace GatewayFrame;

/// What the connection component sends, and what it makes of the answers.
class TestSyncConnection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void Open_Target_SendsItWholeAndGives0();
    void Open_AgainWhileOpen_ClosesTheFormer();
    void Open_NoSocketHop_GoesToTheWorkstationsGateway();
    void Send_Request_GivesReplyAsBytes();
    void Send_HexWanted_ByTheTargetThatCounts_data();
    void Send_HexWanted_ByTheTargetThatCounts();
    void Send_AnswerByteByByte_Whole();
    void Send_LargeRequestAndReply_Whole();
    void Send_NoAnswerAtFirst_RepeatsSameExchange();
    void Send_Attempts_ByTheTargetThatHasRetry_data();
    void Send_Attempts_ByTheTargetThatHasRetry();
    void Send_AnswersToEarlierExchanges_Dropped();
    void Send_DoubledAnswer_SecondIsDropped();
    void Send_AfterSilence_StillOpen();
    void Send_AfterRefusal_StillOpen();
    void Send_Waiting_EventsRun();
    void Send_AnswerCameWhileTheThreadWasBusy_Counts();
    void Close_Open_GatewaySeesTheEnd();
    void Close_TwiceAndNeverOpened_DoesNothing();
    void Destroy_Open_GatewaySeesTheEnd();
    void GetLastError_NothingFailed_Raises();
    void GetLastError_AfterSuccess_StillTheLastFailure();
    void Register_BothIdentifiers_CreateConnections();
};

void TestSyncConnection::cleanup()
{
    qunsetenv("ZELKA_GATEWAY");
}

void TestSyncConnection::Open_Target_SendsItWholeAndGives0()
{
    ScriptedGateway gateway;
    SyncConnectionComponent connection;
    const QString target = gateway.Target(QStringLiteral(",WP=BUST4,ID=1"));

    QCOMPARE(connection.Open(target), 0);
    QCOMPARE(gateway.Frames.size(), 1U);
    QVERIFY(gateway.Frames[0].body == Body(Open{target}));
}

void TestSyncConnection::Open_AgainWhileOpen_ClosesTheFormer()
{
    ScriptedGateway gateway;
    SyncConnectionComponent connection;

    QCOMPARE(connection.Open(gateway.Target()), 0);
    QCOMPARE(connection.Open(gateway.Target()), 0);
    QCOMPARE(gateway.Connections, 2);
    QTRY_COMPARE(gateway.Disconnections, 1);
}

void TestSyncConnection::Open_NoSocketHop_GoesToTheWorkstationsGateway()
{
    ScriptedGateway gateway;
    SyncConnectionComponent connection;
    qputenv("ZELKA_GATEWAY", gateway.Address().toUtf8());

    QCOMPARE(connection.Open(QStringLiteral("WP=BUST4,ID=1")), 0);
    QCOMPARE(gateway.Connections, 1);
}

void TestSyncConnection::Send_Request_GivesReplyAsBytes()
{
    ScriptedGateway gateway;
    SyncConnectionComponent connection;
    QCOMPARE(connection.Open(gateway.Target()), 0);
    QString all;
    for (char16_t code = 0; code < 256; ++code)
        all += QChar(code);

    QString reply;
    connection.Send(QStringLiteral("WP=NET4,ADDR=17"), all, reply);
    QCOMPARE(reply, all);
    QVERIFY(gateway.Frames[1].body == Body(Request{QStringLiteral("WP=NET4,ADDR=17"), 0, all.toLatin1()}));
    connection.Send(QString(), QString(), reply);
    QCOMPARE(reply, QString());
    QVERIFY(gateway.Frames[2].body == Body(Request{}));
    QVERIFY(gateway.Frames[1].exchange != gateway.Frames[2].exchange);
}

void TestSyncConnection::Send_HexWanted_ByTheTargetThatCounts_data()
{
    QTest::addColumn<QString>("opened");
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("reply");
    QTest::newRow("neither") << ""
                             << ""
                             << "Jk";
    QTest::newRow("request's") << ""
                               << "WP=NET4,ADDR=1,wp=opt,dt=unihex"
                               << "4A6B";
    QTest::newRow("opened one") << ",WP=OPT,DT=UNIHEX"
                                << ""
                                << "4A6B";
    QTest::newRow("opened one, but the request has its own") << ",WP=OPT,DT=UNIHEX"
                                                             << "WP=NET4"
                                                             << "Jk";
}

void TestSyncConnection::Send_HexWanted_ByTheTargetThatCounts()
{
    QFETCH(QString, opened);
    QFETCH(QString, target);
    ScriptedGateway gateway;
    SyncConnectionComponent connection;
    QCOMPARE(connection.Open(gateway.Target(opened)), 0);

    QString reply;
    connection.Send(target, QStringLiteral("Jk"), reply);
    QTEST(reply, "reply");
}

void TestSyncConnection::Send_AnswerByteByByte_Whole()
{
    ScriptedGateway gateway([](ScriptedGateway& self, const Frame& frame) {
        Body body = Opened{};
        if (std::holds_alternative<Request>(frame.body))
            body = Reply{QByteArray(300, 'x')};
        self.SendByteByByte(Encode({frame.exchange, body}));
    });
    SyncConnectionComponent connection;
    QCOMPARE(connection.Open(gateway.Target()), 0);

    QString reply;
    connection.Send(QString(), QString(), reply);
    QCOMPARE(reply, QString(300, u'x'));
}

void TestSyncConnection::Send_LargeRequestAndReply_Whole()
{
    ScriptedGateway gateway;
    SyncConnectionComponent connection;
    QCOMPARE(connection.Open(gateway.Target()), 0);
    const QString large(65'000, u'x');

    QString reply;
    connection.Send(QString(), large, reply);
    QCOMPARE(reply, large);
}

void TestSyncConnection::Send_NoAnswerAtFirst_RepeatsSameExchange()
{
    ScriptedGateway gateway(ScriptedGateway::OnRequest([](ScriptedGateway& self, const Frame& frame) {
        if (std::get<Request>(frame.body).attempt == 2)
            self.Answer({frame.exchange, Reply{"late"}});
    }));
    SyncConnectionComponent connection;
    QCOMPARE(connection.Open(gateway.Target()), 0);

    // The answer may take longer than one attempt; the attempts behind it do no harm.
    QString reply;
    connection.Send(QStringLiteral("WP=NET4,TIME=20,RETRY=1000"), QStringLiteral("40"), reply);
    QCOMPARE(reply, QStringLiteral("late"));
    QVERIFY(gateway.Frames.size() >= 4U);
    for (std::size_t at = 1; at < gateway.Frames.size(); ++at) {
        QCOMPARE(gateway.Frames[at].exchange, gateway.Frames[1].exchange);
        QCOMPARE(std::get<Request>(gateway.Frames[at].body).attempt, static_cast<qint32>(at - 1));
    }
}

void TestSyncConnection::Send_Attempts_ByTheTargetThatHasRetry_data()
{
    QTest::addColumn<QString>("opened");
    QTest::addColumn<QString>("target");
    QTest::addColumn<int>("attempts");
    QTest::newRow("request's") << ",RETRY=5"
                               << "WP=NET4,TIME=20,RETRY=2" << 3;
    QTest::newRow("opened one") << ",WP=OPT,RETRY=1"
                                << "WP=NET4,TIME=20" << 2;
    QTest::newRow("opened one for an empty target") << ",WP=OPT,RETRY=1,TIME=1000"
                                                    << "" << 2;
    QTest::newRow("none") << ""
                          << "WP=NET4,TIME=20,RETRY=0" << 1;
}

void TestSyncConnection::Send_Attempts_ByTheTargetThatHasRetry()
{
    QFETCH(QString, opened);
    QFETCH(QString, target);
    QFETCH(int, attempts);
    ScriptedGateway gateway(ScriptedGateway::OnRequest([](ScriptedGateway&, const Frame&) {}));
    SyncConnectionComponent connection;
    QCOMPARE(connection.Open(gateway.Target(opened)), 0);

    QVERIFY(FailureOfSend(connection, target, QStringLiteral("40")).startsWith(QStringLiteral("4/1 ")));
    QTRY_COMPARE(gateway.Frames.size(), static_cast<std::size_t>(attempts) + 1);
}

void TestSyncConnection::Send_AnswersToEarlierExchanges_Dropped()
{
    ScriptedGateway gateway(ScriptedGateway::OnRequest([](ScriptedGateway& self, const Frame& frame) {
        self.Answer({frame.exchange - 1, Opened{}});
        self.Answer({frame.exchange - 1, Reply{"of another"}});
        self.Answer({frame.exchange + 1, Failure{1, 1, QStringLiteral("of another")}});
        self.Answer({0, Reply{"of none"}});
        self.Answer({frame.exchange, Reply{"own"}});
    }));
    SyncConnectionComponent connection;
    QCOMPARE(connection.Open(gateway.Target()), 0);

    QString reply;
    connection.Send(QString(), QString(), reply);
    QCOMPARE(reply, QStringLiteral("own"));
}

void TestSyncConnection::Send_DoubledAnswer_SecondIsDropped()
{
    ScriptedGateway gateway(ScriptedGateway::OnRequest([](ScriptedGateway& self, const Frame& frame) {
        ScriptedGateway::Echo(self, frame);
        ScriptedGateway::Echo(self, frame);
    }));
    SyncConnectionComponent connection;
    QCOMPARE(connection.Open(gateway.Target()), 0);

    for (const QString& request : {QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")}) {
        QString reply;
        connection.Send(QString(), request, reply);
        QCOMPARE(reply, request);
    }
}

void TestSyncConnection::Send_AfterSilence_StillOpen()
{
    Frame unanswered;
    ScriptedGateway gateway(ScriptedGateway::OnRequest([&](ScriptedGateway& self, const Frame& frame) {
        if (std::get<Request>(frame.body).data == "first") {
            unanswered = frame;
            return;
        }
        self.Answer({unanswered.exchange, Reply{"late answer to the first"}});
        ScriptedGateway::Echo(self, frame);
    }));
    SyncConnectionComponent connection;
    QCOMPARE(connection.Open(gateway.Target()), 0);
    QVERIFY(!FailureOfSend(connection, QStringLiteral("WP=NET4,TIME=20"), QStringLiteral("first")).isEmpty());

    QString reply;
    connection.Send(QString(), QStringLiteral("second"), reply);
    QCOMPARE(reply, QStringLiteral("second"));
    QCOMPARE(gateway.Connections, 1);
}

void TestSyncConnection::Send_AfterRefusal_StillOpen()
{
    ScriptedGateway gateway(ScriptedGateway::OnRequest([](ScriptedGateway& self, const Frame& frame) {
        if (std::get<Request>(frame.body).data == "bad")
            self.Answer({frame.exchange, Failure{3, 2, QStringLiteral("Not known here.")}});
        else
            ScriptedGateway::Echo(self, frame);
    }));
    SyncConnectionComponent connection;
    QCOMPARE(connection.Open(gateway.Target()), 0);
    QCOMPARE(FailureOfSend(connection, QString(), QStringLiteral("bad")),
             QStringLiteral("3/2 Not known here."));

    QString reply;
    connection.Send(QString(), QStringLiteral("good"), reply);
    QCOMPARE(reply, QStringLiteral("good"));
}

void TestSyncConnection::Send_Waiting_EventsRun()
{
    // The answer itself comes from an event that the wait has to let run.
    ScriptedGateway gateway(ScriptedGateway::OnRequest([](ScriptedGateway& self, const Frame& frame) {
        QTimer::singleShot(30, qApp, [&self, frame] { ScriptedGateway::Echo(self, frame); });
    }));
    SyncConnectionComponent connection;
    QCOMPARE(connection.Open(gateway.Target()), 0);

    int ticks = 0;
    QTimer ticker;
    connect(&ticker, &QTimer::timeout, this, [&] { ++ticks; });
    ticker.start(1);
    QString reply;
    connection.Send(QString(), QStringLiteral("40"), reply);
    QVERIFY(ticks > 0);
}

void TestSyncConnection::Send_AnswerCameWhileTheThreadWasBusy_Counts()
{
    ScriptedGateway gateway(ScriptedGateway::OnRequest([](ScriptedGateway& self, const Frame& frame) {
        ScriptedGateway::Echo(self, frame);
        QTest::qSleep(700);
    }));
    SyncConnectionComponent connection;
    QCOMPARE(connection.Open(gateway.Target()), 0);

    QString reply;
    connection.Send(QStringLiteral("WP=NET4,TIME=500,RETRY=0"), QStringLiteral("40"), reply);
    QCOMPARE(reply, QStringLiteral("40"));
}

void TestSyncConnection::Close_Open_GatewaySeesTheEnd()
{
    ScriptedGateway gateway;
    SyncConnectionComponent connection;
    QCOMPARE(connection.Open(gateway.Target()), 0);

    connection.Close();
    QTRY_COMPARE(gateway.Disconnections, 1);
    QCOMPARE(FailureOfSend(connection, QString(), QString()),
             QStringLiteral("6/1 The connection is not open."));
    QCOMPARE(connection.Open(gateway.Target()), 0);
}

void TestSyncConnection::Close_TwiceAndNeverOpened_DoesNothing()
{
    ScriptedGateway gateway;
    SyncConnectionComponent connection;
    connection.Close();
    QCOMPARE(connection.Open(gateway.Target()), 0);

    connection.Close();
    connection.Close();
    QTRY_COMPARE(gateway.Disconnections, 1);
}

void TestSyncConnection::Destroy_Open_GatewaySeesTheEnd()
{
    ScriptedGateway gateway;
    auto connection = std::make_unique<SyncConnectionComponent>();
    QCOMPARE(connection->Open(gateway.Target()), 0);

    connection.reset();
    QTRY_COMPARE(gateway.Disconnections, 1);
}

void TestSyncConnection::GetLastError_NothingFailed_Raises()
{
    SyncConnectionComponent connection;
    qint32 major = 7;
    qint32 minor = 7;
    qint32 third = 7;
    QString text = QStringLiteral("before");

    QVERIFY_EXCEPTION_THROWN(connection.GetLastError(major, minor, third, text), ComponentError);
    QCOMPARE(major, 7);
    QCOMPARE(text, QStringLiteral("before"));
}

void TestSyncConnection::GetLastError_AfterSuccess_StillTheLastFailure()
{
    ScriptedGateway gateway;
    SyncConnectionComponent connection;
    QVERIFY(!FailureOfSend(connection, QString(), QString()).isEmpty());
    QCOMPARE(connection.Open(gateway.Target()), 0);

    qint32 major = 0;
    qint32 minor = 0;
    qint32 third = 0;
    QString text;
    connection.GetLastError(major, minor, third, text);
    QCOMPARE(text, QStringLiteral("The connection is not open."));
}

void TestSyncConnection::Register_BothIdentifiers_CreateConnections()
{
    RegisterSyncConnections();
    ScriptedGateway gateway;
    for (const QString& id : {T4SyncConnId, HvxSyncConnId}) {
        QCOMPARE(CreateSyncConnection(id)->Open(gateway.Target()), 0);
        RegisterSyncConnection(id, nullptr);
    }
}

QTEST_GUILESS_MAIN(TestSyncConnection)
#include "TestSyncConnection.moc"
