#include "tests/host/RunProgram.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QProcess>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <memory>

/// The script behind `make run`, on a machine without a display.
class TestRunDemo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void Run_NoDatabase_MakesTheDemoAndAsksItsFirstNode();
    void Run_DemoThere_LeavesItAlone();
    void Run_SourceFromEnvironment_MakesItThere();
    void Run_DatabaseUnusable_TellsAndEndsWithItsCode();
    void Run_FurtherArguments_ReachTheWorkstation();
    void Run_NoFolder_ShowsUsage_data();
    void Run_NoFolder_ShowsUsage();
    void Run_NoNetwork_ServesTheDemoUntilTheWorkstationEnds();
    void Run_NetworkThere_StartsNone();
    void Run_GatewayFromEnvironment_StartsNone();
    void Run_NetworkFails_StartsTheWorkstationAllTheSame();
    void Run_WorkstationFails_EndsWithItsCode();
    void Signal_WorkstationRuns_EndsIt_data();
    void Signal_WorkstationRuns_EndsIt();
    void Signal_WorkstationJustStarts_EndsIt();

private:
    /// A folder of programs in which scripts stand for some.
    [[nodiscard]] QString ProgramsWith(const QMap<QString, QByteArray>& scripts) const;
    [[nodiscard]] Outcome Run(const QStringList& arguments, const QString& source = QString()) const;
    [[nodiscard]] Outcome RunPrograms(const QStringList& further = {},
                                      const QString& source = QString()) const
    {
        return Run(QStringList{QStringLiteral(ZELKA_PROGRAMS)} + further, source);
    }
    [[nodiscard]] QString Home(const QString& name) const { return m_home->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_home;
};

namespace {

/// A workstation that prints its gateway.
const QByteArray TellsGateway = "echo \"gateway ${ZELKA_GATEWAY:-none}\"\n";

bool IsListening(const QString& place)
{
    QTcpSocket socket;
    socket.connectToHost(place.section(u':', 0, 0), place.section(u':', 1).toUShort());
    return socket.waitForConnected(5000);
}

QString Gateway(const QString& output)
{
    return output.section(QStringLiteral("gateway "), 1).section(u'\n', 0, 0);
}

} // namespace

void TestRunDemo::init()
{
    m_home = std::make_unique<QTemporaryDir>();
    QVERIFY(m_home->isValid());
    for (const char* folder : {"config", "temp"})
        QVERIFY(QDir().mkpath(Home(QLatin1String(folder))));
}

Outcome TestRunDemo::Run(const QStringList& arguments, const QString& source) const
{
    return RunWithoutDisplay(QStringLiteral(ZELKA_RUN_DEMO), arguments, m_home->path(), source);
}

void TestRunDemo::Run_NoDatabase_MakesTheDemoAndAsksItsFirstNode()
{
    const Outcome outcome = RunPrograms();

    QVERIFY2(outcome.code == 0, qUtf8Printable(outcome.errors));
    QVERIFY2(outcome.errors.contains(QStringLiteral("Made the demo database.")),
             qUtf8Printable(outcome.errors));
    QVERIFY(QFileInfo::exists(Home(QStringLiteral("data/zelka/Dbs.mdb"))));
    QCOMPARE(outcome.output, QStringLiteral("WP=KD7,BUSID=254,WP=NET4,ADDR=5,SUB=1\n"
                                            "identification: Harbour Tower alarm unit 1\n"));
}

void TestRunDemo::Run_DemoThere_LeavesItAlone()
{
    const Outcome first = RunPrograms();
    QCOMPARE(first.code, 0);
    const QFileInfo before(Home(QStringLiteral("data/zelka/Dbs.mdb")));
    const QStringList files = before.dir().entryList(QDir::Files);
    const qint64 size = before.size();

    const Outcome second = RunPrograms();

    QCOMPARE(second.code, 0);
    QCOMPARE(second.output, first.output);
    QVERIFY(!second.errors.contains(QStringLiteral("Made the demo database.")));
    QCOMPARE(before.dir().entryList(QDir::Files), files);
    QCOMPARE(QFileInfo(before.filePath()).size(), size);
}

void TestRunDemo::Run_SourceFromEnvironment_MakesItThere()
{
    const QString source = Home(QStringLiteral("elsewhere.mdb"));

    const Outcome outcome = RunPrograms({}, source);

    QVERIFY2(outcome.code == 0, qUtf8Printable(outcome.errors));
    QVERIFY(QFileInfo::exists(source));
    QVERIFY(!QFileInfo::exists(Home(QStringLiteral("data/zelka/Dbs.mdb"))));
}

void TestRunDemo::Run_DatabaseUnusable_TellsAndEndsWithItsCode()
{
    const QByteArray contents("These are notes and no database.\n");
    QFile notes(Home(QStringLiteral("notes.txt")));
    QVERIFY(notes.open(QIODevice::WriteOnly));
    notes.write(contents);
    notes.close();

    const Outcome outcome = RunPrograms({}, notes.fileName());

    QCOMPARE(outcome.code, 3);
    QVERIFY(outcome.output.isEmpty());
    QVERIFY(notes.open(QIODevice::ReadOnly));
    QCOMPARE(notes.readAll(), contents);
}

void TestRunDemo::Run_FurtherArguments_ReachTheWorkstation()
{
    const Outcome outcome = RunPrograms({QStringLiteral("--screenshots"), Home(QStringLiteral("pictures"))});

    QVERIFY2(outcome.code == 0, qUtf8Printable(outcome.errors));
    QCOMPARE(QDir(Home(QStringLiteral("pictures"))).entryList(QDir::Files).size(), 3);
}

void TestRunDemo::Run_NoFolder_ShowsUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("nothing") << QStringList();
    QTest::newRow("no such folder") << QStringList{"/no/such/folder"};
}

void TestRunDemo::Run_NoFolder_ShowsUsage()
{
    QFETCH(QStringList, arguments);

    const Outcome outcome = Run(arguments);

    QCOMPARE(outcome.code, 2);
    QVERIFY2(outcome.errors.startsWith(QStringLiteral("usage: ")), qUtf8Printable(outcome.errors));
}

QString TestRunDemo::ProgramsWith(const QMap<QString, QByteArray>& scripts) const
{
    const QDir folder(Home(QStringLiteral("programs")));
    if (!folder.mkpath(QStringLiteral(".")))
        qFatal("no folder");
    for (const char* name : {"zelka", "zelka-workstation", "zelka-netsim", "zelka-node-manager"}) {
        if (!scripts.contains(QLatin1String(name)))
            QFile::link(QStringLiteral(ZELKA_PROGRAMS "/") + QLatin1String(name),
                        folder.filePath(QLatin1String(name)));
    }
    for (auto script = scripts.begin(); script != scripts.end(); ++script) {
        QFile file(folder.filePath(script.key()));
        if (!file.open(QIODevice::WriteOnly) || file.write("#!/bin/sh\n" + *script) < 0)
            qFatal("%s", qUtf8Printable(file.errorString()));
        file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    }
    return folder.path();
}

void TestRunDemo::Run_NoNetwork_ServesTheDemoUntilTheWorkstationEnds()
{
    const QString programs =
        ProgramsWith({{"zelka-workstation", TellsGateway + "\"$(dirname \"$0\")/zelka-netsim\" ctl "
                                                           "--listen $ZELKA_GATEWAY status\n"}});

    const Outcome outcome = Run({programs});

    QVERIFY2(outcome.code == 0, qUtf8Printable(outcome.errors));
    const QString gateway = Gateway(outcome.output);
    QVERIFY2(outcome.errors.contains(QStringLiteral("The demo network listens on ") + gateway),
             qUtf8Printable(outcome.errors));
    QVERIFY2(outcome.output.contains(QStringLiteral("nodes: 200\n")), qUtf8Printable(outcome.output));
    QVERIFY(!IsListening(gateway));
}

void TestRunDemo::Run_NetworkThere_StartsNone()
{
    const QString programs = ProgramsWith(
        {{"zelka-workstation", TellsGateway}, {"zelka-netsim", "[ \"$1 $2\" = \"ctl status\" ]\n"}});

    const Outcome outcome = Run({programs});

    QVERIFY2(outcome.code == 0, qUtf8Printable(outcome.errors));
    QCOMPARE(outcome.output, QStringLiteral("gateway none\n"));
}

void TestRunDemo::Run_GatewayFromEnvironment_StartsNone()
{
    const QString called = Home(QStringLiteral("called"));
    const QString programs = ProgramsWith(
        {{"zelka-workstation", TellsGateway}, {"zelka-netsim", "touch '" + called.toUtf8() + "'\n"}});
    QProcess process;
    QProcessEnvironment environment = EnvironmentWithoutDisplay(m_home->path());
    environment.insert(QStringLiteral("ZELKA_GATEWAY"), QStringLiteral("192.0.2.1:9"));
    process.setProcessEnvironment(environment);

    process.start(QStringLiteral(ZELKA_RUN_DEMO), {programs});

    QVERIFY(process.waitForFinished());
    QCOMPARE(process.readAllStandardOutput(), QByteArray("gateway 192.0.2.1:9\n"));
    QVERIFY(!QFileInfo::exists(called));
}

void TestRunDemo::Run_NetworkFails_StartsTheWorkstationAllTheSame()
{
    const QString programs = ProgramsWith(
        {{"zelka-workstation", TellsGateway}, {"zelka-netsim", "echo 'no network today' >&2; exit 1\n"}});

    const Outcome outcome = Run({programs});

    QVERIFY2(outcome.code == 0, qUtf8Printable(outcome.errors));
    QCOMPARE(outcome.output, QStringLiteral("gateway none\n"));
    QVERIFY2(outcome.errors.contains(QStringLiteral("no network today")), qUtf8Printable(outcome.errors));
}

void TestRunDemo::Run_WorkstationFails_EndsWithItsCode()
{
    const Outcome outcome = Run({ProgramsWith({{"zelka-workstation", "exit 7\n"}})});

    QCOMPARE(outcome.code, 7);
}

void TestRunDemo::Signal_WorkstationRuns_EndsIt_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("Ctrl+C") << SIGINT;
    QTest::newRow("end") << SIGTERM;
    QTest::newRow("terminal closed") << SIGHUP;
}

void TestRunDemo::Signal_WorkstationRuns_EndsIt()
{
    QFETCH(int, signal);
    const QString programs =
        ProgramsWith({{"zelka-workstation", TellsGateway + "echo $$; exec sleep 100\n"}});
    QProcess process;
    process.setProcessEnvironment(EnvironmentWithoutDisplay(m_home->path()));
    process.start(QStringLiteral(ZELKA_RUN_DEMO), {programs});
    QByteArray output;
    while (output.count('\n') < 2 && process.waitForReadyRead())
        output += process.readAllStandardOutput();
    const QList<QByteArray> lines = output.split('\n');
    QCOMPARE(lines.size(), 3);
    const QString gateway = Gateway(QString::fromUtf8(output));
    QVERIFY(IsListening(gateway));

    QCOMPARE(kill(static_cast<pid_t>(process.processId()), signal), 0);

    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 128 + signal);
    QVERIFY(!IsListening(gateway));
    QCOMPARE(kill(lines.at(1).toInt(), 0), -1);
}

void TestRunDemo::Signal_WorkstationJustStarts_EndsIt()
{
    const Outcome outcome =
        Run({ProgramsWith({{"zelka-workstation", "kill -TERM $PPID; exec sleep 100\n"}})});

    QCOMPARE(outcome.code, 128 + SIGTERM);
}

QTEST_GUILESS_MAIN(TestRunDemo)
#include "TestRunDemo.moc"
