#include "tests/components/DatabaseFixture.h"

#include <QMap>
#include <QProcess>
#include <QRandomGenerator>
#include <QTest>
#include <QThread>

namespace {

constexpr int Kills = 200;
constexpr int NodeCount = 12;
constexpr int LongestWaitMs = 30'000;
/// About as long as a few saves.
constexpr int LongestDelayUs = 4000;
/// Time-out of the nodes of the first run, in milliseconds; each run has its own.
constexpr int FirstTimeOut = 3000;

/// A program that saves found nodes, killed on its way.
class KilledRun
{
public:
    explicit KilledRun(const QString& source, int timeOut)
    {
        m_process.start(QStringLiteral(SAVE_RUN_PROGRAM),
                        {source, QString::number(NodeCount), QString::number(timeOut)});
    }
    /// Kills it some time behind that many saves. False: it did not get there.
    bool KillBehind(int saves, int microseconds)
    {
        while (m_told.count('\n') <= saves) {
            if (!m_process.waitForReadyRead(LongestWaitMs))
                return false;
            m_told += m_process.readAllStandardOutput();
        }
        QThread::usleep(static_cast<unsigned long>(microseconds));
        m_process.kill();
        m_process.waitForFinished();
        m_told += m_process.readAllStandardOutput();
        return m_process.exitStatus() == QProcess::CrashExit;
    }
    /// Nodes that it told to be saved.
    [[nodiscard]] int Saved() const { return static_cast<int>(m_told.count('\n')) - 1; }

private:
    QProcess m_process;
    QByteArray m_told;
};

/// Names and targets of all nodes, as they are stored.
QMap<QString, QString> StoredNodes(const DatabaseFixture& database)
{
    QMap<QString, QString> nodes;
    const QStringList rows = database.Rows(QStringLiteral(
        "SELECT n.name || '|' || c.name || '|' || n.target FROM node n LEFT JOIN connection c ON c.row_key = "
        "n.connection_key"));
    for (const QString& row : rows)
        nodes.insert(row.section(u'|', 0, 0), row.section(u'|', 1));
    return nodes;
}

QString WholeNode(int address, int timeOut)
{
    return QStringLiteral("Alpha|WP=NET4,ADDR=%1,TIME=%2,RETRY=5").arg(address).arg(timeOut);
}

} // namespace

/// What is left of a save run that is killed.
class TestSaveKilled : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Run_KilledAtRandomMoments_LeavesWholeRowsAndWhatItTold();
};

void TestSaveKilled::Run_KilledAtRandomMoments_LeavesWholeRowsAndWhatItTold()
{
    const QByteArray wanted = qgetenv("ZELKA_TEST_SEED");
    const quint32 seed = wanted.isEmpty() ? QRandomGenerator::system()->generate() : wanted.toUInt();
    qInfo("ZELKA_TEST_SEED=%u", seed);
    QRandomGenerator random(seed);
    const DatabaseFixture database;
    QMap<QString, QString> expected = StoredNodes(database);
    int savedInAll = 0;
    int savedUntold = 0;

    for (int kill = 0; kill < Kills; ++kill) {
        const int timeOut = FirstTimeOut + kill;
        KilledRun run(database.Source(), timeOut);
        QVERIFY(run.KillBehind(random.bounded(NodeCount), random.bounded(LongestDelayUs)));
        savedInAll += run.Saved();
        for (int address = 1; address <= run.Saved(); ++address)
            expected[QStringLiteral("Node %1").arg(address)] = WholeNode(address, timeOut);

        const QMap<QString, QString> stored = StoredNodes(database);
        // The one that it was at may be saved already, whole as well.
        const int next = run.Saved() + 1;
        const QString nextName = QStringLiteral("Node %1").arg(next);
        if (next <= NodeCount && stored.value(nextName) == WholeNode(next, timeOut)) {
            savedUntold += expected.value(nextName) == stored.value(nextName) ? 0 : 1;
            expected[nextName] = stored.value(nextName);
        }
        QCOMPARE(stored, expected);
        QCOMPARE(database.RunSql(QStringLiteral("SELECT count(*) FROM node")).toInt(), expected.size());
    }

    if (!DatabaseFixture::OnServer())
        QCOMPARE(database.RunSql(QStringLiteral("PRAGMA integrity_check")).toString(), QStringLiteral("ok"));
    QCOMPARE(database
                 .RunSql(QStringLiteral("SELECT count(*) FROM node WHERE id NOT IN (SELECT number FROM "
                                        "journal)"))
                 .toInt(),
             0);
    qInfo("%d nodes saved, %d of them untold", savedInAll, savedUntold);
}

QTEST_GUILESS_MAIN(TestSaveKilled)
#include "TestSaveKilled.moc"
