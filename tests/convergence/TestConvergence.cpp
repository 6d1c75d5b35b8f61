#include "tests/components/StoredTrees.h"
#include "tests/convergence/JournalWitness.h"
#include "tests/convergence/WorkstationProcess.h"

#include <QMap>
#include <QRandomGenerator>
#include <QTest>

#include <memory>

namespace {

constexpr int Workstations = 8;
constexpr int ChangesOfEach = 1000;
constexpr int ChangesBehindLastKill = 20;
constexpr int FewestKills = 5;
/// Never reached: it is killed before.
constexpr int ManyChanges = 1'000'000;
constexpr qint64 LongestRunMs = 280'000;

using Processes = std::vector<std::unique_ptr<WorkstationProcess>>;

bool All(const Processes& processes, bool (WorkstationProcess::*state)() const)
{
    return std::all_of(processes.begin(), processes.end(),
                       [state](const auto& process) { return ((*process).*state)(); });
}

} // namespace

/// Workstations in processes of their own that change one database at the same time, none of which is told of
/// the others but by the Journal.
class TestConvergence : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ManyWorkstations_RandomChanges_AllShowTheDatabase();

private:
    /// Lets them run until `condition`; False when one is lost.
    bool WaitUntil(const Processes& processes, const std::function<bool()>& condition);
    /// Kills the last one at random moments and starts it again, until the others are ready.
    int RunWithKills(const Processes& processes, const QString& source, QRandomGenerator& random);
    static void TellCounts(const Processes& processes);

    QElapsedTimer m_running;
};

bool TestConvergence::WaitUntil(const Processes& processes, const std::function<bool()>& condition)
{
    while (!condition()) {
        for (std::size_t k = 0; k < processes.size(); ++k) {
            if (!processes[k]->IsLost() && m_running.elapsed() < LongestRunMs)
                continue;
            qWarning("Workstation %d is lost; it did last:\n%s", static_cast<int>(k),
                     qPrintable(processes[k]->LastWords()));
            return false;
        }
        QTest::qWait(5);
    }
    return true;
}

int TestConvergence::RunWithKills(const Processes& processes, const QString& source, QRandomGenerator& random)
{
    WorkstationProcess& killed = *processes.back();
    const auto othersAreReady = [&processes] {
        return std::all_of(processes.begin(), processes.end() - 1,
                           [](const auto& process) { return process->IsReady(); });
    };
    for (int kills = 0;; ++kills) {
        const bool last = kills >= FewestKills && othersAreReady();
        killed.Start(source, random.generate(), last ? ChangesBehindLastKill : ManyChanges);
        QElapsedTimer life;
        life.start();
        const int longest = random.bounded(50, 2000);
        const bool wentWell = WaitUntil(processes, [&] {
            return last ? All(processes, &WorkstationProcess::IsReady) : life.elapsed() > longest;
        });
        if (!wentWell)
            return -1;
        if (last)
            return kills;
        killed.Kill();
    }
}

void TestConvergence::TellCounts(const Processes& processes)
{
    QMap<QString, int> counts;
    int reloads = 0;
    for (const auto& process : processes) {
        for (const QString& box : process->Unexpected())
            qWarning("Unexpected: %s", qPrintable(box));
        reloads += process->Reloads();
        for (const LoggedChange& change : process->Changes())
            ++counts[change.done ? QStringLiteral("done") : QStringLiteral("refused: ") + change.reason];
    }
    for (auto count = counts.constBegin(); count != counts.constEnd(); ++count)
        qInfo("%6d %s", count.value(), qPrintable(count.key()));
    qInfo("%6d reloads", reloads);
}

void TestConvergence::ManyWorkstations_RandomChanges_AllShowTheDatabase()
{
    const QByteArray wanted = qgetenv("ZELKA_TEST_SEED");
    const quint32 seed = wanted.isEmpty() ? QRandomGenerator::system()->generate() : wanted.toUInt();
    qInfo("ZELKA_TEST_SEED=%u", seed);
    QRandomGenerator random(seed);
    const DatabaseFixture database;
    JournalWitness witness(database);
    m_running.start();

    Processes processes;
    for (int k = 0; k <= Workstations; ++k) {
        processes.push_back(std::make_unique<WorkstationProcess>());
        const quint32 itsSeed = random.generate();
        qInfo("Workstation %d: seed %u", k, itsSeed);
        if (k < Workstations)
            processes.back()->Start(database.Source(), itsSeed, ChangesOfEach);
    }
    const int kills = RunWithKills(processes, database.Source(), random);
    QVERIFY(kills >= FewestKills);
    for (const auto& process : processes)
        process->Finish();
    QVERIFY(WaitUntil(processes, [&] { return All(processes, &WorkstationProcess::HasEnded); }));
    TellCounts(processes);
    qInfo("%d kills, %d ms", kills, static_cast<int>(m_running.elapsed()));

    std::vector<LoggedChange> changes;
    int reloads = 0;
    for (const auto& process : processes) {
        QCOMPARE(process->Unexpected().join(u'\n'), QString());
        if (process != processes.back())
            QCOMPARE(process->Changes().size(), std::size_t(ChangesOfEach));
        for (const LoggedChange& change : process->Changes())
            QVERIFY2(change.done || !change.reason.isEmpty(), qPrintable(change.Line()));
        changes.insert(changes.end(), process->Changes().begin(), process->Changes().end());
        reloads += process->Reloads();
        const QString difference = StoredTrees(database.Source()).Difference(process->Trees());
        QVERIFY2(
            difference.isEmpty(),
            qPrintable(difference + QStringLiteral("\nThis workstation did last:\n") + process->LastWords()));
    }
    QVERIFY(reloads > 0);
    // Of its last change a killed one cannot tell.
    QCOMPARE(witness.Check(changes, kills).join(u'\n'), QString());
    QCOMPARE(HvxAdministration::Open(database.Source())->Check().join(u'\n'), QString());
}

QTEST_GUILESS_MAIN(TestConvergence)
#include "TestConvergence.moc"
