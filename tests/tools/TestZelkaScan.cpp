#include "tests/tools/ZelkaRunner.h"
#include "tests/tools/netsim/NetsimProgram.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTest>

#include <csignal>
#include <memory>

/// `zelka scan` and `zelka buses` of the built program over a simulated network.
class TestZelkaScan : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void Scan_Network_PrintsItsNodes();
    void Scan_OtherBus_PrintsItsNodes();
    void Scan_GatewayOfTheEnvironment_IsAsked();
    void Scan_NoGateway_EndsUnavailable();
    void Scan_UnknownBus_EndsUnavailable();
    void Scan_NetworkEnds_KeepsWhatWasFound();
    void Scan_CtrlC_EndsTheWaitAndTheArray();
    void Scan_ReaderGoes_EndsQuietly();
    void Scan_Save_NodesAreInTheDatabase();
    void Scan_SaveCtrlC_SavesNothing();
    void Scan_SaveReaderGoes_SavesNothing();
    void Buses_Connections_ListThem_data();
    void Buses_Connections_ListThem();
    void Buses_NoGateway_EndsUnavailable();

private:
    void Serve(const QString& listen = QStringLiteral("127.0.0.1:0"));
    [[nodiscard]] QString Hop() const
    {
        return QStringLiteral("WP=SOCKET,HOST=127.0.0.1,PORT=%1").arg(m_network->Port());
    }
    void AddConnection(const QString& name, const QString& target) const;
    [[nodiscard]] static QStringList ScanOf(const QString& connection, int from, int to)
    {
        return {
            "scan", connection,   "--from", QString::number(from), "--to", QString::number(to), "--retries",
            "0",    "--time-out", "300",    "--interval",          "0"};
    }
    /// Starts a scan that finds node 6 and then waits for half a minute; gives it when it has printed that.
    [[nodiscard]] std::unique_ptr<QProcess> StartLongScan(const QStringList& options = {"--json"}) const;

    std::unique_ptr<ZelkaRunner> m_zelka;
    std::unique_ptr<NetsimProgram> m_network;
};

static const QByteArray Network = R"({"buses": [
    {"number": 7, "nodes": [
        {"address": 3, "identification": "Köln", "type": "T4 RADIO"},
        {"address": 5, "identification": "Tower", "type": null},
        {"address": 6, "identification": "Mill", "type": "T4 MUX", "delayMs": 50},
        {"address": 7, "identification": "Gone", "silent": true}]},
    {"number": 12, "nodes": [{"address": 3, "identification": "Other", "type": "T4 CLOCK"}]}]})";

void TestZelkaScan::initTestCase()
{
    m_zelka = std::make_unique<ZelkaRunner>();
    m_zelka->MakeSmallDatabase();
    Serve();
    AddConnection("Net", Hop() + ",WP=BUST4,ID=7,WP=OPT,PR=T4DT");
    AddConnection("Mediation", Hop() + ",WP=KD7,BUSID=7,WP=OPT,PR=T4DT");
    AddConnection("Dead", "WP=SOCKET,HOST=127.0.0.1,PORT=9,WP=BUST4,ID=7,WP=OPT,PR=T4DT");
}

void TestZelkaScan::Serve(const QString& listen)
{
    m_network = std::make_unique<NetsimProgram>();
    m_network->Serve({m_network->Write("network.json", Network), "--quiet"}, listen);
}

void TestZelkaScan::cleanupTestCase()
{
    m_network.reset();
    m_zelka.reset();
}

void TestZelkaScan::AddConnection(const QString& name, const QString& target) const
{
    const ZelkaResult result = m_zelka->Run({"add", "connection", name, "--target", target});
    if (result.code != 0)
        qFatal("%s", result.words.constData());
}

std::unique_ptr<QProcess> TestZelkaScan::StartLongScan(const QStringList& options) const
{
    auto process = std::make_unique<QProcess>();
    m_zelka->Start(*process, QStringList{"scan", "Net", "--from", "6", "--to", "7", "--interval", "0",
                                         "--time-out", "30000"} +
                                 options);
    QByteArray printed;
    while (!printed.contains("Mill") && process->waitForReadyRead(60'000))
        printed += process->readAllStandardOutput();
    process->setProperty("printed", printed);
    return process;
}

void TestZelkaScan::Scan_Network_PrintsItsNodes()
{
    const ZelkaResult result = m_zelka->Run(ScanOf("Net", 2, 7));

    QVERIFY2(result.code == 0, result.words.constData());
    QCOMPARE(result.Lines(), (QStringList{"3\tT4 RADIO\tKöln", "5\t\tTower", "6\tT4 MUX\tMill"}));
    QCOMPARE(result.Words(), QString());
}

void TestZelkaScan::Scan_OtherBus_PrintsItsNodes()
{
    const ZelkaResult result = m_zelka->Run(ScanOf("Net", 3, 3) + QStringList{"--bus", "12", "--json"});

    QVERIFY2(result.code == 0, result.words.constData());
    const QJsonArray expected{QJsonObject{{"address", 3}, {"type", "T4 CLOCK"}, {"identification", "Other"}}};
    QCOMPARE(result.Json().array(), expected);
}

void TestZelkaScan::Scan_GatewayOfTheEnvironment_IsAsked()
{
    const ZelkaResult result =
        m_zelka->RunInShell("export ZELKA_GATEWAY=" + m_network->Place() + "; exec \"$@\"",
                            ScanOf("Bus", 3, 3) + QStringList{"--bus", "7"});

    QVERIFY2(result.code == 0, result.words.constData());
    QCOMPARE(result.Lines(), QStringList{"3\tT4 RADIO\tKöln"});
}

void TestZelkaScan::Scan_NoGateway_EndsUnavailable()
{
    const ZelkaResult result = m_zelka->Run(ScanOf("Dead", 1, 4094));

    QCOMPARE(result.code, 4);
    QCOMPARE(result.data, QByteArray());
    QVERIFY2(result.Words().startsWith("zelka: Connection could not be opened. "), result.words.constData());
    QVERIFY2(result.Words().endsWith("(Major code = 2, Minor code = 2)\n"), result.words.constData());
}

void TestZelkaScan::Scan_UnknownBus_EndsUnavailable()
{
    const ZelkaResult result = m_zelka->Run(ScanOf("Net", 1, 4094) + QStringList{"--bus", "99"});

    QCOMPARE(result.code, 4);
    QVERIFY2(result.Words().endsWith("(Major code = 3, Minor code = 1)\n"), result.words.constData());
}

void TestZelkaScan::Scan_NetworkEnds_KeepsWhatWasFound()
{
    const QString place = m_network->Place();
    const std::unique_ptr<QProcess> scan = StartLongScan();

    m_network.reset();

    QVERIFY(scan->waitForFinished(60'000));
    const QByteArray data = scan->property("printed").toByteArray() + scan->readAllStandardOutput();
    const QByteArray words = scan->readAllStandardError();
    Serve(place);
    QCOMPARE(scan->exitCode(), 4);
    QCOMPARE(QJsonDocument::fromJson(data).array().size(), 1);
    QVERIFY2(words.contains("The scan ended at address 7. "), words.constData());
}

void TestZelkaScan::Scan_CtrlC_EndsTheWaitAndTheArray()
{
    const std::unique_ptr<QProcess> scan = StartLongScan();

    QCOMPARE(::kill(static_cast<pid_t>(scan->processId()), SIGINT), 0);

    QVERIFY(scan->waitForFinished(20'000));
    QCOMPARE(scan->exitCode(), 130);
    const QByteArray data = scan->property("printed").toByteArray() + scan->readAllStandardOutput();
    QCOMPARE(QJsonDocument::fromJson(data).array().size(), 1);
    QCOMPARE(scan->readAllStandardError(), QByteArray());
}

void TestZelkaScan::Scan_ReaderGoes_EndsQuietly()
{
    const ZelkaResult result = m_zelka->RunInShell(
        "(\"$@\"; echo $? >&2) | head -1", {"scan", "Net", "--from", "3", "--to", "4094", "--interval", "0"});

    QCOMPARE(result.Lines(), QStringList{"3\tT4 RADIO\tKöln"});
    QCOMPARE(result.Words(), QStringLiteral("0\n"));
}

void TestZelkaScan::Scan_Save_NodesAreInTheDatabase()
{
    const QStringList scan =
        ScanOf("Net", 2, 7) + QStringList{"--prefix", "Hub", "--name-from", "address,id"};

    const ZelkaResult dry = m_zelka->Run(scan + QStringList{"--dry-run"});
    const ZelkaResult first = m_zelka->Run(scan + QStringList{"--save"});
    const ZelkaResult second = m_zelka->Run(scan + QStringList{"--save"});

    QVERIFY2(dry.code + first.code + second.code == 0, first.words.constData());
    QCOMPARE(dry.Lines().mid(3),
             (QStringList{"3\tnew\tHub,3 Köln\t", "5\tnew\tHub,5 Tower\t", "6\tnew\tHub,6 Mill\t"}));
    QCOMPARE(first.Lines().mid(3),
             (QStringList{"3\tsaved\tHub,3 Köln\t", "5\tsaved\tHub,5 Tower\t", "6\tsaved\tHub,6 Mill\t"}));
    QCOMPARE(second.Lines().mid(3),
             (QStringList{"3\tknown\tHub,3 Köln\t", "5\tknown\tHub,5 Tower\t", "6\tknown\tHub,6 Mill\t"}));
    QCOMPARE(
        m_zelka->Rows("SELECT target FROM node WHERE name LIKE 'Hub,%' ORDER BY name"),
        "WP=NET4,ADDR=3,TIME=300,RETRY=0,WP=NET4,ADDR=5,TIME=300,RETRY=0,WP=NET4,ADDR=6,TIME=300,RETRY=0");
}

void TestZelkaScan::Scan_SaveCtrlC_SavesNothing()
{
    const QByteArray before = m_zelka->Query("SELECT max(id) FROM journal");
    const std::unique_ptr<QProcess> process = StartLongScan({"--save", "--prefix", "Ended"});

    QCOMPARE(::kill(static_cast<pid_t>(process->processId()), SIGINT), 0);

    QVERIFY(process->waitForFinished(60'000));
    QCOMPARE(process->exitCode(), 130);
    QCOMPARE(process->readAllStandardError(), "zelka: Nothing is saved.\n");
    QCOMPARE(m_zelka->Query("SELECT max(id) FROM journal"), before);
}

void TestZelkaScan::Scan_SaveReaderGoes_SavesNothing()
{
    const QByteArray before = m_zelka->Query("SELECT max(id) FROM journal");

    const ZelkaResult result = m_zelka->RunInShell(
        "(\"$@\"; echo $? >&2) | head -1", {"scan", "Net", "--from", "3", "--to", "7", "--interval", "0",
                                            "--time-out", "30000", "--save", "--prefix", "Ended"});

    QCOMPARE(result.Lines(), QStringList{"3\tT4 RADIO\tKöln"});
    QCOMPARE(result.Words(),
             "zelka: Nothing is saved.\nzelka: The output was closed before the scan had come to "
             "its end.\n1\n");
    QCOMPARE(m_zelka->Query("SELECT max(id) FROM journal"), before);
}

void TestZelkaScan::Buses_Connections_ListThem_data()
{
    QTest::addColumn<QString>("connection");
    QTest::newRow("T4 bus") << "Net";
    QTest::newRow("mediation") << "Mediation";
}

void TestZelkaScan::Buses_Connections_ListThem()
{
    QFETCH(QString, connection);

    const ZelkaResult result = m_zelka->Run({"buses", connection});

    QVERIFY2(result.code == 0, result.words.constData());
    QCOMPARE(result.Lines(), (QStringList{"7", "12"}));
}

void TestZelkaScan::Buses_NoGateway_EndsUnavailable()
{
    const ZelkaResult result = m_zelka->Run({"buses", "Dead"});

    QCOMPARE(result.code, 4);
    QVERIFY2(result.Words().endsWith("(Major code = 2, Minor code = 2)\n"), result.words.constData());
}

QTEST_GUILESS_MAIN(TestZelkaScan)
#include "TestZelkaScan.moc"
