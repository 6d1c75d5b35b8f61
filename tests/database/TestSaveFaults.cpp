#include "tests/database/SaveFaults.h"

/// Each kind of save with each of its component calls failing: it is done or it is not, and the operator
/// knows.
class TestSaveFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void EachCallFails_SavesAllOrNothing_data();
    void EachCallFails_SavesAllOrNothing();
    void cleanupTestCase() const { qInfo("%d saves with a failing call", m_cases); }

private:
    int m_cases = 0;
};

void TestSaveFaults::EachCallFails_SavesAllOrNothing_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("mode");
    for (size_t kind = 0; kind < SaveKind::All().size(); ++kind) {
        for (size_t mode = 0; mode < FaultMode::All().size(); ++mode)
            QTest::addRow("%s, %s", SaveKind::All()[kind].name, FaultMode::All()[mode].name)
                << static_cast<int>(kind) << static_cast<int>(mode);
    }
}

void TestSaveFaults::EachCallFails_SavesAllOrNothing()
{
    QFETCH(int, kind);
    QFETCH(int, mode);
    FaultRun run(SaveKind::All()[static_cast<size_t>(kind)], FaultMode::All()[static_cast<size_t>(mode)]);
    QStringList problems;

    QVERIFY(run.CallCount() > 10);
    for (int k = 1; k <= run.CallCount(); ++k, ++m_cases) {
        const QString problem = run.ProblemWithCall(k);
        if (!problem.isEmpty())
            problems << problem;
    }

    QVERIFY2(problems.isEmpty(), qPrintable(QStringLiteral("%1 of %2 wrong; %3")
                                                .arg(problems.size())
                                                .arg(run.CallCount())
                                                .arg(problems.mid(0, 2).join("\n"))));
}

QTEST_GUILESS_MAIN(TestSaveFaults)
#include "TestSaveFaults.moc"
