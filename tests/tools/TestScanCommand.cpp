#include "components/syncconn/SyncFailure.h"
#include "tests/tools/NetworkCommandFixture.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTest>

#include <csignal>

/// `zelka scan` in this process, on scripted components and with a clock of its own.
class TestScanCommand : public QObject, private NetworkCommandFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { End(); }

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

private:
    [[nodiscard]] int Scan(const QStringList& arguments, const QString& connection = QStringLiteral("Alpha"))
    {
        return Run().Run(QStringList{"scan", connection, "--source", Database().Source()} + arguments);
    }
    /// Nodes answer at these addresses, "Node N" of type "T4-N"; all others are silent.
    void PutNodes(const QList<int>& addresses);
};

namespace {

const QString AlphaTarget = QString::fromLatin1(DatabaseFixture::AlphaTarget);

int AddressOf(const QString& target)
{
    return target.section(QStringLiteral("ADDR="), 1).section(u',', 0, 0).toInt();
}

} // namespace

void TestScanCommand::PutNodes(const QList<int>& addresses)
{
    Network().OnSend = [this, addresses](const QString& target, const QString& request) {
        const int address = AddressOf(target);
        if (!addresses.contains(address)) {
            Network().Major = SyncFailure::Major::Element;
            Network().Text = QStringLiteral("No answer");
            ScriptedNetwork::Raise();
        }
        return (request == u"40" ? QStringLiteral("Node %1") : QStringLiteral("T4-%1")).arg(address);
    };
}

void TestScanCommand::Scan_Range_AsksEachAddressInOrder()
{
    PutNodes({17});

    QCOMPARE(Scan({"--from", "16", "--to", "17"}), 0);

    QCOMPARE(Network().Calls,
             (QStringList{"Create Zelka.T4SyncConn.3", "Create Zelka.HVXUtil.1",
                          "Open " + AlphaTarget + ",WP=OPT,VERIFY=NO",
                          "Send WP=NET4,ADDR=16,wp=opt,pr=t4dl,dt=unihex|40", "GetLastError",
                          "Send WP=NET4,ADDR=17,wp=opt,pr=t4dl,dt=unihex|40", "Hex2U Node 17",
                          "Send WP=NET4,ADDR=17,wp=opt,pr=t4dl,dt=unihex|03", "Hex2U T4-17", "Close",
                          "Gone utility", "Gone connection"}));
}

void TestScanCommand::Scan_NodesAnswer_PrintsThem()
{
    Network().OnSend = [](const QString& target, const QString& request) {
        if (AddressOf(target) % 2 == 0 || (AddressOf(target) == 3 && request == u"03"))
            ScriptedNetwork::Raise();
        return request == u"40" ? QStringLiteral("Tower") : QStringLiteral("T4-A");
    };

    QCOMPARE(Scan({"--from", "0", "--to", "4"}), 0);

    QCOMPARE(Run().Lines(), (QStringList{"1\tT4-A\tTower", "3\t\tTower"}));
    QCOMPARE(Run().Words(), QStringList());
}

void TestScanCommand::Scan_NodeFound_PrintsItBeforeTheNextRequest()
{
    QList<qsizetype> lines;
    Network().OnSend = [&](const QString&, const QString&) {
        lines << Run().Lines().size();
        return QStringLiteral("x");
    };

    QCOMPARE(Scan({"--from", "1", "--to", "3"}), 0);

    QCOMPARE(lines, (QList<qsizetype>{0, 0, 1, 1, 2, 2}));
}

void TestScanCommand::Scan_TextWithControls_StaysOneLine()
{
    Network().OnSend = [](const QString&, const QString&) { return QStringLiteral("a\tb\r\nc"); };

    QCOMPARE(Scan({"--from", "1", "--to", "1"}), 0);

    QCOMPARE(Run().Lines(), QStringList{"1\ta b  c\ta b  c"});
}

void TestScanCommand::Scan_Json_IsAnArray()
{
    PutNodes({2, 4});

    QCOMPARE(Scan({"--from", "1", "--to", "5", "--json"}), 0);

    const QJsonArray expected{QJsonObject{{"address", 2}, {"type", "T4-2"}, {"identification", "Node 2"}},
                              QJsonObject{{"address", 4}, {"type", "T4-4"}, {"identification", "Node 4"}}};
    QCOMPARE(Run().Json().array(), expected);
}

void TestScanCommand::Scan_NobodyAnswers_PrintsNothing()
{
    QCOMPARE(Scan({"--from", "1", "--to", "3"}), 0);

    QCOMPARE(CallsOf(QStringLiteral("Send")).size(), 3);
    QCOMPARE(Run().Lines() + Run().Words(), QStringList());
}

void TestScanCommand::Scan_Timing_GoesIntoEachRequest()
{
    QCOMPARE(Scan({"--from", "17", "--to", "17", "--retries", "3", "--time-out", "2000"}), 0);

    QCOMPARE(CallsOf(QStringLiteral("Send")),
             QStringList{"Send WP=NET4,ADDR=17,RETRY=3,TIME=2000,wp=opt,pr=t4dl,dt=unihex|40"});
}

void TestScanCommand::Scan_Bus_LeadsThere()
{
    QCOMPARE(Scan({"--from", "1", "--to", "1", "--bus", "12"}), 0);

    QCOMPARE(CallsOf(QStringLiteral("Open")),
             QStringList{"Open " + QString(AlphaTarget).replace("ID=254", "ID=12") + ",WP=OPT,VERIFY=NO"});
}

void TestScanCommand::Pace_Interval_IsKept_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QList<qint64>>("expected");
    // The second address takes half a second to answer, all others nothing.
    QTest::newRow("as usual") << QStringList{} << QList<qint64>{0, 200, 700, 900};
    QTest::newRow("own") << QStringList{"--interval", "1000"} << QList<qint64>{0, 1000, 2000, 3000};
    QTest::newRow("none") << QStringList{"--interval", "0"} << QList<qint64>{0, 0, 500, 500};
}

void TestScanCommand::Pace_Interval_IsKept()
{
    QFETCH(QStringList, arguments);
    qint64 begin = 0;
    QList<qint64> asked;
    Network().OnOpen = [&](const QString&) {
        begin = Clock().NowMs;
        return 0;
    };
    Network().OnSend = [&](const QString& target, const QString&) -> QString {
        asked << Clock().NowMs - begin;
        if (AddressOf(target) == 2)
            Clock().NowMs += 500;
        ScriptedNetwork::Raise();
    };

    QCOMPARE(Scan(QStringList{"--from", "1", "--to", "4"} + arguments), 0);

    QTEST(asked, "expected");
    // The end is not waited for.
    QCOMPARE(Clock().NowMs - begin, asked.last());
}

void TestScanCommand::Scan_Mistake_EndsBeforeAnythingIsOpened_data()
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

void TestScanCommand::Scan_Mistake_EndsBeforeAnythingIsOpened()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, words);

    QCOMPARE(Scan(arguments), 2);

    QCOMPARE(Run().Words().size(), 1);
    QVERIFY2(Run().Words().first().contains(words), qUtf8Printable(Run().Words().first()));
    QCOMPARE(Network().Calls, QStringList());
}

void TestScanCommand::Scan_LimitsMissing_HoldsTheUsualOnes()
{
    Database().RunSql(QStringLiteral("DELETE FROM parameter WHERE keyword IN ('RETRY', 'TIME')"));

    QCOMPARE(Scan({"--from", "1", "--to", "1", "--retries", "1000", "--time-out", "30000"}), 0);
    QCOMPARE(Scan({"--from", "1", "--to", "1", "--retries", "1001"}), 2);
    QCOMPARE(Scan({"--from", "1", "--to", "1", "--time-out", "30001"}), 2);
}

void TestScanCommand::Scan_Refused_TellsWhy_data()
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

void TestScanCommand::Scan_Refused_TellsWhy()
{
    QFETCH(QString, connection);
    QFETCH(QStringList, arguments);
    QFETCH(QString, words);
    Database().OpenComponent()->SaveParent(QStringLiteral("Line"),
                                           QStringLiteral("WP=COM,PORT=1,WP=OPT,PR=T4DT"));

    QCOMPARE(Scan(QStringList{"--from", "1", "--to", "1"} + arguments, connection), 1);

    QCOMPARE(Run().Words(), QStringList{"zelka: " + words});
    QCOMPARE(Network().Calls, QStringList());
}

void TestScanCommand::Scan_NoScanRight_IsRefused()
{
    const QString source = Database().SourceWithoutEditRight();

    QCOMPARE(Run().Run({"scan", "Alpha", "--source", source, "--from", "1", "--to", "1"}), 1);

    QCOMPARE(Run().Words(), QStringList{"zelka: This user has no right to scan."});
    QCOMPARE(Network().Calls, QStringList());
}

void TestScanCommand::Scan_ComponentMissing_EndsUnavailable_data()
{
    QTest::addColumn<QString>("component");
    QTest::addColumn<QString>("words");
    QTest::newRow("connection") << T4SyncConnId << "HVXSyncConn component creation failure";
    QTest::newRow("utility") << HvxUtilityId << "HVXUtility component creation failure";
}

void TestScanCommand::Scan_ComponentMissing_EndsUnavailable()
{
    QFETCH(QString, component);
    QFETCH(QString, words);
    Network().NotCreated << component;

    QCOMPARE(Scan({"--from", "1", "--to", "1", "--json"}), 4);

    QVERIFY2(Run().Words().value(0).contains(words), qUtf8Printable(Run().Words().value(0)));
    QVERIFY(Run().Json().object().value(QStringLiteral("error")).toString().startsWith(words));
    VerifyReleased();
}

void TestScanCommand::Scan_OpenFails_TellsWordsAndCodes_data()
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

void TestScanCommand::Scan_OpenFails_TellsWordsAndCodes()
{
    QFETCH(bool, raises);
    QFETCH(QString, text);
    QFETCH(QString, words);
    Network().Major = 2;
    Network().Minor = 3;
    Network().Text = text;
    Network().OnOpen = [raises](const QString&) {
        if (raises)
            ScriptedNetwork::Raise(QStringLiteral("Refused"));
        return 1;
    };

    QCOMPARE(Scan({"--from", "1", "--to", "1"}), 4);

    QCOMPARE(Run().Words(), QStringList{words});
    QCOMPARE(CallsOf(QStringLiteral("Send")), QStringList());
    VerifyReleased();
}

void TestScanCommand::Scan_RequestFails_GoesOnOrEnds_data()
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

void TestScanCommand::Scan_RequestFails_GoesOnOrEnds()
{
    QFETCH(int, major);
    QFETCH(int, code);
    Network().OnSend = [&](const QString& target, const QString&) {
        if (AddressOf(target) == 2) {
            Network().Major = major;
            Network().Minor = 5;
            Network().Text = QStringLiteral("Trouble");
            ScriptedNetwork::Raise();
        }
        return QStringLiteral("x");
    };

    QCOMPARE(Scan({"--from", "1", "--to", "3", "--json"}), code);

    QCOMPARE(Run().Json().array().size(), code == 0 ? 2 : 1);
    const QString words =
        QStringLiteral("zelka: The scan ended at address 2. Trouble (Major code = %1, Minor code = 5)")
            .arg(major);
    QCOMPARE(Run().Words(), code == 0 ? QStringList() : QStringList{words});
    VerifyReleased();
}

void TestScanCommand::Scan_ConnectionLostBetweenRequests_KeepsTheRow()
{
    Network().OnSend = [&](const QString&, const QString& request) {
        if (request == u"03") {
            Network().Major = SyncFailure::Major::Gateway;
            ScriptedNetwork::Raise();
        }
        return QStringLiteral("x");
    };

    QCOMPARE(Scan({"--from", "1", "--to", "3"}), 4);

    QCOMPARE(Run().Lines(), QStringList{"1\t\tx"});
}

void TestScanCommand::Interrupt_WhileOpening_EndsTheWait()
{
    Network().OnOpen = [this](const QString&) {
        InterruptWait();
        return 0;
    };

    QCOMPARE(Scan({"--from", "1", "--to", "1"}), 130);

    QCOMPARE(Run().Lines() + Run().Words(), QStringList());
    VerifyReleased();
}

void TestScanCommand::Interrupt_WhileANodeIsAsked_EndsTheWaitAndKeepsRows_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<int>("rows");
    QTest::newRow("identification") << "40" << 1;
    QTest::newRow("type") << "03" << 2;
}

void TestScanCommand::Interrupt_WhileANodeIsAsked_EndsTheWaitAndKeepsRows()
{
    QFETCH(QString, request);
    QFETCH(int, rows);
    Network().OnSend = [&](const QString& target, const QString& asked) {
        if (AddressOf(target) == 2 && asked == request)
            InterruptWait();
        return QStringLiteral("x");
    };

    QCOMPARE(Scan({"--from", "1", "--to", "9", "--json"}), 130);

    QCOMPARE(Run().Json().array().size(), rows);
    QCOMPARE(Run().Words(), QStringList());
    QCOMPARE(AddressOf(CallsOf(QStringLiteral("Send")).last()), 2);
    VerifyReleased();
}

void TestScanCommand::Interrupt_BetweenAddresses_EndsWithinTheInterval()
{
    PutNodes({1, 2});
    qint64 begin = 0;
    Network().OnOpen = [&](const QString&) {
        begin = Clock().NowMs;
        return 0;
    };
    Machine().Sleep = [&begin, sleep = Machine().Sleep](int ms) {
        if (begin != 0)
            (void)std::raise(SIGINT);
        sleep(ms);
    };

    QCOMPARE(Scan({"--from", "1", "--to", "2", "--interval", "60000"}), 130);

    QCOMPARE(Run().Lines(), QStringList{"1\tT4-1\tNode 1"});
    QCOMPARE(Clock().NowMs - begin, 100);
}

QTEST_GUILESS_MAIN(TestScanCommand)
#include "TestScanCommand.moc"
