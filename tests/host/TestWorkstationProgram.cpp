#include "tests/components/DatabaseFixture.h"
#include "tests/host/RunProgram.h"
#include "tests/tools/netsim/NetsimProgram.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

/// A picture that shows something: many colours, not one plain area.
bool ShowsSomething(const QImage& image)
{
    QSet<QRgb> colors;
    for (int y = 0; y < image.height(); y += 4) {
        for (int x = 0; x < image.width(); x += 4)
            colors.insert(image.pixel(x, y));
    }
    return colors.size() > 20;
}

} // namespace

/// The built program on a machine without a display, as `make run` starts it there.
class TestWorkstationProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void Start_NoDisplay_PrintsTheTargetOfTheFirstNode();
    void Start_NoDisplay_WritesPicturesOfThePages();
    void Start_Network_PrintsTheIdentification();
    void Start_NoGateway_TellsAndGoesOn();
    void Start_NodeRefused_TellsAndEndsRefused();
    void Start_NoFolderChosen_NamesTheFolderItMade();
    void Start_SourceFromEnvironment_OpensIt();
    void Start_BothSources_OptionWins();
    void Start_DatabaseMissing_TellsAndCreatesNothing();
    void Start_NotADatabase_TellsAndLeavesTheFileAlone();
    void Start_DatabaseWithoutNodes_TellsAndEndsRefused();
    void Start_FolderCannotBeMade_EndsRefused();
    void Start_FirstRun_OpensTheDatabaseTab();
    void Start_SecondRun_FindsThePropertiesOfTheFirst();
    void Start_DamagedSettings_FallsBackToDefaults();
    void Options_Mistaken_ShowUsage_data();
    void Options_Mistaken_ShowUsage();
    void Version_Asked_IsPrinted();
    void Help_Asked_NamesTheOptions();

private:
    /// Starts the program in a home of its own and waits for its end.
    [[nodiscard]] Outcome Run(const QStringList& arguments,
                              const QString& sourceInEnvironment = QString()) const;
    [[nodiscard]] Outcome RunOn(const QString& source) const;
    [[nodiscard]] QString Home(const QString& name) const { return m_home->filePath(name); }
    [[nodiscard]] QString SettingsFile() const
    {
        return Home(QStringLiteral("config/Zelka/Workstation.ini"));
    }

    std::unique_ptr<QTemporaryDir> m_home;
    DatabaseFixture m_database;
};

/// East hangs on Beta, whose gateway is one that nobody runs; what equals its default is left out.
static const QString EastTarget =
    QStringLiteral("WP=SOCKET,HOST=127.0.0.1,PORT=9,WP=BUST4,ID=7,WP=NET4,ADDR=4094");

/// Leads Beta to another gateway.
static void LeadBetaTo(const DatabaseFixture& database, quint16 port)
{
    database.OpenComponent()->ReplaceParentTarget(
        QStringLiteral("Beta"),
        QStringLiteral("WP=SOCKET,HOST=127.0.0.1,PORT=%1,WP=BUST4,ID=7,WP=OPT").arg(port));
}

void TestWorkstationProgram::initTestCase()
{
    LeadBetaTo(m_database, 9);
}

void TestWorkstationProgram::init()
{
    m_home = std::make_unique<QTemporaryDir>();
    QVERIFY(m_home->isValid());
    for (const char* folder : {"config/Zelka", "data", "temp", "pictures"})
        QVERIFY(QDir().mkpath(Home(QLatin1String(folder))));
}

Outcome TestWorkstationProgram::Run(const QStringList& arguments, const QString& sourceInEnvironment) const
{
    return RunWithoutDisplay(QStringLiteral(ZELKA_WORKSTATION_PROGRAM), arguments, m_home->path(),
                             sourceInEnvironment);
}

Outcome TestWorkstationProgram::RunOn(const QString& source) const
{
    return Run({QStringLiteral("--database"), source, QStringLiteral("--screenshots"),
                Home(QStringLiteral("pictures"))});
}

void TestWorkstationProgram::Start_NoDisplay_PrintsTheTargetOfTheFirstNode()
{
    const Outcome outcome = RunOn(m_database.Source());

    QVERIFY2(outcome.code == 0, qUtf8Printable(outcome.errors));
    QCOMPARE(outcome.output, EastTarget + QLatin1Char('\n'));
}

void TestWorkstationProgram::Start_NoDisplay_WritesPicturesOfThePages()
{
    const Outcome outcome = RunOn(m_database.Source());

    QCOMPARE(outcome.code, 0);
    const QDir pictures(Home(QStringLiteral("pictures")));
    QCOMPARE(pictures.entryList(QDir::Files, QDir::Name),
             (QStringList{"connections.png", "direct.png", "nodes.png"}));
    const QImage nodes(pictures.filePath(QStringLiteral("nodes.png")));
    const QImage connections(pictures.filePath(QStringLiteral("connections.png")));
    const QImage direct(pictures.filePath(QStringLiteral("direct.png")));
    for (const QImage& image : {nodes, connections, direct})
        QVERIFY(ShowsSomething(image));
    QVERIFY(nodes != connections);
    QVERIFY(nodes != direct);
    QVERIFY(connections != direct);
}

void TestWorkstationProgram::Start_Network_PrintsTheIdentification()
{
    NetsimProgram network;
    network.Serve({network.Write(QStringLiteral("network.json"),
                                 R"({"buses": [{"number": 7, "nodes": [
                                     {"address": 4094, "identification": "Köln"}]}]})"),
                   QStringLiteral("--quiet")});
    const DatabaseFixture database;
    LeadBetaTo(database, network.Port());

    const Outcome outcome = RunOn(database.Source());

    QVERIFY2(outcome.code == 0, qUtf8Printable(outcome.errors));
    QCOMPARE(outcome.output.section(u'\n', 1), QStringLiteral("identification: Köln\n"));
}

void TestWorkstationProgram::Start_NoGateway_TellsAndGoesOn()
{
    const Outcome outcome = RunOn(m_database.Source());

    QCOMPARE(outcome.code, 0);
    QCOMPARE(outcome.output, EastTarget + QLatin1Char('\n'));
    QVERIFY2(outcome.errors.contains(QStringLiteral("(Major code = 2, Minor code = 2)")),
             qUtf8Printable(outcome.errors));
}

void TestWorkstationProgram::Start_NodeRefused_TellsAndEndsRefused()
{
    NetsimProgram network;
    network.Serve(
        {network.Write(QStringLiteral("network.json"), R"({"buses": []})"), QStringLiteral("--quiet")});
    const DatabaseFixture database;
    LeadBetaTo(database, network.Port());

    const Outcome outcome = RunOn(database.Source());

    QCOMPARE(outcome.code, 1);
    QVERIFY2(outcome.errors.contains(QStringLiteral("(Major code = 3, Minor code = 1)")),
             qUtf8Printable(outcome.errors));
    QCOMPARE(QDir(Home(QStringLiteral("pictures"))).entryList(QDir::Files).size(), 3);
}

void TestWorkstationProgram::Start_NoFolderChosen_NamesTheFolderItMade()
{
    const Outcome outcome = Run({QStringLiteral("--database"), m_database.Source()});

    QCOMPARE(outcome.code, 0);
    const QRegularExpressionMatch match =
        QRegularExpression(QStringLiteral("screenshots in (.+)\\n")).match(outcome.errors);
    QVERIFY2(match.hasMatch(), qUtf8Printable(outcome.errors));
    QVERIFY(match.captured(1).startsWith(Home(QStringLiteral("temp"))));
    QCOMPARE(QDir(match.captured(1)).entryList(QDir::Files).size(), 3);
}

void TestWorkstationProgram::Start_SourceFromEnvironment_OpensIt()
{
    const Outcome outcome = Run({}, m_database.Source());

    QVERIFY2(outcome.code == 0, qUtf8Printable(outcome.errors));
    QCOMPARE(outcome.output, EastTarget + QLatin1Char('\n'));
}

void TestWorkstationProgram::Start_BothSources_OptionWins()
{
    const Outcome outcome =
        Run({QStringLiteral("--database"), m_database.Source()}, Home(QStringLiteral("missing.mdb")));

    QVERIFY2(outcome.code == 0, qUtf8Printable(outcome.errors));
    QCOMPARE(outcome.output, EastTarget + QLatin1Char('\n'));
}

void TestWorkstationProgram::Start_DatabaseMissing_TellsAndCreatesNothing()
{
    const QString missing = Home(QStringLiteral("data/missing.mdb"));

    const Outcome outcome = RunOn(missing);

    QCOMPARE(outcome.code, 3);
    QVERIFY(outcome.output.isEmpty());
    QVERIFY2(outcome.errors.contains(QStringLiteral("no database was opened")),
             qUtf8Printable(outcome.errors));
    QVERIFY(!QFileInfo::exists(missing));
    QCOMPARE(QDir(Home(QStringLiteral("pictures"))).entryList(QDir::Files), QStringList{"direct.png"});
}

void TestWorkstationProgram::Start_NotADatabase_TellsAndLeavesTheFileAlone()
{
    const QByteArray contents("These are notes and no database.\n");
    QFile notes(Home(QStringLiteral("data/notes.txt")));
    QVERIFY(notes.open(QIODevice::WriteOnly));
    notes.write(contents);
    notes.close();

    const Outcome outcome = RunOn(notes.fileName());

    QCOMPARE(outcome.code, 3);
    QVERIFY(outcome.output.isEmpty());
    QVERIFY(notes.open(QIODevice::ReadOnly));
    QCOMPARE(notes.readAll(), contents);
}

void TestWorkstationProgram::Start_DatabaseWithoutNodes_TellsAndEndsRefused()
{
    const DatabaseFixture empty(DatabaseFixture::Contents::Empty);

    const Outcome outcome = RunOn(empty.Source());

    QCOMPARE(outcome.code, 1);
    QVERIFY(outcome.output.isEmpty());
    QVERIFY2(outcome.errors.contains(QStringLiteral("the database has no node")),
             qUtf8Printable(outcome.errors));
}

void TestWorkstationProgram::Start_FolderCannotBeMade_EndsRefused()
{
    QFile inTheWay(Home(QStringLiteral("file")));
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    inTheWay.close();

    const Outcome outcome = Run({QStringLiteral("--database"), m_database.Source(),
                                 QStringLiteral("--screenshots"), Home(QStringLiteral("file/pictures"))});

    QCOMPARE(outcome.code, 1);
    QVERIFY(outcome.output.isEmpty());
    QVERIFY2(outcome.errors.contains(QStringLiteral("cannot make the folder")),
             qUtf8Printable(outcome.errors));
}

void TestWorkstationProgram::Start_FirstRun_OpensTheDatabaseTab()
{
    QCOMPARE(RunOn(m_database.Source()).code, 0);

    const QSettings settings(SettingsFile(), QSettings::IniFormat);
    QCOMPARE(settings.value(QStringLiteral("Browser/BrowserTabIndex")).toString(), QStringLiteral("0"));
    QCOMPARE(settings.value(QStringLiteral("Browser/RefreshInterval")).toString(), QStringLiteral("30000"));
    QVERIFY(!settings.contains(QStringLiteral("Browser/JournalDayLimit")));
}

void TestWorkstationProgram::Start_SecondRun_FindsThePropertiesOfTheFirst()
{
    {
        QSettings settings(SettingsFile(), QSettings::IniFormat);
        settings.setValue(QStringLiteral("Browser/RefreshInterval"), 45000);
        settings.setValue(QStringLiteral("Browser/JournalDayLimit"), 7);
        settings.setValue(QStringLiteral("Browser/RefreshVisible"), false);
    }

    // What the second run reads is what the first has written at its close.
    QCOMPARE(RunOn(m_database.Source()).code, 0);
    QCOMPARE(RunOn(m_database.Source()).code, 0);

    const QSettings settings(SettingsFile(), QSettings::IniFormat);
    QCOMPARE(settings.value(QStringLiteral("Browser/RefreshInterval")).toString(), QStringLiteral("45000"));
    QCOMPARE(settings.value(QStringLiteral("Browser/JournalDayLimit")).toString(), QStringLiteral("7"));
    QCOMPARE(settings.value(QStringLiteral("Browser/RefreshVisible")).toString(), QStringLiteral("false"));
    // The entry that a run selects last is a connection.
    QCOMPARE(settings.value(QStringLiteral("Browser/Sobriquet")).toString(), QStringLiteral("Alpha"));
}

void TestWorkstationProgram::Start_DamagedSettings_FallsBackToDefaults()
{
    QFile file(SettingsFile());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(
        "[Browser]\nRefreshInterval=often\nRefreshVisible=perhaps\nBrowserTabIndex=\n\xff\xfe[[[\n=\n");
    file.close();

    const Outcome outcome = RunOn(m_database.Source());

    QVERIFY2(outcome.code == 0, qUtf8Printable(outcome.errors));
    QCOMPARE(outcome.output, EastTarget + QLatin1Char('\n'));
}

void TestWorkstationProgram::Options_Mistaken_ShowUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("unknown") << QStringList{"--colour"};
    QTest::newRow("value missing") << QStringList{"--database"};
    QTest::newRow("value empty") << QStringList{"--database", ""};
    QTest::newRow("folder empty") << QStringList{"--screenshots", ""};
    QTest::newRow("theme unknown") << QStringList{"--theme", "pink"};
    QTest::newRow("stray word") << QStringList{"Dbs.mdb"};
}

void TestWorkstationProgram::Options_Mistaken_ShowUsage()
{
    QFETCH(QStringList, arguments);

    const Outcome outcome = Run(arguments);

    QCOMPARE(outcome.code, 2);
    QVERIFY(outcome.output.isEmpty());
    QVERIFY2(outcome.errors.contains(QStringLiteral("Usage: zelka-workstation")),
             qUtf8Printable(outcome.errors));
}

void TestWorkstationProgram::Version_Asked_IsPrinted()
{
    const Outcome outcome = Run({QStringLiteral("--version")});

    QCOMPARE(outcome.code, 0);
    QCOMPARE(outcome.output, QStringLiteral("zelka-workstation " ZELKA_VERSION "\n"));
}

void TestWorkstationProgram::Help_Asked_NamesTheOptions()
{
    const Outcome outcome = Run({QStringLiteral("--help")});

    QCOMPARE(outcome.code, 0);
    for (const char* option :
         {"--database", "--screenshots", "--theme", "--version", "--help", "ZELKA_DBS32"})
        QVERIFY2(outcome.output.contains(QLatin1String(option)), option);
}

QTEST_GUILESS_MAIN(TestWorkstationProgram)
#include "TestWorkstationProgram.moc"
