#include "tests/browser/CommandFaultsTest.h"

/// Remove and Manage, with each of their component calls failing.
class TestCommandFaultsOthers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void EachCallFails_AllOrNothingAndAtRest_data() { CommandFaultRows(FaultedCommand::Others()); }
    void EachCallFails_AllOrNothingAndAtRest() { CheckCommandFaults(FaultedCommand::Others(), m_cases); }
    void cleanupTestCase() const { qInfo("%d commands with a failing call", m_cases); }

private:
    int m_cases = 0;
};

QTEST_MAIN(TestCommandFaultsOthers)
#include "TestCommandFaultsOthers.moc"
