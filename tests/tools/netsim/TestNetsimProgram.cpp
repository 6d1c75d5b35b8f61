#include "GatewayClient.h"
#include "NetsimProgram.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTcpServer>
#include <QTest>

#include <csignal>
#include <memory>

using GatewayFrame::Frame;
using GatewayFrame::Reply;

namespace {

const QByteArray SmallNetwork = R"({"seed": 3, "buses": [
    {"number": 254, "nodes": [{"address": 17, "identification": "Søndre", "type": "T4"},
                              {"address": 18, "delayMs": 5, "jitterMs": 3, "loss": 1, "silent": true,
                               "appearsAfterMs": 900000}]},
    {"number": 253, "nodes": []}]})";

} // namespace

/// The program, as an operator and a script run it.
class TestNetsimProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_program = std::make_unique<NetsimProgram>(); }
    void cleanup() { m_program.reset(); }

    void Help_Asked_TellsCommandsAndExitCodes();
    void Arguments_Wrong_Usage_data();
    void Arguments_Wrong_Usage();
    void Check_GoodFile_Counts();
    void Check_BadFile_TellsEachProblem();
    void Demo_Printed_IsAGoodFile();
    void Demo_ToFile_IsTheSame();
    void Demo_ToNoFolder_TellsWhy();
    void Serve_NoFile_ServesTheDemo();
    void Serve_File_Answers();
    void Serve_BadFile_Refused();
    void Serve_PortTaken_Refused();
    void Serve_Seed_IsInForce();
    void Serve_Signal_EndsCleanly_data();
    void Serve_Signal_EndsCleanly();
    void Serve_Killed_NextOneTakesCommands();
    void Serve_Talk_FollowsItsOptions_data();
    void Serve_Talk_FollowsItsOptions();
    void Control_Nodes_AreChanged();
    void Control_List_ShowsOddities();
    void Control_Json_IsADocument();
    void Control_Faults_ReachTheWire();
    void Control_Failure_TellsAndRefuses();
    void Control_NobodyThere_Refused();
    void Control_Stop_EndsIt();

private:
    void ServeSmall(const QStringList& further = {})
    {
        m_program->Serve(QStringList{m_program->Write(QStringLiteral("net.json"), SmallNetwork)} + further);
    }
    [[nodiscard]] Frame Asked(GatewayClient& client, const QByteArray& request) const
    {
        client.Ask(5, QStringLiteral("WP=NET4,ADDR=17"), request);
        return client.Next();
    }

    std::unique_ptr<NetsimProgram> m_program;
};

void TestNetsimProgram::Help_Asked_TellsCommandsAndExitCodes()
{
    const NetsimResult result = m_program->Run({"--help"});

    QCOMPARE(result.code, 0);
    for (const char* word : {"serve", "ctl", "check", "demo", "Exit codes: 0 done, 1 refused"})
        QVERIFY2(result.data.contains(word), word);
    QVERIFY(result.words.isEmpty());
}

void TestNetsimProgram::Arguments_Wrong_Usage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("nothing") << QStringList();
    QTest::newRow("unknown") << QStringList{"explode"};
    QTest::newRow("check nothing") << QStringList{"check"};
    QTest::newRow("listen nowhere") << QStringList{"serve", "--listen", "here"};
    QTest::newRow("seed negative") << QStringList{"serve", "--seed", "-1"};
    QTest::newRow("quiet and log") << QStringList{"serve", "--quiet", "--log"};
    QTest::newRow("ctl nothing") << QStringList{"ctl"};
    QTest::newRow("silence nobody") << QStringList{"ctl", "silence"};
    QTest::newRow("no node") << QStringList{"ctl", "silence", "254"};
    QTest::newRow("three numbers") << QStringList{"ctl", "silence", "254/1/2"};
    QTest::newRow("add without text") << QStringList{"ctl", "add", "254/1"};
    QTest::newRow("move nowhere") << QStringList{"ctl", "move", "254/1"};
    QTest::newRow("delay a word") << QStringList{"ctl", "delay", "254/1", "long"};
    QTest::newRow("loss too high") << QStringList{"ctl", "loss", "254/1", "1.5"};
    QTest::newRow("unknown fault") << QStringList{"ctl", "fault", "flood"};
    QTest::newRow("from the zeroth") << QStringList{"ctl", "fault", "cut", "--from", "0"};
}

void TestNetsimProgram::Arguments_Wrong_Usage()
{
    QFETCH(QStringList, arguments);

    const NetsimResult result = m_program->Run(arguments);

    QCOMPARE(result.code, 2);
    QVERIFY(result.data.isEmpty());
    QVERIFY2(result.words.startsWith("zelka-netsim: "), result.words.constData());
}

void TestNetsimProgram::Check_GoodFile_Counts()
{
    const NetsimResult result = m_program->Run({"check", m_program->Write("net.json", SmallNetwork)});

    QCOMPARE(result.code, 0);
    QCOMPARE(result.data, QByteArray("2 buses, 2 nodes\n"));
}

void TestNetsimProgram::Check_BadFile_TellsEachProblem()
{
    const QString file = m_program->Write("Ω.json", R"({"buses":[{"number":-1,"nodes":7}]})");

    const NetsimResult result = m_program->Run({"check", file});

    QCOMPARE(result.code, 1);
    const QByteArray lead = "zelka-netsim: " + file.toUtf8() + ": buses[0].";
    QCOMPARE(result.words,
             lead + "number: must be a whole number from 0 to 999999\n" + lead + "nodes: must be an array\n");
}

void TestNetsimProgram::Demo_Printed_IsAGoodFile()
{
    const NetsimResult demo = m_program->Run({"demo"});
    QCOMPARE(demo.code, 0);

    const NetsimResult result = m_program->Run({"check", m_program->Write("demo.json", demo.data)});

    QCOMPARE(result.data, QByteArray("3 buses, 200 nodes\n"));
}

void TestNetsimProgram::Demo_ToFile_IsTheSame()
{
    const QString path = m_program->Path("demo.json");

    const NetsimResult result = m_program->Run({"demo", "--output", path});

    QCOMPARE(result.code, 0);
    QVERIFY(result.data.isEmpty());
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), m_program->Run({"demo"}).data);
}

void TestNetsimProgram::Demo_ToNoFolder_TellsWhy()
{
    const NetsimResult result = m_program->Run({"demo", "--output", "/no/such/folder/x"});

    QCOMPARE(result.code, 1);
    QVERIFY2(result.words.startsWith("zelka-netsim: /no/such/folder/x: "), result.words.constData());
}

void TestNetsimProgram::Serve_NoFile_ServesTheDemo()
{
    m_program->Serve();

    const NetsimResult status = m_program->Control({"status"});

    QVERIFY2(status.data.contains("buses: 252, 253, 254\n"), status.data.constData());
    QVERIFY2(status.data.contains("nodes: 200\n"), status.data.constData());
    QVERIFY2(status.data.contains("gateway: " + m_program->Place().toUtf8()), status.data.constData());
}

void TestNetsimProgram::Serve_File_Answers()
{
    ServeSmall();
    GatewayClient client(m_program->Port());
    client.Open("WP=BUST4,ID=254");

    QCOMPARE(Asked(client, "40"), (Frame{5, Reply{"S\xF8ndre"}}));
    QCOMPARE(Asked(client, "03"), (Frame{5, Reply{"T4"}}));
}

void TestNetsimProgram::Serve_BadFile_Refused()
{
    const NetsimResult result = m_program->Run({"serve", m_program->Write("net.json", "{")});

    QCOMPARE(result.code, 1);
    QVERIFY(result.data.isEmpty());
    QVERIFY2(result.words.contains("net.json: line 1, column "), result.words.constData());
}

void TestNetsimProgram::Serve_PortTaken_Refused()
{
    QTcpServer other;
    QVERIFY(other.listen(QHostAddress::LocalHost));
    const QString place = QStringLiteral("127.0.0.1:%1").arg(other.serverPort());

    const NetsimResult result = m_program->Run({"serve", "--listen", place});

    QCOMPARE(result.code, 1);
    QVERIFY(result.data.isEmpty());
    QVERIFY2(result.words.startsWith("zelka-netsim: " + place.toUtf8() + " cannot be listened on: "),
             result.words.constData());
}

void TestNetsimProgram::Serve_Seed_IsInForce()
{
    ServeSmall({"--seed", "77"});

    QVERIFY(m_program->Control({"status"}).data.contains("seed: 77\n"));
}

void TestNetsimProgram::Serve_Signal_EndsCleanly_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("Ctrl+C") << SIGINT;
    QTest::newRow("end") << SIGTERM;
    QTest::newRow("terminal closed") << SIGHUP;
}

void TestNetsimProgram::Serve_Signal_EndsCleanly()
{
    QFETCH(int, signal);
    ServeSmall();
    GatewayClient client(m_program->Port());
    client.Open("WP=BUST4,ID=254");

    QCOMPARE(kill(static_cast<pid_t>(m_program->Id()), signal), 0);

    QCOMPARE(m_program->WaitForEnd().code, 0);
    QVERIFY(client.WaitForEnd());
    QCOMPARE(m_program->Control({"status"}).code, 1);
}

void TestNetsimProgram::Serve_Killed_NextOneTakesCommands()
{
    ServeSmall();
    const QString place = m_program->Place();
    QCOMPARE(kill(static_cast<pid_t>(m_program->Id()), SIGKILL), 0);
    QCOMPARE(m_program->WaitForEnd().code, -1);

    m_program->Serve({}, place);

    QCOMPARE(m_program->Place(), place);
    QCOMPARE(m_program->Control({"status"}).code, 0);
}

void TestNetsimProgram::Serve_Talk_FollowsItsOptions_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<bool>("comings");
    QTest::addColumn<bool>("messages");
    QTest::newRow("plain") << QStringList() << true << false;
    QTest::newRow("quiet") << QStringList{"--quiet"} << false << false;
    QTest::newRow("log") << QStringList{"--log"} << true << true;
}

void TestNetsimProgram::Serve_Talk_FollowsItsOptions()
{
    QFETCH(QStringList, options);
    QFETCH(bool, comings);
    QFETCH(bool, messages);
    ServeSmall(options);
    GatewayClient client(m_program->Port());
    client.Open("WP=BUST4,ID=254");
    QCOMPARE(Asked(client, "4\n0"), (Frame{5, Reply{"?4\n0"}}));

    QCOMPARE(m_program->Control({"stop"}).code, 0);

    const QByteArray words = m_program->WaitForEnd().words;
    QCOMPARE(words.contains(" connects\n"), comings);
    QCOMPARE(words.contains(" asks 254/17 \"4 0\", attempt 0: reply after 0 ms\n"), messages);
}

void TestNetsimProgram::Control_Nodes_AreChanged()
{
    ServeSmall();
    GatewayClient client(m_program->Port());
    client.Open("WP=BUST4,ID=254");
    const QList<QStringList> commands = {
        {"rename", "254/17", "Ø new"}, {"type", "254/17", "X"},       {"silence", "254/17"},
        {"answer", "254/17"},          {"delay", "254/17", "1", "1"}, {"loss", "254/17", "0"},
        {"add", "253/1", "a b", "T"},  {"move", "253/1", "253/4094"}, {"remove", "254/18"},
    };

    for (const QStringList& command : commands) {
        const NetsimResult result = m_program->Control(command);
        QVERIFY2(result.code == 0 && result.data.isEmpty(), result.words.constData());
    }

    QCOMPARE(m_program->Control({"list"}).data,
             QByteArray("253/4094\ta b\tT\t\n254/17\tØ new\tX\t1 to 2 ms\n"));
    QCOMPARE(Asked(client, "40"), (Frame{5, Reply{"\xD8 new"}}));
}

void TestNetsimProgram::Control_List_ShowsOddities()
{
    ServeSmall();

    QCOMPARE(m_program->Control({"list", "254"}).data,
             QByteArray("254/17\tSøndre\tT4\t\n254/18\t\t\taway, silent, 5 to 8 ms, loss 1\n"));
    QCOMPARE(m_program->Control({"list", "253"}).data, QByteArray());
}

void TestNetsimProgram::Control_Json_IsADocument()
{
    ServeSmall();

    const QJsonObject list = QJsonDocument::fromJson(m_program->Control({"list", "--json"}).data).object();
    const QJsonObject status =
        QJsonDocument::fromJson(m_program->Control({"status", "--json"}).data).object();

    QCOMPARE(list.value("nodes").toArray().at(0).toObject().value("identification").toString(),
             QStringLiteral("Søndre"));
    QCOMPARE(status.value("seed").toInt(), 3);
}

void TestNetsimProgram::Control_Faults_ReachTheWire()
{
    ServeSmall();
    GatewayClient client(m_program->Port());
    client.Open("WP=BUST4,ID=254");

    QCOMPARE(m_program->Control({"freeze"}).code, 0);
    QVERIFY(m_program->Control({"status"}).data.contains("frozen: yes\n"));
    client.Ask(5, "WP=NET4,ADDR=17", "03");
    QCOMPARE(m_program->Control({"thaw"}).code, 0);
    QCOMPARE(client.Next(), (Frame{5, Reply{"T4"}}));

    QCOMPARE(m_program->Control({"fault", "cut", "--from", "2", "--count", "1"}).code, 0);
    QCOMPARE(Asked(client, "03"), (Frame{5, Reply{"T4"}}));
    client.Ask(6, "WP=NET4,ADDR=17", "03");
    QVERIFY(client.WaitForEnd());
    QVERIFY(m_program->Control({"status"}).data.contains("fault: cut\n"));
}

void TestNetsimProgram::Control_Failure_TellsAndRefuses()
{
    ServeSmall();

    const NetsimResult result = m_program->Control({"silence", "254/99"});

    QCOMPARE(result.code, 1);
    QCOMPARE(result.words, QByteArray("zelka-netsim: There is no node 254/99.\n"));
}

void TestNetsimProgram::Control_NobodyThere_Refused()
{
    const NetsimResult result = m_program->Run({"ctl", "status", "--listen", "127.0.0.1:1"});

    QCOMPARE(result.code, 1);
    QCOMPARE(result.words, QByteArray("zelka-netsim: No network of yours listens on 127.0.0.1:1.\n"));
}

void TestNetsimProgram::Control_Stop_EndsIt()
{
    ServeSmall();

    QCOMPARE(m_program->Control({"stop"}).code, 0);

    QCOMPARE(m_program->WaitForEnd().code, 0);
}

QTEST_GUILESS_MAIN(TestNetsimProgram)
#include "TestNetsimProgram.moc"
