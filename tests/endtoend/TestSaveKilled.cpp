#include "tests/components/DatabaseFixture.h"

#include <QMap>
#include <QProcess>
#include <QRandomGenerator>
#include <QTest>
#include <QThread>

namespace {

constexpr int Kills = 200;
constexpr int NodeCount = 12;
/// Saves until a kill is due, at most: some runs.
constexpr int MostSaves = 50;
constexpr int LongestWaitMs = 30'000;
/// About as long as a few saves.
constexpr int LongestDelayUs = 4000;
/// Time-out of the nodes of the very first run, in milliseconds; each run has its own.
constexpr int FirstTimeOut = 3000;

struct SavedNode
{
    int address = 0;
    int timeOut = 0;

    /// The node that is saved behind this one.
    [[nodiscard]] SavedNode Next() const
    {
        return address < NodeCount ? SavedNode{address + 1, timeOut} : SavedNode{1, timeOut + 1};
    }
    [[nodiscard]] QString Name() const { return QStringLiteral("Node %1").arg(address); }
    [[nodiscard]] QString Record() const
    {
        return QStringLiteral("Alpha|WP=NET4,ADDR=%1,TIME=%2,RETRY=5").arg(address).arg(timeOut);
    }
};

/// A program that saves found nodes again and again, killed on its way.
class KilledRun
{
public:
    KilledRun(const QString& source, int timeOut)
    {
        m_process.start(QStringLiteral(SAVE_RUN_PROGRAM),
                        {source, QString::number(NodeCount), QString::number(timeOut)});
    }
    /// Kills it some time behind that many saves. False: it ended before.
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
    /// Nodes that it told to be saved, in order; its last line may be cut.
    [[nodiscard]] std::vector<SavedNode> Saved() const
    {
        std::vector<SavedNode> saved;
        const QStringList lines = QString::fromLatin1(m_told.left(m_told.lastIndexOf('\n'))).split(u'\n');
        for (qsizetype line = 1; line < lines.size(); ++line)
            saved.push_back({lines[line].section(u' ', 0, 0).toInt(), lines[line].section(u' ', 1).toInt()});
        return saved;
    }

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
    int timeOut = FirstTimeOut;
    std::size_t told = 0;
    int untold = 0;

    for (int kill = 0; kill < Kills; ++kill) {
        KilledRun run(database.Source(), timeOut);
        QVERIFY(run.KillBehind(random.bounded(MostSaves), random.bounded(LongestDelayUs)));
        const std::vector<SavedNode> saved = run.Saved();
        told += saved.size();
        for (const SavedNode& node : saved)
            expected[node.Name()] = node.Record();

        const QMap<QString, QString> stored = StoredNodes(database);
        // The one that it was at may be saved already, whole as well.
        const SavedNode next = saved.empty() ? SavedNode{1, timeOut} : saved.back().Next();
        if (stored.value(next.Name()) == next.Record()) {
            expected[next.Name()] = next.Record();
            ++untold;
        }
        QCOMPARE(stored, expected);
        QCOMPARE(database.RunSql(QStringLiteral("SELECT count(*) FROM node")).toInt(), expected.size());
        timeOut = next.timeOut + 1;
    }

    QCOMPARE(database.RunSql(QStringLiteral("PRAGMA integrity_check")).toString(), QStringLiteral("ok"));
    QCOMPARE(database
                 .RunSql(QStringLiteral("SELECT count(*) FROM node WHERE id NOT IN (SELECT number FROM "
                                        "journal)"))
                 .toInt(),
             0);
    qInfo("%d nodes told to be saved, %d saved and not told", static_cast<int>(told), untold);
}

QTEST_GUILESS_MAIN(TestSaveKilled)
#include "TestSaveKilled.moc"
