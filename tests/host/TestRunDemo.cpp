#include "tests/host/RunProgram.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

/// The script behind `make run`, on a machine without a display.
class TestRunDemo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void Run_NoDatabase_MakesTheDemoAndPrintsATarget();
    void Run_DemoThere_LeavesItAlone();
    void Run_SourceFromEnvironment_MakesItThere();
    void Run_DatabaseUnusable_TellsAndEndsWithItsCode();
    void Run_FurtherArguments_ReachTheWorkstation();
    void Run_NoFolder_ShowsUsage_data();
    void Run_NoFolder_ShowsUsage();

private:
    [[nodiscard]] Outcome Run(const QStringList& arguments, const QString& source = QString()) const;
    [[nodiscard]] Outcome RunPrograms(const QStringList& further = {},
                                      const QString& source = QString()) const
    {
        return Run(QStringList{QStringLiteral(ZELKA_PROGRAMS)} + further, source);
    }
    [[nodiscard]] QString Home(const QString& name) const { return m_home->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_home;
};

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

void TestRunDemo::Run_NoDatabase_MakesTheDemoAndPrintsATarget()
{
    const Outcome outcome = RunPrograms();

    QVERIFY2(outcome.code == 0, qUtf8Printable(outcome.errors));
    QVERIFY2(outcome.errors.contains(QStringLiteral("Made the demo database.")),
             qUtf8Printable(outcome.errors));
    QVERIFY(QFileInfo::exists(Home(QStringLiteral("data/zelka/Dbs.mdb"))));
    QVERIFY2(outcome.output.startsWith(QStringLiteral("WP=")), qUtf8Printable(outcome.output));
    QCOMPARE(outcome.output.count(QLatin1Char('\n')), 1);
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

QTEST_GUILESS_MAIN(TestRunDemo)
#include "TestRunDemo.moc"
