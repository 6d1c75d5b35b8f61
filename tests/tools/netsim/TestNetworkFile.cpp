#include "tools/netsim/NetworkFile.h"

#include <QTemporaryDir>
#include <QTest>

namespace {

QStringList ProblemsOf(const QByteArray& text)
{
    NetworkDescription network;
    QStringList problems;
    NetworkFile(network, problems).Read(text);
    return problems;
}

NetworkDescription NetworkOf(const QByteArray& text)
{
    NetworkDescription network;
    QStringList problems;
    NetworkFile(network, problems).Read(text);
    if (!problems.isEmpty())
        qFatal("%s", qUtf8Printable(problems.join(u'\n')));
    return network;
}

/// A network with one node that has these keys besides its address.
QByteArray WithNode(const QByteArray& keys)
{
    return R"({"buses":[{"number":254,"nodes":[{"address":17)" + (keys.isEmpty() ? "" : "," + keys) + "}]}]}";
}

} // namespace

/// Reading the file of a network.
class TestNetworkFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Read_WholeNode_TakesEachValue();
    void Read_OnlyWhatIsNeeded_TakesDefaults();
    void Read_Defaults_HoldForNodesThatSayNothingElse();
    void Read_TypeNull_TakesNone();
    void Read_Seed_IsTaken();
    void Read_Mistake_TellsPlace_data();
    void Read_Mistake_TellsPlace();
    void Read_NoJson_TellsLineAndColumn();
    void Read_DoubledKey_TellsLineAndColumn_data();
    void Read_DoubledKey_TellsLineAndColumn();
    void Read_SeveralMistakes_TellsAll();
    void Read_TooManyBuses_IsRefused();
    void ReadNetworkFile_Missing_NamesTheFile();
    void ReadNetworkFile_Mistake_NamesFileAndPlace();
    void IsPresent_Times_data();
    void IsPresent_Times();
};

void TestNetworkFile::Read_WholeNode_TakesEachValue()
{
    const NetworkDescription network = NetworkOf(
        WithNode(R"("identification":"Søndre","type":"X","delayMs":5,"jitterMs":6,"loss":0.25,"silent":true,)"
                 R"("appearsAfterMs":10,"vanishesAfterMs":20,"repeatsEveryMs":30)"));

    const NodeDescription expected{
        QStringLiteral("Søndre"), QStringLiteral("X"), {5, 6, 0.25, true}, {10, 20, 30}};
    QCOMPARE(network.buses.at(254).size(), 1U);
    QVERIFY(network.buses.at(254).at(17) == expected);
}

void TestNetworkFile::Read_OnlyWhatIsNeeded_TakesDefaults()
{
    const NetworkDescription network = NetworkOf(WithNode(""));

    QVERIFY(network.buses.at(254).at(17) == NodeDescription());
    QCOMPARE(network.seed, 1U);
}

void TestNetworkFile::Read_Defaults_HoldForNodesThatSayNothingElse()
{
    const NetworkDescription network =
        NetworkOf(R"({"buses":[{"number":1,"defaults":{"delayMs":7,"loss":0.5,"type":"T","silent":true},
                   "nodes":[{"address":0},{"address":1,"delayMs":1,"loss":0,"type":"U","silent":false}]}]})");

    const NodeDescription plain{QString(), QStringLiteral("T"), {7, 0, 0.5, true}, {}};
    const NodeDescription other{QString(), QStringLiteral("U"), {1, 0, 0, false}, {}};
    QVERIFY(network.buses.at(1).at(0) == plain);
    QVERIFY(network.buses.at(1).at(1) == other);
}

void TestNetworkFile::Read_TypeNull_TakesNone()
{
    const NetworkDescription network =
        NetworkOf(R"({"buses":[{"number":1,"defaults":{"type":"T"},"nodes":[{"address":0,"type":null}]}]})");

    QVERIFY(!network.buses.at(1).at(0).type);
}

void TestNetworkFile::Read_Seed_IsTaken()
{
    QCOMPARE(NetworkOf(R"({"seed":4294967295,"buses":[]})").seed, 4'294'967'295U);
}

void TestNetworkFile::Read_Mistake_TellsPlace_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("problem");
    const auto row = [](const char* name, const QByteArray& text, const char* problem) {
        QTest::newRow(name) << text << QString::fromUtf8(problem);
    };
    const auto node = [&row](const char* name, const QByteArray& keys, const char* problem) {
        row(name, WithNode(keys), (QByteArray("buses[0].nodes[0].") + problem).constData());
    };
    row("array", "[]", "file: must be an object");
    row("no buses", "{}", "buses: is missing");
    row("buses no array", R"({"buses":{}})", "buses: must be an array");
    row("unknown key", R"({"buses":[],"busses":[]})", "busses: is not known here");
    row("seed negative", R"({"seed":-1,"buses":[]})", "seed: must be a whole number from 0 to 4294967295");
    row("seed text", R"({"seed":"1","buses":[]})", "seed: must be a whole number from 0 to 4294967295");
    row("bus no object", R"({"buses":[7]})", "buses[0]: must be an object");
    row("bus without number", R"({"buses":[{"nodes":[]}]})", "buses[0].number: is missing");
    row("bus without nodes", R"({"buses":[{"number":1}]})", "buses[0].nodes: is missing");
    row("bus empty", R"({"buses":[{"number":1,"nodes":[]},{"nodes":[]}]})", "buses[1].number: is missing");
    row("bus number too high", R"({"buses":[{"number":1000000,"nodes":[]}]})",
        "buses[0].number: must be a whole number from 0 to 999999");
    row("bus twice", R"({"buses":[{"number":1,"nodes":[]},{"number":1,"nodes":[]}]})",
        "buses[1].number: bus 1 is there already");
    row("unknown key of a bus", R"({"buses":[{"number":1,"nodes":[],"name":"x"}]})",
        "buses[0].name: is not known here");
    row("defaults no object", R"({"buses":[{"number":1,"nodes":[],"defaults":5}]})",
        "buses[0].defaults: must be an object");
    row("identification for all", R"({"buses":[{"number":1,"nodes":[],"defaults":{"identification":"x"}}]})",
        "buses[0].defaults.identification: is not known here");
    row("node no object", R"({"buses":[{"number":1,"nodes":[null]}]})",
        "buses[0].nodes[0]: must be an object");
    row("node empty", R"({"buses":[{"number":1,"nodes":[{}]}]})", "buses[0].nodes[0].address: is missing");
    row("address too high", R"({"buses":[{"number":1,"nodes":[{"address":4095}]}]})",
        "buses[0].nodes[0].address: must be a whole number from 0 to 4094");
    row("address broken", R"({"buses":[{"number":1,"nodes":[{"address":1.5}]}]})",
        "buses[0].nodes[0].address: must be a whole number from 0 to 4094");
    row("address twice", R"({"buses":[{"number":1,"nodes":[{"address":1},{"address":1}]}]})",
        "buses[0].nodes[1].address: address 1 is there already");
    node("unknown key of a node", R"("adress":1)", "adress: is not known here");
    node("identification a number", R"("identification":5)", "identification: must be a text");
    node("identification too wide", R"("identification":"Ω")",
         "identification: must have 8-bit characters only");
    node("identification too long", R"("identification":")" + QByteArray(1001, 'x') + '"',
         "identification: can have 1000 characters at most");
    node("type a number", R"("type":5)", "type: must be a text");
    node("delay too long", R"("delayMs":600001)", "delayMs: must be a whole number from 0 to 600000");
    node("jitter negative", R"("jitterMs":-1)", "jitterMs: must be a whole number from 0 to 600000");
    node("loss too high", R"("loss":1.01)", "loss: must be a number from 0 to 1");
    node("loss a text", R"("loss":"0.5")", "loss: must be a number from 0 to 1");
    node("silent a number", R"("silent":1)", "silent: must be true or false");
    node("appears null", R"("appearsAfterMs":null)",
         "appearsAfterMs: must be a whole number from 0 to 1000000000");
    node("never there", R"("appearsAfterMs":5,"vanishesAfterMs":5)",
         "vanishesAfterMs: must differ from appearsAfterMs");
    node("repeats too soon", R"("appearsAfterMs":5,"repeatsEveryMs":5)",
         "repeatsEveryMs: must be longer than appearsAfterMs and vanishesAfterMs");
}

void TestNetworkFile::Read_Mistake_TellsPlace()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, problem);

    QCOMPARE(ProblemsOf(text), QStringList{problem});
}

void TestNetworkFile::Read_NoJson_TellsLineAndColumn()
{
    const QStringList problems = ProblemsOf("{\n  \"buses\": [,]\n}");

    QCOMPARE(problems.size(), 1);
    QVERIFY2(problems.constFirst().startsWith(QStringLiteral("line 2, column 1")),
             qUtf8Printable(problems.constFirst()));
}

void TestNetworkFile::Read_DoubledKey_TellsLineAndColumn_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("problems");
    QTest::newRow("at the top") << QByteArray("{\"seed\": 1,\n \"buses\": [],\n \"seed\": 2}")
                                << QStringList{"line 3, column 2: \"seed\" is given twice"};
    QTest::newRow("in a node, escaped") << WithNode("\n\"loss\":0,\"l\\u006fss\":1")
                                        << QStringList{"line 2, column 10: \"loss\" is given twice"};
    QTest::newRow("as a value") << WithNode(R"("identification":"silent","type":"silent","silent":true)")
                                << QStringList();
    QTest::newRow("in two nodes") << QByteArray(
                                         R"({"buses":[{"number":1,"nodes":[{"address":1},{"address":2}]}]})")
                                  << QStringList();
    QTest::newRow("braces and quotes in texts")
        << WithNode(R"("identification":"}\"{\"address\":","type":"\\")") << QStringList();
}

void TestNetworkFile::Read_DoubledKey_TellsLineAndColumn()
{
    QFETCH(QByteArray, text);
    QFETCH(QStringList, problems);

    QCOMPARE(ProblemsOf(text), problems);
}

void TestNetworkFile::Read_SeveralMistakes_TellsAll()
{
    const QStringList problems = ProblemsOf(R"({"seed":-1,"buses":[{"nodes":[{},{"address":"x"}]}]})");

    QCOMPARE(problems.size(), 4);
}

void TestNetworkFile::Read_TooManyBuses_IsRefused()
{
    QByteArrayList buses;
    for (int i = 0; i <= NetworkLimits::MostBuses; ++i)
        buses << R"({"number":)" + QByteArray::number(i) + R"(,"nodes":[]})";

    QCOMPARE(ProblemsOf("{\"buses\":[" + buses.join(',') + "]}"),
             QStringList{"buses: there can be 1000 buses at most"});
}

void TestNetworkFile::ReadNetworkFile_Missing_NamesTheFile()
{
    NetworkDescription network;
    QStringList problems;

    QVERIFY(!ReadNetworkFile(QStringLiteral("/no/such/file"), network, problems));

    QCOMPARE(problems.size(), 1);
    QVERIFY(problems.constFirst().startsWith(QStringLiteral("/no/such/file: ")));
}

void TestNetworkFile::ReadNetworkFile_Mistake_NamesFileAndPlace()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("net.json")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("{}");
    file.close();
    NetworkDescription network;
    QStringList problems;

    QVERIFY(!ReadNetworkFile(file.fileName(), network, problems));

    QCOMPARE(problems, QStringList{file.fileName() + QStringLiteral(": buses: is missing")});
}

void TestNetworkFile::IsPresent_Times_data()
{
    using Time = std::optional<qint64>;
    QTest::addColumn<Time>("appears");
    QTest::addColumn<Time>("vanishes");
    QTest::addColumn<qint64>("repeats");
    QTest::addColumn<QList<qint64>>("present");
    QTest::addColumn<QList<qint64>>("away");
    QTest::newRow("always") << Time() << Time() << qint64(0) << QList<qint64>{0, 99999} << QList<qint64>{};
    QTest::newRow("appears") << Time(10) << Time() << qint64(0) << QList<qint64>{10, 500}
                             << QList<qint64>{0, 9};
    QTest::newRow("vanishes") << Time() << Time(10) << qint64(0) << QList<qint64>{0, 9}
                              << QList<qint64>{10, 500};
    QTest::newRow("for a while") << Time(10) << Time(20) << qint64(0) << QList<qint64>{10, 19}
                                 << QList<qint64>{9, 20, 500};
    QTest::newRow("away for a while")
        << Time(20) << Time(10) << qint64(0) << QList<qint64>{0, 9, 20, 500} << QList<qint64>{10, 19};
    QTest::newRow("again and again") << Time(10) << Time(20) << qint64(30) << QList<qint64>{10, 19, 40, 79}
                                     << QList<qint64>{0, 20, 30, 39, 50, 80};
    QTest::newRow("away again and again")
        << Time(20) << Time(10) << qint64(30) << QList<qint64>{0, 9, 20, 39, 50} << QList<qint64>{10, 40, 79};
}

void TestNetworkFile::IsPresent_Times()
{
    QFETCH(std::optional<qint64>, appears);
    QFETCH(std::optional<qint64>, vanishes);
    QFETCH(qint64, repeats);
    QFETCH(QList<qint64>, present);
    QFETCH(QList<qint64>, away);
    const NodePresence presence{appears, vanishes, repeats};

    for (const qint64 now : present)
        QVERIFY2(presence.IsPresent(now), qPrintable(QString::number(now)));
    for (const qint64 now : away)
        QVERIFY2(!presence.IsPresent(now), qPrintable(QString::number(now)));
}

QTEST_GUILESS_MAIN(TestNetworkFile)
#include "TestNetworkFile.moc"
