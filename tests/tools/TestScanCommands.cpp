#include "components/syncconn/SyncFailure.h"
#include "tests/components/DatabaseFixture.h"
#include "tests/support/FakeMachine.h"
#include "tests/support/ScriptedNetwork.h"
#include "tests/tools/ProcessRun.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTest>

#include <csignal>

/// `zelka scan` and `zelka buses` in this process, on scripted components and with a clock of its own.
class TestScanCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void Scan_Range_AsksEachAddressInOrder();
    void Scan_NodesAnswer_PrintsThem();
    void Scan_NodeFound_PrintsItBeforeTheNextRequest();
    void Scan_TextWithControls_StaysOneLine();
    void Scan_Json_IsAnArray();
    void Scan_NobodyAnswers_PrintsNothing();
    void Scan_Timing_GoesIntoEachRequest();
    void Scan_Bus_LeadsThere();

    void Pace_Interval_IsKept_data();
    void Pace_Interval_IsKept();

    void Scan_Mistake_EndsBeforeAnythingIsOpened_data();
    void Scan_Mistake_EndsBeforeAnythingIsOpened();
    void Scan_LimitsMissing_HoldsTheUsualOnes();
    void Scan_Refused_TellsWhy_data();
    void Scan_Refused_TellsWhy();
    void Scan_NoScanRight_IsRefused();

    void Scan_ComponentMissing_EndsUnavailable_data();
    void Scan_ComponentMissing_EndsUnavailable();
    void Scan_OpenFails_TellsWordsAndCodes_data();
    void Scan_OpenFails_TellsWordsAndCodes();
    void Scan_RequestFails_GoesOnOrEnds_data();
    void Scan_RequestFails_GoesOnOrEnds();
    void Scan_ConnectionLostBetweenRequests_KeepsTheRow();

    void Interrupt_WhileOpening_EndsTheWait();
    void Interrupt_WhileANodeIsAsked_EndsTheWaitAndKeepsRows_data();
    void Interrupt_WhileANodeIsAsked_EndsTheWaitAndKeepsRows();
    void Interrupt_BetweenAddresses_EndsWithinTheInterval();

    void Buses_Answered_AreListed();
    void Buses_Json_IsAnArray();
    void Buses_None_PrintsNothing();
    void Buses_ConnectionWithoutBus_IsRefused();
    void Buses_Failure_TellsWhy_data();
    void Buses_Failure_TellsWhy();
    void Buses_Interrupted_EndsTheWait();

private:
    [[nodiscard]] int Scan(const QStringList& arguments, const QString& connection = QStringLiteral("Alpha"));
    [[nodiscard]] int Buses(const QStringList& arguments = {},
                            const QString& connection = QStringLiteral("Beta"));
    /// Nodes answer at these addresses, "Node N" of type "T4-N"; all others are silent.
    void PutNodes(const QList<int>& addresses);
    /// Ctrl+C comes while the component waits; gives when the connection was closed and then fails.
    void InterruptWait();
    [[nodiscard]] QStringList CallsOf(const QString& begin) const { return m_network->Calls.filter(begin); }
    void VerifyReleased() const;

    std::unique_ptr<DatabaseFixture> m_fixture;
    std::unique_ptr<FakeMachine> m_machine;
    std::unique_ptr<ScriptedNetwork> m_network;
    std::unique_ptr<ProcessRun> m_run;
};

namespace {

const QString AlphaTarget = QString::fromLatin1(DatabaseFixture::AlphaTarget);

int AddressOf(const QString& target)
{
    return target.section(QStringLiteral("ADDR="), 1).section(u',', 0, 0).toInt();
}

} // namespace

void TestScanCommands::init()
{
    m_fixture = std::make_unique<DatabaseFixture>();
    m_machine = std::make_unique<FakeMachine>();
    m_network = std::make_unique<ScriptedNetwork>();
    m_run = std::make_unique<ProcessRun>();
}

void TestScanCommands::cleanup()
{
    m_run.reset();
    m_network.reset();
    m_machine.reset();
    m_fixture.reset();
}

int TestScanCommands::Scan(const QStringList& arguments, const QString& connection)
{
    return m_run->Run(QStringList{"scan", connection, "--source", m_fixture->Source()} + arguments);
}

int TestScanCommands::Buses(const QStringList& arguments, const QString& connection)
{
    return m_run->Run(QStringList{"buses", connection, "--source", m_fixture->Source()} + arguments);
}

void TestScanCommands::PutNodes(const QList<int>& addresses)
{
    m_network->OnSend = [this, addresses](const QString& target, const QString& request) {
        const int address = AddressOf(target);
        if (!addresses.contains(address)) {
            m_network->Major = SyncFailure::Major::Element;
            m_network->Text = QStringLiteral("No answer");
            ScriptedNetwork::Raise();
        }
        return (request == u"40" ? QStringLiteral("Node %1") : QStringLiteral("T4-%1")).arg(address);
    };
}

void TestScanCommands::InterruptWait()
{
    const auto closed = [this] { return !CallsOf(QStringLiteral("Close")).isEmpty(); };
    (void)std::raise(SIGINT);
    QVERIFY(QTest::qWaitFor(closed));
    ScriptedNetwork::Raise(QStringLiteral("Closed"));
}

void TestScanCommands::VerifyReleased() const
{
    QCOMPARE(m_network->Connections, 0);
    QCOMPARE(m_network->Utilities, 0);
}

void TestScanCommands::Scan_Range_AsksEachAddressInOrder()
{
    PutNodes({17});

    QCOMPARE(Scan({"--from", "16", "--to", "17"}), 0);

    QCOMPARE(m_network->Calls,
             (QStringList{"Create Zelka.T4SyncConn.3", "Create Zelka.HVXUtil.1",
                          "Open " + AlphaTarget + ",WP=OPT,VERIFY=NO",
                          "Send WP=NET4,ADDR=16,wp=opt,pr=t4dl,dt=unihex|40", "GetLastError",
                          "Send WP=NET4,ADDR=17,wp=opt,pr=t4dl,dt=unihex|40", "Hex2U Node 17",
                          "Send WP=NET4,ADDR=17,wp=opt,pr=t4dl,dt=unihex|03", "Hex2U T4-17", "Close",
                          "Gone utility", "Gone connection"}));
}

void TestScanCommands::Scan_NodesAnswer_PrintsThem()
{
    m_network->OnSend = [](const QString& target, const QString& request) {
        if (AddressOf(target) % 2 == 0 || (AddressOf(target) == 3 && request == u"03"))
            ScriptedNetwork::Raise();
        return request == u"40" ? QStringLiteral("Tower") : QStringLiteral("T4-A");
    };

    QCOMPARE(Scan({"--from", "0", "--to", "4"}), 0);

    QCOMPARE(m_run->Lines(), (QStringList{"1\tT4-A\tTower", "3\t\tTower"}));
    QCOMPARE(m_run->Words(), QStringList());
}

void TestScanCommands::Scan_NodeFound_PrintsItBeforeTheNextRequest()
{
    QList<qsizetype> lines;
    m_network->OnSend = [&](const QString&, const QString&) {
        lines << m_run->Lines().size();
        return QStringLiteral("x");
    };

    QCOMPARE(Scan({"--from", "1", "--to", "3"}), 0);

    QCOMPARE(lines, (QList<qsizetype>{0, 0, 1, 1, 2, 2}));
}

void TestScanCommands::Scan_TextWithControls_StaysOneLine()
{
    m_network->OnSend = [](const QString&, const QString&) { return QStringLiteral("a\tb\r\nc"); };

    QCOMPARE(Scan({"--from", "1", "--to", "1"}), 0);

    QCOMPARE(m_run->Lines(), QStringList{"1\ta b  c\ta b  c"});
}

void TestScanCommands::Scan_Json_IsAnArray()
{
    PutNodes({2, 4});

    QCOMPARE(Scan({"--from", "1", "--to", "5", "--json"}), 0);

    const QJsonArray expected{QJsonObject{{"address", 2}, {"type", "T4-2"}, {"identification", "Node 2"}},
                              QJsonObject{{"address", 4}, {"type", "T4-4"}, {"identification", "Node 4"}}};
    QCOMPARE(m_run->Json().array(), expected);
}

void TestScanCommands::Scan_NobodyAnswers_PrintsNothing()
{
    QCOMPARE(Scan({"--from", "1", "--to", "3"}), 0);

    QCOMPARE(CallsOf(QStringLiteral("Send")).size(), 3);
    QCOMPARE(m_run->Lines() + m_run->Words(), QStringList());
}

void TestScanCommands::Scan_Timing_GoesIntoEachRequest()
{
    QCOMPARE(Scan({"--from", "17", "--to", "17", "--retries", "3", "--time-out", "2000"}), 0);

    QCOMPARE(CallsOf(QStringLiteral("Send")),
             QStringList{"Send WP=NET4,ADDR=17,RETRY=3,TIME=2000,wp=opt,pr=t4dl,dt=unihex|40"});
}

void TestScanCommands::Scan_Bus_LeadsThere()
{
    QCOMPARE(Scan({"--from", "1", "--to", "1", "--bus", "12"}), 0);

    QCOMPARE(CallsOf(QStringLiteral("Open")),
             QStringList{"Open " + QString(AlphaTarget).replace("ID=254", "ID=12") + ",WP=OPT,VERIFY=NO"});
}

void TestScanCommands::Pace_Interval_IsKept_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QList<qint64>>("expected");
    // The second address takes half a second to answer, all others nothing.
    QTest::newRow("as usual") << QStringList{} << QList<qint64>{0, 200, 700, 900};
    QTest::newRow("own") << QStringList{"--interval", "1000"} << QList<qint64>{0, 1000, 2000, 3000};
    QTest::newRow("none") << QStringList{"--interval", "0"} << QList<qint64>{0, 0, 500, 500};
}

void TestScanCommands::Pace_Interval_IsKept()
{
    QFETCH(QStringList, arguments);
    qint64 begin = 0;
    QList<qint64> asked;
    m_network->OnOpen = [&](const QString&) {
        begin = m_machine->NowMs;
        return 0;
    };
    m_network->OnSend = [&](const QString& target, const QString&) -> QString {
        asked << m_machine->NowMs - begin;
        if (AddressOf(target) == 2)
            m_machine->NowMs += 500;
        ScriptedNetwork::Raise();
    };

    QCOMPARE(Scan(QStringList{"--from", "1", "--to", "4"} + arguments), 0);

    QTEST(asked, "expected");
    // The end is not waited for.
    QCOMPARE(m_machine->NowMs - begin, asked.last());
}

void TestScanCommands::Scan_Mistake_EndsBeforeAnythingIsOpened_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("words");
    QTest::newRow("no range") << QStringList{} << "--from is required";
    QTest::newRow("no end") << QStringList{"--from", "1"} << "--to is required";
    QTest::newRow("beyond the last") << QStringList{"--from", "1", "--to", "4095"} << "4094";
    QTest::newRow("below the first") << QStringList{"--from", "-1", "--to", "1"} << "4094";
    QTest::newRow("no number") << QStringList{"--from", "one", "--to", "2"} << "one";
    QTest::newRow("backwards") << QStringList{"--from", "2", "--to", "1"}
                               << "--to must be equal to or greater than --from.";
    const QStringList range{"--from", "1", "--to", "2"};
    QTest::newRow("retries") << range + QStringList{"--retries", "1001"}
                             << "--retries must be from 0 to 1000.";
    QTest::newRow("retries below") << range + QStringList{"--retries", "-1"}
                                   << "--retries must be from 0 to 1000.";
    QTest::newRow("time-out") << range + QStringList{"--time-out", "30001"}
                              << "--time-out must be from 0 to 30000.";
    QTest::newRow("interval") << range + QStringList{"--interval", "-1"} << "--interval";
    QTest::newRow("bus") << range + QStringList{"--bus", "1000000"} << "999999";
}

void TestScanCommands::Scan_Mistake_EndsBeforeAnythingIsOpened()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, words);

    QCOMPARE(Scan(arguments), 2);

    QCOMPARE(m_run->Words().size(), 1);
    QVERIFY2(m_run->Words().first().contains(words), qUtf8Printable(m_run->Words().first()));
    QCOMPARE(m_network->Calls, QStringList());
}

void TestScanCommands::Scan_LimitsMissing_HoldsTheUsualOnes()
{
    m_fixture->RunSql(QStringLiteral("DELETE FROM parameter WHERE keyword IN ('RETRY', 'TIME')"));

    QCOMPARE(Scan({"--from", "1", "--to", "1", "--retries", "1000", "--time-out", "30000"}), 0);
    QCOMPARE(Scan({"--from", "1", "--to", "1", "--retries", "1001"}), 2);
    QCOMPARE(Scan({"--from", "1", "--to", "1", "--time-out", "30001"}), 2);
}

void TestScanCommands::Scan_Refused_TellsWhy_data()
{
    QTest::addColumn<QString>("connection");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("words");
    QTest::newRow("unknown") << "Delta" << QStringList{} << "There is no connection \"Delta\".";
    QTest::newRow("a node") << "North" << QStringList{} << "There is no connection \"North\".";
    QTest::newRow("SNMP") << "gamma" << QStringList{}
                          << "The connection \"Gamma\" is of the SNMP family, which is not scanned.";
    QTest::newRow("bus") << "Line" << QStringList{"--bus", "1"}
                         << "The connection \"Line\" leads over no bus.";
}

void TestScanCommands::Scan_Refused_TellsWhy()
{
    QFETCH(QString, connection);
    QFETCH(QStringList, arguments);
    QFETCH(QString, words);
    m_fixture->OpenComponent()->SaveParent(QStringLiteral("Line"),
                                           QStringLiteral("WP=COM,PORT=1,WP=OPT,PR=T4DT"));

    QCOMPARE(Scan(QStringList{"--from", "1", "--to", "1"} + arguments, connection), 1);

    QCOMPARE(m_run->Words(), QStringList{"zelka: " + words});
    QCOMPARE(m_network->Calls, QStringList());
}

void TestScanCommands::Scan_NoScanRight_IsRefused()
{
    const QString source = m_fixture->SourceWithoutEditRight();

    QCOMPARE(m_run->Run({"scan", "Alpha", "--source", source, "--from", "1", "--to", "1"}), 1);

    QCOMPARE(m_run->Words(), QStringList{"zelka: This user has no right to scan."});
    QCOMPARE(m_network->Calls, QStringList());
}

void TestScanCommands::Scan_ComponentMissing_EndsUnavailable_data()
{
    QTest::addColumn<QString>("component");
    QTest::addColumn<QString>("words");
    QTest::newRow("connection") << T4SyncConnId << "HVXSyncConn component creation failure";
    QTest::newRow("utility") << HvxUtilityId << "HVXUtility component creation failure";
}

void TestScanCommands::Scan_ComponentMissing_EndsUnavailable()
{
    QFETCH(QString, component);
    QFETCH(QString, words);
    m_network->NotCreated << component;

    QCOMPARE(Scan({"--from", "1", "--to", "1", "--json"}), 4);

    QVERIFY2(m_run->Words().value(0).contains(words), qUtf8Printable(m_run->Words().value(0)));
    QVERIFY(m_run->Json().object().value(QStringLiteral("error")).toString().startsWith(words));
    VerifyReleased();
}

void TestScanCommands::Scan_OpenFails_TellsWordsAndCodes_data()
{
    QTest::addColumn<bool>("raises");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("words");
    const QString codes = QStringLiteral("zelka: Connection could not be opened. "
                                         "Nobody listens (Major code = 2, Minor code = 3)");
    QTest::newRow("raised") << true << "Nobody listens" << codes;
    QTest::newRow("answered") << false << "Nobody listens" << codes;
    QTest::newRow("no record") << true << ""
                               << "zelka: Connection could not be opened. Refused";
    QTest::newRow("nothing known") << false << ""
                                   << "zelka: Connection could not be opened.";
}

void TestScanCommands::Scan_OpenFails_TellsWordsAndCodes()
{
    QFETCH(bool, raises);
    QFETCH(QString, text);
    QFETCH(QString, words);
    m_network->Major = 2;
    m_network->Minor = 3;
    m_network->Text = text;
    m_network->OnOpen = [raises](const QString&) {
        if (raises)
            ScriptedNetwork::Raise(QStringLiteral("Refused"));
        return 1;
    };

    QCOMPARE(Scan({"--from", "1", "--to", "1"}), 4);

    QCOMPARE(m_run->Words(), QStringList{words});
    QCOMPARE(CallsOf(QStringLiteral("Send")), QStringList());
    VerifyReleased();
}

void TestScanCommands::Scan_RequestFails_GoesOnOrEnds_data()
{
    QTest::addColumn<int>("major");
    QTest::addColumn<int>("code");
    QTest::newRow("no codes") << 0 << 0;
    QTest::newRow("silent") << SyncFailure::Major::Element << 0;
    QTest::newRow("refused") << SyncFailure::Major::Refused << 0;
    QTest::newRow("target") << SyncFailure::Major::Target << 4;
    QTest::newRow("gateway") << SyncFailure::Major::Gateway << 4;
    QTest::newRow("protocol") << SyncFailure::Major::Protocol << 4;
    QTest::newRow("not open") << SyncFailure::Major::Usage << 4;
}

void TestScanCommands::Scan_RequestFails_GoesOnOrEnds()
{
    QFETCH(int, major);
    QFETCH(int, code);
    m_network->OnSend = [&](const QString& target, const QString&) {
        if (AddressOf(target) == 2) {
            m_network->Major = major;
            m_network->Minor = 5;
            m_network->Text = QStringLiteral("Trouble");
            ScriptedNetwork::Raise();
        }
        return QStringLiteral("x");
    };

    QCOMPARE(Scan({"--from", "1", "--to", "3", "--json"}), code);

    QCOMPARE(m_run->Json().array().size(), code == 0 ? 2 : 1);
    const QString words =
        QStringLiteral("zelka: The scan ended at address 2. Trouble (Major code = %1, Minor code = 5)")
            .arg(major);
    QCOMPARE(m_run->Words(), code == 0 ? QStringList() : QStringList{words});
    VerifyReleased();
}

void TestScanCommands::Scan_ConnectionLostBetweenRequests_KeepsTheRow()
{
    m_network->OnSend = [&](const QString&, const QString& request) {
        if (request == u"03") {
            m_network->Major = SyncFailure::Major::Gateway;
            ScriptedNetwork::Raise();
        }
        return QStringLiteral("x");
    };

    QCOMPARE(Scan({"--from", "1", "--to", "3"}), 4);

    QCOMPARE(m_run->Lines(), QStringList{"1\t\tx"});
}

void TestScanCommands::Interrupt_WhileOpening_EndsTheWait()
{
    m_network->OnOpen = [this](const QString&) {
        InterruptWait();
        return 0;
    };

    QCOMPARE(Scan({"--from", "1", "--to", "1"}), 130);

    QCOMPARE(m_run->Lines() + m_run->Words(), QStringList());
    VerifyReleased();
}

void TestScanCommands::Interrupt_WhileANodeIsAsked_EndsTheWaitAndKeepsRows_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<int>("rows");
    QTest::newRow("identification") << "40" << 1;
    QTest::newRow("type") << "03" << 2;
}

void TestScanCommands::Interrupt_WhileANodeIsAsked_EndsTheWaitAndKeepsRows()
{
    QFETCH(QString, request);
    QFETCH(int, rows);
    m_network->OnSend = [&](const QString& target, const QString& asked) {
        if (AddressOf(target) == 2 && asked == request)
            InterruptWait();
        return QStringLiteral("x");
    };

    QCOMPARE(Scan({"--from", "1", "--to", "9", "--json"}), 130);

    QCOMPARE(m_run->Json().array().size(), rows);
    QCOMPARE(m_run->Words(), QStringList());
    QCOMPARE(AddressOf(CallsOf(QStringLiteral("Send")).last()), 2);
    VerifyReleased();
}

void TestScanCommands::Interrupt_BetweenAddresses_EndsWithinTheInterval()
{
    PutNodes({1, 2});
    qint64 begin = 0;
    m_network->OnOpen = [&](const QString&) {
        begin = m_machine->NowMs;
        return 0;
    };
    Machine().Sleep = [&begin, sleep = Machine().Sleep](int ms) {
        if (begin != 0)
            (void)std::raise(SIGINT);
        sleep(ms);
    };

    QCOMPARE(Scan({"--from", "1", "--to", "2", "--interval", "60000"}), 130);

    QCOMPARE(m_run->Lines(), QStringList{"1\tT4-1\tNode 1"});
    QCOMPARE(m_machine->NowMs - begin, 100);
}

void TestScanCommands::Buses_Answered_AreListed()
{
    m_fixture->OpenComponent()->SaveParent(QStringLiteral("Mediation"),
                                           QStringLiteral("WP=KD7,BUSID=3,WP=OPT,PR=T4DT"));
    m_network->OnSend = [](const QString&, const QString&) {
        return QStringLiteral("m:11,1,3\r12\r 40 \r254\r");
    };

    QCOMPARE(Buses({}, QStringLiteral("Mediation")), 0);

    QCOMPARE(m_run->Lines(), (QStringList{"12", "40"}));
    const QString target = QStringLiteral("WP=KD7,BUSID=254,WP=NET4,ADDR=4094,WP=OPT,PR=T4DT");
    QCOMPARE(m_network->Calls.mid(0, 5),
             (QStringList{"Create Zelka.HVXSyncConn.1", "Create Zelka.HVXUtil.1", "Open " + target,
                          "U2A m:11,1,3\r", "Send |m:11,1,3\r"}));
    VerifyReleased();
}

void TestScanCommands::Buses_Json_IsAnArray()
{
    m_network->OnSend = [](const QString&, const QString&) { return QStringLiteral("m:11,1,3\r12\r254\r"); };

    QCOMPARE(Buses({"--json"}), 0);

    QCOMPARE(m_run->Json().array(), (QJsonArray{QJsonObject{{"bus", 12}}}));
}

void TestScanCommands::Buses_None_PrintsNothing()
{
    m_network->OnSend = [](const QString&, const QString&) { return QStringLiteral("m:11,1,3\r"); };

    QCOMPARE(Buses(), 0);

    QCOMPARE(m_run->Lines() + m_run->Words(), QStringList());
}

void TestScanCommands::Buses_ConnectionWithoutBus_IsRefused()
{
    m_fixture->OpenComponent()->SaveParent(QStringLiteral("Line"),
                                           QStringLiteral("WP=COM,PORT=1,WP=OPT,PR=T4DT"));

    QCOMPARE(Buses({}, QStringLiteral("Line")), 1);

    QCOMPARE(m_run->Words(), QStringList{"zelka: The connection \"Line\" leads over no bus."});
    QCOMPARE(m_network->Calls, QStringList());
}

void TestScanCommands::Buses_Failure_TellsWhy_data()
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

void TestScanCommands::Buses_Failure_TellsWhy()
{
    QFETCH(QString, step);
    QFETCH(QString, text);
    QFETCH(QString, words);
    m_network->Text = text;
    m_network->Major = 2;
    m_network->OnOpen = [&](const QString&) { return step == u"Open" ? 1 : 0; };
    m_network->OnSend = [&](const QString&, const QString&) {
        if (step == u"Send")
            ScriptedNetwork::Raise();
        return QStringLiteral("m:11,1,3\r12\r254\r");
    };
    m_network->OnConvert = [&](const QString& method, const QString& input) {
        if (step == method)
            ScriptedNetwork::Raise(QStringLiteral("No element"));
        return input;
    };

    QCOMPARE(Buses({"--json"}), 4);

    QCOMPARE(m_run->Words(), QStringList{"zelka: " + words});
    QCOMPARE(m_run->Json().object(), (QJsonObject{{"error", words}}));
    VerifyReleased();
}

void TestScanCommands::Buses_Interrupted_EndsTheWait()
{
    m_network->OnSend = [&](const QString&, const QString&) {
        InterruptWait();
        return QString();
    };

    QCOMPARE(Buses(), 130);

    QCOMPARE(m_run->Lines() + m_run->Words(), QStringList());
    VerifyReleased();
}

QTEST_GUILESS_MAIN(TestScanCommands)
#include "TestScanCommands.moc"
