#include "tests/components/network/FullPort.h"
#include "tests/components/network/ScriptedGateway.h"
#include "tests/components/network/SyncCalls.h"

#include <QtTest>

using namespace GatewayFrame;

namespace {

const QString ClosedText = QStringLiteral("6/3 The connection was closed before the answer came.");
const QString BusyText = QStringLiteral("6/2 The connection is busy with a request.");

/// Does something within the wait that is under way, as a button of a window would.
void DuringTheWait(const std::function<void()>& act)
{
    QTimer::singleShot(0, qApp, act);
}

void AnswerNothing(ScriptedGateway& /*gateway*/, const Frame& /*frame*/) {}

} // namespace

/// What handlers of events may do to a connection while it waits.
class TestSyncReentry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Close_DuringOpen_EndsIt();
    void Close_DuringConnecting_EndsIt();
    void Close_DuringSend_EndsItAndItCanBeOpenedAgain();
    void Send_DuringSend_BusyAndTheFirstGoesOn();
    void Open_DuringSend_BusyAndTheFirstGoesOn();
    void Open_DuringOpen_BusyAndTheFirstGoesOn();
    void Open_BehindCloseInTheSameWait_Busy();
    void Destroy_DuringOpen_EndsIt();
    void Destroy_DuringSend_EndsIt();
    void Destroy_WithTheTextsOfTheRequest_EndsIt();
    void Send_OnAnotherConnectionDuringSend_BothAreAnswered();
    void Send_AnswerComesInANestedLoop_Counts();
    void Send_TimeOverInANestedLoop_AnswerStillCounts();
    void Send_ProgramEnds_EndsIt();
};

void TestSyncReentry::Close_DuringOpen_EndsIt()
{
    ScriptedGateway gateway(AnswerNothing);
    SyncConnectionComponent connection;
    gateway.OnFrame = [&](ScriptedGateway&, const Frame&) { DuringTheWait([&] { connection.Close(); }); };

    QCOMPARE(FailureOfOpen(connection, gateway.Target()), ClosedText);
    QTRY_COMPARE(gateway.Disconnections, 1);
}

void TestSyncReentry::Close_DuringConnecting_EndsIt()
{
    const FullPort port;
    SyncConnectionComponent connection;
    DuringTheWait([&] { connection.Close(); });

    QCOMPARE(FailureOfOpen(
                 connection,
                 QStringLiteral("WP=SOCKET,IP=127.0.0.1,PORT=%1,TIME=30000,RETRY=1000").arg(port.Port())),
             ClosedText);
}

void TestSyncReentry::Close_DuringSend_EndsItAndItCanBeOpenedAgain()
{
    ScriptedGateway gateway;
    SyncConnectionComponent connection;
    QCOMPARE(connection.Open(gateway.Target()), 0);
    gateway.OnFrame = [&](ScriptedGateway&, const Frame&) { DuringTheWait([&] { connection.Close(); }); };

    QCOMPARE(FailureOfSend(connection, QString(), QString()), ClosedText);
    QTRY_COMPARE(gateway.Disconnections, 1);
    gateway.OnFrame = ScriptedGateway::Echo;
    QCOMPARE(connection.Open(gateway.Target()), 0);
}

void TestSyncReentry::Send_DuringSend_BusyAndTheFirstGoesOn()
{
    ScriptedGateway gateway;
    SyncConnectionComponent connection;
    QCOMPARE(connection.Open(gateway.Target()), 0);
    QString second;
    gateway.OnFrame = [&](ScriptedGateway&, const Frame& frame) {
        DuringTheWait([&, frame] {
            second = FailureOfSend(connection, QString(), QStringLiteral("second"));
            ScriptedGateway::Echo(gateway, frame);
        });
    };

    QString reply;
    QCOMPARE(FailureOfSend(connection, QString(), QStringLiteral("first"), &reply), QString());
    QCOMPARE(reply, QStringLiteral("first"));
    QCOMPARE(second, BusyText);
    QCOMPARE(gateway.Frames.size(), 2U);
}

void TestSyncReentry::Open_DuringSend_BusyAndTheFirstGoesOn()
{
    ScriptedGateway gateway;
    SyncConnectionComponent connection;
    QCOMPARE(connection.Open(gateway.Target()), 0);
    QString second;
    gateway.OnFrame = [&](ScriptedGateway&, const Frame& frame) {
        DuringTheWait([&, frame] {
            second = FailureOfOpen(connection, gateway.Target());
            ScriptedGateway::Echo(gateway, frame);
        });
    };

    QCOMPARE(FailureOfSend(connection, QString(), QStringLiteral("first")), QString());
    QCOMPARE(second, BusyText);
    QCOMPARE(gateway.Connections, 1);
}

void TestSyncReentry::Open_DuringOpen_BusyAndTheFirstGoesOn()
{
    ScriptedGateway gateway;
    SyncConnectionComponent connection;
    QString second;
    gateway.OnFrame = [&](ScriptedGateway&, const Frame& frame) {
        DuringTheWait([&, frame] {
            second = FailureOfOpen(connection, gateway.Target());
            ScriptedGateway::Echo(gateway, frame);
        });
    };

    QCOMPARE(FailureOfOpen(connection, gateway.Target()), QString());
    QCOMPARE(second, BusyText);
    QCOMPARE(gateway.Connections, 1);
}

void TestSyncReentry::Open_BehindCloseInTheSameWait_Busy()
{
    ScriptedGateway gateway;
    SyncConnectionComponent connection;
    QCOMPARE(connection.Open(gateway.Target()), 0);
    QString second;
    gateway.OnFrame = [&](ScriptedGateway&, const Frame&) {
        DuringTheWait([&] {
            connection.Close();
            second = FailureOfOpen(connection, gateway.Target());
        });
    };

    QCOMPARE(FailureOfSend(connection, QString(), QString()), ClosedText);
    QCOMPARE(second, BusyText);
}

void TestSyncReentry::Destroy_DuringOpen_EndsIt()
{
    ScriptedGateway gateway;
    auto connection = std::make_unique<SyncConnectionComponent>();
    gateway.OnFrame = [&](ScriptedGateway&, const Frame&) { DuringTheWait([&] { connection.reset(); }); };

    QVERIFY_EXCEPTION_THROWN((void)connection->Open(gateway.Target()), ComponentError);
    QVERIFY(!connection);
    QTRY_COMPARE(gateway.Disconnections, 1);
}

void TestSyncReentry::Destroy_DuringSend_EndsIt()
{
    ScriptedGateway gateway;
    auto connection = std::make_unique<SyncConnectionComponent>();
    QCOMPARE(connection->Open(gateway.Target()), 0);
    gateway.OnFrame = [&](ScriptedGateway&, const Frame&) { DuringTheWait([&] { connection.reset(); }); };

    QString reply = QStringLiteral("before");
    QVERIFY_EXCEPTION_THROWN(connection->Send(QString(), QString(), reply), ComponentError);
    QCOMPARE(reply, QStringLiteral("before"));
    QTRY_COMPARE(gateway.Disconnections, 1);
}

void TestSyncReentry::Destroy_WithTheTextsOfTheRequest_EndsIt()
{
    struct Owner
    {
        SyncConnectionComponent connection;
        QString target = QStringLiteral("WP=NET4,ADDR=17,TIME=20,RETRY=1000");
        QString request = QStringLiteral("40");
    };
    ScriptedGateway gateway;
    auto owner = std::make_unique<Owner>();
    QCOMPARE(owner->connection.Open(gateway.Target()), 0);
    gateway.OnFrame = [&](ScriptedGateway&, const Frame& frame) {
        if (std::get<Request>(frame.body).attempt == 1)
            DuringTheWait([&] { owner.reset(); });
    };

    QString reply;
    QVERIFY_EXCEPTION_THROWN(owner->connection.Send(owner->target, owner->request, reply), ComponentError);
    QVERIFY(!owner);
}

void TestSyncReentry::Send_OnAnotherConnectionDuringSend_BothAreAnswered()
{
    ScriptedGateway first;
    ScriptedGateway second;
    SyncConnectionComponent one;
    SyncConnectionComponent two;
    QCOMPARE(one.Open(first.Target()), 0);
    QCOMPARE(two.Open(second.Target()), 0);
    QString inner;
    first.OnFrame = [&](ScriptedGateway&, const Frame& frame) {
        DuringTheWait([&, frame] {
            ScriptedGateway::Echo(first, frame);
            two.Send(QString(), QStringLiteral("inner"), inner);
        });
    };

    QString outer;
    one.Send(QString(), QStringLiteral("outer"), outer);
    QCOMPARE(inner, QStringLiteral("inner"));
    QCOMPARE(outer, QStringLiteral("outer"));
}

void TestSyncReentry::Send_AnswerComesInANestedLoop_Counts()
{
    ScriptedGateway gateway;
    SyncConnectionComponent connection;
    QCOMPARE(connection.Open(gateway.Target()), 0);
    gateway.OnFrame = [&](ScriptedGateway&, const Frame& frame) {
        DuringTheWait([&, frame] {
            ScriptedGateway::Echo(gateway, frame);
            QEventLoop box;
            QTimer::singleShot(30, &box, &QEventLoop::quit);
            (void)box.exec();
        });
    };

    QString reply;
    connection.Send(QString(), QStringLiteral("40"), reply);
    QCOMPARE(reply, QStringLiteral("40"));
}

void TestSyncReentry::Send_TimeOverInANestedLoop_AnswerStillCounts()
{
    ScriptedGateway gateway;
    SyncConnectionComponent connection;
    QCOMPARE(connection.Open(gateway.Target()), 0);
    gateway.OnFrame = [&](ScriptedGateway&, const Frame& frame) {
        DuringTheWait([&, frame] {
            QEventLoop box;
            QTimer::singleShot(700, &box, &QEventLoop::quit);
            (void)box.exec();
            ScriptedGateway::Echo(gateway, frame);
        });
    };

    QString reply;
    connection.Send(QStringLiteral("WP=NET4,TIME=500,RETRY=0"), QStringLiteral("40"), reply);
    QCOMPARE(reply, QStringLiteral("40"));
}

void TestSyncReentry::Send_ProgramEnds_EndsIt()
{
    ScriptedGateway gateway;
    SyncConnectionComponent connection;
    QString failure;
    DuringTheWait([&] {
        QCOMPARE(connection.Open(gateway.Target()), 0);
        gateway.OnFrame = [](ScriptedGateway&, const Frame&) { DuringTheWait([] { qApp->quit(); }); };
        failure = FailureOfSend(connection, QString(), QString());
    });

    QCOMPARE(QCoreApplication::exec(), 0);
    QCOMPARE(failure, ClosedText);
}

QTEST_GUILESS_MAIN(TestSyncReentry)
#include "TestSyncReentry.moc"
