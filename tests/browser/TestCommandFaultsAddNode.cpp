#include "tests/browser/CommandFaultsTest.h"

/// Add of a node, with each of its component calls failing.
class TestCommandFaultsAddNode : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void EachCallFails_AllOrNothingAndAtRest_data() { CommandFaultRows(FaultedCommand::NodeAdditions()); }
    void EachCallFails_AllOrNothingAndAtRest()
    {
        CheckCommandFaults(FaultedCommand::NodeAdditions(), m_cases);
    }
    void cleanupTestCase() const { qInfo("%d commands with a failing call", m_cases); }

private:
    int m_cases = 0;
};

QTEST_MAIN(TestCommandFaultsAddNode)
#include "TestCommandFaultsAddNode.moc"
